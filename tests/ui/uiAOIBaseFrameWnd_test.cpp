// The frame around the view: its place in the host.
#include "tests/ui/aoi_window.h"

#include <cstdlib>

using namespace KvN;
using kv::test::AOIWindow;
using kv::test::Ramp;

TEST(AOIFrame, IsAsLargeAsTheImageNeedsAndCentred)
{
    const auto aoi = Ramp(200, 100);
    const AOIWindow aoiWindow(CSize(800, 600));
    aoiWindow.View().SetAOI(aoi.get());
    EXPECT_EQ(aoiWindow.Frame(), CRect(CPoint(300, 250), CSize(200, 100)));
}

TEST(AOIFrame, AnOddRestTruncates)
{
    const auto aoi = Ramp(200, 100);
    const AOIWindow aoiWindow(CSize(801, 603));
    aoiWindow.View().SetAOI(aoi.get());
    EXPECT_EQ(aoiWindow.Frame(), CRect(CPoint(300, 251), CSize(200, 100)));
}

TEST(AOIFrame, IsNeverLargerThanTheHost)
{
    const auto aoi = Ramp(2000, 1000);
    const AOIWindow aoiWindow(CSize(300, 200));
    aoiWindow.View().SetAOI(aoi.get());
    EXPECT_EQ(aoiWindow.Frame(), CRect(0, 0, 300, 200));
    CRect client;
    aoiWindow.View().GetClientRect(&client);
    EXPECT_LT(client.Width(), 300);
    EXPECT_LT(client.Height(), 200);
}

TEST(AOIFrame, TheLongestSideHasRoomForItsBar)
{
    const auto aoi = Ramp(32767, 3);
    const AOIWindow aoiWindow(CSize(300, 200));
    aoiWindow.View().SetAOI(aoi.get());
    EXPECT_EQ(aoiWindow.Frame().Width(), 300);
    aoiWindow.View().SetAOIPos({32000, 0});
    EXPECT_EQ(aoiWindow.View().GetLogicPoint({0, 0}), (KvTPoint<short>(32000, 0)));
    EXPECT_EQ(aoiWindow.Shown(32000, 1), 0x010101u);
    const auto high = Ramp(3, 32767);
    aoiWindow.View().SetAOI(high.get());
    EXPECT_EQ(aoiWindow.Frame().Height(), 200);
}

TEST(AOIFrame, FollowsZoomAndHost)
{
    const auto aoi = Ramp(100, 50);
    AOIWindow aoiWindow(CSize(400, 300));
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    view.SetDefaultOff();
    view.SetZoomFactor(2.0);
    EXPECT_EQ(aoiWindow.Frame(), CRect(CPoint(100, 100), CSize(200, 100)));
    aoiWindow.ResizeHost(CSize(600, 500));
    EXPECT_EQ(aoiWindow.Frame(), CRect(CPoint(200, 200), CSize(200, 100)));
    view.FitAOIToWindowOn();
    EXPECT_EQ(aoiWindow.Frame(), CRect(CPoint(0, 100), CSize(600, 300)));
    aoiWindow.ResizeHost(CSize(300, 500));
    EXPECT_EQ(aoiWindow.Frame(), CRect(CPoint(0, 175), CSize(300, 150)));
}

TEST(AOIFrame, WithoutAViewFillsWhatItWasGiven)
{
    AOIWindow aoiWindow(CSize(400, 300));
    auto* frame = static_cast<KvAOIBaseFrameWnd*>(RUNTIME_CLASS(KvAOIBaseFrameWnd)->CreateObject());
    frame->Create(CString(), CString(), WS_CHILD | WS_VISIBLE, CRect(10, 10, 60, 50), &aoiWindow.host);
    frame->SendMessage(WM_SIZE, 0, MAKELPARAM(70, 30));
    CRect place;
    frame->GetWindowRect(&place);
    aoiWindow.host.ScreenToClient(&place);
    EXPECT_EQ(place, CRect(0, 0, 70, 30));
    frame->DestroyWindow();
    delete frame;
}

TEST(AOIFrame, ItsOwnPaintRepaintsTheView)
{
    const auto aoi = Ramp(100, 50);
    AOIWindow aoiWindow(CSize(400, 300));
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    kv::win::Settle();
    CRect update;
    ASSERT_FALSE(view.GetUpdateRect(&update));
    view.GetParentFrame()->SendMessage(WM_PAINT, 0, 0);
    EXPECT_TRUE(view.GetUpdateRect(&update));
    EXPECT_EQ(update, CRect(0, 0, 100, 50));
}

namespace
{
// Lays a frame out whose view asks for more than there can be, then one that could be laid out.
void OverflowAndRecover()
{
    const auto aoi = Ramp(2048, 4);
    AOIWindow aoiWindow(CSize(400, 300));
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.SetAOI(aoi.get());
    view.SetDefaultOff();
    EXPECT_NE(kv::test::Thrown([&] { view.SetZoomFactor(16.0); }), "");
    EXPECT_NE(kv::test::Thrown([&] { view.GetParentFrame()->SendMessage(WM_SIZE, 0, MAKELPARAM(50, 40)); }), "");
    view.SetZoomFactor(0.125);
    EXPECT_EQ(aoiWindow.Open().resizing, 0);
    aoiWindow.ResizeHost(CSize(600, 500));
    EXPECT_EQ(aoiWindow.Frame(), CRect(0, 0, 600, 500)) << "where the host puts it, no longer centred";
}
} // namespace

// In a process of its own, since nothing clears the guard.
TEST(AOIFrameDeathTest, AnOverflowDuringASizeChangeLeavesTheGuardSet)
{
    EXPECT_EXIT(
        {
            OverflowAndRecover();
            std::_Exit(HasFailure() ? 1 : 0);
        },
        testing::ExitedWithCode(0), "");
}
