// Undo and redo of the editor, and its snapshots.
#include "tests/basics/failing_memory.h"
#include "tests/ui/contour_editor.h"

using namespace KvN;
using namespace kv::test;

namespace
{

using EditorUndo = EditorTest;

TEST_F(EditorUndo, WithoutAManagerNothingIsUndoneAndNothingSent)
{
    editor->SetUndoRedo(nullptr);
    editor->SetTool(KvContourWnd::ToolFullFrame);
    log.Take();
    EXPECT_FALSE(editor->CanUndo());
    EXPECT_FALSE(editor->CanRedo());
    editor->Undo();
    editor->Redo();
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(Ids(), "0 | 0");
}

TEST_F(EditorUndo, UndoGoesBackWithNullAsTheAddedContour)
{
    editor->SetTool(KvContourWnd::ToolRect);
    Drag({{20, 20}, {60, 60}});
    log.Take();
    editor->Undo();
    EXPECT_EQ(log.Take(), "added null, operation 6");
    EXPECT_EQ(Ids(), "|");
    EXPECT_EQ(editor->m_SelectedID, -1);
    EXPECT_TRUE(editor->CanRedo());
    editor->Redo();
    EXPECT_EQ(log.Take(), "added null, operation 7");
    EXPECT_EQ(Ids(), "0 | 0");
    EXPECT_EQ(editor->m_SelectedID, -1);
    editor->Redo();
    EXPECT_EQ(log.Take(), "");
}

TEST_F(EditorUndo, UndoDropsTheFigureInProgress)
{
    editor->SetTool(KvContourWnd::ToolFullFrame);
    editor->SetTool(KvContourWnd::ToolRect);
    Press(20, 20);
    Move(60, 60);
    editor->Undo();
    EXPECT_FALSE(editor->IsEditing());
    EXPECT_EQ(::GetCapture(), nullptr);
    Release(60, 60);
    EXPECT_EQ(Ids(), "|");
}

TEST_F(EditorUndo, SnapshotHoldsContoursWhole)
{
    KvContour whole = Shape(KvContour::ePolyline, {{1, 2}, {3, 4}});
    whole.ID() = 12;
    whole.SequenceID() = 34;
    whole.Exclude() = 1;
    whole.ReadOnly() = 1;
    whole.LineWidth() = 5.5;
    whole.Color() = 0x112233;
    whole.Description() = KvString("Kratzer");
    whole.Angle() = 0.25;
    Give({whole});
    editor->SaveUndoRedoState();
    Give({});
    editor->Undo();
    const KvContour& back = Contour(12);
    EXPECT_EQ(back.SequenceID(), 34);
    EXPECT_EQ(back.Exclude(), 1);
    EXPECT_EQ(back.ReadOnly(), 1);
    EXPECT_EQ(back.LineWidth(), 5.5);
    EXPECT_EQ(back.Color(), 0x112233u);
    EXPECT_EQ(back.Description().Utf8(), "Kratzer");
    EXPECT_EQ(back.Angle(), 0.25);
    EXPECT_EQ(PointsOf(back), PointsOf(whole));
}

TEST_F(EditorUndo, StateIsEmptyUntilItIsRead)
{
    Give({Rect(10, 10, 50, 50)});
    KvContourWndState state(editor.get());
    state.Write();
    EXPECT_EQ(Ids(), "|");
    Give({Rect(10, 10, 50, 50)});
    state.Read();
    Give({});
    state.Write();
    EXPECT_EQ(Ids(), "0 | 0");
    state.Write();
    EXPECT_EQ(Ids(), "0 | 0");
    EXPECT_EQ(state.GetContourWnd(), editor.get());
}

TEST_F(EditorUndo, SnapshotIsAllOrNothing)
{
    Editor fresh; // no window that would want memory for its painting
    bool whole = false;
    int nothing = 0;
    for (int allocations = 0; !whole && allocations < 1000; ++allocations)
    {
        fresh.SetContourList(Contours({Rect(10, 10, 50, 50), Rect(60, 60, 90, 90)}).List());
        // A state reuses what the last one has copied: these contours are new to it.
        fresh.GetContour(0)->Angle() = fresh.GetContour(1)->Angle() = allocations;
        KvContourWndState state(&fresh);
        {
            const kv::testing::OutOfMemory memory(allocations);
            state.Read();
        }
        state.Write();
        whole = fresh.m_Contours.NumEntries() == 2;
        nothing += fresh.m_Contours.NumEntries() == 0;
        EXPECT_NE(fresh.m_Contours.NumEntries(), 1u);
    }
    EXPECT_TRUE(whole);
    EXPECT_GT(nothing, 0);
}

TEST_F(EditorUndo, ContourKeepsItsIdentityAsANewObject)
{
    Give({WithID(Rect(40, 40, 140, 100), 7)});
    const KvContour* before = editor->GetContour(7);
    Drag({{70, 40}, {90, 60}});
    editor->SetTool(KvContourWnd::ToolFullFrame);
    EXPECT_EQ(editor->GetContour(7), before);
    editor->Undo();
    editor->Undo();
    EXPECT_EQ(Ids(), "7 | 7");
    EXPECT_EQ(Contour(7).SequenceID(), 0);
    EXPECT_EQ(PointsOf(Contour(7)), PointsOf(Rect(40, 40, 140, 100)));
}

TEST_F(EditorUndo, CopiesOfAStateAreDeep)
{
    Give({Rect(10, 10, 50, 50)});
    KvContourWndState first(editor.get());
    first.Read();
    const std::unique_ptr<KvState> clone(first.Clone());
    KvContourWndState assigned(nullptr);
    assigned = first;
    EXPECT_EQ(assigned.GetContourWnd(), editor.get());
    const KvContourWndState& same = assigned;
    assigned = same;
    Give({});
    first.Read();
    clone->Write();
    EXPECT_EQ(Ids(), "0 | 0");
    Give({});
    assigned.Write();
    EXPECT_EQ(Ids(), "0 | 0");
}

TEST_F(EditorUndo, AssignmentTakesTheReferenceCountOver)
{
    KvContourWndState a(editor.get());
    a.Ref();
    a.Ref();
    KvContourWndState b(a);
    EXPECT_EQ(b.References(), 0);
    b = a;
    EXPECT_EQ(b.References(), 2);
}

TEST_F(EditorUndo, StateWithoutAnEditorDoesNothing)
{
    KvContourWndState state(nullptr);
    state.Read();
    state.Write();
    EXPECT_EQ(log.Take(), "");
}

TEST_F(EditorUndo, ClickThatOnlySelectsMakesNoStep)
{
    Give({Rect(40, 40, 140, 100)});
    Click(70, 40);
    EXPECT_EQ(editor->m_SelectedID, 0);
    EXPECT_FALSE(editor->CanUndo());
}

TEST_F(EditorUndo, DragThatComesBackToItsStartMakesNoStep)
{
    Give({Rect(40, 40, 140, 100)});
    Drag({{70, 40}, {90, 60}, {70, 40}});
    EXPECT_FALSE(editor->CanUndo());
    EXPECT_EQ(PointsOf(Contour(0)), PointsOf(Rect(40, 40, 140, 100)));
}

TEST_F(EditorUndo, HostMaySetStepsOfItsOwn)
{
    Give({Rect(40, 40, 140, 100)});
    editor->SaveUndoRedoState();
    Contour(0).Description() = KvString("neu");
    editor->Undo();
    EXPECT_EQ(Contour(0).Description().Utf8(), "");
}

} // namespace
