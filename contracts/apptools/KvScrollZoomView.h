// A scroll view whose content is shown zoomed, or fitted to the window.
#pragma once

#include "platform/win/scrollview.h"

namespace KvN
{

// Logical units are pixels of the content; the view's device coordinates are its client pixels. The content lies at
// (0, 0) and is `zoom` device pixels large per logical unit, in each axis by itself.
class KvScrollZoomView : public CScrollView
{
    DECLARE_DYNAMIC(KvScrollZoomView)

public:
    ~KvScrollZoomView() override = default;

    // Leaves fit mode and lays the view out anew. A factor of 0 counts as 1, a negative one mirrors nothing: its
    // amount counts, though it is kept as it is.
    virtual void SetZoomFactor(double x, double y);
    // What of the content is visible, in logical units, right and bottom exclusive; partly visible units count.
    CRect GetVisibleLogicalRect() const;
    // The whole content at the current zoom, in device pixels, rounded to nearest.
    CSize GetTotalDevSize() const;
    // Device pixels per logical unit, in fit mode too; 1 for content without size.
    void CalculateStretchFactors(double& x, double& y) const;
    virtual void FitContentToWindowOn();
    virtual void FitContentToWindowOff();
    virtual void MaintainPixelAspectRatioOn();
    virtual void MaintainPixelAspectRatioOff();
    // Called after every change of the zoom.
    virtual void NotifyZoom() {}
    // The content's size and the steps of the scroll bars, in logical units.
    void SetZoomSizes(SIZE total, const SIZE& page = sizeDefault, const SIZE& line = sizeDefault);
    // Scroll positions are device pixels. A device point goes to the unit that it lies in, a unit to its first device
    // pixel; the scroll position counts.
    void ViewDPtoLP(POINT* points, int count = 1) const;
    void ViewLPtoDP(POINT* points, int count = 1) const;

    void OnPrepareDC(CDC* dc, CPrintInfo* info = nullptr) override;

    static CRuntimeClass* GetThisClass() { return RUNTIME_CLASS(KvScrollZoomView); }

protected:
    double zoomFactorX = 1.0;
    double zoomFactorY = 1.0;
    int fitToWindow = 0;
    int maintainAspectRatio = 1;

    KvScrollZoomView() = default;

    void OnSize(UINT type, int cx, int cy);
    DECLARE_MESSAGE_MAP()

private:
    CSize FittingArea() const;
    void LayOut();
};

} // namespace KvN
