// The six output tables and their manager.
#include "contracts/image/KvLut.h"

#include <gtest/gtest.h>

#include <set>

namespace
{
using namespace KvN;

const KvLut::Colors& ColorsOf(const wchar_t* name)
{
    return pOLutMgr->GetLut(name)->GetColors();
}
} // namespace

TEST(OutputTables, AreSixInTheirOrder)
{
    ASSERT_EQ(pOLutMgr->GetNumLuts(), 6);
    KvTMem<KvString> names(6);
    pOLutMgr->GetAllLutNames(names);
    const wchar_t* expected[] = {L"Grey", L"GreyInverted", L"DefectRegion", L"Mask", L"Rainbow", L"Hot"};
    for (unsigned i = 0; i < 6; ++i)
        EXPECT_EQ(names[i], KvString(expected[i]));
    KvTMem<KvString> two(2);
    pOLutMgr->GetAllLutNames(two);
    EXPECT_EQ(two[1], KvString(L"GreyInverted"));
}

TEST(OutputTables, UnknownNameHasNone)
{
    EXPECT_EQ(pOLutMgr->GetLut(L"grey"), nullptr);
    EXPECT_EQ(pOLutMgr->GetLut(L""), nullptr);
}

TEST(OutputTables, GreyAndItsInverse)
{
    for (int i = 0; i < 256; ++i)
    {
        EXPECT_EQ(ColorsOf(L"Grey")[size_t(i)], KvColor(i, i, i));
        EXPECT_EQ(ColorsOf(L"GreyInverted")[size_t(i)], KvColor(255 - i, 255 - i, 255 - i));
    }
}

TEST(OutputTables, WhiteOfDefectRegionIsTheLastIndexOnly)
{
    const auto& colors = ColorsOf(L"DefectRegion");
    EXPECT_EQ(colors[0], KvColor(0, 0, 0));
    std::set<COLORREF> seen;
    for (const KvColor& color : colors)
        seen.insert(color.ColorRef());
    EXPECT_EQ(seen.size(), 256u);
    EXPECT_EQ(pOLutMgr->GetLut(L"DefectRegion")->NearestIndex({255, 255, 255}), 255);
}

TEST(OutputTables, MaskShowsItsTwoBits)
{
    const auto& colors = ColorsOf(L"Mask");
    EXPECT_EQ(colors[0x80], KvColor(255, 0, 0));
    EXPECT_EQ(colors[0x40], KvColor(0, 0, 255));
    EXPECT_EQ(colors[0xC0], KvColor(255, 0, 255));
    EXPECT_EQ(colors[0x3F], KvColor(0, 0, 0));
}

TEST(OutputTables, RainbowAndHotRunToTheirEnds)
{
    EXPECT_GT(ColorsOf(L"Rainbow")[0].blue, 0);
    EXPECT_EQ(ColorsOf(L"Rainbow")[0].red, 0);
    EXPECT_GT(ColorsOf(L"Rainbow")[255].red, 0);
    EXPECT_EQ(ColorsOf(L"Rainbow")[255].blue, 0);
    EXPECT_EQ(ColorsOf(L"Hot")[0], KvColor(0, 0, 0));
    EXPECT_EQ(ColorsOf(L"Hot")[85], KvColor(255, 0, 0));
    EXPECT_EQ(ColorsOf(L"Hot")[255], KvColor(255, 255, 255));
}

TEST(OutputTables, NearestIsTheLowestAmongEquals)
{
    KvLut::Colors colors{};
    colors[3] = colors[9] = KvColor(100, 0, 0);
    EXPECT_EQ(KvLut(L"", colors).NearestIndex({99, 1, 0}), 3);
}

TEST(OutputTables, AContainerKeepsItsTableIfGivenNone)
{
    KvOLutContainer container;
    container.SetOLut(pOLutMgr->GetLut(L"Hot"));
    container.SetOLut(nullptr);
    container.TakeOLut(nullptr);
    EXPECT_EQ(container.GetOLut()->GetName(), KvString(L"Hot"));
    KvOLutContainer other;
    other.TakeOLut(container.GetOLut());
    EXPECT_EQ(other.GetOLut(), container.GetOLut());
}

TEST(OutputTables, GreyStandsInForATableThatHasGone)
{
    KvOLutContainer container;
    KvOLutContainer other;
    {
        KvOLut own(L"own", KvLut::Colors{});
        container.SetOLut(&own);
        EXPECT_EQ(container.GetOLut(), &own);
        other.TakeOLut(container.GetOLut());
    }
    EXPECT_EQ(container.GetOLut(), pOLutMgr->GetLut(L"Grey"));
    EXPECT_EQ(other.GetOLut(), pOLutMgr->GetLut(L"Grey"));
    container.SetOLut(pOLutMgr->GetLut(L"Hot"));
    EXPECT_EQ(container.GetOLut(), pOLutMgr->GetLut(L"Hot"));
}
