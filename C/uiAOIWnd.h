// The window that hosts a view of an AOI, and from which the editors derive.
#pragma once

#include "contracts/apptools.h"

namespace KvN
{

class KvAOIBaseFrameWnd;
class KvAOIBaseViewWnd;

// Nests a frame, and in it the view. Owns the frame.
class KvAOIWnd : public KvBaseFrameWnd
{
public:
    KvAOIWnd() = default;
    ~KvAOIWnd() override;

    // Only between the window's creation and its destruction.
    KvAOIBaseViewWnd* GetAOIBaseViewWnd() const;
    // Called by the creation of the window.
    void CreateChildWindows() override;
    BOOL DestroyWindow() override;

protected:
    KvAOIBaseFrameWnd* frame = nullptr;

    DECLARE_MESSAGE_MAP()
};

} // namespace KvN
