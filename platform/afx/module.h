// Extension modules: what a library registers when it is loaded, so that its resources are found.
#pragma once

#include "platform/afx/resources.h"

// A module's own record, filled in by `AfxInitExtensionModule`.
struct AFX_EXTENSION_MODULE
{
    bool bInitialized = false;
    ResourceImage::Bytes resources;
};

// Gives the record its module's compiled resources. The bytes stay the module's. Always succeeds.
int AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, ResourceImage::Bytes resources);

// A registered module. Registering happens in the constructor, leaving the chain in the destructor.
class CDynLinkLibrary
{
public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, bool system = false);
    ~CDynLinkLibrary();
    CDynLinkLibrary(const CDynLinkLibrary&) = delete;
    CDynLinkLibrary& operator=(const CDynLinkLibrary&) = delete;

    const ResourceImage& Resources() const { return image; }

private:
    ResourceImage image;
};

// The module of the chain, newest first, that holds the resource; null if none does.
const CDynLinkLibrary* AfxFindResourceHandle(ResourceKind kind, unsigned id);
// The text of a string resource of any module of the chain; empty if there is none.
CStringT AfxLoadString(unsigned id);
