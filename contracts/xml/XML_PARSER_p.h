// What XML_PARSER holds: the document tree of the XML library, the cursor, and the last error.
#pragma once

#include "contracts/xml/XML_PARSER.h"

#include <pugixml.hpp>

namespace KvN
{

struct XML_PARSER::Document
{
    pugi::xml_document tree;
    pugi::xml_node cursor = tree;
    pugi::xml_encoding encoding = pugi::encoding_utf8; // of what was read last

    std::string errorText;
    std::ptrdiff_t errorOffset = -1;

    KvString name;            // what the last name was handed out in
    mutable std::string text; // likewise for texts that stand in several pieces

    void Reset();
    int Fail(std::string text_, std::ptrdiff_t offset = -1);
    // Takes a reading's result over; refuses what the library reads and a document must not be.
    int Accept(const pugi::xml_parse_result& result);

    // Moves the cursor if there is such a node.
    int Go(pugi::xml_node node)
    {
        if (!node)
            return 0;
        cursor = node;
        return 1;
    }
};

} // namespace KvN
