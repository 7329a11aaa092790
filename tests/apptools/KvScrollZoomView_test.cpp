// The zoom of a scroll view: factors, fitting, conversions, and the mapping of a prepared context.
#include "contracts/apptools.h"
#include "platform/win/input.h"

#include <gtest/gtest.h>

using namespace kv::win;
using KvN::KvScrollZoomView;

namespace
{
class ZoomView : public KvScrollZoomView
{
    DECLARE_DYNCREATE(ZoomView)
public:
    int notified = 0;
    void OnDraw(CDC*) override {}
    void NotifyZoom() override { ++notified; }
    void PostNcDestroy() override {}
    using KvScrollZoomView::fitToWindow;
    using KvScrollZoomView::m_totalDev;
    using KvScrollZoomView::maintainAspectRatio;
    using KvScrollZoomView::zoomFactorX;
    using KvScrollZoomView::zoomFactorY;
};
IMPLEMENT_DYNCREATE(ZoomView, KvScrollZoomView)

class ZoomViews : public testing::Test
{
protected:
    ZoomViews()
    {
        top.CreateEx(0, AfxRegisterWndClass(0), CString(), WS_POPUP | WS_VISIBLE, 0, 0, 200, 100, nullptr, nullptr);
        view.Create(CString(), CString(), WS_CHILD | WS_VISIBLE, CRect(0, 0, 200, 100), &top, 1);
        Settle();
    }
    ~ZoomViews() override { top.DestroyWindow(); }

    CPoint ToLogical(int x, int y) const
    {
        POINT point{x, y};
        view.ViewDPtoLP(&point);
        return point;
    }
    CPoint ToDevice(int x, int y) const
    {
        POINT point{x, y};
        view.ViewLPtoDP(&point);
        return point;
    }

    CWnd top;
    ZoomView view;
};
} // namespace

TEST_F(ZoomViews, StartAtZoomOneWithoutFit)
{
    EXPECT_EQ(view.zoomFactorX, 1.0);
    EXPECT_EQ(view.zoomFactorY, 1.0);
    EXPECT_EQ(view.fitToWindow, 0);
    view.SetZoomSizes(CSize(50, 40));
    EXPECT_EQ(view.GetTotalDevSize(), CSize(50, 40));
}

TEST_F(ZoomViews, TheTotalIsRoundedToNearest)
{
    view.SetZoomSizes(CSize(101, 3));
    view.SetZoomFactor(0.25, 0.5);
    EXPECT_EQ(view.GetTotalDevSize(), CSize(25, 2));
    EXPECT_EQ(view.m_totalDev, CSize(25, 2));
    EXPECT_EQ(view.notified, 1);
}

TEST_F(ZoomViews, EveryChangeOfTheZoomIsTold)
{
    view.SetZoomSizes(CSize(50, 50));
    view.MaintainPixelAspectRatioOff(); // changes no zoom by itself
    EXPECT_EQ(view.notified, 0);
    view.FitContentToWindowOn();
    EXPECT_EQ(view.notified, 1);
    view.MaintainPixelAspectRatioOn();
    EXPECT_EQ(view.notified, 2);
    view.MaintainPixelAspectRatioOff();
    EXPECT_EQ(view.notified, 3);
    view.FitContentToWindowOff();
    EXPECT_EQ(view.notified, 4);
    view.SetZoomFactor(2.0, 2.0);
    EXPECT_EQ(view.notified, 5);
}

TEST_F(ZoomViews, SettingAZoomLeavesFitMode)
{
    view.SetZoomSizes(CSize(50, 40));
    view.FitContentToWindowOn();
    EXPECT_EQ(view.fitToWindow, 1);
    view.SetZoomFactor(3.0, 3.0);
    EXPECT_EQ(view.fitToWindow, 0);
    double x, y;
    view.CalculateStretchFactors(x, y);
    EXPECT_EQ(x, 3.0);
    EXPECT_EQ(y, 3.0);
}

TEST_F(ZoomViews, ANegativeZoomCountsByItsAmount)
{
    view.SetZoomSizes(CSize(50, 40));
    view.SetZoomFactor(-2.0, 2.0);
    EXPECT_EQ(view.zoomFactorX, -2.0);
    EXPECT_EQ(view.GetTotalDevSize(), CSize(100, 80));
}

TEST_F(ZoomViews, FittingKeepsTheAspectRatioOrFillsTheWindow)
{
    view.SetZoomSizes(CSize(100, 100));
    view.MaintainPixelAspectRatioOn();
    view.FitContentToWindowOn();
    double x, y;
    view.CalculateStretchFactors(x, y);
    EXPECT_EQ(x, 1.0);
    EXPECT_EQ(y, 1.0);
    view.MaintainPixelAspectRatioOff();
    view.CalculateStretchFactors(x, y);
    EXPECT_EQ(x, 2.0);
    EXPECT_EQ(y, 1.0);
    EXPECT_EQ(view.GetTotalDevSize(), CSize(200, 100));
    view.FitContentToWindowOff();
    view.CalculateStretchFactors(x, y);
    EXPECT_EQ(x, 1.0);
}

TEST_F(ZoomViews, FittingNeedsNoBars)
{
    view.SetZoomFactor(50.0, 50.0);
    view.SetZoomSizes(CSize(301, 299));
    CRect client;
    view.GetClientRect(client);
    EXPECT_EQ(client, CRect(0, 0, 183, 83));
    view.FitContentToWindowOn();
    view.GetClientRect(client);
    EXPECT_EQ(client, CRect(0, 0, 200, 100));
    top.MoveWindow(0, 0, 400, 300);
    view.MoveWindow(0, 0, 400, 299);
    EXPECT_EQ(view.GetTotalDevSize(), CSize(301, 299));
}

TEST_F(ZoomViews, ADevicePointGoesToTheUnitThatItLiesIn)
{
    view.SetZoomSizes(CSize(1000, 1000));
    view.SetZoomFactor(4.0, 4.0);
    view.ScrollToPosition(CPoint(40, 80));
    EXPECT_EQ(view.GetScrollPosition(), CPoint(40, 80)) << "device pixels";
    EXPECT_EQ(ToLogical(0, 0), CPoint(10, 20));
    EXPECT_EQ(ToLogical(3, 4), CPoint(10, 21));
    EXPECT_EQ(ToDevice(11, 21), CPoint(4, 4));
    EXPECT_EQ(ToLogical(-1, -1), CPoint(9, 19));
}

TEST_F(ZoomViews, AUnitsFirstPixelLeadsBackToTheUnit)
{
    view.SetZoomSizes(CSize(3000, 3000));
    for (const double zoom : {1.0, 1.1, 1.3, 2.5, 3.0, 7.7, 16.0})
    {
        view.SetZoomFactor(zoom, zoom);
        for (int unit = 0; unit < 3000; unit += 7)
        {
            const CPoint device = ToDevice(unit, unit);
            ASSERT_EQ(ToLogical(device.x, device.y), CPoint(unit, unit)) << zoom;
        }
    }
}

TEST_F(ZoomViews, TheVisibleRectangleEndsWithTheContent)
{
    view.SetZoomSizes(CSize(30, 1000));
    view.SetZoomFactor(2.0, 2.0);
    EXPECT_EQ(view.GetVisibleLogicalRect(), CRect(0, 0, 30, 50));
    view.ScrollToPosition(CPoint(0, 200));
    EXPECT_EQ(view.GetVisibleLogicalRect(), CRect(0, 100, 30, 150));
    view.SetZoomSizes(CSize(0, 0));
    EXPECT_TRUE(view.GetVisibleLogicalRect().IsRectEmpty());
}

TEST_F(ZoomViews, APreparedContextMapsUnitsAsTheViewDoes)
{
    view.SetZoomSizes(CSize(1000, 1000));
    view.SetZoomFactor(3.0, 0.1);
    view.ScrollToPosition(CPoint(21, 0));
    CClientDC dc(&view);
    view.OnPrepareDC(&dc);
    POINT points[] = {{8, 10}, {100, 500}};
    ::LPtoDP(dc.m_hDC, points, 2);
    EXPECT_EQ(CPoint(points[0]), CPoint(3, 1));
    EXPECT_EQ(CPoint(points[1]), CPoint(279, 50));
}

TEST_F(ZoomViews, ContentWithoutSizeIsHarmless)
{
    view.SetZoomSizes(CSize(0, 0));
    view.FitContentToWindowOn();
    double x, y;
    view.CalculateStretchFactors(x, y);
    EXPECT_EQ(x, 1.0);
    EXPECT_EQ(ToLogical(5, 6), CPoint(5, 6));
    view.SetZoomFactor(0.0, 0.0);
    view.CalculateStretchFactors(x, y);
    EXPECT_EQ(x, 1.0);
}
