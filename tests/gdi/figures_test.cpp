// Lines, polygons, rectangles, ellipses and arcs: counts, ends, raster operations, clipping, far coordinates.
#include "canvas.h"

#include <gtest/gtest.h>

#include <random>

namespace
{

constexpr COLORREF white = RGB(255, 255, 255);

// The sixteen operations by their definition, bit by bit.
std::uint32_t expected(int rop, std::uint32_t pen, std::uint32_t pixel)
{
    switch (rop)
    {
    case R2_BLACK:
        return 0;
    case R2_NOTMERGEPEN:
        return ~(pen | pixel);
    case R2_MASKNOTPEN:
        return ~pen & pixel;
    case R2_NOTCOPYPEN:
        return ~pen;
    case R2_MASKPENNOT:
        return pen & ~pixel;
    case R2_NOT:
        return ~pixel;
    case R2_XORPEN:
        return pen ^ pixel;
    case R2_NOTMASKPEN:
        return ~(pen & pixel);
    case R2_MASKPEN:
        return pen & pixel;
    case R2_NOTXORPEN:
        return ~(pen ^ pixel);
    case R2_NOP:
        return pixel;
    case R2_MERGENOTPEN:
        return ~pen | pixel;
    case R2_COPYPEN:
        return pen;
    case R2_MERGEPENNOT:
        return pen | ~pixel;
    case R2_MERGEPEN:
        return pen | pixel;
    default:
        return 0xFFFFFFFF;
    }
}

class EachRop2 : public testing::TestWithParam<int>
{
};

} // namespace

TEST_P(EachRop2, CombinesPenAndPixelBitByBit)
{
    const int rop = GetParam();
    for (const int depth : {1, 8, 32})
    {
        const std::uint32_t all = depth == 32 ? 0xFFFFFF : depth == 8 ? 0xFF : 1;
        Canvas c(16, 3, depth);
        std::mt19937 random{unsigned(rop * 100 + depth)};
        for (int i = 0; i < c.stride * c.height; ++i)
            c.bits[i] = std::uint8_t(random());
        const std::vector<std::uint32_t> before = c.pixels();
        const COLORREF color = depth == 32 ? RGB(0x12, 0x9C, 0xF0) : depth == 8 ? RGB(0x9C, 0x9C, 0x9C) : white;
        const std::uint32_t pen = depth == 32 ? 0x129CF0 : depth == 8 ? 0x9C : 1;
        const Selected solid(c.dc, CreatePen(PS_SOLID, 1, color)), brush(c.dc, CreateSolidBrush(color));
        SetROP2(c.dc, rop);
        MoveToEx(c.dc, 0, 0, nullptr);
        LineTo(c.dc, 16, 0);
        SelectObject(c.dc, GetStockObject(NULL_PEN));
        Rectangle(c.dc, 0, 1, 17, 3);
        for (int x = 0; x < 16; ++x)
        {
            EXPECT_EQ(c.at(x, 0), expected(rop, pen, before[std::size_t(x)]) & all) << depth << " line " << x;
            EXPECT_EQ(c.at(x, 1), expected(rop, pen, before[std::size_t(16 + x)]) & all) << depth << " box " << x;
            EXPECT_EQ(c.at(x, 2), before[std::size_t(32 + x)]);
        }
        SelectObject(c.dc, solid.object);
    }
}
INSTANTIATE_TEST_SUITE_P(All, EachRop2, testing::Range(R2_BLACK, R2_WHITE + 1));

TEST(Lines, LeaveOutTheirEnd)
{
    Canvas c(6, 1);
    const Selected pen(c.dc, CreatePen(PS_SOLID, 0, white));
    MoveToEx(c.dc, 1, 0, nullptr);
    EXPECT_TRUE(LineTo(c.dc, 4, 0));
    EXPECT_EQ(c.picture(), ".###..\n");
    EXPECT_TRUE(LineTo(c.dc, 4, 0));
    EXPECT_EQ(c.picture(), ".###..\n");
}

TEST(Lines, AreTheSameInBothDirectionsButForTheirEnds)
{
    std::mt19937 random(5);
    for (int i = 0; i < 200; ++i)
    {
        Canvas a(40, 40), b(40, 40);
        const POINT p{int(random() % 40), int(random() % 40)}, q{int(random() % 40), int(random() % 40)};
        const Selected penA(a.dc, CreatePen(PS_SOLID, 1, white)), penB(b.dc, CreatePen(PS_SOLID, 1, white));
        MoveToEx(a.dc, p.x, p.y, nullptr);
        LineTo(a.dc, q.x, q.y);
        SetPixel(a.dc, q.x, q.y, white);
        MoveToEx(b.dc, q.x, q.y, nullptr);
        LineTo(b.dc, p.x, p.y);
        SetPixel(b.dc, p.x, p.y, white);
        EXPECT_EQ(a.picture(), b.picture());
    }
}

TEST(Lines, FarEndsDoNotMovePixels)
{
    // A line of slope 1 through the whole range of coordinates.
    Canvas c(20, 20);
    const Selected pen(c.dc, CreatePen(PS_SOLID, 1, white));
    MoveToEx(c.dc, INT32_MIN, INT32_MIN, nullptr);
    EXPECT_TRUE(LineTo(c.dc, INT32_MAX, INT32_MAX));
    EXPECT_EQ(c.count(), 20);
    for (int i = 0; i < 20; ++i)
        EXPECT_NE(c.at(i, i), 0u);
}

TEST(Lines, PolylineNeitherUsesNorMovesThePosition)
{
    Canvas c(8, 8);
    MoveToEx(c.dc, 3, 2, nullptr);
    const POINT points[] = {{0, 0}, {5, 5}};
    EXPECT_TRUE(Polyline(c.dc, points, 2));
    POINT at{};
    GetCurrentPositionEx(c.dc, &at);
    EXPECT_EQ(at.x, 3);
    EXPECT_FALSE(Polyline(c.dc, points, 1));
    EXPECT_FALSE(Polyline(c.dc, nullptr, 2));
    EXPECT_TRUE(PolylineTo(c.dc, points, 2));
    GetCurrentPositionEx(c.dc, &at);
    EXPECT_EQ(at.x, 5);
}

TEST(Polygons, FillModesDifferWhereAnOutlineWindsTwice)
{
    const POINT twice[] = {{1, 1}, {9, 1}, {9, 9}, {1, 9}, {1, 1}, {3, 3}, {7, 3}, {7, 7}, {3, 7}, {3, 3}};
    Canvas alternate(10, 10), winding(10, 10);
    for (Canvas* const c : {&alternate, &winding})
    {
        SelectObject(c->dc, GetStockObject(NULL_PEN));
        SelectObject(c->dc, GetStockObject(WHITE_BRUSH));
        SetPolyFillMode(c->dc, c == &winding ? WINDING : ALTERNATE);
        EXPECT_TRUE(Polygon(c->dc, twice, 10));
    }
    EXPECT_EQ(alternate.count(), 64 - 16);
    EXPECT_EQ(winding.count(), 64);
}

TEST(Polygons, SeveralOutlinesAreOneFigure)
{
    Canvas c(10, 10);
    SelectObject(c.dc, GetStockObject(NULL_PEN));
    const POINT points[] = {{0, 0}, {8, 0}, {8, 8}, {0, 8}, {2, 2}, {6, 2}, {6, 6}, {2, 6}};
    const int counts[] = {4, 4};
    EXPECT_TRUE(PolyPolygon(c.dc, points, counts, 2));
    EXPECT_EQ(c.count(), 64 - 16);
    const int wrong[] = {4, 1};
    EXPECT_FALSE(PolyPolygon(c.dc, points, wrong, 2));
}

TEST(Polygons, ManyEdgesThatCrossAtOnceStayQuick)
{
    Canvas c(300, 300);
    SelectObject(c.dc, GetStockObject(NULL_PEN));
    // All edges meet in the middle row and leave it in reversed order.
    std::vector<POINT> points;
    for (int i = 0; i < 30000; ++i)
        points.push_back({i % 2 ? 299 - i / 100 : i / 100, i % 2 ? 299 : 0});
    EXPECT_TRUE(Polygon(c.dc, points.data(), int(points.size())));
}

TEST(Polygons, WideOutlinesUnderXorShowEachPixelOnce)
{
    Canvas copied(60, 60), inverted(60, 60);
    const POINT points[] = {{10, 10}, {50, 20}, {30, 50}, {12, 14}};
    for (Canvas* const c : {&copied, &inverted})
    {
        const Selected pen(c->dc, CreatePen(PS_SOLID, 7, white));
        SelectObject(c->dc, GetStockObject(NULL_BRUSH));
        SetROP2(c->dc, c == &inverted ? R2_XORPEN : R2_COPYPEN);
        Polygon(c->dc, points, 4);
    }
    EXPECT_EQ(copied.picture(), inverted.picture());
}

TEST(Rectangles, AnAdvancedContextIncludesRightAndBottom)
{
    Canvas c(6, 6);
    const Selected pen(c.dc, CreatePen(PS_SOLID, 1, white));
    SelectObject(c.dc, GetStockObject(NULL_BRUSH));
    Rectangle(c.dc, 1, 1, 4, 4);
    EXPECT_EQ(c.count(), 8);
    PatBlt(c.dc, 0, 0, 6, 6, BLACKNESS);
    SetGraphicsMode(c.dc, GM_ADVANCED);
    Rectangle(c.dc, 1, 1, 4, 4);
    EXPECT_EQ(c.count(), 12);
}

TEST(Ellipses, OfOnePixelShowNothing)
{
    Canvas c(5, 5);
    const Selected pen(c.dc, CreatePen(PS_SOLID, 1, white)), brush(c.dc, CreateSolidBrush(white));
    EXPECT_TRUE(Ellipse(c.dc, 2, 2, 3, 3));
    EXPECT_EQ(c.count(), 0);
}

TEST(Ellipses, OfOnePixelAreADotWithAWidePen)
{
    Canvas c(7, 7);
    const Selected pen(c.dc, CreatePen(PS_SOLID, 3, white));
    EXPECT_TRUE(Ellipse(c.dc, 3, 3, 4, 4));
    EXPECT_EQ(c.count(), 5);
}

TEST(Ellipses, AreSymmetric)
{
    for (int w = 3; w < 40; w += 3)
        for (int h = 3; h < 40; h += 4)
        {
            Canvas c(40, 40);
            const Selected pen(c.dc, CreatePen(PS_SOLID, 1, white));
            SelectObject(c.dc, GetStockObject(NULL_BRUSH));
            Ellipse(c.dc, 0, 0, w, h);
            for (int y = 0; y < h; ++y)
                for (int x = 0; x < w; ++x)
                {
                    ASSERT_EQ(c.at(x, y), c.at(w - 1 - x, y)) << w << " " << h;
                    ASSERT_EQ(c.at(x, y), c.at(x, h - 1 - y)) << w << " " << h;
                }
        }
}

TEST(Ellipses, LargerThanCanBeWalkedStillFill)
{
    Canvas c(50, 50);
    const Selected brush(c.dc, CreateSolidBrush(white));
    EXPECT_TRUE(Ellipse(c.dc, -2000000000, -2000000000, 2000000000, 2000000000));
    EXPECT_EQ(c.count(), 2500);
    PatBlt(c.dc, 0, 0, 50, 50, BLACKNESS);
    // The left end of a large circle touches the column 25.
    EXPECT_TRUE(Ellipse(c.dc, 25, -1000000000, 2000000025, 1000000000));
    EXPECT_EQ(c.at(20, 25), 0u);
    EXPECT_NE(c.at(40, 25), 0u);
}

TEST(Ellipses, LargerThanCanBeWalkedAreDrawnWithAHugePen)
{
    Canvas c(8, 8);
    const Selected pen(c.dc, CreatePen(PS_SOLID, 1 << 27, RGB(255, 255, 255)));
    EXPECT_TRUE(Ellipse(c.dc, -1000000, -100000000, 1000000, 100000000));
    EXPECT_EQ(c.count(), 64);
}

TEST(Ellipses, TurnWithTheWorld)
{
    Canvas c(60, 60);
    const Selected pen(c.dc, CreatePen(PS_SOLID, 1, white));
    SelectObject(c.dc, GetStockObject(NULL_BRUSH));
    SetGraphicsMode(c.dc, GM_ADVANCED);
    const XFORM turn{0, 1, -1, 0, 30, 30};
    SetWorldTransform(c.dc, &turn);
    Ellipse(c.dc, -20, -8, 20, 8);
    int left = 60, right = 0, top = 60, bottom = 0;
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 60; ++x)
            if (c.at(x, y))
            {
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
    EXPECT_EQ(right - left, 16);
    EXPECT_EQ(bottom - top, 40);
}

TEST(Arcs, WithEqualRaysLeaveOutOnePixelOfTheOutline)
{
    for (int size = 5; size < 40; ++size)
    {
        Canvas arc(45, 45), outline(45, 45);
        for (Canvas* const c : {&arc, &outline})
        {
            SelectObject(c->dc, GetStockObject(WHITE_PEN));
            SelectObject(c->dc, GetStockObject(NULL_BRUSH));
        }
        Ellipse(outline.dc, 1, 1, 1 + size, 1 + size);
        Arc(arc.dc, 1, 1, 1 + size, 1 + size, 1 + size, 1 + size, 1 + size, 1 + size);
        EXPECT_EQ(arc.count(), outline.count() - 1) << size;
    }
}

TEST(Arcs, RunCounterClockwiseOnTheScreen)
{
    Canvas c(21, 21);
    SelectObject(c.dc, GetStockObject(WHITE_PEN));
    Arc(c.dc, 0, 0, 21, 21, 30, 10, -10, 10); // from the right over the top to the left
    EXPECT_NE(c.at(10, 0), 0u);
    EXPECT_EQ(c.at(10, 20), 0u);
}

TEST(Pixels, SetAndGetUseTheMappingAndTheClip)
{
    Canvas c(8, 8, 32);
    SetViewportOrgEx(c.dc, 2, 2, nullptr);
    EXPECT_EQ(SetPixel(c.dc, 1, 1, RGB(1, 2, 3)), RGB(1, 2, 3));
    EXPECT_EQ(c.at(3, 3), 0x010203u);
    EXPECT_EQ(GetPixel(c.dc, 1, 1), RGB(1, 2, 3));
    EXPECT_EQ(GetPixel(c.dc, -3, 0), CLR_INVALID);
    IntersectClipRect(c.dc, 3, 3, 5, 5);
    SetPixel(c.dc, 0, 0, white);
    EXPECT_EQ(c.at(2, 2), 0u);
}

TEST(Pens, InsideAFrameStayInside)
{
    Canvas c(20, 20);
    const Selected pen(c.dc, CreatePen(PS_INSIDEFRAME, 5, white));
    SelectObject(c.dc, GetStockObject(NULL_BRUSH));
    Rectangle(c.dc, 2, 2, 18, 18);
    for (int i = 0; i < 20; ++i)
    {
        EXPECT_EQ(c.at(1, i), 0u);
        EXPECT_EQ(c.at(18, i), 0u);
    }
    EXPECT_NE(c.at(2, 10), 0u);
    EXPECT_NE(c.at(17, 10), 0u);
}

TEST(Pens, CosmeticDashesPaintTheirGapsOnAnOpaqueBackground)
{
    Canvas c(24, 1);
    const Selected pen(c.dc, CreatePen(PS_DASH, 1, white));
    SetBkColor(c.dc, RGB(7, 7, 7));
    LineTo(c.dc, 24, 0);
    EXPECT_EQ(c.at(17, 0), 255u);
    EXPECT_EQ(c.at(18, 0), 7u);
    PatBlt(c.dc, 0, 0, 24, 1, BLACKNESS);
    SetBkMode(c.dc, TRANSPARENT);
    MoveToEx(c.dc, 0, 0, nullptr);
    LineTo(c.dc, 24, 0);
    EXPECT_EQ(c.at(18, 0), 0u);
}

TEST(Pens, OfEnormousWidthCoverEverythingNear)
{
    Canvas c(30, 30);
    const Selected pen(c.dc, CreatePen(PS_SOLID, INT32_MAX, white));
    MoveToEx(c.dc, 5, 5, nullptr);
    EXPECT_TRUE(LineTo(c.dc, 9, 7));
    EXPECT_EQ(c.count(), 900);
}
