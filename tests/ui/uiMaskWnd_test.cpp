// The plain mask window: layers, tools on the whole mask, burning figures in, storing.
#include "C/uiMaskWnd.h"

#include "contracts/basics.h"
#include "tests/ui/mask_window.h"

using namespace KvN;
using namespace kv::test;

namespace
{

constexpr unsigned image = 0x646464; // grey 100
constexpr unsigned red = 0xFF0000;
constexpr unsigned blue = 0x0000FF;

// What the window must show for a mask over grey 100 at zoom 1.
unsigned Expected(const KvAOI8& mask, bool system, int x, int y)
{
    const bool ring = x == 0 || y == 0 || x == mask.AOIWidth() - 1 || y == mask.AOIHeight() - 1;
    const unsigned char byte = mask.GetRowPointer(y)[x];
    if (ring || (x + y) % 2 != 0)
        return image;
    if (byte & 128)
        return red;
    return system && (byte & 64) ? blue : image;
}

void ExpectShown(PlainStand& stand, bool system = true)
{
    stand.window.MaskToAOI();
    for (int y = 0; y < stand.mask.AOIHeight(); ++y)
        for (int x = 0; x < stand.mask.AOIWidth(); ++x)
            ASSERT_EQ(stand.Shown(x, y), Expected(stand.mask, system, x, y)) << x << "," << y;
}

// The mask after one figure of `tool` from (2, 2) to (12, 8), and the mask that an excluding tool cuts out of a full
// one.
Rows Burnt(int tool, unsigned short width)
{
    auto mask = Grey(16, 12, 0);
    PlainStand stand(*mask);
    if (tool > 10)
        stand.window.SetTool(MaskToolFill);
    stand.window.SetTool(tool);
    stand.window.SetLineWidth(width);
    stand.Drag(2, 2, 12, 8);
    stand.window.IntegrateFigure();
    ExpectShown(stand);
    return Art(*mask);
}

Rows Complement(Rows rows)
{
    for (std::string& row : rows)
        for (char& c : row)
            c = c == '#' ? '.' : '#';
    return rows;
}

void ExpectFigure(int tool, unsigned short width, const Rows& expected)
{
    EXPECT_EQ(Burnt(tool, width), expected) << "adding";
    EXPECT_EQ(Burnt(tool + 10, width), Complement(expected)) << "excluding";
}

} // namespace

TEST(MaskWnd, HasItsDefaults)
{
    const KvMaskWnd window;
    EXPECT_EQ(window.GetTool(), 1);
    EXPECT_EQ(window.GetLineWidth(), 1);
    EXPECT_EQ(window.GetDragMarker(), 10);
    EXPECT_TRUE(window.IsSystemMaskShown());
    EXPECT_FALSE(window.IsInChangeMode());
    EXPECT_FALSE(window.IsDrawing());
    EXPECT_FALSE(window.IsPolygonOpen());
    EXPECT_EQ(window.GetMaskAOI(), nullptr);
}

TEST(MaskWnd, TakesALineWidthBeforeItIsInitialised)
{
    KvMaskWnd window;
    window.SetLineWidth(7);
    EXPECT_EQ(window.GetLineWidth(), 7);
}

TEST(MaskWnd, ReadsBit7AsUserAndBit6AsSystemMask)
{
    auto mask = Grey(8, 6, 0);
    const std::pair<int, unsigned char> bytes[] = {{1, 64}, {2, 128}, {3, 192}, {4, 63}, {5, 191}};
    for (const auto& [x, value] : bytes)
        for (int y = 1; y <= 4; ++y)
            mask->GetRowPointer(y)[x] = value;
    PlainStand stand(*mask);
    ExpectShown(stand);
    EXPECT_EQ(stand.Shown(1, 1), blue);
    EXPECT_EQ(stand.Shown(2, 2), red);
    EXPECT_EQ(stand.Shown(3, 1), red); // the user layer lies over the system layer
    EXPECT_EQ(stand.Shown(4, 2), image);
    EXPECT_EQ(stand.Shown(5, 1), red);
}

TEST(MaskWnd, LeavesTheOutermostRingOfPixelsToTheImage)
{
    auto mask = Grey(9, 7, 255);
    PlainStand stand(*mask);
    ExpectShown(stand);
    EXPECT_EQ(stand.Shown(0, 0), image);
    EXPECT_EQ(stand.Shown(8, 6), image);
    EXPECT_EQ(stand.Shown(1, 1), red);
    EXPECT_EQ(stand.Shown(2, 1), image);
}

TEST(MaskWnd, WritesNothingButBit7)
{
    auto mask = Grey(13, 9, 0);
    for (int y = 0; y < 9; ++y)
        for (int x = 0; x < 13; ++x)
            mask->GetRowPointer(y)[x] = static_cast<unsigned char>(x * 31 + y * 57);
    const auto before = Bytes(*mask);
    for (const bool system : {false, true})
    {
        PlainStand stand(*mask);
        if (!system)
            stand.window.HideSystemMask();
        stand.window.SetTool(MaskToolInvert);
        stand.window.MaskToAOI();
        const auto after = Bytes(*mask);
        for (size_t i = 0; i < before.size(); ++i)
            ASSERT_EQ(after[i], before[i] ^ (system ? 0 : 128)) << i; // the second round inverts back
    }
}

TEST(MaskWnd, TouchesTheAOIOnlyWhenItIsStored)
{
    auto mask = Grey(10, 10, 5);
    PlainStand stand(*mask);
    stand.window.SetTool(MaskToolFill);
    EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(100, 5));
    stand.window.MaskToAOI();
    EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(100, 133));
}

TEST(MaskWnd, FillsAndClearsTheWholeMaskAtOnce)
{
    auto mask = Grey(11, 7, 64);
    PlainStand stand(*mask);
    stand.window.SetTool(MaskToolFill);
    EXPECT_EQ(stand.window.GetTool(), MaskToolFill); // the caller sets the former tool again
    EXPECT_EQ(stand.Shown(1, 1), red);
    ExpectShown(stand);
    EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(77, 192));
    stand.window.SetTool(MaskToolClear);
    EXPECT_EQ(stand.Shown(1, 1), blue);
    ExpectShown(stand);
    EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(77, 64));
}

TEST(MaskWnd, GivesTheFirstPictureBackWhenInvertedTwice)
{
    auto mask = FromArt({"........", ".##.....", ".##..#..", ".....#..", "........"}, 128);
    const Rows before = Art(*mask);
    PlainStand stand(*mask);
    stand.window.SetTool(MaskToolInvert);
    ExpectShown(stand);
    EXPECT_EQ(Art(*mask), Complement(before));
    stand.window.SetTool(MaskToolInvert);
    ExpectShown(stand);
    EXPECT_EQ(Art(*mask), before);
}

TEST(MaskWnd, ShowsOrHidesTheSystemMaskWithTheNextPaint)
{
    auto mask = Grey(8, 8, 64);
    PlainStand stand(*mask);
    stand.window.HideSystemMask();
    EXPECT_EQ(stand.Shown(1, 1), blue);
    stand.View().Invalidate(FALSE);
    stand.View().UpdateWindow();
    ExpectShown(stand, false);
    stand.window.ShowSystemMask();
    EXPECT_EQ(stand.Shown(1, 1), image);
    EXPECT_TRUE(stand.window.IsSystemMaskShown());
}

TEST(MaskWnd, KeepsItsColours)
{
    auto mask = Grey(8, 8, 192);
    PlainStand stand(*mask);
    stand.window.SetUserMaskColor(KvColor(0, 255, 0));
    stand.window.SetSystemMaskColor(KvColor(255, 255, 0));
    stand.View().Invalidate(FALSE);
    stand.View().UpdateWindow();
    ExpectShown(stand);
}

TEST(MaskWnd, ShowsTheBackgroundThatItIsGiven)
{
    auto mask = Grey(8, 8, 0);
    const auto other = Grey(8, 8, 7);
    PlainStand stand(*mask);
    EXPECT_EQ(stand.window.GetBackgroundAOI(), stand.image.get());
    stand.window.SetBackgroundAOI(other.get());
    EXPECT_EQ(stand.window.GetBackgroundAOI(), other.get());
    EXPECT_EQ(stand.Shown(3, 3), 0x070707u);
    EXPECT_EQ(stand.window.GetMaskAOI(), mask.get());
}

// ---- Exact figures, from (2, 2) to (12, 8)

// The null pen of filled figures stops a rectangle one pixel short at right and bottom.
TEST(MaskWndFigures, FilledRectangleLacksItsLastRowAndColumn)
{
    ExpectFigure(1, 1,
                 {"................", "................", "..##########....", "..##########....", "..##########....",
                  "..##########....", "..##########....", "..##########....", "................", "................",
                  "................", "................"});
}

TEST(MaskWndFigures, RectangleFrameIsOnePixelWideForWidths0And1)
{
    const Rows frame = {"................", "................", "..###########...", "..#.........#...",
                        "..#.........#...", "..#.........#...", "..#.........#...", "..#.........#...",
                        "..###########...", "................", "................", "................"};
    ExpectFigure(5, 0, frame);
    ExpectFigure(5, 1, frame);
}
