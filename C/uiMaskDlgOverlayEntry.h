// One picture of the overlay dialog's list: an AOI of the host and the float copy of it that the view shows.
#pragma once

#include "contracts/basics.h"
#include "contracts/image.h"

#include <memory>
#include <vector>

namespace KvN
{

class KvAOIListEntry
{
public:
    int selected = 0;
    KvBufferAOI32Float buffer{KvTSize<short>(1, 1), 0};
    KvAOI32Float* displayAOI = nullptr; // owned; null without a source
    KvAOI* sourceAOI = nullptr;         // not owned

    // Copies pixels, table, UI name and scale of the source; the shown range is the range of its values, or up to 255
    // for an 8-bit source. A null source gives an entry without display.
    explicit KvAOIListEntry(KvAOI* source = nullptr);
    // For moving: the copy shows the very AOI of the other entry.
    KvAOIListEntry(const KvAOIListEntry& other) = default;
    ~KvAOIListEntry();
    // Makes a display of its own. The former one stays until this entry goes, as a view may still show it.
    KvAOIListEntry& operator=(const KvAOIListEntry& other);

    // 1 if bits 7 and 5 agree in every byte of an 8-bit AOI; also for null, without size, or of another kind.
    static int CheckObjEqSegment(KvAOI* aoi);
    // 1 if any byte of an 8-bit AOI has any of `bits`; 0 for null, without size, or of another kind.
    static int CheckSegment8(KvAOI* aoi, unsigned char bits);

private:
    void MakeDisplay(const KvAOI& like);

    std::vector<std::shared_ptr<KvAOI32Float>> displays; // the last one is `displayAOI`
};

} // namespace KvN
