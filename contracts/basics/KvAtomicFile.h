// A file that appears whole or not at all: written beside its place, synced, then renamed into it.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

namespace KvN
{

// Until `Commit` succeeds, whatever stood under the name stays as it was; an object that goes away before, or after a
// failure, leaves nothing behind. Nor does a process that is killed, where the file system knows files without a name.
// An existing file keeps its permissions, and one that may not be written is not replaced. A symbolic link is followed.
// A name that is no regular file (a pipe, a device) gets everything by the commit, since nothing can be renamed over
// it. A process that limits its file sizes must ignore SIGXFSZ to be told of the failure instead of being ended.
class KvAtomicFile
{
public:
    explicit KvAtomicFile(const std::filesystem::path& name);
    ~KvAtomicFile();
    KvAtomicFile(const KvAtomicFile&) = delete;
    KvAtomicFile& operator=(const KvAtomicFile&) = delete;

    // Appends. False once anything has failed; the error is then kept.
    bool Write(const void* data, std::size_t size);
    bool Write(std::string_view bytes) { return Write(bytes.data(), bytes.size()); }

    // Puts the file into its place. True if all is written and in place; nothing can be written afterwards.
    bool Commit();

    // The first thing that went wrong, such as no space left on the device.
    const std::error_code& Error() const { return error; }

private:
    static constexpr std::size_t capacity = 1 << 16;

    void Open();
    void OpenBeside(unsigned mode);
    bool NameTemporary();
    bool Flush();
    bool WriteOut(const char* bytes, std::size_t size);
    bool Place();
    bool Fail();
    void Drop() noexcept;

    std::filesystem::path target;
    std::filesystem::path temporary; // the name of what is renamed at last; empty while it has none
    bool direct = false;             // writing to the target itself
    int descriptor = -1;
    std::unique_ptr<char[]> buffer;
    std::size_t used = 0;
    std::string held; // what waits for the commit when there is nothing to rename
    std::error_code error;
};

} // namespace KvN
