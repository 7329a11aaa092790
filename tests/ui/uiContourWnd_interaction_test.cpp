// Keys, focus, capture, failures, and the switches that keep the operator out.
#include "tests/ui/contour_editor.h"

using namespace KvN;
using namespace kv::test;

namespace
{

using EditorInput = EditorTest;
using Wnd = KvContourWnd;

void PressAndRelease(UINT key)
{
    kv::win::PressKey(key);
    kv::win::ReleaseKey(key);
}

TEST_F(EditorInput, MovingOverTheViewTakesTheKeyboard)
{
    host.SetFocus();
    Move(50, 50);
    EXPECT_EQ(::GetFocus(), view->GetSafeHwnd());
}

TEST_F(EditorInput, DeleteKeyDeletesTheSelectedContour)
{
    Give({Rect(40, 40, 140, 100), Rect(10, 10, 30, 30)});
    editor->SelectContour(0);
    Move(180, 140);
    log.changeModes = true;
    PressAndRelease(VK_DELETE);
    EXPECT_EQ(log.Take(), "deleted 0, change-mode, operation 3");
    EXPECT_EQ(Ids(), "1 | 1");
    EXPECT_EQ(editor->m_SelectedID, 0);
    EXPECT_EQ(editor->GetSelectedContour(), nullptr);
    PressAndRelease(VK_DELETE);
    EXPECT_EQ(log.Take(), "");
    editor->Undo();
    EXPECT_EQ(Ids(), "0 1 | 0 1");
}

TEST_F(EditorInput, DeleteKeyDoesNothingWhileDeletingIsOff)
{
    Give({Rect(40, 40, 140, 100)});
    editor->SelectContour(0);
    editor->SetEnableDeleteOff();
    Move(180, 140);
    PressAndRelease(VK_DELETE);
    EXPECT_EQ(Ids(), "0 | 0");
}

TEST_F(EditorInput, DeleteKeyDuringADragDeletesTheContourBeneath)
{
    Give({Rect(40, 40, 140, 100)});
    Press(70, 40);
    Move(80, 50);
    log.Take();
    PressAndRelease(VK_DELETE);
    EXPECT_EQ(log.Take(), "deleted 0, operation 3");
    EXPECT_TRUE(editor->IsEditing());
    Release(80, 50);
    EXPECT_EQ(log.Take(), "changed null, selected null, operation 4, operation 0");
    EXPECT_EQ(Ids(), "|");
    EXPECT_EQ(::GetCapture(), nullptr);
}

TEST_F(EditorInput, EscapeTellsTheChangeModeHandlerOnce)
{
    Move(10, 10);
    log.changeModes = true;
    PressAndRelease(VK_ESCAPE);
    EXPECT_EQ(log.Take(), "change-mode");
}

TEST_F(EditorInput, EndOfADragCallsTheChangeModeHandlerTwice)
{
    Give({Rect(40, 40, 140, 100)});
    Press(70, 40);
    Move(80, 50);
    log.Take();
    log.changeModes = true;
    Release(80, 50);
    EXPECT_EQ(log.Take(), "changed 0, selected 0, operation 4, operation 0, change-mode, change-mode");
}

TEST_F(EditorInput, RightButtonIsNotTheEditors)
{
    editor->SetTool(Wnd::ToolPolygon);
    Click(20, 20);
    log.Take();
    view->DisableRightButtonMenu();
    kv::win::PressButton(view->GetSafeHwnd(), kv::win::Button::Right, Client(20, 20));
    kv::win::ReleaseButton(view->GetSafeHwnd(), kv::win::Button::Right, Client(20, 20));
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(editor->m_Figure.CurvePositions().count, 1);
    EXPECT_FALSE(view->IsRightButtonMenuEnabled());
}

TEST_F(EditorInput, InteractionOffTellsClicksAndPicksNothing)
{
    Give({Rect(40, 40, 140, 100)});
    editor->SetInteractionOff();
    Click(70, 40);
    EXPECT_EQ(log.Take(), "click 70 40, operation 4");
    EXPECT_EQ(editor->m_SelectedID, -1);
}

TEST_F(EditorInput, DrawingGoesOnWhileInteractionIsOff)
{
    editor->SetInteractionOff();
    editor->SetTool(Wnd::ToolRect);
    Drag({{20, 20}, {60, 60}});
    EXPECT_EQ(Ids(), "0 | 0");
}

TEST_F(EditorInput, ReadOnlyContourCannotBeTouched)
{
    KvContour locked = Rect(40, 40, 140, 100);
    locked.ReadOnly() = 1;
    Give({locked});
    Drag({{70, 40}, {90, 60}});
    EXPECT_EQ(PointsOf(Contour(0)), PointsOf(locked));
    EXPECT_EQ(log.Take(), "selected null, operation 4");
}

TEST_F(EditorInput, FailureInASlotLeavesTheEditorAtRest)
{
    editor->m_SignalContourAdded.Connect([](KvContour*) { AfxThrowResourceException("slot"); });
    editor->SetTool(Wnd::ToolRect);
    Press(20, 20);
    Move(60, 60);
    try
    {
        const CPoint at = Client(60, 60);
        view->SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (KvException* failure)
    {
        EXPECT_EQ(failure->GetMessageW().Utf8(), "slot");
        failure->Delete();
    }
    EXPECT_EQ(::GetCapture(), nullptr);
    EXPECT_FALSE(editor->IsEditing());
    EXPECT_EQ(Ids(), "|");
    Release(60, 60);
}

TEST_F(EditorInput, OtherFailuresPassThroughUnchanged)
{
    editor->m_SignalFigureMoved.Connect([](KvContour*) { throw 7; });
    editor->SetTool(Wnd::ToolRect);
    Press(20, 20);
    const CPoint at = Client(60, 60);
    EXPECT_THROW(view->SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(at.x, at.y)), int);
    EXPECT_TRUE(editor->IsEditing());
    editor->m_SignalFigureMoved.Clear();
    Release(60, 60);
}

TEST_F(EditorInput, SlotMayCallBackIntoTheEditor)
{
    struct Host
    {
        Editor* editor;
        unsigned long added = 0;
        static void OnAdded(void* object, KvContour*)
        {
            auto* self = static_cast<Host*>(object);
            EXPECT_EQ(self->editor->m_Contours.NumEntries(), self->added++); // not in the store yet
            EXPECT_EQ(self->editor->SelectContour(0), nullptr);
        }
        static void OnOperation(void* object, KvContourWnd::eOperation operation)
        {
            auto* self = static_cast<Host*>(object);
            if (operation == KvContourWnd::OperationAdd)
                self->editor->SetTool(Wnd::ToolRect);
        }
    } hostOfSlots{editor.get()};
    editor->m_SignalContourAdded.Connect(&hostOfSlots, &Host::OnAdded);
    editor->m_SignalOperation.Connect(&hostOfSlots, &Host::OnOperation);
    editor->SetTool(Wnd::ToolRect);
    Drag({{20, 20}, {60, 60}});
    EXPECT_EQ(editor->GetTool(), Wnd::ToolRect);
    Drag({{70, 70}, {90, 90}});
    EXPECT_EQ(editor->m_Contours.NumEntries(), 2u);
}

TEST_F(EditorInput, DragOverAScrolledAndZoomedViewIsInImagePixels)
{
    Open(200, 150, 120, 100, 2.0);
    view->SetAOIPos(KvTPoint<short>(60, 50));
    editor->SetTool(Wnd::ToolRect);
    Drag({{70, 60}, {100, 80}});
    EXPECT_TRUE(Near(PointsOf(Contour(0)), {{70, 60}, {70, 80}, {100, 80}, {100, 60}}));
}

} // namespace
