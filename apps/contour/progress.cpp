// The line goes to the standard error output, so that what is piped on stays clean.
#include "apps/contour/progress.h"

#include <unistd.h>

#include <iostream>

namespace kvcontour
{
namespace
{
constexpr const char* wipe = "\r\033[K";
}

Progress::Progress() : onTerminal(isatty(STDERR_FILENO)) {}

Progress::~Progress()
{
    if (shown)
        std::cerr << wipe << std::flush;
}

void Progress::Show(const std::string& what)
{
    if (!onTerminal)
        return;
    std::cerr << wipe << "kvcontour: " << what << " ..." << std::flush;
    shown = true;
}

} // namespace kvcontour
