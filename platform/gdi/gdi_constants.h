// The numbers that drawing calls take and return, under their platform names.
#pragma once

#include "platform/gdi/gdi_types.h"

constexpr COLORREF RGB(int r, int g, int b)
{
    return COLORREF(BYTE(r)) | COLORREF(BYTE(g)) << 8 | COLORREF(BYTE(b)) << 16;
}
constexpr BYTE GetRValue(COLORREF color)
{
    return BYTE(color);
}
constexpr BYTE GetGValue(COLORREF color)
{
    return BYTE(color >> 8);
}
constexpr BYTE GetBValue(COLORREF color)
{
    return BYTE(color >> 16);
}
constexpr COLORREF PALETTEINDEX(WORD index)
{
    return 0x01000000u | index;
}
constexpr COLORREF PALETTERGB(int r, int g, int b)
{
    return 0x02000000u | RGB(r, g, b);
}

inline constexpr COLORREF CLR_INVALID = 0xFFFFFFFFu;
inline constexpr DWORD GDI_ERROR = 0xFFFFFFFFu;

// Errors
inline constexpr DWORD ERROR_SUCCESS = 0;
inline constexpr DWORD ERROR_INVALID_HANDLE = 6;
inline constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
inline constexpr DWORD ERROR_NOT_SUPPORTED = 50;
inline constexpr DWORD ERROR_INVALID_PARAMETER = 87;
inline constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
inline constexpr DWORD ERROR_NOACCESS = 998;

// Raster operations of pens and brushes
inline constexpr int R2_BLACK = 1;
inline constexpr int R2_NOTMERGEPEN = 2;
inline constexpr int R2_MASKNOTPEN = 3;
inline constexpr int R2_NOTCOPYPEN = 4;
inline constexpr int R2_MASKPENNOT = 5;
inline constexpr int R2_NOT = 6;
inline constexpr int R2_XORPEN = 7;
inline constexpr int R2_NOTMASKPEN = 8;
inline constexpr int R2_MASKPEN = 9;
inline constexpr int R2_NOTXORPEN = 10;
inline constexpr int R2_NOP = 11;
inline constexpr int R2_MERGENOTPEN = 12;
inline constexpr int R2_COPYPEN = 13;
inline constexpr int R2_MERGEPENNOT = 14;
inline constexpr int R2_MERGEPEN = 15;
inline constexpr int R2_WHITE = 16;
inline constexpr int R2_LAST = 16;

// Raster operations of blits. The third byte is the truth table: pattern 0xF0, source 0xCC, target 0xAA.
inline constexpr DWORD SRCCOPY = 0x00CC0020;
inline constexpr DWORD SRCPAINT = 0x00EE0086;
inline constexpr DWORD SRCAND = 0x008800C6;
inline constexpr DWORD SRCINVERT = 0x00660046;
inline constexpr DWORD SRCERASE = 0x00440328;
inline constexpr DWORD NOTSRCCOPY = 0x00330008;
inline constexpr DWORD NOTSRCERASE = 0x001100A6;
inline constexpr DWORD MERGECOPY = 0x00C000CA;
inline constexpr DWORD MERGEPAINT = 0x00BB0226;
inline constexpr DWORD PATCOPY = 0x00F00021;
inline constexpr DWORD PATPAINT = 0x00FB0A09;
inline constexpr DWORD PATINVERT = 0x005A0049;
inline constexpr DWORD DSTINVERT = 0x00550009;
inline constexpr DWORD BLACKNESS = 0x00000042;
inline constexpr DWORD WHITENESS = 0x00FF0062;
inline constexpr DWORD NOMIRRORBITMAP = 0x80000000;
inline constexpr DWORD CAPTUREBLT = 0x40000000;

// Stretch modes
inline constexpr int BLACKONWHITE = 1;
inline constexpr int WHITEONBLACK = 2;
inline constexpr int COLORONCOLOR = 3;
inline constexpr int HALFTONE = 4;
inline constexpr int MAXSTRETCHBLTMODE = 4;
inline constexpr int STRETCH_ANDSCANS = BLACKONWHITE;
inline constexpr int STRETCH_ORSCANS = WHITEONBLACK;
inline constexpr int STRETCH_DELETESCANS = COLORONCOLOR;
inline constexpr int STRETCH_HALFTONE = HALFTONE;

// Polygon fill modes
inline constexpr int ALTERNATE = 1;
inline constexpr int WINDING = 2;

// Background modes
inline constexpr int TRANSPARENT = 1;
inline constexpr int OPAQUE = 2;

// Graphics modes
inline constexpr int GM_COMPATIBLE = 1;
inline constexpr int GM_ADVANCED = 2;

// Mapping modes
inline constexpr int MM_TEXT = 1;
inline constexpr int MM_LOMETRIC = 2;
inline constexpr int MM_HIMETRIC = 3;
inline constexpr int MM_LOENGLISH = 4;
inline constexpr int MM_HIENGLISH = 5;
inline constexpr int MM_TWIPS = 6;
inline constexpr int MM_ISOTROPIC = 7;
inline constexpr int MM_ANISOTROPIC = 8;

// Ways of ModifyWorldTransform
inline constexpr DWORD MWT_IDENTITY = 1;
inline constexpr DWORD MWT_LEFTMULTIPLY = 2;
inline constexpr DWORD MWT_RIGHTMULTIPLY = 3;

// Arc directions
inline constexpr int AD_COUNTERCLOCKWISE = 1;
inline constexpr int AD_CLOCKWISE = 2;

// Layouts of a context
inline constexpr DWORD LAYOUT_RTL = 1;

// Stock objects
inline constexpr int WHITE_BRUSH = 0;
inline constexpr int LTGRAY_BRUSH = 1;
inline constexpr int GRAY_BRUSH = 2;
inline constexpr int DKGRAY_BRUSH = 3;
inline constexpr int BLACK_BRUSH = 4;
inline constexpr int NULL_BRUSH = 5;
inline constexpr int HOLLOW_BRUSH = NULL_BRUSH;
inline constexpr int WHITE_PEN = 6;
inline constexpr int BLACK_PEN = 7;
inline constexpr int NULL_PEN = 8;
inline constexpr int OEM_FIXED_FONT = 10;
inline constexpr int ANSI_FIXED_FONT = 11;
inline constexpr int ANSI_VAR_FONT = 12;
inline constexpr int SYSTEM_FONT = 13;
inline constexpr int DEVICE_DEFAULT_FONT = 14;
inline constexpr int DEFAULT_PALETTE = 15;
inline constexpr int SYSTEM_FIXED_FONT = 16;
inline constexpr int DEFAULT_GUI_FONT = 17;
inline constexpr int DC_BRUSH = 18;
inline constexpr int DC_PEN = 19;

// Pen styles
inline constexpr DWORD PS_SOLID = 0;
inline constexpr DWORD PS_DASH = 1;
inline constexpr DWORD PS_DOT = 2;
inline constexpr DWORD PS_DASHDOT = 3;
inline constexpr DWORD PS_DASHDOTDOT = 4;
inline constexpr DWORD PS_NULL = 5;
inline constexpr DWORD PS_INSIDEFRAME = 6;
inline constexpr DWORD PS_USERSTYLE = 7;
inline constexpr DWORD PS_ALTERNATE = 8;
inline constexpr DWORD PS_STYLE_MASK = 0x0000000F;
inline constexpr DWORD PS_ENDCAP_ROUND = 0x00000000;
inline constexpr DWORD PS_ENDCAP_SQUARE = 0x00000100;
inline constexpr DWORD PS_ENDCAP_FLAT = 0x00000200;
inline constexpr DWORD PS_ENDCAP_MASK = 0x00000F00;
inline constexpr DWORD PS_JOIN_ROUND = 0x00000000;
inline constexpr DWORD PS_JOIN_BEVEL = 0x00001000;
inline constexpr DWORD PS_JOIN_MITER = 0x00002000;
inline constexpr DWORD PS_JOIN_MASK = 0x0000F000;
inline constexpr DWORD PS_COSMETIC = 0x00000000;
inline constexpr DWORD PS_GEOMETRIC = 0x00010000;
inline constexpr DWORD PS_TYPE_MASK = 0x000F0000;

// Brush styles
inline constexpr UINT BS_SOLID = 0;
inline constexpr UINT BS_NULL = 1;
inline constexpr UINT BS_HOLLOW = BS_NULL;
inline constexpr UINT BS_HATCHED = 2;
inline constexpr UINT BS_PATTERN = 3;
inline constexpr UINT BS_INDEXED = 4;
inline constexpr UINT BS_DIBPATTERN = 5;
inline constexpr UINT BS_DIBPATTERNPT = 6;
inline constexpr int HS_HORIZONTAL = 0;
inline constexpr int HS_VERTICAL = 1;
inline constexpr int HS_FDIAGONAL = 2;
inline constexpr int HS_BDIAGONAL = 3;
inline constexpr int HS_CROSS = 4;
inline constexpr int HS_DIAGCROSS = 5;

// Kinds of objects
inline constexpr int OBJ_PEN = 1;
inline constexpr int OBJ_BRUSH = 2;
inline constexpr int OBJ_DC = 3;
inline constexpr int OBJ_METADC = 4;
inline constexpr int OBJ_PAL = 5;
inline constexpr int OBJ_FONT = 6;
inline constexpr int OBJ_BITMAP = 7;
inline constexpr int OBJ_REGION = 8;
inline constexpr int OBJ_METAFILE = 9;
inline constexpr int OBJ_MEMDC = 10;
inline constexpr int OBJ_EXTPEN = 11;

// Regions
inline constexpr int ERROR = 0;
inline constexpr int RGN_ERROR = ERROR;
inline constexpr int NULLREGION = 1;
inline constexpr int SIMPLEREGION = 2;
inline constexpr int COMPLEXREGION = 3;
inline constexpr int RGN_AND = 1;
inline constexpr int RGN_OR = 2;
inline constexpr int RGN_XOR = 3;
inline constexpr int RGN_DIFF = 4;
inline constexpr int RGN_COPY = 5;
inline constexpr DWORD RDH_RECTANGLES = 1;

// Bitmaps
inline constexpr UINT DIB_RGB_COLORS = 0;
inline constexpr UINT DIB_PAL_COLORS = 1;
inline constexpr DWORD BI_RGB = 0;
inline constexpr DWORD BI_RLE8 = 1;
inline constexpr DWORD BI_RLE4 = 2;
inline constexpr DWORD BI_BITFIELDS = 3;
inline constexpr DWORD CBM_INIT = 4;

// Text
inline constexpr UINT TA_NOUPDATECP = 0;
inline constexpr UINT TA_UPDATECP = 1;
inline constexpr UINT TA_LEFT = 0;
inline constexpr UINT TA_RIGHT = 2;
inline constexpr UINT TA_CENTER = 6;
inline constexpr UINT TA_TOP = 0;
inline constexpr UINT TA_BOTTOM = 8;
inline constexpr UINT TA_BASELINE = 24;
inline constexpr UINT ETO_OPAQUE = 2;
inline constexpr UINT ETO_CLIPPED = 4;
inline constexpr int FW_DONTCARE = 0;
inline constexpr int FW_THIN = 100;
inline constexpr int FW_LIGHT = 300;
inline constexpr int FW_NORMAL = 400;
inline constexpr int FW_MEDIUM = 500;
inline constexpr int FW_SEMIBOLD = 600;
inline constexpr int FW_BOLD = 700;
inline constexpr int FW_HEAVY = 900;
inline constexpr BYTE ANSI_CHARSET = 0;
inline constexpr BYTE DEFAULT_CHARSET = 1;
inline constexpr BYTE SYMBOL_CHARSET = 2;
inline constexpr BYTE OUT_DEFAULT_PRECIS = 0;
inline constexpr BYTE OUT_TT_PRECIS = 4;
inline constexpr BYTE CLIP_DEFAULT_PRECIS = 0;
inline constexpr BYTE DEFAULT_QUALITY = 0;
inline constexpr BYTE NONANTIALIASED_QUALITY = 3;
inline constexpr BYTE ANTIALIASED_QUALITY = 4;
inline constexpr BYTE CLEARTYPE_QUALITY = 5;
inline constexpr BYTE DEFAULT_PITCH = 0;
inline constexpr BYTE FIXED_PITCH = 1;
inline constexpr BYTE VARIABLE_PITCH = 2;
inline constexpr BYTE FF_DONTCARE = 0x00;
inline constexpr BYTE FF_ROMAN = 0x10;
inline constexpr BYTE FF_SWISS = 0x20;
inline constexpr BYTE FF_MODERN = 0x30;
inline constexpr BYTE TMPF_FIXED_PITCH = 1;
inline constexpr BYTE TMPF_VECTOR = 2;
inline constexpr BYTE TMPF_TRUETYPE = 4;

inline constexpr UINT DT_TOP = 0x0000;
inline constexpr UINT DT_LEFT = 0x0000;
inline constexpr UINT DT_CENTER = 0x0001;
inline constexpr UINT DT_RIGHT = 0x0002;
inline constexpr UINT DT_VCENTER = 0x0004;
inline constexpr UINT DT_BOTTOM = 0x0008;
inline constexpr UINT DT_WORDBREAK = 0x0010;
inline constexpr UINT DT_SINGLELINE = 0x0020;
inline constexpr UINT DT_EXPANDTABS = 0x0040;
inline constexpr UINT DT_TABSTOP = 0x0080;
inline constexpr UINT DT_NOCLIP = 0x0100;
inline constexpr UINT DT_EXTERNALLEADING = 0x0200;
inline constexpr UINT DT_CALCRECT = 0x0400;
inline constexpr UINT DT_NOPREFIX = 0x0800;
inline constexpr UINT DT_END_ELLIPSIS = 0x8000;
inline constexpr UINT DT_HIDEPREFIX = 0x00100000;

// Frame controls and edges
inline constexpr UINT DFC_CAPTION = 1;
inline constexpr UINT DFC_MENU = 2;
inline constexpr UINT DFC_SCROLL = 3;
inline constexpr UINT DFC_BUTTON = 4;
inline constexpr UINT DFCS_BUTTONCHECK = 0x0000;
inline constexpr UINT DFCS_BUTTONRADIOIMAGE = 0x0001;
inline constexpr UINT DFCS_BUTTONRADIOMASK = 0x0002;
inline constexpr UINT DFCS_BUTTONRADIO = 0x0004;
inline constexpr UINT DFCS_BUTTON3STATE = 0x0008;
inline constexpr UINT DFCS_BUTTONPUSH = 0x0010;
inline constexpr UINT DFCS_SCROLLUP = 0x0000;
inline constexpr UINT DFCS_SCROLLDOWN = 0x0001;
inline constexpr UINT DFCS_SCROLLLEFT = 0x0002;
inline constexpr UINT DFCS_SCROLLRIGHT = 0x0003;
inline constexpr UINT DFCS_SCROLLCOMBOBOX = 0x0005;
inline constexpr UINT DFCS_SCROLLSIZEGRIP = 0x0008;
inline constexpr UINT DFCS_INACTIVE = 0x0100;
inline constexpr UINT DFCS_PUSHED = 0x0200;
inline constexpr UINT DFCS_CHECKED = 0x0400;
inline constexpr UINT DFCS_ADJUSTRECT = 0x2000;
inline constexpr UINT DFCS_FLAT = 0x4000;
inline constexpr UINT DFCS_MONO = 0x8000;

inline constexpr UINT BDR_RAISEDOUTER = 0x0001;
inline constexpr UINT BDR_SUNKENOUTER = 0x0002;
inline constexpr UINT BDR_RAISEDINNER = 0x0004;
inline constexpr UINT BDR_SUNKENINNER = 0x0008;
inline constexpr UINT EDGE_RAISED = BDR_RAISEDOUTER | BDR_RAISEDINNER;
inline constexpr UINT EDGE_SUNKEN = BDR_SUNKENOUTER | BDR_SUNKENINNER;
inline constexpr UINT EDGE_ETCHED = BDR_SUNKENOUTER | BDR_RAISEDINNER;
inline constexpr UINT EDGE_BUMP = BDR_RAISEDOUTER | BDR_SUNKENINNER;
inline constexpr UINT BF_LEFT = 0x0001;
inline constexpr UINT BF_TOP = 0x0002;
inline constexpr UINT BF_RIGHT = 0x0004;
inline constexpr UINT BF_BOTTOM = 0x0008;
inline constexpr UINT BF_RECT = BF_LEFT | BF_TOP | BF_RIGHT | BF_BOTTOM;
inline constexpr UINT BF_MIDDLE = 0x0800;
inline constexpr UINT BF_SOFT = 0x1000;
inline constexpr UINT BF_ADJUST = 0x2000;
inline constexpr UINT BF_FLAT = 0x4000;
inline constexpr UINT BF_MONO = 0x8000;

// System colours
inline constexpr int COLOR_SCROLLBAR = 0;
inline constexpr int COLOR_BACKGROUND = 1;
inline constexpr int COLOR_ACTIVECAPTION = 2;
inline constexpr int COLOR_INACTIVECAPTION = 3;
inline constexpr int COLOR_MENU = 4;
inline constexpr int COLOR_WINDOW = 5;
inline constexpr int COLOR_WINDOWFRAME = 6;
inline constexpr int COLOR_MENUTEXT = 7;
inline constexpr int COLOR_WINDOWTEXT = 8;
inline constexpr int COLOR_CAPTIONTEXT = 9;
inline constexpr int COLOR_APPWORKSPACE = 12;
inline constexpr int COLOR_HIGHLIGHT = 13;
inline constexpr int COLOR_HIGHLIGHTTEXT = 14;
inline constexpr int COLOR_BTNFACE = 15;
inline constexpr int COLOR_3DFACE = COLOR_BTNFACE;
inline constexpr int COLOR_BTNSHADOW = 16;
inline constexpr int COLOR_3DSHADOW = COLOR_BTNSHADOW;
inline constexpr int COLOR_GRAYTEXT = 17;
inline constexpr int COLOR_BTNTEXT = 18;
inline constexpr int COLOR_BTNHIGHLIGHT = 20;
inline constexpr int COLOR_3DHIGHLIGHT = COLOR_BTNHIGHLIGHT;
inline constexpr int COLOR_3DDKSHADOW = 21;
inline constexpr int COLOR_3DLIGHT = 22;
inline constexpr int COLOR_INFOTEXT = 23;
inline constexpr int COLOR_INFOBK = 24;

// Device capabilities
inline constexpr int DRIVERVERSION = 0;
inline constexpr int TECHNOLOGY = 2;
inline constexpr int HORZSIZE = 4;
inline constexpr int VERTSIZE = 6;
inline constexpr int HORZRES = 8;
inline constexpr int VERTRES = 10;
inline constexpr int BITSPIXEL = 12;
inline constexpr int PLANES = 14;
inline constexpr int NUMBRUSHES = 16;
inline constexpr int NUMPENS = 18;
inline constexpr int NUMFONTS = 22;
inline constexpr int NUMCOLORS = 24;
inline constexpr int CURVECAPS = 28;
inline constexpr int LINECAPS = 30;
inline constexpr int POLYGONALCAPS = 32;
inline constexpr int TEXTCAPS = 34;
inline constexpr int CLIPCAPS = 36;
inline constexpr int RASTERCAPS = 38;
inline constexpr int ASPECTX = 40;
inline constexpr int ASPECTY = 42;
inline constexpr int ASPECTXY = 44;
inline constexpr int LOGPIXELSX = 88;
inline constexpr int LOGPIXELSY = 90;
inline constexpr int SIZEPALETTE = 104;
inline constexpr int NUMRESERVED = 106;
inline constexpr int COLORRES = 108;
inline constexpr int PHYSICALWIDTH = 110;
inline constexpr int PHYSICALHEIGHT = 111;
inline constexpr int PHYSICALOFFSETX = 112;
inline constexpr int PHYSICALOFFSETY = 113;
inline constexpr int SCALINGFACTORX = 114;
inline constexpr int SCALINGFACTORY = 115;
inline constexpr int DT_RASDISPLAY = 1;
inline constexpr int DT_RASPRINTER = 2;
inline constexpr int RC_BITBLT = 1;
inline constexpr int RC_BITMAP64 = 8;
inline constexpr int RC_GDI20_OUTPUT = 0x0010;
inline constexpr int RC_DI_BITMAP = 0x0080;
inline constexpr int RC_DIBTODEV = 0x0200;
inline constexpr int RC_STRETCHBLT = 0x0800;
inline constexpr int RC_STRETCHDIB = 0x2000;
inline constexpr int RC_PALETTE = 0x0100;
