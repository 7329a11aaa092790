// The subcommands of kvcontour. Each adds itself, its options, its help and what it does to the command line.
#pragma once

#include <CLI/CLI.hpp>

namespace kvcontour
{

// What a subcommand does runs within the parsing; it throws a Failure if its input is at fault.
void AddMask(CLI::App& app);
void AddInfo(CLI::App& app);
void AddDraw(CLI::App& app);
void AddConvert(CLI::App& app);
void AddCheck(CLI::App& app);

} // namespace kvcontour
