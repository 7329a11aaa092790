// Plays a session of the manual at the real workbench, without a display, and takes the manual's pictures:
//   manual_player SESSION --out FOLDER [--against FOLDER]
// With --against each picture is held against the one of the same name there, at zero tolerance. The commands are
// listed in docs/manual/sessions/README.md. Exit 0: played and alike; 1: a picture differs; 2: a command can't be done.
#include "C/uiAOIBaseViewWnd.h"
#include "C/uiMaskDlgBase.h"
#include "apps/session/arguments.h"
#include "apps/workbench/MainWindow.h"
#include "apps/workbench/Startup.h"
#include "contracts/image.h"
#include "platform/win/input.h"
#include "platform/win/qt_host.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QHash>
#include <QLineEdit>
#include <QMenuBar>
#include <QPainter>
#include <QPointer>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <iostream>

namespace
{
using kv::win::Button;

constexpr int captionHeight = 24;

struct CannotDo : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

// The box that is open, or the window.
QWidget* Below(QWidget* window)
{
    QWidget* modal = QApplication::activeModalWidget();
    return modal ? modal : window;
}

// What is on top of all and takes the input.
QWidget* Top(QWidget* window)
{
    QWidget* popup = QApplication::activePopupWidget();
    return popup ? popup : Below(window);
}

QString Plain(QString text)
{
    return text.remove('&').remove(" …");
}

// ---- Pictures

// A window with the caption that a desktop would give it.
QImage Framed(QWidget& window)
{
    const QImage content = window.grab().toImage();
    QImage framed(content.width() + 2, content.height() + captionHeight + 1, QImage::Format_RGB32);
    framed.fill(QColor(0xC8, 0xCC, 0xD2));
    QPainter painter(&framed);
    painter.drawImage(1, captionHeight, content);
    QFont bold = QApplication::font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(QColor(0x20, 0x24, 0x28));
    const QString title = window.windowTitle().replace("[*]", window.isWindowModified() ? "*" : "");
    painter.drawText(QRect(8, 0, framed.width() - 16, captionHeight), Qt::AlignVCenter, title);
    return framed;
}

// Fewer shades, and one byte a pixel where that does, so that the files stay small.
QImage Reduced(const QImage& picture)
{
    QImage reduced = picture.convertToFormat(QImage::Format_RGB32);
    QImage indexed(reduced.size(), QImage::Format_Indexed8);
    QHash<QRgb, int> indices;
    QList<QRgb> colors;
    for (int y = 0; y < reduced.height(); ++y)
    {
        auto* row = reinterpret_cast<QRgb*>(reduced.scanLine(y));
        for (int x = 0; x < reduced.width(); ++x)
        {
            row[x] = 0xFF000000 | (row[x] & 0x00F8F8F8) | (row[x] >> 5 & 0x00070707);
            if (!indices.contains(row[x]))
            {
                indices[row[x]] = static_cast<int>(colors.size());
                colors.append(row[x]);
            }
            indexed.scanLine(y)[x] = static_cast<uchar>(indices[row[x]]);
        }
    }
    indexed.setColorTable(colors.mid(0, 256));
    return colors.size() <= 256 ? indexed : reduced;
}

// The window with whatever is open over it: dialogs in its middle, menus where they are.
QImage Screen(QWidget& window)
{
    QImage screen = Framed(window);
    QList<QWidget*> boxes;
    QList<QWidget*> menus;
    for (QWidget* widget : QApplication::topLevelWidgets())
    {
        if (widget->isVisible() && widget->windowType() == Qt::Popup)
            menus.append(widget);
        else if (widget->isVisible() && widget != &window && dynamic_cast<QDialog*>(widget))
            boxes.append(widget);
    }
    QWidget* base = &window;
    QPoint corner(1, captionHeight);
    for (QWidget* box : boxes)
    {
        const QImage front = Framed(*box);
        const QSize size = screen.size().expandedTo(front.size());
        QImage both(size, QImage::Format_RGB32);
        both.fill(Qt::white);
        QPainter painter(&both);
        const QPoint place((size.width() - front.width()) / 2, (size.height() - front.height()) / 2);
        painter.drawImage((size.width() - screen.width()) / 2, (size.height() - screen.height()) / 2, screen);
        painter.drawImage(place, front);
        painter.end();
        screen = both;
        base = box;
        corner = place + QPoint(1, captionHeight);
    }
    QPainter painter(&screen);
    for (QWidget* menu : menus)
        painter.drawImage(menu->mapToGlobal(QPoint()) - base->mapToGlobal(QPoint()) + corner, menu->grab().toImage());
    return screen;
}

// ---- The player

class Player : public QObject
{
public:
    QString session;
    QDir out;
    QString against;

    void Play()
    {
        std::ifstream in(session.toStdString());
        for (std::string line; std::getline(in, line);)
            lines.push_back(line);
        if (lines.empty())
            End(2, "the session can't be read");
        Tick();
        QApplication::exec();
    }

private:
    using Words = kv::session::Arguments;

    // A command that opens a dialog or menu runs until that is closed; the next ones act in it.
    void Tick()
    {
        QTimer::singleShot(10, this, &Player::Tick); // a new one each time: none fires inside its own slot
        QWidget* top = Top(window.get());
        if (std::find(running.begin(), running.end(), top) != running.end())
            return; // the command that was given there has not ended
        if (next == lines.size())
            End(different ? 1 : 0, {});
        running.push_back(top);
        running.push_back(Below(window.get())); // a menu's command is given to what lies below the menu
        const size_t number = ++next;
        try
        {
            const auto words = kv::session::SplitWords(lines[number - 1]);
            if (!words.empty())
                Run(words.front(), Words({words.begin() + 1, words.end()}));
            if (window)
                kv::win::Settle();
        }
        catch (const std::exception& failure)
        {
            End(2, std::to_string(number) + ": " + failure.what());
        }
        running.resize(running.size() - 2);
    }

    [[noreturn]] void End(int code, const std::string& what)
    {
        if (!what.empty())
            std::cerr << session.toStdString() << ':' << what << std::endl;
        std::cout.flush();
        std::_Exit(code); // whatever is open: nothing of it matters any more
    }

    void Run(const std::string& command, const Words& words)
    {
        static const std::map<std::string, void (Player::*)(const Words&)> commands = {
            {"copy", &Player::Copy},
            {"workbench", &Player::Workbench},
            {"shot", &Player::Shot},
            {"move", &Player::Move},
            {"press", &Player::Press},
            {"release", &Player::Release},
            {"click", &Player::Click},
            {"double", &Player::Double},
            {"drag", &Player::Drag},
            {"wheel", &Player::Wheel},
            {"key", &Player::Key},
            {"type", &Player::Type},
            {"menu", &Player::Menu},
            {"choose", &Player::Choose},
            {"button", &Player::ClickButton},
            {"file", &Player::File},
            {"cell", &Player::Cell},
            {"toolbar", &Player::ToolBar},
            {"control", &Player::Control},
            {"wait", &Player::Wait},
            {"crashed", &Player::Crashed},
            {"kill", &Player::Kill},
            {"hold", &Player::Hold},
            {"let", &Player::LetGo}};
        const auto found = commands.find(command);
        if (found == commands.end())
            throw CannotDo("there is no command \"" + command + "\"");
        (this->*found->second)(words);
    }

    // ---- Files and the window

    void Copy(const Words& words)
    {
        for (size_t i = 0; i < words.Count(); ++i)
        {
            const QString name = QString::fromStdString(words.Text(i));
            const QDir beside = QFileInfo(session).dir();
            const QString source =
                beside.exists(name) ? beside.filePath(name) : KV_SOURCE_ROOT "/examples/data/" + name;
            QFile::remove(out.filePath(name));
            if (!QFile::copy(source, out.filePath(name)))
                throw CannotDo("can't copy " + words.Text(i));
        }
    }

    void Workbench(const Words& words)
    {
        window = std::make_unique<kv::workbench::MainWindow>();
        running.back() = window.get(); // nothing else goes on until it is up
        window->resize(1120, 640);
        window->show();
        window->activateWindow();
        if (!QTest::qWaitForWindowExposed(window.get()) || !QTest::qWaitForWindowActive(window.get()))
            throw CannotDo("the window doesn't come up");
        if (words.Count() == 0)
            window->OfferRecovery();
        else if (!window->OpenImage(out.filePath(QString::fromStdString(words.Text(0)))))
            throw CannotDo("can't open " + words.Text(0));
    }

    void Shot(const Words& words)
    {
        kv::win::Settle();
        const QString name = QString::fromStdString(words.Text(0)) + ".png";
        const QImage actual = Reduced(Screen(*window));
        actual.save(out.filePath(name));
        if (against.isEmpty())
            return;
        const QImage expected(against + "/" + name);
        if (expected.convertToFormat(QImage::Format_RGB32) == actual.convertToFormat(QImage::Format_RGB32))
            return;
        std::cerr << name.toStdString() << " isn't the manual's picture; see " << out.path().toStdString() << std::endl;
        expected.save(out.filePath(QString::fromStdString(words.Text(0)) + ".expected.png"));
        different = true;
    }

    // ---- The mouse over the image, in its pixels

    KvN::KvAOIBaseViewWnd& View() const
    {
        const HWND top = kv::win::WindowOf(Top(window.get()));
        if (auto* dialog = dynamic_cast<KvN::KvMaskDlgBase*>(CWnd::FromHandlePermanent(top)))
            return *dialog->GetMaskWnd().GetAOIBaseViewWnd();
        auto* pane = window->findChild<kv::workbench::EditorPane*>();
        for (HWND child = kv::win::HostWindow(pane); child; child = GetWindow(child, GW_CHILD))
        {
            if (auto* view = dynamic_cast<KvN::KvAOIBaseViewWnd*>(CWnd::FromHandlePermanent(child)))
                return *view;
        }
        throw CannotDo("there is no image");
    }

    CPoint At(const Words& words, size_t i) const
    {
        CPoint point(static_cast<int>(words.Integer(i)), static_cast<int>(words.Integer(i + 1)));
        View().ViewLPtoDP(&point, 1);
        return point;
    }

    void GoTo(CPoint point) { kv::win::MoveMouse(View().m_hWnd, point); }
    void Move(const Words& words) { GoTo(At(words, 0)); }
    void PressAt(CPoint point, Button button = Button::Left)
    {
        GoTo(point);
        kv::win::PressButton(View().m_hWnd, button, point);
    }
    void ReleaseAt(CPoint point, Button button = Button::Left)
    {
        GoTo(point);
        kv::win::ReleaseButton(View().m_hWnd, button, point);
    }
    void Press(const Words& words) { PressAt(At(words, 0)); }
    void Release(const Words& words) { ReleaseAt(At(words, 0)); }
    void Click(const Words& words)
    {
        const bool right = words.Is(0, "right");
        const CPoint point = At(words, 1);
        PressAt(point, right ? Button::Right : Button::Left);
        ReleaseAt(point, right ? Button::Right : Button::Left);
    }
    void Double(const Words& words)
    {
        const CPoint point = At(words, 0);
        PressAt(point);
        ReleaseAt(point);
        kv::win::DoublePressButton(View().m_hWnd, Button::Left, point);
        ReleaseAt(point);
    }
    void Drag(const Words& words)
    {
        const CPoint from = At(words, 0);
        const CPoint to = At(words, 2);
        PressAt(from);
        GoTo(CPoint((from.x + to.x) / 2, (from.y + to.y) / 2));
        ReleaseAt(to);
    }
    void Wheel(const Words& words)
    {
        kv::win::TurnWheel(View().m_hWnd, At(words, 1), static_cast<int>(words.Integer(0)) * 120);
    }
    void Hold(const Words& words) { kv::win::PressKey(words.Is(0, "ctrl") ? VK_CONTROL : VK_SHIFT); }
    void LetGo(const Words& words) { kv::win::ReleaseKey(words.Is(0, "ctrl") ? VK_CONTROL : VK_SHIFT); }

    // ---- Keys, menus, boxes

    QWidget* Focus() const
    {
        QWidget* top = Top(window.get());
        QWidget* focus = top->focusWidget();
        return dynamic_cast<QMenu*>(top) || !focus ? top : focus;
    }

    void Key(const Words& words)
    {
        if (Top(window.get()) == window.get() && !window->isActiveWindow())
        {
            window->activateWindow(); // there is no desktop that does it when a box closes
            static_cast<void>(QTest::qWaitForWindowActive(window.get()));
        }
        for (size_t i = 0; i < words.Count(); ++i)
        {
            const QKeySequence keys(QString::fromStdString(words.Text(i)), QKeySequence::PortableText);
            if (keys.isEmpty())
                throw CannotDo("there is no key " + words.Text(i));
            QTest::keyClick(Focus(), keys[0].key(), keys[0].keyboardModifiers());
        }
    }
    void Type(const Words& words) { QTest::keyClicks(Focus(), QString::fromStdString(words.Text(0))); }

    QAction* ActionOf(const QWidget& menu, const std::string& text) const
    {
        for (QAction* action : menu.actions())
            if (Plain(action->text()) == QString::fromStdString(text))
                return action;
        throw CannotDo("there is no item \"" + text + "\"");
    }
    // Opens a menu of the bar.
    void Menu(const Words& words)
    {
        QMenuBar* bar = window->menuBar();
        QAction* action = ActionOf(*bar, words.Text(0));
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(action).center());
    }
    // Clicks an item of the open menu.
    void Choose(const Words& words)
    {
        auto* menu = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            throw CannotDo("no menu is open");
        QAction* action = ActionOf(*menu, words.Text(0));
        if (!action->isEnabled())
            throw CannotDo("\"" + words.Text(0) + "\" is disabled");
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    }
    void ClickButton(const Words& words)
    {
        for (auto* button : Top(window.get())->findChildren<QAbstractButton*>())
        {
            if (Plain(button->text()) == QString::fromStdString(words.Text(0)))
                return QTest::mouseClick(button, Qt::LeftButton);
        }
        throw CannotDo("there is no button \"" + words.Text(0) + "\"");
    }
    void File(const Words& words)
    {
        auto* dialog = dynamic_cast<QFileDialog*>(Top(window.get()));
        if (!dialog)
            throw CannotDo("no file dialog is open");
        dialog->setOption(QFileDialog::DontConfirmOverwrite);
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(out.filePath(QString::fromStdString(words.Text(0))));
        QMetaObject::invokeMethod(dialog, "accept");
    }
    // Double-clicks a cell of the list.
    void Cell(const Words& words)
    {
        auto* list = window->findChild<QTableView*>();
        const QModelIndex cell =
            list->model()->index(static_cast<int>(words.Integer(0)), static_cast<int>(words.Integer(1)));
        list->scrollTo(cell);
        const QPoint middle = list->visualRect(cell).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, middle);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, middle);
    }

    // ---- The mask dialogs

    KvN::KvMaskDlgBase& MaskDialog() const
    {
        const HWND top = kv::win::WindowOf(Top(window.get()));
        if (auto* dialog = dynamic_cast<KvN::KvMaskDlgBase*>(CWnd::FromHandlePermanent(top)))
            return *dialog;
        throw CannotDo("no mask dialog is open");
    }
    static void ClickIn(HWND target, CPoint point)
    {
        kv::win::MoveMouse(target, point);
        kv::win::PressButton(target, Button::Left, point);
        kv::win::ReleaseButton(target, Button::Left, point);
    }
    void ToolBar(const Words& words)
    {
        auto& bar = const_cast<KvN::KvDlgToolBar&>(*MaskDialog().GetCurrentToolBar());
        const int id = static_cast<int>(words.Integer(0));
        const int index = bar.CommandToIndex(static_cast<UINT>(id));
        if (index < 0 || !bar.IsButtonEnabled(id))
            throw CannotDo("the toolbar's button " + words.Text(0) + " can't be pressed");
        CRect place;
        bar.GetItemRect(index, &place);
        ClickIn(bar.m_hWnd, place.CenterPoint());
    }
    void Control(const Words& words)
    {
        const HWND control = ::GetDlgItem(MaskDialog().m_hWnd, static_cast<int>(words.Integer(0)));
        if (!control || !IsWindowEnabled(control))
            throw CannotDo("control " + words.Text(0) + " can't be used");
        CRect client;
        GetClientRect(control, &client);
        if (words.Count() == 1)
            return ClickIn(control, client.CenterPoint());
        if (auto* spin = dynamic_cast<KvN::KvSpinEdit*>(CWnd::FromHandlePermanent(control)))
            return spin->SetValue(words.Number(1));
        SendMessageW(control, TBM_SETPOS, TRUE, static_cast<LPARAM>(words.Integer(1)));
        SendMessageW(GetParent(control), WM_HSCROLL, TB_THUMBPOSITION, reinterpret_cast<LPARAM>(control));
    }

    // ---- Crashes

    void Wait(const Words& words) { QTest::qWait(static_cast<int>(words.Integer(0))); }
    // Another session, which kills its program.
    void Crashed(const Words& words)
    {
        const QString other = QFileInfo(session).dir().filePath(QString::fromStdString(words.Text(0)));
        QProcess::execute(QCoreApplication::applicationFilePath(), {other, "--keep", "--out", out.path()});
    }
    void Kill(const Words&) { std::raise(SIGKILL); }

    std::unique_ptr<kv::workbench::MainWindow> window;
    std::vector<std::string> lines;
    size_t next = 0;
    std::vector<QPointer<QWidget>> running; // the commands under way: what was on top, and below, when each began
    bool different = false;
};

// What Qt says of a desktop that lacks this or that is no matter of the manual's.
void PassFailuresOnly(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::cerr << text.toStdString() << std::endl;
}
} // namespace

int main(int argc, char** argv)
{
    qInstallMessageHandler(PassFailuresOnly);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    kv::workbench::SetUp(application);
    QApplication::setStyle("Fusion");
    QApplication::setFont(QFont("Liberation Sans", 9));
    QApplication::setCursorFlashTime(0);
    // Nothing lights up under the pointer that the platform makes up: windows reach the screen's other corners.
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());

    QCommandLineParser line;
    line.addPositionalArgument("session", "The session to play");
    line.addOption({"out", "Where files and pictures go", "folder"});
    line.addOption({"against", "Where the pictures are that they must equal", "folder"});
    line.addOption({"keep", "Leaves what is in the folder"});
    line.process(application);
    Player player;
    player.session = line.positionalArguments().value(0);
    player.out = QDir(QFileInfo(line.value("out")).absoluteFilePath());
    if (!line.isSet("keep"))
        player.out.removeRecursively();
    player.out.mkpath(".");
    player.against = line.value("against");
    qputenv("XDG_CONFIG_HOME", player.out.filePath("config").toUtf8());
    qputenv("XDG_STATE_HOME", player.out.filePath("state").toUtf8());
    player.Play();
    return 2;
}
