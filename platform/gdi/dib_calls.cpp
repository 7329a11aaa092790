// Sections and other bitmaps, and the ways of pixels between bitmaps and callers' buffers.
#include "platform/gdi/blit.h"
#include "platform/gdi/dib.h"
#include "platform/gdi/gdi.h"

#include <algorithm>
#include <cstring>

using namespace kv::gdi;

namespace
{

template <class Result>
Result refused(Result result, DWORD error = ERROR_INVALID_PARAMETER)
{
    SetLastError(error);
    return result;
}

HBITMAP add(std::shared_ptr<Bitmap> bitmap)
{
    return bitmap ? static_cast<HBITMAP>(addObject(std::move(bitmap)))
                  : refused<HBITMAP>(nullptr, ERROR_NOT_ENOUGH_MEMORY);
}

// Bitmaps have 1, 8 or 32 bits; other depths of a device bitmap are rounded up to these.
int storedDepth(UINT bits)
{
    return bits == 1 ? 1 : bits <= 8 ? 8 : 32;
}

ColorTable tableFor(int depth)
{
    return depth == 1 ? twoColors() : depth == 8 ? defaultTable() : ColorTable();
}

// Converts callers' pixels to a bitmap's values.
class DibReader
{
public:
    DibReader(const DibFormat& from, const Bitmap& to) : format(from), nearest(to.table()), wide(to.depth() == 32)
    {
        plain = !wide && format.depth == to.depth() && sameColors(format.table, to.table());
        for (std::uint32_t i = 0; i < format.table.size(); ++i)
            values.push_back(plain ? i : value(packed(format.table[i])));
    }
    std::uint32_t read(const std::uint8_t* row, int x)
    {
        const std::uint32_t v = format.read(row, x);
        return values.empty() ? value(v) : values[v];
    }

private:
    std::uint32_t value(std::uint32_t rgb) { return wide ? rgb : std::uint32_t(nearest(rgb)); }

    const DibFormat& format;
    NearestColor nearest;
    bool wide, plain = false;
    std::vector<std::uint32_t> values;
};

// Converts rows of a bitmap to a caller's format.
class ColorWriter
{
public:
    ColorWriter(const DibFormat& to, const Bitmap& from) : format(to), nearest(to.table)
    {
        const bool same = format.depth == from.depth() && sameColors(format.table, from.table());
        for (const RGBQUAD& q : from.table())
            values.push_back(same ? std::uint32_t(values.size()) : value(packed(q)));
    }

    void write(const PixelView& view, int y, int width, std::uint8_t* row)
    {
        const std::uint8_t* const from = view.row(y);
        if (view.depth == 32)
            store(reinterpret_cast<const std::uint32_t*>(from), width, row,
                  [this](std::uint32_t v) { return value(v & 0xFFFFFF); });
        else if (view.depth == 8)
            store(from, width, row, [this](std::uint8_t v) { return values[v]; });
        else
            for (int x = 0; x < width; ++x)
                format.write(row, x, values[view.pixel(x, y)]);
    }

private:
    template <class T, class Convert>
    void store(const T* from, int width, std::uint8_t* row, Convert convert)
    {
        T last = from[0];
        std::uint32_t converted = convert(last); // pictures repeat their colours
        for (int x = 0; x < width; ++x)
        {
            if (from[x] != last)
                converted = convert(last = from[x]);
            if (format.depth == 8)
                row[x] = std::uint8_t(converted);
            else if (format.plain32())
                std::memcpy(row + 4 * std::ptrdiff_t(x), &converted, 4);
            else
                format.write(row, x, converted);
        }
    }
    std::uint32_t value(std::uint32_t rgb) { return format.table.empty() ? rgb : std::uint32_t(nearest(rgb)); }

    const DibFormat& format;
    NearestColor nearest;
    std::vector<std::uint32_t> values;
};

// Scan lines are counted from the bottom. In a buffer, `lines` of them from `start` on stand as one block.
struct Lines
{
    int start, count;
};

// The part of the asked lines that the height has.
Lines cutLines(UINT start, UINT lines, int height)
{
    if (start >= UINT(height))
        return {0, 0};
    return {int(start), int(std::min<UINT>(lines, UINT(height) - start))};
}

// The row in the buffer of line `start + i`.
std::int64_t bufferRow(const DibFormat& f, const Lines& lines, int i)
{
    return f.topDown ? lines.count - 1 - i : i;
}

const ColorTable& tableOf(const Bitmap& bitmap, int depth)
{
    if (depth == bitmap.depth() && !bitmap.isMonochrome())
        return bitmap.table();
    return depth == 1 ? twoColors() : defaultTable();
}

// Fills in the header's sizes and the table, as far as there is one.
void describe(BITMAPINFO* info, const DibFormat& f)
{
    BITMAPINFOHEADER& h = info->bmiHeader;
    h.biPlanes = 1;
    h.biSizeImage = DWORD(f.stride * f.height);
    std::uint8_t* const behind = reinterpret_cast<std::uint8_t*>(info) + h.biSize;
    if (!f.table.empty())
    {
        h.biClrUsed = 0;
        std::memcpy(behind, f.table.data(), f.table.size() * sizeof(RGBQUAD));
    }
    else if (h.biCompression == BI_BITFIELDS && h.biSize == sizeof h)
        std::memcpy(behind, f.masks, sizeof f.masks);
}

// A header without depth asks for the bitmap's own.
int describeBitmap(BITMAPINFO* info, const Bitmap& bitmap)
{
    BITMAPINFOHEADER& h = info->bmiHeader;
    h.biWidth = bitmap.width();
    h.biHeight = bitmap.isTopDown() && bitmap.isSection() ? -bitmap.height() : bitmap.height();
    h.biPlanes = 1;
    h.biBitCount = WORD(bitmap.depth());
    h.biCompression = BI_RGB;
    h.biSizeImage = DWORD(rowBytes(bitmap.width(), bitmap.depth(), 32) * bitmap.height());
    h.biXPelsPerMeter = h.biYPelsPerMeter = 0;
    h.biClrUsed = h.biClrImportant = 0;
    return 1;
}

// A caller's pixels as something to blit from: read in place where the format is one of ours, else converted.
struct DibPicture
{
    std::shared_ptr<Bitmap> converted;
    BlitSource source;
    DibFormat format;
};

bool openDib(DibPicture& picture, const void* bits, const BITMAPINFO* info, UINT usage)
{
    const std::optional<DibFormat> f = formatOf(info, usage);
    if (!f || !bits)
        return refused(false);
    picture.format = *f;
    const bool direct = f->depth == 1 || f->depth == 8 || f->plain32();
    if (direct && reinterpret_cast<std::uintptr_t>(bits) % 4 == 0)
    {
        // Never written to.
        auto* const bytes = const_cast<std::uint8_t*>(static_cast<const std::uint8_t*>(bits));
        picture.source.view = {bytes + f->rowOffset(0), f->topDown ? f->stride : -f->stride, f->width, f->height,
                               f->depth};
        picture.source.table = picture.format.table;
        return true;
    }
    picture.converted = Bitmap::make(f->width, f->height, 32, true, true, {});
    if (!picture.converted)
        return refused(false, ERROR_NOT_ENOUGH_MEMORY);
    const PixelView view = picture.converted->pixels();
    for (int y = 0; y < f->height; ++y)
        for (int x = 0; x < f->width; ++x)
            view.setPixel(x, y, f->color(f->read(static_cast<const std::uint8_t*>(bits) + f->rowOffset(y), x)));
    picture.source.view = view;
    return true;
}

} // namespace

// ---- Making bitmaps

HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits)
{
    if (width == 0 || height == 0)
        return defaultBitmap();
    const std::int64_t w = std::abs(std::int64_t(width)), h = std::abs(std::int64_t(height));
    if (planes != 1 || bitsPerPixel == 0 || bitsPerPixel > 32 || w > 0x7FFFFFF || h > INT32_MAX)
        return refused<HBITMAP>(nullptr);
    const int depth = storedDepth(bitsPerPixel);
    auto bitmap = Bitmap::make(int(w), int(h), depth, false, true, tableFor(depth));
    if (!bitmap)
        return refused<HBITMAP>(nullptr, ERROR_NOT_ENOUGH_MEMORY);
    if (bits && depth == int(bitsPerPixel))
        std::memcpy(bitmap->firstByte(), bits, bitmap->size());
    return add(std::move(bitmap));
}

HBITMAP CreateBitmapIndirect(const BITMAP* b)
{
    return b ? CreateBitmap(b->bmWidth, b->bmHeight, b->bmPlanes, b->bmBitsPixel, b->bmBits)
             : refused<HBITMAP>(nullptr);
}

HBITMAP CreateCompatibleBitmap(HDC handle, int width, int height)
{
    const auto dc = find<Dc>(handle);
    if (!dc || width < 0 || height < 0)
        return refused<HBITMAP>(nullptr);
    const Bitmap& like = *dc->bitmap;
    if (!like.isSection())
        return CreateBitmap(width, height, 1, UINT(like.depth()), nullptr);
    if (width == 0 || height == 0)
        return defaultBitmap();
    return add(Bitmap::make(width, height, like.depth(), true, false, like.table()));
}

HBITMAP CreateDIBSection(HDC, const BITMAPINFO* info, UINT usage, void** bits, HANDLE mapping, DWORD offset)
{
    if (bits)
        *bits = nullptr;
    const std::optional<DibFormat> f = formatOf(info, usage);
    const bool stored = f && (f->depth == 1 || f->depth == 8 || f->plain32());
    if (!stored || mapping || offset != 0 || info->bmiHeader.biPlanes == 0)
        return refused<HBITMAP>(nullptr);
    auto bitmap = Bitmap::make(f->width, f->height, f->depth, true, f->topDown, f->table);
    if (bitmap && bits)
        *bits = bitmap->firstByte();
    return add(std::move(bitmap));
}

HBITMAP CreateDIBitmap(HDC dc, const BITMAPINFOHEADER* header, DWORD flags, const void* bits, const BITMAPINFO* info,
                       UINT usage)
{
    const std::optional<DibFormat> f = header ? formatOf(*header) : std::nullopt;
    if (!f)
        return refused<HBITMAP>(nullptr);
    // Two colours, black and white, make a monochrome bitmap; everything else one of the device's depth.
    const std::optional<DibFormat> colors = formatOf(info, usage);
    const bool monochrome = !dc || (colors && colors->depth == 1 && sameColors(colors->table, twoColors()));
    const HBITMAP bitmap = CreateBitmap(f->width, f->height, 1, monochrome ? 1 : 32, nullptr);
    if (bitmap && (flags & CBM_INIT) && bits && !SetDIBits(dc, bitmap, 0, UINT(f->height), bits, info, usage))
    {
        DeleteObject(bitmap);
        return nullptr;
    }
    return bitmap;
}

// ---- Whole rows of a bitmap, padded to two bytes

LONG GetBitmapBits(HBITMAP handle, LONG count, LPVOID bits)
{
    const auto bitmap = find<Bitmap>(handle);
    if (!bitmap)
        return 0;
    const std::int64_t bytes = rowBytes(bitmap->width(), bitmap->depth(), 16);
    const std::int64_t all = std::min<std::int64_t>(bytes * bitmap->height(), INT32_MAX);
    if (!bits)
        return LONG(all);
    const std::int64_t wanted = count < 0 ? 0 : std::min<std::int64_t>(count, all);
    for (std::int64_t done = 0; done < wanted; done += bytes)
        std::memcpy(static_cast<std::uint8_t*>(bits) + done, bitmap->pixels().row(int(done / bytes)),
                    std::size_t(std::min(bytes, wanted - done)));
    return LONG(wanted);
}

LONG SetBitmapBits(HBITMAP handle, DWORD count, const void* bits)
{
    const auto bitmap = find<Bitmap>(handle);
    if (!bitmap || !bits)
        return 0;
    const std::int64_t bytes = rowBytes(bitmap->width(), bitmap->depth(), 16);
    const std::int64_t wanted = std::min<std::int64_t>({bytes * bitmap->height(), count, INT32_MAX});
    for (std::int64_t done = 0; done < wanted; done += bytes)
        std::memcpy(bitmap->pixels().row(int(done / bytes)), static_cast<const std::uint8_t*>(bits) + done,
                    std::size_t(std::min(bytes, wanted - done)));
    return LONG(wanted);
}

// ---- Between bitmaps and device-independent ones

int GetDIBits(HDC dc, HBITMAP handle, UINT start, UINT lines, LPVOID bits, BITMAPINFO* info, UINT usage)
{
    const auto bitmap = find<Bitmap>(handle);
    if (!findDc(dc) || !bitmap)
        return 0;
    if (!info || usage > DIB_PAL_COLORS || info->bmiHeader.biSize < sizeof(BITMAPINFOHEADER))
        return refused(0);
    if (!bits && info->bmiHeader.biBitCount == 0)
        return describeBitmap(info, *bitmap);
    std::optional<DibFormat> f = formatOf(info->bmiHeader);
    if (!f)
        return refused(0);
    if (f->depth <= 8)
    {
        f->table = tableOf(*bitmap, f->depth);
        f->table.resize(std::size_t(1) << f->depth);
    }
    describe(info, *f);
    if (!bits)
        return 1;
    Lines part = cutLines(start, lines, bitmap->height());
    part.count = std::min(part.count, f->height);
    if (part.count == 0)
        return refused(0);

    const PixelView view = bitmap->pixels();
    const int width = std::min(f->width, view.width);
    ColorWriter writer(*f, *bitmap);
    for (int i = 0; i < part.count; ++i)
    {
        std::uint8_t* const row = static_cast<std::uint8_t*>(bits) + f->stride * bufferRow(*f, part, i);
        std::memset(row, 0, std::size_t(f->stride));
        writer.write(view, view.height - 1 - (part.start + i), width, row);
    }
    return part.count;
}

int SetDIBits(HDC dc, HBITMAP handle, UINT start, UINT lines, const void* bits, const BITMAPINFO* info, UINT usage)
{
    const auto bitmap = find<Bitmap>(handle);
    if (!bitmap || (dc && !findDc(dc)))
        return 0;
    const std::optional<DibFormat> f = formatOf(info, usage);
    if (!f || !bits)
        return refused(0);
    const Lines part = cutLines(start, std::min<UINT>(lines, UINT(f->height)), bitmap->height());
    const PixelView view = bitmap->pixels();
    DibReader reader(*f, *bitmap);
    for (int i = 0; i < part.count; ++i)
    {
        const std::uint8_t* const row = static_cast<const std::uint8_t*>(bits) + f->stride * bufferRow(*f, part, i);
        const int y = view.height - 1 - (part.start + i);
        for (int x = 0; x < std::min(f->width, view.width); ++x)
            view.setPixel(x, y, reader.read(row, x));
    }
    return part.count;
}

int SetDIBitsToDevice(HDC handle, int x, int y, DWORD width, DWORD height, int sourceX, int sourceY, UINT start,
                      UINT lines, const void* bits, const BITMAPINFO* info, UINT usage)
{
    const auto dc = findDc(handle);
    if (!dc)
        return 0;
    const std::optional<DibFormat> f = formatOf(info, usage);
    if (!f || !bits)
        return refused(0);
    const Lines part = cutLines(start, lines, f->height);
    if (part.count == 0)
        return 0;
    // The buffer holds only these lines: a bitmap of their height whose first row lies so far below the whole one's.
    std::vector<std::uint8_t> head(sizeof(BITMAPINFOHEADER) + 256 * sizeof(RGBQUAD));
    const std::size_t used = info->bmiHeader.biSize + (f->depth <= 8 ? f->table.size() * (usage ? 2 : 4) : 12);
    head.resize(std::max(head.size(), used));
    std::memcpy(head.data(), info, info->bmiHeader.biSize);
    if (f->depth <= 8)
    {
        const std::size_t colors = info->bmiHeader.biClrUsed
                                       ? std::min<std::size_t>(info->bmiHeader.biClrUsed, f->table.size())
                                       : f->table.size();
        std::memcpy(head.data() + info->bmiHeader.biSize,
                    reinterpret_cast<const std::uint8_t*>(info) + info->bmiHeader.biSize, colors * (usage ? 2 : 4));
    }
    else if (info->bmiHeader.biCompression == BI_BITFIELDS)
        std::memcpy(head.data() + sizeof(BITMAPINFOHEADER),
                    reinterpret_cast<const std::uint8_t*>(info) + sizeof(BITMAPINFOHEADER), 12);
    auto* const partInfo = reinterpret_cast<BITMAPINFO*>(head.data());
    partInfo->bmiHeader.biHeight = f->topDown ? -part.count : part.count;
    DibPicture picture;
    if (!openDib(picture, bits, partInfo, usage))
        return 0;
    const std::int64_t hidden = std::int64_t(f->height) - part.start - part.count; // rows above the given ones
    const POINT at = dc->state.mapping.device({x, y});
    // The source rectangle's lower left corner is given; its top in the whole picture follows.
    const std::int64_t top = std::int64_t(f->height) - sourceY - height;
    blit(*dc, {at.x, at.y, width, height}, picture.source, {sourceX, top - hidden, width, height}, SRCCOPY);
    return part.count;
}

int StretchDIBits(HDC handle, int x, int y, int width, int height, int sourceX, int sourceY, int sourceWidth,
                  int sourceHeight, const void* bits, const BITMAPINFO* info, UINT usage, DWORD rop)
{
    const auto dc = findDc(handle);
    if (!dc)
        return 0;
    if (!needsSource(rop))
        return PatBlt(handle, x, y, width, height, rop);
    DibPicture picture;
    if (!openDib(picture, bits, info, usage))
        return 0;
    // Rows are counted from the lower left corner here.
    const std::int64_t top = std::int64_t(picture.format.height) - sourceY - sourceHeight;
    const BlitBox from = sourceHeight < 0 ? BlitBox{sourceX, top - 1, sourceWidth, sourceHeight}
                                          : BlitBox{sourceX, top, sourceWidth, sourceHeight};
    blit(*dc, mappedBox(dc->state.mapping, x, y, width, height), picture.source, from, rop);
    return picture.format.height;
}

// ---- Tables of sections

UINT GetDIBColorTable(HDC handle, UINT start, UINT count, RGBQUAD* colors)
{
    const auto dc = findDc(handle);
    if (!dc || !colors || !dc->bitmap->isSection())
        return 0;
    const ColorTable& table = dc->bitmap->table();
    if (start >= table.size())
        return 0;
    const UINT n = std::min<UINT>(count, UINT(table.size()) - start);
    std::copy_n(table.begin() + start, n, colors);
    return n;
}

UINT SetDIBColorTable(HDC handle, UINT start, UINT count, const RGBQUAD* colors)
{
    const auto dc = findDc(handle);
    if (!dc || !colors || !dc->bitmap->isSection())
        return 0;
    ColorTable& table = dc->bitmap->table();
    if (start >= table.size())
        return 0;
    const UINT n = std::min<UINT>(count, UINT(table.size()) - start);
    for (UINT i = 0; i < n; ++i)
        table[start + i] = quadOf(packed(colors[i]));
    return n;
}
