// The section behind a window. It is made when somebody draws for the first time.
#include "platform/win/native/backing.h"

#include <algorithm>
#include <cstring>

namespace kv::win
{
namespace
{
HBITMAP MakeSection(int width, int height, void** bits)
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = std::max(1, width);
    info.bmiHeader.biHeight = -std::max(1, height);
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    return CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, bits, nullptr, 0);
}
} // namespace

Backing::~Backing()
{
    DropContext();
    if (bitmap)
        DeleteObject(bitmap);
}

void Backing::Make()
{
    if (!bitmap)
        bitmap = MakeSection(width, height, &bits);
    if (!dc)
    {
        dc = CreateCompatibleDC(nullptr);
        formerBitmap = SelectObject(dc, bitmap);
    }
}

void Backing::DropContext()
{
    if (!dc)
        return;
    SelectObject(dc, formerBitmap);
    DeleteDC(dc);
    dc = nullptr;
}

void Backing::Resize(int newWidth, int newHeight)
{
    if (newWidth == width && newHeight == height)
        return;
    if (bitmap)
    {
        void* newBits = nullptr;
        const HBITMAP newBitmap = MakeSection(newWidth, newHeight, &newBits);
        const int rows = std::min(height, newHeight);
        const size_t bytes = 4 * static_cast<size_t>(std::max(0, std::min(width, newWidth)));
        for (int y = 0; bits && newBits && y < rows; ++y)
            std::memcpy(static_cast<char*>(newBits) + 4 * size_t(y) * size_t(std::max(1, newWidth)),
                        static_cast<const char*>(bits) + 4 * size_t(y) * size_t(std::max(1, width)), bytes);
        if (dc)
            SelectObject(dc, newBitmap);
        DeleteObject(bitmap);
        bitmap = newBitmap;
        bits = newBits;
    }
    width = newWidth;
    height = newHeight;
}

HDC Backing::Acquire(bool keep)
{
    if (!keep && users == 0)
        DropContext();
    Make();
    ++users;
    return dc;
}

void Backing::Release(HDC released, bool keep)
{
    if (released != dc || users == 0)
        return;
    --users;
    if (!keep && users == 0)
        DropContext();
}

QImage Backing::Image() const
{
    if (!bits)
        return {};
    return QImage(static_cast<const uchar*>(bits), std::max(1, width), std::max(1, height), QImage::Format_RGB32);
}
} // namespace kv::win
