// Sections, bitmaps' bits, and the ways between bitmaps and callers' buffers.
#include "canvas.h"

#include <gtest/gtest.h>

#include <cstring>

namespace
{

struct Info
{
    BITMAPINFOHEADER header{};
    RGBQUAD colors[256] = {};

    Info(int width, int height, int depth)
    {
        header = {sizeof header, width, height, 1, WORD(depth), BI_RGB, 0, 0, 0, 0, 0};
    }
    BITMAPINFO* get() { return reinterpret_cast<BITMAPINFO*>(this); }
};

} // namespace

TEST(Sections, AreRefusedForHeadersThatMakeNoSense)
{
    void* bits = &bits;
    const auto make = [&](Info info, UINT usage = DIB_RGB_COLORS)
    { return CreateDIBSection(nullptr, info.get(), usage, &bits, nullptr, 0); };
    EXPECT_EQ(make(Info(0, 5, 8)), nullptr);
    EXPECT_EQ(make(Info(5, 0, 8)), nullptr);
    EXPECT_EQ(make(Info(-5, 5, 8)), nullptr);
    EXPECT_EQ(make(Info(5, INT32_MIN, 8)), nullptr);
    EXPECT_EQ(make(Info(5, 5, 7)), nullptr);
    EXPECT_EQ(make(Info(INT32_MAX, INT32_MAX, 32)), nullptr);
    EXPECT_EQ(make(Info(100000, 100000, 8)), nullptr);
    EXPECT_EQ(make(Info(5, 5, 8), 2), nullptr);
    Info small(5, 5, 8), planes(5, 5, 8), packed(5, 5, 8);
    small.header.biSize = 39;
    planes.header.biPlanes = 0;
    packed.header.biCompression = BI_RLE8;
    for (const Info& info : {small, planes, packed})
        EXPECT_EQ(make(info), nullptr);
    EXPECT_EQ(CreateDIBSection(nullptr, nullptr, 0, &bits, nullptr, 0), nullptr);
    EXPECT_EQ(bits, nullptr);
}

TEST(Sections, OfAllOfAnAoisSizeCostOnlyWhatIsDrawn)
{
    Canvas c(32767, 32767, 8);
    ASSERT_NE(c.bits, nullptr);
    EXPECT_TRUE(Rectangle(c.dc, 32000, 32000, 32010, 32010));
    EXPECT_EQ(c.at(32005, 32005), 255u);
}

TEST(Sections, TheirTableCanBeReadAndChanged)
{
    Canvas c(4, 4);
    RGBQUAD colors[3] = {};
    EXPECT_EQ(GetDIBColorTable(c.dc, 254, 10, colors), 2u);
    EXPECT_EQ(colors[1].rgbRed, 255);
    EXPECT_EQ(GetDIBColorTable(c.dc, 256, 1, colors), 0u);
    const RGBQUAD red[] = {{0, 0, 255, 0}};
    EXPECT_EQ(SetDIBColorTable(c.dc, 7, 1, red), 1u);
    c.bits[0] = 7;
    EXPECT_EQ(GetPixel(c.dc, 0, 0), RGB(255, 0, 0));
    Canvas deep(4, 4, 32);
    EXPECT_EQ(GetDIBColorTable(deep.dc, 0, 1, colors), 0u);
}

TEST(GetDIBits, TellsTheSizeFirst)
{
    Canvas c(33, 5, 32);
    Info info(33, -5, 1);
    EXPECT_EQ(GetDIBits(c.dc, c.bitmap, 0, 5, nullptr, info.get(), DIB_RGB_COLORS), 1);
    EXPECT_EQ(info.header.biSizeImage, 40u);
}

TEST(GetDIBits, PadsRowsWithZeros)
{
    Canvas c(3, 2, 8);
    PatBlt(c.dc, 0, 0, 3, 2, WHITENESS);
    Info info(3, -2, 8);
    std::vector<std::uint8_t> bits(8, 0xCD);
    EXPECT_EQ(GetDIBits(c.dc, c.bitmap, 0, 2, bits.data(), info.get(), DIB_RGB_COLORS), 2);
    EXPECT_EQ(bits, (std::vector<std::uint8_t>{255, 255, 255, 0, 255, 255, 255, 0}));
}

TEST(GetDIBits, GivesSomeOfTheLinesFromTheBottom)
{
    Canvas c(1, 4, 8);
    for (int y = 0; y < 4; ++y)
        c.bits[y * c.stride] = std::uint8_t(y + 1);
    Info up(1, 4, 8), down(1, -4, 8);
    std::vector<std::uint8_t> bits(16, 0);
    EXPECT_EQ(GetDIBits(c.dc, c.bitmap, 1, 2, bits.data(), up.get(), DIB_RGB_COLORS), 2);
    EXPECT_EQ(bits[0], 3);
    EXPECT_EQ(bits[4], 2);
    EXPECT_EQ(GetDIBits(c.dc, c.bitmap, 1, 2, bits.data(), down.get(), DIB_RGB_COLORS), 2);
    EXPECT_EQ(bits[0], 2);
    EXPECT_EQ(bits[4], 3);
    EXPECT_EQ(GetDIBits(c.dc, c.bitmap, 4, 2, bits.data(), up.get(), DIB_RGB_COLORS), 0);
}

TEST(GetDIBits, FailsWithoutContextBitmapOrHeader)
{
    Canvas c(4, 4, 8);
    Info info(4, 4, 8);
    std::vector<std::uint8_t> bits(64);
    SetLastError(0);
    EXPECT_EQ(GetDIBits(nullptr, c.bitmap, 0, 4, bits.data(), info.get(), DIB_RGB_COLORS), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(GetDIBits(c.dc, nullptr, 0, 4, bits.data(), info.get(), DIB_RGB_COLORS), 0);
    SetLastError(0);
    EXPECT_EQ(GetDIBits(c.dc, c.bitmap, 0, 4, bits.data(), nullptr, DIB_RGB_COLORS), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST(SetDIBits, ConvertsEveryDepth)
{
    for (const int depth : {1, 4, 8, 16, 24, 32})
    {
        Canvas c(2, 1, 32);
        Info info(2, 1, depth);
        info.colors[1] = {10, 20, 30, 0}; // blue, green, red
        std::uint8_t bits[8] = {};
        switch (depth)
        {
        case 1:
            bits[0] = 0x40;
            break;
        case 4:
            bits[0] = 0x01;
            break;
        case 8:
            bits[1] = 1;
            break;
        case 16:
            bits[2] = 0x1F; // five bits of blue
            break;
        case 24:
            bits[3] = 10, bits[4] = 20, bits[5] = 30;
            break;
        default:
            bits[4] = 10, bits[5] = 20, bits[6] = 30;
        }
        EXPECT_EQ(SetDIBits(c.dc, c.bitmap, 0, 1, bits, info.get(), DIB_RGB_COLORS), 1);
        EXPECT_EQ(c.at(0, 0), 0u);
        EXPECT_EQ(c.at(1, 0), depth == 16 ? 0x0000FFu : 0x1E140Au) << depth;
    }
}

TEST(StretchDIBits, DrawsThroughTheMapping)
{
    Canvas c(4, 4, 32);
    SetMapMode(c.dc, MM_ANISOTROPIC);
    SetViewportExtEx(c.dc, 2, 2, nullptr);
    Info info(2, -2, 32);
    const std::uint32_t bits[] = {1, 2, 3, 4};
    EXPECT_EQ(StretchDIBits(c.dc, 0, 0, 2, 2, 0, 0, 2, 2, bits, info.get(), DIB_RGB_COLORS, SRCCOPY), 2);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            EXPECT_EQ(c.at(x, y), bits[y / 2 * 2 + x / 2]);
}

TEST(StretchDIBits, CountsSourceRowsFromTheBottom)
{
    for (const int sign : {1, -1})
    {
        Canvas c(1, 1, 32);
        Info info(1, 2 * sign, 32);
        const std::uint32_t bits[] = {5, 6};
        EXPECT_EQ(StretchDIBits(c.dc, 0, 0, 1, 1, 0, 0, 1, 1, bits, info.get(), DIB_RGB_COLORS, SRCCOPY), 2);
        EXPECT_EQ(c.at(0, 0), sign > 0 ? 5u : 6u);
    }
}

TEST(SetDIBitsToDevice, DrawsAStripOfAPicture)
{
    Canvas c(1, 4, 32);
    Info info(1, 4, 32);
    const std::uint32_t strip[] = {7, 8}; // lines 1 and 2 from the bottom
    EXPECT_EQ(SetDIBitsToDevice(c.dc, 0, 0, 1, 4, 0, 0, 1, 2, strip, info.get(), DIB_RGB_COLORS), 2);
    EXPECT_EQ(c.at(0, 0), 0u);
    EXPECT_EQ(c.at(0, 1), 8u);
    EXPECT_EQ(c.at(0, 2), 7u);
    EXPECT_EQ(c.at(0, 3), 0u);
}

TEST(BitmapBits, AreRowsPaddedToTwoBytes)
{
    const std::uint8_t rows[] = {1, 2, 3, 0, 4, 5, 6, 0};
    const HBITMAP bitmap = CreateBitmap(3, 2, 1, 8, rows);
    std::uint8_t read[8] = {};
    EXPECT_EQ(GetBitmapBits(bitmap, 0, nullptr), 8);
    EXPECT_EQ(GetBitmapBits(bitmap, 8, read), 8);
    EXPECT_EQ(std::memcmp(rows, read, 8), 0);
    EXPECT_EQ(SetBitmapBits(bitmap, 2, rows + 4), 2);
    GetBitmapBits(bitmap, 8, read);
    EXPECT_EQ(read[0], 4);
    EXPECT_EQ(read[2], 3);
    DeleteObject(bitmap);
}

TEST(CreateDIBitmap, MakesADeviceBitmapOfAPicture)
{
    Canvas c(4, 4, 32);
    Info info(2, 1, 4);
    info.colors[5] = {0, 0, 255, 0};
    const std::uint8_t bits[4] = {0x05};
    const HBITMAP bitmap = CreateDIBitmap(c.dc, &info.header, CBM_INIT, bits, info.get(), DIB_RGB_COLORS);
    ASSERT_NE(bitmap, nullptr);
    const HDC dc = CreateCompatibleDC(c.dc);
    SelectObject(dc, bitmap);
    EXPECT_EQ(GetPixel(dc, 1, 0), RGB(255, 0, 0));
    EXPECT_EQ(GetPixel(dc, 0, 0), RGB(0, 0, 0));
    DeleteDC(dc);
    DeleteObject(bitmap);
}
