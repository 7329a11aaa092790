// Image files: PNG, BMP, JPEG and TIFF.
#pragma once

#include "contracts/image/KvAOITypes.h"

#include <memory>

namespace KvN
{

// Loads whatever the file holds into the AOI that fits: 8-bit grey values into a KvBufferAOI8, 16-bit and float values
// into a KvBufferAOI32Float, colours into a KvBufferAOI32Color. The AOI's name is the file's, without its folder.
// Throws a KvImageException, whose message is "FILE: reason", if the file can't be read, is of no known kind, cut off
// or damaged, or holds an image beyond 32767 pixels each way or beyond the machine's memory.
std::unique_ptr<KvAOI> KvxLoadAOI(const KvString& file);

// Writes an AOI as `KvAOI::Save` does.
void KvxSaveAOI(const KvAOI& aoi, const KvString& file);

// The size of the image in a file, from its header alone. Throws as above.
KvTSize<short> KvxImageSize(const KvString& file);

} // namespace KvN
