// How a message finds its handler: the window's procedure, its class's map, and where commands and notifications go.
#include "platform/win/wnd.h"

#include "platform/win/native/dispatch.h"
#include "platform/win/scrollbar.h"

using namespace kv::win;

namespace
{
// The message that an object handles now; Default sends it on.
const MSG* currentMessage = nullptr;
int depth = 0;

class MessageScope
{
public:
    explicit MessageScope(const MSG& message) : outer(currentMessage)
    {
        currentMessage = &message;
        ++depth;
    }
    ~MessageScope()
    {
        currentMessage = outer;
        --depth;
    }
    MessageScope(const MessageScope&) = delete;
    MessageScope& operator=(const MessageScope&) = delete;

private:
    const MSG* outer;
};

const AFX_MSGMAP_ENTRY* FindMessage(const AFX_MSGMAP* map, UINT message)
{
    for (; map; map = map->base ? map->base() : nullptr)
    {
        for (const AFX_MSGMAP_ENTRY* entry = map->entries; entry->message != 0; ++entry)
        {
            if (entry->message == message && entry->onMessage)
                return entry;
        }
    }
    return nullptr;
}

const AFX_MSGMAP_ENTRY* FindNotify(const AFX_MSGMAP* map, UINT id, int code)
{
    for (; map; map = map->base ? map->base() : nullptr)
    {
        for (const AFX_MSGMAP_ENTRY* entry = map->entries; entry->message != 0; ++entry)
        {
            if (entry->message == WM_NOTIFY && entry->code == code && id >= entry->id && id <= entry->lastId)
                return entry;
        }
    }
    return nullptr;
}
} // namespace

namespace kv::win
{
CWnd* WndOf(WPARAM handle)
{
    return CWnd::FromHandle(reinterpret_cast<HWND>(handle));
}

CDC* DcOf(WPARAM handle)
{
    return CDC::FromHandle(reinterpret_cast<HDC>(handle));
}

CScrollBar* ScrollBarOf(LPARAM handle)
{
    // Trackbars come through the same messages; as on the platform, their handlers get a CScrollBar* that is none, to
    // compare and to ask for the window.
    return reinterpret_cast<CScrollBar*>(CWnd::FromHandle(reinterpret_cast<HWND>(handle)));
}

int DispatchDepth()
{
    return depth;
}

void ForgetBorrowers()
{
    CDC::DeleteTempMap();
    CGdiObject::DeleteTempMap();
}

LRESULT CallObject(CWnd& object, UINT message, WPARAM wParam, LPARAM lParam)
{
    const MSG msg{object.m_hWnd, message, wParam, lParam, 0, {0, 0}};
    const MessageScope scope(msg);
    return object.WindowProc(message, wParam, lParam);
}
} // namespace kv::win
BOOL CWnd::PreTranslateMessage(MSG*)
{
    return FALSE;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (!OnWndMsg(message, wParam, lParam, &result))
        result = DefWindowProc(message, wParam, lParam);
    return result;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::DefWindowProcW(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default()
{
    const MSG* message = currentMessage;
    return message ? DefWindowProc(message->message, message->wParam, message->lParam) : 0;
}

const MSG* CWnd::GetCurrentMessage()
{
    return currentMessage;
}

BOOL CWnd::OnCmdMsg(UINT id, int code, void* extra, int* info)
{
    return CCmdTarget::OnCmdMsg(id, code, extra, info);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    if (message == WM_COMMAND)
    {
        *result = OnCommand(wParam, lParam);
        return *result != 0;
    }
    if (message == WM_NOTIFY)
        return OnNotify(wParam, lParam, result);
    if (const AFX_MSGMAP_ENTRY* entry = FindMessage(GetMessageMap(), message))
    {
        *result = entry->onMessage(this, wParam, lParam);
        return TRUE;
    }
    if (message == WM_DRAWITEM)
    {
        const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        CWnd* control = FromHandlePermanent(item->hwndItem);
        return control && control->OnChildNotify(message, wParam, lParam, result);
    }
    return FALSE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    if (CWnd* control = FromHandlePermanent(reinterpret_cast<HWND>(lParam)))
    {
        LRESULT result = 0;
        if (control->OnChildNotify(WM_COMMAND, wParam, lParam, &result))
            return TRUE;
    }
    return OnCmdMsg(LOWORD(wParam), HIWORD(wParam), nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* result)
{
    auto* header = reinterpret_cast<NMHDR*>(lParam);
    const AFX_MSGMAP_ENTRY* entry =
        FindNotify(GetMessageMap(), static_cast<UINT>(header->idFrom), static_cast<int>(header->code));
    if (!entry)
        return FALSE;
    entry->onNotify(this, header, result);
    return TRUE;
}

BOOL CWnd::OnChildNotify(UINT, WPARAM, LPARAM, LRESULT*)
{
    return FALSE;
}
