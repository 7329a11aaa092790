// Reading of a context's bitmap by rows of bits.
#include "C/syMaskToAOI.h"

#include "contracts/basics/KvException.h"
#include "platform/afx/dc.h"

#include <array>

using namespace KvN;

namespace
{

int ReadBits(CDC& dc, HBITMAP bitmap, int height, void* bits, BITMAPINFO* info, unsigned long line)
{
    const int result = ::GetDIBits(dc.m_hDC, bitmap, 0, static_cast<UINT>(height), bits, info, DIB_RGB_COLORS);
    if (result == 0)
        throw new KvGDIException(L"C/syMaskToAOI", line, L"GetDIBits", ::GetLastError());
    return result;
}

// One row of bits, the leftmost pixel in the highest bit, into the top bits of a row of bytes.
void TakeBits(const unsigned char* bits, KvTBuf1D<unsigned char>& row)
{
    static constexpr std::array<unsigned char, 8> places = {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01};
    for (int x = 0; x < row.size; ++x)
    {
        const bool set = bits[x / 8] & places[static_cast<size_t>(x % 8)];
        row[x] = static_cast<unsigned char>(set ? row[x] | 0x80 : row[x] & 0x7F);
    }
}

} // namespace

void syMaskToAOI_MaskToAOI(CDC* dc, KvAOI8* aoi)
{
    const KvTSize<short> size = aoi->AOISize();
    const auto bitmap = static_cast<HBITMAP>(::GetCurrentObject(dc->m_hAttribDC, OBJ_BITMAP));
    alignas(BITMAPINFO) unsigned char format[sizeof(BITMAPINFOHEADER) + 2 * sizeof(RGBQUAD)] = {};
    auto* info = reinterpret_cast<BITMAPINFO*>(format);
    info->bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info->bmiHeader.biWidth = size.width;
    info->bmiHeader.biHeight = -size.height; // rows from the top
    info->bmiHeader.biPlanes = 1;
    info->bmiHeader.biBitCount = 1;

    ReadBits(*dc, bitmap, size.height, nullptr, info, 101);
    const auto imageSize = static_cast<int>(info->bmiHeader.biSizeImage);
    KvTBuf1D<unsigned char> bits(imageSize);
    ReadBits(*dc, bitmap, size.height, bits.data, info, 111);
    const int stride = imageSize / size.height;
    KvTBuf1D<unsigned char> row(size.width);
    for (short y = 0; y < size.height; ++y)
    {
        aoi->GetRow(y, row);
        TakeBits(bits.data + static_cast<size_t>(stride) * static_cast<size_t>(y), row);
        aoi->SetRow(y, row);
    }
}
