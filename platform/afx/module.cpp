// The chain of registered modules.
#include "platform/afx/module.h"

#include <algorithm>
#include <vector>

namespace
{
std::vector<const CDynLinkLibrary*>& Chain()
{
    static std::vector<const CDynLinkLibrary*> modules;
    return modules;
}
} // namespace

int AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, ResourceImage::Bytes resources)
{
    state.bInitialized = true;
    state.resources = resources;
    return 1;
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, bool) : image(state.resources)
{
    Chain().insert(Chain().begin(), this);
}

CDynLinkLibrary::~CDynLinkLibrary()
{
    std::erase(Chain(), this);
}

const CDynLinkLibrary* AfxFindResourceHandle(ResourceKind kind, unsigned id)
{
    const auto holds = [&](const CDynLinkLibrary* module) { return !module->Resources().Find(kind, id).empty(); };
    const auto found = std::find_if(Chain().begin(), Chain().end(), holds);
    return found == Chain().end() ? nullptr : *found;
}

CStringT AfxLoadString(unsigned id)
{
    for (const CDynLinkLibrary* module : Chain())
    {
        if (const auto text = module->Resources().FindString(id))
            return *text;
    }
    return {};
}
