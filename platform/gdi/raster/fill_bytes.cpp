// Long runs of bytes.
#include "platform/gdi/raster/fill_bytes.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace kv::raster
{

#ifdef __SSE2__

void streamBytes(std::uint8_t* to, std::uint8_t value, std::size_t count)
{
    constexpr std::size_t line = 64;
    const std::size_t head = (line - reinterpret_cast<std::uintptr_t>(to) % line) % line;
    if (count < head + line)
    {
        std::memset(to, value, count);
        return;
    }
    const __m128i bytes = _mm_set1_epi8(static_cast<char>(value));
    std::memset(to, value, head);
    to += head;
    count -= head;
    for (; count >= line; to += line, count -= line)
        for (std::size_t i = 0; i < line; i += sizeof bytes)
            _mm_stream_si128(reinterpret_cast<__m128i*>(to + i), bytes);
    std::memset(to, value, count);
    _mm_sfence();
}

#else

void streamBytes(std::uint8_t* to, std::uint8_t value, std::size_t count)
{
    std::memset(to, value, count);
}

#endif

} // namespace kv::raster
