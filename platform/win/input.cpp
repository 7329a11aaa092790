// Input by program, handed to Qt where its platform plugins hand theirs.
#include "platform/win/input.h"

#include "platform/win/modal.h"
#include "platform/win/native/dispatch.h"
#include "platform/win/native/input_state.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWindow>

// What Qt's own test library calls; exported by QtGui, declared in no header of its.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                      Qt::MouseButtons state, Qt::MouseButton button, QEvent::Type type,
                                      Qt::KeyboardModifiers modifiers, int timestamp);
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
                                    const QString& text, bool autoRepeat, ushort count);
QT_END_NAMESPACE

namespace kv::win
{
namespace
{
// Milliseconds that Qt takes two presses apart by. Real time plays no part.
int playedTime = 0;
constexpr int longAfter = 10000;

Qt::KeyboardModifiers Modifiers()
{
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, input.down.test(VK_SHIFT));
    modifiers.setFlag(Qt::ControlModifier, input.down.test(VK_CONTROL));
    modifiers.setFlag(Qt::AltModifier, input.down.test(VK_MENU));
    return modifiers;
}

Qt::MouseButtons Buttons()
{
    Qt::MouseButtons buttons;
    buttons.setFlag(Qt::LeftButton, input.down.test(VK_LBUTTON));
    buttons.setFlag(Qt::RightButton, input.down.test(VK_RBUTTON));
    buttons.setFlag(Qt::MiddleButton, input.down.test(VK_MBUTTON));
    return buttons;
}

Qt::MouseButton ToQt(Button button)
{
    return button == Button::Left ? Qt::LeftButton : button == Button::Right ? Qt::RightButton : Qt::MiddleButton;
}

UINT KeyOf(Button button)
{
    return button == Button::Left ? VK_LBUTTON : button == Button::Right ? VK_RBUTTON : VK_MBUTTON;
}

// The desktop's window and the point in it; no window if it isn't shown.
struct Spot
{
    QWindow* window = nullptr;
    QPointF local;
    QPointF global;
};

Spot SpotOf(HWND handle, CPoint client)
{
    const Window* window = Find(handle);
    if (!window || !window->widget)
        return {};
    QWidget* top = window->widget->window();
    if (!top->isVisible() || !top->windowHandle())
        return {};
    const CPoint origin = window->ClientOnScreen();
    const QPoint global(origin.x + client.x, origin.y + client.y);
    return {top->windowHandle(), QPointF(top->mapFromGlobal(global)), QPointF(global)};
}

class Playing
{
public:
    Playing() : former(std::exchange(input.playing, true)) { input.played = true; }
    ~Playing() { input.playing = former; }

private:
    bool former;
};

// Qt drops a move to where its pointer is, so such a one enters one level lower.
void SendStillMove(const Spot& spot)
{
    QMouseEvent event(QEvent::MouseMove, spot.local, spot.global, Qt::NoButton, Buttons(), Modifiers());
    QCoreApplication::sendEvent(spot.window, &event);
}

// Buttons of the table are those after the event.
void SendMouseEvent(const Spot& spot, Qt::MouseButton button, QEvent::Type type)
{
    static QPointF lastGiven(-1, -1);
    if (spot.window)
    {
        const Playing playing;
        const bool still = std::exchange(lastGiven, spot.global) == spot.global && type == QEvent::MouseMove;
        input.position = {static_cast<LONG>(spot.global.x()), static_cast<LONG>(spot.global.y())};
        input.nowhere = false;
        if (still)
            SendStillMove(spot);
        else
            qt_handleMouseEvent(spot.window, spot.local, spot.global, Buttons(), button, type, Modifiers(), playedTime);
    }
    Settle();
}

void Press(HWND window, Button button, CPoint point, int laterBy)
{
    playedTime += laterBy;
    input.down.set(KeyOf(button));
    SendMouseEvent(SpotOf(window, point), ToQt(button), QEvent::MouseButtonPress);
}

QString TextOf(UINT key)
{
    const Qt::KeyboardModifiers modifiers = Modifiers();
    if (modifiers & (Qt::ControlModifier | Qt::AltModifier))
        return {};
    if (key >= 'A' && key <= 'Z')
        return QChar(static_cast<char16_t>(modifiers & Qt::ShiftModifier ? key : key - 'A' + 'a'));
    if (key >= '0' && key <= '9')
        return QChar(static_cast<char16_t>(key));
    switch (key)
    {
    case VK_SPACE:
        return " ";
    case VK_RETURN:
        return "\r";
    case VK_TAB:
        return "\t";
    case VK_ESCAPE:
        return "\x1b";
    case VK_BACK:
        return "\b";
    case VK_DELETE:
        return "\x7f";
    case VK_OEM_PLUS:
        return "+";
    case VK_OEM_MINUS:
        return "-";
    case VK_OEM_COMMA:
        return ",";
    case VK_OEM_PERIOD:
        return ".";
    default:
        return {};
    }
}

// A menu takes the keys, else the modal window, else the window of the focus.
QWindow* KeyWindow()
{
    if (QWidget* popup = QApplication::activePopupWidget())
        return popup->windowHandle();
    for (const HWND handle : {input.focus, ActiveModal()})
    {
        const Window* window = Find(handle);
        if (window && window->widget && window->widget->window()->isVisible())
            return window->widget->window()->windowHandle();
    }
    return QGuiApplication::focusWindow();
}

void SendKeyEvent(UINT key, QEvent::Type type)
{
    const int qtKey = QtKey(key);
    if (QWindow* window = qtKey ? KeyWindow() : nullptr)
    {
        const Playing playing;
        qt_handleKeyEvent(window, type, qtKey, Modifiers(), TextOf(key), false, 1);
    }
    input.down.set(key, type == QEvent::KeyPress); // in case nobody took the event
    Settle();
}
} // namespace

void MoveMouse(HWND window, CPoint point)
{
    SendMouseEvent(SpotOf(window, point), Qt::NoButton, QEvent::MouseMove);
}

void PressButton(HWND window, Button button, CPoint point)
{
    Press(window, button, point, longAfter);
}

void DoublePressButton(HWND window, Button button, CPoint point)
{
    Press(window, button, point, 1);
}

void ReleaseButton(HWND window, Button button, CPoint point)
{
    input.down.reset(KeyOf(button));
    SendMouseEvent(SpotOf(window, point), ToQt(button), QEvent::MouseButtonRelease);
}

void TurnWheel(HWND window, CPoint point, int delta, bool horizontal)
{
    const Spot spot = SpotOf(window, point);
    if (spot.window)
    {
        const Playing playing;
        input.position = {static_cast<LONG>(spot.global.x()), static_cast<LONG>(spot.global.y())};
        QWheelEvent event(spot.local, spot.global, QPoint(), horizontal ? QPoint(-delta, 0) : QPoint(0, delta),
                          Buttons(), Modifiers(), Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(spot.window, &event);
    }
    Settle();
}

void LeaveMouse()
{
    {
        const Playing playing;
        input.nowhere = true;
        for (QWidget* top : QApplication::topLevelWidgets())
        {
            if (!top->isVisible() || !FindAbove(top))
                continue;
            QEvent leave(QEvent::Leave);
            QCoreApplication::sendEvent(top, &leave);
        }
        Guarded([] { HoverOver(nullptr); });
    }
    Settle();
}

bool IsMouseAt(HWND handle, CPoint point)
{
    const Window* window = Find(handle);
    if (!window || input.nowhere)
        return false;
    const CPoint origin = window->ClientOnScreen();
    return CPoint(input.position) == CPoint(origin.x + point.x, origin.y + point.y);
}

void PressKey(UINT key)
{
    SendKeyEvent(key, QEvent::KeyPress);
}

void ReleaseKey(UINT key)
{
    SendKeyEvent(key, QEvent::KeyRelease);
}

// Each round may cause the next one; a window that invalidates itself in each paint must not hang the program.
void Settle()
{
    for (int round = 0; round < 50 && !HasKept(); ++round)
    {
        bool busy = DeliverPosted();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        busy |= PaintEverything();
        if (!busy)
            break;
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (DispatchDepth() == 0)
        ForgetBorrowers();
    RethrowKept();
}

void ResetInput()
{
    input.down.reset();
    input.nowhere = true;
    input.hover = nullptr;
    input.leaveWanted = nullptr;
    input.cursor = nullptr;
    DropCapture();
    playedTime += longAfter;
}
} // namespace kv::win
