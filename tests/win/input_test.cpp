// Mouse, keys, capture, focus and cursors, with input that enters where the platform's own does.
#include "tests/win/recording_wnd.h"

using namespace kv::win;
using testing::ElementsAre;

namespace
{
const std::vector<UINT> mouseMessages = {WM_MOUSEMOVE,   WM_LBUTTONDOWN,   WM_LBUTTONUP,     WM_LBUTTONDBLCLK,
                                         WM_RBUTTONDOWN, WM_RBUTTONUP,     WM_MBUTTONDOWN,   WM_MBUTTONUP,
                                         WM_CONTEXTMENU, WM_RBUTTONDBLCLK, WM_MBUTTONDBLCLK, WM_MOUSELEAVE};
const std::vector<UINT> keyMessages = {WM_KEYDOWN, WM_KEYUP, WM_CHAR, WM_SYSKEYDOWN, WM_SYSKEYUP};
} // namespace

class Input : public WindowTest
{
};

TEST_F(Input, AMovePassesItsPositionAndKeys)
{
    RecordingWnd top;
    top.CreateTop();
    top.noted.clear();
    MoveMouse(top.m_hWnd, CPoint(12, 34));
    ASSERT_EQ(top.Count(WM_MOUSEMOVE), 1);
    EXPECT_EQ(top.Last(WM_MOUSEMOVE).lParam, MAKELPARAM(12, 34));
    EXPECT_EQ(top.Last(WM_MOUSEMOVE).wParam, 0u);
    POINT cursor{};
    GetCursorPos(&cursor);
    EXPECT_EQ(CPoint(cursor), CPoint(62, 94));
    EXPECT_TRUE(IsMouseAt(top.m_hWnd, CPoint(12, 34)));
}

TEST_F(Input, AMoveToWhereThePointerIsSendsAMoveToo)
{
    RecordingWnd top;
    top.CreateTop();
    MoveMouse(top.m_hWnd, CPoint(5, 5));
    top.noted.clear();
    MoveMouse(top.m_hWnd, CPoint(5, 5));
    EXPECT_EQ(top.Count(WM_MOUSEMOVE), 1);
}

TEST_F(Input, APressComesBehindItsSetCursor)
{
    RecordingWnd top;
    top.CreateTop();
    MoveMouse(top.m_hWnd, CPoint(5, 5));
    top.noted.clear();
    PressButton(top.m_hWnd, Button::Left, CPoint(5, 5));
    ReleaseButton(top.m_hWnd, Button::Left, CPoint(5, 5));
    EXPECT_THAT(top.Of({WM_SETCURSOR, WM_LBUTTONDOWN, WM_LBUTTONUP}),
                ElementsAre(WM_SETCURSOR, WM_LBUTTONDOWN, WM_SETCURSOR, WM_LBUTTONUP));
    EXPECT_EQ(top.Last(WM_LBUTTONDOWN).wParam, MK_LBUTTON);
    EXPECT_EQ(top.Last(WM_LBUTTONUP).wParam, 0u);
}

TEST_F(Input, ADoubleClickIsPressReleaseDoubleRelease)
{
    RecordingWnd top, plain;
    top.CreateTop();
    plain.CreateTop(100, 100, 0);
    for (RecordingWnd* wnd : {&top, &plain})
    {
        MoveMouse(wnd->m_hWnd, CPoint(5, 5)); // a press elsewhere would begin with a move
        wnd->noted.clear();
        PressButton(wnd->m_hWnd, Button::Left, CPoint(5, 5));
        ReleaseButton(wnd->m_hWnd, Button::Left, CPoint(5, 5));
        DoublePressButton(wnd->m_hWnd, Button::Left, CPoint(5, 5));
        ReleaseButton(wnd->m_hWnd, Button::Left, CPoint(5, 5));
    }
    EXPECT_THAT(top.Of(mouseMessages), ElementsAre(WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP));
    EXPECT_THAT(plain.Of(mouseMessages), ElementsAre(WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDOWN, WM_LBUTTONUP))
        << "a class without CS_DBLCLKS";
}

TEST_F(Input, TwoClicksAreNoDoubleClick)
{
    RecordingWnd top;
    top.CreateTop();
    top.noted.clear();
    for (int i = 0; i < 2; ++i)
    {
        PressButton(top.m_hWnd, Button::Left, CPoint(5, 5));
        ReleaseButton(top.m_hWnd, Button::Left, CPoint(5, 5));
    }
    EXPECT_EQ(top.Count(WM_LBUTTONDBLCLK), 0);
    EXPECT_EQ(top.Count(WM_LBUTTONDOWN), 2);
}

TEST_F(Input, TheRightButtonOpensTheContextMenuOnRelease)
{
    RecordingWnd top, child;
    top.CreateTop();
    child.CreateChild(top, CRect(10, 10, 60, 60));
    top.noted.clear();
    PressButton(child.m_hWnd, Button::Right, CPoint(3, 4));
    EXPECT_EQ(child.Count(WM_CONTEXTMENU), 0);
    ReleaseButton(child.m_hWnd, Button::Right, CPoint(3, 4));
    EXPECT_EQ(child.Count(WM_CONTEXTMENU), 1);
    EXPECT_EQ(child.Last(WM_CONTEXTMENU).lParam, MAKELPARAM(63, 74));
    EXPECT_EQ(top.Count(WM_CONTEXTMENU), 1) << "unhandled, it goes on to the parent";
}

TEST_F(Input, TheMenuKeyOpensTheContextMenuWithoutPosition)
{
    RecordingWnd top;
    top.CreateTop();
    top.SetFocus();
    PressKey(VK_APPS);
    ReleaseKey(VK_APPS);
    ASSERT_EQ(top.Count(WM_CONTEXTMENU), 1);
    EXPECT_EQ(CPoint(top.Last(WM_CONTEXTMENU).lParam), CPoint(-1, -1));
}

TEST_F(Input, TheInnermostWindowGetsTheMouse)
{
    RecordingWnd top, child;
    top.CreateTop();
    child.CreateChild(top, CRect(10, 10, 60, 60));
    top.noted.clear();
    MoveMouse(top.m_hWnd, CPoint(15, 17));
    EXPECT_EQ(child.Last(WM_MOUSEMOVE).lParam, MAKELPARAM(5, 7));
    EXPECT_EQ(top.Count(WM_MOUSEMOVE), 0);
    MoveMouse(top.m_hWnd, CPoint(5, 5));
    EXPECT_EQ(top.Count(WM_MOUSEMOVE), 1);
}

TEST_F(Input, WithoutCaptureADragGoesToWhatLiesUnderThePointer)
{
    RecordingWnd top, child;
    top.CreateTop();
    child.CreateChild(top, CRect(10, 10, 60, 60));
    PressButton(child.m_hWnd, Button::Left, CPoint(5, 5));
    child.noted.clear();
    MoveMouse(top.m_hWnd, CPoint(5, 5));
    EXPECT_EQ(child.Count(WM_MOUSEMOVE), 0);
    EXPECT_EQ(top.Last(WM_MOUSEMOVE).wParam, MK_LBUTTON);
    ReleaseButton(top.m_hWnd, Button::Left, CPoint(5, 5));
    EXPECT_EQ(top.Count(WM_LBUTTONUP), 1);
}

TEST_F(Input, CaptureKeepsTheMouseOutsideTheWindowToo)
{
    RecordingWnd top, child;
    top.CreateTop();
    child.CreateChild(top, CRect(10, 10, 60, 60));
    PressButton(child.m_hWnd, Button::Left, CPoint(5, 5));
    child.SetCapture();
    EXPECT_EQ(CWnd::GetCapture(), &child);
    MoveMouse(top.m_hWnd, CPoint(3, 2));
    EXPECT_EQ(child.Last(WM_MOUSEMOVE).lParam, MAKELPARAM(-7, -8));
    MoveMouse(top.m_hWnd, CPoint(-20, 500));
    EXPECT_EQ(child.Last(WM_MOUSEMOVE).lParam, MAKELPARAM(-30, 490));
    ReleaseButton(top.m_hWnd, Button::Left, CPoint(-20, 500));
    EXPECT_EQ(child.Count(WM_LBUTTONUP), 1);
    ReleaseCapture();
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
    EXPECT_EQ(child.Count(WM_CAPTURECHANGED), 1);
    EXPECT_EQ(top.Count(WM_MOUSEMOVE), 0);
}

TEST_F(Input, NoSetCursorWhileTheMouseIsCaptured)
{
    RecordingWnd top;
    top.CreateTop();
    top.SetCapture();
    top.noted.clear();
    MoveMouse(top.m_hWnd, CPoint(5, 5));
    EXPECT_EQ(top.Count(WM_SETCURSOR), 0);
    EXPECT_EQ(top.Count(WM_MOUSEMOVE), 1);
}

TEST_F(Input, ADisabledChildLeavesTheMouseToItsParent)
{
    RecordingWnd top, child;
    top.CreateTop();
    child.CreateChild(top, CRect(10, 10, 60, 60));
    child.EnableWindow(FALSE);
    EXPECT_EQ(child.Count(WM_ENABLE), 1);
    child.noted.clear();
    top.noted.clear();
    PressButton(top.m_hWnd, Button::Left, CPoint(20, 20));
    ReleaseButton(top.m_hWnd, Button::Left, CPoint(20, 20));
    EXPECT_TRUE(child.Of(mouseMessages).empty());
    EXPECT_EQ(top.Last(WM_LBUTTONDOWN).lParam, MAKELPARAM(20, 20));
}

TEST_F(Input, DisablingTakesCaptureAndFocusAway)
{
    RecordingWnd top, child;
    top.CreateTop();
    child.CreateChild(top, CRect(10, 10, 60, 60));
    child.SetFocus();
    child.SetCapture();
    child.EnableWindow(FALSE);
    EXPECT_EQ(::GetCapture(), nullptr);
    EXPECT_NE(::GetFocus(), child.m_hWnd);
    EXPECT_EQ(child.Count(WM_CANCELMODE), 1);
}

TEST_F(Input, LeavingIsToldOnceToWhoAskedForIt)
{
    RecordingWnd top, child;
    top.CreateTop();
    child.CreateChild(top, CRect(10, 10, 60, 60));
    MoveMouse(child.m_hWnd, CPoint(5, 5));
    MoveMouse(top.m_hWnd, CPoint(1, 1));
    EXPECT_EQ(child.Count(WM_MOUSELEAVE), 0) << "nobody asked";
    MoveMouse(child.m_hWnd, CPoint(5, 5));
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, child.m_hWnd, 0};
    EXPECT_TRUE(_TrackMouseEvent(&track));
    MoveMouse(child.m_hWnd, CPoint(6, 5));
    EXPECT_EQ(child.Count(WM_MOUSELEAVE), 0);
    MoveMouse(top.m_hWnd, CPoint(1, 1));
    EXPECT_EQ(child.Count(WM_MOUSELEAVE), 1);
    MoveMouse(child.m_hWnd, CPoint(5, 5));
    MoveMouse(top.m_hWnd, CPoint(1, 1));
    EXPECT_EQ(child.Count(WM_MOUSELEAVE), 1);
}

TEST_F(Input, LeavingTheProgramCountsAsWell)
{
    RecordingWnd top;
    top.CreateTop();
    MoveMouse(top.m_hWnd, CPoint(5, 5));
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, top.m_hWnd, 0};
    _TrackMouseEvent(&track);
    LeaveMouse();
    EXPECT_EQ(top.Count(WM_MOUSELEAVE), 1);
    EXPECT_FALSE(IsMouseAt(top.m_hWnd, CPoint(5, 5)));
}

TEST_F(Input, AskingForTheLeaveFromOutsideTellsItSoon)
{
    RecordingWnd top;
    top.CreateTop();
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, top.m_hWnd, 0};
    _TrackMouseEvent(&track);
    EXPECT_EQ(top.Count(WM_MOUSELEAVE), 0);
    Settle();
    EXPECT_EQ(top.Count(WM_MOUSELEAVE), 1);
}

TEST_F(Input, TheKeyTableFollowsKeysAndButtons)
{
    RecordingWnd top;
    top.CreateTop();
    top.SetFocus();
    EXPECT_GE(GetAsyncKeyState(VK_SHIFT), 0);
    PressKey(VK_SHIFT);
    EXPECT_LT(GetAsyncKeyState(VK_SHIFT), 0);
    MoveMouse(top.m_hWnd, CPoint(4, 4));
    EXPECT_EQ(top.Last(WM_MOUSEMOVE).wParam, MK_SHIFT);
    EXPECT_LT(GetAsyncKeyState(VK_SHIFT), 0);
    PressKey(VK_CONTROL);
    PressButton(top.m_hWnd, Button::Right, CPoint(4, 4));
    EXPECT_LT(GetAsyncKeyState(VK_RBUTTON), 0);
    EXPECT_EQ(top.Last(WM_RBUTTONDOWN).wParam, MK_SHIFT | MK_CONTROL | MK_RBUTTON);
    ReleaseButton(top.m_hWnd, Button::Right, CPoint(4, 4));
    ReleaseKey(VK_SHIFT);
    ReleaseKey(VK_CONTROL);
    for (const UINT key : {VK_SHIFT, VK_CONTROL, VK_RBUTTON})
        EXPECT_GE(GetAsyncKeyState(static_cast<int>(key)), 0) << key;
}

TEST_F(Input, KeysGoToTheFocusWithTheirNumbers)
{
    RecordingWnd top;
    top.CreateTop();
    top.SetFocus();
    top.noted.clear();
    PressKey(VK_ESCAPE);
    ReleaseKey(VK_ESCAPE);
    EXPECT_EQ(top.Last(WM_KEYDOWN).wParam, VK_ESCAPE);
    EXPECT_EQ(top.Last(WM_KEYUP).wParam, VK_ESCAPE);
    for (const UINT key : {VK_DELETE, VK_RETURN, VK_TAB, VK_SPACE, VK_LEFT, VK_DOWN, UINT{'A'}, UINT{'7'}})
    {
        PressKey(key);
        EXPECT_EQ(top.Last(WM_KEYDOWN).wParam, key);
        ReleaseKey(key);
        EXPECT_EQ(top.Last(WM_KEYUP).wParam, key);
    }
}

TEST_F(Input, LettersComeAsCharactersToo)
{
    RecordingWnd top;
    top.CreateTop();
    top.SetFocus();
    top.noted.clear();
    PressKey('Q');
    ReleaseKey('Q');
    EXPECT_THAT(top.Of(keyMessages), ElementsAre(WM_KEYDOWN, WM_CHAR, WM_KEYUP));
    EXPECT_EQ(top.Last(WM_CHAR).wParam, WPARAM{'q'});
}

TEST_F(Input, AltIsASystemKey)
{
    RecordingWnd top;
    top.CreateTop();
    top.SetFocus();
    top.noted.clear();
    PressKey(VK_MENU);
    EXPECT_EQ(top.Last(WM_SYSKEYDOWN).wParam, VK_MENU);
    EXPECT_LT(GetAsyncKeyState(VK_MENU), 0);
    ReleaseKey(VK_MENU);
    EXPECT_EQ(top.Last(WM_SYSKEYUP).wParam, VK_MENU);
    EXPECT_THAT(top.Of(keyMessages), ElementsAre(WM_SYSKEYDOWN, WM_SYSKEYUP));
}

TEST_F(Input, FocusTellsWhoLosesAndWhoGets)
{
    RecordingWnd top, a, b;
    top.CreateTop();
    a.CreateChild(top, CRect(0, 0, 20, 20), 1);
    b.CreateChild(top, CRect(20, 0, 40, 20), 2);
    a.SetFocus();
    a.noted.clear();
    EXPECT_EQ(b.SetFocus(), &a);
    EXPECT_EQ(CWnd::GetFocus(), &b);
    EXPECT_EQ(a.Last(WM_KILLFOCUS).wParam, reinterpret_cast<WPARAM>(b.m_hWnd));
    EXPECT_EQ(b.Last(WM_SETFOCUS).wParam, reinterpret_cast<WPARAM>(a.m_hWnd));
    Settle();
    EXPECT_EQ(a.Count(WM_KILLFOCUS), 1);
    EXPECT_EQ(b.Count(WM_SETFOCUS), 1);
    PressKey(VK_LEFT);
    EXPECT_EQ(b.Count(WM_KEYDOWN), 1);
    EXPECT_EQ(a.Count(WM_KEYDOWN), 0);
    ReleaseKey(VK_LEFT);
}

TEST_F(Input, AWindowThatGoesTakesFocusAndCaptureAlong)
{
    RecordingWnd top, child;
    top.CreateTop();
    child.CreateChild(top, CRect(0, 0, 20, 20));
    child.SetFocus();
    child.SetCapture();
    child.DestroyWindow();
    EXPECT_EQ(::GetCapture(), nullptr);
    EXPECT_EQ(CWnd::GetFocus(), nullptr);
}

TEST_F(Input, PreTranslateSeesInputFromTheWindowUp)
{
    struct Watching : RecordingWnd
    {
        std::vector<UINT> offered;
        bool swallow = false;
        BOOL PreTranslateMessage(MSG* message) override
        {
            offered.push_back(message->message);
            return swallow;
        }
    };
    Watching top, child;
    top.CreateTop();
    child.CreateChild(top, CRect(0, 0, 50, 50));
    child.SetFocus();
    PressKey(VK_MENU);
    ReleaseKey(VK_MENU);
    EXPECT_THAT(child.offered, ElementsAre(WM_SYSKEYDOWN, WM_SYSKEYUP));
    EXPECT_THAT(top.offered, ElementsAre(WM_SYSKEYDOWN, WM_SYSKEYUP));
    top.swallow = true;
    child.noted.clear();
    PressKey(VK_DELETE);
    ReleaseKey(VK_DELETE);
    EXPECT_EQ(child.Count(WM_KEYDOWN), 0);
}

TEST_F(Input, TheWheelTurnsUnderThePointerAndGoesUpUnhandled)
{
    RecordingWnd top, child;
    top.CreateTop();
    child.CreateChild(top, CRect(10, 10, 60, 60));
    PressKey(VK_CONTROL);
    TurnWheel(child.m_hWnd, CPoint(3, 4), 120);
    ReleaseKey(VK_CONTROL);
    ASSERT_EQ(child.Count(WM_MOUSEWHEEL), 1);
    EXPECT_EQ(GET_WHEEL_DELTA_WPARAM(child.Last(WM_MOUSEWHEEL).wParam), 120);
    EXPECT_EQ(LOWORD(child.Last(WM_MOUSEWHEEL).wParam), MK_CONTROL);
    EXPECT_EQ(CPoint(child.Last(WM_MOUSEWHEEL).lParam), CPoint(63, 74));
    EXPECT_EQ(top.Count(WM_MOUSEWHEEL), 1);
    TurnWheel(child.m_hWnd, CPoint(3, 4), -240);
    EXPECT_EQ(GET_WHEEL_DELTA_WPARAM(child.Last(WM_MOUSEWHEEL).wParam), -240);
}

TEST_F(Input, TheClassCursorShowsUnlessTheWindowSetsAnother)
{
    RecordingWnd arrow, cross;
    arrow.CreateTop();
    MoveMouse(arrow.m_hWnd, CPoint(5, 5));
    EXPECT_EQ(CursorId(GetCursor()), IDC_ARROW);
    cross.onMessage = [](RecordingWnd&, UINT message, WPARAM, LPARAM)
    {
        if (message != WM_SETCURSOR)
            return false;
        SetCursor(LoadCursorW(nullptr, IDC_CROSS));
        return true;
    };
    cross.CreateTop();
    MoveMouse(cross.m_hWnd, CPoint(5, 5));
    EXPECT_EQ(CursorId(GetCursor()), IDC_CROSS);
    MoveMouse(arrow.m_hWnd, CPoint(5, 5));
    EXPECT_EQ(CursorId(GetCursor()), IDC_ARROW);
}

TEST_F(Input, CursorsAreTheSameEachTimeAndUnknownOnesAreNull)
{
    EXPECT_EQ(LoadCursorW(nullptr, IDC_SIZEALL), LoadCursorW(nullptr, IDC_SIZEALL));
    EXPECT_EQ(LoadCursorW(nullptr, 4711), nullptr);
    EXPECT_EQ(CursorId(nullptr), 0u);
    const CDynLinkLibrary* module = AfxFindResourceHandle(ResourceKind::GroupCursor, 17500);
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(CursorId(LoadCursorW(module, 17500)), 17500u);
}

TEST_F(Input, AHandlerMayDestroyItsOwnWindow)
{
    RecordingWnd top, child;
    top.CreateTop();
    child.CreateChild(top, CRect(0, 0, 50, 50));
    child.onMessage = [](RecordingWnd& self, UINT message, WPARAM, LPARAM)
    {
        if (message != WM_LBUTTONDOWN)
            return false;
        self.DestroyWindow();
        return true;
    };
    PressButton(child.m_hWnd, Button::Left, CPoint(5, 5));
    EXPECT_EQ(child.m_hWnd, nullptr);
    ReleaseButton(top.m_hWnd, Button::Left, CPoint(5, 5));
    MoveMouse(top.m_hWnd, CPoint(6, 5));
    EXPECT_EQ(top.Count(WM_MOUSEMOVE), 1);
}
