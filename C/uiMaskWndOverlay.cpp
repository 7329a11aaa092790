// The mask window whose mask is the overlay of the view.
#include "C/uiMaskWndOverlay.h"

#include "C/uiAOIBaseViewWnd.h"
#include "C/uiMaskWndDrawing_p.h"

#include <algorithm>

using namespace KvN;

namespace
{

constexpr const char* source = "C/uiMaskWndOverlay";

struct PaletteInfo
{
    BITMAPINFOHEADER header;
    RGBQUAD colours[256];
};

// Rows from the top of a bitmap, counted from the lowest wanted one upwards; without `bits` only their size.
void CheckedGetDIBits(CDC& raster, HBITMAP bitmap, int start, int lines, void* bits, PaletteInfo& info,
                      unsigned long line)
{
    auto* const record = reinterpret_cast<BITMAPINFO*>(&info);
    if (::GetDIBits(raster, bitmap, static_cast<UINT>(start), static_cast<UINT>(lines), bits, record, DIB_RGB_COLORS) ==
        0)
        throw new KvGDIException(source, line, "GetDIBits", GetLastError());
}

// Sets `bit` in a row where `in` isn't 0, clears it elsewhere.
void TakeBit(const unsigned char* in, unsigned char bit, KvTBuf1D<unsigned char>& row)
{
    const auto keep = static_cast<unsigned char>(~bit);
    unsigned char* out = row.data;
    const int count = row.size; // by itself: bytes may alias the row's size
    for (int x = 0; x < count; ++x)
        out[x] = static_cast<unsigned char>((out[x] & keep) | (in[x] ? bit : 0));
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
    CheckedGetDIBits(raster, bitmap, 0, size.height, nullptr, info, 200);
    // A band of rows at a time stays in the cache. Rows that are read askew run into the next band: then it is all
    // rows.
    constexpr int bandRows = 64;
    const auto width = static_cast<std::size_t>(size.width);
    const std::size_t stride = (width + 3) / 4 * 4;
    const int rows = stride == width ? std::min<int>(bandRows, size.height) : size.height;
    KvTBuf1D<unsigned char> bits(static_cast<int>(stride) * rows);
    KvTBuf1D<unsigned char> row(size.width);
    int top = 0;
    do
    {
        const int bottom = std::min<int>(top + rows, size.height);
        CheckedGetDIBits(raster, bitmap, size.height - bottom, bottom - top, bits.data, info, 210);
        for (int y = top; y < bottom; ++y)
        {
            aoi->GetRow(static_cast<short>(y), row);
            // Required: the stride is the width, not the padded row, so widths that 4 does not divide are read askew.
            TakeBit(bits.data + static_cast<std::size_t>(y - top) * width, bit, row);
            aoi->SetRow(static_cast<short>(y), row);
        }
        top = bottom;
    } while (top < size.height);
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

void KvMaskWndOverlay::ShowUserRaster(const CRect& changed)
{
    {
        // All other pixels have their colour already.
        const SavedContext unclipped(userMaskDC);
        userMaskDC.IntersectClipRect(&changed);
        UpdateRasteredDC(userMaskDC, userBrush);
    }
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
