// kvcontour convert: round trips, broken inputs, and outputs that are whole or not there.
#include "tests/contour/kvcontour.h"

#include "C/syContour.h"

using kv::testing::ContourXml;
using kv::testing::File;
using kv::testing::Outcome;
using testing::HasSubstr;

namespace
{
const std::string sample = KV_SOURCE_ROOT "/examples/data/brick.contours.xml";

class ContourConvert : public kv::testing::Program
{
protected:
    // A failing conversion of `in` that must leave `out.*` as it was.
    std::string Error(const std::string& in, const std::string& out)
    {
        Put(out, "old");
        const auto before = Files();
        const Outcome outcome = Run("convert " + in + " " + out);
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(Get(out), "old");
        EXPECT_EQ(Files(), before);
        return outcome.error;
    }
};

std::string Length(std::uint32_t length)
{
    std::string bytes;
    for (int i = 0; i < 4; ++i)
        bytes += static_cast<char>(length >> 8 * i);
    return bytes;
}

std::string Bytes(const char* description)
{
    KvN::KvContour circle;
    circle.MakeCircle(1.0, 2.0, 1.0 / 3.0);
    circle.Description() = KvN::KvString(description);
    KvTArray<unsigned char> array;
    circle.ToByteArray(array);
    return Length(static_cast<std::uint32_t>(array.size)) + std::string(array.data, array.data + array.size);
}
} // namespace

TEST_F(ContourConvert, ASampleSurvivesTheWayThereAndBack)
{
    EXPECT_EQ(Run("convert '" + sample + "' a.kvb").exitCode, 0);
    EXPECT_EQ(Run("convert a.kvb b.XML").exitCode, 0);
    std::ifstream in(sample, std::ios::binary);
    EXPECT_EQ(Get("b.XML"), (std::string{std::istreambuf_iterator<char>(in), {}}));
    EXPECT_EQ(Run("convert a.kvb b.kvb").exitCode, 0);
    EXPECT_EQ(Get("b.kvb"), Get("a.kvb"));
    EXPECT_EQ(Run("info a.kvb").out, Run("info b.XML").out);
    EXPECT_EQ(Files(), 3);
}

TEST_F(ContourConvert, EachByteArrayStandsBehindItsLength)
{
    Put("a.kvb", Bytes("ä") + Bytes(""));
    EXPECT_EQ(Run("convert a.kvb b.kvb").exitCode, 0);
    EXPECT_EQ(Get("b.kvb"), Bytes("ä") + Bytes(""));
    EXPECT_EQ(Get("b.kvb").size(), 4u + 90u + 4u + 88u);
    EXPECT_EQ(Run("convert a.kvb b.xml").exitCode, 0);
    EXPECT_THAT(Get("b.xml"), HasSubstr("<Description>ä</Description>"));
}

TEST_F(ContourConvert, NoContoursMakeAnEmptyFileAndBack)
{
    Put("a.xml", File(""));
    EXPECT_EQ(Run("convert a.xml a.kvb").exitCode, 0);
    EXPECT_EQ(Get("a.kvb"), "");
    EXPECT_EQ(Run("convert a.kvb b.xml").exitCode, 0);
    EXPECT_THAT(Get("b.xml"), HasSubstr("<Contours />"));
}

TEST_F(ContourConvert, AFileCanBeConvertedOntoItself)
{
    Put("a.xml", "<Contours><Contour><ContourType>5</ContourType><Description> x </Description></Contour></Contours>");
    EXPECT_EQ(Run("convert a.xml a.xml").exitCode, 0);
    EXPECT_THAT(Get("a.xml"), HasSubstr("    <Description> x </Description>\n"));
}

TEST_F(ContourConvert, AnInvalidFigureHasNoByteForm)
{
    Put("a.xml", File(ContourXml("", "5", {{"1", "2"}, {"4", "2"}}) + ContourXml(" Id=\"3\"", "5", {{"1", "2"}})));
    EXPECT_EQ(Error("a.xml", "b.kvb"),
              "kvcontour: a.xml: line 13: contour 2 (Id 3) is not valid and has no byte form\n");
}

TEST_F(ContourConvert, BrokenInputsAreNamedAndLeaveTheOldFile)
{
    EXPECT_EQ(Error("none.xml", "b.kvb"), "kvcontour: none.xml: No such file or directory\n");
    EXPECT_EQ(Error("none.kvb", "b.xml"), "kvcontour: none.kvb: No such file or directory\n");
    Put("a.xml", "<Contours>");
    EXPECT_THAT(Error("a.xml", "b.kvb"), HasSubstr("kvcontour: a.xml: line 1: not XML: "));
    Put("a.xml", "<Other/>");
    EXPECT_THAT(Error("a.xml", "b.kvb"), HasSubstr("the root element is \"Other\""));
    Put("a.xml", File("\n" + ContourXml("", "6", {})));
    EXPECT_THAT(Error("a.xml", "b.xml"), HasSubstr("line 4: contour 1: unknown ContourType \"6\""));
}

TEST_F(ContourConvert, BrokenByteArraysAreNamedByRecordAndByte)
{
    const std::string good = Bytes("");
    const std::string second = "kvcontour: a.kvb: record 2 at byte 92 ";
    Put("a.kvb", good + good.substr(0, good.size() - 1));
    EXPECT_EQ(Error("a.kvb", "b.xml"), second + "ends behind the end of the file\n");
    Put("a.kvb", good + "abc");
    EXPECT_EQ(Error("a.kvb", "b.xml"), second + "ends behind the end of the file\n");
    Put("a.kvb", good + Length(0xFFFFFFFF) + good);
    EXPECT_EQ(Error("a.kvb", "b.xml"), second + "ends behind the end of the file\n");
    Put("a.kvb", good + Length(0));
    EXPECT_EQ(Error("a.kvb", "b.xml"), second + "holds no valid contour\n");
    Put("a.kvb", good + Length(80) + good.substr(4, 80));
    EXPECT_EQ(Error("a.kvb", "b.xml"), second + "holds no valid contour\n");
}

TEST_F(ContourConvert, AFullDiskLeavesTheOldFile)
{
    std::string contours;
    for (int i = 0; i < 2000; ++i)
        contours += ContourXml("", "5", {{"1", "2"}, {"4", "2"}});
    Put("a.xml", File(contours));
    for (const std::string out : {"b.kvb", "b.xml"})
    {
        Put(out, "old");
        const Outcome outcome = Run("convert a.xml " + out, "ulimit -f 100 &&");
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_EQ(outcome.error, "kvcontour: " + out + ": File too large\n");
        EXPECT_EQ(Get(out), "old");
    }
    EXPECT_EQ(Files(), 3);
}

TEST_F(ContourConvert, AFolderThatIsNotThereIsNamed)
{
    Put("a.xml", File(""));
    EXPECT_EQ(Run("convert a.xml none/b.kvb").error, "kvcontour: none/b.kvb: No such file or directory\n");
    EXPECT_EQ(Run("convert a.xml none/b.xml").error, "kvcontour: none/b.xml: No such file or directory\n");
    EXPECT_EQ(Files(), 1);
}
