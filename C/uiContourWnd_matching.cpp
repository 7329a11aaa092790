// What a position hits: a handle, a point, an edge or a contour. The selected contour goes first, then all contours by
// ascending ID; the drawing order plays no part. The catch radius is in logical units at every zoom.
#include "C/uiContourWnd.h"
#include "C/uiContourWnd_p.h"

using namespace KvN;
using namespace kv::editor;

namespace
{

bool HasEditablePoints(const KvContour& contour)
{
    return contour.ContourType() == KvContour::ePolygon || contour.ContourType() == KvContour::ePolyline;
}

// The index of the first point nearer than the radius, or -1.
int NearPoint(const KvTList<KvVec2d>& points, const KvVec2d& p, double radius)
{
    int index = 0;
    for (auto* node = points.head; node; node = node->next, ++index)
    {
        if ((node->value - p).Length() < radius)
            return index;
    }
    return -1;
}

} // namespace

// The first contour that can be picked and for which `hit` holds. Interaction off and read-only contours hit nothing.
template <class Hit>
KvContour* KvContourWnd::FirstHit(Hit hit) const
{
    if (!m_Interaction)
        return nullptr;
    KvContour* selected = GetSelectedContour();
    if (selected && !selected->ReadOnly() && hit(*selected))
        return selected;
    for (unsigned long i = 0; i < m_Contours.NumEntries(); ++i)
    {
        KvContour* contour = m_Contours.GetEntry(i);
        if (!contour->ReadOnly() && hit(*contour))
            return contour;
    }
    return nullptr;
}

KvContour* KvContourWnd::SelectedWithHandles() const
{
    KvContour* selected = m_Interaction ? GetSelectedContour() : nullptr;
    return selected && !selected->ReadOnly() ? selected : nullptr;
}

KvContour* KvContourWnd::MatchObject(const Position& point) const
{
    const KvVec2d p = AsVector(point);
    return FirstHit([&](const KvContour& contour) { return contour.IsMatch(p, m_CatchSize) != 0; });
}

KvContour* KvContourWnd::MatchBoundingRectCornerPoints(const Position& point, KvContour* rect, long* index) const
{
    if (index)
        *index = -1;
    KvContour* selected = SelectedWithHandles();
    if (!selected)
        return nullptr;
    KvContour bounds;
    KvTList<KvVec2d> corners, edgeMiddles;
    selected->MakeBoundingRect(bounds, corners, edgeMiddles);
    if (rect)
        *rect = bounds;
    const int corner = NearPoint(corners, AsVector(point), m_CatchSize);
    if (corner < 0)
        return nullptr;
    if (index)
        *index = corner;
    return selected;
}

KvContour* KvContourWnd::MatchBoundingRectEdgePoints(const Position& point, KvContour* rect, Pair* edge) const
{
    if (edge)
        *edge = Pair(-1, -1);
    KvContour* selected = SelectedWithHandles();
    if (!selected)
        return nullptr;
    KvContour bounds;
    KvTList<KvVec2d> corners, edgeMiddles;
    selected->MakeBoundingRect(bounds, corners, edgeMiddles);
    if (rect)
        *rect = bounds;
    const int first = NearPoint(edgeMiddles, AsVector(point), m_CatchSize);
    if (first < 0)
        return nullptr;
    if (edge)
        *edge = Pair(first, (first + 1) % edgeMiddles.count);
    return selected;
}

KvContour* KvContourWnd::MatchPointOfPoly(const Position& point, long& index) const
{
    index = -1;
    const KvVec2d p = AsVector(point);
    return FirstHit([&](const KvContour& contour)
                    { return HasEditablePoints(contour) && (index = contour.GetPointMatch(p, m_CatchSize)) >= 0; });
}

KvContour* KvContourWnd::MatchLineOfPoly(const Position& point, Pair& line) const
{
    line = Pair(-1, -1);
    const KvVec2d p = AsVector(point);
    return FirstHit([&](const KvContour& contour)
                    { return HasEditablePoints(contour) && (line = contour.GetLineMatch(p, m_CatchSize)).first >= 0; });
}
