// The one state of input: keys, pointer, capture, focus, cursor, and who wants to hear of the pointer's leaving.
#pragma once

#include "platform/win/user.h"

#include <Qt>

#include <bitset>
#include <optional>

class QKeyEvent;

namespace kv::win
{
class Window;

struct InputState
{
    std::bitset<256> down; // by virtual key, mouse buttons included
    POINT position{0, 0};  // of the pointer on the screen, as of the last event
    bool playing = false;  // a program's input is under way
    bool played = false;   // the last input came from a program, not from a person
    bool nowhere = true;   // the pointer is over no window of the program
    HWND hover = nullptr;  // whose client area the pointer is in
    HWND capture = nullptr;
    HWND focus = nullptr;
    HWND leaveWanted = nullptr;
    HCURSOR cursor = nullptr;
};
extern InputState input;

// Keys whose table entry follows an event's modifiers, in case their own events went elsewhere.
void SyncModifiers(Qt::KeyboardModifiers modifiers);
void SyncButtons(Qt::MouseButtons buttons);
UINT VirtualKey(const QKeyEvent& event); // 0 if the platform has none
int QtKey(UINT virtualKey);              // 0 if there is none

void HoverOver(Window* window); // null: nowhere. Sends WM_MOUSELEAVE where it is wanted
void FocusMoved(HWND window);   // the messages, and the state; Qt is not touched
void DropCapture(HWND to = nullptr);
void WindowGone(HWND window);      // nothing refers to it any more
void ShowCursorOn(Window& window); // Qt's own controls keep their own cursors
} // namespace kv::win
