// CComVariant: one value of one of a few kinds, as document attributes are passed.
#pragma once

#include "platform/afx/cstring.h"

#include <cstdint>
#include <variant>

class CComVariant
{
public:
    CComVariant() = default;
    CComVariant(std::int32_t number) : value(number) {}
    CComVariant(double number) : value(number) {}
    CComVariant(const CStringT& text) : value(text) {}

    bool IsEmpty() const { return std::holds_alternative<std::monostate>(value); }

    // The value as text: numbers in decimal form with `.`, an empty value as empty text.
    CStringT Text() const;

private:
    std::variant<std::monostate, std::int32_t, double, CStringT> value;
};
