// Reading of the source tree.
#include "tests/house/source_tree.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>

namespace kv::house
{
namespace fs = std::filesystem;
namespace
{
SourceFile Read(const fs::path& root, const fs::path& file)
{
    static const std::regex include(R"(^\s*#\s*include\s*(["<])([^">]+)[">])");
    SourceFile result{fs::relative(file, root).generic_string(), {}, {}, {}};
    std::ifstream in(file);
    std::string line;
    for (int number = 1; std::getline(in, line); ++number)
    {
        if (number == 1)
            result.firstLine = line;
        std::smatch match;
        if (std::regex_search(line, match, include))
            (match[1] == "\"" ? result.quotedIncludes : result.angledIncludes).push_back({match[2], number});
    }
    return result;
}
} // namespace

std::vector<SourceFile> Sources(const std::vector<std::string>& folders)
{
    const fs::path root = KV_SOURCE_ROOT;
    std::vector<SourceFile> files;
    for (const std::string& folder : folders)
    {
        if (!fs::exists(root / folder))
            continue;
        for (const auto& entry : fs::recursive_directory_iterator(root / folder))
        {
            const auto extension = entry.path().extension();
            if (entry.is_regular_file() && (extension == ".h" || extension == ".cpp"))
                files.push_back(Read(root, entry.path()));
        }
    }
    std::sort(files.begin(), files.end(), [](const auto& a, const auto& b) { return a.path < b.path; });
    return files;
}

} // namespace kv::house
