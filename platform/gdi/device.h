// The device that memory contexts are made for: a screen of 32 bits a pixel and 96 pixels an inch.
#pragma once

namespace kv::gdi::device
{

inline constexpr int width = 1024, height = 768; // pixels
inline constexpr int widthMillimetres = 271, heightMillimetres = 203;
inline constexpr int pixelsPerInch = 96;

} // namespace kv::gdi::device
