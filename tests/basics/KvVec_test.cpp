// Vectors, the constants of the geometry, and the host's matrix.
#include "contracts/basics/KvVec.h"

#include <gtest/gtest.h>

#include <bit>

using namespace KvN;

TEST(KvVec2d, StartsAtZeroAndComesFromIntegers)
{
    EXPECT_EQ(KvVec2d().x, 0.0);
    EXPECT_EQ(KvVec2d().y, 0.0);
    EXPECT_EQ(KvVec2i().x, 0);
    KvVec2d v = KvVec2i(3, -4);
    EXPECT_EQ(v.x, 3.0);
    v = KvVec2i(7, 8);
    EXPECT_EQ(v.y, 8.0);
    EXPECT_EQ(KvVec2d::XUnit.x, 1.0);
    EXPECT_EQ(KvVec2d::XUnit.y, 0.0);
}

TEST(KvVec2d, Computes)
{
    const KvVec2d a(1, 2), b(3, 5);
    EXPECT_EQ((a + b).y, 7.0);
    EXPECT_EQ((a - b).x, -2.0);
    EXPECT_EQ((a * 2.0).y, 4.0);
    EXPECT_EQ((2.0 * a).x, 2.0);
    EXPECT_EQ(a * b, 13.0);
    EXPECT_EQ(KvVec2d(3, 4).Length(), 5.0);
}

TEST(KvVec2d, DividesByMultiplyingWithTheReciprocal)
{
    const double quotient = (KvVec2d(5.0, 0.0) / 49.0).x;
    EXPECT_EQ(quotient, 5.0 * (1.0 / 49.0));
    EXPECT_NE(5.0 * (1.0 / 49.0), 5.0 / 49.0) << "the two differ here, so that the test tells them apart";
}

TEST(KvVec2d, UnitOfAZeroVectorIsX)
{
    EXPECT_EQ(KvVec2d(0.0, -2.0).Unit().y, -1.0);
    EXPECT_EQ(KvVec2d(0.0, 0.0).Unit().x, 1.0);
    EXPECT_EQ(KvVec2d(0.0, 0.0).Unit().y, 0.0);
}

TEST(KvMath, HasItsConstants)
{
    EXPECT_EQ(std::bit_cast<std::uint64_t>(KvMath::Pi), 0x400921FB54442D18u);
    EXPECT_EQ(KvMath::TwoPi, 2.0 * KvMath::Pi);
    EXPECT_EQ(KvMath::Epsilon, 1e-9);
    EXPECT_EQ(KvMath::Sqrt(2.25), 1.5);
}

TEST(KvMatrix4, StartsAsTheIdentityRowByRow)
{
    KvMatrix4 matrix;
    for (int i = 0; i < 16; ++i)
        EXPECT_EQ(matrix[i], i % 5 == 0 ? 1.0 : 0.0);
    matrix[3] = 7.0;
    const KvMatrix4 copy = matrix;
    EXPECT_EQ(copy[3], 7.0);
}
