// The window's life, and what it shows of the state of the editor.
#include "apps/workbench/MainWindow.h"

#include "apps/workbench/ContourFile.h"
#include "apps/workbench/ContourTable.h"
#include "apps/workbench/Settings.h"
#include "apps/workbench/Texts.h"
#include "contracts/image.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QTableView>
#include <QToolBar>

namespace kv::workbench
{
namespace
{
// What the image holds at a pixel, as the status bar says it.
QString ValueAt(KvN::KvAOI& image, const QPoint& at)
{
    const KvN::KvTPoint<short> point(static_cast<short>(at.x()), static_cast<short>(at.y()));
    if (auto* grey = dynamic_cast<KvN::KvAOI8*>(&image))
        return Text(IDS_WB_STATUS_GREY, grey->GetPoint(point));
    if (auto* number = dynamic_cast<KvN::KvAOI32Float*>(&image))
        return Text(IDS_WB_STATUS_VALUE, QLocale().toString(number->GetPoint(point)));
    if (auto* color = dynamic_cast<KvN::KvAOI32Color*>(&image))
    {
        const KvN::KvColor pixel = color->GetPoint(point);
        return Text(IDS_WB_STATUS_COLOR, pixel.red, pixel.green, pixel.blue);
    }
    return {};
}
} // namespace

MainWindow::MainWindow()
    : autosave([this](const QString& path) { return WriteContours(path, pane->Contours()).isEmpty(); })
{
    setWindowTitle(Text(IDS_WB_APP));
    pane = new EditorPane(this);
    setCentralWidget(pane);
    toolBar = addToolBar(Text(IDS_WB_TOOLBAR));
    toolBar->setObjectName("tools");
    BuildFileMenu();
    BuildEditMenu();
    BuildToolsMenu();
    BuildMaskMenu();
    BuildViewMenu();
    BuildDock();
    BuildStatusBar();
    ConnectPane();
    UpdateActions();
    if (!restoreGeometry(Settings::Geometry()))
        resize(1200, 800);
    restoreState(Settings::WindowState());
}

// The pane shows the image and must go first.
MainWindow::~MainWindow()
{
    delete pane;
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!MayDiscard())
        return event->ignore();
    autosave.DiscardContours();
    autosave.DiscardMask();
    Settings::KeepWindow(saveGeometry(), saveState());
    event->accept();
}

void MainWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Plus && event->modifiers().testFlag(Qt::ControlModifier))
        return ZoomIn(); // the key of the digit block as well
    QMainWindow::keyPressEvent(event);
}

void MainWindow::ContoursChanged()
{
    SetModified(true);
    autosave.TouchContours();
    UpdateActions();
}

void MainWindow::SelectionChanged()
{
    const int row = pane->SelectedIndex();
    const QSignalBlocker quiet(list->selectionModel());
    if (row < 0)
        list->clearSelection();
    else
        list->selectRow(row);
    list->viewport()->update();
    ShowPosition();
    UpdateActions();
}

void MainWindow::ToolChanged()
{
    for (QAction* action : tools->actions())
        action->setChecked(action->data().toUInt() == pane->Tool());
    UpdateActions();
}

void MainWindow::ShowPosition()
{
    const auto at = pane->Pointer();
    position->setText(at ? Text(IDS_WB_STATUS_POSITION, at->x(), at->y()) : QString());
    value->setText(at && image ? ValueAt(*image, *at) : QString());
    const KvN::KvContour* drawn = pane->FigureInProgress();
    const QLocale locale;
    figure->setText(drawn ? Text(IDS_WB_STATUS_FIGURE, locale.toString(drawn->GetArea(), 'f', 1),
                                 locale.toString(drawn->GetLength(), 'f', 1))
                          : QString());
}

void MainWindow::ShowZoom()
{
    const QString percent = QLocale().toString(pane->Zoom() * 100.0, 'g', 4);
    zoom->setText(image ? Text(pane->IsFitted() ? IDS_WB_STATUS_FITTED : IDS_WB_STATUS_ZOOM, percent) : QString());
}

void MainWindow::UpdateActions()
{
    for (QAction* action : needImage)
        action->setEnabled(image != nullptr);
    for (QAction* action : needSelection)
        action->setEnabled(pane->Selected() != nullptr);
    for (QAction* action : needMask)
        action->setEnabled(mask != nullptr);
    undo->setEnabled(pane->CanUndo());
    redo->setEnabled(pane->CanRedo());
}

void MainWindow::UpdateTitle()
{
    setWindowTitle(image ? Text(IDS_WB_TITLE, QFileInfo(imagePath).fileName() + "[*]") : Text(IDS_WB_APP));
}

void MainWindow::SetModified(bool modified)
{
    contoursModified = modified;
    UpdateModified();
}

void MainWindow::UpdateModified()
{
    UpdateTitle();
    setWindowModified(contoursModified || maskModified);
}

} // namespace kv::workbench
