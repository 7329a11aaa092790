// Update regions, synchronous paints, drawing outside a paint, and what reaches the screen.
#include "tests/win/recording_wnd.h"

#include "platform/win/screen.h"

using namespace kv::win;

class Painting : public WindowTest
{
protected:
    // Fills what may be painted with `color` and notes the rectangle.
    static void Fill(RecordingWnd& wnd, COLORREF color, std::vector<CRect>* painted = nullptr)
    {
        wnd.onMessage = [color, painted](RecordingWnd& self, UINT message, WPARAM, LPARAM)
        {
            if (message == WM_ERASEBKGND)
                return false;
            if (message != WM_PAINT)
                return false;
            CPaintDC dc(&self);
            if (painted)
                painted->push_back(CRect(dc.m_ps.rcPaint));
            CRect client;
            self.GetClientRect(client);
            CBrush brush(color);
            ::FillRect(dc.m_hDC, client, brush);
            return true;
        };
    }
};

TEST_F(Painting, UpdateWindowPaintsBeforeItReturns)
{
    RecordingWnd top;
    std::vector<CRect> painted;
    Fill(top, RGB(10, 20, 30), &painted);
    top.CreateTop(40, 30);
    painted.clear();
    top.Invalidate();
    EXPECT_TRUE(painted.empty());
    top.UpdateWindow();
    ASSERT_EQ(painted.size(), 1u);
    EXPECT_EQ(painted[0], CRect(0, 0, 40, 30));
    top.UpdateWindow();
    EXPECT_EQ(painted.size(), 1u);
    EXPECT_EQ(ShownPixel(top.m_hWnd, CPoint(39, 29)), 0x0A141Eu);
}

TEST_F(Painting, APaintIsClippedToTheUpdateRegion)
{
    RecordingWnd top;
    Fill(top, RGB(0, 0, 0));
    top.CreateTop(40, 30);
    std::vector<CRect> painted;
    Fill(top, RGB(255, 255, 255), &painted);
    top.InvalidateRect(CRect(1, 1, 3, 3));
    top.InvalidateRect(CRect(10, 20, 12, 22));
    top.UpdateWindow();
    ASSERT_EQ(painted.size(), 1u);
    EXPECT_EQ(painted[0], CRect(1, 1, 12, 22));
    const Picture picture = PictureOf(top.m_hWnd);
    EXPECT_EQ(picture.At(1, 1), 0xFFFFFFu);
    EXPECT_EQ(picture.At(11, 21), 0xFFFFFFu);
    EXPECT_EQ(picture.At(5, 5), 0u) << "between the two rectangles";
    EXPECT_EQ(picture.At(12, 22), 0u);
}

TEST_F(Painting, ValidatingTakesThePaintBack)
{
    RecordingWnd top;
    top.CreateTop();
    top.Invalidate();
    CRect update;
    EXPECT_TRUE(top.GetUpdateRect(update));
    top.ValidateRect(nullptr);
    EXPECT_FALSE(top.GetUpdateRect(update));
    top.noted.clear();
    Settle();
    EXPECT_EQ(top.Count(WM_PAINT), 0);
}

TEST_F(Painting, EraseIsAskedForOnceAndOnlyWhereWanted)
{
    RecordingWnd top;
    top.CreateTop();
    top.noted.clear();
    top.Invalidate(FALSE);
    top.UpdateWindow();
    EXPECT_EQ(top.Count(WM_ERASEBKGND), 0);
    top.Invalidate(TRUE);
    top.UpdateWindow();
    EXPECT_EQ(top.Count(WM_ERASEBKGND), 1);
}

TEST_F(Painting, TheClassBrushErases)
{
    RecordingWnd top;
    ASSERT_TRUE(top.CreateEx(0, AfxRegisterWndClass(0, nullptr, GetSysColorBrush(COLOR_WINDOW)), CString(),
                             WS_POPUP | WS_VISIBLE, 0, 0, 20, 20, nullptr, nullptr));
    Settle();
    EXPECT_EQ(ShownPixel(top.m_hWnd, CPoint(5, 5)), 0xFFFFFFu);
}

TEST_F(Painting, AHandlerThatOpensNoPaintIsNotCalledForever)
{
    RecordingWnd top;
    top.onMessage = [](RecordingWnd&, UINT message, WPARAM, LPARAM) { return message == WM_PAINT; };
    top.CreateTop();
    top.noted.clear();
    top.Invalidate();
    Settle();
    EXPECT_EQ(top.Count(WM_PAINT), 1);
}

TEST_F(Painting, InvalidatingAParentReachesItsChildrenUnlessItClipsThem)
{
    RecordingWnd top, child;
    top.CreateTop();
    child.CreateChild(top, CRect(10, 10, 20, 20));
    child.noted.clear();
    top.InvalidateRect(CRect(0, 0, 15, 15));
    CRect update;
    ASSERT_TRUE(child.GetUpdateRect(update));
    EXPECT_EQ(update, CRect(0, 0, 5, 5));
    top.UpdateWindow();
    EXPECT_EQ(child.Count(WM_PAINT), 1);

    RecordingWnd clipping, inner;
    clipping.CreateTop(100, 100, 0, WS_CLIPCHILDREN);
    inner.CreateChild(clipping, CRect(10, 10, 20, 20));
    clipping.Invalidate();
    EXPECT_FALSE(inner.GetUpdateRect(update));
}

TEST_F(Painting, AHiddenWindowIsNeverPainted)
{
    RecordingWnd top;
    top.CreateTop();
    top.ShowWindow(SW_HIDE);
    top.noted.clear();
    top.Invalidate();
    top.UpdateWindow();
    Settle();
    EXPECT_EQ(top.Count(WM_PAINT), 0);
    top.ShowWindow(SW_SHOW);
    Settle();
    EXPECT_EQ(top.Count(WM_PAINT), 1);
}

TEST_F(Painting, DrawingOutsideAPaintShowsAndStays)
{
    RecordingWnd top;
    Fill(top, RGB(0, 0, 0));
    top.CreateTop(30, 30, CS_OWNDC);
    CDC* dc = top.GetDC();
    ::SetPixel(dc->m_hDC, 7, 8, RGB(255, 0, 0));
    EXPECT_EQ(ShownPixel(top.m_hWnd, CPoint(7, 8)), 0xFF0000u);
    Settle();
    EXPECT_EQ(ShownPixel(top.m_hWnd, CPoint(7, 8)), 0xFF0000u);
}

TEST_F(Painting, XorTwiceRestores)
{
    RecordingWnd top;
    Fill(top, RGB(12, 34, 56));
    top.CreateTop(50, 50, CS_CLASSDC);
    const Picture before = PictureOf(top.m_hWnd);
    const auto band = [&]
    {
        CDC* dc = top.GetDC();
        CPen pen(PS_SOLID, 1, RGB(255, 255, 255));
        CPen* former = dc->SelectObject(&pen);
        dc->SetROP2(R2_XORPEN);
        ::MoveToEx(dc->m_hDC, 3, 3, nullptr);
        ::LineTo(dc->m_hDC, 40, 30);
        dc->SelectObject(former);
    };
    band();
    EXPECT_NE(PictureOf(top.m_hWnd).pixels, before.pixels);
    band();
    EXPECT_EQ(PictureOf(top.m_hWnd).pixels, before.pixels);
}

TEST_F(Painting, AClassContextKeepsItsSettingsAndOthersDoNot)
{
    RecordingWnd kept, fresh;
    kept.CreateTop(30, 30, CS_CLASSDC);
    fresh.CreateTop(30, 30, 0);
    const HDC own = ::GetDC(kept.m_hWnd);
    SetROP2(own, R2_XORPEN);
    ::ReleaseDC(kept.m_hWnd, own);
    EXPECT_EQ(::GetDC(kept.m_hWnd), own);
    EXPECT_EQ(GetROP2(own), R2_XORPEN);

    const HDC once = ::GetDC(fresh.m_hWnd);
    SetROP2(once, R2_XORPEN);
    ::ReleaseDC(fresh.m_hWnd, once);
    const HDC again = ::GetDC(fresh.m_hWnd);
    EXPECT_EQ(GetROP2(again), R2_COPYPEN);
    ::ReleaseDC(fresh.m_hWnd, again);
}

TEST_F(Painting, AContextTakenBeforeASizeChangeDrawsOnTheNewSize)
{
    RecordingWnd top;
    Fill(top, RGB(0, 0, 0));
    top.CreateTop(20, 20, CS_OWNDC);
    const HDC dc = ::GetDC(top.m_hWnd);
    top.MoveWindow(50, 60, 60, 40);
    Settle();
    SetPixel(dc, 55, 35, RGB(0, 255, 0));
    EXPECT_EQ(PictureOf(top.m_hWnd).At(55, 35), 0x00FF00u);
}

TEST_F(Painting, GrowingInvalidatesWhatIsNewOrAllOfIt)
{
    RecordingWnd plain, all;
    std::vector<CRect> painted;
    Fill(plain, RGB(0, 0, 0), &painted);
    plain.CreateTop(20, 20, 0);
    painted.clear();
    plain.MoveWindow(50, 60, 30, 20);
    plain.UpdateWindow();
    ASSERT_EQ(painted.size(), 1u);
    EXPECT_EQ(painted[0], CRect(20, 0, 30, 20));

    Fill(all, RGB(0, 0, 0), &painted);
    all.CreateTop(20, 20, CS_HREDRAW | CS_VREDRAW);
    painted.clear();
    all.MoveWindow(50, 60, 30, 20);
    all.UpdateWindow();
    ASSERT_EQ(painted.size(), 1u);
    EXPECT_EQ(painted[0], CRect(0, 0, 30, 20));
}

TEST_F(Painting, ChildrenShowOverTheirParent)
{
    RecordingWnd top, child;
    Fill(top, RGB(255, 0, 0));
    Fill(child, RGB(0, 0, 255));
    top.CreateTop(40, 40);
    child.CreateChild(top, CRect(10, 10, 20, 20));
    const Picture picture = PictureOf(top.m_hWnd);
    EXPECT_EQ(picture.width, 40);
    EXPECT_EQ(picture.At(5, 5), 0xFF0000u);
    EXPECT_EQ(picture.At(10, 10), 0x0000FFu);
    EXPECT_EQ(picture.At(20, 20), 0xFF0000u);
}

TEST_F(Painting, TheFirstOfTwoChildrenLiesOnTop)
{
    RecordingWnd top, first, second;
    Fill(first, RGB(255, 0, 0));
    Fill(second, RGB(0, 0, 255));
    top.CreateTop(40, 40);
    first.CreateChild(top, CRect(0, 0, 20, 20), 1);
    second.CreateChild(top, CRect(10, 10, 30, 30), 2);
    const Picture picture = PictureOf(top.m_hWnd);
    EXPECT_EQ(picture.At(15, 15), 0xFF0000u);
    EXPECT_EQ(picture.At(25, 25), 0x0000FFu);
}

TEST_F(Painting, WithoutRedrawPaintsReachNoScreenUntilItIsBack)
{
    RecordingWnd top;
    Fill(top, RGB(0, 0, 0));
    top.CreateTop(20, 20);
    top.SetRedraw(FALSE);
    Fill(top, RGB(255, 255, 255));
    top.Invalidate();
    top.UpdateWindow();
    CRect update;
    EXPECT_FALSE(top.GetUpdateRect(update));
    top.SetRedraw(TRUE);
    EXPECT_EQ(ShownPixel(top.m_hWnd, CPoint(3, 3)), 0xFFFFFFu);
}

TEST_F(Painting, APictureIsSavedAsPng)
{
    RecordingWnd top;
    Fill(top, RGB(1, 2, 3));
    top.CreateTop(8, 8);
    const std::string path = testing::TempDir() + "kv_win_picture.png";
    EXPECT_TRUE(SavePicture(PictureOf(top.m_hWnd), path));
    EXPECT_FALSE(SavePicture(PictureOf(nullptr), path));
    EXPECT_FALSE(SavePicture(PictureOf(top.m_hWnd), "/no such folder/x.png"));
    std::remove(path.c_str());
}

TEST_F(Painting, InvalidatingDuringAPaintPaintsAgainLater)
{
    RecordingWnd top;
    int paints = 0;
    top.onMessage = [&paints](RecordingWnd& self, UINT message, WPARAM, LPARAM)
    {
        if (message != WM_PAINT)
            return false;
        CPaintDC dc(&self);
        if (++paints == 1)
            self.Invalidate();
        return true;
    };
    top.CreateTop();
    Settle();
    EXPECT_EQ(paints, 2);
}

TEST_F(Painting, ATakenControlIsNotPaintedWithoutEnd)
{
    RecordingWnd top, taken;
    top.CreateTop();
    CStatic made;
    made.Create("x", WS_CHILD | WS_VISIBLE, CRect(0, 0, 30, 30), &top, 9);
    made.Detach();
    taken.SubclassDlgItem(9, &top);
    taken.onMessage = [](RecordingWnd& self, UINT message, WPARAM, LPARAM)
    {
        if (message != WM_PAINT)
            return false;
        CPaintDC dc(&self);
        return true;
    };
    Settle();
    taken.noted.clear();
    for (int i = 0; i < 10; ++i)
        Settle();
    EXPECT_EQ(taken.Count(WM_PAINT), 0);
}
