// The reasons in the words of the resources.
#include "contracts/image/KvImageException.h"

#include "contracts/basics/KvLibrary.h"
#include "resources/resource.h"

namespace KvN
{

IMPLEMENT_DYNAMIC(KvImageException, KvRuntimeException)

KvString KvImageException::BuildMessage() const
{
    const std::wstring format = KvString(KvResId(reason, GetResourceModule())).Text().Wide();
    KvString text;
    if (reason == IDS_IMAGE_TOO_LARGE || reason == IDS_IMAGE_NO_MEMORY)
        text.SPrintf(format.c_str(), width, height);
    else
        text.SPrintf(format.c_str(), detail.Text().Wide().c_str());
    return imageFile + KvString(L": ") + text;
}

} // namespace KvN
