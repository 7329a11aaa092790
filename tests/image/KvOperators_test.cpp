// Operators on whole AOIs.
#include "contracts/image/KvOperators.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{
using namespace KvN;

KvBufferAOI8 Bytes(std::initializer_list<int> values)
{
    KvBufferAOI8 aoi({static_cast<short>(values.size()), 1});
    std::copy(values.begin(), values.end(), aoi.GetRowPointer(0));
    return aoi;
}

KvBufferAOI32Float Floats(std::initializer_list<float> values)
{
    KvBufferAOI32Float aoi({static_cast<short>(values.size()), 1});
    std::copy(values.begin(), values.end(), aoi.GetRowPointer(0));
    return aoi;
}

std::vector<int> Row(const KvBufferAOI8& aoi)
{
    return {aoi.GetRowPointer(0), aoi.GetRowPointer(0) + aoi.AOIWidth()};
}

using Ints = std::vector<int>;
} // namespace

TEST(Transfer, FloatsBecomeBytesRoundedAndClamped)
{
    const float infinite = std::numeric_limits<float>::infinity();
    const auto source = Floats({-3.0f, 0.49f, 0.5f, 254.5f, 255.5f, infinite, -infinite, NAN});
    auto target = Bytes({9, 9, 9, 9, 9, 9, 9, 9});
    KvLTransfer().Copy(&source, &target);
    EXPECT_EQ(Row(target), (Ints{0, 0, 1, 255, 255, 255, 0, 0}));
}

TEST(Transfer, BytesSurviveFloatAndColour)
{
    KvBufferAOI8 source({256, 1}), back({256, 1});
    for (int i = 0; i < 256; ++i)
        source.GetRowPointer(0)[i] = static_cast<unsigned char>(i);
    KvBufferAOI32Float real({256, 1});
    KvBufferAOI32Color color({256, 1});
    KvLTransfer().Copy(&source, &real);
    KvLTransfer().Copy(&real, &color);
    KvLTransfer().Copy(&color, &back);
    EXPECT_EQ(Row(back), Row(source));
}

TEST(Transfer, DifferentSizesShareTheirCommonArea)
{
    const auto source = Bytes({1, 2});
    auto target = Bytes({7, 7, 7});
    KvLTransfer().Copy(&source, &target);
    EXPECT_EQ(Row(target), (Ints{1, 2, 7}));
    KvLTransfer().Copy(nullptr, &target);
    KvLTransfer().Copy(&source, nullptr);
    EXPECT_EQ(Row(target), (Ints{1, 2, 7}));
}

TEST(Transfer, BitSixTakesBitSevenByAShiftToTheRight)
{
    auto aoi = Bytes({0x80, 0x40, 0xC5, 0x3F, 0x00});
    KvLTransfer().TransferBits(&aoi, &aoi, 128, -1, 0);
    EXPECT_EQ(Row(aoi), (Ints{0xC0, 0x00, 0xC5, 0x3F, 0x00}));
}

TEST(Transfer, BitsComeBackFromACopy)
{
    const auto saved = Bytes({0x40, 0x00, 0xFF});
    auto aoi = Bytes({0x81, 0xC2, 0x03});
    KvLTransfer().TransferBits(&saved, &aoi, 64, 0, 0);
    EXPECT_EQ(Row(aoi), (Ints{0xC1, 0x82, 0x43}));
}

TEST(Transfer, BitsShiftedOutOfTheByteAreNone)
{
    const auto source = Bytes({0xFF});
    auto aoi = Bytes({0x55});
    KvLTransfer().TransferBits(&source, &aoi, 0xFF, 8, 0);
    KvLTransfer().TransferBits(&source, &aoi, 0xFF, -100, 0);
    EXPECT_EQ(Row(aoi), (Ints{0x55}));
    KvLTransfer().TransferBits(&source, &aoi, 3, 6, 0);
    EXPECT_EQ(Row(aoi), (Ints{0xD5}));
}

TEST(Transfer, BitsOfOtherAOIsAreLeftAlone)
{
    const auto source = Floats({1.0f});
    auto aoi = Bytes({0x55});
    KvLTransfer().TransferBits(&source, &aoi, 0xFF, 0, 0);
    EXPECT_EQ(Row(aoi), (Ints{0x55}));
}

TEST(Logic, AndTakesTheLowByteOfItsValue)
{
    auto aoi = Bytes({0xFF, 0x40, 0x81});
    KvLLogic().And(&aoi, static_cast<unsigned long>(-65), &aoi);
    EXPECT_EQ(Row(aoi), (Ints{0xBF, 0x00, 0x81}));
}

TEST(Arithmetic, WorksOnFloatsOnly)
{
    auto real = Floats({1.0f, -2.0f});
    KvLArithmetic().Multiply(&real, 2.0f, &real);
    KvLArithmetic().Add(&real, 0.5f, &real);
    EXPECT_EQ(real.GetPoint(0, 0), 2.5f);
    EXPECT_EQ(real.GetPoint(1, 0), -3.5f);
    auto bytes = Bytes({7});
    KvLArithmetic().Add(&bytes, 1.0f, &bytes);
    EXPECT_EQ(Row(bytes), (Ints{7}));
}

TEST(ScanRange, LeavesNaNsOutAndHeedsTheMask)
{
    const auto aoi = Floats({NAN, 3.0f, -4.0f, 9.0f});
    KvTFloatRange<float> range;
    KvxScanRange(&aoi, nullptr, range);
    EXPECT_EQ(range, (KvTFloatRange<float>(-4.0f, 9.0f)));
    const auto mask = Bytes({255, 1, 255, 0});
    KvxScanRange(&aoi, &mask, range);
    EXPECT_EQ(range, (KvTFloatRange<float>(-4.0f, 3.0f)));
}

TEST(ScanRange, IsZeroWithoutValues)
{
    const auto aoi = Floats({NAN, 5.0f});
    const auto mask = Bytes({255, 0});
    KvTFloatRange<float> range(1.0f, 2.0f);
    KvxScanRange(&aoi, &mask, range);
    EXPECT_EQ(range, (KvTFloatRange<float>(0.0f, 0.0f)));
}
