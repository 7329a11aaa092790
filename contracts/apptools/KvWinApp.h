// The application object.
#pragma once

#include "platform/win/app.h"

namespace KvN
{

// Exceptions that reach its message loop are written to the debug file and shown in a message box.
class KvWinApp : public CWinApp
{
    DECLARE_DYNAMIC(KvWinApp)

public:
    KvWinApp();
};

// The program's own, or one that the library keeps for hosts without. Never null.
KvWinApp* GetpApp();

} // namespace KvN
