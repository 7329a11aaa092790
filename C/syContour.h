// KvContour: the one value class in which every figure lives, with all its geometry.
// Defined in syContour.cpp (record), and by concern in syContour_shapes, _measures, _hits, _lines, _transform, _bytes.
#pragma once

#include "contracts/basics/KvBuffers.h"
#include "contracts/basics/KvList.h"
#include "contracts/basics/KvMath.h"
#include "contracts/basics/KvPList.h"
#include "contracts/basics/KvPoint.h"
#include "contracts/basics/KvRectangle.h"
#include "contracts/basics/KvString.h"
#include "contracts/basics/KvVec.h"

#include <cstdint>
#include <limits>

namespace KvN
{

// A rectangle, polygon, polyline, square, ellipse or circle on an image.
//
// Space: image pixels as doubles, x to the right, y downward. Counter-clockwise is meant as seen on that image, and so
// are positive angles, in radians.
// Results: truth values are int 1 and 0. Nothing here throws or reports: an unusable figure is not valid, and geometry
// answers for it with 0, 0.0, -1 or an unchanged object, as told at each operation. Only running out of memory throws.
// Points: at most 65,535 a figure.
// Threads: one. A const read by index moves the cursor of the point list, so that two threads may not even read the
// same contour at once.
class KvContour
{
public:
    // What the points of `CurvePositions` mean. Closed figures are stored counter-clockwise.
    enum eContourType : int
    {
        eRectangle = 0, // exactly 4: the corners in order around the figure, at any rotation
        ePolygon = 1,   // 3 or more: the vertices; the last one is not repeated, the closing edge is implied
        ePolyline = 2,  // 2 or more: the vertices of an open line in drawing order
        eSquare = 3,    // exactly 4: as a rectangle, with equal sides
        eEllipse = 4,   // exactly 3: the centre, the end of the first semi-axis, the end of the second
        eCircle = 5     // exactly 2: the centre, a point on the circumference
    };

    // `LineWidth` and `Color` that were never set.
    static constexpr double NoLineWidth = std::numeric_limits<double>::max();
    static constexpr std::uint32_t NoColor = 0xFFFFFFFFu;
    // The tolerance of `operator==` until `SetAllowedCompareDifference`.
    static constexpr double DefaultCompareDifference = std::numeric_limits<double>::epsilon();

protected:
    // Sets every field to its default, the compare tolerance included, and empties the point list.
    virtual void Init();
    // Copies everything but the compare tolerance, which stays.
    virtual void Init(const KvContour& other);

public:
    // An empty rectangle, which is not valid, with all fields at their defaults.
    KvContour();
    // A deep copy; its compare tolerance is the default.
    KvContour(const KvContour& other);
    // A deep copy that keeps its own compare tolerance. Assigning a contour to itself changes nothing.
    KvContour& operator=(const KvContour& other);
    virtual ~KvContour();

    // ---- Fields -----------------------------------------------------------------------------------------------------

    // Identity inside the contour's owner; negative means none. Default -1.
    std::int32_t& ID() { return id; }
    const std::int32_t& ID() const { return id; }
    // A second ordering number. Default -1.
    std::int32_t& SequenceID() { return sequenceId; }
    const std::int32_t& SequenceID() const { return sequenceId; }
    // Non-zero: the figure removes from a mask instead of adding to it. Default 0.
    int& Exclude() { return exclude; }
    const int& Exclude() const { return exclude; }
    // Non-zero: the figure may not be edited; stored only, editors heed it. Default 0.
    int& ReadOnly() { return readOnly; }
    const int& ReadOnly() const { return readOnly; }
    // Width of a polyline in pixels; no other type uses it. Default `NoLineWidth`.
    double& LineWidth() { return lineWidth; }
    const double& LineWidth() const { return lineWidth; }
    // 0x00BBGGRR. Default `NoColor`.
    std::uint32_t& Color() { return color; }
    const std::uint32_t& Color() const { return color; }
    // Free text.
    KvString& Description() { return description; }
    const KvString& Description() const { return description; }
    // Any int may stand here; a value that is no type makes the figure invalid. Default `eRectangle`.
    eContourType& ContourType() { return contourType; }
    const eContourType& ContourType() const { return contourType; }
    // The points, by type as told at `eContourType`. The contour owns them.
    KvTList<KvVec2d>& CurvePositions() { return curvePositions; }
    const KvTList<KvVec2d>& CurvePositions() const { return curvePositions; }
    // The rotation that `Transform` has added up, in polygons and polylines only; the other types carry their rotation
    // in their points. Default 0.0. See `RotationAngle`.
    double& Angle() { return angle; }
    const double& Angle() const { return angle; }

    // How far apart two corresponding points may lie, in pixels, for `operator==` of this object.
    void SetAllowedCompareDifference(double difference) { allowedCompareDifference = difference; }

    // ---- Record -----------------------------------------------------------------------------------------------------

    // Makes the frame of an image of that size in pixels: a rectangle over the centres of its outermost pixels, so that
    // each side is one shorter than the image, and 0 for a size below 1. Other fields stay.
    void Default(const KvTSize<short>& size);

    // 1 if type and point count are the same and no point lies further from its partner than this object's tolerance.
    // No other field is compared, and only the left side's tolerance counts.
    int operator==(const KvContour& other);
    // The same: without them C++20 would take a == b for b == a where a's operator needs a non-const object.
    int operator==(KvContour& other) { return *this == static_cast<const KvContour&>(other); }
    int operator==(KvContour&& other) { return *this == static_cast<const KvContour&>(other); }

    // Compare functions for lists, by `ID` and by `SequenceID`: 1 if a's is greater, -1 if it is smaller, else 0.
    static long CmpFunc(KvContour* a, KvContour* b);
    static long CmpFuncSeq(KvContour* a, KvContour* b);
    // Clear function for lists of owned contours: deletes; null is allowed.
    static void ClrFunc(KvContour* contour);

    // 1 if the point count fits the type and the area, or a polyline's length, is above 0. So a clockwise closed figure
    // is invalid. Right angles and equal sides are not tested.
    int IsValid() const;
    // Square pixels. Rectangles, polygons and squares: positive counter-clockwise, negative clockwise. Ellipses and
    // circles: from the lengths of their semi-axes, and 0.0 with another point count or a semi-axis of at most Epsilon.
    // Polylines and foreign types: 0.0.
    double GetArea() const;
    // Centre of mass. Ellipses and circles: their centre. Polylines, foreign types, empty figures: (0, 0). Other
    // figures without a positive area (clockwise ones too): the middle of first and last point.
    KvVec2d GetCMS() const;
    // Perimeter in pixels; a polyline's length without a closing edge. An ellipse answers 0.0.
    double GetLength() const;

    // ---- Construction: replaces type and points, keeps all other fields
    // --------------------------------------------------

    // Opposite corners of an upright rectangle.
    void MakeRectFromDiagonal(const KvVec2d& a, const KvVec2d& b);
    void MakeRectFromDiagonal(double x1, double y1, double x2, double y2);
    // One edge, and the extent across it in pixels, which may be negative. An edge of length 0 has the normal (1, 0).
    void MakeRectFromEdge(const KvVec2d& a, const KvVec2d& b, double width);
    void MakeRectFromEdge(double x1, double y1, double x2, double y2, double width);
    // Centre line from the middle of one edge to that of the opposite one, and half the width across it. An axis
    // shorter than Epsilon counts as pointing along x for the normal.
    void MakeRectFromAxis(const KvVec2d& a, const KvVec2d& b, double halfWidth);
    void MakeRectFromAxis(double x1, double y1, double x2, double y2, double halfWidth);
    // Keeps corner a and grows towards b, with the longer side of their box.
    void MakeSquareFromDiagonal(const KvVec2d& a, const KvVec2d& b);
    void MakeSquareFromDiagonal(double x1, double y1, double x2, double y2);
    void MakeSquareFromEdge(const KvVec2d& a, const KvVec2d& b);
    void MakeSquareFromEdge(double x1, double y1, double x2, double y2);
    void MakeSquareFromAxis(const KvVec2d& a, const KvVec2d& b);
    void MakeSquareFromAxis(double x1, double y1, double x2, double y2);

    // The absolute radius counts. 0 if it is at most Epsilon; the points are stored all the same.
    int MakeCircle(const KvVec2d& centre, double radius);
    int MakeCircle(double x, double y, double radius);
    // The circle inside a square. 0 and an empty circle if the argument is no valid `eSquare`.
    int MakeCircleFromSquare(const KvContour& square);
    // The circle inside `MakeSquareFromDiagonal(a, b)`, not inside the box of a and b.
    void MakeCircleFromDiagonal(const KvVec2d& a, const KvVec2d& b);
    void MakeCircleFromDiagonal(double x1, double y1, double x2, double y2);
    // Absolute semi-axes a and b, turned counter-clockwise by `rotation`. 0 if one of them is at most Epsilon; the
    // points are stored all the same.
    int MakeEllipse(const KvVec2d& centre, double rotation, double a, double b);
    int MakeEllipse(double x, double y, double rotation, double a, double b);
    // The ellipse inside an upright rectangle; for a turned one its first semi-axis is mirrored at the x direction. A
    // square gives a circle. 0 and an empty ellipse if the argument is no valid rectangle or square.
    int MakeEllipseFromRect(const KvContour& rect);
    void MakeEllipseFromDiagonal(const KvVec2d& a, const KvVec2d& b);
    void MakeEllipseFromDiagonal(double x1, double y1, double x2, double y2);

    // The loaders set all fields to their defaults first. A buffer with too few points (for rectangles: not exactly 4)
    // leaves the figure empty.
    void RectFromMem(const KvTMem<KvTPoint<double>>& mem);
    void PolygonFromMem(const KvTMem<KvTPoint<double>>& mem);
    // Needs 3 points, although a line of 2 is valid.
    void PolylineFromMem(const KvTMem<KvTPoint<double>>& mem);
    // Types 0 and 1 only; any other type leaves an empty rectangle.
    void ContourFromMem(unsigned long type, const KvTMem<KvTPoint<double>>& mem);

    // Reverses a rectangle, polygon or square that runs clockwise.
    void MakeCCW();

    // ---- Measures ---------------------------------------------------------------------------------------------------

    // Pixels; 0.0 unless this is a valid circle.
    double Radius() const;
    // Pixels; 0.0 unless this is a valid ellipse or circle.
    double SemiAxisLength1() const;
    double SemiAxisLength2() const;
    // Radians. Valid rectangles, squares, ellipses: from the points, 0 up to 2 Pi; the corner that stands first
    // decides. Polygons and polylines: `Angle` as it stands. Else 0.0.
    double RotationAngle() const;
    // Axis-parallel box in image coordinates, right and bottom being plain coordinates. Polylines are widened by half
    // their `LineWidth`. 1 for a rectangle, polygon, polyline or square with points. Ellipses and circles answer 0
    // although `box` is filled (by the box of their circumscribed parallelogram); in all other cases of 0 its four
    // sides are the largest double.
    int MakeBoundingBox(KvTRectangle<double>& box) const;
    // Oriented bounding rectangle: along the figure's own axes, or along `Angle` for polygons and polylines. A flat
    // figure gets an extent of 2 Epsilon. Rectangles and squares copy themselves, fields included; a circle gives a
    // square. For an invalid figure `rect` is a default contour.
    void MakeBoundingRect(KvContour& rect) const;
    // The same, with the rectangle's corners and the middles of its edges; both lists are emptied first.
    void MakeBoundingRect(KvContour& rect, KvTList<KvVec2d>& corners, KvTList<KvVec2d>& edgeMiddles) const;
    // Inverse of `MakeRectFromAxis`. 0, and all results 0.0, unless this is a rectangle or square of 4 points.
    int MakeAxisFromRect(double& x1, double& y1, double& x2, double& y2, double& halfWidth) const;
    int MakeAxisFromRect(KvVec2d& a, KvVec2d& b, double& halfWidth) const;

    // ---- Hit tests; `tolerance` is a length in image pixels
    // -------------------------------------------------------------

    // 1 if p is on the outline. Edges answer by the test of the segment form. Valid ellipses and circles: within
    // `tolerance` of the outline, for an ellipse in a stretched frame; invalid ones: nearer than `tolerance` to point
    // 0.
    int IsMatch(const KvVec2d& p, double tolerance) const;
    static int IsMatch(const KvTList<KvVec2d>& points, const KvVec2d& p, double tolerance, int closed);
    // 1 if the segment crosses a diagonal of the upright square of side `tolerance` around p. This is no distance test:
    // a segment that lies within one of the four triangles of that square does not match.
    static int IsMatch(const KvVec2d& a, const KvVec2d& b, const KvVec2d& p, double tolerance);
    // Index of the first stored point nearer to p than `tolerance`, which need not be the nearest; -1 if there is none.
    // Ellipses and circles offer their defining points.
    long GetPointMatch(const KvVec2d& p, double tolerance) const;
    static long GetPointMatch(const KvTList<KvVec2d>& points, const KvVec2d& p, double tolerance);
    // The point indices of the first edge that matches p; (-1, -1) if there is none and for ellipses and circles.
    KvTPair<long> GetLineMatch(const KvVec2d& p, double tolerance) const;
    static KvTPair<long> GetLineMatch(const KvTList<KvVec2d>& points, const KvVec2d& p, double tolerance, int closed);

    // 1 for a point inside a valid ellipse or circle. 0 for all other figures: `IsPointInPoly` answers 0 everywhere.
    int IsPointInContour(const KvVec2d& p) const;
    // Always 0: its scan line is so long that the crossings come out as not-a-number. That is required.
    static int IsPointInPoly(const KvTList<KvVec2d>& points, const KvVec2d& p);

    // ---- Intersections ----------------------------------------------------------------------------------------------

    // 1 if the segment a-b crosses the figure's edges, with the crossings in `out`, which is emptied first, from b back
    // to a. They are sorted by x alone: in a steep segment by falling x if it runs down, by growing x if it runs up. A
    // polyline counts as closed here. Segments shorter than Epsilon give 0; ellipses and circles give 0 and leave `out`
    // as it is. The pointer list owns its new vectors.
    int IntersectionsLineContour(const KvVec2d& a, const KvVec2d& b, KvTPList<KvVec2d>& out) const;
    int IntersectionsLineContour(const KvVec2d& a, const KvVec2d& b, KvTList<KvVec2d>& out) const;
    static int IntersectionsLinePoly(const KvVec2d& a, const KvVec2d& b, const KvTList<KvVec2d>& points,
                                     KvTPList<KvVec2d>& out, int closed);
    static int IntersectionsLinePoly(const KvVec2d& a, const KvVec2d& b, const KvTList<KvVec2d>& points,
                                     KvTList<KvVec2d>& out, int closed);

    // Turn from a-b to c: 1 counter-clockwise, -1 clockwise. Collinear: -1 behind a, 1 beyond b, 0 on the segment.
    static long ccw(const KvVec2d& a, const KvVec2d& b, const KvVec2d& c);
    // 1 if the segments a-b and c-d touch or cross.
    static int LinesIntersect(const KvVec2d& a, const KvVec2d& b, const KvVec2d& c, const KvVec2d& d);
    // 1 and the crossing of the two segments. 0, and the largest double in both coordinates, if they don't meet or are
    // parallel, even where they touch.
    static int LinesIntersection(const KvVec2d& a, const KvVec2d& b, const KvVec2d& c, const KvVec2d& d, KvVec2d& out);
    // Distance of p from the infinite line through a and b; from a, if the two are closer than Epsilon.
    static double DistPointToLine(const KvVec2d& a, const KvVec2d& b, const KvVec2d& p);
    // 1 if |x| is a multiple of Pi or at most Epsilon above one; just below one it is 0.
    static int IsMultipleOfPi(double x);
    // How often Pi goes into x, with the sign of x, and the rest. A count beyond a long gives the nearest bound.
    static long NumPi(double x, double& rest);

    // Samples a valid ellipse or circle from angle `start` to `end`, measured from its first semi-axis in the direction
    // of growing y, in steps of 2 Pi / |segments|; the end point is always added. The second semi-axis counts as
    // perpendicular. 0 and an empty list for other figures, and for more than a million samples or angles that are
    // not finite.
    int CreateSegments(double start, double end, long segments, KvTList<KvVec2d>& out) const;

    // ---- Transformation ---------------------------------------------------------------------------------------------

    // Turns all points counter-clockwise about `pivot`, then moves them. Polygons and polylines add the angle to
    // `Angle`.
    void Transform(const KvVec2d& pivot, const KvVec2d& translation, double rotation);
    // About `GetCMS()`, which for a polyline is (0, 0).
    void TransformCMSBased(const KvVec2d& translation, double rotation);
    // In the three forms with two points the figure turns by the angle that brings `to` to `from`, as seen from the
    // pivot. If one of the two is closer to it than Epsilon nothing happens, not even the translation.
    void TransformCMSBased(const KvVec2d& translation, const KvVec2d& from, const KvVec2d& to);
    // About the centre of `MakeBoundingRect`; about (0, 0) for an invalid figure.
    void TransformCenterBased(const KvVec2d& translation, double rotation);
    void TransformCenterBased(const KvVec2d& translation, const KvVec2d& from, const KvVec2d& to);
    // About (0, 0).
    void TransformOriginBased(const KvVec2d& translation, double rotation);
    void TransformOriginBased(const KvVec2d& translation, const KvVec2d& from, const KvVec2d& to);

    // Scales about `GetCMS()` along the figure's own axes. Negative factors mirror polygons and polylines and count as
    // positive elsewhere. Unequal factors turn a square into a rectangle and a circle into an ellipse. A polyline
    // stretches about (0, 0). Nothing happens to an invalid figure or with a factor below Epsilon.
    void Stretch(double factorX, double factorY);
    void Stretch(double factor);

    // Drags a corner to `target`. Rectangles keep the opposite corner and their angles; upright squares stay squares,
    // turned ones don't; polygons move that point alone. Other types and bad indices: nothing.
    void MovePoint(const KvVec2d& target, long index);
    // Drags an edge (i, i + 1) of a rectangle or square through `target`, keeping its direction. A square of side L
    // gets a far side of L times the new extent. Other types, equal or bad indices: nothing.
    void MoveLine(const KvVec2d& target, const KvTPair<long>& edge);

    // ---- Bytes ------------------------------------------------------------------------------------------------------

    // Everything but the compare tolerance, exact to the bit: little-endian, 32-bit integers and binary64 doubles
    // without padding: 1, 0, type, ID, SequenceID, Exclude, ReadOnly, Angle, LineWidth, Color, the length of
    // `Description` and its UTF-16 units, the number of points and x, y of each. Leaves `bytes` empty for an invalid
    // figure (and for one of more than 2^31 bytes).
    void ToByteArray(KvTArray<unsigned char>& bytes);
    // Replaces the whole contour. Anything that ends too early gives a default contour. Type and points are taken as
    // they stand: check `IsValid`. Bytes behind the last point are ignored; a description ends at its first zero unit.
    void FromByteArray(const KvTArray<unsigned char>& bytes);

protected:
    // a * d - b * c.
    static double Determinant(double a, double b, double c, double d);

    // Clear and compare functions of intersection lists.
    static void IntersectionClrFunc(KvVec2d* point);
    static long IntersectionCompXPlus(KvVec2d* first, KvVec2d* second);
    static long IntersectionCompXMinus(KvVec2d* first, KvVec2d* second);
    static long IntersectionCompYPlus(KvVec2d* first, KvVec2d* second);
    static long IntersectionCompYMinus(KvVec2d* first, KvVec2d* second);

private:
    std::int32_t id = -1;
    std::int32_t sequenceId = -1;
    int exclude = 0;
    int readOnly = 0;
    double lineWidth = NoLineWidth;
    std::uint32_t color = NoColor;
    KvString description;
    eContourType contourType = eRectangle;
    KvTList<KvVec2d> curvePositions;
    double angle = 0.0;
    double allowedCompareDifference = DefaultCompareDifference;
};

} // namespace KvN
