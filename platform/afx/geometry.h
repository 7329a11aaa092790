// CPoint, CSize and CRect: the platform's plain structures with arithmetic. Right and bottom of a rectangle are
// outside.
#pragma once

#include "platform/gdi/gdi.h"

class CSize : public tagSIZE
{
public:
    constexpr CSize() : tagSIZE{0, 0} {}
    constexpr CSize(int width, int height) : tagSIZE{width, height} {}
    constexpr CSize(const SIZE& size) : tagSIZE(size) {}
    constexpr explicit CSize(const POINT& point) : tagSIZE{point.x, point.y} {}

    void SetSize(int width, int height) { *this = CSize(width, height); }
    CSize& operator+=(SIZE size) { return *this = CSize(cx + size.cx, cy + size.cy); }
    CSize& operator-=(SIZE size) { return *this = CSize(cx - size.cx, cy - size.cy); }
    constexpr CSize operator-() const { return {-cx, -cy}; }

    friend constexpr bool operator==(const CSize& a, const SIZE& b) { return a.cx == b.cx && a.cy == b.cy; }
    friend constexpr bool operator==(const CSize& a, const CSize& b) { return a.cx == b.cx && a.cy == b.cy; }
    friend constexpr CSize operator+(const CSize& a, const SIZE& b) { return {a.cx + b.cx, a.cy + b.cy}; }
    friend constexpr CSize operator-(const CSize& a, const SIZE& b) { return {a.cx - b.cx, a.cy - b.cy}; }
};

class CPoint : public tagPOINT
{
public:
    constexpr CPoint() : tagPOINT{0, 0} {}
    constexpr CPoint(int x_, int y_) : tagPOINT{x_, y_} {}
    constexpr CPoint(const POINT& point) : tagPOINT(point) {}
    constexpr explicit CPoint(const SIZE& size) : tagPOINT{size.cx, size.cy} {}
    // Low word x, high word y, each signed: the position within a mouse message.
    constexpr explicit CPoint(LPARAM packed) : tagPOINT{SHORT(WORD(packed)), SHORT(WORD(packed >> 16))} {}

    void SetPoint(int newX, int newY) { *this = CPoint(newX, newY); }
    void Offset(int dx, int dy) { *this = CPoint(x + dx, y + dy); }
    void Offset(const POINT& by) { Offset(by.x, by.y); }
    void Offset(const SIZE& by) { Offset(by.cx, by.cy); }
    CPoint& operator+=(const SIZE& by) { return *this = CPoint(x + by.cx, y + by.cy); }
    CPoint& operator-=(const SIZE& by) { return *this = CPoint(x - by.cx, y - by.cy); }
    CPoint& operator+=(const POINT& by) { return *this = CPoint(x + by.x, y + by.y); }
    CPoint& operator-=(const POINT& by) { return *this = CPoint(x - by.x, y - by.y); }
    constexpr CPoint operator-() const { return {-x, -y}; }

    friend constexpr bool operator==(const CPoint& a, const POINT& b) { return a.x == b.x && a.y == b.y; }
    friend constexpr bool operator==(const CPoint& a, const CPoint& b) { return a.x == b.x && a.y == b.y; }
    friend constexpr CPoint operator+(const CPoint& a, const SIZE& b) { return {a.x + b.cx, a.y + b.cy}; }
    friend constexpr CPoint operator-(const CPoint& a, const SIZE& b) { return {a.x - b.cx, a.y - b.cy}; }
    friend constexpr CPoint operator+(const CPoint& a, const POINT& b) { return {a.x + b.x, a.y + b.y}; }
    friend constexpr CSize operator-(const CPoint& a, const POINT& b) { return {a.x - b.x, a.y - b.y}; }
};

class CRect : public tagRECT
{
public:
    constexpr CRect() : tagRECT{0, 0, 0, 0} {}
    constexpr CRect(int l, int t, int r, int b) : tagRECT{l, t, r, b} {}
    constexpr CRect(const RECT& rect) : tagRECT(rect) {}
    constexpr CRect(const RECT* rect) : tagRECT(*rect) {}
    constexpr CRect(const POINT& point, const SIZE& size)
        : tagRECT{point.x, point.y, point.x + size.cx, point.y + size.cy}
    {
    }
    constexpr CRect(const POINT& topLeft, const POINT& bottomRight)
        : tagRECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y}
    {
    }

    constexpr int Width() const { return right - left; }
    constexpr int Height() const { return bottom - top; }
    constexpr CSize Size() const { return {Width(), Height()}; }
    constexpr CPoint TopLeft() const { return {left, top}; }
    constexpr CPoint BottomRight() const { return {right, bottom}; }
    constexpr CPoint CenterPoint() const { return {(left + right) / 2, (top + bottom) / 2}; }
    BOOL IsRectEmpty() const { return ::IsRectEmpty(this); }
    BOOL IsRectNull() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    BOOL PtInRect(POINT point) const { return ::PtInRect(this, point); }
    BOOL EqualRect(const RECT* other) const { return ::EqualRect(this, other); }

    operator RECT*() { return this; }
    operator const RECT*() const { return this; }

    void SetRect(int l, int t, int r, int b) { *this = CRect(l, t, r, b); }
    void SetRectEmpty() { *this = CRect(); }
    void CopyRect(const RECT* from) { ::CopyRect(this, from); }
    // Swaps sides so that width and height are at least 0.
    void NormalizeRect();
    void InflateRect(int x, int y) { ::InflateRect(this, x, y); }
    void InflateRect(const SIZE& by) { InflateRect(by.cx, by.cy); }
    void InflateRect(int l, int t, int r, int b) { *this = CRect(left - l, top - t, right + r, bottom + b); }
    void DeflateRect(int x, int y) { InflateRect(-x, -y); }
    void DeflateRect(const SIZE& by) { InflateRect(-by.cx, -by.cy); }
    void DeflateRect(int l, int t, int r, int b) { InflateRect(-l, -t, -r, -b); }
    void OffsetRect(int x, int y) { ::OffsetRect(this, x, y); }
    void OffsetRect(const POINT& by) { OffsetRect(by.x, by.y); }
    void OffsetRect(const SIZE& by) { OffsetRect(by.cx, by.cy); }
    void MoveToXY(int x, int y) { OffsetRect(x - left, y - top); }
    // False, and the rectangle empty, if the two share nothing.
    BOOL IntersectRect(const RECT* first, const RECT* second) { return ::IntersectRect(this, first, second); }
    BOOL UnionRect(const RECT* first, const RECT* second) { return ::UnionRect(this, first, second); }
    BOOL SubtractRect(const RECT* first, const RECT* second) { return ::SubtractRect(this, first, second); }

    CRect& operator+=(const POINT& by) { return *this = CRect(left + by.x, top + by.y, right + by.x, bottom + by.y); }
    CRect& operator-=(const POINT& by) { return *this = CRect(left - by.x, top - by.y, right - by.x, bottom - by.y); }
    CRect& operator&=(const RECT& other)
    {
        IntersectRect(this, &other);
        return *this;
    }
    CRect& operator|=(const RECT& other)
    {
        UnionRect(this, &other);
        return *this;
    }
    friend CRect operator&(CRect a, const RECT& b) { return a &= b; }
    friend CRect operator|(CRect a, const RECT& b) { return a |= b; }
    friend CRect operator+(CRect a, const POINT& by) { return a += by; }
    friend CRect operator-(CRect a, const POINT& by) { return a -= by; }
    friend bool operator==(const CRect& a, const RECT& b) { return ::EqualRect(&a, &b); }
    friend bool operator==(const CRect& a, const CRect& b) { return ::EqualRect(&a, &b); }
};

inline void CRect::NormalizeRect()
{
    *this = CRect(left < right ? left : right, top < bottom ? top : bottom, left < right ? right : left,
                  top < bottom ? bottom : top);
}
