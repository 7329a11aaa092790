// CWnd: making windows, and attaching objects to them.
#include "platform/win/wnd.h"

#include "platform/win/app.h"
#include "platform/win/native/dispatch.h"

using namespace kv::win;

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
ON_WM_NCDESTROY()
END_MESSAGE_MAP()

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
