// A section in a memory context, with its pixels at hand.
#pragma once

#include "platform/gdi/gdi.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

struct Canvas
{
    HDC dc = nullptr;
    HBITMAP bitmap = nullptr;
    std::uint8_t* bits = nullptr;
    int width, height, depth, stride;
    bool bottomUp;

    Canvas(int widthOf, int heightOf, int depthOf = 8, bool bottomUpOf = false)
        : width(widthOf), height(heightOf), depth(depthOf), stride((widthOf * depthOf + 31) / 32 * 4),
          bottomUp(bottomUpOf)
    {
        std::vector<std::uint8_t> memory(sizeof(BITMAPINFOHEADER) + 256 * sizeof(RGBQUAD));
        auto* const info = reinterpret_cast<BITMAPINFO*>(memory.data());
        info->bmiHeader = {
            sizeof(BITMAPINFOHEADER), width, bottomUp ? height : -height, 1, WORD(depth), BI_RGB, 0, 0, 0, 0, 0};
        auto* const colors = reinterpret_cast<RGBQUAD*>(memory.data() + sizeof(BITMAPINFOHEADER));
        for (int i = 0; i < 256; ++i)
            colors[i] = {BYTE(i), BYTE(i), BYTE(i), 0};
        if (depth == 1)
            colors[1] = {255, 255, 255, 0};
        void* first = nullptr;
        bitmap = CreateDIBSection(nullptr, info, DIB_RGB_COLORS, &first, nullptr, 0);
        bits = static_cast<std::uint8_t*>(first);
        dc = CreateCompatibleDC(nullptr);
        SelectObject(dc, bitmap);
    }
    ~Canvas()
    {
        DeleteDC(dc);
        DeleteObject(bitmap);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    std::uint32_t at(int x, int y) const
    {
        const std::uint8_t* const row = bits + std::ptrdiff_t(stride) * (bottomUp ? height - 1 - y : y);
        if (depth == 32)
            return reinterpret_cast<const std::uint32_t*>(row)[x] & 0xFFFFFF;
        return depth == 8 ? row[x] : row[x / 8] >> (7 - x % 8) & 1u;
    }

    // '#' where a pixel is not zero, rows separated by line feeds.
    std::string picture() const
    {
        std::string text;
        for (int y = 0; y < height; ++y)
        {
            for (int x = 0; x < width; ++x)
                text += at(x, y) ? '#' : '.';
            text += '\n';
        }
        return text;
    }

    std::vector<std::uint32_t> pixels() const
    {
        std::vector<std::uint32_t> all;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                all.push_back(at(x, y));
        return all;
    }

    int count() const
    {
        int n = 0;
        for (const std::uint32_t v : pixels())
            n += v != 0;
        return n;
    }
};

// Selected for as long as it lives, then deleted.
struct Selected
{
    Selected(HDC target, HGDIOBJ made) : dc(target), object(made), old(SelectObject(dc, object)) {}
    ~Selected()
    {
        SelectObject(dc, old);
        DeleteObject(object);
    }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

    HDC dc;
    HGDIOBJ object, old;
};
