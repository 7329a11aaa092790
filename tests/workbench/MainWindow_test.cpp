// The window as an operator uses it: files, the list, the folder, the clipboard, and what is asked before anything is
// lost.
#include "apps/workbench/Autosave.h"
#include "apps/workbench/ContourFile.h"
#include "apps/workbench/ContourTable.h"
#include "apps/workbench/Settings.h"
#include "platform/win/input.h"
#include "platform/win/qt_host.h"
#include "tests/workbench/desk.h"

#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QDockWidget>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QProgressDialog>
#include <QStatusBar>
#include <QTableView>
#include <QTest>
#include <QThreadPool>
#include <QWindow>

using namespace kv::test;
using namespace kv::workbench;

namespace
{
class Workbench : public testing::Test
{
protected:
    Desk desk;

    static KvN::KvContour Circle(double x, double y, double radius, int number = -1)
    {
        KvN::KvContour circle;
        circle.MakeCircle(x, y, radius);
        circle.ID() = number;
        return circle;
    }
    QString Title() const { return desk.window->windowTitle(); }
    QString StatusText() const { return desk.window->statusBar()->currentMessage(); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        desk.window->activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(desk.window.get()));
        QWidget* focus = desk.window->focusWidget();
        QTest::keyClick(focus ? focus : desk.window.get(), key, modifiers);
        Settle();
    }

    // ---- The list
    QTableView& List() { return *desk.window->findChild<QTableView*>(); }
    QPoint Middle(int row, int column) { return List().visualRect(List().model()->index(row, column)).center(); }
    void DoubleClick(int row, int column)
    {
        List().scrollTo(List().model()->index(row, column));
        QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, Middle(row, column));
        QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, Middle(row, column));
        Settle();
    }
    // The editor that is open in a cell; null if none is.
    QWidget* CellEditor()
    {
        QWidget* focus = QApplication::focusWidget();
        return focus && focus != &List() && List().isAncestorOf(focus) ? focus : nullptr;
    }
    void EnterText(int row, int column, const char* text)
    {
        DoubleClick(row, column);
        QWidget* editor = CellEditor();
        ASSERT_TRUE(editor);
        QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        Settle();
    }
    // The menu that the right mouse button opens at a cell; null if it opens none.
    QMenu* CellMenu(int row, int column)
    {
        List().scrollTo(List().model()->index(row, column));
        const QPoint at = Middle(row, column);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, List().viewport()->mapToGlobal(at));
        QApplication::sendEvent(List().viewport(), &event);
        Settle();
        return dynamic_cast<QMenu*>(QApplication::activePopupWidget());
    }
    static QAction* Entry(const QMenu& menu, unsigned short text)
    {
        for (QAction* action : menu.actions())
        {
            if (action->text() == Text(text))
                return action;
        }
        return nullptr;
    }
    // Takes an entry of that menu by the keyboard.
    void ChooseInCell(int row, int column, unsigned short text)
    {
        QMenu* menu = CellMenu(row, column);
        ASSERT_TRUE(menu && Entry(*menu, text));
        menu->setActiveAction(Entry(*menu, text));
        QTest::keyClick(menu, Qt::Key_Return);
        Settle();
    }
    // Clicks the box at the left of a cell.
    void Tick(int row, int column)
    {
        List().scrollTo(List().model()->index(row, column));
        const QRect cell = List().visualRect(List().model()->index(row, column));
        QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, QPoint(cell.left() + 10, cell.center().y()));
        Settle();
    }

    void Drop(const QStringList& paths)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls << QUrl::fromLocalFile(path);
        data.setUrls(urls);
        const QPoint at = desk.Pane().mapTo(desk.window.get(), desk.Pane().rect().center());
        QWindow* window = desk.window->windowHandle();
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(window, &enter);
        QDragMoveEvent move(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(window, &move);
        QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(window, &drop);
        Settle();
    }
};
} // namespace

// ---- What is asked before anything is lost

TEST_F(Workbench, UnsavedContoursAreAskedAboutAndSavedBesideTheImage)
{
    desk.OpenPicture();
    desk.Pane().Add({Circle(50, 50, 20)});
    EXPECT_TRUE(desk.window->isWindowModified());
    desk.ExpectMessage(IDS_WB_ASK_SAVE, QMessageBox::Cancel);
    EXPECT_FALSE(desk.window->close());
    desk.ExpectMessage(IDS_WB_ASK_SAVE, QMessageBox::Save);
    EXPECT_TRUE(desk.window->close());
    EXPECT_EQ(ReadContours(desk.Path("teil.png.contours.xml")).contours.size(), 1u);
}

TEST_F(Workbench, ContoursThatCantBeSavedKeepTheWindowOpen)
{
    desk.OpenPicture();
    desk.Pane().Add({Circle(50, 50, 20)});
    ASSERT_TRUE(QDir().mkdir(desk.Path("teil.png.contours.xml")));
    desk.ExpectMessage(IDS_WB_ASK_SAVE, QMessageBox::Save);
    desk.ExpectMessage(IDS_WB_ERROR_SAVE, QMessageBox::Ok);
    EXPECT_FALSE(desk.window->close());
    EXPECT_EQ(desk.Pane().Count(), 1);
    EXPECT_TRUE(desk.window->isWindowModified());
}

TEST_F(Workbench, GivenUpContoursAreGone)
{
    desk.OpenPicture();
    desk.Pane().Add({Circle(50, 50, 20)});
    desk.ExpectMessage(IDS_WB_ASK_SAVE, QMessageBox::Discard);
    EXPECT_TRUE(desk.window->OpenImage(desk.SavePicture("anderes.png", 90, 70)));
    EXPECT_EQ(desk.Pane().Count(), 0);
    EXPECT_TRUE(desk.window->OpenImage(desk.Path("teil.png")));
    EXPECT_EQ(desk.Pane().Count(), 0);
}

TEST_F(Workbench, ContoursAreFoundAgainBesideTheirImage)
{
    desk.OpenPicture();
    desk.Pane().Add({Circle(50, 50, 20), Circle(90, 60, 10)});
    desk.Do(IDS_WB_SAVE);
    EXPECT_FALSE(desk.window->isWindowModified());
    EXPECT_TRUE(desk.window->OpenImage(desk.SavePicture("anderes.png", 90, 70)));
    EXPECT_TRUE(desk.window->OpenImage(desk.Path("teil.png")));
    EXPECT_EQ(desk.Pane().Count(), 2);
    EXPECT_FALSE(desk.window->isWindowModified());
    EXPECT_FALSE(desk.Pane().CanUndo());
}

TEST_F(Workbench, WhatACrashLeftIsOffered)
{
    desk.OpenPicture();
    desk.Pane().Add({Circle(50, 50, 20)});
    const QString image = desk.Path("teil.png");
    // A crash leaves the autosave file and nobody who holds it.
    QElapsedTimer patience;
    patience.start();
    const QDir folder(qEnvironmentVariable("XDG_STATE_HOME") + "/kv/autosave");
    while (folder.entryList({"*.xml"}).isEmpty() && patience.elapsed() < 20000)
        QTest::qWait(20);
    ASSERT_EQ(folder.entryList({"*.xml"}).size(), 1);
    const QString kept = folder.filePath(folder.entryList({"*.xml"}).front());
    ASSERT_TRUE(QFile::copy(kept, desk.Path("kept.xml")));
    desk.ExpectMessage(IDS_WB_ASK_SAVE, QMessageBox::Discard);
    EXPECT_TRUE(desk.window->OpenImage(desk.SavePicture("anderes.png", 90, 70)));
    EXPECT_FALSE(QFile::exists(kept)) << "given up on purpose";

    ASSERT_TRUE(QFile::copy(desk.Path("kept.xml"), kept));
    desk.ExpectMessage(IDS_WB_ASK_RECOVER, QMessageBox::Yes);
    EXPECT_TRUE(desk.window->OpenImage(image));
    EXPECT_EQ(desk.Pane().Count(), 1);
    EXPECT_TRUE(desk.window->isWindowModified());
    desk.Do(IDS_WB_SAVE);
    EXPECT_FALSE(QFile::exists(kept));
}

// ---- Files with faults

TEST_F(Workbench, AFaultyContourFileOpensAsFarAsItGoesAndTellsTheRest)
{
    auto broken = ContoursToXml({Circle(50, 50, 20, 0), Circle(60, 50, 20, 0), Circle(70, 50, 20, 2)});
    QFile file(desk.Path("teil.png.contours.xml"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(broken.left(broken.size() - 30));
    file.close();
    desk.ExpectMessage(IDS_WB_WARN_SKIPPED, QMessageBox::Ok);
    desk.OpenPicture();
    EXPECT_EQ(desk.Pane().Count(), 1);
    EXPECT_TRUE(desk.said.contains(Text(IDS_WB_SKIPPED_DOUBLE, 2))) << desk.said.toStdString();
}

TEST_F(Workbench, AFileThatIsNoneLeavesWhatIsOpen)
{
    desk.OpenPicture();
    desk.Pane().Add({Circle(50, 50, 20)});
    QFile nothing(desk.Path("nichts.xml"));
    ASSERT_TRUE(nothing.open(QIODevice::WriteOnly));
    nothing.write("kein XML");
    nothing.close();
    desk.ExpectFileDialog(desk.Path("nichts.xml"));
    desk.ExpectMessage(IDS_WB_ERROR_OPEN, QMessageBox::Ok);
    desk.Do(IDS_WB_OPEN_CONTOURS);
    EXPECT_EQ(desk.Pane().Count(), 1);
    desk.Do(IDS_WB_SAVE);
    desk.ExpectMessage(IDS_WB_ERROR_OPEN, QMessageBox::Ok);
    EXPECT_FALSE(desk.window->OpenImage(desk.Path("nicht da.png")));
    EXPECT_EQ(desk.Pane().Count(), 1);
    EXPECT_TRUE(Title().startsWith("teil.png"));
}

// ---- The folder, recent files, dropped files

TEST_F(Workbench, PageKeysWalkTheFolder)
{
    desk.SavePicture("a.png", 60, 50);
    desk.SavePicture("z.png", 60, 50);
    desk.OpenPicture("m.png");
    Key(Qt::Key_PageDown);
    EXPECT_TRUE(Title().startsWith("z.png"));
    Key(Qt::Key_PageDown);
    EXPECT_TRUE(Title().startsWith("z.png")) << "the folder's end";
    Key(Qt::Key_PageUp);
    Key(Qt::Key_PageUp);
    EXPECT_TRUE(Title().startsWith("a.png"));
}

TEST_F(Workbench, TheLastEightImagesAreInTheMenu)
{
    for (int i = 0; i < 10; ++i)
        desk.OpenPicture(QString("bild%1.png").arg(i), 60, 50);
    QMenu* menu = desk.Action(IDS_WB_RECENT)->menu();
    emit menu->aboutToShow();
    ASSERT_EQ(menu->actions().size(), 8);
    EXPECT_EQ(menu->actions().front()->text(), desk.Path("bild9.png"));
    menu->actions().at(3)->trigger();
    EXPECT_TRUE(Title().startsWith("bild6.png"));
    emit menu->aboutToShow();
    EXPECT_EQ(menu->actions().front()->text(), desk.Path("bild6.png"));
    QFile::remove(desk.Path("bild2.png"));
    desk.ExpectMessage(IDS_WB_ERROR_OPEN, QMessageBox::Ok);
    menu->actions().back()->trigger();
    EXPECT_TRUE(Title().startsWith("bild6.png"));
}

TEST_F(Workbench, ADroppedImageOpens)
{
    desk.OpenPicture();
    const QString other = desk.SavePicture("anderes.png", 90, 70);
    Drop({desk.Path("notiz.txt"), other});
    EXPECT_TRUE(Title().startsWith("anderes.png"));
    desk.ExpectMessage(IDS_WB_ERROR_OPEN, QMessageBox::Ok);
    Drop({desk.Path("notiz.txt")});
    EXPECT_TRUE(Title().startsWith("anderes.png"));
}

// ---- The list

TEST_F(Workbench, TheListEditsADescription)
{
    desk.OpenPicture();
    desk.Pane().Add({Circle(50, 50, 20), Circle(90, 60, 10)});
    EnterText(1, ContourTable::Description, "Kratzer");
    EXPECT_EQ(ToQt(desk.Pane().At(1)->Description()), "Kratzer");
    EXPECT_EQ(desk.Pane().SelectedIndex(), 1);
    desk.Do(IDS_WB_UNDO);
    EXPECT_EQ(ToQt(desk.Pane().At(1)->Description()), "");
}

TEST_F(Workbench, TheListTicksExclusionAndProtection)
{
    desk.OpenPicture();
    desk.Pane().Add({Circle(50, 50, 20)});
    Tick(0, ContourTable::Effect);
    EXPECT_TRUE(desk.Pane().At(0)->Exclude());
    Tick(0, ContourTable::ReadOnly);
    EXPECT_TRUE(desk.Pane().At(0)->ReadOnly());
    Tick(0, ContourTable::Effect);
    EXPECT_TRUE(desk.Pane().At(0)->Exclude()) << "a protected contour stays as it is";
    DoubleClick(0, ContourTable::Description);
    EXPECT_FALSE(CellEditor());
    Tick(0, ContourTable::ReadOnly);
    EXPECT_FALSE(desk.Pane().At(0)->ReadOnly());
}

TEST_F(Workbench, AColourIsChosenFromADialogAndTheCellOpensNoEditor)
{
    desk.OpenPicture();
    desk.Pane().Add({Circle(50, 50, 20)});
    desk.Expect("a colour dialog",
                [](QWidget& opened)
                {
                    auto& dialog = dynamic_cast<QColorDialog&>(opened);
                    dialog.setCurrentColor(QColor(10, 200, 30));
                    dialog.accept();
                });
    DoubleClick(0, ContourTable::Color);
    EXPECT_EQ(desk.Pane().At(0)->Color(), RGB(10, 200, 30));
    EXPECT_FALSE(CellEditor());
    desk.Expect("a colour dialog", [](QWidget& opened) { dynamic_cast<QColorDialog&>(opened).reject(); });
    DoubleClick(0, ContourTable::Color);
    Key(Qt::Key_Return);
    EXPECT_EQ(desk.Pane().At(0)->Color(), RGB(10, 200, 30));
}

TEST_F(Workbench, AColourIsTakenBackInItsCellsMenuAsAnUndoStep)
{
    constexpr std::uint32_t standard = 0xFFFFFFFF;
    desk.OpenPicture();
    KvN::KvContour colored = Circle(50, 50, 20);
    colored.Color() = RGB(10, 200, 30);
    desk.Pane().Add({colored, Circle(90, 60, 10)});
    ChooseInCell(0, ContourTable::Color, IDS_WB_COLOR_DEFAULT);
    EXPECT_EQ(desk.Pane().At(0)->Color(), standard);
    EXPECT_EQ(List().model()->index(0, ContourTable::Color).data().toString(), Text(IDS_WB_DEFAULT_COLOR));
    desk.Do(IDS_WB_UNDO);
    EXPECT_EQ(desk.Pane().At(0)->Color(), RGB(10, 200, 30));
    desk.Do(IDS_WB_REDO);
    EXPECT_EQ(desk.Pane().At(0)->Color(), standard);

    desk.Expect("a colour dialog",
                [](QWidget& opened)
                {
                    auto& dialog = dynamic_cast<QColorDialog&>(opened);
                    dialog.setCurrentColor(QColor(1, 2, 3));
                    dialog.accept();
                });
    ChooseInCell(1, ContourTable::Color, IDS_WB_COLOR_CHOOSE);
    EXPECT_EQ(desk.Pane().At(1)->Color(), RGB(1, 2, 3));
}

TEST_F(Workbench, TheMenuOfAColourOffersWhatCanBeDone)
{
    desk.OpenPicture();
    KvN::KvContour colored = Circle(90, 60, 10);
    colored.Color() = RGB(10, 200, 30);
    desk.Pane().Add({Circle(50, 50, 20), colored});
    QMenu* menu = CellMenu(0, ContourTable::Color);
    ASSERT_TRUE(menu);
    EXPECT_FALSE(Entry(*menu, IDS_WB_COLOR_DEFAULT)->isEnabled()) << "it has the standard colour";
    EXPECT_TRUE(Entry(*menu, IDS_WB_COLOR_CHOOSE)->isEnabled());
    menu->close();
    Settle();
    Tick(1, ContourTable::ReadOnly);
    menu = CellMenu(1, ContourTable::Color);
    ASSERT_TRUE(menu);
    EXPECT_FALSE(Entry(*menu, IDS_WB_COLOR_DEFAULT)->isEnabled()) << "it is protected";
    EXPECT_FALSE(Entry(*menu, IDS_WB_COLOR_CHOOSE)->isEnabled());
    menu->close();
    Settle();
    EXPECT_FALSE(CellMenu(0, ContourTable::Area));
}

TEST_F(Workbench, AnyWidthCanBeEnteredForAPolyline)
{
    desk.OpenPicture();
    KvN::KvContour line;
    line.MakeRectFromDiagonal(10, 10, 50, 40);
    line.ContourType() = KvN::KvContour::ePolyline;
    desk.Pane().Add({line});
    ASSERT_EQ(desk.Pane().Count(), 1);
    EnterText(0, ContourTable::Width, "1");
    EXPECT_EQ(desk.Pane().At(0)->LineWidth(), 1.0) << "the value that the editor starts with can be meant";
    EnterText(0, ContourTable::Width, "2,5");
    EXPECT_EQ(desk.Pane().At(0)->LineWidth(), 2.5);
}

TEST_F(Workbench, ListAndImageSelectTheSameContour)
{
    desk.OpenPicture();
    desk.Pane().Add({Circle(50, 50, 20), Circle(90, 60, 10)});
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, Middle(0, ContourTable::Kind));
    EXPECT_EQ(desk.Pane().SelectedIndex(), 0);
    desk.Pane().Select(1);
    EXPECT_EQ(List().selectionModel()->selectedRows().front().row(), 1);
}

// ---- Keys and clipboard

TEST_F(Workbench, TabGoesThroughTheContoursUnderThePointer)
{
    desk.OpenPicture();
    desk.Pane().Add({Circle(50, 50, 20), Circle(120, 60, 10), Circle(55, 50, 25)});
    desk.PointAt(30, 50);
    ASSERT_TRUE(desk.Pane().Pointer().has_value());
    Key(Qt::Key_Tab);
    const int first = desk.Pane().SelectedIndex();
    Key(Qt::Key_Tab);
    const int second = desk.Pane().SelectedIndex();
    EXPECT_NE(first, second);
    EXPECT_EQ(first + second, 2) << "contours 0 and 2 lie there";
    Key(Qt::Key_Tab);
    EXPECT_EQ(desk.Pane().SelectedIndex(), first);
}

TEST_F(Workbench, ContoursGoThroughTheClipboardToAnotherImage)
{
    desk.OpenPicture();
    desk.Do(IDS_WB_PASTE);
    EXPECT_EQ(StatusText(), Text(IDS_WB_PASTE_EMPTY));
    desk.Pane().Add({Circle(50, 50, 20)});
    desk.Do(IDS_WB_COPY);
    desk.Do(IDS_WB_SAVE);
    EXPECT_TRUE(desk.window->OpenImage(desk.SavePicture("anderes.png", 90, 70)));
    desk.Do(IDS_WB_PASTE);
    EXPECT_EQ(desk.Pane().Count(), 1);
    EXPECT_TRUE(desk.window->isWindowModified());
    desk.ExpectMessage(IDS_WB_ASK_SAVE, QMessageBox::Discard);
    EXPECT_TRUE(desk.window->close());
}

// ---- Exports and the window

TEST_F(Workbench, AnExportThatTakesLongCanBeBrokenOffAndLeavesNothing)
{
    desk.OpenPicture("gross.png", 8000, 8000);
    desk.Pane().Add({Circle(4000, 4000, 3000)});
    desk.ExpectFileDialog(desk.Path("gross.contours.png"));
    desk.Expect("progress", [](QWidget& opened) { dynamic_cast<QProgressDialog&>(opened).cancel(); });
    desk.Do(IDS_WB_EXPORT_PICTURE);
    EXPECT_EQ(StatusText(), Text(IDS_WB_STATUS_CANCELLED));
    QThreadPool::globalInstance()->waitForDone();
    EXPECT_EQ(QDir(desk.Path(".")).entryList(QDir::Files | QDir::Hidden), QStringList{"gross.png"});
    desk.ExpectMessage(IDS_WB_ASK_SAVE, QMessageBox::Discard);
    EXPECT_TRUE(desk.window->close());
}

TEST_F(Workbench, AnExportThatFailsNamesTheFile)
{
    desk.OpenPicture();
    desk.ExpectFileDialog("/proc/maske.png");
    desk.ExpectMessage(IDS_WB_ERROR_SAVE, QMessageBox::Ok);
    desk.Do(IDS_WB_EXPORT_MASK);
    EXPECT_TRUE(desk.said.contains("maske.png")) << desk.said.toStdString();
    ASSERT_TRUE(QDir().mkdir(desk.Path("ordner.png")));
    desk.ExpectFileDialog(desk.Path("ordner.png/../maske.png"));
    desk.Do(IDS_WB_EXPORT_MASK);
    EXPECT_TRUE(LoadGrey(desk.Path("maske.png")));
    EXPECT_EQ(QDir(desk.Path(".")).entryList(QDir::Files | QDir::Hidden), (QStringList{"maske.png", "teil.png"}));
}

TEST_F(Workbench, SizeAndDocksAreRemembered)
{
    desk.window->resize(733, 517);
    desk.window->findChild<QDockWidget*>("contours")->hide();
    Settle();
    EXPECT_TRUE(desk.window->close());
    desk.window = std::make_unique<MainWindow>();
    desk.window->show();
    Settle();
    EXPECT_EQ(desk.window->size(), QSize(733, 517));
    EXPECT_FALSE(desk.window->findChild<QDockWidget*>("contours")->isVisible());
}
