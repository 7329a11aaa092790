// What all controls have in common: messages of their Qt events, their font, and what they tell their parent.
#include "platform/win/native/controls.h"

#include "platform/win/native/classes.h"
#include "platform/win/native/dialog_window.h"
#include "platform/win/native/dispatch.h"

#include <QEvent>

namespace kv::win
{
LRESULT ControlWindow::DefaultProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    QtEvent* current = CurrentQtEvent();
    const bool ours = current && current->window == handle && !current->finished && widget;
    const bool isInput =
        (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) || (message >= WM_KEYFIRST && message <= WM_KEYLAST);
    if (ours && message == WM_PAINT)
    {
        current->finished = true;
        update = QRegion();
        return 0;
    }
    if (ours && isInput && current->event->type() != QEvent::Paint)
    {
        current->finished = true;
        static_cast<QObject*>(widget.data())->event(current->event);
        return 0;
    }
    if (message == WM_PAINT && widget)
    {
        update = QRegion();
        widget->update();
        return 0;
    }
    if (message == WM_ERASEBKGND)
        return 1;
    return Window::DefaultProc(message, wParam, lParam);
}

void ControlWindow::FontChanged()
{
    LOGFONTW log{};
    if (!widget || !GetObjectW(font, sizeof log, &log))
        return;
    QFont face = widget->font();
    face.setFamily(QString::fromWCharArray(log.lfFaceName));
    if (log.lfHeight != 0)
        face.setPixelSize(std::abs(log.lfHeight));
    face.setBold(log.lfWeight >= 600);
    face.setItalic(log.lfItalic != 0);
    widget->setFont(face);
}

void ControlWindow::Adopt(QWidget* control)
{
    control->setMouseTracking(true);
    control->setContextMenuPolicy(Qt::PreventContextMenu);
    if (!(style & WS_TABSTOP))
        control->setFocusPolicy(control->focusPolicy() & Qt::TabFocus ? Qt::ClickFocus : Qt::NoFocus);
}

void ControlWindow::NotifyParent(int code)
{
    if (!parent)
        return;
    const HWND to = parent->handle;
    const WPARAM what = MAKEWPARAM(id, code);
    const auto from = reinterpret_cast<LPARAM>(handle);
    Guarded([&] { SendMessageW(to, WM_COMMAND, what, from); });
}

QString ToQString(const CString& text)
{
    return QString::fromStdU16String(text.Units()).replace("\r\n", "\n");
}

void RegisterStandardControls()
{
    static bool done = false;
    if (std::exchange(done, true))
        return;
    RegisterDialogClass();
    RegisterControlClass("Button", &MakeButton);
    RegisterControlClass("Static", &MakeStatic);
    RegisterControlClass("msctls_trackbar32", &MakeTrackbar);
    RegisterControlClass("Edit", &MakeEdit);
    RegisterControlClass("ScrollBar", &MakeScrollBar);
}
} // namespace kv::win
