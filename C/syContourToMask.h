// KvContourToMask: a list of contours drawn into an 8-bit mask.
#pragma once

#include "C/syContour.h"
#include "contracts/basics/KvList.h"
#include "contracts/image/KvAOITypes.h"

namespace KvN
{

// Every figure is drawn as on an 8-bit bitmap of its own bounding box, with the pixels of the platform's drawing calls:
// what a figure has outside that box, whose bounds are truncated toward zero, doesn't reach the mask. Covered pixels
// get the index of white in the table "DefectRegion"; a figure with `Exclude` sets them to 0.
class KvContourToMask
{
public:
    KvContourToMask() = default;
    KvContourToMask(const KvContourToMask&) = default;
    KvContourToMask& operator=(const KvContourToMask&) = default;
    virtual ~KvContourToMask() = default;

    // Replaces the AOI's whole content by the figures, drawn in list order: an excluding figure takes away only what
    // came before it. After a failure, which is thrown on and stands in the debug file, the AOI is as it was.
    void Execute(KvTList<KvContour> contours, KvAOI8* aoi);
    // The same without a copy of the list, whose cursors stay where they are.
    void Draw(const KvTList<KvContour>& contours, KvAOI8* aoi);

private:
    const KvOLut* GetOLutResult();
};

} // namespace KvN
