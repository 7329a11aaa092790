// Any bytes as a PNG file: decoded or refused, within bounds of memory.
#include "fuzz/image_file.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size)
{
    kv::fuzz::Decode({data, size}, KvN::imagefile::SizeOfPng, KvN::imagefile::DecodePng);
    return 0;
}
