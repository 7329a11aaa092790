// The AOI view's events: each window message becomes a KvMouseEvent or a key signal, and goes to who is attached.
// What a handler returns is not looked at.
#include "C/uiAOIBaseViewWnd.h"

#include <utility>

namespace KvN
{

namespace
{
constexpr unsigned noButton = 0;
constexpr unsigned leftButton = 1;
constexpr unsigned rightButton = 2;
constexpr unsigned leaveFlags = 65535;

KvTPoint<short> Position(const POINT& point)
{
    return {static_cast<short>(point.x & 0xFFFF), static_cast<short>(point.y & 0xFFFF)};
}
} // namespace

// --- Handlers ---

KvTools::Link KvAOIBaseViewWnd::ChangeMoveHdl(const KvTools::Link& link)
{
    return std::exchange(moveHdl, link);
}
KvTools::Link KvAOIBaseViewWnd::ChangeResizeHdl(const KvTools::Link& link)
{
    return std::exchange(resizeHdl, link);
}
KvTools::Link KvAOIBaseViewWnd::ChangePaintHdl(const KvTools::Link& link)
{
    return std::exchange(paintHdl, link);
}
KvTools::Link KvAOIBaseViewWnd::ChangeMousePaintHdl(const KvTools::Link& link)
{
    return std::exchange(mousePaintHdl, link);
}
KvTools::Link KvAOIBaseViewWnd::ChangeMouseMoveHdl(const KvTools::Link& link)
{
    return std::exchange(mouseMoveHdl, link);
}
KvTools::Link KvAOIBaseViewWnd::ChangeMouseButtonDownHdl(const KvTools::Link& link)
{
    return std::exchange(mouseButtonDownHdl, link);
}
KvTools::Link KvAOIBaseViewWnd::ChangeMouseButtonUpHdl(const KvTools::Link& link)
{
    return std::exchange(mouseButtonUpHdl, link);
}
KvTools::Link KvAOIBaseViewWnd::ChangeVScrollHdl(const KvTools::Link& link)
{
    return std::exchange(vScrollHdl, link);
}
KvTools::Link KvAOIBaseViewWnd::ChangeHScrollHdl(const KvTools::Link& link)
{
    return std::exchange(hScrollHdl, link);
}
KvTools::Link KvAOIBaseViewWnd::ChangeLutMenuHdl(const KvTools::Link& link)
{
    return std::exchange(lutMenuHdl, link);
}
KvTools::Link KvAOIBaseViewWnd::ChangeBackgroundMenuHdl(const KvTools::Link& link)
{
    return std::exchange(backgroundMenuHdl, link);
}

void KvAOIBaseViewWnd::FMouseMove(const KvMouseEvent& event)
{
    mouseEvent = event;
    mouseMoveHdl.Call(this);
}

void KvAOIBaseViewWnd::FMouseButtonDown(const KvMouseEvent& event)
{
    mouseEvent = event;
    mouseButtonDownHdl.Call(this);
}

void KvAOIBaseViewWnd::FMouseButtonUp(const KvMouseEvent& event)
{
    mouseEvent = event;
    mouseButtonUpHdl.Call(this);
}

void KvAOIBaseViewWnd::FMove()
{
    moveHdl.Call(this);
}
void KvAOIBaseViewWnd::FResize()
{
    resizeHdl.Call(this);
}

// --- Mouse ---

void KvAOIBaseViewWnd::OnLButtonDown(UINT flags, CPoint point)
{
    Default();
    MouseButtonDown(KvMouseEvent(leftButton, flags, Position(point), 1));
}

void KvAOIBaseViewWnd::OnLButtonDblClk(UINT flags, CPoint point)
{
    Default();
    MouseButtonDown(KvMouseEvent(leftButton, flags, Position(point), 2));
}

void KvAOIBaseViewWnd::OnLButtonUp(UINT flags, CPoint point)
{
    Default();
    MouseButtonUp(KvMouseEvent(leftButton, flags, Position(point), 1));
}

// The one message that reaches its handler before the default processing, which is required.
void KvAOIBaseViewWnd::OnRButtonDown(UINT flags, CPoint point)
{
    MouseButtonDown(KvMouseEvent(rightButton, flags, Position(point), 1));
    Default();
}

// The default processing raises the context menu, so that the handler hears of the release after the menu has closed.
void KvAOIBaseViewWnd::OnRButtonUp(UINT flags, CPoint point)
{
    Default();
    MouseButtonUp(KvMouseEvent(rightButton, flags, Position(point), 1));
}

void KvAOIBaseViewWnd::OnMouseMove(UINT flags, CPoint point)
{
    Default();
    currentCursor = defaultCursor;
    MouseMove(KvMouseEvent(noButton, flags, Position(point), 1));
    if (GetCursor() != currentCursor)
        SetCursor(currentCursor);
}

LRESULT KvAOIBaseViewWnd::OnMouseLeave()
{
    CPoint point;
    GetCursorPos(&point);
    ScreenToClient(&point);
    MouseMove(KvMouseEvent(noButton, leaveFlags, Position(point), 1));
    return 1;
}

BOOL KvAOIBaseViewWnd::OnSetCursor(CWnd*, UINT hitTest, UINT)
{
    if (autoCaptureFocus && GetFocus() != this)
        SetFocus();
    // Over the image the cursor is OnMouseMove's business.
    if (hitTest == HTCLIENT)
        return HTCLIENT;
    return static_cast<BOOL>(Default());
}

// --- Keys ---

void KvAOIBaseViewWnd::OnKeyDown(UINT key, UINT, UINT)
{
    keyDownSignal.Emit(key);
    Default();
}

void KvAOIBaseViewWnd::OnKeyUp(UINT key, UINT, UINT)
{
    keyUpSignal.Emit(key);
    Default();
}

void KvAOIBaseViewWnd::OnSysKeyDown(UINT key, UINT, UINT)
{
    keyDownSignal.Emit(key);
    Default();
}

// The release of Alt has been told by PreTranslateMessage; that of other keys is told nobody, which is required.
void KvAOIBaseViewWnd::OnSysKeyUp(UINT, UINT, UINT)
{
    Default();
}

BOOL KvAOIBaseViewWnd::PreTranslateMessage(MSG* message)
{
    if (message->message == WM_SYSKEYUP && message->wParam == VK_MENU)
        keyUpSignal.Emit(VK_MENU);
    return CWnd::PreTranslateMessage(message);
}

// --- Window ---

void KvAOIBaseViewWnd::OnMove(int, int)
{
    Default();
    Move();
}

// Each paint covers the visible area.
BOOL KvAOIBaseViewWnd::OnEraseBkgnd(CDC*)
{
    return 1;
}

} // namespace KvN
