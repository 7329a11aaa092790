// The empty document of the frame and view structure.
#include "C/uiAOIFrameDocument.h"

namespace KvN
{

IMPLEMENT_DYNCREATE(KvAOIFrameDocument, CDocument)

BOOL KvAOIFrameDocument::OnNewDocument()
{
    return CDocument::OnNewDocument() ? 1 : 0;
}

void KvAOIFrameDocument::Serialize(CArchive&) {}

} // namespace KvN
