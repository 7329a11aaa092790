// What the image fuzz targets share.
#pragma once

#include "contracts/image/imagefile_p.h"

#include <cstdlib>
#include <new>

namespace kv::fuzz
{

// Decodes into no more than a few MB. A picture that comes out has the size that the header promised.
inline void Decode(KvN::imagefile::Bytes file, KvN::imagefile::Size (*sizeOf)(KvN::imagefile::Bytes),
                   KvN::imagefile::Pixels (*decode)(KvN::imagefile::Bytes, const KvN::imagefile::Limits&))
try
{
    const KvN::imagefile::Size size = sizeOf(file);
    const KvN::imagefile::Pixels pixels = decode(file, {4 << 20});
    std::visit(
        [&](const auto& buffer)
        {
            if (buffer.width != int(size.width) || buffer.height != int(size.height))
                std::abort();
        },
        pixels);
}
catch (const KvN::imagefile::Fault&)
{
}
catch (const std::bad_alloc&)
{
}

} // namespace kv::fuzz
