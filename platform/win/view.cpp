// CView: painting by OnDraw, its place in frame and document.
#include "platform/win/view.h"

#include "platform/win/document.h"
#include "platform/win/framewnd.h"

IMPLEMENT_DYNAMIC(CView, CWnd)

BEGIN_MESSAGE_MAP(CView, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_PAINT()
ON_MESSAGE(WM_INITIALUPDATE, OnInitialUpdateMessage)
ON_MESSAGE(WM_MOUSEACTIVATE, OnMouseActivateMessage)
END_MESSAGE_MAP()

CView::~CView()
{
    if (m_pDocument)
        m_pDocument->RemoveView(this);
}

BOOL CView::PreCreateWindow(CREATESTRUCT& cs)
{
    if (cs.lpszClass.IsEmpty())
        cs.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, LoadCursorW(nullptr, IDC_ARROW), GetSysColorBrush(COLOR_WINDOW));
    return CWnd::PreCreateWindow(cs);
}

int CView::OnCreate(LPCREATESTRUCT create)
{
    if (CWnd::OnCreate(create) == -1)
        return -1;
    const auto* context = static_cast<const CCreateContext*>(create->lpCreateParams);
    if (context && context->m_pCurrentDoc)
        context->m_pCurrentDoc->AddView(this);
    return 0;
}

void CView::OnDestroy()
{
    CFrameWnd* frame = GetParentFrame();
    if (frame && frame->GetActiveView() == this)
        frame->SetActiveView(nullptr);
    CWnd::OnDestroy();
}

void CView::OnPaint()
{
    CPaintDC dc(this);
    OnPrepareDC(&dc);
    OnDraw(&dc);
}

LRESULT CView::OnInitialUpdateMessage(WPARAM, LPARAM)
{
    OnInitialUpdate();
    return 0;
}

// A press activates the view in its frame, and gives it the focus.
LRESULT CView::OnMouseActivateMessage(WPARAM, LPARAM)
{
    const LRESULT result = Default();
    CFrameWnd* frame = GetParentFrame();
    if (!frame)
        return result;
    const HWND focus = ::GetFocus();
    if (frame->GetActiveView() != this)
        frame->SetActiveView(this);
    else if (focus != m_hWnd && !::IsChild(m_hWnd, focus))
        OnActivateView(TRUE, this, this);
    return result;
}

void CView::OnUpdate(CView*, LPARAM, CObject*)
{
    Invalidate(TRUE);
}

BOOL CView::OnScrollBy(CSize, BOOL)
{
    return FALSE;
}

BOOL CView::OnScroll(UINT, UINT, BOOL)
{
    return FALSE;
}

void CView::OnActivateView(BOOL activate, CView*, CView*)
{
    if (activate && ::GetActiveWindow())
        SetFocus();
}

void CView::CalcWindowRect(RECT*, UINT) {}

BOOL CView::OnCmdMsg(UINT id, int code, void* extra, int* info)
{
    if (CWnd::OnCmdMsg(id, code, extra, info))
        return TRUE;
    return m_pDocument && m_pDocument->OnCmdMsg(id, code, extra, info);
}
