// Text as numbers and numbers as text, the same in every process locale.
#include "contracts/basics/KvString.h"

#include "platform/afx/module.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <stdlib.h>
#include <wctype.h>

namespace
{
bool IsBlank(char16_t c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}
bool IsDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

std::u16string_view Trimmed(std::u16string_view text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

void SkipSign(std::u16string_view& text)
{
    if (!text.empty() && (text.front() == u'+' || text.front() == u'-'))
        text.remove_prefix(1);
}

// Takes the digits off the front and says how many there were.
size_t SkipDigits(std::u16string_view& text)
{
    const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
    const auto digits = static_cast<size_t>(end - text.begin());
    text.remove_prefix(digits);
    return digits;
}

// Takes a decimal number without sign off the front; false if none stands there.
bool SkipDecimal(std::u16string_view& text)
{
    size_t digits = SkipDigits(text);
    if (!text.empty() && text.front() == u'.')
    {
        text.remove_prefix(1);
        digits += SkipDigits(text);
    }
    return digits > 0;
}

// Takes an exponent off the front, if a whole one stands there.
void SkipExponent(std::u16string_view& text)
{
    if (text.empty() || (text.front() != u'e' && text.front() != u'E'))
        return;
    std::u16string_view rest = text.substr(1);
    SkipSign(rest);
    if (SkipDigits(rest) > 0)
        text = rest;
}

// The leading integer, with its sign, held within 64 bits.
std::int64_t LeadingInteger(std::u16string_view text)
{
    constexpr std::int64_t bound = std::numeric_limits<std::int64_t>::max() / 16;
    text = Trimmed(text);
    const bool negative = !text.empty() && text.front() == u'-';
    SkipSign(text);
    std::int64_t number = 0;
    for (; !text.empty() && IsDigit(text.front()); text.remove_prefix(1))
        number = std::min(bound, number * 10 + (text.front() - u'0'));
    return negative ? -number : number;
}

template <class Number>
Number Clamped(std::int64_t number)
{
    return static_cast<Number>(
        std::clamp<std::int64_t>(number, std::numeric_limits<Number>::min(), std::numeric_limits<Number>::max()));
}

template <class Number>
CStringT Decimal(Number number)
{
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return CStringT(std::string_view(digits, static_cast<size_t>(end - digits)));
}

// A number as `from_chars` can't hold it (too large, too small): infinity or zero, by the C library's rules.
double OutOfRange(const std::string& digits)
{
    return strtod_l(digits.c_str(), nullptr, kv::text::PlainLocale());
}
} // namespace

namespace KvTools
{

String::String(int number) : text(Decimal(number)) {}
String::String(long number) : text(Decimal(number)) {}
String::String(unsigned long number) : text(Decimal(number)) {}
String::String(unsigned short number) : text(Decimal(number)) {}

String::operator int() const
{
    return Clamped<std::int32_t>(LeadingInteger(text.Units()));
}
String::operator long() const
{
    return Clamped<std::int32_t>(LeadingInteger(text.Units()));
}

String::operator unsigned long() const
{
    const std::int64_t number = LeadingInteger(text.Units());
    const std::uint32_t magnitude = Clamped<std::uint32_t>(number < 0 ? -number : number);
    return number < 0 ? 0u - magnitude : magnitude;
}

StringCompare String::Compare(const wchar_t* other, int maxLength) const
{
    return Compare(String(other), maxLength);
}

StringCompare String::Compare(const String& other, int maxLength) const
{
    const auto length = static_cast<size_t>(std::max(maxLength, 0));
    const auto mine = std::u16string_view(text.Units()).substr(0, length);
    const auto theirs = std::u16string_view(other.text.Units()).substr(0, length);
    const int order = mine.compare(theirs);
    return order == 0 ? StringEqual : order < 0 ? StringLess : StringGreater;
}

String& String::operator+=(const String& tail)
{
    text += tail.text;
    return *this;
}

} // namespace KvTools

namespace KvN
{

KvString::KvString(const KvResId& resource)
{
    if (!resource.Module())
        text = AfxLoadString(resource.Id());
    else if (const auto found = resource.Module()->Resources().FindString(resource.Id()))
        text = *found;
}

KvString& KvString::operator=(const wchar_t* other)
{
    text = CStringT(other);
    return *this;
}

KvString& KvString::SPrintf(const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    text = CStringT(std::wstring_view(kv::text::VFormat(format, arguments)));
    va_end(arguments);
    return *this;
}

int KvString::IsIntNum() const
{
    std::u16string_view rest = Trimmed(text.Units());
    SkipSign(rest);
    return SkipDigits(rest) > 0 && rest.empty();
}

int KvString::IsFloatNum() const
{
    std::u16string_view rest = Trimmed(text.Units());
    SkipSign(rest);
    if (!SkipDecimal(rest))
        return 0;
    SkipExponent(rest);
    return rest.empty();
}

KvString::operator double() const
{
    const std::u16string_view whole = Trimmed(text.Units());
    std::u16string_view rest = whole;
    SkipSign(rest);
    if (!SkipDecimal(rest))
        return 0.0;
    SkipExponent(rest);
    std::u16string_view number = whole.substr(0, whole.size() - rest.size());
    if (number.front() == u'+') // which from_chars does not read
        number.remove_prefix(1);
    const std::string digits(number.begin(), number.end());
    double value = 0.0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return result.ec == std::errc::result_out_of_range ? OutOfRange(digits) : value;
}

KvString& KvString::ToUpper()
{
    for (char16_t& c : text.Units())
        c = static_cast<char16_t>(towupper_l(c, kv::text::PlainLocale()));
    return *this;
}

} // namespace KvN
