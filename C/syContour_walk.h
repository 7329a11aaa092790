// Walks over the edges of a point list by its links: a constant cost per edge, and the list's cursor stays where it is.
#pragma once

#include "contracts/basics/KvList.h"
#include "contracts/basics/KvVec.h"

namespace KvN::contour
{

// Calls matches(a, b) for the edges in list order, the closing one last if `closed`, and returns the index of the first
// edge that it accepts; -1 if there is none.
template <class Matches>
long FirstEdge(const KvTList<KvVec2d>& points, bool closed, const Matches& matches)
{
    long index = 0;
    for (const auto* node = points.head; node; node = node->next, ++index)
    {
        const auto* next = node->next ? node->next : points.head;
        if (!node->next && !closed)
            break;
        if (matches(node->value, next->value))
            return index;
    }
    return -1;
}

// Calls use(a, b) for every edge in list order.
template <class Use>
void ForEachEdge(const KvTList<KvVec2d>& points, bool closed, const Use& use)
{
    FirstEdge(points, closed,
              [&](const KvVec2d& a, const KvVec2d& b)
              {
                  use(a, b);
                  return false;
              });
}

} // namespace KvN::contour
