// Writing of missing pixels, and the copy to the screen that needs none of them in memory.
#include "contracts/image/pendingpicture_p.h"

#include "platform/gdi/raster/rect.h"

#include <numeric>

namespace KvN::show
{

namespace
{

// Part of a row of wanted columns, as positions in their list.
struct Run
{
    int from, to;
};

// The positions of the columns from `left` up to `right`.
Run RunOf(const std::vector<int>& columns, int left, int right)
{
    const auto from = std::lower_bound(columns.begin(), columns.end(), left);
    const auto to = std::lower_bound(from, columns.end(), right);
    return {static_cast<int>(from - columns.begin()), static_cast<int>(to - columns.begin())};
}

void AppendRun(std::vector<Run>& runs, const Run& run)
{
    if (run.from == run.to)
        return;
    if (!runs.empty() && runs.back().to == run.from)
        runs.back().to = run.to;
    else
        runs.push_back(run);
}

// Drawn spans on those columns that a copy wants.
class SpansOnColumns
{
public:
    // Of spans between `left` and `right`; null for none. Columns ascend, with repetitions.
    SpansOnColumns(const kv::gdi::DrawnSpans* spans_, const std::vector<int>& columns, int left_, int right)
        : spans(spans_), left(left_)
    {
        if (!spans)
            return;
        auto column = columns.begin();
        for (int x = left; x <= right; ++x)
        {
            column = std::find_if(column, columns.end(), [x](int wanted) { return wanted >= x; });
            firstAt.push_back(static_cast<int>(column - columns.begin()));
        }
    }

    void Draw(int y, KvColor* out) const
    {
        if (!spans)
            return;
        auto* values = reinterpret_cast<std::uint32_t*>(out);
        spans->visitRow(y, [&](int from, int to, std::uint32_t value)
                        { std::fill(values + Position(from), values + Position(to), value); });
    }

private:
    int Position(int x) const { return firstAt[static_cast<size_t>(x - left)]; }

    const kv::gdi::DrawnSpans* spans;
    int left;
    std::vector<int> firstAt; // by bitmap column from `left`: the position of the first wanted one there or beyond
};

// The rows of a picture, black without one, combined with a surface.
class CombinedRows : public PixelRows
{
public:
    // A pixel of `valid`, in the picture's coordinates, meets the surface's pixel at its place plus `toSurface`.
    CombinedRows(std::unique_ptr<PixelRows> picture_, const kv::gdi::Surface& surface_, const RECT& valid_,
                 POINT toSurface_, bool byAnd_)
        : picture(std::move(picture_)), surface(surface_), valid(valid_), toSurface(toSurface_), byAnd(byAnd_)
    {
    }

    void Colors(int y, const Columns& columns, KvColor* out) const override
    {
        if (picture)
            picture->Colors(y, columns, out);
        else
            std::fill_n(out, columns.Count(), KvColor());
        if (y < valid.top || y >= valid.bottom)
            return;
        const auto* row = reinterpret_cast<const std::uint32_t*>(surface.row(y + toSurface.y)) + toSurface.x;
        const Run run = RunOf(columns.index, valid.left, valid.right);
        auto* values = reinterpret_cast<std::uint32_t*>(out);
        const auto combine = [&](auto sourceOf)
        {
            if (byAnd)
                for (int i = run.from; i < run.to; ++i)
                    values[i] &= sourceOf(i);
            else
                for (int i = run.from; i < run.to; ++i)
                    values[i] |= sourceOf(i);
        };
        if (columns.IsRun())
            combine([in = row + columns.index.front()](int i) { return in[i]; });
        else
            combine([row, index = columns.index.data()](int i) { return row[index[i]]; });
    }

    void Coverage(int y, const Columns& columns, int count, unsigned char* out) const override
    {
        if (picture)
            picture->Coverage(y, columns, count, out);
        else
            std::fill_n(out, count, static_cast<unsigned char>(0));
    }

private:
    std::unique_ptr<PixelRows> picture;
    kv::gdi::Surface surface;
    RECT valid;
    POINT toSurface;
    bool byAnd;
};

} // namespace

PendingPicture::PendingPicture(const kv::gdi::Surface& memory_, const RECT& box_, std::unique_ptr<PixelRows> rows_,
                               POINT shift_)
    : memory(memory_), box(box_), rows(std::move(rows_)), shift(shift_),
      tilesAcross((box.right - box.left + tileWidth - 1) / tileWidth),
      written(static_cast<size_t>((box.bottom - box.top + tileHeight - 1) / tileHeight))
{
}

PendingPicture::~PendingPicture()
{
    for (KvDevice* device : devices)
        device->RemoveReader(*this);
}

void PendingPicture::Follow(KvDevice* device)
{
    if (!device)
        return;
    device->AddReader(*this);
    devices.push_back(device);
}

void PendingPicture::Combine(const kv::gdi::Surface& source, const RECT& valid, POINT toSource, bool byAnd)
{
    const RECT inRows{valid.left + shift.x, valid.top + shift.y, valid.right + shift.x, valid.bottom + shift.y};
    const POINT fromRows{toSource.x - shift.x, toSource.y - shift.y};
    rows = std::make_unique<CombinedRows>(std::move(rows), source, inRows, fromRows, byAnd);
}

void PendingPicture::BeforeChange(KvDevice& device)
{
    device.RemoveReader(*this);
    std::erase(devices, &device);
    WriteAll();
}

void PendingPicture::write(const RECT& part)
{
    const RECT wanted = kv::raster::common(part, box);
    if (kv::raster::isEmpty(wanted))
        return;
    WriteDrawn(wanted.top, wanted.bottom);
    WriteMissing(wanted);
}

kv::gdi::DrawnSpans* PendingPicture::spansOver(const RECT& part)
{
    if (!kv::raster::contains(box, part))
        return nullptr;
    const auto makeRoom = [this]
    {
        WriteDrawn(box.top, box.bottom);
        drawn->forgetAll();
    };
    if (!drawn)
        drawn = std::make_unique<kv::gdi::DrawnSpans>(memory.height, makeRoom);
    return drawn.get();
}

// Whole rows, since those of a span must not be drawn before those below it.
void PendingPicture::WriteDrawn(int top, int bottom)
{
    if (!drawn)
        return;
    for (int y = top; y < bottom; ++y)
    {
        auto* row = reinterpret_cast<std::uint32_t*>(memory.row(y));
        drawn->visitRow(y,
                        [&](int from, int to, std::uint32_t value)
                        {
                            WriteMissing({from, y, to, y + 1});
                            std::fill(row + from, row + to, value);
                        });
        drawn->forgetRow(y);
    }
}

// Of a part that is not empty and lies inside the box.
void PendingPicture::WriteMissing(const RECT& wanted)
{
    const int left = (wanted.left - box.left) / tileWidth;
    const int right = (wanted.right - 1 - box.left) / tileWidth + 1;
    const int bottom = (wanted.bottom - 1 - box.top) / tileHeight + 1;
    for (int tileY = (wanted.top - box.top) / tileHeight; tileY < bottom; ++tileY)
    {
        for (int from = left; from < right; ++from)
        {
            int to = from;
            while (to < right && IsMissing(to, tileY))
                ++to;
            if (to > from)
                WriteTiles(tileY, from, to);
            from = to;
        }
    }
}

void PendingPicture::WriteTiles(int tileY, int from, int to)
{
    untouched = false;
    std::vector<bool>& tiles = written[static_cast<size_t>(tileY)];
    tiles.resize(static_cast<size_t>(tilesAcross));
    std::fill(tiles.begin() + from, tiles.begin() + to, true);
    const int left = box.left + from * tileWidth;
    const int right = std::min<int>(box.left + to * tileWidth, box.right);
    const int top = box.top + tileY * tileHeight;
    const int bottom = std::min<int>(top + tileHeight, box.bottom);
    if (touched)
        Note(tileY, from, to);
    Columns columns;
    columns.index.resize(static_cast<size_t>(right - left));
    std::iota(columns.index.begin(), columns.index.end(), left + shift.x);
    for (int y = top; y < bottom; ++y)
        Compute(y, columns, reinterpret_cast<KvColor*>(memory.row(y)) + left);
}

// Colours of a bitmap row at columns of the rows behind the picture.
void PendingPicture::Compute(int y, const Columns& columns, KvColor* out) const
{
    if (rows)
        rows->Colors(y + shift.y, columns, out);
    else
        std::fill_n(out, columns.Count(), KvColor());
}

void PendingPicture::Note(int tileY, int from, int to)
{
    const auto y = static_cast<size_t>(tileY);
    if (touched->rows.size() <= y)
        touched->rows.resize(written.size());
    std::vector<bool>& tiles = touched->rows[y];
    if (tiles.size() < static_cast<size_t>(to))
        tiles.resize(static_cast<size_t>(tilesAcross));
    for (auto x = static_cast<size_t>(from); x < static_cast<size_t>(to); ++x)
    {
        if (!tiles[x])
            touched->pixels += tileWidth * tileHeight;
        tiles[x] = true;
    }
}

void PendingPicture::Copy(const kv::gdi::Surface& target, const Axis& across, const Axis& down) const
{
    for (const RECT& clip : target.clip)
    {
        const MappedSpan columns = MappedColumns(across, clip.left, clip.right);
        const std::vector<int>& index = columns.source.index;
        const Run inside = RunOf(index, box.left, box.right);
        Columns shifted;
        for (int i = inside.from; i < inside.to; ++i)
            shifted.index.push_back(index[static_cast<size_t>(i)] + shift.x);
        const bool straight = columns.source.IsRun();
        const SpansOnColumns over(drawn.get(), index, box.left, box.right);
        const auto copyRun = [&](const KvColor* row, const Run& run, KvColor* out)
        {
            if (straight)
                std::copy_n(row + index.front() + run.from, run.to - run.from, out + run.from);
            else
                for (int i = run.from; i < run.to; ++i)
                    out[i] = row[index[static_cast<size_t>(i)]];
        };
        const Run all{0, columns.source.Count()};

        const bool any = inside.from < inside.to;
        const int firstTile = any ? (index[static_cast<size_t>(inside.from)] - box.left) / tileWidth : 0;
        const int lastTile = any ? (index[static_cast<size_t>(inside.to) - 1] - box.left) / tileWidth : -1;

        // What is in the bitmap, in the rows of one tile.
        std::vector<Run> present;
        int presentOf = -1;
        const auto findPresent = [&](int tileY)
        {
            if (tileY == presentOf)
                return;
            presentOf = tileY;
            present.clear();
            AppendRun(present, {0, inside.from});
            for (int tileX = firstTile; tileX <= lastTile; ++tileX)
            {
                const int left = box.left + tileX * tileWidth;
                if (!IsMissing(tileX, tileY))
                    AppendRun(present, RunOf(index, left, std::min<int>(left + tileWidth, box.right)));
            }
            AppendRun(present, {inside.to, all.to});
        };

        WriteRows<KvColor>(target, columns, MappedRows(down, clip.top, clip.bottom),
                           [&](int y, KvColor* out)
                           {
                               if (y < box.top || y >= box.bottom || !any)
                               {
                                   copyRun(BitmapRow(y), all, out);
                                   return;
                               }
                               findPresent((y - box.top) / tileHeight);
                               const bool whole =
                                   present.size() == 1 && present.front().from == 0 && present.front().to == all.to;
                               if (!whole)
                                   Compute(y, shifted, out + inside.from);
                               for (const Run& run : present)
                                   copyRun(BitmapRow(y), run, out);
                               over.Draw(y, out);
                           });
    }
}

} // namespace KvN::show
