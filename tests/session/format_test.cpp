// How a session prints numbers, colours and texts.
#include "apps/session/format.h"

#include <gtest/gtest.h>

using namespace kv::session;

TEST(SessionFormat, IntegersPrintAsSuchAndNeverAsMinusZero)
{
    EXPECT_EQ(Number(3.0), "3");
    EXPECT_EQ(Number(-0.0), "0");
    EXPECT_EQ(Number(-17.0), "-17");
    EXPECT_EQ(Number(12345678.0), "12345678");
}

TEST(SessionFormat, OtherNumbersPrintWithSixDigits)
{
    EXPECT_EQ(Number(0.1), "0.1");
    EXPECT_EQ(Number(2.0 / 3.0), "0.666667");
    EXPECT_EQ(Number(1e-9), "1e-09");
    EXPECT_EQ(Number(-2.5), "-2.5");
}

TEST(SessionFormat, ColoursAreSixUpperCaseDigits)
{
    EXPECT_EQ(Colour(RGB(0x0A, 0xbc, 0xFF)), "0ABCFF");
}

TEST(SessionFormat, TextsStandInQuotesWithTheirLineBreaksNamed)
{
    EXPECT_EQ(Quoted(""), "\"\"");
    EXPECT_EQ(Quoted("a\r\nb\nc"), "\"a\\r\\nb\\r\\nc\"");
}
