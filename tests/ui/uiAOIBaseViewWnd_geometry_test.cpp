// The AOI view's geometry: conversions, zoom and its default, lay-out, scrolling.
#include "tests/ui/aoi_window.h"

using namespace KvN;
using kv::test::AOIWindow;
using kv::test::Handler;
using kv::test::Ramp;
using kv::test::Thrown;

namespace
{
using Point = KvTPoint<short>;
using Size = KvTSize<short>;
using Rect = KvTRectangle<short>;

const std::string overflow = "Der errechnete Zoomfaktor übersteigt die erlaubten Grenzen!";

// The zoom by itself, whatever the default.
void Zoom(KvAOIBaseViewWnd& view, double x, double y)
{
    view.SetDefaultOff();
    view.SetZoomFactor(x, y);
}

// The module defaults of the view, put back at the end.
class ModuleDefaults
{
public:
    ~ModuleDefaults()
    {
        KvxSetDefaultAOIWndZoomFactor(zoom);
        if (aspect)
            KvxSetDefaultMaintainPixelAspectRatioOn();
        else
            KvxSetDefaultMaintainPixelAspectRatioOff();
    }

private:
    double zoom = KvxGetDefaultAOIWndZoomFactor();
    int aspect = KvxIsDefaultPixelAspectRatioMaintained();
};
} // namespace

TEST(AOIViewDefaults, ModuleDefaultsStartAtOneAndSeedLaterViewsOnly)
{
    const ModuleDefaults restore;
    EXPECT_EQ(KvxGetDefaultAOIWndZoomFactor(), 1.0);
    EXPECT_EQ(KvxIsDefaultPixelAspectRatioMaintained(), 1);
    const AOIWindow before;
    KvxSetDefaultAOIWndZoomFactor(2.5);
    KvxSetDefaultMaintainPixelAspectRatioOff();
    const AOIWindow after;
    EXPECT_EQ(before.View().GetDefaultZoomFactor(), 1.0);
    EXPECT_EQ(before.View().IsDefaultAspectRatioMaintained(), 1);
    EXPECT_EQ(after.View().GetDefaultZoomFactor(), 2.5);
    EXPECT_EQ(after.View().GetZoomFactorX(), 2.5);
    EXPECT_EQ(after.View().IsDefaultAspectRatioMaintained(), 0);
    EXPECT_EQ(after.View().IsPixelAspectRatioMaintained(), 0);
}

TEST(AOIViewGeometry, WithoutAnAOIEveryConversionGivesNothing)
{
    const AOIWindow aoiWindow;
    KvAOIBaseViewWnd& view = aoiWindow.View();
    EXPECT_EQ(view.GetLogicPoint({7, 9}), Point(0, 0));
    EXPECT_EQ(view.GetLogicSize({7, 9}), Size(0, 0));
    EXPECT_EQ(view.GetLogicRect({1, 2, 3, 4}), Rect(0, 0, -32768, -32768));
    EXPECT_EQ(view.GetNecessaryOutputSize(), Size(0, 0));
    view.SetAOIPos({5, 5});
    EXPECT_EQ(view.GetScrollPos(), Point(0, 0));
}

TEST(AOIViewGeometry, PointsCountTheScrollPositionAndSizesDoNot)
{
    const auto aoi = Ramp(1000, 800);
    const AOIWindow aoiWindow(CSize(200, 100));
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    Zoom(view, 2.0, 2.0);
    EXPECT_EQ(view.GetLogicPoint({11, 20}), Point(5, 10));
    view.SetAOIPos({100, 50});
    EXPECT_EQ(view.GetLogicPoint({11, 20}), Point(105, 60));
    EXPECT_EQ(view.GetLogicSize({11, 20}), Size(6, 10));
}

TEST(AOIViewGeometry, LogicSizesRoundHalfUpAndTruncate)
{
    const auto aoi = Ramp(100, 100);
    const AOIWindow aoiWindow;
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    Zoom(view, 4.0, 4.0);
    EXPECT_EQ(view.GetLogicSize({9, 10}), Size(2, 3));
    EXPECT_EQ(view.GetLogicSize({-9, -10}), Size(-1, -2)); // -2.25 + 0.5 and -2.5 + 0.5, toward zero
}

TEST(AOIViewGeometry, RectanglesKeepTheMarkOfASideWithoutExtent)
{
    const auto aoi = Ramp(100, 100);
    const AOIWindow aoiWindow;
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    for (double zoom : {0.25, 1.0, 3.0})
    {
        Zoom(view, zoom, zoom);
        EXPECT_EQ(view.GetLogicRect({0, 0, -32768, 8}).right, -32768) << zoom;
    }
    Zoom(view, 4.0, 4.0);
    EXPECT_EQ(view.GetLogicRect({8, 4, 15, 11}), Rect(2, 1, 3, 2));
    EXPECT_EQ(view.GetLogicRect({8, 4, 8, 11}), Rect(2, 1, -32768, 2)); // a width of 1 comes out as 0
}

TEST(AOIViewGeometry, LengthsConvertInPlaceAndRoundNegativeOnesTowardZero)
{
    const auto aoi = Ramp(100, 100);
    const AOIWindow aoiWindow;
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    Zoom(view, 2.5, 1.0);
    KvTPair<short> lengths(3, -3);
    view.ConvertLogicToPixel(lengths);
    EXPECT_EQ(lengths, KvTPair<short>(8, -2));
    lengths = {8, -3};
    view.ConvertPixelToLogic(lengths);
    EXPECT_EQ(lengths, KvTPair<short>(3, -2));
}

TEST(AOIViewGeometry, ConvertedLengthsAreCutToSixteenBits)
{
    const auto aoi = Ramp(100, 100);
    const AOIWindow aoiWindow;
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    Zoom(view, 16.0, 16.0);
    KvTPair<short> lengths(4096, 2048);
    view.ConvertLogicToPixel(lengths);
    EXPECT_EQ(lengths, KvTPair<short>(0, -32768));
}

TEST(AOIViewGeometry, NeededSizeRoundsToNearest)
{
    const auto aoi = Ramp(101, 102);
    const AOIWindow aoiWindow;
    aoiWindow.View().SetAOI(aoi.get());
    Zoom(aoiWindow.View(), 0.25, 0.25);
    EXPECT_EQ(aoiWindow.View().GetNecessaryOutputSize(), Size(25, 26));
}

TEST(AOIViewGeometry, NegativeZoomNeedsTheSameSize)
{
    const auto aoi = Ramp(50, 40);
    const AOIWindow aoiWindow;
    aoiWindow.View().SetAOI(aoi.get());
    Zoom(aoiWindow.View(), -3.0, -2.0);
    EXPECT_EQ(aoiWindow.View().GetZoomFactorX(), -3.0);
    EXPECT_EQ(aoiWindow.View().GetNecessaryOutputSize(), Size(150, 80));
}

TEST(AOIViewGeometry, ASideBeyond32767ThrowsAndThePaintsRestUntilALayOutSucceeds)
{
    const auto wide = Ramp(2048, 4);
    const auto fits = Ramp(2047, 4);
    const AOIWindow aoiWindow;
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(wide.get());
    view.SetDefaultOff();
    EXPECT_EQ(Thrown([&] { view.SetZoomFactor(16.0); }), overflow);
    EXPECT_EQ(view.GetZoomFactorX(), 16.0);
    EXPECT_EQ(aoiWindow.Open().resizing, 1);
    EXPECT_EQ(Thrown([&] { view.GetNecessaryOutputSize(); }), overflow);
    view.SetAOI(fits.get());
    EXPECT_EQ(view.GetNecessaryOutputSize(), Size(32752, 64));
    EXPECT_EQ(aoiWindow.Open().resizing, 0);
    kv::win::Settle();
    EXPECT_EQ(aoiWindow.Shown(9, 0), 0x090909u);
}

TEST(AOIViewGeometry, FittedTheNeededSizeKeepsTheAspectRatioWithinTheHost)
{
    const auto aoi = Ramp(100, 60);
    const AOIWindow aoiWindow(CSize(400, 300));
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    view.SetDefaultOff();
    view.FitAOIToWindowOn();
    EXPECT_EQ(view.GetNecessaryOutputSize(), Size(400, 240));
    view.MaintainPixelAspectRatioOff();
    EXPECT_EQ(view.GetNecessaryOutputSize(), Size(400, 300));
}

TEST(AOIViewZoom, TheDefaultWinsOverASingleFactorAndOverEqualOnes)
{
    const auto aoi = Ramp(50, 40);
    const AOIWindow aoiWindow;
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    view.SetZoomFactor(3.0);
    EXPECT_EQ(view.GetZoomFactorX(), 1.0);
    view.SetZoomFactor(3.0, 3.0);
    EXPECT_EQ(view.GetZoomFactorX(), 1.0);
    view.SetDefaultOff();
    EXPECT_EQ(view.GetZoomFactorX(), 1.0); // switching it off changes no zoom
    view.SetZoomFactor(3.0);
    EXPECT_EQ(view.GetZoomFactorX(), 3.0);
    EXPECT_EQ(view.GetZoomFactorY(), 3.0);
}

TEST(AOIViewZoom, UnequalFactorsPassTheDefaultBy)
{
    const auto aoi = Ramp(50, 40);
    const AOIWindow aoiWindow;
    aoiWindow.View().SetAOI(aoi.get());
    aoiWindow.View().SetZoomFactor(2.0, 3.0);
    EXPECT_EQ(aoiWindow.View().GetZoomFactorX(), 2.0);
    EXPECT_EQ(aoiWindow.View().GetZoomFactorY(), 3.0);
    EXPECT_EQ(aoiWindow.View().IsDefaultOn(), 1);
}

TEST(AOIViewZoom, ADefaultThatFitsLeavesTheCallersFactor)
{
    const auto aoi = Ramp(50, 40);
    const AOIWindow aoiWindow;
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    view.SetDefaultFittedToWindow(1);
    EXPECT_EQ(view.IsAOIFittedToWindow(), 1);
    view.SetZoomFactor(2.0);
    EXPECT_EQ(view.GetZoomFactorX(), 2.0);
    EXPECT_EQ(view.IsAOIFittedToWindow(), 0);
}

TEST(AOIViewZoom, EachSetterOfTheDefaultAppliesItAtOnceWhileItIsOn)
{
    const auto aoi = Ramp(50, 40);
    const AOIWindow aoiWindow;
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    view.SetDefaultZoomFactor(2.0);
    EXPECT_EQ(view.GetZoomFactorX(), 2.0);
    view.SetDefaultOff();
    view.SetDefaultZoomFactor(4.0);
    EXPECT_EQ(view.GetZoomFactorX(), 2.0);
    view.SetDefaultOn();
    EXPECT_EQ(view.GetZoomFactorX(), 4.0);
    view.SetDefaultAspectRatioMaintained(0);
    EXPECT_EQ(view.IsPixelAspectRatioMaintained(), 1); // left alone unless the default fits
    view.SetDefaultFittedToWindow(1);
    EXPECT_EQ(view.IsPixelAspectRatioMaintained(), 0);
}

TEST(AOIViewLayout, ANullAOIHidesTheFrameUntilTheDefaultIsAppliedAgain)
{
    const auto aoi = Ramp(50, 40);
    const AOIWindow aoiWindow;
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    EXPECT_TRUE(view.IsWindowVisible());
    view.SetAOI(nullptr);
    EXPECT_FALSE(view.IsWindowVisible());
    view.SetAOI(aoi.get());
    EXPECT_FALSE(view.IsWindowVisible());
    view.SetDefaultOff();
    view.UpdateDefaultZoom();
    EXPECT_FALSE(view.IsWindowVisible());
    view.SetDefaultOn();
    EXPECT_TRUE(view.IsWindowVisible());
}

TEST(AOIViewLayout, AnUpdateSetsTheContentAndRepaintsTheHost)
{
    const auto aoi = Ramp(50, 40);
    const AOIWindow aoiWindow;
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.OnUpdate(nullptr, 0, nullptr);
    EXPECT_EQ(view.GetTotalDevSize(), CSize(10, 10)) << "without an AOI";
    view.SetAOI(aoi.get());
    kv::win::Settle();
    CRect update;
    ASSERT_FALSE(aoiWindow.window->GetUpdateRect(&update));
    view.OnUpdate(nullptr, 0, nullptr);
    EXPECT_EQ(view.GetTotalDevSize(), CSize(50, 40));
    EXPECT_TRUE(aoiWindow.window->GetUpdateRect(&update));
}

TEST(AOIViewScroll, AStepOfTheBarIsOneAOIPixel)
{
    const auto aoi = Ramp(1000, 800);
    const AOIWindow aoiWindow(CSize(200, 100));
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    Zoom(view, 3.0, 3.0);
    view.SendMessage(WM_HSCROLL, MAKEWPARAM(SB_LINERIGHT, 0), 0);
    view.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_LINEDOWN, 0), 0);
    EXPECT_EQ(view.GetScrollPos(), Point(3, 3));
}

TEST(AOIViewScroll, ScrollingRepaintsTheWholeClientArea)
{
    const auto aoi = Ramp(1000, 800);
    const AOIWindow aoiWindow(CSize(200, 100));
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    kv::win::Settle();
    CRect update;
    CRect client;
    view.GetClientRect(&client);
    view.OnScrollBy(CSize(0, 0), TRUE); // even if nothing moves
    EXPECT_TRUE(view.GetUpdateRect(&update));
    EXPECT_EQ(update, client);
}

TEST(AOIViewScroll, TheLinksAreCalledAfterTheRepaint)
{
    const auto aoi = Ramp(1000, 800);
    const AOIWindow aoiWindow(CSize(200, 100));
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    kv::win::Settle();
    std::string calls;
    view.postPaintSignal.Connect(&calls, [](void* log, KvAOIBaseViewWnd&) { *static_cast<std::string*>(log) += "p"; });
    Handler vertical([&](void*) { calls += "v"; });
    view.ChangeVScrollHdl(vertical.Link());
    view.SetAOIPos({0, 20});
    EXPECT_EQ(calls, "pv");
}

TEST(AOIViewScroll, ScrollingCallsTheLinkOfEachAxisThatMoved)
{
    const auto aoi = Ramp(1000, 800);
    const AOIWindow aoiWindow(CSize(200, 100));
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    std::string calls;
    Handler vertical([&](void* data) { calls += data == &view ? "v" : "?"; });
    Handler horizontal([&](void* data) { calls += data == &view ? "h" : "?"; });
    view.ChangeVScrollHdl(vertical.Link());
    view.ChangeHScrollHdl(horizontal.Link());
    view.SetAOIPos({30, 0});
    EXPECT_EQ(calls, "h");
    view.SetAOIPos({40, 20});
    EXPECT_EQ(calls, "hvh");
    view.SetAOIPos({40, 20});
    EXPECT_EQ(calls, "hvh");
    view.SetAOIPos({40, 10});
    EXPECT_EQ(calls, "hvhv");
}

TEST(AOIViewScroll, APointScrollsToTheCornerAtTheZoom)
{
    const auto aoi = Ramp(1000, 800);
    const AOIWindow aoiWindow(CSize(200, 100));
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    Zoom(view, 3.0, 3.0);
    view.SetAOIPos({100, 70});
    EXPECT_EQ(view.GetLogicPoint({0, 0}), Point(100, 70));
}

TEST(AOIViewScroll, TheBarsCallTheirLinks)
{
    const auto aoi = Ramp(1000, 800);
    const AOIWindow aoiWindow(CSize(200, 100));
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    std::string calls;
    Handler vertical([&](void*) { calls += "v"; });
    Handler horizontal([&](void*) { calls += "h"; });
    view.ChangeVScrollHdl(vertical.Link());
    view.ChangeHScrollHdl(horizontal.Link());
    view.SendMessage(WM_HSCROLL, MAKEWPARAM(SB_LINERIGHT, 0), 0);
    view.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_PAGEDOWN, 0), 0);
    EXPECT_EQ(calls, "hv");
    EXPECT_GT(view.GetLogicPoint({0, 0}).x, 0);
    EXPECT_GT(view.GetLogicPoint({0, 0}).y, 0);
}
