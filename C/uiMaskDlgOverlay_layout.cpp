// The overlay dialog's layout, which follows the window's size, and the fields of its legend.
#include "C/uiMaskDlgOverlay.h"
#include "platform/afx/dcguards.h"

#include <algorithm>

using namespace KvN;

namespace
{

bool IsScale(int id)
{
    return id == IDC_MASK_STRENGTH || (id >= IDC_MASK_SCALE_0 && id <= IDC_MASK_SCALE_100);
}

// The right column's controls that the scale must not cover.
bool BoundsScale(int id)
{
    return id == IDC_MASK_SEGMENT_GROUP || id == IDC_MASK_SURROUND_COLOR || id == IDC_MASK_DEFECT_COLOR ||
           id == IDC_MASK_DISPLAY_GROUP;
}

CSize SizeOf(const RECT& rect)
{
    return {rect.right - rect.left, rect.bottom - rect.top};
}

} // namespace

void KvMaskDlgOverlay::CaptureLayout()
{
    controls.Clear();
    RECT client{};
    GetClientRect(&client);
    GetWindowRect(&initialWindowRect);
    const CSize whole = SizeOf(initialWindowRect);
    const int border = (whole.cx - client.right) / 2;
    const int top = whole.cy - client.bottom - border;
    for (CWnd* child = GetTopWindow(); child; child = child->GetNextWindow())
    {
        CRect rect;
        child->GetWindowRect(&rect);
        rect.OffsetRect(-(initialWindowRect.left + border), -(initialWindowRect.top + top));
        controls.AddTail({rect, child->GetSafeHwnd()});
        const int id = child->GetDlgCtrlID();
        if (id == IDC_MASK_SCALE_0)
            scaleTop = static_cast<short>(rect.top);
        // The dialog itself is not on the screen yet, so it is the control's own style that counts.
        if (BoundsScale(id) && (child->GetStyle() & WS_VISIBLE))
            minimumScaleBottom = static_cast<short>(rect.bottom);
    }
    minimumScaleBottom = static_cast<short>(minimumScaleBottom + 10);
}

void KvMaskDlgOverlay::OnSize(unsigned int type, int, int)
{
    Default();
    if (type != SIZE_MAXIMIZED && !(type == SIZE_RESTORED && layoutReady))
        return;
    RECT now{};
    GetWindowRect(&now);
    const CSize growth = SizeOf(now) - SizeOf(initialWindowRect);
    for (int i = 0; i < controls.count; ++i)
        MoveControl(controls[i], growth.cx, growth.cy);
    Invalidate(TRUE);
    UpdateWindow();
}

void KvMaskDlgOverlay::MoveControl(const SzControl& control, int dW, int dH)
{
    const HWND handle = control.handle;
    if (handle == incToolBar.GetSafeHwnd() || handle == excToolBar.GetSafeHwnd())
        return;
    const CSize size = SizeOf(control.rect);
    const int left = control.rect.left;
    const int top = control.rect.top;
    if (handle == maskWnd.GetSafeHwnd())
        ::MoveWindow(handle, left, top, size.cx + dW, size.cy + dH, FALSE);
    else if (IsScale(::GetDlgCtrlID(handle)))
        ::MoveWindow(handle, left + dW, scaleTop + dH >= minimumScaleBottom ? top + dH : top, size.cx, size.cy, FALSE);
    else
        ::MoveWindow(handle, left + dW, top, size.cx, size.cy, FALSE);
}

// ---- The legend

BEGIN_MESSAGE_MAP(CDrawButtonMask, CButton)
END_MESSAGE_MAP()

void CDrawButtonMask::DrawItem(LPDRAWITEMSTRUCT item)
{
    const bool defect = item->CtlID == IDC_MASK_DEFECT_COLOR;
    if (!(item->itemAction & ODA_DRAWENTIRE) || !parent || (!defect && item->CtlID != IDC_MASK_SURROUND_COLOR))
        return;
    unsigned long defectColor = 0;
    unsigned long surroundColor = 0;
    parent->GetColors(defectColor, surroundColor);
    CDC& dc = *CDC::FromHandle(item->hDC);
    const auto fill = [&dc](const CRect& rect, unsigned long color)
    {
        CBrush brush(static_cast<COLORREF>(color));
        const SelectedObject selected(dc, brush);
        dc.PatBlt(rect.left, rect.top, rect.Width(), rect.Height(), PATCOPY);
    };
    const CRect rect(item->rcItem);
    fill(rect, defect ? defectColor : surroundColor);
    if (defect)
        return;
    CRect inner(rect);
    inner.DeflateRect(std::max(rect.Width() / 6, 5), std::max(rect.Height() / 6, 3));
    fill(inner, RGB(0, 0, 0));
}
