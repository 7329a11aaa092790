// For hosts that have their own Qt layout: windows of this layer inside it, and the widgets behind windows.
#pragma once

#include "platform/win/wnd.h"

class QWidget;

namespace kv::win
{
// The widget behind a window; null for a stale handle. Owned by the window: it goes when the window is destroyed.
QWidget* WidgetOf(HWND window);
// The innermost window that has `widget` or a parent of it as its widget; null if there is none.
HWND WindowOf(const QWidget* widget);

// A window handle for a host's own widget, to be used as parent of windows. The widget stays the host's; when it is
// deleted, its handle and the windows in it are destroyed. The same handle each time.
HWND HostWindow(QWidget* widget);

// Makes `child`, whose window is a child of HostWindow(host), fill the host: it follows the host's size from now on.
// For a host with a layout, the child's widget is entered into the layout instead.
void FillHost(QWidget* host, CWnd& child);
} // namespace kv::win
