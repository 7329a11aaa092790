// A circle or rectangle that follows the mouse over an AOI and changes its size while the right button is held.
#include "C/uiSizeableCursor.h"

#include "C/uiAOIBaseViewWnd.h"
#include "C/uiAOIWnd.h"
#include "platform/afx/dcguards.h"

#include <algorithm>
#include <cstdlib>

namespace KvN
{

namespace
{
constexpr unsigned leaveFlags = 65535;
constexpr COLORREF green = 0x00FF00;

short Sum16(short a, int b)
{
    return static_cast<short>((a + b) & 0xFFFF);
}

// Far edges that mark an extent of zero stay.
KvTRectangle<short> Moved(KvTRectangle<short> rect, int dx, int dy)
{
    rect.left = Sum16(rect.left, dx);
    rect.top = Sum16(rect.top, dy);
    if (rect.right != rect.NoValue)
        rect.right = Sum16(rect.right, dx);
    if (rect.bottom != rect.NoValue)
        rect.bottom = Sum16(rect.bottom, dy);
    return rect;
}

HCURSOR SizingCursor(SizeableMode mode)
{
    switch (mode)
    {
    case SizeableWidth:
        return GetpApp()->LoadStandardCursor(IDC_SIZEWE);
    case SizeableHeight:
        return GetpApp()->LoadStandardCursor(IDC_SIZENS);
    case SizeableBoth:
        return GetpApp()->LoadStandardCursor(IDC_SIZEALL);
    case SizeableUniform:
        return GetpApp()->LoadStandardCursor(IDC_SIZENWSE);
    default:
        return nullptr;
    }
}

// The size after the mouse moved by (dx, dy), not below `least`.
KvTSize<short> Grown(KvTSize<short> size, int dx, int dy, SizeableMode mode, const KvTSize<short>& least)
{
    if (mode == SizeableUniform)
        dx = dy = std::abs(dx) > std::abs(dy) ? dx : dy;
    if (mode != SizeableHeight)
        size.width = std::max(Sum16(size.width, dx), least.width);
    if (mode != SizeableWidth)
        size.height = std::max(Sum16(size.height, dy), least.height);
    return size;
}

// The part of `extent` that lies within an AOI of `limit`; an empty one counts as 0.
short Within(short extent, short limit)
{
    return std::max<short>(0, std::min(extent, limit));
}

// `size` cut to the AOI, after the lower limit and possibly below it. The uniform mode takes the greater side, which is
// required, so that a figure may pass the shorter side of the AOI.
KvTSize<short> CutToAOI(const KvTSize<short>& size, const KvTSize<short>& aoi, SizeableMode mode)
{
    const KvTSize<short> cut(Within(size.width, aoi.width), Within(size.height, aoi.height));
    switch (mode)
    {
    case SizeableWidth:
        return {cut.width, size.height};
    case SizeableHeight:
        return {size.width, cut.height};
    case SizeableUniform:
        return {std::max(cut.width, cut.height), std::max(cut.width, cut.height)};
    default:
        return cut;
    }
}
} // namespace

KvAbstractSizeableCursor::KvAbstractSizeableCursor(const KvTSize<short>& size_, HICON cursor, SizeableMode mode_)
    : size(size_), mode(mode_), cursorHandle(cursor)
{
}

KvAOIBaseViewWnd* KvAbstractSizeableCursor::View() const
{
    return wnd->GetAOIBaseViewWnd();
}

void KvAbstractSizeableCursor::Connect(KvAOIWnd* window)
{
    wnd = window;
    KvAOIBaseViewWnd* view = View();
    view->SetDefaultCursor(cursorHandle ? reinterpret_cast<HCURSOR>(cursorHandle)
                                        : GetpApp()->LoadStandardCursor(IDC_CROSS));
    savedMouseMoveHdl = view->ChangeMouseMoveHdl(KvTools::Link(this, LinkStubMouseMoveHdl));
    savedMouseButtonUpHdl = view->ChangeMouseButtonUpHdl(KvTools::Link(this, LinkStubMouseButtonUpHdl));
    savedPaintHdl = view->ChangePaintHdl(KvTools::Link(this, LinkStubPaintHdl));
    connected = 1;
}

void KvAbstractSizeableCursor::Disconnect()
{
    KvAOIBaseViewWnd* view = View();
    view->ChangeMouseMoveHdl(savedMouseMoveHdl);
    view->ChangeMouseButtonUpHdl(savedMouseButtonUpHdl);
    view->ChangePaintHdl(savedPaintHdl);
    connected = 0;
    if (visible)
        Erase(hotSpot, size);
}

void KvAbstractSizeableCursor::Erase(const KvTPoint<short>& position, const KvTSize<short>& extent)
{
    Draw(position, extent);
    visible = 0;
}

KvTRectangle<short> KvAbstractSizeableCursor::GetBoundingRectangle() const
{
    return Moved({hotSpot, size}, -(size.width / 2), -(size.height / 2));
}

long long KvAbstractSizeableCursor::LinkStubMouseMoveHdl(void* instance, void* data)
{
    return static_cast<KvAbstractSizeableCursor*>(instance)->MouseMoveHdl(data);
}

long long KvAbstractSizeableCursor::LinkStubMouseButtonUpHdl(void* instance, void* data)
{
    return static_cast<KvAbstractSizeableCursor*>(instance)->MouseButtonUpHdl(data);
}

long long KvAbstractSizeableCursor::LinkStubPaintHdl(void* instance, void* data)
{
    return static_cast<KvAbstractSizeableCursor*>(instance)->PaintHdl(data);
}

// The saved handler isn't called: the cursor owns the mouse move while it is connected.
long long KvAbstractSizeableCursor::MouseMoveHdl(void*)
{
    if (visible)
        Erase(hotSpot, size);
    KvAOIBaseViewWnd* view = View();
    const KvMouseEvent event = view->GetMouseEvent();
    if (event.flags == leaveFlags)
    {
        view->InvalidateRect(nullptr, TRUE);
        view->UpdateWindow();
        return 1;
    }
    const KvTPoint<short> mouse = view->FGetLogicPoint(event.GetPoint());
    const KvTSize<short> extent = event.flags & MK_RBUTTON ? Resized(mouse, *view) : size;
    size = extent;
    hotSpot = mouse;
    Draw(mouse, extent);
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, view->m_hWnd, 0};
    _TrackMouseEvent(&track);
    return 1;
}

// Relative to the last event, since the hot spot moves along.
KvTSize<short> KvAbstractSizeableCursor::Resized(const KvTPoint<short>& mouse, KvAOIBaseViewWnd& view) const
{
    const HCURSOR sizing = SizingCursor(mode);
    if (!sizing)
        return size;
    view.SetCurrentCursor(sizing);
    const KvTSize<short> grown = Grown(size, mouse.x - hotSpot.x, mouse.y - hotSpot.y, mode, minSize);
    return CutToAOI(grown, view.GetAOI()->AOISize(), mode);
}

long long KvAbstractSizeableCursor::MouseButtonUpHdl(void*)
{
    KvAOIBaseViewWnd* view = View();
    const bool menuMayOpen = view->IsRightButtonMenuEnabled() && view->GetAOI();
    if (!menuMayOpen && !savedMouseButtonUpHdl.function)
        return 1;
    if (visible)
        Erase(hotSpot, size);
    // Logic coordinates taken as client coordinates, which is required.
    const KvTRectangle<short> box = GetBoundingRectangle();
    const CRect area(box.left, box.top, box.right + 1, box.bottom + 1);
    view->InvalidateRect(&area, TRUE);
    view->UpdateWindow();
    // A chained handler receives the cursor, not the view, which is required.
    savedMouseButtonUpHdl.Call(this);
    Draw(hotSpot, size);
    return 1;
}

// The repaint has wiped the figure; it comes back with the next move.
long long KvAbstractSizeableCursor::PaintHdl(void*)
{
    visible = 0;
    // A chained handler receives the cursor, not the view, which is required.
    savedPaintHdl.Call(this);
    return 1;
}

KvSizeableCursor::KvSizeableCursor(CursorType type, const KvTSize<short>& size_, HICON cursor, SizeableMode mode_)
    : KvAbstractSizeableCursor(size_, cursor, mode_), cursorType(type)
{
}

// The raster operation stays behind on the device, which is required.
void KvSizeableCursor::Draw(const KvTPoint<short>& position, const KvTSize<short>& extent)
{
    CDC* dc = View()->GetOutputDevice();
    CPen pen(PS_SOLID, 1, green);
    const SelectedObject selected(*dc, pen);
    dc->SetROP2(R2_XORPEN);
    hotSpot = position;
    size = extent;
    const KvTRectangle<short> box = GetBoundingRectangle();
    if (cursorType == CursorCircle)
    {
        // Start and end coincide: the whole ellipse.
        dc->Arc(box.left, box.top, box.right, box.bottom, box.right, box.bottom, box.right, box.bottom);
    }
    else if (cursorType == CursorRectangle)
    {
        dc->MoveTo(box.left, box.top);
        dc->LineTo(box.right, box.top);
        dc->LineTo(box.right, box.bottom);
        dc->LineTo(box.left, box.bottom);
        dc->LineTo(box.left, box.top);
    }
    visible = 1;
}

} // namespace KvN
