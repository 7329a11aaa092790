// The empty document that the frame and view structure asks for. The AOI lives in the view, not here.
#pragma once

#include "contracts/apptools.h"

namespace KvN
{

class KvAOIFrameDocument : public CDocument
{
    DECLARE_DYNCREATE(KvAOIFrameDocument)

public:
    BOOL OnNewDocument() override;
    void Serialize(CArchive& archive) override;

protected:
    KvAOIFrameDocument() = default;
};

} // namespace KvN
