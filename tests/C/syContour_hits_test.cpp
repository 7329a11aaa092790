// Matches of outline, vertices and edges, the inside test, multiples of Pi, and samples of round figures.
#include "C/syContour.h"

#include "tests/C/contour_figures.h"

#include <gtest/gtest.h>

#include <limits>

using namespace figures;
using Match = KvN::KvTPair<long>;

namespace
{
constexpr double largest = std::numeric_limits<double>::max();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// The test of one segment, spelled out.
bool Crosses(const KvVec2d& a, const KvVec2d& b, const KvVec2d& p, double tolerance)
{
    const double h = tolerance * 0.5;
    return KvContour::LinesIntersect(a, b, {p.x - h, p.y - h}, {p.x + h, p.y + h}) ||
           KvContour::LinesIntersect(a, b, {p.x - h, p.y + h}, {p.x + h, p.y - h});
}

// The walk over a list by index, spelled out.
Match FirstCrossed(const KvTList<KvVec2d>& points, const KvVec2d& p, double tolerance, bool closed)
{
    const int edges = closed ? points.count : points.count - 1;
    for (int i = 0; i < edges; ++i)
    {
        const int next = (i + 1) % points.count;
        const KvVec2d a = points[i], b = points[next];
        if (Crosses(a, b, p, tolerance))
            return {i, next};
    }
    return {-1, -1};
}

void ExpectLikeReference(const KvTList<KvVec2d>& points, const KvVec2d& p, double tolerance)
{
    for (const int closed : {0, 1})
    {
        const Match expected = FirstCrossed(points, p, tolerance, closed);
        EXPECT_EQ(KvContour::GetLineMatch(points, p, tolerance, closed), expected);
        EXPECT_EQ(KvContour::IsMatch(points, p, tolerance, closed), expected.first >= 0);
    }
}
} // namespace

TEST(ContourMatch, OfASegmentAsksForTheDiagonalsOfASquare)
{
    EXPECT_EQ(KvContour::IsMatch({0, 0}, {10, 0}, {5, 2}, 5), 1);
    EXPECT_EQ(KvContour::IsMatch({0, 0}, {10, 0}, {5, 2}, 3), 0) << "the square reaches to y = 0.5 only";
    EXPECT_EQ(KvContour::IsMatch({0, 0}, {10, 0}, {5, 1.5}, 3), 1) << "touching a corner counts";
}

TEST(ContourMatch, AShortSegmentBetweenTheDiagonalsDoesNotMatchAsRequired)
{
    EXPECT_EQ(KvContour::IsMatch({4.9, -3}, {5.1, -3}, {5, 0}, 10), 0);
    EXPECT_EQ(KvContour::IsMatch({4.9, -3}, {5.1, 0.2}, {5, 0}, 10), 1);
}

TEST(ContourMatch, OfACollinearDiagonal)
{
    EXPECT_EQ(KvContour::IsMatch({-3, -3}, {3, 3}, {0, 0}, 2), 1);
    EXPECT_EQ(KvContour::IsMatch({5, 5}, {9, 9}, {0, 0}, 2), 0);
    EXPECT_EQ(KvContour::IsMatch({-9, -9}, {-5, -5}, {0, 0}, 2), 0);
    EXPECT_EQ(KvContour::IsMatch({-9, 9}, {-5, 5}, {0, 0}, 2), 0);
}

TEST(ContourMatch, OfAListFindsTheFirstEdge)
{
    const auto points = List({{0, 0}, {0, 5}, {10, 5}, {10, 0}});
    EXPECT_EQ(KvContour::GetLineMatch(points, {0, 5}, 1, 1), Match(0, 1)) << "both edges match at a corner";
    EXPECT_EQ(KvContour::GetLineMatch(points, {5, 5}, 1, 1), Match(1, 2));
    EXPECT_EQ(KvContour::GetLineMatch(points, {5, 0}, 1, 1), Match(3, 0));
    EXPECT_EQ(KvContour::GetLineMatch(points, {5, 0}, 1, 0), Match(-1, -1));
    EXPECT_EQ(KvContour::GetLineMatch(points, {5, 2.5}, 1, 1), Match(-1, -1));
    EXPECT_EQ(KvContour::IsMatch(points, {5, 0}, 1, 7), 1) << "any non-zero value closes";
    EXPECT_EQ(KvContour::IsMatch(points, {5, 0}, 1, 0), 0);
}

TEST(ContourMatch, OfShortLists)
{
    const auto none = List({}), one = List({{3, 3}});
    EXPECT_EQ(KvContour::IsMatch(none, {3, 3}, 5, 1), 0);
    EXPECT_EQ(KvContour::IsMatch(none, {3, 3}, 5, 0), 0);
    EXPECT_EQ(KvContour::IsMatch(one, {3, 3}, 5, 0), 0);
    EXPECT_EQ(KvContour::IsMatch(one, {3, 3}, 5, 1), 0) << "an edge without extent crosses no diagonal";
    EXPECT_EQ(KvContour::GetPointMatch(none, {3, 3}, 5), -1);
}

TEST(ContourMatch, WalksLeaveTheCursorOrPutItWhereIndexingStaysRight)
{
    auto points = List({{0, 0}, {0, 5}, {10, 5}, {10, 0}});
    EXPECT_EQ(KvContour::GetLineMatch(points, {5, 5}, 1, 1), Match(1, 2));
    for (const int i : {3, 0, 2, 1})
        EXPECT_EQ(points[i].x, Points(points)[static_cast<size_t>(i)].first);
}

TEST(ContourMatch, AgreesWithTheSpelledOutTestOnRandomFigures)
{
    Random random(11);
    int hits = 0;
    for (int round = 0; round < 3000; ++round)
    {
        const KvContour figure = RandomFigure(random, allTypes[round % 4]);
        const auto& points = figure.CurvePositions();
        const int i = random.Int(0, points.count - 1);
        const KvVec2d a = points[i], b = points[(i + 1) % points.count];
        const double along = random.In(-0.1, 1.1), tolerance = random.In(0.01, 20.0);
        const KvVec2d p = a + (b - a) * along + random.Point(tolerance);
        ExpectLikeReference(points, p, tolerance);
        hits += figure.IsMatch(p, tolerance);
    }
    EXPECT_GT(hits, 500);
}

TEST(ContourMatch, AgreesWithTheSpelledOutTestOnSmallIntegersWhereEverythingIsCollinear)
{
    Random random(12);
    for (int round = 0; round < 20000; ++round)
    {
        const auto at = [&] { return KvVec2d(random.Int(-4, 4), random.Int(-4, 4)); };
        ExpectLikeReference(List({at(), at(), at()}), at(), random.Int(-3, 6));
    }
}

TEST(ContourMatch, AgreesWithTheSpelledOutTestOnExtremeNumbers)
{
    Random random(13);
    constexpr double odd[] = {0.0,   -0.0,   1.0,     -1.0,     1e-308,   5e-324,    1e154,
                              1e155, -1e200, largest, -largest, infinity, notANumber};
    for (int round = 0; round < 20000; ++round)
    {
        const auto number = [&] { return odd[random.Int(0, 12)]; };
        const auto at = [&]
        {
            const double x = number();
            return KvVec2d(x, number());
        };
        ExpectLikeReference(List({at(), at(), at()}), at(), number());
    }
}

TEST(ContourPointMatch, IsStrict)
{
    const auto points = List({{0, 0}, {10, 0}});
    EXPECT_EQ(KvContour::GetPointMatch(points, {3, 4}, 5), -1);
    EXPECT_EQ(KvContour::GetPointMatch(points, {3, 4}, 5.0000001), 0);
    EXPECT_EQ(KvContour::GetPointMatch(points, {0, 0}, 0), -1);
    EXPECT_EQ(KvContour::GetPointMatch(points, {0, 0}, notANumber), -1);
}

TEST(ContourPointMatch, TakesTheFirstPointNotTheNearest)
{
    EXPECT_EQ(Rectangle10x5().GetPointMatch({10, 0}, 20), 0);
    EXPECT_EQ(Rectangle10x5().GetPointMatch({10, 0}, 2), 3);
}

TEST(ContourPointMatch, IsTheSameForEveryType)
{
    for (const auto type : {KvContour::eEllipse, KvContour::eCircle, KvContour::ePolyline, foreignType, negativeType})
        EXPECT_EQ(Figure(type, {{0, 0}, {10, 0}, {0, 5}}).GetPointMatch({10, 1}, 2), 1);
}

TEST(ContourMatch, DispatchesByType)
{
    const std::initializer_list<KvVec2d> points = {{0, 0}, {0, 5}, {10, 5}, {10, 0}};
    for (const auto type : {KvContour::eRectangle, KvContour::ePolygon, KvContour::eSquare})
    {
        EXPECT_EQ(Figure(type, points).GetLineMatch({5, 0}, 1), Match(3, 0));
        EXPECT_EQ(Figure(type, points).IsMatch({5, 0}, 1), 1);
    }
    const KvContour line = Figure(KvContour::ePolyline, points);
    EXPECT_EQ(line.GetLineMatch({5, 0}, 1), Match(-1, -1));
    EXPECT_EQ(line.GetLineMatch({5, 5}, 1), Match(1, 2));
    EXPECT_EQ(line.IsMatch({5, 0}, 1), 0);
    EXPECT_EQ(line.IsMatch({5, 5}, 1), 1);
    for (const auto type : {KvContour::eEllipse, KvContour::eCircle, foreignType, negativeType})
        EXPECT_EQ(Figure(type, points).GetLineMatch({5, 5}, 1), Match(-1, -1));
    for (const auto type : {foreignType, negativeType})
        EXPECT_EQ(Figure(type, points).IsMatch({0, 0}, 1), 0);
}

TEST(ContourMatch, OfACircleIsARing)
{
    KvContour circle;
    circle.MakeCircle(0, 0, 10);
    EXPECT_EQ(circle.IsMatch({0, 10.5}, 1), 1);
    EXPECT_EQ(circle.IsMatch({0, 9.5}, 1), 1);
    EXPECT_EQ(circle.IsMatch({0, 11}, 1), 0) << "exactly tolerance away";
    EXPECT_EQ(circle.IsMatch({0, 9}, 1), 0);
    EXPECT_EQ(circle.IsMatch({0, 0}, 1), 0);
    EXPECT_EQ(circle.IsMatch({0, 0}, 10.5), 1);
}

TEST(ContourMatch, OfAnEllipseIsARingInAStretchedFrame)
{
    KvContour ellipse;
    ellipse.MakeEllipse(100, 100, 0.0, 40, 10);
    EXPECT_EQ(ellipse.IsMatch({140, 100}, 1), 1);
    EXPECT_EQ(ellipse.IsMatch({100, 110}, 1), 1);
    EXPECT_EQ(ellipse.IsMatch({100, 100}, 1), 0);
    EXPECT_EQ(ellipse.IsMatch({145, 100}, 1), 0);
    // The factors are 40/10 and 10/10: the shorter axis is stretched fourfold, its tolerance shrinks accordingly.
    EXPECT_EQ(ellipse.IsMatch({140.9, 100}, 1), 1);
    EXPECT_EQ(ellipse.IsMatch({100, 110.2}, 1), 1);
    EXPECT_EQ(ellipse.IsMatch({100, 110.3}, 1), 0);
}

TEST(ContourMatch, OfATurnedEllipseFollowsItsOutline)
{
    Random random(14);
    for (int round = 0; round < 200; ++round)
    {
        KvContour ellipse;
        ellipse.MakeEllipse(random.Point(), random.In(0, 6), random.In(5, 300), random.In(5, 300));
        KvTList<KvVec2d> samples;
        ASSERT_EQ(ellipse.CreateSegments(0, KvMath::TwoPi, 16, samples), 1);
        for (const auto* node = samples.head; node; node = node->next)
        {
            EXPECT_EQ(ellipse.IsMatch(node->value, 1e-6), 1);
            const KvVec2d out = node->value - ellipse.GetCMS();
            EXPECT_EQ(ellipse.IsPointInContour(ellipse.GetCMS() + out * 0.999), 1);
            EXPECT_EQ(ellipse.IsPointInContour(ellipse.GetCMS() + out * 1.001), 0);
        }
    }
}

TEST(ContourMatch, OfATinyEllipseIsNotDivided)
{
    KvContour ellipse;
    ellipse.MakeEllipse(0, 0, 0, 1.5, 0.5);
    // Factors 0.5 along the first axis and 1.5 along the second make a circle of radius 0.75.
    EXPECT_EQ(ellipse.IsMatch({1.5, 0}, 0.01), 1);
    EXPECT_EQ(ellipse.IsMatch({1.55, 0}, 0.01), 0) << "0.025 outside of the circle";
    EXPECT_EQ(ellipse.IsMatch({1.51, 0}, 0.01), 1);
}

TEST(ContourMatch, OfAnInvalidRoundFigureIsItsFirstPoint)
{
    for (const auto type : {KvContour::eEllipse, KvContour::eCircle})
    {
        EXPECT_EQ(Figure(type, {{3, 3}}).IsMatch({3, 5}, 2.5), 1);
        EXPECT_EQ(Figure(type, {{3, 3}}).IsMatch({3, 5}, 2), 0);
        EXPECT_EQ(Figure(type, {{3, 3}, {3, 3}, {3, 3}}).IsMatch({3, 4}, 2), 1);
        EXPECT_EQ(Figure(type, {}).IsMatch({0, 0}, 2), 0);
    }
}

TEST(ContourInside, IsNowhereInAPolygonAsRequired)
{
    Random random(15);
    EXPECT_EQ(Rectangle10x5().IsPointInContour({5, 2.5}), 0);
    for (int round = 0; round < 400; ++round)
    {
        const KvContour figure = RandomFigure(random, allTypes[round % 4]);
        EXPECT_EQ(figure.IsPointInContour(figure.GetCMS()), 0);
        EXPECT_EQ(KvContour::IsPointInPoly(figure.CurvePositions(), random.Point()), 0);
    }
    EXPECT_EQ(KvContour::IsPointInPoly(List({}), {0, 0}), 0);
}

TEST(ContourInside, OfACircleEndsBeforeItsCircumference)
{
    KvContour circle;
    circle.MakeCircle(1, 1, 5);
    EXPECT_EQ(circle.IsPointInContour({1, 1}), 1);
    EXPECT_EQ(circle.IsPointInContour({1, 5.9}), 1);
    EXPECT_EQ(circle.IsPointInContour({1, 6}), 0);
    circle.CurvePositions()[1] = {1, 1};
    EXPECT_EQ(circle.IsPointInContour({1, 1}), 0) << "invalid";
}

TEST(ContourInside, OfAnEllipseEndsAtItsOutline)
{
    KvContour ellipse;
    ellipse.MakeEllipse(0, 0, 0, 40, 10);
    EXPECT_EQ(ellipse.IsPointInContour({0, 0}), 1);
    EXPECT_EQ(ellipse.IsPointInContour({39, 0}), 1);
    EXPECT_EQ(ellipse.IsPointInContour({0, 9}), 1);
    EXPECT_EQ(ellipse.IsPointInContour({0, 11}), 0);
    EXPECT_EQ(ellipse.IsPointInContour({30, 9}), 0);
    EXPECT_EQ(Figure(KvContour::eEllipse, {{0, 0}, {5, 0}, {0, 0}}).IsPointInContour({0, 0}), 0);
}

TEST(ContourInside, OfOtherTypesIsNothing)
{
    for (const auto type : {KvContour::ePolyline, foreignType, negativeType})
        EXPECT_EQ(Figure(type, {{0, 0}, {0, 5}, {10, 5}, {10, 0}}).IsPointInContour({5, 2.5}), 0);
}

TEST(ContourPi, MultiplesAreRecognisedFromAboveOnly)
{
    EXPECT_EQ(KvContour::IsMultipleOfPi(0.0), 1);
    EXPECT_EQ(KvContour::IsMultipleOfPi(KvMath::Pi), 1);
    EXPECT_EQ(KvContour::IsMultipleOfPi(-KvMath::TwoPi), 1);
    EXPECT_EQ(KvContour::IsMultipleOfPi(KvMath::Pi + 1e-10), 1);
    EXPECT_EQ(KvContour::IsMultipleOfPi(KvMath::Pi - 1e-10), 0);
    EXPECT_EQ(KvContour::IsMultipleOfPi(1.0), 0);
}

TEST(ContourPi, CountsWithSignAndRest)
{
    double rest = 99.0;
    EXPECT_EQ(KvContour::NumPi(7.0, rest), 2);
    EXPECT_EQ(rest, 7.0 - 2.0 * KvMath::Pi);
    EXPECT_EQ(KvContour::NumPi(-7.0, rest), -2);
    EXPECT_EQ(rest, -(7.0 - 2.0 * KvMath::Pi));
    EXPECT_EQ(KvContour::NumPi(0.0, rest), 0);
    EXPECT_EQ(rest, 0.0);
    EXPECT_EQ(KvContour::NumPi(largest, rest), std::numeric_limits<long>::max());
    EXPECT_EQ(KvContour::NumPi(-largest, rest), -std::numeric_limits<long>::max());
    EXPECT_EQ(KvContour::NumPi(notANumber, rest), std::numeric_limits<long>::max());
}

TEST(ContourSegments, OfAFullTurnAreOneMoreThanSteps)
{
    KvContour ellipse;
    ellipse.MakeEllipse(7, 8, 0, 5, 2);
    KvTList<KvVec2d> out = List({{1, 1}});
    EXPECT_EQ(ellipse.CreateSegments(0.0, KvMath::TwoPi, 100, out), 1);
    EXPECT_EQ(out.count, 101);
    EXPECT_EQ(Points(List({out[0]})), (Pairs{{12, 8}}));
    EXPECT_NEAR((out[100] - out[0]).Length(), 0.0, 1e-12) << "the last one closes the figure";
    EXPECT_GT(out[1].y, 8.0) << "they run towards growing y";
}

TEST(ContourSegments, FollowTheStatedFormulaToTheBit)
{
    KvContour ellipse;
    ellipse.MakeEllipse(7, 8, 0, 5, 2);
    KvTList<KvVec2d> out;
    ASSERT_EQ(ellipse.CreateSegments(0.3, 2.0, -36, out), 1);
    const double step = KvMath::TwoPi / 36;
    ASSERT_EQ(out.count, static_cast<int>((2.0 - 0.3) / step) + 2);
    for (int i = 0; i < out.count; ++i)
    {
        const double t = i == 0 ? 0.3 : i == out.count - 1 ? 2.0 : i * step + 0.3;
        EXPECT_EQ(out[i].x, 5 * std::cos(t) + 7);
        EXPECT_EQ(out[i].y, 2 * std::sin(t) + 8);
    }
}

TEST(ContourSegments, OfHalfACircleEndExactlyAtPi)
{
    KvContour circle;
    circle.MakeCircle(0, 0, 10);
    KvTList<KvVec2d> out;
    EXPECT_EQ(circle.CreateSegments(0.0, KvMath::Pi, 50, out), 1);
    EXPECT_EQ(out[out.count - 1].x, 10 * std::cos(KvMath::Pi));
    EXPECT_EQ(out[out.count - 1].y, 10 * std::sin(KvMath::Pi));
    for (const auto* node = out.head; node; node = node->next)
        EXPECT_NEAR(node->value.Length(), 10.0, 1e-12);
}

TEST(ContourSegments, OfATurnedEllipseStartAtItsFirstAxis)
{
    KvContour ellipse;
    ellipse.MakeEllipse(7, 8, 0.9, 5, 2);
    KvTList<KvVec2d> out;
    EXPECT_EQ(ellipse.CreateSegments(0.0, KvMath::TwoPi, 4, out), 1);
    EXPECT_NEAR((out[0] - ellipse.CurvePositions()[1]).Length(), 0.0, 1e-12);
    EXPECT_NEAR((out[1] - ellipse.CurvePositions()[2]).Length(), 0.0, 1e-12);
}

TEST(ContourSegments, TakeASkewSecondAxisAsPerpendicular)
{
    KvTList<KvVec2d> out;
    EXPECT_EQ(
        Figure(KvContour::eEllipse, {{0, 0}, {5, 0}, {2, 0}}).CreateSegments(KvMath::Pi / 2, KvMath::Pi / 2, 4, out),
        1);
    EXPECT_EQ(out.count, 2);
    EXPECT_EQ(out[0].y, 2.0);
}

TEST(ContourSegments, OfOtherFiguresAreNone)
{
    KvTList<KvVec2d> out = List({{1, 1}});
    EXPECT_EQ(Rectangle10x5().CreateSegments(0, 1, 10, out), 0);
    EXPECT_EQ(out.count, 0);
    out = List({{1, 1}});
    EXPECT_EQ(Figure(KvContour::eCircle, {{1, 1}, {1, 1}}).CreateSegments(0, 1, 10, out), 0);
    EXPECT_EQ(out.count, 0);
}

TEST(ContourSegments, BackwardsOrWithoutStepsAreStartAndEnd)
{
    KvContour circle;
    circle.MakeCircle(0, 0, 1);
    KvTList<KvVec2d> out;
    EXPECT_EQ(circle.CreateSegments(2.0, 0.0, 10, out), 1);
    EXPECT_EQ(out.count, 2);
    EXPECT_EQ(circle.CreateSegments(0.0, 2.0, 0, out), 1) << "a step of infinity";
    EXPECT_EQ(out.count, 2);
    EXPECT_EQ(circle.CreateSegments(1e300, -1e300, 10, out), 1);
    EXPECT_EQ(out.count, 2);
}

TEST(ContourSegments, RefuseWhatNoMemoryHolds)
{
    KvContour circle;
    circle.MakeCircle(0, 0, 1);
    KvTList<KvVec2d> out;
    EXPECT_EQ(circle.CreateSegments(0.0, 1.0, std::numeric_limits<long>::max(), out), 0);
    EXPECT_EQ(circle.CreateSegments(0.0, 1.0, std::numeric_limits<long>::min(), out), 0);
    EXPECT_EQ(circle.CreateSegments(-largest, largest, 10, out), 0);
    for (const double bad : {notANumber, infinity, -infinity})
    {
        EXPECT_EQ(circle.CreateSegments(bad, 1.0, 10, out), 0);
        EXPECT_EQ(circle.CreateSegments(0.0, bad, 10, out), 0);
        EXPECT_EQ(circle.CreateSegments(0.0, bad, 0, out), 0);
    }
    EXPECT_EQ(out.count, 0);
}

TEST(ContourSegments, MayGoIntoTheFiguresOwnListWhichIsEmptiedFirst)
{
    KvContour circle;
    circle.MakeCircle(0, 0, 1);
    EXPECT_EQ(circle.CreateSegments(0, 1, 10, circle.CurvePositions()), 0);
    EXPECT_EQ(circle.CurvePositions().count, 0);
}
