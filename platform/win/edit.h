// CEdit: one line of text.
#pragma once

#include "platform/win/wnd.h"

class CEdit : public CWnd
{
    DECLARE_DYNCREATE(CEdit)

public:
    using CWnd::Create;
    virtual BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
    void SetSel(int first, int last);
    void SetReadOnly(BOOL on = TRUE);
};
