// Areas of a picture and of its place in a control, as the image library takes them: bounds inclusive.
#pragma once

#include "contracts/basics.h"
#include "contracts/image.h"

namespace KvN
{

// The whole of a picture; a side of no extent gets the mark.
inline KvTRectangle<short> PictureArea(KvDIB& dib)
{
    return {{0, 0}, {static_cast<short>(dib.Width()), static_cast<short>(dib.Height())}};
}

inline KvTRectangle<short> InclusiveArea(const CRect& rect)
{
    return {static_cast<short>(rect.left), static_cast<short>(rect.top), static_cast<short>(rect.right - 1),
            static_cast<short>(rect.bottom - 1)};
}

} // namespace KvN
