// Typed access to the pixels of an AOI.
#include "contracts/image/KvAOITypes.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{
using namespace KvN;

// 5 by 4 pixels, each 10 * y + x.
KvBufferAOI8 Numbered()
{
    KvBufferAOI8 aoi({5, 4});
    for (short y = 0; y < 4; ++y)
    {
        for (short x = 0; x < 5; ++x)
            aoi.SetPoint({x, y}, static_cast<unsigned char>(10 * y + x));
    }
    return aoi;
}

template <class T>
std::vector<int> Values(const KvTBuf1D<T>& buffer)
{
    return {buffer.data, buffer.data + buffer.size};
}

template <class T>
std::vector<int> Values(const KvTBuf2D<T>& buffer)
{
    return {buffer.data, buffer.data + buffer.Count()};
}

using Ints = std::vector<int>;
} // namespace

TEST(AOI, WholeAreaOfAnEmptySideCarriesTheMark)
{
    const KvBufferAOI8 aoi({0, 5});
    EXPECT_EQ(aoi.AOIRect(), KvTRectangle<short>(0, 0, -32768, 4));
    EXPECT_EQ(aoi.AOIRect().Width(), 0);
    EXPECT_EQ(aoi.AOIRect().Height(), 5);
}

TEST(AOI, NegativeSizeCountsAsZero)
{
    const KvBufferAOI8 aoi({-3, 7});
    EXPECT_EQ(aoi.AOISize(), KvTSize<short>(0, 7));
}

TEST(AOI, StartsWithZeroPixelsAndGreyTable)
{
    const KvBufferAOI8 aoi({2, 2});
    EXPECT_EQ(aoi.GetPoint(1, 1), 0);
    EXPECT_EQ(aoi.GetOLut()->GetName(), KvString(L"Grey"));
    EXPECT_EQ(aoi.GetDevType(), Device8);
    EXPECT_EQ(KvBufferAOI32Float({1, 1}).GetDevType(), Device32Float);
}

TEST(AOI, PointOutsideReadsZeroAndIsNotWritten)
{
    KvBufferAOI8 aoi = Numbered();
    EXPECT_EQ(aoi.GetPoint({3, 2}), 23);
    EXPECT_EQ(aoi.GetPoint(-1, 0), 0);
    EXPECT_EQ(aoi.GetPoint(0, 4), 0);
    aoi.SetPoint({5, 0}, 99);
    aoi.SetPoint({0, -1}, 99);
    KvTBuf2D<unsigned char> block;
    aoi.GetBlock(block);
    EXPECT_EQ(Values(block), (Ints{0, 1, 2, 3, 4, 10, 11, 12, 13, 14, 20, 21, 22, 23, 24, 30, 31, 32, 33, 34}));
}

TEST(AOI, RowsComeByStartRangeOrWhole)
{
    const KvBufferAOI8 aoi = Numbered();
    KvTBuf1D<unsigned char> row;
    aoi.GetRow(KvTPoint<short>(3, 1), 4, row);
    EXPECT_EQ(Values(row), (Ints{13, 14, 0, 0}));
    aoi.GetRow(2, KvTRange<short>(-1, 1), row);
    EXPECT_EQ(Values(row), (Ints{0, 20, 21}));
    aoi.GetRow(3, row);
    EXPECT_EQ(Values(row), (Ints{30, 31, 32, 33, 34}));
    aoi.GetRow(4, row);
    EXPECT_EQ(Values(row), (Ints{0, 0, 0, 0, 0}));
    aoi.GetRow(0, KvTRange<short>(3, 1), row);
    EXPECT_EQ(row.size, 0);
}

TEST(AOI, SettingARowIsCutToAOIAndBuffer)
{
    KvBufferAOI8 aoi = Numbered();
    KvTBuf1D<unsigned char> row(3);
    row[0] = 97, row[1] = 98, row[2] = 99;
    aoi.SetRow(KvTPoint<short>(-1, 0), 3, row);
    aoi.SetRow(1, KvTRange<short>(3, 30), row);
    aoi.SetRow(2, row);
    KvTBuf1D<unsigned char> got;
    aoi.GetRow(0, got);
    EXPECT_EQ(Values(got), (Ints{98, 99, 2, 3, 4}));
    aoi.GetRow(1, got);
    EXPECT_EQ(Values(got), (Ints{10, 11, 12, 97, 98}));
    aoi.GetRow(2, got);
    EXPECT_EQ(Values(got), (Ints{97, 98, 99, 23, 24}));
}

TEST(AOI, ColumnsGoDownward)
{
    KvBufferAOI8 aoi = Numbered();
    KvTBuf1D<unsigned char> column;
    aoi.GetColumn(KvTPoint<short>(2, 2), 3, column);
    EXPECT_EQ(Values(column), (Ints{22, 32, 0}));
    aoi.GetColumn(4, KvTRange<short>(1, 2), column);
    EXPECT_EQ(Values(column), (Ints{14, 24}));
    column[0] = 77, column[1] = 78;
    aoi.SetColumn(0, column);
    aoi.SetColumn(KvTPoint<short>(1, 3), 2, column);
    aoi.SetColumn(2, KvTRange<short>(-1, 0), column);
    KvTBuf2D<unsigned char> block;
    aoi.GetBlock(KvTRectangle<short>(0, 0, 2, 3), block);
    EXPECT_EQ(Values(block), (Ints{77, 1, 78, 78, 11, 12, 20, 21, 22, 30, 77, 32}));
}

TEST(AOI, LineTakesBothEndsAndOnePixelAStep)
{
    KvBufferAOI8 aoi = Numbered();
    KvTBuf1D<unsigned char> line;
    aoi.GetLine({0, 0}, {3, 3}, line);
    EXPECT_EQ(Values(line), (Ints{0, 11, 22, 33}));
    aoi.GetLine({4, 0}, {0, 1}, line);
    EXPECT_EQ(Values(line), (Ints{4, 3, 12, 11, 10}));
    aoi.GetLine({2, 2}, {2, 2}, line);
    EXPECT_EQ(Values(line), (Ints{22}));
    line[0] = 200;
    aoi.SetLine({1, 1}, {4, 1}, line);
    EXPECT_EQ(aoi.GetPoint(1, 1), 200);
    EXPECT_EQ(aoi.GetPoint(2, 1), 12);
}

TEST(AOI, FarLineStaysExact)
{
    const KvBufferAOI8 aoi = Numbered();
    KvTBuf1D<unsigned char> line;
    aoi.GetLine({-32768, -32768}, {32767, 32767}, line);
    ASSERT_EQ(line.size, 65536);
    EXPECT_EQ(line[32768], 0);
    EXPECT_EQ(line[32769], 11);
    EXPECT_EQ(line[32771], 33);
}

TEST(AOI, BlocksRunFromTheTopOrFromTheBottom)
{
    KvBufferAOI8 aoi = Numbered();
    KvTBuf2D<unsigned char> block;
    aoi.GetBlockBottomUp(KvTRectangle<short>(3, 2, 5, 3), block);
    EXPECT_EQ(Values(block), (Ints{33, 34, 0, 23, 24, 0}));
    aoi.GetBlock(KvTRectangle<short>(3, 2, 5, 3), block);
    EXPECT_EQ(Values(block), (Ints{23, 24, 0, 33, 34, 0}));
    aoi.SetBlock(KvTRectangle<short>(-1, 0, 1, 1), block);
    EXPECT_EQ(aoi.GetPoint(0, 0), 24);
    EXPECT_EQ(aoi.GetPoint(1, 1), 0);
    EXPECT_EQ(aoi.GetPoint(2, 0), 2);

    KvTBuf2D<unsigned char> whole;
    aoi.GetBlock(whole);
    aoi.SetBlockBottomUp(whole);
    KvTBuf2D<unsigned char> turned;
    aoi.GetBlockBottomUp(turned);
    EXPECT_EQ(Values(turned), Values(whole));
}

TEST(AOI, AnInvertedAreaGivesAnEmptyBlock)
{
    const KvBufferAOI8 aoi = Numbered();
    KvTBuf2D<unsigned char> block(2, 2);
    aoi.GetBlock(KvTRectangle<short>(3, 3, 1, 3), block);
    EXPECT_EQ(block.Count(), 0u);
}

TEST(AOI, SeveralShareOneDevice)
{
    auto buffer = std::make_unique<KvBufferAOI8>(KvTSize<short>(2, 1));
    const auto second = std::make_unique<KvAOI8>(buffer->GetDevice());
    buffer->SetPoint({1, 0}, 7);
    EXPECT_EQ(second->GetPoint(1, 0), 7);
    buffer.reset();
    EXPECT_EQ(second->GetPoint(1, 0), 7) << "the device lives as long as its last AOI";
}

TEST(AOI, ADeviceOfTheCallersIsOnlyReferredTo)
{
    KvDev8 device({3, 1});
    {
        KvAOI8 aoi(&device);
        aoi.GetRowPointer(0)[2] = 5;
    }
    EXPECT_EQ(device.Row(0)[2], 5);
    EXPECT_EQ(KvAOI8(nullptr).AOISize(), KvTSize<short>(0, 0));
}

TEST(AOI, ResizingABufferLeavesOthersTheirDevice)
{
    KvBufferAOI8 buffer({2, 1});
    buffer.SetPoint({0, 0}, 9);
    const KvAOI8 other(buffer.GetDevice());
    buffer.Resize({4, 3}, 1);
    EXPECT_EQ(buffer.AOISize(), KvTSize<short>(4, 3));
    EXPECT_EQ(buffer.GetPoint(0, 0), 0);
    EXPECT_EQ(other.GetPoint(0, 0), 9);
    buffer.Resize(other, 1);
    EXPECT_EQ(buffer.AOISize(), KvTSize<short>(2, 1));
}

TEST(AOI, CopyOfABufferIsDeep)
{
    KvBufferAOI8 first = Numbered();
    first.SetUIName(L"Bild");
    first.SetOLut(pOLutMgr->GetLut(L"Hot"));
    first.SetAOIInfo(new KvAOIInfo(L"Maß"));
    KvBufferAOI8 second(first, 0);
    KvBufferAOI8 third({1, 1});
    third = first;
    first.SetPoint({1, 1}, 99);
    first.aoiInfo->valid = 1;
    for (const KvBufferAOI8* copy : {&second, &third})
    {
        EXPECT_EQ(copy->GetPoint(1, 1), 11);
        EXPECT_EQ(copy->GetUIName(), KvString(L"Bild"));
        EXPECT_EQ(copy->GetOLut()->GetName(), KvString(L"Hot"));
        ASSERT_TRUE(copy->aoiInfo);
        EXPECT_EQ(copy->aoiInfo->name, KvString(L"Maß"));
        EXPECT_EQ(copy->aoiInfo->valid, 0);
    }
}

TEST(AOI, KeepsTheInfoItIsGiven)
{
    KvBufferAOI8 aoi({1, 1});
    EXPECT_EQ(aoi.aoiInfo, nullptr);
    auto* info = new KvAOIInfo;
    aoi.SetAOIInfo(info);
    aoi.SetAOIInfo(info);
    EXPECT_EQ(aoi.aoiInfo, info);
    aoi.SetAOIInfo(nullptr);
    EXPECT_EQ(aoi.aoiInfo, nullptr);
}

TEST(AOI, LargestSizeHasItsLastPixel)
{
    KvBufferAOI8 aoi({32767, 3});
    aoi.SetPoint({32766, 2}, 1);
    EXPECT_EQ(aoi.GetRowPointer(2)[32766], 1);
    EXPECT_EQ(aoi.AOIRect().Width(), 32767);
}

TEST(AOI, OnlyContainersHaveATable)
{
    KvBufferAOI8 grey({1, 1});
    KvBufferAOI32Float real({1, 1});
    KvBufferAOI32Color color({1, 1});
    EXPECT_TRUE(dynamic_cast<KvOLutContainer*>(static_cast<KvAOI*>(&grey)));
    EXPECT_TRUE(dynamic_cast<KvOLutContainer*>(static_cast<KvAOI*>(&real)));
    EXPECT_FALSE(dynamic_cast<KvOLutContainer*>(static_cast<KvAOI*>(&color)));
}

TEST(FloatAOI, ShownRangeFollowsEveryWrite)
{
    KvBufferAOI32Float aoi({2, 1});
    aoi.GetRowPointer(0)[0] = -1.5f;
    EXPECT_EQ(aoi.DisplayRange(), (KvTFloatRange<float>(-1.5f, 0.0f)));
    aoi.SetPoint({1, 0}, 8.0f);
    EXPECT_EQ(aoi.DisplayRange(), (KvTFloatRange<float>(-1.5f, 8.0f)));
    const KvAOI32Float same(aoi.GetDevice());
    aoi.Resize({1, 1}, 1);
    EXPECT_EQ(aoi.DisplayRange(), (KvTFloatRange<float>(0.0f, 0.0f)));
    EXPECT_EQ(same.DisplayRange(), (KvTFloatRange<float>(-1.5f, 8.0f)));
}

TEST(FloatAOI, ShownRangeIsThatOfAValidInfo)
{
    KvBufferAOI32Float aoi({2, 1});
    auto* info = new KvAOIInfo;
    info->normZ.displayMin = 2.0;
    info->normZ.displayMax = 3.0;
    aoi.SetAOIInfo(info);
    EXPECT_EQ(aoi.DisplayRange(), (KvTFloatRange<float>(0.0f, 0.0f)));
    info->valid = 1;
    EXPECT_EQ(aoi.DisplayRange(), (KvTFloatRange<float>(2.0f, 3.0f)));
}
