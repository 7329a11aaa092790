// Buffers that own an array.
#include "contracts/basics/KvBuffers.h"

#include "contracts/basics/KvPoint.h"

#include <gtest/gtest.h>

#include <numeric>

using namespace KvN;

namespace
{
KvTArray<unsigned char> Counted(int size)
{
    KvTArray<unsigned char> bytes(size);
    std::iota(bytes.data, bytes.data + size, static_cast<unsigned char>(1));
    return bytes;
}
} // namespace

TEST(KvTArray, ResizeKeepsTheFirstElementsAndClearsNewOnes)
{
    KvTArray<unsigned char> bytes = Counted(8);
    bytes.Resize(4);
    EXPECT_EQ(bytes.size, 4);
    EXPECT_EQ(bytes[3], 4);
    bytes.Resize(6);
    EXPECT_EQ(bytes[3], 4);
    EXPECT_EQ(bytes[4], 0);
}

TEST(KvTArray, ResizeToNothingFrees)
{
    for (const int nothing : {0, -1, -2147483647})
    {
        KvTArray<unsigned char> bytes = Counted(8);
        bytes.Resize(nothing);
        EXPECT_EQ(bytes.size, 0);
        EXPECT_EQ(bytes.data, nullptr);
    }
}

TEST(KvTArray, ResizeToTheSameSizeDoesNothing)
{
    KvTArray<unsigned char> bytes = Counted(8);
    const unsigned char* data = bytes.data;
    bytes.Resize(8);
    EXPECT_EQ(bytes.data, data);
}

TEST(KvTArray, CopiesAreDeepAndMovesTakeOver)
{
    KvTArray<unsigned char> bytes = Counted(8), copy(bytes), assigned;
    assigned = bytes;
    bytes[0] = 99;
    EXPECT_EQ(copy[0], 1);
    EXPECT_EQ(assigned[7], 8);
    const unsigned char* data = bytes.data;
    const KvTArray<unsigned char> taken(std::move(bytes));
    EXPECT_EQ(taken.data, data);
    EXPECT_EQ(taken[0], 99);
    assigned = KvTArray<unsigned char>();
    EXPECT_EQ(assigned.size, 0);
}

TEST(KvTMem, HoldsPointsAndResizes)
{
    KvTMem<KvTPoint<double>> mem(2);
    EXPECT_EQ(mem[1].x, 0.0);
    mem[0] = {1.0, 2.0};
    mem.Resize(5);
    EXPECT_EQ(mem.size, 5u);
    EXPECT_EQ(mem[0], KvTPoint<double>(1.0, 2.0));
    KvTMem<KvTPoint<double>> copy(mem), assigned;
    assigned = mem;
    assigned = static_cast<const KvTMem<KvTPoint<double>>&>(assigned);
    mem[0].x = 9.0;
    EXPECT_EQ(copy[0].x, 1.0);
    const auto& constant = assigned;
    EXPECT_EQ(constant[0].x, 1.0);
    mem.Resize(0);
    EXPECT_EQ(mem.data, nullptr);
}

TEST(KvTBuf1D, IsARowOfZeros)
{
    KvTBuf1D<short> row(3), none(-5);
    EXPECT_EQ(none.size, 0);
    row[2] = 7;
    const KvTBuf1D<short> copy(row);
    none = row;
    row[2] = 1;
    EXPECT_EQ(copy[2], 7);
    EXPECT_EQ(none[2], 7);
    EXPECT_EQ(none[0], 0);
}

TEST(KvTBuf2D, RunsRowAfterRow)
{
    KvTBuf2D<int> field(3, 2);
    EXPECT_EQ(field.Count(), 6u);
    field.Row(1)[2] = 7;
    EXPECT_EQ(field.data[5], 7);
    KvTBuf2D<int> copy(field), assigned;
    assigned = field;
    field.data[5] = 0;
    const KvTBuf2D<int>& constant = copy;
    EXPECT_EQ(constant.Row(1)[2], 7);
    EXPECT_EQ(assigned.height, 2);
    EXPECT_EQ(assigned.data[5], 7);
}

TEST(KvTBuf2D, WithoutExtentIsEmpty)
{
    for (const auto& [w, h] : {std::pair{0, 5}, std::pair{5, 0}, std::pair{-1, -1}})
    {
        const KvTBuf2D<int> field(w, h);
        EXPECT_EQ(field.Count(), 0u);
        EXPECT_EQ(field.data, nullptr);
    }
}
