// Contexts of the class layer, and the guards that put back what they changed.
#include "platform/afx/dc.h"

#include "platform/afx/dcguards.h"

#include <gtest/gtest.h>

namespace
{
// A context on 20 by 20 white pixels of 32 bits.
class Contexts : public testing::Test
{
protected:
    void SetUp() override
    {
        dc.CreateCompatibleDC(nullptr);
        bitmap.CreateBitmap(20, 20, 1, 32, nullptr);
        former = dc.SelectObject(bitmap.GetSafeHandle());
        dc.PatBlt(0, 0, 20, 20, WHITENESS);
    }
    void TearDown() override { dc.SelectObject(former); }

    CBitmap bitmap;
    CDC dc;
    HGDIOBJ former = nullptr;
};
} // namespace

TEST(Context, WithoutHandleFailsQuietly)
{
    CDC none;
    EXPECT_EQ(none.GetSafeHdc(), nullptr);
    EXPECT_FALSE(none.Rectangle(0, 0, 5, 5));
    EXPECT_EQ(none.SetROP2(R2_XORPEN), 0);
    EXPECT_EQ(none.GetPixel(0, 0), CLR_INVALID);
    EXPECT_FALSE(none.DeleteDC());
    CPen pen(PS_SOLID, 1, RGB(0, 0, 0));
    EXPECT_EQ(none.SelectObject(&pen), nullptr);
    {
        const Rop2Mode mode(none, R2_XORPEN);
        const SelectedObject selected(none, pen);
        const SavedContext saved(none);
        EXPECT_FALSE(mode);
        EXPECT_FALSE(selected);
    }
}

TEST(Context, FromHandleGivesTheOwnerElseABorrower)
{
    CDC owner;
    owner.CreateCompatibleDC(nullptr);
    EXPECT_EQ(CDC::FromHandle(owner), &owner);
    EXPECT_EQ(CDC::FromHandle(nullptr), nullptr);
    const HDC loose = ::CreateCompatibleDC(nullptr);
    CDC* borrower = CDC::FromHandle(loose);
    EXPECT_EQ(borrower->m_hDC, loose);
    EXPECT_EQ(borrower->m_hAttribDC, loose);
    CDC::DeleteTempMap();
    EXPECT_TRUE(::DeleteDC(loose)) << "a borrower frees nothing";
    const HDC detached = owner.Detach();
    EXPECT_EQ(owner.m_hAttribDC, nullptr);
    ::DeleteDC(detached);
}

TEST_F(Contexts, SelectingGivesWhatWasThere)
{
    CPen first(PS_SOLID, 1, RGB(255, 0, 0)), second(PS_SOLID, 1, RGB(0, 0, 0));
    CPen* stock = dc.SelectObject(&first);
    ASSERT_TRUE(stock);
    EXPECT_EQ(dc.SelectObject(&second), &first);
    EXPECT_EQ(dc.GetCurrentPen(), &second);
    EXPECT_EQ(dc.GetCurrentBitmap(), &bitmap);
    dc.SelectObject(stock);
    EXPECT_EQ(dc.SelectObject(static_cast<CPen*>(nullptr)), nullptr);
}

TEST_F(Contexts, GuardsPutBackWhatTheyChanged)
{
    const HGDIOBJ pen = ::GetCurrentObject(dc, OBJ_PEN);
    {
        CPen red(PS_SOLID, 1, RGB(255, 0, 0));
        const SelectedObject selected(dc, red);
        const Rop2Mode rop(dc, R2_XORPEN);
        const PolyFillMode fill(dc, WINDING);
        const StretchMode stretch(dc, COLORONCOLOR);
        const BackgroundMode background(dc, TRANSPARENT);
        const TextColor text(dc, RGB(1, 2, 3));
        const BackgroundColor ground(dc, RGB(4, 5, 6));
        const ViewportOrigin origin(dc, 7, 8);
        EXPECT_TRUE(selected);
        EXPECT_EQ(dc.GetROP2(), R2_XORPEN);
        EXPECT_EQ(dc.GetViewportOrg(), CPoint(7, 8));
        EXPECT_EQ(dc.GetTextColor(), RGB(1, 2, 3));
    }
    EXPECT_EQ(::GetCurrentObject(dc, OBJ_PEN), pen);
    EXPECT_EQ(dc.GetROP2(), R2_COPYPEN);
    EXPECT_EQ(dc.GetPolyFillMode(), ALTERNATE);
    EXPECT_EQ(dc.GetStretchBltMode(), BLACKONWHITE);
    EXPECT_EQ(dc.GetBkMode(), OPAQUE);
    EXPECT_EQ(dc.GetTextColor(), RGB(0, 0, 0));
    EXPECT_EQ(dc.GetBkColor(), RGB(255, 255, 255));
    EXPECT_EQ(dc.GetViewportOrg(), CPoint(0, 0));
}

TEST_F(Contexts, SavedContextRestoresClipAndMapping)
{
    {
        const SavedContext saved(dc);
        dc.IntersectClipRect(0, 0, 5, 5);
        dc.SetMapMode(MM_ANISOTROPIC);
        dc.SetWindowExt(2, 2);
        EXPECT_EQ(dc.GetWindowExt(), CSize(2, 2));
    }
    CRect box;
    dc.GetClipBox(box);
    EXPECT_EQ(box, CRect(0, 0, 20, 20));
    EXPECT_EQ(dc.GetMapMode(), MM_TEXT);
}

TEST_F(Contexts, ConvertsPointsRectanglesAndExtents)
{
    dc.SetMapMode(MM_ANISOTROPIC);
    dc.SetWindowExt(1, 1);
    dc.SetViewportExt(3, -2);
    dc.SetViewportOrg(10, 20);
    CPoint p(2, 2);
    dc.LPtoDP(&p);
    EXPECT_EQ(p, CPoint(16, 16));
    dc.DPtoLP(&p);
    EXPECT_EQ(p, CPoint(2, 2));
    CRect r(0, 0, 1, 1);
    dc.LPtoDP(&r);
    EXPECT_EQ(r, CRect(10, 20, 13, 18));
    CSize size(4, 4);
    dc.LPtoDP(&size);
    EXPECT_EQ(size, CSize(12, 8));
    dc.DPtoLP(&size);
    EXPECT_EQ(size, CSize(4, 4));
}

TEST_F(Contexts, DrawsWithWhatIsSelected)
{
    EXPECT_EQ(dc.MoveTo(2, 2), CPoint(0, 0));
    EXPECT_TRUE(dc.LineTo(6, 2));
    EXPECT_EQ(dc.GetCurrentPosition(), CPoint(6, 2));
    EXPECT_EQ(dc.GetPixel(5, 2), RGB(0, 0, 0));
    EXPECT_EQ(dc.GetPixel(6, 2), RGB(255, 255, 255));
    dc.FillSolidRect(10, 10, 3, 3, RGB(0, 0, 255));
    EXPECT_EQ(dc.GetPixel(12, 12), RGB(0, 0, 255));
    EXPECT_EQ(dc.GetPixel(13, 12), RGB(255, 255, 255));
    EXPECT_EQ(dc.GetBkColor(), RGB(0, 0, 255));
    CBrush green(RGB(0, 255, 0));
    dc.FillRect(CRect(0, 15, 2, 17), &green);
    EXPECT_EQ(dc.GetPixel(1, 16), RGB(0, 255, 0));
}

TEST_F(Contexts, CopiesFromOthers)
{
    CDC memory;
    CBitmap other;
    memory.CreateCompatibleDC(&dc);
    other.CreateCompatibleBitmap(&dc, 4, 4);
    const SelectedObject selected(memory, other);
    memory.PatBlt(0, 0, 4, 4, BLACKNESS);
    EXPECT_TRUE(dc.BitBlt(8, 8, 4, 4, &memory, 0, 0, SRCCOPY));
    EXPECT_EQ(dc.GetPixel(8, 8), RGB(0, 0, 0));
    EXPECT_TRUE(dc.StretchBlt(0, 0, 8, 8, &memory, 0, 0, 4, 4, SRCCOPY));
    EXPECT_EQ(dc.GetPixel(7, 7), RGB(0, 0, 0));
    EXPECT_FALSE(dc.BitBlt(0, 0, 4, 4, nullptr, 0, 0, SRCCOPY));
}

TEST_F(Contexts, SelectsClipsInDeviceUnits)
{
    CRgn region;
    region.CreateRectRgn(5, 5, 8, 8);
    dc.SetViewportOrg(5, 5);
    EXPECT_EQ(dc.SelectClipRgn(&region), SIMPLEREGION);
    dc.PatBlt(-5, -5, 20, 20, BLACKNESS);
    dc.SetViewportOrg(0, 0);
    EXPECT_EQ(dc.GetPixel(5, 5), RGB(0, 0, 0));
    dc.SelectClipRgn(nullptr);
    EXPECT_EQ(dc.GetPixel(8, 8), RGB(255, 255, 255));
}

TEST_F(Contexts, SeparateContextsTakeDrawingAndQuestions)
{
    CDC other;
    other.CreateCompatibleDC(nullptr);
    other.SetROP2(R2_NOT);
    CDC both;
    both.Attach(other.Detach());
    const HDC questions = both.m_hAttribDC;
    both.SetAttribDC(dc);
    EXPECT_EQ(both.GetROP2(), R2_COPYPEN);
    both.SetAttribDC(questions);
    EXPECT_EQ(both.GetROP2(), R2_NOT);
}
