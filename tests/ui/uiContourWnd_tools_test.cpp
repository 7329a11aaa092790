// What each tool makes of presses, moves and releases.
#include "tests/ui/contour_editor.h"

#include <cmath>
#include <optional>

using namespace KvN;
using namespace kv::test;

namespace
{

using EditorTools = EditorTest;
using Wnd = KvContourWnd;

const Points triangle = {{40, 40}, {40, 100}, {140, 100}};

// ---- Rectangles and ellipses

TEST_F(EditorTools, RectangleIsDrawnByItsDiagonal)
{
    editor->SetTool(Wnd::ToolRect);
    log.Take();
    Drag({{20, 30}, {40, 50}, {60, 80}});
    EXPECT_EQ(log.Take(), "figure 0:4, figure 0:4, added 0, operation 1");
    EXPECT_EQ(Contour(0).ContourType(), KvContour::eRectangle);
    EXPECT_TRUE(Near(PointsOf(Contour(0)), {{20, 30}, {20, 80}, {60, 80}, {60, 30}}));
    EXPECT_EQ(editor->GetTool(), 0xFFFF);
    EXPECT_EQ(editor->m_SelectedID, 0);
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(EditorTools, ExcludedToolsMakeExcludedContours)
{
    for (const unsigned short tool : {Wnd::ToolEllipseExcluded, Wnd::ToolRectExcluded})
    {
        editor->SetTool(tool);
        Drag({{20, 30}, {60, 80}});
    }
    for (const unsigned short tool : {Wnd::ToolPolygonExcluded, Wnd::ToolPolylineExcluded})
    {
        editor->SetTool(tool);
        Click(20, 20);
        Click(20, 80);
        Double(80, 80);
    }
    const int types[] = {KvContour::eEllipse, KvContour::eRectangle, KvContour::ePolygon, KvContour::ePolyline};
    for (int id = 0; id < 4; ++id)
    {
        EXPECT_EQ(Contour(id).ContourType(), types[id]);
        EXPECT_EQ(Contour(id).Exclude(), 1);
        EXPECT_EQ(Contour(id).SequenceID(), id);
    }
}

TEST_F(EditorTools, ShiftMakesSquaresAndCircles)
{
    const Held shift(VK_SHIFT);
    editor->SetTool(Wnd::ToolRect);
    Drag({{20, 20}, {60, 40}});
    EXPECT_EQ(Contour(0).ContourType(), KvContour::eSquare);
    EXPECT_TRUE(Near(PointsOf(Contour(0)), {{20, 20}, {20, 60}, {60, 60}, {60, 20}}));
    editor->SetTool(Wnd::ToolEllipse);
    Drag({{100, 20}, {140, 40}});
    EXPECT_EQ(Contour(1).ContourType(), KvContour::eCircle);
    EXPECT_TRUE(Near(PointsOf(Contour(1)), {{120, 40}, {140, 40}}));
}

TEST_F(EditorTools, ShiftDuringTheDragChangesTheFigureAtOnce)
{
    editor->SetTool(Wnd::ToolRect);
    Press(20, 20);
    Move(60, 40);
    EXPECT_EQ(editor->m_Figure.ContourType(), KvContour::eRectangle);
    {
        const Held shift(VK_SHIFT);
        EXPECT_EQ(editor->m_Figure.ContourType(), KvContour::eSquare);
    }
    EXPECT_EQ(editor->m_Figure.ContourType(), KvContour::eRectangle);
    Release(60, 40);
    EXPECT_EQ(Contour(0).ContourType(), KvContour::eRectangle);
}

TEST_F(EditorTools, PressAndReleaseOnOneSpotAddsNothingYetEndsTheTool)
{
    log.changeModes = true;
    editor->SetTool(Wnd::ToolEllipse);
    log.Take();
    Click(50, 50);
    EXPECT_EQ(Ids(), "|");
    EXPECT_EQ(editor->GetTool(), 0xFFFF);
    EXPECT_EQ(log.Take(), "change-mode, change-mode, change-mode, operation 1");
    EXPECT_FALSE(editor->CanUndo());
}

TEST_F(EditorTools, DragWithoutAreaAddsNothing)
{
    editor->SetTool(Wnd::ToolRect);
    Drag({{20, 20}, {80, 20}});
    EXPECT_EQ(Ids(), "|");
    EXPECT_EQ(editor->GetTool(), 0xFFFF);
}

TEST_F(EditorTools, EscapeDuringADragKeepsTheToolArmed)
{
    editor->SetTool(Wnd::ToolRect);
    Press(20, 20);
    Move(60, 60);
    EXPECT_EQ(::GetCapture(), view->GetSafeHwnd());
    kv::win::PressKey(VK_ESCAPE);
    kv::win::ReleaseKey(VK_ESCAPE);
    EXPECT_EQ(::GetCapture(), nullptr);
    EXPECT_FALSE(editor->IsEditing());
    log.Take();
    Move(70, 70);
    Release(70, 70);
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(editor->GetTool(), Wnd::ToolRect);
    EXPECT_EQ(Ids(), "|");
}

// ---- Polygons and polylines

TEST_F(EditorTools, TwoClicksAndADoubleClickGiveThreePoints)
{
    editor->SetTool(Wnd::ToolPolygon);
    log.Take();
    Click(20, 20);
    EXPECT_EQ(log.Take(), "");
    Click(20, 80);
    EXPECT_EQ(log.Take(), "figure 1:2, figure 1:1");
    Double(80, 80);
    EXPECT_EQ(log.Take(), "figure 1:3, figure 1:2, added 0, operation 1");
    EXPECT_TRUE(Near(PointsOf(Contour(0)), {{20, 20}, {20, 80}, {80, 80}}));
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(EditorTools, ClockwisePolygonIsTurnedRound)
{
    editor->SetTool(Wnd::ToolPolygon);
    Click(20, 20);
    Click(80, 80);
    Double(20, 80);
    EXPECT_TRUE(Near(PointsOf(Contour(0)), {{20, 80}, {80, 80}, {20, 20}}));
}

TEST_F(EditorTools, PolylineKeepsItsDrawingOrder)
{
    editor->SetTool(Wnd::ToolPolyline);
    Click(80, 80);
    Double(20, 20);
    EXPECT_EQ(Contour(0).ContourType(), KvContour::ePolyline);
    EXPECT_TRUE(Near(PointsOf(Contour(0)), {{80, 80}, {20, 20}}));
    EXPECT_EQ(Contour(0).LineWidth(), KvContour::NoLineWidth);
}

TEST_F(EditorTools, PolygonHoldsTheCaptureOverTheReleases)
{
    editor->SetTool(Wnd::ToolPolygon);
    Click(20, 20);
    EXPECT_EQ(::GetCapture(), view->GetSafeHwnd());
    EXPECT_TRUE(view->IsRightButtonMenuEnabled());
    Move(40, 40);
    EXPECT_EQ(::GetCapture(), view->GetSafeHwnd());
}

TEST_F(EditorTools, RightButtonMenuIsOffUntilTheFirstRelease)
{
    editor->SetTool(Wnd::ToolPolygon);
    Press(20, 20);
    EXPECT_FALSE(view->IsRightButtonMenuEnabled());
    Release(20, 20);
    EXPECT_TRUE(view->IsRightButtonMenuEnabled());
}

TEST_F(EditorTools, ModifierAfterAClickAppendsNoPoint)
{
    editor->SetTool(Wnd::ToolPolygon);
    Press(20, 20);
    {
        const Held shift(VK_SHIFT);
    }
    EXPECT_EQ(editor->m_Figure.CurvePositions().count, 1);
    Release(20, 20);
    Click(20, 80);
    {
        const Held ctrl(VK_CONTROL);
    }
    EXPECT_EQ(editor->m_Figure.CurvePositions().count, 2);
}

TEST_F(EditorTools, ClicksOnOneLineGiveNoPolygon)
{
    editor->SetTool(Wnd::ToolPolygon);
    Click(20, 20);
    Click(40, 20);
    Double(80, 20);
    EXPECT_EQ(Ids(), "|");
    EXPECT_EQ(editor->GetTool(), 0xFFFF);
}

// ---- Select: moving, stretching, turning, inverting

TEST_F(EditorTools, PressBesideEverythingClearsTheSelection)
{
    Give({Rect(40, 40, 140, 100)});
    editor->SelectContour(0);
    Click(180, 140);
    EXPECT_EQ(log.Take(), "selected null, operation 4");
    EXPECT_EQ(editor->m_SelectedID, -1);
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(EditorTools, ContourIsMovedByItsBody)
{
    Give({Rect(40, 40, 140, 100)});
    Drag({{70, 40}, {75, 50}, {80, 55}});
    EXPECT_EQ(log.Take(),
              "selected 0, operation 4, figure 0:4, figure 0:4, changed 0, selected 0, operation 4, operation 0");
    EXPECT_TRUE(Near(PointsOf(Contour(0)), {{50, 55}, {50, 115}, {150, 115}, {150, 55}}));
    EXPECT_EQ(::GetCapture(), nullptr);
    editor->Undo();
    EXPECT_TRUE(Near(PointsOf(Contour(0)), {{40, 40}, {40, 100}, {140, 100}, {140, 40}}));
}

TEST_F(EditorTools, PolylineIsMovedThoughItHasNoCentreOfMass)
{
    Give({Shape(KvContour::ePolyline, {{40, 40}, {40, 100}, {140, 100}})});
    Drag({{90, 100}, {95, 90}});
    EXPECT_TRUE(Near(PointsOf(Contour(0)), {{45, 30}, {45, 90}, {145, 90}}));
}

TEST_F(EditorTools, EscapeDuringAMoveLeavesTheContour)
{
    Give({Rect(40, 40, 140, 100)});
    Press(70, 40);
    Move(90, 60);
    EXPECT_EQ(editor->m_EditMode, 1);
    kv::win::PressKey(VK_ESCAPE);
    kv::win::ReleaseKey(VK_ESCAPE);
    Release(90, 60);
    EXPECT_EQ(PointsOf(Contour(0)), PointsOf(Rect(40, 40, 140, 100)));
    EXPECT_FALSE(editor->CanUndo());
}

TEST_F(EditorTools, EachHandleStretches)
{
    const struct
    {
        int x, y, toX, toY;
        Points result;
    } cases[] = {
        {40, 40, 20, 30, {{20, 30}, {20, 100}, {140, 100}, {140, 30}}}, // corners
        {40, 100, 20, 120, {{20, 40}, {20, 120}, {140, 120}, {140, 40}}},
        {140, 100, 160, 120, {{40, 40}, {40, 120}, {160, 120}, {160, 40}}},
        {140, 40, 160, 20, {{40, 20}, {40, 100}, {160, 100}, {160, 20}}},
        {40, 70, 20, 75, {{20, 40}, {20, 100}, {140, 100}, {140, 40}}}, // edges
        {90, 100, 95, 120, {{40, 40}, {40, 120}, {140, 120}, {140, 40}}},
        {140, 70, 160, 75, {{40, 40}, {40, 100}, {160, 100}, {160, 40}}},
        {90, 40, 95, 20, {{40, 20}, {40, 100}, {140, 100}, {140, 20}}},
    };
    for (const auto& c : cases)
    {
        Give({Rect(40, 40, 140, 100)});
        editor->SelectContour(0);
        Drag({{c.x, c.y}, {c.toX, c.toY}});
        KvTRectangle<double> box, expected;
        Contour(0).MakeBoundingBox(box);
        Shape(KvContour::eRectangle, c.result).MakeBoundingBox(expected);
        EXPECT_NEAR(box.left, expected.left, 1e-9) << c.x << "," << c.y;
        EXPECT_NEAR(box.top, expected.top, 1e-9) << c.x << "," << c.y;
        EXPECT_NEAR(box.right, expected.right, 1e-9) << c.x << "," << c.y;
        EXPECT_NEAR(box.bottom, expected.bottom, 1e-9) << c.x << "," << c.y;
    }
}

TEST_F(EditorTools, HandleOnItsAnchorKeepsTheLastShape)
{
    Give({Rect(40, 40, 140, 100)});
    editor->SelectContour(0);
    Drag({{140, 100}, {90, 70}, {40, 40}});
    KvTRectangle<double> box;
    Contour(0).MakeBoundingBox(box);
    EXPECT_NEAR(box.right, 90, 1e-9);
    EXPECT_NEAR(box.bottom, 70, 1e-9);
}

TEST_F(EditorTools, ShiftKeepsTheProportionsAtACorner)
{
    Give({Rect(40, 40, 140, 100)});
    editor->SelectContour(0);
    Press(140, 100);
    const Held shift(VK_SHIFT);
    Move(190, 103);
    Release(190, 103);
    KvTRectangle<double> box;
    Contour(0).MakeBoundingBox(box);
    EXPECT_NEAR(box.right, 190, 1e-9);
    EXPECT_NEAR(box.bottom, 130, 1e-9);
}

TEST_F(EditorTools, CtrlOrAltAtACornerTurnsTheContourWithTheMouse)
{
    for (const UINT key : {UINT{VK_CONTROL}, UINT{VK_MENU}})
    {
        Give({Rect(40, 40, 140, 100)});
        editor->SelectContour(0);
        Move(140, 40);
        const Held modifier(key);
        Press(140, 40);
        EXPECT_TRUE(editor->IsRotating());
        Move(120, 120);
        Release(120, 120);
        EXPECT_FALSE(editor->IsRotating());
        EXPECT_TRUE(Near(PointsOf(Contour(0)), {{120, 20}, {60, 20}, {60, 120}, {120, 120}}));
    }
}

TEST_F(EditorTools, TurnedPolygonKeepsItsAngle)
{
    Give({Shape(KvContour::ePolygon, {{40, 40}, {40, 100}, {140, 100}, {140, 40}})});
    editor->SelectContour(0);
    Move(140, 40);
    const Held ctrl(VK_CONTROL);
    Drag({{140, 40}, {120, 120}});
    EXPECT_NEAR(std::remainder(Contour(0).Angle() + KvMath::Pi / 2, KvMath::TwoPi), 0.0, 1e-9);
}

TEST_F(EditorTools, CtrlPressInvertsTheContourItSelectsInOneStep)
{
    Give({Rect(40, 40, 140, 100)});
    Move(70, 40);
    const Held ctrl(VK_CONTROL);
    Click(70, 40);
    EXPECT_EQ(log.Take(), "selected 0, operation 4, changed 0, operation 0");
    EXPECT_EQ(Contour(0).Exclude(), 1);
    EXPECT_EQ(undo.UndoSteps(), 1u);
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(EditorTools, CtrlPressMovesWhileInversionIsOff)
{
    Give({Rect(40, 40, 140, 100)});
    editor->SetEnableInvertOff();
    Move(70, 40);
    const Held ctrl(VK_CONTROL);
    Drag({{70, 40}, {80, 50}});
    EXPECT_EQ(Contour(0).Exclude(), 0);
    EXPECT_TRUE(Near(PointsOf(Contour(0)), {{50, 50}, {50, 110}, {150, 110}, {150, 50}}));
}

TEST_F(EditorTools, HandleOfTheSelectedContourWinsOverAnotherBeneathIt)
{
    Give({Rect(20, 35, 60, 60), Rect(40, 40, 140, 100)});
    editor->SelectContour(1);
    Click(42, 38);
    EXPECT_EQ(editor->m_SelectedID, 1);
    EXPECT_EQ(log.Take(), "");
}

TEST_F(EditorTools, InvalidFigureOfADragIsDropped)
{
    // Clockwise, as a host may hand it over: no valid polygon.
    const KvContour invalid = Shape(KvContour::ePolygon, {{40, 40}, {140, 100}, {40, 100}});
    Give({invalid});
    Press(40, 70);
    EXPECT_EQ(editor->m_EditMode, 1);
    Move(60, 80);
    log.Take();
    Release(60, 80);
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(PointsOf(Contour(0)), PointsOf(invalid));
    EXPECT_FALSE(editor->CanUndo());
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(EditorTools, SelectedContourThatGoesDuringADragEndsTheDrag)
{
    Give({Rect(40, 40, 140, 100), Rect(10, 10, 30, 30)});
    Press(70, 40);
    Move(80, 50);
    editor->SetContourSelected(&Contour(1));
    Move(90, 60);
    EXPECT_FALSE(editor->IsEditing());
    EXPECT_EQ(::GetCapture(), nullptr);
    Release(90, 60);
    EXPECT_EQ(PointsOf(Contour(0)), PointsOf(Rect(40, 40, 140, 100)));
}

// ---- Editing points

class EditorPoints : public EditorTest
{
protected:
    EditorPoints()
    {
        Give({Shape(KvContour::ePolygon, triangle), Shape(KvContour::ePolyline, {{20, 130}, {180, 130}})});
        editor->SelectContour(0);
        editor->SetTool(Wnd::ToolEditPoints);
        log.Take();
    }
};

TEST_F(EditorPoints, PointFollowsTheMouse)
{
    Drag({{40, 100}, {45, 105}, {50, 110}});
    EXPECT_EQ(log.Take(), "figure 1:3, figure 1:3, changed 0, selected 0, operation 4, operation 0");
    EXPECT_TRUE(Near(PointsOf(Contour(0)), {{40, 40}, {50, 110}, {140, 100}}));
    EXPECT_EQ(editor->GetTool(), Wnd::ToolEditPoints);
    EXPECT_EQ(::GetCapture(), nullptr);
    editor->Undo();
    EXPECT_TRUE(Near(PointsOf(Contour(0)), triangle));
}

TEST_F(EditorPoints, PressOnAnEdgePutsAPointIn)
{
    Drag({{90, 100}, {90, 120}});
    EXPECT_TRUE(Near(PointsOf(Contour(0)), {{40, 40}, {40, 100}, {90, 120}, {140, 100}}));
}

TEST_F(EditorPoints, PressOnTheClosingEdgePutsAPointInAtTheEnd)
{
    Press(90, 70);
    EXPECT_EQ(editor->m_Pair, (KvTPair<long>(2, 0)));
    Move(100, 60);
    Release(100, 60);
    EXPECT_TRUE(Near(PointsOf(Contour(0)), {{40, 40}, {40, 100}, {140, 100}, {100, 60}}));
}

TEST_F(EditorPoints, CtrlPressDeletesAPoint)
{
    Drag({{90, 100}, {90, 120}});
    log.Take();
    Move(90, 120);
    const Held ctrl(VK_CONTROL);
    Click(90, 120);
    EXPECT_EQ(log.Take(), "changed 0, selected 0, operation 4, operation 0");
    EXPECT_TRUE(Near(PointsOf(Contour(0)), triangle));
    EXPECT_EQ(undo.UndoSteps(), 2u);
}

TEST_F(EditorPoints, PointThatATriangleNeedsIsNotDeleted)
{
    Move(40, 100);
    const Held ctrl(VK_CONTROL);
    Click(40, 100);
    EXPECT_EQ(log.Take(), "");
    EXPECT_TRUE(Near(PointsOf(Contour(0)), triangle));
    EXPECT_FALSE(editor->CanUndo());
}

TEST_F(EditorPoints, CtrlPressMovesThePointWhileDeletingIsOff)
{
    editor->SetEnableDeleteOff();
    Move(40, 100);
    const Held ctrl(VK_CONTROL);
    Drag({{40, 100}, {50, 110}});
    EXPECT_TRUE(Near(PointsOf(Contour(0)), {{40, 40}, {50, 110}, {140, 100}}));
}

TEST_F(EditorPoints, PointOfAnotherContourIsOnlySelected)
{
    Drag({{20, 130}, {30, 140}});
    EXPECT_EQ(editor->m_SelectedID, 1);
    EXPECT_EQ(log.Take(), "selected 1, operation 4");
    EXPECT_TRUE(Near(PointsOf(Contour(1)), {{20, 130}, {180, 130}}));
    Drag({{20, 130}, {30, 140}});
    EXPECT_TRUE(Near(PointsOf(Contour(1)), {{30, 140}, {180, 130}}));
}

TEST_F(EditorPoints, CtrlPressOnAPointOfAnotherContourSelectsItWithoutDeleting)
{
    Move(20, 130);
    const Held ctrl(VK_CONTROL);
    Click(20, 130);
    EXPECT_EQ(editor->m_SelectedID, 1);
    EXPECT_EQ(Contour(1).CurvePositions().count, 2);
}

TEST_F(EditorPoints, PressBesideEverythingLeavesTheTool)
{
    log.changeModes = true;
    Click(180, 20);
    EXPECT_EQ(editor->GetTool(), 0xFFFF);
    EXPECT_EQ(editor->m_SelectedID, -1);
    EXPECT_EQ(log.Take(), "change-mode, change-mode, change-mode, selected null, operation 4");
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(EditorPoints, PressAndReleaseOnAPointWritesItBack)
{
    Click(42, 98);
    EXPECT_EQ(log.Take(), "changed 0, selected 0, operation 4, operation 0");
    EXPECT_TRUE(Near(PointsOf(Contour(0)), {{40, 40}, {42, 98}, {140, 100}}));
}

TEST_F(EditorPoints, MoveWithTheButtonUpDropsTheHeldPoint)
{
    Press(40, 100);
    Move(50, 110);
    EXPECT_TRUE(editor->IsEditing());
    const CPoint at = Client(60, 110);
    view->SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(at.x, at.y)); // its release went elsewhere
    EXPECT_FALSE(editor->IsEditing());
    EXPECT_EQ(::GetCapture(), nullptr);
    EXPECT_EQ(editor->GetTool(), Wnd::ToolEditPoints);
    log.Take();
    Release(60, 110);
    EXPECT_EQ(log.Take(), "");
    EXPECT_TRUE(Near(PointsOf(Contour(0)), triangle));
}

TEST_F(EditorPoints, SecondPressDropsTheHeldPoint)
{
    for (const bool deleting : {false, true})
    {
        Press(40, 100);
        Move(50, 110);
        const CPoint at = Client(50, 110);
        {
            std::optional<Held> ctrl;
            if (deleting)
                ctrl.emplace(VK_CONTROL);
            view->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
        }
        EXPECT_FALSE(editor->IsEditing()) << deleting;
        EXPECT_EQ(::GetCapture(), nullptr) << deleting;
        Release(50, 110);
        EXPECT_TRUE(Near(PointsOf(Contour(0)), triangle)) << deleting;
        EXPECT_FALSE(editor->CanUndo()) << deleting;
    }
}

TEST_F(EditorPoints, PointOfAnotherContourBeatsAnEdgeOfTheSelectedOne)
{
    Give({Shape(KvContour::ePolygon, triangle), Shape(KvContour::ePolyline, {{90, 106}, {180, 140}})});
    editor->SelectContour(0);
    Click(90, 100);
    EXPECT_EQ(editor->m_SelectedID, 1);
    EXPECT_EQ(Contour(0).CurvePositions().count, 3);
}

TEST_F(EditorPoints, EdgeOfAnotherContourIsOnlySelected)
{
    Drag({{100, 130}, {100, 140}});
    EXPECT_EQ(log.Take(), "selected 1, operation 4");
    EXPECT_EQ(Contour(1).CurvePositions().count, 2);
    EXPECT_FALSE(editor->CanUndo());
    EXPECT_EQ(::GetCapture(), view->GetSafeHwnd()); // of a press that started nothing, until the next press
    Click(100, 20);
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(EditorPoints, DeleteKeyDoesNothing)
{
    Move(40, 100);
    kv::win::PressKey(VK_DELETE);
    kv::win::ReleaseKey(VK_DELETE);
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(Ids(), "0 1 | 0 1");
}

} // namespace
