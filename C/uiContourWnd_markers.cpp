// Symbol markers: their list, and where along a line they stand.
#include "C/uiContourWnd_markers.h"

#include "C/uiContourWnd_p.h"
#include "C/uiContourWnd_symbols_p.h"
#include "contracts/basics/KvLibrary.h"
#include "platform/afx/dcguards.h"
#include "resources/resource_editor.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace KvN;
using namespace kv::editor;

namespace
{

// The tick across a line that runs along x.
constexpr std::array<KvVec2d, 3> m_SymbolMarker = {KvVec2d(0.0, 10.0), KvVec2d(0.0, 0.0), KvVec2d(0.0, -10.0)};

constexpr unsigned long LineOfUnknownID = 201;
constexpr unsigned long LineOfUnknownName = 215;

// `key` is what the text names: an int, or a `const wchar_t*`.
template <class Key>
[[noreturn]] void ThrowUnknown(unsigned long line, unsigned short text, Key key)
{
    const KvString format(KvResId(text, GetResourceModule()));
    throw new KvException("C/uiContourWnd", line, KvString().SPrintf(format.Text().Wide().c_str(), key));
}

template <class Test>
KvSymbolMarker* FirstMarker(const KvTList<KvSymbolMarker*>& markers, Test test)
{
    for (auto* node = markers.head; node; node = node->next)
    {
        if (test(*node->value))
            return node->value;
    }
    return nullptr;
}

// Calls `place` with the segment's ends and the marker's position, for each segment on which the marker shows.
template <class Place>
void PlaceOnLine(const KvTList<KvVec2d>& points, int target, Place place)
{
    long long sum = 0;
    for (auto* node = points.head; node && node->next; node = node->next)
    {
        const KvVec2d& from = node->value;
        const KvVec2d& to = node->next->value;
        const double x = Truncated(from.x);
        const double y = Truncated(from.y);
        const double dx = Truncated(to.x) - x;
        const double dy = Truncated(to.y) - y;
        const auto steps = static_cast<long long>(std::max(std::abs(dx), std::abs(dy)));
        // The walk goes on after a hit: later segments show the marker on their backward extension. Required.
        if (target <= sum + steps)
        {
            const double t = steps == 0 ? 0.0 : static_cast<double>(target - sum) / static_cast<double>(steps);
            place(from, to, KvVec2d(Truncated(dx * t) + x, Truncated(dy * t) + y));
        }
        sum += steps;
    }
}

} // namespace

void KvSymbolMarker::Draw(CDC* pDC, const KvVec2d& from, const KvVec2d& to, const KvVec2d& position)
{
    if (!pDC || IsHidden())
        return;
    try
    {
        CPen pen;
        pen.CreatePen(PS_SOLID, width, static_cast<COLORREF>(color));
        const SelectedObject selected(*pDC, pen);
        DrawSymbol(*pDC, m_SymbolMarker, AngleOf(from, to), position);
    }
    catch (CException* exception)
    {
        throw AsKvException(exception);
    }
}

KvSymbolMarker* KvSymbolMarkerList::AddMarker(int id, const KvString& name)
{
    auto* marker = new KvSymbolMarker(id);
    marker->Name() = name;
    markers.AddTail(marker);
    return marker;
}

KvSymbolMarker* KvSymbolMarkerList::GetMarker(int id)
{
    if (KvSymbolMarker* marker = FirstMarker(markers, [&](const KvSymbolMarker& m) { return m.ID() == id; }))
        return marker;
    ThrowUnknown(LineOfUnknownID, IDS_MARKER_UNKNOWN_ID, id);
}

KvSymbolMarker* KvSymbolMarkerList::GetMarker(const KvString& name)
{
    if (KvSymbolMarker* marker = FirstMarker(markers, [&](const KvSymbolMarker& m) { return m.Name() == name; }))
        return marker;
    ThrowUnknown(LineOfUnknownName, IDS_MARKER_UNKNOWN_NAME, name.Text().Wide().c_str());
}

void KvSymbolMarkerList::RemoveMarker(int id)
{
    KvTList<KvSymbolMarker*> kept;
    bool found = false;
    for (auto* node = markers.head; node; node = node->next)
    {
        const bool remove = !found && node->value->ID() == id;
        found = found || remove;
        if (remove)
            delete node->value;
        else
            kept.AddTail(node->value);
    }
    markers = kept;
}

void KvSymbolMarkerList::RemoveAllMarker()
{
    for (auto* node = markers.head; node; node = node->next)
        delete node->value;
    markers.Clear();
}

void KvSymbolMarkerList::Draw(CDC* pDC, const KvContour& contour)
{
    for (auto* node = markers.head; node; node = node->next)
    {
        KvSymbolMarker& marker = *node->value;
        PlaceOnLine(contour.CurvePositions(), marker.IndexPosition(),
                    [&](const KvVec2d& from, const KvVec2d& to, const KvVec2d& position)
                    { marker.Draw(pDC, from, to, position); });
    }
}
