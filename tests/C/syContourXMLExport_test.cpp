// Contours written as XML: the tree, the modes, the failures, and the cursor after each.
#include "C/syContourXMLExport.h"

#include "tests/C/contour_xml.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

using namespace KvN;
using kv::testing::Figure;
using kv::testing::Ids;
using kv::testing::Thrown;
using Export = KvContourXMLExport;
namespace fs = std::filesystem;

namespace
{
const KvString secondRoot = L"KvContourXMLExport::Execute: Es ist nicht erlaubt, in einer XML-Datei einen zweiten "
                            L"Ursprungsknoten anzulegen";
const KvString pointCount = L"KvContourXMLExport::WriteContents: Die Punktliste des grafischen Objekts enthält nicht "
                            L"die erforderliche Anzahl von Punkten";

KvContour Circle(std::int32_t id = -1)
{
    return Figure(KvContour::eCircle, {{1, 2}, {4, 2}}, id);
}
KvContour FivePointRectangle()
{
    return Figure(KvContour::eRectangle, {{0, 0}, {0, 5}, {9, 5}, {9, 0}, {4, 4}});
}

KvTList<KvContour> ThreeCircles()
{
    KvTList<KvContour> contours;
    for (const int id : {1, 2, 3})
        contours.AddTail(Circle(id));
    return contours;
}

class ContourXMLExport : public ::testing::Test
{
protected:
    XML_PARSER parser;
    Export exporter;
    Export silent{0};

    // A document <host><first/><mark/><last/></host> with the cursor on <mark>.
    void SetUp() override
    {
        parser.Add_FirstChildNode("host");
        parser.Add_LastChildNode("first");
        parser.Add_NodeAfter("mark");
        parser.Add_NodeAfter("last");
        parser.Go_Backward();
    }
    // The names below <host>, Contours by their Ids.
    std::string Children()
    {
        std::string names;
        parser.Go_to_Root();
        if (!parser.Go_to_Child("first") && !parser.Go_to_FirstSibling("Contour"))
            return names;
        while (parser.Go_Backward())
            continue;
        do
        {
            const bool contour = parser.Is_CurrentName("Contour");
            names += (contour ? parser.Get_Attribute_Value(0).Text().Utf8() : parser.Get_CurrentName().Utf8()) + " ";
        } while (parser.Go_Forward());
        return names;
    }
    std::string Current()
    {
        const std::string name = parser.Get_CurrentName().Utf8();
        return parser.Get_Attribute_Count() ? name + parser.Get_Attribute_Value(0).Text().Utf8() : name;
    }
};

std::string FileOf(const KvTList<KvContour>& contours, Export&& exporter = Export())
{
    std::string pattern = (fs::temp_directory_path() / "kv-export-XXXXXX").string();
    const fs::path folder = mkdtemp(pattern.data());
    exporter.Execute(KvString((folder / "a.xml").c_str()), contours);
    std::ifstream in(folder / "a.xml", std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(in), {}};
    fs::remove_all(folder);
    return content;
}
} // namespace

TEST_F(ContourXMLExport, WritesTheWholeTreeInOrder)
{
    KvContour line = Figure(KvContour::ePolyline, {{0.0005, -0.0}, {10.12349, 1e6}}, 7);
    line.Exclude() = 1;
    line.ReadOnly() = 2;
    line.SequenceID() = 3;
    line.Description() = L"Riß <1> ";
    line.Color() = 0xFFFFFFFE;
    line.LineWidth() = 2;
    line.Angle() = 0.5;
    KvTList<KvContour> contours;
    contours.AddTail(line);
    contours.AddTail(Circle());
    EXPECT_EQ(FileOf(contours), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                "<Contours>\n"
                                "  <Contour Id=\"7\">\n"
                                "    <ContourType>2</ContourType>\n"
                                "    <Exclude>1</Exclude>\n"
                                "    <ReadOnly>2</ReadOnly>\n"
                                "    <SequenceID>3</SequenceID>\n"
                                "    <Description>Riß &lt;1&gt; </Description>\n"
                                "    <Color>4294967294</Color>\n"
                                "    <LineWidth>2.000</LineWidth>\n"
                                "    <Angle>0.50000</Angle>\n"
                                "    <Point>\n"
                                "      <PositionX>0.001</PositionX>\n"
                                "      <PositionY>-0.000</PositionY>\n"
                                "    </Point>\n"
                                "    <Point>\n"
                                "      <PositionX>10.123</PositionX>\n"
                                "      <PositionY>1000000.000</PositionY>\n"
                                "    </Point>\n"
                                "  </Contour>\n"
                                "  <Contour>\n"
                                "    <ContourType>5</ContourType>\n"
                                "    <Exclude>0</Exclude>\n"
                                "    <ReadOnly>0</ReadOnly>\n"
                                "    <SequenceID>-1</SequenceID>\n"
                                "    <Color />\n"
                                "    <LineWidth />\n"
                                "    <Angle>0.00000</Angle>\n"
                                "    <Point>\n"
                                "      <PositionX>1.000</PositionX>\n"
                                "      <PositionY>2.000</PositionY>\n"
                                "    </Point>\n"
                                "    <Point>\n"
                                "      <PositionX>4.000</PositionX>\n"
                                "      <PositionY>2.000</PositionY>\n"
                                "    </Point>\n"
                                "  </Contour>\n"
                                "</Contours>\n");
}

TEST_F(ContourXMLExport, AnUnsetAngleIsAnEmptyNodeAndAnIdOfZeroIsWritten)
{
    KvContour circle = Circle(0);
    circle.Angle() = std::numeric_limits<double>::max();
    ASSERT_EQ(exporter.Execute(parser, circle, Export::eWriteLastChild, 0), 1);
    EXPECT_EQ(parser.Get_Attribute_Name(0).Utf8(), "Id");
    EXPECT_EQ(parser.Get_Attribute_Value(0).Text().Utf8(), "0");
    ASSERT_TRUE(parser.Go_to_Child("Angle"));
    EXPECT_EQ(parser.Get_TextValue().Length(), 0);
}

TEST_F(ContourXMLExport, AnEmptyListWritesAFileWithTheRootOnly)
{
    EXPECT_EQ(FileOf({}), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Contours />\n");
}

TEST_F(ContourXMLExport, AnEmptyListChangesNoDocument)
{
    parser.Go_to_Root();
    EXPECT_EQ(exporter.Execute(parser, KvTList<KvContour>(), Export::eWriteAfter, 1), 1);
    EXPECT_EQ(Children(), "first mark last ");
}

TEST_F(ContourXMLExport, AListKeepsItsOrderInEveryMode)
{
    EXPECT_EQ(exporter.Execute(parser, ThreeCircles(), Export::eWriteAfter, 1), 1);
    EXPECT_EQ(Current(), "Contour3");
    EXPECT_EQ(Children(), "first mark 1 2 3 last ");

    parser.Go_to_FirstSibling("mark");
    EXPECT_EQ(exporter.Execute(parser, ThreeCircles(), Export::eWriteBefore, 1), 1);
    EXPECT_EQ(Current(), "Contour1");
    EXPECT_EQ(Children(), "first 1 2 3 mark 1 2 3 last ");

    parser.Go_to_FirstSibling("mark");
    EXPECT_EQ(exporter.Execute(parser, ThreeCircles(), Export::eWriteLastChild, 0), 1);
    EXPECT_EQ(Current(), "Contour3");
    parser.Go_to_Parent();
    EXPECT_EQ(exporter.Execute(parser, Circle(9), Export::eWriteFirstChild, 1), 1);
    EXPECT_EQ(Current(), "mark");
    EXPECT_EQ(exporter.Execute(parser, ThreeCircles(), Export::eWriteFirstChild, 1), 1);
    EXPECT_EQ(Current(), "mark");
    EXPECT_EQ(Ids(parser), "1 2 3 9 1 2 3");
}

TEST_F(ContourXMLExport, ASingleContourGoesWhereTheModeSays)
{
    EXPECT_EQ(exporter.Execute(parser, Circle(1), Export::eWriteAfter, 1), 1);
    EXPECT_EQ(Current(), "Contour1");
    EXPECT_EQ(exporter.Execute(parser, Circle(2), Export::eWriteBefore, 1), 1);
    EXPECT_EQ(Current(), "Contour2");
    EXPECT_EQ(Children(), "first mark 2 1 last ");
    EXPECT_EQ(exporter.Execute(parser, Circle(3), Export::eWriteLastChild, 0), 1);
    EXPECT_EQ(Current(), "Contour3");
}

TEST_F(ContourXMLExport, AModeThatIsNoneWritesNothing)
{
    const std::string before = parser.Save_XML_Text();
    EXPECT_EQ(exporter.Execute(parser, Circle(1), static_cast<Export::eWriteMode>(9), 1), 0);
    EXPECT_EQ(parser.Save_XML_Text(), before);
}

TEST_F(ContourXMLExport, ASiblingOfTheRootIsASecondRoot)
{
    const std::string before = parser.Save_XML_Text();
    for (const auto mode : {Export::eWriteAfter, Export::eWriteBefore})
    {
        for (const bool top : {false, true})
        {
            parser.Go_to_Root();
            if (top)
                parser.Go_to_Parent();
            const auto failure = Thrown([&] { exporter.Execute(parser, Circle(), mode, 0); });
            ASSERT_TRUE(failure);
            EXPECT_EQ(failure->GetMessageW(), secondRoot);
            EXPECT_EQ(failure->File(), KvString("C/syContourXMLExport"));
            EXPECT_EQ(failure->Line(), 105u);
            EXPECT_TRUE(Thrown([&] { exporter.Execute(parser, ThreeCircles(), mode, 0); }));
            EXPECT_EQ(silent.Execute(parser, Circle(), mode, 0), 0);
            EXPECT_EQ(silent.Execute(parser, ThreeCircles(), mode, 0), 0);
            EXPECT_EQ(Current(), top ? "" : "host");
        }
    }
    EXPECT_EQ(parser.Save_XML_Text(), before);
}

TEST_F(ContourXMLExport, AChildOfATopThatHasARootIsASecondRoot)
{
    parser.Go_to_Root();
    parser.Go_to_Parent();
    for (const auto mode : {Export::eWriteLastChild, Export::eWriteFirstChild})
    {
        const auto failure = Thrown([&] { exporter.Execute(parser, Circle(), mode, 1); });
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->GetMessageW(), secondRoot);
        EXPECT_EQ(failure->File(), KvString("C/syContourXMLExport"));
        EXPECT_EQ(failure->Line(), 117u);
        EXPECT_EQ(silent.Execute(parser, Circle(), mode, 1), 0);
        EXPECT_EQ(silent.Execute(parser, ThreeCircles(), mode, 1), 0);
        EXPECT_EQ(Current(), "");
    }
}

TEST_F(ContourXMLExport, ASecondContourAtTheTopOfAnEmptyDocumentIsASecondRoot)
{
    for (const auto mode : {Export::eWriteLastChild, Export::eWriteFirstChild})
    {
        parser.Reset_XML_Document();
        const auto failure = Thrown([&] { exporter.Execute(parser, ThreeCircles(), mode, 1); });
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->Line(), 105u);
        EXPECT_EQ(failure->GetMessageW(), secondRoot);
        EXPECT_EQ(Current(), mode == Export::eWriteLastChild ? "Contour1" : "Contour3");
        parser.Reset_XML_Document();
        EXPECT_EQ(silent.Execute(parser, ThreeCircles(), mode, 1), 0);
        EXPECT_TRUE(parser.Is_CurrentName("Contour"));
        EXPECT_FALSE(parser.Go_Forward());
        parser.Reset_XML_Document();
        EXPECT_EQ(exporter.Execute(parser, Circle(4), mode, 1), 1);
        EXPECT_EQ(Current(), "");
    }
}

TEST_F(ContourXMLExport, AFifthPointOfARectangleFails)
{
    const auto failure = Thrown([&] { exporter.Execute(parser, FivePointRectangle(), Export::eWriteLastChild, 1); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->GetMessageW(), pointCount);
    EXPECT_EQ(failure->File(), KvString("C/syContourXMLExport"));
    EXPECT_EQ(failure->Line(), 67u);
    EXPECT_EQ(Current(), "Point");
}

TEST_F(ContourXMLExport, WithoutExceptionsAFifthPointGivesZeroAndTheListGoesOn)
{
    KvTList<KvContour> contours;
    contours.AddTail(Circle(1));
    contours.AddTail(FivePointRectangle());
    contours.AddTail(Circle(3));
    EXPECT_EQ(silent.Execute(parser, contours, Export::eWriteLastChild, 1), 0);
    EXPECT_EQ(Current(), "mark");
    EXPECT_EQ(Ids(parser), "1 - 3");

    parser.Add_LastChildNode("Contour");
    EXPECT_EQ(silent.WriteContents(parser, FivePointRectangle()), 0);
    EXPECT_EQ(Current(), "Contour");
    EXPECT_NE(FileOf(contours, Export(0)).find("Id=\"3\""), std::string::npos);
}

TEST_F(ContourXMLExport, OtherPointCountsAreWrittenAsTheyStand)
{
    KvTList<KvContour> contours;
    contours.AddTail(Figure(KvContour::eRectangle, {{1, 1}, {2, 2}}));
    contours.AddTail(Figure(KvContour::eSquare, {{0, 0}, {0, 5}, {9, 5}, {9, 0}, {4, 4}}));
    contours.AddTail(Figure(KvContour::eCircle, {}));
    contours.AddTail(Figure(static_cast<KvContour::eContourType>(-3), {{1, 1}}));
    EXPECT_EQ(exporter.Execute(parser, contours, Export::eWriteLastChild, 0), 1);
}

TEST_F(ContourXMLExport, SwitchesExceptionsLater)
{
    parser.Go_to_Root();
    exporter.SetUseExceptions(0);
    EXPECT_EQ(exporter.Execute(parser, Circle(), Export::eWriteAfter, 0), 0);
    exporter.SetUseExceptions(1);
    EXPECT_TRUE(Thrown([&] { exporter.Execute(parser, Circle(), Export::eWriteAfter, 0); }));
}

TEST_F(ContourXMLExport, AFileThatCannotBeWrittenIsNotReported)
{
    EXPECT_EQ(exporter.Execute(L"/proc/none/a.xml", ThreeCircles()), 1);
}
