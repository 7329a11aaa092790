// A set of pixels inside a rectangle, one bit each: what a figure covers, where a pixel must be painted only once
// however often it is met, or left out of another figure.
#pragma once

#include "platform/gdi/raster/sinks.h"

#include <bit>
#include <vector>

namespace kv::raster
{

class Coverage
{
public:
    // Empty, over the given rectangle. Buffers are kept.
    void reset(const RECT& area)
    {
        box = area;
        const bool none = area.left >= area.right || area.top >= area.bottom;
        words = none ? 0 : (std::size_t(area.right - area.left) + 63) / 64;
        bits.assign(none ? 0 : words * std::size_t(area.bottom - area.top), 0);
    }
    const RECT& area() const { return box; }

    // The set as a sink.
    void span(int y, int from, int to)
    {
        apply(y, from, to, [](std::uint64_t& word, std::uint64_t mask) { word |= mask; });
    }
    void erase(int y, int from, int to)
    {
        apply(y, from, to, [](std::uint64_t& word, std::uint64_t mask) { word &= ~mask; });
    }
    void pixel(int x, int y) { row(y)[std::size_t(x - box.left) / 64] |= std::uint64_t(1) << ((x - box.left) & 63); }

    // Emits every pixel of the set once, as spans.
    template <class Sink>
    void emit(const Sink& sink) const
    {
        for (int y = box.top; y < box.bottom; ++y)
            emitRow(sink, y);
    }

private:
    std::uint64_t* row(int y) { return bits.data() + words * std::size_t(y - box.top); }

    template <class Change>
    void apply(int y, int from, int to, Change change)
    {
        std::uint64_t* const line = row(y);
        const std::size_t first = std::size_t(from - box.left), last = std::size_t(to - 1 - box.left);
        const std::uint64_t head = ~std::uint64_t(0) << (first & 63), tail = ~std::uint64_t(0) >> (63 - (last & 63));
        std::size_t word = first / 64;
        if (word == last / 64)
        {
            change(line[word], head & tail);
            return;
        }
        change(line[word], head);
        for (++word; word < last / 64; ++word)
            change(line[word], ~std::uint64_t(0));
        change(line[word], tail);
    }

    template <class Sink>
    void emitRow(const Sink& sink, int y) const
    {
        const std::uint64_t* const line = bits.data() + words * std::size_t(y - box.top);
        int from = -1; // start of the open run
        for (std::size_t w = 0; w < words; ++w)
        {
            std::uint64_t rest = from < 0 ? line[w] : ~line[w];
            const int base = box.left + int(w) * 64;
            std::uint64_t todo = ~std::uint64_t(0);
            while ((rest & todo) != 0)
            {
                const int bit = std::countr_zero(rest & todo);
                if (from < 0)
                    from = base + bit - box.left;
                else
                {
                    sink.span(y, box.left + from, base + bit);
                    from = -1;
                }
                rest = ~rest;
                todo = ~std::uint64_t(0) << bit;
            }
        }
        if (from >= 0)
            sink.span(y, box.left + from, box.right);
    }

    RECT box{};
    std::size_t words = 0;
    std::vector<std::uint64_t> bits;
};

// The two ways to write into a set.
struct Cover
{
    Coverage* set;

    void span(int y, int from, int to) const { set->span(y, from, to); }
    void pixel(int x, int y) const { set->pixel(x, y); }
    PixelCursor<Cover> cursor(int x, int y, Step major, Step minor) const { return {this, x, y, major, minor}; }
};

struct Uncover
{
    Coverage* set;

    void span(int y, int from, int to) const { set->erase(y, from, to); }
    void pixel(int x, int y) const { set->erase(y, x, x + 1); }
    PixelCursor<Uncover> cursor(int x, int y, Step major, Step minor) const { return {this, x, y, major, minor}; }
};

} // namespace kv::raster
