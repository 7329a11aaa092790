// How symbols are drawn along a line, and how the editor's doubles become drawing coordinates.
#pragma once

#include "C/syContour.h"
#include "platform/afx/dc.h"

#include <span>

namespace kv::editor
{

// Toward zero, kept within int; 0 for not-a-number.
int Truncated(double value);
inline int Rounded(double value)
{
    return Truncated(value + 0.5);
}
// A contour's point as it is drawn: truncated and cut to 16 bits.
POINT PointOf(const KvN::KvVec2d& point);

double AngleOf(const KvN::KvVec2d& from, const KvN::KvVec2d& to);

// Turns the symbol by `angle` about its origin and puts that at `origin`. A symbol that ends where it began is filled
// with the context's brush as well.
void DrawSymbol(CDC& dc, std::span<const KvN::KvVec2d> symbol, double angle, const KvN::KvVec2d& origin);

} // namespace kv::editor
