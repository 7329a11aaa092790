// The project's own sources as the tests of the house see them.
#pragma once

#include <string>
#include <vector>

namespace kv::house
{

struct Include
{
    std::string header;
    int line = 0;
};

struct SourceFile
{
    std::string path; // from the project's root, with '/'
    std::string firstLine;
    std::vector<Include> quotedIncludes;
    std::vector<Include> angledIncludes;
};

// Every .h and .cpp file below these folders of the project.
std::vector<SourceFile> Sources(const std::vector<std::string>& folders);

} // namespace kv::house
