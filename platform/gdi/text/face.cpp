// Finds typefaces by fontconfig and opens them by FreeType.
#include "platform/gdi/text/face.h"

#include "platform/gdi/gdi_constants.h"

#include <algorithm>
#include <map>
#include <memory>
#include <tuple>

#include <fontconfig/fontconfig.h>
#include FT_TRUETYPE_TABLES_H

namespace kv::gdi
{

namespace
{

std::string utf8(const wchar_t* text)
{
    std::string out;
    for (; *text; ++text)
    {
        const auto c = std::uint32_t(*text);
        if (c < 0x80)
            out += char(c);
        else if (c < 0x800)
            out += {char(0xC0 | c >> 6), char(0x80 | (c & 0x3F))};
        else if (c < 0x10000)
            out += {char(0xE0 | c >> 12), char(0x80 | (c >> 6 & 0x3F)), char(0x80 | (c & 0x3F))};
        else if (c < 0x110000)
            out += {char(0xF0 | c >> 18), char(0x80 | (c >> 12 & 0x3F)), char(0x80 | (c >> 6 & 0x3F)),
                    char(0x80 | (c & 0x3F))};
    }
    return out;
}

// What a description asks of a face.
struct Wish
{
    std::string family;
    bool bold, italic;

    bool operator<(const Wish& other) const
    {
        return std::tie(family, bold, italic) < std::tie(other.family, other.bold, other.italic);
    }
};

Wish wishOf(const LOGFONTW& log)
{
    Wish wish{utf8(log.lfFaceName), log.lfWeight > 550, log.lfItalic != 0};
    std::transform(wish.family.begin(), wish.family.end(), wish.family.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? char(c + 32) : c; });
    // The platform's own names, and fonts without a name, go by their kind.
    static const char* const own[] = {"", "system", "ms shell dlg", "ms shell dlg 2", "ms sans serif", "helv"};
    if (std::find(std::begin(own), std::end(own), wish.family) != std::end(own))
    {
        const int family = log.lfPitchAndFamily & 0xF0;
        const bool fixed = (log.lfPitchAndFamily & 3) == FIXED_PITCH || family == FF_MODERN;
        wish.family = fixed ? "courier new" : family == FF_ROMAN ? "times new roman" : "arial";
    }
    return wish;
}

struct PatternFree
{
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using PatternPtr = std::unique_ptr<FcPattern, PatternFree>;

struct Found
{
    std::string file;
    int index = 0;
    int weight = FC_WEIGHT_NORMAL, slant = FC_SLANT_ROMAN;
};

bool match(FcConfig* config, const Wish& wish, Found& found)
{
    const PatternPtr pattern(FcPatternCreate());
    if (!pattern)
        return false;
    FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(wish.family.c_str()));
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, wish.bold ? FC_WEIGHT_BOLD : FC_WEIGHT_NORMAL);
    FcPatternAddInteger(pattern.get(), FC_SLANT, wish.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    FcConfigSubstitute(config, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    const PatternPtr best(FcFontMatch(config, pattern.get(), &result));
    FcChar8* file = nullptr;
    if (!best || FcPatternGetString(best.get(), FC_FILE, 0, &file) != FcResultMatch)
        return false;
    found.file = reinterpret_cast<const char*>(file);
    FcPatternGetInteger(best.get(), FC_INDEX, 0, &found.index);
    FcPatternGetInteger(best.get(), FC_WEIGHT, 0, &found.weight);
    FcPatternGetInteger(best.get(), FC_SLANT, 0, &found.slant);
    return true;
}

void readMetrics(Face& face)
{
    const FT_Face ft = face.face;
    face.unitsPerEm = ft->units_per_EM;
    face.family = ft->family_name ? ft->family_name : "";
    face.fixedPitch = FT_IS_FIXED_WIDTH(ft);
    const int lineAscent = ft->ascender, lineDescent = -ft->descender;
    const int lineGap = ft->height - lineAscent - lineDescent;
    face.ascent = lineAscent;
    face.descent = lineDescent;
    face.averageWidth = ft->max_advance_width / 2;
    face.weight = ft->style_flags & FT_STYLE_FLAG_BOLD ? FW_BOLD : FW_NORMAL;
    if (const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(ft, FT_SFNT_OS2)); os2 && os2->version != 0xFFFF)
    {
        if (os2->usWinAscent + os2->usWinDescent > 0)
        {
            face.ascent = os2->usWinAscent;
            face.descent = os2->usWinDescent;
        }
        if (os2->xAvgCharWidth > 0)
            face.averageWidth = os2->xAvgCharWidth;
        face.weight = os2->usWeightClass;
    }
    face.lineGap = std::max(0, lineGap - (face.ascent + face.descent - lineAscent - lineDescent));
}

// Set for good when the process ends: text is no longer drawn then.
bool closed = false;

class Library
{
public:
    Library() : config(FcInitLoadConfigAndFonts())
    {
        if (FT_Init_FreeType(&library) != 0)
            library = nullptr;
    }
    ~Library()
    {
        closed = true;
        faces.clear();
        if (library)
            FT_Done_FreeType(library);
        if (config)
            FcConfigDestroy(config);
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    Face* find(const Wish& wish)
    {
        const auto known = faces.find(wish);
        if (known != faces.end())
            return known->second.get();
        return faces.emplace(wish, open(wish)).first->second.get();
    }

private:
    std::unique_ptr<Face> open(const Wish& wish)
    {
        Found found;
        auto face = std::make_unique<Face>();
        if (!library || !config || !match(config, wish, found) ||
            FT_New_Face(library, found.file.c_str(), found.index, &face->face) != 0 || !FT_IS_SCALABLE(face->face))
            return nullptr;
        readMetrics(*face);
        face->bolder = wish.bold && found.weight < FC_WEIGHT_DEMIBOLD;
        face->slanted = wish.italic && found.slant == FC_SLANT_ROMAN;
        return face;
    }

    FcConfig* config;
    FT_Library library = nullptr;
    std::map<Wish, std::unique_ptr<Face>> faces; // the library closes what they hold
};

} // namespace

std::mutex& faceLock()
{
    static std::mutex& lock = *new std::mutex;
    return lock;
}

Face* findFace(const LOGFONTW& description)
{
    if (closed)
        return nullptr;
    static Library library;
    return library.find(wishOf(description));
}

} // namespace kv::gdi
