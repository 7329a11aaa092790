// Numbers in contour files: the same as printf and KvString, whatever the value and the process locale.
#include "C/syContourXMLNumbers_p.h"

#include "contracts/basics/KvString.h"
#include "tests/C/comma_locale.h"

#include <bit>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <random>

using KvN::KvString;
namespace numbers = KvN::xmlnumbers;

namespace
{
std::string Printed(const char* format, double value)
{
    char buffer[400];
    std::snprintf(buffer, sizeof buffer, format, value);
    return buffer;
}

void ExpectAsPrinted(double value)
{
    EXPECT_EQ(numbers::Text(value, 4, 3).Utf8(), Printed("%4.3f", value));
    EXPECT_EQ(numbers::Text(value, 6, 5).Utf8(), Printed("%6.5f", value));
}

// Both readings must agree on what is a number and on its value, to the bit.
void ExpectAsKvString(const std::string& text)
{
    const KvString whole(text.c_str());
    double real = -77.0;
    EXPECT_EQ(numbers::Read(text, real), whole.IsFloatNum() != 0) << text;
    EXPECT_EQ(std::bit_cast<std::uint64_t>(real),
              std::bit_cast<std::uint64_t>(whole.IsFloatNum() ? static_cast<double>(whole) : -77.0))
        << text;
    std::int32_t integer = -77;
    EXPECT_EQ(numbers::Read(text, integer), whole.IsIntNum() != 0) << text;
    EXPECT_EQ(integer, whole.IsIntNum() ? static_cast<int>(whole) : -77) << text;
    std::uint32_t unsignedInteger = 77;
    EXPECT_EQ(numbers::Read(text, unsignedInteger), whole.IsIntNum() != 0) << text;
    EXPECT_EQ(unsignedInteger, whole.IsIntNum() ? static_cast<std::uint32_t>(static_cast<unsigned long>(whole)) : 77)
        << text;
}
} // namespace

TEST(ContourXMLNumbers, RealsAreWrittenAsPrintfWritesThem)
{
    const double limits[] = {0.0,
                             -0.0,
                             0.5,
                             2.0,
                             0.0005,
                             0.0015,
                             0.0025,
                             -0.0004,
                             1e-300,
                             123456789.9995,
                             9.9999999,
                             1e22,
                             std::numeric_limits<double>::max(),
                             -std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::denorm_min(),
                             std::numeric_limits<double>::infinity(),
                             -std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN(),
                             -std::numeric_limits<double>::quiet_NaN()};
    for (const double value : limits)
        ExpectAsPrinted(value);
    std::mt19937_64 random(4711);
    std::uniform_real_distribution<double> pixels(-5000.0, 5000.0);
    for (int i = 0; i < 20000; ++i)
    {
        ExpectAsPrinted(pixels(random));
        ExpectAsPrinted(std::bit_cast<double>(random()));
        ExpectAsPrinted(std::round(pixels(random) * 10000.0) / 10000.0); // many halves
    }
}

TEST(ContourXMLNumbers, IntegersAreWrittenInDecimal)
{
    EXPECT_STREQ(numbers::Text(std::int32_t{0}).Utf8(), "0");
    EXPECT_STREQ(numbers::Text(std::numeric_limits<std::int32_t>::min()).Utf8(), "-2147483648");
    EXPECT_STREQ(numbers::Text(std::numeric_limits<std::uint32_t>::max()).Utf8(), "4294967295");
}

TEST(ContourXMLNumbers, TextsAreReadAsKvStringReadsThem)
{
    for (const char* text : {"",
                             " ",
                             "0",
                             "-0",
                             "+1",
                             "1",
                             "-1",
                             " 12 ",
                             "\t12\n",
                             "1.5",
                             ".5",
                             "5.",
                             ".",
                             "-.5",
                             "-",
                             "+",
                             "--1",
                             "1e3",
                             "1E-3",
                             "1e",
                             "1e+",
                             "1.5.2",
                             "1,5",
                             "0x10",
                             "inf",
                             "nan",
                             "-inf",
                             "1 2",
                             "1-",
                             "2147483647",
                             "2147483648",
                             "-2147483648",
                             "-2147483649",
                             "4294967295",
                             "4294967296",
                             "99999999999999999999",
                             "-99999999999999999999",
                             "123456789012345",
                             "1234567890123456",
                             "0.1234567890123456789",
                             "12345678901234567890.5",
                             "1e400",
                             "-1e400",
                             "1e-400",
                             "0000000000000000000001",
                             "000000000.5",
                             "-0.0",
                             "1\xC2\xA0",
                             "\xD9\xA1"})
        ExpectAsKvString(text);
}

TEST(ContourXMLNumbers, RandomTextsAreReadAsKvStringReadsThem)
{
    std::mt19937_64 random(42);
    const std::string alphabet = "0123456789012345678901234567890123456789..-+eE \t,";
    for (int i = 0; i < 50000; ++i)
    {
        std::string text(random() % 19, ' ');
        for (char& c : text)
            c = alphabet[random() % alphabet.size()];
        ExpectAsKvString(text);
    }
    std::uniform_real_distribution<double> pixels(-5000.0, 5000.0);
    for (int i = 0; i < 20000; ++i)
        ExpectAsKvString(Printed(i % 2 ? "%.3f" : "%.12f", pixels(random)));
}

TEST(ContourXMLNumbers, ThePointStaysAPointInEveryLocale)
{
    const kv::testing::CommaLocale comma;
    ASSERT_TRUE(comma.InForce());
    ASSERT_EQ(Printed("%.1f", 0.5), "0,5");
    EXPECT_STREQ(numbers::Text(1234.5, 4, 3).Utf8(), "1234.500");
    double value = 0.0;
    EXPECT_TRUE(numbers::Read("1234.5", value));
    EXPECT_EQ(value, 1234.5);
    EXPECT_TRUE(numbers::Read("0.12345678901234567", value));
    EXPECT_EQ(value, 0.12345678901234567);
    EXPECT_FALSE(numbers::Read("1,5", value));
}
