// Reading of .res files: entries of two size words, a header with kind and name, and data, each on a 4-byte boundary.
#include "platform/afx/resources.h"

#include <cstring>

namespace
{
using Bytes = ResourceImage::Bytes;

template <class Number>
Number Read(Bytes bytes, size_t at)
{
    Number number{};
    if (at + sizeof number <= bytes.size())
        std::memcpy(&number, bytes.data() + at, sizeof number);
    return number;
}

constexpr size_t Aligned(size_t at)
{
    return (at + 3) & ~size_t(3);
}

// A kind or name: 0xFFFF and a number, or text, which gives nothing here: no resource of ours is named by text.
std::optional<std::uint16_t> ReadId(Bytes header, size_t& at)
{
    if (Read<std::uint16_t>(header, at) == 0xFFFF)
    {
        at += 4;
        return Read<std::uint16_t>(header, at - 2);
    }
    while (at + 2 <= header.size() && Read<std::uint16_t>(header, at) != 0)
        at += 2;
    at += 2;
    return std::nullopt;
}
} // namespace

ResourceImage::ResourceImage(Bytes res)
{
    for (size_t at = 0; at + 8 <= res.size();)
    {
        const size_t dataSize = Read<std::uint32_t>(res, at);
        const size_t headerSize = Read<std::uint32_t>(res, at + 4);
        if (headerSize < 8 || headerSize > res.size() - at || dataSize > res.size() - at - headerSize)
            return;
        const Bytes header = res.subspan(at, headerSize);
        size_t inHeader = 8;
        const auto kind = ReadId(header, inHeader);
        const auto id = ReadId(header, inHeader);
        if (kind && id && dataSize > 0)
            entries[{*kind, *id}] = res.subspan(at + headerSize, dataSize);
        at = Aligned(at + headerSize + dataSize);
    }
}

ResourceImage::Bytes ResourceImage::Find(ResourceKind kind, unsigned id) const
{
    const auto found = entries.find({static_cast<std::uint16_t>(kind), id});
    return found == entries.end() ? Bytes() : found->second;
}

// Sixteen strings share a block, each behind its length; the block's number is that of its strings / 16 + 1.
std::optional<CStringT> ResourceImage::FindString(unsigned id) const
{
    const Bytes block = Find(ResourceKind::String, id / 16 + 1);
    size_t at = 0;
    for (unsigned skip = id % 16; skip > 0 && at < block.size(); --skip)
        at += 2 + 2 * size_t(Read<std::uint16_t>(block, at));
    const size_t length = Read<std::uint16_t>(block, at);
    if (length == 0 || at + 2 + 2 * length > block.size())
        return std::nullopt;
    std::u16string text(length, u'\0');
    std::memcpy(text.data(), block.data() + at + 2, 2 * length);
    return CStringT(std::u16string_view(text));
}
