// Small things that the editor's sources share.
#pragma once

#include "contracts/basics/KvException.h"
#include "contracts/basics/KvPoint.h"
#include "contracts/basics/KvVec.h"
#include "platform/win/user.h"

namespace kv::editor
{

// A framework exception on its way out of the editor: itself if it is of the system's family, otherwise a new one with
// its message, and it is deleted.
inline KvN::KvException* AsKvException(CException* exception)
{
    if (auto* own = dynamic_cast<KvN::KvException*>(exception))
        return own;
    auto* converted = new KvN::KvException(*exception);
    exception->Delete();
    return converted;
}

// Modifiers are read at the moment of use, never taken from an event.
inline bool IsDown(int key)
{
    return (::GetAsyncKeyState(key) & 0x8000) != 0;
}

inline KvN::KvVec2d AsVector(const KvN::KvTPoint<short>& point)
{
    return {static_cast<double>(point.x), static_cast<double>(point.y)};
}

} // namespace kv::editor
