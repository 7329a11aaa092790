// kvcontour info: the table, the JSON, and what it says of broken files.
#include "tests/contour/kvcontour.h"

using kv::testing::ContourXml;
using kv::testing::File;
using kv::testing::Outcome;
using testing::HasSubstr;

namespace
{
using ContourInfo = kv::testing::Program;

const std::string figures =
    File(ContourXml(" Id=\"7\"", "5", {{"1", "2"}, {"4", "2"}}, "<Exclude>1</Exclude>") +
         ContourXml("", "0", {{"0", "0"}, {"0", "5"}, {"10", "5"}, {"10", "0"}},
                    "<Description>Riß \"1\"\n\\ &#9;</Description><Color>255</Color><ReadOnly>1</ReadOnly>") +
         ContourXml("", "2", {{"0", "0"}, {"10", "0"}}, "<LineWidth>4</LineWidth><SequenceID>3</SequenceID>") +
         ContourXml("", "4", {{"5", "5"}, {"7", "5"}, {"5", "4"}}) + ContourXml(" Id=\"0\"", "1", {}));
} // namespace

TEST_F(ContourInfo, PrintsAnAlignedTable)
{
    Put("a.xml", figures);
    const Outcome outcome = Run("info a.xml");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.error, "");
    EXPECT_EQ(outcome.out,
              "#  id  type       valid    area  length        centre  box (left, top, right, bottom)  angle\n"
              "1   7  circle       yes  28.274  18.850  1.000, 2.000    -2.000, -1.000, 4.000, 5.000  0.000  excluded\n"
              "2   -  rectangle    yes  50.000  30.000  5.000, 2.500     0.000, 0.000, 10.000, 5.000  0.000  "
              "Riß \"1\" \\  \n"
              "3   -  polyline     yes   0.000  10.000             -   -2.000, -2.000, 12.000, 2.000  0.000\n"
              "4   -  ellipse      yes   6.283       -  5.000, 5.000      3.000, 4.000, 7.000, 6.000  0.000\n"
              "5   0  polygon       no   0.000   0.000             -                               -  0.000\n");
}

TEST_F(ContourInfo, PrintsOneJsonObjectAContour)
{
    Put("a.xml", figures);
    const Outcome outcome = Run("info a.xml --json");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.out,
              "{\"index\":1,\"id\":7,\"type\":\"circle\",\"valid\":true,\"area\":28.274333882308138,"
              "\"length\":18.84955592153876,\"centre\":{\"x\":1,\"y\":2},"
              "\"box\":{\"left\":-2,\"top\":-1,\"right\":4,\"bottom\":5},\"angle\":0,\"points\":2,\"sequenceId\":-1,"
              "\"exclude\":true,\"readOnly\":false,\"lineWidth\":null,\"color\":null,\"description\":\"\"}\n"
              "{\"index\":2,\"id\":null,\"type\":\"rectangle\",\"valid\":true,\"area\":50,\"length\":30,"
              "\"centre\":{\"x\":5,\"y\":2.5},\"box\":{\"left\":0,\"top\":0,\"right\":10,\"bottom\":5},\"angle\":0,"
              "\"points\":4,\"sequenceId\":-1,\"exclude\":false,\"readOnly\":true,\"lineWidth\":null,\"color\":255,"
              "\"description\":\"Riß \\\"1\\\"\\u000a\\\\ \\u0009\"}\n"
              "{\"index\":3,\"id\":null,\"type\":\"polyline\",\"valid\":true,\"area\":0,\"length\":10,\"centre\":null,"
              "\"box\":{\"left\":-2,\"top\":-2,\"right\":12,\"bottom\":2},\"angle\":0,\"points\":2,\"sequenceId\":3,"
              "\"exclude\":false,\"readOnly\":false,\"lineWidth\":4,\"color\":null,\"description\":\"\"}\n"
              "{\"index\":4,\"id\":null,\"type\":\"ellipse\",\"valid\":true,\"area\":6.283185307179586,"
              "\"length\":null,\"centre\":{\"x\":5,\"y\":5},"
              "\"box\":{\"left\":3,\"top\":4,\"right\":7,\"bottom\":6},\"angle\":0,\"points\":3,\"sequenceId\":-1,"
              "\"exclude\":false,\"readOnly\":false,\"lineWidth\":null,\"color\":null,\"description\":\"\"}\n"
              "{\"index\":5,\"id\":0,\"type\":\"polygon\",\"valid\":false,\"area\":0,\"length\":0,\"centre\":null,"
              "\"box\":null,\"angle\":0,\"points\":0,\"sequenceId\":-1,\"exclude\":false,\"readOnly\":false,"
              "\"lineWidth\":null,\"color\":null,\"description\":\"\"}\n");
}

TEST_F(ContourInfo, JsonHoldsNoInfinity)
{
    Put("a.xml", File(ContourXml("", "1", {{"0", "0"}, {"1e300", "1e999"}, {"-1e300", "1e300"}}) +
                      ContourXml("", "5", {{"0", "0"}})));
    const Outcome outcome = Run("info a.xml --json");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(outcome.out, HasSubstr("null"));
    EXPECT_EQ(outcome.out.find("inf"), std::string::npos);
    EXPECT_EQ(outcome.out.find("nan"), std::string::npos);
}

TEST_F(ContourInfo, AnEmptyFileOfContoursHasAHeaderOnly)
{
    Put("a.xml", File(""));
    EXPECT_EQ(Run("info a.xml").out,
              "#  id  type  valid  area  length  centre  box (left, top, right, bottom)  angle\n");
    EXPECT_EQ(Run("info --json a.xml").out, "");
}

TEST_F(ContourInfo, SaysWhatIsWrongWithAFile)
{
    const auto error = [this](const std::string& source)
    {
        Put("a.xml", source);
        const Outcome outcome = Run("info a.xml");
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_EQ(outcome.out, "");
        return outcome.error;
    };
    EXPECT_EQ(Run("info none.xml").error, "kvcontour: none.xml: No such file or directory\n");
    EXPECT_EQ(Run("info none.xml").exitCode, 1);
    EXPECT_THAT(error("no xml"), HasSubstr("kvcontour: a.xml: line 1: not XML: "));
    EXPECT_EQ(error("<a/>"), "kvcontour: a.xml: line 1: the root element is \"a\", not \"Contours\"\n");
    EXPECT_EQ(error(File(ContourXml("", "9", {}))), "kvcontour: a.xml: line 3: contour 1: unknown ContourType \"9\"\n");
    EXPECT_EQ(error(File(ContourXml("", "0", {{"1", "1"}, {"1", "1"}, {"1", "1"}, {"1", "1"}, {"1", "1"}}))),
              "kvcontour: a.xml: line 2: contour 1: a wrong point count: 5 points in a rectangle, which has 4\n");
}

TEST_F(ContourInfo, SaysThatTheOutputCannotBeWritten)
{
    Put("a.xml", figures);
    EXPECT_EQ(
        std::system(("'" KVCONTOUR "' info '" + (folder / "a.xml").string() + "' >/dev/full 2>/dev/null").c_str()),
        1 << 8);
}
