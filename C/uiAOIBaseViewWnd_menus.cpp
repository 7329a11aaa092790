// The AOI view's context menus: built anew for each opening from the resource, the table manager and the AOI list.
#include "C/uiAOIBaseViewWnd.h"
#include "C/uiAOIBaseViewWnd_menus_p.h"
#include "resources/resource.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace KvN
{

namespace
{
// The zoom commands from ID_VIEW_ZOOM_FIRST on, in the order of their ids.
constexpr double zoomSteps[] = {0.05, 0.1, 0.25, 0.5, 1.0, 2.0, 4.0, 8.0, 16.0};
constexpr UINT firstUsualStep = ID_VIEW_ZOOM_25 - ID_VIEW_ZOOM_FIRST;

constexpr UINT lutPosition = 0;
constexpr UINT zoomPosition = 1;
constexpr UINT backgroundPosition = 2;

bool Same(double a, double b)
{
    return std::abs(a - b) < std::numeric_limits<double>::epsilon();
}

KvTMem<KvString> AllLutNames()
{
    KvTMem<KvString> names(pOLutMgr->GetNumLuts());
    pOLutMgr->GetAllLutNames(names);
    return names;
}

UINT CheckedIf(bool checked)
{
    return MF_STRING | (checked ? MF_CHECKED : MF_UNCHECKED);
}

void Enable(CMenu& menu, UINT position, bool on)
{
    menu.EnableMenuItem(position, MF_BYPOSITION | (on ? MF_ENABLED : MF_GRAYED | MF_DISABLED));
}

// Turns the place-holder `id` into a popup under the same text.
void ReplaceByPopup(CMenu& menu, UINT id, CMenu& popup)
{
    CString text;
    menu.GetMenuString(id, text, MF_BYCOMMAND);
    menu.ModifyMenu(id, MF_BYCOMMAND | MF_POPUP, reinterpret_cast<UINT_PTR>(popup.Detach()), text);
}
} // namespace

// An AOI without a table has an empty name, so that no item is checked.
void AppendLuts(CMenu& popup, const KvTMem<KvString>& names, const KvString& current)
{
    for (UINT i = 0; i < names.size && ID_VIEW_LUT_FIRST + i <= ID_VIEW_LUT_LAST; ++i)
        popup.AppendMenu(CheckedIf(names[i] == current), ID_VIEW_LUT_FIRST + i, names[i]);
}

void KvAOIBaseViewWnd::UseContextMenuWithCheck(int kind)
{
    if (kind == 3 || (kind == 2 && aoiList.size >= 2))
        contextMenuKind = kind;
    else
        contextMenuKind = 1;
}

UINT KvAOIBaseViewWnd::GetMenuIDFromZoomFactor() const
{
    if (defaultOn)
        return ID_VIEW_ZOOM_DEFAULT;
    if (fitToWindow)
        return ID_VIEW_ZOOM_FIT;
    if (std::abs(zoomFactorX - zoomFactorY) > std::numeric_limits<double>::epsilon())
        return 0;
    for (UINT step = contextMenuKind == 3 ? 0 : firstUsualStep; step < std::size(zoomSteps); ++step)
    {
        if (Same(zoomFactorX, zoomSteps[step]))
            return ID_VIEW_ZOOM_FIRST + step;
    }
    return 0;
}

// --- Opening ---

void KvAOIBaseViewWnd::OnContextMenu(CWnd* wnd, CPoint point)
{
    if (contextMenuKind == 3)
        OnContextMenu3(wnd, point);
    else if (contextMenuKind == 2 && aoiList.size > 0)
        OnContextMenu2(wnd, point);
    else
        OnContextMenu1(wnd, point);
}

void KvAOIBaseViewWnd::OnContextMenu1(CWnd*, CPoint point)
{
    OpenContextMenu(IDR_VIEW_MENU, false, point);
}
void KvAOIBaseViewWnd::OnContextMenu2(CWnd*, CPoint point)
{
    OpenContextMenu(IDR_VIEW_MENU_BACKGROUND, true, point);
}
void KvAOIBaseViewWnd::OnContextMenu3(CWnd*, CPoint point)
{
    OpenContextMenu(IDR_VIEW_MENU_REDUCE, false, point);
}

void KvAOIBaseViewWnd::OpenContextMenu(UINT resource, bool backgrounds, CPoint point)
{
    if (!rightButtonMenu || !aoi)
        return;
    if (point == CPoint(-1, -1))
    {
        CRect client;
        GetClientRect(&client);
        point = client.TopLeft();
        ClientToScreen(&point);
        point += CPoint(5, 5);
    }
    CMenu loaded;
    if (!loaded.LoadMenu(resource))
        return;
    CMenu* menu = loaded.GetSubMenu(0);
    AddLutPopup(*menu);
    if (const UINT id = GetMenuIDFromZoomFactor())
        menu->CheckMenuItem(id, MF_BYCOMMAND | MF_CHECKED);
    if (backgrounds)
        AddBackgroundPopup(*menu);
    Enable(*menu, lutPosition, menuOLut);
    Enable(*menu, zoomPosition, menuZoom);
    if (backgrounds)
        Enable(*menu, backgroundPosition, menuBackground);
    // The frame routes the command back to its active view.
    menu->TrackPopupMenu(TPM_RIGHTBUTTON, point.x, point.y, GetParentFrame());
}

void KvAOIBaseViewWnd::AddLutPopup(CMenu& menu) const
{
    CMenu popup;
    popup.CreatePopupMenu();
    AppendLuts(popup, AllLutNames(), GetOutputLut());
    ReplaceByPopup(menu, ID_VIEW_LUT_FIRST, popup);
}

// An AOI that is shown but not listed joins the list, and stays in it.
void KvAOIBaseViewWnd::AddBackgroundPopup(CMenu& menu)
{
    KvAOI** end = aoiList.data + aoiList.size;
    if (std::find(aoiList.data, end, aoi) == end)
        AddAOI(aoi);
    CMenu popup;
    popup.CreatePopupMenu();
    for (UINT i = 0; i < aoiList.size && ID_VIEW_BACKGROUND_FIRST + i <= ID_VIEW_BACKGROUND_LAST; ++i)
    {
        const KvAOI* entry = aoiList[i];
        if (!entry)
            continue;
        KvString text = entry->GetUIName();
        if (text.Length() == 0)
            text = entry->GetAOIName();
        popup.AppendMenu(CheckedIf(entry == aoi), ID_VIEW_BACKGROUND_FIRST + i, text);
    }
    ReplaceByPopup(menu, ID_VIEW_BACKGROUND_FIRST, popup);
}

// --- Commands ---

void KvAOIBaseViewWnd::OnZoom(UINT id)
{
    if (id - ID_VIEW_ZOOM_FIRST < std::size(zoomSteps))
    {
        defaultOn = 0;
        SetZoomFactor(zoomSteps[id - ID_VIEW_ZOOM_FIRST]);
    }
    else if (id == ID_VIEW_ZOOM_DEFAULT)
    {
        ReturnToDefaultZoom();
    }
    else if (id == ID_VIEW_ZOOM_FIT)
    {
        defaultOn = 0;
        FitAOIToWindowOn();
    }
    else if (id == ID_VIEW_ZOOM_ASPECT && !defaultOn)
    {
        if (maintainAspectRatio)
            MaintainPixelAspectRatioOff();
        else
            MaintainPixelAspectRatioOn();
        if (fitToWindow)
            FitAOIToWindowOn();
    }
}

void KvAOIBaseViewWnd::ReturnToDefaultZoom()
{
    defaultOn = 1;
    SetAspectRatioMaintained(defaultAspectRatio);
    if (defaultFitted)
    {
        FitAOIToWindowOn();
    }
    else
    {
        FitAOIToWindowOff();
        SetZoomFactor(defaultZoomFactor);
    }
}

void KvAOIBaseViewWnd::OnOutputLut(UINT id)
{
    const KvTMem<KvString> names = AllLutNames();
    // A table can have gone since the menu was built.
    if (id - ID_VIEW_LUT_FIRST >= names.size)
        return;
    SetOutputLut(names[id - ID_VIEW_LUT_FIRST]);
    lutMenuHdl.Call(this);
}

void KvAOIBaseViewWnd::OnBackground(UINT id)
{
    const unsigned index = id - ID_VIEW_BACKGROUND_FIRST;
    if (index >= aoiList.size)
        return;
    SetAOI(aoiList[index]);
    backgroundMenuHdl.Call(this);
}

// --- State of the items ---

void KvAOIBaseViewWnd::OnUpdateZoom(CCmdUI* item)
{
    if (item->m_nID == ID_VIEW_ZOOM_ASPECT)
    {
        item->SetCheck(maintainAspectRatio);
        item->Enable(fitToWindow && menuZoom);
    }
    else
    {
        item->Enable(menuZoom);
    }
}

void KvAOIBaseViewWnd::OnUpdateOutputLut(CCmdUI* item)
{
    item->Enable(menuOLut);
}
void KvAOIBaseViewWnd::OnUpdateBackground(CCmdUI* item)
{
    item->Enable(menuBackground);
}

} // namespace KvN
