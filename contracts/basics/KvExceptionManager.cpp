// The rotating debug file.
#include "contracts/basics/KvExceptionManager.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <system_error>

namespace KvN
{
namespace fs = std::filesystem;
namespace
{
// The XDG rules: an absolute $XDG_STATE_HOME, else .local/state below the home folder.
fs::path StateFolder()
{
    const char* state = std::getenv("XDG_STATE_HOME");
    if (state && fs::path(state).is_absolute())
        return fs::path(state) / "kv";
    const char* home = std::getenv("HOME");
    return home && *home ? fs::path(home) / ".local" / "state" / "kv" : fs::path();
}

fs::path Older(const fs::path& file, int age)
{
    return age == 0 ? file : file.parent_path() / ("kv-debug." + std::to_string(age) + ".log");
}

void Rotate(const fs::path& file)
{
    std::error_code ignored;
    for (int age = KvExceptionManager::fileCount - 1; age > 0; --age)
        fs::rename(Older(file, age - 1), Older(file, age), ignored);
}

std::string TimeStamp()
{
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm utc{};
    gmtime_r(&now, &utc);
    char text[32];
    return {text, std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &utc)};
}

// Line breaks within a message would tear its line apart, and one line fits into a file.
std::string OneLine(std::string text)
{
    constexpr std::size_t longest = 1 << 16;
    text.resize(std::min(text.size(), longest));
    for (char& c : text)
    {
        if (c == '\n' || c == '\r')
            c = ' ';
    }
    return text;
}
} // namespace

fs::path KvExceptionManager::DebugFile()
{
    const fs::path folder = StateFolder();
    return folder.empty() ? folder : folder / "kv-debug.log";
}

void KvExceptionManager::WriteToDebugFile(const KvString& text, int, int) noexcept
try
{
    const fs::path file = DebugFile();
    if (file.empty())
        return;
    const std::string line = TimeStamp() + ' ' + OneLine(text.Utf8()) + '\n';
    std::error_code failed;
    fs::create_directories(file.parent_path(), failed);
    const auto size = fs::file_size(file, failed);
    if (!failed && size + line.size() > fileSize)
        Rotate(file);
    std::ofstream(file, std::ios::app | std::ios::binary) << line;
}
catch (...)
{
    // Telling of a failure must not become one.
}

void KvExceptionManager::WriteToDebugFile(KvException& failure, int) noexcept
try
{
    WriteToDebugFile(
        failure.File() + KvString(L":") + KvString(failure.Line()) + KvString(L": ") + failure.GetMessageW(), 1, 1);
}
catch (...)
{
    // As above.
}

namespace
{
KvExceptionManager manager;
}
KvExceptionManager* const pExceptionMgr = &manager;

} // namespace KvN
