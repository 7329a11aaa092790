// Values as text.
#include "platform/afx/variant.h"

#include <charconv>

namespace
{
template <class Number>
CStringT Decimal(Number number)
{
    char digits[64];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return CStringT(std::string_view(digits, static_cast<size_t>(end - digits)));
}
} // namespace

CStringT CComVariant::Text() const
{
    if (const auto* text = std::get_if<CStringT>(&value))
        return *text;
    if (const auto* number = std::get_if<std::int32_t>(&value))
        return Decimal(*number);
    if (const auto* number = std::get_if<double>(&value))
        return Decimal(*number);
    return {};
}
