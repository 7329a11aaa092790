// The mask window that lays prebuilt checker images over the picture during each paint.
#include "C/uiMaskWnd.h"

#include "C/syMaskToAOI.h"
#include "C/uiAOIBaseViewWnd.h"
#include "C/uiMaskWndDrawing_p.h"
#include "resources/resource.h"

namespace KvN
{

namespace
{

constexpr const char* source = "C/uiMaskWnd";

void LoadPattern(unsigned id, unsigned long line, CBrush& brush)
{
    CBitmap bitmap;
    if (!bitmap.LoadBitmap(id))
        throw new KvGDIException(source, line, "CBitmap::LoadBitmap", GetLastError());
    brush.CreatePatternBrush(&bitmap);
}

} // namespace

BEGIN_MESSAGE_MAP(KvMaskWnd, KvMaskWndBase)
END_MESSAGE_MAP()

KvMaskWnd::KvMaskWnd() : KvMaskWndBase({source, 973}) {}

KvMaskWnd::~KvMaskWnd() = default;

void KvMaskWnd::LoadPatterns()
{
    // Required: all three must be there, though only the black-and-white one is drawn with.
    CBrush red, blue;
    LoadPattern(IDB_MASK_CHECKER_RED, 512, red);
    LoadPattern(IDB_MASK_CHECKER_BLUE, 518, blue);
    LoadPattern(IDB_MASK_CHECKER, 524, hatchBrush);
}

void KvMaskWnd::Init(const KvAOI* background, KvAOI8* mask)
{
    initialised = 0;
    MakePensAndBrushes();
    LoadPatterns();
    view = GetAOIBaseViewWnd();
    ConnectView();
    CDC& output = *view->GetOutputDevice();
    TakeMask(mask);
    SetBackgroundAOI(background);

    KvMaskRaster* const rasters[] = {&userMaskDC,  &systemMaskDC, &userAndDC,
                                     &userPaintDC, &systemAndDC,  &systemPaintDC};
    for (KvMaskRaster* raster : rasters)
        raster->Create(output, maskSize);
    for (KvMaskRaster* raster : rasters)
        raster->SelectDefaults(*nullPen, blackBrush);
    DrawLayers(*mask, userMaskDC, systemMaskDC);
    UpdateRasteredDC(userMaskDC, userAndDC, userPaintDC, userBrush);
    UpdateRasteredDC(systemMaskDC, systemAndDC, systemPaintDC, systemBrush);
    initialised = 1;
}

void KvMaskWnd::UpdateRasteredDC(CDC& mask, CDC& andDC, CDC& paintDC, CBrush& colour)
{
    const short w = maskRect.Width();
    const short h = maskRect.Height();
    const auto fill = [&](CDC& dc, const CBrush& brush, int rop)
    {
        DrawWith(dc, whitePen, brush,
                 [&]
                 {
                     dc.SetROP2(rop);
                     dc.Rectangle(maskRect.left, maskRect.top, maskRect.right + 1, maskRect.bottom + 1);
                 });
    };
    andDC.BitBlt(0, 0, w, h, &mask, 0, 0, SRCCOPY);
    fill(andDC, whiteBrush, R2_XORPEN);
    fill(andDC, hatchBrush, R2_MERGEPEN);
    paintDC.BitBlt(0, 0, w, h, &andDC, 0, 0, SRCCOPY);
    fill(paintDC, whiteBrush, R2_XORPEN);
    fill(paintDC, colour, R2_MASKPEN);
}

void KvMaskWnd::ShowUserRaster(const CRect& changed)
{
    // Each pixel of the pair depends on the same pixel of the mask alone: a clip saves the passes over all others.
    const SavedContext unclippedAnd(userAndDC);
    const SavedContext unclippedPaint(userPaintDC);
    userAndDC.IntersectClipRect(&changed);
    userPaintDC.IntersectClipRect(&changed);
    UpdateRasteredDC(userMaskDC, userAndDC, userPaintDC, userBrush);
    InvalidateView();
}

void KvMaskWnd::ShowLayer(CDC& target, KvMaskRaster& andDC, KvMaskRaster& paintDC) const
{
    const CSize size(maskSize.width, maskSize.height);
    if (auto* memory = dynamic_cast<KvMemDC*>(&target))
    {
        memory->Combine(andDC, size, SRCAND);
        memory->Combine(paintDC, size, SRCPAINT);
        return;
    }
    target.BitBlt(0, 0, size.cx, size.cy, &andDC, 0, 0, SRCAND);
    target.BitBlt(0, 0, size.cx, size.cy, &paintDC, 0, 0, SRCPAINT);
}

void KvMaskWnd::Repaint(int refresh)
{
    if (refresh)
        InvalidateView();
    CDC& target = *view->GetOutputDevice();
    if (showSystemMask)
        ShowLayer(target, systemAndDC, systemPaintDC);
    ShowLayer(target, userAndDC, userPaintDC);
    figure.Draw();
}

long long KvMaskWnd::PaintHdl(KvAOIBaseViewWnd*)
{
    Repaint(0);
    RedrawOpenPolygon();
    return 1;
}

void KvMaskWnd::MaskToAOI()
{
    syMaskToAOI_MaskToAOI(&userMaskDC, maskAOI);
}

} // namespace KvN
