// The window that hosts a view of an AOI: makes the frame and, through it, document and view.
#include "C/uiAOIWnd.h"

#include "C/uiAOIBaseFrameWnd.h"
#include "C/uiAOIBaseViewWnd.h"
#include "C/uiAOIFrameDocument.h"

namespace KvN
{

BEGIN_MESSAGE_MAP(KvAOIWnd, KvBaseFrameWnd)
END_MESSAGE_MAP()

KvAOIWnd::~KvAOIWnd()
{
    if (GetSafeHwnd())
        KvAOIWnd::DestroyWindow();
    delete frame;
}

KvAOIBaseViewWnd* KvAOIWnd::GetAOIBaseViewWnd() const
{
    return frame ? dynamic_cast<KvAOIBaseViewWnd*>(frame->GetActiveView()) : nullptr;
}

void KvAOIWnd::CreateChildWindows()
{
    frame = static_cast<KvAOIBaseFrameWnd*>(RUNTIME_CLASS(KvAOIBaseFrameWnd)->CreateObject());
    CCreateContext context;
    context.m_pNewViewClass = RUNTIME_CLASS(KvAOIBaseViewWnd);
    context.m_pCurrentDoc = static_cast<CDocument*>(RUNTIME_CLASS(KvAOIFrameDocument)->CreateObject());
    CRect client;
    GetClientRect(&client);
    frame->Create(CString(), CString(), WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, client, this, CString(), 0, &context);
    frame->InitialUpdateFrame(nullptr, TRUE);
    if (KvAOIBaseViewWnd* view = GetAOIBaseViewWnd())
        view->SetParent(this);
}

BOOL KvAOIWnd::DestroyWindow()
{
    if (frame)
    {
        frame->DestroyWindow();
        delete frame;
        frame = nullptr;
    }
    return CWnd::DestroyWindow();
}

} // namespace KvN
