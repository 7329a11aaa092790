// Contexts: defaults, selection, saving and restoring.
#include "canvas.h"

#include <gtest/gtest.h>

TEST(Dc, AFreshContextHoldsStockObjectsAndOneMonochromePixel)
{
    const HDC dc = CreateCompatibleDC(nullptr);
    EXPECT_EQ(GetObjectType(dc), DWORD(OBJ_MEMDC));
    EXPECT_EQ(GetCurrentObject(dc, OBJ_PEN), GetStockObject(BLACK_PEN));
    EXPECT_EQ(GetCurrentObject(dc, OBJ_BRUSH), GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(GetCurrentObject(dc, OBJ_FONT), GetStockObject(SYSTEM_FONT));
    BITMAP bitmap{};
    GetObjectW(GetCurrentObject(dc, OBJ_BITMAP), sizeof bitmap, &bitmap);
    EXPECT_EQ(bitmap.bmWidth, 1);
    EXPECT_EQ(bitmap.bmHeight, 1);
    EXPECT_EQ(bitmap.bmBitsPixel, 1);
    EXPECT_TRUE(DeleteDC(dc));
}

TEST(Dc, SelectingARegionClipsAndTellsItsComplexity)
{
    Canvas c(8, 8);
    const HRGN region = CreateRectRgn(1, 1, 4, 4);
    EXPECT_EQ(reinterpret_cast<std::intptr_t>(SelectObject(c.dc, region)), SIMPLEREGION);
    DeleteObject(region);
    PatBlt(c.dc, 0, 0, 8, 8, WHITENESS);
    EXPECT_EQ(c.count(), 9);
}

TEST(Dc, RestoringBringsBackStateAndObjects)
{
    Canvas c(8, 8);
    const HPEN pen = CreatePen(PS_SOLID, 1, 0);
    const HGDIOBJ old = SelectObject(c.dc, pen);
    SetROP2(c.dc, R2_XORPEN);
    SetViewportOrgEx(c.dc, 3, 4, nullptr);
    MoveToEx(c.dc, 5, 6, nullptr);
    EXPECT_EQ(SaveDC(c.dc), 1);
    EXPECT_EQ(SaveDC(c.dc), 2);
    SelectObject(c.dc, GetStockObject(NULL_PEN));
    SetROP2(c.dc, R2_COPYPEN);
    SetViewportOrgEx(c.dc, 0, 0, nullptr);
    MoveToEx(c.dc, 0, 0, nullptr);
    IntersectClipRect(c.dc, 0, 0, 2, 2);
    EXPECT_TRUE(RestoreDC(c.dc, 1));
    EXPECT_EQ(GetCurrentObject(c.dc, OBJ_PEN), HGDIOBJ(pen));
    EXPECT_EQ(GetROP2(c.dc), R2_XORPEN);
    POINT p{};
    GetViewportOrgEx(c.dc, &p);
    EXPECT_EQ(p.x, 3);
    GetCurrentPositionEx(c.dc, &p);
    EXPECT_EQ(p.y, 6);
    EXPECT_FALSE(RestoreDC(c.dc, -1));
    SelectObject(c.dc, old);
    DeleteObject(pen);
}

TEST(Dc, LevelsThatDoNotExistAreNotRestored)
{
    Canvas c(8, 8);
    SaveDC(c.dc);
    for (const int level : {0, 2, -2, INT32_MIN, INT32_MAX})
        EXPECT_FALSE(RestoreDC(c.dc, level)) << level;
    EXPECT_TRUE(RestoreDC(c.dc, -1));
}

TEST(Dc, ASavedPenThatWasDeletedIsNotSelectedAgain)
{
    Canvas c(8, 8);
    const HPEN pen = CreatePen(PS_SOLID, 1, 0);
    SelectObject(c.dc, pen);
    SaveDC(c.dc);
    SelectObject(c.dc, GetStockObject(NULL_PEN));
    DeleteObject(pen);
    EXPECT_TRUE(RestoreDC(c.dc, -1));
    EXPECT_EQ(GetCurrentObject(c.dc, OBJ_PEN), GetStockObject(NULL_PEN));
}

TEST(Dc, ACompatibleBitmapTakesTheFormOfTheSelectedSection)
{
    Canvas c(8, 8, 32);
    const HBITMAP same = CreateCompatibleBitmap(c.dc, 5, 6);
    DIBSECTION section{};
    EXPECT_EQ(GetObjectW(same, sizeof section, &section), int(sizeof section));
    EXPECT_EQ(section.dsBm.bmBitsPixel, 32);
    const HDC fresh = CreateCompatibleDC(c.dc);
    const HBITMAP mono = CreateCompatibleBitmap(fresh, 5, 6);
    BITMAP bitmap{};
    GetObjectW(mono, sizeof bitmap, &bitmap);
    EXPECT_EQ(bitmap.bmBitsPixel, 1);
    EXPECT_EQ(CreateCompatibleBitmap(c.dc, -1, 6), nullptr);
    EXPECT_EQ(CreateCompatibleBitmap(nullptr, 1, 6), nullptr);
    for (const HBITMAP b : {same, mono})
        DeleteObject(b);
    DeleteDC(fresh);
}
