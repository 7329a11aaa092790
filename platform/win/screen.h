// What windows show on the screen, as pictures.
#pragma once

#include "platform/win/wnd.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kv::win
{
// 0xRRGGBB, row by row from the top. One pixel a client pixel, whatever the screen's scale.
struct Picture
{
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
    std::uint32_t At(int x, int y) const { return pixels[static_cast<size_t>(y) * static_cast<size_t>(width) + x]; }
};

// The window with its children, as shown; pending paints are done first. Empty for a stale handle.
Picture PictureOf(HWND window);
// Black outside the client area.
std::uint32_t ShownPixel(HWND window, CPoint client);
// As PNG; false if the file can't be written.
bool SavePicture(const Picture& picture, const std::string& path);
} // namespace kv::win
