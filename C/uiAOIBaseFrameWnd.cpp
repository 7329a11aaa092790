// The frame between an AOI window and its view: exactly as large as the image needs, never larger than the host.
#include "C/uiAOIBaseFrameWnd.h"

#include "C/uiAOIBaseViewWnd.h"

#include <algorithm>

namespace KvN
{

namespace
{
// Set while a size change is handled; the one guard of all frames. It stays set if the wanted size can't be had, which
// is required: later size changes then go to the base class.
bool inSize = false;

// The size that `view` wants within a client area of `client`; hides the bars of a view that isn't fitted.
CSize WantedSize(KvAOIBaseViewWnd& view, const CSize& client)
{
    const KvTSize<short> needed = view.GetNecessaryOutputSize();
    CSize wanted(needed.width, needed.height);
    if (!view.IsAOIFittedToWindow())
    {
        view.EnableScrollBarCtrl(SB_BOTH, FALSE);
        CSize bars;
        CSize range;
        CPoint move;
        CSize thickness;
        view.GetScrollBarState(client, bars, range, move, TRUE);
        view.GetScrollBarSizes(thickness);
        if (bars.cy)
            wanted.cx += thickness.cx;
        if (bars.cx)
            wanted.cy += thickness.cy;
    }
    return {std::min(client.cx, wanted.cx), std::min(client.cy, wanted.cy)};
}
} // namespace

IMPLEMENT_DYNCREATE(KvAOIBaseFrameWnd, CFrameWnd)

BEGIN_MESSAGE_MAP(KvAOIBaseFrameWnd, CFrameWnd)
ON_WM_SIZE()
ON_WM_PAINT()
END_MESSAGE_MAP()

BOOL KvAOIBaseFrameWnd::PreCreateWindow(CREATESTRUCT& cs)
{
    return CWnd::PreCreateWindow(cs);
}

void KvAOIBaseFrameWnd::PostNcDestroy() {}

void KvAOIBaseFrameWnd::OnSize(UINT type, int cx, int cy)
{
    if (inSize)
    {
        CFrameWnd::OnSize(type, cx, cy);
        return;
    }
    inSize = true;
    auto* view = dynamic_cast<KvAOIBaseViewWnd*>(GetActiveView());
    if (!view)
    {
        MoveWindow(0, 0, cx, cy, FALSE);
    }
    else
    {
        const CSize size = WantedSize(*view, CSize(cx, cy));
        CRect host;
        GetParent()->GetClientRect(&host);
        MoveWindow(std::max(0, (host.Width() - size.cx) / 2), std::max(0, (host.Height() - size.cy) / 2), size.cx,
                   size.cy, FALSE);
    }
    RecalcLayout(TRUE);
    inSize = false;
}

// Answers the message; what there is to see is the view's.
void KvAOIBaseFrameWnd::OnPaint()
{
    {
        CPaintDC dc(this);
    }
    if (auto* view = dynamic_cast<KvAOIBaseViewWnd*>(GetActiveView()))
        view->InvalidateRect(nullptr, TRUE);
}

} // namespace KvN
