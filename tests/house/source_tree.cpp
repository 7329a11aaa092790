// Reading of the source tree.
#include "tests/house/source_tree.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string_view>

namespace kv::house
{
namespace fs = std::filesystem;
namespace
{
struct IncludeLine
{
    bool quoted;
    std::string header;
};

// `#include "header"` or `#include <header>`, blanks allowed where the language allows them.
std::optional<IncludeLine> ParseInclude(std::string_view line)
{
    const auto skip = [&line](std::string_view word)
    {
        line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
        const bool found = line.starts_with(word);
        line.remove_prefix(found ? word.size() : 0);
        return found;
    };
    if (!skip("#") || !skip("include"))
        return std::nullopt;
    const bool quoted = skip("\"");
    if (!quoted && !skip("<"))
        return std::nullopt;
    const size_t end = line.find(quoted ? '"' : '>');
    if (end == std::string_view::npos)
        return std::nullopt;
    return IncludeLine{quoted, std::string(line.substr(0, end))};
}

SourceFile Read(const fs::path& root, const fs::path& file)
{
    SourceFile result{fs::relative(file, root).generic_string(), {}, {}, {}};
    std::ifstream in(file);
    std::string line;
    for (int number = 1; std::getline(in, line); ++number)
    {
        if (number == 1)
            result.firstLine = line;
        if (const auto include = ParseInclude(line))
            (include->quoted ? result.quotedIncludes : result.angledIncludes).push_back({include->header, number});
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
