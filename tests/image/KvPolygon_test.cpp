// The point list of the polygon calls.
#include "contracts/image/KvPolygon.h"

#include <gtest/gtest.h>

using KvN::KvPolygon;

TEST(Polygon, KeepsItsPointsWhenItGrowsAndShrinks)
{
    KvPolygon polygon(2);
    polygon.SetPoint({3, -4}, 1);
    polygon.SetSize(3);
    EXPECT_EQ(polygon.GetSize(), 3);
    EXPECT_EQ(polygon[1].x, 3);
    EXPECT_EQ(polygon[1].y, -4);
    EXPECT_EQ(polygon[2].x, 0);
    polygon.SetSize(1);
    EXPECT_EQ(polygon.GetSize(), 1);
}

TEST(Polygon, NarrowsFarPointsToTheNearestBound)
{
    KvPolygon polygon(1);
    polygon.SetPoint({0x7FFFFFFFFFL, -0x7FFFFFFFFFL}, 0);
    const POINT* points = polygon;
    EXPECT_EQ(points[0].x, INT32_MAX);
    EXPECT_EQ(points[0].y, INT32_MIN);
}

TEST(Polygon, HoldsUpToTheSixteenBitLimit)
{
    KvPolygon polygon(65535);
    polygon.SetPoint({1, 2}, 65534);
    EXPECT_EQ(polygon[65534].y, 2);
    EXPECT_EQ(KvPolygon().GetSize(), 0);
}
