// The view's resource ids.
#pragma once

// Context menus: the usual one, the one with backgrounds, the one of views that reduce.
#define IDR_VIEW_MENU 21500
#define IDR_VIEW_MENU_BACKGROUND 21501
#define IDR_VIEW_MENU_REDUCE 21502

// Message of a zoom that would make the image longer than a window can be.
#define IDS_VIEW_ZOOM 33000

// Commands of the zoom popup. The numbers between belong to the range and have no item.
#define ID_VIEW_ZOOM_FIRST 45000
#define ID_VIEW_ZOOM_5 45000
#define ID_VIEW_ZOOM_10 45001
#define ID_VIEW_ZOOM_25 45002
#define ID_VIEW_ZOOM_50 45003
#define ID_VIEW_ZOOM_100 45004
#define ID_VIEW_ZOOM_200 45005
#define ID_VIEW_ZOOM_400 45006
#define ID_VIEW_ZOOM_800 45007
#define ID_VIEW_ZOOM_1600 45008
#define ID_VIEW_ZOOM_DEFAULT 45009
#define ID_VIEW_ZOOM_FIT 45010
#define ID_VIEW_ZOOM_ASPECT 45012
#define ID_VIEW_ZOOM_LAST 45014

// One command a table, one a background; the first of each also marks the item that gives way to the popup.
#define ID_VIEW_LUT_FIRST 45015
#define ID_VIEW_LUT_LAST 45059
#define ID_VIEW_BACKGROUND_FIRST 45060
#define ID_VIEW_BACKGROUND_LAST 45075
