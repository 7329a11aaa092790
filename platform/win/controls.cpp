// The class side of buttons, statics, trackbar, scroll bar and edit.
#include "platform/win/button.h"
#include "platform/win/edit.h"
#include "platform/win/scrollbar.h"
#include "platform/win/slider.h"
#include "platform/win/static.h"

#include "platform/win/native/window.h"

#include <QLineEdit>

IMPLEMENT_DYNCREATE(CButton, CWnd)
IMPLEMENT_DYNCREATE(CStatic, CWnd)
IMPLEMENT_DYNCREATE(CSliderCtrl, CWnd)
IMPLEMENT_DYNCREATE(CScrollBar, CWnd)
IMPLEMENT_DYNCREATE(CEdit, CWnd)

BOOL CButton::Create(const CString& caption, DWORD style, const RECT& rect, CWnd* parent, UINT id)
{
    return CWnd::Create("Button", caption, style, rect, parent, id);
}

BOOL CButton::OnChildNotify(UINT message, WPARAM, LPARAM lParam, LRESULT*)
{
    if (message != WM_DRAWITEM)
        return FALSE;
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}

BOOL CStatic::Create(const CString& text, DWORD style, const RECT& rect, CWnd* parent, UINT id)
{
    return CWnd::Create("Static", text, style, rect, parent, id);
}

BOOL CSliderCtrl::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
{
    return CWnd::Create("msctls_trackbar32", CString(), style, rect, parent, id);
}

void CSliderCtrl::SetRange(int low, int high, BOOL)
{
    ::SendMessageW(m_hWnd, TBM_SETRANGEMIN, 0, low);
    ::SendMessageW(m_hWnd, TBM_SETRANGEMAX, 0, high);
}

void CSliderCtrl::GetRange(int& low, int& high) const
{
    low = GetRangeMin();
    high = GetRangeMax();
}

BOOL CScrollBar::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
{
    return CWnd::Create("ScrollBar", CString(), style, rect, parent, id);
}

BOOL CEdit::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id)
{
    return CWnd::Create("Edit", CString(), style, rect, parent, id);
}

namespace
{
QLineEdit* LineEditOf(HWND handle)
{
    kv::win::Window* window = kv::win::Find(handle);
    return window ? qobject_cast<QLineEdit*>(window->widget.data()) : nullptr;
}
} // namespace

void CEdit::SetSel(int first, int last)
{
    if (QLineEdit* edit = LineEditOf(m_hWnd))
    {
        const int end = last < 0 ? edit->text().size() : last;
        edit->setSelection(first, end - first);
    }
}

void CEdit::SetReadOnly(BOOL on)
{
    if (QLineEdit* edit = LineEditOf(m_hWnd))
        edit->setReadOnly(on != 0);
}
