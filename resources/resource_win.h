// The window layer's resource ids.
#pragma once

// The texts of a message box's buttons: this number plus the result that the button gives (IDOK 1 ... IDNO 7).
#define IDS_WIN_BUTTON 30360
