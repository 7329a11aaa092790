// Finds the line breaks of a source. Places are told in bytes of the source decoded to UTF-8, as the parser counts.
#include "contracts/xml/XML_LINES.h"

#include "contracts/xml/XML_PARSER_p.h"

#include <algorithm>
#include <cstdint>

namespace KvN
{
namespace
{
std::size_t Utf8Length(std::uint32_t character)
{
    return character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
}

// How characters are read off a source of fixed-size units. Units of 2 bytes are UTF-16.
struct Units
{
    std::size_t size = 1;
    bool bigEndian = false;
    bool decoded = false; // the bytes are UTF-8 already
};

Units UnitsOf(pugi::xml_encoding encoding)
{
    switch (encoding)
    {
    case pugi::encoding_utf16_le:
        return {2, false, false};
    case pugi::encoding_utf16_be:
        return {2, true, false};
    case pugi::encoding_utf32_le:
        return {4, false, false};
    case pugi::encoding_utf32_be:
        return {4, true, false};
    case pugi::encoding_latin1:
        return {1, false, false};
    default:
        return {1, false, true};
    }
}

std::uint32_t UnitAt(std::string_view source, std::size_t at, const Units& units)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < units.size; ++i)
        value = value << 8 | static_cast<unsigned char>(source[at + (units.bigEndian ? i : units.size - 1 - i)]);
    return value;
}
} // namespace

XML_LINES::XML_LINES(const XML_PARSER& parser, std::string_view source)
{
    const Units units = UnitsOf(parser.document->encoding);
    std::size_t place = 0;
    std::uint32_t former = 0;
    for (std::size_t at = 0; at + units.size <= source.size(); at += units.size)
    {
        const std::uint32_t unit = UnitAt(source, at, units);
        const bool surrogate = units.size == 2 && unit >= 0xD800 && unit < 0xE000;
        if (unit == '\n' && former == '\r')
            breaks.back() = place;
        else if (unit == '\n' || unit == '\r')
            breaks.push_back(place);
        place += units.decoded ? 1 : surrogate ? 2 : Utf8Length(unit); // a pair of surrogates makes 4 bytes
        former = unit;
    }
}

int XML_LINES::At(std::ptrdiff_t offset) const
{
    if (offset < 0)
        return 0;
    const auto line = std::lower_bound(breaks.begin(), breaks.end(), static_cast<std::size_t>(offset));
    return static_cast<int>(line - breaks.begin()) + 1;
}

} // namespace KvN
