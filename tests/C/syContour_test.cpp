// The record: fields, copying, comparison, validity, area, centre of mass, length, rigid motion.
#include "C/syContour.h"

#include "tests/C/contour_figures.h"

#include <gtest/gtest.h>

#include <bit>
#include <limits>
#include <type_traits>

using namespace figures;
using KvN::KvTPList;
using KvN::KvTSize;

namespace
{
constexpr double largest = std::numeric_limits<double>::max();

KvContour WithEveryField()
{
    KvContour contour = Rectangle10x5();
    contour.ID() = 7;
    contour.SequenceID() = 8;
    contour.Exclude() = 1;
    contour.ReadOnly() = 2;
    contour.LineWidth() = 3.5;
    contour.Color() = 0x00FF00FFu;
    contour.Description() = L"Kratzer";
    contour.Angle() = 0.25;
    return contour;
}

void ExpectEveryField(const KvContour& contour)
{
    EXPECT_EQ(contour.ID(), 7);
    EXPECT_EQ(contour.SequenceID(), 8);
    EXPECT_EQ(contour.Exclude(), 1);
    EXPECT_EQ(contour.ReadOnly(), 2);
    EXPECT_EQ(contour.LineWidth(), 3.5);
    EXPECT_EQ(contour.Color(), 0x00FF00FFu);
    EXPECT_EQ(contour.Description().Utf8(), "Kratzer");
    EXPECT_EQ(contour.Angle(), 0.25);
    EXPECT_EQ(contour.ContourType(), KvContour::eRectangle);
    EXPECT_EQ(Points(contour), Points(Rectangle10x5()));
}

// Counts what the base class asks of its virtual operations.
class Counting : public KvContour
{
public:
    int resets = 0;
    int copies = 0;
    int* destroyed = nullptr;

    Counting() = default;
    using KvContour::operator=;
    ~Counting() override
    {
        if (destroyed)
            ++*destroyed;
    }

protected:
    void Init() override
    {
        ++resets;
        KvContour::Init();
    }
    void Init(const KvContour& other) override
    {
        ++copies;
        KvContour::Init(other);
    }
};
} // namespace

TEST(Contour, StartsAsAnEmptyRectangleWithNothingSet)
{
    const KvContour contour;
    EXPECT_EQ(contour.ID(), -1);
    EXPECT_EQ(contour.SequenceID(), -1);
    EXPECT_EQ(contour.Exclude(), 0);
    EXPECT_EQ(contour.ReadOnly(), 0);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(contour.LineWidth()), 0x7FEFFFFFFFFFFFFFu);
    EXPECT_EQ(contour.Color(), 0xFFFFFFFFu);
    EXPECT_EQ(contour.Description().Length(), 0);
    EXPECT_EQ(contour.ContourType(), 0);
    EXPECT_EQ(contour.CurvePositions().count, 0);
    EXPECT_EQ(contour.Angle(), 0.0);
    EXPECT_FALSE(contour.IsValid());
}

TEST(Contour, DefaultsCompareEqual)
{
    KvContour a, b;
    EXPECT_EQ(a == b, 1);
}

TEST(Contour, NumbersOfIdentityAndColourHave32Bits)
{
    static_assert(std::is_same_v<decltype(std::declval<KvContour&>().ID()), std::int32_t&>);
    static_assert(std::is_same_v<decltype(std::declval<const KvContour&>().SequenceID()), const std::int32_t&>);
    static_assert(std::is_same_v<decltype(std::declval<KvContour&>().Color()), std::uint32_t&>);
    static_assert(std::is_same_v<std::underlying_type_t<KvContour::eContourType>, int>);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(KvContour::DefaultCompareDifference), 0x3CB0000000000000u);
}

TEST(Contour, CopyAndAssignmentTakeEveryField)
{
    const KvContour original = WithEveryField();
    ExpectEveryField(KvContour(original));
    KvContour assigned;
    assigned = original;
    ExpectEveryField(assigned);
}

TEST(Contour, CopyIsDeep)
{
    KvContour original = Rectangle10x5();
    const KvContour copy(original);
    original.CurvePositions()[0] = {99.0, 99.0};
    EXPECT_EQ(Points(copy), Points(Rectangle10x5()));
}

TEST(Contour, SelfAssignmentChangesNothing)
{
    KvContour contour = WithEveryField();
    const KvContour& same = contour;
    contour = same;
    ExpectEveryField(contour);
}

TEST(Contour, AssignmentGoesThroughTheVirtualCopy)
{
    Counting contour;
    const KvContour other = Rectangle10x5();
    contour = other;
    EXPECT_EQ(contour.copies, 1);
}

TEST(Contour, LoadersGoThroughTheVirtualReset)
{
    Counting contour;
    contour.RectFromMem(Mem({}));
    contour.PolygonFromMem(Mem({}));
    contour.PolylineFromMem(Mem({}));
    contour.FromByteArray({});
    EXPECT_EQ(contour.resets, 4);
}

TEST(Contour, AssignmentKeepsTheTargetsTolerance)
{
    KvContour tolerant, strict, near = Rectangle10x5();
    near.CurvePositions()[2].x += 0.5;
    tolerant.SetAllowedCompareDifference(1.0);
    strict = Rectangle10x5();
    tolerant = strict;
    EXPECT_TRUE(tolerant == near);
    strict = tolerant;
    EXPECT_FALSE(strict == near);
}

TEST(Contour, CopyConstructedContourHasTheDefaultTolerance)
{
    KvContour original = Rectangle10x5(), near = Rectangle10x5();
    near.CurvePositions()[2].x += 0.5;
    original.SetAllowedCompareDifference(1.0);
    KvContour copy(original);
    EXPECT_TRUE(original == near);
    EXPECT_FALSE(copy == near);
}

TEST(Contour, DefaultIsTheFrameOfAnImage)
{
    KvContour contour = Figure(KvContour::eCircle, {{1.0, 1.0}, {2.0, 2.0}});
    contour.Default(KvTSize<short>(640, 480));
    EXPECT_EQ(contour.ContourType(), KvContour::eRectangle);
    EXPECT_EQ(Points(contour), (Pairs{{0, 0}, {0, 479}, {639, 479}, {639, 0}}));
    EXPECT_TRUE(contour.IsValid());
}

TEST(Contour, DefaultOfAnEmptyImageIsFourPointsAtTheOriginAndInvalid)
{
    for (const KvTSize<short> size : {KvTSize<short>(0, 0), KvTSize<short>(-3, -32768)})
    {
        KvContour contour;
        contour.Default(size);
        EXPECT_EQ(Points(contour), (Pairs{{0, 0}, {0, 0}, {0, 0}, {0, 0}}));
        EXPECT_FALSE(contour.IsValid());
    }
}

TEST(Contour, DefaultKeepsAllOtherFields)
{
    KvContour contour = WithEveryField();
    contour.Default(KvTSize<short>(11, 6));
    ExpectEveryField(contour);
}

TEST(ContourComparison, OnlyTheLeftSidesToleranceCounts)
{
    KvContour a = Rectangle10x5(), b = Rectangle10x5();
    for (int i = 0; i < 4; ++i)
        b.CurvePositions()[i].x += 1.0;
    a.SetAllowedCompareDifference(1.0);
    EXPECT_EQ(a == b, 1) << "a distance equal to the tolerance passes";
    EXPECT_EQ(b == a, 0);
    b.CurvePositions()[3].x += 1e-9;
    EXPECT_EQ(a == b, 0);
}

TEST(ContourComparison, FieldsPlayNoPart)
{
    KvContour a = WithEveryField(), b = Rectangle10x5();
    const KvContour& constant = b;
    EXPECT_TRUE(a == b);
    EXPECT_TRUE(a == constant);
}

TEST(ContourComparison, TakesAnyRightSideAndTemporaries)
{
    KvContour a = Rectangle10x5();
    const KvContour constant = a;
    EXPECT_TRUE(a == a);
    EXPECT_TRUE(a == constant);
    EXPECT_TRUE(a == Rectangle10x5());
    EXPECT_TRUE(Rectangle10x5() == a);
    EXPECT_TRUE(Rectangle10x5() == constant);
    EXPECT_TRUE(Rectangle10x5() == Rectangle10x5());
}

TEST(ContourComparison, TypeAndCountMatter)
{
    KvContour a = Rectangle10x5(), b = Rectangle10x5(), c = Rectangle10x5();
    b.ContourType() = KvContour::eSquare;
    c.CurvePositions().AddTail({0.0, 0.0});
    EXPECT_FALSE(a == b);
    EXPECT_FALSE(a == c);
}

TEST(ContourOrder, ComparesIdentities)
{
    KvContour none, five;
    five.ID() = 5;
    EXPECT_EQ(KvContour::CmpFunc(&none, &five), -1);
    EXPECT_EQ(KvContour::CmpFunc(&five, &none), 1);
    EXPECT_EQ(KvContour::CmpFunc(&five, &five), 0);
    EXPECT_EQ(KvContour::CmpFuncSeq(&none, &five), 0);
    none.SequenceID() = std::numeric_limits<std::int32_t>::max();
    five.SequenceID() = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(KvContour::CmpFuncSeq(&none, &five), 1);
    EXPECT_EQ(KvContour::CmpFuncSeq(&five, &none), -1);
}

TEST(ContourOrder, SortPutsContoursWithoutIdentityFirst)
{
    KvTPList<KvContour> list;
    list.SetClearFunction(&KvContour::ClrFunc);
    list.SetCompareFunction(&KvContour::CmpFunc);
    for (const int id : {5, -1, 3})
    {
        auto* contour = new KvContour;
        contour->ID() = id;
        list.AddEntry(contour);
    }
    list.Sort();
    EXPECT_EQ(list.GetEntry(0)->ID(), -1);
    EXPECT_EQ(list.GetEntry(1)->ID(), 3);
    EXPECT_EQ(list.GetEntry(2)->ID(), 5);
}

TEST(ContourOrder, ClearFunctionDeletesThroughTheVirtualDestructorAndTakesNull)
{
    int destroyed = 0;
    auto* contour = new Counting;
    contour->destroyed = &destroyed;
    KvContour::ClrFunc(contour);
    EXPECT_EQ(destroyed, 1);
    KvContour::ClrFunc(nullptr);
}

TEST(ContourValidity, ClockwiseFiguresAreInvalid)
{
    for (const auto type : {KvContour::eRectangle, KvContour::eSquare, KvContour::ePolygon})
    {
        EXPECT_FALSE(Figure(type, {{0, 0}, {10, 0}, {10, 5}, {0, 5}}).IsValid());
        EXPECT_TRUE(Figure(type, {{0, 5}, {10, 5}, {10, 0}, {0, 0}}).IsValid());
    }
}

TEST(ContourValidity, CountsMustFitTheType)
{
    using Type = KvContour::eContourType;
    const auto figure = [](Type type, int count)
    {
        const KvVec2d points[] = {{0, 0}, {0, 5}, {5, 5}, {5, 0}, {2, -2}};
        KvContour contour;
        contour.ContourType() = type;
        for (int i = 0; i < count; ++i)
            contour.CurvePositions().AddTail(points[i]);
        return contour.IsValid();
    };
    const auto valid = [&](Type type)
    {
        Pairs counts; // count, validity
        for (int count = 0; count <= 5; ++count)
            counts.emplace_back(count, figure(type, count));
        return counts;
    };
    EXPECT_EQ(valid(KvContour::eRectangle), (Pairs{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 1}, {5, 0}}));
    EXPECT_EQ(valid(KvContour::eSquare), (Pairs{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 1}, {5, 0}}));
    EXPECT_EQ(valid(KvContour::ePolygon), (Pairs{{0, 0}, {1, 0}, {2, 0}, {3, 1}, {4, 1}, {5, 1}}));
    EXPECT_EQ(valid(KvContour::ePolyline), (Pairs{{0, 0}, {1, 0}, {2, 1}, {3, 1}, {4, 1}, {5, 1}}));
    EXPECT_EQ(valid(KvContour::eEllipse), (Pairs{{0, 0}, {1, 0}, {2, 0}, {3, 1}, {4, 0}, {5, 0}}));
    EXPECT_EQ(valid(KvContour::eCircle), (Pairs{{0, 0}, {1, 0}, {2, 1}, {3, 0}, {4, 0}, {5, 0}}));
    EXPECT_EQ(valid(foreignType), (Pairs{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, 0}}));
    EXPECT_EQ(valid(negativeType), (Pairs{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, 0}}));
}

TEST(ContourValidity, NeitherRightAnglesNorEqualSidesAreTested)
{
    EXPECT_TRUE(Figure(KvContour::eSquare, {{0, 0}, {1, 7}, {10, 5}, {10, 0}}).IsValid());
}

TEST(ContourValidity, NotANumberIsNotValid)
{
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    for (const auto type : allTypes)
        EXPECT_FALSE(Figure(type, {{notANumber, 0}, {0, notANumber}, {5, 5}, {5, 0}}).IsValid());
}

TEST(ContourArea, IsPositiveCounterClockwise)
{
    EXPECT_EQ(Rectangle10x5().GetArea(), 50.0);
    EXPECT_EQ(Figure(KvContour::eRectangle, {{10, 0}, {10, 5}, {0, 5}, {0, 0}}).GetArea(), -50.0);
}

TEST(ContourArea, OfNoPointsIsNegativeZero)
{
    const double area = KvContour().GetArea();
    EXPECT_EQ(area, 0.0);
    EXPECT_TRUE(std::signbit(area));
}

TEST(ContourArea, OfPolylinesAndForeignTypesIsZero)
{
    for (const auto type : {KvContour::ePolyline, foreignType, negativeType})
        EXPECT_EQ(Figure(type, {{0, 0}, {0, 5}, {10, 5}, {10, 0}}).GetArea(), 0.0);
}

TEST(ContourArea, OfEllipseAndCircleComesFromTheirAxes)
{
    EXPECT_EQ(Figure(KvContour::eEllipse, {{1, 1}, {6, 1}, {1, 3}}).GetArea(), KvMath::Pi * 5.0 * 2.0);
    EXPECT_EQ(Figure(KvContour::eEllipse, {{1, 1}, {6, 1}, {3, 1}}).GetArea(), KvMath::Pi * 5.0 * 2.0)
        << "axes need not be perpendicular";
    EXPECT_EQ(Figure(KvContour::eCircle, {{1, 1}, {4, 5}}).GetArea(), KvMath::Pi * 5.0 * 5.0);
}

TEST(ContourArea, OfAxesUpToEpsilonIsZero)
{
    const double e = KvMath::Epsilon;
    EXPECT_EQ(Figure(KvContour::eCircle, {{0, 0}, {e, 0}}).GetArea(), 0.0);
    EXPECT_GT(Figure(KvContour::eCircle, {{0, 0}, {2 * e, 0}}).GetArea(), 0.0);
    EXPECT_EQ(Figure(KvContour::eEllipse, {{0, 0}, {e, 0}, {0, 5}}).GetArea(), 0.0);
    EXPECT_EQ(Figure(KvContour::eEllipse, {{0, 0}, {largest, 0}, {0, e}}).GetArea(), 0.0);
}

TEST(ContourArea, FollowsTheStatedSumToTheBit)
{
    Random random(1);
    for (int round = 0; round < 200; ++round)
    {
        const KvContour polygon = RandomPolygon(random, random.Int(3, 50));
        const auto& p = polygon.CurvePositions();
        double sum = 0.0;
        for (int i = 0; i < p.count; ++i)
        {
            const KvVec2d a = p[i], b = p[(i + 1) % p.count];
            sum += a.x * b.y - b.x * a.y;
        }
        EXPECT_EQ(polygon.GetArea(), -0.5 * sum);
    }
}

TEST(ContourArea, ChangesSignWithTheOrientation)
{
    Random random(2);
    for (int round = 0; round < 200; ++round)
    {
        const KvContour polygon = RandomPolygon(random, random.Int(3, 50));
        KvContour reversed;
        reversed.ContourType() = KvContour::ePolygon;
        for (const auto* node = polygon.CurvePositions().tail; node; node = node->prev)
            reversed.CurvePositions().AddTail(node->value);
        EXPECT_GT(polygon.GetArea(), 0.0);
        EXPECT_NEAR(reversed.GetArea(), -polygon.GetArea(), 1e-6);
        reversed.MakeCCW();
        EXPECT_EQ(Points(reversed), Points(polygon));
    }
}

TEST(ContourCentre, OfARectangleIsItsMiddle)
{
    const KvVec2d centre = Rectangle10x5().GetCMS();
    EXPECT_EQ(centre.x, 5.0);
    EXPECT_EQ(centre.y, 2.5);
}

TEST(ContourCentre, OfAPolylineIsTheOriginWhateverItsPoints)
{
    EXPECT_EQ(Points(List({Figure(KvContour::ePolyline, {{3, 4}, {10, 4}}).GetCMS()})), (Pairs{{0, 0}}));
    EXPECT_EQ(Points(List({Figure(foreignType, {{3, 4}, {10, 4}}).GetCMS()})), (Pairs{{0, 0}}));
}

TEST(ContourCentre, OfRoundFiguresIsTheirFirstPoint)
{
    for (const auto type : {KvContour::eEllipse, KvContour::eCircle})
    {
        EXPECT_EQ(Points(List({Figure(type, {{3, 4}}).GetCMS()})), (Pairs{{3, 4}}));
        EXPECT_EQ(Points(List({Figure(type, {}).GetCMS()})), (Pairs{{0, 0}}));
    }
}

TEST(ContourCentre, OfOneOrTwoPointsIsThePointOrTheMiddle)
{
    EXPECT_EQ(Points(List({Figure(KvContour::ePolygon, {{3, 4}}).GetCMS()})), (Pairs{{3, 4}}));
    EXPECT_EQ(Points(List({Figure(KvContour::ePolygon, {{3, 4}, {5, 8}}).GetCMS()})), (Pairs{{4, 6}}));
}

TEST(ContourCentre, WithoutPositiveAreaIsTheMiddleOfFirstAndLastPoint)
{
    EXPECT_EQ(Points(List({Figure(KvContour::ePolygon, {{0, 0}, {8, 0}, {4, 0}}).GetCMS()})), (Pairs{{2, 0}}));
    const KvContour clockwise = Figure(KvContour::eRectangle, {{0, 0}, {10, 0}, {10, 5}, {0, 5}});
    EXPECT_EQ(Points(List({clockwise.GetCMS()})), (Pairs{{0, 2.5}}));
}

TEST(ContourCentre, OfAFigureInOneSpotIsThatSpot)
{
    EXPECT_EQ(Points(List({Figure(KvContour::ePolygon, {{3, 4}, {3, 4}, {3, 4}}).GetCMS()})), (Pairs{{3, 4}}));
}

TEST(ContourCentre, OfAnEmptyFigureDoesNotReadAnything)
{
    EXPECT_EQ(Points(List({KvContour().GetCMS()})), (Pairs{{0, 0}}));
}

TEST(ContourCentre, FollowsTheStatedSumToTheBit)
{
    Random random(3);
    for (int round = 0; round < 200; ++round)
    {
        const KvContour polygon = RandomPolygon(random, random.Int(3, 50));
        const auto& p = polygon.CurvePositions();
        double x = 0.0, y = 0.0;
        for (int i = 0; i < p.count; ++i)
        {
            const KvVec2d a = p[i], b = p[(i + 1) % p.count];
            const double w = a.x * b.y - b.x * a.y;
            x += (a.x + b.x) * w;
            y += (a.y + b.y) * w;
        }
        const double factor = 1.0 / (-polygon.GetArea() * 6.0);
        EXPECT_EQ(polygon.GetCMS().x, x * factor);
        EXPECT_EQ(polygon.GetCMS().y, y * factor);
    }
}

TEST(ContourLength, ClosesClosedFiguresOnly)
{
    const std::initializer_list<KvVec2d> points = {{0, 0}, {0, 3}, {4, 3}};
    EXPECT_EQ(Figure(KvContour::ePolygon, points).GetLength(), 12.0);
    EXPECT_EQ(Figure(KvContour::ePolyline, points).GetLength(), 7.0);
    EXPECT_EQ(Rectangle10x5().GetLength(), 30.0);
    EXPECT_EQ(Figure(foreignType, points).GetLength(), 0.0);
    EXPECT_EQ(Figure(negativeType, points).GetLength(), 0.0);
    EXPECT_EQ(KvContour().GetLength(), 0.0);
}

TEST(ContourLength, OfACircleIsItsCircumference)
{
    EXPECT_EQ(Figure(KvContour::eCircle, {{0, 0}, {1, 0}}).GetLength(), KvMath::TwoPi);
    EXPECT_EQ(Figure(KvContour::eCircle, {{0, 0}, {KvMath::Epsilon, 0}}).GetLength(), 0.0);
    EXPECT_EQ(Figure(KvContour::eCircle, {{0, 0}}).GetLength(), 0.0);
}

TEST(ContourLength, OfAnEllipseIsZeroAsRequired)
{
    const KvContour ellipse = Figure(KvContour::eEllipse, {{0, 0}, {5, 0}, {0, 2}});
    EXPECT_TRUE(ellipse.IsValid());
    EXPECT_EQ(ellipse.GetLength(), 0.0);
    EXPECT_EQ(Figure(KvContour::eEllipse, {{0, 0}, {5, 0}}).GetLength(), 0.0);
}

TEST(ContourTransform, MovesAllTypesAlike)
{
    for (const auto type : allTypes)
    {
        KvContour contour = Figure(type, {{0, 0}, {0, 5}, {10, 5}});
        contour.Transform({1, 1}, {3, 4}, 0.0);
        EXPECT_EQ(Points(contour), (Pairs{{3, 4}, {3, 9}, {13, 9}}));
        EXPECT_EQ(contour.Angle(), 0.0);
    }
}

TEST(ContourTransform, PositiveAnglesTurnCounterClockwiseOnTheImage)
{
    KvContour contour = Figure(KvContour::ePolyline, {{1, 0}, {0, 1}});
    contour.Transform({0, 0}, {0, 0}, KvMath::Pi / 2);
    EXPECT_NEAR(contour.CurvePositions()[0].x, 0.0, 1e-15);
    EXPECT_EQ(contour.CurvePositions()[0].y, -1.0);
    EXPECT_EQ(contour.CurvePositions()[1].x, 1.0);
    EXPECT_NEAR(contour.CurvePositions()[1].y, 0.0, 1e-15);
}

TEST(ContourTransform, AddsUpTheAngleOfPolygonsAndPolylinesOnly)
{
    for (const auto type : allTypes)
    {
        const bool counted = type == KvContour::ePolygon || type == KvContour::ePolyline;
        KvContour contour = Figure(type, {{0, 0}, {0, 5}, {10, 5}});
        contour.Transform({0, 0}, {0, 0}, 4.0);
        contour.Transform({0, 0}, {0, 0}, 4.0);
        EXPECT_EQ(contour.Angle(), counted ? 8.0 : 0.0);
        KvContour empty = Figure(type, {});
        empty.Transform({0, 0}, {0, 0}, 4.0);
        EXPECT_EQ(empty.Angle(), counted ? 4.0 : 0.0);
    }
}

TEST(ContourTransform, FollowsTheStatedFormulaToTheBit)
{
    Random random(4);
    for (int round = 0; round < 200; ++round)
    {
        KvContour contour = RandomPolyline(random, 3);
        const auto before = contour.CurvePositions();
        const KvVec2d pivot = random.Point(), move = random.Point();
        const double angle = random.In(-10.0, 10.0);
        const double s = std::sin(angle), c = std::cos(angle);
        contour.Transform(pivot, move, angle);
        for (int i = 0; i < 3; ++i)
        {
            const double dx = before[i].x - pivot.x, dy = before[i].y - pivot.y;
            EXPECT_EQ(contour.CurvePositions()[i].x, pivot.x + move.x + dx * c + dy * s);
            EXPECT_EQ(contour.CurvePositions()[i].y, pivot.y + move.y + dy * c - dx * s);
        }
    }
}

TEST(ContourTransform, AboutAnOwnPointUsesThatPointsFormerPlace)
{
    KvContour contour = Figure(KvContour::ePolyline, {{1, 1}, {3, 1}});
    contour.Transform(contour.CurvePositions()[0], contour.CurvePositions()[1], 0.0);
    EXPECT_EQ(Points(contour), (Pairs{{4, 2}, {6, 2}}));
}

TEST(ContourTransform, BackAndForthIsWhereItWas)
{
    Random random(5);
    for (int round = 0; round < 600; ++round)
    {
        const auto type = allTypes[round % 6];
        KvContour figure = RandomFigure(random, type);
        KvContour original(figure);
        const KvVec2d pivot = random.Point();
        const double angle = random.In(-10.0, 10.0);
        figure.Transform(pivot, {0, 0}, angle);
        EXPECT_NEAR(figure.GetArea(), original.GetArea(), 1e-6 * std::abs(original.GetArea()));
        figure.Transform(pivot, {0, 0}, -angle);
        original.SetAllowedCompareDifference(1e-9);
        EXPECT_TRUE(original == figure);
    }
}
