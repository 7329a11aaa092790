// A static control that shows a picture, stretched to fit.
#pragma once

#include "contracts/apptools.h"
#include "contracts/basics.h"
#include "contracts/image.h"

namespace KvN
{

class KvBitmapStatic : public CStatic
{
    DECLARE_DYNCREATE(KvBitmapStatic)

public:
    KvBitmapStatic() = default;

    void SetDIB(KvDIB* source); // copied; the argument stays the caller's. Asks for no repaint
    const KvDIB* GetDIB() const { return &dib; }

protected:
    KvDIB dib;

    void OnPaint();
    DECLARE_MESSAGE_MAP()
};

} // namespace KvN
