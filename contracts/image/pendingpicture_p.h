// A picture that a memory context owes its bitmap: AOI pixels are computed where somebody draws or reads, and go
// straight to the screen where nobody does. Private to the image contract.
#pragma once

#include "contracts/image/KvDevice.h"
#include "contracts/image/mappedspan_p.h"
#include "platform/gdi/surface.h"

#include <memory>
#include <vector>

class CDC;

namespace KvN::show
{

// Which tiles of a bitmap have ever been written, by row and column, and their pixels.
struct TouchedTiles
{
    std::vector<std::vector<bool>> rows;
    std::int64_t pixels = 0;
};

class PendingPicture : public kv::gdi::PendingPixels, private KvDeviceReader
{
public:
    // Stands for the pixels of `box`, which lies inside the 32-bit bitmap of `memory`: its pixel (x, y) shows pixel
    // (x, y) + `shift` of the rows, black without rows. Whoever makes it sets it as the bitmap's pending pixels.
    PendingPicture(const kv::gdi::Surface& memory, const RECT& box, std::unique_ptr<PixelRows> rows, POINT shift);
    PendingPicture(const PendingPicture&) = delete;
    PendingPicture& operator=(const PendingPicture&) = delete;
    ~PendingPicture() override;

    // Before these pixels change, all that is missing is written. Null for none.
    void Follow(KvDevice* device);

    const RECT& Box() const { return box; }
    // Tiles that are written are noted there.
    void NoteIn(TouchedTiles& tiles) { touched = &tiles; }
    void write(const RECT& part) override;
    kv::gdi::DrawnSpans* spansOver(const RECT& part) override;
    void WriteAll() { write(box); }
    bool IsUntouched() const { return untouched && !drawn; }

    // Of an untouched picture: each pixel (x, y) of `valid` is combined with pixel (x, y) + `toSource` of a 32-bit
    // surface, which must not change from now on, by AND or else by OR.
    void Combine(const kv::gdi::Surface& source, const RECT& valid, POINT toSource, bool byAnd);

    // The pixels of the bitmap on a 32-bit surface, missing ones or not.
    void Copy(const kv::gdi::Surface& target, const Axis& across, const Axis& down) const;

private:
    // Tiles are missing or written as a whole.
    static constexpr int tileWidth = 32;
    static constexpr int tileHeight = 8;

    void BeforeChange(KvDevice& device) override;
    void WriteMissing(const RECT& part);
    void WriteTiles(int tileY, int from, int to);
    void WriteDrawn(int top, int bottom);
    void Compute(int y, const Columns& columns, KvColor* out) const;
    void Note(int tileY, int from, int to);
    bool IsMissing(int tileX, int tileY) const
    {
        const std::vector<bool>& row = written[static_cast<size_t>(tileY)];
        return row.empty() || !row[static_cast<size_t>(tileX)];
    }
    const KvColor* BitmapRow(int y) const { return reinterpret_cast<const KvColor*>(memory.row(y)); }

    kv::gdi::Surface memory;
    RECT box;
    std::unique_ptr<PixelRows> rows;
    POINT shift;
    int tilesAcross;
    std::vector<std::vector<bool>> written; // by row of tiles and tile; empty where a row is missing altogether
    bool untouched = true;
    std::unique_ptr<kv::gdi::DrawnSpans> drawn; // over the pixels of both kinds; null: nothing
    TouchedTiles* touched = nullptr;
    std::vector<KvDevice*> devices;
};

} // namespace KvN::show
