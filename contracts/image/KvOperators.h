// Operators on whole AOIs. Each is a plain object, made for the one call. Source and destination may be the same AOI.
#pragma once

#include "contracts/image/KvAOITypes.h"

namespace KvN
{

class KvLTransfer
{
public:
    // Copies the pixels into an AOI of the same size; of different sizes, the area that both have. Floats become bytes
    // rounded to nearest and clamped (a NaN gives 0), colours become grey by luminance, grey becomes colour.
    void Copy(const KvAOI* source, KvAOI* destination) const;
    // For each pixel of two 8-bit AOIs: the destination's bits of `mask` shifted by `shift` (to the right if negative)
    // take the source's bits of `mask`, shifted likewise; others stay. Other AOIs are left alone. The last number is
    // kept for callers of the former interface and plays no part.
    void TransferBits(const KvAOI* source, KvAOI* destination, long mask, long shift, int) const;
};

class KvLLogic
{
public:
    // destination = source AND value, for 8-bit AOIs; others are left alone.
    void And(const KvAOI* source, unsigned long value, KvAOI* destination) const;
};

// destination = source (+, *) value, for float AOIs; others are left alone.
class KvLArithmetic
{
public:
    void Add(const KvAOI* source, float value, KvAOI* destination) const;
    void Multiply(const KvAOI* source, float value, KvAOI* destination) const;
};

// The lowest and the highest value, NaNs left out; with a mask, over the pixels whose byte in it isn't 0. 0 to 0 if
// there is no such pixel.
void KvxScanRange(const KvAOI32Float* aoi, const KvAOI8* mask, KvTFloatRange<float>& range);

} // namespace KvN
