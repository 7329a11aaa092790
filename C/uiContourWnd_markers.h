// Symbol markers: short ticks across a polyline, at a position along it.
#pragma once

#include "C/syContour.h"

#include <cstdint>

class CDC;

// One tick. Its position is given in steps along a line: the pixels that a line rasteriser would step, from the first
// point on.
class KvSymbolMarker
{
public:
    explicit KvSymbolMarker(int id) : markerId(id) {}

    int ID() const { return markerId; }
    KvN::KvString& Name() { return name; }
    const KvN::KvString& Name() const { return name; }
    // 0x00BBGGRR. Default black.
    unsigned long& Color() { return color; }
    const unsigned long& Color() const { return color; }
    // Pen width in logical units. Default 3.
    int& Width() { return width; }
    const int& Width() const { return width; }
    // Default 0.
    int& IndexPosition() { return indexPosition; }
    const int& IndexPosition() const { return indexPosition; }
    void Show() { shown = 1; }
    void Hide() { shown = 0; }
    int IsShown() const { return shown; }
    int IsHidden() const { return !shown; }

    // Draws the tick at `position`, across the direction from `from` to `to`, unless it is hidden. Logical units.
    void Draw(CDC* pDC, const KvN::KvVec2d& from, const KvN::KvVec2d& to, const KvN::KvVec2d& position);

private:
    int markerId;
    KvN::KvString name;
    unsigned long color = 0;
    int width = 3;
    int indexPosition = 0;
    int shown = 1;
};

// The markers of an editor, in the order of adding. Owns them. They belong to no line: every polyline shows them all.
class KvSymbolMarkerList
{
public:
    KvSymbolMarkerList() = default;
    KvSymbolMarkerList(const KvSymbolMarkerList&) = delete;
    KvSymbolMarkerList& operator=(const KvSymbolMarkerList&) = delete;
    ~KvSymbolMarkerList() { RemoveAllMarker(); }

    // A new marker at the end of the list; stays the list's. IDs and names are not checked for doubles.
    KvSymbolMarker* AddMarker(int id, const KvN::KvString& name);
    // The first marker of that ID or name (case sensitive). Throws KvException* if there is none.
    KvSymbolMarker* GetMarker(int id);
    KvSymbolMarker* GetMarker(const KvN::KvString& name);
    // Deletes the first marker of that ID, if there is one.
    void RemoveMarker(int id);
    void RemoveAllMarker();
    int Count() const { return markers.count; }

    // Draws every marker on the figure's points as an open line. A marker beyond the line's end is not drawn; one
    // before the end of a segment is drawn again on the backward extension of each segment that follows, which is
    // required.
    void Draw(CDC* pDC, const KvN::KvContour& contour);

private:
    KvTList<KvSymbolMarker*> markers;
};
