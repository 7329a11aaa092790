// CButton: push, radio, check and owner-drawn buttons, and group boxes.
#pragma once

#include "platform/win/wnd.h"

class CButton : public CWnd
{
    DECLARE_DYNCREATE(CButton)

public:
    using CWnd::Create;
    virtual BOOL Create(const CString& caption, DWORD style, const RECT& rect, CWnd* parent, UINT id);
    int GetCheck() const { return static_cast<int>(::SendMessageW(m_hWnd, BM_GETCHECK, 0, 0)); }
    void SetCheck(int check) { ::SendMessageW(m_hWnd, BM_SETCHECK, static_cast<WPARAM>(check), 0); }
    UINT GetState() const { return static_cast<UINT>(::SendMessageW(m_hWnd, BM_GETSTATE, 0, 0)); }
    void SetState(BOOL pushed) { ::SendMessageW(m_hWnd, BM_SETSTATE, static_cast<WPARAM>(pushed), 0); }
    // Of an owner-drawn button: draws it whenever it must be drawn.
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};
