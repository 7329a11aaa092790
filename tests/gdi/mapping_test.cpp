// Mapping: extents, origins, world transforms, and what they refuse.
#include "canvas.h"

#include <gtest/gtest.h>

namespace
{

POINT toDevice(HDC dc, int x, int y)
{
    POINT p{x, y};
    EXPECT_TRUE(LPtoDP(dc, &p, 1));
    return p;
}

POINT toLogical(HDC dc, int x, int y)
{
    POINT p{x, y};
    EXPECT_TRUE(DPtoLP(dc, &p, 1));
    return p;
}

} // namespace

TEST(Mapping, ScalesRoundToTheNearestPixel)
{
    Canvas c(8, 8);
    SetMapMode(c.dc, MM_ANISOTROPIC);
    SetWindowExtEx(c.dc, 4, 4, nullptr);
    SetViewportExtEx(c.dc, 10, 2, nullptr);
    SetViewportOrgEx(c.dc, 100, 200, nullptr);
    SetWindowOrgEx(c.dc, 1, 2, nullptr);
    EXPECT_EQ(toDevice(c.dc, 2, 3).x, 103); // 2.5 goes up
    EXPECT_EQ(toDevice(c.dc, 0, 1).x, 98);  // -2.5 goes up, too
    EXPECT_EQ(toDevice(c.dc, 0, 1).y, 200);
    EXPECT_EQ(toLogical(c.dc, 105, 201).x, 3);
    EXPECT_EQ(toLogical(c.dc, 105, 201).y, 4);
}

TEST(Mapping, ExtentsAreFixedInMmText)
{
    Canvas c(8, 8);
    EXPECT_TRUE(SetWindowExtEx(c.dc, 7, 7, nullptr));
    SIZE extent{};
    GetWindowExtEx(c.dc, &extent);
    EXPECT_EQ(extent.cx, 1);
    SetMapMode(c.dc, MM_ANISOTROPIC);
    EXPECT_FALSE(SetWindowExtEx(c.dc, 0, 7, nullptr));
    EXPECT_FALSE(SetViewportExtEx(c.dc, 7, 0, nullptr));
    EXPECT_EQ(SetMapMode(c.dc, 0), 0);
    EXPECT_EQ(SetMapMode(c.dc, 9), 0);
    EXPECT_EQ(GetMapMode(c.dc), MM_ANISOTROPIC);
}

TEST(Mapping, AnIsotropicModeCutsTheLongerSide)
{
    Canvas c(8, 8);
    SetMapMode(c.dc, MM_ISOTROPIC);
    SetWindowExtEx(c.dc, 100, 100, nullptr);
    SetViewportExtEx(c.dc, 300, 200, nullptr);
    SIZE extent{};
    GetViewportExtEx(c.dc, &extent);
    EXPECT_EQ(extent.cx, 200);
    EXPECT_EQ(extent.cy, 200);
}

TEST(Mapping, AWorldTransformNeedsTheAdvancedMode)
{
    Canvas c(8, 8);
    const XFORM turn{0, 1, -1, 0, 5, 6};
    EXPECT_FALSE(SetWorldTransform(c.dc, &turn));
    EXPECT_EQ(SetGraphicsMode(c.dc, GM_ADVANCED), GM_COMPATIBLE);
    EXPECT_TRUE(SetWorldTransform(c.dc, &turn));
    EXPECT_EQ(toDevice(c.dc, 3, 4).x, 1);
    EXPECT_EQ(toDevice(c.dc, 3, 4).y, 9);
    EXPECT_EQ(toLogical(c.dc, 1, 9).x, 3);
    EXPECT_EQ(toLogical(c.dc, 1, 9).y, 4);
}

TEST(Mapping, ATransformThatCannotBeUndoneIsRefused)
{
    Canvas c(8, 8);
    SetGraphicsMode(c.dc, GM_ADVANCED);
    const XFORM flat{1, 1, 1, 1, 0, 0};
    EXPECT_FALSE(SetWorldTransform(c.dc, &flat));
    EXPECT_FALSE(SetWorldTransform(c.dc, nullptr));
    XFORM now{};
    EXPECT_TRUE(GetWorldTransform(c.dc, &now));
    EXPECT_EQ(now.eM11, 1);
    EXPECT_EQ(now.eM12, 0);
}

TEST(Mapping, TransformsAreMultipliedOnEitherSide)
{
    Canvas c(8, 8);
    SetGraphicsMode(c.dc, GM_ADVANCED);
    const XFORM scale{2, 0, 0, 2, 0, 0}, shift{1, 0, 0, 1, 10, 0};
    EXPECT_TRUE(ModifyWorldTransform(c.dc, &scale, MWT_LEFTMULTIPLY));
    EXPECT_TRUE(ModifyWorldTransform(c.dc, &shift, MWT_LEFTMULTIPLY));
    EXPECT_EQ(toDevice(c.dc, 1, 0).x, 22);
    EXPECT_TRUE(ModifyWorldTransform(c.dc, &shift, MWT_RIGHTMULTIPLY));
    EXPECT_EQ(toDevice(c.dc, 1, 0).x, 32);
    EXPECT_TRUE(ModifyWorldTransform(c.dc, nullptr, MWT_IDENTITY));
    EXPECT_EQ(toDevice(c.dc, 1, 0).x, 1);
    EXPECT_FALSE(ModifyWorldTransform(c.dc, &scale, 9));
}

TEST(Mapping, FarCoordinatesStayWithinRange)
{
    Canvas c(8, 8);
    SetMapMode(c.dc, MM_ANISOTROPIC);
    SetViewportExtEx(c.dc, 1000000, 1000000, nullptr);
    EXPECT_EQ(toDevice(c.dc, INT32_MAX, INT32_MIN).x, INT32_MAX);
    EXPECT_EQ(toDevice(c.dc, INT32_MAX, INT32_MIN).y, INT32_MIN);
}

TEST(Mapping, OffsettingAnOriginWrapsInsteadOfOverflowing)
{
    Canvas c(8, 8);
    SetViewportOrgEx(c.dc, INT32_MAX, 5, nullptr);
    POINT old{};
    EXPECT_TRUE(OffsetViewportOrgEx(c.dc, 1, -2, &old));
    EXPECT_EQ(old.x, INT32_MAX);
    POINT now{};
    GetViewportOrgEx(c.dc, &now);
    EXPECT_EQ(now.x, INT32_MIN);
    EXPECT_EQ(now.y, 3);
}

TEST(Mapping, ScaledExtentsNeverReachZero)
{
    Canvas c(8, 8);
    SetMapMode(c.dc, MM_ANISOTROPIC);
    SetWindowExtEx(c.dc, 100, 100, nullptr);
    EXPECT_TRUE(ScaleWindowExtEx(c.dc, 1, 1000, -3, 2, nullptr));
    SIZE extent{};
    GetWindowExtEx(c.dc, &extent);
    EXPECT_EQ(extent.cx, 1);
    EXPECT_EQ(extent.cy, -150);
    EXPECT_FALSE(ScaleWindowExtEx(c.dc, 1, 0, 1, 1, nullptr));
}

TEST(Mapping, TheWayBackIsComputedInSinglePrecision)
{
    Canvas c(8, 8);
    SetGraphicsMode(c.dc, GM_ADVANCED);
    SetMapMode(c.dc, MM_ANISOTROPIC);
    SetWindowExtEx(c.dc, 675, 335, nullptr);
    SetViewportExtEx(c.dc, 7, 283, nullptr);
    const XFORM turn{0.8f, -0.6f, 0.6f, 0.8f, 10, -15};
    SetWorldTransform(c.dc, &turn);
    POINT p{-1400, -937};
    ASSERT_TRUE(DPtoLP(c.dc, &p, 1));
    EXPECT_EQ(p.x, -107351); // as recorded; in double precision -107352
    EXPECT_EQ(p.y, -81881);
}
