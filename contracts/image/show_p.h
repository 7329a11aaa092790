// How AOIs come onto a context's pixels. Private to the image contract.
#pragma once

#include "contracts/basics/KvRectangle.h"

class CDC;

namespace KvN
{
class KvAOI;
class KvAOI8;
} // namespace KvN

namespace KvN::show
{

// What is laid over an image; nothing without an overlay.
struct Blend
{
    const KvAOI* overlay = nullptr;
    const KvAOI8* mask = nullptr;
    float strength = 0.0f;
};

// The drawing behind the Show family: the source area of `aoi` onto the destination area, unsmoothed.
void Stretched(const KvAOI& aoi, const Blend& blend, const KvTRectangle<short>& source,
               const KvTRectangle<short>& destination, CDC* dc);

} // namespace KvN::show
