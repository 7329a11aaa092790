// CScrollBar: the control that a WM_HSCROLL or WM_VSCROLL comes from; null for a window's own bars.
#pragma once

#include "platform/win/wnd.h"

class CScrollBar : public CWnd
{
    DECLARE_DYNCREATE(CScrollBar)

public:
    using CWnd::Create;
    virtual BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
    int GetScrollPos() const { return ::GetScrollPos(m_hWnd, SB_CTL); }
    int SetScrollPos(int position, BOOL redraw = TRUE) { return ::SetScrollPos(m_hWnd, SB_CTL, position, redraw); }
};
