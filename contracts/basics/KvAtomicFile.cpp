// Writing beside the target: without a name where possible, then sync, name, rename; clean-up after failures.
#include "contracts/basics/KvAtomicFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

namespace KvN
{
namespace fs = std::filesystem;
namespace
{
// Where an open file without a name can be found.
constexpr const char* descriptors = "/proc/self/fd";

// A name in the same folder, so that the rename stays within one file system. It is short and begins with a dot:
// adding to the target's own name could exceed the longest one allowed.
fs::path Beside(const fs::path& target)
{
    static constexpr char digits[] = "0123456789abcdefghijklmnopqrstuvwxyz";
    std::random_device random;
    std::string name = ".kv-";
    for (int i = 0; i < 12; ++i)
        name += digits[random() % 36];
    return target.parent_path() / (name + ".tmp");
}

// The place that a name stands for when it is a symbolic link, also one that leads nowhere yet.
fs::path Followed(const fs::path& name)
{
    std::error_code failed;
    fs::path place = name;
    for (int links = 0; links < 40 && fs::is_symlink(place, failed); ++links)
    {
        const fs::path next = fs::read_symlink(place, failed);
        if (failed)
            break;
        place = place.parent_path() / next;
    }
    return place;
}

fs::path FolderOf(const fs::path& file)
{
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

// A rename is on the disk only when its folder is. Not every file system can sync one, so a failure is no failure.
void SyncFolder(const fs::path& file)
{
    const int descriptor = open(FolderOf(file).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}
} // namespace

KvAtomicFile::KvAtomicFile(const fs::path& name) : target(Followed(name)), buffer(new char[capacity])
{
    Open();
}

KvAtomicFile::~KvAtomicFile()
{
    Drop();
}

void KvAtomicFile::Open()
{
    struct stat found = {};
    const bool exists = stat(target.c_str(), &found) == 0;
    if (!exists && errno != ENOENT)
    {
        Fail();
        return;
    }
    if (!exists)
    {
        OpenBeside(0666);
        return;
    }
    if (S_ISDIR(found.st_mode))
    {
        error = std::make_error_code(std::errc::is_a_directory);
        return;
    }
    if (!S_ISREG(found.st_mode))
    {
        direct = true;
        descriptor = open(target.c_str(), O_WRONLY | O_CLOEXEC);
        if (descriptor < 0)
            Fail();
        return;
    }
    // The folder's permissions alone would let a file be replaced that its owner has locked.
    if (access(target.c_str(), W_OK) != 0)
    {
        Fail();
        return;
    }
    OpenBeside(0600);
    if (descriptor < 0)
        return;
    // The owner can be kept by a privileged process only; if the group can't be, its rights must not pass to another.
    const bool owned = fchown(descriptor, found.st_uid, found.st_gid) == 0;
    const mode_t kept = owned || found.st_gid == getegid() ? 07777 : 07707;
    if (fchmod(descriptor, found.st_mode & kept) != 0)
        Fail();
}

void KvAtomicFile::OpenBeside(unsigned mode)
{
    if (access(descriptors, F_OK) == 0)
        descriptor = open(FolderOf(target).c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, mode);
    if (descriptor >= 0)
        return;
    for (int attempt = 0; attempt < 8; ++attempt)
    {
        temporary = Beside(target);
        descriptor = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (descriptor >= 0)
            return;
        if (errno != EEXIST)
            break;
    }
    temporary.clear();
    Fail();
}

// A file without a name gets one, since only names can be renamed over an existing file.
bool KvAtomicFile::NameTemporary()
{
    if (!temporary.empty())
        return true;
    const fs::path self = fs::path(descriptors) / std::to_string(descriptor);
    const fs::path name = Beside(target);
    if (linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0)
        return Fail();
    temporary = name;
    return true;
}

bool KvAtomicFile::Write(const void* data, std::size_t size)
{
    if (error || descriptor < 0)
        return false;
    if (direct)
    {
        held.append(static_cast<const char*>(data), size);
        return true;
    }
    if (size > capacity - used && !Flush())
        return false;
    if (size > capacity)
        return WriteOut(static_cast<const char*>(data), size);
    std::memcpy(buffer.get() + used, data, size);
    used += size;
    return true;
}

bool KvAtomicFile::Commit()
{
    if (error || descriptor < 0)
        return false;
    if (!direct)
        return Flush() && Place();
    if (!WriteOut(held.data(), held.size()))
        return false;
    const int written = descriptor;
    descriptor = -1;
    return close(written) == 0 || Fail();
}

// Some file systems tell of a full disk only when the file is synced or closed, so both come before the rename.
bool KvAtomicFile::Place()
{
    if (fsync(descriptor) != 0)
        return Fail();
    if (!NameTemporary())
        return false;
    const int written = descriptor;
    descriptor = -1;
    if (close(written) != 0 || rename(temporary.c_str(), target.c_str()) != 0)
        return Fail();
    temporary.clear();
    SyncFolder(target);
    return true;
}

bool KvAtomicFile::Flush()
{
    const std::size_t size = used;
    used = 0;
    return WriteOut(buffer.get(), size);
}

bool KvAtomicFile::WriteOut(const char* bytes, std::size_t size)
{
    while (size > 0)
    {
        const ssize_t done = write(descriptor, bytes, size);
        if (done < 0 && errno == EINTR)
            continue;
        if (done < 0)
            return Fail();
        bytes += done;
        size -= static_cast<std::size_t>(done);
    }
    return true;
}

bool KvAtomicFile::Fail()
{
    if (!error)
        error.assign(errno, std::generic_category());
    Drop();
    return false;
}

void KvAtomicFile::Drop() noexcept
{
    if (descriptor >= 0)
        close(descriptor);
    descriptor = -1;
    if (!temporary.empty())
        unlink(temporary.c_str());
    temporary.clear();
}

} // namespace KvN
