// The operators, row by row.
#include "contracts/image/KvOperators.h"

#include <cmath>
#include <limits>

namespace KvN
{

namespace
{

unsigned char Byte(float value)
{
    // Written so that a NaN gives 0.
    if (!(value > 0.0f))
        return 0;
    return value < 255.0f ? static_cast<unsigned char>(std::floor(value + 0.5f)) : 255;
}

// Weights of the usual luminance, in thousandths; whole, so that grey stays what it is.
unsigned char Luminance(const KvColor& c)
{
    return static_cast<unsigned char>((299 * c.red + 587 * c.green + 114 * c.blue + 500) / 1000);
}

void Convert(unsigned char from, unsigned char& to)
{
    to = from;
}
void Convert(unsigned char from, float& to)
{
    to = from;
}
void Convert(unsigned char from, KvColor& to)
{
    to = KvColor(from, from, from);
}
void Convert(float from, float& to)
{
    to = from;
}
void Convert(float from, unsigned char& to)
{
    to = Byte(from);
}
void Convert(float from, KvColor& to)
{
    Convert(Byte(from), to);
}
void Convert(const KvColor& from, KvColor& to)
{
    to = from;
}
void Convert(const KvColor& from, unsigned char& to)
{
    to = Luminance(from);
}
void Convert(const KvColor& from, float& to)
{
    to = Luminance(from);
}

// Calls `change(source pixel, destination pixel)` over the area that both have.
template <class Source, class Destination, class Change>
void ForEach(const Source& source, Destination& destination, Change change)
{
    const int width = std::min(source.AOIWidth(), destination.AOIWidth());
    const int height = std::min(source.AOIHeight(), destination.AOIHeight());
    for (int y = 0; y < height; ++y)
    {
        const auto* from = source.GetRowPointer(y);
        auto* to = destination.GetRowPointer(y);
        for (int x = 0; x < width; ++x)
            change(from[x], to[x]);
    }
}

template <class Source>
void CopyFrom(const Source& source, KvAOI* destination)
{
    const auto copy = [](const auto& from, auto& to) { Convert(from, to); };
    if (auto* grey = dynamic_cast<KvTAOI<unsigned char>*>(destination))
        ForEach(source, *grey, copy);
    else if (auto* real = dynamic_cast<KvTAOI<float>*>(destination))
        ForEach(source, *real, copy);
    else if (auto* color = dynamic_cast<KvTAOI<KvColor>*>(destination))
        ForEach(source, *color, copy);
}

// The same for AOIs of one pixel type only.
template <class T, class Change>
void ForEachOf(const KvAOI* source, KvAOI* destination, Change change)
{
    const auto* from = dynamic_cast<const KvTAOI<T>*>(source);
    auto* to = dynamic_cast<KvTAOI<T>*>(destination);
    if (from && to)
        ForEach(*from, *to, change);
}

unsigned char Shifted(long bits, long shift)
{
    if (shift <= -8 || shift >= 8)
        return 0;
    return static_cast<unsigned char>(shift < 0 ? (bits & 0xFF) >> -shift : (bits & 0xFF) << shift);
}

} // namespace

void KvLTransfer::Copy(const KvAOI* source, KvAOI* destination) const
{
    if (const auto* grey = dynamic_cast<const KvTAOI<unsigned char>*>(source))
        CopyFrom(*grey, destination);
    else if (const auto* real = dynamic_cast<const KvTAOI<float>*>(source))
        CopyFrom(*real, destination);
    else if (const auto* color = dynamic_cast<const KvTAOI<KvColor>*>(source))
        CopyFrom(*color, destination);
}

void KvLTransfer::TransferBits(const KvAOI* source, KvAOI* destination, long mask, long shift, int) const
{
    const unsigned char taken = Shifted(mask, shift);
    ForEachOf<unsigned char>(source, destination,
                             [=](unsigned char from, unsigned char& to)
                             { to = static_cast<unsigned char>((to & ~taken) | Shifted(from & mask, shift)); });
}

void KvLLogic::And(const KvAOI* source, unsigned long value, KvAOI* destination) const
{
    ForEachOf<unsigned char>(source, destination,
                             [=](unsigned char from, unsigned char& to)
                             { to = static_cast<unsigned char>(from & value); });
}

void KvLArithmetic::Add(const KvAOI* source, float value, KvAOI* destination) const
{
    ForEachOf<float>(source, destination, [=](float from, float& to) { to = from + value; });
}

void KvLArithmetic::Multiply(const KvAOI* source, float value, KvAOI* destination) const
{
    ForEachOf<float>(source, destination, [=](float from, float& to) { to = from * value; });
}

void KvxScanRange(const KvAOI32Float* aoi, const KvAOI8* mask, KvTFloatRange<float>& range)
{
    float low = std::numeric_limits<float>::infinity(), high = -low;
    bool any = false;
    const int width = mask ? std::min(aoi->AOIWidth(), mask->AOIWidth()) : aoi->AOIWidth();
    const int height = mask ? std::min(aoi->AOIHeight(), mask->AOIHeight()) : aoi->AOIHeight();
    for (int y = 0; y < height; ++y)
    {
        const float* row = aoi->GetRowPointer(y);
        const unsigned char* selected = mask ? mask->GetRowPointer(y) : nullptr;
        for (int x = 0; x < width; ++x)
        {
            if ((selected && selected[x] == 0) || std::isnan(row[x]))
                continue;
            any = true;
            low = std::min(low, row[x]);
            high = std::max(high, row[x]);
        }
    }
    range = any ? KvTFloatRange<float>(low, high) : KvTFloatRange<float>();
}

} // namespace KvN
