// Files that appear whole or not at all: failures of every step leave the old file and nothing beside it.
#include "contracts/basics/KvAtomicFile.h"

#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using KvN::KvAtomicFile;
namespace fs = std::filesystem;

namespace
{
class AtomicFile : public testing::Test
{
protected:
    fs::path folder;

    void SetUp() override
    {
        std::string pattern = (fs::temp_directory_path() / "kv-atomic-XXXXXX").string();
        folder = mkdtemp(pattern.data());
        fs::permissions(folder, fs::perms::all);
    }
    void TearDown() override { fs::remove_all(folder); }

    std::ptrdiff_t Entries() const { return std::distance(fs::directory_iterator(folder), fs::directory_iterator()); }
};

std::string Content(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void Put(const fs::path& file, const std::string& text)
{
    std::ofstream(file, std::ios::binary) << text;
}

bool Save(const fs::path& file, const std::string& text)
{
    KvAtomicFile out(file);
    return out.Write(text) && out.Commit();
}

// Runs a check in a process of its own, without the privileges that would overrule permissions.
bool InChild(const std::function<bool()>& check)
{
    const pid_t child = fork();
    if (child == 0)
        _exit((geteuid() != 0 || setuid(65534) == 0) && check() ? 0 : 1);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}
} // namespace

TEST_F(AtomicFile, AppearsOnlyWithTheCommit)
{
    KvAtomicFile out(folder / "a.txt");
    EXPECT_TRUE(out.Write("one "));
    EXPECT_TRUE(out.Write("two"));
    EXPECT_FALSE(fs::exists(folder / "a.txt"));
    EXPECT_TRUE(out.Commit());
    EXPECT_EQ(Content(folder / "a.txt"), "one two");
    EXPECT_EQ(Entries(), 1);
}

TEST_F(AtomicFile, WithoutCommitLeavesTheOldFileAndNothingElse)
{
    Put(folder / "a.txt", "old");
    {
        KvAtomicFile out(folder / "a.txt");
        EXPECT_TRUE(out.Write("new"));
    }
    EXPECT_EQ(Content(folder / "a.txt"), "old");
    EXPECT_EQ(Entries(), 1);
}

TEST_F(AtomicFile, KeepsEveryByteOfLargeAndSmallPieces)
{
    std::string expected;
    KvAtomicFile out(folder / "a.bin");
    for (int i = 0; i < 400; ++i)
    {
        const std::string piece(static_cast<size_t>(i * 997 % 70000), static_cast<char>(i));
        expected += piece;
        ASSERT_TRUE(out.Write(piece));
    }
    ASSERT_TRUE(out.Commit());
    EXPECT_EQ(Content(folder / "a.bin"), expected);
}

TEST_F(AtomicFile, ANewFileObeysTheUmask)
{
    const mode_t before = umask(027);
    EXPECT_TRUE(Save(folder / "a.txt", "x"));
    umask(before);
    EXPECT_EQ(fs::status(folder / "a.txt").permissions(), fs::perms(0640));
}

TEST_F(AtomicFile, AnExistingFileKeepsItsPermissions)
{
    Put(folder / "a.txt", "old");
    fs::permissions(folder / "a.txt", fs::perms(0604));
    EXPECT_TRUE(Save(folder / "a.txt", "new"));
    EXPECT_EQ(fs::status(folder / "a.txt").permissions(), fs::perms(0604));
    EXPECT_EQ(Content(folder / "a.txt"), "new");
}

TEST_F(AtomicFile, AWriteProtectedFileIsNotReplaced)
{
    Put(folder / "a.txt", "old");
    fs::permissions(folder / "a.txt", fs::perms(0444));
    EXPECT_TRUE(InChild([&] { return !Save(folder / "a.txt", "new"); }));
    EXPECT_EQ(Content(folder / "a.txt"), "old");
    EXPECT_EQ(Entries(), 1);
}

TEST_F(AtomicFile, AFolderThatMayNotBeWrittenFailsAtOnce)
{
    fs::permissions(folder, fs::perms(0555));
    EXPECT_TRUE(InChild([&] { return KvAtomicFile(folder / "a.txt").Error() == std::errc::permission_denied; }));
    EXPECT_EQ(Entries(), 0);
}

TEST_F(AtomicFile, AMissingFolderAndAFolderAsNameFail)
{
    EXPECT_EQ(KvAtomicFile(folder / "none" / "a.txt").Error(), std::errc::no_such_file_or_directory);
    EXPECT_EQ(KvAtomicFile(folder).Error(), std::errc::is_a_directory);
    EXPECT_FALSE(Save(folder, "x"));
    EXPECT_EQ(Entries(), 0);
}

TEST_F(AtomicFile, AFullDiskLeavesTheOldFileAndNothingElse)
{
    Put(folder / "a.txt", "old");
    fs::permissions(folder / "a.txt", fs::perms(0666));
    EXPECT_TRUE(InChild(
        [&]
        {
            const rlimit limit = {100000, 100000};
            std::signal(SIGXFSZ, SIG_IGN);
            if (setrlimit(RLIMIT_FSIZE, &limit) != 0)
                return false;
            KvAtomicFile out(folder / "a.txt");
            const bool written = out.Write(std::string(200000, 'x'));
            return !written && !out.Commit() && out.Error() == std::errc::file_too_large;
        }));
    EXPECT_EQ(Content(folder / "a.txt"), "old");
    EXPECT_EQ(Entries(), 1);
}

TEST_F(AtomicFile, ASymbolicLinkIsFollowed)
{
    fs::create_directory(folder / "real");
    fs::create_symlink("real/a.txt", folder / "link.txt");
    EXPECT_TRUE(Save(folder / "link.txt", "first"));
    EXPECT_TRUE(Save(folder / "link.txt", "second"));
    EXPECT_TRUE(fs::is_symlink(folder / "link.txt"));
    EXPECT_EQ(Content(folder / "real" / "a.txt"), "second");
}

TEST_F(AtomicFile, ADeviceIsWrittenToAndNotReplaced)
{
    EXPECT_TRUE(Save("/dev/null", "x"));
    EXPECT_FALSE(fs::is_regular_file("/dev/null"));
    KvAtomicFile full("/dev/full");
    EXPECT_TRUE(full.Write("x"));
    EXPECT_FALSE(full.Commit());
    EXPECT_EQ(full.Error(), std::errc::no_space_on_device);
}

TEST_F(AtomicFile, AFolderThatVanishesFailsTheCommit)
{
    KvAtomicFile out(folder / "a.txt");
    EXPECT_TRUE(out.Write("x"));
    fs::remove_all(folder);
    EXPECT_FALSE(out.Commit());
    EXPECT_EQ(out.Error(), std::errc::no_such_file_or_directory);
}

TEST_F(AtomicFile, AProcessThatIsKilledLeavesTheOldFileAndNothingElse)
{
    Put(folder / "a.txt", "old");
    const pid_t child = fork();
    if (child == 0)
    {
        KvAtomicFile out(folder / "a.txt");
        out.Write(std::string(200000, 'x'));
        raise(SIGKILL);
    }
    waitpid(child, nullptr, 0);
    EXPECT_EQ(Content(folder / "a.txt"), "old");
    const int unnamed = open(folder.c_str(), O_WRONLY | O_TMPFILE, 0600);
    EXPECT_EQ(Entries(), unnamed >= 0 ? 1 : 2); // else the file system needs a name for it
    close(unnamed);
}
