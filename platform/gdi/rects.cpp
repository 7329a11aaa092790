// Arithmetic on rectangles, and MulDiv.
#include "platform/gdi/gdi.h"

#include <algorithm>
#include <cstdlib>

namespace
{

LONG wrappedSum(LONG a, LONG b)
{
    return LONG(ULONG(a) + ULONG(b));
}

} // namespace

BOOL SetRect(RECT* rect, int left, int top, int right, int bottom)
{
    if (!rect)
        return FALSE;
    *rect = {left, top, right, bottom};
    return TRUE;
}

BOOL SetRectEmpty(RECT* rect)
{
    return SetRect(rect, 0, 0, 0, 0);
}

BOOL CopyRect(RECT* to, const RECT* from)
{
    if (!to || !from)
        return FALSE;
    *to = *from;
    return TRUE;
}

BOOL IsRectEmpty(const RECT* rect)
{
    return !rect || rect->left >= rect->right || rect->top >= rect->bottom;
}

BOOL EqualRect(const RECT* first, const RECT* second)
{
    return first && second && first->left == second->left && first->top == second->top &&
           first->right == second->right && first->bottom == second->bottom;
}

BOOL InflateRect(RECT* rect, int x, int y)
{
    if (!rect)
        return FALSE;
    rect->left = LONG(ULONG(rect->left) - ULONG(x));
    rect->top = LONG(ULONG(rect->top) - ULONG(y));
    rect->right = wrappedSum(rect->right, x);
    rect->bottom = wrappedSum(rect->bottom, y);
    return TRUE;
}

BOOL OffsetRect(RECT* rect, int x, int y)
{
    if (!rect)
        return FALSE;
    rect->left = wrappedSum(rect->left, x);
    rect->right = wrappedSum(rect->right, x);
    rect->top = wrappedSum(rect->top, y);
    rect->bottom = wrappedSum(rect->bottom, y);
    return TRUE;
}

BOOL IntersectRect(RECT* result, const RECT* first, const RECT* second)
{
    if (!result || !first || !second)
        return FALSE;
    const RECT both{std::max(first->left, second->left), std::max(first->top, second->top),
                    std::min(first->right, second->right), std::min(first->bottom, second->bottom)};
    if (IsRectEmpty(first) || IsRectEmpty(second) || IsRectEmpty(&both))
    {
        SetRectEmpty(result);
        return FALSE;
    }
    *result = both;
    return TRUE;
}

BOOL UnionRect(RECT* result, const RECT* first, const RECT* second)
{
    if (!result || !first || !second)
        return FALSE;
    const bool noFirst = IsRectEmpty(first), noSecond = IsRectEmpty(second);
    if (noFirst && noSecond)
    {
        SetRectEmpty(result);
        return FALSE;
    }
    if (noFirst || noSecond)
    {
        *result = noFirst ? *second : *first;
        return TRUE;
    }
    *result = {std::min(first->left, second->left), std::min(first->top, second->top),
               std::max(first->right, second->right), std::max(first->bottom, second->bottom)};
    return TRUE;
}

BOOL SubtractRect(RECT* result, const RECT* first, const RECT* second)
{
    if (!result || !first || !second)
        return FALSE;
    RECT rest = *first;
    RECT both;
    if (IntersectRect(&both, first, second))
    {
        // Only a cut along a whole side leaves a rectangle.
        if (EqualRect(&both, first))
            SetRectEmpty(&rest);
        else if (both.top == first->top && both.bottom == first->bottom)
        {
            if (both.left == first->left)
                rest.left = both.right;
            else if (both.right == first->right)
                rest.right = both.left;
        }
        else if (both.left == first->left && both.right == first->right)
        {
            if (both.top == first->top)
                rest.top = both.bottom;
            else if (both.bottom == first->bottom)
                rest.bottom = both.top;
        }
    }
    *result = rest;
    return !IsRectEmpty(result);
}

BOOL PtInRect(const RECT* rect, POINT point)
{
    return rect && point.x >= rect->left && point.x < rect->right && point.y >= rect->top && point.y < rect->bottom;
}

int MulDiv(int number, int numerator, int denominator)
{
    if (denominator == 0)
        return -1;
    const std::int64_t product = std::int64_t(number) * numerator;
    const std::int64_t divisor = std::abs(std::int64_t(denominator));
    const std::int64_t size = (std::abs(product) + divisor / 2) / divisor;
    if (size > INT32_MAX)
        return -1;
    return int((product < 0) != (denominator < 0) ? -size : size);
}
