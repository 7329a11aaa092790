// The zoom of a scroll view: factors, fitting, mapping, and what of the content shows.
#include "contracts/apptools/KvScrollZoomView.h"

#include <algorithm>
#include <cmath>

namespace KvN
{

IMPLEMENT_DYNAMIC(KvScrollZoomView, CScrollView)

BEGIN_MESSAGE_MAP(KvScrollZoomView, CScrollView)
ON_WM_SIZE()
END_MESSAGE_MAP()

namespace
{
int Rounded(double value)
{
    return static_cast<int>(std::floor(std::clamp(value, -2147483000.0, 2147483000.0) + 0.5));
}

// Quotients that are whole but for the last bit count as whole.
constexpr double slack = 1e-9;

int Below(double value)
{
    return static_cast<int>(std::floor(value + slack));
}

int Above(double value)
{
    return static_cast<int>(std::ceil(value - slack));
}

double Amount(double factor)
{
    return factor == 0.0 ? 1.0 : std::fabs(factor);
}
} // namespace

// Fitting never needs scroll bars, so their room counts as free.
CSize KvScrollZoomView::FittingArea() const
{
    CRect client;
    GetClientRect(client);
    const DWORD windowStyle = GetStyle();
    return CSize(client.Width() + ((windowStyle & WS_VSCROLL) ? ::GetSystemMetrics(SM_CXVSCROLL) : 0),
                 client.Height() + ((windowStyle & WS_HSCROLL) ? ::GetSystemMetrics(SM_CYHSCROLL) : 0));
}

void KvScrollZoomView::CalculateStretchFactors(double& x, double& y) const
{
    x = Amount(zoomFactorX);
    y = Amount(zoomFactorY);
    if (!fitToWindow || !m_hWnd)
        return;
    const CSize area = FittingArea();
    if (m_totalLog.cx <= 0 || m_totalLog.cy <= 0 || area.cx <= 0 || area.cy <= 0)
    {
        x = y = 1.0;
        return;
    }
    x = static_cast<double>(area.cx) / m_totalLog.cx;
    y = static_cast<double>(area.cy) / m_totalLog.cy;
    if (maintainAspectRatio)
        x = y = std::min(x, y);
}

CSize KvScrollZoomView::GetTotalDevSize() const
{
    double x, y;
    CalculateStretchFactors(x, y);
    CSize total(Rounded(m_totalLog.cx * x), Rounded(m_totalLog.cy * y));
    if (fitToWindow && m_hWnd)
    {
        // A rounding up must not bring a scroll bar.
        const CSize area = FittingArea();
        total = CSize(std::min<int>(total.cx, area.cx), std::min<int>(total.cy, area.cy));
    }
    return total;
}

void KvScrollZoomView::LayOut()
{
    m_totalDev = GetTotalDevSize();
    if (!m_hWnd)
        return;
    UpdateBars();
    Invalidate(TRUE);
}

void KvScrollZoomView::SetZoomFactor(double x, double y)
{
    zoomFactorX = x;
    zoomFactorY = y;
    fitToWindow = 0;
    SetZoomSizes(m_totalLog);
    NotifyZoom();
}

void KvScrollZoomView::FitContentToWindowOn()
{
    fitToWindow = 1;
    LayOut();
    NotifyZoom();
}

void KvScrollZoomView::FitContentToWindowOff()
{
    fitToWindow = 0;
    LayOut();
    NotifyZoom();
}

void KvScrollZoomView::MaintainPixelAspectRatioOn()
{
    maintainAspectRatio = 1;
    if (!fitToWindow)
        return;
    LayOut();
    NotifyZoom();
}

void KvScrollZoomView::MaintainPixelAspectRatioOff()
{
    maintainAspectRatio = 0;
    if (!fitToWindow)
        return;
    LayOut();
    NotifyZoom();
}

void KvScrollZoomView::SetZoomSizes(SIZE total, const SIZE& page, const SIZE& line)
{
    m_nMapMode = MM_TEXT; // scroll positions are device pixels; the zoom is OnPrepareDC's
    m_totalLog = total;
    m_totalDev = GetTotalDevSize();
    double x, y;
    CalculateStretchFactors(x, y);
    const auto step = [](LONG given, double factor, LONG whole)
    {
        const LONG wanted = given ? Rounded(given * factor) : whole / 10;
        return std::clamp<LONG>(wanted, 1, std::max<LONG>(1, whole));
    };
    m_pageDev = CSize(step(page.cx, x, m_totalDev.cx), step(page.cy, y, m_totalDev.cy));
    m_lineDev = CSize(step(line.cx, x, m_pageDev.cx), step(line.cy, y, m_pageDev.cy));
    UpdateBars();
}

void KvScrollZoomView::ViewDPtoLP(POINT* points, int count) const
{
    double x, y;
    CalculateStretchFactors(x, y);
    const CPoint scrolled = GetDeviceScrollPosition();
    for (int i = 0; i < count; ++i)
    {
        points[i].x = Below((points[i].x + scrolled.x) / x);
        points[i].y = Below((points[i].y + scrolled.y) / y);
    }
}

void KvScrollZoomView::ViewLPtoDP(POINT* points, int count) const
{
    double x, y;
    CalculateStretchFactors(x, y);
    const CPoint scrolled = GetDeviceScrollPosition();
    for (int i = 0; i < count; ++i)
    {
        points[i].x = Above(points[i].x * x) - scrolled.x;
        points[i].y = Above(points[i].y * y) - scrolled.y;
    }
}

CRect KvScrollZoomView::GetVisibleLogicalRect() const
{
    CRect client;
    GetClientRect(client);
    double x, y;
    CalculateStretchFactors(x, y);
    const CPoint scrolled = GetDeviceScrollPosition();
    return CRect(std::clamp<int>(Below(scrolled.x / x), 0, m_totalLog.cx),
                 std::clamp<int>(Below(scrolled.y / y), 0, m_totalLog.cy),
                 std::clamp<int>(Above((scrolled.x + client.Width()) / x), 0, m_totalLog.cx),
                 std::clamp<int>(Above((scrolled.y + client.Height()) / y), 0, m_totalLog.cy));
}

// Whole extents that keep six decimals of a factor.
void KvScrollZoomView::OnPrepareDC(CDC* dc, CPrintInfo*)
{
    double x, y;
    CalculateStretchFactors(x, y);
    ::SetMapMode(dc->m_hDC, MM_ANISOTROPIC);
    constexpr int unit = 1000000;
    ::SetWindowExtEx(dc->m_hDC, unit, unit, nullptr);
    ::SetViewportExtEx(dc->m_hDC, std::max(1, Rounded(x * unit)), std::max(1, Rounded(y * unit)), nullptr);
    ::SetWindowOrgEx(dc->m_hDC, 0, 0, nullptr);
    const CPoint scrolled = dc->IsPrinting() ? CPoint() : GetDeviceScrollPosition();
    ::SetViewportOrgEx(dc->m_hDC, -scrolled.x, -scrolled.y, nullptr);
}

void KvScrollZoomView::OnSize(UINT type, int cx, int cy)
{
    if (fitToWindow)
        m_totalDev = GetTotalDevSize();
    CScrollView::OnSize(type, cx, cy);
}

} // namespace KvN
