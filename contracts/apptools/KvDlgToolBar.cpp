// A toolbar within a dialog.
#include "contracts/apptools/KvDlgToolBar.h"

namespace KvN
{

IMPLEMENT_DYNAMIC(KvDlgToolBar, CToolBar)

BOOL KvDlgToolBar::LoadToolBar(UINT id, int)
{
    return LoadToolBarFrom(library, id);
}

} // namespace KvN
