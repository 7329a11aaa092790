// CScrollView: a view larger than its window, moved about by scroll bars.
#pragma once

#include "platform/win/view.h"

inline constexpr int MM_NONE = 0;

class CScrollView : public CView
{
    DECLARE_DYNAMIC(CScrollView)

public:
    static const SIZE sizeDefault; // page: a tenth of the total; line: a tenth of the page

    // `mapMode` may be any but the isotropic ones. Positive sizes; logical units of that mode.
    void SetScrollSizes(int mapMode, SIZE total, const SIZE& page = sizeDefault, const SIZE& line = sizeDefault);
    CPoint GetScrollPosition() const;       // logical units
    CPoint GetDeviceScrollPosition() const; // pixels
    CSize GetTotalSize() const { return m_totalLog; }
    void GetDeviceScrollSizes(int& mapMode, SIZE& total, SIZE& page, SIZE& line) const;
    void ScrollToPosition(POINT point); // logical units, kept within the range
    void FillOutsideRect(CDC* dc, CBrush* brush);

    void GetScrollBarSizes(CSize& bars); // how thick each bar is: vertical cx, horizontal cy
    // Which bars are needed (1 or 0 in each of `needBars`), how far they move, and the position kept within that.
    // `client` is without bars; with `insideClient`, each bar that is needed takes its thickness from it.
    void GetScrollBarState(CSize client, CSize& needBars, CSize& range, CPoint& move, BOOL insideClient);

    void OnPrepareDC(CDC* dc, CPrintInfo* info = nullptr) override;
    BOOL OnScroll(UINT scrollCode, UINT position, BOOL doScroll = TRUE) override;
    BOOL OnScrollBy(CSize scroll, BOOL doScroll = TRUE) override;

protected:
    int m_nMapMode = MM_NONE;
    CSize m_totalLog;
    CSize m_totalDev;
    CSize m_pageDev;
    CSize m_lineDev;
    BOOL m_bCenter = FALSE;
    BOOL m_bInsideUpdate = FALSE;

    CScrollView() = default;

    void UpdateBars();
    void ScrollToDevicePosition(POINT device);
    // The client size without bars and the thickness of both bars. Non-zero if the window can have bars.
    BOOL GetTrueClientSize(CSize& client, CSize& bars);
    virtual void CenterOnPoint(CPoint logical);

    void OnSize(UINT type, int cx, int cy);
    void OnHScroll(UINT code, UINT position, CScrollBar* bar);
    void OnVScroll(UINT code, UINT position, CScrollBar* bar);
    BOOL OnMouseWheel(UINT flags, short delta, CPoint point);
    DECLARE_MESSAGE_MAP()
};
