// CWnd: a window, and every message that it takes. Built on one Qt widget, which no class above this layer sees.
#pragma once

#include "platform/afx/dc.h"
#include "platform/win/cmdtarget.h"
#include "platform/win/cursor.h"
#include "platform/win/menu.h"
#include "platform/win/user.h"

class CDataExchange;
class CDocument;
class CFrameWnd;
class CScrollBar;
class CView;

struct CCreateContext
{
    CRuntimeClass* m_pNewViewClass = nullptr;
    CDocument* m_pCurrentDoc = nullptr;
    void* m_pNewDocTemplate = nullptr;
    CView* m_pLastView = nullptr;
    CFrameWnd* m_pCurrentFrame = nullptr;
};

// Life: the object and its window are two things. Destroying a window sends WM_DESTROY and WM_NCDESTROY, detaches the
// object and calls PostNcDestroy, where views, frames and modeless classes delete themselves and others do nothing.
// Destroying an object that still has its window destroys the window first. A child's window goes with its parent's.
class CWnd : public CCmdTarget
{
    DECLARE_DYNCREATE(CWnd)

public:
    HWND m_hWnd = nullptr;

    CWnd() = default;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;
    ~CWnd() override;

    // The object attached to `window`; for a window without one, an object that borrows it and lives as long as the
    // window does. Null for a null or stale handle.
    static CWnd* FromHandle(HWND window);
    static CWnd* FromHandlePermanent(HWND window); // attached objects only
    HWND GetSafeHwnd() const { return m_hWnd; }
    operator HWND() const { return m_hWnd; }
    BOOL Attach(HWND window);
    HWND Detach();
    // Takes over a window that is there, such as a dialog's control: its messages come here first, and Default goes to
    // what handled them before.
    BOOL SubclassWindow(HWND window);
    BOOL SubclassDlgItem(UINT id, CWnd* parent);
    HWND UnsubclassWindow();

    // ---- Creation and destruction

    virtual BOOL Create(const CString& className, const CString& windowName, DWORD style, const RECT& rect,
                        CWnd* parent, UINT id, CCreateContext* context = nullptr);
    BOOL CreateEx(DWORD exStyle, const CString& className, const CString& windowName, DWORD style, const RECT& rect,
                  CWnd* parent, UINT id, LPVOID parameter = nullptr);
    BOOL CreateEx(DWORD exStyle, const CString& className, const CString& windowName, DWORD style, int x, int y,
                  int width, int height, HWND parent, HMENU idOrMenu, LPVOID parameter = nullptr);
    virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
    virtual void PreSubclassWindow() {}
    virtual BOOL DestroyWindow();
    virtual void PostNcDestroy() {}

    // ---- Messages

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return ::SendMessageW(m_hWnd, message, wParam, lParam);
    }
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return ::PostMessageW(m_hWnd, message, wParam, lParam);
    }
    // Input messages, offered from their window up to its top-level parent before they are sent; TRUE swallows one.
    virtual BOOL PreTranslateMessage(MSG* message);
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // The default processing of the message that is being handled.
    LRESULT Default();
    static const MSG* GetCurrentMessage();
    BOOL OnCmdMsg(UINT id, int code, void* extra, int* info) override;

    // ---- Text, state, identity

    void SetWindowText(const CString& text) { ::SetWindowTextW(m_hWnd, text); }
    void GetWindowText(CString& text) const { text = ::GetWindowTextOf(m_hWnd); }
    int GetWindowTextLength() const { return ::GetWindowTextOf(m_hWnd).GetLength(); }
    DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_STYLE)); }
    DWORD GetExStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE)); }
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT flags = 0);
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
    int SetDlgCtrlID(int id) { return static_cast<int>(::SetWindowLongPtrW(m_hWnd, GWL_ID, id)); }
    BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
    BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
    BOOL EnableWindow(BOOL enable = TRUE) { return ::EnableWindow(m_hWnd, enable); }
    BOOL ShowWindow(int command) { return ::ShowWindow(m_hWnd, command); }
    BOOL IsIconic() const { return ::IsIconic(m_hWnd); }
    BOOL IsZoomed() const { return ::IsZoomed(m_hWnd); }
    void SetFont(CFont* font, BOOL redraw = TRUE);
    CFont* GetFont() const;

    // ---- Relatives

    CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
    CWnd* GetOwner() const;
    CWnd* GetTopLevelParent() const;
    CFrameWnd* GetParentFrame() const;
    virtual CFrameWnd* GetTopLevelFrame() const;
    CWnd* GetDlgItem(int id) const { return FromHandle(::GetDlgItem(m_hWnd, id)); }
    CWnd* GetWindow(UINT relation) const { return FromHandle(::GetWindow(m_hWnd, relation)); }
    CWnd* GetNextWindow(UINT relation = GW_HWNDNEXT) const { return GetWindow(relation); }
    CWnd* GetTopWindow() const { return GetWindow(GW_CHILD); }
    BOOL IsChild(const CWnd* window) const { return ::IsChild(m_hWnd, window->m_hWnd); }
    virtual BOOL IsFrameWnd() const { return FALSE; }
    static CWnd* GetDesktopWindow() { return FromHandle(::GetDesktopWindow()); }

    // ---- Place and size

    void GetClientRect(RECT* rect) const { ::GetClientRect(m_hWnd, rect); }
    void GetWindowRect(RECT* rect) const { ::GetWindowRect(m_hWnd, rect); }
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE)
    {
        ::MoveWindow(m_hWnd, x, y, width, height, repaint);
    }
    void MoveWindow(const RECT* rect, BOOL repaint = TRUE)
    {
        MoveWindow(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, repaint);
    }
    BOOL SetWindowPos(const CWnd* after, int x, int y, int width, int height, UINT flags)
    {
        return ::SetWindowPos(m_hWnd, after ? after->m_hWnd : nullptr, x, y, width, height, flags);
    }
    void ClientToScreen(POINT* point) const { ::ClientToScreen(m_hWnd, point); }
    void ClientToScreen(RECT* rect) const;
    void ScreenToClient(POINT* point) const { ::ScreenToClient(m_hWnd, point); }
    void ScreenToClient(RECT* rect) const;
    void MapWindowPoints(CWnd* to, POINT* points, UINT count) const;
    void CenterWindow(CWnd* over = nullptr);

    // ---- Painting

    CDC* GetDC() { return CDC::FromHandle(::GetDC(m_hWnd)); }
    CDC* GetWindowDC() { return CDC::FromHandle(::GetWindowDC(m_hWnd)); }
    int ReleaseDC(CDC* dc) { return ::ReleaseDC(m_hWnd, dc->m_hDC); }
    void Invalidate(BOOL erase = TRUE) { ::InvalidateRect(m_hWnd, nullptr, erase); }
    void InvalidateRect(const RECT* rect, BOOL erase = TRUE) { ::InvalidateRect(m_hWnd, rect, erase); }
    void ValidateRect(const RECT* rect) { ::ValidateRect(m_hWnd, rect); }
    BOOL GetUpdateRect(RECT* rect, BOOL erase = FALSE) { return ::GetUpdateRect(m_hWnd, rect, erase); }
    void UpdateWindow() { ::UpdateWindow(m_hWnd); }
    BOOL RedrawWindow(const RECT* rect = nullptr, CRgn* region = nullptr,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
    void SetRedraw(BOOL on = TRUE) { SendMessage(WM_SETREDRAW, static_cast<WPARAM>(on)); }

    // ---- Input

    CWnd* SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
    static CWnd* GetFocus() { return FromHandle(::GetFocus()); }
    CWnd* SetCapture() { return FromHandle(::SetCapture(m_hWnd)); }
    static CWnd* GetCapture() { return FromHandle(::GetCapture()); }
    static CWnd* GetActiveWindow() { return FromHandle(::GetActiveWindow()); }
    CWnd* SetActiveWindow();
    void BeginWaitCursor();
    void EndWaitCursor();

    // ---- Dialog items

    void CheckDlgButton(int id, UINT check);
    void CheckRadioButton(int first, int last, int checked);
    UINT IsDlgButtonChecked(int id) const;
    void SetDlgItemText(int id, const CString& text) { ::SetWindowTextW(::GetDlgItem(m_hWnd, id), text); }
    int GetDlgItemText(int id, CString& text) const;
    // FALSE: members to controls, TRUE: controls to members. Zero if a value was refused.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);
    int MessageBox(const CString& text, const CString& caption = CString(), UINT type = MB_OK);
    void UpdateDialogControls(CCmdTarget* target, BOOL disableIfNoHandler);

    // ---- Scroll bars

    BOOL SetScrollInfo(int bar, const SCROLLINFO* info, BOOL redraw = TRUE);
    BOOL GetScrollInfo(int bar, SCROLLINFO* info, UINT mask = SIF_ALL);
    int SetScrollPos(int bar, int position, BOOL redraw = TRUE)
    {
        return ::SetScrollPos(m_hWnd, bar, position, redraw);
    }
    int GetScrollPos(int bar) const { return ::GetScrollPos(m_hWnd, bar); }
    void ShowScrollBar(UINT bar, BOOL show = TRUE) { ::ShowScrollBar(m_hWnd, static_cast<int>(bar), show); }
    // Shows or hides; the platform's class layer does the same with the bars of a scroll view.
    void EnableScrollBarCtrl(int bar, BOOL enable = TRUE);
    virtual CScrollBar* GetScrollBarCtrl(int bar) const;

    virtual void DoDataExchange(CDataExchange*) {}

protected:
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

    // What a message map may name; each is the default processing.
    int OnCreate(LPCREATESTRUCT) { return static_cast<int>(Default()); }
    void OnDestroy() { Default(); }
    void OnNcDestroy();
    void OnMove(int, int) { Default(); }
    void OnSize(UINT, int, int) { Default(); }
    void OnActivate(UINT, CWnd*, BOOL) { Default(); }
    void OnSetFocus(CWnd*) { Default(); }
    void OnKillFocus(CWnd*) { Default(); }
    void OnEnable(BOOL) { Default(); }
    void OnShowWindow(BOOL, UINT) { Default(); }
    void OnPaint() { Default(); }
    void OnClose() { Default(); }
    BOOL OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
    BOOL OnSetCursor(CWnd*, UINT, UINT) { return static_cast<BOOL>(Default()); }
    void OnContextMenu(CWnd*, CPoint) { Default(); }
    UINT OnGetDlgCode() { return static_cast<UINT>(Default()); }
    void OnKeyDown(UINT, UINT, UINT) { Default(); }
    void OnKeyUp(UINT, UINT, UINT) { Default(); }
    void OnChar(UINT, UINT, UINT) { Default(); }
    void OnSysKeyDown(UINT, UINT, UINT) { Default(); }
    void OnSysKeyUp(UINT, UINT, UINT) { Default(); }
    void OnHScroll(UINT, UINT, CScrollBar*) { Default(); }
    void OnVScroll(UINT, UINT, CScrollBar*) { Default(); }
    void OnMouseMove(UINT, CPoint) { Default(); }
    void OnLButtonDown(UINT, CPoint) { Default(); }
    void OnLButtonUp(UINT, CPoint) { Default(); }
    void OnLButtonDblClk(UINT, CPoint) { Default(); }
    void OnRButtonDown(UINT, CPoint) { Default(); }
    void OnRButtonUp(UINT, CPoint) { Default(); }
    void OnRButtonDblClk(UINT, CPoint) { Default(); }
    void OnMButtonDown(UINT, CPoint) { Default(); }
    void OnMButtonUp(UINT, CPoint) { Default(); }
    void OnMButtonDblClk(UINT, CPoint) { Default(); }
    BOOL OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); }
    void OnMouseLeave() { Default(); }
    void OnCaptureChanged(CWnd*) { Default(); }
    void OnDrawItem(int, LPDRAWITEMSTRUCT) { Default(); }

    // Asks the control itself to draw or to take its own notification first.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

    DECLARE_MESSAGE_MAP()

private:
    HCURSOR beforeWaiting = nullptr;
};
