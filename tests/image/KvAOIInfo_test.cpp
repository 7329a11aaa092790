// Records that travel with an AOI.
#include "contracts/image/KvAOIInfo.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace KvN;

TEST(Norm, DefaultsAreEqual)
{
    EXPECT_TRUE(KvNorm() == KvNorm());
    EXPECT_EQ(KvNorm().factor, 1.0);
    EXPECT_EQ(KvNorm().displayMax, 0.0);
}

TEST(Norm, DiffersByTheSmallestChangeOfAnyField)
{
    const auto differs = [](auto change)
    {
        KvNorm changed;
        change(changed);
        return changed != KvNorm() && !(changed == KvNorm());
    };
    EXPECT_TRUE(differs([](KvNorm& n) { n.factor = std::nextafter(1.0, 2.0); }));
    EXPECT_TRUE(differs([](KvNorm& n) { n.origin = 5e-324; }));
    EXPECT_TRUE(differs([](KvNorm& n) { n.step = 5e-324; }));
    EXPECT_TRUE(differs([](KvNorm& n) { n.unit = L"Pixel"; }));
    EXPECT_TRUE(differs([](KvNorm& n) { n.dataMin = 5e-324; }));
    EXPECT_TRUE(differs([](KvNorm& n) { n.dataMax = 5e-324; }));
    EXPECT_TRUE(differs([](KvNorm& n) { n.displayMin = 5e-324; }));
    EXPECT_TRUE(differs([](KvNorm& n) { n.displayMax = 5e-324; }));
}

TEST(AOIInfo, StartsWithoutAUsableScale)
{
    EXPECT_EQ(KvAOIInfo().valid, 0);
    EXPECT_EQ(KvAOIInfo(L"Höhe").name, KvString(L"Höhe"));
    EXPECT_TRUE(KvAOIInfo() == KvAOIInfo());
}

TEST(AOIInfo, CopyTakesEveryField)
{
    KvAOIInfo first(L"a");
    first.valid = 1;
    first.normX.unit = L"Pixel";
    first.normY.step = 2.0;
    first.normZ.displayMax = 255.0;
    first.extraValue = 1.0;
    first.extraText = L"t";
    first.extraValue2 = 3.0;
    const KvAOIInfo second(first);
    EXPECT_TRUE(first == second);
    EXPECT_EQ(second.extraValue2, 3.0);
    EXPECT_EQ(second.normX.unit, KvString(L"Pixel"));
    first.extraText = L"u";
    EXPECT_TRUE(first != second);
}
