// Input by program: enters where the platform's own input enters, so that hit testing, capture, focus, disabled
// windows, modal loops, Qt's own controls and menus act as for a person. When a call returns, all messages that it
// caused are done, repaints included. Nothing happens between calls. An exception out of a handler goes where one of
// real input goes.
#pragma once

#include "platform/win/wnd.h"

namespace kv::win
{
enum class Button
{
    Left,
    Right,
    Middle
};

// Points are client coordinates of `window`; they may lie outside it.
void MoveMouse(HWND window, CPoint point); // a move to where the pointer is sends a move too
void PressButton(HWND window, Button button, CPoint point);
// The second press of a double click.
void DoublePressButton(HWND window, Button button, CPoint point);
void ReleaseButton(HWND window, Button button, CPoint point);
void TurnWheel(HWND window, CPoint point, int delta, bool horizontal = false); // 120 a notch, forward positive
// The pointer goes where no window of the program is.
void LeaveMouse();
bool IsMouseAt(HWND window, CPoint point); // false while the pointer is nowhere

// Virtual keys, to whatever has the focus (or the open menu).
void PressKey(UINT key);
void ReleaseKey(UINT key);

// Does all pending messages and repaints. The calls above end with it.
void Settle();

// Forgets pointer, buttons and keys, as at the program's start.
void ResetInput();
} // namespace kv::win
