// The six tables, and who shows through them.
#include "contracts/image/KvLut.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace KvN
{

namespace
{

template <class Entry>
KvLut::Colors Filled(Entry entry)
{
    KvLut::Colors colors;
    for (int i = 0; i < 256; ++i)
        colors[static_cast<size_t>(i)] = entry(i);
    return colors;
}

// Label colours that differ for every index: the index's bits, spread over the three channels from the top down. None
// is white, so that white means a covered pixel and nothing else.
KvColor LabelColor(int i)
{
    if (i == 255)
        return {255, 255, 255};
    int channels[3] = {};
    for (int bit = 0; bit < 8; ++bit)
        channels[bit % 3] |= (i >> bit & 1) << (7 - bit / 3);
    return {channels[0], channels[1], channels[2]};
}

// Bit 7 is the operator's mask, bit 6 the system's.
KvColor MaskColor(int i)
{
    return {i & 0x80 ? 255 : 0, 0, i & 0x40 ? 255 : 0};
}

// From blue over green to red: a triangle of each channel around its own place.
KvColor RainbowColor(int i)
{
    const auto channel = [i](double centre)
    {
        const double rise = 1.5 - std::abs(4.0 * i / 255.0 - centre);
        return static_cast<int>(std::lround(255.0 * std::clamp(rise, 0.0, 1.0)));
    };
    return {channel(3.0), channel(2.0), channel(1.0)};
}

// Black, red, yellow, white: the three channels rise one after the other.
KvColor HotColor(int i)
{
    const auto channel = [i](int start) { return std::clamp(3 * i - 255 * start, 0, 255); };
    return {channel(0), channel(1), channel(2)};
}

} // namespace

int KvLut::NearestIndex(const KvColor& color) const
{
    int nearest = 0;
    int best = INT_MAX;
    for (int i = 0; i < 256; ++i)
    {
        const KvColor& entry = colors[static_cast<size_t>(i)];
        const int r = entry.red - color.red, g = entry.green - color.green, b = entry.blue - color.blue;
        const int distance = r * r + g * g + b * b;
        if (distance < best)
        {
            best = distance;
            nearest = i;
        }
    }
    return nearest;
}

KvOLutContainer::KvOLutContainer() : table(KvOLutMgr::Instance().GetLut(L"Grey")), life(table->Life()) {}

KvLut* KvOLutContainer::GetOLut() const
{
    return life.expired() ? KvOLutMgr::Instance().GetLut(L"Grey") : table;
}

void KvOLutContainer::SetOLut(KvOLut* lut)
{
    TakeOLut(lut);
}

void KvOLutContainer::TakeOLut(KvLut* lut)
{
    if (!lut)
        return;
    table = lut;
    life = lut->Life();
}

KvOLutMgr::KvOLutMgr()
{
    const auto add = [this](const wchar_t* name, const KvLut::Colors& colors)
    { tables.push_back(std::make_unique<KvOLut>(name, colors)); };
    add(L"Grey", Filled([](int i) { return KvColor(i, i, i); }));
    add(L"GreyInverted", Filled([](int i) { return KvColor(255 - i, 255 - i, 255 - i); }));
    add(L"DefectRegion", Filled(LabelColor));
    add(L"Mask", Filled(MaskColor));
    add(L"Rainbow", Filled(RainbowColor));
    add(L"Hot", Filled(HotColor));
}

KvOLut* KvOLutMgr::GetLut(const KvString& name) const
{
    for (const auto& table : tables)
    {
        if (table->GetName() == name)
            return table.get();
    }
    return nullptr;
}

void KvOLutMgr::GetAllLutNames(KvTMem<KvString>& names) const
{
    for (unsigned i = 0; i < names.size && i < tables.size(); ++i)
        names[i] = tables[i]->GetName();
}

KvOLutMgr& KvOLutMgr::Instance()
{
    static KvOLutMgr manager;
    return manager;
}

KvOLutMgr* const pOLutMgr = &KvOLutMgr::Instance();

} // namespace KvN
