// CFrameWnd: makes its view, lays it out, and routes commands to it first.
#include "platform/win/framewnd.h"

#include "platform/win/app.h"
#include "platform/win/document.h"
#include "platform/win/native/window.h"

IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)

BEGIN_MESSAGE_MAP(CFrameWnd, CWnd)
ON_WM_CREATE()
ON_WM_SIZE()
ON_WM_SETFOCUS()
ON_WM_CLOSE()
ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

const CRect CFrameWnd::rectDefault(0, 0, 800, 600);

CFrameWnd::~CFrameWnd() = default;

BOOL CFrameWnd::Create(const CString& className, const CString& windowName, DWORD style, const RECT& rect, CWnd* parent,
                       const CString&, DWORD exStyle, CCreateContext* context)
{
    return CreateEx(exStyle, className, windowName, style, rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top, parent ? parent->m_hWnd : nullptr, nullptr, context);
}

BOOL CFrameWnd::PreCreateWindow(CREATESTRUCT& cs)
{
    if (cs.lpszClass.IsEmpty())
        cs.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, LoadCursorW(nullptr, IDC_ARROW), GetSysColorBrush(COLOR_WINDOW));
    return CWnd::PreCreateWindow(cs);
}

int CFrameWnd::OnCreate(LPCREATESTRUCT create)
{
    if (CWnd::OnCreate(create) == -1)
        return -1;
    if (!OnCreateClient(create, static_cast<CCreateContext*>(create->lpCreateParams)))
        return -1;
    RecalcLayout();
    return 0;
}

BOOL CFrameWnd::OnCreateClient(LPCREATESTRUCT, CCreateContext* context)
{
    return !context || !context->m_pNewViewClass || CreateView(context);
}

CWnd* CFrameWnd::CreateView(CCreateContext* context, UINT id)
{
    CObject* made = context->m_pNewViewClass->CreateObject();
    auto* view = dynamic_cast<CWnd*>(made);
    if (!view)
    {
        delete made;
        return nullptr;
    }
    // A view whose creation fails deletes itself.
    return view->Create(CString(), CString(), AFX_WS_DEFAULT_VIEW, CRect(0, 0, 0, 0), this, id, context) ? view
                                                                                                         : nullptr;
}

void CFrameWnd::SetActiveView(CView* view, BOOL notify)
{
    CView* former = activeView;
    if (view == former)
        return;
    activeView = nullptr;
    if (former)
        former->OnActivateView(FALSE, view, former);
    activeView = view;
    if (view && notify)
        view->OnActivateView(TRUE, view, former);
}

CDocument* CFrameWnd::GetActiveDocument()
{
    return activeView ? activeView->GetDocument() : nullptr;
}

namespace
{
void SendToDescendants(HWND parent, UINT message)
{
    for (HWND child = ::GetWindow(parent, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        ::SendMessageW(child, message, 0, 0);
        SendToDescendants(child, message);
    }
}
} // namespace

void CFrameWnd::InitialUpdateFrame(CDocument* document, BOOL makeVisible)
{
    if (!activeView)
    {
        if (auto* view = dynamic_cast<CView*>(GetDlgItem(static_cast<int>(AFX_IDW_PANE_FIRST))))
            SetActiveView(view, FALSE);
    }
    if (makeVisible)
    {
        SendToDescendants(m_hWnd, WM_INITIALUPDATE);
        ShowWindow(SW_SHOW);
        if (activeView)
            activeView->OnActivateView(TRUE, activeView, activeView);
    }
    if (document && !document->GetTitle().IsEmpty() && !GetParent())
        SetWindowText(document->GetTitle());
}

// The view fills the client area.
void CFrameWnd::RecalcLayout(BOOL)
{
    CRect client;
    GetClientRect(client);
    CWnd* pane = GetDlgItem(static_cast<int>(AFX_IDW_PANE_FIRST));
    if (pane)
        pane->MoveWindow(client);
}

BOOL CFrameWnd::OnCmdMsg(UINT id, int code, void* extra, int* info)
{
    if (activeView && activeView->OnCmdMsg(id, code, extra, info))
        return TRUE;
    if (CWnd::OnCmdMsg(id, code, extra, info))
        return TRUE;
    CWinApp* app = AfxGetApp();
    return app && app->OnCmdMsg(id, code, extra, info);
}

void CFrameWnd::OnSize(UINT type, int cx, int cy)
{
    CWnd::OnSize(type, cx, cy);
    if (type != SIZE_MINIMIZED)
        RecalcLayout();
}

void CFrameWnd::OnSetFocus(CWnd* former)
{
    if (activeView)
        activeView->SetFocus();
    else
        CWnd::OnSetFocus(former);
}

void CFrameWnd::OnClose()
{
    DestroyWindow();
}

// A view covers the frame.
BOOL CFrameWnd::OnEraseBkgnd(CDC* dc)
{
    return activeView ? TRUE : CWnd::OnEraseBkgnd(dc);
}
