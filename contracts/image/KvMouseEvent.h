// What a view makes of a mouse message.
#pragma once

#include "contracts/basics/KvPoint.h"

namespace KvN
{

class KvMouseEvent
{
public:
    unsigned int button = 0; // 0 none (move, leave), 1 left, 2 right
    unsigned int flags = 0;  // the message's key and button state, or 65535: the mouse has left the window

    KvMouseEvent() = default;
    KvMouseEvent(unsigned int button_, unsigned int flags_, const KvTPoint<short>& point_, unsigned int clicks_)
        : button(button_), flags(flags_), point(point_), clicks(clicks_)
    {
    }

    const KvTPoint<short>& GetPoint() const { return point; }

    KvTPoint<short> point;   // client pixels
    unsigned int clicks = 0; // 1, or 2 for a double click
};

} // namespace KvN
