// Focus, capture, cursor and the key table.
#include "platform/win/native/input_state.h"

#include "platform/win/native/cursors.h"
#include "platform/win/native/dispatch.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>

#include <utility>

namespace kv::win
{
InputState input;

namespace
{
struct KeyPair
{
    int qt;
    UINT virtualKey;
};

// Letters and digits have the same numbers in both worlds.
constexpr KeyPair keys[] = {
    {Qt::Key_Backspace, VK_BACK},   {Qt::Key_Tab, VK_TAB},         {Qt::Key_Backtab, VK_TAB},
    {Qt::Key_Return, VK_RETURN},    {Qt::Key_Enter, VK_RETURN},    {Qt::Key_Shift, VK_SHIFT},
    {Qt::Key_Control, VK_CONTROL},  {Qt::Key_Alt, VK_MENU},        {Qt::Key_Pause, VK_PAUSE},
    {Qt::Key_CapsLock, VK_CAPITAL}, {Qt::Key_Escape, VK_ESCAPE},   {Qt::Key_Space, VK_SPACE},
    {Qt::Key_PageUp, VK_PRIOR},     {Qt::Key_PageDown, VK_NEXT},   {Qt::Key_End, VK_END},
    {Qt::Key_Home, VK_HOME},        {Qt::Key_Left, VK_LEFT},       {Qt::Key_Up, VK_UP},
    {Qt::Key_Right, VK_RIGHT},      {Qt::Key_Down, VK_DOWN},       {Qt::Key_Insert, VK_INSERT},
    {Qt::Key_Delete, VK_DELETE},    {Qt::Key_Menu, VK_APPS},       {Qt::Key_Plus, VK_OEM_PLUS},
    {Qt::Key_Minus, VK_OEM_MINUS},  {Qt::Key_Comma, VK_OEM_COMMA}, {Qt::Key_Period, VK_OEM_PERIOD},
};

void Set(UINT key, bool down)
{
    input.down.set(key, down);
}
} // namespace

UINT VirtualKey(const QKeyEvent& event)
{
    const int key = event.key();
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) && event.modifiers().testFlag(Qt::KeypadModifier))
        return VK_NUMPAD0 + static_cast<UINT>(key - Qt::Key_0);
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z))
        return static_cast<UINT>(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return VK_F1 + static_cast<UINT>(key - Qt::Key_F1);
    for (const KeyPair& pair : keys)
    {
        if (pair.qt == key)
            return pair.virtualKey;
    }
    return 0;
}

int QtKey(UINT virtualKey)
{
    if ((virtualKey >= '0' && virtualKey <= '9') || (virtualKey >= 'A' && virtualKey <= 'Z'))
        return static_cast<int>(virtualKey);
    if (virtualKey >= VK_F1 && virtualKey < VK_F1 + 24)
        return Qt::Key_F1 + static_cast<int>(virtualKey - VK_F1);
    if (virtualKey >= VK_NUMPAD0 && virtualKey < VK_NUMPAD0 + 10)
        return Qt::Key_0 + static_cast<int>(virtualKey - VK_NUMPAD0);
    for (const KeyPair& pair : keys)
    {
        if (pair.virtualKey == virtualKey)
            return pair.qt;
    }
    return 0;
}

void SyncModifiers(Qt::KeyboardModifiers modifiers)
{
    Set(VK_SHIFT, modifiers.testFlag(Qt::ShiftModifier));
    Set(VK_CONTROL, modifiers.testFlag(Qt::ControlModifier));
    Set(VK_MENU, modifiers.testFlag(Qt::AltModifier));
}

void SyncButtons(Qt::MouseButtons buttons)
{
    Set(VK_LBUTTON, buttons.testFlag(Qt::LeftButton));
    Set(VK_RBUTTON, buttons.testFlag(Qt::RightButton));
    Set(VK_MBUTTON, buttons.testFlag(Qt::MiddleButton));
}

// A captured pointer has not left its window.
void HoverOver(Window* window)
{
    const HWND former = std::exchange(input.hover, window ? window->handle : nullptr);
    if (window && input.hover != former)
        ShowCursorOn(*window);
    if (!input.leaveWanted || input.leaveWanted == input.hover || input.leaveWanted == input.capture)
        return;
    const HWND left = std::exchange(input.leaveWanted, nullptr);
    if (Window* tracked = Find(left))
        Send(*tracked, WM_MOUSELEAVE);
}

void FocusMoved(HWND to)
{
    if (to == input.focus)
        return;
    const HWND from = std::exchange(input.focus, to);
    if (Window* window = Find(from))
        Send(*window, WM_KILLFOCUS, reinterpret_cast<WPARAM>(to));
    if (input.focus != to)
        return;
    if (Window* window = Find(to))
        Send(*window, WM_SETFOCUS, reinterpret_cast<WPARAM>(from));
}

void DropCapture(HWND to)
{
    const HWND from = std::exchange(input.capture, to);
    if (Window* window = from != to ? Find(from) : nullptr)
        Send(*window, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(to));
}

void WindowGone(HWND window)
{
    for (HWND* holder : {&input.hover, &input.capture, &input.focus, &input.leaveWanted})
    {
        if (*holder == window)
            *holder = nullptr;
    }
}

void ShowCursorOn(Window& window)
{
    if (window.widget && !window.IsControl())
        window.widget->setCursor(ToQt(input.cursor));
}
} // namespace kv::win

using namespace kv::win;

HWND GetFocus()
{
    return input.focus;
}

HWND SetFocus(HWND handle)
{
    const HWND former = input.focus;
    Window* window = Find(handle);
    if (handle && (!window || !window->widget || !window->TakesInput()))
        return nullptr;
    FocusMoved(handle);
    window = Find(handle);
    if (!window || !window->widget || input.focus != handle)
        return former;
    // Another program's window keeps the keyboard until the operator comes back.
    if (QGuiApplication::focusWindow() && !window->widget->isActiveWindow())
        window->widget->activateWindow();
    window->widget->setFocus(Qt::OtherFocusReason);
    return former;
}

HWND GetActiveWindow()
{
    Window* focused = Find(input.focus);
    if (focused)
        return focused->TopLevel().handle;
    Window* active = FindByWidget(QApplication::activeWindow());
    return active ? active->handle : nullptr;
}

HWND GetCapture()
{
    return input.capture;
}

HWND SetCapture(HWND handle)
{
    const HWND former = input.capture;
    if (handle && !Find(handle))
        return former;
    DropCapture(handle);
    return former;
}

BOOL ReleaseCapture()
{
    DropCapture();
    return TRUE;
}

BOOL GetCursorPos(POINT* point)
{
    if (!point)
        return FALSE;
    if (input.played)
        *point = input.position;
    else
        *point = {QCursor::pos().x(), QCursor::pos().y()};
    return TRUE;
}

SHORT GetAsyncKeyState(int key)
{
    return key > 0 && key < 256 && input.down.test(static_cast<size_t>(key)) ? static_cast<SHORT>(0x8000) : SHORT{0};
}

SHORT GetKeyState(int key)
{
    return GetAsyncKeyState(key);
}

DWORD GetMessagePos()
{
    return static_cast<DWORD>(MAKELPARAM(input.position.x, input.position.y));
}

BOOL _TrackMouseEvent(TRACKMOUSEEVENT* track)
{
    if (!track || !Find(track->hwndTrack))
        return FALSE;
    if (!(track->dwFlags & TME_LEAVE))
        return TRUE;
    if (track->dwFlags & TME_CANCEL)
    {
        if (input.leaveWanted == track->hwndTrack)
            input.leaveWanted = nullptr;
        return TRUE;
    }
    if (input.hover != track->hwndTrack && input.capture != track->hwndTrack)
        return PostMessageW(track->hwndTrack, WM_MOUSELEAVE, 0, 0);
    input.leaveWanted = track->hwndTrack;
    return TRUE;
}

HCURSOR SetCursor(HCURSOR cursor)
{
    const HCURSOR former = std::exchange(input.cursor, cursor);
    Window* window = Find(input.capture ? input.capture : input.hover);
    if (window)
        ShowCursorOn(*window);
    return former;
}

HCURSOR GetCursor()
{
    return input.cursor;
}
