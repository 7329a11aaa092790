// A line on the terminal that tells what long work is at.
#pragma once

#include <string>

namespace kvcontour
{

// Shows nothing unless the standard error output is a terminal. The line is wiped when the object goes.
class Progress
{
public:
    Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    // Replaces the line, such as "2/3 drawing 5000 contours".
    void Show(const std::string& what);

private:
    bool onTerminal;
    bool shown = false;
};

} // namespace kvcontour
