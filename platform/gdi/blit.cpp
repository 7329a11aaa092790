// Copying of pixels between bitmaps.
#include "platform/gdi/blit.h"

#include "platform/gdi/paint.h"
#include "platform/gdi/stretch.h"

#include "platform/gdi/raster/rect.h"

#include <algorithm>
#include <cstring>

namespace kv::gdi
{

namespace
{

std::uint8_t truthTable(DWORD rop)
{
    return std::uint8_t(rop >> 16);
}

// Combines values with pixels of a row. A loop for each usual operation, so that it runs over many pixels at once.
template <class T>
void combineRow(T* row, const std::uint32_t* values, int count, DWORD rop, std::uint32_t pattern)
{
    const auto each = [&](auto change)
    {
        for (int i = 0; i < count; ++i)
            row[i] = T(change(values[i], std::uint32_t(row[i])));
    };
    switch (rop)
    {
    case SRCCOPY:
        each([](std::uint32_t s, std::uint32_t) { return s; });
        break;
    case SRCAND:
        each([](std::uint32_t s, std::uint32_t d) { return s & d; });
        break;
    case SRCPAINT:
        each([](std::uint32_t s, std::uint32_t d) { return s | d; });
        break;
    case SRCINVERT:
        each([](std::uint32_t s, std::uint32_t d) { return s ^ d; });
        break;
    default:
        each([&](std::uint32_t s, std::uint32_t d) { return combine(rop, pattern, s, d); });
    }
}

// The bounding box of what may be drawn on.
RECT clipBox(const Dc& dc)
{
    RECT box{};
    for (const RECT& r : dc.visible())
        box = raster::isEmpty(box) ? r
                                   : RECT{std::min(box.left, r.left), std::min(box.top, r.top),
                                          std::max(box.right, r.right), std::max(box.bottom, r.bottom)};
    return box;
}

// Stores combined values into a row of the target.
class RowWriter
{
public:
    RowWriter(const Dc& dc, DWORD operation, const RECT& box)
        : view(dc.bitmap->pixels(raster::common(box, clipBox(dc)))), rop(operation)
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
        std::uint8_t* const row = view.row(y);
        if (pattern.values.empty() && view.depth == 32)
            combineRow(reinterpret_cast<std::uint32_t*>(row) + from, values, to - from, rop, brush);
        else if (pattern.values.empty() && view.depth == 8)
            combineRow(row + from, values, to - from, rop, brush);
        else
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
    const std::int64_t dx = from.left() - to.left(), dy = from.top() - to.top();
    const std::int64_t width = std::abs(to.width), height = std::abs(to.height);
    // Where both the target box and the source lie.
    const RECT box{raster::saturated(std::max(to.left(), -dx)), raster::saturated(std::max(to.top(), -dy)),
                   raster::saturated(std::min(to.left() + width, source.view.width - dx)),
                   raster::saturated(std::min(to.top() + height, source.view.height - dy))};
    RowConverter converter(target, source);
    const RowWriter writer(target, rop, box);
    const PixelView view = target.bitmap->pixels(RECT{});
    const bool bytes = converter.copies() && rop == SRCCOPY && view.depth != 1;
    std::vector<std::uint32_t> values;
    // Within one bitmap, rows that are still to be read are written last.
    const bool fromBelow = source.view.top == view.top && dy < 0;
    for (const RECT& visible : target.visible())
    {
        const RECT r = raster::common(visible, box);
        if (raster::isEmpty(r))
            continue;
        values.resize(std::size_t(r.right - r.left));
        for (int i = 0; i < r.bottom - r.top; ++i)
        {
            const int y = fromBelow ? r.bottom - 1 - i : r.top + i;
            const int sx = int(r.left + dx), sy = int(y + dy);
            if (bytes)
            {
                const std::ptrdiff_t size = view.depth / 8;
                std::memmove(view.row(y) + r.left * size, source.view.row(sy) + sx * size,
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

// Rows of a stretched source, made from as many source rows and columns as each pixel stands for.
class RowStretcher
{
public:
    RowStretcher(RowConverter& from, const StretchAxis& columnAxis, int left, int right, int mode)
        : converter(from), picks(mode != BLACKONWHITE && mode != WHITEONBLACK), intersects(mode == BLACKONWHITE)
    {
        for (int x = left; x < right; ++x)
        {
            columns.push_back(columnAxis.sources(x));
            if (columns.back().first >= columns.back().end)
                continue;
            first = std::min(first, columns.back().first);
            end = std::max(end, columns.back().end);
        }
        values.resize(columns.size());
        if (first < end)
            sources.resize(std::size_t(end - first));
    }

    bool empty() const { return first >= end; }
    const std::vector<AxisRange>& ranges() const { return columns; }

    // Where one row has to stand for all, `chosen` is it. Asked again for the same rows, nothing is done.
    const std::uint32_t* row(const AxisRange& rows, int chosen)
    {
        if (rows.first == last.first && rows.end == last.end)
            return values.data();
        last = rows;
        if (picks)
            pick(chosen);
        else
            merge(rows);
        return values.data();
    }

private:
    void pick(int y)
    {
        const std::uint32_t* from = converter.direct(y);
        if (from)
            from += first;
        else
        {
            converter.convert(y, first, end, sources.data());
            from = sources.data();
        }
        for (std::size_t k = 0; k < columns.size(); ++k)
        {
            if (columns[k].first < columns[k].end)
                values[k] = from[columns[k].end - 1 - first];
        }
    }

    void merge(const AxisRange& rows)
    {
        converter.convert(rows.first, first, end, sources.data());
        merged.resize(sources.size());
        for (int y = rows.first + 1; y < rows.end; ++y)
        {
            converter.convert(y, first, end, merged.data());
            for (std::size_t i = 0; i < sources.size(); ++i)
                sources[i] = both(sources[i], merged[i]);
        }
        for (std::size_t k = 0; k < columns.size(); ++k)
        {
            if (columns[k].first >= columns[k].end)
                continue;
            std::uint32_t v = sources[std::size_t(columns[k].end - 1 - first)];
            for (int x = columns[k].first; x + 1 < columns[k].end; ++x)
                v = both(v, sources[std::size_t(x - first)]);
            values[k] = v;
        }
    }

    std::uint32_t both(std::uint32_t a, std::uint32_t b) const { return intersects ? a & b : a | b; }

    RowConverter& converter;
    bool picks, intersects;
    std::vector<AxisRange> columns;
    int first = INT32_MAX, end = 0; // source columns that are needed at all
    AxisRange last{0, 0};
    std::vector<std::uint32_t> sources, merged, values;
};

void stretch(const Dc& target, const BlitBox& to, const BlitSource& source, const BlitBox& from, DWORD rop)
{
    const RECT box = to.covered();
    const StretchAxis across(to.x, to.width, from.x, from.width, source.view.width);
    const StretchAxis down(to.y, to.height, from.y, from.height, source.view.height);
    RowConverter converter(target, source);
    const RowWriter writer(target, rop, box);
    for (const RECT& visible : target.visible())
    {
        const RECT r = raster::common(visible, box);
        if (raster::isEmpty(r))
            continue;
        RowStretcher stretcher(converter, across, r.left, r.right, target.state.stretchMode);
        if (stretcher.empty())
            continue;
        for (int y = r.top; y < r.bottom; ++y)
        {
            const AxisRange rows = down.sources(y);
            if (rows.first >= rows.end)
                continue;
            // The first row that is met on the way through the source.
            const std::uint32_t* const values = stretcher.row(rows, down.isMirrored() ? rows.end - 1 : rows.first);
            forEachRun(stretcher.ranges(), [&](std::size_t i, std::size_t last)
                       { writer.write(y, r.left + int(i), r.left + int(last), values + i); });
        }
    }
}

} // namespace

RECT BlitBox::covered() const
{
    return {raster::saturated(left()), raster::saturated(top()), raster::saturated(left() + std::abs(width)),
            raster::saturated(top() + std::abs(height))};
}

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

const std::uint32_t* RowConverter::direct(int y) const
{
    return plainCopy && source.view.depth == 32 ? reinterpret_cast<const std::uint32_t*>(source.view.row(y)) : nullptr;
}

void blit(const Dc& target, const BlitBox& to, const BlitSource& from, const BlitBox& area, DWORD rop)
{
    // A picture whose far corner lies beyond all coordinates is not drawn at all.
    if (to.isClamped() || area.isClamped())
        return;
    rop &= ~(NOMIRRORBITMAP | CAPTUREBLT);
    BlitSource source = from;
    const bool stretches = to.width != area.width || to.height != area.height;
    Snapshot snapshot;
    if (source.view.top == target.bitmap->pixels(RECT{}).top && (stretches || target.visible().size() > 1))
        snapshot.take(source);
    if (!stretches)
        copy(target, to, source, area, rop);
    else if (!to.flat() && !area.flat())
        stretch(target, to, source, area, rop);
}

} // namespace kv::gdi
