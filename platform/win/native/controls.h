// The platform's own controls: a kind of window for each, around a widget of Qt's.
#pragma once

#include "platform/win/native/window.h"

#include <QString>

namespace kv::win
{
// Line breaks as Qt wants them.
QString ToQString(const CString& text);

// One each, for the table of classes.
std::unique_ptr<Window> MakeButton(const WindowClass& windowClass, const CREATESTRUCT& create);
std::unique_ptr<Window> MakeStatic(const WindowClass& windowClass, const CREATESTRUCT& create);
std::unique_ptr<Window> MakeTrackbar(const WindowClass& windowClass, const CREATESTRUCT& create);
std::unique_ptr<Window> MakeEdit(const WindowClass& windowClass, const CREATESTRUCT& create);
std::unique_ptr<Window> MakeScrollBar(const WindowClass& windowClass, const CREATESTRUCT& create);
} // namespace kv::win
