// Building bitmaps in memory.
#include "contracts/image/KvDIB.h"

#include <gtest/gtest.h>

#include <cstring>

namespace
{
using namespace KvN;

const unsigned char* BytesOf(const KvDIB& dib)
{
    return static_cast<const unsigned char*>(dib.GetBitsPtr());
}
} // namespace

TEST(DIB, IsEmptyAtFirst)
{
    const KvDIB dib;
    EXPECT_EQ(dib.GetBitmapInfoPtr(), nullptr);
    EXPECT_EQ(dib.GetBitsPtr(), nullptr);
    EXPECT_EQ(dib.StorageWidth(), 0);
    EXPECT_EQ(dib.Width(), 0);
    EXPECT_EQ(dib.Height(), 0);
}

TEST(DIB, StoresPaddedRowsBottomUpWithItsTable)
{
    KvTBuf2D<unsigned char> pixels(5, 2);
    for (int i = 0; i < 10; ++i)
        pixels.data[i] = static_cast<unsigned char>(i + 1);
    KvDIB dib;
    ASSERT_TRUE(dib.Create(pixels, pOLutMgr->GetLut(L"Mask")));
    EXPECT_EQ(dib.StorageWidth(), 8);
    EXPECT_EQ(dib.Width(), 5);
    EXPECT_EQ(dib.Height(), 2);
    EXPECT_EQ(dib.GetBitmapInfoPtr()->bmiHeader.biBitCount, 8);
    EXPECT_EQ(dib.GetBitmapInfoPtr()->bmiHeader.biHeight, 2);
    EXPECT_EQ(dib.GetBitmapInfoPtr()->bmiColors[0x80].rgbRed, 255);
    const unsigned char expected[] = {6, 7, 8, 9, 10, 0, 0, 0, 1, 2, 3, 4, 5, 0, 0, 0};
    EXPECT_EQ(std::memcmp(BytesOf(dib), expected, sizeof expected), 0);
}

TEST(DIB, WithoutTableIsGrey)
{
    KvDIB dib;
    ASSERT_TRUE(dib.Create(KvTBuf2D<unsigned char>(1, 1), nullptr));
    EXPECT_EQ(dib.GetBitmapInfoPtr()->bmiColors[200].rgbGreen, 200);
    EXPECT_FALSE(dib.Create(KvTBuf2D<unsigned char>(), nullptr));
    EXPECT_EQ(dib.Width(), 1) << "stays as it was";
}

TEST(DIB, CopiesHeaderColoursAndPixels)
{
    struct
    {
        BITMAPINFOHEADER header{};
        RGBQUAD colors[2] = {{1, 2, 3, 0}, {4, 5, 6, 0}};
    } info;
    info.header = {sizeof(BITMAPINFOHEADER), 9, -2, 1, 1, BI_RGB, 0, 0, 0, 2, 0};
    const unsigned char bits[] = {0xAA, 0x80, 0, 0, 0x55, 0, 0, 0};
    KvDIB dib;
    ASSERT_TRUE(dib.CreateFromBits(reinterpret_cast<const BITMAPINFO*>(&info), bits));
    EXPECT_EQ(dib.StorageWidth(), 4);
    EXPECT_EQ(dib.Height(), 2);
    EXPECT_EQ(dib.GetBitmapInfoPtr()->bmiHeader.biHeight, -2);
    EXPECT_EQ(dib.GetBitmapInfoPtr()->bmiColors[1].rgbRed, 6);
    EXPECT_EQ(std::memcmp(BytesOf(dib), bits, sizeof bits), 0);
}

TEST(DIB, RefusesWhatIsNoPlainBitmap)
{
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), 1, 1, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    const unsigned char bits[4] = {};
    KvDIB dib;
    EXPECT_TRUE(dib.CreateFromBits(&info, bits));
    EXPECT_FALSE(dib.CreateFromBits(nullptr, bits));
    EXPECT_FALSE(dib.CreateFromBits(&info, nullptr));
    const auto refused = [&](auto change)
    {
        BITMAPINFO changed = info;
        change(changed.bmiHeader);
        return !dib.CreateFromBits(&changed, bits);
    };
    EXPECT_TRUE(refused([](BITMAPINFOHEADER& h) { h.biWidth = 0; }));
    EXPECT_TRUE(refused([](BITMAPINFOHEADER& h) { h.biWidth = -1; }));
    EXPECT_TRUE(refused([](BITMAPINFOHEADER& h) { h.biHeight = 0; }));
    EXPECT_TRUE(refused([](BITMAPINFOHEADER& h) { h.biBitCount = 16; }));
    EXPECT_TRUE(refused([](BITMAPINFOHEADER& h) { h.biCompression = BI_RLE8; }));
    EXPECT_TRUE(refused([](BITMAPINFOHEADER& h) { h.biSize = 12; }));
    EXPECT_EQ(dib.Width(), 1);
}
