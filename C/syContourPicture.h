// KvContourPicture: contours drawn over an image, excluded ones in their own colour, descriptions beside them.
#pragma once

#include "C/syContour.h"
#include "contracts/image/KvAOITypes.h"
#include "platform/afx/dc.h"

namespace KvN
{

// A 32-bit picture of an image that figures are drawn into. Figures are in image pixels; what lies outside is cut off.
class KvContourPicture
{
public:
    // Shows the image as its table has it. Throws std::bad_alloc if there is no memory for the picture.
    explicit KvContourPicture(const KvAOI& image);
    KvContourPicture(const KvContourPicture&) = delete;
    KvContourPicture& operator=(const KvContourPicture&) = delete;
    ~KvContourPicture();

    // Outline in the contour's own colour, or green if it has none; excluded ones in red.
    void Add(const KvContour& contour);
    KvBufferAOI32Color Pixels() const;

private:
    void DrawOutline(const KvContour& contour);
    int WidthOf(const KvContour& contour) const;
    void Describe(const KvContour& contour);
    void Write(const CString& text, int x, int y, COLORREF color);

    KvTSize<short> size;
    int side; // the longer one, which line widths and letters follow
    void* bits = nullptr;
    CBitmap bitmap;
    CFont font;
    CBrush noBrush;
    CDC dc;
    HGDIOBJ former = nullptr;
};

} // namespace KvN
