// Drawing of contour lists into masks, and what happens when that fails.
#include "C/syContourToMask.h"

#include "C/syContourToMask_p.h"
#include "contracts/basics/KvExceptionManager.h"
#include "contracts/basics/KvLibrary.h"
#include "resources/resource.h"

#include <memory>
#include <typeinfo>

namespace KvN
{

namespace
{

// Draws straight into the AOI if nothing can fail on the way, and if storing a block is known to be a mere copy there;
// else into a buffer that is stored at last.
void DrawInto(mask::Figures& figures, KvAOI8& aoi, unsigned char value)
{
    const int width = aoi.AOIWidth(), height = aoi.AOIHeight();
    const bool neverFails = figures.Reserve();
    const bool plain = typeid(aoi) == typeid(KvAOI8) || typeid(aoi) == typeid(KvBufferAOI8);
    if (neverFails && plain && width > 0 && height > 0)
    {
        figures.Draw({aoi.GetRowPointer(0), width, height}, value);
        return;
    }
    KvTBuf2D<unsigned char> buffer(width, height);
    figures.Draw({buffer.data, buffer.width, buffer.height}, value);
    aoi.SetBlock(buffer);
}

// Makes a KvException of any failure of the framework.
KvException* AsKvException(CException* failure)
{
    if (auto* known = dynamic_cast<KvException*>(failure))
        return known;
    const std::unique_ptr<CException> owned(failure);
    return new KvException(*failure);
}

} // namespace

void KvContourToMask::Execute(KvTList<KvContour> contours, KvAOI8* aoi)
{
    Draw(contours, aoi);
}

void KvContourToMask::Draw(const KvTList<KvContour>& contours, KvAOI8* aoi)
try
{
    mask::Figures figures(aoi->AOIWidth(), aoi->AOIHeight());
    figures.Expect(contours.count);
    for (const auto* node = contours.head; node; node = node->next)
        figures.Add(node->value);
    // Figures are drawn in white, so the mask gets what white is in the table of results.
    DrawInto(figures, *aoi, static_cast<unsigned char>(GetOLutResult()->NearestIndex(KvColor(255, 255, 255))));
}
catch (CException* failure)
{
    KvException* known = AsKvException(failure);
    const KvString what(KvResId(IDS_CONTOUR_BITMAP_FAILED, GetResourceModule()));
    pExceptionMgr->WriteToDebugFile(what + known->GetMessageW(), 1, 1);
    throw known;
}

const KvOLut* KvContourToMask::GetOLutResult()
{
    return pOLutMgr->GetLut(L"DefectRegion");
}

} // namespace KvN
