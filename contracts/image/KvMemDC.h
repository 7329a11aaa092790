// An off-screen context with a bitmap of its own.
#pragma once

#include "contracts/basics/KvRectangle.h"
#include "platform/afx/dc.h"

namespace KvN
{

// One logical unit is one pixel of the bitmap. If context or bitmap can't be made, drawing fails as on a context
// without.
class KvMemDC : public CDC
{
public:
    // A bitmap of the kind that `reference` shows, `width` by `height` pixels, all black.
    KvMemDC(CDC* reference, int width, int height);
    ~KvMemDC() override;

    // Copies an area to the same logical coordinates of `target`.
    void Paint(CDC* target, KvTRectangle<short>& area);

private:
    CBitmap bitmap;
    HGDIOBJ former = nullptr;
};

} // namespace KvN
