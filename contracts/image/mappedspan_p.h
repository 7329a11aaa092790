// Which pixels of a picture stand on which pixels of a surface when it is stretched. Private to the image contract.
#pragma once

#include "contracts/image/pixelrows_p.h"
#include "platform/gdi/stretch.h"
#include "platform/gdi/surface.h"

#include <algorithm>
#include <cstring>

namespace KvN::show
{

// One axis of a stretch: the target extent on the device, and which pixels of the source each target pixel stands for.
struct Axis
{
    std::int64_t near;
    std::int64_t far;
    kv::gdi::StretchAxis sources;

    Axis(int near_, int far_, int sourceNear, int sourceExtent, int sourceLimit)
        : near(near_), far(far_), sources(near, far - near, sourceNear, sourceExtent, sourceLimit)
    {
    }
};

// The part of a device span that shows existing source pixels, and the source pixel for each: the last one of several
// for columns, the first one for rows.
struct MappedSpan
{
    int begin = 0; // device
    Columns source;

    template <class Choose>
    MappedSpan(const Axis& axis, int from, int to, Choose choose)
    {
        begin = static_cast<int>(std::max<std::int64_t>(from, axis.near));
        const std::int64_t end = std::min<std::int64_t>(to, axis.far);
        for (int at = begin; at < end; ++at)
        {
            const kv::gdi::AxisRange range = axis.sources.sources(at);
            if (range.first < range.end)
                source.index.push_back(choose(range));
            else if (source.index.empty())
                begin = at + 1;
        }
    }
};

inline MappedSpan MappedColumns(const Axis& axis, int from, int to)
{
    return {axis, from, to, [](const kv::gdi::AxisRange& range) { return range.end - 1; }};
}

inline MappedSpan MappedRows(const Axis& axis, int from, int to)
{
    return {axis, from, to, [](const kv::gdi::AxisRange& range) { return range.first; }};
}

// Writes rows of pixels of one clip rectangle. `fill(source row, out)` computes the colours of one row.
template <class Pixel, class Fill>
void WriteRows(const kv::gdi::Surface& surface, const MappedSpan& columns, const MappedSpan& rows, Fill fill)
{
    const size_t bytes = columns.source.index.size() * sizeof(Pixel);
    const Pixel* above = nullptr;
    for (size_t i = 0; i < rows.source.index.size(); ++i)
    {
        auto* out = reinterpret_cast<Pixel*>(surface.row(rows.begin + static_cast<int>(i))) + columns.begin;
        // An enlarged image repeats its rows.
        if (above && rows.source.index[i] == rows.source.index[i - 1])
            std::memcpy(out, above, bytes);
        else
            fill(rows.source.index[i], out);
        above = out;
    }
}

} // namespace KvN::show
