// CWnd: attaching objects to windows, dispatch by message map, and the helpers around the flat functions.
#include "platform/win/wnd.h"

#include "platform/win/app.h"
#include "platform/win/ddx.h"
#include "platform/win/framewnd.h"
#include "platform/win/native/dispatch.h"
#include "platform/win/scrollbar.h"

using namespace kv::win;

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
ON_WM_NCDESTROY()
END_MESSAGE_MAP()

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

CWnd::~CWnd()
{
    if (!m_hWnd)
        return;
    Window* window = Find(m_hWnd);
    if (!window || window->object != this)
        return; // a borrower
    // The classes below this one are gone, so the window's last messages take the default way.
    const HWND handle = m_hWnd;
    window->object = nullptr;
    m_hWnd = nullptr;
    ::DestroyWindow(handle);
}

CWnd* CWnd::FromHandle(HWND handle)
{
    Window* window = Find(handle);
    if (!window)
        return nullptr;
    if (window->object)
        return window->object;
    if (!window->borrower)
    {
        window->borrower = std::make_unique<CWnd>();
        window->borrower->m_hWnd = handle;
    }
    return window->borrower.get();
}

CWnd* CWnd::FromHandlePermanent(HWND handle)
{
    const Window* window = Find(handle);
    return window ? window->object : nullptr;
}

BOOL CWnd::Attach(HWND handle)
{
    Window* window = Find(handle);
    if (!window || window->object || m_hWnd)
        return FALSE;
    window->object = this;
    m_hWnd = handle;
    return TRUE;
}

HWND CWnd::Detach()
{
    const HWND handle = std::exchange(m_hWnd, nullptr);
    if (Window* window = Find(handle); window && window->object == this)
        window->object = nullptr;
    return handle;
}

BOOL CWnd::SubclassWindow(HWND handle)
{
    if (!Attach(handle))
        return FALSE;
    PreSubclassWindow();
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* parent)
{
    return SubclassWindow(::GetDlgItem(parent ? parent->m_hWnd : nullptr, static_cast<int>(id)));
}

HWND CWnd::UnsubclassWindow()
{
    return Detach();
}

BOOL CWnd::Create(const CString& className, const CString& windowName, DWORD windowStyle, const RECT& rect,
                  CWnd* parent, UINT id, CCreateContext* context)
{
    return CreateEx(0, className, windowName, windowStyle | WS_CHILD, rect, parent, id, context);
}

BOOL CWnd::CreateEx(DWORD exStyle, const CString& className, const CString& windowName, DWORD style, const RECT& rect,
                    CWnd* parent, UINT id, LPVOID parameter)
{
    return CreateEx(exStyle, className, windowName, style, rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top, parent ? parent->m_hWnd : nullptr,
                    reinterpret_cast<HMENU>(static_cast<std::uintptr_t>(id)), parameter);
}

BOOL CWnd::CreateEx(DWORD exStyle, const CString& className, const CString& windowName, DWORD style, int x, int y,
                    int width, int height, HWND parent, HMENU idOrMenu, LPVOID parameter)
{
    if (m_hWnd)
        return FALSE;
    CREATESTRUCT create{};
    create.lpCreateParams = parameter;
    create.hMenu = idOrMenu;
    create.hwndParent = parent;
    create.cx = width;
    create.cy = height;
    create.x = x;
    create.y = y;
    create.style = style;
    create.lpszName = windowName;
    create.lpszClass = className;
    create.dwExStyle = exStyle;
    if (!PreCreateWindow(create))
    {
        PostNcDestroy();
        return FALSE;
    }
    if (!CreateNative(create, this, [](CWnd* object) { object->PreSubclassWindow(); }))
        return FALSE;
    return m_hWnd != nullptr;
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT& create)
{
    if (create.lpszClass.IsEmpty())
        create.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursorW(nullptr, IDC_ARROW));
    return TRUE;
}

BOOL CWnd::DestroyWindow()
{
    return m_hWnd && ::DestroyWindow(m_hWnd);
}

// The object may delete itself in PostNcDestroy.
void CWnd::OnNcDestroy()
{
    Default();
    Detach();
    PostNcDestroy();
}

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

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add, UINT)
{
    const DWORD before = GetStyle();
    const DWORD after = (before & ~remove) | add;
    if (after == before)
        return FALSE;
    ::SetWindowLongPtrW(m_hWnd, GWL_STYLE, static_cast<LONG_PTR>(after));
    return TRUE;
}

void CWnd::SetFont(CFont* font, BOOL redraw)
{
    const HGDIOBJ handle = font ? font->GetSafeHandle() : nullptr;
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(handle), redraw);
}

CFont* CWnd::GetFont() const
{
    return CFont::FromHandle(reinterpret_cast<HFONT>(::SendMessageW(m_hWnd, WM_GETFONT, 0, 0)));
}

CWnd* CWnd::GetOwner() const
{
    return FromHandle(::GetParent(m_hWnd));
}

CWnd* CWnd::GetTopLevelParent() const
{
    Window* window = Find(m_hWnd);
    return window ? FromHandle(window->TopLevel().handle) : nullptr;
}

CFrameWnd* CWnd::GetParentFrame() const
{
    for (CWnd* at = m_hWnd ? GetParent() : nullptr; at; at = at->GetParent())
    {
        if (at->IsFrameWnd())
            return static_cast<CFrameWnd*>(at);
    }
    return nullptr;
}

CFrameWnd* CWnd::GetTopLevelFrame() const
{
    CFrameWnd* top = IsFrameWnd() ? static_cast<CFrameWnd*>(const_cast<CWnd*>(this)) : GetParentFrame();
    while (CFrameWnd* outer = top ? top->GetParentFrame() : nullptr)
        top = outer;
    return top;
}

void CWnd::ClientToScreen(RECT* rect) const
{
    ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<POINT*>(rect), 2);
}

void CWnd::ScreenToClient(RECT* rect) const
{
    ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(rect), 2);
}

void CWnd::MapWindowPoints(CWnd* to, POINT* points, UINT count) const
{
    ::MapWindowPoints(m_hWnd, to ? to->m_hWnd : nullptr, points, count);
}

void CWnd::CenterWindow(CWnd* over)
{
    CRect own;
    GetWindowRect(own);
    CRect around(0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN));
    CWnd* base = over ? over : GetParent();
    if (base && base->IsWindowVisible())
        base->GetWindowRect(around);
    const int x = around.CenterPoint().x - own.Width() / 2;
    const int y = around.CenterPoint().y - own.Height() / 2;
    MoveWindow(x < 0 ? 0 : x, y < 0 ? 0 : y, own.Width(), own.Height());
}

BOOL CWnd::RedrawWindow(const RECT* rect, CRgn* region, UINT flags)
{
    return ::RedrawWindow(m_hWnd, rect, region ? static_cast<HRGN>(*region) : nullptr, flags);
}

CWnd* CWnd::SetActiveWindow()
{
    CWnd* former = GetActiveWindow();
    Window* window = Find(m_hWnd);
    if (window && window->widget)
        window->widget->activateWindow();
    return former;
}

void CWnd::BeginWaitCursor()
{
    beforeWaiting = ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
}

void CWnd::EndWaitCursor()
{
    ::SetCursor(beforeWaiting);
}

void CWnd::CheckDlgButton(int id, UINT check)
{
    ::SendMessageW(::GetDlgItem(m_hWnd, id), BM_SETCHECK, check, 0);
}

void CWnd::CheckRadioButton(int first, int last, int checked)
{
    for (int id = first; id <= last; ++id)
        CheckDlgButton(id, id == checked);
}

UINT CWnd::IsDlgButtonChecked(int id) const
{
    return static_cast<UINT>(::SendMessageW(::GetDlgItem(m_hWnd, id), BM_GETCHECK, 0, 0));
}

int CWnd::GetDlgItemText(int id, CString& text) const
{
    text = ::GetWindowTextOf(::GetDlgItem(m_hWnd, id));
    return text.GetLength();
}

BOOL CWnd::UpdateData(BOOL saveAndValidate)
{
    CDataExchange exchange(this, saveAndValidate);
    try
    {
        DoDataExchange(&exchange);
        return TRUE;
    }
    catch (CUserException* refused)
    {
        refused->Delete();
        return FALSE;
    }
}

int CWnd::MessageBox(const CString& text, const CString& caption, UINT type)
{
    return ::MessageBoxW(m_hWnd, text, caption, type);
}

namespace
{
class ControlUI : public CCmdUI
{
public:
    explicit ControlUI(CWnd& control)
    {
        m_pOther = &control;
        m_nID = static_cast<UINT>(control.GetDlgCtrlID());
    }
    void Enable(BOOL on) override
    {
        enableChanged = true;
        m_pOther->EnableWindow(on);
    }
    void SetCheck(int check) override { m_pOther->SendMessage(BM_SETCHECK, static_cast<WPARAM>(check)); }
};
} // namespace

void CWnd::UpdateDialogControls(CCmdTarget* target, BOOL disableIfNoHandler)
{
    for (CWnd* control = GetTopWindow(); control; control = control->GetNextWindow())
        ControlUI(*control).DoUpdate(target, disableIfNoHandler);
}

BOOL CWnd::SetScrollInfo(int bar, const SCROLLINFO* info, BOOL redraw)
{
    ::SetScrollInfo(m_hWnd, bar, info, redraw);
    return TRUE;
}

BOOL CWnd::GetScrollInfo(int bar, SCROLLINFO* info, UINT mask)
{
    info->fMask = mask;
    return ::GetScrollInfo(m_hWnd, bar, info);
}

void CWnd::EnableScrollBarCtrl(int bar, BOOL enable)
{
    ::ShowScrollBar(m_hWnd, bar, enable);
}

CScrollBar* CWnd::GetScrollBarCtrl(int) const
{
    return nullptr;
}
