// A contour as a flat, little-endian byte record, and back.
#include "C/syContour.h"

#include <bit>
#include <concepts>
#include <cstddef>
#include <string>

namespace KvN
{
namespace
{
using Bytes = KvTArray<unsigned char>;

constexpr std::uint32_t version = 1;
constexpr std::size_t fixedSize = 56; // everything but the description's units and the points
constexpr std::size_t unitSize = 2;
constexpr std::size_t pointSize = 16;

class Writer
{
public:
    explicit Writer(Bytes& target) : bytes(target) {}

    template <std::unsigned_integral Word>
    void Put(Word word)
    {
        for (std::size_t i = 0; i < sizeof word; ++i)
            bytes[at++] = static_cast<unsigned char>(word >> (8 * i));
    }
    void Put(std::signed_integral auto number) { Put(static_cast<std::uint32_t>(number)); }
    void Put(double number) { Put(std::bit_cast<std::uint64_t>(number)); }

private:
    Bytes& bytes;
    int at = 0;
};

// Reads word by word; a word that is not all there leaves its target as it is and answers false, as do all later ones.
class Reader
{
public:
    explicit Reader(const Bytes& source) : at(source.data), left(static_cast<std::size_t>(source.size)) {}

    std::size_t Left() const { return left; }

    template <std::unsigned_integral Word>
    bool Get(Word& word)
    {
        if (left < sizeof word)
        {
            left = 0;
            return false;
        }
        Word read = 0;
        for (std::size_t i = 0; i < sizeof word; ++i)
            read = static_cast<Word>(read | static_cast<Word>(at[i]) << (8 * i));
        word = read;
        at += sizeof word;
        left -= sizeof word;
        return true;
    }
    bool Get(std::int32_t& number)
    {
        std::uint32_t word = 0;
        if (!Get(word))
            return false;
        number = static_cast<std::int32_t>(word);
        return true;
    }
    bool Get(double& number)
    {
        std::uint64_t word = 0;
        if (!Get(word))
            return false;
        number = std::bit_cast<double>(word);
        return true;
    }

private:
    const unsigned char* at;
    std::size_t left;
};

bool ReadDescription(Reader& reader, KvString& description)
{
    std::int32_t length = 0;
    if (!reader.Get(length))
        return false;
    if (length <= 0)
        return true;
    if (static_cast<std::size_t>(length) > reader.Left() / unitSize)
        return false;
    std::u16string units(static_cast<std::size_t>(length), u'\0');
    for (char16_t& unit : units)
    {
        std::uint16_t word = 0;
        reader.Get(word);
        unit = static_cast<char16_t>(word);
    }
    description = KvString(units.c_str()); // as text with a terminator: a zero unit ends it
    return true;
}

bool ReadPoints(Reader& reader, KvTList<KvVec2d>& points)
{
    std::int32_t count = 0;
    if (!reader.Get(count))
        return false;
    if (count < 1)
        return true;
    if (static_cast<std::size_t>(count) > reader.Left() / pointSize)
        return false;
    for (std::int32_t i = 0; i < count; ++i)
    {
        KvVec2d point;
        reader.Get(point.x);
        reader.Get(point.y);
        points.AddTail(point);
    }
    return true;
}

bool ReadContour(Reader& reader, KvContour& contour)
{
    std::uint32_t unchecked = 0; // version and reserved word
    std::int32_t type = 0;
    const bool fixedPart =
        reader.Get(unchecked) && reader.Get(unchecked) && reader.Get(type) && reader.Get(contour.ID()) &&
        reader.Get(contour.SequenceID()) && reader.Get(contour.Exclude()) && reader.Get(contour.ReadOnly()) &&
        reader.Get(contour.Angle()) && reader.Get(contour.LineWidth()) && reader.Get(contour.Color());
    contour.ContourType() = static_cast<KvContour::eContourType>(type);
    return fixedPart && ReadDescription(reader, contour.Description()) && ReadPoints(reader, contour.CurvePositions());
}
} // namespace

void KvContour::ToByteArray(KvTArray<unsigned char>& bytes)
{
    bytes.Resize(0);
    if (!IsValid())
        return;
    const std::u16string& text = description.Text().Units();
    const auto points = static_cast<std::size_t>(curvePositions.count);
    const std::size_t size = fixedSize + unitSize * text.size() + pointSize * points;
    if (size > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return;
    bytes.Resize(static_cast<int>(size));
    Writer writer(bytes);
    writer.Put(version);
    writer.Put(std::uint32_t{0});
    writer.Put(static_cast<std::int32_t>(contourType));
    writer.Put(id);
    writer.Put(sequenceId);
    writer.Put(exclude);
    writer.Put(readOnly);
    writer.Put(angle);
    writer.Put(lineWidth);
    writer.Put(color);
    writer.Put(static_cast<std::int32_t>(text.size()));
    for (const char16_t unit : text)
        writer.Put(static_cast<std::uint16_t>(unit));
    writer.Put(static_cast<std::int32_t>(points));
    for (const auto* node = curvePositions.head; node; node = node->next)
    {
        writer.Put(node->value.x);
        writer.Put(node->value.y);
    }
}

void KvContour::FromByteArray(const KvTArray<unsigned char>& bytes)
{
    Init();
    if (bytes.size < 1)
        return;
    Reader reader(bytes);
    if (!ReadContour(reader, *this))
        Init();
}

} // namespace KvN
