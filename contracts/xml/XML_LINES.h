// XML_LINES: which line of a source a place of its document stands on.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace KvN
{

class XML_PARSER;

class XML_LINES
{
public:
    // `source` is what the parser has last read, failed or not; only its line breaks are remembered.
    XML_LINES(const XML_PARSER& parser, std::string_view source);

    // The line of an offset that the parser gave, from 1 on; 0 for an unknown place (a negative offset).
    int At(std::ptrdiff_t offset) const;

private:
    std::vector<std::size_t> breaks; // where lines end, in bytes of the decoded source
};

} // namespace KvN
