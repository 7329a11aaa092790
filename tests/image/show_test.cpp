// AOIs on the pixels of contexts: the same as a stretching blit of their bitmap, under any mapping and clip.
#include "contracts/basics/KvException.h"
#include "contracts/image/KvAOITypes.h"
#include "contracts/image/KvDIB.h"
#include "contracts/image/KvMemDC.h"
#include "contracts/image/KvOperators.h"
#include "platform/afx/dcguards.h"
#include "platform/gdi/surface.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>

namespace
{
using namespace KvN;

// A context on a section of 8 or 32 bits, filled with a pattern.
class Canvas : public CDC
{
public:
    Canvas(int width_, int height_, int depth, const KvOLut* lut = nullptr) : width(width_), height(height_)
    {
        KvDIB format;
        format.Create(KvTBuf2D<unsigned char>(1, 1), lut);
        BITMAPINFO& info = *format.GetBitmapInfoPtr();
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = height;
        info.bmiHeader.biBitCount = static_cast<WORD>(depth);
        info.bmiHeader.biSizeImage = 0;
        void* bits = nullptr;
        CreateCompatibleDC(nullptr);
        bitmap.Attach(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        former = SelectObject(bitmap.GetSafeHandle());
        size = static_cast<size_t>((width * depth + 31) / 32 * 4 * height);
        data = static_cast<unsigned char*>(bits);
        for (size_t i = 0; i < size; ++i)
            data[i] = depth == 32 && i % 4 == 3 ? 0 : static_cast<unsigned char>(i * 37 + i / 7);
    }
    ~Canvas() override { SelectObject(former); }

    bool operator==(const Canvas& other) const { return std::memcmp(data, other.data, size) == 0; }
    KvColor At(int x, int y) const { return KvColor(GetPixel(x, y)); }

    int width;
    int height;
    unsigned char* data;
    size_t size;

private:
    CBitmap bitmap;
    HGDIOBJ former;
};

std::mt19937 random_(4711);
int Pick(int low, int high)
{
    return std::uniform_int_distribution<>(low, high)(random_);
}

template <class AOI>
AOI RandomAOI()
{
    AOI aoi({static_cast<short>(Pick(1, 40)), static_cast<short>(Pick(1, 40))});
    for (int y = 0; y < aoi.AOIHeight(); ++y)
    {
        for (int x = 0; x < aoi.AOIWidth(); ++x)
        {
            if constexpr (std::is_same_v<AOI, KvBufferAOI32Color>)
                aoi.GetRowPointer(y)[x] = KvColor(Pick(0, 255), Pick(0, 255), Pick(0, 255));
            else if constexpr (std::is_same_v<AOI, KvBufferAOI32Float>)
                aoi.GetRowPointer(y)[x] = static_cast<float>(Pick(-3000, 3000)) / 7;
            else
                aoi.GetRowPointer(y)[x] = static_cast<unsigned char>(Pick(0, 3) ? Pick(0, 255) : 0);
        }
    }
    return aoi;
}

// The whole AOI as colours, worked out pixel by pixel from the stated rules.
KvTBuf2D<KvColor> ColorsOf(const KvAOI8& aoi)
{
    KvTBuf2D<KvColor> colors(aoi.AOIWidth(), aoi.AOIHeight());
    for (short y = 0; y < aoi.AOIHeight(); ++y)
    {
        for (short x = 0; x < aoi.AOIWidth(); ++x)
            colors.Row(y)[x] = aoi.GetOLut()->GetColors()[aoi.GetPoint(x, y)];
    }
    return colors;
}

KvTBuf2D<KvColor> ColorsOf(const KvAOI32Float& aoi)
{
    KvTFloatRange<float> range;
    KvxScanRange(&aoi, nullptr, range);
    KvTBuf2D<KvColor> colors(aoi.AOIWidth(), aoi.AOIHeight());
    for (short y = 0; y < aoi.AOIHeight(); ++y)
    {
        for (short x = 0; x < aoi.AOIWidth(); ++x)
        {
            const double extent = double(range.max) - range.min;
            const double place = extent > 0 ? 255.0 * (double(aoi.GetPoint(x, y)) - range.min) / extent : 0.0;
            colors.Row(y)[x] = aoi.GetOLut()->GetColors()[static_cast<size_t>(std::lround(place))];
        }
    }
    return colors;
}

KvTBuf2D<KvColor> ColorsOf(const KvAOI32Color& aoi)
{
    KvTBuf2D<KvColor> colors;
    aoi.GetBlock(colors);
    return colors;
}

void BlitColors(const KvTBuf2D<KvColor>& colors, const KvTRectangle<short>& source, const KvTRectangle<short>& target,
                CDC& dc)
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = colors.width;
    info.bmiHeader.biHeight = -colors.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    KvDIB dib;
    dib.CreateFromBits(&info, colors.data);
    dib.ShowStretched(source, target, &dc);
}

void BlitIndices(const KvAOI8& aoi, const KvTRectangle<short>& source, const KvTRectangle<short>& target, CDC& dc)
{
    KvTBuf2D<unsigned char> block;
    aoi.GetBlock(block);
    KvDIB dib;
    dib.Create(block, pOLutMgr->GetLut(aoi.GetOLut()->GetName()));
    dib.ShowStretched(source, target, &dc);
}

KvTRectangle<short> RandomArea(int low, int high, bool mirrored)
{
    const auto side = [&] { return std::pair<int, int>(Pick(low, high), Pick(low, high)); };
    auto [left, right] = side();
    auto [top, bottom] = side();
    if (!mirrored && right < left)
        std::swap(left, right);
    if (!mirrored && bottom < top)
        std::swap(top, bottom);
    return {static_cast<short>(left), static_cast<short>(top), static_cast<short>(right), static_cast<short>(bottom)};
}

// One of many mappings and clips, the same for both contexts of a comparison.
void Prepare(CDC& dc, unsigned seed)
{
    std::mt19937 own(seed);
    const auto pick = [&](int low, int high) { return std::uniform_int_distribution<>(low, high)(own); };
    switch (pick(0, 4))
    {
    case 0:
        dc.SetViewportOrg(pick(-20, 20), pick(-20, 20));
        break;
    case 1:
        dc.SetMapMode(MM_ANISOTROPIC);
        dc.SetWindowExt(pick(1, 9), pick(1, 9));
        dc.SetViewportExt(pick(1, 30), pick(1, 30));
        dc.SetWindowOrg(pick(-5, 5), pick(-5, 5));
        break;
    case 2:
        dc.SetMapMode(MM_ANISOTROPIC);
        dc.SetWindowExt(pick(1, 9), pick(1, 9));
        dc.SetViewportExt(pick(-20, -1), pick(1, 20));
        dc.SetViewportOrg(pick(0, 40), pick(0, 40));
        break;
    default:
        break;
    }
    if (pick(0, 1))
    {
        CRgn first, second;
        first.CreateRectRgn(pick(0, 20), pick(0, 20), pick(20, 50), pick(20, 50));
        second.CreateRectRgn(pick(0, 20), pick(0, 20), pick(20, 50), pick(20, 50));
        first.CombineRgn(&first, &second, pick(0, 1) ? RGN_XOR : RGN_OR);
        dc.SelectClipRgn(&first);
    }
}
} // namespace

TEST(Show, EightBitAOIEqualsTheBlitOfItsBitmap)
{
    for (int round = 0; round < 3000; ++round)
    {
        KvBufferAOI8 aoi = RandomAOI<KvBufferAOI8>();
        const wchar_t* tables[] = {L"Grey", L"GreyInverted", L"DefectRegion", L"Mask", L"Rainbow", L"Hot"};
        aoi.SetOLut(pOLutMgr->GetLut(tables[Pick(0, 5)]));
        const int depth = Pick(0, 3) == 0 ? 8 : 32;
        const KvOLut* colors = pOLutMgr->GetLut(tables[Pick(0, 5)]);
        Canvas actual(50, 45, depth, colors), expected(50, 45, depth, colors);
        const unsigned seed = random_();
        Prepare(actual, seed);
        Prepare(expected, seed);
        const bool mirrored = Pick(0, 5) == 0;
        const auto source = RandomArea(-5, 45, mirrored), target = RandomArea(-30, 70, mirrored);
        aoi.ShowStretched(source, target, &actual);
        BlitIndices(aoi, source, target, expected);
        ASSERT_TRUE(actual == expected) << "round " << round << " depth " << depth << " source " << source.left << ","
                                        << source.top << "," << source.right << "," << source.bottom << " target "
                                        << target.left << "," << target.top << "," << target.right << ","
                                        << target.bottom << " aoi " << aoi.AOIWidth() << "x" << aoi.AOIHeight();
    }
}

template <class AOI>
class ShowColors : public testing::Test
{
};
using ColorKinds = testing::Types<KvBufferAOI8, KvBufferAOI32Float, KvBufferAOI32Color>;
TYPED_TEST_SUITE(ShowColors, ColorKinds);

TYPED_TEST(ShowColors, EqualTheBlitOfTheColoursThatTheRulesGive)
{
    for (int round = 0; round < 600; ++round)
    {
        const TypeParam aoi = RandomAOI<TypeParam>();
        Canvas actual(50, 45, 32), expected(50, 45, 32);
        const unsigned seed = random_();
        Prepare(actual, seed);
        Prepare(expected, seed);
        const auto source = RandomArea(0, 45, false), target = RandomArea(-30, 70, false);
        aoi.ShowStretched(source, target, &actual);
        BlitColors(ColorsOf(aoi), source, target, expected);
        ASSERT_TRUE(actual == expected) << round;
    }
}

TYPED_TEST(ShowColors, AreNearestOnEightBits)
{
    const TypeParam aoi = RandomAOI<TypeParam>();
    Canvas actual(50, 45, 8, pOLutMgr->GetLut(L"DefectRegion")), expected(50, 45, 8, pOLutMgr->GetLut(L"DefectRegion"));
    aoi.Show(&actual);
    BlitColors(ColorsOf(aoi), aoi.AOIRect(), aoi.AOIRect(), expected);
    EXPECT_TRUE(actual == expected);
}

TYPED_TEST(ShowColors, BlendAsTheRuleSays)
{
    for (int round = 0; round < 300; ++round)
    {
        const TypeParam aoi = RandomAOI<TypeParam>();
        KvBufferAOI8 overlay = RandomAOI<KvBufferAOI8>(), mask = RandomAOI<KvBufferAOI8>();
        overlay.SetOLut(pOLutMgr->GetLut(L"Mask"));
        const bool masked = Pick(0, 1);
        const float strength = static_cast<float>(Pick(0, 100)) / 100;
        KvTBuf2D<KvColor> colors = ColorsOf(aoi);
        const KvTBuf2D<KvColor> over = ColorsOf(overlay);
        for (int y = 0; y < colors.height; ++y)
        {
            for (int x = 0; x < colors.width; ++x)
            {
                const KvTPoint<short> at(static_cast<short>(x), static_cast<short>(y));
                if (!overlay.GetPoint(at) || (masked && !mask.GetPoint(at)))
                    continue;
                KvColor& c = colors.Row(y)[x];
                const KvColor o = over.Row(y)[x];
                const auto mix = [&](int from, int to)
                { return static_cast<int>(std::floor(from + double(strength) * (to - from) + 0.5)); };
                c = KvColor(mix(c.red, o.red), mix(c.green, o.green), mix(c.blue, o.blue));
            }
        }
        Canvas actual(50, 45, 32), expected(50, 45, 32);
        const unsigned seed = random_();
        Prepare(actual, seed);
        Prepare(expected, seed);
        const auto source = RandomArea(0, 45, false), target = RandomArea(-30, 70, false);
        if (masked)
            aoi.ShowStretchedOverlay(&overlay, &mask, strength, source, target, &actual);
        else
            aoi.ShowStretchedOverlay(&overlay, strength, source, target, &actual);
        BlitColors(colors, source, target, expected);
        ASSERT_TRUE(actual == expected) << round;
    }
}

TYPED_TEST(ShowColors, NullOverlayShowsTheImageAlone)
{
    const TypeParam aoi = RandomAOI<TypeParam>();
    KvBufferAOI8 mask = RandomAOI<KvBufferAOI8>();
    Canvas plain(50, 45, 32), overlaid(50, 45, 32), masked(50, 45, 32);
    aoi.ShowStretched(aoi.AOIRect(), aoi.AOIRect(), &plain);
    aoi.ShowStretchedOverlay(nullptr, 0.5f, aoi.AOIRect(), aoi.AOIRect(), &overlaid);
    aoi.ShowStretchedOverlay(nullptr, &mask, 0.5f, aoi.AOIRect(), aoi.AOIRect(), &masked);
    EXPECT_TRUE(plain == overlaid);
    EXPECT_TRUE(plain == masked);
}

TYPED_TEST(ShowColors, EmptyAreasDrawNothing)
{
    const TypeParam aoi = RandomAOI<TypeParam>();
    Canvas actual(50, 45, 32), untouched(50, 45, 32);
    const KvTRectangle<short> none({0, 0}, {0, 5}), some(0, 0, 4, 4);
    aoi.ShowStretched(none, some, &actual);
    aoi.ShowStretched(some, none, &actual);
    TypeParam({0, 0}).Show(&actual);
    aoi.Show(nullptr);
    EXPECT_TRUE(actual == untouched);
}

TEST(Show, StrengthIsTakenAsWithinZeroToOne)
{
    KvBufferAOI8 image({1, 1}), overlay({1, 1});
    overlay.SetPoint({0, 0}, 200);
    const auto shown = [&](float strength)
    {
        Canvas canvas(1, 1, 32);
        image.ShowStretchedOverlay(&overlay, strength, image.AOIRect(), image.AOIRect(), &canvas);
        return canvas.At(0, 0).red;
    };
    EXPECT_EQ(shown(-1.0f), 0);
    EXPECT_EQ(shown(NAN), 0);
    EXPECT_EQ(shown(7.0f), 200);
    EXPECT_EQ(shown(0.5f), 100);
}

TEST(Show, FloatRangeClampsAndRounds)
{
    KvBufferAOI32Float aoi({5, 1});
    const float values[] = {-9.0f, 0.0f, 0.5f, 12.0f, NAN};
    std::copy(values, values + 5, aoi.GetRowPointer(0));
    auto* info = new KvAOIInfo;
    info->valid = 1;
    info->normZ.displayMax = 1.0;
    aoi.SetAOIInfo(info);
    Canvas canvas(5, 1, 32);
    aoi.Show(&canvas);
    const int expected[] = {0, 0, 128, 255, 0};
    for (int x = 0; x < 5; ++x)
        EXPECT_EQ(canvas.At(x, 0).green, expected[x]) << x;
}

TEST(Show, FlatFloatAOIShowsItsLowestEntry)
{
    KvBufferAOI32Float aoi({2, 1});
    aoi.SetPoint({0, 0}, 5.0f);
    aoi.SetPoint({1, 0}, 5.0f);
    Canvas canvas(2, 1, 32);
    aoi.Show(&canvas);
    EXPECT_EQ(canvas.At(0, 0).red, 0);
    EXPECT_EQ(canvas.At(1, 0).red, 0);
}

TEST(Show, AreaFormsDrawAtTheirPlaces)
{
    KvBufferAOI8 aoi({4, 4});
    aoi.SetPoint({2, 1}, 99);
    Canvas canvas(8, 8, 32);
    canvas.PatBlt(0, 0, 8, 8, WHITENESS);
    aoi.Show(KvTRectangle<short>(2, 1, 3, 1), &canvas);
    EXPECT_EQ(canvas.At(2, 1), KvColor(99, 99, 99));
    EXPECT_EQ(canvas.At(3, 1), KvColor(0, 0, 0));
    EXPECT_EQ(canvas.At(1, 1), KvColor(255, 255, 255));
    aoi.ShowStretched(KvTRectangle<short>(0, 0, 7, 7), &canvas);
    EXPECT_EQ(canvas.At(5, 3), KvColor(99, 99, 99));
    EXPECT_EQ(canvas.At(7, 7), KvColor(0, 0, 0));
}

TEST(Show, WithoutAContextThrows)
{
    CDC none;
    const KvBufferAOI8 aoi({1, 1});
    try
    {
        aoi.Show(&none);
        ADD_FAILURE() << "no failure";
    }
    catch (KvGDIException* failure)
    {
        failure->Delete();
    }
}

TEST(Show, OneBitContextsTakeWhiteAndBlack)
{
    // As masks are shown on one-bit contexts: 255 is white, 0 black.
    KvBufferAOI8 aoi({3, 1});
    aoi.SetPoint({1, 0}, 255);
    Canvas canvas(3, 1, 1);
    aoi.Show(&canvas);
    EXPECT_EQ(canvas.GetPixel(1, 0), canvas.GetNearestColor(0xFFFFFF));
    EXPECT_EQ(canvas.GetPixel(2, 0), canvas.GetNearestColor(0));
}

TEST(MemoryContext, PaintsAnAreaToItsPlace)
{
    Canvas target(10, 10, 32);
    KvMemDC memory(&target, 10, 10);
    EXPECT_EQ(memory.GetPixel(3, 3), 0u);
    memory.SetPixelV(4, 5, RGB(1, 2, 3));
    KvTRectangle<short> area(4, 5, 5, 5);
    const KvColor left = target.At(3, 5);
    memory.Paint(&target, area);
    EXPECT_EQ(target.At(4, 5), KvColor(1, 2, 3));
    EXPECT_EQ(target.At(5, 5), KvColor(0, 0, 0));
    EXPECT_EQ(target.At(3, 5), left);
}

TEST(MemoryContext, KeepsOnePixelAUnitWhateverTheTargetsMapping)
{
    Canvas target(20, 20, 32);
    target.SetMapMode(MM_ANISOTROPIC);
    target.SetWindowExt(1, 1);
    target.SetViewportExt(2, 2);
    KvMemDC memory(&target, 10, 10);
    memory.SetPixelV(3, 3, RGB(9, 9, 9));
    KvTRectangle<short> area(0, 0, 9, 9);
    const StretchMode mode(target, COLORONCOLOR);
    memory.Paint(&target, area);
    target.SetMapMode(MM_TEXT);
    EXPECT_EQ(target.At(6, 6), KvColor(9, 9, 9));
    EXPECT_EQ(target.At(7, 7), KvColor(9, 9, 9));
    EXPECT_EQ(target.At(8, 8), KvColor(0, 0, 0));
}
