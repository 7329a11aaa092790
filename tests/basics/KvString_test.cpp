// Text as numbers and numbers as text, in any process locale; texts of the resources.
#include "contracts/basics/KvString.h"

#include "contracts/basics/KvLibrary.h"
#include "platform/afx/module.h"
#include "resources/resource.h"
#include "tests/C/comma_locale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

using KvN::KvResId;
using KvN::KvString;

namespace
{
std::string Printed(const KvString& text)
{
    return text.Utf8();
}

double Real(const char* text)
{
    return KvString(text);
}
} // namespace

TEST(KvString, ComesFromEveryKindOfText)
{
    EXPECT_EQ(KvString().Length(), 0);
    EXPECT_EQ(Printed(L"Fläche"), "Fläche");
    EXPECT_EQ(Printed(u"Fläche"), "Fläche");
    EXPECT_EQ(Printed("Fläche"), "Fläche");
    EXPECT_EQ(Printed(CStringT(L"Fläche")), "Fläche");
    EXPECT_EQ(KvString("Fläche").Length(), 6);
    EXPECT_EQ(KvString("\U0001F600").Length(), 2) << "UTF-16 code units";
    EXPECT_EQ(KvString(static_cast<const wchar_t*>(nullptr)).Length(), 0);
    KvString text("old");
    text = L"new";
    EXPECT_EQ(Printed(text), "new");
    const KvString copy(text);
    text = KvString(L"other");
    EXPECT_EQ(Printed(copy), "new");
}

TEST(KvString, ComesFromNumbers)
{
    EXPECT_EQ(Printed(-12), "-12");
    EXPECT_EQ(Printed(-12l), "-12");
    EXPECT_EQ(Printed(4294967295ul), "4294967295");
    EXPECT_EQ(Printed(static_cast<unsigned short>(65535)), "65535");
}

TEST(KvString, GivesTheLeadingInteger)
{
    EXPECT_EQ(static_cast<int>(KvString(" -12 rest")), -12);
    EXPECT_EQ(static_cast<long>(KvString("+7.9")), 7);
    EXPECT_EQ(static_cast<int>(KvString("x")), 0);
    EXPECT_EQ(static_cast<int>(KvString("")), 0);
    EXPECT_EQ(static_cast<int>(KvString("99999999999999999999999")), 2147483647);
    EXPECT_EQ(static_cast<long>(KvString("-99999999999")), -2147483648l) << "32 bits on every platform";
    EXPECT_EQ(static_cast<unsigned long>(KvString("4294967295")), 4294967295ul);
    EXPECT_EQ(static_cast<unsigned long>(KvString("99999999999")), 4294967295ul);
    EXPECT_EQ(static_cast<unsigned long>(KvString("-1")), 4294967295ul);
}

TEST(KvString, KnowsIntegers)
{
    for (const char* text : {"0", "12", "-12", "+12", " 12 ", "\t12\n", "123456789012345678901234567890"})
        EXPECT_NE(KvString(text).IsIntNum(), 0) << text;
    for (const char* text : {"", " ", "-", "+-1", "1 2", "1.0", "1e3", "12a", "a12", "0x10", "１２"})
        EXPECT_EQ(KvString(text).IsIntNum(), 0) << text;
}

TEST(KvString, KnowsRealNumbers)
{
    for (const char* text : {"0", "-12", "1.5", ".5", "5.", "+1e3", "1.5E-3", " 7 ", "1e+300", "1e999"})
        EXPECT_NE(KvString(text).IsFloatNum(), 0) << text;
    for (const char* text : {"", ".", "-", "e3", "1e", "1e+", "1,5", "nan", "inf", "0x1p3", "1.5.2", "1 e3", "--1"})
        EXPECT_EQ(KvString(text).IsFloatNum(), 0) << text;
}

TEST(KvString, GivesTheLeadingRealNumber)
{
    EXPECT_EQ(Real("1.5"), 1.5);
    EXPECT_EQ(Real(" +1.5e2xyz"), 150.0);
    EXPECT_EQ(Real("-.5"), -0.5);
    EXPECT_EQ(Real("1e"), 1.0);
    EXPECT_EQ(Real("1e+"), 1.0);
    EXPECT_EQ(Real(""), 0.0);
    EXPECT_EQ(Real("x"), 0.0);
    EXPECT_EQ(Real("1.7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(Real("4.9406564584124654e-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(Real("-1e999"), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(Real("1e-999"), 0.0);
    EXPECT_EQ(static_cast<float>(KvString("0.5")), 0.5f);
}

TEST(KvString, ComparesByCaseUpToALength)
{
    using namespace KvTools;
    constexpr int whole = 0x7FFFFFFF;
    const KvString text("Kratzer");
    EXPECT_EQ(text.Compare(L"Kratzer", whole), StringEqual);
    EXPECT_EQ(static_cast<int>(text.Compare(L"Kratzer", whole)), 0);
    EXPECT_EQ(text.Compare(L"kratzer", whole), StringLess);
    EXPECT_EQ(text.Compare(L"Krat", whole), StringGreater);
    EXPECT_EQ(text.Compare(L"Krat", 4), StringEqual);
    EXPECT_EQ(text.Compare(KvString("Kxxx"), 1), StringEqual);
    EXPECT_EQ(text.Compare(L"anything", 0), StringEqual);
    EXPECT_EQ(text.Compare(L"anything", -5), StringEqual);
}

TEST(KvString, AppendsAndIndexes)
{
    KvString text("ab");
    text += KvString("cd");
    text += text;
    EXPECT_EQ(Printed(text), "abcdabcd");
    text[0] = u'X';
    const KvString& constant = text;
    EXPECT_EQ(constant[0], u'X');
    EXPECT_EQ(Printed(KvString("a") + KvString("b")), "ab");
    EXPECT_TRUE(KvString("a") == KvString(L"a"));
    std::ostringstream out;
    out << KvString("Öl");
    EXPECT_EQ(out.str(), "Öl");
    const CStringT& base = text;
    EXPECT_EQ(base.GetLength(), 8);
}

TEST(KvString, PrintsInTheWideManner)
{
    KvString text;
    EXPECT_EQ(Printed(text.SPrintf(L"%s: %ld, %.2f %%", L"Fläche", -5l, 1.5)), "Fläche: -5, 1.50 %");
    EXPECT_EQ(&text.SPrintf(L"x"), &text);
}

TEST(KvString, TurnsToUpperCaseInPlaceBeyondAscii)
{
    KvString text("größe ä1");
    EXPECT_EQ(&text.ToUpper(), &text);
    EXPECT_EQ(Printed(text), "GRÖßE Ä1");
}

TEST(KvString, NumbersHaveAPointInALocaleOfCommas)
{
    const kv::testing::CommaLocale german;
    ASSERT_TRUE(german.InForce());
    ASSERT_EQ(std::strtod("1,5", nullptr), 1.5) << "the C library reads commas now";
    EXPECT_EQ(Real("1.5"), 1.5);
    EXPECT_EQ(Real("1,5"), 1.0);
    EXPECT_EQ(Real("1e-999"), 0.0);
    EXPECT_NE(KvString("1.5").IsFloatNum(), 0);
    EXPECT_EQ(KvString("1,5").IsFloatNum(), 0);
    KvString text;
    EXPECT_EQ(Printed(text.SPrintf(L"%.2f", 1234.5)), "1234.50");
    EXPECT_EQ(Printed(KvString(1234567l)), "1234567");
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "de_DE.UTF-8") << "left in force";
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%.1f", 1.5);
    EXPECT_STREQ(buffer, "1,5") << "the thread has its own locale back";
}

TEST(KvResId, GivesTheGermanTexts)
{
    const KvString text(KvResId(IDS_XML_READ_POINT_COUNT, KvN::GetResourceModule()));
    EXPECT_EQ(Printed(text),
              "KvContourXMLImport::ReadContents: Die Punktliste enthält nicht die erforderliche Anzahl von Punkten");
    const KvString same = KvResId(IDS_XML_READ_POINT_COUNT, nullptr);
    EXPECT_TRUE(same == text) << "a null module means any";
}

TEST(KvResId, OfNoTextIsEmpty)
{
    EXPECT_EQ(KvString(KvResId(1, KvN::GetResourceModule())).Length(), 0);
    EXPECT_EQ(KvString(KvResId(1, nullptr)).Length(), 0);
}

TEST(KvLibrary, AttachesOnceAndDetaches)
{
    const auto* module = KvN::GetResourceModule();
    ASSERT_NE(module, nullptr);
    KvN::AttachLibrary();
    EXPECT_EQ(KvN::GetResourceModule(), module) << "a second attach does nothing";
    EXPECT_EQ(AfxFindResourceHandle(ResourceKind::String, IDS_READ_KEYWORD / 16 + 1), module);
    KvN::DetachLibrary();
    KvN::DetachLibrary();
    EXPECT_EQ(KvN::GetResourceModule(), nullptr);
    EXPECT_EQ(KvString(KvResId(IDS_READ_KEYWORD, KvN::GetResourceModule())).Length(), 0);
    KvN::AttachLibrary();
    EXPECT_GT(KvString(KvResId(IDS_READ_KEYWORD, KvN::GetResourceModule())).Length(), 0);
}
