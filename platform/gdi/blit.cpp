// Copying of pixels between bitmaps.
#include "platform/gdi/blit.h"

#include "platform/gdi/paint.h"
#include "platform/gdi/stretch.h"

#include "platform/gdi/raster/rect.h"

#include <algorithm>
#include <cstring>
#include <functional>

namespace kv::gdi
{

namespace
{

std::uint8_t truthTable(DWORD rop)
{
    return std::uint8_t(rop >> 16);
}

// The operations of source and target alone, over a row of 32-bit pixels. False for any other operation.
bool combineRow(DWORD rop, std::uint32_t* target, const std::uint32_t* source, int count)
{
    switch (rop)
    {
    case SRCAND:
        std::transform(source, source + count, target, target, std::bit_and<>());
        return true;
    case SRCPAINT:
        std::transform(source, source + count, target, target, std::bit_or<>());
        return true;
    case SRCINVERT:
        std::transform(source, source + count, target, target, std::bit_xor<>());
        return true;
    default:
        return false;
    }
}

// Stores combined values into a row of the target.
class RowWriter
{
public:
    RowWriter(const Dc& dc, DWORD operation) : view(dc.bitmap->pixels()), rop(operation)
    {
        if (!needsPattern(rop))
            return;
        if (dc.brush->style == BS_HATCHED || dc.brush->style == BS_PATTERN)
            pattern = patternOf(dc);
        else
            brush = dc.brush->style == BS_NULL ? 0 : brushValue(dc, dc.effectiveBrushColor());
    }

    void write(int y, int from, int to, const std::uint32_t* values) const
    {
        if (rop == SRCCOPY && view.depth != 1)
        {
            if (view.depth == 32)
                std::memcpy(view.row(y) + 4 * std::ptrdiff_t(from), values, 4 * std::size_t(to - from));
            else
                std::transform(values, values + (to - from), view.row(y) + from,
                               [](std::uint32_t v) { return std::uint8_t(v); });
            return;
        }
        if (view.depth == 32 &&
            combineRow(rop, reinterpret_cast<std::uint32_t*>(view.row(y)) + from, values, to - from))
            return;
        for (int x = from; x < to; ++x)
        {
            const std::uint32_t p = pattern.values.empty() ? brush : pattern.values[pattern.index(x, y)];
            view.setPixel(x, y, combine(rop, p, values[x - from], view.pixel(x, y)));
        }
    }

private:
    PixelView view;
    DWORD rop;
    Pattern pattern;
    std::uint32_t brush = 0;
};

// A copy of a source that is the target's own bitmap, as far as it will be read.
struct Snapshot
{
    std::vector<std::uint8_t> bytes;

    void take(BlitSource& source)
    {
        const PixelView view = source.view;
        const std::size_t stride = std::size_t(view.stride < 0 ? -view.stride : view.stride);
        bytes.resize(stride * std::size_t(view.height));
        for (int y = 0; y < view.height; ++y)
            std::memcpy(bytes.data() + stride * std::size_t(y), view.row(y), stride);
        source.view.top = bytes.data();
        source.view.stride = std::ptrdiff_t(stride);
    }
};

// Without stretching or mirroring.
void copy(const Dc& target, const BlitBox& to, const BlitSource& source, const BlitBox& from, DWORD rop)
{
    const PixelView view = target.bitmap->pixels();
    const std::int64_t dx = from.left() - to.left(), dy = from.top() - to.top();
    const std::int64_t width = std::abs(to.width), height = std::abs(to.height);
    // Where both the target box and the source lie.
    const RECT box{raster::saturated(std::max(to.left(), -dx)), raster::saturated(std::max(to.top(), -dy)),
                   raster::saturated(std::min(to.left() + width, source.view.width - dx)),
                   raster::saturated(std::min(to.top() + height, source.view.height - dy))};
    RowConverter converter(target, source);
    const RowWriter writer(target, rop);
    const bool bytes = converter.copies() && rop == SRCCOPY && view.depth != 1;
    std::vector<std::uint32_t> values;
    for (const RECT& visible : target.visible())
    {
        const RECT r = raster::common(visible, box);
        if (r.left >= r.right)
            continue;
        values.resize(std::size_t(r.right - r.left));
        for (int y = r.top; y < r.bottom; ++y)
        {
            const int sx = int(r.left + dx), sy = int(y + dy);
            if (bytes)
            {
                const std::ptrdiff_t size = view.depth / 8;
                std::memcpy(view.row(y) + r.left * size, source.view.row(sy) + sx * size,
                            std::size_t((r.right - r.left) * size));
                continue;
            }
            converter.convert(sy, sx, sx + r.right - r.left, values.data());
            writer.write(y, r.left, r.right, values.data());
        }
    }
}

// The pixels of a stretched row that have a source, in runs.
template <class Visit>
void forEachRun(const std::vector<AxisRange>& columns, Visit visit)
{
    for (std::size_t i = 0; i < columns.size();)
    {
        std::size_t end = i;
        while (end < columns.size() && columns[end].first < columns[end].end)
            ++end;
        if (end > i)
            visit(i, end);
        i = end + 1;
    }
}

void stretch(const Dc& target, const BlitBox& to, const BlitSource& source, const BlitBox& from, DWORD rop)
{
    const RECT box{raster::saturated(to.left()), raster::saturated(to.top()),
                   raster::saturated(to.left() + std::abs(to.width)),
                   raster::saturated(to.top() + std::abs(to.height))};
    const StretchAxis across(to.x, to.width, from.x, from.width, source.view.width);
    const StretchAxis down(to.y, to.height, from.y, from.height, source.view.height);
    const bool picks = target.state.stretchMode != BLACKONWHITE && target.state.stretchMode != WHITEONBLACK;
    const bool both = target.state.stretchMode == BLACKONWHITE;
    RowConverter converter(target, source);
    const RowWriter writer(target, rop);
    std::vector<AxisRange> columns;
    std::vector<std::uint32_t> sources, merged, values;
    for (const RECT& visible : target.visible())
    {
        const RECT r = raster::common(visible, box);
        if (r.left >= r.right)
            continue;
        columns.clear();
        int first = INT32_MAX, end = 0;
        for (int x = r.left; x < r.right; ++x)
        {
            columns.push_back(across.sources(x));
            if (columns.back().first >= columns.back().end)
                continue;
            first = std::min(first, columns.back().first);
            end = std::max(end, columns.back().end);
        }
        if (first >= end)
            continue;
        sources.resize(std::size_t(end - first));
        values.resize(columns.size());
        for (int y = r.top; y < r.bottom; ++y)
        {
            const AxisRange rows = down.sources(y);
            if (rows.first >= rows.end)
                continue;
            // Where one row has to stand for all, it is the first one met on the way through the source.
            converter.convert(picks && down.isMirrored() ? rows.end - 1 : rows.first, first, end, sources.data());
            for (int sy = rows.first + 1; sy < rows.end && !picks; ++sy)
            {
                merged.resize(sources.size());
                converter.convert(sy, first, end, merged.data());
                for (std::size_t i = 0; i < sources.size(); ++i)
                    sources[i] = both ? sources[i] & merged[i] : sources[i] | merged[i];
            }
            forEachRun(columns,
                       [&](std::size_t i, std::size_t last)
                       {
                           for (std::size_t k = i; k < last; ++k)
                           {
                               std::uint32_t v = sources[std::size_t(columns[k].end - 1 - first)];
                               for (int sx = columns[k].first; sx + 1 < columns[k].end && !picks; ++sx)
                                   v = both ? v & sources[std::size_t(sx - first)]
                                            : v | sources[std::size_t(sx - first)];
                               values[k] = v;
                           }
                           writer.write(y, r.left + int(i), r.left + int(last), values.data() + i);
                       });
        }
    }
}

} // namespace

BlitBox mappedBox(const Mapping& mapping, int x, int y, int width, int height)
{
    const DeviceMapping& m = mapping.toDevice();
    const POINT from = m.toDevice(x, y), to = m.toDevice(double(x) + width, double(y) + height);
    return {from.x, from.y, std::int64_t(to.x) - from.x, std::int64_t(to.y) - from.y};
}

bool needsSource(DWORD rop)
{
    const std::uint8_t table = truthTable(rop);
    return ((table >> 2) & 0x33) != (table & 0x33);
}

bool needsPattern(DWORD rop)
{
    const std::uint8_t table = truthTable(rop);
    return (table >> 4) != (table & 0x0F);
}

std::uint32_t combine(DWORD rop, std::uint32_t pattern, std::uint32_t source, std::uint32_t target)
{
    switch (rop)
    {
    case SRCCOPY:
        return source;
    case SRCAND:
        return source & target;
    case SRCPAINT:
        return source | target;
    case SRCINVERT:
        return source ^ target;
    default:
        break;
    }
    const std::uint8_t table = truthTable(rop);
    std::uint32_t result = 0;
    for (int i = 0; i < 8; ++i)
        if (table >> i & 1)
            result |= (i & 4 ? pattern : ~pattern) & (i & 2 ? source : ~source) & (i & 1 ? target : ~target);
    return result;
}

RowConverter::RowConverter(const Dc& target, const BlitSource& from)
    : source(from), targetTable(target.bitmap->table()), nearest(targetTable)
{
    const Bitmap& to = *target.bitmap;
    const int depth = source.view.depth;
    if (source.monochrome)
    {
        plainCopy = to.isMonochrome();
        values = plainCopy ? std::vector<std::uint32_t>{0, 1}
                           : std::vector{brushValue(target, plainColor(target.state.text)),
                                         brushValue(target, plainColor(target.state.background))};
        return;
    }
    if (to.isMonochrome())
    {
        const std::uint32_t background = packed(plainColor(source.background));
        for (const RGBQUAD& q : source.table)
            values.push_back(packed(q) == background);
        toBackground = true;
    }
    else if (depth == to.depth() && sameColors(source.table, targetTable))
    {
        plainCopy = true;
        for (std::uint32_t i = 0; i < source.table.size(); ++i)
            values.push_back(i);
    }
    else
        for (const RGBQUAD& q : source.table)
            values.push_back(targetTable.empty() ? packed(q) : std::uint32_t(nearest(packed(q))));
}

void RowConverter::convert(int y, int from, int to, std::uint32_t* out)
{
    const std::uint8_t* const row = source.view.row(y);
    if (source.view.depth == 8)
    {
        for (int x = from; x < to; ++x)
            *out++ = values[row[x]];
        return;
    }
    if (source.view.depth == 1)
    {
        for (int x = from; x < to; ++x)
            *out++ = values[row[x / 8] >> (7 - x % 8) & 1];
        return;
    }
    const auto* const pixels = reinterpret_cast<const std::uint32_t*>(row);
    const std::uint32_t background = packed(plainColor(source.background));
    for (int x = from; x < to; ++x)
    {
        const std::uint32_t rgb = pixels[x] & 0xFFFFFF;
        *out++ = toBackground ? rgb == background : targetTable.empty() ? rgb : std::uint32_t(nearest(rgb));
    }
}

void blit(const Dc& target, const BlitBox& to, const BlitSource& from, const BlitBox& area, DWORD rop)
{
    rop &= ~(NOMIRRORBITMAP | CAPTUREBLT);
    BlitSource source = from;
    Snapshot snapshot;
    if (source.view.top == target.bitmap->pixels().top)
        snapshot.take(source);
    if (to.width == area.width && to.height == area.height)
        copy(target, to, source, area, rop);
    else if (!to.flat() && !area.flat())
        stretch(target, to, source, area, rop);
}

} // namespace kv::gdi
