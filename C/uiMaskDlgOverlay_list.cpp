// The overlay dialog's list of pictures: the host's AOIs, and what the view shows of them.
#include "C/uiAOIBaseViewWnd.h"
#include "C/uiMaskDlgOverlay.h"

using namespace KvN;

void KvMaskDlgOverlay::AddAOI(KvAOI* aoi)
{
    aoiList.Resize(aoiList.size + 1);
    aoiList[aoiList.size - 1] = aoi;
}

int KvMaskDlgOverlay::InsertAOI(KvAOI* aoi, long index)
{
    aoiList.Resize(aoiList.size + 1);
    // Required: a refused index leaves the list longer by one empty place.
    if (index < 0 || index >= static_cast<long>(aoiList.size))
        return 0;
    const auto at = static_cast<unsigned>(index);
    for (unsigned i = aoiList.size - 1; i > at; --i)
        aoiList[i] = aoiList[i - 1];
    aoiList[at] = aoi;
    return 1;
}

void KvMaskDlgOverlay::DeleteAOI(long index)
{
    if (index < 0 || index >= static_cast<long>(aoiList.size))
        return;
    for (auto i = static_cast<unsigned>(index); i + 1 < aoiList.size; ++i)
        aoiList[i] = aoiList[i + 1];
    aoiList.Resize(aoiList.size - 1);
}

KvAOI* KvMaskDlgOverlay::GetAt(long index) const
{
    if (index < 0 || index >= static_cast<long>(aoiList.size))
        return nullptr;
    return aoiList[static_cast<unsigned>(index)];
}

void KvMaskDlgOverlay::CheckAOIList(KvAOI* aoi)
{
    for (unsigned i = 0; i < aoiList.size; ++i)
        if (aoiList[i] == aoi)
            return;
    AddAOI(aoi);
}

void KvMaskDlgOverlay::FillListDisplay()
{
    DeleteListDisplay();
    entryList.Resize(aoiList.size);
    displayList.Resize(aoiList.size);
    KvOLut* table = oLutName.Length() > 0 ? pOLutMgr->GetLut(oLutName) : nullptr;
    for (unsigned i = 0; i < aoiList.size; ++i)
    {
        entryList[i] = new KvAOIListEntry(aoiList[i]);
        if (table && entryList[i]->displayAOI)
            entryList[i]->displayAOI->SetOLut(table);
        displayList[i] = entryList[i]->displayAOI;
    }
}

void KvMaskDlgOverlay::DeleteListDisplay()
{
    for (unsigned i = 0; i < entryList.size; ++i)
        delete entryList[i];
    entryList.Resize(0);
    displayList.Resize(0);
}

void KvMaskDlgOverlay::Select(KvAOI* source)
{
    for (unsigned i = 0; i < entryList.size; ++i)
        entryList[i]->selected = entryList[i]->sourceAOI == source;
}

void KvMaskDlgOverlay::SelectDisplay(KvAOI* display)
{
    for (unsigned i = 0; i < entryList.size; ++i)
        entryList[i]->selected = entryList[i]->displayAOI == display;
}

KvAOI* KvMaskDlgOverlay::CheckSelectedDisplay(KvAOI** source)
{
    *source = nullptr;
    KvAOIListEntry* chosen = nullptr;
    for (unsigned i = 0; i < entryList.size; ++i)
    {
        if (!chosen && entryList[i]->selected)
            chosen = entryList[i];
        else
            entryList[i]->selected = 0;
    }
    if (!chosen && entryList.size > 0)
    {
        chosen = entryList[0];
        chosen->selected = 1;
    }
    if (!chosen)
        return nullptr;
    *source = chosen->sourceAOI;
    return chosen->displayAOI;
}

KvAOI* KvMaskDlgOverlay::GetSelectedDisplay(KvAOI** source)
{
    if (maskWnd.GetSafeHwnd()) // before and after the dialog there is no view to ask
        SelectDisplay(view->GetAOI());
    return CheckSelectedDisplay(source);
}
