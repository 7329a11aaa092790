// The AOI view's painting: straight to the screen, through a memory DC of the paint, or through the persistent one.
// A memory DC is addressed in AOI pixels like the whole AOI, but has pixels only for the part of it that is visible;
// the zoom happens in the copy to the screen. So a paint costs what is visible, whatever the size of the AOI.
#include "C/uiAOIBaseViewWnd.h"
#include "platform/afx/dcguards.h"

#include <algorithm>

namespace KvN
{

namespace
{
const KvString sourceFile("C/uiAOIBaseViewWnd");
constexpr unsigned long lineStretchMode = 902;

// A memory DC whose bitmap covers `area` of the AOI, addressed in AOI pixels.
class AreaDC
{
public:
    AreaDC(CDC* like, const CRect& area)
    {
        dc.CreateCompatibleDC(like);
        bitmap.CreateCompatibleBitmap(like, area.Width(), area.Height());
        former = bitmap.GetSafeHandle() ? dc.SelectObject(&bitmap) : nullptr;
        dc.SetViewportOrg(-area.left, -area.top);
    }
    AreaDC(const AreaDC&) = delete;
    AreaDC& operator=(const AreaDC&) = delete;
    ~AreaDC()
    {
        if (former)
            dc.SelectObject(former);
    }

    explicit operator bool() const { return former != nullptr; }
    CDC* operator&() { return &dc; }
    CDC* operator->() { return &dc; }

private:
    CBitmap bitmap; // outlives the DC that it is selected into
    CDC dc;
    CBitmap* former = nullptr;
};

// COLORONCOLOR for the time of a paint.
class PaintStretchMode
{
public:
    explicit PaintStretchMode(CDC* dc_) : dc(dc_), former(dc_->SetStretchBltMode(COLORONCOLOR))
    {
        if (former == 0)
            throw new KvGDIException(sourceFile, lineStretchMode, KvString("SetStretchBltMode"), GetLastError());
    }
    PaintStretchMode(const PaintStretchMode&) = delete;
    PaintStretchMode& operator=(const PaintStretchMode&) = delete;
    ~PaintStretchMode() { dc->SetStretchBltMode(former); }

private:
    CDC* dc;
    int former;
};

// An extent of the visible area, in AOI pixels.
struct Area
{
    explicit Area(const KvTRectangle<short>& rect)
        : x(rect.left), y(rect.top), width(rect.Width()), height(rect.Height())
    {
    }

    // The pixels that a memory DC needs for it.
    CRect Within(int aoiWidth, int aoiHeight) const
    {
        return CRect(x, y, x + width, y + height) & CRect(0, 0, aoiWidth, aoiHeight);
    }

    int x;
    int y;
    int width;
    int height;
};

void CopyToScreen(CDC* screen, CDC* from, const Area& area)
{
    screen->BitBlt(area.x, area.y, area.width, area.height, from, area.x, area.y, SRCCOPY);
}

// Brings the area of `image` to the resolution of 1 / `shrink`, by way of `spare`.
void Shrink(CDC* image, CDC* spare, const Area& area, int shrink, bool colorOnColor)
{
    const int width = area.width / shrink;
    const int height = area.height / shrink;
    if (colorOnColor)
        spare->SetStretchBltMode(COLORONCOLOR);
    if (!spare->StretchBlt(area.x, area.y, width, height, image, area.x, area.y, area.width, area.height, SRCCOPY))
        return;
    if (colorOnColor)
        image->SetStretchBltMode(COLORONCOLOR);
    image->StretchBlt(area.x, area.y, area.width, area.height, spare, area.x, area.y, width, height, SRCCOPY);
}
} // namespace

// --- The AOI ---

KvTRectangle<short> KvAOIBaseViewWnd::WholeArea() const
{
    return {{0, 0}, {aoiWidth, aoiHeight}};
}

KvTRectangle<short> KvAOIBaseViewWnd::VisibleArea() const
{
    const CRect rect = GetVisibleLogicalRect();
    const auto low16 = [](int value) { return static_cast<short>(value & 0xFFFF); };
    return {low16(rect.left), low16(rect.top), low16(rect.right - 1), low16(rect.bottom - 1)};
}

// The AOI is always drawn whole; the clip of the DC does the rest.
void KvAOIBaseViewWnd::FPaint(CDC* dc, const KvTRectangle<short>& area)
{
    if (!aoi)
        return;
    // A colour AOI goes through the overlay in any case, with a null overlay too, which is required.
    if (dynamic_cast<KvAOI32Color*>(aoi))
        ShowOverlay(dc);
    else
        _FPaint(dc, area);
}

void KvAOIBaseViewWnd::_FPaint(CDC* dc, const KvTRectangle<short>&)
{
    if (overlayAOI)
        ShowOverlay(dc);
    else
        aoi->ShowStretched(WholeArea(), WholeArea(), dc);
}

void KvAOIBaseViewWnd::ShowOverlay(CDC* dc) const
{
    const KvTRectangle<short> whole = WholeArea();
    if (maskAOI)
        aoi->ShowStretchedOverlay(overlayAOI, maskAOI, overlayStrength, whole, whole, dc);
    else
        aoi->ShowStretchedOverlay(overlayAOI, overlayStrength, whole, whole, dc);
}

// --- The paint ---

// Runs `body` as the paint between the two signals. A paint is not reentrant; while the view is laid out it draws
// nothing, and the signals come all the same.
template <class Body>
void KvAOIBaseViewWnd::RunPaint(CDC* dc, Body body)
{
    inDraw = 1;
    try
    {
        if (!resizing)
            body();
        outputDevice = dc;
        postPaintSignal.Emit(*this);
        outputDevice = nullptr;
        inDraw = 0;
    }
    catch (CException* thrown)
    {
        auto* failure = dynamic_cast<KvException*>(thrown);
        if (!failure)
        {
            failure = new KvException(*thrown);
            thrown->Delete();
        }
        inDraw = 0;
        outputDevice = nullptr;
        throw failure;
    }
}

void KvAOIBaseViewWnd::OnDraw(CDC* dc)
{
    if (shrink == 1)
    {
        _OnDraw(dc);
        return;
    }
    if (inDraw)
        return;
    prePaintSignal.Emit(*this);
    if (useMemDC)
        DrawMemDC(dc);
    else
        RunPaint(dc, [&] { DrawShrunk(dc); });
}

void KvAOIBaseViewWnd::_OnDraw(CDC* dc)
{
    if (inDraw)
        return;
    prePaintSignal.Emit(*this);
    if (useMemDC)
        DrawMemDC(dc);
    else
        RunPaint(dc, [&] { DrawPlain(dc); });
}

// With a paint handler the mouse paint handler stays silent on the screen, which is required.
void KvAOIBaseViewWnd::DrawPlain(CDC* dc)
{
    const PaintStretchMode mode(dc);
    const KvTRectangle<short> visible = VisibleArea();
    if (!paintHdl.function)
    {
        outputDevice = dc;
        Paint(dc, visible);
        mousePaintHdl.Call(this);
        outputDevice = nullptr;
        return;
    }
    const Area area(visible);
    AreaDC memory(dc, area.Within(aoiWidth, aoiHeight));
    PaintOn(&memory, visible, dc->IsPrinting());
    CopyToScreen(dc, &memory, area);
    if (dc->IsPrinting())
        CallPrintingHandlers(dc);
}

void KvAOIBaseViewWnd::DrawShrunk(CDC* dc)
{
    const PaintStretchMode mode(dc);
    const KvTRectangle<short> visible = VisibleArea();
    const Area area(visible);
    const CRect pixels = area.Within(aoiWidth, aoiHeight);
    const bool handled = paintHdl.function != nullptr;
    AreaDC memory(dc, pixels);
    if (!memory)
    {
        // With a paint handler such a paint draws nothing at all, which is required.
        if (!handled)
        {
            PaintOn(dc, visible, dc->IsPrinting());
            if (dc->IsPrinting())
                CallPrintingHandlers(dc);
        }
        return;
    }
    PaintOn(&memory, visible, dc->IsPrinting());
    AreaDC spare(dc, pixels);
    // With a paint handler the reduction uses the stretch mode that memory DCs start with, which is required.
    if (spare)
        Shrink(&memory, &spare, area, shrink, !handled);
    CopyToScreen(dc, &memory, area);
}

// The AOI, and over it what the paint handler draws, unless the DC at the end of the paint is a printer's.
void KvAOIBaseViewWnd::PaintOn(CDC* target, const KvTRectangle<short>& visible, bool printing)
{
    outputDevice = target;
    Paint(target, visible);
    if (!printing)
        paintHdl.Call(this);
    outputDevice = nullptr;
}

void KvAOIBaseViewWnd::CallPrintingHandlers(CDC* dc)
{
    outputDevice = dc;
    paintHdl.Call(this);
    mousePaintHdl.Call(this);
    outputDevice = nullptr;
}

void KvAOIBaseViewWnd::DrawMemDC(CDC* dc)
{
    if (inDraw)
        return;
    RunPaint(dc,
             [&]
             {
                 const PaintStretchMode mode(dc);
                 // Kept for the life of the view: a later, larger AOI is cut to the first size, which is required.
                 if (!memDC)
                     memDC = std::make_unique<KvMemDC>(dc, aoiWidth, aoiHeight);
                 KvTRectangle<short> visible = VisibleArea();
                 const auto* paintDC = dynamic_cast<const CPaintDC*>(dc);
                 const CRect dirty = paintDC ? CRect(paintDC->m_ps.rcPaint) : CRect(0, 0, aoiWidth, aoiHeight);
                 const KvTRectangle<short> area(static_cast<short>(dirty.left), static_cast<short>(dirty.top),
                                                static_cast<short>(dirty.right - 1),
                                                static_cast<short>(dirty.bottom - 1));
                 if (dc->IsPrinting())
                 {
                     outputDevice = dc;
                     Paint(outputDevice, area);
                     CallPrintingHandlers(dc);
                     return;
                 }
                 // Nothing outside the visible part reaches the screen before it is painted again.
                 const SavedContext untilPainted(*memDC);
                 const Area shown(visible);
                 memDC->IntersectClipRect(shown.x, shown.y, shown.x + shown.width, shown.y + shown.height);
                 outputDevice = memDC.get();
                 Paint(outputDevice, area);
                 paintHdl.Call(this);
                 mousePaintHdl.Call(this);
                 memDC->Paint(dc, visible);
             });
}

void KvAOIBaseViewWnd::CallPaintHandler(CDC* dc)
{
    if (dc->IsPrinting())
        return;
    dcTmp = dc;
    paintHdl.Call(this);
    dcTmp = nullptr;
}

CDC* KvAOIBaseViewWnd::GetOutputDevice()
{
    if (inDraw)
        return outputDevice;
    // The class DC of the view's window; it is nobody's to release.
    CDC* dc = GetDC();
    OnPrepareDC(dc, nullptr);
    return dc;
}

// --- What is shown ---

void KvAOIBaseViewWnd::SetShrink(unsigned short reduction)
{
    if (reduction >= 1 && reduction <= 16)
        shrink = reduction;
}

void KvAOIBaseViewWnd::SetOverlayAOI(KvAOI* overlay)
{
    overlayAOI = dynamic_cast<KvAOI8*>(overlay);
}

void KvAOIBaseViewWnd::FSetAOI(KvAOI* newAOI)
{
    if (!newAOI)
    {
        aoi = nullptr;
        aoiWidth = 0;
        aoiHeight = 0;
        FResizeBaseWindow();
        return;
    }
    const KvTSize<short> size = newAOI->AOISize();
    const bool sizeChanges = !aoi || size != KvTSize<short>(aoiWidth, aoiHeight);
    aoi = newAOI;
    aoiWidth = size.width;
    aoiHeight = size.height;
    m_totalLog = CSize(aoiWidth, aoiHeight);
    if (sizeChanges)
    {
        FResizeBaseWindow();
        return;
    }
    InvalidateRect(nullptr, TRUE);
    UpdateWindow();
}

void KvAOIBaseViewWnd::FSetOutputLut(const KvString& name)
{
    auto* container = dynamic_cast<KvOLutContainer*>(aoi);
    if (!container)
        return;
    container->SetOLut(pOLutMgr->GetLut(name));
    InvalidateRect(nullptr, TRUE);
    UpdateWindow();
}

KvString KvAOIBaseViewWnd::FGetOutputLut() const
{
    auto* container = dynamic_cast<KvOLutContainer*>(aoi);
    const KvLut* lut = container ? container->GetOLut() : nullptr;
    return lut ? lut->GetName() : KvString();
}

} // namespace KvN
