// CStringT: UTF-16 text as the class layer passes it. Built from every kind of literal.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <locale.h>
#include <string>
#include <string_view>

class CStringT
{
public:
    CStringT() = default;
    CStringT(std::nullptr_t) {}
    CStringT(const wchar_t* text);  // null counts as empty
    CStringT(const char16_t* text); // null counts as empty
    CStringT(const char* utf8);     // null counts as empty; an invalid byte becomes U+FFFD
    CStringT(std::wstring_view text);
    CStringT(std::u16string_view text) : units(text) {}
    CStringT(std::string_view utf8);

    int GetLength() const { return static_cast<int>(units.size()); } // in UTF-16 code units
    bool IsEmpty() const { return units.empty(); }
    void Empty() { units.clear(); }
    const char16_t* GetString() const { return units.c_str(); }
    std::u16string& Units() { return units; }
    const std::u16string& Units() const { return units; }
    char16_t& operator[](int index) { return units[static_cast<size_t>(index)]; }
    char16_t operator[](int index) const { return units[static_cast<size_t>(index)]; }

    std::wstring Wide() const;
    std::string Utf8() const;

    CStringT& operator+=(const CStringT& tail)
    {
        units += tail.units;
        return *this;
    }
    friend CStringT operator+(CStringT head, const CStringT& tail) { return head += tail; }
    friend bool operator==(const CStringT& a, const CStringT& b) { return a.units == b.units; }
    friend bool operator<(const CStringT& a, const CStringT& b) { return a.units < b.units; }

    // printf in the wide manner of the platform: %s takes a `const wchar_t*`. Numbers use `.` in every locale.
    void Format(const wchar_t* format, ...);

private:
    std::u16string units;
};

using CString = CStringT;
using CStringW = CStringT;

namespace kv::text
{
// Conversions between the three encodings; what can't be decoded becomes U+FFFD.
std::u16string Utf16(std::string_view utf8);
std::u16string Utf16(std::wstring_view text);
std::string Utf8(std::u16string_view text);
std::wstring Wide(std::u16string_view text);

// The locale for conversions that are the same in every process locale. Lives as long as the program.
locale_t PlainLocale();

// The printf behind `CStringT::Format`.
std::wstring VFormat(const wchar_t* format, va_list arguments);
} // namespace kv::text
