// kvcontour check: every kind of finding, with file, line and contour.
#include "tests/contour/kvcontour.h"

using kv::testing::ContourXml;
using kv::testing::File;
using kv::testing::Outcome;
using testing::HasSubstr;

namespace
{
const std::string circle = ContourXml(" Id=\"7\"", "5", {{"1", "2"}, {"4", "2"}}); // 11 lines

class ContourCheck : public kv::testing::Program
{
protected:
    // One finding, word by word behind "kvcontour: a.xml: ".
    void Expect(const std::string& source, const std::string& finding) { ExpectAll(source, {finding}); }
    void ExpectAll(const std::string& source, const std::vector<std::string>& findings)
    {
        Put("a.xml", source);
        const Outcome outcome = Run("check a.xml");
        std::string expected;
        for (const std::string& finding : findings)
            expected += "kvcontour: a.xml: " + finding + "\n";
        EXPECT_EQ(outcome.error, expected);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.exitCode, 1);
    }
    void ExpectSound(const std::string& source)
    {
        Put("a.xml", source);
        const Outcome outcome = Run("check a.xml");
        EXPECT_EQ(outcome.error + outcome.out, "");
        EXPECT_EQ(outcome.exitCode, 0);
    }
};
} // namespace

TEST_F(ContourCheck, ASoundFileGivesNoOutput)
{
    ExpectSound(File(""));
    ExpectSound(File(circle + ContourXml("", "0", {{"0", "0"}, {"0", "5"}, {"9", "5"}, {"9", "0"}},
                                         "<Color/><LineWidth> </LineWidth><Angle>1e-3</Angle><Exclude>1</Exclude>")));
    const Outcome sample = Run("check '" KV_SOURCE_ROOT "/examples/data/brick.contours.xml'");
    EXPECT_EQ(sample.exitCode, 0) << sample.error;
}

TEST_F(ContourCheck, NamesAMissingFileAndAFolder)
{
    const Outcome missing = Run("check none.xml");
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_EQ(missing.error, "kvcontour: none.xml: No such file or directory\n");
    const Outcome directory = Run("check .");
    EXPECT_EQ(directory.exitCode, 1);
    EXPECT_EQ(directory.error, "kvcontour: .: Is a directory\n");
}

TEST_F(ContourCheck, NamesTheLineOfWhatIsNoXml)
{
    Put("a.xml", "<Contours>\n<Contour>\n</Contours>\n");
    const Outcome outcome = Run("check a.xml");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.error, HasSubstr("kvcontour: a.xml: line 3: not XML: "));
    Put("a.xml", "");
    EXPECT_THAT(Run("check a.xml").error, HasSubstr("kvcontour: a.xml: line 1: not XML: "));
}

TEST_F(ContourCheck, NamesAForeignRoot)
{
    Expect("<?xml version=\"1.0\"?>\n\n<Other/>\n", "line 3: the root element is \"Other\", not \"Contours\"");
    Expect("<contours/>", "line 1: the root element is \"contours\", not \"Contours\"");
}

TEST_F(ContourCheck, NamesUnknownMissingAndUnreadableTypes)
{
    ExpectAll(File(circle + ContourXml("", "6", {}) + ContourXml("", "-1", {}) + ContourXml(" Id=\"1\"", "x", {}) +
                   "<Contour/>"),
              {"line 14: contour 2: unknown ContourType \"6\"", "line 17: contour 3: unknown ContourType \"-1\"",
               "line 20: contour 4 (Id 1): its ContourType \"x\" is no number",
               "line 22: contour 5: has no ContourType"});
}

TEST_F(ContourCheck, NamesAWrongPointCountOfEveryType)
{
    const std::vector<std::pair<std::string, std::string>> one = {{"1", "1"}};
    const std::vector<std::pair<std::string, std::string>> three = {{"0", "0"}, {"0", "5"}, {"9", "5"}};
    const std::vector<std::pair<std::string, std::string>> five = {
        {"0", "0"}, {"0", "5"}, {"9", "5"}, {"9", "1"}, {"9", "0"}};
    Expect(File(ContourXml("", "0", three)),
           "line 2: contour 1: a wrong point count: 3 points in a rectangle, which has 4");
    Expect(File(ContourXml("", "0", five)),
           "line 2: contour 1: a wrong point count: 5 points in a rectangle, which has 4");
    Expect(File(ContourXml("", "1", one)),
           "line 2: contour 1: a wrong point count: 1 point in a polygon, which has 3 or more");
    Expect(File(ContourXml("", "2", one)),
           "line 2: contour 1: a wrong point count: 1 point in a polyline, which has 2 or more");
    Expect(File(ContourXml("", "3", five)),
           "line 2: contour 1: a wrong point count: 5 points in a square, which has 4");
    Expect(File(ContourXml("", "4", five)),
           "line 2: contour 1: a wrong point count: 5 points in an ellipse, which has 3");
    Expect(File(ContourXml("", "5", {})), "line 2: contour 1: a wrong point count: 0 points in a circle, which has 2");
}

TEST_F(ContourCheck, NamesMorePointsThanAFigureMayHave)
{
    std::string points;
    for (int i = 0; i < 65536; ++i)
        points += "<Point><PositionX>" + std::to_string(i) + "</PositionX><PositionY>0</PositionY></Point>";
    Expect(File("<Contour><ContourType>2</ContourType>" + points + "</Contour>"),
           "line 2: contour 1: more than 65535 points");
}

TEST_F(ContourCheck, NamesTheLineOfACoordinateThatIsNoNumber)
{
    ExpectAll(File(ContourXml(" Id=\"7\"", "5", {{"1", "zwei"}, {"", "1,5"}})),
              {"line 6: contour 1 (Id 7): PositionY of point 1, \"zwei\", is no number",
               "line 9: contour 1 (Id 7): PositionX of point 2, \"\", is no number",
               "line 10: contour 1 (Id 7): PositionY of point 2, \"1,5\", is no number"});
    ExpectAll(File("<Contour>\n<ContourType>5</ContourType>\n<Point/>\n<Point>\n<PositionX>1e999</PositionX>\n"
                   "<PositionY>nan</PositionY></Point></Contour>"),
              {"line 4: contour 1: PositionX of point 1 is missing",
               "line 4: contour 1: PositionY of point 1 is missing",
               "line 6: contour 1: PositionX of point 2, \"1e999\", is no number",
               "line 7: contour 1: PositionY of point 2, \"nan\", is no number"});
}

TEST_F(ContourCheck, ATooLongRectangleIsNamedBesideItsCoordinates)
{
    ExpectAll(File(ContourXml("", "0", {{"0", "0"}, {"0", "x"}, {"9", "5"}, {"9", "1"}, {"9", "0"}})),
              {"line 10: contour 1: PositionY of point 2, \"x\", is no number",
               "line 2: contour 1: a wrong point count: 5 points in a rectangle, which has 4"});
}

TEST_F(ContourCheck, NamesClockwiseAndOtherwiseInvalidFigures)
{
    Expect(File(circle + ContourXml("", "0", {{"0", "0"}, {"9", "0"}, {"9", "5"}, {"0", "5"}})),
           "line 13: contour 2: an invalid figure: it runs clockwise");
    Expect(File(ContourXml("", "1", {{"0", "0"}, {"1", "1"}, {"2", "2"}})),
           "line 2: contour 1: an invalid figure: it has no area");
    Expect(File(ContourXml("", "2", {{"3", "3"}, {"3", "3"}})),
           "line 2: contour 1: an invalid figure: it has no length");
    Expect(File(ContourXml("", "5", {{"3", "3"}, {"3", "3"}})), "line 2: contour 1: an invalid figure: it has no area");
}

TEST_F(ContourCheck, NamesIdsThatAreUsedTwice)
{
    ExpectAll(
        File(circle + circle + ContourXml("", "5", {{"1", "2"}, {"4", "2"}}) + circle),
        {"line 13: contour 2 (Id 7): has the Id of contour 1", "line 35: contour 4 (Id 7): has the Id of contour 1"});
}

TEST_F(ContourCheck, NamesAttributesThatSpoilTheId)
{
    const std::vector<std::pair<std::string, std::string>> points = {{"1", "2"}, {"4", "2"}};
    Expect(File(ContourXml(" Id=\"7\" b=\"1\"", "5", points)),
           "line 2: contour 1: a second attribute makes its Id ignored");
    Expect(File(ContourXml(" b=\"1\" Id=\"7\"", "5", points)),
           "line 2: contour 1: a second attribute makes its Id ignored");
    Expect(File(ContourXml(" Id=\"seven\"", "5", points)), "line 2: contour 1: its Id \"seven\" is no number");
    Expect(File(ContourXml(" id=\"7\"", "5", points)), "line 2: contour 1: the attribute \"id\" is not read");
}

TEST_F(ContourCheck, NamesFieldsThatAreNoNumbers)
{
    Expect(File(ContourXml("", "5", {{"1", "2"}, {"4", "2"}}, "<Color>red</Color>")),
           "line 4: contour 1: its Color \"red\" is no number");
    Expect(File(ContourXml("", "5", {{"1", "2"}, {"4", "2"}}, "<Angle>\n0,5</Angle>")),
           "line 4: contour 1: its Angle \" 0,5\" is no number");
}

TEST_F(ContourCheck, AMessageStaysOneShortLine)
{
    std::string umlauts;
    for (int i = 0; i < 1000; ++i)
        umlauts += "ä\n";
    Put("a.xml", File(ContourXml("", umlauts, {})));
    const Outcome outcome = Run("check a.xml");
    EXPECT_LT(outcome.error.size(), 150u);
    EXPECT_EQ(std::count(outcome.error.begin(), outcome.error.end(), '\n'), 1);
}

TEST_F(ContourCheck, RefusesNestingBombs)
{
    std::string bomb;
    for (int i = 0; i < 1000000; ++i)
        bomb += "<a>";
    for (int i = 0; i < 1000000; ++i)
        bomb += "</a>";
    Expect(bomb, "line 1: elements are nested more than 1024 levels deep");
}

TEST_F(ContourCheck, CountsLinesInUtf16)
{
    std::string bytes = "\xFF\xFE";
    for (const char c : File(circle + ContourXml("", "6", {})))
        bytes += {c, '\0'};
    Expect(bytes, "line 14: contour 2: unknown ContourType \"6\"");
}
