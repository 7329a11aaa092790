// Masks as text.
#include "tests/ui/mask_window.h"

using namespace KvN;

namespace kv::test
{

Rows Art(const KvAOI8& mask, unsigned char bits)
{
    Rows rows;
    for (int y = 0; y < mask.AOIHeight(); ++y)
    {
        std::string row;
        for (int x = 0; x < mask.AOIWidth(); ++x)
            row += (mask.GetRowPointer(y)[x] & bits) ? '#' : '.';
        rows.push_back(row);
    }
    return rows;
}

std::unique_ptr<KvBufferAOI8> FromArt(const Rows& rows, unsigned char set, unsigned char clear)
{
    auto aoi = Grey(static_cast<short>(rows.front().size()), static_cast<short>(rows.size()), clear);
    for (size_t y = 0; y < rows.size(); ++y)
        for (size_t x = 0; x < rows[y].size(); ++x)
            if (rows[y][x] == '#')
                aoi->GetRowPointer(static_cast<int>(y))[x] = set;
    return aoi;
}

std::vector<unsigned char> Bytes(const KvAOI8& aoi)
{
    std::vector<unsigned char> bytes;
    for (int y = 0; y < aoi.AOIHeight(); ++y)
        bytes.insert(bytes.end(), aoi.GetRowPointer(y), aoi.GetRowPointer(y) + aoi.AOIWidth());
    return bytes;
}

} // namespace kv::test
