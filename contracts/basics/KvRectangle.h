// A rectangle with inclusive bounds and a mark for a side that has no extent.
#pragma once

#include "contracts/basics/KvPoint.h"

#include <cstdint>
#include <type_traits>

namespace KvN
{

// The value of right or bottom that stands for an extent of zero.
template <class T>
struct KvTNoValue;
template <>
struct KvTNoValue<short>
{
    static constexpr short value = -32768;
};
template <>
struct KvTNoValue<int>
{
    static constexpr int value = static_cast<int>(0x80008000u);
};
// The double mark is the bit pattern of the int mark, converted as an unsigned number.
template <>
struct KvTNoValue<double>
{
    static constexpr double value = 2147516416.0;
};

template <class T>
struct KvTRectangle
{
    T left = 0;
    T top = 0;
    T right = NoValue;
    T bottom = NoValue;

    static constexpr T NoValue = KvTNoValue<T>::value;

    constexpr KvTRectangle() = default;
    constexpr KvTRectangle(T left_, T top_, T right_, T bottom_)
        : left(left_), top(top_), right(right_), bottom(bottom_)
    {
    }
    // A side of extent 0 gets the mark.
    constexpr KvTRectangle(const KvTPoint<T>& position, const KvTSize<T>& size)
        : left(position.x), top(position.y), right(Far(position.x, size.width)), bottom(Far(position.y, size.height))
    {
    }

    // The number of pixels from left to right, both included; negative where right is left of left. Arithmetic wraps at
    // the width of T.
    constexpr T Width() const { return Extent(left, right); }
    constexpr T Height() const { return Extent(top, bottom); }

    friend constexpr bool operator==(const KvTRectangle&, const KvTRectangle&) = default;

private:
    // Wide enough for sums that T itself can't hold.
    using Wide = std::conditional_t<std::is_integral_v<T>, std::int64_t, T>;

    static constexpr T Far(T near, T extent)
    {
        return extent == 0 ? NoValue : static_cast<T>(static_cast<Wide>(near) + static_cast<Wide>(extent) - 1);
    }
    static constexpr T Extent(T near, T far)
    {
        if (far == NoValue)
            return 0;
        const Wide d = static_cast<T>(static_cast<Wide>(far) - static_cast<Wide>(near));
        return static_cast<T>(d < 0 ? d - 1 : d + 1);
    }
};

} // namespace KvN
