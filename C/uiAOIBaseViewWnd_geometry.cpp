// The AOI view's geometry: between client pixels and AOI pixels, the zoom and its default, scrolling, the lay-out.
// Calculation happens in int and double; what leaves is cut to 16 bits.
#include "C/uiAOIBaseViewWnd.h"
#include "resources/resource.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace KvN
{

namespace
{
const KvString sourceFile("C/uiAOIBaseViewWnd");
constexpr unsigned long lineZoomOverflow = 511;
constexpr double longestSide = 32767.0;

// Set while a size change is handled; the one guard of all views.
bool inSize = false;

short Low16(int value)
{
    return static_cast<short>(static_cast<unsigned short>(value & 0xFFFF));
}

// Toward zero. What no int holds, as a division by a zero factor gives, counts as 0.
int Truncated(double value)
{
    constexpr double limit = 2147483647.0;
    return std::abs(value) <= limit ? static_cast<int>(value) : 0;
}

short RoundedLength(double length)
{
    return Low16(Truncated(length + 0.5));
}

// Sixteen bits hold the sum, read without sign: the longest side there is has room for its bar.
int WithBar(short length, int thickness)
{
    return static_cast<unsigned short>(length + thickness);
}

CSize ClientSize(const CWnd& wnd)
{
    CRect client;
    wnd.GetClientRect(&client);
    return client.Size();
}
} // namespace

// --- Between the coordinate spaces ---

KvTPoint<short> KvAOIBaseViewWnd::FGetLogicPoint(const KvTPoint<short>& pixel) const
{
    if (!aoi)
        return {};
    POINT point{pixel.x, pixel.y};
    ViewDPtoLP(&point, 1);
    return {Low16(point.x), Low16(point.y)};
}

KvTSize<short> KvAOIBaseViewWnd::FGetLogicSize(const KvTSize<short>& pixels) const
{
    if (!aoi)
        return {};
    double fx = 1.0;
    double fy = 1.0;
    CalculateStretchFactors(fx, fy);
    return {RoundedLength(pixels.width / fx), RoundedLength(pixels.height / fy)};
}

KvTRectangle<short> KvAOIBaseViewWnd::FGetLogicRect(const KvTRectangle<short>& pixels) const
{
    if (!aoi)
        return {};
    const KvTPoint<short> corner = FGetLogicPoint({pixels.left, pixels.top});
    return {corner, FGetLogicSize({pixels.Width(), pixels.Height()})};
}

// A negative length is rounded toward zero after 0.5 is added, which is required.
void KvAOIBaseViewWnd::ConvertLogicToPixel(KvTPair<short>& lengths) const
{
    double fx = 1.0;
    double fy = 1.0;
    CalculateStretchFactors(fx, fy);
    lengths = {RoundedLength(lengths.first * fx), RoundedLength(lengths.second * fy)};
}

void KvAOIBaseViewWnd::ConvertPixelToLogic(KvTPair<short>& lengths) const
{
    double fx = 1.0;
    double fy = 1.0;
    CalculateStretchFactors(fx, fy);
    lengths = {RoundedLength(lengths.first / fx), RoundedLength(lengths.second / fy)};
}

// --- Zoom ---

void KvAOIBaseViewWnd::SetZoomFactor(double zoom)
{
    FSetZoomFactor(defaultOn && !defaultFitted ? defaultZoomFactor : zoom);
}

// Unequal factors pass the default by, equal ones don't, which is required.
void KvAOIBaseViewWnd::SetZoomFactor(double x, double y)
{
    const bool equal = std::abs(x - y) < std::numeric_limits<double>::epsilon();
    if (equal && defaultOn && !defaultFitted)
        FSetZoomFactor(defaultZoomFactor, defaultZoomFactor);
    else
        FSetZoomFactor(x, y);
}

void KvAOIBaseViewWnd::FSetZoomFactor(double zoom)
{
    FSetZoomFactor(zoom, zoom);
}

void KvAOIBaseViewWnd::FSetZoomFactor(double x, double y)
{
    KvScrollZoomView::SetZoomFactor(x, y);
    FResizeBaseWindow();
}

void KvAOIBaseViewWnd::FFitAOIToWindowOn()
{
    FitContentToWindowOn();
    FResizeBaseWindow();
}

void KvAOIBaseViewWnd::FFitAOIToWindowOff()
{
    FitContentToWindowOff();
    FResizeBaseWindow();
}

void KvAOIBaseViewWnd::SetDefaultZoomFactor(double zoom)
{
    defaultZoomFactor = zoom;
    UpdateDefaultZoom();
}

void KvAOIBaseViewWnd::SetDefaultFittedToWindow(int on)
{
    defaultFitted = on;
    UpdateDefaultZoom();
}

void KvAOIBaseViewWnd::SetDefaultAspectRatioMaintained(int on)
{
    defaultAspectRatio = on;
    UpdateDefaultZoom();
}

void KvAOIBaseViewWnd::SetDefaultOn()
{
    defaultOn = 1;
    UpdateDefaultZoom();
}

void KvAOIBaseViewWnd::SetAspectRatioMaintained(int on)
{
    if (on)
        MaintainPixelAspectRatioOn();
    else
        MaintainPixelAspectRatioOff();
}

void KvAOIBaseViewWnd::UpdateDefaultZoom()
{
    if (!defaultOn)
        return;
    if (defaultFitted)
    {
        SetAspectRatioMaintained(defaultAspectRatio);
        FitAOIToWindowOn();
    }
    else
    {
        SetZoomFactor(defaultZoomFactor);
    }
    if (CWnd* parent = GetParent())
        parent->ShowWindow(SW_SHOW);
}

// --- Lay-out ---

KvTSize<short> KvAOIBaseViewWnd::GetNecessaryOutputSize() const
{
    if (!aoi)
        return {};
    if (!fitToWindow)
    {
        const double width = std::abs(zoomFactorX) * aoiWidth;
        const double height = std::abs(zoomFactorY) * aoiHeight;
        if (std::abs(width) > longestSide || std::abs(height) > longestSide)
            throw new KvException(sourceFile, lineZoomOverflow, KvString(KvResId(IDS_VIEW_ZOOM, GetResourceModule())));
        return {RoundedLength(width), RoundedLength(height)};
    }
    const CSize host = parentWnd ? ClientSize(*parentWnd) : ClientSize(*this);
    if (!maintainAspectRatio)
        return {Low16(host.cx), Low16(host.cy)};
    const double scale =
        std::min(static_cast<double>(host.cx) / m_totalLog.cx, static_cast<double>(host.cy) / m_totalLog.cy);
    return {RoundedLength(std::min(aoiWidth * scale, static_cast<double>(host.cx))),
            RoundedLength(std::min(aoiHeight * scale, static_cast<double>(host.cy)))};
}

// An overflow of the zoom leaves `resizing` set, which is required: the view paints again after the next lay-out that
// succeeds.
void KvAOIBaseViewWnd::FResizeBaseWindow()
{
    resizing = 1;
    const volatile int& painting = inDraw;
    while (painting)
    {
    }
    const KvTSize<short> needed = GetNecessaryOutputSize();
    const CSize host = parentWnd ? ClientSize(*parentWnd) : ClientSize(*this);
    m_totalDev = GetTotalDevSize();

    CSize bars;
    CSize range;
    CPoint move;
    CSize thickness;
    GetScrollBarState(host, bars, range, move, TRUE);
    GetScrollBarSizes(thickness);
    const int width = WithBar(needed.width, bars.cy ? thickness.cx : 0);
    const int height = WithBar(needed.height, bars.cx ? thickness.cy : 0);

    CFrameWnd* frame = GetParentFrame();
    if (frame && aoi)
    {
        CRect place;
        frame->GetWindowRect(&place);
        if (CWnd* parent = frame->GetParent())
            parent->ScreenToClient(&place);
        frame->MoveWindow(place.left, place.top, std::min(width, host.cx), std::min(height, host.cy), FALSE);
        OnUpdate(nullptr, 0, nullptr);
    }
    else if (frame)
    {
        frame->ShowWindow(SW_HIDE);
    }
    resizing = 0;
}

void KvAOIBaseViewWnd::OnUpdate(CView* sender, LPARAM hint, CObject* hintObject)
{
    CView::OnUpdate(sender, hint, hintObject);
    if (!aoi)
    {
        SetZoomSizes(CSize(10, 10), sizeDefault, sizeDefault);
        return;
    }
    SetZoomSizes(CSize(aoiWidth, aoiHeight), sizeDefault, CSize(1, 1));
    if (parentWnd)
        parentWnd->InvalidateRect(nullptr, TRUE);
}

void KvAOIBaseViewWnd::OnSize(UINT type, int cx, int cy)
{
    if (inSize)
    {
        CScrollView::OnSize(type, cx, cy);
        Resize();
        return;
    }
    inSize = true;
    Default();
    OnUpdate(nullptr, 0, nullptr);
    inSize = false;
    Resize();
}

// --- Scrolling ---

KvTPoint<short> KvAOIBaseViewWnd::FGetScrollPos() const
{
    const CPoint position = CScrollView::GetScrollPosition();
    return {Low16(position.x), Low16(position.y)};
}

void KvAOIBaseViewWnd::FSetAOIPos(const KvTPoint<short>& position)
{
    if (!aoi)
        return;
    double fx = 1.0;
    double fy = 1.0;
    CalculateStretchFactors(fx, fy);
    const CPoint before = GetDeviceScrollPosition();
    ScrollToPosition(CPoint(Truncated(position.x * fx + 0.5), Truncated(position.y * fy + 0.5)));
    const CPoint after = GetDeviceScrollPosition();
    UpdateWindow();
    if (after.y != before.y)
        vScrollHdl.Call(this);
    if (after.x != before.x)
        hScrollHdl.Call(this);
}

void KvAOIBaseViewWnd::OnHScroll(UINT code, UINT position, CScrollBar* bar)
{
    CScrollView::OnHScroll(code, position, bar);
    hScrollHdl.Call(this);
}

void KvAOIBaseViewWnd::OnVScroll(UINT code, UINT position, CScrollBar* bar)
{
    CScrollView::OnVScroll(code, position, bar);
    vScrollHdl.Call(this);
}

BOOL KvAOIBaseViewWnd::OnScrollBy(CSize scroll, BOOL doScroll)
{
    const BOOL result = KvScrollZoomView::OnScrollBy(scroll, doScroll);
    InvalidateRect(nullptr, TRUE);
    return result;
}

} // namespace KvN
