// Construction of figures, loaders, and the orientation that closed figures get.
#include "C/syContour.h"

#include "tests/C/contour_figures.h"

#include <gtest/gtest.h>

using namespace figures;

namespace
{
// Every field that no construction may touch.
void ExpectOnlyPointsChange(const KvContour& contour)
{
    EXPECT_EQ(contour.ID(), 3);
    EXPECT_EQ(contour.Color(), 0x123456u);
    EXPECT_EQ(contour.Angle(), 0.75);
    EXPECT_EQ(contour.Description().Utf8(), "x");
}

KvContour Marked()
{
    KvContour contour = Figure(KvContour::ePolyline, {{1, 2}, {3, 4}});
    contour.ID() = 3;
    contour.Color() = 0x123456u;
    contour.Angle() = 0.75;
    contour.Description() = L"x";
    return contour;
}
} // namespace

TEST(ContourShapes, RectFromDiagonalStoresItsCornersCounterClockwise)
{
    KvContour c;
    c.MakeRectFromDiagonal(0, 0, 10, 5);
    EXPECT_EQ(c.ContourType(), KvContour::eRectangle);
    EXPECT_EQ(Points(c), (Pairs{{0, 0}, {0, 5}, {10, 5}, {10, 0}}));
    c.MakeRectFromDiagonal(10, 5, 0, 0);
    EXPECT_EQ(Points(c), (Pairs{{10, 5}, {10, 0}, {0, 0}, {0, 5}})) << "already counter-clockwise";
    c.MakeRectFromDiagonal(0, 5, 10, 0);
    EXPECT_EQ(Points(c), (Pairs{{10, 5}, {10, 0}, {0, 0}, {0, 5}})) << "emitted clockwise, reversed";
}

TEST(ContourShapes, RectFromEdgeLiesOnTheSideOfItsNormal)
{
    KvContour c;
    c.MakeRectFromEdge(0, 0, 10, 0, 4);
    EXPECT_EQ(Points(c), (Pairs{{0, 4}, {10, 4}, {10, 0}, {0, 0}}));
    c.MakeRectFromEdge(0, 0, 10, 0, -4);
    EXPECT_EQ(Points(c), (Pairs{{0, 0}, {10, 0}, {10, -4}, {0, -4}})) << "a negative width is the other side";
    EXPECT_TRUE(c.IsValid());
}

TEST(ContourShapes, RectFromAnEdgeOfNoLengthHasTheNormalX)
{
    KvContour c;
    c.MakeRectFromEdge({2, 3}, {2, 3}, 4);
    EXPECT_EQ(Points(c), (Pairs{{2, 3}, {2, 3}, {6, 3}, {6, 3}}));
    EXPECT_FALSE(c.IsValid());
}

TEST(ContourShapes, RectFromAnEdgeBelowEpsilonKeepsItsDirection)
{
    KvContour c;
    c.MakeRectFromEdge({0, 0}, {0, 1e-12}, 4);
    EXPECT_DOUBLE_EQ(c.CurvePositions()[0].x, -4.0) << "across the edge, not along x as for an axis";
    EXPECT_EQ(c.CurvePositions()[0].y, 0.0);
    EXPECT_TRUE(c.IsValid());
}

TEST(ContourShapes, RectFromAxisLiesOnBothSides)
{
    KvContour c;
    c.MakeRectFromAxis(0, 0, 10, 0, 2);
    EXPECT_EQ(Points(c), (Pairs{{0, -2}, {0, 2}, {10, 2}, {10, -2}}));
    c.MakeRectFromAxis(0, 0, 10, 0, -2);
    EXPECT_EQ(Points(c), (Pairs{{10, 2}, {10, -2}, {0, -2}, {0, 2}})) << "reversed by the orientation step";
}

TEST(ContourShapes, RectFromAnAxisOfNoLengthStandsAroundItsPoint)
{
    KvContour c;
    c.MakeRectFromAxis({5, 5}, {5, 5}, 2);
    EXPECT_EQ(Points(c), (Pairs{{5, 3}, {5, 7}, {5, 7}, {5, 3}}));
    c.MakeRectFromAxis({5, 5}, {5, 5 + 1e-10}, 2);
    EXPECT_EQ(c.CurvePositions()[0].x, 5.0) << "an axis below Epsilon counts as pointing along x";
    EXPECT_EQ(c.CurvePositions()[2].x, 5.0);
    EXPECT_NEAR(c.GetLength(), 8.0, 1e-9);
}

TEST(ContourShapes, SquareFromDiagonalHasTheLongerSideAndGrowsTowardsTheSecondCorner)
{
    KvContour c;
    c.MakeSquareFromDiagonal(0, 0, 10, 3);
    EXPECT_EQ(c.ContourType(), KvContour::eSquare);
    EXPECT_EQ(Points(c), (Pairs{{0, 0}, {0, 10}, {10, 10}, {10, 0}}));
    c.MakeSquareFromDiagonal(0, 0, -10, 3);
    EXPECT_EQ(Points(c), (Pairs{{-10, 0}, {-10, 10}, {0, 10}, {0, 0}}));
    c.MakeSquareFromDiagonal(0, 0, 3, -10);
    EXPECT_EQ(Points(c), (Pairs{{10, 0}, {10, -10}, {0, -10}, {0, 0}}));
    c.MakeSquareFromDiagonal(1, 1, 1, 1);
    EXPECT_FALSE(c.IsValid());
}

TEST(ContourShapes, SquareFromEdgeAndAxisHaveEqualSides)
{
    KvContour c;
    c.MakeSquareFromEdge(0, 0, 3, 4);
    EXPECT_EQ(c.ContourType(), KvContour::eSquare);
    EXPECT_DOUBLE_EQ(c.GetArea(), 25.0);
    EXPECT_DOUBLE_EQ(c.GetLength(), 20.0);
    c.MakeSquareFromAxis(0, 0, 0, 6);
    EXPECT_EQ(c.ContourType(), KvContour::eSquare);
    EXPECT_EQ(Points(c), (Pairs{{3, 0}, {-3, 0}, {-3, 6}, {3, 6}}));
    EXPECT_EQ(c.GetArea(), 36.0);
}

TEST(ContourShapes, CircleTakesTheAbsoluteRadius)
{
    KvContour c;
    EXPECT_EQ(c.MakeCircle({1, 2}, -3.0), 1);
    EXPECT_EQ(c.ContourType(), KvContour::eCircle);
    EXPECT_EQ(Points(c), (Pairs{{1, 2}, {4, 2}}));
    EXPECT_EQ(c.Radius(), 3.0);
    EXPECT_EQ(c.MakeCircle(1, 2, 0.0), 0);
    EXPECT_EQ(Points(c), (Pairs{{1, 2}, {1, 2}})) << "stored all the same";
    EXPECT_EQ(c.MakeCircle(1, 2, KvMath::Epsilon), 0);
}

TEST(ContourShapes, CircleFromSquareIsInscribed)
{
    KvContour square, c;
    square.MakeSquareFromDiagonal(0, 0, 10, 10);
    EXPECT_EQ(c.MakeCircleFromSquare(square), 1);
    EXPECT_EQ(Points(c), (Pairs{{5, 5}, {10, 5}}));
}

TEST(ContourShapes, CircleFromAnythingElseIsEmpty)
{
    KvContour c = Marked();
    EXPECT_EQ(c.MakeCircleFromSquare(Rectangle10x5()), 0);
    EXPECT_EQ(c.ContourType(), KvContour::eCircle);
    EXPECT_EQ(c.CurvePositions().count, 0);
    EXPECT_EQ(c.MakeCircleFromSquare(Figure(KvContour::eSquare, {{0, 0}, {1, 0}, {1, 1}, {0, 1}})), 0) << "clockwise";
    ExpectOnlyPointsChange(c);
}

TEST(ContourShapes, CircleFromItselfIsEmpty)
{
    KvContour square;
    square.MakeSquareFromDiagonal(0, 0, 10, 10);
    EXPECT_EQ(square.MakeCircleFromSquare(square), 0);
    EXPECT_EQ(square.CurvePositions().count, 0);
}

TEST(ContourShapes, CircleFromDiagonalIsDrawnInTheSquareNotInTheBox)
{
    KvContour c;
    c.MakeCircleFromDiagonal(0, 0, 10, 3);
    EXPECT_EQ(Points(c), (Pairs{{5, 5}, {10, 5}}));
}

TEST(ContourShapes, EllipseTurnsItsFirstAxisCounterClockwise)
{
    KvContour c;
    EXPECT_EQ(c.MakeEllipse({10, 20}, 0.0, -5.0, 2.0), 1);
    EXPECT_EQ(c.ContourType(), KvContour::eEllipse);
    EXPECT_EQ(Points(c), (Pairs{{10, 20}, {15, 20}, {10, 22}}));
    EXPECT_EQ(c.MakeEllipse(10, 20, 0.5, 5, 2), 1);
    EXPECT_DOUBLE_EQ(c.CurvePositions()[1].x, 10 + 5 * std::cos(0.5));
    EXPECT_DOUBLE_EQ(c.CurvePositions()[1].y, 20 - 5 * std::sin(0.5));
    EXPECT_EQ(c.Angle(), 0.0);
}

TEST(ContourShapes, EllipseWithoutExtentIsStoredAndAnswersZero)
{
    KvContour c;
    EXPECT_EQ(c.MakeEllipse(0, 0, 0, 5, KvMath::Epsilon), 0);
    EXPECT_EQ(c.MakeEllipse(0, 0, 0, 0, 5), 0);
    EXPECT_EQ(Points(c), (Pairs{{0, 0}, {0, 0}, {0, 5}}));
}

TEST(ContourShapes, EllipseFromDiagonalFillsTheBox)
{
    KvContour c;
    c.MakeEllipseFromDiagonal(0, 0, 10, 4);
    EXPECT_EQ(Points(c), (Pairs{{5, 2}, {10, 2}, {5, 4}}));
    EXPECT_EQ(c.RotationAngle(), 0.0);
}

TEST(ContourShapes, EllipseFromASquareIsACircle)
{
    KvContour square, c;
    square.MakeSquareFromDiagonal(0, 0, 10, 10);
    EXPECT_EQ(c.MakeEllipseFromRect(square), 1);
    EXPECT_EQ(c.ContourType(), KvContour::eCircle);
    EXPECT_EQ(c.Radius(), 5.0);
}

TEST(ContourShapes, EllipseFromAnInvalidRectangleIsEmpty)
{
    KvContour c = Marked();
    EXPECT_EQ(c.MakeEllipseFromRect(KvContour()), 0);
    EXPECT_EQ(c.ContourType(), KvContour::eEllipse);
    EXPECT_EQ(c.CurvePositions().count, 0);
    EXPECT_EQ(c.MakeEllipseFromRect(Figure(KvContour::ePolygon, {{0, 0}, {0, 5}, {10, 5}, {10, 0}})), 0);
    ExpectOnlyPointsChange(c);
}

TEST(ContourShapes, EllipseFromATurnedRectangleIsMirroredAsRequired)
{
    KvContour rect, c;
    rect.MakeRectFromDiagonal(-10, -5, 10, 5);
    rect.Transform({0, 0}, {0, 0}, 0.5);
    EXPECT_EQ(c.MakeEllipseFromRect(rect), 1);
    const auto& corners = rect.CurvePositions();
    const KvVec2d u = (corners[2] + corners[3]) * 0.5; // along the rectangle's own axis
    EXPECT_NEAR(c.CurvePositions()[1].x, u.x, 1e-12);
    EXPECT_NEAR(c.CurvePositions()[1].y, -u.y, 1e-12);
}

TEST(ContourShapes, ConstructionKeepsAllOtherFields)
{
    KvContour c = Marked();
    c.MakeRectFromDiagonal(0, 0, 1, 1);
    c.MakeRectFromEdge(0, 0, 1, 1, 1);
    c.MakeRectFromAxis(0, 0, 1, 1, 1);
    c.MakeSquareFromDiagonal(0, 0, 1, 1);
    c.MakeSquareFromEdge(0, 0, 1, 1);
    c.MakeSquareFromAxis(0, 0, 1, 1);
    c.MakeCircleFromDiagonal(0, 0, 1, 1);
    c.MakeEllipseFromDiagonal(0, 0, 1, 2);
    c.MakeCircle(0, 0, 1);
    c.MakeEllipse(0, 0, 1, 1, 2);
    ExpectOnlyPointsChange(c);
}

TEST(ContourShapes, OwnPointsMayDefineTheNewFigure)
{
    KvContour c;
    c.MakeCircle(3, 4, 2);
    c.MakeRectFromDiagonal(c.CurvePositions()[0], c.CurvePositions()[1] + KvVec2d(0, 7));
    EXPECT_EQ(Points(c), (Pairs{{3, 4}, {3, 11}, {5, 11}, {5, 4}}));
    c.MakeCircle(c.CurvePositions()[2], 1);
    EXPECT_EQ(Points(c), (Pairs{{5, 11}, {6, 11}}));
    c.MakeSquareFromAxis(c.CurvePositions()[0], c.CurvePositions()[1]);
    EXPECT_EQ(c.GetArea(), 1.0);
    c.MakeEllipse(c.CurvePositions()[0], 0, 1, 1);
    EXPECT_EQ(c.GetCMS().x, 5.0);
}

TEST(ContourLoaders, ResetAllFields)
{
    const auto mem = Mem({{0, 0}, {0, 5}, {10, 5}, {10, 0}});
    KvContour c = Marked();
    c.RectFromMem(mem);
    EXPECT_EQ(c.ID(), -1);
    EXPECT_EQ(c.Angle(), 0.0);
    EXPECT_EQ(c.Description().Length(), 0);
    EXPECT_EQ(Points(c), Points(Rectangle10x5()));
}

TEST(ContourLoaders, TurnClosedFiguresAround)
{
    const auto clockwise = Mem({{10, 0}, {10, 5}, {0, 5}, {0, 0}});
    KvContour c;
    c.RectFromMem(clockwise);
    EXPECT_EQ(Points(c), Points(Rectangle10x5()));
    c.PolygonFromMem(clockwise);
    EXPECT_EQ(c.ContourType(), KvContour::ePolygon);
    EXPECT_EQ(Points(c), Points(Rectangle10x5()));
    c.PolylineFromMem(clockwise);
    EXPECT_EQ(c.ContourType(), KvContour::ePolyline);
    EXPECT_EQ(Points(c), (Pairs{{10, 0}, {10, 5}, {0, 5}, {0, 0}})) << "a line keeps its order";
}

TEST(ContourLoaders, RectangleTakesExactlyFourPoints)
{
    KvContour c = Marked();
    c.RectFromMem(Mem({{0, 0}, {0, 5}, {10, 5}}));
    EXPECT_EQ(c.CurvePositions().count, 0);
    c.RectFromMem(Mem({{0, 0}, {0, 5}, {10, 5}, {10, 0}, {5, -5}}));
    EXPECT_EQ(c.CurvePositions().count, 0);
    EXPECT_EQ(c.ContourType(), KvContour::eRectangle);
}

TEST(ContourLoaders, PolygonAndPolylineOfTwoPointsStayEmpty)
{
    KvContour c = Marked();
    c.PolygonFromMem(Mem({{0, 0}, {0, 5}}));
    EXPECT_EQ(c.ContourType(), KvContour::ePolygon);
    EXPECT_EQ(c.CurvePositions().count, 0);
    c.PolylineFromMem(Mem({{0, 0}, {0, 5}}));
    EXPECT_EQ(c.ContourType(), KvContour::ePolyline);
    EXPECT_EQ(c.CurvePositions().count, 0) << "required, although a line of two points is valid";
    c.PolylineFromMem(Mem({{0, 0}, {0, 5}, {1, 1}}));
    EXPECT_EQ(c.CurvePositions().count, 3);
}

TEST(ContourLoaders, ContourFromMemKnowsTwoTypes)
{
    const auto four = Mem({{0, 0}, {0, 5}, {10, 5}, {10, 0}});
    KvContour c;
    c.ContourFromMem(0, four);
    EXPECT_EQ(c.ContourType(), KvContour::eRectangle);
    EXPECT_EQ(c.CurvePositions().count, 4);
    c.ContourFromMem(1, four);
    EXPECT_EQ(c.ContourType(), KvContour::ePolygon);
    EXPECT_EQ(c.CurvePositions().count, 4);
    const KvN::KvTMem<KvN::KvTPoint<double>> ten(10);
    for (const unsigned long type : {2ul, 3ul, 4ul, 5ul, 0xFFFFFFFFul})
    {
        c = Marked();
        c.ContourFromMem(type, ten);
        EXPECT_EQ(c.ContourType(), KvContour::eRectangle);
        EXPECT_EQ(c.CurvePositions().count, 0);
        EXPECT_EQ(c.ID(), -1);
    }
}

TEST(ContourOrientation, OnlyClosedCorneredFiguresAreTurned)
{
    const std::initializer_list<KvVec2d> clockwise = {{0, 0}, {10, 0}, {10, 5}, {0, 5}};
    const Pairs reversed = {{0, 5}, {10, 5}, {10, 0}, {0, 0}};
    for (const auto type : {KvContour::eRectangle, KvContour::ePolygon, KvContour::eSquare})
    {
        KvContour c = Figure(type, clockwise);
        c.MakeCCW();
        EXPECT_EQ(Points(c), reversed);
        c.MakeCCW();
        EXPECT_EQ(Points(c), reversed) << "already right";
    }
    for (const auto type : {KvContour::ePolyline, KvContour::eEllipse, KvContour::eCircle, foreignType, negativeType})
    {
        KvContour c = Figure(type, clockwise);
        c.MakeCCW();
        EXPECT_EQ(Points(c), Points(List(clockwise)));
    }
}

TEST(ContourOrientation, OddCountsKeepTheMiddlePointAndFlatFiguresStay)
{
    KvContour odd = Figure(KvContour::ePolygon, {{0, 0}, {10, 0}, {5, 5}});
    odd.MakeCCW();
    EXPECT_EQ(Points(odd), (Pairs{{5, 5}, {10, 0}, {0, 0}}));
    KvContour flat = Figure(KvContour::ePolygon, {{0, 0}, {10, 0}, {5, 0}});
    flat.MakeCCW();
    EXPECT_EQ(Points(flat), (Pairs{{0, 0}, {10, 0}, {5, 0}}));
    KvContour empty;
    empty.MakeCCW();
    EXPECT_EQ(empty.CurvePositions().count, 0);
}

TEST(ContourShapes, AllMakersYieldValidFiguresOnRandomPoints)
{
    Random random(6);
    for (int round = 0; round < 500; ++round)
    {
        const KvVec2d a = random.Point(), b = random.Point();
        const double width = random.In(-200.0, 200.0);
        KvContour c;
        c.MakeRectFromDiagonal(a, b);
        EXPECT_TRUE(c.IsValid());
        c.MakeRectFromEdge(a, b, width);
        EXPECT_TRUE(c.IsValid());
        EXPECT_NEAR(c.GetArea(), std::abs(width) * (b - a).Length(), 1e-6);
        c.MakeRectFromAxis(a, b, width);
        EXPECT_TRUE(c.IsValid());
        EXPECT_NEAR(c.GetArea(), 2 * std::abs(width) * (b - a).Length(), 1e-6);
        c.MakeSquareFromDiagonal(a, b);
        EXPECT_TRUE(c.IsValid());
        c.MakeSquareFromEdge(a, b);
        EXPECT_TRUE(c.IsValid());
        c.MakeSquareFromAxis(a, b);
        EXPECT_TRUE(c.IsValid());
        c.MakeCircleFromDiagonal(a, b);
        EXPECT_TRUE(c.IsValid());
        c.MakeEllipseFromDiagonal(a, b);
        EXPECT_TRUE(c.IsValid());
    }
}
