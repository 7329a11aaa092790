// What is drawn over the image: all stored contours with labels, directions and markers, and the selected one's
// handles. Coordinates and pen widths are logical units. Widths are divided by the factor at which the AOI would fill
// the client area, so that lines keep their size on the screen in a window that shows the whole AOI; symbols are not.
#include "C/uiContourWnd.h"
#include "C/uiContourWnd_drawing_p.h"
#include "C/uiContourWnd_symbols_p.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <optional>

using namespace KvN;
using namespace kv::editor;

// An open chevron and a closed dart, both with the apex on the origin.
constinit const std::array<KvVec2d, 3> KvContourWnd::m_SymbolArrowStart = {KvVec2d(-12, 12), KvVec2d(0, 0),
                                                                           KvVec2d(-12, -12)};
constinit const std::array<KvVec2d, 5> KvContourWnd::m_SymbolArrowHead = {
    KvVec2d(0, 0), KvVec2d(-24, 9), KvVec2d(-9, 0), KvVec2d(-24, -9), KvVec2d(0, 0)};

namespace
{

constexpr int FontHeightAtZoomOne = 28;

class TextAlignment
{
public:
    TextAlignment(CDC& dc_, UINT align) : dc(dc_), former(dc.SetTextAlign(align)) {}
    ~TextAlignment() { dc.SetTextAlign(former); }
    TextAlignment(const TextAlignment&) = delete;
    TextAlignment& operator=(const TextAlignment&) = delete;

private:
    CDC& dc;
    UINT former;
};

CRect ClientOf(const KvAOIBaseViewWnd& view)
{
    CRect client(0, 0, 0, 0);
    view.GetClientRect(&client);
    return client;
}

bool IsAlive(const KvAOIBaseViewWnd* view)
{
    return view && ::IsWindow(view->GetSafeHwnd());
}

KvTSize<short> SizeOfAOI(KvAOIBaseViewWnd& view)
{
    const KvAOI* aoi = view.GetAOI();
    return aoi ? aoi->AOISize() : KvTSize<short>();
}

// The part of the image that a drawing on this context can bring to the screen. A paint of the view copies no more than
// what is visible; any other context may be looked at as a whole.
std::optional<CRect> VisiblePart(const CDC& dc, KvAOIBaseViewWnd& view)
{
    if (!view.IsInDraw() || &dc != view.GetOutputDevice() || dc.IsPrinting())
        return std::nullopt;
    return view.GetVisibleLogicalRect();
}

// Where the outline is drawn, pen width aside.
CRect DrawnBox(const KvContour& contour, bool ellipse)
{
    CRect box(INT_MAX, INT_MAX, INT_MIN, INT_MIN);
    const auto grow = [&box](int left, int top, int right, int bottom)
    {
        box.left = std::min<int>(box.left, left);
        box.top = std::min<int>(box.top, top);
        box.right = std::max<int>(box.right, right);
        box.bottom = std::max<int>(box.bottom, bottom);
    };
    if (ellipse)
    {
        KvTRectangle<double> outer;
        contour.MakeBoundingBox(outer);
        grow(Truncated(outer.left), Truncated(outer.top), Rounded(outer.right), Rounded(outer.bottom));
        return box;
    }
    for (auto* node = contour.CurvePositions().head; node; node = node->next)
    {
        const POINT p = PointOf(node->value);
        grow(p.x, p.y, p.x, p.y);
    }
    return box;
}

bool IsEllipse(const KvContour& contour)
{
    return contour.ContourType() == KvContour::eEllipse || contour.ContourType() == KvContour::eCircle;
}

} // namespace

// ---- Sizes
// -------------------------------------------------------------------------------------------------------------

double KvContourWnd::GetZoomFactorFittedToWindow(KvAOIBaseViewWnd* view) const
{
    if (!IsAlive(view))
        return 1.0;
    const KvTSize<short> aoi = SizeOfAOI(*view);
    const double aoiLength = std::sqrt(static_cast<double>(aoi.width) * aoi.height);
    if (!(aoiLength > KvMath::Epsilon))
        return 1.0;
    const CRect client = ClientOf(*view);
    return std::sqrt(static_cast<double>(client.Width()) * client.Height()) / aoiLength;
}

double KvContourWnd::GetEffectiveZoomFactor(KvAOIBaseViewWnd* view) const
{
    if (!IsAlive(view))
        return 1.0;
    double zoom = view->FGetZoomFactorY();
    if (view->FIsAOIFittedToWindow())
    {
        const CRect client = ClientOf(*view);
        const auto clientHeight = static_cast<short>(client.Height());
        KvTPair<short> logic(static_cast<short>(client.Width()), clientHeight);
        view->ConvertPixelToLogic(logic);
        const short height = logic.second == 0 ? short{0} : std::min(logic.second, SizeOfAOI(*view).height);
        if (height != 0)
            zoom = static_cast<double>(clientHeight) / height;
    }
    return std::max(zoom, 0.1);
}

double KvContourWnd::GetEffectiveLineWidth(KvAOIBaseViewWnd* view) const
{
    return m_LineWidth / GetZoomFactorFittedToWindow(view);
}

double KvContourWnd::GetEffectiveLineWidthThumb(KvAOIBaseViewWnd* view) const
{
    return m_LineWidthThumb / GetZoomFactorFittedToWindow(view);
}

double KvContourWnd::GetEffectiveThumbSize(KvAOIBaseViewWnd* view) const
{
    return std::max(m_ThumbSize / GetZoomFactorFittedToWindow(view), m_ThumbSize / std::max<double>(m_LineWidth, 1.0));
}

double KvContourWnd::AOIWndFontHeight(KvAOIBaseViewWnd* view) const
{
    const double zoom = GetEffectiveZoomFactor(view);
    const double height = zoom >= 1.0 ? zoom * FontHeightAtZoomOne : 0.5 * FontHeightAtZoomOne / zoom;
    return std::max<double>(height, FontHeightAtZoomOne);
}

LOGFONTW KvContourWnd::CreateAOIWndLogFont(KvAOIBaseViewWnd* view) const
{
    LOGFONTW font{};
    font.lfHeight = Rounded(AOIWndFontHeight(view)); // positive: of the cell, in logical units
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = ANSI_CHARSET;
    font.lfPitchAndFamily = FF_SWISS;
    const std::wstring face = L"Arial";
    std::copy(face.begin(), face.end(), font.lfFaceName);
    return font;
}

// ---- Stored contours
// ---------------------------------------------------------------------------------------------------

COLORREF KvContourWnd::ColorOf(const KvContour& contour) const
{
    if (contour.Color() != KvContour::NoColor)
        return contour.Color();
    return contour.Exclude() ? m_ColorExcluded : m_Color;
}

void KvContourWnd::DisplayUserDrawnRegions(CDC* pDC, KvAOIBaseViewWnd* view)
{
    if (!view)
        return;
    CDC& dc = pDC ? *pDC : *view->GetOutputDevice();
    dc.SetGraphicsMode(GM_ADVANCED); // never put back: turned ellipses need it
    CPen pen;
    pen.CreatePen(PS_SOLID, m_LineWidth, m_Color);
    CBrush brush;
    brush.CreateSolidBrush(m_Color);
    CFont font;
    const LOGFONTW logFont = CreateAOIWndLogFont(view);
    font.CreateFontIndirect(&logFont);
    const SelectedObject selectedPen(dc, pen);
    const SelectedObject selectedBrush(dc, brush);
    const SelectedObject selectedFont(dc, font);
    const BackgroundMode background(dc, TRANSPARENT);
    const TextColor textColor(dc, m_Color);
    const TextAlignment alignment(dc, TA_CENTER | TA_TOP);
    const Rop2Mode rop(dc, R2_COPYPEN);

    const int width = Rounded(GetEffectiveLineWidth(view));
    const std::optional<CRect> visible = VisiblePart(dc, *view);
    for (unsigned long i = 0; i < m_ContourSeq.NumEntries(); ++i)
    {
        KvContour* contour = m_ContourSeq.GetEntry(i);
        // A read-only contour is invisible, and can't be hit either. Required.
        if (contour->ReadOnly() || (visible && IsOutOfSight(*contour, *visible, width)))
            continue;
        DisplayContour(dc, width, *contour);
    }
    if (m_ShowThumbs)
        DisplayHandles(dc, *view);
}

// Whether nothing of the contour can show. Labels, markers and directions reach further than the outline: contours with
// them are always drawn.
bool KvContourWnd::IsOutOfSight(const KvContour& contour, const CRect& visible, int width) const
{
    const bool symbols = m_ShowPolylineDirection || m_SymbolMarkerList.Count() > 0;
    if (contour.Description().Length() > 0 || (symbols && contour.ContourType() == KvContour::ePolyline))
        return false;
    const CRect box = DrawnBox(contour, IsEllipse(contour));
    const int margin = width + 2;
    return box.right < visible.left - margin || box.left > visible.right + margin ||
           box.bottom < visible.top - margin || box.top > visible.bottom + margin;
}

void KvContourWnd::DisplayContour(CDC& dc, int width, KvContour& contour)
{
    const COLORREF color = ColorOf(contour);
    CPen pen;
    pen.CreatePen(PS_SOLID, width, color);
    CBrush brush;
    brush.CreateSolidBrush(color);
    const SelectedObject selectedPen(dc, pen);
    const SelectedObject selectedBrush(dc, brush);
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(color);
    if (contour.IsValid())
        DisplayShape(dc, contour);
    if (contour.Description().Length() > 0 && contour.ContourType() <= KvContour::eEllipse)
        DisplayLabel(dc, contour);
}

void KvContourWnd::DisplayShape(CDC& dc, KvContour& contour)
{
    if (IsEllipse(contour))
    {
        const SelectedObject hollow(dc, ::GetStockObject(NULL_BRUSH));
        // The viewport gets the logical centre as it stands. Required.
        DrawEllipse(dc, contour, [](POINT centre) { return centre; });
        return;
    }
    const bool line = contour.ContourType() == KvContour::ePolyline;
    DrawSolidPath(dc, contour.CurvePositions(), !line);
    if (!line)
        return;
    DisplayCurrentSymbols(&dc, &contour);
    // A figure in progress shows the markers in their place.
    if (!IsEditing())
        m_SymbolMarkerList.Draw(&dc, contour);
}

// The text on the centre of mass, in a ring whose diameter is the diagonal of the text.
void KvContourWnd::DisplayLabel(CDC& dc, const KvContour& contour) const
{
    const KvVec2d centre = contour.GetCMS();
    const int x = Truncated(centre.x);
    const int y = Truncated(centre.y);
    const CSize extent = dc.GetTextExtent(contour.Description());
    const double diagonal =
        std::sqrt(static_cast<double>(extent.cx) * extent.cx + static_cast<double>(extent.cy) * extent.cy);
    const int top = y - extent.cy / 2;
    dc.TextOut(x, top, contour.Description());

    const SelectedObject hollow(dc, ::GetStockObject(NULL_BRUSH));
    const int radius = Rounded(diagonal * 0.5);
    const int middle = top + extent.cy / 2;
    dc.Ellipse(x - radius, middle - radius, x + radius, middle + radius);
}

void KvContourWnd::DisplayCurrentSymbols(CDC* pDC, KvContour* contour)
{
    if (!pDC || !contour || !m_ShowPolylineDirection || contour->ContourType() != KvContour::ePolyline)
        return;
    const auto& points = contour->CurvePositions();
    if (points.count < 2)
        return;
    const KvVec2d& first = points.head->value;
    const KvVec2d& last = points.tail->value;
    DrawSymbol(*pDC, m_SymbolArrowStart, AngleOf(first, points.head->next->value), first);
    DrawSymbol(*pDC, m_SymbolArrowHead, AngleOf(points.tail->prev->value, last), last);
}

// ---- Handles
// -----------------------------------------------------------------------------------------------------------

void KvContourWnd::DisplayHandles(CDC& dc, KvAOIBaseViewWnd& view)
{
    const KvContour* selected = GetSelectedContour();
    if (!selected)
        return;
    for (unsigned long i = 0; i < m_ContourSeq.NumEntries(); ++i)
    {
        const KvContour& contour = *m_ContourSeq.GetEntry(i);
        if (&contour != selected || contour.ReadOnly() || !contour.IsValid())
            continue;
        if (m_Tool == ToolSelect)
            DisplayBoundingHandles(dc, view, contour);
        else if (m_Tool == ToolEditPoints && IsPointEditModeAllowed())
            DisplayPointHandles(dc, view, contour);
    }
}

void KvContourWnd::DisplayBoundingHandles(CDC& dc, KvAOIBaseViewWnd& view, const KvContour& contour) const
{
    const int size = Rounded(GetEffectiveThumbSize(&view));
    const int line = Rounded(GetEffectiveLineWidthThumb(&view));
    KvContour bounds;
    KvTList<KvVec2d> corners, edgeMiddles;
    contour.MakeBoundingRect(bounds, corners, edgeMiddles);
    {
        HandlePainter edges(dc, size, line, m_ColorEdgeThumbLine, m_ColorEdgeThumbFill);
        for (auto* node = edgeMiddles.head; node; node = node->next)
            edges.Square(node->value);
    }
    HandlePainter rounds(dc, size, line, m_ColorCornerThumbLine, m_ColorCornerThumbFill);
    dc.SetBkMode(OPAQUE);
    for (auto* node = corners.head; node; node = node->next)
        rounds.Round(node->value);
}

void KvContourWnd::DisplayPointHandles(CDC& dc, KvAOIBaseViewWnd& view, const KvContour& contour) const
{
    HandlePainter squares(dc, Rounded(GetEffectiveThumbSize(&view)), Rounded(GetEffectiveLineWidthThumb(&view)),
                          m_ColorPointThumbLine, m_ColorPointThumbFill);
    dc.SetBkMode(OPAQUE);
    for (auto* node = contour.CurvePositions().head; node; node = node->next)
        squares.Square(node->value);
}
