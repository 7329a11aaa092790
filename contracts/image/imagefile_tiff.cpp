// TIFF by libtiff: one channel of 1 to 64 bits by its values, everything with colours through libtiff's own conversion.
#include "contracts/image/imagefile_p.h"
#include "resources/resource.h"

#include <tiffio.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>

namespace KvN::imagefile
{

namespace
{

// A file in memory, as libtiff's callbacks see it. Reading uses `in`, writing grows `out`.
struct Stream
{
    Bytes in;
    std::vector<unsigned char> out;
    std::uint64_t at = 0;
    bool cutOff = false; // somebody wanted bytes behind the end
    std::string trouble; // the first error

    std::uint64_t End() const { return in.empty() ? out.size() : in.size(); }
};

Stream& StreamOf(thandle_t handle)
{
    return *static_cast<Stream*>(handle);
}

tmsize_t OnRead(thandle_t handle, void* to, tmsize_t count)
{
    Stream& stream = StreamOf(handle);
    const unsigned char* bytes = stream.in.empty() ? stream.out.data() : stream.in.data();
    const std::uint64_t rest = stream.at < stream.End() ? stream.End() - stream.at : 0;
    const auto got = std::min<std::uint64_t>(rest, static_cast<std::uint64_t>(count));
    stream.cutOff = stream.cutOff || got < static_cast<std::uint64_t>(count);
    if (got > 0)
        std::memcpy(to, bytes + stream.at, got);
    stream.at += got;
    return static_cast<tmsize_t>(got);
}

tmsize_t OnWrite(thandle_t handle, void* from, tmsize_t count)
try
{
    Stream& stream = StreamOf(handle);
    const auto size = static_cast<size_t>(count);
    if (stream.at + size > stream.out.size())
        stream.out.resize(stream.at + size);
    std::memcpy(stream.out.data() + stream.at, from, size);
    stream.at += size;
    return count;
}
catch (const std::bad_alloc&)
{
    return -1;
}

toff_t OnSeek(thandle_t handle, toff_t offset, int whence)
{
    Stream& stream = StreamOf(handle);
    stream.at = whence == SEEK_SET ? offset : (whence == SEEK_CUR ? stream.at : stream.End()) + offset;
    return stream.at;
}

int OnClose(thandle_t)
{
    return 0;
}
toff_t OnSize(thandle_t handle)
{
    return StreamOf(handle).End();
}
int OnMap(thandle_t, void**, toff_t*)
{
    return 0;
}
void OnUnmap(thandle_t, void*, toff_t) {}

int OnError(TIFF*, void* user, const char*, const char* format, va_list arguments)
{
    auto* stream = static_cast<Stream*>(user);
    char text[160];
    std::vsnprintf(text, sizeof text, format, arguments);
    if (stream->trouble.empty())
        stream->trouble = text;
    return 1;
}

int OnWarning(TIFF*, void*, const char*, const char*, va_list)
{
    return 1;
}

struct CloseTiff
{
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};
using TiffHandle = std::unique_ptr<TIFF, CloseTiff>;

TiffHandle Open(Stream& stream, const char* mode, std::uint64_t memoryLimit)
{
    const std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)> options(TIFFOpenOptionsAlloc(),
                                                                                   &TIFFOpenOptionsFree);
    if (!options)
        throw std::bad_alloc();
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), OnError, &stream);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), OnWarning, nullptr);
    TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(),
                                        static_cast<tmsize_t>(std::min<std::uint64_t>(memoryLimit, INT64_MAX)));
    return TiffHandle(TIFFClientOpenExt("image", mode, &stream, OnRead, OnWrite, OnSeek, OnClose, OnSize, OnMap,
                                        OnUnmap, options.get()));
}

class Reader
{
public:
    Reader(Bytes file, const Limits& limits_) : limits(limits_)
    {
        stream.in = file;
        tiff = Open(stream, "r", limits.bytes);
        Check(tiff != nullptr);
    }

    Size ReadHeader()
    {
        Size size;
        TIFFGetField(tiff.get(), TIFFTAG_IMAGEWIDTH, &size.width);
        TIFFGetField(tiff.get(), TIFFTAG_IMAGELENGTH, &size.height);
        TIFFGetFieldDefaulted(tiff.get(), TIFFTAG_BITSPERSAMPLE, &depth);
        TIFFGetFieldDefaulted(tiff.get(), TIFFTAG_SAMPLESPERPIXEL, &samples);
        TIFFGetFieldDefaulted(tiff.get(), TIFFTAG_SAMPLEFORMAT, &format);
        TIFFGetFieldDefaulted(tiff.get(), TIFFTAG_PLANARCONFIG, &planes);
        if (!TIFFGetField(tiff.get(), TIFFTAG_PHOTOMETRIC, &photometric))
            photometric = samples >= 3 ? PHOTOMETRIC_RGB : PHOTOMETRIC_MINISBLACK;
        return size;
    }

    Pixels ReadPixels(const Size& size)
    {
        if (photometric != PHOTOMETRIC_MINISBLACK && photometric != PHOTOMETRIC_MINISWHITE)
            return ReadColors(size);
        if (depth <= 8 && format != SAMPLEFORMAT_IEEEFP)
            return ReadGrey(size);
        return ReadValues(size);
    }

    // The pixels may be there while the end of the file's directory isn't.
    void CheckWhole() const
    {
        if (stream.cutOff)
            throw Reason(IDS_IMAGE_CUT_OFF);
    }

private:
    void Check(bool done) const
    {
        if (!done)
            throw stream.cutOff ? Reason(IDS_IMAGE_CUT_OFF) : Reason(IDS_IMAGE_DAMAGED, stream.trouble);
    }

    // However well a strip is packed, a file too small for its size needs no memory to be refused.
    void CheckSize(const Size& size, size_t bytesPerPixel) const
    {
        limits.Check(size, bytesPerPixel);
        const std::uint64_t bits = std::uint64_t(size.width) * size.height * depth;
        if (bits / 8 / 5000 > stream.in.size())
            throw Reason(IDS_IMAGE_CUT_OFF);
    }

    KvTBuf2D<KvColor> ReadColors(const Size& size)
    {
        CheckSize(size, sizeof(KvColor));
        char message[1024] = {};
        if (!TIFFRGBAImageOK(tiff.get(), message))
            throw Reason(IDS_IMAGE_UNSUPPORTED, message);
        KvTBuf2D<KvColor> pixels(static_cast<int>(size.width), static_cast<int>(size.height));
        // Asked for the orientation that it has, libtiff leaves the rows in their stored order.
        std::uint16_t orientation = ORIENTATION_TOPLEFT;
        TIFFGetFieldDefaulted(tiff.get(), TIFFTAG_ORIENTATION, &orientation);
        Check(TIFFReadRGBAImageOriented(tiff.get(), size.width, size.height,
                                        reinterpret_cast<std::uint32_t*>(pixels.data), orientation, 1));
        for (size_t i = 0; i < pixels.Count(); ++i)
        {
            std::swap(pixels.data[i].red, pixels.data[i].blue);
            pixels.data[i].unused = 0;
        }
        return pixels;
    }

    // Grey of 1, 2, 4 and 8 bits, spread to the full range.
    KvTBuf2D<unsigned char> ReadGrey(const Size& size)
    {
        if (depth != 1 && depth != 2 && depth != 4 && depth != 8)
            Unsupported();
        CheckSize(size, 1);
        const unsigned top = (1u << depth) - 1;
        const unsigned invert = photometric == PHOTOMETRIC_MINISWHITE ? top : 0;
        return ReadSamples<unsigned char>(size,
                                          [=, this](const unsigned char* row, size_t sample)
                                          {
                                              const size_t bit = sample * depth;
                                              const unsigned value = row[bit / 8] >> (8 - depth - bit % 8) & top;
                                              return static_cast<unsigned char>((value ^ invert) * 255 / top);
                                          });
    }

    // Everything deeper, whole or floating, as a float.
    KvTBuf2D<float> ReadValues(const Size& size)
    {
        CheckSize(size, sizeof(float));
        if (format == SAMPLEFORMAT_IEEEFP && depth == 32)
            return ReadNumbers<float>(size);
        if (format == SAMPLEFORMAT_IEEEFP && depth == 64)
            return ReadNumbers<double>(size);
        if (format == SAMPLEFORMAT_INT && depth == 16)
            return ReadNumbers<std::int16_t>(size);
        if (format == SAMPLEFORMAT_INT && depth == 32)
            return ReadNumbers<std::int32_t>(size);
        if (format == SAMPLEFORMAT_UINT && depth == 16)
            return ReadNumbers<std::uint16_t>(size);
        if (format == SAMPLEFORMAT_UINT && depth == 32)
            return ReadNumbers<std::uint32_t>(size);
        Unsupported();
    }

    template <class Number>
    KvTBuf2D<float> ReadNumbers(const Size& size)
    {
        return ReadSamples<float>(size,
                                  [](const unsigned char* row, size_t sample)
                                  {
                                      Number number;
                                      std::memcpy(&number, row + sample * sizeof number, sizeof number);
                                      return static_cast<float>(number);
                                  });
    }

    // Reads the first sample of every pixel, from strips or tiles. `value(row, n)` takes sample n out of a row.
    template <class T, class Value>
    KvTBuf2D<T> ReadSamples(const Size& size, Value value)
    {
        KvTBuf2D<T> pixels(static_cast<int>(size.width), static_cast<int>(size.height));
        const size_t step = planes == PLANARCONFIG_CONTIG ? std::max<size_t>(samples, 1) : 1;
        const Size block = BlockSize(size);
        const size_t stride = TIFFIsTiled(tiff.get()) ? static_cast<size_t>(TIFFTileRowSize64(tiff.get()))
                                                      : static_cast<size_t>(TIFFScanlineSize64(tiff.get()));
        if (stride < (size_t(block.width) * step * depth + 7) / 8)
            Unsupported();
        std::vector<unsigned char> bytes(BlockBytes());
        for (std::uint32_t top = 0; top < size.height; top += block.height)
        {
            for (std::uint32_t left = 0; left < size.width; left += block.width)
            {
                const std::uint32_t rows = std::min(block.height, size.height - top);
                const std::uint32_t columns = std::min(block.width, size.width - left);
                ReadBlock(left, top, bytes, stride * rows);
                for (std::uint32_t y = 0; y < rows; ++y)
                {
                    T* out = pixels.Row(static_cast<int>(top + y)) + left;
                    for (std::uint32_t x = 0; x < columns; ++x)
                        out[x] = value(bytes.data() + stride * y, x * step);
                }
            }
        }
        return pixels;
    }

    Size BlockSize(const Size& size) const
    {
        Size block{size.width, size.height};
        if (TIFFIsTiled(tiff.get()))
        {
            TIFFGetField(tiff.get(), TIFFTAG_TILEWIDTH, &block.width);
            TIFFGetField(tiff.get(), TIFFTAG_TILELENGTH, &block.height);
        }
        else
            TIFFGetFieldDefaulted(tiff.get(), TIFFTAG_ROWSPERSTRIP, &block.height);
        block.height = TIFFIsTiled(tiff.get()) ? block.height : std::min(block.height, size.height);
        if (block.width == 0 || block.height == 0)
            Unsupported();
        return block;
    }

    size_t BlockBytes() const
    {
        const std::uint64_t size = TIFFIsTiled(tiff.get()) ? TIFFTileSize64(tiff.get()) : TIFFStripSize64(tiff.get());
        Check(size > 0);
        // A packed block could still be anything; a file that claims more than the machine has is refused as such.
        if (size > limits.bytes || size / 5000 > stream.in.size())
            throw Reason(IDS_IMAGE_CUT_OFF);
        return static_cast<size_t>(size);
    }

    // At least `wanted` bytes from the block's start are good afterwards.
    void ReadBlock(std::uint32_t left, std::uint32_t top, std::vector<unsigned char>& bytes, size_t wanted)
    {
        if (wanted > bytes.size())
            Unsupported();
        const auto size = static_cast<tmsize_t>(bytes.size());
        const tmsize_t got =
            TIFFIsTiled(tiff.get())
                ? TIFFReadEncodedTile(tiff.get(), TIFFComputeTile(tiff.get(), left, top, 0, 0), bytes.data(), size)
                : TIFFReadEncodedStrip(tiff.get(), TIFFComputeStrip(tiff.get(), top, 0), bytes.data(), size);
        Check(got >= 0 && static_cast<size_t>(got) >= wanted);
    }

    [[noreturn]] void Unsupported() const
    {
        throw Reason(IDS_IMAGE_UNSUPPORTED,
                     "TIFF, " + std::to_string(depth) + " bit, format " + std::to_string(format));
    }

    const Limits& limits;
    Stream stream;
    TiffHandle tiff;
    std::uint16_t depth = 1;
    std::uint16_t samples = 1;
    std::uint16_t format = SAMPLEFORMAT_UINT;
    std::uint16_t planes = PLANARCONFIG_CONTIG;
    std::uint16_t photometric = PHOTOMETRIC_MINISBLACK;
};

// One row as it is stored.
const void* StoredRow(const unsigned char* row, int, std::vector<unsigned char>&)
{
    return row;
}
const void* StoredRow(const float* row, int, std::vector<unsigned char>&)
{
    return row;
}
const void* StoredRow(const KvColor* row, int width, std::vector<unsigned char>& buffer)
{
    buffer.resize(3 * static_cast<size_t>(width));
    unsigned char* out = buffer.data();
    for (int x = 0; x < width; ++x)
    {
        *out++ = row[x].red;
        *out++ = row[x].green;
        *out++ = row[x].blue;
    }
    return buffer.data();
}

template <class T>
void Describe(TIFF* tiff, const View<T>& pixels)
{
    constexpr bool color = std::is_same_v<T, KvColor>;
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(pixels.width));
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(pixels.height));
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, std::is_same_v<T, float> ? 32 : 8);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, color ? 3 : 1);
    TIFFSetField(tiff, TIFFTAG_SAMPLEFORMAT, std::is_same_v<T, float> ? SAMPLEFORMAT_IEEEFP : SAMPLEFORMAT_UINT);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, color ? PHOTOMETRIC_RGB : PHOTOMETRIC_MINISBLACK);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_LZW);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, TIFFDefaultStripSize(tiff, 0));
}

template <class T>
void Write(const View<T>& pixels, Sink& sink)
{
    Stream stream;
    // The classic form ends at 4 GB.
    const std::uint64_t size = std::uint64_t(pixels.width) * static_cast<std::uint64_t>(pixels.height) * sizeof(T);
    TiffHandle tiff = Open(stream, size > 0xC0000000u ? "w8" : "w", INT64_MAX);
    bool done = tiff != nullptr;
    std::vector<unsigned char> buffer;
    if (done)
        Describe(tiff.get(), pixels);
    for (int y = 0; done && y < pixels.height; ++y)
        done = TIFFWriteScanline(tiff.get(), const_cast<void*>(StoredRow(pixels.Row(y), pixels.width, buffer)),
                                 static_cast<std::uint32_t>(y)) > 0;
    done = done && TIFFFlush(tiff.get());
    tiff.reset();
    if (!done)
        throw Reason(IDS_IMAGE_NOT_WRITTEN, stream.trouble);
    sink.Write(stream.out.data(), stream.out.size());
}

} // namespace

Size SizeOfTiff(Bytes file)
{
    const Limits limits = Limits::OfMachine();
    return Reader(file, limits).ReadHeader();
}

Pixels DecodeTiff(Bytes file, const Limits& limits)
{
    Reader reader(file, limits);
    const Size size = reader.ReadHeader();
    Pixels pixels = reader.ReadPixels(size);
    reader.CheckWhole();
    return pixels;
}

void EncodeTiff(const PixelView& pixels, Sink& sink)
{
    std::visit([&](const auto& view) { Write(view, sink); }, pixels);
}

} // namespace KvN::imagefile
