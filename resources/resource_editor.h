// The editor's resource ids.
#pragma once

// Cursors; the system's own stand for the rest.
#define IDC_EDITOR_INVERT_OBJECT 17500
#define IDC_EDITOR_ROTATE_OBJECT 17501
#define IDC_EDITOR_DELETE_POINT 17502
#define IDC_EDITOR_ADD_POINT 17503
#define IDC_EDITOR_MOVE_POINT 17504
#define IDC_EDITOR_MOVE_OBJECT 17505
#define IDC_EDITOR_NEW_POINT 17506

// Messages of the marker list: the ID or the name that is missing.
#define IDS_MARKER_UNKNOWN_ID 17510
#define IDS_MARKER_UNKNOWN_NAME 17511
