// Contours over an image.
#include "C/syContourPicture.h"

#include "platform/afx/dcguards.h"

#include <algorithm>
#include <new>
#include <vector>

namespace KvN
{
namespace
{
constexpr COLORREF includedColor = RGB(0, 230, 0);
constexpr COLORREF excludedColor = RGB(255, 60, 60);
constexpr COLORREF textColor = RGB(255, 255, 255);
constexpr COLORREF shadowColor = RGB(0, 0, 0); // makes the text stand out on any image

// Figures may lie anywhere; what is far off the picture need not be told apart.
int Whole(double value)
{
    constexpr double farOff = 1e6;
    return static_cast<int>(value >= -farOff ? std::min(value, farOff) : -farOff);
}

std::vector<POINT> PointsOf(const KvTList<KvVec2d>& list)
{
    std::vector<POINT> points;
    for (const auto* node = list.head; node; node = node->next)
        points.push_back({Whole(node->value.x), Whole(node->value.y)});
    return points;
}

COLORREF ColorOf(const KvContour& contour)
{
    if (contour.Exclude())
        return excludedColor;
    return contour.Color() == KvContour::NoColor ? includedColor : contour.Color() & 0xFFFFFF;
}
} // namespace

KvContourPicture::KvContourPicture(const KvAOI& image) : size(image.AOISize()), side(std::max(size.width, size.height))
{
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, size.width, -size.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    dc.CreateCompatibleDC(nullptr);
    bitmap.Attach(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    former = dc.SelectObject(bitmap.GetSafeHandle());
    if (!bits || !former)
        throw std::bad_alloc();
    image.Show(&dc);

    LOGFONT format{};
    format.lfHeight = std::clamp(side / 40, 12, 120);
    format.lfCharSet = DEFAULT_CHARSET;
    std::copy_n(L"Arial", 6, format.lfFaceName);
    font.CreateFontIndirect(&format);
    noBrush.CreateStockObject(NULL_BRUSH);
}

KvContourPicture::~KvContourPicture()
{
    dc.SelectObject(former);
}

void KvContourPicture::Add(const KvContour& contour)
{
    const CPen pen(PS_SOLID, WidthOf(contour), ColorOf(contour));
    const SelectedObject selectedPen(dc, pen), selectedBrush(dc, noBrush);
    DrawOutline(contour);
    Describe(contour);
}

KvBufferAOI32Color KvContourPicture::Pixels() const
{
    KvBufferAOI32Color aoi(size);
    const auto* from = static_cast<const KvColor*>(bits);
    for (int y = 0; y < size.height; ++y, from += size.width)
        std::copy_n(from, size.width, aoi.GetRowPointer(y));
    return aoi;
}

void KvContourPicture::DrawOutline(const KvContour& contour)
{
    switch (contour.ContourType())
    {
    case KvContour::eRectangle:
    case KvContour::ePolygon:
    case KvContour::eSquare:
    {
        const std::vector<POINT> points = PointsOf(contour.CurvePositions());
        dc.Polygon(points.data(), static_cast<int>(points.size()));
        break;
    }
    case KvContour::ePolyline:
    {
        const std::vector<POINT> points = PointsOf(contour.CurvePositions());
        dc.Polyline(points.data(), static_cast<int>(points.size()));
        break;
    }
    case KvContour::eEllipse:
    case KvContour::eCircle:
    {
        KvTList<KvVec2d> samples;
        contour.CreateSegments(0.0, KvMath::TwoPi, 100, samples);
        const std::vector<POINT> points = PointsOf(samples);
        dc.Polygon(points.data(), static_cast<int>(points.size()));
        break;
    }
    }
}

// Lines that can be seen at the picture's size; a polyline has its own width.
int KvContourPicture::WidthOf(const KvContour& contour) const
{
    const int thin = std::max(1, side / 500);
    const bool own = contour.ContourType() == KvContour::ePolyline && contour.LineWidth() != KvContour::NoLineWidth;
    return own ? std::max(thin, Whole(contour.LineWidth() + 0.5)) : thin;
}

// To the right of the figure's box, or where that leaves the picture, as far left as it takes.
void KvContourPicture::Describe(const KvContour& contour)
{
    const CString text = contour.Description().Text();
    if (text.IsEmpty() || contour.CurvePositions().count == 0)
        return;
    KvTRectangle<double> box;
    contour.MakeBoundingBox(box);
    const SelectedObject selectedFont(dc, font);
    const BackgroundMode transparent(dc, TRANSPARENT);
    const CSize extent = dc.GetTextExtent(text);
    const int x = std::clamp(Whole(box.right) + 4, 0, std::max(0, size.width - int(extent.cx)));
    const int y = std::clamp(Whole(box.top), 0, std::max(0, size.height - int(extent.cy)));
    Write(text, x + 1, y + 1, shadowColor);
    Write(text, x, y, textColor);
}

void KvContourPicture::Write(const CString& text, int x, int y, COLORREF color)
{
    const TextColor inColor(dc, color);
    dc.TextOut(x, y, text);
}

} // namespace KvN
