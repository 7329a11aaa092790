// Masks drawn the plain way: every contour on an 8-bit section of its box by the platform's calls, then merged.
#pragma once

#include "C/syContour.h"
#include "contracts/basics/KvBuffers.h"

namespace kv::test
{

KvN::KvTBuf2D<unsigned char> MaskByDrawingCalls(const KvTList<KvN::KvContour>& contours, int width, int height);

} // namespace kv::test
