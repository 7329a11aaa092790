// CDocument and its list of views.
#include "platform/win/document.h"

#include "platform/win/view.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CDocument, CCmdTarget)

CDocument::~CDocument()
{
    for (CView* view : views)
        view->m_pDocument = nullptr;
}

void CDocument::AddView(CView* view)
{
    views.push_back(view);
    view->m_pDocument = this;
    OnChangedViewList();
}

void CDocument::RemoveView(CView* view)
{
    std::erase(views, view);
    view->m_pDocument = nullptr;
    OnChangedViewList();
}

void CDocument::OnChangedViewList()
{
    if (views.empty() && m_bAutoDelete)
        OnCloseDocument();
}

void CDocument::UpdateAllViews(CView* sender, LPARAM hint, CObject* hintObject)
{
    const std::vector<CView*> all = views;
    for (CView* view : all)
    {
        if (view != sender && std::find(views.begin(), views.end(), view) != views.end())
            view->OnUpdate(sender, hint, hintObject);
    }
}

BOOL CDocument::OnNewDocument()
{
    DeleteContents();
    modified = FALSE;
    return TRUE;
}

void CDocument::OnCloseDocument()
{
    delete this;
}
