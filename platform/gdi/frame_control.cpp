// Edges and frame controls in the classic look.
#include "platform/gdi/gdi.h"
#include "platform/gdi/raster/rect.h"

#include <algorithm>
#include <iterator>

namespace
{

// One ring of an edge: the system colours of its upper left and its lower right.
struct Ring
{
    int upperLeft, lowerRight;
};

bool ringOf(UINT part, UINT flags, bool outer, Ring& ring)
{
    if (part == 0)
        return false;
    const bool raised = (part & (BDR_RAISEDOUTER | BDR_RAISEDINNER)) != 0;
    if (flags & BF_MONO)
    {
        ring = outer ? Ring{COLOR_WINDOWFRAME, COLOR_WINDOWFRAME} : Ring{COLOR_WINDOW, COLOR_WINDOW};
        return true;
    }
    if (flags & BF_FLAT)
    {
        ring = outer ? Ring{COLOR_BTNSHADOW, COLOR_BTNSHADOW} : Ring{COLOR_BTNFACE, COLOR_BTNFACE};
        return true;
    }
    // A soft edge has its light and highlight, and its two shadows, the other way round.
    const bool first = outer != ((flags & BF_SOFT) != 0);
    if (raised)
        ring = {first ? COLOR_3DLIGHT : COLOR_BTNHIGHLIGHT, outer ? COLOR_3DDKSHADOW : COLOR_BTNSHADOW};
    else
        ring = {first ? COLOR_BTNSHADOW : COLOR_3DDKSHADOW, outer ? COLOR_BTNHIGHLIGHT : COLOR_3DLIGHT};
    return true;
}

void bar(HDC dc, int left, int top, int right, int bottom, int color)
{
    const RECT rect{left, top, right, bottom};
    if (left < right && top < bottom)
        FillRect(dc, &rect, GetSysColorBrush(color));
}

// Draws the asked sides and takes them off the rectangle.
void drawRing(HDC dc, RECT& r, const Ring& ring, UINT flags)
{
    if (flags & BF_LEFT)
        bar(dc, r.left, r.top, r.left + 1, r.bottom, ring.upperLeft);
    if (flags & BF_TOP)
        bar(dc, r.left, r.top, r.right, r.top + 1, ring.upperLeft);
    if (flags & BF_RIGHT)
        bar(dc, r.right - 1, r.top, r.right, r.bottom, ring.lowerRight);
    if (flags & BF_BOTTOM)
        bar(dc, r.left, r.bottom - 1, r.right, r.bottom, ring.lowerRight);
    r.left += (flags & BF_LEFT) != 0;
    r.top += (flags & BF_TOP) != 0;
    r.right -= (flags & BF_RIGHT) != 0;
    r.bottom -= (flags & BF_BOTTOM) != 0;
}

// Selects what filled marks are drawn with, for as long as it lives.
class Marks
{
public:
    Marks(HDC target, int color)
        : dc(target), oldPen(SelectObject(dc, GetStockObject(NULL_PEN))),
          oldBrush(SelectObject(dc, GetSysColorBrush(color)))
    {
    }
    ~Marks()
    {
        SelectObject(dc, oldBrush);
        SelectObject(dc, oldPen);
    }
    Marks(const Marks&) = delete;
    Marks& operator=(const Marks&) = delete;

private:
    HDC dc;
    HGDIOBJ oldPen, oldBrush;
};

int markColor(UINT state)
{
    return state & DFCS_INACTIVE ? COLOR_GRAYTEXT : COLOR_BTNTEXT;
}

// The square that round and square boxes are drawn in.
RECT squareOf(const RECT& r)
{
    const LONG side = std::min(r.right - r.left, r.bottom - r.top);
    const LONG left = r.left + (r.right - r.left - side) / 2, top = r.top + (r.bottom - r.top - side) / 2;
    return {left, top, left + side, top + side};
}

void drawPush(HDC dc, RECT& r, UINT state)
{
    const UINT shape = BF_RECT | BF_MIDDLE | BF_SOFT | BF_ADJUST | (state & DFCS_FLAT ? BF_FLAT : 0) |
                       (state & DFCS_MONO ? BF_MONO : 0);
    DrawEdge(dc, &r, state & (DFCS_PUSHED | DFCS_CHECKED) ? EDGE_SUNKEN : EDGE_RAISED, shape);
}

void drawCheck(HDC dc, const RECT& rect, UINT state)
{
    RECT r = squareOf(rect);
    const UINT flat = (state & DFCS_FLAT ? BF_FLAT : 0) | (state & DFCS_MONO ? BF_MONO : 0);
    DrawEdge(dc, &r, EDGE_SUNKEN, BF_RECT | BF_ADJUST | flat);
    FillRect(dc, &r, GetSysColorBrush(state & (DFCS_INACTIVE | DFCS_PUSHED) ? COLOR_BTNFACE : COLOR_WINDOW));
    if (!(state & DFCS_CHECKED))
        return;
    const Marks marks(dc, markColor(state));
    const LONG s = r.right - r.left, x = r.left, y = r.top;
    const POINT tick[] = {{x + s / 8, y + s / 2},     {x + s * 3 / 8, y + s * 3 / 4},
                          {x + s * 7 / 8, y + s / 4}, {x + s * 7 / 8, y + s / 4 + s / 4},
                          {x + s * 3 / 8, y + s},     {x + s / 8, y + s * 3 / 4}};
    Polygon(dc, tick, int(std::size(tick)));
}

void drawRadio(HDC dc, const RECT& rect, UINT state)
{
    const RECT r = squareOf(rect);
    {
        const Marks rim(dc, COLOR_BTNSHADOW);
        Ellipse(dc, r.left, r.top, r.right, r.bottom);
    }
    {
        const Marks field(dc, state & (DFCS_INACTIVE | DFCS_PUSHED) ? COLOR_BTNFACE : COLOR_WINDOW);
        Ellipse(dc, r.left + 1, r.top + 1, r.right - 1, r.bottom - 1);
    }
    if (state & DFCS_CHECKED)
    {
        const LONG inset = (r.right - r.left) / 3;
        const Marks dot(dc, markColor(state));
        Ellipse(dc, r.left + inset, r.top + inset, r.right - inset, r.bottom - inset);
    }
}

BOOL drawButton(HDC dc, RECT& r, UINT state)
{
    switch (state & 0x1F)
    {
    case DFCS_BUTTONPUSH:
        drawPush(dc, r, state);
        return TRUE;
    case DFCS_BUTTONCHECK:
    case DFCS_BUTTON3STATE:
        drawCheck(dc, r, state);
        return TRUE;
    case DFCS_BUTTONRADIO:
    case DFCS_BUTTONRADIOIMAGE:
    case DFCS_BUTTONRADIOMASK:
        drawRadio(dc, r, state);
        return TRUE;
    default:
        return FALSE;
    }
}

// A triangle that points up, down, left or right, in the middle of a rectangle.
void drawArrow(HDC dc, const RECT& r, UINT direction, UINT state)
{
    const LONG size = std::max<LONG>(2, std::min(r.right - r.left, r.bottom - r.top) / 4);
    const LONG push = state & DFCS_PUSHED ? 1 : 0;
    const LONG cx = (r.left + r.right) / 2 + push, cy = (r.top + r.bottom) / 2 + push;
    const Marks marks(dc, markColor(state));
    // Row by row, so that both sides are alike.
    for (LONG i = 0; i < size; ++i)
    {
        const LONG from = -(size / 2) + i;
        switch (direction)
        {
        case DFCS_SCROLLUP:
            PatBlt(dc, cx - i, cy + from, 2 * i + 1, 1, PATCOPY);
            break;
        case DFCS_SCROLLLEFT:
            PatBlt(dc, cx + from, cy - i, 1, 2 * i + 1, PATCOPY);
            break;
        case DFCS_SCROLLRIGHT:
            PatBlt(dc, cx - from, cy - i, 1, 2 * i + 1, PATCOPY);
            break;
        default:
            PatBlt(dc, cx - i, cy - from, 2 * i + 1, 1, PATCOPY);
            break;
        }
    }
}

void drawGrip(HDC dc, const RECT& r)
{
    FillRect(dc, &r, GetSysColorBrush(COLOR_BTNFACE));
    const LONG size = std::min({r.right - r.left, r.bottom - r.top, LONG(12)});
    for (LONG i = 1; i <= size; ++i)
    {
        const int color = i % 4 == 1 ? COLOR_BTNHIGHLIGHT : i % 4 != 0 ? COLOR_BTNSHADOW : COLOR_BTNFACE;
        const Marks marks(dc, color);
        for (LONG k = 0; k < size - i + 1; ++k)
            PatBlt(dc, r.right - size + i - 1 + k, r.bottom - 1 - k, 1, 1, PATCOPY);
    }
}

BOOL drawScroll(HDC dc, RECT& r, UINT state)
{
    const UINT kind = state & 0x1F;
    if (kind == DFCS_SCROLLSIZEGRIP)
    {
        drawGrip(dc, r);
        return TRUE;
    }
    if (kind > DFCS_SCROLLCOMBOBOX || kind == 4)
        return FALSE;
    RECT face = r;
    DrawEdge(dc, &face, state & DFCS_PUSHED ? EDGE_SUNKEN : EDGE_RAISED,
             BF_RECT | BF_MIDDLE | BF_ADJUST | (state & (DFCS_FLAT | DFCS_PUSHED) ? BF_FLAT : 0));
    drawArrow(dc, r, kind == DFCS_SCROLLCOMBOBOX ? DFCS_SCROLLDOWN : kind, state);
    return TRUE;
}

} // namespace

BOOL DrawEdge(HDC dc, RECT* rect, UINT edge, UINT flags)
{
    if (GetObjectType(dc) != OBJ_MEMDC || !rect)
        return FALSE;
    RECT r = kv::raster::limited(*rect);
    Ring ring;
    if (ringOf(edge & (BDR_RAISEDOUTER | BDR_SUNKENOUTER), flags, true, ring))
        drawRing(dc, r, ring, flags);
    if (ringOf(edge & (BDR_RAISEDINNER | BDR_SUNKENINNER), flags, false, ring))
        drawRing(dc, r, ring, flags);
    if (flags & BF_MIDDLE)
        bar(dc, r.left, r.top, r.right, r.bottom, flags & BF_MONO ? COLOR_WINDOW : COLOR_BTNFACE);
    if (flags & BF_ADJUST)
        *rect = r;
    return TRUE;
}

BOOL DrawFrameControl(HDC dc, RECT* rect, UINT kind, UINT state)
{
    if (GetObjectType(dc) != OBJ_MEMDC || !rect || rect->left > rect->right || rect->top > rect->bottom)
        return FALSE;
    RECT r = kv::raster::limited(*rect);
    switch (kind)
    {
    case DFC_BUTTON:
        if (!drawButton(dc, r, state))
            return FALSE;
        if (state & DFCS_ADJUSTRECT)
            *rect = r; // what a push button's edge leaves
        return TRUE;
    case DFC_SCROLL:
        return drawScroll(dc, r, state);
    default:
        SetLastError(ERROR_NOT_SUPPORTED); // captions and menus belong to the window system
        return FALSE;
    }
}
