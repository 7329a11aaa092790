// Constants and the few functions of the geometry, and the 4 by 4 matrix that hosts pass in.
#pragma once

#include <array>
#include <cmath>

namespace KvN
{

struct KvMath
{
    static constexpr double Pi = 3.14159265358979323846;
    static constexpr double TwoPi = 2.0 * Pi;
    // The threshold of nearly all degenerate cases of the geometry, in pixels or radians.
    static constexpr double Epsilon = 1e-9;

    static double Sqrt(double x) { return std::sqrt(x); }
};

// Row by row; element 3 is the translation in x, element 7 that in y, element 1 the sine of the rotation.
class KvMatrix4
{
public:
    // The identity.
    KvMatrix4() : elements{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1} {}

    double& operator[](int index) { return elements[static_cast<size_t>(index)]; }
    double operator[](int index) const { return elements[static_cast<size_t>(index)]; }

private:
    std::array<double, 16> elements;
};

} // namespace KvN
