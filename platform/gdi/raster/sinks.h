// Where pixels go. A raster routine is a template over its sink, so that a row of pixels becomes a memset and a step
// along a line an addition to a pointer. A sink has
//     span(y, from, to)                  pixels from <= x < to of a row, from < to
//     cursor(x, y, major, minor)         a cursor at a pixel with plot() and advance(bool), which moves by the vector
//                                        `major`, and by `minor` in addition where the flag is set
// and never checks coordinates: the routines clip. One step past the last pixel of a line is computed, not touched.
#pragma once

#include "platform/gdi/gdi_types.h"
#include "platform/gdi/raster/fill_bytes.h"

#include <cstddef>
#include <cstdint>

namespace kv::raster
{

struct Step
{
    int x, y;
};

// Rows of pixels of one element each. `stride` is in bytes and may be negative.
template <class T>
struct Rows
{
    std::uint8_t* top;
    std::ptrdiff_t stride;

    T* at(int x, int y) const { return reinterpret_cast<T*>(top + y * stride) + x; }
    std::ptrdiff_t offset(Step step) const { return step.y * stride + step.x * std::ptrdiff_t(sizeof(T)); }
};

// Offsets are kept as integers, so that the unused last step never forms an invalid pointer.
template <class T>
struct StoreCursor
{
    std::uintptr_t address;
    std::ptrdiff_t major, minor;
    T value;

    void plot() const { *reinterpret_cast<T*>(address) = value; }
    void advance(bool diagonal)
    {
        address += std::uintptr_t(major) + (std::uintptr_t(minor) & (0 - std::uintptr_t(diagonal)));
    }
};

// Overwrites 8-bit pixels.
struct ByteFill
{
    Rows<std::uint8_t> rows;
    std::uint8_t value;

    void span(int y, int from, int to) const { fillBytes(rows.at(from, y), value, std::size_t(to - from)); }
    StoreCursor<std::uint8_t> cursor(int x, int y, Step major, Step minor) const
    {
        return {reinterpret_cast<std::uintptr_t>(rows.at(x, y)), rows.offset(major), rows.offset(minor), value};
    }
};

// Overwrites 32-bit pixels.
struct WordFill
{
    Rows<std::uint32_t> rows;
    std::uint32_t value;

    void span(int y, int from, int to) const
    {
        std::uint32_t* p = rows.at(from, y);
        for (std::uint32_t* const end = p + (to - from); p != end; ++p)
            *p = value;
    }
    StoreCursor<std::uint32_t> cursor(int x, int y, Step major, Step minor) const
    {
        return {reinterpret_cast<std::uintptr_t>(rows.at(x, y)), rows.offset(major), rows.offset(minor), value};
    }
};

// Changes pixels to (pixel & keep) ^ flip: any raster operation with one colour.
template <class T>
struct MaskCursor
{
    std::uintptr_t address;
    std::ptrdiff_t major, minor;
    T keep, flip;

    void plot() const
    {
        T* const p = reinterpret_cast<T*>(address);
        *p = T((*p & keep) ^ flip);
    }
    void advance(bool diagonal)
    {
        address += std::uintptr_t(major) + (std::uintptr_t(minor) & (0 - std::uintptr_t(diagonal)));
    }
};

template <class T>
struct MaskFill
{
    Rows<T> rows;
    T keep, flip;

    void span(int y, int from, int to) const
    {
        T* p = rows.at(from, y);
        for (T* const end = p + (to - from); p != end; ++p)
            *p = T((*p & keep) ^ flip);
    }
    MaskCursor<T> cursor(int x, int y, Step major, Step minor) const
    {
        return {reinterpret_cast<std::uintptr_t>(rows.at(x, y)), rows.offset(major), rows.offset(minor), keep, flip};
    }
};

// A cursor over any sink that knows only single pixels: `Sink::pixel(x, y)`.
template <class Sink>
struct PixelCursor
{
    const Sink* sink;
    int x, y;
    Step major, minor;

    void plot() const { sink->pixel(x, y); }
    void advance(bool diagonal)
    {
        x += major.x + (diagonal ? minor.x : 0);
        y += major.y + (diagonal ? minor.y : 0);
    }
};

// One-bit pixels, the leftmost in the highest bit. `keep` and `flip` are 0 or 1.
struct BitFill
{
    Rows<std::uint8_t> rows;
    std::uint8_t keep, flip;

    void apply(std::uint8_t* p, std::uint8_t mask) const
    {
        const std::uint8_t kept = keep ? *p : std::uint8_t(*p & ~mask);
        *p = flip ? std::uint8_t(kept ^ mask) : kept;
    }
    void pixel(int x, int y) const { apply(rows.at(x >> 3, y), std::uint8_t(0x80 >> (x & 7))); }
    void span(int y, int from, int to) const
    {
        std::uint8_t* p = rows.at(from >> 3, y);
        std::uint8_t* const last = rows.at((to - 1) >> 3, y);
        const std::uint8_t first = std::uint8_t(0xFF >> (from & 7)), end = std::uint8_t(0xFF << (7 - ((to - 1) & 7)));
        if (p == last)
        {
            apply(p, first & end);
            return;
        }
        apply(p, first);
        for (++p; p != last; ++p)
            apply(p, 0xFF);
        apply(p, end);
    }
    PixelCursor<BitFill> cursor(int x, int y, Step major, Step minor) const { return {this, x, y, major, minor}; }
};

} // namespace kv::raster
