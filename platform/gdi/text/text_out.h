// Draws lines of text into a context.
#pragma once

#include "platform/gdi/text/text_font.h"

#include <optional>

namespace kv::gdi
{

struct TextLine
{
    std::vector<std::uint32_t> characters;
    std::vector<int> advances; // device pixels
    std::int64_t width = 0;
};

// `advances` of the caller, in logical units, one for each unit of text, take the place of the font's own.
TextLine layOut(const TextFont& font, std::wstring_view text, const int* advances);

// With the context's alignment, colours and background mode, at a device point; `clip` in device coordinates.
void drawLine(const Dc& dc, const TextFont& font, const TextLine& line, double x, double y,
              const std::optional<RECT>& clip);

} // namespace kv::gdi
