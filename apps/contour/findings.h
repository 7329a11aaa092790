// What is wrong with a contour file in XML, place by place.
#pragma once

#include "contracts/xml/XML_PARSER.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kvcontour
{

struct Finding
{
    std::ptrdiff_t offset = -1; // for XML_LINES
    std::string what;
    bool unreadable = false; // a failure of the reading itself; all else is read, though not as it was meant
};

// Loads a source and puts the cursor on its `Contours`. Throws a Failure that names `file` if it is no XML or has
// another root.
void OpenXml(KvN::XML_PARSER& parser, const std::string& file, const std::string& source);

// Everything that is wrong with the contours of an opened document, in its order. The cursor ends on the root.
std::vector<Finding> FindingsOf(KvN::XML_PARSER& parser);

} // namespace kvcontour
