// Device contexts of windows, held for a scope.
#pragma once

#include "platform/win/wnd.h"

// Answers a WM_PAINT: clipped to the update region, which is empty from then on. The background is erased if asked for.
class CPaintDC : public CDC
{
public:
    PAINTSTRUCT m_ps{};

    explicit CPaintDC(CWnd* window);
    ~CPaintDC() override;

private:
    HWND wnd;
};

// The client area, outside a paint as well.
class CClientDC : public CDC
{
public:
    explicit CClientDC(CWnd* window);
    ~CClientDC() override;

private:
    HWND wnd;
};
