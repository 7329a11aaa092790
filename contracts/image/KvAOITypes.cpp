// The range that a float AOI is shown with.
#include "contracts/image/KvAOITypes.h"

#include "contracts/image/KvOperators.h"

namespace KvN
{

KvTFloatRange<float> KvAOI32Float::DisplayRange() const
{
    if (aoiInfo && aoiInfo->valid)
        return {static_cast<float>(aoiInfo->normZ.displayMin), static_cast<float>(aoiInfo->normZ.displayMax)};
    if (scannedGeneration != GetDevice()->Generation())
    {
        KvxScanRange(this, nullptr, scanned);
        scannedGeneration = GetDevice()->Generation();
    }
    return scanned;
}

} // namespace KvN
