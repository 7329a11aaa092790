// An off-screen context with a bitmap of its own.
#pragma once

#include "contracts/basics/KvRectangle.h"
#include "platform/afx/dc.h"

#include <cstdint>
#include <memory>

namespace KvN
{

namespace show
{
class PendingPicture;
struct TouchedTiles;
} // namespace show

// One logical unit is one pixel of the bitmap. If context or bitmap can't be made, drawing fails as on a context
// without.
class KvMemDC : public CDC
{
public:
    // A bitmap of the kind that `reference` shows, `width` by `height` pixels, all black.
    KvMemDC(CDC* reference, int width, int height);
    ~KvMemDC() override;

    // Whether there is a bitmap to draw on.
    bool HasBitmap() const { return former != nullptr; }
    // Whether it is what would be made anew for these arguments.
    bool Suits(const CDC& reference, int width, int height) const;
    // All black again; cheap, however large the bitmap is.
    void Clear();

    // As `BitBlt` from (0, 0) to (0, 0) with SRCAND or SRCPAINT. What is pending here takes the pixels up when it is
    // written or shown: they must not change before.
    void Combine(CDC& source, const CSize& size, DWORD rop);

    // Drawing outside `part` is dropped from now on, since only that part will be copied; AOIs that are shown here can
    // be read beyond it all the same. Logical coordinates, while one unit is one pixel.
    void LimitTo(const CRect& part);

    // Copies an area to the same logical coordinates of `target`.
    void Paint(CDC* target, KvTRectangle<short>& area);

    // An AOI that is drawn here pixel on pixel is a pending picture, until something needs its pixels in the bitmap.
    // Replaces the former one, whose missing pixels are never written. Null for none. For the drawing of AOIs.
    void SetPending(std::unique_ptr<show::PendingPicture> picture);
    std::unique_ptr<show::PendingPicture> TakePending();
    void DropPending();
    const CRect& Limit() const { return limit; }
    // About how many pixels of pending pictures have been written at one time or another: so much of the bitmap is in
    // memory.
    std::int64_t PixelsInMemory() const;
    // Whether the context draws on the bitmap that it was made with.
    bool DrawsOnOwnBitmap() const;

private:
    bool CombinePending(CDC& source, const CSize& size, DWORD rop);
    bool CopyPending(CDC& target, const KvTRectangle<short>& area);

    CBitmap bitmap;
    HGDIOBJ former = nullptr;
    CSize size;
    int depth;
    CRect limit; // empty if there is none
    std::unique_ptr<show::PendingPicture> pending;
    std::unique_ptr<show::TouchedTiles> touched;
};

} // namespace KvN
