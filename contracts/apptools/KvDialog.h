// The base of the system's dialogs, and the binding of a control to a member.
#pragma once

#include "platform/win/dialog.h"

namespace KvN
{

class KvDialog : public CDialog
{
    DECLARE_DYNAMIC(KvDialog)

public:
    // The three flags are kept for callers of the former interface: 1 centres the dialog over its parent, the other two
    // play no part.
    KvDialog(unsigned int resourceId, CWnd* parent, int centre = 1, int = 1, int = 1);

    INT_PTR DoModal() override;
    BOOL OnInitDialog() override;

protected:
    // Called by OnInitDialog before anything else happens.
    virtual void PreBaseInit() {}

private:
    int centred;
};

// Binds a control to a member, the first time it is exchanged.
void Kvx_DDX_Control(CDataExchange* exchange, int id, CWnd& control);

} // namespace KvN
