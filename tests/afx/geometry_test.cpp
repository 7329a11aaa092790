// Points, sizes and rectangles of the class layer.
#include "platform/afx/geometry.h"

#include <gtest/gtest.h>

TEST(Point, AddsPointsAndSizes)
{
    CPoint p(3, 4);
    EXPECT_EQ(p + CSize(1, 2), CPoint(4, 6));
    EXPECT_EQ(p - CPoint(1, 1), CSize(2, 3));
    EXPECT_EQ(-p, CPoint(-3, -4));
    p.Offset(1, -1);
    p += CSize(1, 1);
    EXPECT_EQ(p, CPoint(5, 4));
}

TEST(Point, UnpacksAMessageWithSigns)
{
    EXPECT_EQ(CPoint(LPARAM(0xFFFE0005)), CPoint(5, -2));
}

TEST(Rect, MeasuresAndMoves)
{
    CRect r(CPoint(1, 2), CSize(10, 20));
    EXPECT_EQ(r, CRect(1, 2, 11, 22));
    EXPECT_EQ(r.Width(), 10);
    EXPECT_EQ(r.Size(), CSize(10, 20));
    EXPECT_EQ(r.CenterPoint(), CPoint(6, 12));
    r.InflateRect(1, 2);
    EXPECT_EQ(r, CRect(0, 0, 12, 24));
    r.DeflateRect(1, 2, 3, 4);
    EXPECT_EQ(r, CRect(1, 2, 9, 20));
    r.MoveToXY(0, 0);
    EXPECT_EQ(r, CRect(0, 0, 8, 18));
    EXPECT_TRUE(r.PtInRect({7, 17}));
    EXPECT_FALSE(r.PtInRect({8, 17}));
}

TEST(Rect, NormalizesAndCombines)
{
    CRect r(10, 20, 1, 2);
    EXPECT_TRUE(r.IsRectEmpty());
    r.NormalizeRect();
    EXPECT_EQ(r, CRect(1, 2, 10, 20));
    EXPECT_EQ(r & CRect(5, 5, 30, 30), CRect(5, 5, 10, 20));
    EXPECT_EQ(r | CRect(5, 5, 30, 30), CRect(1, 2, 30, 30));
    EXPECT_FALSE(r.IntersectRect(r, CRect(50, 50, 60, 60)));
    EXPECT_TRUE(r.IsRectNull());
}
