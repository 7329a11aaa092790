// Sending and posting of messages, and the border that exceptions must not cross into Qt.
#pragma once

#include "platform/win/native/window.h"

#include <functional>

class QEvent;

namespace kv::win
{
LRESULT Send(Window& window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
LRESULT CallObject(CWnd& object, UINT message, WPARAM wParam, LPARAM lParam);
bool DeliverPosted();   // false if nothing was posted
int DispatchDepth();    // how many messages are under way
void ForgetBorrowers(); // objects of the class layer that only borrow drawing handles; none may be in use

// Runs what Qt calls us for. A CException goes to the exception handler, anything else is kept.
void Guarded(const std::function<void()>& work);
// Throws what was kept.
void RethrowKept();
bool HasKept();

// The Qt event that the message under way was made from.
struct QtEvent
{
    HWND window;
    QEvent* event;
    bool finished = false; // the default processing gave it to Qt
    explicit QtEvent(Window& target, QEvent* source);
    ~QtEvent();
    QtEvent(const QtEvent&) = delete;
    QtEvent& operator=(const QtEvent&) = delete;

private:
    QtEvent* outer;
};
QtEvent* CurrentQtEvent(); // the innermost; null outside

// Offers an input message to PreTranslateMessage from the window up, then sends it.
void SendInput(Window& window, UINT message, WPARAM wParam, LPARAM lParam);
} // namespace kv::win
