// The entries of the overlay dialog's list.
#include "C/uiMaskDlgOverlayEntry.h"

#include <gtest/gtest.h>

using namespace KvN;

namespace
{

KvBufferAOI8 Bytes2x2(unsigned char a, unsigned char b, unsigned char c, unsigned char d)
{
    KvBufferAOI8 aoi(KvTSize<short>(2, 2), 0);
    aoi.GetRowPointer(0)[0] = a;
    aoi.GetRowPointer(0)[1] = b;
    aoi.GetRowPointer(1)[0] = c;
    aoi.GetRowPointer(1)[1] = d;
    return aoi;
}

KvAOIInfo Scale()
{
    KvAOIInfo info("scale");
    info.valid = 1;
    info.normX.unit = "mm";
    info.normZ.unit = "Grad";
    info.normZ.factor = 0.5;
    info.extraText = "kept";
    return info;
}

} // namespace

TEST(AOIListEntry, WithoutASourceHasNoDisplay)
{
    const KvAOIListEntry entry(nullptr);
    EXPECT_EQ(entry.displayAOI, nullptr);
    EXPECT_EQ(entry.sourceAOI, nullptr);
    EXPECT_EQ(entry.selected, 0);
    EXPECT_EQ(entry.buffer.AOISize(), KvTSize<short>(1, 1));
}

TEST(AOIListEntry, CopiesPixelsTableAndName)
{
    KvBufferAOI8 source = Bytes2x2(10, 20, 30, 200);
    source.SetUIName("Oben");
    source.SetOLut(pOLutMgr->GetLut("Rainbow"));
    const KvAOIListEntry entry(&source);
    EXPECT_EQ(entry.sourceAOI, &source);
    ASSERT_NE(entry.displayAOI, nullptr);
    EXPECT_EQ(entry.displayAOI->AOISize(), KvTSize<short>(2, 2));
    EXPECT_EQ(entry.displayAOI->GetPoint(1, 1), 200.0f);
    EXPECT_EQ(entry.displayAOI->GetUIName(), KvString("Oben"));
    EXPECT_EQ(entry.displayAOI->GetOLut()->GetName(), KvString("Rainbow"));
}

TEST(AOIListEntry, ShowsAnEightBitSourceUpTo255)
{
    KvBufferAOI8 source = Bytes2x2(10, 20, 30, 200);
    const KvAOIListEntry entry(&source);
    const KvAOIInfo& info = *entry.displayAOI->aoiInfo;
    EXPECT_EQ(info.valid, 1);
    EXPECT_EQ(info.normX.unit, KvString("Pixel"));
    EXPECT_EQ(info.normY.step, 1.0);
    EXPECT_EQ(info.normZ.unit, KvString("Greyvalues"));
    EXPECT_EQ(info.normZ.dataMin, 10.0);
    EXPECT_EQ(info.normZ.displayMin, 10.0);
    EXPECT_EQ(info.normZ.dataMax, 200.0);
    EXPECT_EQ(info.normZ.displayMax, 255.0);
}

TEST(AOIListEntry, ShowsAFloatSourceUpToItsHighestValue)
{
    KvBufferAOI32Float source(KvTSize<short>(2, 1), 0);
    source.GetRowPointer(0)[0] = -3.5f;
    source.GetRowPointer(0)[1] = 900.0f;
    const KvAOIListEntry entry(&source);
    EXPECT_EQ(entry.displayAOI->aoiInfo->normZ.displayMin, -3.5);
    EXPECT_EQ(entry.displayAOI->aoiInfo->normZ.displayMax, 900.0);
}

TEST(AOIListEntry, KeepsAValidScaleOfTheSourceButNotAnInvalidOne)
{
    KvBufferAOI8 source = Bytes2x2(1, 2, 3, 4);
    source.SetAOIInfo(new KvAOIInfo(Scale()));
    {
        const KvAOIListEntry entry(&source);
        const KvAOIInfo& info = *entry.displayAOI->aoiInfo;
        EXPECT_EQ(info.normX.unit, KvString("mm"));
        EXPECT_EQ(info.normZ.factor, 0.5);
        EXPECT_EQ(info.extraText, KvString("kept"));
        EXPECT_EQ(info.normZ.dataMax, 4.0);
        EXPECT_EQ(info.normZ.displayMax, 255.0);
    }
    source.aoiInfo->valid = 0;
    const KvAOIListEntry entry(&source);
    EXPECT_EQ(entry.displayAOI->aoiInfo->normX.unit, KvString("Pixel"));
}

TEST(AOIListEntry, CopyShowsTheSameDisplay)
{
    KvBufferAOI8 source = Bytes2x2(1, 2, 3, 4);
    KvAOIListEntry entry(&source);
    entry.selected = 1;
    const KvAOIListEntry copy(entry);
    EXPECT_EQ(copy.displayAOI, entry.displayAOI);
    EXPECT_EQ(copy.sourceAOI, &source);
    EXPECT_EQ(copy.selected, 1);
}

TEST(AOIListEntry, AssignmentMakesADisplayOfItsOwnAndKeepsTheFormerOneAlive)
{
    KvBufferAOI8 first = Bytes2x2(1, 2, 3, 4);
    KvBufferAOI8 second = Bytes2x2(5, 6, 7, 8);
    second.SetUIName("Zweite");
    second.SetOLut(pOLutMgr->GetLut("Hot"));
    KvAOIListEntry entry(&first);
    const KvAOI32Float* former = entry.displayAOI;
    const KvAOIListEntry other(&second);
    entry = other;
    EXPECT_NE(entry.displayAOI, other.displayAOI);
    EXPECT_NE(entry.displayAOI, former);
    EXPECT_EQ(former->GetPoint(1, 1), 4.0f);
    EXPECT_EQ(entry.displayAOI->GetPoint(0, 0), 5.0f);
    EXPECT_EQ(entry.displayAOI->GetUIName(), KvString("Zweite"));
    EXPECT_EQ(entry.displayAOI->GetOLut()->GetName(), KvString("Hot"));
    EXPECT_EQ(entry.displayAOI->aoiInfo->normZ.dataMax, 8.0);
    EXPECT_NE(entry.displayAOI->aoiInfo, other.displayAOI->aoiInfo);
    EXPECT_EQ(entry.sourceAOI, &second);
}

TEST(AOIListEntry, ComparesBit7WithBit5)
{
    KvBufferAOI8 same = Bytes2x2(0, 128 + 32, 64, 31);
    EXPECT_EQ(KvAOIListEntry::CheckObjEqSegment(&same), 1);
    KvBufferAOI8 object = Bytes2x2(0, 128 + 64, 0, 0);
    EXPECT_EQ(KvAOIListEntry::CheckObjEqSegment(&object), 0);
    KvBufferAOI8 segment = Bytes2x2(0, 0, 0, 32);
    EXPECT_EQ(KvAOIListEntry::CheckObjEqSegment(&segment), 0);
}

TEST(AOIListEntry, FindsBitsOfAnEightBitAOIOnly)
{
    KvBufferAOI8 aoi = Bytes2x2(0, 1, 2, 64);
    EXPECT_EQ(KvAOIListEntry::CheckSegment8(&aoi, 64), 1);
    EXPECT_EQ(KvAOIListEntry::CheckSegment8(&aoi, 128 + 2), 1);
    EXPECT_EQ(KvAOIListEntry::CheckSegment8(&aoi, 128), 0);
    KvBufferAOI8 empty(KvTSize<short>(0, 0), 0);
    KvBufferAOI32Float floats(KvTSize<short>(2, 2), 0);
    for (KvAOI* other : {static_cast<KvAOI*>(nullptr), static_cast<KvAOI*>(&empty), static_cast<KvAOI*>(&floats)})
    {
        EXPECT_EQ(KvAOIListEntry::CheckSegment8(other, 255), 0);
        EXPECT_EQ(KvAOIListEntry::CheckObjEqSegment(other), 1);
    }
}
