// Decoding and encoding of image files, from and into memory. Private to the image contract, its tests and fuzz
// targets.
#pragma once

#include "contracts/basics/KvBuffers.h"
#include "contracts/basics/KvString.h"
#include "contracts/image/KvColor.h"
#include "contracts/image/KvDevice.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace KvN::imagefile
{

using Bytes = std::span<const unsigned char>;

// What a file holds, in the form that keeps its values.
using Pixels = std::variant<KvTBuf2D<unsigned char>, KvTBuf2D<float>, KvTBuf2D<KvColor>>;

struct Size
{
    std::uint32_t width = 0;
    std::uint32_t height = 0;
};

// Why a file can't be used; thrown by value. See KvImageException, which it becomes further up.
struct Fault
{
    unsigned short reason;
    std::string detail;
    Size size;
};

inline Fault Reason(unsigned short id, const std::string& detail = {})
{
    return {id, detail, {}};
}

// Bounds of what is decoded, so that a small file can't ask for any amount of memory.
struct Limits
{
    std::uint64_t bytes; // of decoded pixels

    // The machine's memory.
    static Limits OfMachine();
    // Throws a Fault for a size that is 0, beyond 32767 or, with pixels of that many bytes, beyond the limit.
    void Check(const Size& size, std::size_t bytesPerPixel) const;
};

// One pair for each format: the size by the header alone, and everything. Both throw Fault, decoding std::bad_alloc
// too.
Size SizeOfPng(Bytes file);
Size SizeOfBmp(Bytes file);
Size SizeOfJpeg(Bytes file);
Size SizeOfTiff(Bytes file);
Pixels DecodePng(Bytes file, const Limits& limits);
Pixels DecodeBmp(Bytes file, const Limits& limits);
Pixels DecodeJpeg(Bytes file, const Limits& limits);
Pixels DecodeTiff(Bytes file, const Limits& limits);

// Pixels to be written; rows are `width` pixels apart.
template <class T>
struct View
{
    const T* data;
    int width;
    int height;

    const T* Row(int y) const { return data + static_cast<std::size_t>(y) * static_cast<std::size_t>(width); }
};
using PixelView = std::variant<View<unsigned char>, View<float>, View<KvColor>>;

// Takes the bytes of a file in their order; false once that failed.
class Sink
{
public:
    virtual ~Sink() = default;
    virtual bool Write(const void* data, std::size_t size) = 0;
};

// Each throws Fault if the format can't hold the pixels or the encoder fails; a failing sink just ends the work.
void EncodePng(const PixelView& pixels, Sink& sink);
void EncodeBmp(const PixelView& pixels, Sink& sink);
void EncodeJpeg(const PixelView& pixels, Sink& sink);
void EncodeTiff(const PixelView& pixels, Sink& sink);

// A file's pixels for an AOI of that pixel type. Throws KvException, naming the file.
template <class T>
KvTBuf2D<T> LoadPixels(const KvString& file);

} // namespace KvN::imagefile
