// The AOI view's painting: straight to the screen, through a memory DC of the paint, or through the persistent one.
// A memory DC has the size of the AOI; the zoom happens in the copy to the screen. Its AOI is a pending picture, which
// takes memory only where a handler draws or reads, so that a paint costs what is visible, whatever the size of the
// AOI.
#include "C/uiAOIBaseViewWnd.h"
#include "platform/afx/dcguards.h"

#include <algorithm>

namespace KvN
{

namespace
{
const KvString sourceFile("C/uiAOIBaseViewWnd");
constexpr unsigned long lineStretchMode = 902;
constexpr std::int64_t mostPixelsKept = 7 << 20; // in the memory DC of paints, between them: 28 MiB

// The paint through a memory DC of which `visible` will be shown. None of the handlers' settings and no picture of the
// AOI stay behind.
class PaintOnMemory
{
public:
    PaintOnMemory(KvMemDC& dc_, const CRect& visible) : dc(dc_), saved(dc_) { dc.LimitTo(visible); }
    PaintOnMemory(const PaintOnMemory&) = delete;
    PaintOnMemory& operator=(const PaintOnMemory&) = delete;
    ~PaintOnMemory() { dc.DropPending(); }

private:
    KvMemDC& dc;
    SavedContext saved;
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

    CRect Rect() const { return CRect(x, y, x + width, y + height); }

    int x;
    int y;
    int width;
    int height;
};

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

// The memory DC of a paint, all black. It is kept for the next paint, unless its bitmap may have taken much memory.
KvMemDC& KvAOIBaseViewWnd::PaintBuffer(CDC* dc)
{
    if (paintBuffer && paintBuffer->Suits(*dc, aoiWidth, aoiHeight))
    {
        paintBuffer->Clear();
        return *paintBuffer;
    }
    paintBuffer.reset(); // before the next one needs its memory
    paintBuffer = std::make_unique<KvMemDC>(dc, aoiWidth, aoiHeight);
    return *paintBuffer;
}

// With a paint handler the mouse paint handler stays silent on the screen, which is required.
void KvAOIBaseViewWnd::DrawPlain(CDC* dc)
{
    const PaintStretchMode mode(dc);
    KvTRectangle<short> visible = VisibleArea();
    if (!paintHdl.function)
    {
        outputDevice = dc;
        Paint(dc, visible);
        mousePaintHdl.Call(this);
        outputDevice = nullptr;
        return;
    }
    {
        KvMemDC& memory = PaintBuffer(dc);
        const PaintOnMemory untilShown(memory, Area(visible).Rect());
        PaintOn(&memory, visible, dc->IsPrinting());
        memory.Paint(dc, visible);
    }
    if (paintBuffer->PixelsInMemory() > mostPixelsKept)
        paintBuffer.reset();
    if (dc->IsPrinting())
        CallPrintingHandlers(dc);
}

void KvAOIBaseViewWnd::DrawShrunk(CDC* dc)
{
    const PaintStretchMode mode(dc);
    KvTRectangle<short> visible = VisibleArea();
    const Area area(visible);
    const bool handled = paintHdl.function != nullptr;
    KvMemDC memory(dc, aoiWidth, aoiHeight);
    if (!memory.HasBitmap())
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
    const PaintOnMemory untilShown(memory, area.Rect());
    PaintOn(&memory, visible, dc->IsPrinting());
    KvMemDC spare(dc, aoiWidth, aoiHeight);
    // With a paint handler the reduction uses the stretch mode that memory DCs start with, which is required.
    if (spare.HasBitmap())
        Shrink(&memory, &spare, area, shrink, !handled);
    memory.Paint(dc, visible);
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
                 const PaintOnMemory untilPainted(*memDC, Area(visible).Rect());
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
