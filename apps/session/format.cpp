// How facts are printed: numbers, colours, texts.
#include "apps/session/format.h"

#include <cmath>
#include <cstdio>

namespace kv::session
{

namespace
{
template <class... Values>
std::string Printf(const char* format, Values... values)
{
    char text[64];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}
} // namespace

std::string Number(double value)
{
    constexpr double largestExact = 9007199254740992.0;
    if (std::abs(value) <= largestExact && value == std::trunc(value))
        return Printf("%.0f", value == 0 ? 0.0 : value);
    const std::string text = Printf("%.6g", value);
    return text == "-0" ? "0" : text;
}

std::string Colour(COLORREF color)
{
    return Printf("%02X%02X%02X", unsigned{GetRValue(color)}, unsigned{GetGValue(color)}, unsigned{GetBValue(color)});
}

std::string Quoted(const std::string& utf8)
{
    std::string text = "\"";
    for (size_t i = 0; i < utf8.size(); ++i)
    {
        const bool pair = utf8[i] == '\r' && i + 1 < utf8.size() && utf8[i + 1] == '\n';
        if (pair)
            ++i;
        if (pair || utf8[i] == '\n' || utf8[i] == '\r')
            text += "\\r\\n";
        else
            text += utf8[i];
    }
    return text + "\"";
}

} // namespace kv::session
