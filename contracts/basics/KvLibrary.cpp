// One extension-module record and one resource module for the whole library.
#include "contracts/basics/KvLibrary.h"

#include "platform/afx/module.h"

// The compiled resources, linked in as data.
extern "C" const unsigned char kv_resource_begin[];
extern "C" const unsigned char kv_resource_end[];

namespace KvN
{
namespace
{
AFX_EXTENSION_MODULE moduleRecord;
CDynLinkLibrary* resourceModule = nullptr;

// Stands in for the loader, which tells a module that it comes and goes.
struct Loader
{
    Loader() { AttachLibrary(); }
    ~Loader() { DetachLibrary(); }
} loader;
} // namespace

void AttachLibrary()
{
    if (resourceModule)
        return;
    AfxInitExtensionModule(moduleRecord, {kv_resource_begin, kv_resource_end});
    resourceModule = new CDynLinkLibrary(moduleRecord, false);
}

void DetachLibrary()
{
    delete resourceModule;
    resourceModule = nullptr;
}

CDynLinkLibrary* GetResourceModule()
{
    return resourceModule;
}

} // namespace KvN
