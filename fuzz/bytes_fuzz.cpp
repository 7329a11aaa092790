// Byte arrays as contours: any input reads within its bounds, and what reads as a valid figure writes back the same.
#include "C/syContour.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace
{
using Bytes = KvTArray<unsigned char>;
using KvN::KvContour;

bool Same(const Bytes& a, const Bytes& b)
{
    return a.size == b.size && (a.size == 0 || std::memcmp(a.data, b.data, static_cast<size_t>(a.size)) == 0);
}

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

// Whatever was read, every question has an answer.
void AskEverything(const KvContour& contour)
{
    KvN::KvTRectangle<double> box;
    KvTList<KvN::KvVec2d> corners, middles;
    KvContour other;
    contour.MakeBoundingBox(box);
    contour.MakeBoundingRect(other, corners, middles);
    contour.IsMatch({1.0, 2.0}, 3.0);
    contour.GetPointMatch({1.0, 2.0}, 3.0);
    contour.GetLineMatch({1.0, 2.0}, 3.0);
    contour.IsPointInContour({1.0, 2.0});
    contour.IntersectionsLineContour({-1.0, 2.0}, {5.0, 3.0}, corners);
    contour.CreateSegments(0.0, 6.0, 8, corners);
    contour.RotationAngle();
    other = contour;
    other.Stretch(2.0, 3.0);
    other.MovePoint({1.0, 2.0}, 1);
    other.MoveLine({1.0, 2.0}, {0, 1});
    other.TransformCenterBased({1.0, 2.0}, 0.5);
    other.MakeCCW();
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    Bytes input(static_cast<int>(size)); // exactly as long, so that a read beyond it is found
    if (size > 0)
        std::memcpy(input.data, data, size);
    KvContour contour;
    contour.FromByteArray(input);
    Require(contour.CurvePositions().count <= static_cast<int>(size / 16));
    AskEverything(contour);

    Bytes written, again;
    contour.ToByteArray(written);
    Require((written.size > 0) == (contour.IsValid() != 0));
    if (written.size == 0)
        return 0;
    KvContour read;
    read.FromByteArray(written);
    read.ToByteArray(again);
    Require(Same(written, again));
    return 0;
}
