// The cursor tells what a press would do.
#include "tests/ui/contour_editor.h"

#include <cmath>

using namespace KvN;
using namespace kv::test;

namespace
{

using Wnd = KvContourWnd;

class EditorCursors : public EditorTest
{
protected:
    HCURSOR At(int x, int y)
    {
        Move(x, y);
        return ::GetCursor();
    }
};

TEST_F(EditorCursors, OwnCursorsComeFromTheResources)
{
    EXPECT_EQ(::CursorId(editor->m_CursorInvertObject), 17500u);
    EXPECT_EQ(::CursorId(editor->m_CursorRotateObject), 17501u);
    EXPECT_EQ(::CursorId(editor->m_CursorDeletePoint), 17502u);
    EXPECT_EQ(::CursorId(editor->m_CursorAddPoint), 17503u);
    EXPECT_EQ(::CursorId(editor->m_CursorMovePoint), 17504u);
    EXPECT_EQ(::CursorId(editor->m_CursorMoveObject), 17505u);
    EXPECT_EQ(::CursorId(editor->m_CursorNewPoint), 17506u);
    EXPECT_EQ(::CursorId(editor->m_CursorSizeAll), IDC_SIZEALL);
    EXPECT_EQ(::CursorId(editor->m_CursorArrow), IDC_ARROW);
}

TEST_F(EditorCursors, ArrowOverNothingAndMoveOverABody)
{
    Give({Rect(40, 40, 140, 100)});
    EXPECT_EQ(At(180, 140), editor->m_CursorArrow);
    EXPECT_EQ(At(65, 40), editor->m_CursorMoveObject);
}

TEST_F(EditorCursors, CtrlOverABodyShowsTheInversion)
{
    Give({Rect(40, 40, 140, 100)});
    Move(65, 40);
    const Held ctrl(VK_CONTROL);
    EXPECT_EQ(::GetCursor(), editor->m_CursorInvertObject);
    editor->SetEnableInvertOff();
    EXPECT_EQ(At(66, 40), editor->m_CursorMoveObject);
}

TEST_F(EditorCursors, SizeCursorsLieAlongTheHandles)
{
    Give({Rect(50, 30, 130, 110)});
    editor->SelectContour(0);
    EXPECT_EQ(At(50, 30), editor->m_CursorSizeLeftTopRightBottom);
    EXPECT_EQ(At(130, 110), editor->m_CursorSizeLeftTopRightBottom);
    EXPECT_EQ(At(50, 110), editor->m_CursorSizeLeftBottomRightTop);
    EXPECT_EQ(At(130, 30), editor->m_CursorSizeLeftBottomRightTop);
    EXPECT_EQ(At(50, 70), editor->m_CursorSizeHorizontal);
    EXPECT_EQ(At(130, 70), editor->m_CursorSizeHorizontal);
    EXPECT_EQ(At(90, 30), editor->m_CursorSizeVertical);
    EXPECT_EQ(At(90, 110), editor->m_CursorSizeVertical);
}

TEST_F(EditorCursors, SizeCursorsTurnWithTheContour)
{
    KvContour rect = Rect(50, 30, 130, 110);
    rect.Transform(KvVec2d(90, 70), KvVec2d(0, 0), KvMath::Pi / 4);
    Give({rect});
    editor->SelectContour(0);
    const auto cursorAt = [&](const KvVec2d& p)
    { return At(static_cast<int>(std::lround(p.x)), static_cast<int>(std::lround(p.y))); };
    const auto& points = Contour(0).CurvePositions();
    // A square on its tip: corners up, down, left and right.
    for (int i = 0; i < 4; ++i)
    {
        const KvVec2d p = points[i];
        const bool upright = std::abs(p.x - 90) < 1;
        EXPECT_EQ(cursorAt(p), upright ? editor->m_CursorSizeVertical : editor->m_CursorSizeHorizontal);
        const KvVec2d middle = (p + points[(i + 1) % 4]) * 0.5;
        const bool falling = (middle.x - 90) * (middle.y - 70) > 0;
        EXPECT_EQ(cursorAt(middle),
                  falling ? editor->m_CursorSizeLeftTopRightBottom : editor->m_CursorSizeLeftBottomRightTop);
    }
}

TEST_F(EditorCursors, QuarterTurnSwapsTheCornersAndKeepsTheCursorsOfThePlaces)
{
    const std::pair<int, int> places[] = {{50, 30}, {130, 110}, {50, 110}, {130, 30},
                                          {50, 70}, {130, 70},  {90, 30},  {90, 110}};
    KvContour rect = Rect(50, 30, 130, 110);
    std::vector<HCURSOR> cursors[2];
    for (auto& of : cursors)
    {
        Give({rect});
        editor->SelectContour(0);
        for (const auto& [x, y] : places)
            of.push_back(At(x, y));
        rect.Transform(KvVec2d(90, 70), KvVec2d(0, 0), KvMath::Pi / 2);
    }
    EXPECT_EQ(cursors[0], cursors[1]);
}

TEST_F(EditorCursors, ModifierOverACornerShowsTheRotationWithoutAMove)
{
    Give({Rect(50, 30, 130, 110)});
    editor->SelectContour(0);
    Move(50, 30);
    {
        const Held ctrl(VK_CONTROL);
        EXPECT_EQ(::GetCursor(), editor->m_CursorRotateObject);
    }
    EXPECT_EQ(::GetCursor(), editor->m_CursorSizeLeftTopRightBottom);
    {
        const Held alt(VK_MENU);
        EXPECT_EQ(::GetCursor(), editor->m_CursorRotateObject);
    }
    EXPECT_EQ(::GetCursor(), editor->m_CursorSizeLeftTopRightBottom);
}

TEST_F(EditorCursors, CtrlOverAnEdgeHandleChangesNothing)
{
    Give({Rect(50, 30, 130, 110)});
    editor->SelectContour(0);
    Move(50, 70);
    const Held ctrl(VK_CONTROL);
    EXPECT_EQ(::GetCursor(), editor->m_CursorSizeHorizontal);
}

TEST_F(EditorCursors, CursorStaysDuringADrag)
{
    Give({Rect(50, 30, 130, 110)});
    Press(70, 30);
    EXPECT_EQ(At(180, 140), editor->m_CursorMoveObject);
    Release(180, 140);
}

TEST_F(EditorCursors, DrawingToolsShowTheCrossAlways)
{
    Give({Rect(50, 30, 130, 110)});
    editor->SetTool(Wnd::ToolRect);
    EXPECT_EQ(::GetCursor(), editor->m_CursorNewPoint);
    EXPECT_EQ(At(50, 30), editor->m_CursorNewPoint);
    Press(10, 10);
    EXPECT_EQ(At(30, 30), editor->m_CursorNewPoint);
    Release(30, 30);
}

TEST_F(EditorCursors, PointToolTellsPointsEdgesAndBodies)
{
    Give({Shape(KvContour::ePolygon, {{40, 40}, {40, 100}, {140, 100}}),
          Shape(KvContour::ePolyline, {{20, 130}, {180, 130}}), Rect(150, 10, 190, 60)});
    editor->SelectContour(0);
    editor->SetTool(Wnd::ToolEditPoints);
    EXPECT_EQ(At(40, 100), editor->m_CursorMovePoint);
    {
        const Held ctrl(VK_CONTROL);
        EXPECT_EQ(::GetCursor(), editor->m_CursorDeletePoint);
        editor->SetEnableDeleteOff();
        EXPECT_EQ(At(41, 100), editor->m_CursorMovePoint);
    }
    EXPECT_EQ(At(90, 100), editor->m_CursorAddPoint);
    EXPECT_EQ(At(20, 130), editor->m_CursorMoveObject);  // a point of another contour
    EXPECT_EQ(At(100, 130), editor->m_CursorMoveObject); // an edge of another contour
    EXPECT_EQ(At(170, 10), editor->m_CursorMoveObject);  // a body without points
    EXPECT_EQ(At(100, 20), editor->m_CursorArrow);
}

TEST_F(EditorCursors, InteractionOffShowsTheArrow)
{
    Give({Rect(50, 30, 130, 110)});
    editor->SelectContour(0);
    editor->SetInteractionOff();
    EXPECT_EQ(At(50, 30), editor->m_CursorArrow);
    EXPECT_EQ(At(70, 30), editor->m_CursorArrow);
}

TEST_F(EditorCursors, HostThatAsksForTheCursorGetsThePositionInstead)
{
    Give({Rect(50, 30, 130, 110)});
    Move(180, 140);
    struct Requests
    {
        std::vector<KvTPoint<short>> points;
        static void Add(void* object, KvTPoint<short> p) { static_cast<Requests*>(object)->points.push_back(p); }
    } requests;
    editor->m_SignalCursorRequest.Connect(&requests, &Requests::Add);
    EXPECT_EQ(At(70, 30), editor->m_CursorArrow);
    ASSERT_EQ(requests.points.size(), 1u);
    EXPECT_EQ(requests.points[0], (KvTPoint<short>(70, 30)));
    editor->SetTool(Wnd::ToolRect);
    EXPECT_EQ(::GetCursor(), editor->m_CursorNewPoint);
}

TEST_F(EditorCursors, StaticSlotDoesNotTakeTheCursorOver)
{
    Give({Rect(50, 30, 130, 110)});
    editor->m_SignalCursorRequest.Connect([](KvTPoint<short>) {});
    EXPECT_EQ(At(70, 30), editor->m_CursorMoveObject);
}

TEST_F(EditorCursors, CustomCursorHoldsUntilTheNextMove)
{
    Move(180, 140);
    editor->SetCustomCursor(editor->m_CursorRotateObject);
    EXPECT_EQ(::GetCursor(), editor->m_CursorRotateObject);
    EXPECT_EQ(At(181, 140), editor->m_CursorArrow);
}

TEST_F(EditorCursors, SomethingElseThanARectangleGetsTheFourWayCursor)
{
    KvContour circle;
    circle.MakeCircle(50, 50, 20);
    editor->SelectCursorFromBoundingContour(circle, 0L);
    EXPECT_EQ(::GetCursor(), editor->m_CursorSizeAll);
    editor->SetCursorArrow();
    editor->SelectCursorFromBoundingContour(Rect(0, 0, 10, 10), 4L);
    EXPECT_EQ(::GetCursor(), editor->m_CursorSizeAll);
    editor->SetCursorArrow();
    editor->SelectCursorFromBoundingContour(Rect(0, 0, 10, 10), KvTPair<long>(0, 9));
    EXPECT_EQ(::GetCursor(), editor->m_CursorSizeAll);
    editor->SetCursorArrow();
    editor->SelectCursorFromBoundingContour(Rect(5, 5, 5, 5), KvTPair<long>(0, 1));
    EXPECT_EQ(::GetCursor(), editor->m_CursorSizeAll);
}

} // namespace
