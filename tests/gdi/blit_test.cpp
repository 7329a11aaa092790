// PatBlt, BitBlt, StretchBlt, FillRect and FrameRect.
#include "canvas.h"

#include <gtest/gtest.h>

#include <random>

namespace
{

void fillNumbers(Canvas& c)
{
    for (int y = 0; y < c.height; ++y)
        for (int x = 0; x < c.width; ++x)
            c.bits[y * c.stride + x] = std::uint8_t(16 * y + x + 1);
}

} // namespace

TEST(PatBlt, NegativeExtentsReachTheOtherWay)
{
    Canvas c(6, 3);
    EXPECT_TRUE(PatBlt(c.dc, 4, 0, -3, 2, WHITENESS));
    EXPECT_EQ(c.picture(), "..###.\n..###.\n......\n");
}

TEST(PatBlt, WithANullBrushDrawsNothingAndSucceeds)
{
    Canvas c(4, 4);
    SelectObject(c.dc, GetStockObject(NULL_BRUSH));
    EXPECT_TRUE(PatBlt(c.dc, 0, 0, 4, 4, PATCOPY));
    EXPECT_EQ(c.count(), 0);
    EXPECT_FALSE(PatBlt(c.dc, 0, 0, 4, 4, SRCCOPY));
}

TEST(BitBlt, EveryRasterOperationFollowsItsTruthTable)
{
    std::mt19937 random(3);
    for (int table = 0; table < 256; ++table)
    {
        Canvas target(8, 1), source(8, 1);
        for (int x = 0; x < 8; ++x)
        {
            target.bits[x] = std::uint8_t(random());
            source.bits[x] = std::uint8_t(random());
        }
        const std::vector<std::uint32_t> before = target.pixels();
        const Selected brush(target.dc, CreateSolidBrush(RGB(0x5A, 0x5A, 0x5A)));
        ASSERT_TRUE(BitBlt(target.dc, 0, 0, 8, 1, source.dc, 0, 0, DWORD(table) << 16)) << table;
        for (int x = 0; x < 8; ++x)
            for (int bit = 0; bit < 8; ++bit)
            {
                const int index = (0x5A >> bit & 1) * 4 + int(source.at(x, 0) >> bit & 1) * 2 +
                                  int(before[std::size_t(x)] >> bit & 1);
                ASSERT_EQ(target.at(x, 0) >> bit & 1, std::uint32_t(table >> index & 1)) << table;
            }
    }
}

TEST(BitBlt, LeavesPixelsWithoutASource)
{
    Canvas target(6, 2), source(3, 2);
    PatBlt(target.dc, 0, 0, 6, 2, WHITENESS);
    EXPECT_TRUE(BitBlt(target.dc, 1, 0, 5, 2, source.dc, -1, 0, SRCCOPY));
    EXPECT_EQ(target.picture(), "##...#\n##...#\n");
}

TEST(BitBlt, WithinOneBitmapReadsWhatWasThere)
{
    Canvas c(6, 6);
    fillNumbers(c);
    const std::vector<std::uint32_t> before = c.pixels();
    EXPECT_TRUE(BitBlt(c.dc, 1, 1, 5, 5, c.dc, 0, 0, SRCCOPY));
    for (int y = 1; y < 6; ++y)
        for (int x = 1; x < 6; ++x)
            EXPECT_EQ(c.at(x, y), before[std::size_t((y - 1) * 6 + x - 1)]);
}

TEST(BitBlt, NeedsASourceOnlyWhereTheOperationDoes)
{
    Canvas c(4, 4);
    EXPECT_FALSE(BitBlt(c.dc, 0, 0, 4, 4, nullptr, 0, 0, SRCCOPY));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_TRUE(BitBlt(c.dc, 0, 0, 4, 4, nullptr, 0, 0, WHITENESS));
    EXPECT_EQ(c.count(), 16);
}

TEST(BitBlt, AMonochromeSourceTakesTextAndBackgroundColour)
{
    Canvas c(16, 1, 32);
    const WORD bits = 0x00F0;
    const HBITMAP mono = CreateBitmap(16, 1, 1, 1, &bits);
    const HDC dc = CreateCompatibleDC(nullptr);
    SelectObject(dc, mono);
    SetTextColor(c.dc, RGB(1, 0, 0));
    SetBkColor(c.dc, RGB(2, 0, 0));
    BitBlt(c.dc, 0, 0, 16, 1, dc, 0, 0, SRCCOPY);
    EXPECT_EQ(c.at(0, 0), 0x020000u);
    EXPECT_EQ(c.at(4, 0), 0x010000u);
    // And back: the source's background becomes 1.
    SetBkColor(c.dc, RGB(1, 0, 0));
    BitBlt(dc, 0, 0, 16, 1, c.dc, 0, 0, SRCCOPY);
    EXPECT_EQ(GetPixel(dc, 0, 0), RGB(0, 0, 0));
    EXPECT_EQ(GetPixel(dc, 4, 0), RGB(255, 255, 255));
    DeleteDC(dc);
    DeleteObject(mono);
}

TEST(StretchBlt, EnlargesByWholeFactorsToBlocks)
{
    Canvas target(6, 6), source(2, 2);
    fillNumbers(source);
    EXPECT_TRUE(StretchBlt(target.dc, 0, 0, 6, 6, source.dc, 0, 0, 2, 2, SRCCOPY));
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 6; ++x)
            EXPECT_EQ(target.at(x, y), source.at(x / 3, y / 3));
}

TEST(StretchBlt, MirrorsWithANegativeExtent)
{
    Canvas target(4, 1), source(4, 1);
    fillNumbers(source);
    EXPECT_TRUE(StretchBlt(target.dc, 3, 0, -4, 1, source.dc, 0, 0, 4, 1, SRCCOPY));
    for (int x = 0; x < 4; ++x)
        EXPECT_EQ(target.at(x, 0), source.at(3 - x, 0));
}

TEST(StretchBlt, ReducesByTheMode)
{
    for (const int mode : {COLORONCOLOR, BLACKONWHITE, WHITEONBLACK})
    {
        Canvas target(1, 1), source(2, 1);
        source.bits[0] = 0x0F;
        source.bits[1] = 0x3C;
        EXPECT_EQ(SetStretchBltMode(target.dc, mode), BLACKONWHITE);
        EXPECT_TRUE(StretchBlt(target.dc, 0, 0, 1, 1, source.dc, 0, 0, 2, 1, SRCCOPY));
        EXPECT_EQ(target.at(0, 0), mode == COLORONCOLOR ? 0x3Cu : mode == BLACKONWHITE ? 0x0Cu : 0x3Fu) << mode;
    }
}

TEST(StretchBlt, AZeroExtentDrawsNothingAndSucceeds)
{
    Canvas c(4, 4), source(4, 4);
    PatBlt(source.dc, 0, 0, 4, 4, WHITENESS);
    EXPECT_TRUE(StretchBlt(c.dc, 0, 0, 0, 4, source.dc, 0, 0, 4, 4, SRCCOPY));
    EXPECT_TRUE(StretchBlt(c.dc, 0, 0, 4, 4, source.dc, 0, 0, 4, 0, SRCCOPY));
    EXPECT_EQ(c.count(), 0);
}

TEST(StretchBlt, CoversTheWholeRangeOfCoordinates)
{
    Canvas c(4, 4), source(3, 3);
    PatBlt(source.dc, 0, 0, 3, 3, WHITENESS);
    EXPECT_TRUE(StretchBlt(c.dc, INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX, source.dc, 0, 0, 3, 3, SRCCOPY));
    EXPECT_TRUE(StretchBlt(c.dc, -1000000000, -1000000000, 2000000000, 2000000000, source.dc, 0, 0, 3, 3, SRCCOPY));
    EXPECT_EQ(c.count(), 16);
}

TEST(StretchBlt, DrawsNothingIfTheFarCornerLiesBeyondAllCoordinates)
{
    Canvas c(8, 8), source(3, 3);
    PatBlt(source.dc, 0, 0, 3, 3, WHITENESS);
    SetMapMode(c.dc, MM_ANISOTROPIC);
    SetViewportExtEx(c.dc, 8, 8, nullptr);
    EXPECT_TRUE(StretchBlt(c.dc, 0, 0, -300000000, 3, source.dc, 0, 0, -300000000, 3, SRCCOPY));
    EXPECT_TRUE(StretchBlt(c.dc, 0, 0, 3, 300000000, source.dc, 0, 0, 3, 300000000, SRCCOPY));
    EXPECT_EQ(c.count(), 0);
    EXPECT_TRUE(PatBlt(c.dc, 0, 0, 3, 300000000, WHITENESS));
    EXPECT_EQ(c.count(), 64);
}

TEST(Rects, AreFilledFramedAndInverted)
{
    Canvas c(6, 6);
    const RECT outer{1, 1, 5, 5}, inner{2, 2, 4, 4}, empty{3, 3, 3, 9};
    const HBRUSH brush = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(FrameRect(c.dc, &outer, brush), 1);
    EXPECT_EQ(c.picture(), "......\n.####.\n.#..#.\n.#..#.\n.####.\n......\n");
    EXPECT_EQ(FrameRect(c.dc, &empty, brush), 0);
    EXPECT_EQ(FillRect(c.dc, &inner, brush), 1);
    EXPECT_EQ(c.count(), 16);
    EXPECT_TRUE(InvertRect(c.dc, &outer));
    EXPECT_EQ(c.count(), 0);
    EXPECT_EQ(FillRect(c.dc, &outer, reinterpret_cast<HBRUSH>(std::uintptr_t(COLOR_WINDOW + 1))), 1);
    EXPECT_EQ(c.at(2, 2), 255u);
    EXPECT_EQ(GetCurrentObject(c.dc, OBJ_BRUSH), GetStockObject(WHITE_BRUSH));
}

TEST(Brushes, AHatchOnATransparentBackgroundLeavesItsGaps)
{
    Canvas c(8, 8, 32);
    const Selected brush(c.dc, CreateHatchBrush(HS_HORIZONTAL, RGB(255, 0, 0)));
    SetBkMode(c.dc, TRANSPARENT);
    PatBlt(c.dc, 0, 0, 8, 8, PATCOPY);
    EXPECT_EQ(c.count(), 8);
    SetBkMode(c.dc, OPAQUE);
    PatBlt(c.dc, 0, 0, 8, 8, PATCOPY);
    EXPECT_EQ(c.count(), 64);
}
