// kvcontour draw: outlines in their colours, descriptions beside them, and what can be wrong.
#include "contracts/image/KvImageFile.h"
#include "tests/contour/kvcontour.h"

using namespace KvN;
using kv::testing::ContourXml;
using kv::testing::File;
using kv::testing::Outcome;
using testing::HasSubstr;

namespace
{
class ContourDraw : public kv::testing::Program
{
protected:
    void SetUp() override
    {
        Program::SetUp();
        KvBufferAOI8 image({60, 40});
        for (int y = 0; y < 40; ++y)
            std::fill_n(image.GetRowPointer(y), 60, static_cast<unsigned char>(100));
        image.Save(Name("image.png"));
    }

    KvString Name(const std::string& name) const { return KvString((folder / name).c_str()); }

    // What the picture of these contours has at a place.
    KvColor At(const std::string& contours, short x, short y) const
    {
        Put("a.xml", File(contours));
        const Outcome outcome = Run("draw a.xml --image image.png -o p.png");
        EXPECT_EQ(outcome.exitCode, 0) << outcome.error;
        EXPECT_EQ(outcome.error, "");
        const auto aoi = KvxLoadAOI(Name("p.png"));
        EXPECT_EQ(aoi->AOISize(), KvTSize<short>(60, 40));
        if (const auto* color = dynamic_cast<const KvAOI32Color*>(aoi.get()))
            return color->GetPoint(x, y);
        const unsigned char grey = dynamic_cast<const KvAOI8&>(*aoi).GetPoint(x, y);
        return {grey, grey, grey};
    }
};

const KvColor background(100, 100, 100);

std::string Square(const std::string& fields = "")
{
    return ContourXml("", "3", {{"10", "10"}, {"10", "20"}, {"20", "20"}, {"20", "10"}}, fields);
}
} // namespace

TEST_F(ContourDraw, OutlinesAreGreenExcludedOnesRedOthersAsTheySay)
{
    EXPECT_EQ(At(Square(), 10, 15), KvColor(0, 230, 0));
    EXPECT_EQ(At(Square(), 15, 15), background) << "the inside shows the image";
    EXPECT_EQ(At(Square("<Exclude>1</Exclude>"), 15, 20), KvColor(255, 60, 60));
    EXPECT_EQ(At(Square("<Color>16711935</Color>"), 20, 15), KvColor(255, 0, 255));
}

TEST_F(ContourDraw, EveryTypeHasItsOutline)
{
    const KvColor green(0, 230, 0);
    EXPECT_EQ(At(ContourXml("", "1", {{"5", "5"}, {"5", "15"}, {"15", "15"}}), 5, 10), green);
    EXPECT_EQ(At(ContourXml("", "2", {{"5", "5"}, {"30", "5"}}, "<LineWidth>5</LineWidth>"), 15, 7), green);
    EXPECT_EQ(At(ContourXml("", "4", {{"30", "20"}, {"40", "20"}, {"30", "12"}}), 30, 12), green);
    EXPECT_EQ(At(ContourXml("", "5", {{"30", "20"}, {"40", "20"}}), 40, 20), green);
}

TEST_F(ContourDraw, DescriptionStandsBesideItsFigure)
{
    Put("a.xml", File(Square("<Description>Riß</Description>")));
    ASSERT_EQ(Run("draw a.xml --image image.png -o p.png").exitCode, 0);
    const auto aoi = KvxLoadAOI(Name("p.png"));
    const auto& picture = dynamic_cast<const KvAOI32Color&>(*aoi);
    int inside = 0, beside = 0;
    for (short y = 10; y < 24; ++y)
    {
        for (short x = 11; x < 60; ++x)
        {
            if (!(picture.GetPoint(x, y) == background) && x != 20 && y != 10 && y != 20)
                ++(x < 20 ? inside : beside);
        }
    }
    EXPECT_EQ(inside, 0);
    EXPECT_GT(beside, 20);
}

TEST_F(ContourDraw, FarAndBrokenFiguresAreHarmless)
{
    EXPECT_EQ(At(ContourXml("", "1", {{"-1e300", "5"}, {"1e300", "7"}, {"3", "1e18"}}) + ContourXml("", "1", {}) +
                     ContourXml("", "2", {{"0", "0"}}, "<LineWidth>1e300</LineWidth>"),
                 59, 0),
              background);
}

TEST_F(ContourDraw, ErrorsAreToldAndLeaveNothing)
{
    Put("a.xml", File(Square()));
    Put("bad.png", "x");
    EXPECT_EQ(Run("draw a.xml --image image.png -o p.gif").exitCode, 2);
    EXPECT_EQ(Run("draw a.xml --image image.png").exitCode, 2);
    const Outcome outcome = Run("draw a.xml --image bad.png -o p.png");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.error, "kvcontour: bad.png: is no PNG, BMP, JPEG or TIFF image\n");
    EXPECT_EQ(Run("draw missing.xml --image image.png -o p.png").exitCode, 1);
    EXPECT_EQ(Files(), 3);
}
