// The editor's store: identities, the two orders, selection, and the lists of hosts.
#include "tests/basics/failing_memory.h"
#include "tests/ui/contour_editor.h"

#include <limits>

using namespace KvN;
using namespace kv::test;

namespace
{

class EditorStore : public EditorTest
{
protected:
    long NextID(std::initializer_list<int> ids)
    {
        editor->m_ContourSeq.Clear();
        editor->m_Contours.Clear();
        for (const int id : ids)
            editor->m_Contours.AddEntry(new KvContour(WithID(Rect(0, 0, 9, 9), id)));
        editor->Sort();
        return editor->GetNextContourID();
    }
};

TEST_F(EditorStore, NextIDIsTheSmallestFreeOne)
{
    EXPECT_EQ(NextID({}), 0);
    EXPECT_EQ(NextID({0, 1, 3}), 2);
    EXPECT_EQ(NextID({1, 2}), 0);
    EXPECT_EQ(NextID({0, 1, 2}), 3);
    EXPECT_EQ(NextID({-1, -1, 5}), 0);
    EXPECT_EQ(NextID({-1, 0, 1}), 2);
    EXPECT_EQ(NextID({-1}), 0);
    EXPECT_EQ(NextID({0, std::numeric_limits<int>::max()}), 1);
}

TEST_F(EditorStore, NextSequenceNumberFollowsTheLast)
{
    EXPECT_EQ(editor->GetNextContourSequenceID(), 0);
    KvContour last = Rect(0, 0, 9, 9);
    last.SequenceID() = 41;
    Give({last, Rect(0, 0, 9, 9)});
    EXPECT_EQ(editor->GetNextContourSequenceID(), 42);
}

TEST_F(EditorStore, ListIsTakenOverInBothOrders)
{
    KvContour a = WithID(Rect(0, 0, 9, 9), 7);
    a.SequenceID() = 1;
    KvContour b = WithID(Rect(0, 0, 9, 9), 3);
    b.SequenceID() = 2;
    KvContour c = WithID(Rect(0, 0, 9, 9), 5);
    c.SequenceID() = 0;
    EXPECT_EQ(editor->SetContourList(Contours({a, b, c}).List()), 1);
    EXPECT_EQ(Ids(), "3 5 7 | 5 7 3");
    EXPECT_EQ(editor->GetContourByIndex(0)->ID(), 3);
    EXPECT_EQ(editor->GetContourSeqByIndex(0)->ID(), 5);
    EXPECT_EQ(editor->GetContourByIndex(3), nullptr);
    EXPECT_EQ(editor->GetContourByIndex(-1), nullptr);
    EXPECT_EQ(editor->GetContourSeqByIndex(3), nullptr);
    EXPECT_EQ(editor->GetContour(4), nullptr);
    EXPECT_EQ(editor->GetContour(7)->SequenceID(), 1);
}

TEST_F(EditorStore, FirstOfTwoContoursWithOneIDStays)
{
    Give({WithID(Rect(0, 0, 10, 10), 4), WithID(Rect(0, 0, 20, 20), 4)});
    EXPECT_EQ(Ids(), "4 | 4");
    EXPECT_TRUE(Near(PointsOf(Contour(4)), {{0, 0}, {0, 10}, {10, 10}, {10, 0}}));
}

TEST_F(EditorStore, ListOfTheHostSendsNothingAndDropsTheSelection)
{
    Give({Rect(10, 10, 50, 50)});
    editor->SelectContour(0);
    Give({Rect(10, 10, 50, 50)});
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(editor->m_SelectedID, -1);
    EXPECT_FALSE(editor->CanUndo());
}

TEST_F(EditorStore, ListWithAMatrixIsTurnedAndMovedAboutTheOrigin)
{
    KvTList<KvContour> list;
    list.AddTail(WithID(Shape(KvContour::ePolyline, {{10, 0}, {20, 0}}), 0));
    KvMatrix4 matrix;
    matrix[1] = 1.0; // a quarter turn
    matrix[3] = 5.0;
    matrix[7] = 30.0;
    EXPECT_EQ(editor->SetContourList(list, matrix), 1);
    EXPECT_TRUE(Near(PointsOf(Contour(0)), {{5, 20}, {5, 10}}));
}

TEST_F(EditorStore, MatrixOfNothingLeavesCoordinatesUntouched)
{
    KvTList<KvContour> list;
    list.AddTail(WithID(Shape(KvContour::ePolyline, {{0.1, 0.7}, {1e-17, 3.3}}), 0));
    KvMatrix4 matrix;
    matrix[1] = 1e-10;
    matrix[3] = -1e-10;
    EXPECT_EQ(editor->SetContourList(list, matrix), 1);
    EXPECT_EQ(PointsOf(Contour(0)), (Points{{0.1, 0.7}, {1e-17, 3.3}}));
}

TEST_F(EditorStore, EmptyListClearsTheStore)
{
    Give({Rect(10, 10, 50, 50)});
    EXPECT_EQ(editor->SetContourList(KvTList<KvContour>(), KvMatrix4()), 1);
    EXPECT_EQ(Ids(), "|");
}

TEST_F(EditorStore, ListThatCannotBeCopiedWholeLeavesNothingToDraw)
{
    const Contours list({Rect(10, 10, 50, 50), Rect(60, 60, 90, 90)});
    Editor fresh; // no window that would want memory for its painting
    int failures = 0;
    int result = 0;
    for (int allocations = 0; result == 0 && allocations < 1000; ++allocations)
    {
        fresh.SetContourList(list.List());
        {
            const kv::testing::OutOfMemory memory(allocations);
            result = fresh.SetContourList(list.List());
        }
        if (result == 0)
        {
            ++failures;
            EXPECT_EQ(fresh.m_ContourSeq.NumEntries(), 0u);
            EXPECT_LE(fresh.m_Contours.NumEntries(), 1u);
        }
    }
    EXPECT_GT(failures, 0);
    EXPECT_EQ(result, 1);
    EXPECT_EQ(fresh.m_Contours.NumEntries(), 2u);
}

TEST_F(EditorStore, InsertedContourWithAKnownIDIsRefused)
{
    Give({Rect(10, 10, 50, 50)});
    KvContour other = WithID(Rect(0, 0, 9, 9), 0);
    EXPECT_EQ(editor->InsertContourPtr(&other), nullptr);
    EXPECT_EQ(Ids(), "0 | 0");
}

TEST_F(EditorStore, InsertedContourTakesTheSequenceNumberOfAnotherOver)
{
    Give({Rect(10, 10, 50, 50), Rect(60, 60, 90, 90)});
    auto* contour = new KvContour(WithID(Rect(0, 0, 9, 9), 2));
    contour->SequenceID() = 0;
    EXPECT_EQ(editor->InsertContourPtr(contour), contour);
    EXPECT_EQ(Ids(), "0 1 2 | 2 1");
}

TEST_F(EditorStore, DeletedContourLeavesBothOrders)
{
    Give({Rect(10, 10, 50, 50), Rect(60, 60, 90, 90)});
    editor->DeleteContour(Contour(0));
    EXPECT_EQ(Ids(), "1 | 1");
    editor->DeleteContour(WithID(KvContour(), 17));
    EXPECT_EQ(Ids(), "1 | 1");
}

TEST_F(EditorStore, DeletedContourDoesNotDragAnotherOfItsSequenceNumberAlong)
{
    KvContour a = Rect(10, 10, 50, 50);
    KvContour b = Rect(60, 60, 90, 90);
    a.SequenceID() = b.SequenceID() = 5;
    Give({a, b});
    editor->DeleteContour(Contour(1));
    EXPECT_EQ(Ids(), "0 | 0");
}

TEST_F(EditorStore, SortRestoresTheOrdersAfterAHostHasRenumbered)
{
    Give({Rect(10, 10, 50, 50), Rect(60, 60, 90, 90)});
    KvContour& first = Contour(0);
    first.ID() = 8;
    first.SequenceID() = 8;
    editor->Sort();
    EXPECT_EQ(Ids(), "1 8 | 1 8");
}

TEST_F(EditorStore, SelectContourSendsNoSignal)
{
    Give({Rect(10, 10, 50, 50), Rect(60, 60, 90, 90)});
    EXPECT_EQ(editor->SelectContour(1), &Contour(1));
    EXPECT_EQ(editor->GetSelectedContour(), &Contour(1));
    EXPECT_EQ(editor->SelectContour(9), nullptr);
    EXPECT_EQ(editor->m_SelectedID, 1);
    EXPECT_EQ(log.Take(), "");
}

TEST_F(EditorStore, SelectContourIsRefusedDuringADrag)
{
    Give({Rect(10, 10, 50, 50), Rect(60, 60, 90, 90)});
    Press(30, 10);
    Move(35, 15);
    EXPECT_EQ(editor->SelectContour(1), nullptr);
    EXPECT_EQ(editor->m_SelectedID, 0);
    Release(35, 15);
}

TEST_F(EditorStore, SelectionWithInteractionOffTellsTheClickInsteadOfTheContour)
{
    Give({Rect(10, 10, 50, 50)});
    editor->SetInteractionOff();
    Move(70, 80);
    log.Take();
    editor->SetContourSelected(&Contour(0));
    EXPECT_EQ(editor->m_SelectedID, 0);
    EXPECT_EQ(log.Take(), "click 70 80, operation 4");
}

} // namespace
