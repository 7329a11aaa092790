// BMP: uncompressed bitmaps of 1, 4, 8, 24 and 32 bits, in either row order.
#include "contracts/image/imagefile_p.h"
#include "resources/resource.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace KvN::imagefile
{

namespace
{

constexpr size_t fileHeaderSize = 14;
constexpr size_t infoHeaderSize = 40;

template <class Number>
Number At(Bytes file, size_t offset)
{
    Number number;
    if (file.size() < sizeof number || offset > file.size() - sizeof number)
        throw Reason(IDS_IMAGE_CUT_OFF);
    std::memcpy(&number, file.data() + offset, sizeof number);
    return number;
}

struct Layout
{
    Size size;
    bool topDown = false;
    unsigned depth = 0;
    size_t bits = 0; // offset of the first stored row
    size_t stride = 0;
    std::array<KvColor, 256> palette{};
    bool greyPalette = true;
};

void ReadPalette(Bytes file, size_t headerSize, Layout& layout)
{
    const size_t most = size_t(1) << layout.depth;
    const size_t used = At<std::uint32_t>(file, fileHeaderSize + 32);
    const size_t count = used > 0 ? std::min(used, most) : most;
    for (size_t i = 0; i < count; ++i)
    {
        const auto entry = At<std::array<unsigned char, 4>>(file, fileHeaderSize + headerSize + 4 * i);
        layout.palette[i] = KvColor(entry[2], entry[1], entry[0]);
        layout.greyPalette = layout.greyPalette && entry[0] == entry[1] && entry[1] == entry[2];
    }
}

// Bit fields are taken where they only spell out the usual order of 32 bits.
void CheckCompression(Bytes file, unsigned depth)
{
    const auto compression = At<std::uint32_t>(file, fileHeaderSize + 16);
    if (compression == BI_RGB)
        return;
    const size_t masks = fileHeaderSize + infoHeaderSize;
    if (compression == BI_BITFIELDS && depth == 32 && At<std::uint32_t>(file, masks) == 0x00FF0000 &&
        At<std::uint32_t>(file, masks + 4) == 0x0000FF00 && At<std::uint32_t>(file, masks + 8) == 0x000000FF)
        return;
    throw Reason(IDS_IMAGE_UNSUPPORTED, "BMP, compression " + std::to_string(compression));
}

Layout ReadLayout(Bytes file)
{
    Layout layout;
    const auto headerSize = At<std::uint32_t>(file, fileHeaderSize);
    if (headerSize < infoHeaderSize || headerSize > 1024)
        throw Reason(IDS_IMAGE_UNSUPPORTED, "BMP, header " + std::to_string(headerSize));
    const auto width = At<std::int32_t>(file, fileHeaderSize + 4), height = At<std::int32_t>(file, fileHeaderSize + 8);
    layout.topDown = height < 0;
    layout.size = {static_cast<std::uint32_t>(std::max(width, 0)),
                   layout.topDown ? 0u - static_cast<std::uint32_t>(height) : static_cast<std::uint32_t>(height)};
    layout.depth = At<std::uint16_t>(file, fileHeaderSize + 14);
    constexpr std::array<unsigned, 5> depths = {1, 4, 8, 24, 32};
    if (std::find(depths.begin(), depths.end(), layout.depth) == depths.end())
        throw Reason(IDS_IMAGE_UNSUPPORTED, "BMP, " + std::to_string(layout.depth) + " bit");
    CheckCompression(file, layout.depth);
    layout.bits = At<std::uint32_t>(file, 10);
    layout.stride = (size_t(layout.size.width) * layout.depth + 31) / 32 * 4;
    if (layout.depth <= 8)
        ReadPalette(file, headerSize, layout);
    return layout;
}

// Indices of a row of 1, 4 or 8 bits, the leftmost pixel in the highest bits.
unsigned IndexAt(const unsigned char* row, int x, unsigned depth)
{
    const size_t bit = static_cast<size_t>(x) * depth;
    return row[bit / 8] >> (8 - depth - bit % 8) & ((1u << depth) - 1);
}

KvColor ColorAt(const unsigned char* row, int x, const Layout& layout)
{
    if (layout.depth <= 8)
        return layout.palette[IndexAt(row, x, layout.depth)];
    const unsigned char* pixel = row + static_cast<size_t>(x) * layout.depth / 8;
    return {pixel[2], pixel[1], pixel[0]};
}

template <class T, class Value>
KvTBuf2D<T> ReadRows(Bytes file, const Layout& layout, Value value)
{
    KvTBuf2D<T> pixels(static_cast<int>(layout.size.width), static_cast<int>(layout.size.height));
    for (int y = 0; y < pixels.height; ++y)
    {
        const int stored = layout.topDown ? y : pixels.height - 1 - y;
        const unsigned char* row = file.data() + layout.bits + layout.stride * static_cast<size_t>(stored);
        for (int x = 0; x < pixels.width; ++x)
            pixels.Row(y)[x] = value(row, x);
    }
    return pixels;
}

void Put(std::vector<unsigned char>& out, std::uint32_t number, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        out.push_back(static_cast<unsigned char>(number >> 8 * i));
}

std::vector<unsigned char> Headers(int width, int height, unsigned depth, std::uint64_t imageSize)
{
    const std::uint32_t colors = depth == 8 ? 256 : 0;
    const auto bits = static_cast<std::uint32_t>(fileHeaderSize + infoHeaderSize + 4 * colors);
    std::vector<unsigned char> out = {'B', 'M'};
    Put(out, static_cast<std::uint32_t>(bits + imageSize), 4);
    Put(out, 0, 4);
    Put(out, bits, 4);
    Put(out, infoHeaderSize, 4);
    Put(out, static_cast<std::uint32_t>(width), 4);
    Put(out, static_cast<std::uint32_t>(height), 4);
    Put(out, 1, 2);
    Put(out, depth, 2);
    Put(out, BI_RGB, 4);
    Put(out, static_cast<std::uint32_t>(imageSize), 4);
    Put(out, 2835, 4); // 72 dots an inch
    Put(out, 2835, 4);
    Put(out, colors, 4);
    Put(out, 0, 4);
    for (std::uint32_t i = 0; i < colors; ++i)
        Put(out, i * 0x010101, 4);
    return out;
}

// `store(row, out)` writes one row without its padding.
template <class T, class Store>
void WriteRows(const View<T>& pixels, unsigned depth, Sink& sink, Store store)
{
    const size_t stride = (static_cast<size_t>(pixels.width) * depth + 31) / 32 * 4;
    const std::uint64_t imageSize = std::uint64_t(stride) * static_cast<std::uint64_t>(pixels.height);
    if (imageSize > 0xF0000000u)
        throw Reason(IDS_IMAGE_UNSUPPORTED, "BMP > 4 GB");
    const auto headers = Headers(pixels.width, pixels.height, depth, imageSize);
    if (!sink.Write(headers.data(), headers.size()))
        return;
    std::vector<unsigned char> row(stride);
    for (int y = pixels.height - 1; y >= 0; --y)
    {
        store(pixels.Row(y), row.data());
        if (!sink.Write(row.data(), row.size()))
            return;
    }
}

} // namespace

Size SizeOfBmp(Bytes file)
{
    return ReadLayout(file).size;
}

Pixels DecodeBmp(Bytes file, const Limits& limits)
{
    const Layout layout = ReadLayout(file);
    const bool grey = layout.depth <= 8 && layout.greyPalette;
    limits.Check(layout.size, grey ? 1 : sizeof(KvColor));
    if (layout.bits > file.size() || (file.size() - layout.bits) / layout.stride < layout.size.height)
        throw Reason(IDS_IMAGE_CUT_OFF);
    if (grey)
        return ReadRows<unsigned char>(file, layout,
                                       [&](const unsigned char* row, int x)
                                       { return layout.palette[IndexAt(row, x, layout.depth)].red; });
    return ReadRows<KvColor>(file, layout, [&](const unsigned char* row, int x) { return ColorAt(row, x, layout); });
}

void EncodeBmp(const PixelView& pixels, Sink& sink)
{
    if (const auto* grey = std::get_if<View<unsigned char>>(&pixels))
        WriteRows(*grey, 8, sink,
                  [&](const unsigned char* row, unsigned char* out) { std::copy_n(row, grey->width, out); });
    else if (const auto* color = std::get_if<View<KvColor>>(&pixels))
        WriteRows(*color, 24, sink,
                  [&](const KvColor* row, unsigned char* out)
                  {
                      for (int x = 0; x < color->width; ++x)
                          out = std::copy_n(&row[x].blue, 3, out);
                  });
    else
        throw Reason(IDS_IMAGE_NO_FLOATS, "BMP");
}

} // namespace KvN::imagefile
