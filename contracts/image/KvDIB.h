// A device-independent bitmap: header, colour table and pixels in memory.
#pragma once

#include "contracts/basics/KvBuffers.h"
#include "contracts/basics/KvRectangle.h"
#include "contracts/image/KvLut.h"

#include <memory>
#include <vector>

class CDC;

namespace KvN
{

// Empty at first. Rows are padded to four bytes.
class KvDIB
{
public:
    virtual ~KvDIB() = default;

    // 8 bits with the table as colours, bottom row first; a null table stands for "Grey". False for an empty buffer.
    virtual bool Create(const KvTBuf2D<unsigned char>& pixels, const KvOLut* lut);
    // Copies header, colour table and pixels. False, and this bitmap as before, for a null pointer or a header that
    // isn't an uncompressed bitmap of 1, 4, 8, 24 or 32 bits.
    virtual bool CreateFromBits(const BITMAPINFO* info, const void* bits);
    // Draws an area of the bitmap, counted from its top, onto an area in logical units of the context. An empty bitmap
    // draws nothing. Failures throw KvGDIException.
    virtual void ShowStretched(const KvTRectangle<short>& source, const KvTRectangle<short>& destination, CDC* dc);

    // Null while empty. Good until the next Create.
    BITMAPINFO* GetBitmapInfoPtr() { return info.empty() ? nullptr : reinterpret_cast<BITMAPINFO*>(info.data()); }
    const BITMAPINFO* GetBitmapInfoPtr() const { return const_cast<KvDIB*>(this)->GetBitmapInfoPtr(); }
    void* GetBitsPtr() { return bits.empty() ? nullptr : bits.data(); }
    const void* GetBitsPtr() const { return const_cast<KvDIB*>(this)->GetBitsPtr(); }
    // Bytes of one stored row.
    long StorageWidth() const;
    long Width() const;
    long Height() const; // at least 0, whichever row is stored first

private:
    std::vector<RGBQUAD> info; // the header and the colours behind it
    std::vector<unsigned char> bits;
};

} // namespace KvN
