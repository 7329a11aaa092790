// Showing, enabling, relatives, text and numbers of windows.
#include "platform/win/native/dispatch.h"
#include "platform/win/native/input_state.h"

#include <QScrollBar>
#include <QWindow>

#include <algorithm>

using namespace kv::win;

BOOL IsWindow(HWND handle)
{
    return Find(handle) != nullptr;
}

BOOL IsWindowVisible(HWND handle)
{
    const Window* window = Find(handle);
    return window && window->IsShown();
}

BOOL IsWindowEnabled(HWND handle)
{
    const Window* window = Find(handle);
    return window && !(window->style & WS_DISABLED) && window->modalBlocks == 0;
}

namespace
{
// The focus and the capture can't stay in a window that no longer takes input.
void LeaveWindow(Window& window)
{
    if (input.capture && (input.capture == window.handle || IsChild(window.handle, input.capture)))
    {
        if (Window* captured = Find(input.capture))
            Send(*captured, WM_CANCELMODE);
        if (input.capture && (input.capture == window.handle || IsChild(window.handle, input.capture)))
            DropCapture();
    }
    if (input.focus && (input.focus == window.handle || IsChild(window.handle, input.focus)))
        FocusMoved(nullptr);
}
} // namespace

BOOL EnableWindow(HWND handle, BOOL enable)
{
    Window* window = Find(handle);
    if (!window)
        return FALSE;
    const BOOL wasDisabled = (window->style & WS_DISABLED) != 0;
    if (wasDisabled == !enable)
        return wasDisabled;
    window->style = enable ? window->style & ~WS_DISABLED : window->style | WS_DISABLED;
    if (!enable)
        LeaveWindow(*window);
    if (!Find(handle))
        return wasDisabled;
    if (window->widget)
        window->widget->setEnabled(enable != 0);
    Send(*window, WM_ENABLE, static_cast<WPARAM>(enable != 0));
    return wasDisabled;
}

BOOL ShowWindow(HWND handle, int command)
{
    Window* window = Find(handle);
    if (!window)
        return FALSE;
    const BOOL wasVisible = (window->style & WS_VISIBLE) != 0;
    const bool show = command != SW_HIDE;
    const bool changes = show != (wasVisible != 0);
    if (changes)
    {
        Send(*window, WM_SHOWWINDOW, static_cast<WPARAM>(show));
        if (!Find(handle))
            return wasVisible;
        window->style = show ? window->style | WS_VISIBLE : window->style & ~WS_VISIBLE;
    }
    if (!show)
    {
        LeaveWindow(*window);
        if (Find(handle) && window->widget && window->ownsWidget)
            window->widget->hide();
        return wasVisible;
    }
    if (!window->widget || !window->ownsWidget)
        return wasVisible;
    if (changes)
    {
        InvalidateTree(*window);
    }
    window->widget->setAttribute(Qt::WA_ShowWithoutActivating, command == SW_SHOWNA || command == SW_SHOWNOACTIVATE);
    if (command == SW_SHOWMAXIMIZED)
        window->widget->showMaximized();
    else if (command == SW_SHOWMINIMIZED)
        window->widget->showMinimized();
    else if (command == SW_RESTORE || command == SW_SHOWNORMAL)
        window->widget->showNormal();
    else if (window->parent)
        window->widget->setVisible(true);
    else
        window->widget->show();
    return wasVisible;
}

BOOL CloseWindow(HWND handle)
{
    return ShowWindow(handle, SW_SHOWMINIMIZED) || IsWindow(handle);
}

BOOL IsIconic(HWND handle)
{
    const Window* window = Find(handle);
    return window && window->widget && window->widget->isMinimized();
}

BOOL IsZoomed(HWND handle)
{
    const Window* window = Find(handle);
    return window && window->widget && window->widget->isMaximized();
}

HWND GetParent(HWND handle)
{
    const Window* window = Find(handle);
    if (!window)
        return nullptr;
    return window->parent ? window->parent->handle : window->owner;
}

HWND GetDesktopWindow()
{
    return nullptr;
}

HWND GetWindow(HWND handle, UINT relation)
{
    Window* window = Find(handle);
    if (!window)
        return nullptr;
    if (relation == GW_CHILD)
        return window->children.empty() ? nullptr : window->children.front()->handle;
    if (relation == GW_OWNER)
        return window->owner;
    if (!window->parent)
        return nullptr;
    const auto& row = window->parent->children;
    const auto at = std::find(row.begin(), row.end(), window);
    if (relation == GW_HWNDFIRST)
        return row.front()->handle;
    if (relation == GW_HWNDNEXT)
        return at + 1 == row.end() ? nullptr : (*(at + 1))->handle;
    if (relation == GW_HWNDPREV)
        return at == row.begin() ? nullptr : (*(at - 1))->handle;
    return nullptr;
}

BOOL IsChild(HWND parent, HWND handle)
{
    const Window* window = Find(handle);
    while (window && window->parent)
    {
        window = window->parent;
        if (window->handle == parent)
            return TRUE;
    }
    return FALSE;
}

HWND GetDlgItem(HWND dialog, int id)
{
    const Window* window = Find(dialog);
    if (!window)
        return nullptr;
    const auto found = std::find_if(window->children.begin(), window->children.end(),
                                    [id](const Window* child) { return child->id == id; });
    return found == window->children.end() ? nullptr : (*found)->handle;
}

int GetDlgCtrlID(HWND handle)
{
    const Window* window = Find(handle);
    return window ? window->id : 0;
}

LONG_PTR GetWindowLongPtrW(HWND handle, int index)
{
    const Window* window = Find(handle);
    if (!window)
        return 0;
    return index == GWL_STYLE     ? static_cast<LONG_PTR>(window->style)
           : index == GWL_EXSTYLE ? static_cast<LONG_PTR>(window->exStyle)
           : index == GWL_ID      ? window->id
                                  : 0;
}

LONG_PTR SetWindowLongPtrW(HWND handle, int index, LONG_PTR value)
{
    Window* window = Find(handle);
    if (!window)
        return 0;
    const LONG_PTR former = GetWindowLongPtrW(handle, index);
    if (index == GWL_ID)
        window->id = static_cast<int>(value);
    else if (index == GWL_STYLE)
        window->style = static_cast<DWORD>(value);
    else if (index == GWL_EXSTYLE)
        window->exStyle = static_cast<DWORD>(value);
    window->StyleChanged();
    return former;
}

BOOL SetWindowTextW(HWND handle, const CString& text)
{
    Window* window = Find(handle);
    if (!window)
        return FALSE;
    window->text = text;
    window->TextChanged();
    return TRUE;
}

CString GetWindowTextOf(HWND handle)
{
    const Window* window = Find(handle);
    return window ? window->text : CString();
}

// ---- Scroll bars

namespace
{
int ScrollCode(int action)
{
    switch (action)
    {
    case QAbstractSlider::SliderSingleStepAdd:
        return SB_LINEDOWN;
    case QAbstractSlider::SliderSingleStepSub:
        return SB_LINEUP;
    case QAbstractSlider::SliderPageStepAdd:
        return SB_PAGEDOWN;
    case QAbstractSlider::SliderPageStepSub:
        return SB_PAGEUP;
    case QAbstractSlider::SliderToMinimum:
        return SB_TOP;
    case QAbstractSlider::SliderToMaximum:
        return SB_BOTTOM;
    default:
        return SB_THUMBTRACK;
    }
}

QScrollBar* MakeBar(Window& window, int which)
{
    auto* bar = new QScrollBar(which == SB_VERT ? Qt::Vertical : Qt::Horizontal, window.widget);
    bar->setFocusPolicy(Qt::NoFocus);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    const HWND handle = window.handle;
    const UINT message = which == SB_VERT ? WM_VSCROLL : WM_HSCROLL;
    QObject::connect(bar, &QScrollBar::actionTriggered,
                     [handle, which, message, bar](int action)
                     {
                         Window* target = Find(handle);
                         if (!target)
                             return;
                         target->bars[which].info.nTrackPos = bar->sliderPosition();
                         const int code = ScrollCode(action);
                         const int position = code == SB_THUMBTRACK ? bar->sliderPosition() : 0;
                         Guarded([&] { Send(*target, message, MAKEWPARAM(code, position)); });
                         // The window decides where its bar goes.
                         if (Window* left = Find(handle); left && left->bars[which].bar)
                         {
                             left->bars[which].bar->setSliderPosition(left->bars[which].info.nPos);
                             Guarded([&] { Send(*left, message, MAKEWPARAM(SB_ENDSCROLL, 0)); });
                         }
                     });
    return bar;
}

void ApplyBar(OwnBar& own)
{
    if (!own.bar)
        return;
    const QSignalBlocker quiet(own.bar);
    const SCROLLINFO& info = own.info;
    own.bar->setPageStep(std::max(1, static_cast<int>(info.nPage)));
    own.bar->setRange(info.nMin, std::max(info.nMin, info.nMax - std::max(0, static_cast<int>(info.nPage) - 1)));
    own.bar->setValue(info.nPos);
    own.bar->update();
}
} // namespace

int SetScrollInfo(HWND handle, int which, const SCROLLINFO* info, BOOL)
{
    Window* window = Find(handle);
    if (!window || !info || (which != SB_HORZ && which != SB_VERT))
        return 0;
    SCROLLINFO& own = window->bars[which].info;
    if (info->fMask & SIF_RANGE)
    {
        own.nMin = info->nMin;
        own.nMax = std::max(info->nMin, info->nMax);
    }
    if (info->fMask & SIF_PAGE)
        own.nPage = info->nPage;
    if (info->fMask & SIF_POS)
        own.nPos = info->nPos;
    own.nPos = std::clamp(own.nPos, own.nMin, std::max(own.nMin, own.nMax - std::max(0, int(own.nPage) - 1)));
    ApplyBar(window->bars[which]);
    return own.nPos;
}

BOOL GetScrollInfo(HWND handle, int which, SCROLLINFO* info)
{
    const Window* window = Find(handle);
    if (!window || !info || (which != SB_HORZ && which != SB_VERT))
        return FALSE;
    const UINT mask = info->fMask;
    *info = window->bars[which].info;
    info->fMask = mask;
    return TRUE;
}

int SetScrollPos(HWND handle, int which, int position, BOOL redraw)
{
    const int former = GetScrollPos(handle, which);
    SCROLLINFO info{};
    info.fMask = SIF_POS;
    info.nPos = position;
    SetScrollInfo(handle, which, &info, redraw);
    return former;
}

int GetScrollPos(HWND handle, int which)
{
    SCROLLINFO info{};
    return GetScrollInfo(handle, which, &info) ? info.nPos : 0;
}

BOOL ShowScrollBar(HWND handle, int which, BOOL show)
{
    Window* window = Find(handle);
    if (!window || !window->widget)
        return FALSE;
    bool changed = false;
    for (const int bar : {SB_HORZ, SB_VERT})
    {
        OwnBar& own = window->bars[bar];
        if ((which != bar && which != SB_BOTH) || own.shown == (show != 0))
            continue;
        if (show && !own.bar)
        {
            own.bar = MakeBar(*window, bar);
            ApplyBar(own);
        }
        own.shown = show != 0;
        const DWORD bit = bar == SB_VERT ? WS_VSCROLL : WS_HSCROLL;
        window->style = show ? window->style | bit : window->style & ~bit;
        changed = true;
    }
    if (changed)
        ClientSizeChanged(*window);
    return TRUE;
}
