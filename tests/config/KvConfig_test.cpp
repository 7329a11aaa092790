// Configuration files: groups, keys, defaults, what reaches the file.
#include "contracts/config.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

using namespace KvN;

namespace
{
class ConfigFiles : public testing::Test
{
protected:
    ConfigFiles()
    {
        folder = std::filesystem::path(testing::TempDir()) /
                 (std::string("kv_config_") + testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        path = folder / "maske.ini";
        name = KvString(path.string().c_str());
    }
    ~ConfigFiles() override { std::filesystem::remove_all(folder); }

    std::string Content() const
    {
        std::ifstream in(path);
        std::ostringstream text;
        text << in.rdbuf();
        return text.str();
    }

    std::filesystem::path folder;
    std::filesystem::path path;
    KvString name;
};
} // namespace

TEST_F(ConfigFiles, AMissingKeyGivesTheFallback)
{
    KvConfig config(name);
    config.SetGroup("Mask");
    EXPECT_EQ(config.ReadKey("ToolId", "1"), KvString("1"));
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(ConfigFiles, WhatWasWrittenIsReadAgain)
{
    {
        KvConfig config(name);
        config.SetGroup("Mask");
        config.WriteKey("ToolId", "7");
        config.WriteKey("IncTools", "FALSE");
        EXPECT_EQ(config.ReadKey("ToolId", "1"), KvString("7"));
    }
    EXPECT_EQ(Content(), "[Mask]\nIncTools=FALSE\nToolId=7\n");
    KvConfig config(name);
    config.SetGroup("Mask");
    EXPECT_EQ(config.ReadKey("ToolId", "1"), KvString("7"));
    config.SetGroup("Other");
    EXPECT_EQ(config.ReadKey("ToolId", "1"), KvString("1"));
}

TEST_F(ConfigFiles, OtherKeysAndGroupsStay)
{
    std::ofstream(path) << "[Host]\nName=Werk 3\n[Mask]\nLineWidth=4\n";
    {
        KvConfigMT config(name, 1);
        EXPECT_EQ(config.SetGroup("Mask", 0), 1);
        EXPECT_EQ(config.ReadKey("LineWidth", "1"), KvString("4"));
        EXPECT_EQ(config.WriteKey("LineWidth", "5"), 1);
    }
    EXPECT_EQ(Content(), "[Host]\nName=Werk 3\n\n[Mask]\nLineWidth=5\n");
}

TEST_F(ConfigFiles, AFileByHandMayHoldCommasAndUmlauts)
{
    std::ofstream(path) << "[Mask]\nOverlayStrength=0,5\nName=Grün\n";
    KvConfig config(name);
    config.SetGroup("Mask");
    EXPECT_EQ(config.ReadKey("OverlayStrength", ""), KvString("0,5"));
    EXPECT_EQ(config.ReadKey("Name", ""), KvString("Grün"));
}

TEST_F(ConfigFiles, TextOfAnyKindComesBackWhole)
{
    const char* const texts[] = {"a,b", " blank ", "Größe \"x\"", "semi;colon", "@at", "", "a=b", "C:\\pfad\\x"};
    for (const char* text : texts)
    {
        {
            KvConfig config(name);
            config.SetGroup("Mask");
            config.WriteKey("Text", text);
        }
        KvConfig config(name);
        config.SetGroup("Mask");
        EXPECT_EQ(config.ReadKey("Text", "none"), KvString(text));
    }
}

TEST_F(ConfigFiles, AFileThatCannotBeWrittenFailsNobody)
{
    KvConfig config(KvString((folder / "no folder" / "\0").c_str()));
    config.SetGroup("Mask");
    config.WriteKey("ToolId", "7");
    EXPECT_EQ(config.ReadKey("ToolId", "1"), KvString("7"));
}
