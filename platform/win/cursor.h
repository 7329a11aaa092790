// The hourglass for the length of a scope. Loading and setting of cursors is in user.h.
#pragma once

#include "platform/win/user.h"

// Shows the waiting cursor until it goes or `Restore` brings the former one back.
class CWaitCursor
{
public:
    CWaitCursor() : former(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    ~CWaitCursor() { SetCursor(former); }
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
    void Restore() { SetCursor(LoadCursorW(nullptr, IDC_WAIT)); }

private:
    HCURSOR former;
};
