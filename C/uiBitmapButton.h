// A push button with a picture and a caption under it.
#pragma once

#include "contracts/apptools.h"
#include "contracts/basics.h"
#include "contracts/image.h"

namespace KvN
{

// Needs the owner-draw style. Setting picture or caption asks for no repaint.
class KvBitmapButton : public CButton
{
    DECLARE_DYNCREATE(KvBitmapButton)

public:
    KvBitmapButton() = default;

    void SetDIB(KvDIB* source); // copied; the argument stays the caller's
    const KvDIB* GetDIB() const { return &dib; }
    void SetName(const KvString& caption) { name = caption; }
    KvString GetName() const { return name; }

    void DrawItem(LPDRAWITEMSTRUCT item) override;

protected:
    KvString name;
    KvDIB dib;
    CFont captionFont;
    int captionFontReady = 0;

private:
    void MakeCaptionFont();
};

} // namespace KvN
