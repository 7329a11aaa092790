// The table of commands against the page that tells of them.
#include "apps/session/commands.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

using namespace kv::session;

TEST(SessionCommands, EachIsToldInTheDocumentation)
{
    std::stringstream page;
    page << std::ifstream(KV_SOURCE_ROOT "/docs/session.md").rdbuf();
    ASSERT_NE(page.str().find("# Sessions"), std::string::npos);
    CommandTable table;
    AddAllCommands(table);
    ASSERT_GE(table.Names().size(), 80u);
    for (const std::string& name : table.Names())
    {
        const bool told = page.str().find("`" + name + "`") != std::string::npos ||
                          page.str().find("`" + name + " ") != std::string::npos;
        EXPECT_TRUE(told) << name;
    }
}
