// AOI pixels as colours, a row at a time. Private to the image contract.
#pragma once

#include "contracts/image/KvAOITypes.h"
#include "contracts/image/show_p.h"

#include <memory>
#include <vector>

namespace KvN::show
{

// The columns of one row that are wanted, in rising order.
struct Columns
{
    std::vector<int> index;

    int Count() const { return static_cast<int>(index.size()); }
    // Each one the right neighbour of the one before, so that a row can be read straight through.
    bool IsRun() const { return !index.empty() && index.back() - index.front() + 1 == Count(); }
};

// Turns pixels of an AOI into colours. `out` has room for all columns; columns and row must lie within the AOI.
class PixelRows
{
public:
    virtual ~PixelRows() = default;
    virtual void Colors(int y, const Columns& columns, KvColor* out) const = 0;
    // Whether each pixel's value is other than 0, for the first `count` columns.
    virtual void Coverage(int y, const Columns& columns, int count, unsigned char* out) const = 0;
};

// The rows of an AOI as its class shows them; null for a class that is none of the three kinds.
std::unique_ptr<PixelRows> RowsOf(const KvAOI& aoi);

// The rows with something laid over them. The parts outlive the result.
std::unique_ptr<PixelRows> BlendedRows(std::unique_ptr<PixelRows> image, const Blend& blend);

} // namespace KvN::show
