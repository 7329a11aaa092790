// Drawing of AOIs: straight into the surface where the mapping allows, else through a bitmap and a stretching blit.
#include "contracts/image/show_p.h"

#include "contracts/basics/KvException.h"
#include "contracts/image/KvDIB.h"
#include "contracts/image/KvMemDC.h"
#include "contracts/image/mappedspan_p.h"
#include "contracts/image/pendingpicture_p.h"
#include "platform/afx/dc.h"

#include <algorithm>

namespace KvN::show
{

namespace
{

using kv::gdi::Surface;

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

KvDevice* DeviceOf(const KvAOI& aoi)
{
    if (const auto* grey = dynamic_cast<const KvAOI8*>(&aoi))
        return grey->GetDevice();
    if (const auto* real = dynamic_cast<const KvAOI32Float*>(&aoi))
        return real->GetDevice();
    const auto* color = dynamic_cast<const KvAOI32Color*>(&aoi);
    return color ? color->GetDevice() : nullptr;
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
        if (auto* memory = dynamic_cast<KvMemDC*>(&dc); memory && Pending(*memory))
            return;
        if (!kv::gdi::surfaceOf(dc.m_hDC, surface))
            throw new KvGDIException(L"contracts/image/KvAOI", 101, L"StretchBlt", ::GetLastError());
        if (!Direct())
            ThroughBitmap();
    }

private:
    // Pixel on pixel into a memory context: to be computed when they are asked for. False if they are not drawn so.
    bool Pending(KvMemDC& memory)
    {
        auto former = memory.TakePending();
        const bool found = memory.DrawsOnOwnBitmap() && kv::gdi::surfaceOf(dc.m_hDC, surface);
        auto picture = found ? MakePending(memory.Limit()) : nullptr;
        const bool done = picture != nullptr;
        if (!done)
            memory.SetPending(std::move(former));
        else
        {
            // What the new picture leaves as it is.
            const RECT& box = picture->Box();
            const auto covers = [&box](const RECT& r)
            { return box.left <= r.left && box.top <= r.top && r.right <= box.right && r.bottom <= box.bottom; };
            if (former && !covers(former->Box()))
                former->WriteAll();
            memory.SetPending(std::move(picture));
        }
        return done;
    }

    std::unique_ptr<PendingPicture> MakePending(const CRect& limit) const
    {
        if (surface.depth != 32 || surface.clip.size() != 1 || source.Width() < 0 || source.Height() < 0 ||
            source.Width() != destination.Width() || source.Height() != destination.Height())
            return nullptr;
        const kv::gdi::DeviceMapping& m = surface.mapping;
        if (m.m11 != 1 || m.m22 != 1 || !m.isUpright())
            return nullptr;
        const POINT at = m.toDevice(destination.left, destination.top);
        const POINT shift{source.left - at.x, source.top - at.y};
        const CRect clip =
            limit == surface.clip.front() ? CRect(0, 0, surface.width, surface.height) : CRect(surface.clip.front());
        const RECT box{std::max<LONG>({clip.left, at.x, -shift.x}), std::max<LONG>({clip.top, at.y, -shift.y}),
                       std::min<LONG>({clip.right, at.x + source.Width(), aoi.AOIWidth() - shift.x}),
                       std::min<LONG>({clip.bottom, at.y + source.Height(), aoi.AOIHeight() - shift.y})};
        auto rows = BlendedRows(RowsOf(aoi), blend);
        if (!rows || box.left >= box.right || box.top >= box.bottom)
            return nullptr;
        auto picture = std::make_unique<PendingPicture>(surface, box, std::move(rows), shift);
        picture->Follow(DeviceOf(aoi));
        if (blend.overlay)
        {
            picture->Follow(DeviceOf(*blend.overlay));
            picture->Follow(blend.mask ? DeviceOf(*blend.mask) : nullptr);
        }
        return picture;
    }

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
