// Handles: what is null, stale, of another kind, deleted twice or still selected.
#include "canvas.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{

HGDIOBJ garbage()
{
    return reinterpret_cast<HGDIOBJ>(std::uintptr_t(0x7B12345678));
}

} // namespace

TEST(Handles, NullAndGarbageAreNoObjects)
{
    for (const HGDIOBJ bad : {HGDIOBJ(nullptr), garbage(), reinterpret_cast<HGDIOBJ>(std::uintptr_t(77))})
    {
        SetLastError(0);
        EXPECT_EQ(GetObjectType(bad), 0u);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
        SetLastError(0);
        EXPECT_FALSE(DeleteObject(bad));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
        EXPECT_EQ(GetObjectW(bad, 0, nullptr), 0);
    }
}

TEST(Handles, ASecondDeletionFails)
{
    const HPEN pen = CreatePen(PS_SOLID, 1, 0);
    EXPECT_TRUE(DeleteObject(pen));
    SetLastError(0);
    EXPECT_FALSE(DeleteObject(pen));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST(Handles, AStaleHandleIsNotItsSuccessor)
{
    std::vector<HBRUSH> stale;
    for (int i = 0; i < 2000; ++i)
    {
        const HBRUSH brush = CreateSolidBrush(COLORREF(i));
        for (const HBRUSH old : stale)
            ASSERT_NE(old, brush);
        if (i % 100 == 0)
            stale.push_back(brush);
        DeleteObject(brush);
    }
    for (const HBRUSH old : stale)
        EXPECT_EQ(GetObjectType(old), 0u);
}

TEST(Handles, AHandleOfAnotherKindFails)
{
    Canvas c(8, 8);
    const HPEN pen = CreatePen(PS_SOLID, 1, 0);
    const HDC notDc = reinterpret_cast<HDC>(pen);
    SetLastError(0);
    EXPECT_FALSE(LineTo(notDc, 3, 3));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(SelectObject(notDc, GetStockObject(BLACK_PEN)), nullptr);
    EXPECT_EQ(SelectClipRgn(c.dc, reinterpret_cast<HRGN>(pen)), ERROR);
    EXPECT_EQ(CreatePatternBrush(reinterpret_cast<HBITMAP>(pen)), nullptr);
    EXPECT_FALSE(DeleteDC(reinterpret_cast<HDC>(c.bitmap)));
    EXPECT_EQ(GetObjectType(c.bitmap), DWORD(OBJ_BITMAP));
    EXPECT_EQ(GetRgnBox(reinterpret_cast<HRGN>(c.dc), nullptr), ERROR);
    DeleteObject(pen);
}

TEST(Handles, EveryCallRefusesADeletedContext)
{
    const HDC dc = CreateCompatibleDC(nullptr);
    DeleteDC(dc);
    POINT p{1, 1};
    RECT r{0, 0, 5, 5};
    SIZE s{};
    TEXTMETRICW metrics{};
    EXPECT_FALSE(MoveToEx(dc, 0, 0, nullptr));
    EXPECT_FALSE(LineTo(dc, 1, 1));
    EXPECT_FALSE(Polyline(dc, &p, 1));
    EXPECT_FALSE(Polygon(dc, &p, 1));
    EXPECT_FALSE(Rectangle(dc, 0, 0, 1, 1));
    EXPECT_FALSE(Ellipse(dc, 0, 0, 1, 1));
    EXPECT_FALSE(Arc(dc, 0, 0, 1, 1, 0, 0, 0, 0));
    EXPECT_FALSE(PatBlt(dc, 0, 0, 1, 1, BLACKNESS));
    EXPECT_FALSE(BitBlt(dc, 0, 0, 1, 1, dc, 0, 0, SRCCOPY));
    EXPECT_EQ(SetPixel(dc, 0, 0, 0), CLR_INVALID);
    EXPECT_EQ(GetPixel(dc, 0, 0), CLR_INVALID);
    EXPECT_EQ(SetROP2(dc, R2_XORPEN), 0);
    EXPECT_EQ(SetMapMode(dc, MM_TEXT), 0);
    EXPECT_FALSE(LPtoDP(dc, &p, 1));
    EXPECT_FALSE(DPtoLP(dc, &p, 1));
    EXPECT_EQ(GetClipBox(dc, &r), ERROR);
    EXPECT_EQ(SaveDC(dc), 0);
    EXPECT_FALSE(RestoreDC(dc, -1));
    EXPECT_FALSE(TextOutW(dc, 0, 0, L"x", 1));
    EXPECT_FALSE(GetTextExtentPoint32W(dc, L"x", 1, &s));
    EXPECT_FALSE(GetTextMetricsW(dc, &metrics));
    EXPECT_EQ(DrawTextW(dc, L"x", 1, &r, 0), 0);
    EXPECT_FALSE(DrawFrameControl(dc, &r, DFC_BUTTON, DFCS_BUTTONPUSH));
    EXPECT_EQ(GetDeviceCaps(dc, BITSPIXEL), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST(Handles, ASelectedObjectLivesUntilItIsDeselected)
{
    Canvas c(8, 8);
    const HPEN pen = CreatePen(PS_SOLID, 3, RGB(255, 255, 255));
    const HGDIOBJ old = SelectObject(c.dc, pen);
    EXPECT_TRUE(DeleteObject(pen));
    EXPECT_EQ(GetObjectType(pen), DWORD(OBJ_PEN));
    EXPECT_EQ(GetCurrentObject(c.dc, OBJ_PEN), HGDIOBJ(pen));
    EXPECT_TRUE(LineTo(c.dc, 7, 7));
    EXPECT_GT(c.count(), 0);
    EXPECT_EQ(SelectObject(c.dc, old), HGDIOBJ(pen));
    EXPECT_EQ(GetObjectType(pen), 0u);
    EXPECT_EQ(SelectObject(c.dc, pen), nullptr);
}

TEST(Handles, ASelectedBitmapIsDeletedWithItsContext)
{
    Canvas c(8, 8);
    const HBITMAP bitmap = CreateCompatibleBitmap(c.dc, 4, 4);
    const HDC dc = CreateCompatibleDC(nullptr);
    SelectObject(dc, bitmap);
    EXPECT_TRUE(DeleteObject(bitmap));
    EXPECT_EQ(GetObjectType(bitmap), DWORD(OBJ_BITMAP));
    EXPECT_TRUE(DeleteDC(dc));
    EXPECT_EQ(GetObjectType(bitmap), 0u);
}

TEST(Handles, ABitmapIsSelectedIntoOneContextOnly)
{
    Canvas c(8, 8);
    const HDC other = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = GetCurrentObject(other, OBJ_BITMAP);
    EXPECT_EQ(SelectObject(other, c.bitmap), nullptr);
    EXPECT_EQ(GetCurrentObject(other, OBJ_BITMAP), before);
    EXPECT_EQ(SelectObject(c.dc, c.bitmap), HGDIOBJ(c.bitmap));
    SelectObject(c.dc, before);
    EXPECT_NE(SelectObject(other, c.bitmap), nullptr);
    DeleteDC(other);
}

TEST(Handles, StockObjectsOutliveDeletion)
{
    for (const int index : {WHITE_BRUSH, NULL_BRUSH, BLACK_PEN, NULL_PEN, SYSTEM_FONT, DEFAULT_GUI_FONT, DC_PEN})
    {
        const HGDIOBJ object = GetStockObject(index);
        const DWORD kind = GetObjectType(object);
        EXPECT_NE(kind, 0u);
        EXPECT_TRUE(DeleteObject(object));
        EXPECT_EQ(GetObjectType(object), kind);
        EXPECT_EQ(GetStockObject(index), object);
    }
    EXPECT_EQ(GetStockObject(-1), nullptr);
    EXPECT_EQ(GetStockObject(9), nullptr);
    EXPECT_EQ(GetStockObject(1000), nullptr);
}

TEST(Handles, ThreadsMakeAndDeleteObjectsAtOnce)
{
    std::vector<std::thread> threads;
    std::atomic<int> failures{0};
    for (int t = 0; t < 4; ++t)
        threads.emplace_back(
            [&failures, t]
            {
                Canvas c(16, 16);
                for (int i = 0; i < 500; ++i)
                {
                    const HPEN pen = CreatePen(PS_SOLID, t + 1, RGB(255, 255, 255));
                    const HGDIOBJ old = SelectObject(c.dc, pen);
                    failures += !LineTo(c.dc, i % 16, i % 13);
                    failures += SelectObject(c.dc, old) != HGDIOBJ(pen);
                    failures += !DeleteObject(pen);
                }
            });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
}
