// Cursors: the platform's own by number, and those of RT_GROUP_CURSOR resources.
#include "platform/win/native/cursors.h"

#include <QBitmap>
#include <QImage>
#include <QPixmap>

#include <cstring>
#include <map>
#include <memory>

namespace kv::win
{
namespace
{
struct Cursor
{
    UINT id;
    QCursor cursor;
};

using Key = std::pair<const CDynLinkLibrary*, UINT>;

// Never freed: the application object may be gone before the program's static objects are.
std::map<Key, std::unique_ptr<Cursor>>& Loaded()
{
    static auto& cursors = *new std::map<Key, std::unique_ptr<Cursor>>;
    return cursors;
}

Cursor* FromHandle(HCURSOR handle)
{
    for (const auto& [key, cursor] : Loaded())
    {
        if (reinterpret_cast<HCURSOR>(cursor.get()) == handle)
            return cursor.get();
    }
    return nullptr;
}

std::optional<Qt::CursorShape> SystemShape(UINT id)
{
    static const std::map<UINT, Qt::CursorShape> shapes = {
        {IDC_ARROW, Qt::ArrowCursor},        {IDC_IBEAM, Qt::IBeamCursor},     {IDC_WAIT, Qt::WaitCursor},
        {IDC_CROSS, Qt::CrossCursor},        {IDC_UPARROW, Qt::UpArrowCursor}, {IDC_SIZENWSE, Qt::SizeFDiagCursor},
        {IDC_SIZENESW, Qt::SizeBDiagCursor}, {IDC_SIZEWE, Qt::SizeHorCursor},  {IDC_SIZENS, Qt::SizeVerCursor},
        {IDC_SIZEALL, Qt::SizeAllCursor},    {IDC_NO, Qt::ForbiddenCursor},    {IDC_HAND, Qt::PointingHandCursor},
    };
    const auto found = shapes.find(id);
    return found == shapes.end() ? std::nullopt : std::optional(found->second);
}

template <class Number>
Number Read(ResourceImage::Bytes bytes, size_t at)
{
    Number number{};
    if (at + sizeof number <= bytes.size())
        std::memcpy(&number, bytes.data() + at, sizeof number);
    return number;
}

bool BitAt(ResourceImage::Bytes bytes, size_t start, size_t stride, int x, int y)
{
    const size_t at = start + stride * static_cast<size_t>(y) + static_cast<size_t>(x / 8);
    return at < bytes.size() && (bytes[at] >> (7 - x % 8) & 1);
}

// An RT_CURSOR: the hot spot, then a bitmap header with the height of colour and mask together. Pixels: mask set leaves
// the screen (inverted by a white colour, shown black here), else the colour.
std::optional<QCursor> Decode(ResourceImage::Bytes data)
{
    const int hotX = Read<std::uint16_t>(data, 0);
    const int hotY = Read<std::uint16_t>(data, 2);
    const auto header = Read<BITMAPINFOHEADER>(data, 4);
    const int width = header.biWidth;
    const int height = header.biHeight / 2;
    const int depth = header.biBitCount;
    if (header.biSize < 40 || width <= 0 || width > 256 || height <= 0 || height > 256)
        return std::nullopt;
    if (depth != 1 && depth != 4 && depth != 8 && depth != 24 && depth != 32)
        return std::nullopt;
    const size_t entries = depth > 8 ? 0 : header.biClrUsed ? header.biClrUsed : size_t{1} << depth;
    const size_t table = 4 + header.biSize;
    const size_t colours = table + 4 * entries;
    const size_t stride = (static_cast<size_t>(width) * static_cast<size_t>(depth) + 31) / 32 * 4;
    const size_t mask = colours + stride * static_cast<size_t>(height);
    const size_t maskStride = (static_cast<size_t>(width) + 31) / 32 * 4;
    if (entries > 256 || mask + maskStride * static_cast<size_t>(height) > data.size())
        return std::nullopt;

    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y)
    {
        for (int x = 0; x < width; ++x)
        {
            const int row = height - 1 - y;
            const size_t line = colours + stride * static_cast<size_t>(row);
            const auto column = static_cast<size_t>(x);
            QRgb colour;
            if (depth == 1)
                colour = Read<QRgb>(data, table + 4 * size_t{BitAt(data, colours, stride, x, row)});
            else if (depth == 4)
                colour = Read<QRgb>(data, table + 4 * size_t((data[line + column / 2] >> (x % 2 ? 0 : 4)) & 15));
            else if (depth == 8)
                colour = Read<QRgb>(data, table + 4 * size_t{data[line + column]});
            else if (depth == 24)
                colour = Read<QRgb>(data, line + 3 * column) & 0xFFFFFF;
            else
                colour = Read<QRgb>(data, line + 4 * column);
            const bool screen = BitAt(data, mask, maskStride, x, row);
            const bool inverts = screen && (colour & 0xFFFFFF) != 0;
            if (depth != 32)
                colour = screen ? (inverts ? 0xFF000000 : 0) : (colour | 0xFF000000);
            image.setPixel(x, y, colour);
        }
    }
    return QCursor(QPixmap::fromImage(image), hotX, hotY);
}

// The first image of the group, as ours have only one.
std::optional<QCursor> FromResource(const CDynLinkLibrary& module, UINT id)
{
    const ResourceImage::Bytes group = module.Resources().Find(ResourceKind::GroupCursor, id);
    if (group.size() < 6 + 14)
        return std::nullopt;
    return Decode(module.Resources().Find(ResourceKind::Cursor, Read<std::uint16_t>(group, 6 + 12)));
}
} // namespace

QCursor ToQt(HCURSOR handle)
{
    const Cursor* cursor = FromHandle(handle);
    return cursor ? cursor->cursor : QCursor(Qt::BlankCursor);
}
} // namespace kv::win

using namespace kv::win;

HCURSOR LoadCursorW(const CDynLinkLibrary* module, UINT id)
{
    auto& slot = Loaded()[{module, id}];
    if (!slot)
    {
        std::optional<QCursor> cursor;
        if (module)
            cursor = FromResource(*module, id);
        else if (const auto shape = SystemShape(id))
            cursor = QCursor(*shape);
        if (!cursor)
        {
            Loaded().erase({module, id});
            return nullptr;
        }
        slot = std::make_unique<Cursor>(Cursor{id, *cursor});
    }
    return reinterpret_cast<HCURSOR>(slot.get());
}

UINT CursorId(HCURSOR handle)
{
    const Cursor* cursor = FromHandle(handle);
    return cursor ? cursor->id : 0;
}
