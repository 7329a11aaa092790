// Building a bitmap in memory, and drawing it.
#include "contracts/image/KvDIB.h"

#include "contracts/basics/KvException.h"
#include "platform/afx/dcguards.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace KvN
{

namespace
{

constexpr size_t headerQuads = sizeof(BITMAPINFOHEADER) / sizeof(RGBQUAD);

size_t RowBytes(const BITMAPINFOHEADER& header)
{
    return (static_cast<size_t>(header.biWidth) * header.biBitCount + 31) / 32 * 4;
}

size_t RowCount(const BITMAPINFOHEADER& header)
{
    return static_cast<size_t>(std::llabs(static_cast<long long>(header.biHeight)));
}

size_t ColorCount(const BITMAPINFOHEADER& header)
{
    if (header.biBitCount > 8)
        return 0;
    const size_t most = size_t(1) << header.biBitCount;
    return header.biClrUsed > 0 && header.biClrUsed < most ? header.biClrUsed : most;
}

bool IsUsable(const BITMAPINFOHEADER& header)
{
    const WORD depth = header.biBitCount;
    return header.biSize >= sizeof header && header.biWidth > 0 && header.biHeight != 0 &&
           header.biCompression == BI_RGB && (depth == 1 || depth == 4 || depth == 8 || depth == 24 || depth == 32);
}

} // namespace

bool KvDIB::Create(const KvTBuf2D<unsigned char>& pixels, const KvOLut* lut)
{
    if (!pixels.data)
        return false;
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = pixels.width;
    header.biHeight = pixels.height;
    header.biPlanes = 1;
    header.biBitCount = 8;
    const size_t stride = RowBytes(header);
    header.biSizeImage = static_cast<DWORD>(stride * RowCount(header));
    std::vector<RGBQUAD> newInfo(headerQuads + 256);
    std::memcpy(newInfo.data(), &header, sizeof header);
    const KvLut::Colors& colors = (lut ? lut : pOLutMgr->GetLut(L"Grey"))->GetColors();
    std::memcpy(newInfo.data() + headerQuads, colors.data(), sizeof colors);
    std::vector<unsigned char> newBits(stride * RowCount(header));
    for (int y = 0; y < pixels.height; ++y)
        std::copy_n(pixels.Row(y), pixels.width, newBits.data() + stride * static_cast<size_t>(pixels.height - 1 - y));
    info = std::move(newInfo);
    bits = std::move(newBits);
    return true;
}

bool KvDIB::CreateFromBits(const BITMAPINFO* from, const void* pixels)
{
    if (!from || !pixels || !IsUsable(from->bmiHeader))
        return false;
    BITMAPINFOHEADER header = from->bmiHeader;
    const size_t colors = ColorCount(header);
    const auto* bytes = static_cast<const unsigned char*>(pixels);
    std::vector<unsigned char> newBits(bytes, bytes + RowBytes(header) * RowCount(header));
    std::vector<RGBQUAD> newInfo(headerQuads + std::max<size_t>(colors, 1));
    const auto* table = reinterpret_cast<const unsigned char*>(from) + header.biSize;
    std::memcpy(newInfo.data() + headerQuads, table, colors * sizeof(RGBQUAD));
    header.biSize = sizeof header;
    header.biClrUsed = static_cast<DWORD>(colors);
    std::memcpy(newInfo.data(), &header, sizeof header);
    info = std::move(newInfo);
    bits = std::move(newBits);
    return true;
}

void KvDIB::ShowStretched(const KvTRectangle<short>& source, const KvTRectangle<short>& destination, CDC* dc)
{
    if (info.empty())
        return;
    void* pixels = nullptr;
    CBitmap section;
    CDC memory;
    if (!section.Attach(::CreateDIBSection(nullptr, GetBitmapInfoPtr(), DIB_RGB_COLORS, &pixels, nullptr, 0)))
        throw new KvGDIException(L"contracts/image/KvDIB", 101, L"CreateDIBSection", ::GetLastError());
    if (!memory.CreateCompatibleDC(nullptr))
        throw new KvGDIException(L"contracts/image/KvDIB", 102, L"CreateCompatibleDC", ::GetLastError());
    std::memcpy(pixels, bits.data(), bits.size());
    const SelectedObject selected(memory, section);
    const StretchMode mode(*dc, COLORONCOLOR);
    if (!dc->StretchBlt(destination.left, destination.top, destination.Width(), destination.Height(), &memory,
                        source.left, source.top, source.Width(), source.Height(), SRCCOPY))
        throw new KvGDIException(L"contracts/image/KvDIB", 103, L"StretchBlt", ::GetLastError());
}

long KvDIB::StorageWidth() const
{
    return info.empty() ? 0 : static_cast<long>(RowBytes(GetBitmapInfoPtr()->bmiHeader));
}

long KvDIB::Width() const
{
    return info.empty() ? 0 : GetBitmapInfoPtr()->bmiHeader.biWidth;
}

long KvDIB::Height() const
{
    return info.empty() ? 0 : static_cast<long>(RowCount(GetBitmapInfoPtr()->bmiHeader));
}

} // namespace KvN
