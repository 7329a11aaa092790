// The view in the workbench under a real mouse: zoom, panning, menus, images.
#include "tests/realwindow/workbench.h"

#include <cmath>

namespace kv::realwindow
{
namespace
{
class RealView : public WorkbenchDesk
{
protected:
    // The image pixel at a screen pixel is the wanted one, or lies beside it.
    void ExpectUnder(QPoint at, QPoint wanted) const
    {
        WaitFor("image pixel " + std::to_string(wanted.x()) + ", " + std::to_string(wanted.y()) + " under the pointer",
                [&]
                {
                    const auto under = Under(at);
                    return under && std::abs(under->x() - wanted.x()) <= 1 && std::abs(under->y() - wanted.y()) <= 1;
                });
    }
};
} // namespace

TEST_F(RealView, FirstKeyAfterTheStartZooms)
{
    OpenWorkbench({MakeImage()});
    At(0, 0);
    const double before = MeasuredZoom();
    screen->Keys({"ctrl+plus"});
    ExpectZoom(before * 1.25);
}

TEST_F(RealView, KeysZoomInAndOutAndBackToOriginalSize)
{
    OpenAtOriginalSize(MakeImage());
    screen->Keys({"ctrl+plus", "ctrl+plus"});
    ExpectZoom(1.5625);
    screen->Keys({"ctrl+minus"});
    ExpectZoom(1.25);
    screen->Keys({"ctrl+KP_Add"});
    ExpectZoom(1.5625);
    screen->Keys({"ctrl+0"});
    ExpectZoom(1.0);
}

TEST_F(RealView, WheelWithCtrlZoomsAboutThePointer)
{
    OpenAtOriginalSize(MakeImage("large.png", {1000, 900}));
    const QPoint pointer = At(300, 260);
    screen->Move(pointer);
    screen->KeyDown("ctrl");
    screen->Wheel(3);
    screen->KeyUp("ctrl");
    ExpectZoom(1.953125, 300, 260);
    ExpectUnder(pointer, {300, 260});
    screen->KeyDown("ctrl");
    screen->Wheel(-1);
    screen->KeyUp("ctrl");
    ExpectZoom(1.5625, 300, 260);
    ExpectUnder(pointer, {300, 260});
}

TEST_F(RealView, WheelScrollsAndWithShiftSideways)
{
    OpenAtOriginalSize(MakeImage("large.png", {1000, 1000}));
    const QPoint pointer = At(300, 200);
    screen->Move(pointer);
    screen->Wheel(-2);
    ExpectUnder(pointer, {300, 320});
    screen->Wheel(1);
    ExpectUnder(pointer, {300, 260});
    screen->KeyDown("shift");
    screen->Wheel(-1);
    screen->KeyUp("shift");
    ExpectUnder(pointer, {360, 260});
}

TEST_F(RealView, MiddleButtonDragsTheImageAlong)
{
    OpenAtOriginalSize(MakeImage("large.png", {1000, 1000}));
    const QPoint from = At(400, 300);
    const QPoint to = from - QPoint(80, 60);
    screen->Drag(from, to, 2);
    ExpectUnder(to, {400, 300});
}

TEST_F(RealView, RightButtonOpensTheContextMenuAndTheMouseChooses)
{
    OpenAtOriginalSize(MakeImage());
    const QPoint pointer = At(100, 60);
    screen->Move(pointer);
    screen->Press(3);
    screen->Release(3);
    const QRect menu = OpenedMenu();
    EXPECT_LT((menu.topLeft() - pointer).manhattanLength(), 8);
    screen->Click({menu.left() + 20, menu.bottom() - menu.height() / 4}); // the second of two items: the zooms
    const QRect zooms = OpenedMenu(2);
    // Ten items and a separator; the fourth doubles.
    screen->Click({zooms.right() - 40, zooms.top() + zooms.height() * 35 / 103});
    ExpectZoom(2.0);
}

TEST_F(RealView, MenuKeyOpensTheContextMenuAndKeysChoose)
{
    OpenAtOriginalSize(MakeImage());
    screen->Click(At(100, 60)); // selects nothing
    screen->Keys({"Menu"});
    OpenedMenu();
    screen->Keys({"Down", "Down", "Right", "Down", "Down", "Down", "Return"});
    ExpectZoom(2.0);
}

TEST_F(RealView, EscapeClosesTheContextMenuAndChangesNothing)
{
    OpenAtOriginalSize(MakeImage());
    const QPoint pointer = At(100, 60);
    screen->Click(pointer, 3);
    OpenedMenu();
    screen->Keys({"Escape"});
    ExpectUnder(pointer + QPoint(10, 10), {110, 70});
    screen->Keys({"ctrl+plus"}); // the keyboard is the view's again
    ExpectZoom(1.25);
}

TEST_F(RealView, PageKeysGoThroughTheFolder)
{
    const QString first = MakeImage("a.png", {300, 200});
    MakeImage("b.png", {350, 250});
    OpenAtOriginalSize(first);
    EXPECT_FALSE(Shows(340, 240));
    screen->Keys({"Next"});
    WaitFor("the second image", [&] { return Shows(340, 240); });
    WaitFor("its title", [&] { return screen->Window("b.png") != 0; });
    screen->Keys({"Prior"});
    WaitFor("the first image", [&] { return !Shows(340, 240) && Shows(290, 190); });
}

TEST_F(RealView, AFittedImageFollowsTheWindowsSize)
{
    OpenAtOriginalSize(MakeImage());
    screen->Keys({"ctrl+9"});
    WaitFor("a fitted image", [&] { return MeasuredZoom() > 1.2; });
    const double before = MeasuredZoom();
    screen->Resize(screen->Window("Arbeitsplatz"), {900, 600});
    WaitFor("a smaller image", [&] { return Shows(399, 299) && MeasuredZoom() < 0.8 * before; });
}

TEST_F(RealView, DroppedFileOpens)
{
    const QString dropped = MakeImage("dropped.png", {350, 250});
    OpenAtOriginalSize(MakeImage());
    Start(KV_DRAG_SOURCE, {dropped});
    WaitFor("the drag source", [&] { return screen->Window("drag source") != 0; });
    const QPoint from(1210, 900);
    const QPoint to = At(200, 100);
    screen->Move(from);
    WaitFor("the drag source's picture", [&] { return screen->Shot().copy(1160, 860, 100, 80).allGray(); });
    screen->Press();
    // A drag begins with the first moves and asks what lies below with each further one.
    for (int i = 1; i <= 8; ++i)
        screen->Move(from + (to - from) * i / 8);
    screen->Move(to + QPoint(1, 1));
    screen->Release();
    WaitFor("the dropped image", [&] { return screen->Window("dropped.png") != 0; });
    WaitFor("its pixels", [&] { return Shows(349, 249) && !Shows(399, 299); });
}

TEST_F(RealView, RecentFilesOpenFromTheMenu)
{
    const QString image = MakeImage("recent.png");
    QProcess& first = OpenWorkbench({image});
    At(0, 0);
    screen->Keys({"ctrl+q"});
    ASSERT_TRUE(first.waitForFinished(60000));
    EXPECT_EQ(first.exitCode(), 0);

    OpenWorkbench({});
    screen->Keys({"alt+d"});
    OpenedMenu();
    screen->Keys({"z", "Return"}); // "Zuletzt geöffnet", and its first file
    WaitFor("the image", [&] { return Shows(0, 0); });
    WaitFor("its title", [&] { return screen->Window("recent.png") != 0; });
}

TEST_F(RealView, AFileThatIsNoImageIsToldAboutAndTheImageStays)
{
    OpenAtOriginalSize(MakeImage("a.png"));
    QFile broken(Path("b.png"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("no image");
    broken.close();
    screen->Keys({"Next"});
    Answer("Return");
    EXPECT_NE(screen->Window("a.png"), 0u);
    WaitFor("the image behind the message", [&] { return Shows(0, 0); });
}

} // namespace kv::realwindow
