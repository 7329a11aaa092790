// A push button with a picture and a caption under it.
#include "C/uiBitmapButton.h"

#include "C/uiPictureArea.h"

namespace KvN
{

IMPLEMENT_DYNCREATE(KvBitmapButton, CButton)

void KvBitmapButton::SetDIB(KvDIB* source)
{
    dib.CreateFromBits(source->GetBitmapInfoPtr(), source->GetBitsPtr());
}

// Pressed, only the frame differs: picture and caption don't move.
void KvBitmapButton::DrawItem(LPDRAWITEMSTRUCT item)
{
    CDC* dc = CDC::FromHandle(item->hDC);
    dc->DrawFrameControl(&item->rcItem, DFC_BUTTON,
                         DFCS_BUTTONPUSH | (item->itemState & ODS_SELECTED ? DFCS_PUSHED : 0));
    CRect place;
    GetClientRect(&place);
    place.DeflateRect(4, 4, 5, 28);
    dib.ShowStretched(PictureArea(dib), InclusiveArea(place), dc);
    place.bottom += 23;
    if (!captionFontReady)
        MakeCaptionFont();
    dc->DrawText(name, &place, DT_CENTER | DT_BOTTOM | DT_SINGLELINE);
}

void KvBitmapButton::MakeCaptionFont()
{
    LOGFONT font{};
    if (CFont* current = GetFont())
        current->GetLogFont(&font);
    font.lfHeight = -18;
    font.lfWidth = 0;
    font.lfWeight = 500;
    captionFont.CreateFontIndirect(&font);
    SetFont(&captionFont, TRUE);
    captionFontReady = 1;
}

} // namespace KvN
