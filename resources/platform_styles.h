// The platform's window and control styles and dialog ids, as far as the resource script names them. Only the
// resource compiler reads this; programs take the names from the window layer.
#pragma once

#define IDOK 1
#define IDCANCEL 2
#define IDC_STATIC (-1)

#define WS_POPUP 0x80000000L
#define WS_DISABLED 0x08000000L
#define WS_CAPTION 0x00C00000L
#define WS_SYSMENU 0x00080000L
#define WS_THICKFRAME 0x00040000L
#define WS_GROUP 0x00020000L
#define WS_TABSTOP 0x00010000L
#define WS_MAXIMIZEBOX 0x00010000L

#define DS_MODALFRAME 0x80L

#define BS_AUTOCHECKBOX 0x3L
#define BS_AUTORADIOBUTTON 0x9L
#define BS_OWNERDRAW 0xBL
#define BS_MULTILINE 0x2000L

#define SS_BLACKFRAME 0x7L
