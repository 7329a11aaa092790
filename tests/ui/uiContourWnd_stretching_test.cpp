// Stretching by handles: the corner opposite the dragged one stays where it is.
#include "tests/ui/contour_editor.h"

#include <cmath>

using namespace KvN;
using namespace kv::test;

namespace
{

class EditorStretch : public ::testing::Test
{
protected:
    using Pair = KvTPair<long>;

    // The corner of the rectangle around the contour.
    static KvVec2d Corner(const KvContour& contour, int index)
    {
        KvContour bounds;
        contour.MakeBoundingRect(bounds);
        return bounds.CurvePositions()[index];
    }

    static bool HasCornerAt(const KvContour& contour, const KvVec2d& p)
    {
        for (int i = 0; i < 4; ++i)
        {
            if ((Corner(contour, i) - p).Length() < 1e-6)
                return true;
        }
        return false;
    }

    Editor editor;
};

TEST_F(EditorStretch, RectangleFlipsOverItsAnchorCorner)
{
    KvContour rect = Rect(10, 10, 110, 60);
    EXPECT_TRUE(editor.Stretch(rect, 2, 0, KvVec2d(-40, -20)));
    KvTRectangle<double> box;
    rect.MakeBoundingBox(box);
    EXPECT_NEAR(box.left, -40, 1e-9);
    EXPECT_NEAR(box.top, -20, 1e-9);
    EXPECT_NEAR(box.right, 10, 1e-9);
    EXPECT_NEAR(box.bottom, 10, 1e-9);
}

TEST_F(EditorStretch, EachCornerFollowsTheMouseAndPinsTheOneOpposite)
{
    for (int corner = 0; corner < 4; ++corner)
    {
        for (const KvVec2d target : {KvVec2d(200, 150), KvVec2d(-30, 130), KvVec2d(-60, -40), KvVec2d(170, -20)})
        {
            KvContour rect = Rect(10, 10, 110, 60);
            const KvVec2d anchor = Corner(rect, (corner + 2) % 4);
            EXPECT_TRUE(editor.Stretch(rect, corner, 0, target));
            EXPECT_TRUE(HasCornerAt(rect, anchor)) << corner << " to " << target.x << ", " << target.y;
            EXPECT_TRUE(HasCornerAt(rect, target)) << corner << " to " << target.x << ", " << target.y;
        }
    }
}

TEST_F(EditorStretch, EachEdgeFollowsTheMouseAcrossAndPinsTheEdgeOpposite)
{
    for (int edge = 0; edge < 4; ++edge)
    {
        for (const KvVec2d target : {KvVec2d(180, 140), KvVec2d(-50, -40)})
        {
            KvContour rect = Rect(10, 10, 110, 60);
            const KvVec2d a = Corner(rect, (edge + 2) % 4);
            const KvVec2d b = Corner(rect, (edge + 3) % 4);
            EXPECT_TRUE(editor.Stretch(rect, Pair(edge, (edge + 1) % 4), target));
            EXPECT_TRUE(HasCornerAt(rect, a)) << edge;
            EXPECT_TRUE(HasCornerAt(rect, b)) << edge;
            const bool along = edge % 2 == 0; // left and right edges
            const KvVec2d moved = along ? KvVec2d(target.x, a.y) : KvVec2d(a.x, target.y);
            EXPECT_TRUE(HasCornerAt(rect, moved)) << edge;
        }
    }
}

TEST_F(EditorStretch, ShiftTakesTheLargerFactorAndKeepsEachSign)
{
    const auto stretched = [&](const KvVec2d& mouse)
    {
        KvContour rect = Rect(0, 0, 100, 50);
        EXPECT_TRUE(editor.Stretch(rect, 2, 1, mouse));
        KvTRectangle<double> box;
        rect.MakeBoundingBox(box);
        return box;
    };
    const auto bigger = stretched(KvVec2d(200, 25)); // 2, 0.5
    EXPECT_NEAR(bigger.right, 200, 1e-9);
    EXPECT_NEAR(bigger.bottom, 100, 1e-9);
    const auto left = stretched(KvVec2d(-200, 25)); // -2, 0.5
    EXPECT_NEAR(left.left, -200, 1e-9);
    EXPECT_NEAR(left.right, 0, 1e-9);
    EXPECT_NEAR(left.bottom, 100, 1e-9);
    const auto up = stretched(KvVec2d(50, -100)); // 0.5, -2
    EXPECT_NEAR(up.right, 200, 1e-9);
    EXPECT_NEAR(up.top, -100, 1e-9);
    EXPECT_NEAR(up.bottom, 0, 1e-9);
}

TEST_F(EditorStretch, MouseOnTheAnchorLeavesTheFigure)
{
    KvContour rect = Rect(10, 10, 110, 60);
    EXPECT_FALSE(editor.Stretch(rect, 2, 0, KvVec2d(10, 10)));
    EXPECT_FALSE(editor.Stretch(rect, Pair(2, 3), KvVec2d(10, 10)));
    EXPECT_EQ(PointsOf(rect), PointsOf(Rect(10, 10, 110, 60)));
}

TEST_F(EditorStretch, FlatFigureCannotBeStretched)
{
    KvContour line = Shape(KvContour::ePolyline, {{10, 10}, {60, 10}});
    for (int corner = 0; corner < 4; ++corner)
    {
        EXPECT_FALSE(editor.Stretch(line, corner, 0, KvVec2d(100, 100)));
        EXPECT_FALSE(editor.Stretch(line, Pair(corner, (corner + 1) % 4), KvVec2d(100, 100)));
    }
    EXPECT_EQ(PointsOf(line), (Points{{10, 10}, {60, 10}}));
}

TEST_F(EditorStretch, IndexOutsideTheRectangleLeavesTheFigure)
{
    KvContour rect = Rect(10, 10, 110, 60);
    EXPECT_FALSE(editor.Stretch(rect, -1, 0, KvVec2d(0, 0)));
    EXPECT_FALSE(editor.Stretch(rect, 4, 0, KvVec2d(0, 0)));
    EXPECT_FALSE(editor.Stretch(rect, Pair(-1, -1), KvVec2d(0, 0)));
    KvContour nothing;
    EXPECT_FALSE(editor.Stretch(nothing, 0, 0, KvVec2d(5, 5)));
}

TEST_F(EditorStretch, TurnedRectangleIsStretchedAlongItsOwnAxes)
{
    KvContour rect = Rect(-50, -25, 50, 25);
    rect.Transform(KvVec2d(0, 0), KvVec2d(100, 100), 0.6);
    const KvVec2d anchor = Corner(rect, 0);
    const KvVec2d dragged = Corner(rect, 2);
    const KvVec2d target = anchor + (dragged - anchor) * 1.5;
    EXPECT_TRUE(editor.Stretch(rect, 2, 0, target));
    EXPECT_TRUE(HasCornerAt(rect, anchor));
    EXPECT_TRUE(HasCornerAt(rect, target));
    EXPECT_NEAR(rect.GetArea(), 100 * 50 * 1.5 * 1.5, 1e-6);
    EXPECT_NEAR(rect.RotationAngle(), 0.6, 1e-9);
}

TEST_F(EditorStretch, CircleStretchedUnequallyBecomesAnEllipse)
{
    KvContour circle;
    circle.MakeCircle(50, 50, 20);
    const KvVec2d anchor = Corner(circle, 0);
    EXPECT_TRUE(editor.Stretch(circle, 2, 0, anchor + (Corner(circle, 2) - anchor) + KvVec2d(40, 0)));
    EXPECT_EQ(circle.ContourType(), KvContour::eEllipse);
    EXPECT_NEAR(circle.SemiAxisLength1(), 40, 1e-9);
    EXPECT_NEAR(circle.SemiAxisLength2(), 20, 1e-9);
    EXPECT_TRUE(HasCornerAt(circle, anchor));
}

TEST_F(EditorStretch, CircleStretchedProportionallyStaysACircle)
{
    KvContour circle;
    circle.MakeCircle(50, 50, 20);
    const KvVec2d anchor = Corner(circle, 0);
    EXPECT_TRUE(editor.Stretch(circle, 2, 1, Corner(circle, 2) + KvVec2d(40, 0)));
    EXPECT_EQ(circle.ContourType(), KvContour::eCircle);
    EXPECT_NEAR(circle.Radius(), 40, 1e-9);
    EXPECT_TRUE(HasCornerAt(circle, anchor));
}

TEST_F(EditorStretch, PolygonIsMirroredWhenItIsPulledOverItsAnchor)
{
    // A right triangle with its right angle at the lower left.
    KvContour triangle = Shape(KvContour::ePolygon, {{0, 0}, {0, 40}, {40, 40}});
    const KvVec2d anchor = Corner(triangle, 0);
    EXPECT_TRUE(Near({{anchor.x, anchor.y}}, {{0, 0}}));
    EXPECT_TRUE(editor.Stretch(triangle, 2, 0, KvVec2d(-40, 40)));
    EXPECT_TRUE(triangle.IsValid());
    KvTRectangle<double> box;
    triangle.MakeBoundingBox(box);
    EXPECT_NEAR(box.left, -40, 1e-9);
    EXPECT_NEAR(box.right, 0, 1e-9);
    // The right angle is at the lower right now.
    EXPECT_GE(triangle.GetPointMatch(KvVec2d(0, 40), 1e-6), 0);
    EXPECT_GE(triangle.GetPointMatch(KvVec2d(-40, 40), 1e-6), 0);
    EXPECT_GE(triangle.GetPointMatch(KvVec2d(0, 0), 1e-6), 0);
}

} // namespace
