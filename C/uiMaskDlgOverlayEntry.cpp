// The entries of the overlay dialog's list of pictures.
#include "C/uiMaskDlgOverlayEntry.h"

namespace KvN
{

namespace
{

KvNorm PlainNorm(const KvString& unit)
{
    KvNorm norm;
    norm.origin = 0.0;
    norm.step = 1.0;
    norm.factor = 1.0;
    norm.unit = unit;
    return norm;
}

KvAOIInfo PlainInfo()
{
    KvAOIInfo info;
    info.valid = 1;
    info.normX = info.normY = PlainNorm("Pixel");
    info.normZ = PlainNorm("Greyvalues");
    info.normZ.dataMax = info.normZ.displayMax = 255.0;
    return info;
}

void CopyTable(const KvAOI& source, KvAOI32Float& destination)
{
    if (const auto* tables = dynamic_cast<const KvOLutContainer*>(&source))
        destination.TakeOLut(tables->GetOLut());
}

// True if `test` holds for any byte of an 8-bit AOI.
template <class Test>
bool AnyByte(KvAOI* aoi, Test test)
{
    const auto* bytes = dynamic_cast<const KvAOI8*>(aoi);
    if (!bytes)
        return false;
    for (int y = 0; y < bytes->AOIHeight(); ++y)
    {
        const unsigned char* row = bytes->GetRowPointer(y);
        if (std::any_of(row, row + bytes->AOIWidth(), test))
            return true;
    }
    return false;
}

} // namespace

KvAOIListEntry::KvAOIListEntry(KvAOI* source) : sourceAOI(source)
{
    if (!source)
        return;
    MakeDisplay(*source);
    CopyTable(*source, *displayAOI);
    KvLTransfer().Copy(source, displayAOI);
    displayAOI->SetUIName(source->GetUIName());

    KvTFloatRange<float> range;
    KvxScanRange(displayAOI, nullptr, range);
    const bool scaled = source->aoiInfo && source->aoiInfo->valid;
    auto info = std::make_unique<KvAOIInfo>(scaled ? *source->aoiInfo : PlainInfo());
    info->normZ.dataMin = info->normZ.displayMin = range.min;
    info->normZ.dataMax = range.max;
    info->normZ.displayMax = source->GetDevType() == Device8 ? 255.0 : range.max;
    displayAOI->SetAOIInfo(info.release());
}

KvAOIListEntry::~KvAOIListEntry() = default;

void KvAOIListEntry::MakeDisplay(const KvAOI& like)
{
    buffer.Resize(like, 1);
    displays.push_back(std::make_shared<KvAOI32Float>(buffer.GetDevice(), 0));
    displayAOI = displays.back().get();
}

KvAOIListEntry& KvAOIListEntry::operator=(const KvAOIListEntry& other)
{
    if (this == &other)
        return *this;
    selected = other.selected;
    sourceAOI = other.sourceAOI;
    if (!other.displayAOI)
    {
        buffer.Resize(KvTSize<short>(1, 1), 1);
        displayAOI = nullptr;
        return *this;
    }
    MakeDisplay(*other.displayAOI);
    CopyTable(*other.displayAOI, *displayAOI);
    if (other.displayAOI->aoiInfo)
        displayAOI->SetAOIInfo(new KvAOIInfo(*other.displayAOI->aoiInfo));
    displayAOI->SetUIName(other.displayAOI->GetUIName());
    displayAOI->SetAOIName(other.displayAOI->GetAOIName());
    KvLTransfer().Copy(other.displayAOI, displayAOI);
    return *this;
}

int KvAOIListEntry::CheckObjEqSegment(KvAOI* aoi)
{
    // Required: it is bit 5 that bit 7 is compared with, not the threshold mask's bit 6.
    return !AnyByte(aoi, [](unsigned char byte) { return ((byte >> 7) & 1) != ((byte >> 5) & 1); });
}

int KvAOIListEntry::CheckSegment8(KvAOI* aoi, unsigned char bits)
{
    return AnyByte(aoi, [bits](unsigned char byte) { return (byte & bits) != 0; });
}

} // namespace KvN
