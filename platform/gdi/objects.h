// Pens, brushes, regions, fonts and palettes behind their handles.
#pragma once

#include "platform/gdi/bitmap.h"
#include "platform/gdi/handles.h"
#include "platform/gdi/region.h"

#include <memory>
#include <vector>

namespace kv::gdi
{

struct Pen : Object
{
    static constexpr bool accepts(int kind) { return kind == OBJ_PEN || kind == OBJ_EXTPEN; }

    explicit Pen(bool extended) : Object(extended ? OBJ_EXTPEN : OBJ_PEN) {}

    DWORD style = PS_SOLID; // with the type, cap and join bits of an extended pen
    int width = 0;          // logical units
    COLORREF color = 0;
    UINT brushStyle = BS_SOLID;
    ULONG_PTR hatch = 0;
    std::vector<DWORD> lengths; // of PS_USERSTYLE

    DWORD line() const { return style & PS_STYLE_MASK; }
    bool isGeometric() const { return (style & PS_TYPE_MASK) == PS_GEOMETRIC; }
};

struct Brush : Object
{
    static constexpr bool accepts(int kind) { return kind == OBJ_BRUSH; }

    Brush() : Object(OBJ_BRUSH) {}

    UINT style = BS_SOLID;
    COLORREF color = 0;
    ULONG_PTR hatch = 0;
    std::shared_ptr<const Bitmap> pattern; // a copy of its own
};

struct Region : Object
{
    static constexpr bool accepts(int kind) { return kind == OBJ_REGION; }

    Region() : Object(OBJ_REGION) {}

    Area area;
};

struct Font : Object
{
    static constexpr bool accepts(int kind) { return kind == OBJ_FONT; }

    explicit Font(const LOGFONTW& description) : Object(OBJ_FONT), log(description) {}

    LOGFONTW log;
};

struct Palette : Object
{
    static constexpr bool accepts(int kind) { return kind == OBJ_PAL; }

    Palette() : Object(OBJ_PAL) {}
};

// The bitmap that every memory context starts with: one monochrome pixel, never deleted, in any number of contexts.
HBITMAP defaultBitmap();

// Colours as pens and brushes understand them: an entry of the default palette in place of its number.
COLORREF plainColor(COLORREF color);

} // namespace kv::gdi
