// CSliderCtrl: the trackbar. It tells its parent by WM_HSCROLL or WM_VSCROLL with the TB_ codes.
#pragma once

#include "platform/win/wnd.h"

class CSliderCtrl : public CWnd
{
    DECLARE_DYNCREATE(CSliderCtrl)

public:
    using CWnd::Create;
    virtual BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);
    int GetPos() const { return static_cast<int>(::SendMessageW(m_hWnd, TBM_GETPOS, 0, 0)); }
    void SetPos(int position) { ::SendMessageW(m_hWnd, TBM_SETPOS, 1, position); } // tells nobody
    void SetRange(int low, int high, BOOL redraw = FALSE);
    void GetRange(int& low, int& high) const;
    int GetRangeMin() const { return static_cast<int>(::SendMessageW(m_hWnd, TBM_GETRANGEMIN, 0, 0)); }
    int GetRangeMax() const { return static_cast<int>(::SendMessageW(m_hWnd, TBM_GETRANGEMAX, 0, 0)); }
    void SetTicFreq(int every) { ::SendMessageW(m_hWnd, TBM_SETTICFREQ, static_cast<WPARAM>(every), 0); }
    void SetPageSize(int size) { ::SendMessageW(m_hWnd, TBM_SETPAGESIZE, 0, size); }
    void SetLineSize(int size) { ::SendMessageW(m_hWnd, TBM_SETLINESIZE, 0, size); }
};
