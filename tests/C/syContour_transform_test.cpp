// Rigid motion about various pivots, scaling, and dragging of corners and edges.
#include "C/syContour.h"

#include "tests/C/contour_figures.h"

#include <gtest/gtest.h>

#include <limits>

using namespace figures;
using Edge = KvN::KvTPair<long>;

namespace
{
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

void ExpectNear(const KvContour& actual, const Pairs& expected, double tolerance = 1e-12)
{
    const Pairs points = Points(actual);
    ASSERT_EQ(points.size(), expected.size());
    for (size_t i = 0; i < points.size(); ++i)
    {
        EXPECT_NEAR(points[i].first, expected[i].first, tolerance) << "x of point " << i;
        EXPECT_NEAR(points[i].second, expected[i].second, tolerance) << "y of point " << i;
    }
}

KvContour UprightSquare(double side)
{
    KvContour square;
    square.MakeSquareFromDiagonal(0, 0, side, side);
    return square;
}
} // namespace

TEST(ContourMotion, RectanglesKeepTheirAngleInTheirPointsPolygonsInTheField)
{
    KvContour rect = Rectangle10x5(), polygon = Rectangle10x5();
    polygon.ContourType() = KvContour::ePolygon;
    rect.TransformCMSBased({0, 0}, 0.5);
    polygon.TransformCMSBased({0, 0}, 0.5);
    EXPECT_EQ(rect.Angle(), 0.0);
    EXPECT_NEAR(rect.RotationAngle(), 0.5, 1e-12);
    EXPECT_EQ(polygon.Angle(), 0.5);
    EXPECT_EQ(polygon.RotationAngle(), 0.5);
}

TEST(ContourMotion, TurnsAboutItsPivot)
{
    const double half = KvMath::Pi;
    KvContour cms = Rectangle10x5(), centre = Rectangle10x5(), origin = Rectangle10x5();
    cms.TransformCMSBased({1, 2}, half);
    ExpectNear(cms, {{11, 7}, {11, 2}, {1, 2}, {1, 7}});
    centre.TransformCenterBased({1, 2}, half);
    ExpectNear(centre, {{11, 7}, {11, 2}, {1, 2}, {1, 7}});
    origin.TransformOriginBased({1, 2}, half);
    ExpectNear(origin, {{1, 2}, {1, -3}, {-9, -3}, {-9, 2}});
}

TEST(ContourMotion, OfAPolylineAboutItsCentreOfMassIsAboutTheOrigin)
{
    KvContour line = Figure(KvContour::ePolyline, {{10, 10}, {20, 10}});
    line.TransformCMSBased({0, 0}, KvMath::Pi);
    ExpectNear(line, {{-10, -10}, {-20, -10}});
    line = Figure(KvContour::ePolyline, {{10, 10}, {20, 10}});
    line.TransformCenterBased({0, 0}, KvMath::Pi);
    ExpectNear(line, {{20, 10}, {10, 10}}, 1e-4); // the centroid of a rectangle that is 2 Epsilon high is that good
}

TEST(ContourMotion, OfAnInvalidFigureAboutItsCentreIsAboutTheOrigin)
{
    KvContour invalid = Figure(KvContour::eRectangle, {{1, 0}});
    invalid.TransformCenterBased({0, 0}, KvMath::Pi);
    ExpectNear(invalid, {{-1, 0}});
}

TEST(ContourMotion, FromTwoPointsBringsTheSecondToTheFirst)
{
    KvContour rect = Rectangle10x5();
    rect.TransformOriginBased({0, 0}, {7, 0}, {0, 3});
    // `to` lies a quarter turn clockwise of `from`; the figure turns counter-clockwise.
    ExpectNear(rect, {{0, 0}, {5, 0}, {5, -10}, {0, -10}});
    rect = Rectangle10x5();
    rect.TransformCMSBased({0, 0}, {5, -100}, {100, 2.5});
    ExpectNear(rect, {{2.5, 7.5}, {7.5, 7.5}, {7.5, -2.5}, {2.5, -2.5}});
    rect = Rectangle10x5();
    rect.TransformCenterBased({1, 0}, {5, -100}, {100, 2.5});
    ExpectNear(rect, {{3.5, 7.5}, {8.5, 7.5}, {8.5, -2.5}, {3.5, -2.5}});
}

TEST(ContourMotion, FromTwoPointsAddsTheDifferenceUnwrapped)
{
    KvContour polygon = Rectangle10x5();
    polygon.ContourType() = KvContour::ePolygon;
    polygon.TransformOriginBased({0, 0}, {1, -1}, {1, 1});
    EXPECT_NEAR(polygon.Angle(), KvMath::Pi / 4 - 7 * KvMath::Pi / 4, 1e-12) << "minus three quarters of a turn";
}

TEST(ContourMotion, FromAPointAtThePivotDoesNothingNotEvenTheTranslation)
{
    const KvContour original = Rectangle10x5();
    const KvVec2d centre = original.GetCMS(), away(50, 60), move(3, 4);
    const auto expectUnmoved = [&](const KvContour& c) { EXPECT_EQ(Points(c), Points(original)); };
    KvContour c = original;
    c.TransformCMSBased(move, centre, away);
    expectUnmoved(c);
    c.TransformCMSBased(move, away, centre + KvVec2d(1e-10, 0));
    expectUnmoved(c);
    c.TransformCenterBased(move, centre, away);
    expectUnmoved(c);
    c.TransformOriginBased(move, away, {0, 0});
    expectUnmoved(c);
    c.TransformOriginBased(move, away, away);
    EXPECT_EQ(Points(c), (Pairs{{3, 4}, {3, 9}, {13, 9}, {13, 4}}));
}

TEST(ContourStretch, OfARectangleActsAlongItsOwnAxes)
{
    KvContour rect = Rectangle10x5();
    rect.Stretch(2.0, 3.0);
    ExpectNear(rect, {{-5, -5}, {-5, 10}, {15, 10}, {15, -5}});
    EXPECT_EQ(rect.ContourType(), KvContour::eRectangle);
    Random random(16);
    for (int round = 0; round < 300; ++round)
    {
        KvContour turned = RandomFigure(random, KvContour::eRectangle);
        const double area = turned.GetArea(), angle = turned.RotationAngle();
        const KvVec2d centre = turned.GetCMS();
        turned.Stretch(2.0, 1.5);
        EXPECT_NEAR(turned.GetArea(), 3.0 * area, 1e-6 * area);
        EXPECT_NEAR((turned.GetCMS() - centre).Length(), 0.0, 1e-6);
        EXPECT_NEAR(std::remainder(turned.RotationAngle() - angle, KvMath::TwoPi), 0.0, 1e-9);
    }
}

TEST(ContourStretch, NegativeFactorsMirrorPolygonsOnly)
{
    KvContour plus = Rectangle10x5(), minus = Rectangle10x5();
    plus.Stretch(2.0, 2.0);
    minus.Stretch(-2.0, 2.0);
    EXPECT_EQ(Points(plus), Points(minus));
    KvContour triangle = Figure(KvContour::ePolygon, {{0, 0}, {0, 3}, {6, 0}});
    ASSERT_TRUE(triangle.IsValid());
    triangle.Stretch(-1.0, 1.0); // about (2, 1)
    ExpectNear(triangle, {{-2, 0}, {4, 3}, {4, 0}});
    EXPECT_TRUE(triangle.IsValid()) << "the order is repaired";
    KvContour ellipse;
    ellipse.MakeEllipse(1, 1, 0, 5, 2);
    ellipse.Stretch(-2.0, -3.0);
    EXPECT_EQ(Points(ellipse), (Pairs{{1, 1}, {11, 1}, {1, 7}}));
    KvContour circle;
    circle.MakeCircle(1, 1, 5);
    circle.Stretch(-2.0);
    EXPECT_EQ(Points(circle), (Pairs{{1, 1}, {11, 1}}));
}

TEST(ContourStretch, UnequalFactorsTurnASquareIntoARectangle)
{
    KvContour square = UprightSquare(10);
    square.Stretch(2.0, 1.0);
    EXPECT_EQ(square.ContourType(), 0);
    ExpectNear(square, {{-5, 0}, {-5, 10}, {15, 10}, {15, 0}});
    square = UprightSquare(10);
    square.Stretch(2.0, 2.0 + 0.5e-9);
    EXPECT_EQ(square.ContourType(), KvContour::eSquare) << "less than Epsilon apart";
    EXPECT_NEAR(square.GetArea(), 400.0, 1e-9);
}

TEST(ContourStretch, UnequalFactorsTurnACircleIntoAnEllipse)
{
    KvContour circle;
    circle.MakeCircle(3, 4, 5);
    circle.Stretch(2.0, 1.0);
    EXPECT_EQ(circle.ContourType(), KvContour::eEllipse);
    EXPECT_EQ(Points(circle), (Pairs{{3, 4}, {13, 4}, {3, 9}}));
    circle.MakeCircle(3, 4, 5);
    circle.Stretch(2.0);
    EXPECT_EQ(circle.ContourType(), KvContour::eCircle);
    EXPECT_EQ(Points(circle), (Pairs{{3, 4}, {13, 4}}));
}

TEST(ContourStretch, OfAPolygonActsInItsOwnFrame)
{
    KvContour polygon = Rectangle10x5(), upright = Rectangle10x5();
    polygon.ContourType() = upright.ContourType() = KvContour::ePolygon;
    polygon.TransformCMSBased({0, 0}, 0.8);
    polygon.Stretch(2.0, 1.0);
    EXPECT_EQ(polygon.Angle(), 0.8);
    upright.Stretch(2.0, 1.0);
    ExpectNear(upright, {{-5, 0}, {-5, 5}, {15, 5}, {15, 0}});
    upright.TransformCMSBased({0, 0}, 0.8);
    ExpectNear(polygon, Points(upright));
}

TEST(ContourStretch, OfAPolylineIsAboutTheOriginAsRequired)
{
    KvContour line = Figure(KvContour::ePolyline, {{10, 10}, {20, 10}});
    line.Stretch(2.0, 3.0);
    EXPECT_EQ(Points(line), (Pairs{{20, 30}, {40, 30}}));
}

TEST(ContourStretch, KeepsFieldsAndTolerance)
{
    KvContour polygon = Figure(KvContour::ePolygon, {{0, 0}, {0, 3}, {6, 0}});
    polygon.ID() = 4;
    polygon.SetAllowedCompareDifference(100.0);
    polygon.Stretch(2.0);
    EXPECT_EQ(polygon.ID(), 4);
    EXPECT_TRUE(polygon == Figure(KvContour::ePolygon, {{0, 0}, {0, 3}, {6, 0}}));
}

TEST(ContourStretch, DoesNothingToInvalidFiguresOrWithTinyFactors)
{
    for (const auto type : allTypes)
    {
        Random random(17);
        const KvContour original = RandomFigure(random, type);
        KvContour figure = original;
        figure.Stretch(1e-300);
        figure.Stretch(1.0, -1e-10);
        figure.Stretch(0.0, 1.0);
        EXPECT_EQ(Points(figure), Points(original));
        KvContour invalid = Figure(type, {{7, 7}});
        invalid.Stretch(2.0);
        EXPECT_EQ(Points(invalid), (Pairs{{7, 7}}));
    }
    KvContour foreign = Figure(foreignType, {{7, 7}, {8, 9}});
    foreign.Stretch(2.0);
    EXPECT_EQ(Points(foreign), (Pairs{{7, 7}, {8, 9}}));
}

TEST(ContourStretch, BackAndForthIsWhereItWas)
{
    Random random(18);
    for (int round = 0; round < 600; ++round)
    {
        KvContour figure = RandomFigure(random, allTypes[round % 6]), original(figure);
        const double factor = random.In(0.1, 10.0);
        figure.Stretch(factor);
        figure.Stretch(1.0 / factor);
        original.SetAllowedCompareDifference(1e-6);
        EXPECT_TRUE(original == figure);
        EXPECT_EQ(figure.Angle(), original.Angle());
    }
}

TEST(ContourMovePoint, OfARectangleKeepsTheOppositeCorner)
{
    KvContour rect = Rectangle10x5(); // (0,0) is opposite to index 2
    rect.MovePoint({20, 30}, 2);
    EXPECT_EQ(Points(rect), (Pairs{{0, 0}, {0, 30}, {20, 30}, {20, 0}}));
}

TEST(ContourMovePoint, OfATurnedRectangleKeepsItsAngles)
{
    Random random(19);
    for (int round = 0; round < 300; ++round)
    {
        KvContour rect = RandomFigure(random, KvContour::eRectangle);
        const long index = random.Int(0, 3);
        const auto& p = rect.CurvePositions();
        const KvVec2d opposite = p[static_cast<int>(index + 2) % 4];
        const KvVec2d target = p[static_cast<int>(index)] + random.Point(0.5);
        rect.MovePoint(target, index);
        EXPECT_EQ(Points(List({p[static_cast<int>(index)]})), Points(List({target})));
        EXPECT_EQ(Points(List({p[static_cast<int>(index + 2) % 4]})), Points(List({opposite})));
        for (int i = 0; i < 4; ++i)
            EXPECT_NEAR((p[(i + 1) % 4] - p[i]) * (p[(i + 2) % 4] - p[(i + 1) % 4]), 0.0, 1e-6);
    }
}

TEST(ContourMovePoint, OfAnUprightSquareIsSquaredUp)
{
    KvContour square = UprightSquare(5);
    square.MovePoint({10, 4}, 2);
    EXPECT_EQ(Points(square), (Pairs{{0, 0}, {0, 10}, {10, 10}, {10, 0}}));
    square.MovePoint({-3, 0}, 2);
    EXPECT_EQ(square.CurvePositions()[2].x, -3.0);
    EXPECT_EQ(square.CurvePositions()[2].y, 3.0) << "the sign of 0 counts as positive";
}

TEST(ContourMovePoint, OfATurnedSquareDoesNotKeepItSquareAsRequired)
{
    KvContour square = UprightSquare(10);
    square.TransformCMSBased({0, 0}, 0.3);
    square.MovePoint(square.CurvePositions()[2] + KvVec2d(5, 0), 2);
    const auto& p = square.CurvePositions();
    EXPECT_GT(std::abs((p[1] - p[0]).Length() - (p[3] - p[0]).Length()), 1.0);
}

TEST(ContourMovePoint, OfAPolygonMovesThatPointAlone)
{
    KvContour polygon = Figure(KvContour::ePolygon, {{0, 0}, {0, 5}, {5, 5}});
    polygon.MovePoint({-9, -9}, 1);
    EXPECT_EQ(Points(polygon), (Pairs{{0, 0}, {-9, -9}, {5, 5}})) << "clockwise now, and left so";
}

TEST(ContourMovePoint, IgnoresBadIndicesAndOtherTypes)
{
    KvContour rect = Rectangle10x5();
    for (const long index : {-1l, 4l, std::numeric_limits<long>::max(), std::numeric_limits<long>::min()})
        rect.MovePoint({7, 7}, index);
    EXPECT_EQ(Points(rect), Points(Rectangle10x5()));
    for (const auto type : {KvContour::ePolyline, KvContour::eEllipse, KvContour::eCircle, foreignType})
    {
        KvContour figure = Figure(type, {{0, 0}, {0, 5}, {5, 5}});
        figure.MovePoint({7, 7}, 1);
        EXPECT_EQ(Points(figure), (Pairs{{0, 0}, {0, 5}, {5, 5}}));
    }
    KvContour empty;
    empty.MovePoint({7, 7}, 0);
    EXPECT_EQ(empty.CurvePositions().count, 0);
}

TEST(ContourMovePoint, OfAFlatRectangleUsesTheXDirection)
{
    KvContour flat = Figure(KvContour::eRectangle, {{1, 1}, {1, 1}, {1, 1}, {1, 1}});
    flat.MovePoint({5, 3}, 2);
    EXPECT_EQ(Points(flat), (Pairs{{1, 1}, {5, 1}, {5, 3}, {5, 1}}));
}

TEST(ContourMovePoint, TakesAnOwnPointAsTarget)
{
    KvContour rect = Rectangle10x5();
    rect.MovePoint(rect.CurvePositions()[3], 2);
    EXPECT_EQ(Points(rect), (Pairs{{0, 0}, {0, 0}, {10, 0}, {10, 0}}));
}

TEST(ContourMoveLine, OfARectangleKeepsTheOppositeEdge)
{
    KvContour rect = Rectangle10x5();
    rect.MoveLine({3, 12}, {1, 2});
    EXPECT_EQ(Points(rect), (Pairs{{0, 0}, {0, 12}, {10, 12}, {10, 0}}));
    rect.MoveLine({-4, 99}, {0, 1});
    EXPECT_EQ(Points(rect), (Pairs{{-4, 0}, {-4, 12}, {10, 12}, {10, 0}}));
    rect.MoveLine({4, -2}, {3, 0});
    EXPECT_EQ(Points(rect), (Pairs{{-4, -2}, {-4, 12}, {10, 12}, {10, -2}}));
}

TEST(ContourMoveLine, KeepsATurnedRectangleARectangle)
{
    Random random(20);
    for (int round = 0; round < 300; ++round)
    {
        KvContour rect = RandomFigure(random, KvContour::eRectangle);
        const int i = random.Int(0, 3);
        const auto& p = rect.CurvePositions();
        const KvVec2d target = p[i] + random.Point(0.4);
        const KvVec2d kept = p[(i + 2) % 4];
        rect.MoveLine(target, {i, (i + 1) % 4});
        EXPECT_EQ(Points(List({p[(i + 2) % 4]})), Points(List({kept})));
        EXPECT_NEAR(KvContour::DistPointToLine(p[i], p[(i + 1) % 4], target), 0.0, 1e-9);
        for (int k = 0; k < 4; ++k)
            EXPECT_NEAR((p[(k + 1) % 4] - p[k]) * (p[(k + 2) % 4] - p[(k + 1) % 4]), 0.0, 1e-6);
    }
}

TEST(ContourMoveLine, OfASquareScalesTheFarSideByItsLengthAsRequired)
{
    KvContour square = UprightSquare(10);
    square.MoveLine({3, 12}, {1, 2});
    EXPECT_EQ(Points(square), (Pairs{{0, 0}, {0, 12}, {120, 12}, {10, 0}}));
    KvContour unit = UprightSquare(1);
    unit.MoveLine({0.5, 3}, {1, 2});
    EXPECT_EQ(Points(unit), (Pairs{{0, 0}, {0, 3}, {3, 3}, {1, 0}}));
}

TEST(ContourMoveLine, IgnoresBadEdgesAndOtherTypes)
{
    KvContour rect = Rectangle10x5();
    constexpr long most = std::numeric_limits<long>::max();
    for (const Edge& edge : {Edge(-1, -1), Edge(1, 1), Edge(0, 4), Edge(4, 0), Edge(-1, 0), Edge(0, -1), Edge(most, 0)})
        rect.MoveLine({7, 7}, edge);
    EXPECT_EQ(Points(rect), Points(Rectangle10x5()));
    for (const auto type :
         {KvContour::ePolygon, KvContour::ePolyline, KvContour::eEllipse, KvContour::eCircle, foreignType})
    {
        KvContour figure = Figure(type, {{0, 0}, {0, 5}, {5, 5}});
        figure.MoveLine({7, 7}, {0, 1});
        EXPECT_EQ(Points(figure), (Pairs{{0, 0}, {0, 5}, {5, 5}}));
    }
}

TEST(ContourTransformation, SurvivesNotANumber)
{
    Random random(21);
    for (const auto type : allTypes)
    {
        KvContour figure = RandomFigure(random, type);
        const int count = figure.CurvePositions().count;
        figure.Stretch(notANumber, 2.0);
        figure.MovePoint({notANumber, notANumber}, 1);
        figure.MoveLine({notANumber, notANumber}, {0, 1});
        figure.TransformCenterBased({notANumber, 0}, notANumber);
        figure.TransformCMSBased({0, 0}, {notANumber, 0}, {1, 1});
        EXPECT_GE(figure.CurvePositions().count, count);
        EXPECT_FALSE(figure.IsValid());
    }
}
