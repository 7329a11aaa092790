// The editor's life, tools and options.
#include "tests/ui/contour_editor.h"

using namespace KvN;
using namespace kv::test;

namespace
{

using EditorModel = EditorTest;

TEST_F(EditorModel, StartsAtRestWithTheDocumentedDefaults)
{
    const Editor fresh;
    EXPECT_EQ(fresh.GetTool(), 0xFFFF);
    EXPECT_EQ(fresh.m_SelectedID, -1);
    EXPECT_EQ(fresh.m_CatchSize, 16);
    EXPECT_EQ(fresh.GetLineWidth(), 2);
    EXPECT_EQ(fresh.GetLineWidthThumb(), 2);
    EXPECT_EQ(fresh.GetPolylineWidth(), 2);
    EXPECT_TRUE(fresh.IsInteractionOn());
    EXPECT_FALSE(fresh.IsEditing());
    EXPECT_FALSE(fresh.IsRotating());
    EXPECT_FALSE(fresh.CanUndo());
}

TEST_F(EditorModel, WithoutAViewOperationsDoNothingHarmful)
{
    Editor fresh;
    fresh.SetHandler();
    fresh.ResetHandler();
    fresh.SetTool(KvContourWnd::ToolRect);
    fresh.SetTool(KvContourWnd::ToolFullFrame);
    EXPECT_EQ(fresh.m_Contours.NumEntries(), 0u);
    fresh.SetTool(KvContourWnd::ToolInvertAll);
    fresh.SetInteractionOff();
    fresh.SetContourSelected(nullptr);
    fresh.SetCursorCross();
    fresh.SetCatchSize(3);
    fresh.DisplayUserDrawnRegions(nullptr, nullptr);
    fresh.Undo();
    EXPECT_EQ(fresh.m_Contours.NumEntries(), 0u);
}

TEST_F(EditorModel, WithoutItsWindowTheEditorStillHoldsItsContours)
{
    Give({Rect(10, 10, 50, 50)});
    editor->DestroyWindow();
    editor->SelectContour(0);
    editor->SetColor(RGB(1, 2, 3));
    editor->SetTool(KvContourWnd::ToolRect);
    editor->SetContourSelected(&Contour(0));
    editor->SetHandler();
    editor->ResetHandler();
    EXPECT_EQ(Ids(), "0 | 0");
}

TEST_F(EditorModel, EditorMayGoBeforeItsWindowIsDestroyed)
{
    Give({Shape(KvContour::ePolygon, {{10, 10}, {10, 60}, {60, 60}})});
    editor->SetTool(KvContourWnd::ToolPolygon);
    Click(100, 100);
    undo.Clear();
    editor.reset();
    EXPECT_EQ(::GetCapture(), nullptr);
    Open(200, 150, 400, 300);
}

TEST_F(EditorModel, NumbersThatAreNoToolMeanSelect)
{
    for (const unsigned short tool : {0, 1, 2, 15, 16, 0xFFFE})
    {
        editor->SetTool(KvContourWnd::ToolRect);
        editor->SetTool(tool);
        EXPECT_EQ(editor->GetTool(), 0xFFFF) << tool;
    }
}

TEST_F(EditorModel, ToolThatIsSetAlreadyDoesNothingAtAll)
{
    editor->SetTool(KvContourWnd::ToolRect);
    log.Take();
    log.changeModes = true;
    editor->SetTool(KvContourWnd::ToolRect);
    EXPECT_EQ(log.Take(), "");
}

TEST_F(EditorModel, DrawingToolClearsTheSelectionAndTells)
{
    Give({Rect(10, 10, 50, 50)});
    editor->SelectContour(0);
    log.changeModes = true;
    editor->SetTool(KvContourWnd::ToolRect);
    EXPECT_EQ(editor->m_SelectedID, -1);
    EXPECT_EQ(log.Take(), "change-mode, selected null, operation 4");
}

TEST_F(EditorModel, PointToolKeepsTheSelectionAndTellsIt)
{
    Give({Shape(KvContour::ePolygon, {{10, 10}, {10, 60}, {60, 60}})});
    editor->SelectContour(0);
    editor->SetTool(KvContourWnd::ToolEditPoints);
    EXPECT_EQ(log.Take(), "selected 0, operation 4");
    EXPECT_EQ(editor->m_SelectedID, 0);
}

TEST_F(EditorModel, FullFrameAddsARectangleOverTheWholeImageAndSelectsIt)
{
    editor->SetTool(KvContourWnd::ToolFullFrame);
    EXPECT_EQ(log.Take(), "selected null, operation 4, added 0, operation 1");
    EXPECT_EQ(editor->GetTool(), 0xFFFF);
    EXPECT_EQ(editor->m_SelectedID, 0);
    EXPECT_TRUE(Near(PointsOf(Contour(0)), {{0, 0}, {0, 150}, {200, 150}, {200, 0}}));
    EXPECT_TRUE(editor->IsAOIRect(Contour(0)));
}

TEST_F(EditorModel, DeleteAllEmptiesTheStoreInOneStep)
{
    Give({Rect(10, 10, 50, 50), Rect(60, 60, 90, 90)});
    editor->SetTool(KvContourWnd::ToolDeleteAll);
    EXPECT_EQ(log.Take(), "selected null, operation 4, deleted null, operation 3");
    EXPECT_EQ(Ids(), "|");
    EXPECT_EQ(editor->GetTool(), 0xFFFF);
    editor->Undo();
    EXPECT_EQ(Ids(), "0 1 | 0 1");
}

TEST_F(EditorModel, DeleteAllWithDeleteDisabledLeavesItsNumberAndCannotBeRepeated)
{
    Give({Rect(10, 10, 50, 50)});
    editor->SetEnableDeleteOff();
    editor->SetTool(KvContourWnd::ToolDeleteAll);
    EXPECT_EQ(editor->GetTool(), 13);
    EXPECT_FALSE(editor->CanUndo());
    editor->SetEnableDeleteOn();
    editor->SetTool(KvContourWnd::ToolDeleteAll);
    EXPECT_EQ(Ids(), "0 | 0");
    Click(150, 100);
    EXPECT_EQ(editor->GetTool(), 0xFFFF);
}

TEST_F(EditorModel, InvertAllAddsAFrameBeneathEverything)
{
    Give({Rect(10, 10, 50, 50), Rect(60, 60, 90, 90)});
    editor->SetTool(KvContourWnd::ToolInvertAll);
    EXPECT_EQ(log.Take(), "selected null, operation 4, added 2, inverted, operation 5");
    EXPECT_EQ(Ids(), "0 1 2 | 2 0 1");
    EXPECT_FALSE(Contour(2).Exclude());
    EXPECT_TRUE(Contour(0).Exclude());
    EXPECT_TRUE(Contour(1).Exclude());
    EXPECT_EQ(Contour(2).SequenceID(), 2);
    EXPECT_EQ(Contour(0).SequenceID(), 3);
    editor->Undo();
    EXPECT_EQ(Ids(), "0 1 | 0 1");
    EXPECT_FALSE(Contour(0).Exclude());
    EXPECT_EQ(Contour(0).SequenceID(), 0);
}

TEST_F(EditorModel, InvertAllTwiceUsesTheFrameThatIsThere)
{
    Give({Rect(10, 10, 50, 50)});
    editor->SetTool(KvContourWnd::ToolInvertAll);
    editor->SetTool(KvContourWnd::ToolInvertAll);
    EXPECT_EQ(Ids(), "0 1 | 1 0");
    EXPECT_TRUE(Contour(1).Exclude());
    EXPECT_FALSE(Contour(0).Exclude());
}

TEST_F(EditorModel, SquareOverASquareImageIsNoFrame)
{
    Open(100, 100, 300, 300);
    KvContour square;
    square.MakeSquareFromDiagonal(0, 0, 100, 100);
    EXPECT_FALSE(editor->IsAOIRect(square));
    KvContour turned = Rect(0, 0, 100, 100);
    turned.Transform(KvVec2d(50, 50), KvVec2d(0, 0), 0.5);
    EXPECT_FALSE(editor->IsAOIRect(turned));
    EXPECT_FALSE(editor->IsAOIRect(Rect(0, 0, 99, 100)));
    EXPECT_TRUE(editor->IsAOIRect(Rect(0, 0, 100, 100)));
}

TEST_F(EditorModel, PolylineWidthGoesToTheSelectedPolyline)
{
    Give({Shape(KvContour::ePolyline, {{10, 10}, {80, 10}})});
    editor->SelectContour(0);
    editor->SetPolylineWidth(7);
    EXPECT_EQ(Contour(0).LineWidth(), 7.0);
    EXPECT_EQ(editor->GetPolylineWidth(), 2);
    EXPECT_EQ(log.Take(), "changed 0, operation 0");
    EXPECT_TRUE(editor->CanUndo());
}

TEST_F(EditorModel, PolylineWidthThatIsThereAlreadyTellsNothing)
{
    KvContour line = Shape(KvContour::ePolyline, {{10, 10}, {80, 10}});
    line.LineWidth() = 7;
    Give({line});
    editor->SelectContour(0);
    editor->SetPolylineWidth(7);
    EXPECT_EQ(log.Take(), "");
    EXPECT_FALSE(editor->CanUndo());
}

TEST_F(EditorModel, PolylineWidthWithoutASelectedPolylineIsForTheNext)
{
    Give({Rect(10, 10, 50, 50)});
    editor->SelectContour(0);
    editor->SetPolylineWidth(9);
    EXPECT_EQ(editor->GetPolylineWidth(), 9);
    EXPECT_EQ(log.Take(), "");
}

TEST_F(EditorModel, PointEditingIsOfferedForPolygonsAndPolylinesOnly)
{
    Give({Rect(10, 10, 50, 50), Shape(KvContour::ePolygon, {{10, 10}, {10, 60}, {60, 60}}),
          Shape(KvContour::ePolyline, {{10, 10}, {10, 60}})});
    EXPECT_FALSE(editor->IsPointEditModeAllowed());
    editor->SelectContour(0);
    EXPECT_FALSE(editor->IsPointEditModeAllowed());
    editor->SelectContour(1);
    EXPECT_TRUE(editor->IsPointEditModeAllowed());
    editor->SelectContour(2);
    EXPECT_TRUE(editor->IsPointEditModeAllowed());
}

TEST_F(EditorModel, ResetHandlerLeavesADisplayThatIgnoresInput)
{
    Give({Rect(10, 10, 50, 50)});
    editor->ResetHandler();
    editor->SetTool(KvContourWnd::ToolRect);
    log.Take();
    Drag({{60, 60}, {100, 100}});
    kv::win::PressKey(VK_DELETE);
    kv::win::ReleaseKey(VK_DELETE);
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(Ids(), "0 | 0");
}

TEST_F(EditorModel, SecondInitConnectsNoSecondKeySlot)
{
    editor->Init(aoi.get());
    EXPECT_EQ(view->keyDownSignal.SlotCount(), 1);
    EXPECT_EQ(view->keyUpSignal.SlotCount(), 1);
}

} // namespace
