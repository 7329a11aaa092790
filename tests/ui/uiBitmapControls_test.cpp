// Bitmap button and bitmap static: their picture, their caption, when they draw.
#include "C/uiBitmapButton.h"
#include "C/uiBitmapStatic.h"
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

class OpenButton : public KvBitmapButton
{
public:
    using KvBitmapButton::captionFont;
    using KvBitmapButton::captionFontReady;
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
    KvBitmapStatic control;
    control.Create(CString(), WS_CHILD | WS_VISIBLE, CRect(10, 10, 110, 60), &host);
    kv::win::Settle();
    KvDIB dib;
    Fill(dib, 4, 3, 0x99);
    control.SetDIB(&dib);
    CRect update;
    EXPECT_FALSE(control.GetUpdateRect(&update));
    control.RedrawWindow();
    EXPECT_EQ(Shown(control, 50, 20), 0x999999u);
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
    OpenButton button;
    button.Create(CString(), WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, CRect(10, 10, 130, 110), &host, 7);
    KvDIB dib;
    Fill(dib, 4, 3, 0x55);
    button.SetDIB(&dib);
    button.SetName(KvString("Bild"));
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
