// What was drawn over pixels that are still pending, for as long as nobody looks at them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace kv::gdi
{

// Spans of one 32-bit pixel value each, in every row in the order of drawing: a later one covers an earlier one. In a
// reduced picture most of them are never asked for.
class DrawnSpans
{
public:
    // `makeRoom` draws what is kept on the bitmap and forgets it all; called when there is too much of it.
    DrawnSpans(int rows, std::function<void()> makeRoom_)
        : ends(static_cast<std::size_t>(rows)), makeRoom(std::move(makeRoom_))
    {
    }

    // Pixels from <= x < to of a row, from < to.
    void add(int row, int from, int to, std::uint32_t value)
    {
        if (spans.size() == most)
            makeRoom();
        Ends& end = ends[static_cast<std::size_t>(row)];
        const auto added = static_cast<std::uint32_t>(spans.size());
        if (end.last == none)
            end.first = added;
        else
        {
            Span& last = spans[end.last];
            if (last.value == value && from <= last.to && last.from <= to)
            {
                last.from = from < last.from ? from : last.from;
                last.to = to > last.to ? to : last.to;
                return;
            }
            last.next = added;
        }
        end.last = added;
        spans.push_back({from, to, value, none});
    }

    // Calls `visit(from, to, value)` for each span of a row.
    template <class Visit>
    void visitRow(int row, Visit visit) const
    {
        for (std::uint32_t at = ends[static_cast<std::size_t>(row)].first; at != none; at = spans[at].next)
            visit(spans[at].from, spans[at].to, spans[at].value);
    }

    void forgetRow(int row) { ends[static_cast<std::size_t>(row)] = {}; }
    void forgetAll()
    {
        std::fill(ends.begin(), ends.end(), Ends());
        spans.clear();
    }

private:
    static constexpr std::uint32_t none = UINT32_MAX;
    static constexpr std::size_t most = std::size_t(1) << 20; // 16 MiB

    struct Span
    {
        int from, to;
        std::uint32_t value;
        std::uint32_t next; // of the same row
    };
    struct Ends
    {
        std::uint32_t first = none, last = none;
    };

    std::vector<Ends> ends; // by row
    std::vector<Span> spans;
    std::function<void()> makeRoom;
};

} // namespace kv::gdi
