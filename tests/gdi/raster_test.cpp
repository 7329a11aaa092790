// The raster core below the handles: direct drawing into 8-bit rows.
#include "platform/gdi/raster/coverage.h"
#include "platform/gdi/raster/dash.h"
#include "platform/gdi/raster/ellipse.h"
#include "platform/gdi/raster/line.h"
#include "platform/gdi/raster/polygon.h"
#include "platform/gdi/raster/wide_line.h"

#include <gtest/gtest.h>

#include <random>

using namespace kv::raster;

namespace
{

struct Mask
{
    int width, height;
    std::vector<std::uint8_t> bytes;

    Mask(int w, int h) : width(w), height(h), bytes(std::size_t(w) * std::size_t(h)) {}
    ByteFill fill(std::uint8_t value = 255) { return {{bytes.data(), width}, value}; }
    RECT all() const { return {0, 0, width, height}; }
    std::uint8_t at(int x, int y) const { return bytes[std::size_t(y) * std::size_t(width) + std::size_t(x)]; }
    bool operator==(const Mask& other) const { return bytes == other.bytes; }
};

// Counts how often pixels come, and that none lies outside its bounds.
struct Counter
{
    Mask* mask;
    RECT clip;

    void pixel(int x, int y) const
    {
        ASSERT_TRUE(x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom) << x << " " << y;
        ++mask->bytes[std::size_t(y) * std::size_t(mask->width) + std::size_t(x)];
    }
    void span(int y, int from, int to) const
    {
        ASSERT_LT(from, to);
        for (int x = from; x < to; ++x)
            pixel(x, y);
    }
    PixelCursor<Counter> cursor(int x, int y, Step major, Step minor) const { return {this, x, y, major, minor}; }
};

std::vector<POINT> randomPoints(std::mt19937& random, int count, int reach)
{
    std::vector<POINT> points;
    for (int i = 0; i < count; ++i)
        points.push_back(
            {int(random() % unsigned(2 * reach)) - reach + 50, int(random() % unsigned(2 * reach)) - reach + 50});
    return points;
}

// The definition, pixel by pixel and without clipping, in wide integers.
bool insidePolygon(const std::vector<POINT>& points, int x, int y, FillRule rule)
{
    int winding = 0;
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        POINT a = points[i], b = points[(i + 1) % points.size()];
        const int direction = a.y < b.y ? 1 : -1;
        if (a.y > b.y)
            std::swap(a, b);
        if (a.y == b.y || y < a.y || y >= b.y)
            continue;
        const __int128 height = __int128(b.y) - a.y;
        const __int128 crossing = (__int128(y) - a.y) * (__int128(b.x) - a.x); // over the height, from a.x
        winding += (__int128(x) - a.x) * height >= crossing ? direction : 0;
    }
    return rule == FillRule::Alternate ? winding % 2 != 0 : winding != 0;
}

} // namespace

TEST(Raster, PolygonsFollowTheirDefinition)
{
    std::mt19937 random(1);
    PolygonFiller filler;
    for (int i = 0; i < 300; ++i)
    {
        const int reach = i % 4 == 0 ? 60 : i % 4 == 1 ? 300 : i % 4 == 2 ? 1000000 : INT32_MAX / 2;
        const std::vector<POINT> points = randomPoints(random, 3 + i % 9, reach);
        const FillRule rule = i % 2 ? FillRule::Winding : FillRule::Alternate;
        Mask counted(100, 100);
        const RECT clip{i % 7, i % 5, 100 - i % 11, 97};
        filler.fill(Counter{&counted, clip}, clip, points, rule);
        for (int y = 0; y < 100; ++y)
            for (int x = 0; x < 100; ++x)
            {
                const bool inside = x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom &&
                                    insidePolygon(points, x, y, rule);
                ASSERT_EQ(int(counted.at(x, y)), int(inside)) << i << ": " << x << " " << y;
            }
    }
}

TEST(Raster, ClippedLinesArePartsOfWholeOnes)
{
    std::mt19937 random(2);
    for (int i = 0; i < 3000; ++i)
    {
        const std::vector<POINT> ends = randomPoints(random, 2, i % 3 == 0 ? 60 : 140);
        Mask whole(400, 400), part(400, 400);
        std::vector<POINT> moved = ends;
        for (POINT& p : moved)
            p = {p.x + 100, p.y + 100};
        line(Counter{&whole, whole.all()}, whole.all(), moved[0], moved[1]);
        const RECT clip{120, 130, 180 + i % 50, 170};
        line(Counter{&part, clip}, clip, moved[0], moved[1]);
        for (int y = clip.top; y < clip.bottom; ++y)
            for (int x = clip.left; x < clip.right; ++x)
                ASSERT_EQ(part.at(x, y), whole.at(x, y));
    }
}

TEST(Raster, LinesTakeTheNearestPixelAndTiesTheSmaller)
{
    for (const POINT end :
         {POINT{40, 17}, POINT{-40, 17}, POINT{40, -20}, POINT{17, 40}, POINT{-20, -40}, POINT{40, 40}})
    {
        Mask mask(101, 101);
        line(Counter{&mask, mask.all()}, mask.all(), {50, 50}, {50 + end.x, 50 + end.y});
        const bool flat = std::abs(end.x) >= std::abs(end.y);
        const int n = std::max(std::abs(end.x), std::abs(end.y));
        for (int k = 0; k < n; ++k)
        {
            const double across = double(flat ? end.y : end.x) * k / n;
            const int minor = 50 + int(std::ceil(across - 0.5)), major = 50 + (((flat ? end.x : end.y) < 0) ? -k : k);
            EXPECT_EQ(flat ? mask.at(major, minor) : mask.at(minor, major), 1) << end.x << " " << end.y << " " << k;
        }
    }
}

TEST(Raster, FarLinesCostNothing)
{
    Mask mask(50, 50);
    for (int i = 0; i < 100000; ++i)
        line(mask.fill(), mask.all(), {INT32_MIN, INT32_MIN + i}, {INT32_MAX, INT32_MAX - i * 3});
    SUCCEED();
}

TEST(Raster, SpansOfAllLengthsAreFilledExactly)
{
    for (int from = 0; from < 12; ++from)
        for (int length = 1; length < 60; ++length)
        {
            Mask mask(80, 1);
            mask.fill().span(0, from, from + length);
            for (int x = 0; x < 80; ++x)
                ASSERT_EQ(mask.at(x, 0), x >= from && x < from + length ? 255 : 0);
        }
}

TEST(Raster, OneBitSpansTouchOnlyTheirBits)
{
    for (int from = 0; from < 20; ++from)
        for (int to = from + 1; to < 40; ++to)
        {
            std::uint8_t row[16] = {};
            BitFill{{row, 16}, 1, 1}.span(0, from, to);
            for (int x = 0; x < 48; ++x)
                ASSERT_EQ(row[x / 8] >> (7 - x % 8) & 1, x >= from && x < to);
        }
}

TEST(Raster, CoverageEmitsEachPixelOnce)
{
    std::mt19937 random(4);
    for (int i = 0; i < 200; ++i)
    {
        const RECT area{-7, 3, -7 + 1 + int(random() % 200), 12};
        Coverage coverage;
        coverage.reset(area);
        std::vector<bool> wanted(std::size_t(area.right - area.left), false);
        for (int k = 0; k < 6; ++k)
        {
            const int a = area.left + int(random() % wanted.size()),
                      b = a + 1 + int(random() % unsigned(area.right - a));
            k % 3 == 2 ? coverage.erase(5, a, b) : coverage.span(5, a, b);
            for (int x = a; x < b; ++x)
                wanted[std::size_t(x - area.left)] = k % 3 != 2;
        }
        std::vector<int> seen(wanted.size());
        struct Collect
        {
            std::vector<int>* seen;
            int left;
            void span(int y, int from, int to) const
            {
                EXPECT_EQ(y, 5);
                for (int x = from; x < to; ++x)
                    ++(*seen)[std::size_t(x - left)];
            }
        };
        coverage.emit(Collect{&seen, area.left});
        for (std::size_t x = 0; x < seen.size(); ++x)
            ASSERT_EQ(seen[x], int(wanted[x]));
    }
}

TEST(Raster, WideLinesStayInsideTheirBounds)
{
    std::mt19937 random(6);
    PolygonFiller filler;
    for (int i = 0; i < 400; ++i)
    {
        const std::vector<POINT> points = randomPoints(random, 2 + i % 4, 40);
        const int width = 2 + i % 23;
        const RECT bounds = WidePen::bounds(points, width);
        Mask mask(200, 200);
        std::vector<POINT> moved = points;
        for (POINT& p : moved)
            p = {p.x + 50, p.y + 50};
        const RECT clip{bounds.left + 50, bounds.top + 50, bounds.right + 50, bounds.bottom + 50};
        WidePen(width).polyline(mask.fill(), mask.all(), moved, i % 2, filler);
        for (int y = 0; y < 200; ++y)
            for (int x = 0; x < 200; ++x)
                if (mask.at(x, y))
                {
                    ASSERT_TRUE(x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom);
                }
    }
}

TEST(Raster, ADashedLineShowsPixelsOfTheWholeOne)
{
    const int lengths[] = {3, 1};
    Mask whole(60, 60), dashes(60, 60), gaps(60, 60);
    line(whole.fill(), whole.all(), {3, 5}, {55, 31});
    DashPosition a(lengths), b(lengths);
    dashedLine(dashes.fill(), dashes.all(), {3, 5}, {55, 31}, a, false);
    dashedLine(gaps.fill(), gaps.all(), {3, 5}, {55, 31}, b, true);
    int on = 0;
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 60; ++x)
        {
            EXPECT_EQ(whole.at(x, y), dashes.at(x, y) | gaps.at(x, y));
            EXPECT_EQ(dashes.at(x, y) & gaps.at(x, y), 0);
            on += dashes.at(x, y) != 0;
        }
    EXPECT_EQ(on, 39);
}

TEST(Raster, FarDashesKeepTheirPlaces)
{
    // The dashes of a line that starts far outside are those of the whole line.
    const int lengths[] = {4, 4};
    Mask direct(60, 60), far(60, 60);
    DashPosition a(lengths), b(lengths);
    dashedLine(direct.fill(), direct.all(), {-800, 30}, {60, 30}, a, false);
    dashedLine(far.fill(), far.all(), {-80000000, 30}, {60, 30}, b, false);
    EXPECT_TRUE(direct == far);
}

TEST(Raster, EllipsesOfWalkedAndComputedSizeAgree)
{
    // Just beyond the size that is walked, the curve comes from its closed form: rows may differ by a pixel.
    const int size = 1 << 16;
    const RECT visible{0, 0, 60, 60};
    const Ellipse walked({10, -size / 2 + 30, 10 + size, size / 2 + 30}, visible);
    const Ellipse computed({10, -size / 2 + 29, 12 + size, size / 2 + 31}, visible);
    EXPECT_TRUE(walked.isWalked());
    EXPECT_FALSE(computed.isWalked());
    for (int i = computed.firstRow(); i < computed.endRow(); ++i)
        EXPECT_NEAR(walked.row(i).first, computed.row(i).first, 1) << i;
}
