// Contour lists in masks: list order, exclusion, boxes, failures, and pixel equality with plain drawing calls.
#include "C/syContourToMask.h"

#include "contracts/basics/KvException.h"
#include "contracts/basics/KvExceptionManager.h"
#include "contracts/image/KvDIB.h"
#include "contracts/image/KvPolygon.h"
#include "platform/afx/dc.h"
#include "platform/afx/exception.h"
#include "tests/C/contour_mask_reference.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <random>

namespace
{
using namespace KvN;

KvContour Figure(KvContour::eContourType type, std::initializer_list<KvVec2d> points)
{
    KvContour contour;
    contour.ContourType() = type;
    for (const KvVec2d& point : points)
        contour.CurvePositions().AddTail(point);
    return contour;
}

KvContour Rectangle(double left, double top, double right, double bottom)
{
    KvContour contour;
    contour.MakeRectFromDiagonal(left, top, right, bottom);
    return contour;
}

KvContour Excluded(KvContour contour)
{
    contour.Exclude() = 1;
    return contour;
}

KvContour Line(std::initializer_list<KvVec2d> points, double width)
{
    KvContour contour = Figure(KvContour::ePolyline, points);
    contour.LineWidth() = width;
    return contour;
}

KvTList<KvContour> List(std::initializer_list<KvContour> contours)
{
    KvTList<KvContour> list;
    for (const KvContour& contour : contours)
        list.AddTail(contour);
    return list;
}

// The mask in rows of characters, '#' for a covered pixel.
std::string Drawn(const KvTList<KvContour>& contours, short width, short height)
{
    KvBufferAOI8 aoi({width, height});
    for (short y = 0; y < height; ++y)
        std::fill_n(aoi.GetRowPointer(y), width, static_cast<unsigned char>(0x5A));
    KvContourToMask().Execute(contours, &aoi);
    std::string text;
    for (short y = 0; y < height; ++y)
    {
        for (short x = 0; x < width; ++x)
            text += aoi.GetPoint(x, y) == 255 ? '#' : aoi.GetPoint(x, y) == 0 ? '.' : '?';
        text += '\n';
    }
    return text;
}
} // namespace

TEST(ContourToMask, EmptyListClearsTheAOI)
{
    EXPECT_EQ(Drawn({}, 3, 2), "...\n...\n");
}

TEST(ContourToMask, EmptyAOIStaysEmpty)
{
    KvBufferAOI8 aoi({0, 4});
    KvContourToMask().Execute(List({Rectangle(0, 0, 5, 5)}), &aoi);
    EXPECT_EQ(aoi.AOISize(), KvTSize<short>(0, 4));
}

TEST(ContourToMask, RectangleCoversItsCorners)
{
    EXPECT_EQ(Drawn(List({Rectangle(1, 1, 3, 2)}), 5, 4), ".....\n"
                                                          ".###.\n"
                                                          ".###.\n"
                                                          ".....\n");
}

TEST(ContourToMask, PartsBeyondTheBorderAreDropped)
{
    EXPECT_EQ(Drawn(List({Rectangle(-2, -3, 1, 0), Rectangle(3, 2, 9, 9)}), 5, 4), "##...\n"
                                                                                   ".....\n"
                                                                                   "...##\n"
                                                                                   "...##\n");
}

TEST(ContourToMask, CoordinatesTruncateTowardZero)
{
    EXPECT_EQ(Drawn(List({Rectangle(-0.9, 0.9, 1.9, 1.2)}), 4, 3), "##..\n##..\n....\n");
}

TEST(ContourToMask, ExcludingFigureTakesAwayWhatCameBefore)
{
    const KvContour outer = Rectangle(0, 0, 4, 3), inner = Excluded(Rectangle(1, 1, 2, 2));
    EXPECT_EQ(Drawn(List({outer, inner}), 5, 4), "#####\n"
                                                 "#..##\n"
                                                 "#..##\n"
                                                 "#####\n");
    EXPECT_EQ(Drawn(List({inner, outer}), 5, 4), "#####\n#####\n#####\n#####\n");
    EXPECT_EQ(Drawn(List({outer, inner, Rectangle(2, 2, 2, 3)}), 5, 4), "#####\n"
                                                                        "#..##\n"
                                                                        "#.###\n"
                                                                        "#####\n");
}

TEST(ContourToMask, LineWidthIsRoundedAndUnsetIsOne)
{
    const auto rows = [](double width)
    {
        const std::string text = Drawn(List({Line({{3, 6}, {9, 6}}, width)}), 13, 13);
        int count = 0;
        for (int y = 0; y < 13; ++y)
            count += text[static_cast<size_t>(14 * y + 6)] == '#';
        return count;
    };
    EXPECT_EQ(rows(5.4), 5);
    EXPECT_EQ(rows(5.5), 6);
    EXPECT_EQ(rows(KvContour::NoLineWidth), 1);
    EXPECT_EQ(rows(0.0), 1);
}

TEST(ContourToMask, WidthCountsForPolylinesOnly)
{
    KvContour wide = Figure(KvContour::ePolygon, {{2, 2}, {2, 4}, {4, 4}});
    const std::string plain = Drawn(List({wide}), 8, 8);
    wide.LineWidth() = 5.0;
    EXPECT_EQ(Drawn(List({wide}), 8, 8), plain);
}

TEST(ContourToMask, PolylineHasNoInside)
{
    EXPECT_EQ(Drawn(List({Figure(KvContour::ePolyline, {{0, 0}, {3, 0}, {3, 3}, {0, 3}, {0, 0}})}), 4, 4), "####\n"
                                                                                                           "#..#\n"
                                                                                                           "#..#\n"
                                                                                                           "####\n");
}

TEST(ContourToMask, OpenLineLacksItsEnd)
{
    EXPECT_EQ(Drawn(List({Figure(KvContour::ePolyline, {{0, 0}, {3, 0}})}), 5, 1), "###..\n");
}

TEST(ContourToMask, ClockwiseFigureIsDrawnThoughInvalid)
{
    const KvContour clockwise = Figure(KvContour::ePolygon, {{0, 0}, {2, 0}, {2, 2}, {0, 2}});
    ASSERT_FALSE(clockwise.IsValid());
    EXPECT_EQ(Drawn(List({clockwise}), 3, 3), "###\n###\n###\n");
}

TEST(ContourToMask, FiguresWithoutEnoughPointsDrawNothing)
{
    const std::string empty = "...\n...\n";
    EXPECT_EQ(Drawn(List({KvContour()}), 3, 2), empty);
    EXPECT_EQ(Drawn(List({Figure(KvContour::ePolygon, {{1, 1}})}), 3, 2), empty);
    EXPECT_EQ(Drawn(List({Figure(KvContour::ePolyline, {{1, 1}})}), 3, 2), empty);
    EXPECT_EQ(Drawn(List({Figure(KvContour::eCircle, {{1, 1}})}), 3, 2), empty);
    EXPECT_EQ(Drawn(List({Figure(KvContour::eEllipse, {{1, 1}, {2, 1}})}), 3, 2), empty);
}

TEST(ContourToMask, InvalidEllipseAndForeignTypeDrawNothing)
{
    const std::string empty = "...\n...\n";
    EXPECT_EQ(Drawn(List({Figure(KvContour::eEllipse, {{1, 1}, {1, 1}, {2, 1}})}), 3, 2), empty);
    EXPECT_EQ(Drawn(List({Figure(KvContour::eCircle, {{1, 1}, {1, 1}})}), 3, 2), empty);
    EXPECT_EQ(Drawn(List({Figure(KvContour::eCircle, {{1, 1}, {2, 1}, {1, 0}})}), 3, 2), empty);
    EXPECT_EQ(Drawn(List({Figure(static_cast<KvContour::eContourType>(6), {{0, 0}, {0, 1}, {1, 1}})}), 3, 2), empty);
    EXPECT_EQ(Drawn(List({Figure(static_cast<KvContour::eContourType>(-1), {{0, 0}, {0, 1}, {1, 1}})}), 3, 2), empty);
}

TEST(ContourToMask, CircleFillsItsBox)
{
    EXPECT_EQ(Drawn(List({Figure(KvContour::eCircle, {{3, 3}, {6, 3}})}), 8, 8), "..###...\n"
                                                                                 ".#####..\n"
                                                                                 "#######.\n"
                                                                                 "#######.\n"
                                                                                 "#######.\n"
                                                                                 ".#####..\n"
                                                                                 "..###...\n"
                                                                                 "........\n");
}

TEST(ContourToMask, NonsenseCoordinatesAreHarmless)
{
    const double infinite = std::numeric_limits<double>::infinity(), far = 1e300;
    KvBufferAOI8 aoi({20, 20});
    for (const double v : {infinite, -infinite, far, -far, std::nan(""), 2147483647.0, -2147483648.0, 4e9})
    {
        for (const auto type : {KvContour::ePolygon, KvContour::ePolyline, KvContour::eEllipse, KvContour::eCircle})
        {
            KvContourToMask().Execute(
                List({Figure(type, {{v, 3}, {4, v}, {v, v}}), Figure(type, {{1, 2}, {v, 5}, {9, v}}),
                      Figure(type, {{-v, 2}, {v, 5}, {9, -v}})}),
                &aoi);
        }
        KvContourToMask().Execute(List({Line({{2, 2}, {9, 9}}, v)}), &aoi);
    }
}

TEST(ContourToMask, HugeFigureCoversTheWholeMask)
{
    EXPECT_EQ(Drawn(List({Rectangle(-1e9, -1e9, 1e9, 1e9)}), 3, 2), "###\n###\n");
    EXPECT_EQ(Drawn(List({Excluded(Figure(KvContour::eCircle, {{0, 0}, {1e6, 0}}))}), 3, 2), "...\n...\n");
    EXPECT_EQ(Drawn(List({Line({{-1e6, 1}, {1e6, 1}}, 1e6)}), 3, 2), "###\n###\n");
}

TEST(ContourToMask, MostPointsOfAFigureAre65535)
{
    // A comb whose teeth after the limit are left out.
    KvContour comb;
    comb.ContourType() = KvContour::ePolyline;
    for (int i = 0; i < 70000; ++i)
        comb.CurvePositions().AddTail({static_cast<double>(i < 65535 ? i % 10 : 15), static_cast<double>(i % 2)});
    const std::string text = Drawn(List({comb}), 20, 3);
    for (size_t x = 10; x < 20; ++x)
        EXPECT_EQ(text[x], '.') << text;
    EXPECT_EQ(text[4], '#');
}

namespace
{
std::mt19937 random_(20240607);

double Uniform(double low, double high)
{
    return std::uniform_real_distribution<>(low, high)(random_);
}
int Pick(int count)
{
    return std::uniform_int_distribution<>(0, count - 1)(random_);
}

// A point near the mask, or far from it, at whole or broken coordinates.
KvVec2d RandomPoint(double reach)
{
    const KvVec2d point(Uniform(-reach, 40 + reach), Uniform(-reach, 40 + reach));
    return Pick(3) == 0 ? KvVec2d(std::floor(point.x), std::floor(point.y)) : point;
}

KvContour RandomFigure()
{
    const double reach = Pick(4) == 0 ? 300.0 : Pick(2) ? 25.0 : -5.0;
    KvContour contour;
    contour.ContourType() = static_cast<KvContour::eContourType>(Pick(6));
    int points = 0;
    switch (contour.ContourType())
    {
    case KvContour::eRectangle:
    case KvContour::eSquare:
        if (Pick(2))
            contour.MakeRectFromDiagonal(RandomPoint(reach), RandomPoint(reach));
        else
            contour.MakeRectFromAxis(RandomPoint(reach), RandomPoint(reach), Uniform(0, 15));
        break;
    case KvContour::ePolygon:
        points = 1 + Pick(12);
        break;
    case KvContour::ePolyline:
        points = 1 + Pick(8);
        contour.LineWidth() = Pick(4) == 0 ? KvContour::NoLineWidth : Uniform(-3, Pick(2) ? 12 : 40);
        break;
    case KvContour::eEllipse:
        points = 3;
        break;
    case KvContour::eCircle:
        points = 2;
        break;
    }
    for (int i = 0; i < points; ++i)
        contour.CurvePositions().AddTail(RandomPoint(reach));
    contour.Exclude() = Pick(4) == 0;
    return contour;
}

std::string Picture(const KvTBuf2D<unsigned char>& mask)
{
    std::string text;
    for (int y = 0; y < mask.height; ++y)
    {
        for (int x = 0; x < mask.width; ++x)
            text += mask.Row(y)[x] ? '#' : '.';
        text += '\n';
    }
    return text;
}
} // namespace

TEST(ContourToMask, EqualsDrawingCallsOnSectionsForRandomFigures)
{
    for (int round = 0; round < 2500; ++round)
    {
        const int width = 1 + Pick(60), height = 1 + Pick(60);
        KvTList<KvContour> contours;
        for (int i = 1 + Pick(4); i > 0; --i)
            contours.AddTail(RandomFigure());
        KvBufferAOI8 aoi({static_cast<short>(width), static_cast<short>(height)});
        KvContourToMask().Execute(contours, &aoi);
        KvTBuf2D<unsigned char> mask;
        aoi.GetBlock(mask);
        const auto expected = kv::test::MaskByDrawingCalls(contours, width, height);
        ASSERT_TRUE(std::equal(mask.data, mask.data + mask.Count(), expected.data))
            << "round " << round << ", type " << contours[0].ContourType() << "\n"
            << Picture(mask) << "expected\n"
            << Picture(expected);
    }
}

TEST(ContourToMask, EqualsDrawingCallsFarOut)
{
    // Long and flat, so that the section of the reference fits into memory.
    for (int round = 0; round < 200; ++round)
    {
        const bool upright = Pick(2) == 0;
        KvContour contour;
        contour.ContourType() = static_cast<KvContour::eContourType>(1 + Pick(2));
        contour.LineWidth() = Pick(2) ? KvContour::NoLineWidth : Uniform(1, 9);
        for (int i = 3 + Pick(3); i > 0; --i)
        {
            const double along = Uniform(-200000, 200000), across = Uniform(-6, 20);
            contour.CurvePositions().AddTail(upright ? KvVec2d(across, along) : KvVec2d(along, across));
        }
        KvTList<KvContour> contours;
        contours.AddTail(contour);
        KvBufferAOI8 aoi({16, 16});
        KvContourToMask().Execute(contours, &aoi);
        KvTBuf2D<unsigned char> mask;
        aoi.GetBlock(mask);
        const auto expected = kv::test::MaskByDrawingCalls(contours, 16, 16);
        ASSERT_EQ(Picture(mask), Picture(expected)) << "round " << round;
    }
}

namespace
{
// An AOI of somebody else's that can't take its mask.
class RefusingAOI : public KvBufferAOI8
{
public:
    using KvBufferAOI8::KvBufferAOI8;

    CException* failure = nullptr;
    int stored = 0;

    void SetBlock(const KvTBuf2D<unsigned char>& block) override
    {
        ++stored;
        if (failure)
            throw failure;
        KvBufferAOI8::SetBlock(block);
    }
};

class ContourToMaskFailures : public testing::Test
{
protected:
    void SetUp() override
    {
        folder = std::filesystem::temp_directory_path() / ("kv-mask-test-" + std::to_string(getpid()));
        setenv("XDG_STATE_HOME", folder.c_str(), 1);
        aoi.SetPoint({1, 1}, 77);
    }
    void TearDown() override
    {
        unsetenv("XDG_STATE_HOME");
        std::filesystem::remove_all(folder);
    }

    // What Execute throws.
    KvException* Caught()
    {
        try
        {
            KvContourToMask().Execute(List({Rectangle(0, 0, 3, 3)}), &aoi);
        }
        catch (KvException* failure)
        {
            return failure;
        }
        return nullptr;
    }

    std::string Log() const
    {
        std::ifstream in(KvExceptionManager::DebugFile());
        return {std::istreambuf_iterator<char>(in), {}};
    }

    std::filesystem::path folder;
    RefusingAOI aoi{KvTSize<short>(4, 4)};
};
} // namespace

TEST_F(ContourToMaskFailures, OfTheSystemIsLoggedAndThrownOn)
{
    auto* failure = new KvException(L"test", 1, L"kein Platz");
    aoi.failure = failure;
    KvException* caught = Caught();
    EXPECT_EQ(caught, failure);
    EXPECT_NE(Log().find("Fehler beim Erzeugen der Contour-Bitmapkein Platz"), std::string::npos) << Log();
    EXPECT_EQ(aoi.GetPoint(1, 1), 77) << "the AOI is as it was";
    EXPECT_EQ(aoi.GetPoint(0, 0), 0);
    caught->Delete();
}

TEST_F(ContourToMaskFailures, OfTheFrameworkBecomesOneOfTheSystem)
{
    aoi.failure = new CResourceException(L"nichts da");
    KvException* caught = Caught();
    ASSERT_TRUE(caught);
    EXPECT_EQ(caught->GetMessageW(), KvString(L"nichts da"));
    EXPECT_NE(Log().find("Fehler beim Erzeugen der Contour-Bitmapnichts da"), std::string::npos) << Log();
    caught->Delete();
}

TEST_F(ContourToMaskFailures, AnAOIOfAnotherClassIsStoredThroughSetBlock)
{
    EXPECT_EQ(Caught(), nullptr);
    EXPECT_EQ(aoi.stored, 1);
    EXPECT_EQ(aoi.GetPoint(1, 1), 255);
    EXPECT_FALSE(std::filesystem::exists(folder)) << "nothing to write to the debug file";
}
