// Contours read from XML: fields, modes, failures, what is passed over, and round trips.
#include "C/syContourXMLImport.h"

#include "C/syContourXMLExport.h"
#include "tests/C/comma_locale.h"
#include "tests/C/contour_xml.h"

#include <cmath>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>

using namespace KvN;
using kv::testing::CommaLocale;
using kv::testing::Figure;
using kv::testing::Thrown;
using Import = KvContourXMLImport;
namespace fs = std::filesystem;

namespace
{
const KvString pointCount =
    L"KvContourXMLImport::ReadContents: Die Punktliste enthält nicht die erforderliche Anzahl von Punkten";

std::string Point(const std::string& x, const std::string& y)
{
    return "<Point><PositionX>" + x + "</PositionX><PositionY>" + y + "</PositionY></Point>";
}

class ContourXMLImport : public ::testing::Test
{
protected:
    XML_PARSER parser;
    Import importer;
    Import silent{0};
    KvTList<KvContour> list;

    // Cursor on the root element.
    void Load(const std::string& source)
    {
        ASSERT_TRUE(parser.Load_XML_Buffer(source.data(), source.size())) << parser.Get_ErrorText();
        parser.Go_to_Root();
    }
    // Reads the first Contour of <Contours>.
    KvContour One(const std::string& contour)
    {
        Load("<Contours>" + contour + "</Contours>");
        KvContour read;
        int found = 0;
        EXPECT_EQ(importer.Execute(parser, read, Import::eReadFirstChild, found, 0), 1);
        EXPECT_EQ(found, 1);
        EXPECT_TRUE(parser.Is_CurrentName("Contour"));
        return read;
    }
    std::string ListIds() const
    {
        std::string ids;
        for (const auto* node = list.head; node; node = node->next)
            ids += std::to_string(node->value.ID()) + " ";
        return ids;
    }
};

void ExpectDefault(KvContour contour)
{
    EXPECT_EQ(contour.ID(), -1);
    EXPECT_EQ(contour.SequenceID(), -1);
    EXPECT_EQ(contour.Exclude(), 0);
    EXPECT_EQ(contour.ReadOnly(), 0);
    EXPECT_EQ(contour.LineWidth(), KvContour::NoLineWidth);
    EXPECT_EQ(contour.Color(), KvContour::NoColor);
    EXPECT_EQ(contour.Description().Length(), 0);
    EXPECT_EQ(contour.ContourType(), KvContour::eRectangle);
    EXPECT_EQ(contour.CurvePositions().count, 0);
    EXPECT_EQ(contour.Angle(), 0.0);
}
} // namespace

TEST_F(ContourXMLImport, ReadsEveryFieldInAnyOrder)
{
    const KvContour read = One("<Contour Id=\"12\"><Point><PositionX>1.5</PositionX><PositionY>-2</PositionY></Point>"
                               "<Angle>0.25</Angle><Description> a\nb </Description><SequenceID>4</SequenceID>"
                               "<LineWidth>2.5</LineWidth><Other>9</Other><ReadOnly>1</ReadOnly><Exclude>3</Exclude>" +
                               Point("1e2", " 7 ") + "<Color>4294967294</Color><ContourType>2</ContourType></Contour>");
    EXPECT_EQ(read.ID(), 12);
    EXPECT_EQ(read.ContourType(), KvContour::ePolyline);
    EXPECT_EQ(read.Exclude(), 3);
    EXPECT_EQ(read.ReadOnly(), 1);
    EXPECT_EQ(read.SequenceID(), 4);
    EXPECT_EQ(read.Description(), KvString(L" a\nb "));
    EXPECT_EQ(read.Color(), 4294967294u);
    EXPECT_EQ(read.LineWidth(), 2.5);
    EXPECT_EQ(read.Angle(), 0.25);
    ASSERT_EQ(read.CurvePositions().count, 2);
    EXPECT_EQ(read.CurvePositions()[0].x, 1.5);
    EXPECT_EQ(read.CurvePositions()[0].y, -2.0);
    EXPECT_EQ(read.CurvePositions()[1].x, 100.0);
    EXPECT_EQ(read.CurvePositions()[1].y, 7.0);
}

TEST_F(ContourXMLImport, EmptyNodesAndTextsThatAreNoNumbersLeaveTheDefaults)
{
    for (const std::string text : {"", " ", "x", "1,5", "1x"})
    {
        std::string fields = "<ContourType>0</ContourType>";
        for (const std::string name : {"Color", "Angle", "LineWidth", "Exclude", "ReadOnly", "SequenceID"})
            fields += "<" + name + ">" + text + "</" + name + ">";
        ExpectDefault(One("<Contour>" + fields + "</Contour>"));
    }
}

TEST_F(ContourXMLImport, ACoordinateThatIsNoNumberIsZero)
{
    const KvContour read =
        One("<Contour><ContourType>1</ContourType>" + Point("x", "3") + Point("4", "") + "</Contour>");
    ASSERT_EQ(read.CurvePositions().count, 2);
    EXPECT_EQ(read.CurvePositions()[0].x, 0.0);
    EXPECT_EQ(read.CurvePositions()[0].y, 3.0);
    EXPECT_EQ(read.CurvePositions()[1].x, 4.0);
    EXPECT_EQ(read.CurvePositions()[1].y, 0.0);
}

TEST_F(ContourXMLImport, APointWithoutACoordinateIsNoPoint)
{
    const std::string whole = Point("1", "2");
    const KvContour read = One("<Contour><ContourType>1</ContourType><Point/>" + whole +
                               "<Point><PositionX>5</PositionX></Point><Point><PositionY>5</PositionY></Point>" +
                               whole + "<Point>text</Point></Contour>");
    EXPECT_EQ(read.CurvePositions().count, 2);
}

TEST_F(ContourXMLImport, APointWithoutACoordinateCountsTowardTheLimit)
{
    const std::string points =
        "<Point><PositionX>1</PositionX></Point>" + Point("1", "1") + Point("2", "2") + Point("3", "3");
    EXPECT_EQ(One("<Contour><ContourType>0</ContourType>" + points + "</Contour>").CurvePositions().count, 3);
    Load("<Contours><Contour><ContourType>0</ContourType>" + points + Point("4", "4") + "</Contour></Contours>");
    EXPECT_EQ(silent.Execute(parser, list, Import::eReadFirstChild, 0), 0);
    ASSERT_EQ(list.count, 1);
    EXPECT_EQ(list[0].CurvePositions().count, 3);
}

TEST_F(ContourXMLImport, AContourWithoutTypeIsADefaultContour)
{
    ExpectDefault(One("<Contour><Color>1</Color>" + Point("1", "1") + "</Contour>"));
    ExpectDefault(One("<Contour/>"));
}

TEST_F(ContourXMLImport, ATypeThatIsNoNumberReadsNothingElse)
{
    for (const std::string type : {"", "x", "1.0", "1 2"})
        ExpectDefault(
            One("<Contour><ContourType>" + type + "</ContourType><Color>1</Color>" + Point("1", "1") + "</Contour>"));
}

TEST_F(ContourXMLImport, ATypeOutOfRangeFailsWithItsNumber)
{
    for (const std::string type : {"6", "-1", "2147483647", "-2147483648"})
    {
        const std::string source =
            "<Contours><Contour Id=\"3\"><ContourType>" + type + "</ContourType><Color>1</Color></Contour></Contours>";
        Load(source);
        const auto failure = Thrown([&] { importer.Execute(parser, list, Import::eReadFirstChild, 0); });
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->GetMessageW().Utf8(), "KvContourXMLImport::ReadContents: Der Knoten \"ContourType\" enthält "
                                                 "einen ungültigen Wert " +
                                                     type + ".");
        EXPECT_EQ(failure->File(), KvString("C/syContourXMLImport"));
        EXPECT_EQ(failure->Line(), 41u);
        EXPECT_EQ(list.count, 0);

        Load(source);
        KvTList<KvContour> read;
        EXPECT_EQ(silent.Execute(parser, read, Import::eReadFirstChild, 0), 0);
        EXPECT_TRUE(parser.Is_CurrentName("Contour"));
        ASSERT_EQ(read.count, 1);
        EXPECT_EQ(read[0].ID(), 3);
        EXPECT_EQ(read[0].ContourType(), KvContour::eRectangle);
        EXPECT_EQ(read[0].Color(), KvContour::NoColor);
    }
}

TEST_F(ContourXMLImport, AFifthPointOfARectangleFails)
{
    std::string points;
    for (const char* x : {"1", "2", "3", "4", "5"})
        points += Point(x, "0");
    const std::string source = "<Contours><Contour><ContourType>0</ContourType>" + points +
                               "</Contour><Contour Id=\"2\"><ContourType>3</ContourType>" + points +
                               "</Contour></Contours>";
    Load(source);
    const auto failure = Thrown([&] { importer.Execute(parser, list, Import::eReadFirstChild, 0); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->GetMessageW(), pointCount);
    EXPECT_EQ(failure->File(), KvString("C/syContourXMLImport"));
    EXPECT_EQ(failure->Line(), 122u);

    Load(source);
    EXPECT_EQ(silent.Execute(parser, list, Import::eReadFirstChild, 1), 0);
    ASSERT_EQ(list.count, 2);
    EXPECT_EQ(list[0].CurvePositions().count, 4);
    EXPECT_EQ(list[0].CurvePositions()[3].x, 4.0);
    EXPECT_EQ(list[1].CurvePositions().count, 5);
    EXPECT_TRUE(parser.Is_CurrentName("Contours"));
}

TEST_F(ContourXMLImport, TheIdCountsOnlyAsTheOneAttribute)
{
    const std::string type = "<ContourType>1</ContourType></Contour>";
    EXPECT_EQ(One("<Contour Id=\"5\">" + type).ID(), 5);
    EXPECT_EQ(One("<Contour Id=\"-5\">" + type).ID(), -5);
    EXPECT_EQ(One("<Contour Id=\"x\">" + type).ID(), -1);
    EXPECT_EQ(One("<Contour id=\"5\">" + type).ID(), -1);
    EXPECT_EQ(One("<Contour Id=\"5\" b=\"1\">" + type).ID(), -1);
    EXPECT_EQ(One("<Contour b=\"1\" Id=\"5\">" + type).ID(), -1);
}

TEST_F(ContourXMLImport, ASingleContourIsResetFirstAndFoundTells)
{
    KvContour contour = Figure(KvContour::eCircle, {{1, 2}, {3, 4}}, 8);
    contour.SetAllowedCompareDifference(100.0);
    int found = 7;
    Load("<Contours/>");
    EXPECT_EQ(importer.Execute(parser, contour, Import::eReadFirstChild, found, 1), 1);
    EXPECT_EQ(found, 0);
    ExpectDefault(contour);
    contour.CurvePositions().AddTail({0, 0});
    const KvContour away = Figure(KvContour::eRectangle, {{50, 0}});
    EXPECT_FALSE(contour == away);
    EXPECT_TRUE(parser.Is_CurrentName("Contours"));
    for (const auto mode : {Import::eReadForward, Import::eReadBackward, Import::eReadFirstSibling})
        EXPECT_TRUE(importer.Execute(parser, contour, mode, found, 0) && found == 0);
    EXPECT_TRUE(importer.Execute(parser, contour, static_cast<Import::eReadMode>(9), found, 0) && found == 0);
}

TEST_F(ContourXMLImport, EveryModeFindsItsContours)
{
    const std::string source = "<h><x/><Contour Id=\"1\"/><y/><Contour Id=\"2\"/><z/><Contour Id=\"3\"/><e/></h>";
    Load(source);
    EXPECT_EQ(importer.Execute(parser, list, Import::eReadFirstChild, 0), 1);
    EXPECT_EQ(ListIds(), "1 2 3 ");
    EXPECT_TRUE(parser.Is_CurrentName("e"));

    list.Clear();
    EXPECT_TRUE(parser.Go_to_FirstSibling("y"));
    EXPECT_EQ(importer.Execute(parser, list, Import::eReadForward, 0), 1);
    EXPECT_EQ(ListIds(), "2 3 ");

    list.Clear();
    EXPECT_TRUE(parser.Go_to_FirstSibling("z"));
    EXPECT_EQ(importer.Execute(parser, list, Import::eReadBackward, 0), 1);
    EXPECT_EQ(ListIds(), "2 1 ");

    list.Clear();
    EXPECT_TRUE(parser.Go_to_FirstSibling("z"));
    EXPECT_EQ(importer.Execute(parser, list, Import::eReadFirstSibling, 0), 1);
    EXPECT_EQ(ListIds(), "1 2 3 ");
}

TEST_F(ContourXMLImport, TheCurrentContourIsTheFirstOne)
{
    Load("<h><Contour Id=\"1\"/><Contour Id=\"2\"/><Contour Id=\"3\"/></h>");
    KvContour contour;
    int found = 0;
    EXPECT_TRUE(parser.Go_to_Child("Contour"));
    EXPECT_TRUE(parser.Go_Forward());
    for (const auto mode : {Import::eReadForward, Import::eReadBackward})
    {
        EXPECT_EQ(importer.Execute(parser, contour, mode, found, 1), 1);
        EXPECT_EQ(contour.ID(), 2);
    }
    EXPECT_EQ(importer.Execute(parser, contour, Import::eReadFirstSibling, found, 1), 1);
    EXPECT_EQ(contour.ID(), 1);
}

TEST_F(ContourXMLImport, GoesToTheParentInTheChildModeIfTheListHoldsAnything)
{
    Load("<a><b><Contour Id=\"1\"/></b><c/></a>");
    EXPECT_TRUE(parser.Go_to_Child("b"));
    KvContour contour;
    int found = 0;
    EXPECT_EQ(importer.Execute(parser, contour, Import::eReadFirstChild, found, 1), 1);
    EXPECT_TRUE(parser.Is_CurrentName("b"));
    EXPECT_EQ(importer.Execute(parser, list, Import::eReadFirstChild, 1), 1);
    EXPECT_TRUE(parser.Is_CurrentName("b"));

    // Nothing found: an empty list leaves the cursor, a filled one moves it all the same.
    EXPECT_TRUE(parser.Go_Forward());
    KvTList<KvContour> empty;
    EXPECT_EQ(importer.Execute(parser, empty, Import::eReadFirstChild, 1), 1);
    EXPECT_TRUE(parser.Is_CurrentName("c"));
    EXPECT_EQ(importer.Execute(parser, list, Import::eReadFirstChild, 1), 1);
    EXPECT_TRUE(parser.Is_CurrentName("a"));
    EXPECT_EQ(list.count, 1);
}

TEST_F(ContourXMLImport, NothingIsCheckedButRectangles)
{
    const KvContour clockwise = One("<Contour><ContourType>1</ContourType>" + Point("0", "0") + Point("9", "0") +
                                    Point("9", "9") + "</Contour>");
    EXPECT_FALSE(clockwise.IsValid());
    EXPECT_EQ(clockwise.CurvePositions().count, 3);
    EXPECT_EQ(One("<Contour><ContourType>5</ContourType></Contour>").CurvePositions().count, 0);
}

namespace
{
class ContourXMLFile : public ::testing::Test
{
protected:
    fs::path folder;

    void SetUp() override
    {
        std::string pattern = (fs::temp_directory_path() / "kv-import-XXXXXX").string();
        folder = mkdtemp(pattern.data());
    }
    void TearDown() override { fs::remove_all(folder); }
    KvString Path() const { return KvString((folder / "ä b.xml").c_str()); }
    int Read(const std::string& source, KvTList<KvContour>& list)
    {
        std::ofstream(folder / "ä b.xml", std::ios::binary) << source;
        return KvContourXMLImport().Execute(Path(), list);
    }
    KvTList<KvContour> RoundTrip(const KvTList<KvContour>& contours)
    {
        EXPECT_EQ(KvContourXMLExport().Execute(Path(), contours), 1);
        KvTList<KvContour> back;
        EXPECT_EQ(KvContourXMLImport().Execute(Path(), back), 1);
        return back;
    }
};

KvContour RandomContour(std::mt19937_64& random)
{
    std::uniform_real_distribution<double> pixels(-30000.0, 30000.0);
    static const wchar_t* const texts[] = {L"", L" ", L"\r\n\t", L"Riß <&\"'> ]]>", L" zwei  Wörter ", L"漢字😀"};
    KvContour contour;
    contour.ContourType() = static_cast<KvContour::eContourType>(random() % 6);
    contour.ID() = static_cast<std::int32_t>(random() >> 33) * (random() % 4 ? 1 : -1);
    contour.SequenceID() = static_cast<std::int32_t>(random());
    contour.Exclude() = static_cast<int>(random() % 3);
    contour.ReadOnly() = static_cast<int>(random());
    contour.Color() = random() % 4 ? static_cast<std::uint32_t>(random()) : KvContour::NoColor;
    contour.LineWidth() = random() % 2 ? std::abs(pixels(random)) : KvContour::NoLineWidth;
    contour.Angle() = random() % 4 ? pixels(random) / 1000.0 : 0.0;
    contour.Description() = texts[random() % std::size(texts)];
    const auto points = contour.ContourType() == KvContour::eRectangle ? random() % 5 : random() % 40;
    for (unsigned long i = 0; i < points; ++i)
        contour.CurvePositions().AddTail({pixels(random), pixels(random)});
    return contour;
}

void ExpectClose(double written, double read, double precision)
{
    if (written == KvContour::NoLineWidth)
        EXPECT_EQ(read, written);
    else
        EXPECT_NEAR(read, written, precision * 0.5000001);
}

void ExpectRoundTrip(const KvContour& written, const KvContour& read)
{
    EXPECT_EQ(read.ID(), written.ID() < 0 ? -1 : written.ID());
    EXPECT_EQ(read.SequenceID(), written.SequenceID());
    EXPECT_EQ(read.Exclude(), written.Exclude());
    EXPECT_EQ(read.ReadOnly(), written.ReadOnly());
    EXPECT_EQ(read.Color(), written.Color());
    EXPECT_EQ(read.Description(), written.Description());
    EXPECT_EQ(read.ContourType(), written.ContourType());
    ExpectClose(written.LineWidth(), read.LineWidth(), 1e-3);
    ExpectClose(written.Angle(), read.Angle(), 1e-5);
    ASSERT_EQ(read.CurvePositions().count, written.CurvePositions().count);
    const auto* back = read.CurvePositions().head;
    for (const auto* node = written.CurvePositions().head; node; node = node->next, back = back->next)
    {
        ExpectClose(node->value.x, back->value.x, 1e-3);
        ExpectClose(node->value.y, back->value.y, 1e-3);
    }
}
} // namespace

TEST_F(ContourXMLFile, RandomListsSurviveWithinTheStatedPrecision)
{
    std::mt19937_64 random(20240131);
    for (int round = 0; round < 30; ++round)
    {
        KvTList<KvContour> contours;
        for (auto n = random() % 30; n > 0; --n)
            contours.AddTail(RandomContour(random));
        const KvTList<KvContour> back = RoundTrip(contours);
        ASSERT_EQ(back.count, contours.count);
        const auto* read = back.head;
        for (const auto* node = contours.head; node; node = node->next, read = read->next)
            ExpectRoundTrip(node->value, read->value);
        // What was read once is written the same again.
        EXPECT_EQ(KvContourXMLExport().Execute(KvString((folder / "again.xml").c_str()), back), 1);
        std::ifstream first(folder / "ä b.xml", std::ios::binary);
        std::ifstream second(folder / "again.xml", std::ios::binary);
        EXPECT_TRUE(std::equal(std::istreambuf_iterator<char>(first), {}, std::istreambuf_iterator<char>(second), {}));
    }
}

TEST_F(ContourXMLFile, UnsetValuesComeBackUnset)
{
    KvTList<KvContour> contours;
    contours.AddTail(KvContour());
    contours[0].Angle() = KvContour::NoLineWidth;
    const KvTList<KvContour> back = RoundTrip(contours);
    ASSERT_EQ(back.count, 1);
    ExpectDefault(back[0]); // the angle too: an empty node leaves its default
}

TEST_F(ContourXMLFile, AnEmptyListAppendsNothing)
{
    EXPECT_EQ(RoundTrip({}).count, 0);
}

TEST_F(ContourXMLFile, ReadingAppendsBehindWhatIsThere)
{
    KvTList<KvContour> list;
    list.AddTail(Figure(KvContour::eCircle, {{1, 1}, {2, 2}}, 1));
    EXPECT_EQ(Read("<Contours><Contour Id=\"2\"/><x/><Contour Id=\"3\"/></Contours>", list), 1);
    ASSERT_EQ(list.count, 3);
    EXPECT_EQ(list[0].ID(), 1);
    EXPECT_EQ(list[1].ID(), 2);
    EXPECT_EQ(list[2].ID(), 3);
    EXPECT_EQ(list[0].CurvePositions().count, 2);
}

TEST_F(ContourXMLFile, ForeignBrokenAndMissingFilesChangeNothing)
{
    KvTList<KvContour> list;
    EXPECT_EQ(Read("<Other><Contour Id=\"2\"/></Other>", list), 1);
    EXPECT_EQ(Read("<contours><Contour Id=\"2\"/></contours>", list), 1);
    EXPECT_EQ(Read("<Contours><Contour Id=\"2\">", list), 1);
    EXPECT_EQ(Read("", list), 1);
    EXPECT_EQ(KvContourXMLImport().Execute(KvString((folder / "none.xml").c_str()), list), 1);
    EXPECT_EQ(list.count, 0);
}

TEST_F(ContourXMLFile, FailuresOfAFileAreThrownOrGiveZero)
{
    const std::string source = "<Contours><Contour Id=\"1\"/><Contour Id=\"2\"><ContourType>6</ContourType></Contour>"
                               "<Contour Id=\"3\"/></Contours>";
    KvTList<KvContour> list;
    EXPECT_TRUE(Thrown([&] { Read(source, list); }));
    EXPECT_EQ(list.count, 1);
    KvTList<KvContour> all;
    KvContourXMLImport silent;
    silent.SetUseExceptions(0);
    EXPECT_EQ(silent.Execute(Path(), all), 0);
    EXPECT_EQ(all.count, 3);
}

TEST_F(ContourXMLFile, ALocaleWithACommaChangesNothing)
{
    KvTList<KvContour> contours;
    contours.AddTail(Figure(KvContour::eCircle, {{1.5, 2.25}, {4.125, 2}}, 1));
    KvContourXMLExport().Execute(Path(), contours);
    std::ifstream plainFile(folder / "ä b.xml");
    const std::string plain{std::istreambuf_iterator<char>(plainFile), {}};
    {
        const CommaLocale comma;
        ASSERT_TRUE(comma.InForce());
        const KvTList<KvContour> back = RoundTrip(contours);
        ASSERT_EQ(back.count, 1);
        EXPECT_EQ(back[0].CurvePositions()[0].x, 1.5);
        EXPECT_EQ(back[0].CurvePositions()[1].x, 4.125);
    }
    std::ifstream localFile(folder / "ä b.xml");
    EXPECT_EQ((std::string{std::istreambuf_iterator<char>(localFile), {}}), plain);
}

TEST_F(ContourXMLFile, APolygonOfTheMostPointsSurvives)
{
    KvTList<KvContour> contours;
    contours.AddTail(Figure(KvContour::ePolygon, {}));
    for (int i = 0; i < 65535; ++i)
        contours[0].CurvePositions().AddTail({std::cos(i * 1e-4) * 3000.0, std::sin(i * 1e-4) * 3000.0});
    const KvTList<KvContour> back = RoundTrip(contours);
    ASSERT_EQ(back.count, 1);
    ExpectRoundTrip(contours[0], back[0]);
}
