// The mask window whose mask is the overlay of the view.
#include "C/uiMaskWndOverlay.h"

#include "C/uiAOIBaseViewWnd.h"
#include "C/uiMaskWndDrawing_p.h"

using namespace KvN;

namespace
{

constexpr const char* source = "C/uiMaskWndOverlay";

struct PaletteInfo
{
    BITMAPINFOHEADER header;
    RGBQUAD colours[256];
};

void CheckedGetDIBits(CDC& raster, HBITMAP bitmap, int lines, void* bits, PaletteInfo& info, unsigned long line)
{
    auto* const record = reinterpret_cast<BITMAPINFO*>(&info);
    if (::GetDIBits(raster, bitmap, 0, lines, bits, record, DIB_RGB_COLORS) == 0)
        throw new KvGDIException(source, line, "GetDIBits", GetLastError());
}

// Sets `bit` where the raster isn't black, clears it elsewhere.
void RasterToAOI(CDC& raster, KvAOI8* aoi, unsigned char bit)
{
    const KvTSize<short> size = aoi->AOISize();
    const auto bitmap = static_cast<HBITMAP>(::GetCurrentObject(raster.m_hAttribDC, OBJ_BITMAP));
    PaletteInfo info{};
    info.header.biSize = sizeof info.header;
    info.header.biWidth = size.width;
    info.header.biHeight = -size.height;
    info.header.biPlanes = 1;
    info.header.biBitCount = 8;
    CheckedGetDIBits(raster, bitmap, size.height, nullptr, info, 200);
    KvTBuf1D<unsigned char> bits(static_cast<int>(info.header.biSizeImage));
    CheckedGetDIBits(raster, bitmap, size.height, bits.data, info, 210);

    KvTBuf1D<unsigned char> row(size.width);
    for (short y = 0; y < size.height; ++y)
    {
        aoi->GetRow(y, row);
        // Required: the stride is the width, not the padded row, so widths that 4 does not divide are read askew.
        const unsigned char* in = bits.data + static_cast<std::size_t>(y) * static_cast<std::size_t>(size.width);
        for (int x = 0; x < size.width; ++x)
            row[x] = static_cast<unsigned char>(in[x] ? row[x] | bit : row[x] & ~bit);
        aoi->SetRow(y, row);
    }
}

} // namespace

BEGIN_MESSAGE_MAP(KvMaskWndOverlay, KvMaskWndBase)
END_MESSAGE_MAP()

KvMaskWndOverlay::KvMaskWndOverlay() : KvMaskWndBase({source, 804}) {}

KvMaskWndOverlay::~KvMaskWndOverlay() = default;

void KvMaskWndOverlay::Init(const KvAOI* background, KvAOI8* mask)
{
    initialised = 0;
    MakePensAndBrushes();
    view = GetAOIBaseViewWnd();
    CDC& output = *view->GetOutputDevice();
    TakeMask(mask);
    SetBackgroundAOI(background);
    ConnectView();
    for (KvMaskRaster* raster : {&userMaskDC, &systemMaskDC})
    {
        raster->Create(output, maskSize);
        raster->SelectDefaults(*nullPen, blackBrush);
    }
    LoadLayers(*mask);
    initialised = 1;
}

void KvMaskWndOverlay::LoadLayers(const KvAOI8& mask)
{
    DrawLayers(mask, userMaskDC, systemMaskDC);
    UpdateRasteredDC(userMaskDC, userBrush);
    UpdateRasteredDC(systemMaskDC, systemBrush);
}

void KvMaskWndOverlay::UpdateMaskDC(KvAOI8* mask)
{
    if (!initialised)
        return;
    LoadLayers(*mask);
    Repaint();
}

void KvMaskWndOverlay::UpdateRasteredDC(CDC& mask, CBrush& colour)
{
    DrawWith(mask, *nullPen, colour,
             [&]
             {
                 mask.SetROP2(R2_MASKPEN);
                 mask.Rectangle(maskRect.left, maskRect.top, maskRect.right + 1, maskRect.bottom + 1);
             });
}

void KvMaskWndOverlay::ShowUserRaster(const CRect&)
{
    UpdateRasteredDC(userMaskDC, userBrush);
    Repaint();
}

void KvMaskWndOverlay::Repaint()
{
    if (!initialised)
        return;
    RasterToAOI(userMaskDC, maskAOI, UserBit);
    if (showSystemMask)
        RasterToAOI(systemMaskDC, maskAOI, SystemBit);
    else
        KvLLogic().And(maskAOI, static_cast<unsigned long>(-65), maskAOI);
    InvalidateView();
}

void KvMaskWndOverlay::ShowSystemMask()
{
    if (showSystemMask)
        return;
    showSystemMask = 1;
    Repaint();
}

void KvMaskWndOverlay::HideSystemMask()
{
    if (!showSystemMask)
        return;
    showSystemMask = 0;
    Repaint();
}

void KvMaskWndOverlay::MaskToAOI()
{
    RasterToAOI(userMaskDC, maskAOI, UserBit);
    RasterToAOI(systemMaskDC, maskAOI, SystemBit);
}

long long KvMaskWndOverlay::PaintHdl(KvAOIBaseViewWnd*)
{
    RedrawOpenPolygon();
    return 1;
}
