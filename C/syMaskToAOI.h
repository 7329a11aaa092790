// From the 1-bit image of a device context to the top bit of a mask.
#pragma once

#include "contracts/image/KvAOITypes.h"

class CDC;

// Stores the bitmap of the context in bit 7 of every pixel of the AOI, whose size it should have: a pixel nearer to
// white than to black sets it, others clear it. The low seven bits stay. Throws KvGDIException if the bitmap can't be
// read.
void syMaskToAOI_MaskToAOI(CDC* dc, KvN::KvAOI8* aoi);
