// Typefaces: which file stands for a font description, and its outlines.
#pragma once

#include "platform/gdi/gdi_types.h"

#include <mutex>
#include <string>

#include <ft2build.h>
#include FT_FREETYPE_H

namespace kv::gdi
{

struct Face
{
    FT_Face face = nullptr;
    std::string family;
    int unitsPerEm = 0;
    int ascent = 0, descent = 0; // of a cell, in font units, both positive
    int lineGap = 0;             // beyond the cell
    int averageWidth = 0;
    int weight = 0;
    bool fixedPitch = false;
    bool bolder = false;  // emboldened here, since the file is not
    bool slanted = false; // likewise
};

// The face that comes nearest to a description, null if there is none at all. "Arial" finds a face of the same metrics
// where there is no Arial. Faces stay open. The caller holds the lock as long as it uses one.
std::mutex& faceLock();
Face* findFace(const LOGFONTW& description);

} // namespace kv::gdi
