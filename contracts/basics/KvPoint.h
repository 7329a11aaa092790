// Small values: a position, an extent, a pair, a range.
#pragma once

namespace KvN
{

template <class T>
struct KvTPoint
{
    T x{};
    T y{};

    constexpr KvTPoint() = default;
    constexpr KvTPoint(T x_, T y_) : x(x_), y(y_) {}
    friend constexpr bool operator==(const KvTPoint&, const KvTPoint&) = default;
};

template <class T>
struct KvTSize
{
    T width{};
    T height{};

    constexpr KvTSize() = default;
    constexpr KvTSize(T width_, T height_) : width(width_), height(height_) {}
    friend constexpr bool operator==(const KvTSize&, const KvTSize&) = default;
};

// As KvTPair<long> the two point indices of a contour's edge; -1, -1 stands for no match.
template <class T>
struct KvTPair
{
    T first{};
    T second{};

    constexpr KvTPair() = default;
    constexpr KvTPair(T first_, T second_) : first(first_), second(second_) {}
    friend constexpr bool operator==(const KvTPair&, const KvTPair&) = default;
};

} // namespace KvN
