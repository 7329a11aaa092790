// UTF-16 text: conversions between the encodings, and the wide printf.
#include "platform/afx/cstring.h"

#include <gtest/gtest.h>

using namespace kv::text;

TEST(CStringT, ComesFromEveryKindOfLiteral)
{
    EXPECT_EQ(CStringT(L"Öl").Units(), u"Öl");
    EXPECT_EQ(CStringT(u"Öl").Units(), u"Öl");
    EXPECT_EQ(CStringT("Öl").Units(), u"Öl");
    EXPECT_EQ(CStringT(std::wstring_view(L"a\0b", 3)).GetLength(), 3);
    EXPECT_EQ(CStringT(std::u16string_view(u"a\0b", 3)).GetLength(), 3);
    EXPECT_EQ(CStringT(std::string_view("a\0b", 3)).GetLength(), 3);
}

TEST(CStringT, OfNullIsEmpty)
{
    EXPECT_TRUE(CStringT(nullptr).IsEmpty());
    EXPECT_TRUE(CStringT(static_cast<const wchar_t*>(nullptr)).IsEmpty());
    EXPECT_TRUE(CStringT(static_cast<const char16_t*>(nullptr)).IsEmpty());
    EXPECT_TRUE(CStringT(static_cast<const char*>(nullptr)).IsEmpty());
}

TEST(CStringT, JoinsComparesAndIndexes)
{
    CStringT text(L"ab");
    text += L"cd";
    text[1] = u'X';
    EXPECT_EQ((text + CStringT("!")).Utf8(), "aXcd!");
    EXPECT_TRUE(CStringT("a") < CStringT("b"));
    EXPECT_TRUE(CStringT("a") == CStringT(L"a"));
    const CStringT constant("xy");
    EXPECT_EQ(constant[1], u'y');
    EXPECT_EQ(constant.GetString()[2], u'\0');
    text.Empty();
    EXPECT_TRUE(text.IsEmpty());
}

TEST(TextConversion, RoundTripsEveryCodePoint)
{
    for (char32_t code = 1; code <= 0x10FFFF; code = code < 0x800 ? code + 1 : code + 97)
    {
        if (code >= 0xD800 && code < 0xE000)
            continue;
        const wchar_t wide[] = {static_cast<wchar_t>(code), 0};
        const std::u16string units = Utf16(std::wstring_view(wide));
        EXPECT_EQ(units.size(), code < 0x10000 ? 1u : 2u);
        EXPECT_EQ(Wide(units), wide);
        EXPECT_EQ(Utf16(Utf8(units)), units);
    }
}

TEST(TextConversion, WritesUtf8OfEveryLength)
{
    EXPECT_EQ(Utf8(u"aö€\U0001F600"), "a\xC3\xB6\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(Wide(u"\U0001F600"), std::wstring(1, L'\U0001F600'));
}

TEST(TextConversion, TurnsWhatCannotBeDecodedIntoTheReplacementCharacter)
{
    EXPECT_EQ(Utf16("\x80"), u"\uFFFD") << "a tail byte alone";
    EXPECT_EQ(Utf16("\xFF"), u"\uFFFD");
    EXPECT_EQ(Utf16("\xF8"), u"\uFFFD");
    EXPECT_EQ(Utf16("\xC3"), u"\uFFFD") << "cut off";
    EXPECT_EQ(Utf16("\xE2\x82z"), u"\uFFFDz") << "cut off by a letter, which stays";
    EXPECT_EQ(Utf16("\xC0\xAF"), u"\uFFFD") << "overlong";
    EXPECT_EQ(Utf16("\xED\xA0\x80"), u"\uFFFD") << "a surrogate";
    EXPECT_EQ(Utf16("\xF4\x90\x80\x80"), u"\uFFFD") << "beyond the last code point";
    EXPECT_EQ(Utf16(std::wstring(1, static_cast<wchar_t>(0x110000))), u"\uFFFD");
    const char16_t high[] = {0xD800, u'x', 0}, low[] = {0xDC00, 0}, end[] = {0xD800, 0};
    EXPECT_EQ(Utf8(high), "\xEF\xBF\xBDx");
    EXPECT_EQ(Utf8(low), "\xEF\xBF\xBD");
    EXPECT_EQ(Wide(end), L"\uFFFD");
}

TEST(CStringTFormat, TakesWideStringsForPercentS)
{
    CStringT text;
    text.Format(L"%s|%ls|%5s|%-4s|%.2s|%%s|%c", L"ä", L"b", L"c", L"d", L"efg", L'h');
    EXPECT_EQ(text.Utf8(), "ä|b|    c|d   |ef|%s|h");
}

TEST(CStringTFormat, PrintsNumbers)
{
    CStringT text;
    text.Format(L"%ld %lu %d %04X %.3f %g %*d", -5l, 5ul, 7, 0xAB, 1.5, 1e300, 4, 9);
    EXPECT_EQ(text.Utf8(), "-5 5 7 00AB 1.500 1e+300    9");
}

TEST(CStringTFormat, GrowsAsNeededAndEndsAtALonePercent)
{
    const std::wstring longText(5000, L'x');
    CStringT text;
    text.Format(L"%s", longText.c_str());
    EXPECT_EQ(text.GetLength(), 5000);
    text.Format(L"");
    EXPECT_TRUE(text.IsEmpty());
}
