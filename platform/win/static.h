// CStatic: text, a frame or a picture without input.
#pragma once

#include "platform/win/wnd.h"

class CStatic : public CWnd
{
    DECLARE_DYNCREATE(CStatic)

public:
    using CWnd::Create;
    virtual BOOL Create(const CString& text, DWORD style, const RECT& rect, CWnd* parent, UINT id = 0xFFFF);
};
