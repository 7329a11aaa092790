// Ranges of indices and of values.
#pragma once

#include "contracts/basics/KvMath.h"

namespace KvN
{

// From `first` to `last`, both included; nothing if `last` is smaller.
template <class T>
struct KvTRange
{
    T first{};
    T last{};

    constexpr KvTRange() = default;
    constexpr KvTRange(T first_, T last_) : first(first_), last(last_) {}
    friend constexpr bool operator==(const KvTRange&, const KvTRange&) = default;
};

// The lowest and the highest of some values.
template <class T>
struct KvTFloatRange
{
    T min{};
    T max{};

    constexpr KvTFloatRange() = default;
    constexpr KvTFloatRange(T min_, T max_) : min(min_), max(max_) {}
    friend constexpr bool operator==(const KvTFloatRange&, const KvTFloatRange&) = default;
};

} // namespace KvN
