// Words of a session's line, and what is read from them.
#include "apps/session/arguments.h"

#include <gtest/gtest.h>

#include <functional>

using namespace kv::session;

namespace
{
using Words = std::vector<std::string>;

std::string ErrorOf(const std::function<void()>& run)
{
    try
    {
        run();
    }
    catch (const CommandError& error)
    {
        return error.what();
    }
    return {};
}
} // namespace

TEST(SessionWords, AreSeparatedByBlanksAndEndAtAComment)
{
    EXPECT_EQ(SplitWords("  zoom\t2  3 # and so on"), (Words{"zoom", "2", "3"}));
    EXPECT_EQ(SplitWords("# all of it"), Words{});
    EXPECT_EQ(SplitWords(""), Words{});
    EXPECT_EQ(SplitWords("zoom 2\r"), (Words{"zoom", "2"}));
    EXPECT_EQ(SplitWords("zoom 2#comment"), (Words{"zoom", "2"}));
}

TEST(SessionWords, MayHoldBlanksAndHashesInQuotes)
{
    EXPECT_EQ(SplitWords("print say \"a  b # c\" \"\""), (Words{"print", "say", "a  b # c", ""}));
    EXPECT_EQ(SplitWords("with lut=\"Grey Inverted\""), (Words{"with", "lut=Grey Inverted"}));
    EXPECT_EQ(ErrorOf([] { SplitWords("say \"open"); }), "a quote is not closed");
}

TEST(SessionArguments, RefuseWhatIsMissingOrOfAnotherForm)
{
    const Arguments words({"12", "x", "-3", "1.5", "on", "01ab9F", "1e3", "inf", "+5"});
    EXPECT_EQ(words.Integer(0), 12);
    EXPECT_EQ(words.Integer(2), -3);
    EXPECT_EQ(words.Number(3), 1.5);
    EXPECT_EQ(words.Number(6), 1000.0);
    EXPECT_TRUE(words.OnOff(4));
    EXPECT_EQ(words.Colour(5), RGB(0x01, 0xAB, 0x9F));
    EXPECT_EQ(ErrorOf([&] { words.Integer(1); }), "\"x\" is not a whole number");
    EXPECT_EQ(ErrorOf([&] { words.Integer(3); }), "\"1.5\" is not a whole number");
    EXPECT_EQ(ErrorOf([&] { words.Integer(0, 0, 9); }), "\"12\" is not within 0 to 9");
    EXPECT_EQ(ErrorOf([&] { words.Number(7); }), "\"inf\" is not a number");
    EXPECT_EQ(ErrorOf([&] { words.OnOff(0); }), "\"12\" is not on or off");
    EXPECT_EQ(ErrorOf([&] { words.Colour(0); }), "\"12\" is not a colour RRGGBB");
    EXPECT_EQ(ErrorOf([&] { words.Text(9); }), "a value is missing");
}

TEST(SessionArguments, SplitKeysFromValues)
{
    const Arguments words({"zoom=2.5", "lut=", "plain"});
    EXPECT_EQ(words.KeyValue(0).first, "zoom");
    EXPECT_EQ(words.KeyValue(0).second.Number(0), 2.5);
    EXPECT_EQ(words.KeyValue(1).second.Text(0), "");
    EXPECT_EQ(ErrorOf([&] { words.KeyValue(2); }), "\"plain\" is not of the form KEY=VALUE");
}
