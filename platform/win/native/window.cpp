// A window's record: what it is asked about itself, and what plain windows do by default.
#include "platform/win/native/window.h"

#include "platform/win/native/dispatch.h"
#include "platform/win/native/input_state.h"

#include <algorithm>

namespace kv::win
{
namespace
{
HWND NewHandle()
{
    static std::uintptr_t last = 0;
    return reinterpret_cast<HWND>(++last);
}
} // namespace

Window::Window(const WindowClass& ofClass, const CREATESTRUCT& create)
    : handle(NewHandle()), windowClass(ofClass), style(create.style), exStyle(create.dwExStyle),
      id(static_cast<int>(reinterpret_cast<std::intptr_t>(create.hMenu))), text(create.lpszName),
      rect(create.x, create.y, create.x + create.cx, create.y + create.cy)
{
    if (rect.Width() < 0)
        rect.right = rect.left;
    if (rect.Height() < 0)
        rect.bottom = rect.top;
}

Window::~Window() = default;

QWidget* Window::MakeWidget(QWidget* parentWidget, Qt::WindowFlags flags)
{
    auto* made = new QWidget(parentWidget, flags);
    made->setAttribute(Qt::WA_OpaquePaintEvent);
    made->setAttribute(Qt::WA_NoSystemBackground);
    made->setMouseTracking(true);
    made->setContextMenuPolicy(Qt::PreventContextMenu);
    return made;
}

void Window::TextChanged()
{
    if (widget && !parent)
        widget->setWindowTitle(QString::fromStdU16String(text.Units()));
    if (widget)
        widget->setAccessibleName(QString::fromStdU16String(text.Units()));
}

bool Window::IsShown() const
{
    for (const Window* at = this; at; at = at->parent)
    {
        if (!(at->style & WS_VISIBLE) || !at->widget)
            return false;
        if (!at->ownsWidget)
            return at->widget->isVisible();
    }
    return true;
}

bool Window::TakesInput() const
{
    for (const Window* at = this; at; at = at->parent)
    {
        if ((at->style & WS_DISABLED) || at->modalBlocks > 0 || at->destroying)
            return false;
        if (!at->ownsWidget)
            return at->widget && at->widget->isEnabled();
    }
    return true;
}

Window& Window::TopLevel()
{
    Window* at = this;
    while (at->parent)
        at = at->parent;
    return *at;
}

int Window::BorderWidth() const
{
    if (!parent || IsControl())
        return 0;
    return (exStyle & WS_EX_CLIENTEDGE) ? 2 : (style & WS_BORDER) ? 1 : 0;
}

CSize Window::ClientSize() const
{
    if (!ownsWidget)
        return widget ? CSize(widget->width(), widget->height()) : CSize();
    const int border = 2 * BorderWidth();
    int width = rect.Width() - border;
    int height = rect.Height() - border;
    if (bars[SB_VERT].shown)
        width -= GetSystemMetrics(SM_CXVSCROLL);
    if (bars[SB_HORZ].shown)
        height -= GetSystemMetrics(SM_CYHSCROLL);
    return CSize(std::max(0, width), std::max(0, height));
}

CPoint Window::ClientOnScreen() const
{
    if (!parent)
    {
        if (ownsWidget)
            return rect.TopLeft();
        const QPoint origin = widget ? widget->mapToGlobal(QPoint(0, 0)) : QPoint();
        return CPoint(origin.x(), origin.y());
    }
    const CPoint outer = parent->ClientOnScreen();
    const int border = BorderWidth();
    return CPoint(outer.x + rect.left + border, outer.y + rect.top + border);
}

namespace
{
void EraseWithClassBrush(const Window& window, HDC dc)
{
    RECT box{};
    GetClipBox(dc, &box);
    const HGDIOBJ former = SelectObject(dc, window.windowClass.background);
    PatBlt(dc, box.left, box.top, box.right - box.left, box.bottom - box.top, PATCOPY);
    SelectObject(dc, former);
}

LRESULT SetCursorByDefault(Window& window, WPARAM wParam, LPARAM lParam)
{
    if (window.parent && Send(*window.parent, WM_SETCURSOR, wParam, lParam))
        return TRUE;
    const bool client = LOWORD(static_cast<WPARAM>(lParam)) == HTCLIENT;
    if (client && !window.windowClass.cursor)
        return FALSE;
    SetCursor(client ? window.windowClass.cursor : LoadCursorW(nullptr, IDC_ARROW));
    return TRUE;
}
} // namespace

LRESULT Window::DefaultProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_PAINT:
    {
        PAINTSTRUCT paint{};
        BeginPaint(handle, &paint);
        EndPaint(handle, &paint);
        return 0;
    }
    case WM_ERASEBKGND:
        if (!windowClass.background)
            return 0;
        EraseWithClassBrush(*this, reinterpret_cast<HDC>(wParam));
        return 1;
    case WM_SETCURSOR:
        return SetCursorByDefault(*this, wParam, lParam);
    case WM_SETREDRAW:
        redraw = wParam != 0;
        if (redraw && widget)
            widget->update();
        return 0;
    case WM_RBUTTONUP:
    {
        POINT screen = CPoint(lParam);
        ClientToScreen(handle, &screen);
        Send(*this, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), MAKELPARAM(screen.x, screen.y));
        return 0;
    }
    case WM_KEYUP:
        if (wParam == VK_APPS)
            Send(*this, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), MAKELPARAM(-1, -1));
        return 0;
    case WM_SYSKEYDOWN:
        if (wParam == VK_F10 && GetKeyState(VK_SHIFT) < 0)
            Send(*this, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), MAKELPARAM(-1, -1));
        return 0;
    case WM_CONTEXTMENU:
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
        return parent ? Send(*parent, message, wParam, lParam) : 0;
    case WM_MOUSEACTIVATE:
        return parent ? Send(*parent, message, wParam, lParam) : 1;
    case WM_CANCELMODE:
        if (input.capture == handle)
            ReleaseCapture();
        return 0;
    case WM_CLOSE:
        ::DestroyWindow(handle);
        return 0;
    case WM_SETFONT:
        font = reinterpret_cast<HFONT>(wParam);
        FontChanged();
        if (lParam)
            InvalidateRect(handle, nullptr, TRUE);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(font);
    default:
        return 0;
    }
}
} // namespace kv::win
