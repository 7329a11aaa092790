// Sizeable cursors: the figure at the mouse, sizing with the right button, the handlers taken and given back.
#include "C/uiSizeableCursor.h"

#include "platform/win/modal.h"
#include "tests/ui/aoi_window.h"

using namespace KvN;
using kv::test::AOIWindow;
using kv::test::Grey;
using kv::test::Handler;
using kv::win::Button;

namespace
{
using Point = KvTPoint<short>;
using Size = KvTSize<short>;
using Rect = KvTRectangle<short>;

class OpenCursor : public KvSizeableCursor
{
public:
    using KvSizeableCursor::hotSpot;
    using KvSizeableCursor::KvSizeableCursor;
    using KvSizeableCursor::visible;
};

class SizeableCursor : public ::testing::Test
{
protected:
    SizeableCursor() : view(aoiWindow.View())
    {
        view.SetAOI(aoi.get());
        kv::win::Settle();
    }
    ~SizeableCursor() override { kv::win::SetModalHook({}); }

    void Connect(CursorType type, Size size, SizeableMode mode)
    {
        cursor = std::make_unique<OpenCursor>(type, size, nullptr, mode);
        cursor->Connect(aoiWindow.window.get());
    }
    void Move(int x, int y) { kv::win::MoveMouse(view.m_hWnd, CPoint(x, y)); }
    // Holds the right button from the first point to the second, in one move; its menu closes at once.
    void Size_(CPoint from, CPoint to)
    {
        kv::win::SetModalHook([] { kv::win::DismissMenu(); });
        Move(from.x, from.y);
        kv::win::PressButton(view.m_hWnd, Button::Right, from);
        Move(to.x, to.y);
        sized = cursor->GetSize();
        kv::win::ReleaseButton(view.m_hWnd, Button::Right, to);
    }
    // Sizes a fresh cursor by (dx, dy).
    Size Sized(Size size, SizeableMode mode, int dx, int dy)
    {
        Connect(CursorRectangle, size, mode);
        Size_(CPoint(100, 100), CPoint(100 + dx, 100 + dy));
        cursor->Disconnect();
        return sized;
    }

    std::unique_ptr<KvBufferAOI8> aoi = Grey(200, 150, 0);
    AOIWindow aoiWindow;
    KvAOIBaseViewWnd& view;
    std::unique_ptr<OpenCursor> cursor;
    Size sized;
};
} // namespace

TEST(SizeableCursorBox, LiesAroundTheHotSpot)
{
    OpenCursor cursor(CursorCircle, Size(4, 4), nullptr, SizeableNone);
    cursor.hotSpot = {10, 10};
    EXPECT_EQ(cursor.GetBoundingRectangle(), Rect(8, 8, 11, 11));
    cursor.SetSize({5, 5});
    EXPECT_EQ(cursor.GetBoundingRectangle(), Rect(8, 8, 12, 12));
    cursor.SetSize({0, 5});
    EXPECT_EQ(cursor.GetBoundingRectangle(), Rect(10, 8, -32768, 12));
}

TEST(SizeableCursorBox, SettersOnlyStore)
{
    OpenCursor cursor(CursorCircle, Size(4, 6), nullptr, SizeableNone);
    EXPECT_EQ(cursor.IsSizeable(), 0);
    cursor.SetSizeableMode(SizeableBoth);
    EXPECT_EQ(cursor.IsSizeable(), 1);
    EXPECT_EQ(cursor.GetSizeableMode(), SizeableBoth);
    cursor.SetCursorType(CursorRectangle);
    EXPECT_EQ(cursor.GetCursorType(), CursorRectangle);
    EXPECT_EQ(cursor.GetSize(), Size(4, 6));
    EXPECT_EQ(cursor.GetHotSpot(), Point(0, 0));
}

TEST_F(SizeableCursor, ShowsItsFigureAtTheMouseAndTakesItAlong)
{
    Connect(CursorRectangle, Size(11, 7), SizeableNone);
    Move(50, 40);
    EXPECT_EQ(cursor->visible, 1);
    EXPECT_EQ(cursor->GetHotSpot(), Point(50, 40));
    EXPECT_EQ(aoiWindow.Shown(45, 37), 0x00FF00u);
    EXPECT_EQ(aoiWindow.Shown(55, 43), 0x00FF00u);
    EXPECT_EQ(aoiWindow.Shown(50, 40), 0x000000u);
    Move(80, 40);
    EXPECT_EQ(aoiWindow.Shown(45, 37), 0x000000u);
    EXPECT_EQ(aoiWindow.Shown(75, 37), 0x00FF00u);
    cursor->Disconnect();
    EXPECT_EQ(aoiWindow.Shown(75, 37), 0x000000u);
    EXPECT_EQ(cursor->visible, 0);
}

TEST_F(SizeableCursor, ACircleIsDrawnInItsBox)
{
    Connect(CursorCircle, Size(21, 21), SizeableNone);
    Move(50, 40);
    EXPECT_EQ(aoiWindow.Shown(40, 40), 0x00FF00u);
    EXPECT_EQ(aoiWindow.Shown(50, 30), 0x00FF00u);
    EXPECT_EQ(aoiWindow.Shown(40, 30), 0x000000u);
    cursor->Disconnect();
}

TEST_F(SizeableCursor, AnUnknownTypeDrawsNothing)
{
    Connect(static_cast<CursorType>(7), Size(21, 21), SizeableNone);
    Move(50, 40);
    EXPECT_EQ(cursor->visible, 1);
    for (int x = 30; x < 70; ++x)
        EXPECT_EQ(aoiWindow.Shown(x, 40), 0x000000u);
    cursor->Disconnect();
}

TEST_F(SizeableCursor, ShowsTheCrossUnlessGivenACursorAndLeavesItBehind)
{
    Connect(CursorRectangle, Size(11, 7), SizeableNone);
    Move(50, 40);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_CROSS));
    cursor->Disconnect();
    Move(51, 40);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_CROSS));
}

TEST_F(SizeableCursor, GivesTheFormerHandlersBack)
{
    Handler move([](void*) {});
    Handler up([](void*) {});
    Handler paint([](void*) {});
    view.ChangeMouseMoveHdl(move.Link());
    view.ChangeMouseButtonUpHdl(up.Link());
    view.ChangePaintHdl(paint.Link());
    Connect(CursorRectangle, Size(11, 7), SizeableNone);
    cursor->Disconnect();
    EXPECT_EQ(view.ChangeMouseMoveHdl({}).instance, move.Instance());
    EXPECT_EQ(view.ChangeMouseButtonUpHdl({}).instance, up.Instance());
    EXPECT_EQ(view.ChangePaintHdl({}).instance, paint.Instance());
}

TEST_F(SizeableCursor, ChainedHandlersReceiveTheCursorAndTheMoveIsNotChained)
{
    std::string calls;
    const auto note = [&](const char* name)
    { return [&calls, name, this](void* data) { calls += data == cursor.get() ? name : "?"; }; };
    Handler move(note("m"));
    Handler up(note("u"));
    Handler paint(note("p"));
    view.ChangeMouseMoveHdl(move.Link());
    view.ChangeMouseButtonUpHdl(up.Link());
    view.ChangePaintHdl(paint.Link());
    Connect(CursorRectangle, Size(11, 7), SizeableNone);
    kv::win::Settle();
    Move(50, 40);
    calls.clear();
    kv::win::PressButton(view.m_hWnd, Button::Left, CPoint(50, 40));
    kv::win::ReleaseButton(view.m_hWnd, Button::Left, CPoint(50, 40));
    EXPECT_EQ(calls, "pu"); // the paint is part of the release
    EXPECT_EQ(cursor->visible, 1);
    cursor->Disconnect();
}

TEST_F(SizeableCursor, AReleaseRepaintsItsLogicBoxTakenAsClientCoordinates)
{
    view.SetDefaultOff();
    view.SetZoomFactor(2.0);
    Connect(CursorRectangle, Size(11, 7), SizeableNone);
    kv::win::Settle();
    Move(100, 80);
    const auto release = [&]
    {
        CDC* dc = view.GetOutputDevice();
        dc->SetPixelV(52, 41, RGB(1, 2, 3)); // within the figure
        dc->SetPixelV(25, 20, RGB(1, 2, 3)); // where its logic box would be in client pixels
        kv::win::PressButton(view.m_hWnd, Button::Left, CPoint(100, 80));
        kv::win::ReleaseButton(view.m_hWnd, Button::Left, CPoint(100, 80));
    };
    release();
    EXPECT_EQ(aoiWindow.Shown(52, 41), 0x010203u);
    EXPECT_EQ(aoiWindow.Shown(25, 20), 0x000000u);
    EXPECT_EQ(aoiWindow.Shown(50, 37), 0x00FF00u);
    EXPECT_EQ(cursor->visible, 1);
    // Without a menu that could have hidden it, and without a handler to call, nothing happens.
    view.DisableRightButtonMenu();
    release();
    EXPECT_EQ(aoiWindow.Shown(25, 20), 0x010203u);
    EXPECT_EQ(aoiWindow.Shown(50, 37), 0x00FF00u);
    cursor->Disconnect();
}

TEST_F(SizeableCursor, APaintWipesTheFigureUntilTheNextMove)
{
    Connect(CursorRectangle, Size(11, 7), SizeableNone);
    Move(50, 40);
    view.InvalidateRect(nullptr);
    view.UpdateWindow();
    EXPECT_EQ(cursor->visible, 0);
    EXPECT_EQ(aoiWindow.Shown(45, 37), 0x000000u);
    Move(50, 40);
    EXPECT_EQ(aoiWindow.Shown(45, 37), 0x00FF00u);
    cursor->Disconnect();
}

TEST_F(SizeableCursor, LeavingTheWindowRemovesTheFigure)
{
    Connect(CursorRectangle, Size(11, 7), SizeableNone);
    Move(50, 40);
    int paints = 0;
    view.prePaintSignal.Connect(&paints, [](void* count, KvAOIBaseViewWnd&) { ++*static_cast<int*>(count); });
    kv::win::LeaveMouse();
    EXPECT_EQ(paints, 1);
    EXPECT_EQ(aoiWindow.Shown(45, 37), 0x000000u);
    EXPECT_EQ(cursor->visible, 0);
    cursor->Disconnect();
}

TEST_F(SizeableCursor, WithoutAModeTheRightButtonOnlyMoves)
{
    EXPECT_EQ(Sized(Size(20, 20), SizeableNone, 5, 5), Size(20, 20));
    EXPECT_EQ(cursor->GetHotSpot(), Point(105, 105));
}

TEST_F(SizeableCursor, EachModeChangesItsSides)
{
    EXPECT_EQ(Sized(Size(20, 20), SizeableWidth, 5, 7), Size(25, 20));
    EXPECT_EQ(Sized(Size(20, 20), SizeableHeight, 5, 7), Size(20, 27));
    EXPECT_EQ(Sized(Size(20, 20), SizeableBoth, 5, -7), Size(25, 13));
    EXPECT_EQ(Sized(Size(20, 20), SizeableUniform, 5, 4), Size(25, 25));
    EXPECT_EQ(Sized(Size(20, 20), SizeableUniform, 5, -7), Size(13, 13));
    EXPECT_EQ(Sized(Size(20, 20), SizeableUniform, 6, -6), Size(14, 14)); // equal amounts take the vertical one
}

TEST_F(SizeableCursor, StopsAtThreePixels)
{
    EXPECT_EQ(Sized(Size(20, 20), SizeableWidth, -60, 0), Size(3, 20));
    EXPECT_EQ(Sized(Size(3, 3), SizeableUniform, 5, -7), Size(3, 3));
}

TEST_F(SizeableCursor, StopsAtTheAOI)
{
    EXPECT_EQ(Sized(Size(300, 20), SizeableWidth, 1, 0), Size(200, 20));
    EXPECT_EQ(Sized(Size(190, 140), SizeableBoth, 30, 30), Size(200, 150));
    EXPECT_EQ(Sized(Size(145, 145), SizeableUniform, 30, 0), Size(175, 175)); // past the shorter side
    EXPECT_EQ(Sized(Size(190, 190), SizeableUniform, 30, 0), Size(200, 200));
}

TEST_F(SizeableCursor, AnAOINarrowerThanTheLeastSizeWins)
{
    const auto narrow = Grey(2, 150, 0);
    view.SetAOI(narrow.get());
    Connect(CursorRectangle, Size(10, 10), SizeableWidth);
    kv::win::SetModalHook([] { kv::win::DismissMenu(); });
    Move(1, 100);
    kv::win::PressButton(view.m_hWnd, Button::Right, CPoint(1, 100));
    Move(0, 100);
    EXPECT_EQ(cursor->GetSize(), Size(2, 10));
    cursor->Disconnect();
}

TEST_F(SizeableCursor, SizingIsRelativeToTheLastEventAndShowsItsCursor)
{
    Connect(CursorRectangle, Size(20, 20), SizeableWidth);
    kv::win::SetModalHook([] { kv::win::DismissMenu(); });
    Move(100, 100);
    kv::win::PressButton(view.m_hWnd, Button::Right, CPoint(100, 100));
    Move(110, 100);
    Move(104, 100);
    EXPECT_EQ(cursor->GetSize(), Size(24, 20));
    EXPECT_EQ(cursor->GetHotSpot(), Point(104, 100));
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_SIZEWE));
    kv::win::ReleaseButton(view.m_hWnd, Button::Right, CPoint(104, 100));
    Move(105, 100);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_CROSS));
    cursor->Disconnect();
}
