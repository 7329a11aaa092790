// Fast paths for numbers as the files hold them; whatever is unusual goes the way of KvString.
#include "C/syContourXMLNumbers_p.h"

#include "contracts/basics/KvString.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace KvN::xmlnumbers
{
namespace
{
bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

KvString Whole(std::string_view text)
{
    return KvString(CStringT(text));
}

// A sign and up to nine digits. False also for much that is a number.
bool ReadPlain(std::string_view text, std::int32_t& value)
{
    const bool negative = !text.empty() && text.front() == '-';
    if (negative)
        text.remove_prefix(1);
    if (text.empty() || text.size() > 9 || !std::all_of(text.begin(), text.end(), IsDigit))
        return false;
    std::int32_t number = 0;
    for (const char c : text)
        number = number * 10 + (c - '0');
    value = negative ? -number : number;
    return true;
}

// Digits with at most one point among them, 15 digits at the most: digits and power of ten are then exact doubles, so
// that one division rounds as it must. False also for much that is a number.
bool ReadPlain(std::string_view text, double& value)
{
    static constexpr double powers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const bool negative = !text.empty() && text.front() == '-';
    if (negative)
        text.remove_prefix(1);
    if (text.empty() || text.size() > 16)
        return false;
    std::int64_t number = 0;
    std::size_t digits = 0;
    std::size_t point = text.size(); // where it stands
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (IsDigit(text[i]))
        {
            number = number * 10 + (text[i] - '0');
            ++digits;
        }
        else if (text[i] == '.' && point == text.size())
            point = i;
        else
            return false;
    }
    if (digits == 0 || digits > 15)
        return false;
    const std::size_t fraction = point == text.size() ? 0 : text.size() - point - 1;
    const double magnitude = static_cast<double>(number) / powers[fraction];
    value = negative ? -magnitude : magnitude;
    return true;
}
} // namespace

bool Read(std::string_view text, std::int32_t& value)
{
    if (ReadPlain(text, value))
        return true;
    const KvString whole = Whole(text);
    if (!whole.IsIntNum())
        return false;
    value = static_cast<int>(whole);
    return true;
}

bool Read(std::string_view text, std::uint32_t& value)
{
    std::int32_t plain = 0;
    if (ReadPlain(text, plain) && plain >= 0)
    {
        value = static_cast<std::uint32_t>(plain);
        return true;
    }
    const KvString whole = Whole(text);
    if (!whole.IsIntNum())
        return false;
    value = static_cast<std::uint32_t>(static_cast<unsigned long>(whole));
    return true;
}

bool Read(std::string_view text, double& value)
{
    if (ReadPlain(text, value))
        return true;
    const KvString whole = Whole(text);
    if (!whole.IsFloatNum())
        return false;
    value = static_cast<double>(whole);
    return true;
}

Text::Text(std::int32_t value)
{
    *std::to_chars(buffer, std::end(buffer) - 1, value).ptr = 0;
}

Text::Text(std::uint32_t value)
{
    *std::to_chars(buffer, std::end(buffer) - 1, value).ptr = 0;
}

Text::Text(double value, int width, int precision)
{
    // Room in front, for the padding that only inf and nan need.
    constexpr int room = 8;
    char* const digits = buffer + room;
    char* const end = std::to_chars(digits, std::end(buffer) - 1, value, std::chars_format::fixed, precision).ptr;
    *end = 0;
    begin = digits;
    while (end - begin < std::min(width, room))
        *--begin = ' ';
}

} // namespace KvN::xmlnumbers
