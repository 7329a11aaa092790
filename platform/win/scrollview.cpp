// CScrollView: which bars are needed, how far they go, and the mapping by the scroll position.
#include "platform/win/scrollview.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CScrollView, CView)

BEGIN_MESSAGE_MAP(CScrollView, CView)
ON_WM_SIZE()
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_WM_MOUSEWHEEL()
END_MESSAGE_MAP()

const SIZE CScrollView::sizeDefault = {0, 0};

namespace
{
// A tenth of `whole` where nothing is given, kept between 1 and `whole`.
void TakeDefault(LONG& part, LONG whole)
{
    if (part == 0)
        part = whole / 10;
    part = std::clamp<LONG>(part, 1, std::max<LONG>(1, whole));
}
} // namespace

void CScrollView::SetScrollSizes(int mapMode, SIZE total, const SIZE& page, const SIZE& line)
{
    const int oldMode = m_nMapMode;
    m_nMapMode = mapMode;
    m_totalLog = total;
    m_totalDev = total;
    m_pageDev = page;
    m_lineDev = line;
    if (mapMode != MM_TEXT && m_hWnd)
    {
        CClientDC dc(this);
        ::SetMapMode(dc.m_hDC, mapMode);
        POINT corners[] = {{total.cx, total.cy}, {page.cx, page.cy}, {line.cx, line.cy}};
        ::LPtoDP(dc.m_hDC, corners, 3);
        m_totalDev = CSize(std::abs(corners[0].x), std::abs(corners[0].y));
        m_pageDev = CSize(std::abs(corners[1].x), std::abs(corners[1].y));
        m_lineDev = CSize(std::abs(corners[2].x), std::abs(corners[2].y));
    }
    TakeDefault(m_pageDev.cx, m_totalDev.cx);
    TakeDefault(m_pageDev.cy, m_totalDev.cy);
    TakeDefault(m_lineDev.cx, m_pageDev.cx);
    TakeDefault(m_lineDev.cy, m_pageDev.cy);
    if (!m_hWnd)
        return;
    UpdateBars();
    if (oldMode != m_nMapMode)
        Invalidate(TRUE);
}

CPoint CScrollView::GetDeviceScrollPosition() const
{
    CPoint position(GetScrollPos(SB_HORZ), GetScrollPos(SB_VERT));
    if (!m_bCenter)
        return position;
    CRect client;
    GetClientRect(client);
    if (m_totalDev.cx < client.Width())
        position.x = -((client.Width() - m_totalDev.cx) / 2);
    if (m_totalDev.cy < client.Height())
        position.y = -((client.Height() - m_totalDev.cy) / 2);
    return position;
}

CPoint CScrollView::GetScrollPosition() const
{
    const CPoint device(GetScrollPos(SB_HORZ), GetScrollPos(SB_VERT));
    if (m_nMapMode == MM_TEXT || m_nMapMode == MM_NONE || m_totalDev.cx == 0 || m_totalDev.cy == 0)
        return device;
    return CPoint(static_cast<int>(LONGLONG{device.x} * m_totalLog.cx / m_totalDev.cx),
                  static_cast<int>(LONGLONG{device.y} * m_totalLog.cy / m_totalDev.cy));
}

void CScrollView::GetDeviceScrollSizes(int& mapMode, SIZE& total, SIZE& page, SIZE& line) const
{
    mapMode = m_nMapMode;
    total = m_totalDev;
    page = m_pageDev;
    line = m_lineDev;
}

void CScrollView::ScrollToPosition(POINT point)
{
    if (m_nMapMode != MM_TEXT && m_nMapMode != MM_NONE && m_totalLog.cx != 0 && m_totalLog.cy != 0)
    {
        point.x = static_cast<LONG>(LONGLONG{point.x} * m_totalDev.cx / m_totalLog.cx);
        point.y = static_cast<LONG>(LONGLONG{point.y} * m_totalDev.cy / m_totalLog.cy);
    }
    CRect client;
    GetClientRect(client);
    const int maxX = std::max<int>(0, m_totalDev.cx - client.Width());
    const int maxY = std::max<int>(0, m_totalDev.cy - client.Height());
    ScrollToDevicePosition(CPoint(std::clamp<int>(point.x, 0, maxX), std::clamp<int>(point.y, 0, maxY)));
}

// The whole client area is painted anew; what is on the screen is not moved.
void CScrollView::ScrollToDevicePosition(POINT device)
{
    const CPoint former(GetScrollPos(SB_HORZ), GetScrollPos(SB_VERT));
    SetScrollPos(SB_HORZ, device.x);
    SetScrollPos(SB_VERT, device.y);
    if (former != CPoint(GetScrollPos(SB_HORZ), GetScrollPos(SB_VERT)))
        Invalidate(TRUE);
}

void CScrollView::FillOutsideRect(CDC* dc, CBrush* brush)
{
    CRect client;
    GetClientRect(client);
    const CPoint corner = GetDeviceScrollPosition();
    const CRect content(CPoint(-corner.x, -corner.y), m_totalDev);
    const CRect right(std::max<int>(0, content.right), 0, client.right, client.bottom);
    const CRect below(0, std::max<int>(0, content.bottom), client.right, client.bottom);
    for (const CRect& rect : {right, below})
    {
        if (rect.left < rect.right && rect.top < rect.bottom)
            ::FillRect(dc->m_hDC, &rect, *brush);
    }
}

void CScrollView::OnPrepareDC(CDC* dc, CPrintInfo*)
{
    ::SetMapMode(dc->m_hDC, m_nMapMode == MM_NONE ? MM_TEXT : m_nMapMode);
    CPoint origin;
    if (!dc->IsPrinting())
    {
        const CPoint scrolled = GetDeviceScrollPosition();
        origin = CPoint(-scrolled.x, -scrolled.y);
    }
    ::SetViewportOrgEx(dc->m_hDC, origin.x, origin.y, nullptr);
}

void CScrollView::GetScrollBarSizes(CSize& bars)
{
    bars = CSize(::GetSystemMetrics(SM_CXVSCROLL), ::GetSystemMetrics(SM_CYHSCROLL));
}

BOOL CScrollView::GetTrueClientSize(CSize& client, CSize& bars)
{
    CRect rect;
    GetClientRect(rect);
    client = rect.Size();
    GetScrollBarSizes(bars);
    const DWORD windowStyle = GetStyle();
    if (windowStyle & WS_VSCROLL)
        client.cx += bars.cx;
    if (windowStyle & WS_HSCROLL)
        client.cy += bars.cy;
    return client.cx > bars.cx && client.cy > bars.cy;
}

void CScrollView::GetScrollBarState(CSize client, CSize& needBars, CSize& range, CPoint& move, BOOL insideClient)
{
    CSize bars;
    GetScrollBarSizes(bars);
    range = CSize(m_totalDev.cx - client.cx, m_totalDev.cy - client.cy);
    const bool across = range.cx > 0;
    if (across)
        range.cy += bars.cy; // the horizontal bar takes room from below
    const bool down = range.cy > 0;
    if (down)
        range.cx += bars.cx;
    if (down && !across && range.cx > 0)
    {
        // The vertical bar made the horizontal one needed.
        range.cy += bars.cy;
    }
    const bool acrossNow = range.cx > 0;
    if (!insideClient)
    {
        if (acrossNow)
            range.cy -= bars.cy;
        if (down)
            range.cx -= bars.cx;
    }
    needBars = CSize(acrossNow, down);
    const auto within = [](int position, int limit) { return limit <= 0 ? 0 : std::clamp(position, 0, limit); };
    const CPoint device(GetScrollPos(SB_HORZ), GetScrollPos(SB_VERT));
    move = CPoint(within(device.x, range.cx), within(device.y, range.cy));
}

void CScrollView::UpdateBars()
{
    if (m_bInsideUpdate || !m_hWnd)
        return;
    m_bInsideUpdate = TRUE;
    CSize client, bars;
    if (!GetTrueClientSize(client, bars))
    {
        ShowScrollBar(SB_BOTH, FALSE);
        m_bInsideUpdate = FALSE;
        return;
    }
    CSize need, range;
    CPoint move;
    GetScrollBarState(client, need, range, move, TRUE);
    const CSize shown(client.cx - (need.cy ? bars.cx : 0), client.cy - (need.cx ? bars.cy : 0));
    const CPoint former(GetScrollPos(SB_HORZ), GetScrollPos(SB_VERT));
    const auto apply = [&](int bar, bool needed, int total, int page, int position)
    {
        SCROLLINFO info{};
        info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
        info.nMax = needed ? total - 1 : 0;
        info.nPage = needed ? static_cast<UINT>(page) : 0;
        info.nPos = needed ? position : 0;
        SetScrollInfo(bar, &info, TRUE);
    };
    ShowScrollBar(SB_HORZ, need.cx);
    ShowScrollBar(SB_VERT, need.cy);
    apply(SB_HORZ, need.cx, m_totalDev.cx, shown.cx, move.x);
    apply(SB_VERT, need.cy, m_totalDev.cy, shown.cy, move.y);
    if (former != CPoint(GetScrollPos(SB_HORZ), GetScrollPos(SB_VERT)))
        Invalidate(TRUE);
    m_bInsideUpdate = FALSE;
}

void CScrollView::CenterOnPoint(CPoint logical)
{
    CRect client;
    GetClientRect(client);
    ScrollToPosition(CPoint(logical.x - client.Width() / 2, logical.y - client.Height() / 2));
}

void CScrollView::OnSize(UINT type, int cx, int cy)
{
    CView::OnSize(type, cx, cy);
    UpdateBars();
}

void CScrollView::OnHScroll(UINT code, UINT, CScrollBar*)
{
    SCROLLINFO info{};
    GetScrollInfo(SB_HORZ, &info);
    OnScroll(static_cast<UINT>(MAKEWPARAM(static_cast<int>(code), 0xFF)), static_cast<UINT>(info.nTrackPos));
}

void CScrollView::OnVScroll(UINT code, UINT, CScrollBar*)
{
    SCROLLINFO info{};
    GetScrollInfo(SB_VERT, &info);
    OnScroll(static_cast<UINT>(MAKEWPARAM(0xFF, static_cast<int>(code))), static_cast<UINT>(info.nTrackPos));
}

namespace
{
// The new position after a scroll code; 0xFF, and codes that move nothing, keep it.
int Moved(int position, int code, int line, int page, int track, int most)
{
    switch (code)
    {
    case SB_TOP:
        return 0;
    case SB_BOTTOM:
        return most;
    case SB_LINEUP:
        return position - line;
    case SB_LINEDOWN:
        return position + line;
    case SB_PAGEUP:
        return position - page;
    case SB_PAGEDOWN:
        return position + page;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        return track;
    default:
        return position;
    }
}
} // namespace

// The low word is the horizontal code, the high word the vertical one.
BOOL CScrollView::OnScroll(UINT scrollCode, UINT position, BOOL doScroll)
{
    const CPoint now(GetScrollPos(SB_HORZ), GetScrollPos(SB_VERT));
    const int track = static_cast<int>(position);
    const int x = Moved(now.x, LOWORD(scrollCode), m_lineDev.cx, m_pageDev.cx, track, m_totalDev.cx);
    const int y = Moved(now.y, HIWORD(scrollCode), m_lineDev.cy, m_pageDev.cy, track, m_totalDev.cy);
    const BOOL moved = OnScrollBy(CSize(x - now.x, y - now.y), doScroll);
    if (moved && doScroll)
        UpdateWindow();
    return moved;
}

BOOL CScrollView::OnScrollBy(CSize scroll, BOOL doScroll)
{
    const CPoint former(GetScrollPos(SB_HORZ), GetScrollPos(SB_VERT));
    const auto most = [this](int bar)
    {
        SCROLLINFO info{};
        GetScrollInfo(bar, &info);
        return std::max(info.nMin, info.nMax - std::max(0, static_cast<int>(info.nPage) - 1));
    };
    const DWORD windowStyle = GetStyle();
    CPoint wanted = former;
    if (windowStyle & WS_HSCROLL)
        wanted.x = std::clamp<int>(former.x + scroll.cx, 0, most(SB_HORZ));
    if (windowStyle & WS_VSCROLL)
        wanted.y = std::clamp<int>(former.y + scroll.cy, 0, most(SB_VERT));
    if (wanted == former)
        return FALSE;
    if (doScroll)
        ScrollToDevicePosition(wanted);
    return TRUE;
}

// Three lines a notch, downwards if there is a vertical bar. Ctrl and Shift leave the wheel to others.
BOOL CScrollView::OnMouseWheel(UINT flags, short delta, CPoint)
{
    const DWORD windowStyle = GetStyle();
    if ((flags & (MK_SHIFT | MK_CONTROL)) || !(windowStyle & (WS_VSCROLL | WS_HSCROLL)))
        return static_cast<BOOL>(Default());
    const bool down = (windowStyle & WS_VSCROLL) != 0;
    const int line = down ? m_lineDev.cy : m_lineDev.cx;
    const int distance = -delta * 3 * line / WHEEL_DELTA;
    const BOOL moved = OnScrollBy(down ? CSize(0, distance) : CSize(distance, 0), TRUE);
    if (moved)
        UpdateWindow();
    return TRUE;
}
