// Qt events become messages here and nowhere else: an event filter on the application sees them before any widget does.
//
// A window that paints itself takes its events whole. Events of Qt's own controls become messages too, and the default
// processing of those messages hands the event on to Qt (QtEvent in dispatch.h).
#include "platform/win/native/translate.h"

#include "platform/win/native/dispatch.h"
#include "platform/win/native/input_state.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

namespace kv::win
{
namespace
{
struct ButtonMessages
{
    Qt::MouseButton button;
    UINT down, up, doubleClick;
};

constexpr ButtonMessages buttonMessages[] = {
    {Qt::LeftButton, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK},
    {Qt::RightButton, WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDBLCLK},
    {Qt::MiddleButton, WM_MBUTTONDOWN, WM_MBUTTONUP, WM_MBUTTONDBLCLK},
};

WPARAM MouseKeys(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers)
{
    return (buttons.testFlag(Qt::LeftButton) ? MK_LBUTTON : 0) | (buttons.testFlag(Qt::RightButton) ? MK_RBUTTON : 0) |
           (buttons.testFlag(Qt::MiddleButton) ? MK_MBUTTON : 0) |
           (modifiers.testFlag(Qt::ShiftModifier) ? MK_SHIFT : 0) |
           (modifiers.testFlag(Qt::ControlModifier) ? MK_CONTROL : 0);
}

// 0 for a button that the platform's messages don't know.
UINT MouseMessage(const QMouseEvent& event, const Window& target)
{
    if (event.type() == QEvent::MouseMove)
        return WM_MOUSEMOVE;
    for (const ButtonMessages& messages : buttonMessages)
    {
        if (messages.button != event.button())
            continue;
        if (event.type() == QEvent::MouseButtonRelease)
            return messages.up;
        const bool second = event.type() == QEvent::MouseButtonDblClick && (target.windowClass.style & CS_DBLCLKS);
        return second ? messages.doubleClick : messages.down;
    }
    return 0;
}

CPoint Rounded(QPointF point)
{
    return CPoint(qRound(point.x()), qRound(point.y()));
}

LPARAM PackedIn(const Window& window, CPoint screen)
{
    const CPoint origin = window.ClientOnScreen();
    return MAKELPARAM(screen.x - origin.x, screen.y - origin.y);
}

class Translator : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease)
            NoteKey(*static_cast<QKeyEvent*>(event));
        if (!object->isWidgetType())
            return false;
        auto& widget = *static_cast<QWidget*>(object);
        if (event->type() == QEvent::MouseButtonPress && DispatchDepth() == 0)
            ForgetBorrowers();
        bool done = false;
        Guarded([&] { done = Translate(widget, *event); });
        return done || HasKept();
    }

private:
    static void NoteKey(const QKeyEvent& event)
    {
        const UINT key = VirtualKey(event);
        SyncModifiers(event.modifiers());
        if (key)
            input.down.set(key, event.type() == QEvent::KeyPress);
    }

    // True: the event is done, no widget sees it.
    bool Translate(QWidget& widget, QEvent& event)
    {
        switch (event.type())
        {
        case QEvent::MouseMove:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
            return OnMouse(widget, static_cast<QMouseEvent&>(event));
        case QEvent::Wheel:
            return OnWheel(widget, static_cast<QWheelEvent&>(event));
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            return OnKey(widget, static_cast<QKeyEvent&>(event));
        case QEvent::FocusIn:
            OnFocusIn(widget);
            return false;
        case QEvent::FocusOut:
            OnFocusOut(static_cast<QFocusEvent&>(event));
            return false;
        case QEvent::Paint:
            return OnPaint(widget);
        case QEvent::Move:
        case QEvent::Resize:
            if (Window* window = FindByWidget(&widget); window && window->ownsWidget)
                GeometryFromQt(*window);
            return false;
        case QEvent::Show:
            if (Window* window = FindByWidget(&widget); window && !window->ownsWidget)
                InvalidateTree(*window);
            return false;
        case QEvent::Close:
            return OnClose(widget, event);
        case QEvent::Leave:
            OnLeave(widget);
            return false;
        case QEvent::WindowActivate:
        case QEvent::WindowDeactivate:
            if (Window* window = FindByWidget(&widget); window && !window->parent && window->ownsWidget)
                Send(*window, WM_ACTIVATE, event.type() == QEvent::WindowActivate ? WA_ACTIVE : WA_INACTIVE, 0);
            return false;
        default:
            return false;
        }
    }

    // ---- Mouse

    // The captured window, else the control that Qt chose, else what lies under the pointer.
    static Window* MouseTarget(QWidget& widget, Window* above, CPoint screen)
    {
        if (Window* captured = Find(input.capture))
            return captured;
        if (!above)
            return nullptr;
        if (above->IsControl() && above->ownsWidget && above->widget == &widget && !above->IsTransparentToMouse())
            return above;
        return HitTest(above->TopLevel(), screen);
    }

    static bool OnMouse(QWidget& widget, QMouseEvent& event)
    {
        Window* above = FindAbove(&widget);
        if (!above && !input.capture)
            return false;
        const CPoint screen = Rounded(event.globalPosition());
        input.position = screen;
        input.played = input.playing;
        input.nowhere = false;
        SyncButtons(event.buttons());
        SyncModifiers(event.modifiers());

        // A scroll bar, or a part of a control: Qt's alone, but the pointer is outside all client areas there.
        const bool helper = above && above->widget != &widget;
        if ((helper || (above && !above->ownsWidget)) && !input.capture)
        {
            HoverOver(nullptr);
            return false;
        }
        Window* target = MouseTarget(widget, above, screen);
        if (!target || !target->TakesInput())
        {
            HoverOver(nullptr);
            return true;
        }
        const HWND handle = target->handle;
        Window* under = input.capture && above ? HitTest(above->TopLevel(), screen) : target;
        HoverOver(under);
        const UINT message = MouseMessage(event, *target);
        if (!message || !Find(handle))
            return true;
        SendMouse(*target, message, event, screen);
        return true;
    }

    static void SendMouse(Window& target, UINT message, QMouseEvent& event, CPoint screen)
    {
        const HWND handle = target.handle;
        const QtEvent current(target, &event);
        const bool press = event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
        if (press)
            Send(target, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(target.TopLevel().handle),
                 MAKELPARAM(HTCLIENT, static_cast<int>(message)));
        if (!input.capture && Find(handle))
            Send(target, WM_SETCURSOR, reinterpret_cast<WPARAM>(handle),
                 MAKELPARAM(HTCLIENT, static_cast<int>(message)));
        if (Find(handle))
            SendInput(target, message, MouseKeys(event.buttons(), event.modifiers()), PackedIn(target, screen));
    }

    static bool OnWheel(QWidget& widget, QWheelEvent& event)
    {
        Window* above = FindAbove(&widget);
        if (!above || above->widget != &widget || !above->ownsWidget)
            return false;
        const CPoint screen = Rounded(event.globalPosition());
        input.position = screen;
        SyncModifiers(event.modifiers());
        Window* target = MouseTarget(widget, above, screen);
        if (!target || !target->TakesInput())
            return true;
        const QtEvent current(*target, &event);
        const QPoint turn = event.angleDelta();
        const WPARAM keys = MouseKeys(event.buttons(), event.modifiers());
        const HWND handle = target->handle;
        if (turn.y() != 0)
            SendInput(*target, WM_MOUSEWHEEL, MAKEWPARAM(static_cast<int>(keys), turn.y()),
                      MAKELPARAM(screen.x, screen.y));
        if (turn.x() != 0 && Find(handle))
            SendInput(*target, WM_MOUSEHWHEEL, MAKEWPARAM(static_cast<int>(keys), -turn.x()),
                      MAKELPARAM(screen.x, screen.y));
        return true;
    }

    static void OnLeave(QWidget& widget)
    {
        if (!FindAbove(&widget) || (!widget.isWindow() && !FindByWidget(&widget)))
            return;
        if (widget.isWindow())
            input.nowhere = true;
        const Window* window = FindByWidget(&widget);
        if (widget.isWindow() || (window && input.hover == window->handle))
            HoverOver(nullptr);
    }

    // ---- Keys

    static bool OnKey(QWidget& widget, QKeyEvent& event)
    {
        Window* window = FindAbove(&widget);
        if (!window || !window->ownsWidget || window->widget != &widget)
            return false;
        const UINT key = VirtualKey(event);
        const QtEvent current(*window, &event);
        const HWND handle = window->handle;
        const bool press = event.type() == QEvent::KeyPress;
        const bool system = IsSystemKey(event, key);
        const LPARAM bits = 1 | (press ? 0 : LPARAM(0xC0000000)) | (event.isAutoRepeat() && press ? 0x40000000 : 0) |
                            (event.modifiers().testFlag(Qt::AltModifier) ? 0x20000000 : 0);
        const UINT message = system ? (press ? WM_SYSKEYDOWN : WM_SYSKEYUP) : (press ? WM_KEYDOWN : WM_KEYUP);
        // A key that the platform has no number for is still a message, so that Qt's controls get theirs.
        SendInput(*window, message, key, bits);
        window = Find(handle);
        if (!window || !press || window->IsControl())
            return true;
        const std::u16string text = event.text().toStdU16String();
        for (const char16_t unit : text)
        {
            if (Window* left = Find(handle))
                SendInput(*left, system ? WM_SYSCHAR : WM_CHAR, unit, bits);
        }
        return true;
    }

    // Alt, F10, and what is pressed with Alt but without Ctrl.
    static bool IsSystemKey(const QKeyEvent& event, UINT key)
    {
        const Qt::KeyboardModifiers modifiers = event.modifiers();
        if (key == VK_MENU)
            return !modifiers.testFlag(Qt::ControlModifier);
        if (key == VK_F10)
            return true;
        return modifiers.testFlag(Qt::AltModifier) && !modifiers.testFlag(Qt::ControlModifier);
    }

    // ---- Focus

    static void OnFocusIn(QWidget& widget)
    {
        const Window* window = FindAbove(&widget);
        if (window && window->ownsWidget)
            FocusMoved(window->handle);
        else
            FocusMoved(nullptr);
    }

    // Where the focus goes to another window of ours, its FocusIn tells. A menu only borrows the keyboard.
    static void OnFocusOut(const QFocusEvent& event)
    {
        if (event.reason() == Qt::PopupFocusReason || event.reason() == Qt::MenuBarFocusReason)
            return;
        if (!QApplication::focusWidget() && event.reason() == Qt::ActiveWindowFocusReason && !input.played)
        {
            FocusMoved(nullptr);
            input.down.reset();
        }
    }

    // ---- Paint

    static bool OnPaint(QWidget& widget)
    {
        Window* window = FindByWidget(&widget);
        if (!window || !window->ownsWidget || window->destroying)
            return false;
        if (window->IsControl())
            return PaintControl(*window);
        const HWND handle = window->handle;
        PaintToCopy(*window);
        if (Find(handle))
            CopyToScreen(*window);
        return true;
    }

    static void PaintToCopy(Window& window)
    {
        struct Scope
        {
            HWND handle;
            ~Scope()
            {
                if (Window* window = Find(handle))
                    window->copying = false;
            }
        } scope{window.handle};
        window.copying = true;
        PaintNow(window);
    }

    // Only a control that somebody has taken over may paint itself.
    static bool PaintControl(Window& window)
    {
        if (!window.object)
            return false;
        const HWND handle = window.handle;
        const CSize size = window.ClientSize();
        window.update = QRegion(0, 0, size.cx, size.cy);
        QEvent marker(QEvent::Paint);
        const QtEvent current(window, &marker);
        PaintToCopy(window);
        if (!Find(handle) || current.finished)
            return false;
        CopyToScreen(window);
        return true;
    }

    static void CopyToScreen(Window& window)
    {
        if (!window.widget)
            return;
        const QImage image = window.backing.Image();
        const int border = window.BorderWidth();
        QPainter painter(window.widget);
        if (border > 0)
            painter.fillRect(window.widget->rect(), Qt::darkGray);
        if (!image.isNull())
            painter.drawImage(border, border, image);
        if (window.bars[SB_VERT].shown && window.bars[SB_HORZ].shown)
            painter.fillRect(CornerOfBars(window), FaceColor());
    }

    static QColor FaceColor()
    {
        const COLORREF face = GetSysColor(COLOR_BTNFACE);
        return QColor(GetRValue(face), GetGValue(face), GetBValue(face));
    }

    // Between two scroll bars lies a corner that is neither's, nor the client area's.
    static QRect CornerOfBars(const Window& window)
    {
        const CSize client = window.ClientSize();
        const int border = window.BorderWidth();
        return QRect(border + client.cx, border + client.cy, GetSystemMetrics(SM_CXVSCROLL),
                     GetSystemMetrics(SM_CYHSCROLL));
    }

    static bool OnClose(QWidget& widget, QEvent& event)
    {
        Window* window = FindByWidget(&widget);
        if (!window || !window->ownsWidget || window->destroying)
            return false;
        event.ignore();
        Send(*window, WM_CLOSE);
        return true;
    }
};
} // namespace

void EnsureTranslator()
{
    static QPointer<Translator> translator;
    if (translator || !qApp)
        return;
    translator = new Translator(qApp);
    qApp->installEventFilter(translator);
}
} // namespace kv::win
