// Drawing of AOIs: straight into the surface where the mapping allows, else through a bitmap and a stretching blit.
#include "contracts/image/show_p.h"

#include "contracts/basics/KvException.h"
#include "contracts/image/KvDIB.h"
#include "contracts/image/pixelrows_p.h"
#include "platform/afx/dc.h"
#include "platform/gdi/stretch.h"
#include "platform/gdi/surface.h"

#include <algorithm>
#include <cstring>

namespace KvN::show
{

namespace
{

using kv::gdi::Surface;

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

MappedSpan MappedColumns(const Axis& axis, int from, int to)
{
    return {axis, from, to, [](const kv::gdi::AxisRange& range) { return range.end - 1; }};
}

MappedSpan MappedRows(const Axis& axis, int from, int to)
{
    return {axis, from, to, [](const kv::gdi::AxisRange& range) { return range.first; }};
}

// Writes rows of pixels of one clip rectangle. `fill(source row, out)` computes the colours of one row.
template <class Pixel, class Fill>
void WriteRows(const Surface& surface, const MappedSpan& columns, const MappedSpan& rows, Fill fill)
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

// The index of a surface's colours that comes nearest to each colour of a table; a surface with the same colours takes
// the indices as they are.
std::array<unsigned char, 256> IndicesIn(const RGBQUAD* palette, const KvLut::Colors& colors)
{
    KvLut::Colors target;
    for (size_t i = 0; i < target.size(); ++i)
        target[i] = KvColor(palette[i].rgbRed, palette[i].rgbGreen, palette[i].rgbBlue);
    const KvLut lut(L"", target);
    std::array<unsigned char, 256> indices;
    for (size_t i = 0; i < indices.size(); ++i)
        indices[i] = static_cast<unsigned char>(target == colors ? i : lut.NearestIndex(colors[i]));
    return indices;
}

class Drawing
{
public:
    Drawing(const KvAOI& aoi_, const Blend& blend_, const KvTRectangle<short>& source_,
            const KvTRectangle<short>& destination_, CDC& dc_)
        : aoi(aoi_), blend(blend_), source(source_), destination(destination_), dc(dc_)
    {
    }

    void Run()
    {
        if (source.Width() == 0 || source.Height() == 0 || destination.Width() == 0 || destination.Height() == 0)
            return;
        if (!kv::gdi::surfaceOf(dc.m_hDC, surface))
            throw new KvGDIException(L"contracts/image/KvAOI", 101, L"StretchBlt", ::GetLastError());
        if (!Direct())
            ThroughBitmap();
    }

private:
    // False if mapping, mirroring or pixel format ask for the general way.
    bool Direct()
    {
        if (!surface.mapping.isUpright() || source.Width() < 0 || source.Height() < 0 || destination.Width() < 0 ||
            destination.Height() < 0)
            return false;
        const POINT near = surface.mapping.toDevice(destination.left, destination.top);
        const POINT far =
            surface.mapping.toDevice(destination.left + destination.Width(), destination.top + destination.Height());
        if (far.x <= near.x || far.y <= near.y)
            return false;
        const Axis across(near.x, far.x, source.left, source.Width(), aoi.AOIWidth());
        const Axis down(near.y, far.y, source.top, source.Height(), aoi.AOIHeight());
        if (surface.depth == 32)
            return DirectColors(across, down);
        return surface.depth == 8 && DirectIndices(across, down);
    }

    bool DirectColors(const Axis& across, const Axis& down)
    {
        const auto pixels = BlendedRows(RowsOf(aoi), blend);
        if (!pixels)
            return true;
        for (const RECT& clip : surface.clip)
        {
            const MappedSpan columns = MappedColumns(across, clip.left, clip.right);
            const MappedSpan rows = MappedRows(down, clip.top, clip.bottom);
            WriteRows<KvColor>(surface, columns, rows,
                               [&](int y, KvColor* out) { pixels->Colors(y, columns.source, out); });
        }
        return true;
    }

    bool DirectIndices(const Axis& across, const Axis& down)
    {
        const auto* grey = dynamic_cast<const KvAOI8*>(&aoi);
        if (!grey || blend.overlay)
            return false;
        const auto indices = IndicesIn(surface.palette, grey->GetOLut()->GetColors());
        for (const RECT& clip : surface.clip)
        {
            const MappedSpan columns = MappedColumns(across, clip.left, clip.right);
            const MappedSpan rows = MappedRows(down, clip.top, clip.bottom);
            WriteRows<unsigned char>(surface, columns, rows,
                                     [&](int y, unsigned char* out)
                                     {
                                         const unsigned char* row = grey->GetRowPointer(y);
                                         for (const int x : columns.source.index)
                                             *out++ = indices[row[x]];
                                     });
        }
        return true;
    }

    // The source area that exists goes into a bitmap, and the context stretches that.
    void ThroughBitmap()
    {
        const int left = std::clamp<int>(std::min(source.left, source.right), 0, aoi.AOIWidth());
        const int right = std::clamp<int>(std::max(source.left, source.right) + 1, left, aoi.AOIWidth());
        const int top = std::clamp<int>(std::min(source.top, source.bottom), 0, aoi.AOIHeight());
        const int bottom = std::clamp<int>(std::max(source.top, source.bottom) + 1, top, aoi.AOIHeight());
        if (right == left || bottom == top)
            return;
        KvDIB bitmap;
        const KvTRectangle<short> area(static_cast<short>(left), static_cast<short>(top), static_cast<short>(right - 1),
                                       static_cast<short>(bottom - 1));
        if (!FillIndexed(bitmap, area) && !FillColors(bitmap, area))
            return;
        const auto moved = [](short v, int by) { return static_cast<short>(v - by); };
        bitmap.ShowStretched(
            {moved(source.left, left), moved(source.top, top), moved(source.right, left), moved(source.bottom, top)},
            destination, &dc);
    }

    bool FillIndexed(KvDIB& bitmap, const KvTRectangle<short>& area) const
    {
        const auto* grey = dynamic_cast<const KvAOI8*>(&aoi);
        if (!grey || blend.overlay)
            return false;
        KvTBuf2D<unsigned char> block;
        grey->GetBlock(area, block);
        const KvOLut table(grey->GetOLut()->GetName(), grey->GetOLut()->GetColors());
        return bitmap.Create(block, &table);
    }

    bool FillColors(KvDIB& bitmap, const KvTRectangle<short>& area) const
    {
        const auto pixels = BlendedRows(RowsOf(aoi), blend);
        if (!pixels)
            return false;
        Columns columns;
        for (int x = area.left; x <= area.right; ++x)
            columns.index.push_back(x);
        KvTBuf2D<KvColor> block(area.Width(), area.Height());
        for (int y = 0; y < block.height; ++y)
            pixels->Colors(area.top + y, columns, block.Row(y));
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = block.width;
        info.bmiHeader.biHeight = -block.height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        return bitmap.CreateFromBits(&info, block.data);
    }

    const KvAOI& aoi;
    const Blend& blend;
    const KvTRectangle<short>& source;
    const KvTRectangle<short>& destination;
    CDC& dc;
    Surface surface;
};

} // namespace

void Stretched(const KvAOI& aoi, const Blend& blend, const KvTRectangle<short>& source,
               const KvTRectangle<short>& destination, CDC* dc)
{
    if (dc)
        Drawing(aoi, blend, source, destination, *dc).Run();
}

} // namespace KvN::show
