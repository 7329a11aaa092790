// What the system takes from the application tools library, in one header.
#pragma once

#include "contracts/apptools/KvBaseFrameWnd.h"
#include "contracts/apptools/KvDialog.h"
#include "contracts/apptools/KvDlgToolBar.h"
#include "contracts/apptools/KvScrollZoomView.h"
#include "contracts/apptools/KvSpinEdit.h"
#include "contracts/apptools/KvWinApp.h"
#include "platform/win/win.h"
