// The debug file: its lines, its rotation, and that it never fails its caller.
#include "contracts/basics/KvExceptionManager.h"

#include "tests/basics/failing_memory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

using namespace KvN;
namespace fs = std::filesystem;

namespace
{
constexpr std::uintmax_t mebibyte = 1 << 20;

// A state folder of the test's own.
class KvExceptionManagerTest : public testing::Test
{
protected:
    KvExceptionManagerTest()
    {
        std::string pattern = (fs::temp_directory_path() / "kv-state-XXXXXX").string();
        folder = mkdtemp(pattern.data());
        setenv("XDG_STATE_HOME", folder.c_str(), 1);
        log = folder / "kv" / "kv-debug.log";
    }
    ~KvExceptionManagerTest() override
    {
        unsetenv("XDG_STATE_HOME");
        fs::permissions(folder, fs::perms::owner_all);
        fs::remove_all(folder);
    }

    static void Write(const char* text) { pExceptionMgr->WriteToDebugFile(KvString(text), 1, 1); }
    static std::string Content(const fs::path& file)
    {
        std::ostringstream text;
        text << std::ifstream(file, std::ios::binary).rdbuf();
        return text.str();
    }
    static std::string WithoutDigits(std::string text)
    {
        std::replace_if(
            text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }, 'd');
        return text;
    }
    void Fill(std::uintmax_t size) const
    {
        fs::create_directories(log.parent_path());
        std::ofstream(log, std::ios::binary) << std::string(size, 'x');
    }

    fs::path folder;
    fs::path log;
};
} // namespace

TEST_F(KvExceptionManagerTest, WritesALineWithATimeStamp)
{
    EXPECT_EQ(KvExceptionManager::DebugFile(), log);
    Write("Größe\nfehlt\r!");
    Write("zweite");
    const std::string stamp = "dddd-dd-ddTdd:dd:ddZ";
    EXPECT_EQ(WithoutDigits(Content(log)), stamp + " Größe fehlt !\n" + stamp + " zweite\n");
}

TEST_F(KvExceptionManagerTest, WritesAFailureWithItsPlace)
{
    KvException failure("C/syContourXMLExport", 105, "Es ging schief");
    pExceptionMgr->WriteToDebugFile(failure, 1);
    EXPECT_NE(Content(log).find("Z C/syContourXMLExport:105: Es ging schief\n"), std::string::npos) << Content(log);
}

TEST_F(KvExceptionManagerTest, RotatesBeforeALineWouldPassOneMebibyte)
{
    Write("x");
    const auto line = fs::file_size(log);
    Fill(mebibyte - line);
    Write("y");
    EXPECT_EQ(fs::file_size(log), mebibyte) << "full to the last byte";
    Write("z");
    EXPECT_EQ(fs::file_size(log), line);
    EXPECT_EQ(fs::file_size(log.parent_path() / "kv-debug.1.log"), mebibyte);
}

TEST_F(KvExceptionManagerTest, KeepsFiveFiles)
{
    for (int round = 0; round < 8; ++round)
    {
        Write(std::to_string(round).c_str());
        const auto size = fs::file_size(log);
        std::ofstream(log, std::ios::app) << std::string(mebibyte - size, 'x');
    }
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(log.parent_path()))
        names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"kv-debug.1.log", "kv-debug.2.log", "kv-debug.3.log", "kv-debug.4.log",
                                               "kv-debug.log"}));
    EXPECT_NE(Content(log).find("Z 7\nx"), std::string::npos) << "the newest";
    EXPECT_NE(Content(log.parent_path() / "kv-debug.4.log").find("Z 3\nx"), std::string::npos) << "the oldest";
}

TEST_F(KvExceptionManagerTest, CutsALineThatNoFileHolds)
{
    Write(std::string(3 * mebibyte, 'x').c_str());
    EXPECT_LT(fs::file_size(log), mebibyte);
    EXPECT_EQ(Content(log).back(), '\n');
}

TEST_F(KvExceptionManagerTest, AFolderThatCannotBeMadeFailsNobody)
{
    std::ofstream(folder / "kv") << "a file where the folder should be";
    Write("x");
    EXPECT_EQ(Content(folder / "kv"), "a file where the folder should be");
    setenv("XDG_STATE_HOME", "/proc", 1); // where not even root can make one
    Write("x");
    EXPECT_FALSE(fs::exists("/proc/kv"));
}

TEST_F(KvExceptionManagerTest, AFolderThatCannotBeWrittenFailsNobody)
{
    fs::create_directories(log.parent_path());
    fs::create_directory(log); // no file can be opened there, whoever runs this
    Write("x");
    EXPECT_TRUE(fs::is_directory(log));
    fs::remove(log);
    fs::permissions(log.parent_path(), fs::perms::owner_read | fs::perms::owner_exec);
    Write("x");
    fs::permissions(log.parent_path(), fs::perms::owner_all);
}

TEST_F(KvExceptionManagerTest, AFullDiskFailsNobody)
{
    ASSERT_TRUE(fs::exists("/dev/full"));
    fs::create_directories(log.parent_path());
    fs::create_symlink("/dev/full", log);
    Write("x");
    KvException failure("f", 1, "m");
    pExceptionMgr->WriteToDebugFile(failure, 1);
    EXPECT_TRUE(fs::is_symlink(log));
}

TEST_F(KvExceptionManagerTest, RunningOutOfMemoryAnywhereFailsNobody)
{
    KvException failure("C/syMaskToAOI", 42, "Eine Meldung, die in keinen kleinen Puffer passt");
    const KvString text("Eine Meldung, die in keinen kleinen Puffer passt");
    for (int allocations = 0; allocations < 60; ++allocations)
    {
        const kv::testing::OutOfMemory soon(allocations);
        pExceptionMgr->WriteToDebugFile(failure, 1);
        pExceptionMgr->WriteToDebugFile(text, 1, 1);
    }
    EXPECT_NE(Content(log).find("42: Eine Meldung"), std::string::npos) << "enough memory in the end";
}

TEST_F(KvExceptionManagerTest, StandsBelowTheHomeFolderWithoutAnAbsoluteStateFolder)
{
    const char* home = std::getenv("HOME");
    const std::string former = home ? home : "";
    setenv("HOME", folder.c_str(), 1);
    for (const char* relative : {"", "relative/folder"})
    {
        setenv("XDG_STATE_HOME", relative, 1);
        EXPECT_EQ(KvExceptionManager::DebugFile(), folder / ".local" / "state" / "kv" / "kv-debug.log");
    }
    unsetenv("XDG_STATE_HOME");
    EXPECT_EQ(KvExceptionManager::DebugFile(), folder / ".local" / "state" / "kv" / "kv-debug.log");
    unsetenv("HOME");
    EXPECT_TRUE(KvExceptionManager::DebugFile().empty());
    Write("nowhere to go");
    if (home)
        setenv("HOME", former.c_str(), 1);
}

TEST_F(KvExceptionManagerTest, IsThereBeforeAnyoneAsks)
{
    EXPECT_NE(pExceptionMgr, nullptr);
}
