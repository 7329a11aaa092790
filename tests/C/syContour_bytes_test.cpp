// The byte record: layout, round trips to the bit, cut and forged arrays.
#include "C/syContour.h"

#include "tests/C/contour_figures.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <limits>

using namespace figures;
using Bytes = KvTArray<unsigned char>;
using KvN::KvString;

namespace
{
Bytes ToBytes(KvContour contour)
{
    Bytes bytes(3);
    contour.ToByteArray(bytes);
    return bytes;
}

std::uint64_t Word(const Bytes& bytes, int at, int size)
{
    std::uint64_t word = 0;
    for (int i = 0; i < size; ++i)
        word |= static_cast<std::uint64_t>(bytes[at + i]) << (8 * i);
    return word;
}

void SetWord(Bytes& bytes, int at, std::uint32_t word)
{
    for (int i = 0; i < 4; ++i)
        bytes[at + i] = static_cast<unsigned char>(word >> (8 * i));
}

Bytes Cut(const Bytes& bytes, int size)
{
    Bytes cut(bytes);
    cut.Resize(size);
    return cut;
}

// All fields but the points, so that one comparison tells whether a contour is at its defaults.
bool IsDefault(const KvContour& c)
{
    return c.ID() == -1 && c.SequenceID() == -1 && c.Exclude() == 0 && c.ReadOnly() == 0 && c.Angle() == 0.0 &&
           c.LineWidth() == KvContour::NoLineWidth && c.Color() == KvContour::NoColor &&
           c.Description().Length() == 0 && c.ContourType() == KvContour::eRectangle && c.CurvePositions().count == 0;
}

void ExpectSame(const KvContour& a, const KvContour& b)
{
    EXPECT_EQ(a.ContourType(), b.ContourType());
    EXPECT_EQ(a.ID(), b.ID());
    EXPECT_EQ(a.SequenceID(), b.SequenceID());
    EXPECT_EQ(a.Exclude(), b.Exclude());
    EXPECT_EQ(a.ReadOnly(), b.ReadOnly());
    EXPECT_EQ(std::bit_cast<std::uint64_t>(a.Angle()), std::bit_cast<std::uint64_t>(b.Angle()));
    EXPECT_EQ(std::bit_cast<std::uint64_t>(a.LineWidth()), std::bit_cast<std::uint64_t>(b.LineWidth()));
    EXPECT_EQ(a.Color(), b.Color());
    EXPECT_EQ(a.Description().Text().Units(), b.Description().Text().Units());
    ASSERT_EQ(a.CurvePositions().count, b.CurvePositions().count);
    const auto* other = b.CurvePositions().head;
    for (const auto* node = a.CurvePositions().head; node; node = node->next, other = other->next)
    {
        EXPECT_EQ(std::bit_cast<std::uint64_t>(node->value.x), std::bit_cast<std::uint64_t>(other->value.x));
        EXPECT_EQ(std::bit_cast<std::uint64_t>(node->value.y), std::bit_cast<std::uint64_t>(other->value.y));
    }
}

KvContour Described()
{
    KvContour contour = Rectangle10x5();
    contour.ID() = -2;
    contour.SequenceID() = 0x01020304;
    contour.Exclude() = 5;
    contour.ReadOnly() = -6;
    contour.Angle() = 0.1;
    contour.LineWidth() = -3.25;
    contour.Color() = 0xFEDCBA98u;
    contour.Description() = L"Öl";
    return contour;
}
} // namespace

TEST(ContourBytes, OfACircleWithoutDescriptionAre88)
{
    KvContour circle;
    circle.MakeCircle(1, 2, 3);
    const Bytes bytes = ToBytes(circle);
    EXPECT_EQ(bytes.size, 56 + 32);
    EXPECT_EQ(Word(bytes, 48, 4), 0u);
    EXPECT_EQ(Word(bytes, 52, 4), 2u);
}

TEST(ContourBytes, StandAtTheirOffsets)
{
    const Bytes bytes = ToBytes(Described());
    ASSERT_EQ(bytes.size, 56 + 4 + 64);
    EXPECT_EQ(Word(bytes, 0, 4), 1u) << "version";
    EXPECT_EQ(Word(bytes, 4, 4), 0u) << "reserved";
    EXPECT_EQ(Word(bytes, 8, 4), 0u) << "type";
    EXPECT_EQ(Word(bytes, 12, 4), 0xFFFFFFFEu);
    EXPECT_EQ(Word(bytes, 16, 4), 0x01020304u);
    EXPECT_EQ(bytes[16], 4) << "little-endian";
    EXPECT_EQ(Word(bytes, 20, 4), 5u);
    EXPECT_EQ(Word(bytes, 24, 4), 0xFFFFFFFAu);
    EXPECT_EQ(Word(bytes, 28, 8), std::bit_cast<std::uint64_t>(0.1));
    EXPECT_EQ(Word(bytes, 36, 8), std::bit_cast<std::uint64_t>(-3.25));
    EXPECT_EQ(Word(bytes, 44, 4), 0xFEDCBA98u);
    EXPECT_EQ(Word(bytes, 48, 4), 2u) << "code units of the description";
    EXPECT_EQ(Word(bytes, 52, 2), 0xD6u);
    EXPECT_EQ(Word(bytes, 54, 2), 0x6Cu);
    EXPECT_EQ(Word(bytes, 56, 4), 4u) << "points";
    EXPECT_EQ(Word(bytes, 60, 8), std::bit_cast<std::uint64_t>(0.0));
    EXPECT_EQ(Word(bytes, 60 + 24, 8), std::bit_cast<std::uint64_t>(5.0)) << "y of the second point";
}

TEST(ContourBytes, RoundTripKeepsEverythingToTheBit)
{
    KvContour read;
    read.FromByteArray(ToBytes(Described()));
    ExpectSame(read, Described());
}

TEST(ContourBytes, RoundTripOfRandomFigures)
{
    Random random(22);
    for (int round = 0; round < 600; ++round)
    {
        KvContour figure = RandomFigure(random, allTypes[round % 6]);
        figure.ID() = static_cast<std::int32_t>(random.Bits());
        figure.SequenceID() = static_cast<std::int32_t>(random.Bits());
        figure.Exclude() = random.Int(-3, 3);
        figure.Color() = static_cast<std::uint32_t>(random.Bits());
        figure.Angle() = std::bit_cast<double>(random.Bits()); // any number, not-a-number included
        figure.LineWidth() = std::bit_cast<double>(random.Bits());
        std::u16string text;
        for (int i = random.Int(0, 40); i > 0; --i)
            text.push_back(static_cast<char16_t>(random.Int(1, 0xFFFF))); // lone surrogates too
        figure.Description() = KvString(text.c_str());
        const Bytes bytes = ToBytes(figure);
        EXPECT_EQ(bytes.size, static_cast<int>(56 + 2 * text.size()) + 16 * figure.CurvePositions().count);
        KvContour read = Described();
        read.FromByteArray(bytes);
        ExpectSame(read, figure);
        const Bytes again = ToBytes(read);
        ASSERT_EQ(again.size, bytes.size);
        EXPECT_EQ(std::memcmp(again.data, bytes.data, static_cast<size_t>(bytes.size)), 0);
    }
}

TEST(ContourBytes, OfInvalidFiguresAreNone)
{
    EXPECT_EQ(ToBytes(KvContour()).size, 0);
    EXPECT_EQ(ToBytes(Figure(KvContour::eRectangle, {{0, 0}, {10, 0}, {10, 5}, {0, 5}})).size, 0);
    EXPECT_EQ(ToBytes(KvContour()).data, nullptr);
}

TEST(ContourBytes, EmptyArrayGivesADefaultContour)
{
    KvContour contour = Described();
    contour.FromByteArray(Bytes());
    EXPECT_TRUE(IsDefault(contour));
}

TEST(ContourBytes, ReadContourHasTheDefaultTolerance)
{
    KvContour contour, near = Described();
    near.CurvePositions()[0].x += 0.5;
    contour.SetAllowedCompareDifference(1.0);
    contour.FromByteArray(ToBytes(Described()));
    EXPECT_FALSE(contour == near);
}

TEST(ContourBytes, EveryCutGivesADefaultContour)
{
    const Bytes bytes = ToBytes(Described());
    for (int size = 0; size < bytes.size; ++size)
    {
        KvContour contour = Described();
        contour.FromByteArray(Cut(bytes, size));
        EXPECT_TRUE(IsDefault(contour)) << size << " bytes";
    }
}

TEST(ContourBytes, VersionAndReservedWordAreNotChecked)
{
    Bytes bytes = ToBytes(Described());
    SetWord(bytes, 0, 7);
    SetWord(bytes, 4, 0xFFFFFFFFu);
    KvContour contour;
    contour.FromByteArray(bytes);
    ExpectSame(contour, Described());
}

TEST(ContourBytes, BehindTheLastPointAreIgnored)
{
    Bytes bytes = ToBytes(Described());
    bytes.Resize(bytes.size + 5);
    KvContour contour;
    contour.FromByteArray(bytes);
    ExpectSame(contour, Described());
}

TEST(ContourBytes, NoPointsLeaveTheFixedPart)
{
    for (const std::uint32_t count : {0u, 0xFFFFFFFFu, 0x80000000u})
    {
        Bytes bytes = Cut(ToBytes(Described()), 60);
        SetWord(bytes, 56, count);
        KvContour contour, expected = Described();
        expected.CurvePositions().Clear();
        contour.FromByteArray(bytes);
        ExpectSame(contour, expected);
    }
}

TEST(ContourBytes, ForgedPointCountsGiveADefaultContour)
{
    for (const std::uint32_t count : {5u, 0x10000000u, 0x10000004u, 0x7FFFFFFFu})
    {
        Bytes bytes = ToBytes(Described());
        SetWord(bytes, 56, count);
        KvContour contour;
        contour.FromByteArray(bytes);
        EXPECT_TRUE(IsDefault(contour)) << count;
    }
}

TEST(ContourBytes, ForgedDescriptionLengthsNeverReadOutside)
{
    for (const std::uint32_t length : {0x7FFFFFFFu, 0x40000000u, 36u, 37u})
    {
        Bytes bytes = ToBytes(Described());
        SetWord(bytes, 48, length);
        KvContour contour;
        contour.FromByteArray(bytes);
        EXPECT_TRUE(IsDefault(contour)) << length;
    }
}

TEST(ContourBytes, NegativeDescriptionLengthIsNoDescription)
{
    Bytes bytes(56);
    SetWord(bytes, 12, 9);
    SetWord(bytes, 48, 0xFFFFFFFFu);
    KvContour contour;
    contour.FromByteArray(bytes);
    EXPECT_EQ(contour.ID(), 9);
    EXPECT_EQ(contour.Description().Length(), 0);
}

TEST(ContourBytes, DescriptionEndsAtItsFirstZeroUnit)
{
    KvContour contour = Described();
    contour.Description() = L"abc";
    Bytes bytes = ToBytes(contour);
    bytes[54] = 0;
    contour.FromByteArray(bytes);
    EXPECT_EQ(contour.Description().Utf8(), "a");
    EXPECT_EQ(contour.CurvePositions().count, 4);
}

TEST(ContourBytes, TypesAndPointsAreTakenAsTheyStand)
{
    for (const std::uint32_t type : {5u, 6u, 0xFFFFFFFFu, 0x80000000u})
    {
        Bytes bytes = ToBytes(Described());
        SetWord(bytes, 8, type);
        KvContour contour;
        contour.FromByteArray(bytes);
        EXPECT_EQ(static_cast<std::uint32_t>(contour.ContourType()), type);
        EXPECT_EQ(contour.CurvePositions().count, 4);
        EXPECT_FALSE(contour.IsValid());
    }
}

TEST(ContourBytes, OfThe65535PointPolygonRoundTrip)
{
    Random random(23);
    const KvContour polygon = RandomPolygon(random, 65535);
    const Bytes bytes = ToBytes(polygon);
    EXPECT_EQ(bytes.size, 56 + 16 * 65535);
    KvContour read;
    read.FromByteArray(bytes);
    EXPECT_EQ(Points(read), Points(polygon));
}

TEST(ContourBytes, ReadFiguresOfAnyFormAnswerEveryQuestion)
{
    Random random(24);
    for (int round = 0; round < 300; ++round)
    {
        KvContour figure = Described();
        figure.CurvePositions() = RandomPolyline(random, random.Int(2, 6)).CurvePositions();
        figure.ContourType() = KvContour::ePolyline;
        Bytes bytes = ToBytes(figure);
        SetWord(bytes, 8, static_cast<std::uint32_t>(random.Int(-1, 6)));
        KvContour forged, other;
        forged.FromByteArray(bytes);
        KvN::KvTRectangle<double> box;
        KvTList<KvVec2d> corners, middles;
        forged.MakeBoundingBox(box);
        forged.MakeBoundingRect(other, corners, middles);
        forged.IsMatch({1, 1}, 2);
        forged.GetPointMatch({1, 1}, 2);
        forged.GetLineMatch({1, 1}, 2);
        forged.IsPointInContour({1, 1});
        forged.CreateSegments(0, 6, 8, corners);
        forged.MovePoint({1, 1}, 1);
        forged.MoveLine({1, 1}, {0, 1});
        forged.TransformCenterBased({1, 1}, 1.0);
        forged.Stretch(2.0, 3.0);
        forged.MakeCCW();
        forged.ToByteArray(bytes);
        EXPECT_EQ(bytes.size > 0, forged.IsValid() != 0);
    }
}
