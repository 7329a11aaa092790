// Row by row over the bits of masks.
#include "apps/workbench/MaskBits.h"

#include "contracts/image.h"

#include <algorithm>
#include <utility>

namespace kv::workbench
{
namespace
{
using KvN::KvAOI8;

// Calls `act` with each row of both AOIs and the columns that both have.
template <class Act>
void ForRows(const KvAOI8& from, KvAOI8& to, Act act)
{
    const int width = std::min(from.AOIWidth(), to.AOIWidth());
    for (int y = 0; y < std::min(from.AOIHeight(), to.AOIHeight()); ++y)
        act(from.GetRowPointer(y), to.GetRowPointer(y), width);
}

std::unique_ptr<KvN::KvBufferAOI8> NewMask(const KvN::KvAOI& like)
{
    auto mask = std::make_unique<KvN::KvBufferAOI8>(like.AOISize());
    mask->SetOLut(KvN::pOLutMgr->GetLut("Mask"));
    return mask;
}
} // namespace

bool HasBits(const KvAOI8& mask, unsigned char bits)
{
    for (int y = 0; y < mask.AOIHeight(); ++y)
    {
        const unsigned char* row = mask.GetRowPointer(y);
        if (std::any_of(row, row + mask.AOIWidth(), [bits](unsigned char pixel) { return (pixel & bits) != 0; }))
            return true;
    }
    return false;
}

bool AreEqual(const KvAOI8& one, const KvAOI8& other)
{
    for (int y = 0; y < one.AOIHeight(); ++y)
    {
        if (!std::equal(one.GetRowPointer(y), one.GetRowPointer(y) + one.AOIWidth(), other.GetRowPointer(y)))
            return false;
    }
    return true;
}

void TakeBits(const KvAOI8& from, unsigned char bits, KvAOI8& to)
{
    ForRows(from, to,
            [bits](const unsigned char* source, unsigned char* target, int width)
            {
                for (int x = 0; x < width; ++x)
                    target[x] = static_cast<unsigned char>((target[x] & ~bits) | (source[x] & bits));
            });
}

void TakeSystemMask(const KvAOI8& picture, KvAOI8& mask)
{
    ForRows(picture, mask,
            [](const unsigned char* source, unsigned char* target, int width)
            {
                for (int x = 0; x < width; ++x)
                    target[x] = static_cast<unsigned char>((target[x] & ~systemBit) | (source[x] ? systemBit : 0));
            });
}

void ClearBits(unsigned char bits, KvAOI8& mask)
{
    KvN::KvLLogic().And(&mask, static_cast<unsigned char>(~bits), &mask);
}

std::unique_ptr<KvAOI8> EmptyMask(const KvN::KvAOI& image)
{
    return NewMask(image);
}

std::unique_ptr<KvAOI8> PaintedBits(const KvAOI8& mask)
{
    auto copy = NewMask(mask);
    TakeBits(mask, userBit | systemBit, *copy);
    return copy;
}

} // namespace kv::workbench
