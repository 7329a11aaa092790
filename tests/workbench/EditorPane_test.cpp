// What the pane and the list add to the editor: changes of attributes as undo steps, copies with numbers of their own.
#include "apps/workbench/EditorPane.h"

#include "apps/workbench/ContourTable.h"
#include "contracts/image.h"

#include <gtest/gtest.h>

using namespace kv::workbench;

namespace
{
class EditorPanes : public testing::Test
{
protected:
    KvN::KvBufferAOI8 image{KvN::KvTSize<short>(200, 150)};
    EditorPane pane;
    ContourTable table{pane};

    EditorPanes()
    {
        EditorPane::ContourList contours(2);
        contours[0].MakeRectFromDiagonal(20, 20, 60, 50);
        contours[0].ID() = 0;
        contours[1].MakeCircle(120, 80, 30);
        contours[1].ID() = 1;
        pane.resize(200, 150);
        pane.Show(&image, contours);
    }
    QString Cell(int row, int column) { return table.index(row, column).data().toString(); }
};
} // namespace

TEST_F(EditorPanes, ACellIsChangedAsAnUndoStep)
{
    EXPECT_FALSE(pane.CanUndo());
    EXPECT_TRUE(table.setData(table.index(0, ContourTable::Description), "Kratzer", Qt::EditRole));
    EXPECT_EQ(Cell(0, ContourTable::Description), "Kratzer");
    EXPECT_TRUE(table.setData(table.index(1, ContourTable::Effect), Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_TRUE(pane.At(1)->Exclude());
    pane.Undo();
    EXPECT_FALSE(pane.At(1)->Exclude());
    pane.Undo();
    EXPECT_EQ(Cell(0, ContourTable::Description), "");
    pane.Redo();
    EXPECT_EQ(Cell(0, ContourTable::Description), "Kratzer");
}

TEST_F(EditorPanes, TheSameTextIsNoStep)
{
    EXPECT_FALSE(table.setData(table.index(0, ContourTable::Description), "", Qt::EditRole));
    EXPECT_FALSE(pane.CanUndo());
}

TEST_F(EditorPanes, AProtectedContourCanBeFreedFromTheList)
{
    const auto lock = table.index(0, ContourTable::ReadOnly);
    EXPECT_TRUE(table.setData(lock, Qt::Checked, Qt::CheckStateRole));
    EXPECT_TRUE(pane.At(0)->ReadOnly());
    EXPECT_TRUE(table.setData(lock, Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_FALSE(pane.At(0)->ReadOnly());
}

TEST_F(EditorPanes, CopiesGetNumbersOfTheirOwnAndAreSelected)
{
    int changes = 0;
    QObject::connect(&pane, &EditorPane::ContoursChanged, [&] { ++changes; });
    pane.Add({*pane.At(0)});
    ASSERT_EQ(pane.Count(), 3);
    EXPECT_EQ(pane.At(2)->ID(), 2);
    EXPECT_EQ(pane.SelectedIndex(), 2);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(table.rowCount(), 3);
    pane.DeleteSelected();
    EXPECT_EQ(pane.Count(), 2);
    pane.Undo();
    EXPECT_EQ(pane.Count(), 3);
    pane.Undo();
    EXPECT_EQ(pane.Count(), 2);
    EXPECT_EQ(table.rowCount(), 2);
}
