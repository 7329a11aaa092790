// What the window is made of: menus, toolbar, list, status bar.
#include "apps/workbench/ContourTable.h"
#include "apps/workbench/Icons.h"
#include "apps/workbench/MainWindow.h"
#include "apps/workbench/Texts.h"
#include "contracts/image.h"

#include <QActionGroup>
#include <QDockWidget>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QShortcut>
#include <QStatusBar>
#include <QTableView>
#include <QToolBar>

namespace kv::workbench
{

QAction* MainWindow::AddAction(QMenu* menu, unsigned short text, const QKeySequence& shortcut, Slot slot)
{
    QAction* action = menu->addAction(Text(text));
    action->setShortcut(shortcut);
    connect(action, &QAction::triggered, this, slot);
    return action;
}

QAction* MainWindow::AddAction(QMenu* menu, unsigned short text, const QKeySequence& shortcut, Slot slot,
                               Picture picture)
{
    QAction* action = AddAction(menu, text, shortcut, slot);
    action->setIcon(IconOf(picture));
    toolBar->addAction(action);
    return action;
}

void MainWindow::AddTool(QMenu* menu, unsigned short text, const QKeySequence& shortcut, unsigned short tool,
                         Picture picture, bool excluded)
{
    QAction* action = menu->addAction(IconOf(picture, excluded), Text(text));
    action->setShortcut(shortcut);
    action->setCheckable(true);
    action->setData(tool);
    tools->addAction(action);
    toolBar->addAction(action);
    needImage << action;
    connect(action, &QAction::triggered, this, [this, tool] { pane->SetTool(tool); });
}

void MainWindow::BuildFileMenu()
{
    QMenu* menu = menuBar()->addMenu(Text(IDS_WB_MENU_FILE));
    AddAction(menu, IDS_WB_OPEN, QKeySequence::Open, &MainWindow::Open, Picture::Open);
    recentMenu = menu->addMenu(Text(IDS_WB_RECENT));
    connect(recentMenu, &QMenu::aboutToShow, this, &MainWindow::FillRecent);
    needImage << AddAction(menu, IDS_WB_NEXT_IMAGE, Qt::Key_PageDown, &MainWindow::NextImage);
    needImage << AddAction(menu, IDS_WB_PREVIOUS_IMAGE, Qt::Key_PageUp, &MainWindow::PreviousImage);
    menu->addSeparator();
    needImage << AddAction(menu, IDS_WB_OPEN_CONTOURS, Qt::CTRL | Qt::SHIFT | Qt::Key_O, &MainWindow::OpenContours);
    needImage << AddAction(menu, IDS_WB_SAVE, QKeySequence::Save, &MainWindow::SaveCommand, Picture::Save);
    needImage << AddAction(menu, IDS_WB_SAVE_AS, Qt::CTRL | Qt::SHIFT | Qt::Key_S, &MainWindow::SaveAsCommand);
    menu->addSeparator();
    needImage << AddAction(menu, IDS_WB_EXPORT_MASK, Qt::CTRL | Qt::Key_M, &MainWindow::ExportMask);
    needImage << AddAction(menu, IDS_WB_EXPORT_PICTURE, Qt::CTRL | Qt::SHIFT | Qt::Key_M, &MainWindow::ExportPicture);
    menu->addSeparator();
    QAction* quit = menu->addAction(Text(IDS_WB_QUIT));
    quit->setShortcut(QKeySequence::Quit);
    connect(quit, &QAction::triggered, this, &QWidget::close);
}

void MainWindow::BuildEditMenu()
{
    toolBar->addSeparator();
    QMenu* menu = menuBar()->addMenu(Text(IDS_WB_MENU_EDIT));
    undo = AddAction(menu, IDS_WB_UNDO, QKeySequence::Undo, &MainWindow::Undo, Picture::Undo);
    redo = AddAction(menu, IDS_WB_REDO, Qt::CTRL | Qt::Key_Y, &MainWindow::Redo, Picture::Redo);
    menu->addSeparator();
    needSelection << AddAction(menu, IDS_WB_CUT, QKeySequence::Cut, &MainWindow::Cut);
    needSelection << AddAction(menu, IDS_WB_COPY, QKeySequence::Copy, &MainWindow::Copy);
    needImage << AddAction(menu, IDS_WB_PASTE, QKeySequence::Paste, &MainWindow::Paste);
    needSelection << AddAction(menu, IDS_WB_DUPLICATE, Qt::CTRL | Qt::Key_D, &MainWindow::Duplicate);
    needSelection << AddAction(menu, IDS_WB_DELETE, QKeySequence(), &MainWindow::Delete, Picture::Delete);
    needImage << AddAction(menu, IDS_WB_DELETE_ALL, Qt::CTRL | Qt::SHIFT | Qt::Key_Delete, &MainWindow::DeleteAll);
    menu->addSeparator();
    needSelection << AddAction(menu, IDS_WB_INVERT, Qt::CTRL | Qt::Key_I, &MainWindow::Invert, Picture::Invert);
    needImage << AddAction(menu, IDS_WB_INVERT_ALL, Qt::CTRL | Qt::SHIFT | Qt::Key_I, &MainWindow::InvertAll);
    needImage << AddAction(menu, IDS_WB_FULL_FRAME, Qt::CTRL | Qt::Key_B, &MainWindow::FullFrame, Picture::FullFrame);
    menu->addSeparator();
    needImage << AddAction(menu, IDS_WB_NEXT_UNDER_POINTER, Qt::Key_Tab, &MainWindow::NextUnderPointer);
}

void MainWindow::BuildToolsMenu()
{
    toolBar->addSeparator();
    QMenu* menu = menuBar()->addMenu(Text(IDS_WB_MENU_TOOLS));
    tools = new QActionGroup(this);
    AddTool(menu, IDS_WB_TOOL_SELECT, Qt::Key_F2, 0xFFFF, Picture::Select, false);
    AddTool(menu, IDS_WB_TOOL_POINTS, Qt::Key_F3, 11, Picture::Points, false);
    menu->addSeparator();
    AddTool(menu, IDS_WB_TOOL_RECT, Qt::Key_F5, 4, Picture::Rectangle, false);
    AddTool(menu, IDS_WB_TOOL_ELLIPSE, Qt::Key_F6, 3, Picture::Ellipse, false);
    AddTool(menu, IDS_WB_TOOL_POLYGON, Qt::Key_F7, 5, Picture::Polygon, false);
    AddTool(menu, IDS_WB_TOOL_POLYLINE, Qt::Key_F8, 6, Picture::Polyline, false);
    menu->addSeparator();
    AddTool(menu, IDS_WB_TOOL_RECT_EX, Qt::SHIFT | Qt::Key_F5, 8, Picture::Rectangle, true);
    AddTool(menu, IDS_WB_TOOL_ELLIPSE_EX, Qt::SHIFT | Qt::Key_F6, 7, Picture::Ellipse, true);
    AddTool(menu, IDS_WB_TOOL_POLYGON_EX, Qt::SHIFT | Qt::Key_F7, 9, Picture::Polygon, true);
    AddTool(menu, IDS_WB_TOOL_POLYLINE_EX, Qt::SHIFT | Qt::Key_F8, 10, Picture::Polyline, true);
}

void MainWindow::BuildViewMenu()
{
    toolBar->addSeparator();
    QMenu* menu = menuBar()->addMenu(Text(IDS_WB_MENU_VIEW));
    needImage << AddAction(menu, IDS_WB_ZOOM_IN, QKeySequence::ZoomIn, &MainWindow::ZoomIn, Picture::ZoomIn);
    needImage << AddAction(menu, IDS_WB_ZOOM_OUT, QKeySequence::ZoomOut, &MainWindow::ZoomOut, Picture::ZoomOut);
    needImage << AddAction(menu, IDS_WB_ZOOM_ONE, Qt::CTRL | Qt::Key_0, &MainWindow::ZoomOne);
    needImage << AddAction(menu, IDS_WB_FIT, Qt::CTRL | Qt::Key_9, &MainWindow::Fit, Picture::Fit);
    menu->addSeparator();
    showHandles = AddAction(menu, IDS_WB_SHOW_HANDLES, QKeySequence(), &MainWindow::ShowHandles);
    showDirection = AddAction(menu, IDS_WB_SHOW_DIRECTION, QKeySequence(), &MainWindow::ShowDirection);
    showHandles->setCheckable(true);
    showHandles->setChecked(true);
    showDirection->setCheckable(true);
    QMenu* help = menuBar()->addMenu(Text(IDS_WB_MENU_HELP));
    AddAction(help, IDS_WB_ABOUT, QKeySequence::HelpContents, &MainWindow::About);
}

void MainWindow::BuildDock()
{
    table = new ContourTable(*pane, this);
    list = new QTableView;
    list->setModel(table);
    list->setSelectionBehavior(QAbstractItemView::SelectRows);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->verticalHeader()->hide();
    list->setWordWrap(false);
    list->horizontalHeader()->setStretchLastSection(true);
    list->horizontalHeader()->setResizeContentsPrecision(
        0); // measures what is visible, however many contours there are
    connect(pane, &EditorPane::ContoursShown, list, &QTableView::resizeColumnsToContents);
    connect(table, &ContourTable::rowsInserted, list, &QTableView::resizeColumnsToContents);
    connect(table, &ContourTable::dataChanged, list, &QTableView::resizeColumnsToContents);
    // The editor takes the key itself while it has the focus.
    connect(new QShortcut(Qt::Key_Delete, list, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
            &MainWindow::Delete);
    connect(list->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& row) { pane->Select(row.row()); });
    connect(list, &QTableView::doubleClicked, this, &MainWindow::EditCell);
    list->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(list, &QTableView::customContextMenuRequested, this, &MainWindow::ShowCellMenu);

    auto* dock = new QDockWidget(Text(IDS_WB_DOCK), this);
    dock->setObjectName("contours");
    dock->setWidget(list);
    addDockWidget(Qt::RightDockWidgetArea, dock);
    resizeDocks({dock}, {560}, Qt::Horizontal);
}

void MainWindow::BuildStatusBar()
{
    for (QLabel** label : {&position, &value, &figure, &zoom})
    {
        *label = new QLabel;
        statusBar()->addPermanentWidget(*label);
    }
    statusBar()->showMessage(Text(IDS_WB_STATUS_READY));
}

void MainWindow::ConnectPane()
{
    connect(pane, &EditorPane::ContoursChanged, this, &MainWindow::ContoursChanged);
    connect(pane, &EditorPane::SelectionChanged, this, &MainWindow::SelectionChanged);
    connect(pane, &EditorPane::ToolChanged, this, &MainWindow::ToolChanged);
    connect(pane, &EditorPane::PointerMoved, this, &MainWindow::ShowPosition);
    connect(pane, &EditorPane::ZoomChanged, this, &MainWindow::ShowZoom);
    connect(pane, &EditorPane::FilesDropped, this, &MainWindow::OpenDropped);
}

} // namespace kv::workbench
