// The frame between an AOI window and its view. It keeps the view as large as the image needs, and centred.
#pragma once

#include "contracts/apptools.h"

namespace KvN
{

// Owned by its KvAOIWnd: the frame does not delete itself with its window.
class KvAOIBaseFrameWnd : public CFrameWnd
{
    DECLARE_DYNCREATE(KvAOIBaseFrameWnd)

public:
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    void PostNcDestroy() override;

protected:
    KvAOIBaseFrameWnd() = default;

    void OnSize(UINT type, int cx, int cy);
    void OnPaint();
    DECLARE_MESSAGE_MAP()
};

} // namespace KvN
