// The AOI view's list of backgrounds. The pointers are the host's.
#include "C/uiAOIBaseViewWnd.h"

#include <algorithm>

namespace KvN
{

void KvAOIBaseViewWnd::AddAOI(KvAOI* entry)
{
    aoiList.Resize(aoiList.size + 1);
    aoiList[aoiList.size - 1] = entry;
}

// The list grows even if the index is refused, which is required.
int KvAOIBaseViewWnd::InsertAOI(KvAOI* entry, long index)
{
    aoiList.Resize(aoiList.size + 1);
    if (index < 0 || index >= static_cast<long>(aoiList.size))
        return 0;
    KvAOI** place = aoiList.data + index;
    KvAOI** end = aoiList.data + aoiList.size;
    std::move_backward(place, end - 1, end);
    *place = entry;
    return 1;
}

void KvAOIBaseViewWnd::DeleteAOI(long index)
{
    if (index < 0 || index >= static_cast<long>(aoiList.size))
        return;
    KvAOI** place = aoiList.data + index;
    std::move(place + 1, aoiList.data + aoiList.size, place);
    aoiList.Resize(aoiList.size - 1);
}

KvAOI* KvAOIBaseViewWnd::GetAt(long index) const
{
    if (index < 0 || index >= static_cast<long>(aoiList.size))
        return nullptr;
    return aoiList[static_cast<unsigned>(index)];
}

void KvAOIBaseViewWnd::SetAOIList(KvTMem<KvAOI*>* list)
{
    if (list)
        aoiList = *list;
    else
        ClearAOIList();
}

} // namespace KvN
