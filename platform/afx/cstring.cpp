// Text conversions and formatted text.
#include "platform/afx/cstring.h"

#include <cwchar>
#include <vector>

namespace kv::text
{
namespace
{
constexpr char32_t replacement = 0xFFFD;

void AppendUnits(std::u16string& out, char32_t code)
{
    if (code > 0x10FFFF)
        code = replacement;
    if (code < 0x10000)
    {
        out.push_back(static_cast<char16_t>(code));
        return;
    }
    code -= 0x10000;
    out.push_back(static_cast<char16_t>(0xD800 + (code >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
}

void AppendBytes(std::string& out, char32_t code)
{
    const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    if (code < 0x80)
        return put(code);
    if (code < 0x800)
    {
        put(0xC0 | code >> 6);
        return put(0x80 | (code & 0x3F));
    }
    if (code < 0x10000)
        put(0xE0 | code >> 12);
    else
    {
        put(0xF0 | code >> 18);
        put(0x80 | (code >> 12 & 0x3F));
    }
    put(0x80 | (code >> 6 & 0x3F));
    put(0x80 | (code & 0x3F));
}

int TailLength(unsigned char lead)
{
    if (lead >= 0xF0)
        return lead < 0xF8 ? 3 : 0;
    if (lead >= 0xE0)
        return 2;
    return lead >= 0xC0 ? 1 : 0;
}

// One code point from `text` at `at`, which moves behind it. Overlong forms, surrogates and cut sequences are invalid.
char32_t NextCode(std::string_view text, size_t& at)
{
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(at++);
    if (lead < 0x80)
        return lead;
    const int tail = TailLength(lead);
    if (tail == 0)
        return replacement;
    char32_t code = lead & (0x3F >> tail);
    for (int i = 0; i < tail; ++i)
    {
        if (at >= text.size() || (byte(at) & 0xC0) != 0x80)
            return replacement;
        code = code << 6 | (byte(at++) & 0x3F);
    }
    constexpr char32_t least[] = {0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code < 0xE000;
    return code < least[tail] || surrogate || code > 0x10FFFF ? replacement : code;
}

char32_t NextCode(std::u16string_view text, size_t& at)
{
    const char16_t unit = text[at++];
    if (unit < 0xD800 || unit >= 0xE000)
        return unit;
    const bool paired = unit < 0xDC00 && at < text.size() && text[at] >= 0xDC00 && text[at] < 0xE000;
    if (!paired)
        return replacement;
    return 0x10000 + (static_cast<char32_t>(unit - 0xD800) << 10) + (text[at++] - 0xDC00);
}

// The platform's wide printf reads %s as a wide string; the C library wants %ls for it.
std::wstring WithWideStrings(const wchar_t* format)
{
    std::wstring out;
    for (const wchar_t* at = format; *at; ++at)
    {
        out.push_back(*at);
        if (*at != L'%')
            continue;
        for (++at; *at && std::wcschr(L"-+ #0123456789.*", *at); ++at)
            out.push_back(*at);
        if (!*at)
            break;
        if (*at == L's')
            out.push_back(L'l');
        out.push_back(*at);
    }
    return out;
}

// The plain locale for the running thread, given back at the end of the scope.
class PlainNumbers
{
public:
    PlainNumbers() : former(uselocale(PlainLocale())) {}
    ~PlainNumbers() { uselocale(former); }
    PlainNumbers(const PlainNumbers&) = delete;
    PlainNumbers& operator=(const PlainNumbers&) = delete;

private:
    locale_t former;
};
} // namespace

std::u16string Utf16(std::string_view utf8)
{
    std::u16string out;
    out.reserve(utf8.size());
    for (size_t at = 0; at < utf8.size();)
        AppendUnits(out, NextCode(utf8, at));
    return out;
}

std::u16string Utf16(std::wstring_view text)
{
    std::u16string out;
    out.reserve(text.size());
    for (const wchar_t code : text)
        AppendUnits(out, static_cast<char32_t>(code));
    return out;
}

std::string Utf8(std::u16string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (size_t at = 0; at < text.size();)
        AppendBytes(out, NextCode(text, at));
    return out;
}

std::wstring Wide(std::u16string_view text)
{
    std::wstring out;
    out.reserve(text.size());
    for (size_t at = 0; at < text.size();)
        out.push_back(static_cast<wchar_t>(NextCode(text, at)));
    return out;
}

// C.UTF-8 rather than C, so that characters beyond ASCII can be formatted and turned to upper case as well.
locale_t PlainLocale()
{
    static const locale_t utf8 = newlocale(LC_ALL_MASK, "C.UTF-8", nullptr);
    static const locale_t plain = utf8 ? utf8 : newlocale(LC_ALL_MASK, "C", nullptr);
    return plain;
}

std::wstring VFormat(const wchar_t* format, va_list arguments)
{
    constexpr size_t largest = 1 << 24;
    const PlainNumbers plain;
    const std::wstring native = WithWideStrings(format);
    for (std::vector<wchar_t> buffer(256); buffer.size() <= largest; buffer.resize(buffer.size() * 4))
    {
        va_list copy;
        va_copy(copy, arguments);
        const int length = std::vswprintf(buffer.data(), buffer.size(), native.c_str(), copy);
        va_end(copy);
        if (length >= 0)
            return std::wstring(buffer.data(), static_cast<size_t>(length));
    }
    return {};
}
} // namespace kv::text

CStringT::CStringT(const wchar_t* text) : units(text ? kv::text::Utf16(std::wstring_view(text)) : std::u16string()) {}
CStringT::CStringT(const char16_t* text) : units(text ? text : u"") {}
CStringT::CStringT(const char* utf8) : units(utf8 ? kv::text::Utf16(std::string_view(utf8)) : std::u16string()) {}
CStringT::CStringT(std::wstring_view text) : units(kv::text::Utf16(text)) {}
CStringT::CStringT(std::string_view utf8) : units(kv::text::Utf16(utf8)) {}

std::wstring CStringT::Wide() const
{
    return kv::text::Wide(units);
}
std::string CStringT::Utf8() const
{
    return kv::text::Utf8(units);
}

void CStringT::Format(const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    units = kv::text::Utf16(kv::text::VFormat(format, arguments));
    va_end(arguments);
}
