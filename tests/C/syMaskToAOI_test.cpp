// The 1-bit image of a context in the top bit of a mask.
#include "C/syMaskToAOI.h"

#include "contracts/basics/KvException.h"
#include "contracts/image/KvMemDC.h"

#include <gtest/gtest.h>

namespace
{
using namespace KvN;

// A context of 32 bits, black but for every pixel whose x + y is even.
class Checkered : public CDC
{
public:
    Checkered(int width, int height)
    {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        CreateCompatibleDC(nullptr);
        bitmap.Attach(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        former = SelectObject(bitmap.GetSafeHandle());
        PatBlt(0, 0, width, height, BLACKNESS);
        for (int y = 0; y < height; ++y)
        {
            for (int x = y % 2; x < width; x += 2)
                SetPixelV(x, y, 0xFFFFFF);
        }
    }
    ~Checkered() override { SelectObject(former); }

private:
    CBitmap bitmap;
    HGDIOBJ former;
};
} // namespace

TEST(MaskToAOI, KeepsTheLowSevenBits)
{
    for (const short width : {1, 7, 8, 9, 31, 32, 33, 64, 100})
    {
        Checkered dc(width, 3);
        KvBufferAOI8 aoi({width, 3});
        for (short y = 0; y < 3; ++y)
            std::fill_n(aoi.GetRowPointer(y), width, static_cast<unsigned char>(y == 2 ? 0xFF : 0x55));
        syMaskToAOI_MaskToAOI(&dc, &aoi);
        for (short y = 0; y < 3; ++y)
        {
            for (short x = 0; x < width; ++x)
            {
                const int low = y == 2 ? 0x7F : 0x55;
                EXPECT_EQ(aoi.GetPoint(x, y), (x + y) % 2 == 0 ? low | 0x80 : low) << width << ": " << x << ", " << y;
            }
        }
    }
}

TEST(MaskToAOI, WithoutAContextThrowsAndLeavesTheAOI)
{
    CDC none;
    KvBufferAOI8 aoi({2, 2});
    aoi.SetPoint({0, 0}, 0xC3);
    try
    {
        syMaskToAOI_MaskToAOI(&none, &aoi);
        ADD_FAILURE() << "no failure";
    }
    catch (KvGDIException* failure)
    {
        EXPECT_EQ(failure->File(), KvString(L"C/syMaskToAOI"));
        EXPECT_EQ(failure->Line(), 101u);
        EXPECT_EQ(failure->Function(), KvString(L"GetDIBits"));
        EXPECT_NE(failure->LastError(), 0u);
        failure->Delete();
    }
    EXPECT_EQ(aoi.GetPoint(0, 0), 0xC3);
}
