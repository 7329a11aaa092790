// The AOI view's events: from messages to handlers and signals, and the cursor.
#include "platform/win/modal.h"
#include "platform/win/qt_host.h"
#include "tests/ui/aoi_window.h"

#include <QWidget>

#include <utility>

using namespace KvN;
using kv::test::AOIWindow;
using kv::test::Handler;
using kv::test::Ramp;
using kv::win::Button;

namespace
{
class AOIViewEvents : public ::testing::Test
{
protected:
    AOIViewEvents() : view(aoiWindow.View())
    {
        view.SetAOI(aoi.get());
        view.keyDownSignal.Connect(this,
                                   [](void* self, unsigned key) { Self(self).keys += "+" + std::to_string(key); });
        view.keyUpSignal.Connect(this, [](void* self, unsigned key) { Self(self).keys += "-" + std::to_string(key); });
    }

    static AOIViewEvents& Self(void* self) { return *static_cast<AOIViewEvents*>(self); }
    std::string Event() const
    {
        const KvMouseEvent event = view.GetMouseEvent();
        return std::to_string(event.button) + "," + std::to_string(event.flags) + "," +
               std::to_string(event.GetPoint().x) + "," + std::to_string(event.GetPoint().y) + "," +
               std::to_string(event.clicks);
    }
    // Logs each call of the three mouse handlers as its letter and the event.
    void LogMouse()
    {
        view.ChangeMouseMoveHdl(moves.Link());
        view.ChangeMouseButtonDownHdl(downs.Link());
        view.ChangeMouseButtonUpHdl(ups.Link());
    }
    std::string Take() { return std::exchange(log, {}); }

    const HWND& Window() const { return view.m_hWnd; }

    std::unique_ptr<KvBufferAOI8> aoi = Ramp(200, 150);
    AOIWindow aoiWindow;
    KvAOIBaseViewWnd& view;
    std::string log;
    std::string keys;
    Handler moves{[this](void*) { log += "m(" + Event() + ")"; }};
    Handler downs{[this](void*) { log += "d(" + Event() + ")"; }};
    Handler ups{[this](void*) { log += "u(" + Event() + ")"; }};
};
} // namespace

TEST_F(AOIViewEvents, EventsAreKeptWithoutAnyHandler)
{
    kv::win::MoveMouse(Window(), CPoint(12, 34));
    EXPECT_EQ(Event(), "0,0,12,34,1");
    kv::win::PressButton(Window(), Button::Left, CPoint(12, 34));
    EXPECT_EQ(Event(), "1,1,12,34,1");
    kv::win::ReleaseButton(Window(), Button::Left, CPoint(12, 34));
    EXPECT_EQ(Event(), "1,0,12,34,1");
}

TEST_F(AOIViewEvents, ADoubleClickIsAPressWithTwoClicksAndAPlainRelease)
{
    kv::win::MoveMouse(Window(), CPoint(5, 6));
    LogMouse();
    kv::win::PressButton(Window(), Button::Left, CPoint(5, 6));
    kv::win::ReleaseButton(Window(), Button::Left, CPoint(5, 6));
    kv::win::DoublePressButton(Window(), Button::Left, CPoint(5, 6));
    kv::win::ReleaseButton(Window(), Button::Left, CPoint(5, 6));
    EXPECT_EQ(Take(), "d(1,1,5,6,1)u(1,0,5,6,1)d(1,1,5,6,2)u(1,0,5,6,1)");
}

TEST_F(AOIViewEvents, TheRightButtonsPressComesBeforeItsMenuAndItsReleaseAfterIt)
{
    kv::win::MoveMouse(Window(), CPoint(5, 6));
    LogMouse();
    kv::win::SetModalHook(
        [this]
        {
            log += "menu";
            kv::win::DismissMenu();
        });
    kv::win::PressButton(Window(), Button::Right, CPoint(5, 6));
    kv::win::ReleaseButton(Window(), Button::Right, CPoint(5, 6));
    kv::win::SetModalHook({});
    EXPECT_EQ(Take(), "d(2,2,5,6,1)menuu(2,0,5,6,1)");
}

TEST_F(AOIViewEvents, AMoveCarriesTheHeldButtonsAndKeys)
{
    kv::win::PressKey(VK_CONTROL);
    kv::win::MoveMouse(Window(), CPoint(1, 1));
    EXPECT_EQ(Event(), "0,8,1,1,1");
    kv::win::ReleaseKey(VK_CONTROL);
    kv::win::PressButton(Window(), Button::Left, CPoint(1, 1));
    kv::win::MoveMouse(Window(), CPoint(2, 1));
    EXPECT_EQ(Event(), "0,1,2,1,1");
    kv::win::ReleaseButton(Window(), Button::Left, CPoint(2, 1));
}

TEST_F(AOIViewEvents, AMoveToWhereThePointerIsArrives)
{
    LogMouse();
    kv::win::MoveMouse(Window(), CPoint(5, 6));
    kv::win::MoveMouse(Window(), CPoint(5, 6));
    EXPECT_EQ(Take(), "m(0,0,5,6,1)m(0,0,5,6,1)");
}

TEST_F(AOIViewEvents, ALeaveComesOnlyIfAskedForAndIsToldByItsFlags)
{
    LogMouse();
    kv::win::MoveMouse(Window(), CPoint(5, 6));
    Take();
    kv::win::LeaveMouse();
    EXPECT_EQ(Take(), "");
    kv::win::MoveMouse(Window(), CPoint(5, 6));
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, Window(), 0};
    _TrackMouseEvent(&track);
    Take();
    kv::win::LeaveMouse();
    EXPECT_EQ(view.GetMouseEvent().flags, 65535u);
    EXPECT_EQ(log.substr(0, 9), "m(0,65535");
    kv::win::MoveMouse(Window(), CPoint(5, 6));
    EXPECT_EQ(view.SendMessage(WM_MOUSELEAVE, 0, 0), 1);
    EXPECT_EQ(Event(), "0,65535,5,6,1") << "the pointer's place in the client area";
}

TEST_F(AOIViewEvents, ALinkIsReplacedNotStacked)
{
    Handler second{[](void*) {}};
    EXPECT_FALSE(view.ChangeMouseMoveHdl(moves.Link()).IsSet());
    EXPECT_EQ(view.ChangeMouseMoveHdl(second.Link()).instance, moves.Instance());
    EXPECT_EQ(view.ChangeMouseMoveHdl({}).instance, second.Instance());
    EXPECT_FALSE(view.ChangeMouseMoveHdl({}).IsSet());
}

TEST_F(AOIViewEvents, EverySlotIsReplacedByItsOwnOperation)
{
    using Change = KvTools::Link (KvAOIBaseViewWnd::*)(const KvTools::Link&);
    const Change changes[] = {&KvAOIBaseViewWnd::ChangeMoveHdl,          &KvAOIBaseViewWnd::ChangeResizeHdl,
                              &KvAOIBaseViewWnd::ChangePaintHdl,         &KvAOIBaseViewWnd::ChangeMousePaintHdl,
                              &KvAOIBaseViewWnd::ChangeMouseMoveHdl,     &KvAOIBaseViewWnd::ChangeMouseButtonDownHdl,
                              &KvAOIBaseViewWnd::ChangeMouseButtonUpHdl, &KvAOIBaseViewWnd::ChangeVScrollHdl,
                              &KvAOIBaseViewWnd::ChangeHScrollHdl,       &KvAOIBaseViewWnd::ChangeLutMenuHdl,
                              &KvAOIBaseViewWnd::ChangeBackgroundMenuHdl};
    for (const Change change : changes)
        EXPECT_FALSE((view.*change)(moves.Link()).IsSet());
    for (const Change change : changes)
        EXPECT_EQ((view.*change)({}).instance, moves.Instance());
}

TEST_F(AOIViewEvents, MovingAndSizingCallTheirLinks)
{
    int moved = 0;
    int resized = 0;
    Handler onMove([&](void* data) { moved += data == &view; });
    Handler onResize([&](void* data) { resized += data == &view; });
    view.ChangeMoveHdl(onMove.Link());
    view.ChangeResizeHdl(onResize.Link());
    view.SetDefaultOff();
    view.SetZoomFactor(2.0);
    EXPECT_GT(resized, 0);
    CRect place(3, 3, 50, 50);
    view.MoveWindow(&place);
    EXPECT_GT(moved, 0);
}

TEST_F(AOIViewEvents, ACursorOfAHandlerHoldsUntilTheNextMove)
{
    const HCURSOR arrow = LoadCursorW(nullptr, IDC_ARROW);
    const HCURSOR cross = LoadCursorW(nullptr, IDC_CROSS);
    EXPECT_EQ(view.GetDefaultCursor(), arrow);
    EXPECT_EQ(view.GetCurrentCursor(), nullptr);
    bool claim = true;
    Handler claiming(
        [&](void*)
        {
            if (claim)
                view.SetCurrentCursor(cross);
        });
    view.ChangeMouseMoveHdl(claiming.Link());
    kv::win::MoveMouse(Window(), CPoint(1, 1));
    EXPECT_EQ(GetCursor(), cross);
    claim = false;
    kv::win::MoveMouse(Window(), CPoint(2, 1));
    EXPECT_EQ(view.GetCurrentCursor(), arrow);
    EXPECT_EQ(GetCursor(), arrow);
}

TEST_F(AOIViewEvents, SettingTheDefaultCursorDuringAMoveShowsWithThatMove)
{
    const HCURSOR cross = LoadCursorW(nullptr, IDC_CROSS);
    Handler setting([&](void*) { view.SetDefaultCursor(cross); });
    view.ChangeMouseMoveHdl(setting.Link());
    kv::win::MoveMouse(Window(), CPoint(1, 1));
    EXPECT_EQ(GetCursor(), cross);
}

TEST_F(AOIViewEvents, AMoveUnderTheRightCursorSetsNone)
{
    kv::win::MoveMouse(Window(), CPoint(1, 1));
    QWidget* widget = kv::win::WidgetOf(Window());
    widget->setCursor(Qt::ForbiddenCursor); // any cursor that is set would replace it
    kv::win::MoveMouse(Window(), CPoint(2, 1));
    EXPECT_EQ(widget->cursor().shape(), Qt::ForbiddenCursor);
    view.SetDefaultCursor(LoadCursorW(nullptr, IDC_CROSS));
    kv::win::MoveMouse(Window(), CPoint(3, 1));
    EXPECT_EQ(widget->cursor().shape(), Qt::CrossCursor);
}

TEST_F(AOIViewEvents, KeysAreSignalledWhileTheViewHasTheFocus)
{
    view.SetFocus();
    kv::win::PressKey(VK_DELETE);
    kv::win::ReleaseKey(VK_DELETE);
    EXPECT_EQ(keys, "+46-46");
}

TEST_F(AOIViewEvents, AltIsSignalledBothWaysAndOtherSystemKeysOnlyDown)
{
    view.SetFocus();
    kv::win::PressKey(VK_MENU);
    EXPECT_EQ(keys, "+18");
    kv::win::PressKey('X');
    kv::win::ReleaseKey('X');
    EXPECT_EQ(keys, "+18+88");
    kv::win::ReleaseKey(VK_MENU);
    EXPECT_EQ(keys, "+18+88-18");
}

TEST_F(AOIViewEvents, TheFocusFollowsTheMouseOnlyIfAskedTo)
{
    aoiWindow.host.SetFocus();
    view.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(Window()), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_NE(CWnd::GetFocus(), &view);
    view.AutoCaptureFocusOn();
    EXPECT_EQ(view.IsAutoCapturingFocus(), 1);
    EXPECT_EQ(view.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(Window()), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)),
              1);
    EXPECT_EQ(CWnd::GetFocus(), &view);
    aoiWindow.host.SetFocus();
    view.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(Window()), MAKELPARAM(HTVSCROLL, WM_MOUSEMOVE));
    EXPECT_EQ(CWnd::GetFocus(), &view);
    view.AutoCaptureFocusOff();
    EXPECT_EQ(view.IsAutoCapturingFocus(), 0);
}

TEST_F(AOIViewEvents, ThePointIsCutToSixteenBits)
{
    view.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(-3, 40000));
    EXPECT_EQ(view.GetMouseEvent().GetPoint(), (KvTPoint<short>(-3, static_cast<short>(40000))));
}

TEST_F(AOIViewEvents, TheBackgroundIsNeverErased)
{
    EXPECT_EQ(view.SendMessage(WM_ERASEBKGND, 0, 0), 1);
}
