// How a class name becomes a kind of window.
#pragma once

#include "platform/win/native/window.h"

namespace kv::win
{
std::unique_ptr<Window> MakeWindow(const WindowClass& windowClass, const CREATESTRUCT& create);
// The platform's own controls, at the first call.
void RegisterStandardControls();
} // namespace kv::win
