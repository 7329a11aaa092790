// The library frame: what happens when the library is loaded and unloaded, and where its resources are.
#pragma once

class CDynLinkLibrary;

namespace KvN
{

// Registers the library and its resource module. Done when the program starts; a second call does nothing.
void AttachLibrary();
// Takes the resource module out of the chain again. Without a preceding attach it does nothing.
void DetachLibrary();
// The module that holds every text, dialog, menu and picture of the system; null while detached.
CDynLinkLibrary* GetResourceModule();

} // namespace KvN
