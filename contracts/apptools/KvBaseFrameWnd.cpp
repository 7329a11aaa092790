// The hosting window: creation, its children's size, its own plain background.
#include "contracts/apptools/KvBaseFrameWnd.h"

#include "platform/win/paintdc.h"

namespace KvN
{

IMPLEMENT_DYNAMIC(KvBaseFrameWnd, CWnd)

BEGIN_MESSAGE_MAP(KvBaseFrameWnd, CWnd)
ON_WM_SIZE()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

BOOL KvBaseFrameWnd::Create(const CString& className, const CString& windowName, DWORD style, const RECT& rect,
                            CWnd* parent, UINT id, CCreateContext* context)
{
    creating = true;
    const BOOL created = CWnd::Create(className, windowName, style, rect, parent, id, context);
    creating = false;
    if (created)
        CreateChildWindows();
    return created;
}

BOOL KvBaseFrameWnd::Create(CWnd* parent)
{
    CRect rect;
    parent->GetClientRect(rect);
    return Create(CString(), CString(), WS_CHILD | WS_VISIBLE, rect, parent, 0);
}

BOOL KvBaseFrameWnd::PreCreateWindow(CREATESTRUCT& cs)
{
    if (cs.lpszClass.IsEmpty())
        cs.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursorW(nullptr, IDC_ARROW));
    return CWnd::PreCreateWindow(cs);
}

// The framework calls this for a new window too, before its first message: then the children must wait.
void KvBaseFrameWnd::PreSubclassWindow()
{
    CWnd::PreSubclassWindow();
    if (!creating)
        CreateChildWindows();
}

void KvBaseFrameWnd::OnSize(UINT type, int cx, int cy)
{
    CWnd::OnSize(type, cx, cy);
    for (CWnd* child = GetTopWindow(); child; child = child->GetNextWindow())
    {
        if (child->IsFrameWnd())
            child->MoveWindow(0, 0, cx, cy, FALSE);
    }
}

void KvBaseFrameWnd::OnPaint()
{
    CPaintDC dc(this);
}

BOOL KvBaseFrameWnd::OnEraseBkgnd(CDC* dc)
{
    CRect client;
    GetClientRect(client);
    ::FillRect(dc->m_hDC, client, ::GetSysColorBrush(COLOR_BTNFACE));
    return TRUE;
}

} // namespace KvN
