// Runs of equal bytes: a store or two for short ones, and long ones past the caches.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace kv::raster
{

// Of long runs: written without reading the memory first, since rows this long do not stay in a cache anyway.
void streamBytes(std::uint8_t* to, std::uint8_t value, std::size_t count);

inline void fillBytes(std::uint8_t* to, std::uint8_t value, std::size_t count)
{
    constexpr std::size_t streamed = 1536;
    const std::uint64_t word = value * 0x0101010101010101u;
    if (count > 16)
    {
        if (count >= streamed)
            streamBytes(to, value, count);
        else
            std::memset(to, value, count);
    }
    else if (count >= 8)
    {
        std::memcpy(to, &word, 8);
        std::memcpy(to + count - 8, &word, 8);
    }
    else if (count >= 4)
    {
        std::memcpy(to, &word, 4);
        std::memcpy(to + count - 4, &word, 4);
    }
    else
    {
        to[0] = value;
        to[count - 1] = value;
        to[count / 2] = value;
    }
}

} // namespace kv::raster
