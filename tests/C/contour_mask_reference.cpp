// The drawing calls behind the plain way.
#include "tests/C/contour_mask_reference.h"

#include "contracts/image/KvDIB.h"
#include "contracts/image/KvPolygon.h"
#include "platform/afx/dcguards.h"

#include <vector>

namespace kv::test
{

namespace
{
using namespace KvN;

int Width(double lineWidth)
{
    return lineWidth == KvContour::NoLineWidth ? 1 : static_cast<int>(lineWidth + 0.5);
}

KvPolygon PolygonOf(const KvTList<KvVec2d>& points)
{
    KvPolygon polygon(static_cast<unsigned short>(points.count));
    for (unsigned short i = 0; i < polygon.GetSize(); ++i)
        polygon.SetPoint({static_cast<int>(points[i].x), static_cast<int>(points[i].y)}, i);
    return polygon;
}

void Draw(CDC& dc, const KvContour& contour, const KvTRectangle<int>& box)
{
    const bool line = contour.ContourType() == KvContour::ePolyline;
    CPen pen(PS_SOLID, line ? Width(contour.LineWidth()) : 1, 0xFFFFFF);
    CBrush brush(0xFFFFFF);
    const SelectedObject selectedPen(dc, pen), selectedBrush(dc, brush);
    const ViewportOrigin origin(dc, -box.left, -box.top);
    switch (contour.ContourType())
    {
    case KvContour::eRectangle:
    case KvContour::ePolygon:
    case KvContour::eSquare:
    {
        dc.SetPolyFillMode(WINDING);
        KvPolygon polygon = PolygonOf(contour.CurvePositions());
        dc.Polygon(polygon, polygon.GetSize());
        break;
    }
    case KvContour::ePolyline:
    {
        KvPolygon polygon = PolygonOf(contour.CurvePositions());
        dc.Polyline(polygon, polygon.GetSize());
        break;
    }
    case KvContour::eEllipse:
    {
        KvTList<KvVec2d> samples;
        contour.CreateSegments(0.0, KvMath::TwoPi, 100, samples);
        dc.SetPolyFillMode(WINDING);
        KvPolygon polygon = PolygonOf(samples);
        dc.Polygon(polygon, polygon.GetSize());
        break;
    }
    case KvContour::eCircle:
        dc.Ellipse(box.left, box.top, box.right + 1, box.bottom + 1);
        break;
    }
}

void Merge(const unsigned char* bits, long stride, const KvContour& contour, const KvTRectangle<int>& box,
           KvTBuf2D<unsigned char>& mask)
{
    for (int y = box.top; y <= box.bottom && y < mask.height; ++y)
    {
        if (y < 0)
            continue;
        const unsigned char* row = bits + stride * (box.bottom - y); // bottom row first
        for (int x = box.left; x <= box.right && x < mask.width; ++x)
        {
            if (x < 0)
                continue;
            if (const unsigned char value = row[x - box.left])
                mask.Row(y)[x] = contour.Exclude() ? 0 : value;
        }
    }
}

void Add(CDC& dc, const KvContour& contour, KvTBuf2D<unsigned char>& mask)
{
    KvTRectangle<double> exact;
    contour.MakeBoundingBox(exact);
    if (!(exact.right < 1e9 && exact.bottom < 1e9))
        return; // without points
    const KvTRectangle<int> box(static_cast<int>(exact.left), static_cast<int>(exact.top),
                                static_cast<int>(exact.right), static_cast<int>(exact.bottom));
    if (box.Width() < 1 || box.Height() < 1)
        return;
    // The smallest bitmap has the same colours; only its size is changed.
    KvDIB format;
    format.Create(KvTBuf2D<unsigned char>(1, 1), pOLutMgr->GetLut(L"DefectRegion"));
    format.GetBitmapInfoPtr()->bmiHeader.biWidth = box.Width();
    format.GetBitmapInfoPtr()->bmiHeader.biHeight = box.Height();
    format.GetBitmapInfoPtr()->bmiHeader.biSizeImage = 0;
    void* bits = nullptr;
    CBitmap section;
    section.Attach(::CreateDIBSection(dc, format.GetBitmapInfoPtr(), DIB_RGB_COLORS, &bits, nullptr, 0));
    const SelectedObject selected(dc, section);
    dc.PatBlt(0, 0, box.Width(), box.Height(), BLACKNESS);
    Draw(dc, contour, box);
    Merge(static_cast<const unsigned char*>(bits), (box.Width() + 3) / 4 * 4, contour, box, mask);
}
} // namespace

KvTBuf2D<unsigned char> MaskByDrawingCalls(const KvTList<KvContour>& contours, int width, int height)
{
    KvTBuf2D<unsigned char> mask(width, height);
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    for (const auto* node = contours.head; node; node = node->next)
        Add(dc, node->value, mask);
    return mask;
}

} // namespace kv::test
