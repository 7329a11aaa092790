// What pens, brushes, bitmaps and fonts tell about themselves, and which descriptions are refused.
#include "canvas.h"

#include <gtest/gtest.h>

#include <cstring>

TEST(Objects, APenTellsItsStyleWidthAndColour)
{
    const HPEN pen = CreatePen(PS_DASH, -7, RGB(1, 2, 3));
    LOGPEN log{};
    EXPECT_EQ(GetObjectW(pen, sizeof log, &log), int(sizeof log));
    EXPECT_EQ(log.lopnStyle, PS_DASH);
    EXPECT_EQ(log.lopnWidth.x, 7);
    EXPECT_EQ(log.lopnColor, RGB(1, 2, 3));
    EXPECT_EQ(GetObjectW(pen, sizeof log - 1, &log), 0);
    EXPECT_EQ(GetObjectW(pen, 0, nullptr), int(sizeof log));
    DeleteObject(pen);
}

TEST(Objects, APenOfUnknownStyleIsSolid)
{
    for (const int style : {-1, 7, 100})
    {
        const HPEN pen = CreatePen(style, 2, 0);
        LOGPEN log{};
        GetObjectW(pen, sizeof log, &log);
        EXPECT_EQ(log.lopnStyle, PS_SOLID);
        DeleteObject(pen);
    }
}

TEST(Objects, AnExtendedPenKeepsItsLengths)
{
    const LOGBRUSH brush{BS_SOLID, RGB(9, 8, 7), 0};
    const DWORD lengths[] = {3, 4};
    const HPEN pen = ExtCreatePen(PS_GEOMETRIC | PS_USERSTYLE, 5, &brush, 2, lengths);
    EXPECT_EQ(GetObjectType(pen), DWORD(OBJ_EXTPEN));
    std::vector<std::uint8_t> memory(std::size_t(GetObjectW(pen, 0, nullptr)));
    ASSERT_EQ(memory.size(), offsetof(EXTLOGPEN, elpStyleEntry) + sizeof lengths);
    GetObjectW(pen, int(memory.size()), memory.data());
    DWORD kept[2];
    std::memcpy(kept, memory.data() + offsetof(EXTLOGPEN, elpStyleEntry), sizeof kept);
    EXPECT_EQ(kept[0], 3u);
    EXPECT_EQ(kept[1], 4u);
    DeleteObject(pen);
}

TEST(Objects, ImpossibleExtendedPensAreRefused)
{
    const LOGBRUSH brush{BS_SOLID, 0, 0};
    const DWORD lengths[] = {3, 4}, zeros[] = {0, 0};
    EXPECT_EQ(ExtCreatePen(PS_GEOMETRIC | PS_SOLID, 3, nullptr, 0, nullptr), nullptr);
    EXPECT_EQ(ExtCreatePen(PS_GEOMETRIC | PS_SOLID, 3, &brush, 2, lengths), nullptr);
    EXPECT_EQ(ExtCreatePen(PS_GEOMETRIC | PS_USERSTYLE, 3, &brush, 0, nullptr), nullptr);
    EXPECT_EQ(ExtCreatePen(PS_GEOMETRIC | PS_USERSTYLE, 3, &brush, 2, zeros), nullptr);
    EXPECT_EQ(ExtCreatePen(PS_COSMETIC | PS_SOLID, 3, &brush, 0, nullptr), nullptr);
    EXPECT_EQ(ExtCreatePen(PS_GEOMETRIC | 9, 3, &brush, 0, nullptr), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST(Objects, ABrushCanBeDescribedInPart)
{
    const HBRUSH brush = CreateSolidBrush(RGB(9, 8, 7));
    LOGBRUSH log{99, 0, 0};
    EXPECT_EQ(GetObjectW(brush, 4, &log), 4);
    EXPECT_EQ(log.lbStyle, BS_SOLID);
    EXPECT_EQ(GetObjectW(brush, 100, &log), int(sizeof log));
    EXPECT_EQ(log.lbColor, RGB(9, 8, 7));
    DeleteObject(brush);
}

TEST(Objects, APatternBrushDoesNotNeedItsBitmapAnyMore)
{
    Canvas c(4, 4, 32);
    const WORD rows[] = {0x0040, 0x0080};
    const HBITMAP checker = CreateBitmap(2, 2, 1, 1, rows);
    const HBRUSH brush = CreatePatternBrush(checker);
    EXPECT_TRUE(DeleteObject(checker));
    const Selected selected(c.dc, brush);
    PatBlt(c.dc, 0, 0, 4, 4, PATCOPY);
    EXPECT_EQ(c.picture(), ".#.#\n#.#.\n.#.#\n#.#.\n");
}

TEST(Objects, ASectionTellsItsBitsAndHeader)
{
    Canvas c(5, 7, 8, true);
    DIBSECTION section{};
    EXPECT_EQ(GetObjectW(c.bitmap, sizeof section, &section), int(sizeof section));
    EXPECT_EQ(section.dsBm.bmBits, c.bits);
    EXPECT_EQ(section.dsBm.bmWidthBytes, 8);
    EXPECT_EQ(section.dsBmih.biHeight, 7);
    EXPECT_EQ(section.dsBmih.biClrUsed, 256u);
    BITMAP bitmap{};
    EXPECT_EQ(GetObjectW(c.bitmap, sizeof bitmap, &bitmap), int(sizeof bitmap));
    EXPECT_EQ(GetObjectW(c.bitmap, sizeof bitmap - 1, &bitmap), 0);
}

TEST(Objects, AFontKeepsItsDescription)
{
    LOGFONTW log{};
    log.lfHeight = -18;
    log.lfWeight = 500;
    std::wcscpy(log.lfFaceName, L"Arial");
    const HFONT font = CreateFontIndirectW(&log);
    LOGFONTW read{};
    EXPECT_EQ(GetObjectW(font, sizeof read, &read), int(sizeof read));
    EXPECT_EQ(std::memcmp(&read, &log, sizeof log), 0);
    DeleteObject(font);
}

TEST(Objects, ADcPenTakesTheContextsColour)
{
    Canvas c(4, 1, 32);
    SelectObject(c.dc, GetStockObject(DC_PEN));
    EXPECT_EQ(SetDCPenColor(c.dc, RGB(10, 20, 30)), RGB(0, 0, 0));
    LineTo(c.dc, 4, 0);
    EXPECT_EQ(c.at(1, 0), 0x0A141Eu);
}
