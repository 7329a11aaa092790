// Rectangles of inclusive bounds and their no-value marks.
#include "contracts/basics/KvRectangle.h"

#include <gtest/gtest.h>

#include <limits>

using namespace KvN;

TEST(KvTRectangle, DefaultHasNoExtent)
{
    const KvTRectangle<int> r;
    EXPECT_EQ(r.left, 0);
    EXPECT_EQ(r.top, 0);
    EXPECT_EQ(static_cast<unsigned>(r.right), 0x80008000u);
    EXPECT_EQ(static_cast<unsigned>(r.bottom), 0x80008000u);
    EXPECT_EQ(r.Width(), 0);
    EXPECT_EQ(r.Height(), 0);
    EXPECT_EQ(KvTRectangle<double>().right, 2147516416.0) << "converted as an unsigned number";
    EXPECT_EQ(KvTRectangle<double>().Width(), 0.0);
    EXPECT_EQ(KvTRectangle<short>().bottom, -32768);
}

TEST(KvTRectangle, BoundsAreInclusive)
{
    const KvTRectangle<int> r(3, 4, 3, 9);
    EXPECT_EQ(r.Width(), 1);
    EXPECT_EQ(r.Height(), 6);
    EXPECT_EQ((KvTRectangle<int>(5, 0, 2, -1).Width()), -4);
    EXPECT_EQ((KvTRectangle<int>(5, 0, 2, -1).Height()), -2);
    EXPECT_EQ((KvTRectangle<double>(1.5, 0, 4.0, 0).Width()), 3.5);
    EXPECT_EQ((KvTRectangle<double>(4.0, 0, 1.5, 0).Width()), -3.5);
}

TEST(KvTRectangle, FromPositionAndSize)
{
    const KvTRectangle<short> r(KvTPoint<short>(2, 3), KvTSize<short>(10, 0));
    EXPECT_EQ(r, KvTRectangle<short>(2, 3, 11, -32768));
    EXPECT_EQ(r.Width(), 10);
    EXPECT_EQ(r.Height(), 0);
    const KvTRectangle<short> flat(KvTPoint<short>(0, 0), KvTSize<short>(0, 5));
    EXPECT_EQ(flat, KvTRectangle<short>(0, 0, -32768, 4));
    EXPECT_EQ(flat.Width(), 0);
    EXPECT_EQ(flat.Height(), 5);
}

TEST(KvTRectangle, WrapsAtTheWidthOfItsNumbers)
{
    constexpr int most = std::numeric_limits<int>::max(), least = std::numeric_limits<int>::min();
    EXPECT_EQ((KvTRectangle<int>(0, 0, most, 0).Width()), least);
    EXPECT_EQ((KvTRectangle<int>(1, 0, least, 0).Width()), least);
    EXPECT_EQ((KvTRectangle<short>(-32767, 0, 32767, 0).Width()), -3);
    EXPECT_EQ((KvTRectangle<int>(KvTPoint<int>(most, 0), KvTSize<int>(2, 1)).right), least);
}

TEST(KvTPair, StandsForAnEdge)
{
    EXPECT_EQ(KvTPair<long>(), KvTPair<long>(0, 0));
    EXPECT_NE(KvTPair<long>(-1, -1), KvTPair<long>(-1, 0));
}
