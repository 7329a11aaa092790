// Views in frames with documents, scroll bars, ranges, and who gets commands.
#include "tests/win/recording_wnd.h"

#include "platform/win/screen.h"

#include <memory>

using namespace kv::win;

namespace
{
int views = 0;
int documents = 0;

class TestDocument : public CDocument
{
    DECLARE_DYNCREATE(TestDocument)
public:
    TestDocument() { ++documents; }
    ~TestDocument() override { --documents; }
};
IMPLEMENT_DYNCREATE(TestDocument, CDocument)

class TestView : public CScrollView
{
    DECLARE_DYNCREATE(TestView)
public:
    int draws = 0;
    int updates = 0;
    std::vector<UINT> commands;

    TestView() { ++views; }
    ~TestView() override { --views; }
    void OnDraw(CDC* dc) override
    {
        ++draws;
        CBrush brush(RGB(0, 0, 255));
        ::FillRect(dc->m_hDC, CRect(0, 0, GetTotalSize().cx, GetTotalSize().cy), brush);
        ::SetPixel(dc->m_hDC, 100, 100, RGB(255, 0, 0));
    }
    void OnUpdate(CView* sender, LPARAM hint, CObject* object) override
    {
        ++updates;
        CScrollView::OnUpdate(sender, hint, object);
    }
    using CScrollView::m_bCenter;

protected:
    void OnCommandId(UINT id) { commands.push_back(id); }
    DECLARE_MESSAGE_MAP()
};
IMPLEMENT_DYNCREATE(TestView, CScrollView)
BEGIN_MESSAGE_MAP(TestView, CScrollView)
ON_COMMAND_RANGE(50, 60, OnCommandId)
END_MESSAGE_MAP()

class TestFrame : public CFrameWnd
{
public:
    void PostNcDestroy() override {} // the test owns it
};
} // namespace

class ScrollViews : public WindowTest
{
protected:
    ScrollViews()
    {
        CCreateContext context;
        context.m_pNewViewClass = RUNTIME_CLASS(TestView);
        document = new TestDocument;
        context.m_pCurrentDoc = document;
        top.CreateTop(200, 150);
        EXPECT_TRUE(frame.Create(CString(), CString(), WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, CRect(0, 0, 200, 150),
                                 &top, CString(), 0, &context));
        frame.InitialUpdateFrame(document, TRUE);
        view = dynamic_cast<TestView*>(frame.GetActiveView());
        Settle();
    }

    CSize Client() const
    {
        CRect rect;
        view->GetClientRect(rect);
        return rect.Size();
    }

    RecordingWnd top;
    TestFrame frame;
    TestDocument* document = nullptr;
    TestView* view = nullptr;
};

TEST_F(ScrollViews, TheFrameMakesTheViewAndFillsItselfWithIt)
{
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->GetDocument(), document);
    EXPECT_EQ(frame.GetActiveDocument(), document);
    EXPECT_EQ(view->GetParentFrame(), &frame);
    EXPECT_GE(view->updates, 1);
    EXPECT_EQ(Client(), CSize(198, 148)) << "inside the view's border";
    frame.MoveWindow(0, 0, 100, 50);
    EXPECT_EQ(Client(), CSize(98, 48));
}

TEST_F(ScrollViews, ViewAndDocumentGoWithTheFrame)
{
    EXPECT_EQ(views, 1);
    EXPECT_EQ(documents, 1);
    frame.DestroyWindow();
    EXPECT_EQ(views, 0);
    EXPECT_EQ(documents, 0);
    EXPECT_EQ(frame.GetActiveView(), nullptr);
}

TEST_F(ScrollViews, BarsShowWhereTheContentIsLarger)
{
    view->SetScrollSizes(MM_TEXT, CSize(100, 100));
    EXPECT_EQ(Client(), CSize(198, 148));
    view->SetScrollSizes(MM_TEXT, CSize(1000, 100));
    EXPECT_EQ(Client(), CSize(198, 131));
    view->SetScrollSizes(MM_TEXT, CSize(100, 1000));
    EXPECT_EQ(Client(), CSize(181, 148));
    view->SetScrollSizes(MM_TEXT, CSize(198, 148));
    EXPECT_EQ(Client(), CSize(198, 148));
    view->SetScrollSizes(MM_TEXT, CSize(199, 148));
    EXPECT_EQ(Client(), CSize(181, 131)) << "one bar makes the other needed";
}

TEST_F(ScrollViews, TheCornerBetweenTheBarsHasTheFaceColor)
{
    view->SetScrollSizes(MM_TEXT, CSize(1000, 1000));
    Settle();
    const COLORREF face = ::GetSysColor(COLOR_BTNFACE);
    const std::uint32_t wanted =
        static_cast<std::uint32_t>(GetRValue(face) << 16 | GetGValue(face) << 8 | GetBValue(face));
    const Picture shown = PictureOf(view->m_hWnd);
    const int border = 1;
    EXPECT_EQ(shown.At(border + Client().cx + 8, border + Client().cy + 8), wanted);
    EXPECT_EQ(shown.At(shown.width - border - 1, shown.height - border - 1), wanted);
}

TEST_F(ScrollViews, TheStateOfTheBarsForAGivenClient)
{
    view->SetScrollSizes(MM_TEXT, CSize(300, 100));
    CSize need, range;
    CPoint move;
    view->GetScrollBarState(CSize(200, 150), need, range, move, TRUE);
    EXPECT_EQ(need, CSize(1, 0));
    EXPECT_EQ(range.cx, 100);
    view->GetScrollBarState(CSize(200, 110), need, range, move, TRUE);
    EXPECT_EQ(need, CSize(1, 1));
    EXPECT_EQ(range, CSize(117, 7));
    view->GetScrollBarState(CSize(400, 400), need, range, move, TRUE);
    EXPECT_EQ(need, CSize(0, 0));
}

TEST_F(ScrollViews, ScrollPositionsStayInTheirRange)
{
    view->SetScrollSizes(MM_TEXT, CSize(1000, 1000));
    view->ScrollToPosition(CPoint(100, 200));
    EXPECT_EQ(view->GetScrollPosition(), CPoint(100, 200));
    view->ScrollToPosition(CPoint(5000, -3));
    EXPECT_EQ(view->GetScrollPosition(), CPoint(1000 - 181, 0));
    EXPECT_EQ(view->GetDeviceScrollPosition(), CPoint(1000 - 181, 0));
}

TEST_F(ScrollViews, DrawingFollowsTheScrollPosition)
{
    view->SetScrollSizes(MM_TEXT, CSize(1000, 1000));
    view->ScrollToPosition(CPoint(90, 95));
    view->UpdateWindow();
    EXPECT_EQ(ShownPixel(view->m_hWnd, CPoint(10, 5)), 0xFF0000u);
    EXPECT_EQ(ShownPixel(view->m_hWnd, CPoint(11, 5)), 0x0000FFu);
}

TEST_F(ScrollViews, ScrollMessagesMoveByLinesPagesAndThumb)
{
    view->SetScrollSizes(MM_TEXT, CSize(1000, 1000), CSize(50, 60), CSize(5, 6));
    view->SendMessage(WM_VSCROLL, MAKEWPARAM(SB_LINEDOWN, 0));
    EXPECT_EQ(view->GetScrollPosition(), CPoint(0, 6));
    view->SendMessage(WM_VSCROLL, MAKEWPARAM(SB_PAGEDOWN, 0));
    EXPECT_EQ(view->GetScrollPosition(), CPoint(0, 66));
    view->SendMessage(WM_HSCROLL, MAKEWPARAM(SB_PAGERIGHT, 0));
    EXPECT_EQ(view->GetScrollPosition(), CPoint(50, 66));
    view->SendMessage(WM_HSCROLL, MAKEWPARAM(SB_BOTTOM, 0));
    EXPECT_EQ(view->GetScrollPosition(), CPoint(1000 - 181, 66));
    view->SendMessage(WM_VSCROLL, MAKEWPARAM(SB_LINEUP, 0));
    view->SendMessage(WM_VSCROLL, MAKEWPARAM(SB_TOP, 0));
    view->SendMessage(WM_VSCROLL, MAKEWPARAM(SB_LINEUP, 0));
    EXPECT_EQ(view->GetScrollPosition(), CPoint(1000 - 181, 0));
}

TEST_F(ScrollViews, ABarMovedByHandScrolls)
{
    view->SetScrollSizes(MM_TEXT, CSize(1000, 1000), CSize(50, 60), CSize(5, 6));
    Settle();
    const CPoint belowTheThumb(190, 100);
    PressButton(view->m_hWnd, Button::Left, belowTheThumb);
    ReleaseButton(view->m_hWnd, Button::Left, belowTheThumb);
    EXPECT_EQ(view->GetScrollPosition(), CPoint(0, 60));
    EXPECT_EQ(view->GetScrollPos(SB_VERT), 60);
}

TEST_F(ScrollViews, TheWheelScrollsThreeLinesANotch)
{
    view->SetScrollSizes(MM_TEXT, CSize(1000, 1000), CSize(50, 60), CSize(5, 6));
    TurnWheel(view->m_hWnd, CPoint(10, 10), -120);
    EXPECT_EQ(view->GetScrollPosition(), CPoint(0, 18));
    TurnWheel(view->m_hWnd, CPoint(10, 10), 240);
    EXPECT_EQ(view->GetScrollPosition(), CPoint(0, 0));
}

TEST_F(ScrollViews, APressGivesTheViewTheFocus)
{
    ::SetFocus(top.m_hWnd);
    PressButton(view->m_hWnd, Button::Left, CPoint(5, 5));
    ReleaseButton(view->m_hWnd, Button::Left, CPoint(5, 5));
    EXPECT_EQ(CWnd::GetFocus(), view);
}

TEST_F(ScrollViews, CommandsOfTheFrameReachTheViewFirst)
{
    frame.SendMessage(WM_COMMAND, MAKEWPARAM(55, 0));
    EXPECT_THAT(view->commands, testing::ElementsAre(55u));
    frame.SendMessage(WM_COMMAND, MAKEWPARAM(99, 0));
    EXPECT_EQ(view->commands.size(), 1u);
}

TEST_F(ScrollViews, ViewsHearOfEachOthersChanges)
{
    const int before = view->updates;
    document->UpdateAllViews(nullptr);
    EXPECT_EQ(view->updates, before + 1);
    document->UpdateAllViews(view);
    EXPECT_EQ(view->updates, before + 1);
}
