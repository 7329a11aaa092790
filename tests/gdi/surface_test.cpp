// The bits behind a context.
#include "canvas.h"

#include "platform/gdi/surface.h"

#include <gtest/gtest.h>

using kv::gdi::Surface;
using kv::gdi::surfaceOf;

TEST(Surface, RowsRunFromTheTopInBothRowOrders)
{
    for (const bool bottomUp : {false, true})
    {
        Canvas c(5, 3, 8, bottomUp);
        Surface surface;
        ASSERT_TRUE(surfaceOf(c.dc, surface));
        EXPECT_EQ(surface.width, 5);
        EXPECT_EQ(surface.height, 3);
        EXPECT_EQ(surface.depth, 8);
        ASSERT_NE(surface.palette, nullptr);
        EXPECT_EQ(surface.palette[200].rgbGreen, 200);
        surface.row(2)[4] = 77;
        EXPECT_EQ(c.at(4, 2), 77u);
    }
}

TEST(Surface, TellsTheVisibleRectangles)
{
    Canvas c(10, 10, 32);
    Surface surface;
    IntersectClipRect(c.dc, -5, 2, 6, 50);
    ExcludeClipRect(c.dc, 2, 4, 4, 6);
    ASSERT_TRUE(surfaceOf(c.dc, surface));
    EXPECT_EQ(surface.palette, nullptr);
    EXPECT_EQ(surface.clip.size(), 4u);
    EXPECT_EQ(surface.clipBox.left, 0);
    EXPECT_EQ(surface.clipBox.right, 6);
    EXPECT_EQ(surface.clipBox.bottom, 10);
    IntersectClipRect(c.dc, 50, 50, 60, 60);
    ASSERT_TRUE(surfaceOf(c.dc, surface));
    EXPECT_TRUE(surface.clip.empty());
    EXPECT_EQ(surface.clipBox.right, 0);
}

TEST(Surface, MapsAsTheContextDoes)
{
    Canvas c(10, 10, 32);
    SetMapMode(c.dc, MM_ANISOTROPIC);
    SetViewportExtEx(c.dc, 3, 5, nullptr);
    SetViewportOrgEx(c.dc, -7, 2, nullptr);
    Surface surface;
    ASSERT_TRUE(surfaceOf(c.dc, surface));
    EXPECT_TRUE(surface.mapping.isUpright());
    for (const POINT p : {POINT{0, 0}, POINT{5, -3}, POINT{-11, 40}})
    {
        POINT device = p;
        LPtoDP(c.dc, &device, 1);
        EXPECT_EQ(surface.mapping.toDevice(p.x, p.y).x, device.x);
        EXPECT_EQ(surface.mapping.toDevice(p.x, p.y).y, device.y);
    }
}

TEST(Surface, OfNothingIsAFailure)
{
    Surface surface;
    EXPECT_FALSE(surfaceOf(nullptr, surface));
    EXPECT_FALSE(surfaceOf(reinterpret_cast<HDC>(GetStockObject(BLACK_PEN)), surface));
}
