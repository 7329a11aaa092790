// Where windows are, and the messages of their moving and sizing.
#include "platform/win/native/dispatch.h"
#include "platform/win/native/input_state.h"

#include <QApplication>
#include <QLayout>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>

namespace kv::win
{
namespace
{
constexpr UINT sizeRedraw = CS_HREDRAW | CS_VREDRAW;

// What a change of size uncovers, or all of it where the class wants that.
void InvalidateAfterSize(Window& window, CSize before)
{
    const CSize now = window.ClientSize();
    QRegion shown(0, 0, now.cx, now.cy);
    if (!(window.windowClass.style & sizeRedraw))
        shown -= QRect(0, 0, before.cx, before.cy);
    AddUpdate(window, shown, true);
}

UINT SizeKind(const Window& window)
{
    if (!window.widget || window.parent)
        return SIZE_RESTORED;
    return window.widget->isMinimized()   ? SIZE_MINIMIZED
           : window.widget->isMaximized() ? SIZE_MAXIMIZED
                                          : SIZE_RESTORED;
}

// The record has its new rectangle; `before` are the old one and its client size.
void TellGeometry(Window& window, const CRect& before, CSize clientBefore, bool repaint)
{
    const HWND handle = window.handle;
    const bool sized = before.Size() != CSize(window.rect.Size());
    const CSize client = window.ClientSize();
    window.backing.Resize(client.cx, client.cy);
    window.PlaceBars();
    window.update &= QRect(0, 0, client.cx, client.cy);
    if (sized && repaint)
        InvalidateAfterSize(window, clientBefore);
    if (before.TopLeft() != CPoint(window.rect.TopLeft()))
        Send(window, WM_MOVE, 0, MAKELPARAM(window.rect.left, window.rect.top));
    if (sized && Find(handle))
        Send(window, WM_SIZE, SizeKind(window), MAKELPARAM(client.cx, client.cy));
}
} // namespace

void ApplyGeometry(Window& window, const CRect& rect, bool repaint)
{
    CRect wanted = rect;
    wanted.right = std::max(wanted.right, wanted.left);
    wanted.bottom = std::max(wanted.bottom, wanted.top);
    const CRect before = window.rect;
    if (wanted == before || !window.widget)
        return;
    const CSize clientBefore = window.ClientSize();
    window.rect = wanted;
    window.PlaceWidget();
    TellGeometry(window, before, clientBefore, repaint);
}

// Qt may not have been able to do what was asked for, or somebody else moved the widget.
void GeometryFromQt(Window& window)
{
    if (!window.widget || window.destroying)
        return;
    const QRect geometry = window.widget->geometry();
    const int border = window.parent ? window.parent->BorderWidth() : 0;
    const CRect now(geometry.x() - border, geometry.y() - border, geometry.x() + geometry.width() - border,
                    geometry.y() + geometry.height() - border);
    if (now == window.rect)
        return;
    const CRect before = window.rect;
    const CSize clientBefore = window.ClientSize();
    window.rect = now;
    TellGeometry(window, before, clientBefore, true);
}

// A top-level window without a sizing frame keeps the size that it is given.
void Window::PlaceWidget()
{
    const int origin = parent ? parent->BorderWidth() : 0;
    if (!parent && !(style & WS_THICKFRAME))
        widget->setFixedSize(rect.Width(), rect.Height());
    widget->setGeometry(rect.left + origin, rect.top + origin, rect.Width(), rect.Height());
}

void ClientSizeChanged(Window& window)
{
    const HWND handle = window.handle;
    const CSize client = window.ClientSize();
    window.backing.Resize(client.cx, client.cy);
    window.PlaceBars();
    AddUpdate(window, QRegion(0, 0, client.cx, client.cy), true);
    if (Find(handle))
        Send(window, WM_SIZE, SizeKind(window), MAKELPARAM(client.cx, client.cy));
}

void Window::PlaceBars()
{
    const int border = BorderWidth();
    const CSize client = ClientSize();
    if (QScrollBar* vertical = bars[SB_VERT].bar)
    {
        vertical->setGeometry(border + client.cx, border, GetSystemMetrics(SM_CXVSCROLL), client.cy);
        vertical->setVisible(bars[SB_VERT].shown);
    }
    if (QScrollBar* horizontal = bars[SB_HORZ].bar)
    {
        horizontal->setGeometry(border, border + client.cy, client.cx, GetSystemMetrics(SM_CYHSCROLL));
        horizontal->setVisible(bars[SB_HORZ].shown);
    }
}

Window* HitTest(Window& window, CPoint screen)
{
    const CPoint origin = window.ClientOnScreen();
    const CPoint point(screen.x - origin.x, screen.y - origin.y);
    const CSize client = window.ClientSize();
    const bool inClient = point.x >= 0 && point.y >= 0 && point.x < client.cx && point.y < client.cy;
    if (!inClient || !(window.style & WS_VISIBLE))
        return nullptr;
    for (Window* child : window.children)
    {
        if ((child->style & WS_DISABLED) || !child->rect.PtInRect(point))
            continue;
        if (Window* hit = HitTest(*child, screen))
            return hit;
    }
    return window.IsTransparentToMouse() ? nullptr : &window;
}
} // namespace kv::win

using namespace kv::win;

BOOL GetClientRect(HWND handle, RECT* rect)
{
    const Window* window = Find(handle);
    if (!window || !rect)
        return FALSE;
    const CSize size = window->ClientSize();
    *rect = {0, 0, size.cx, size.cy};
    return TRUE;
}

BOOL GetWindowRect(HWND handle, RECT* rect)
{
    const Window* window = Find(handle);
    if (!window || !rect)
        return FALSE;
    const CPoint client = window->ClientOnScreen();
    const int border = window->BorderWidth();
    *rect = CRect(CPoint(client.x - border, client.y - border), window->rect.Size());
    return TRUE;
}

BOOL MoveWindow(HWND handle, int x, int y, int width, int height, BOOL repaint)
{
    Window* window = Find(handle);
    if (!window)
        return FALSE;
    ApplyGeometry(*window, CRect(x, y, x + width, y + height), repaint != 0);
    return TRUE;
}

BOOL SetWindowPos(HWND handle, HWND, int x, int y, int width, int height, UINT flags)
{
    Window* window = Find(handle);
    if (!window)
        return FALSE;
    const CPoint place = (flags & SWP_NOMOVE) ? window->rect.TopLeft() : CPoint(x, y);
    const CSize size = (flags & SWP_NOSIZE) ? window->rect.Size() : CSize(width, height);
    ApplyGeometry(*window, CRect(place, size), !(flags & SWP_NOREDRAW));
    if (flags & SWP_SHOWWINDOW)
        ShowWindow(handle, SW_SHOWNA);
    if (flags & SWP_HIDEWINDOW)
        ShowWindow(handle, SW_HIDE);
    return TRUE;
}

BOOL ClientToScreen(HWND handle, POINT* point)
{
    return MapWindowPoints(handle, nullptr, point, 1) || Find(handle);
}

BOOL ScreenToClient(HWND handle, POINT* point)
{
    return MapWindowPoints(nullptr, handle, point, 1) || Find(handle);
}

int MapWindowPoints(HWND from, HWND to, POINT* points, UINT count)
{
    const Window* source = Find(from);
    const Window* target = Find(to);
    if ((from && !source) || (to && !target) || !points)
        return 0;
    const CPoint start = source ? source->ClientOnScreen() : CPoint();
    const CPoint end = target ? target->ClientOnScreen() : CPoint();
    const int dx = start.x - end.x;
    const int dy = start.y - end.y;
    for (UINT i = 0; i < count; ++i)
    {
        points[i].x += dx;
        points[i].y += dy;
    }
    return static_cast<int>(MAKELPARAM(dx, dy));
}

HWND WindowFromPoint(POINT screen)
{
    QWidget* top = QApplication::topLevelAt(screen.x, screen.y);
    Window* window = FindByWidget(top);
    Window* hit = window ? HitTest(*window, screen) : FindAbove(QApplication::widgetAt(screen.x, screen.y));
    return hit ? hit->handle : nullptr;
}

int GetSystemMetrics(int index)
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    switch (index)
    {
    case SM_CXSCREEN:
        return screen ? screen->geometry().width() : 0;
    case SM_CYSCREEN:
        return screen ? screen->geometry().height() : 0;
    case SM_CXVSCROLL:
    case SM_CYHSCROLL:
        return 17;
    case SM_CXBORDER:
    case SM_CYBORDER:
        return 1;
    case SM_CXEDGE:
    case SM_CYEDGE:
        return 2;
    default:
        return 0;
    }
}
