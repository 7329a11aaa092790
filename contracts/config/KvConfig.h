// Keys and values in groups, in a file that the host names. INI text in UTF-8.
#pragma once

#include "contracts/basics.h"

#include <memory>

namespace KvN
{

// One open configuration file. What is written shows to readers of the same object at once and reaches the file, which
// is replaced as a whole, when the object goes; a file that can't be written is noted in the debug file. A missing file
// is empty.
class KvConfig
{
public:
    explicit KvConfig(const KvString& file);
    ~KvConfig();
    KvConfig(const KvConfig&) = delete;
    KvConfig& operator=(const KvConfig&) = delete;

    void SetGroup(const KvString& group);
    // `fallback` if the group has no such key.
    KvString ReadKey(const KvString& key, const KvString& fallback) const;
    void WriteKey(const KvString& key, const KvString& value);

private:
    struct File;
    std::unique_ptr<File> file;
};

// The same operations in the form of the multi-thread classes. The extra numbers play no part.
class KvConfigFastMT
{
public:
    explicit KvConfigFastMT(const KvString& file) : config(file) {}

    KvString ReadKey(const KvString& key, const KvString& fallback) const { return config.ReadKey(key, fallback); }
    int WriteKey(const KvString& key, const KvString& value) // 1
    {
        config.WriteKey(key, value);
        return 1;
    }

protected:
    KvConfig config;
};

class KvConfigMT : public KvConfigFastMT
{
public:
    KvConfigMT(const KvString& file, int) : KvConfigFastMT(file) {}

    int SetGroup(const KvString& group, unsigned short) // 1
    {
        config.SetGroup(group);
        return 1;
    }
};

} // namespace KvN
