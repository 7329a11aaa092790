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
