// Numbers of contour files as UTF-8 text, by the rules of KvString and printf, without a detour over UTF-16.
#pragma once

#include <cstdint>
#include <string_view>

namespace KvN::xmlnumbers
{

// True if the text passes KvString::IsIntNum or IsFloatNum; `value` is then what KvString's conversion gives.
bool Read(std::string_view text, std::int32_t& value);
bool Read(std::string_view text, std::uint32_t& value);
bool Read(std::string_view text, double& value);

// A number's text, which holds as long as this object.
class Text
{
public:
    explicit Text(std::int32_t value);
    explicit Text(std::uint32_t value);
    // As printf("%WIDTH.PRECISIONf") writes it in the C locale, with at most 9 digits behind the point.
    Text(double value, int width, int precision);

    const char* Utf8() const { return begin; }

private:
    char buffer[336]; // the largest double has 309 digits before the point
    char* begin = buffer;
};

} // namespace KvN::xmlnumbers
