// The window behind a dialog, made from its resource.
#pragma once

#include "platform/win/native/dialog_template.h"
#include "platform/win/native/window.h"

namespace kv::win
{
inline constexpr UINT initControlMessage = 0x0376; // wParam: bytes, lParam: where they are

// Pixels of a rectangle in dialog units; see dialog.h for the measure.
CRect DialogUnitsToPixels(const CRect& units);
// Registers the dialogs' window class.
void RegisterDialogClass();
// The controls of a template, in a window of that class.
void CreateControls(Window& dialog, const DialogTemplate& from, ResourceImage::Bytes initialData);
// The control that Tab goes to from `from` (null: the first or last); null if there is none.
HWND NextTabStop(const Window& dialog, HWND from, bool backward);
// The button that Enter presses; null if there is none.
Window* DefaultButton(const Window& dialog);
void MakeDefaultButton(Window& dialog, int id);
} // namespace kv::win
