// Memory contexts that owe their picture: whatever is drawn, read or copied, the pixels are those of a context into
// which the picture was drawn at once.
#include "contracts/image/KvAOITypes.h"
#include "contracts/image/KvMemDC.h"
#include "platform/afx/dcguards.h"

#include <gtest/gtest.h>

#include <random>

namespace
{
using namespace KvN;

std::mt19937 random_(90210);
int Pick(int low, int high)
{
    return std::uniform_int_distribution<>(low, high)(random_);
}
bool OneIn(int n)
{
    return Pick(1, n) == 1;
}

// A context with a bitmap into which everything is drawn at once.
class PlainDC : public CDC
{
public:
    PlainDC(CDC* like, int width, int height)
    {
        CreateCompatibleDC(like);
        bitmap.CreateCompatibleBitmap(like, width, height);
        former = SelectObject(bitmap.GetSafeHandle());
    }
    ~PlainDC() override { SelectObject(former); }

private:
    CBitmap bitmap;
    HGDIOBJ former;
};

constexpr int screenWidth = 120;
constexpr int screenHeight = 90;

class Screen : public PlainDC
{
public:
    static CDC* Like()
    {
        static CDC* dc = []
        {
            auto* made = new CDC;
            BITMAPINFO info{};
            info.bmiHeader = {sizeof(BITMAPINFOHEADER), 8, -8, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
            void* bits = nullptr;
            made->CreateCompatibleDC(nullptr);
            made->SelectObject(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
            return made;
        }();
        return dc;
    }

    Screen() : PlainDC(Like(), screenWidth, screenHeight) { PatBlt(0, 0, screenWidth, screenHeight, WHITENESS); }
};

// All pixels of a context's bitmap, from its row 0.
std::vector<COLORREF> PixelsOf(CDC& dc, int width, int height)
{
    const SavedContext saved(dc);
    dc.SetViewportOrg(0, 0);
    std::vector<COLORREF> pixels;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            pixels.push_back(dc.GetPixel(x, y));
    return pixels;
}

// One picture and what lies over it.
struct Picture
{
    Picture(short width, short height) : grey({width, height}), color({width, height}), overlay({width, height})
    {
        for (short y = 0; y < height; ++y)
        {
            for (short x = 0; x < width; ++x)
            {
                grey.SetPoint({x, y}, static_cast<unsigned char>(Pick(0, 255)));
                color.SetPoint({x, y}, KvColor(Pick(0, 255), Pick(0, 255), Pick(0, 255)));
                overlay.SetPoint({x, y}, static_cast<unsigned char>(Pick(0, 2)));
            }
        }
        grey.SetOLut(pOLutMgr->GetLut(L"Rainbow"));
    }

    // `kind` as of one case; the same for both contexts.
    void Show(CDC& dc, int kind)
    {
        if (kind == 0)
            color.Show(&dc);
        else if (kind == 1)
            grey.ShowStretchedOverlay(&overlay, 0.5f, grey.AOIRect(), grey.AOIRect(), &dc);
        else if (kind == 2)
            grey.ShowStretched({5, 6, 20, 30}, {8, 3, 23, 27}, &dc);
        else
            grey.Show(&dc);
    }

    KvBufferAOI8 grey;
    KvBufferAOI32Color color;
    KvBufferAOI8 overlay;
};

// One call that draws, the same on both contexts.
struct Stroke
{
    int kind = Pick(0, 8);
    int rop = OneIn(3) ? R2_XORPEN : R2_COPYPEN;
    int pen = Pick(0, 4);
    int x = Pick(-10, 90), y = Pick(-10, 70), width = Pick(1, 40), height = Pick(1, 30);
    COLORREF ink = RGB(Pick(0, 255), Pick(0, 255), Pick(0, 255));

    void On(CDC& dc) const
    {
        const SavedContext saved(dc);
        CPen stroke(PS_SOLID, pen, ink);
        CBrush fill(ink ^ 0x00FFFF);
        dc.SelectObject(static_cast<HGDIOBJ>(stroke));
        dc.SelectObject(static_cast<HGDIOBJ>(fill));
        dc.SetROP2(rop);
        const POINT corners[] = {{x, y}, {x + width, y + height / 2}, {x + width / 2, y + height}};
        switch (kind)
        {
        case 0:
            dc.Polygon(corners, 3);
            break;
        case 1:
            dc.Polyline(corners, 3);
            break;
        case 2:
            dc.Ellipse(x, y, x + width, y + height);
            break;
        case 3:
            dc.Rectangle(x, y, x + width, y + height);
            break;
        case 4:
            dc.SetPixelV(x, y, ink);
            break;
        case 5:
            dc.PatBlt(x, y, width, height, rop == R2_XORPEN ? PATINVERT : PATCOPY);
            break;
        case 6:
            dc.TextOut(x, y, CString("Kv 7"));
            break;
        case 7:
            dc.BitBlt(x + 5, y + 3, width, height, &dc, x, y, SRCCOPY);
            break;
        default:
            dc.MoveTo(x, y);
            dc.LineTo(x + width, y + height);
        }
    }
};

void Map(CDC& dc, int near, int numerator, int denominator)
{
    dc.SetMapMode(MM_ANISOTROPIC);
    dc.SetWindowExt(denominator, denominator);
    dc.SetViewportExt(numerator, numerator);
    dc.SetViewportOrg(near, near / 2);
    dc.SetStretchBltMode(COLORONCOLOR);
}
} // namespace

TEST(PendingPicture, RandomCallsGiveThePixelsOfAPictureDrawnAtOnce)
{
    for (int i = 0; i < 250; ++i)
    {
        Picture picture(static_cast<short>(Pick(30, 100)), static_cast<short>(Pick(30, 80)));
        const int width = Pick(20, 110), height = Pick(20, 90);
        KvMemDC memory(Screen::Like(), width, height);
        PlainDC plain(Screen::Like(), width, height);
        const int originX = -Pick(0, 20), originY = -Pick(0, 20);
        const bool clipped = OneIn(3);
        const CRect clip(Pick(0, 30), Pick(0, 30), Pick(40, 90), Pick(40, 80));
        for (CDC* dc : {static_cast<CDC*>(&memory), static_cast<CDC*>(&plain)})
        {
            dc->SetViewportOrg(originX, originY);
            if (clipped)
                dc->IntersectClipRect(clip);
        }
        for (int shown = Pick(1, 2); shown > 0; --shown)
        {
            const int kind = Pick(0, 5);
            picture.Show(memory, kind);
            picture.Show(plain, kind);
            for (int strokes = Pick(0, 3); strokes > 0; --strokes)
            {
                const Stroke stroke;
                stroke.On(memory);
                stroke.On(plain);
            }
            if (OneIn(4))
            {
                const int x = Pick(0, 60), y = Pick(0, 60);
                EXPECT_EQ(memory.GetPixel(x, y), plain.GetPixel(x, y));
            }
            if (OneIn(4))
                picture.grey.SetPoint({static_cast<short>(Pick(0, 29)), static_cast<short>(Pick(0, 29))}, 7);
            if (OneIn(6))
                picture.grey.SetOLut(pOLutMgr->GetLut(L"Hot"));
        }
        Screen expected, actual;
        const int near = -Pick(0, 60);
        const int numerator = Pick(1, 9), denominator = Pick(1, 5);
        KvTRectangle<short> area(static_cast<short>(Pick(0, 20)), static_cast<short>(Pick(0, 20)),
                                 static_cast<short>(Pick(21, 110)), static_cast<short>(Pick(21, 90)));
        for (CDC* dc : {static_cast<CDC*>(&expected), static_cast<CDC*>(&actual)})
        {
            Map(*dc, near, numerator, denominator);
            if (i % 5 == 0)
                dc->ExcludeClipRect(10, 10, 30, 20);
        }
        memory.Paint(&actual, area);
        expected.BitBlt(area.left, area.top, area.Width(), area.Height(), &plain, area.left, area.top, SRCCOPY);
        ASSERT_EQ(PixelsOf(actual, screenWidth, screenHeight), PixelsOf(expected, screenWidth, screenHeight))
            << "case " << i << " at " << numerator << "/" << denominator;
        // The copy leaves the picture as it was.
        memory.SelectClipRgn(nullptr);
        plain.SelectClipRgn(nullptr);
        ASSERT_EQ(PixelsOf(memory, width, height), PixelsOf(plain, width, height)) << "case " << i;
    }
}

TEST(PendingPicture, ShowsThePixelsOfTheTimeWhenItWasDrawn)
{
    KvBufferAOI8 aoi({40, 40});
    KvMemDC memory(Screen::Like(), 40, 40);
    aoi.Show(&memory);
    aoi.SetPoint({3, 3}, 255);
    EXPECT_EQ(memory.GetPixel(3, 3), 0u);
    aoi.Show(&memory);
    *aoi.GetRowPointer(3) = 9;
    aoi.Resize(KvTSize<short>(2, 2));
    EXPECT_EQ(memory.GetPixel(3, 3), 0xFFFFFFu);
    EXPECT_EQ(memory.GetPixel(0, 3), 0u);
}

TEST(PendingPicture, OutlivesItsImage)
{
    KvMemDC memory(Screen::Like(), 40, 40);
    {
        KvBufferAOI8 aoi({40, 40});
        aoi.SetPoint({3, 3}, 255);
        aoi.Show(&memory);
    }
    EXPECT_EQ(memory.GetPixel(3, 3), 0xFFFFFFu);
}

TEST(PendingPicture, LeavesWhatItDoesNotCover)
{
    KvBufferAOI8 large({40, 40}), small({10, 10});
    large.SetPoint({20, 20}, 255);
    KvMemDC memory(Screen::Like(), 40, 40);
    large.Show(&memory);
    small.Show(&memory);
    EXPECT_EQ(memory.GetPixel(20, 20), 0xFFFFFFu);
    EXPECT_EQ(memory.GetPixel(5, 5), 0u);
}

TEST(PendingPicture, AClearedContextIsBlack)
{
    KvMemDC memory(Screen::Like(), 40, 40);
    memory.PatBlt(0, 0, 40, 40, WHITENESS);
    memory.Clear();
    Screen screen;
    KvTRectangle<short> area(0, 0, 39, 39);
    memory.Paint(&screen, area);
    EXPECT_EQ(screen.GetPixel(20, 20), 0u);
    EXPECT_EQ(screen.GetPixel(60, 20), 0xFFFFFFu);
    EXPECT_EQ(memory.GetPixel(39, 39), 0u);
}

TEST(PendingPicture, BelongsToTheBitmapThatItWasDrawnOn)
{
    KvBufferAOI8 aoi({40, 40});
    aoi.SetPoint({3, 3}, 255);
    KvMemDC memory(Screen::Like(), 40, 40);
    aoi.Show(&memory);
    CBitmap other;
    other.CreateCompatibleBitmap(Screen::Like(), 40, 40);
    const HGDIOBJ own = memory.SelectObject(other.GetSafeHandle());
    aoi.Show(&memory);
    EXPECT_EQ(memory.GetPixel(3, 3), 0xFFFFFFu);
    Screen screen;
    KvTRectangle<short> area(0, 0, 39, 39);
    memory.Paint(&screen, area);
    EXPECT_EQ(screen.GetPixel(3, 3), 0xFFFFFFu);
    memory.SelectObject(own);
    EXPECT_EQ(memory.GetPixel(3, 3), 0xFFFFFFu);
}

TEST(PendingPicture, TakesMemoryWhereSomebodyDrew)
{
    KvBufferAOI8 aoi({2000, 2000});
    KvMemDC memory(Screen::Like(), 2000, 2000);
    for (int i = 0; i < 3; ++i)
    {
        aoi.Show(&memory);
        memory.SetPixelV(1000, 1000, 0);
        memory.SetPixelV(1001, 1000, 0);
        EXPECT_GT(memory.PixelsInMemory(), 0);
        EXPECT_LT(memory.PixelsInMemory(), 2000);
    }
    memory.MoveTo(0, 0);
    memory.LineTo(2000, 2000);
    EXPECT_LT(memory.PixelsInMemory(), 2000) << "nobody has looked at the line yet";
    memory.GetPixel(1000, 500);
    EXPECT_LT(memory.PixelsInMemory(), 10000) << "which is elsewhere";
    memory.PatBlt(0, 0, 2000, 2000, DSTINVERT);
    EXPECT_GE(memory.PixelsInMemory(), 2000 * 2000);
}

TEST(PendingPicture, KeepsNoEndOfWhatIsDrawn)
{
    constexpr int size = 1500;
    KvBufferAOI8 aoi({size, size});
    KvMemDC memory(Screen::Like(), size, size);
    PlainDC plain(Screen::Like(), size, size);
    std::vector<CBrush> fills(3);
    for (size_t i = 0; i < fills.size(); ++i)
        fills[i].CreateSolidBrush(RGB(80 * i, 40, 255 - 80 * i));
    Screen actual, expected;
    KvTRectangle<short> area(0, 0, size - 1, size - 1);
    for (CDC* dc : {static_cast<CDC*>(&memory), static_cast<CDC*>(&plain)})
    {
        aoi.Show(dc);
        const SavedContext saved(*dc);
        // Over a million spans.
        for (int i = 0; i < 300; ++i)
        {
            dc->SelectObject(static_cast<HGDIOBJ>(fills[static_cast<size_t>(i) % 3]));
            dc->Ellipse(i, 2 * i / 3, size - i, size);
        }
    }
    EXPECT_GT(memory.PixelsInMemory(), size * size / 2) << "drawn to make room";
    for (CDC* dc : {static_cast<CDC*>(&expected), static_cast<CDC*>(&actual)})
        Map(*dc, 0, 1, 16);
    memory.Paint(&actual, area);
    expected.BitBlt(0, 0, size, size, &plain, 0, 0, SRCCOPY);
    EXPECT_EQ(PixelsOf(actual, screenWidth, screenHeight), PixelsOf(expected, screenWidth, screenHeight));
    EXPECT_EQ(PixelsOf(memory, size, size), PixelsOf(plain, size, size));
}
