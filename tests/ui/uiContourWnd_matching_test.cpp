// What a position hits.
#include "tests/ui/contour_editor.h"

using namespace KvN;
using namespace kv::test;

namespace
{

class EditorMatch : public EditorTest
{
protected:
    using Position = KvTPoint<short>;
    using Pair = KvTPair<long>;

    long CornerAt(short x, short y)
    {
        long index = 77;
        editor->MatchBoundingRectCornerPoints(Position(x, y), nullptr, &index);
        return index;
    }
    Pair EdgeAt(short x, short y)
    {
        Pair edge(77, 77);
        editor->MatchBoundingRectEdgePoints(Position(x, y), nullptr, &edge);
        return edge;
    }
    long ObjectAt(short x, short y)
    {
        const KvContour* hit = editor->MatchObject(Position(x, y));
        return hit ? hit->ID() : -1;
    }
};

TEST_F(EditorMatch, CornersAndEdgesOfTheSelectedContourAreHandles)
{
    Give({Rect(40, 40, 140, 100)});
    EXPECT_EQ(CornerAt(40, 40), -1);
    editor->SelectContour(0);
    EXPECT_EQ(CornerAt(40, 40), 0);
    EXPECT_EQ(CornerAt(40, 100), 1);
    EXPECT_EQ(CornerAt(140, 100), 2);
    EXPECT_EQ(CornerAt(140, 40), 3);
    EXPECT_EQ(EdgeAt(40, 70), Pair(0, 1));
    EXPECT_EQ(EdgeAt(90, 100), Pair(1, 2));
    EXPECT_EQ(EdgeAt(140, 70), Pair(2, 3));
    EXPECT_EQ(EdgeAt(90, 40), Pair(3, 0));
    EXPECT_EQ(EdgeAt(65, 40), Pair(-1, -1));
}

TEST_F(EditorMatch, HandleExactlyAtTheCatchRadiusIsNoHit)
{
    Give({Rect(40, 40, 140, 100)});
    editor->SelectContour(0);
    EXPECT_EQ(CornerAt(24, 40), -1);
    EXPECT_EQ(CornerAt(25, 40), 0);
}

TEST_F(EditorMatch, BoundingRectangleIsHandedOut)
{
    Give({Rect(40, 40, 140, 100)});
    editor->SelectContour(0);
    KvContour bounds;
    EXPECT_EQ(editor->MatchBoundingRectCornerPoints(Position(40, 40), &bounds, nullptr), &Contour(0));
    EXPECT_TRUE(Near(PointsOf(bounds), PointsOf(Contour(0))));
    bounds = KvContour();
    EXPECT_EQ(editor->MatchBoundingRectEdgePoints(Position(90, 40), &bounds, nullptr), &Contour(0));
    EXPECT_TRUE(Near(PointsOf(bounds), PointsOf(Contour(0))));
}

TEST_F(EditorMatch, SelectedContourWinsThenTheLowestID)
{
    Give({Rect(40, 40, 140, 100), Rect(40, 40, 140, 100), Rect(40, 40, 140, 100)});
    EXPECT_EQ(ObjectAt(70, 40), 0);
    editor->SelectContour(2);
    EXPECT_EQ(ObjectAt(70, 40), 2);
}

TEST_F(EditorMatch, DrawingOrderPlaysNoPart)
{
    KvContour below = Rect(40, 40, 140, 100);
    below.SequenceID() = 5;
    KvContour above = Rect(40, 40, 140, 100);
    above.SequenceID() = 1;
    Give({below, above});
    EXPECT_EQ(ObjectAt(70, 40), 0);
}

TEST_F(EditorMatch, ReadOnlyContoursAreNeverHit)
{
    KvContour locked = Shape(KvContour::ePolygon, {{40, 40}, {40, 100}, {140, 100}});
    locked.ReadOnly() = 1;
    Give({locked});
    editor->SelectContour(0);
    long index = 0;
    Pair line;
    EXPECT_EQ(ObjectAt(40, 70), -1);
    EXPECT_EQ(CornerAt(40, 40), -1);
    EXPECT_EQ(EdgeAt(40, 70), Pair(-1, -1));
    EXPECT_EQ(editor->MatchPointOfPoly(Position(40, 40), index), nullptr);
    EXPECT_EQ(index, -1);
    EXPECT_EQ(editor->MatchLineOfPoly(Position(40, 70), line), nullptr);
    EXPECT_EQ(line, Pair(-1, -1));
}

TEST_F(EditorMatch, InteractionOffHitsNothing)
{
    Give({Shape(KvContour::ePolygon, {{40, 40}, {40, 100}, {140, 100}})});
    editor->SelectContour(0);
    editor->SetInteractionOff();
    long index = 0;
    Pair line;
    EXPECT_EQ(ObjectAt(40, 70), -1);
    EXPECT_EQ(CornerAt(40, 40), -1);
    EXPECT_EQ(EdgeAt(40, 70), Pair(-1, -1));
    EXPECT_EQ(editor->MatchPointOfPoly(Position(40, 40), index), nullptr);
    EXPECT_EQ(editor->MatchLineOfPoly(Position(40, 70), line), nullptr);
}

TEST_F(EditorMatch, PointsAndEdgesBelongToPolygonsAndPolylinesOnly)
{
    Give({Rect(40, 40, 140, 100), Shape(KvContour::ePolyline, {{40, 40}, {40, 100}, {140, 100}})});
    long index = 0;
    EXPECT_EQ(editor->MatchPointOfPoly(Position(42, 98), index), &Contour(1));
    EXPECT_EQ(index, 1);
    Pair line;
    EXPECT_EQ(editor->MatchLineOfPoly(Position(90, 100), line), &Contour(1));
    EXPECT_EQ(line, Pair(1, 2));
    // Open: nothing between the ends.
    EXPECT_EQ(editor->MatchLineOfPoly(Position(90, 70), line), nullptr);
}

TEST_F(EditorMatch, CatchRadiusIsInLogicalUnitsAtEveryZoom)
{
    Give({Rect(40, 40, 140, 100)});
    editor->SelectContour(0);
    view->SetZoomFactor(4.0);
    EXPECT_EQ(CornerAt(26, 40), 0);
    EXPECT_EQ(CornerAt(24, 40), -1);
    editor->SetCatchSize(4);
    EXPECT_EQ(CornerAt(36, 40), -1);
    EXPECT_EQ(CornerAt(37, 40), 0);
}

TEST_F(EditorMatch, HandlesOfATurnedContourAreTurned)
{
    KvContour rect = Rect(60, 60, 140, 100);
    rect.Transform(KvVec2d(100, 80), KvVec2d(0, 0), KvMath::Pi / 2);
    Give({rect});
    editor->SelectContour(0);
    KvContour bounds;
    for (int i = 0; i < 4; ++i)
    {
        const KvVec2d p = Contour(0).CurvePositions()[i];
        EXPECT_EQ(CornerAt(static_cast<short>(p.x + 0.5), static_cast<short>(p.y + 0.5)), i);
    }
}

TEST_F(EditorMatch, DeleteObjectTakesTheFirstContourWhoseEdgeIsHit)
{
    Give({Rect(10, 10, 30, 30), Rect(40, 40, 140, 100)});
    editor->OnDeleteObject(Position(70, 40));
    EXPECT_EQ(Ids(), "0 | 0");
    EXPECT_EQ(log.Take(), "deleted 1, operation 3");
    EXPECT_TRUE(editor->CanUndo());
    editor->OnDeleteObject(Position(190, 140));
    editor->SetInteractionOff();
    editor->OnDeleteObject(Position(10, 20));
    EXPECT_EQ(log.Take(), "");
}

} // namespace
