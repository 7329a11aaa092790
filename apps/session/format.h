// How facts are printed: numbers, colours, texts.
#pragma once

#include "platform/gdi/gdi.h"

#include <string>

namespace kv::session
{

// An integral value as such, never -0; any other by "%.6g".
std::string Number(double value);
std::string Colour(COLORREF color); // RRGGBB
// In double quotes; line breaks as \r\n.
std::string Quoted(const std::string& utf8);
inline const char* Bit(bool value)
{
    return value ? "1" : "0";
}

} // namespace kv::session
