// Turns, crossing segments, distances, and intersections with point lists.
#include "C/syContour.h"

#include "tests/C/contour_figures.h"

#include <gtest/gtest.h>

#include <limits>

using namespace figures;
using KvN::KvTPList;

namespace
{
constexpr double largest = std::numeric_limits<double>::max();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// Opens the protected support of intersection lists.
class Opened : public KvContour
{
public:
    using KvContour::Determinant;
    using KvContour::IntersectionClrFunc;
    using KvContour::IntersectionCompXMinus;
    using KvContour::IntersectionCompXPlus;
    using KvContour::IntersectionCompYMinus;
    using KvContour::IntersectionCompYPlus;
};

Pairs Crossings(const KvVec2d& a, const KvVec2d& b, const KvContour& figure, int expectedResult)
{
    KvTList<KvVec2d> out = List({{77, 77}});
    EXPECT_EQ(figure.IntersectionsLineContour(a, b, out), expectedResult);
    KvTPList<KvVec2d> pointers;
    EXPECT_EQ(figure.IntersectionsLineContour(a, b, pointers), expectedResult);
    Pairs pairs;
    for (unsigned long i = 0; i < pointers.NumEntries(); ++i)
        pairs.emplace_back(pointers.GetEntry(i)->x, pointers.GetEntry(i)->y);
    EXPECT_EQ(Points(out), pairs);
    return pairs;
}
} // namespace

TEST(ContourLines, CcwTellsTurnsAsSeenOnTheImage)
{
    const KvVec2d a(0, 0), b(10, 0);
    EXPECT_EQ(KvContour::ccw(a, b, {5, -1}), 1);
    EXPECT_EQ(KvContour::ccw(a, b, {5, 1}), -1);
    EXPECT_EQ(KvContour::ccw(a, b, {5, 0}), 0);
    EXPECT_EQ(KvContour::ccw(a, b, {20, 0}), 1) << "beyond b";
    EXPECT_EQ(KvContour::ccw(a, b, {-5, 0}), -1) << "behind a";
    EXPECT_EQ(KvContour::ccw(a, b, b), 0);
    EXPECT_EQ(KvContour::ccw(a, b, a), 0);
    EXPECT_EQ(KvContour::ccw({0, 0}, {0, 10}, {0, -1}), -1);
    EXPECT_EQ(KvContour::ccw(a, a, {5, 5}), 1) << "beyond a segment without extent";
}

TEST(ContourLines, SegmentsThatShareAnEndIntersect)
{
    EXPECT_EQ(KvContour::LinesIntersect({0, 0}, {10, 0}, {10, 0}, {20, 7}), 1);
    EXPECT_EQ(KvContour::LinesIntersect({0, 0}, {10, 0}, {5, 0}, {5, 7}), 1) << "touching";
    EXPECT_EQ(KvContour::LinesIntersect({0, 0}, {10, 10}, {0, 10}, {10, 0}), 1);
    EXPECT_EQ(KvContour::LinesIntersect({0, 0}, {10, 0}, {0, 1}, {10, 1}), 0);
    EXPECT_EQ(KvContour::LinesIntersect({0, 0}, {10, 0}, {12, -1}, {12, 1}), 0);
    EXPECT_EQ(KvContour::LinesIntersect({0, 0}, {10, 0}, {20, 0}, {30, 0}), 0) << "one behind the other";
}

TEST(ContourLines, CollinearOverlapIntersectsWithoutACrossing)
{
    KvVec2d out;
    EXPECT_EQ(KvContour::LinesIntersect({0, 0}, {10, 0}, {5, 0}, {15, 0}), 1);
    EXPECT_EQ(KvContour::LinesIntersection({0, 0}, {10, 0}, {5, 0}, {15, 0}, out), 0);
    EXPECT_EQ(out.x, largest);
    EXPECT_EQ(out.y, largest);
}

TEST(ContourLines, CrossingIsThePointOfBoth)
{
    KvVec2d out;
    EXPECT_EQ(KvContour::LinesIntersection({0, 0}, {10, 10}, {0, 8}, {8, 0}, out), 1);
    EXPECT_EQ(Points(List({out})), (Pairs{{4, 4}}));
    EXPECT_EQ(KvContour::LinesIntersection({0, 0}, {1, 1}, {0, 8}, {8, 0}, out), 0);
    EXPECT_EQ(out.x, largest);
    KvVec2d end(10, 10);
    EXPECT_EQ(KvContour::LinesIntersection({0, 0}, end, {0, 8}, {8, 0}, end), 1) << "the result may be an argument";
    EXPECT_EQ(end.x, 4.0);
}

TEST(ContourLines, CrossingOfRandomSegmentsLiesOnBoth)
{
    Random random(9);
    int found = 0;
    for (int round = 0; round < 2000; ++round)
    {
        const KvVec2d a = random.Point(), b = random.Point(), c = random.Point(), d = random.Point();
        KvVec2d out;
        if (!KvContour::LinesIntersection(a, b, c, d, out))
            continue;
        ++found;
        EXPECT_NEAR(KvContour::DistPointToLine(a, b, out), 0.0, 1e-6);
        EXPECT_NEAR(KvContour::DistPointToLine(c, d, out), 0.0, 1e-6);
    }
    EXPECT_GT(found, 100);
}

TEST(ContourLines, DistanceIsThatFromTheInfiniteLine)
{
    EXPECT_EQ(KvContour::DistPointToLine({0, 0}, {10, 0}, {5, 3}), 3.0);
    EXPECT_EQ(KvContour::DistPointToLine({0, 0}, {10, 0}, {50, 3}), 3.0);
    EXPECT_EQ(KvContour::DistPointToLine({1, 1}, {1, 1}, {4, 5}), 5.0) << "from the one point";
    EXPECT_EQ(KvContour::DistPointToLine({1, 1}, {9, 7}, {1, 1}), 0.0);
}

TEST(ContourLines, DeterminantIsTheProductsDifference)
{
    EXPECT_EQ(Opened::Determinant(2, 3, 5, 7), -1.0);
}

TEST(ContourIntersections, RunFromTheSegmentsEndBackToItsStart)
{
    EXPECT_EQ(Crossings({-5, 2}, {20, 2}, Rectangle10x5(), 1), (Pairs{{10, 2}, {0, 2}}));
    EXPECT_EQ(Crossings({20, 2}, {-5, 2}, Rectangle10x5(), 1), (Pairs{{0, 2}, {10, 2}}));
}

TEST(ContourIntersections, OfSteepSegmentsAreSortedByXAsRequired)
{
    const KvContour rect = Rectangle10x5();
    EXPECT_EQ(Crossings({4, -5}, {5, 10}, rect, 1).front().second, 5.0) << "downwards: falling x";
    EXPECT_EQ(Crossings({5, -5}, {4, 10}, rect, 1).front().second, 0.0) << "downwards, though y comes out rising";
    EXPECT_EQ(Crossings({5, 10}, {4, -5}, rect, 1).front().second, 0.0) << "upwards: growing x";
}

TEST(ContourIntersections, OfAVerticalLineKeepTheOrderOfTheEdges)
{
    EXPECT_EQ(Crossings({4, -5}, {4, 10}, Rectangle10x5(), 1), (Pairs{{4, 5}, {4, 0}}));
}

TEST(ContourIntersections, TreatPolylinesAsClosedAsRequired)
{
    const KvContour line = Figure(KvContour::ePolyline, {{0, 0}, {0, 5}, {10, 5}, {10, 0}});
    EXPECT_FALSE(line.IsMatch({5, 0}, 1.0)) << "the gap is no part of the outline";
    EXPECT_EQ(Crossings({5, -2}, {5, 2}, line, 1), (Pairs{{5, 0}}));
}

TEST(ContourIntersections, NeedALineAndACorneredFigure)
{
    EXPECT_EQ(Crossings({5, 2}, {5, 2}, Rectangle10x5(), 0), Pairs{});
    EXPECT_EQ(Crossings({5, 2}, {6, 2}, Rectangle10x5(), 0), Pairs{}) << "no crossing";
    KvTList<KvVec2d> out = List({{7, 7}});
    KvTPList<KvVec2d> pointers;
    for (const auto type : {KvContour::eEllipse, KvContour::eCircle, foreignType, negativeType})
    {
        const KvContour figure = Figure(type, {{0, 0}, {0, 5}, {10, 5}, {10, 0}});
        EXPECT_EQ(figure.IntersectionsLineContour({-5, 2}, {20, 2}, out), 0);
        EXPECT_EQ(figure.IntersectionsLineContour({-5, 2}, {20, 2}, pointers), 0);
    }
    EXPECT_EQ(out.count, 1) << "left as it was";
}

TEST(ContourIntersections, OpenListsHaveNoClosingEdge)
{
    const auto points = List({{0, 0}, {0, 5}, {10, 5}, {10, 0}});
    KvTList<KvVec2d> out;
    EXPECT_EQ(KvContour::IntersectionsLinePoly({5, -2}, {5, 2}, points, out, 0), 0);
    EXPECT_EQ(out.count, 0);
    EXPECT_EQ(KvContour::IntersectionsLinePoly({5, -2}, {5, 2}, points, out, 1), 1);
    EXPECT_EQ(out.count, 1);
}

TEST(ContourIntersections, EmptyTheirListEvenWhereTheSegmentStandsInIt)
{
    const KvContour rect = Rectangle10x5();
    KvTList<KvVec2d> out = List({{-5, 2}, {20, 2}});
    EXPECT_EQ(rect.IntersectionsLineContour(out[0], out[1], out), 1);
    EXPECT_EQ(Points(out), (Pairs{{10, 2}, {0, 2}}));
    KvTPList<KvVec2d> pointers;
    EXPECT_EQ(rect.IntersectionsLineContour({-5, 2}, {20, 2}, pointers), 1);
    EXPECT_EQ(rect.IntersectionsLineContour(*pointers.GetEntry(0), *pointers.GetEntry(1), pointers), 1);
    EXPECT_EQ(pointers.NumEntries(), 2u);
}

TEST(ContourIntersections, CompareFunctionsLookAtXOnly)
{
    KvVec2d small(1, 9), large(2, 3), nowhere(notANumber, 0);
    EXPECT_EQ(Opened::IntersectionCompXPlus(&large, &small), -1);
    EXPECT_EQ(Opened::IntersectionCompXPlus(&small, &large), 1);
    EXPECT_EQ(Opened::IntersectionCompXPlus(&small, &small), 0);
    EXPECT_EQ(Opened::IntersectionCompXMinus(&large, &small), 1);
    EXPECT_EQ(Opened::IntersectionCompXMinus(&small, &large), -1);
    EXPECT_EQ(Opened::IntersectionCompYPlus(&large, &small), -1);
    EXPECT_EQ(Opened::IntersectionCompYPlus(&small, &large), 1);
    EXPECT_EQ(Opened::IntersectionCompYMinus(&large, &small), 1);
    EXPECT_EQ(Opened::IntersectionCompYMinus(&small, &large), -1);
    EXPECT_EQ(Opened::IntersectionCompYMinus(&nowhere, &large), 0);
    Opened::IntersectionClrFunc(new KvVec2d);
}

TEST(ContourIntersections, OfRandomFiguresAreSortedAndOnTheLine)
{
    Random random(10);
    int found = 0;
    for (int round = 0; round < 500; ++round)
    {
        const KvContour figure = RandomFigure(random, allTypes[round % 4]);
        const KvVec2d a = random.Point(), b = random.Point();
        KvTList<KvVec2d> out;
        if (!figure.IntersectionsLineContour(a, b, out))
            continue;
        found += out.count;
        for (const auto* node = out.head; node; node = node->next)
        {
            EXPECT_NEAR(KvContour::DistPointToLine(a, b, node->value), 0.0, 1e-6);
            if (!node->next || std::abs((b - a).Unit().x) < 0.707)
                continue;
            EXPECT_EQ(node->value.x >= node->next->value.x, b.x > a.x);
        }
    }
    EXPECT_GT(found, 100);
}
