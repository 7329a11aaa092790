// What ends a subcommand because its input or output is at fault.
#pragma once

#include <stdexcept>
#include <string>

namespace kvcontour
{

class Failure : public std::runtime_error
{
public:
    // `line` counts from 1; 0 means that the file has no lines or the fault no place.
    Failure(const std::string& file, const std::string& what, int line = 0)
        : std::runtime_error("kvcontour: " + file + ": " + (line > 0 ? "line " + std::to_string(line) + ": " : "") +
                             what)
    {
    }
};

} // namespace kvcontour
