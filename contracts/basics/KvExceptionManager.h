// Writes failures to a debug file that a developer can ask for.
#pragma once

#include "contracts/basics/KvException.h"

#include <filesystem>

namespace KvN
{

// One line a failure, with a UTC time stamp. The file is kv-debug.log in the state folder of the user's XDG
// directories, below kv/; at 1 MiB it becomes kv-debug.1.log and so on, five files in all. A folder that can't be
// written or a full disk never fails the caller: the line is dropped.
class KvExceptionManager
{
public:
    static constexpr int fileCount = 5;
    static constexpr std::uintmax_t fileSize = 1 << 20;

    // The two numbers are kept for callers of the former interface and play no part.
    void WriteToDebugFile(const KvString& text, int, int) noexcept;
    void WriteToDebugFile(KvException& failure, int) noexcept;

    // The file that is written now; empty if the user has no state folder.
    static std::filesystem::path DebugFile();
};

// The one instance; never null.
extern KvExceptionManager* const pExceptionMgr;

} // namespace KvN
