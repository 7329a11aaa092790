// Text: metrics, extents, alignment, background, mapping, and DrawText's layout.
#include "canvas.h"

#include <gtest/gtest.h>

#include <cwchar>

namespace
{

LOGFONTW arial(int height)
{
    LOGFONTW log{};
    log.lfHeight = height;
    log.lfWeight = FW_NORMAL;
    std::wcscpy(log.lfFaceName, L"Arial");
    return log;
}

struct TextCanvas : Canvas
{
    Selected font;

    explicit TextCanvas(const LOGFONTW& log, int width = 200, int height = 100, int depth = 32)
        : Canvas(width, height, depth), font(dc, CreateFontIndirectW(&log))
    {
        SetTextColor(dc, RGB(255, 255, 255));
        SetBkMode(dc, TRANSPARENT);
    }

    SIZE extent(const wchar_t* text) const
    {
        SIZE size{};
        EXPECT_TRUE(GetTextExtentPoint32W(dc, text, int(std::wcslen(text)), &size));
        return size;
    }
    void out(int x, int y, const wchar_t* text) { EXPECT_TRUE(TextOutW(dc, x, y, text, int(std::wcslen(text)))); }

    RECT inked() const
    {
        RECT box{width, height, -1, -1};
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                if (at(x, y))
                    box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x),
                           std::max(box.bottom, y)};
        return box;
    }
};

} // namespace

TEST(TextMetrics, APositiveHeightIsThatOfTheCell)
{
    for (const int height : {12, 18, 28, 56, 140})
    {
        const TextCanvas c(arial(height));
        TEXTMETRICW metrics{};
        EXPECT_TRUE(GetTextMetricsW(c.dc, &metrics));
        EXPECT_NEAR(metrics.tmHeight, height, 1);
        EXPECT_EQ(metrics.tmHeight, metrics.tmAscent + metrics.tmDescent);
        EXPECT_EQ(c.extent(L"x").cy, metrics.tmHeight);
    }
}

TEST(TextMetrics, ANegativeHeightIsThatOfTheCharacters)
{
    const TextCanvas c(arial(-20));
    TEXTMETRICW metrics{};
    GetTextMetricsW(c.dc, &metrics);
    EXPECT_EQ(metrics.tmHeight - metrics.tmInternalLeading, 20);
    // The face has the metrics of the one asked for: 1854 and 434 units of 2048.
    EXPECT_EQ(metrics.tmAscent, 18);
    EXPECT_EQ(metrics.tmDescent, 4);
}

TEST(TextExtent, GrowsWithTheTextAndIsNothingWithoutOne)
{
    const TextCanvas c(arial(28));
    EXPECT_EQ(c.extent(L"").cx, 0);
    EXPECT_GT(c.extent(L"").cy, 0);
    EXPECT_EQ(c.extent(L"mm").cx, 2 * c.extent(L"m").cx);
    EXPECT_GT(c.extent(L"m").cx, c.extent(L"i").cx);
    SIZE size{};
    EXPECT_FALSE(GetTextExtentPoint32W(c.dc, nullptr, 3, &size));
    EXPECT_FALSE(GetTextExtentPoint32W(c.dc, L"x", -1, &size));
    EXPECT_FALSE(GetTextExtentPoint32W(c.dc, L"x", 1, nullptr));
}

TEST(TextExtent, IsInLogicalUnits)
{
    TextCanvas c(arial(28));
    const SIZE plain = c.extent(L"Kontur 17");
    SetMapMode(c.dc, MM_ANISOTROPIC);
    SetViewportExtEx(c.dc, 4, 4, nullptr);
    const SIZE zoomed = c.extent(L"Kontur 17");
    EXPECT_NEAR(zoomed.cx, plain.cx, plain.cx / 10);
    EXPECT_NEAR(zoomed.cy, plain.cy, 1);
}

TEST(TextExtent, TellsHowManyCharactersFit)
{
    const TextCanvas c(arial(20));
    int fit = 0, advances[4] = {};
    SIZE size{};
    EXPECT_TRUE(GetTextExtentExPointW(c.dc, L"mmmm", 4, 2 * c.extent(L"m").cx + 1, &fit, advances, &size));
    EXPECT_EQ(fit, 2);
    EXPECT_EQ(advances[3], size.cx);
}

TEST(TextOut, StaysInsideItsCell)
{
    TextCanvas c(arial(28));
    c.out(20, 30, L"Hxg");
    const RECT box = c.inked();
    EXPECT_GE(box.left, 20);
    EXPECT_GE(box.top, 30);
    EXPECT_LT(box.right, 20 + c.extent(L"Hxg").cx);
    EXPECT_LT(box.bottom, 30 + c.extent(L"Hxg").cy);
}

TEST(TextOut, AlignsToThePoint)
{
    const auto box = [](UINT align)
    {
        TextCanvas c(arial(28));
        SetTextAlign(c.dc, align);
        c.out(100, 50, L"HHH");
        return c.inked();
    };
    const RECT left = box(TA_LEFT), centre = box(TA_CENTER), right = box(TA_RIGHT), base = box(TA_BASELINE);
    const TextCanvas c(arial(28));
    const int width = c.extent(L"HHH").cx;
    EXPECT_EQ(left.left - centre.left, width / 2);
    EXPECT_EQ(left.left - right.left, width);
    EXPECT_EQ(base.bottom, 49);
    EXPECT_EQ(box(TA_BOTTOM).bottom, left.bottom - c.extent(L"H").cy);
}

TEST(TextOut, FillsItsCellOnAnOpaqueBackground)
{
    TextCanvas c(arial(28));
    SetBkMode(c.dc, OPAQUE);
    SetBkColor(c.dc, RGB(0, 0, 9));
    c.out(10, 10, L"Hi");
    const RECT box = c.inked();
    EXPECT_EQ(box.left, 10);
    EXPECT_EQ(box.top, 10);
    EXPECT_EQ(box.right, 10 + c.extent(L"Hi").cx - 1);
    EXPECT_EQ(box.bottom, 10 + c.extent(L"Hi").cy - 1);
}

TEST(TextOut, OnEightBitsKnowsOnlyTheTwoColours)
{
    TextCanvas c(arial(28), 100, 40, 8);
    c.out(5, 5, L"S8&");
    EXPECT_GT(c.count(), 20);
    for (const std::uint32_t v : c.pixels())
        EXPECT_TRUE(v == 0 || v == 255);
}

TEST(TextOut, MovesThePositionIfAsked)
{
    TextCanvas c(arial(28));
    SetTextAlign(c.dc, TA_UPDATECP);
    MoveToEx(c.dc, 10, 10, nullptr);
    c.out(99, 99, L"HH");
    POINT at{};
    GetCurrentPositionEx(c.dc, &at);
    EXPECT_EQ(at.x, 10 + c.extent(L"HH").cx);
    EXPECT_LT(c.inked().bottom, 40);
}

TEST(TextOut, TurnsWithItsEscapement)
{
    LOGFONTW log = arial(28);
    log.lfEscapement = 900; // upward
    TextCanvas c(log, 100, 150);
    c.out(50, 140, L"HHHH");
    const RECT box = c.inked();
    EXPECT_GT(box.bottom - box.top, 2 * (box.right - box.left));
    EXPECT_LT(box.bottom, 140);
    EXPECT_GE(box.left, 50);
}

TEST(TextOut, TurnsWithTheWorld)
{
    TextCanvas c(arial(28), 100, 150);
    SetGraphicsMode(c.dc, GM_ADVANCED);
    const XFORM turn{0, 1, -1, 0, 60, 10};
    SetWorldTransform(c.dc, &turn);
    c.out(0, 0, L"HHHH");
    const RECT box = c.inked();
    EXPECT_GT(box.bottom - box.top, 2 * (box.right - box.left));
    EXPECT_LT(box.right, 60);
    EXPECT_GE(box.top, 10);
}

TEST(ExtTextOut, ClipsToItsRectangleAndUsesGivenAdvances)
{
    TextCanvas c(arial(28));
    const RECT rect{0, 0, 200, 15};
    const int advances[] = {50, 50};
    EXPECT_TRUE(ExtTextOutW(c.dc, 0, 0, ETO_CLIPPED, &rect, L"HH", 2, advances));
    const RECT box = c.inked();
    EXPECT_LT(box.bottom, 15);
    EXPECT_GT(box.right, 50);
    EXPECT_FALSE(ExtTextOutW(c.dc, 0, 0, ETO_CLIPPED, nullptr, L"HH", 2, nullptr));
}

TEST(DrawText, CentresAndAlignsToTheBottom)
{
    TextCanvas c(arial(20));
    RECT rect{0, 0, 200, 100};
    EXPECT_GT(DrawTextW(c.dc, L"HH", -1, &rect, DT_CENTER | DT_BOTTOM | DT_SINGLELINE), 0);
    const RECT box = c.inked();
    EXPECT_NEAR(box.left + box.right, 199, 2);
    EXPECT_GT(box.top, 80);
}

TEST(DrawText, MeasuresWithoutDrawing)
{
    TextCanvas c(arial(20));
    RECT one{5, 5, 5, 5}, wrapped{5, 5, 60, 5};
    const int height = DrawTextW(c.dc, L"one two three four", -1, &one, DT_CALCRECT | DT_SINGLELINE);
    EXPECT_EQ(one.right - one.left, c.extent(L"one two three four").cx);
    EXPECT_GT(DrawTextW(c.dc, L"one two three four", -1, &wrapped, DT_CALCRECT | DT_WORDBREAK), height);
    EXPECT_LE(wrapped.right, 60);
    EXPECT_EQ(c.count(), 0);
}

TEST(DrawText, UnderlinesMnemonics)
{
    TextCanvas c(arial(20));
    RECT with{}, without{}, doubled{};
    DrawTextW(c.dc, L"&Save", -1, &with, DT_CALCRECT | DT_SINGLELINE);
    DrawTextW(c.dc, L"Save", -1, &without, DT_CALCRECT | DT_SINGLELINE);
    DrawTextW(c.dc, L"&Save", -1, &doubled, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
    EXPECT_EQ(with.right, without.right);
    EXPECT_GT(doubled.right, without.right);
}

TEST(Fonts, OfAnySizeAreClampedToWhatCanBeDrawn)
{
    for (const int height : {INT32_MIN, INT32_MAX, 0, 1, -1})
    {
        TextCanvas c(arial(height));
        c.out(0, 0, L"x");
        EXPECT_GT(c.extent(L"x").cy, 0);
    }
}
