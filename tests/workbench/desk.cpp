// The operator's hands and eyes.
#include "tests/workbench/desk.h"

#include "C/uiAOIBaseViewWnd.h"
#include "C/uiMaskDlgBase.h"
#include "platform/win/input.h"
#include "platform/win/qt_host.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QRegularExpression>

#include <stdexcept>

namespace kv::test
{
namespace
{
using kv::workbench::Text;

QAction* FindAction(const QList<QAction*>& actions, const QString& text)
{
    for (QAction* action : actions)
    {
        if (action->text() == text)
            return action;
        if (QAction* inside = action->menu() ? FindAction(action->menu()->actions(), text) : nullptr)
            return inside;
    }
    return nullptr;
}

std::string Describe(const QWidget& widget)
{
    const auto* box = dynamic_cast<const QMessageBox*>(&widget);
    return std::string(widget.metaObject()->className()) + " " +
           (box ? box->text() : widget.windowTitle()).toStdString();
}

// The text of a resource as a pattern: what is filled in may be anything.
bool IsText(const QString& said, unsigned short id)
{
    QString pattern = QRegularExpression::escape(Text(id));
    pattern.replace(QRegularExpression("\\\\%[1-9]"), ".*");
    return QRegularExpression("^" + pattern + "$", QRegularExpression::DotMatchesEverythingOption)
        .match(said)
        .hasMatch();
}

void ClickAt(HWND window, CPoint point)
{
    kv::win::MoveMouse(window, point);
    kv::win::PressButton(window, kv::win::Button::Left, point);
    kv::win::ReleaseButton(window, kv::win::Button::Left, point);
}
} // namespace

void Settle()
{
    for (int i = 0; i < 5; ++i)
        QApplication::processEvents();
}

Desk::Desk() : window(std::make_unique<kv::workbench::MainWindow>())
{
    window->resize(900, 600);
    window->show();
    window->activateWindow();
    Settle();
    QObject::connect(&watch, &QTimer::timeout, [this] { Look(); });
    watch.start(5);
}

Desk::~Desk()
{
    for (const Expected& missing : expected)
        ADD_FAILURE() << "did not open: " << missing.what;
}

// One look at what is open now.
void Desk::Look()
{
    QWidget* modal = QApplication::activeModalWidget();
    const bool progress = dynamic_cast<QProgressDialog*>(modal) != nullptr;
    if (!modal || modal == seen || (progress && (expected.empty() || expected.front().what != "progress")))
        return;
    seen = modal;
    if (expected.empty())
    {
        ADD_FAILURE() << "opened unexpectedly: " << Describe(*modal);
        modal->close();
        return;
    }
    const Expected next = expected.front();
    expected.pop_front();
    SCOPED_TRACE(next.what);
    next.act(*modal);
}

void Desk::Expect(const char* what, std::function<void(QWidget&)> act)
{
    expected.push_back({what, std::move(act)});
}

void Desk::ExpectMessage(unsigned short text, QMessageBox::StandardButton answer)
{
    expected.push_back({Text(text).toStdString(), [this, text, answer](QWidget& opened)
                        {
                            auto* box = dynamic_cast<QMessageBox*>(&opened);
                            if (!box)
                            {
                                ADD_FAILURE() << "instead there is " << Describe(opened);
                                opened.close();
                                return;
                            }
                            said = box->text();
                            EXPECT_TRUE(IsText(said, text)) << said.toStdString();
                            ASSERT_TRUE(box->button(answer)) << "no such button";
                            box->button(answer)->click();
                        }});
}

void Desk::ExpectFileDialog(const QString& answer)
{
    expected.push_back({"a file dialog for " + answer.toStdString(), [answer](QWidget& opened)
                        {
                            auto* dialog = dynamic_cast<QFileDialog*>(&opened);
                            if (!dialog || answer.isEmpty())
                            {
                                EXPECT_TRUE(dialog) << "instead there is " << Describe(opened);
                                opened.close();
                                return;
                            }
                            dialog->setOption(QFileDialog::DontConfirmOverwrite);
                            dialog->findChild<QLineEdit*>("fileNameEdit")->setText(answer);
                            QMetaObject::invokeMethod(dialog, "accept");
                        }});
}

void Desk::ExpectMaskDialog(std::function<void(KvN::KvMaskDlgBase&)> act)
{
    expected.push_back({"a mask dialog", [act = std::move(act)](QWidget& opened)
                        {
                            CWnd* window = CWnd::FromHandlePermanent(kv::win::WindowOf(&opened));
                            if (auto* dialog = dynamic_cast<KvN::KvMaskDlgBase*>(window))
                                return act(*dialog);
                            ADD_FAILURE() << "instead there is " << Describe(opened);
                            opened.close();
                        }});
}

QAction* Desk::Action(unsigned short text) const
{
    QAction* action = FindAction(window->menuBar()->actions(), Text(text));
    EXPECT_TRUE(action) << Text(text).toStdString();
    return action;
}

void Desk::Do(unsigned short text)
{
    QAction* action = Action(text);
    ASSERT_TRUE(action && action->isEnabled()) << Text(text).toStdString();
    action->trigger();
    Settle();
}

kv::workbench::EditorPane& Desk::Pane()
{
    return *window->findChild<kv::workbench::EditorPane*>();
}

KvN::KvAOIBaseViewWnd& Desk::View()
{
    for (HWND child = kv::win::HostWindow(&Pane()); child; child = GetWindow(child, GW_CHILD))
    {
        if (auto* view = dynamic_cast<KvN::KvAOIBaseViewWnd*>(CWnd::FromHandlePermanent(child)))
            return *view;
    }
    throw std::runtime_error("there is no view");
}

void Desk::PointAt(int x, int y)
{
    CPoint point(x, y);
    View().ViewLPtoDP(&point, 1);
    kv::win::MoveMouse(View().m_hWnd, point);
}

QColor Desk::ShownAt(int x, int y)
{
    Settle();
    CPoint point(x, y);
    View().ViewLPtoDP(&point, 1);
    return kv::win::WidgetOf(View().m_hWnd)->grab().toImage().pixelColor(point.x, point.y);
}

QString Desk::SavePicture(const QString& name, int width, int height, unsigned char grey)
{
    KvN::KvBufferAOI8 picture(KvN::KvTSize<short>(static_cast<short>(width), static_cast<short>(height)));
    for (int y = 0; y < height; ++y)
        std::fill_n(picture.GetRowPointer(y), width, grey);
    picture.Save(kv::workbench::FromQt(Path(name)));
    return Path(name);
}

void Desk::OpenPicture(const QString& name, int width, int height)
{
    ASSERT_TRUE(window->OpenImage(SavePicture(name, width, height)));
    Settle();
}

void Drag(KvN::KvMaskDlgBase& dialog, int x1, int y1, int x2, int y2)
{
    KvN::KvAOIBaseViewWnd& view = *dialog.GetMaskWnd().GetAOIBaseViewWnd();
    CPoint from(x1, y1), to(x2, y2);
    view.ViewLPtoDP(&from, 1);
    view.ViewLPtoDP(&to, 1);
    kv::win::MoveMouse(view.m_hWnd, from);
    kv::win::PressButton(view.m_hWnd, kv::win::Button::Left, from);
    kv::win::MoveMouse(view.m_hWnd, to);
    kv::win::ReleaseButton(view.m_hWnd, kv::win::Button::Left, to);
}

void Click(KvN::KvMaskDlgBase& dialog, int control)
{
    const HWND window = ::GetDlgItem(dialog.m_hWnd, control);
    ASSERT_TRUE(IsWindowEnabled(window));
    CRect client;
    GetClientRect(window, &client);
    ClickAt(window, client.CenterPoint());
}

void ClickTool(KvN::KvMaskDlgBase& dialog, int id)
{
    auto& bar = const_cast<KvN::KvDlgToolBar&>(*dialog.GetCurrentToolBar());
    ASSERT_TRUE(bar.IsButtonEnabled(id));
    CRect button;
    bar.GetItemRect(bar.CommandToIndex(static_cast<UINT>(id)), &button);
    ClickAt(bar.m_hWnd, button.CenterPoint());
}

std::unique_ptr<KvN::KvAOI8> LoadGrey(const QString& path)
{
    auto loaded = KvN::KvxLoadAOI(kv::workbench::FromQt(path));
    auto* grey = dynamic_cast<KvN::KvAOI8*>(loaded.get());
    if (grey)
        static_cast<void>(loaded.release());
    return std::unique_ptr<KvN::KvAOI8>(grey);
}

int CountBits(const KvN::KvAOI8& mask, unsigned char bits)
{
    int count = 0;
    for (int y = 0; y < mask.AOIHeight(); ++y)
    {
        for (int x = 0; x < mask.AOIWidth(); ++x)
            count += (mask.GetRowPointer(y)[x] & bits) == bits;
    }
    return count;
}

} // namespace kv::test
