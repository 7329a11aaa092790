// Arithmetic on rectangles, and MulDiv.
#include "platform/gdi/gdi.h"

#include <gtest/gtest.h>

TEST(Rectangles, IntersectAndUnite)
{
    const RECT a{0, 0, 10, 10}, b{5, 5, 15, 15}, far{20, 20, 30, 30}, empty{3, 3, 3, 8};
    RECT r{};
    EXPECT_TRUE(IntersectRect(&r, &a, &b));
    EXPECT_EQ(r.left, 5);
    EXPECT_EQ(r.bottom, 10);
    EXPECT_FALSE(IntersectRect(&r, &a, &far));
    EXPECT_TRUE(IsRectEmpty(&r));
    EXPECT_TRUE(UnionRect(&r, &a, &far));
    EXPECT_EQ(r.right, 30);
    EXPECT_TRUE(UnionRect(&r, &empty, &far));
    EXPECT_TRUE(EqualRect(&r, &far));
    EXPECT_FALSE(UnionRect(&r, &empty, &empty));
}

TEST(Rectangles, SubtractOnlyWholeSides)
{
    const RECT a{0, 0, 10, 10}, right{5, -1, 20, 20}, middle{3, 3, 6, 6}, all{-1, -1, 11, 11};
    RECT r{};
    EXPECT_TRUE(SubtractRect(&r, &a, &right));
    EXPECT_EQ(r.right, 5);
    EXPECT_TRUE(SubtractRect(&r, &a, &middle));
    EXPECT_TRUE(EqualRect(&r, &a));
    EXPECT_FALSE(SubtractRect(&r, &a, &all));
}

TEST(Rectangles, HoldTheirLeftAndTopOnly)
{
    const RECT a{0, 0, 10, 10};
    EXPECT_TRUE(PtInRect(&a, {0, 9}));
    EXPECT_FALSE(PtInRect(&a, {10, 9}));
    EXPECT_FALSE(PtInRect(nullptr, {0, 0}));
}

TEST(Rectangles, WrapInsteadOfOverflowing)
{
    RECT a{0, 0, INT32_MAX, 5};
    EXPECT_TRUE(OffsetRect(&a, 1, 0));
    EXPECT_EQ(a.right, INT32_MIN);
    EXPECT_TRUE(InflateRect(&a, INT32_MIN, INT32_MIN));
}

TEST(MulDiv, RoundsToNearestAndTellsOverflow)
{
    EXPECT_EQ(MulDiv(7, 1, 2), 4);
    EXPECT_EQ(MulDiv(-7, 1, 2), -4);
    EXPECT_EQ(MulDiv(7, 1, -2), -4);
    EXPECT_EQ(MulDiv(1000000, 1000000, 1000000), 1000000);
    EXPECT_EQ(MulDiv(5, 5, 0), -1);
    EXPECT_EQ(MulDiv(INT32_MAX, INT32_MAX, 1), -1);
}
