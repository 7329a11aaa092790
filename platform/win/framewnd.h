// CFrameWnd: a window around a view, which passes commands on to it and lays it out.
#pragma once

#include "platform/win/view.h"

// Deletes itself with its window.
class CFrameWnd : public CWnd
{
    DECLARE_DYNCREATE(CFrameWnd)

public:
    static const CRect rectDefault;

    CFrameWnd() = default;
    ~CFrameWnd() override;

    using CWnd::Create;
    // Makes the window and, by the context's view class, the view in it.
    virtual BOOL Create(const CString& className, const CString& windowName, DWORD style = WS_OVERLAPPEDWINDOW,
                        const RECT& rect = rectDefault, CWnd* parent = nullptr, const CString& menuName = CString(),
                        DWORD exStyle = 0, CCreateContext* context = nullptr);
    CView* GetActiveView() const { return activeView; }
    void SetActiveView(CView* view, BOOL notify = TRUE);
    virtual CDocument* GetActiveDocument();
    void InitialUpdateFrame(CDocument* document, BOOL makeVisible);
    virtual void RecalcLayout(BOOL notify = TRUE);
    BOOL IsFrameWnd() const override { return TRUE; }
    BOOL OnCmdMsg(UINT id, int code, void* extra, int* info) override;

protected:
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    void PostNcDestroy() override { delete this; }
    virtual BOOL OnCreateClient(LPCREATESTRUCT create, CCreateContext* context);
    CWnd* CreateView(CCreateContext* context, UINT id = AFX_IDW_PANE_FIRST);

    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT type, int cx, int cy);
    void OnSetFocus(CWnd* former);
    void OnClose();
    BOOL OnEraseBkgnd(CDC* dc);
    DECLARE_MESSAGE_MAP()

private:
    friend class CView;
    CView* activeView = nullptr;
};
