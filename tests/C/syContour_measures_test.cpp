// Radius, semi-axes, rotation, boxes, bounding rectangles, and the axis form of a rectangle.
#include "C/syContour.h"

#include "tests/C/contour_figures.h"

#include <gtest/gtest.h>

#include <limits>

using namespace figures;

namespace
{
constexpr double largest = std::numeric_limits<double>::max();
using Box = KvN::KvTRectangle<double>;

Box BoxOf(const KvContour& figure, int expectedResult)
{
    Box box(1, 2, 3, 4);
    EXPECT_EQ(figure.MakeBoundingBox(box), expectedResult);
    return box;
}

void ExpectBox(const Box& box, double left, double top, double right, double bottom)
{
    EXPECT_EQ(box.left, left);
    EXPECT_EQ(box.top, top);
    EXPECT_EQ(box.right, right);
    EXPECT_EQ(box.bottom, bottom);
}
} // namespace

TEST(ContourMeasures, RadiusBelongsToValidCirclesOnly)
{
    EXPECT_EQ(Figure(KvContour::eCircle, {{1, 1}, {4, 5}}).Radius(), 5.0);
    EXPECT_EQ(Figure(KvContour::eCircle, {{1, 1}, {1, 1}}).Radius(), 0.0);
    EXPECT_EQ(Figure(KvContour::eCircle, {{1, 1}}).Radius(), 0.0);
    EXPECT_EQ(Figure(KvContour::eEllipse, {{1, 1}, {4, 5}, {1, 3}}).Radius(), 0.0);
    EXPECT_EQ(Rectangle10x5().Radius(), 0.0);
}

TEST(ContourMeasures, SemiAxesBelongToValidEllipsesAndCircles)
{
    const KvContour ellipse = Figure(KvContour::eEllipse, {{1, 1}, {4, 5}, {1, 3}});
    EXPECT_EQ(ellipse.SemiAxisLength1(), 5.0);
    EXPECT_EQ(ellipse.SemiAxisLength2(), 2.0);
    const KvContour circle = Figure(KvContour::eCircle, {{1, 1}, {4, 5}});
    EXPECT_EQ(circle.SemiAxisLength1(), 5.0);
    EXPECT_EQ(circle.SemiAxisLength2(), circle.Radius());
    const KvContour flat = Figure(KvContour::eEllipse, {{1, 1}, {4, 5}, {1, 1}});
    EXPECT_EQ(flat.SemiAxisLength1(), 0.0);
    EXPECT_EQ(flat.SemiAxisLength2(), 0.0);
    EXPECT_EQ(Rectangle10x5().SemiAxisLength1(), 0.0);
    EXPECT_EQ(Rectangle10x5().SemiAxisLength2(), 0.0);
}

TEST(ContourRotation, OfARectangleComesFromItsPoints)
{
    KvContour rect = Rectangle10x5();
    EXPECT_EQ(rect.RotationAngle(), 0.0);
    rect.Transform({3, 3}, {0, 0}, 0.5);
    EXPECT_NEAR(rect.RotationAngle(), 0.5, 1e-12);
    rect.Transform({3, 3}, {0, 0}, -1.0);
    EXPECT_NEAR(rect.RotationAngle(), KvMath::TwoPi - 0.5, 1e-12);
    EXPECT_EQ(rect.Angle(), 0.0);
}

TEST(ContourRotation, DependsOnTheCornerThatStandsFirst)
{
    KvContour rect;
    rect.MakeRectFromDiagonal(0, 5, 10, 0);
    EXPECT_EQ(rect.RotationAngle(), KvMath::Pi);
}

TEST(ContourRotation, OfEllipsesIsThatOfTheirFirstAxis)
{
    KvContour ellipse;
    for (const double angle : {0.0, 0.5, 3.0, 6.0})
    {
        ellipse.MakeEllipse(4, 4, angle, 5, 2);
        EXPECT_NEAR(ellipse.RotationAngle(), angle, 1e-12);
    }
    ellipse.CurvePositions()[2] = {4, 4};
    EXPECT_EQ(ellipse.RotationAngle(), 0.0) << "invalid";
}

TEST(ContourRotation, OfPolygonsAndPolylinesIsTheStoredAngleAsItStands)
{
    for (const auto type : {KvContour::ePolygon, KvContour::ePolyline})
    {
        KvContour contour = Figure(type, {});
        contour.Angle() = -17.5;
        EXPECT_EQ(contour.RotationAngle(), -17.5);
    }
}

TEST(ContourRotation, OfCirclesAndUnusableFiguresIsZero)
{
    KvContour circle;
    circle.MakeCircle(0, 0, 5);
    circle.Transform({0, 0}, {0, 0}, 1.0);
    circle.Angle() = 3.0;
    EXPECT_EQ(circle.RotationAngle(), 0.0);
    for (const auto type : {KvContour::eRectangle, KvContour::eSquare, foreignType, negativeType})
    {
        KvContour contour = Figure(type, {{0, 0}, {5, 0}, {5, 5}, {3, 3}});
        contour.Angle() = 3.0;
        EXPECT_EQ(contour.RotationAngle(), 0.0);
    }
}

TEST(ContourMeasures, BoxIsTheSmallestAroundThePoints)
{
    for (const auto type : {KvContour::eRectangle, KvContour::ePolygon, KvContour::ePolyline, KvContour::eSquare})
    {
        ExpectBox(BoxOf(Figure(type, {{3, -4}, {-1, 2}, {7, 1}}), 1), -1, -4, 7, 2);
        ExpectBox(BoxOf(Figure(type, {{3, -4}}), 1), 3, -4, 3, -4);
    }
}

TEST(ContourMeasures, BoxOfAPolylineIsWidenedByItsLineWidth)
{
    KvContour line = Figure(KvContour::ePolyline, {{0, 0}, {10, 0}});
    ExpectBox(BoxOf(line, 1), 0, 0, 10, 0);
    line.LineWidth() = 4;
    ExpectBox(BoxOf(line, 1), -2, -2, 12, 2);
    line.ContourType() = KvContour::ePolygon;
    ExpectBox(BoxOf(line, 1), 0, 0, 10, 0);
}

TEST(ContourMeasures, CircleBoxIsFilledThoughResultIsZero)
{
    ExpectBox(BoxOf(Figure(KvContour::eCircle, {{5, 5}, {8, 5}}), 0), 2, 2, 8, 8);
}

TEST(ContourMeasures, EllipseBoxIsThatOfTheParallelogramThoughResultIsZero)
{
    ExpectBox(BoxOf(Figure(KvContour::eEllipse, {{5, 5}, {10, 5}, {5, 7}}), 0), 0, 3, 10, 7);
    ExpectBox(BoxOf(Figure(KvContour::eEllipse, {{0, 0}, {3, 4}, {-4, 3}}), 0), -7, -7, 7, 7);
}

TEST(ContourMeasures, BoxWithoutPointsIsTheLargestDouble)
{
    for (const auto type : allTypes)
        ExpectBox(BoxOf(Figure(type, {}), 0), largest, largest, largest, largest);
    for (const auto type : {foreignType, negativeType})
        ExpectBox(BoxOf(Figure(type, {{1, 2}, {3, 4}}), 0), largest, largest, largest, largest);
}

TEST(ContourMeasures, BoxOfARoundFigureWithMissingPointsReadsNothing)
{
    ExpectBox(BoxOf(Figure(KvContour::eCircle, {{1, 1}}), 0), largest, largest, largest, largest);
    ExpectBox(BoxOf(Figure(KvContour::eEllipse, {{1, 1}, {2, 2}}), 0), largest, largest, largest, largest);
}

TEST(ContourBoundingRect, OfARectangleOrSquareIsACopyWithItsFields)
{
    KvContour original = Rectangle10x5(), rect = Figure(KvContour::eCircle, {{1, 1}});
    original.ID() = 5;
    original.Angle() = 2.0;
    original.MakeBoundingRect(rect);
    EXPECT_EQ(rect.ID(), 5);
    EXPECT_EQ(rect.Angle(), 2.0);
    EXPECT_EQ(rect.ContourType(), KvContour::eRectangle);
    EXPECT_EQ(Points(rect), Points(original));
    original.MakeSquareFromDiagonal(0, 0, 3, 3);
    original.MakeBoundingRect(rect);
    EXPECT_EQ(rect.ContourType(), KvContour::eSquare);
}

TEST(ContourBoundingRect, OfAPolygonLiesAlongItsAngleWithDefaultFields)
{
    KvContour polygon = Figure(KvContour::ePolygon, {{0, 0}, {2, 5}, {10, 5}, {8, 0}}), rect;
    polygon.ID() = 5;
    polygon.MakeBoundingRect(rect);
    EXPECT_EQ(rect.ID(), -1);
    EXPECT_EQ(rect.ContourType(), KvContour::eRectangle);
    EXPECT_EQ(Points(rect), Points(Rectangle10x5()));
    polygon.Transform({100, 100}, {3, 4}, 0.7);
    polygon.MakeBoundingRect(rect);
    EXPECT_NEAR(rect.GetArea(), 50.0, 1e-9);
    EXPECT_NEAR(rect.RotationAngle(), 0.7, 1e-12);
    KvContour expected = Rectangle10x5();
    expected.Transform({100, 100}, {3, 4}, 0.7);
    expected.SetAllowedCompareDifference(1e-9);
    EXPECT_TRUE(expected == rect);
}

TEST(ContourBoundingRect, OfAPolylineIsWidenedByItsLineWidth)
{
    KvContour line = Figure(KvContour::ePolyline, {{0, 0}, {10, 0}}), rect;
    line.LineWidth() = 4;
    line.MakeBoundingRect(rect);
    EXPECT_EQ(Points(rect), (Pairs{{-2, -2}, {-2, 2}, {12, 2}, {12, -2}}));
}

TEST(ContourBoundingRect, OfAFlatPolylineIsInflatedByEpsilon)
{
    KvContour rect;
    Figure(KvContour::ePolyline, {{0, 0}, {10, 0}}).MakeBoundingRect(rect);
    const double e = KvMath::Epsilon;
    EXPECT_EQ(Points(rect), (Pairs{{0, -e}, {0, e}, {10, e}, {10, -e}}));
    EXPECT_TRUE(rect.IsValid());
    Figure(KvContour::ePolyline, {{5, 0}, {5, 10}}).MakeBoundingRect(rect);
    EXPECT_TRUE(rect.IsValid());
    Figure(KvContour::ePolyline, {{1e12, 0}, {1e12, 10}}).MakeBoundingRect(rect);
    EXPECT_FALSE(rect.IsValid()) << "Epsilon is lost against such coordinates";
}

TEST(ContourBoundingRect, OfAnEllipseLiesAlongItsAxes)
{
    KvContour ellipse, rect;
    ellipse.MakeEllipse(7, 8, 0.6, 5, 2);
    ellipse.MakeBoundingRect(rect);
    EXPECT_EQ(rect.ContourType(), KvContour::eRectangle);
    EXPECT_NEAR(rect.GetArea(), 4.0 * 5.0 * 2.0, 1e-12);
    EXPECT_NEAR(rect.RotationAngle(), 0.6, 1e-12);
}

TEST(ContourBoundingRect, OfACircleIsASquare)
{
    KvContour circle, rect;
    circle.MakeCircle(7, 8, 3);
    circle.MakeBoundingRect(rect);
    EXPECT_EQ(rect.ContourType(), KvContour::eSquare);
    EXPECT_EQ(Points(rect), (Pairs{{4, 5}, {4, 11}, {10, 11}, {10, 5}}));
}

TEST(ContourBoundingRect, OfAnInvalidFigureIsADefaultContour)
{
    KvContour rect = Rectangle10x5();
    rect.ID() = 9;
    KvTList<KvVec2d> corners = List({{1, 1}}), middles = List({{2, 2}});
    Figure(foreignType, {{0, 0}, {0, 5}}).MakeBoundingRect(rect, corners, middles);
    EXPECT_EQ(rect.ID(), -1);
    EXPECT_EQ(rect.CurvePositions().count, 0);
    EXPECT_EQ(corners.count, 0);
    EXPECT_EQ(middles.count, 0);
}

TEST(ContourBoundingRect, IntoItselfIsADefaultContour)
{
    KvContour contour = Rectangle10x5();
    contour.MakeBoundingRect(contour);
    EXPECT_EQ(contour.CurvePositions().count, 0);
}

TEST(ContourBoundingRect, GivesItsCornersAndEdgeMiddles)
{
    KvContour rect;
    KvTList<KvVec2d> corners = List({{1, 1}}), middles = List({{2, 2}});
    Rectangle10x5().MakeBoundingRect(rect, corners, middles);
    EXPECT_EQ(Points(corners), Points(Rectangle10x5()));
    EXPECT_EQ(Points(middles), (Pairs{{0, 2.5}, {5, 5}, {10, 2.5}, {5, 0}}));
}

TEST(ContourBoundingRect, HoldsEveryPointOfARandomFigure)
{
    Random random(7);
    for (int round = 0; round < 300; ++round)
    {
        const KvContour figure = RandomFigure(random, allTypes[round % 3]);
        KvContour rect;
        figure.MakeBoundingRect(rect);
        const auto& corner = rect.CurvePositions();
        for (const auto* node = figure.CurvePositions().head; node; node = node->next)
        {
            for (int i = 0; i < 4; ++i) // to the left of every edge, as seen on the image
            {
                const KvVec2d edge = corner[(i + 1) % 4] - corner[i], to = node->value - corner[i];
                EXPECT_LE(edge.x * to.y - edge.y * to.x, 1e-6);
            }
        }
    }
}

TEST(ContourAxis, IsTheInverseOfMakeRectFromAxis)
{
    Random random(8);
    for (int round = 0; round < 500; ++round)
    {
        const KvVec2d a = random.Point(), b = random.Point();
        const double halfWidth = random.In(0.1, 300.0);
        KvContour rect;
        rect.MakeRectFromAxis(a, b, halfWidth);
        KvVec2d a2, b2;
        double halfWidth2 = 0.0;
        EXPECT_EQ(rect.MakeAxisFromRect(a2, b2, halfWidth2), 1);
        EXPECT_NEAR((a2 - a).Length(), 0.0, 1e-9);
        EXPECT_NEAR((b2 - b).Length(), 0.0, 1e-9);
        EXPECT_NEAR(halfWidth2, halfWidth, 1e-9);
        double x1, y1, x2, y2, h;
        EXPECT_EQ(rect.MakeAxisFromRect(x1, y1, x2, y2, h), 1);
        EXPECT_EQ((Pairs{{x1, y1}, {x2, y2}, {h, 0}}), (Pairs{{a2.x, a2.y}, {b2.x, b2.y}, {halfWidth2, 0}}));
    }
}

TEST(ContourAxis, RunsBetweenTheMiddlesOfTwoEdges)
{
    KvVec2d a, b;
    double halfWidth = 0.0;
    EXPECT_EQ(Rectangle10x5().MakeAxisFromRect(a, b, halfWidth), 1);
    EXPECT_EQ(Points(List({a, b})), (Pairs{{0, 2.5}, {10, 2.5}}));
    EXPECT_EQ(halfWidth, 2.5);
    const KvContour clockwise = Figure(KvContour::eSquare, {{0, 0}, {2, 0}, {2, 2}, {0, 2}});
    EXPECT_EQ(clockwise.MakeAxisFromRect(a, b, halfWidth), 1) << "validity is not asked for";
}

TEST(ContourAxis, OfOtherFiguresIsZero)
{
    KvContour circle;
    circle.MakeCircle(3, 3, 3);
    double x1 = 1, y1 = 2, x2 = 3, y2 = 4, h = 5;
    EXPECT_EQ(circle.MakeAxisFromRect(x1, y1, x2, y2, h), 0);
    EXPECT_EQ((Pairs{{x1, y1}, {x2, y2}, {h, 0}}), (Pairs{{0, 0}, {0, 0}, {0, 0}}));
    KvVec2d a(1, 1), b(2, 2);
    EXPECT_EQ(Figure(KvContour::eRectangle, {{0, 0}, {0, 5}, {5, 5}}).MakeAxisFromRect(a, b, h), 0);
    EXPECT_EQ(Points(List({a, b})), (Pairs{{0, 0}, {0, 0}}));
}
