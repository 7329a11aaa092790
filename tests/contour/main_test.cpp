// kvcontour as a whole: help, version, and the exit code of a wrong command line.
#include "tests/contour/kvcontour.h"

using kv::testing::Outcome;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{
using Kvcontour = kv::testing::Program;
}

TEST_F(Kvcontour, TellsItsVersion)
{
    const Outcome outcome = Run("--version");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.out, "kvcontour " KV_VERSION "\n");
}

TEST_F(Kvcontour, HelpsWithEverySubcommandAndExamples)
{
    const Outcome help = Run("--help");
    EXPECT_EQ(help.exitCode, 0);
    for (const std::string subcommand : {"info", "convert", "check"})
    {
        EXPECT_THAT(help.out, HasSubstr("\n  " + subcommand));
        const Outcome own = Run(subcommand + " --help");
        EXPECT_EQ(own.exitCode, 0);
        EXPECT_EQ(own.error, "");
        EXPECT_THAT(own.out, HasSubstr("Usage: kvcontour " + subcommand));
        EXPECT_THAT(own.out, HasSubstr("Examples:\n  kvcontour " + subcommand));
    }
}

TEST_F(Kvcontour, AWrongCommandLineGivesTwoAndNoOutput)
{
    for (const std::string line : {"", "nonsense", "info", "info a b", "info --nonsense a", "convert a.xml",
                                   "convert a.txt b.xml", "convert a.xml b", "check", "--nonsense"})
    {
        const Outcome outcome = Run(line);
        EXPECT_EQ(outcome.exitCode, 2) << line;
        EXPECT_THAT(outcome.error, StartsWith("kvcontour: ")) << line;
        EXPECT_EQ(outcome.out, "") << line;
    }
    EXPECT_EQ(Files(), 0);
}

TEST_F(Kvcontour, TakesNamesWithAnyBytes)
{
    Put("-ä b\xFF.xml", "<Contours/>");
    EXPECT_EQ(Run("convert -- '-ä b\xFF.xml' '-ö\xFE.kvb'").exitCode, 0);
    EXPECT_EQ(Files(), 2);
}
