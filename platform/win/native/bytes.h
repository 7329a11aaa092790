// A reader of compiled resources that never leaves their bounds: behind the end everything reads as 0.
#pragma once

#include "platform/afx/resources.h"

#include <cstring>

namespace kv::win
{
class Reader
{
public:
    explicit Reader(ResourceImage::Bytes data) : bytes(data) {}

    bool AtEnd() const { return at >= bytes.size(); }
    void Align4() { at = (at + 3) & ~size_t{3}; }
    void Skip(size_t count) { at += count; }
    template <class Number>
    Number Next()
    {
        Number number{};
        if (at + sizeof number <= bytes.size())
            std::memcpy(&number, bytes.data() + at, sizeof number);
        at += sizeof number;
        return number;
    }
    CString Text() // up to its zero
    {
        std::u16string text;
        while (!AtEnd())
        {
            const auto unit = Next<char16_t>();
            if (unit == 0)
                break;
            text += unit;
        }
        return CString(std::u16string_view(text));
    }
    ResourceImage::Bytes Block(size_t count)
    {
        const size_t start = at < bytes.size() ? at : bytes.size();
        at += count;
        return bytes.subspan(start, count < bytes.size() - start ? count : bytes.size() - start);
    }

private:
    ResourceImage::Bytes bytes;
    size_t at = 0;
};
} // namespace kv::win
