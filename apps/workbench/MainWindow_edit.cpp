// Editing commands: clipboard, whole-list operations, cells of the list.
#include "apps/workbench/ContourFile.h"
#include "apps/workbench/ContourTable.h"
#include "apps/workbench/MainWindow.h"
#include "apps/workbench/Texts.h"
#include "contracts/image.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>
#include <QTableView>

namespace kv::workbench
{
namespace
{
// Contours travel between workbenches as the XML of their files.
const QString contourMime = QStringLiteral("application/x-kv-contours+xml");

// How far a duplicate stands off from its original, in image pixels.
constexpr double duplicateOffset = 10.0;
} // namespace

void MainWindow::Copy()
{
    const KvN::KvContour* selected = pane->Selected();
    if (!selected)
        return;
    auto* data = new QMimeData;
    data->setData(contourMime, ContoursToXml({*selected}));
    QApplication::clipboard()->setMimeData(data);
}

void MainWindow::Cut()
{
    Copy();
    Delete();
}

void MainWindow::Paste()
{
    const QMimeData* data = QApplication::clipboard()->mimeData();
    const auto contours = data ? ContoursFromXml(data->data(contourMime)) : EditorPane::ContourList();
    if (contours.empty())
        return statusBar()->showMessage(Text(IDS_WB_PASTE_EMPTY), 5000);
    pane->Add(contours);
}

void MainWindow::Duplicate()
{
    if (!pane->Selected())
        return;
    KvN::KvContour copy = *pane->Selected();
    copy.Transform({}, {duplicateOffset, duplicateOffset}, 0.0);
    pane->Add({copy});
}

void MainWindow::DeleteAll()
{
    if (pane->Count() > 0 &&
        QMessageBox::question(this, Text(IDS_WB_APP), Text(IDS_WB_ASK_DELETE_ALL)) == QMessageBox::Yes)
        pane->SetTool(13);
}

void MainWindow::InvertAll()
{
    pane->SetTool(14);
}
void MainWindow::FullFrame()
{
    pane->SetTool(12);
}

// Colours are chosen from a dialog; all other cells are edited where they are.
void MainWindow::EditCell(const QModelIndex& index)
{
    const KvN::KvContour* contour = pane->At(index.row());
    if (index.column() != ContourTable::Color || !contour || contour->ReadOnly())
        return;
    const QColor before = index.data(Qt::EditRole).value<QColor>();
    const QColor color =
        QColorDialog::getColor(before.isValid() ? before : QColor(Qt::magenta), this, Text(IDS_WB_ASK_COLOR));
    if (color.isValid())
        table->setData(index, color, Qt::EditRole);
}

// The menu of a colour, the only cell that has one; a point of the list.
void MainWindow::ShowCellMenu(const QPoint& at)
{
    const QModelIndex cell = list->indexAt(at);
    const KvN::KvContour* contour = cell.column() == ContourTable::Color ? pane->At(cell.row()) : nullptr;
    if (!contour)
        return;
    auto* menu = new QMenu(list);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* choose = menu->addAction(Text(IDS_WB_COLOR_CHOOSE), this, [this, cell] { EditCell(cell); });
    QAction* standard = menu->addAction(Text(IDS_WB_COLOR_DEFAULT), this,
                                        [this, cell] { table->setData(cell, QVariant(), Qt::EditRole); });
    choose->setEnabled(!contour->ReadOnly());
    standard->setEnabled(!contour->ReadOnly() && cell.data(Qt::EditRole).isValid());
    menu->popup(list->viewport()->mapToGlobal(at));
}

void MainWindow::ShowHandles()
{
    pane->SetShowHandles(showHandles->isChecked());
}
void MainWindow::ShowDirection()
{
    pane->SetShowDirection(showDirection->isChecked());
}

void MainWindow::About()
{
    QMessageBox::about(this, Text(IDS_WB_APP), Text(IDS_WB_ABOUT_TEXT, QString(KV_VERSION)));
}

} // namespace kv::workbench
