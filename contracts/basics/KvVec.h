// Vectors of the plane. In image coordinates x runs to the right and y downward, in pixels.
#pragma once

#include "contracts/basics/KvMath.h"

namespace KvN
{

struct KvVec2i
{
    int x = 0;
    int y = 0;

    constexpr KvVec2i() = default;
    constexpr KvVec2i(int x_, int y_) : x(x_), y(y_) {}
};

struct KvVec2d
{
    double x = 0.0;
    double y = 0.0;

    // The direction that stands in wherever a vector of length 0 would have to be normalised.
    static const KvVec2d XUnit;

    constexpr KvVec2d() = default;
    constexpr KvVec2d(double x_, double y_) : x(x_), y(y_) {}
    constexpr KvVec2d(const KvVec2i& v) : x(v.x), y(v.y) {}

    double Length() const { return KvMath::Sqrt(x * x + y * y); }
    // This vector scaled to length 1; `XUnit` for a vector of length 0.
    KvVec2d Unit() const;
};

constexpr KvVec2d operator+(const KvVec2d& a, const KvVec2d& b)
{
    return {a.x + b.x, a.y + b.y};
}
constexpr KvVec2d operator-(const KvVec2d& a, const KvVec2d& b)
{
    return {a.x - b.x, a.y - b.y};
}
constexpr KvVec2d operator*(const KvVec2d& a, double s)
{
    return {a.x * s, a.y * s};
}
constexpr KvVec2d operator*(double s, const KvVec2d& a)
{
    return {a.x * s, a.y * s};
}
// Multiplies by the reciprocal: one division, and the rounding that the geometry is stated with.
constexpr KvVec2d operator/(const KvVec2d& a, double s)
{
    return a * (1.0 / s);
}
// The dot product.
constexpr double operator*(const KvVec2d& a, const KvVec2d& b)
{
    return a.x * b.x + a.y * b.y;
}

inline constexpr KvVec2d KvVec2d::XUnit{1.0, 0.0};

inline KvVec2d KvVec2d::Unit() const
{
    const double length = Length();
    return length > 0.0 ? *this / length : XUnit;
}

} // namespace KvN
