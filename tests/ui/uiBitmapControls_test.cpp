// Bitmap button and bitmap static: their picture, their caption, when they draw.
#include "C/uiBitmapButton.h"
#include "C/uiBitmapStatic.h"
#include "C/uiPictureArea.h"
#include "platform/win/input.h"
#include "platform/win/screen.h"

#include <gtest/gtest.h>

using namespace KvN;

namespace
{
// A picture of one colour index of the table "Grey".
void Fill(KvDIB& dib, int width, int height, unsigned char value)
{
    KvTBuf2D<unsigned char> pixels(width, height);
    std::fill_n(pixels.data, pixels.Count(), value);
    dib.Create(pixels, nullptr);
}

class BitmapControls : public ::testing::Test
{
protected:
    BitmapControls()
    {
        host.CreateEx(0, AfxRegisterWndClass(0), CString(), WS_POPUP | WS_VISIBLE, CRect(0, 0, 300, 200), nullptr, 0);
    }
    ~BitmapControls() override { host.DestroyWindow(); }
    static unsigned Shown(const CWnd& window, int x, int y)
    {
        return kv::win::ShownPixel(window.m_hWnd, CPoint(x, y)) & 0xFFFFFF;
    }

    CWnd host;
};

class CountingStatic : public KvBitmapStatic
{
public:
    int paints = 0;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        paints += message == WM_PAINT;
        return KvBitmapStatic::WindowProc(message, wParam, lParam);
    }
};

// A picture of 120 by 100 pixels that a test draws on.
class Canvas : public CDC
{
public:
    Canvas()
    {
        CreateCompatibleDC(nullptr);
        bitmap.CreateBitmap(120, 100, 1, 32, nullptr);
        former = SelectObject(bitmap.GetSafeHandle());
    }
    ~Canvas() override { SelectObject(former); }
    std::vector<COLORREF> Pixels() const
    {
        std::vector<COLORREF> pixels;
        for (int i = 0; i < 120 * 100; ++i)
            pixels.push_back(::GetPixel(m_hDC, i % 120, i / 120));
        return pixels;
    }

private:
    CBitmap bitmap;
    HGDIOBJ former;
};

class OpenButton : public KvBitmapButton
{
public:
    using KvBitmapButton::captionFont;
    using KvBitmapButton::captionFontReady;
};

// A button of 120 by 100 pixels with a picture of 4 by 3 and the name "Bild".
class PictureButton : public OpenButton
{
public:
    explicit PictureButton(CWnd& host)
    {
        Create(CString(), WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, CRect(10, 10, 130, 110), &host, 7);
        Fill(dib, 4, 3, 0x55);
        SetDIB(&dib);
        SetName(KvString("Bild"));
    }

    KvDIB dib;
};
} // namespace

TEST_F(BitmapControls, AStaticStretchesItsPictureOverItsClientArea)
{
    KvBitmapStatic control;
    control.Create(CString(), WS_CHILD | WS_VISIBLE, CRect(10, 10, 110, 60), &host);
    KvDIB dib;
    Fill(dib, 4, 3, 0x55);
    control.SetDIB(&dib);
    EXPECT_EQ(control.GetDIB()->Width(), 4);
    control.RedrawWindow();
    EXPECT_EQ(Shown(control, 0, 0), 0x555555u);
    EXPECT_EQ(Shown(control, 99, 49), 0x555555u);
}

TEST_F(BitmapControls, ANewPictureAsksForNoPaint)
{
    CountingStatic control;
    control.Create(CString(), WS_CHILD | WS_VISIBLE, CRect(10, 10, 110, 60), &host);
    kv::win::Settle();
    ASSERT_GT(control.paints, 0);
    control.paints = 0;
    KvDIB dib;
    Fill(dib, 4, 3, 0x99);
    control.SetDIB(&dib);
    CRect update;
    EXPECT_FALSE(control.GetUpdateRect(&update));
    kv::win::Settle();
    EXPECT_EQ(control.paints, 0);
    control.RedrawWindow();
    EXPECT_EQ(Shown(control, 50, 20), 0x999999u);
}

TEST_F(BitmapControls, BothSidesOfAnEmptyPictureCarryTheMark)
{
    KvDIB dib;
    EXPECT_EQ(PictureArea(dib), (KvTRectangle<short>(0, 0, -32768, -32768)));
    Fill(dib, 4, 3, 0);
    EXPECT_EQ(PictureArea(dib), (KvTRectangle<short>(0, 0, 3, 2)));
}

TEST_F(BitmapControls, AnEmptyPictureDrawsNothing)
{
    KvBitmapStatic control;
    control.Create(CString(), WS_CHILD | WS_VISIBLE, CRect(10, 10, 110, 60), &host);
    control.RedrawWindow();
    EXPECT_EQ(control.GetDIB()->Width(), 0);
}

TEST_F(BitmapControls, AButtonShowsPictureAboveCaption)
{
    PictureButton button(host);
    EXPECT_EQ(button.GetName().Utf8(), "Bild");
    button.RedrawWindow();
    EXPECT_EQ(Shown(button, 4, 4), 0x555555u);
    EXPECT_EQ(Shown(button, 114, 71), 0x555555u);
    EXPECT_NE(Shown(button, 115, 40), 0x555555u);
    EXPECT_NE(Shown(button, 60, 72), 0x555555u);
}

TEST_F(BitmapControls, AButtonMakesItsFontOnce)
{
    OpenButton button;
    button.Create(CString(), WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, CRect(10, 10, 130, 110), &host, 7);
    kv::win::Settle();
    ASSERT_EQ(button.captionFontReady, 1);
    const HGDIOBJ font = button.captionFont.GetSafeHandle();
    LOGFONT made{};
    button.captionFont.GetLogFont(&made);
    EXPECT_EQ(made.lfHeight, -18);
    EXPECT_EQ(made.lfWidth, 0);
    EXPECT_EQ(made.lfWeight, 500);
    button.RedrawWindow();
    kv::win::Settle();
    EXPECT_EQ(button.captionFont.GetSafeHandle(), font);
    EXPECT_EQ(button.GetFont()->GetSafeHandle(), font);
}

TEST_F(BitmapControls, WithoutCaptionAButtonIsFrameAndPicture)
{
    PictureButton button(host);
    button.RedrawWindow();
    // Pixels of the caption's band that are not the button's face, which its corner shows.
    const auto written = [&]
    {
        const kv::win::Picture shown = kv::win::PictureOf(button.m_hWnd);
        int count = 0;
        for (int y = 72; y < 95; ++y)
        {
            for (int x = 4; x < 115; ++x)
                count += shown.At(x, y) != shown.At(4, 72);
        }
        return count;
    };
    EXPECT_GT(written(), 0);
    button.SetName(KvString());
    button.RedrawWindow();
    EXPECT_EQ(written(), 0);
    EXPECT_EQ(Shown(button, 4, 4), 0x555555u);
}

TEST_F(BitmapControls, OnlyTheFrameOfAPressedButtonDiffers)
{
    PictureButton button(host);
    button.RedrawWindow();
    const auto pixels = [&](const CRect& area)
    {
        const kv::win::Picture picture = kv::win::PictureOf(button.m_hWnd);
        std::vector<unsigned> shown;
        for (int y = area.top; y < area.bottom; ++y)
        {
            for (int x = area.left; x < area.right; ++x)
                shown.push_back(picture.At(x, y));
        }
        return shown;
    };
    const CRect inside(4, 4, 115, 95);
    const CRect edge(0, 0, 120, 1);
    const auto insideBefore = pixels(inside);
    const auto edgeBefore = pixels(edge);
    kv::win::PressButton(button.m_hWnd, kv::win::Button::Left, CPoint(60, 50));
    EXPECT_EQ(pixels(inside), insideBefore);
    EXPECT_NE(pixels(edge), edgeBefore);
    kv::win::ReleaseButton(button.m_hWnd, kv::win::Button::Left, CPoint(60, 50));
    EXPECT_EQ(pixels(edge), edgeBefore);
}

TEST_F(BitmapControls, TheCaptionStandsCentredAtTheBottomOfItsBand)
{
    PictureButton button(host);
    Canvas drawn;
    DRAWITEMSTRUCT item{};
    item.hDC = drawn.m_hDC;
    item.rcItem = CRect(0, 0, 120, 100);
    button.DrawItem(&item);
    Canvas expected;
    expected.DrawFrameControl(&item.rcItem, DFC_BUTTON, DFCS_BUTTONPUSH);
    button.dib.ShowStretched({0, 0, 3, 2}, {4, 4, 114, 71}, &expected);
    CRect band(4, 4, 115, 95);
    expected.DrawText("Bild", &band, DT_CENTER | DT_BOTTOM | DT_SINGLELINE);
    EXPECT_EQ(drawn.Pixels(), expected.Pixels());
}
