// Regions and clips, and that a clip only ever hides pixels.
#include "canvas.h"

#include <gtest/gtest.h>

#include <random>

namespace
{

int edges(HRGN region)
{
    const DWORD size = GetRegionData(region, 0, nullptr);
    return int((size - sizeof(RGNDATAHEADER)) / sizeof(RECT));
}

struct Region
{
    HRGN handle;
    Region(int l, int t, int r, int b) : handle(CreateRectRgn(l, t, r, b)) {}
    ~Region() { DeleteObject(handle); }
    Region(const Region&) = delete;
    Region& operator=(const Region&) = delete;
};

// Something of everything, the same for the same seed.
void drawMuch(HDC dc, HDC source, unsigned seed)
{
    std::mt19937 random(seed);
    const auto at = [&] { return int(random() % 90) - 15; };
    const HPEN thin = CreatePen(PS_SOLID, 1, RGB(255, 255, 255)), wide = CreatePen(PS_SOLID, 5, RGB(90, 90, 90));
    const HBRUSH brush = CreateSolidBrush(RGB(50, 50, 50));
    const HPEN dashed = CreatePen(PS_DASHDOT, 1, RGB(200, 200, 200));
    const HGDIOBJ oldPen = SelectObject(dc, thin), oldBrush = SelectObject(dc, brush);
    SetROP2(dc, seed % 3 == 0 ? R2_XORPEN : R2_COPYPEN);
    for (const HPEN pen : {thin, wide, dashed})
    {
        SelectObject(dc, pen);
        POINT points[5];
        for (POINT& p : points)
            p = {at(), at()};
        Polygon(dc, points, 5);
        Ellipse(dc, at(), at(), at(), at());
        Rectangle(dc, at(), at(), at(), at());
        Polyline(dc, points, 4);
        MoveToEx(dc, at(), at(), nullptr);
        LineTo(dc, at() * 1000, at() * 1000);
        Arc(dc, 5, 5, 40, 30, at(), at(), at(), at());
    }
    PatBlt(dc, at(), at(), 20, 20, PATINVERT);
    StretchBlt(dc, at(), at(), 30, 17, source, 3, 3, 11, 29, SRCCOPY);
    BitBlt(dc, at(), at(), 25, 25, source, 0, 0, SRCINVERT);
    SelectObject(dc, oldPen);
    SelectObject(dc, oldBrush);
    for (const HGDIOBJ object : {HGDIOBJ(thin), HGDIOBJ(wide), HGDIOBJ(dashed), HGDIOBJ(brush)})
        DeleteObject(object);
}

} // namespace

TEST(Regions, CombineAsSets)
{
    const Region a(0, 0, 10, 10), b(5, 5, 15, 15), result(0, 0, 0, 0);
    EXPECT_EQ(CombineRgn(result.handle, a.handle, b.handle, RGN_AND), SIMPLEREGION);
    RECT box{};
    GetRgnBox(result.handle, &box);
    EXPECT_EQ(box.left, 5);
    EXPECT_EQ(box.bottom, 10);
    EXPECT_EQ(CombineRgn(result.handle, a.handle, b.handle, RGN_OR), COMPLEXREGION);
    EXPECT_EQ(edges(result.handle), 3);
    EXPECT_EQ(CombineRgn(result.handle, a.handle, b.handle, RGN_XOR), COMPLEXREGION);
    EXPECT_FALSE(PtInRegion(result.handle, 7, 7));
    EXPECT_TRUE(PtInRegion(result.handle, 12, 12));
    EXPECT_EQ(CombineRgn(result.handle, a.handle, b.handle, RGN_DIFF), COMPLEXREGION);
    EXPECT_TRUE(PtInRegion(result.handle, 7, 2));
    EXPECT_EQ(CombineRgn(result.handle, a.handle, a.handle, RGN_DIFF), NULLREGION);
    EXPECT_EQ(CombineRgn(result.handle, a.handle, nullptr, RGN_COPY), SIMPLEREGION);
    EXPECT_TRUE(EqualRgn(result.handle, a.handle));
    EXPECT_EQ(CombineRgn(result.handle, a.handle, b.handle, 9), ERROR);
}

TEST(Regions, MayReachToTheEndsOfCoordinates)
{
    const Region all(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX), hole(-5, -5, 5, 5), result(0, 0, 0, 0);
    EXPECT_EQ(CombineRgn(result.handle, all.handle, hole.handle, RGN_DIFF), COMPLEXREGION);
    EXPECT_EQ(edges(result.handle), 4);
    EXPECT_EQ(OffsetRgn(result.handle, INT32_MAX, INT32_MAX), COMPLEXREGION);
}

TEST(Clip, TheFirstRectangleIsTakenAsItIs)
{
    Canvas c(20, 20);
    EXPECT_EQ(IntersectClipRect(c.dc, 100, 100, 120, 120), SIMPLEREGION);
    RECT box{};
    EXPECT_EQ(GetClipBox(c.dc, &box), NULLREGION);
    EXPECT_EQ(SelectClipRgn(c.dc, nullptr), SIMPLEREGION);
    EXPECT_EQ(GetClipBox(c.dc, &box), SIMPLEREGION);
    EXPECT_EQ(box.right, 20);
}

TEST(Clip, ExcludingLeavesTheRest)
{
    Canvas c(6, 4);
    EXPECT_EQ(ExcludeClipRect(c.dc, 1, 1, 5, 3), COMPLEXREGION);
    PatBlt(c.dc, 0, 0, 6, 4, WHITENESS);
    EXPECT_EQ(c.picture(), "######\n#....#\n#....#\n######\n");
    EXPECT_FALSE(PtVisible(c.dc, 2, 2));
    EXPECT_TRUE(PtVisible(c.dc, 0, 2));
    const RECT inside{2, 1, 4, 3}, across{2, 1, 9, 3};
    EXPECT_FALSE(RectVisible(c.dc, &inside));
    EXPECT_TRUE(RectVisible(c.dc, &across));
}

TEST(Clip, TakesLogicalRectanglesAndDeviceRegions)
{
    Canvas c(12, 12);
    SetViewportOrgEx(c.dc, 4, 4, nullptr);
    IntersectClipRect(c.dc, -2, -2, 2, 2);
    RECT box{};
    GetClipBox(c.dc, &box);
    EXPECT_EQ(box.left, -2);
    const Region region(3, 3, 5, 5);
    SelectClipRgn(c.dc, region.handle);
    GetClipBox(c.dc, &box);
    EXPECT_EQ(box.left, -1);
    EXPECT_EQ(box.right, 1);
}

TEST(Clip, OnlyHidesPixels)
{
    for (unsigned seed = 0; seed < 60; ++seed)
    {
        const int depth = seed % 3 == 0 ? 1 : seed % 3 == 1 ? 8 : 32;
        Canvas whole(61, 53, depth, seed % 2), clipped(61, 53, depth, seed % 2), source(40, 40, depth);
        Ellipse(source.dc, 2, 2, 39, 31);
        const Region hole(20, 10, 30, 40), part(7, 5, 50, 48), shape(0, 0, 0, 0);
        CombineRgn(shape.handle, part.handle, hole.handle, RGN_DIFF);
        drawMuch(whole.dc, source.dc, seed);
        SelectClipRgn(clipped.dc, shape.handle);
        drawMuch(clipped.dc, source.dc, seed);
        int differing = 0;
        for (int y = 0; y < 53; ++y)
            for (int x = 0; x < 61; ++x)
                differing += clipped.at(x, y) != (PtInRegion(shape.handle, x, y) ? whole.at(x, y) : 0);
        EXPECT_EQ(differing, 0) << seed;
    }
}
