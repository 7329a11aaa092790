// Text of the system, and the ids of texts that stand in the resources.
#pragma once

#include "platform/afx/cstring.h"

#include <ostream>
#include <string>

class CDynLinkLibrary;

namespace KvTools
{

enum StringCompare
{
    StringLess = -1,
    StringEqual = 0,
    StringGreater = 1
};

// UTF-16 text that converts from and to numbers. Numbers are decimal, with `.` as point in every process locale.
class String
{
public:
    String() = default;
    String(const CStringT& text_) : text(text_) {}
    String(const wchar_t* text_) : text(text_) {}
    String(const char16_t* text_) : text(text_) {}
    String(const char* utf8) : text(utf8) {}
    String(int number);
    String(long number);
    String(unsigned long number);
    String(unsigned short number);
    virtual ~String() = default;
    String(const String&) = default;
    String& operator=(const String&) = default;

    int Length() const { return text.GetLength(); } // in UTF-16 code units
    std::string Utf8() const { return text.Utf8(); }
    const CStringT& Text() const { return text; }
    operator const CStringT&() const { return text; }

    // The value of the leading number, 0 if there is none; a value beyond 32 bits gives the nearest bound.
    operator int() const;
    operator long() const;
    // As the platform reads it: a negative number wraps modulo 2^32.
    operator unsigned long() const;

    // Compares at most `maxLength` code units, upper and lower case being different.
    StringCompare Compare(const wchar_t* other, int maxLength) const;
    StringCompare Compare(const String& other, int maxLength) const;

    String& operator+=(const String& tail);
    char16_t& operator[](int index) { return text[index]; }
    char16_t operator[](int index) const { return text[index]; }

    friend bool operator==(const String& a, const String& b) { return a.text == b.text; }
    friend std::ostream& operator<<(std::ostream& out, const String& s) { return out << s.Utf8(); }

protected:
    CStringT text;
};

} // namespace KvTools

namespace KvN
{

// Names a string resource of a module; a null module means any that is loaded.
class KvResId
{
public:
    KvResId(unsigned short id, CDynLinkLibrary* module) : number(id), library(module) {}

    unsigned short Id() const { return number; }
    const CDynLinkLibrary* Module() const { return library; }

private:
    unsigned short number;
    const CDynLinkLibrary* library;
};

class KvString : public KvTools::String
{
public:
    using String::String;
    KvString() = default;
    KvString(const String& other) : String(other) {}
    KvString(const KvResId& resource); // empty if there is no such text
    KvString& operator=(const wchar_t* other);

    // Replaces the content by the printf-style result. %s takes a `const wchar_t*`.
    KvString& SPrintf(const wchar_t* format, ...);

    // Non-zero if the whole text is an optional sign and decimal digits; blanks around it are allowed.
    int IsIntNum() const;
    // Non-zero if the whole text is a decimal number with optional sign, fraction and exponent; blanks likewise.
    int IsFloatNum() const;

    // The value of the leading number, 0.0 if there is none.
    operator double() const;
    operator float() const { return static_cast<float>(operator double()); }

    KvString& ToUpper(); // in place, character by character, in every process locale alike
};

inline KvString operator+(KvString head, const KvString& tail)
{
    head += tail;
    return head;
}

} // namespace KvN
