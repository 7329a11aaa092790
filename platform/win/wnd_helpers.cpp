// The helpers around the flat functions: parents and frames, places, and a dialog's controls.
#include "platform/win/wnd.h"

#include "platform/win/app.h"
#include "platform/win/ddx.h"
#include "platform/win/framewnd.h"
#include "platform/win/native/dispatch.h"

#include <QScreen>

#include <algorithm>

using namespace kv::win;

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add, UINT)
{
    const DWORD before = GetStyle();
    const DWORD after = (before & ~remove) | add;
    if (after == before)
        return FALSE;
    ::SetWindowLongPtrW(m_hWnd, GWL_STYLE, static_cast<LONG_PTR>(after));
    return TRUE;
}

void CWnd::SetFont(CFont* font, BOOL redraw)
{
    const HGDIOBJ handle = font ? font->GetSafeHandle() : nullptr;
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(handle), redraw);
}

CFont* CWnd::GetFont() const
{
    return CFont::FromHandle(reinterpret_cast<HFONT>(::SendMessageW(m_hWnd, WM_GETFONT, 0, 0)));
}

CWnd* CWnd::GetOwner() const
{
    return FromHandle(::GetParent(m_hWnd));
}

CWnd* CWnd::GetTopLevelParent() const
{
    Window* window = Find(m_hWnd);
    return window ? FromHandle(window->TopLevel().handle) : nullptr;
}

CFrameWnd* CWnd::GetParentFrame() const
{
    for (CWnd* at = m_hWnd ? GetParent() : nullptr; at; at = at->GetParent())
    {
        if (at->IsFrameWnd())
            return static_cast<CFrameWnd*>(at);
    }
    return nullptr;
}

CFrameWnd* CWnd::GetTopLevelFrame() const
{
    CFrameWnd* top = IsFrameWnd() ? static_cast<CFrameWnd*>(const_cast<CWnd*>(this)) : GetParentFrame();
    while (CFrameWnd* outer = top ? top->GetParentFrame() : nullptr)
        top = outer;
    return top;
}

void CWnd::ClientToScreen(RECT* rect) const
{
    ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<POINT*>(rect), 2);
}

void CWnd::ScreenToClient(RECT* rect) const
{
    ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(rect), 2);
}

void CWnd::MapWindowPoints(CWnd* to, POINT* points, UINT count) const
{
    ::MapWindowPoints(m_hWnd, to ? to->m_hWnd : nullptr, points, count);
}

namespace
{
// On the screen: of the window, or of the whole window on the desktop that it lies in.
CRect PlaceOf(const CWnd& wnd, bool whole)
{
    const Window* window = Find(wnd.m_hWnd);
    if (whole && window && window->widget)
    {
        const QRect place = window->widget->window()->geometry();
        return CRect(CPoint(place.x(), place.y()), CSize(place.width(), place.height()));
    }
    CRect own;
    wnd.GetWindowRect(own);
    return own;
}

// The part that programs may use of the screen where a window is.
CRect UsableScreen(const CWnd& wnd)
{
    const Window* window = Find(wnd.m_hWnd);
    if (!window || !window->widget)
        return CRect(0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN));
    const QRect usable = window->widget->screen()->availableGeometry();
    return CRect(CPoint(usable.x(), usable.y()), CSize(usable.width(), usable.height()));
}

// Moved as far as needed for all of it to be in sight; of what is too large, the upper left corner.
CPoint InSight(CPoint at, CSize size, const CRect& screen)
{
    return {std::max(screen.left, std::min(at.x, screen.right - size.cx)),
            std::max(screen.top, std::min(at.y, screen.bottom - size.cy))};
}
} // namespace

void CWnd::CenterWindow(CWnd* over)
{
    CRect own;
    GetWindowRect(own);
    CRect around(0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN));
    CWnd* base = over ? over : GetParent();
    if (base && base->IsWindowVisible())
        around = PlaceOf(*base, !over && !(GetStyle() & WS_CHILD));
    const CPoint middle(around.CenterPoint().x - own.Width() / 2, around.CenterPoint().y - own.Height() / 2);
    const CPoint place = InSight(middle, own.Size(), UsableScreen(base && base->IsWindowVisible() ? *base : *this));
    MoveWindow(place.x, place.y, own.Width(), own.Height());
}

BOOL CWnd::RedrawWindow(const RECT* rect, CRgn* region, UINT flags)
{
    return ::RedrawWindow(m_hWnd, rect, region ? static_cast<HRGN>(*region) : nullptr, flags);
}

CWnd* CWnd::SetActiveWindow()
{
    CWnd* former = GetActiveWindow();
    Window* window = Find(m_hWnd);
    if (window && window->widget)
        window->widget->activateWindow();
    return former;
}

void CWnd::BeginWaitCursor()
{
    beforeWaiting = ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
}

void CWnd::EndWaitCursor()
{
    ::SetCursor(beforeWaiting);
}

void CWnd::CheckDlgButton(int id, UINT check)
{
    ::SendMessageW(::GetDlgItem(m_hWnd, id), BM_SETCHECK, check, 0);
}

void CWnd::CheckRadioButton(int first, int last, int checked)
{
    for (int id = first; id <= last; ++id)
        CheckDlgButton(id, id == checked);
}

UINT CWnd::IsDlgButtonChecked(int id) const
{
    return static_cast<UINT>(::SendMessageW(::GetDlgItem(m_hWnd, id), BM_GETCHECK, 0, 0));
}

int CWnd::GetDlgItemText(int id, CString& text) const
{
    text = ::GetWindowTextOf(::GetDlgItem(m_hWnd, id));
    return text.GetLength();
}

BOOL CWnd::UpdateData(BOOL saveAndValidate)
{
    CDataExchange exchange(this, saveAndValidate);
    try
    {
        DoDataExchange(&exchange);
        return TRUE;
    }
    catch (CUserException* refused)
    {
        refused->Delete();
        return FALSE;
    }
}

int CWnd::MessageBox(const CString& text, const CString& caption, UINT type)
{
    return ::MessageBoxW(m_hWnd, text, caption, type);
}

namespace
{
class ControlUI : public CCmdUI
{
public:
    explicit ControlUI(CWnd& control)
    {
        m_pOther = &control;
        m_nID = static_cast<UINT>(control.GetDlgCtrlID());
    }
    void Enable(BOOL on) override
    {
        enableChanged = true;
        m_pOther->EnableWindow(on);
    }
    void SetCheck(int check) override { m_pOther->SendMessage(BM_SETCHECK, static_cast<WPARAM>(check)); }
};
} // namespace

void CWnd::UpdateDialogControls(CCmdTarget* target, BOOL disableIfNoHandler)
{
    for (CWnd* control = GetTopWindow(); control; control = control->GetNextWindow())
        ControlUI(*control).DoUpdate(target, disableIfNoHandler);
}

BOOL CWnd::SetScrollInfo(int bar, const SCROLLINFO* info, BOOL redraw)
{
    ::SetScrollInfo(m_hWnd, bar, info, redraw);
    return TRUE;
}

BOOL CWnd::GetScrollInfo(int bar, SCROLLINFO* info, UINT mask)
{
    info->fMask = mask;
    return ::GetScrollInfo(m_hWnd, bar, info);
}

void CWnd::EnableScrollBarCtrl(int bar, BOOL enable)
{
    ::ShowScrollBar(m_hWnd, bar, enable);
}

CScrollBar* CWnd::GetScrollBarCtrl(int) const
{
    return nullptr;
}
