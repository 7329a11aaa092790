// A toolbar within a dialog.
#include "contracts/apptools/KvDlgToolBar.h"

#include <cstdint>

namespace KvN
{

IMPLEMENT_DYNAMIC(KvDlgToolBar, CToolBar)

BOOL KvDlgToolBar::LoadToolBar(UINT id, int)
{
    return LoadToolBarFrom(library, id);
}

BOOL KvDlgToolBar::LoadToolBar(LPCTSTR name, int option)
{
    const auto id = reinterpret_cast<std::uintptr_t>(name);
    return id <= 0xFFFF && LoadToolBar(static_cast<UINT>(id), option);
}

} // namespace KvN
