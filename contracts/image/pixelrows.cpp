// Lookups through tables, float ranges, and the blending of overlays.
#include "contracts/image/pixelrows_p.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace KvN::show
{

namespace
{

// Calls `make` for the pixels of the columns and stores what it gives.
template <class Pixel, class Out, class Make>
void Gather(const Pixel* row, const Columns& columns, int count, Out* out, Make make)
{
    if (columns.IsRun())
    {
        row += columns.index.front();
        for (int i = 0; i < count; ++i)
            out[i] = make(row[i]);
        return;
    }
    const int* index = columns.index.data();
    for (int i = 0; i < count; ++i)
        out[i] = make(row[index[i]]);
}

template <class AOI, class Pixel>
class RowsOver : public PixelRows
{
public:
    explicit RowsOver(const AOI& aoi_) : aoi(aoi_) {}

    void Coverage(int y, const Columns& columns, int count, unsigned char* out) const override
    {
        Gather(aoi.GetRowPointer(y), columns, count, out, [](const Pixel& p) { return p != Pixel{}; });
    }

protected:
    const AOI& aoi;
};

class IndexedRows : public RowsOver<KvAOI8, unsigned char>
{
public:
    explicit IndexedRows(const KvAOI8& aoi_) : RowsOver(aoi_), colors(aoi_.GetOLut()->GetColors()) {}

    void Colors(int y, const Columns& columns, KvColor* out) const override
    {
        Gather(aoi.GetRowPointer(y), columns, columns.Count(), out, [this](unsigned char v) { return colors[v]; });
    }

private:
    const KvLut::Colors colors; // a copy, for rows that are read later
};

class FloatRows : public RowsOver<KvAOI32Float, float>
{
public:
    explicit FloatRows(const KvAOI32Float& aoi_)
        : RowsOver(aoi_), colors(aoi_.GetOLut()->GetColors()), low(aoi_.DisplayRange().min),
          extent(static_cast<double>(aoi_.DisplayRange().max) - low)
    {
    }

    void Colors(int y, const Columns& columns, KvColor* out) const override
    {
        Gather(aoi.GetRowPointer(y), columns, columns.Count(), out, [this](float v) { return colors[Index(v)]; });
    }

private:
    // The comparisons are written so that a NaN, also that of a range without extent, gives 0.
    size_t Index(float value) const
    {
        const double place = 255.0 * (value - low) / extent + 0.5;
        if (!(place >= 1.0))
            return 0;
        return place < 255.0 ? static_cast<size_t>(place) : 255;
    }

    const KvLut::Colors colors;
    double low;
    double extent;
};

class ColorRows : public RowsOver<KvAOI32Color, KvColor>
{
public:
    using RowsOver::RowsOver;

    void Colors(int y, const Columns& columns, KvColor* out) const override
    {
        Gather(aoi.GetRowPointer(y), columns, columns.Count(), out, [](const KvColor& c) { return c; });
    }
};

class OverlaidRows : public PixelRows
{
public:
    OverlaidRows(std::unique_ptr<PixelRows> image_, const Blend& blend)
        : image(std::move(image_)), overlay(RowsOf(*blend.overlay)), area(blend.overlay->AOISize()), mask(blend.mask)
    {
        if (mask)
            area = {std::min(area.width, mask->AOIWidth()), std::min(area.height, mask->AOIHeight())};
        const double strength = blend.strength > 0.0f ? std::min(blend.strength, 1.0f) : 0.0;
        for (int difference = -255; difference <= 255; ++difference)
            steps[static_cast<size_t>(difference + 255)] = static_cast<int>(std::floor(strength * difference + 0.5));
    }

    void Colors(int y, const Columns& columns, KvColor* out) const override
    {
        image->Colors(y, columns, out);
        const auto& index = columns.index;
        const int count = static_cast<int>(std::lower_bound(index.begin(), index.end(), area.width) - index.begin());
        if (!overlay || y >= area.height || count == 0)
            return;
        colors.resize(index.size());
        covered.resize(index.size());
        overlay->Colors(y, LimitedTo(columns, count), colors.data());
        overlay->Coverage(y, columns, count, covered.data());
        const unsigned char* selected = mask ? mask->GetRowPointer(y) : nullptr;
        for (int i = 0; i < count; ++i)
        {
            const auto at = static_cast<size_t>(i);
            if (covered[at] && (!selected || selected[index[at]]))
                Mix(out[i], colors[at]);
        }
    }

    void Coverage(int y, const Columns& columns, int count, unsigned char* out) const override
    {
        image->Coverage(y, columns, count, out);
    }

private:
    const Columns& LimitedTo(const Columns& columns, int count) const
    {
        if (count == columns.Count())
            return columns;
        limited.index.assign(columns.index.begin(), columns.index.begin() + count);
        return limited;
    }

    void Mix(KvColor& pixel, const KvColor& over) const
    {
        const auto mixed = [this](unsigned char from, unsigned char to)
        { return static_cast<unsigned char>(from + steps[static_cast<size_t>(to - from + 255)]); };
        pixel.blue = mixed(pixel.blue, over.blue);
        pixel.green = mixed(pixel.green, over.green);
        pixel.red = mixed(pixel.red, over.red);
    }

    std::unique_ptr<PixelRows> image;
    std::unique_ptr<PixelRows> overlay;
    KvTSize<short> area;
    const KvAOI8* mask;
    std::array<int, 511> steps; // strength * difference, rounded, by difference + 255
    mutable std::vector<KvColor> colors;
    mutable std::vector<unsigned char> covered;
    mutable Columns limited;
};

} // namespace

std::unique_ptr<PixelRows> RowsOf(const KvAOI& aoi)
{
    if (const auto* grey = dynamic_cast<const KvAOI8*>(&aoi))
        return std::make_unique<IndexedRows>(*grey);
    if (const auto* real = dynamic_cast<const KvAOI32Float*>(&aoi))
        return std::make_unique<FloatRows>(*real);
    if (const auto* color = dynamic_cast<const KvAOI32Color*>(&aoi))
        return std::make_unique<ColorRows>(*color);
    return nullptr;
}

std::unique_ptr<PixelRows> BlendedRows(std::unique_ptr<PixelRows> image, const Blend& blend)
{
    if (!image || !blend.overlay)
        return image;
    return std::make_unique<OverlaidRows>(std::move(image), blend);
}

} // namespace KvN::show
