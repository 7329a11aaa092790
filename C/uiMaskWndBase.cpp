// The common base of the mask windows: set-up, tools, and the burning of figures into the user raster.
#include "C/uiMaskWndBase.h"

#include "C/uiAOIBaseViewWnd.h"
#include "C/uiMaskWndDrawing_p.h"
#include "resources/resource.h"

#include <cstdlib>

namespace KvN
{

BEGIN_MESSAGE_MAP(KvMaskWndBase, KvAOIWnd)
END_MESSAGE_MAP()

KvMaskRaster::~KvMaskRaster()
{
    for (const HGDIOBJ former : {formerBitmap, formerPen, formerBrush})
        if (former)
            SelectObject(former);
}

void KvMaskRaster::Create(CDC& reference, const KvTSize<short>& size)
{
    CreateCompatibleDC(&reference);
    bitmap.CreateCompatibleBitmap(&reference, size.width, size.height);
    formerBitmap = SelectObject(bitmap.GetSafeHandle());
    PatBlt(0, 0, size.width, size.height, BLACKNESS);
}

void KvMaskRaster::SelectDefaults(const CPen& pen, const CBrush& brush)
{
    formerPen = SelectObject(pen.GetSafeHandle());
    formerBrush = SelectObject(brush.GetSafeHandle());
}

KvMaskWndBase::~KvMaskWndBase() = default;

// ---- Set-up

void KvMaskWndBase::MakePensAndBrushes()
{
    rubberPen = std::make_unique<CPen>(static_cast<int>(PS_SOLID), 0, RGB(255, 255, 255));
    polygonPen = std::make_unique<CPen>(static_cast<int>(PS_SOLID), 1, RGB(255, 255, 0));
    nullPen = std::make_unique<CPen>(static_cast<int>(PS_NULL), 0, RGB(0, 0, 0));
    hollowBrush.CreateStockObject(NULL_BRUSH);
    whiteBrush.CreateSolidBrush(RGB(255, 255, 255));
    userBrush.CreateSolidBrush(RGB(255, 0, 0));
    systemBrush.CreateSolidBrush(RGB(0, 0, 255));
    blackBrush.CreateSolidBrush(RGB(0, 0, 0));
}

void KvMaskWndBase::ConnectView()
{
    viewCursor = GetpApp()->LoadCursor(IDC_MASK_CROSS_HAIR);
    view->SetDefaultCursor(viewCursor);
    figure.Init(view);
    figure.Hide();
    view->ChangeMouseButtonDownHdl(KvTools::Link(this, &KvMaskWndBase::LinkStubMouseButtonDownHdl));
    view->ChangeMouseButtonUpHdl(KvTools::Link(this, &KvMaskWndBase::LinkStubMouseButtonUpHdl));
    view->ChangeMouseMoveHdl(KvTools::Link(this, &KvMaskWndBase::LinkStubMouseMoveHdl));
    view->ChangePaintHdl(KvTools::Link(this, &KvMaskWndBase::LinkStubPaintHdl));
}

void KvMaskWndBase::TakeMask(KvAOI8* mask)
{
    maskAOI = mask;
    maskSize = mask->AOISize();
    maskRect = mask->AOIRect();
}

void KvMaskWndBase::DrawLayers(const KvAOI8& mask, CDC& userDC, CDC& systemDC) const
{
    KvBufferAOI8 user(maskSize, 0);
    KvBufferAOI8 system(maskSize, 0);
    user.SetOLut(pOLutMgr->GetLut("Grey"));
    system.SetOLut(pOLutMgr->GetLut("Grey"));
    KvTBuf1D<unsigned char> row(maskSize.width), userRow(maskSize.width), systemRow(maskSize.width);
    for (short y = 0; y < maskSize.height; ++y)
    {
        mask.GetRow(y, row);
        for (int x = 0; x < maskSize.width; ++x)
        {
            userRow[x] = (row[x] & UserBit) ? 255 : 0;
            systemRow[x] = (row[x] & SystemBit) ? 255 : 0;
        }
        user.SetRow(y, userRow);
        system.SetRow(y, systemRow);
    }
    user.Show(&userDC);
    system.Show(&systemDC);
}

KvAOI* KvMaskWndBase::GetBackgroundAOI() const
{
    return view->GetAOI();
}

void KvMaskWndBase::SetBackgroundAOI(const KvAOI* background)
{
    view->SetAOI(const_cast<KvAOI*>(background)); // the view shows AOIs and never writes to them
}

void KvMaskWndBase::InvalidateView()
{
    view->InvalidateRect(nullptr, FALSE);
    view->UpdateWindow();
}

// ---- Tools

void KvMaskWndBase::SetLineWidth(unsigned short width)
{
    lineWidth = width;
    SetPenWidth(rubberPen, width);
    SetPenWidth(polygonPen, width == 0 ? 1 : width);
    SetPenWidth(nullPen, width);
    figure.SetLineWidth(width);
}

void KvMaskWndBase::SelectTool(int newTool)
{
    tool = newTool;
    if (tool == MaskToolClear || tool == MaskToolFill || tool == MaskToolInvert)
        ActOnWholeMask();
}

void KvMaskWndBase::ActOnWholeMask()
{
    const bool invert = tool == MaskToolInvert;
    const CPen& pen = invert ? whitePen : *nullPen;
    const CBrush& brush = tool == MaskToolClear ? blackBrush : whiteBrush;
    DrawWith(userMaskDC, pen, brush,
             [&]
             {
                 userMaskDC.SetROP2(invert ? R2_XORPEN : R2_COPYPEN);
                 // The null pen stops one pixel short at right and bottom: the margin reaches the mask's edge.
                 userMaskDC.Rectangle(maskRect.left - 1, maskRect.top - 1, maskRect.right + 2, maskRect.bottom + 2);
             });
    ShowUserRaster(CRect(CPoint(0, 0), CSize(maskSize.width, maskSize.height)));
}

// ---- The figure's way into the raster

CRect KvMaskWndBase::Reach(const CRect& bounds) const
{
    CRect reach = bounds;
    reach.NormalizeRect();
    reach.InflateRect(lineWidth + 2, lineWidth + 2);
    return reach;
}

template <class Draw>
void KvMaskWndBase::Burn(Draw draw)
{
    const MaskTool described = DescribeMaskTool(tool);
    const auto pen = described.filled ? CopyPen(*nullPen, 0) : CopyPen(described.adds ? whitePen : blackPen, lineWidth);
    CBrush hollow;
    hollow.CreateStockObject(NULL_BRUSH);
    const CBrush& brush = !described.filled ? hollow : described.adds ? whiteBrush : blackBrush;
    DrawWith(userMaskDC, *pen, brush,
             [&]
             {
                 userMaskDC.SetROP2(R2_COPYPEN);
                 draw(userMaskDC);
             });
}

void KvMaskWndBase::IntegrateFigure()
{
    const MaskTool described = DescribeMaskTool(tool);
    if (described.IsBox())
        Burn(
            [&](CDC& dc)
            {
                KvTRectangle<short> r = figure.GetRect();
                if (described.shape == MaskShape::Circle)
                    r = GetSquare(r, 2);
                if (described.shape == MaskShape::Rectangle)
                    dc.Rectangle(r.left, r.top, r.right + 1, r.bottom + 1);
                else
                    dc.Ellipse(r.left, r.top, r.right + 1, r.bottom + 1);
            });
    changeMode = 0;
    figure.Hide();
    const KvTRectangle<short>& bounds = figure.GetRect();
    ShowUserRaster(Reach(CRect(bounds.left, bounds.top, bounds.right, bounds.bottom)));
}

void KvMaskWndBase::DeleteFigure()
{
    changeMode = 0;
    figure.Hide();
    InvalidateView();
}

void KvMaskWndBase::FinishPolygon()
{
    polygonOpen = 0;
    ReleaseCapture();
    Burn(
        [&](CDC& dc)
        {
            if (DescribeMaskTool(tool).shape == MaskShape::Polygon)
                dc.Polygon(polygon, polygon.GetSize());
            else
                dc.Polyline(polygon, polygon.GetSize());
        });
    isDrawing = 0;
    CRect bounds(polygon[0], polygon[0]);
    for (unsigned short i = 1; i < polygon.GetSize(); ++i)
        bounds = CRect(std::min(bounds.left, polygon[i].x), std::min(bounds.top, polygon[i].y),
                       std::max(bounds.right, polygon[i].x), std::max(bounds.bottom, polygon[i].y));
    ShowUserRaster(Reach(bounds));
}

// ---- Geometry

KvTRectangle<short> KvMaskWndBase::GetSquare(const KvTRectangle<short>& rect, unsigned short mode) const
{
    KvTRectangle<short> square = rect;
    const int w = rect.Width();
    const int h = rect.Height();
    const int side = std::min(std::abs(w), std::abs(h));
    const int cutX = w < 0 ? std::abs(w) - side : side - std::abs(w); // towards the left side
    const int cutY = h < 0 ? std::abs(h) - side : side - std::abs(h); // towards the top side
    if (std::abs(w) > side)
    {
        if (mode == 3 || mode == 4)
            square.left = static_cast<short>(rect.left - cutX);
        else
            square.right = static_cast<short>(rect.right + cutX);
    }
    else if (mode == 1 || mode == 4)
        square.top = static_cast<short>(rect.top - cutY);
    else
        square.bottom = static_cast<short>(rect.bottom + cutY);
    return square;
}

void KvMaskWndBase::CallChangeModeHdl()
{
    if (changeModeHdl.function)
        changeModeHdl.Call(this);
}

} // namespace KvN
