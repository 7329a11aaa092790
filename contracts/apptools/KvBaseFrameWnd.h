// The window that hosts other windows of the system: a child made by its own class, or a control taken over.
#pragma once

#include "platform/win/wnd.h"

struct CCreateContext;

namespace KvN
{

class KvBaseFrameWnd : public CWnd
{
    DECLARE_DYNAMIC(KvBaseFrameWnd)

public:
    KvBaseFrameWnd() = default;

    // An empty class name takes a class of the framework's. Builds the child windows before it returns.
    BOOL Create(const CString& className, const CString& windowName, DWORD style, const RECT& rect, CWnd* parent,
                UINT id, CCreateContext* context = nullptr) override;
    // A visible child that fills the client area of `parent`.
    virtual BOOL Create(CWnd* parent);
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    // A window that is taken over gets its child windows here.
    void PreSubclassWindow() override;
    // Called once, when the window is there, to build what it hosts.
    virtual void CreateChildWindows() {}

protected:
    // Offers the new size to the hosted windows: each child is laid out over the client area by its own WM_SIZE.
    void OnSize(UINT type, int cx, int cy);
    void OnPaint();
    BOOL OnEraseBkgnd(CDC* dc);
    DECLARE_MESSAGE_MAP()

private:
    bool creating = false;
};

} // namespace KvN
