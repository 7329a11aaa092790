// A static control that shows a picture, stretched to fit.
#include "C/uiBitmapStatic.h"

#include "C/uiPictureArea.h"

namespace KvN
{

IMPLEMENT_DYNCREATE(KvBitmapStatic, CStatic)

BEGIN_MESSAGE_MAP(KvBitmapStatic, CStatic)
ON_WM_PAINT()
END_MESSAGE_MAP()

void KvBitmapStatic::SetDIB(KvDIB* source)
{
    dib.CreateFromBits(source->GetBitmapInfoPtr(), source->GetBitsPtr());
}

void KvBitmapStatic::OnPaint()
{
    CPaintDC dc(this);
    CRect client;
    GetClientRect(&client);
    dib.ShowStretched(PictureArea(dib), InclusiveArea(client), &dc);
}

} // namespace KvN
