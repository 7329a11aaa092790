// Creation, destruction, moving and sizing of windows, and their messages.
#include "tests/win/recording_wnd.h"

using namespace kv::win;
using testing::ElementsAre;

class Windows : public WindowTest
{
};

TEST_F(Windows, CreationSendsCreateSizeMoveShow)
{
    RecordingWnd top;
    top.CreateTop(200, 100);
    EXPECT_THAT(top.Of({WM_CREATE, WM_SIZE, WM_MOVE, WM_SHOWWINDOW}),
                ElementsAre(WM_CREATE, WM_SIZE, WM_MOVE, WM_SHOWWINDOW));
    EXPECT_EQ(top.Last(WM_SIZE).lParam, MAKELPARAM(200, 100));
    EXPECT_EQ(top.Last(WM_MOVE).lParam, MAKELPARAM(50, 60));
}

TEST_F(Windows, DestructionGoesParentFirstThenChildrenAndDetachesChildrenFirst)
{
    std::vector<std::string> log;
    RecordingWnd top, child;
    top.CreateTop();
    child.CreateChild(top, CRect(0, 0, 10, 10));
    top.log = child.log = &log;
    top.name = "top";
    child.name = "child";
    top.DestroyWindow();
    std::vector<std::string> order;
    for (const std::string& entry : log)
    {
        if (entry.ends_with(":" + std::to_string(WM_DESTROY)) || entry.ends_with(":" + std::to_string(WM_NCDESTROY)))
            order.push_back(entry);
    }
    EXPECT_THAT(order, ElementsAre("top:2", "child:2", "child:130", "top:130"));
    EXPECT_EQ(top.m_hWnd, nullptr);
    EXPECT_EQ(child.m_hWnd, nullptr);
}

TEST_F(Windows, AHandleIsStaleAfterDestruction)
{
    RecordingWnd top;
    top.CreateTop();
    const HWND handle = top.m_hWnd;
    EXPECT_TRUE(IsWindow(handle));
    top.DestroyWindow();
    EXPECT_FALSE(IsWindow(handle));
    EXPECT_EQ(CWnd::FromHandle(handle), nullptr);
    EXPECT_FALSE(MoveWindow(handle, 0, 0, 1, 1, TRUE));
    EXPECT_EQ(SendMessageW(handle, WM_USER, 0, 0), 0);
}

TEST_F(Windows, AnObjectThatGoesTakesItsWindowAlong)
{
    HWND handle = nullptr;
    {
        RecordingWnd top;
        top.CreateTop();
        handle = top.m_hWnd;
    }
    EXPECT_FALSE(IsWindow(handle));
}

TEST_F(Windows, MoveWindowSendsMoveThenSizeBeforeItReturns)
{
    RecordingWnd top, child;
    top.CreateTop();
    child.CreateChild(top, CRect(0, 0, 10, 10));
    child.noted.clear();
    child.MoveWindow(5, 6, 30, 20);
    EXPECT_THAT(child.Of({WM_MOVE, WM_SIZE}), ElementsAre(WM_MOVE, WM_SIZE));
    EXPECT_EQ(child.Last(WM_MOVE).lParam, MAKELPARAM(5, 6));
    EXPECT_EQ(child.Last(WM_SIZE).lParam, MAKELPARAM(30, 20));
    child.noted.clear();
    child.MoveWindow(5, 6, 30, 20);
    EXPECT_TRUE(child.Of({WM_MOVE, WM_SIZE}).empty());
    child.MoveWindow(7, 6, 30, 20);
    EXPECT_THAT(child.Of({WM_MOVE, WM_SIZE}), ElementsAre(WM_MOVE));
}

TEST_F(Windows, QtSendsNoSecondSizeForWhatMoveWindowDid)
{
    RecordingWnd top;
    top.CreateTop();
    top.noted.clear();
    top.MoveWindow(70, 80, 300, 150);
    Settle();
    EXPECT_EQ(top.Count(WM_SIZE), 1);
    EXPECT_EQ(top.Count(WM_MOVE), 1);
}

TEST_F(Windows, CoordinatesGoThroughAllParents)
{
    RecordingWnd top, outer, inner;
    top.CreateTop();
    outer.CreateChild(top, CRect(10, 20, 100, 90));
    inner.CreateChild(outer, CRect(3, 4, 50, 50), 1, CS_DBLCLKS, WS_BORDER);
    CPoint point(0, 0);
    inner.ClientToScreen(&point);
    EXPECT_EQ(point, CPoint(50 + 10 + 3 + 1, 60 + 20 + 4 + 1));
    inner.ScreenToClient(&point);
    EXPECT_EQ(point, CPoint(0, 0));
    CRect client, window;
    inner.GetClientRect(client);
    inner.GetWindowRect(window);
    EXPECT_EQ(client, CRect(0, 0, 45, 44));
    EXPECT_EQ(window, CRect(63, 84, 110, 130));
}

TEST_F(Windows, ChildrenAreWalkedInTheOrderOfCreation)
{
    RecordingWnd top, a, b, c;
    top.CreateTop();
    a.CreateChild(top, CRect(0, 0, 5, 5), 11);
    b.CreateChild(top, CRect(0, 0, 5, 5), 12);
    c.CreateChild(top, CRect(0, 0, 5, 5), 13);
    EXPECT_EQ(top.GetTopWindow(), &a);
    EXPECT_EQ(a.GetNextWindow(), &b);
    EXPECT_EQ(c.GetNextWindow(), nullptr);
    EXPECT_EQ(top.GetDlgItem(12), &b);
    EXPECT_EQ(top.GetDlgItem(99), nullptr);
    EXPECT_TRUE(top.IsChild(&c));
}

TEST_F(Windows, AWindowWithoutObjectGetsOneThatBorrows)
{
    RecordingWnd top;
    top.CreateTop();
    CButton button;
    ASSERT_TRUE(button.Create("x", WS_CHILD | WS_VISIBLE, CRect(0, 0, 10, 10), &top, 5));
    const HWND handle = button.Detach();
    CWnd* borrowed = CWnd::FromHandle(handle);
    ASSERT_NE(borrowed, nullptr);
    EXPECT_EQ(borrowed->m_hWnd, handle);
    EXPECT_EQ(CWnd::FromHandle(handle), borrowed);
    EXPECT_EQ(CWnd::FromHandlePermanent(handle), nullptr);
}

TEST_F(Windows, DefaultGoesOnWithTheMessageUnderWay)
{
    RecordingWnd top;
    top.CreateTop();
    top.onMessage = [](RecordingWnd& self, UINT message, WPARAM, LPARAM)
    {
        if (message != WM_RBUTTONUP)
            return false;
        self.Default();
        return true;
    };
    top.noted.clear();
    top.SendMessage(WM_RBUTTONUP, 0, MAKELPARAM(3, 4));
    EXPECT_THAT(top.Of({WM_RBUTTONUP, WM_CONTEXTMENU}), ElementsAre(WM_RBUTTONUP, WM_CONTEXTMENU));
    EXPECT_EQ(top.Last(WM_CONTEXTMENU).lParam, MAKELPARAM(53, 64));
}

TEST_F(Windows, PostedMessagesComeWhenThingsSettle)
{
    RecordingWnd top;
    top.CreateTop();
    top.PostMessage(WM_USER + 1, 7, 8);
    EXPECT_EQ(top.Count(WM_USER + 1), 0);
    Settle();
    EXPECT_EQ(top.Count(WM_USER + 1), 1);
    EXPECT_EQ(top.Last(WM_USER + 1).wParam, 7u);
}

TEST_F(Windows, AClassIsFoundByItsName)
{
    const CString name = AfxRegisterWndClass(CS_DBLCLKS | CS_HREDRAW);
    WNDCLASS found{};
    EXPECT_TRUE(GetClassInfo(name, &found));
    EXPECT_EQ(found.style, CS_DBLCLKS | CS_HREDRAW);
    EXPECT_EQ(AfxRegisterWndClass(CS_DBLCLKS | CS_HREDRAW), name);
    EXPECT_FALSE(GetClassInfo("no such class", &found));
    RecordingWnd wnd;
    EXPECT_FALSE(wnd.CreateEx(0, "no such class", CString(), WS_POPUP, 0, 0, 1, 1, nullptr, nullptr));
}

TEST_F(Windows, HidingAndShowingTellsTheWindowOnce)
{
    RecordingWnd top;
    top.CreateTop();
    top.noted.clear();
    EXPECT_TRUE(top.ShowWindow(SW_HIDE));
    EXPECT_FALSE(top.ShowWindow(SW_HIDE));
    EXPECT_FALSE(top.IsWindowVisible());
    EXPECT_FALSE(top.ShowWindow(SW_SHOW));
    EXPECT_EQ(top.Count(WM_SHOWWINDOW), 2);
}
