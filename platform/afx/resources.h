// Compiled resources in the standard binary form (.res), looked up by kind and number.
#pragma once

#include "platform/afx/cstring.h"

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <utility>

// The kinds of resource, by the platform's numbers.
enum class ResourceKind : std::uint16_t
{
    Cursor = 1,
    Bitmap = 2,
    Menu = 4,
    Dialog = 5,
    String = 6,
    Data = 10,
    GroupCursor = 12,
    DialogInit = 240,
    ToolBar = 241
};

class ResourceImage
{
public:
    using Bytes = std::span<const unsigned char>;

    // `res` stays owned by the caller and must outlive this object. What is cut off or malformed ends the reading.
    explicit ResourceImage(Bytes res);

    // The raw data of a resource, empty if there is none.
    Bytes Find(ResourceKind kind, unsigned id) const;
    // The text of a string table's entry.
    std::optional<CStringT> FindString(unsigned id) const;

private:
    std::map<std::pair<std::uint16_t, unsigned>, Bytes> entries;
};
