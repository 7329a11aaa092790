// The mask window whose mask is the view's overlay.
#include "C/uiMaskWndOverlay.h"

#include "tests/ui/mask_window.h"

using namespace KvN;
using namespace kv::test;

namespace
{

Rows Invert(Rows rows)
{
    for (std::string& row : rows)
        for (char& c : row)
            c = c == '#' ? '.' : '#';
    return rows;
}

// The AOI's bits after one figure of `tool` from (2, 2) to (12, 8); the figures are those of the plain window.
template <class Wnd>
Rows Burnt(int tool, unsigned short width)
{
    auto mask = Grey(16, 12, 0);
    MaskStand<Wnd> stand(*mask);
    if (tool > 10)
        stand.window.SetTool(MaskToolFill);
    stand.window.SetTool(static_cast<unsigned short>(tool));
    stand.window.SetLineWidth(width);
    stand.Drag(2, 2, 12, 8);
    stand.window.IntegrateFigure();
    stand.window.MaskToAOI();
    return Art(*mask);
}

} // namespace

TEST(MaskWndOverlay, HasItsDefaults)
{
    const KvMaskWndOverlay window;
    EXPECT_EQ(window.GetTool(), 1);
    EXPECT_EQ(window.GetLineWidth(), 1);
    EXPECT_EQ(window.GetDragMarker(), 10);
    EXPECT_TRUE(window.IsSystemMaskShown());
}

TEST(MaskWndOverlay, DoesNothingBeforeItIsInitialised)
{
    auto mask = Grey(8, 8, 255);
    KvMaskWndOverlay window;
    window.UpdateMaskDC(mask.get());
    window.HideSystemMask();
    window.ShowSystemMask();
    EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(64, 255));
}

TEST(MaskWndOverlay, DoesNotWriteTheAOIAtItsStart)
{
    auto mask = Grey(6, 5, 0x55);
    const OverlayStand stand(*mask);
    EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(30, 0x55));
}

TEST(MaskWndOverlay, BurnsTheFiguresOfThePlainWindow)
{
    for (const int tool : {1, 2, 3, 5, 6, 7, 11, 12, 13, 15, 16, 17})
        for (const unsigned short width : {1, 4})
            EXPECT_EQ(Burnt<OpenOverlayWnd>(tool, width), Burnt<OpenMaskWnd>(tool, width)) << tool << " " << width;
}

TEST(MaskWndOverlay, WritesEveryChangeToTheAOIAtOnce)
{
    auto mask = Grey(8, 6, 3);
    OverlayStand stand(*mask);
    stand.window.SetTool(MaskToolFill);
    EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(48, 131));
    stand.window.SetTool(MaskToolClear);
    EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(48, 3));
}

TEST(MaskWndOverlay, InvertsRedAndBlack)
{
    const Rows rows = {"........", ".##.....", ".##..#.#", ".....#..", "....####"};
    auto mask = FromArt(rows, 128);
    OverlayStand stand(*mask);
    stand.window.SetTool(MaskToolInvert);
    EXPECT_EQ(Art(*mask), Invert(rows));
    stand.window.SetTool(MaskToolInvert);
    EXPECT_EQ(Art(*mask), rows);
}

TEST(MaskWndOverlay, HidingTheSystemMaskTakesItOutOfTheAOI)
{
    auto mask = FromArt({"####....", "####....", "........"}, 64 + 1, 128 + 2);
    const auto before = Bytes(*mask);
    OverlayStand stand(*mask);
    stand.window.HideSystemMask();
    EXPECT_FALSE(stand.window.IsSystemMaskShown());
    for (size_t i = 0; i < before.size(); ++i)
        EXPECT_EQ(Bytes(*mask)[i], before[i] & ~64);
    stand.window.ShowSystemMask();
    EXPECT_EQ(Bytes(*mask), before);
}

TEST(MaskWndOverlay, StoringBringsAHiddenSystemMaskBack)
{
    auto mask = Grey(8, 4, 64);
    OverlayStand stand(*mask);
    stand.window.HideSystemMask();
    EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(32, 0));
    stand.window.MaskToAOI();
    EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(32, 64));
}

// The rows of the raster are padded to four bytes, and the padding is read as pixels, which is required.
TEST(MaskWndOverlay, WidthsThatFourDoesNotDivideAreWrittenAskew)
{
    auto six = FromArt({"#.....", "#.....", "#.....", "#....."}, 128);
    OverlayStand askew(*six);
    askew.window.Repaint();
    // Byte 6 * row + x of rows of 8: the set pixels lie at bytes 0, 8, 16 of 24.
    EXPECT_EQ(Art(*six), (Rows{"#.....", "..#...", "....#.", "......"}));

    const Rows rows = {"#.......", "#.......", "#.......", "#......."};
    auto eight = FromArt(rows, 128);
    OverlayStand straight(*eight);
    straight.window.Repaint();
    EXPECT_EQ(Art(*eight), rows);
}

TEST(MaskWndOverlay, ReadsTheRastersAnewFromAnAOI)
{
    auto mask = Grey(8, 4, 0);
    OverlayStand stand(*mask);
    const auto other = FromArt({"####....", "........", "....####", "........"}, 192, 1);
    stand.window.UpdateMaskDC(other.get());
    EXPECT_EQ(Art(*mask), Art(*other));
    EXPECT_EQ(Art(*mask, 64), Art(*other, 64));
    EXPECT_EQ(Art(*mask, 63), Art(*Grey(8, 4, 0))); // other bits are the mask's own
}

TEST(MaskWndOverlay, ShowsTheMaskAsTheViewsOverlay)
{
    auto mask = Grey(40, 30, 0);
    mask->SetOLut(pOLutMgr->GetLut("Mask"));
    OverlayStand stand(*mask);
    stand.View().SetOverlayAOI(mask.get());
    stand.View().SetOverlayStrength(0.5f);
    stand.Drag(5, 5, 20, 20);
    stand.window.IntegrateFigure();
    // Half way from grey 100 to red: 100 + 0.5 * 155, 100 - 0.5 * 100; no checker, no ring.
    EXPECT_EQ(stand.Shown(5, 5), 0xB23232u);
    EXPECT_EQ(stand.Shown(6, 5), 0xB23232u);
    EXPECT_EQ(stand.Shown(20, 20), 0x646464u);
}

TEST(MaskWndOverlay, RepaintWipesAPlacedFigureAndTheNextDragShowsItsOldOutline)
{
    auto mask = Grey(60, 50, 0);
    OverlayStand stand(*mask);
    const auto empty = stand.Screen();
    stand.Drag(10, 12, 30, 28);
    const auto placed = stand.Screen();
    EXPECT_NE(placed, empty);
    stand.View().Invalidate(FALSE);
    stand.View().UpdateWindow();
    EXPECT_EQ(stand.Screen(), empty);
    EXPECT_EQ(stand.window.GetFigure().GetRect(), KvTRectangle<short>(10, 12, 30, 28));
    stand.Press(20, 20);
    stand.Move(20, 20); // draws the old outline instead of erasing it, and the new one over it
    EXPECT_EQ(stand.Screen(), empty);
    stand.Move(25, 25);
    EXPECT_EQ(stand.window.GetFigure().GetRect(), KvTRectangle<short>(15, 17, 35, 33));
    EXPECT_NE(stand.Screen(), empty);
}

TEST(MaskWndOverlay, RepaintDuringAnOpenPolygonRedrawsItsEdges)
{
    auto mask = Grey(60, 50, 0);
    OverlayStand stand(*mask);
    stand.window.SetTool(8);
    stand.Click(10, 10);
    stand.Click(30, 10);
    stand.View().Invalidate(FALSE);
    stand.View().UpdateWindow();
    EXPECT_EQ(stand.Shown(20, 10), 0xFFFF00u);
}

TEST(MaskWndOverlay, RasterThatCannotBeReadIsReportedAndLeavesTheAOI)
{
    auto mask = Grey(8, 4, 0x41);
    OverlayStand stand(*mask);
    stand.window.HideSystemMask();
    const auto before = Bytes(*mask);
    const HDC handle = stand.window.userMaskDC.Detach();
    for (const bool repaint : {false, true})
    {
        try
        {
            if (repaint)
                stand.window.Repaint();
            else
                stand.window.MaskToAOI();
            ADD_FAILURE() << "nothing was thrown";
        }
        catch (KvGDIException* failure)
        {
            EXPECT_EQ(failure->Function().Utf8(), "GetDIBits");
            EXPECT_EQ(failure->File().Utf8(), "C/uiMaskWndOverlay");
            EXPECT_EQ(failure->Line(), 200u);
            failure->Delete();
        }
        EXPECT_EQ(Bytes(*mask), before);
    }
    stand.window.userMaskDC.Attach(handle);
    stand.window.MaskToAOI();
    EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(32, 0x41));
}
