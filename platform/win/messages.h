// The platform's numbers of window messages, styles, keys and notifications, as far as the window layer knows them.
#pragma once

#include "platform/gdi/gdi_types.h"

// ---- Messages

inline constexpr UINT WM_NULL = 0x0000;
inline constexpr UINT WM_CREATE = 0x0001;
inline constexpr UINT WM_DESTROY = 0x0002;
inline constexpr UINT WM_MOVE = 0x0003;
inline constexpr UINT WM_SIZE = 0x0005;
inline constexpr UINT WM_ACTIVATE = 0x0006;
inline constexpr UINT WM_SETFOCUS = 0x0007;
inline constexpr UINT WM_KILLFOCUS = 0x0008;
inline constexpr UINT WM_ENABLE = 0x000A;
inline constexpr UINT WM_SETREDRAW = 0x000B;
inline constexpr UINT WM_SETTEXT = 0x000C;
inline constexpr UINT WM_GETTEXT = 0x000D;
inline constexpr UINT WM_GETTEXTLENGTH = 0x000E;
inline constexpr UINT WM_PAINT = 0x000F;
inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_ERASEBKGND = 0x0014;
inline constexpr UINT WM_SHOWWINDOW = 0x0018;
inline constexpr UINT WM_ACTIVATEAPP = 0x001C;
inline constexpr UINT WM_CANCELMODE = 0x001F;
inline constexpr UINT WM_SETCURSOR = 0x0020;
inline constexpr UINT WM_MOUSEACTIVATE = 0x0021;
inline constexpr UINT WM_GETMINMAXINFO = 0x0024;
inline constexpr UINT WM_DRAWITEM = 0x002B;
inline constexpr UINT WM_MEASUREITEM = 0x002C;
inline constexpr UINT WM_SETFONT = 0x0030;
inline constexpr UINT WM_GETFONT = 0x0031;
inline constexpr UINT WM_WINDOWPOSCHANGED = 0x0047;
inline constexpr UINT WM_NOTIFY = 0x004E;
inline constexpr UINT WM_CONTEXTMENU = 0x007B;
inline constexpr UINT WM_NCDESTROY = 0x0082;
inline constexpr UINT WM_NCHITTEST = 0x0084;
inline constexpr UINT WM_GETDLGCODE = 0x0087;
inline constexpr UINT WM_KEYDOWN = 0x0100;
inline constexpr UINT WM_KEYUP = 0x0101;
inline constexpr UINT WM_CHAR = 0x0102;
inline constexpr UINT WM_SYSKEYDOWN = 0x0104;
inline constexpr UINT WM_SYSKEYUP = 0x0105;
inline constexpr UINT WM_SYSCHAR = 0x0106;
inline constexpr UINT WM_INITDIALOG = 0x0110;
inline constexpr UINT WM_COMMAND = 0x0111;
inline constexpr UINT WM_SYSCOMMAND = 0x0112;
inline constexpr UINT WM_TIMER = 0x0113;
inline constexpr UINT WM_HSCROLL = 0x0114;
inline constexpr UINT WM_VSCROLL = 0x0115;
inline constexpr UINT WM_INITMENUPOPUP = 0x0117;
inline constexpr UINT WM_MOUSEMOVE = 0x0200;
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;
inline constexpr UINT WM_LBUTTONUP = 0x0202;
inline constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
inline constexpr UINT WM_RBUTTONDOWN = 0x0204;
inline constexpr UINT WM_RBUTTONUP = 0x0205;
inline constexpr UINT WM_RBUTTONDBLCLK = 0x0206;
inline constexpr UINT WM_MBUTTONDOWN = 0x0207;
inline constexpr UINT WM_MBUTTONUP = 0x0208;
inline constexpr UINT WM_MBUTTONDBLCLK = 0x0209;
inline constexpr UINT WM_MOUSEWHEEL = 0x020A;
inline constexpr UINT WM_MOUSEHWHEEL = 0x020E;
inline constexpr UINT WM_CAPTURECHANGED = 0x0215;
inline constexpr UINT WM_DROPFILES = 0x0233;
inline constexpr UINT WM_MOUSELEAVE = 0x02A3;
inline constexpr UINT WM_USER = 0x0400;
inline constexpr UINT WM_APP = 0x8000;

inline constexpr UINT WM_MOUSEFIRST = WM_MOUSEMOVE;
inline constexpr UINT WM_MOUSELAST = WM_MOUSEHWHEEL;
inline constexpr UINT WM_KEYFIRST = WM_KEYDOWN;
inline constexpr UINT WM_KEYLAST = WM_SYSCHAR;

// The class layer's own: the first OnUpdate of the views in a frame.
inline constexpr UINT WM_INITIALUPDATE = 0x0364;

// ---- Mouse: the key state of a message, hit tests, the wheel

inline constexpr UINT MK_LBUTTON = 0x0001;
inline constexpr UINT MK_RBUTTON = 0x0002;
inline constexpr UINT MK_SHIFT = 0x0004;
inline constexpr UINT MK_CONTROL = 0x0008;
inline constexpr UINT MK_MBUTTON = 0x0010;

inline constexpr int HTNOWHERE = 0;
inline constexpr int HTCLIENT = 1;
inline constexpr int HTCAPTION = 2;
inline constexpr int HTHSCROLL = 6;
inline constexpr int HTVSCROLL = 7;
inline constexpr int HTBORDER = 18;

inline constexpr int WHEEL_DELTA = 120;

// ---- Keys

inline constexpr UINT VK_LBUTTON = 0x01;
inline constexpr UINT VK_RBUTTON = 0x02;
inline constexpr UINT VK_MBUTTON = 0x04;
inline constexpr UINT VK_BACK = 0x08;
inline constexpr UINT VK_TAB = 0x09;
inline constexpr UINT VK_RETURN = 0x0D;
inline constexpr UINT VK_SHIFT = 0x10;
inline constexpr UINT VK_CONTROL = 0x11;
inline constexpr UINT VK_MENU = 0x12; // Alt
inline constexpr UINT VK_PAUSE = 0x13;
inline constexpr UINT VK_CAPITAL = 0x14;
inline constexpr UINT VK_ESCAPE = 0x1B;
inline constexpr UINT VK_SPACE = 0x20;
inline constexpr UINT VK_PRIOR = 0x21;
inline constexpr UINT VK_NEXT = 0x22;
inline constexpr UINT VK_END = 0x23;
inline constexpr UINT VK_HOME = 0x24;
inline constexpr UINT VK_LEFT = 0x25;
inline constexpr UINT VK_UP = 0x26;
inline constexpr UINT VK_RIGHT = 0x27;
inline constexpr UINT VK_DOWN = 0x28;
inline constexpr UINT VK_INSERT = 0x2D;
inline constexpr UINT VK_DELETE = 0x2E;
inline constexpr UINT VK_APPS = 0x5D; // the menu key
inline constexpr UINT VK_NUMPAD0 = 0x60;
inline constexpr UINT VK_MULTIPLY = 0x6A;
inline constexpr UINT VK_ADD = 0x6B;
inline constexpr UINT VK_SUBTRACT = 0x6D;
inline constexpr UINT VK_DECIMAL = 0x6E;
inline constexpr UINT VK_DIVIDE = 0x6F;
inline constexpr UINT VK_F1 = 0x70;
inline constexpr UINT VK_F10 = 0x79;
inline constexpr UINT VK_OEM_PLUS = 0xBB;
inline constexpr UINT VK_OEM_COMMA = 0xBC;
inline constexpr UINT VK_OEM_MINUS = 0xBD;
inline constexpr UINT VK_OEM_PERIOD = 0xBE;

// ---- Window classes and styles

inline constexpr UINT CS_VREDRAW = 0x0001;
inline constexpr UINT CS_HREDRAW = 0x0002;
inline constexpr UINT CS_DBLCLKS = 0x0008;
inline constexpr UINT CS_OWNDC = 0x0020;
inline constexpr UINT CS_CLASSDC = 0x0040;
inline constexpr UINT CS_PARENTDC = 0x0080;

inline constexpr DWORD WS_OVERLAPPED = 0x00000000;
inline constexpr DWORD WS_POPUP = 0x80000000;
inline constexpr DWORD WS_CHILD = 0x40000000;
inline constexpr DWORD WS_MINIMIZE = 0x20000000;
inline constexpr DWORD WS_VISIBLE = 0x10000000;
inline constexpr DWORD WS_DISABLED = 0x08000000;
inline constexpr DWORD WS_CLIPSIBLINGS = 0x04000000;
inline constexpr DWORD WS_CLIPCHILDREN = 0x02000000;
inline constexpr DWORD WS_MAXIMIZE = 0x01000000;
inline constexpr DWORD WS_CAPTION = 0x00C00000;
inline constexpr DWORD WS_BORDER = 0x00800000;
inline constexpr DWORD WS_DLGFRAME = 0x00400000;
inline constexpr DWORD WS_VSCROLL = 0x00200000;
inline constexpr DWORD WS_HSCROLL = 0x00100000;
inline constexpr DWORD WS_SYSMENU = 0x00080000;
inline constexpr DWORD WS_THICKFRAME = 0x00040000;
inline constexpr DWORD WS_GROUP = 0x00020000;
inline constexpr DWORD WS_TABSTOP = 0x00010000;
inline constexpr DWORD WS_MINIMIZEBOX = 0x00020000;
inline constexpr DWORD WS_MAXIMIZEBOX = 0x00010000;
inline constexpr DWORD WS_OVERLAPPEDWINDOW =
    WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
inline constexpr DWORD AFX_WS_DEFAULT_VIEW = WS_CHILD | WS_VISIBLE | WS_BORDER;

inline constexpr DWORD WS_EX_CLIENTEDGE = 0x00000200;
inline constexpr DWORD WS_EX_ACCEPTFILES = 0x00000010;

inline constexpr DWORD DS_SETFONT = 0x40;
inline constexpr DWORD DS_MODALFRAME = 0x80;

inline constexpr DWORD BS_PUSHBUTTON = 0x0;
inline constexpr DWORD BS_DEFPUSHBUTTON = 0x1;
inline constexpr DWORD BS_CHECKBOX = 0x2;
inline constexpr DWORD BS_AUTOCHECKBOX = 0x3;
inline constexpr DWORD BS_RADIOBUTTON = 0x4;
inline constexpr DWORD BS_GROUPBOX = 0x7;
inline constexpr DWORD BS_AUTORADIOBUTTON = 0x9;
inline constexpr DWORD BS_OWNERDRAW = 0xB;
inline constexpr DWORD BS_MULTILINE = 0x2000;

inline constexpr DWORD SS_LEFT = 0x0;
inline constexpr DWORD SS_CENTER = 0x1;
inline constexpr DWORD SS_RIGHT = 0x2;
inline constexpr DWORD SS_BLACKFRAME = 0x7;
inline constexpr DWORD SS_GRAYFRAME = 0x8;
inline constexpr DWORD SS_WHITEFRAME = 0x9;
inline constexpr DWORD SS_OWNERDRAW = 0xD;
inline constexpr DWORD SS_BITMAP = 0xE;
inline constexpr DWORD SS_ETCHEDFRAME = 0x12;
inline constexpr DWORD SS_NOTIFY = 0x100;

inline constexpr DWORD TBS_VERT = 0x2;
inline constexpr DWORD TBS_NOTICKS = 0x10;

// ---- Showing, sizing, ordering

inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOWNORMAL = 1;
inline constexpr int SW_SHOWMINIMIZED = 2;
inline constexpr int SW_SHOWMAXIMIZED = 3;
inline constexpr int SW_SHOWNOACTIVATE = 4;
inline constexpr int SW_SHOW = 5;
inline constexpr int SW_SHOWNA = 8;
inline constexpr int SW_RESTORE = 9;

inline constexpr UINT SIZE_RESTORED = 0;
inline constexpr UINT SIZE_MINIMIZED = 1;
inline constexpr UINT SIZE_MAXIMIZED = 2;

inline constexpr UINT SWP_NOSIZE = 0x0001;
inline constexpr UINT SWP_NOMOVE = 0x0002;
inline constexpr UINT SWP_NOZORDER = 0x0004;
inline constexpr UINT SWP_NOREDRAW = 0x0008;
inline constexpr UINT SWP_NOACTIVATE = 0x0010;
inline constexpr UINT SWP_FRAMECHANGED = 0x0020;
inline constexpr UINT SWP_SHOWWINDOW = 0x0040;
inline constexpr UINT SWP_HIDEWINDOW = 0x0080;

inline constexpr UINT RDW_INVALIDATE = 0x0001;
inline constexpr UINT RDW_ERASE = 0x0004;
inline constexpr UINT RDW_ALLCHILDREN = 0x0080;
inline constexpr UINT RDW_UPDATENOW = 0x0100;

inline constexpr UINT GW_HWNDFIRST = 0;
inline constexpr UINT GW_HWNDNEXT = 2;
inline constexpr UINT GW_HWNDPREV = 3;
inline constexpr UINT GW_OWNER = 4;
inline constexpr UINT GW_CHILD = 5;

inline constexpr int GWL_STYLE = -16;
inline constexpr int GWL_EXSTYLE = -20;
inline constexpr int GWL_ID = -12;

inline constexpr UINT WA_INACTIVE = 0;
inline constexpr UINT WA_ACTIVE = 1;

// ---- Scroll bars

inline constexpr int SB_HORZ = 0;
inline constexpr int SB_VERT = 1;
inline constexpr int SB_CTL = 2;
inline constexpr int SB_BOTH = 3;
inline constexpr int SB_LINEUP = 0;
inline constexpr int SB_LINELEFT = 0;
inline constexpr int SB_LINEDOWN = 1;
inline constexpr int SB_LINERIGHT = 1;
inline constexpr int SB_PAGEUP = 2;
inline constexpr int SB_PAGELEFT = 2;
inline constexpr int SB_PAGEDOWN = 3;
inline constexpr int SB_PAGERIGHT = 3;
inline constexpr int SB_THUMBPOSITION = 4;
inline constexpr int SB_THUMBTRACK = 5;
inline constexpr int SB_TOP = 6;
inline constexpr int SB_LEFT = 6;
inline constexpr int SB_BOTTOM = 7;
inline constexpr int SB_RIGHT = 7;
inline constexpr int SB_ENDSCROLL = 8;

inline constexpr UINT SIF_RANGE = 0x1;
inline constexpr UINT SIF_PAGE = 0x2;
inline constexpr UINT SIF_POS = 0x4;
inline constexpr UINT SIF_TRACKPOS = 0x10;
inline constexpr UINT SIF_ALL = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_TRACKPOS;

// ---- Menus

inline constexpr UINT MF_BYCOMMAND = 0x0000;
inline constexpr UINT MF_ENABLED = 0x0000;
inline constexpr UINT MF_UNCHECKED = 0x0000;
inline constexpr UINT MF_STRING = 0x0000;
inline constexpr UINT MF_GRAYED = 0x0001;
inline constexpr UINT MF_DISABLED = 0x0002;
inline constexpr UINT MF_CHECKED = 0x0008;
inline constexpr UINT MF_POPUP = 0x0010;
inline constexpr UINT MF_BYPOSITION = 0x0400;
inline constexpr UINT MF_SEPARATOR = 0x0800;

inline constexpr UINT TPM_LEFTBUTTON = 0x0000;
inline constexpr UINT TPM_LEFTALIGN = 0x0000;
inline constexpr UINT TPM_RIGHTBUTTON = 0x0002;
inline constexpr UINT TPM_NONOTIFY = 0x0080;
inline constexpr UINT TPM_RETURNCMD = 0x0100;

// ---- Dialog items, their messages and notifications

inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDABORT = 3;
inline constexpr int IDRETRY = 4;
inline constexpr int IDIGNORE = 5;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;

inline constexpr UINT MB_OK = 0x00;
inline constexpr UINT MB_OKCANCEL = 0x01;
inline constexpr UINT MB_ABORTRETRYIGNORE = 0x02;
inline constexpr UINT MB_YESNOCANCEL = 0x03;
inline constexpr UINT MB_YESNO = 0x04;
inline constexpr UINT MB_RETRYCANCEL = 0x05;
inline constexpr UINT MB_ICONHAND = 0x10;
inline constexpr UINT MB_ICONSTOP = 0x10;
inline constexpr UINT MB_ICONERROR = 0x10;
inline constexpr UINT MB_ICONQUESTION = 0x20;
inline constexpr UINT MB_ICONEXCLAMATION = 0x30;
inline constexpr UINT MB_ICONWARNING = 0x30;
inline constexpr UINT MB_ICONINFORMATION = 0x40;
inline constexpr UINT MB_DEFBUTTON2 = 0x100;

inline constexpr int BN_CLICKED = 0;
inline constexpr int BST_UNCHECKED = 0;
inline constexpr int BST_CHECKED = 1;
inline constexpr UINT BM_GETCHECK = 0x00F0;
inline constexpr UINT BM_SETCHECK = 0x00F1;
inline constexpr UINT BM_GETSTATE = 0x00F2;
inline constexpr UINT BM_SETSTATE = 0x00F3;
inline constexpr UINT BM_CLICK = 0x00F5;

inline constexpr int STN_CLICKED = 0;
inline constexpr int EN_SETFOCUS = 0x0100;
inline constexpr int EN_KILLFOCUS = 0x0200;
inline constexpr int EN_CHANGE = 0x0300;

inline constexpr UINT TBM_GETPOS = WM_USER;
inline constexpr UINT TBM_GETRANGEMIN = WM_USER + 1;
inline constexpr UINT TBM_GETRANGEMAX = WM_USER + 2;
inline constexpr UINT TBM_SETPOS = WM_USER + 5;
inline constexpr UINT TBM_SETRANGE = WM_USER + 6;
inline constexpr UINT TBM_SETRANGEMIN = WM_USER + 7;
inline constexpr UINT TBM_SETRANGEMAX = WM_USER + 8;
inline constexpr UINT TBM_SETTICFREQ = WM_USER + 20;
inline constexpr UINT TBM_SETPAGESIZE = WM_USER + 21;
inline constexpr UINT TBM_SETLINESIZE = WM_USER + 23;
inline constexpr int TB_LINEUP = 0;
inline constexpr int TB_LINEDOWN = 1;
inline constexpr int TB_PAGEUP = 2;
inline constexpr int TB_PAGEDOWN = 3;
inline constexpr int TB_THUMBPOSITION = 4;
inline constexpr int TB_THUMBTRACK = 5;
inline constexpr int TB_TOP = 6;
inline constexpr int TB_BOTTOM = 7;
inline constexpr int TB_ENDTRACK = 8;

inline constexpr UINT DLGC_WANTARROWS = 0x0001;
inline constexpr UINT DLGC_WANTTAB = 0x0002;
inline constexpr UINT DLGC_WANTALLKEYS = 0x0004;
inline constexpr UINT DLGC_WANTCHARS = 0x0080;

inline constexpr UINT ODT_BUTTON = 4;
inline constexpr UINT ODA_DRAWENTIRE = 0x1;
inline constexpr UINT ODA_SELECT = 0x2;
inline constexpr UINT ODA_FOCUS = 0x4;
inline constexpr UINT ODS_SELECTED = 0x1;
inline constexpr UINT ODS_GRAYED = 0x2;
inline constexpr UINT ODS_DISABLED = 0x4;
inline constexpr UINT ODS_FOCUS = 0x10;

// ---- Toolbars

inline constexpr BYTE TBSTYLE_BUTTON = 0x00;
inline constexpr BYTE TBSTYLE_SEP = 0x01;
inline constexpr BYTE TBSTYLE_CHECK = 0x02;
inline constexpr UINT TBBS_BUTTON = 0x00;
inline constexpr UINT TBBS_SEPARATOR = 0x01;
inline constexpr UINT TBBS_CHECKBOX = 0x02;
inline constexpr UINT TBBS_CHECKED = 0x00010000;
inline constexpr UINT TBBS_PRESSED = 0x00020000;
inline constexpr UINT TBBS_DISABLED = 0x00040000;
inline constexpr DWORD TBSTYLE_FLAT = 0x0800;
inline constexpr DWORD TBSTYLE_TOOLTIPS = 0x0100;
inline constexpr DWORD CBRS_ALIGN_TOP = 0x2000;
inline constexpr DWORD CBRS_TOP = 0x2000;
inline constexpr DWORD CBRS_TOOLTIPS = 0x0010;
inline constexpr DWORD CBRS_FLYBY = 0x0020;
inline constexpr DWORD CBRS_BORDER_TOP = 0x0200;
inline constexpr DWORD CBRS_SIZE_FIXED = 0x0020;
inline constexpr UINT TB_SETSTYLE = WM_USER + 56;
inline constexpr UINT TB_GETSTYLE = WM_USER + 57;
inline constexpr UINT AFX_IDW_CONTROLBAR_FIRST = 0xE800;
inline constexpr UINT AFX_IDW_TOOLBAR = 0xE800;
inline constexpr UINT AFX_IDW_STATUS_BAR = 0xE801;
inline constexpr UINT AFX_IDW_PANE_FIRST = 0xE900;

// ---- Packing of message words

inline constexpr WORD LOWORD(WPARAM value)
{
    return static_cast<WORD>(value & 0xFFFF);
}
inline constexpr WORD HIWORD(WPARAM value)
{
    return static_cast<WORD>((value >> 16) & 0xFFFF);
}
inline constexpr int GET_X_LPARAM(LPARAM value)
{
    return static_cast<SHORT>(LOWORD(static_cast<WPARAM>(value)));
}
inline constexpr int GET_Y_LPARAM(LPARAM value)
{
    return static_cast<SHORT>(HIWORD(static_cast<WPARAM>(value)));
}
inline constexpr WPARAM MAKEWPARAM(int low, int high)
{
    return static_cast<WPARAM>((static_cast<DWORD>(high & 0xFFFF) << 16) | static_cast<DWORD>(low & 0xFFFF));
}
inline constexpr LPARAM MAKELPARAM(int low, int high)
{
    return static_cast<LPARAM>(MAKEWPARAM(low, high));
}
inline constexpr short GET_WHEEL_DELTA_WPARAM(WPARAM value)
{
    return static_cast<short>(HIWORD(value));
}
