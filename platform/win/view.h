// CView: a child window that shows a document, painted by OnDraw on a context that OnPrepareDC has set up.
#pragma once

#include "platform/win/paintdc.h"

class CDocument;

struct CPrintInfo
{
    BOOL m_bPreview = FALSE;
};

// Deletes itself with its window.
class CView : public CWnd
{
    DECLARE_DYNAMIC(CView)

public:
    ~CView() override;

    CDocument* GetDocument() const { return m_pDocument; }
    virtual void OnPrepareDC(CDC*, CPrintInfo* = nullptr) {}
    virtual void OnInitialUpdate() { OnUpdate(nullptr, 0, nullptr); }
    virtual BOOL OnScrollBy(CSize scroll, BOOL doScroll = TRUE);
    virtual BOOL OnScroll(UINT scrollCode, UINT position, BOOL doScroll = TRUE);
    virtual void OnActivateView(BOOL activate, CView* activateView, CView* deactiveView);
    BOOL OnCmdMsg(UINT id, int code, void* extra, int* info) override;

protected:
    friend class CDocument;
    CDocument* m_pDocument = nullptr;

    CView() = default;

    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    void PostNcDestroy() override { delete this; }
    virtual void OnUpdate(CView* sender, LPARAM hint, CObject* hintObject);
    virtual void OnDraw(CDC* dc) = 0;
    virtual void CalcWindowRect(RECT* clientRect, UINT adjustType = 0);

    int OnCreate(LPCREATESTRUCT create);
    void OnDestroy();
    void OnPaint();
    LRESULT OnInitialUpdateMessage(WPARAM, LPARAM);
    LRESULT OnMouseActivateMessage(WPARAM, LPARAM);
    DECLARE_MESSAGE_MAP()
};
