// The base of the system's dialogs.
#include "contracts/apptools/KvDialog.h"

#include "platform/win/ddx.h"

namespace KvN
{

IMPLEMENT_DYNAMIC(KvDialog, CDialog)

KvDialog::KvDialog(unsigned int resourceId, CWnd* parent, int centre, int, int)
    : CDialog(resourceId, parent), centred(centre)
{
}

INT_PTR KvDialog::DoModal()
{
    return CDialog::DoModal();
}

BOOL KvDialog::OnInitDialog()
{
    PreBaseInit();
    const BOOL result = CDialog::OnInitDialog();
    if (centred)
        CenterWindow();
    return result;
}

void Kvx_DDX_Control(CDataExchange* exchange, int id, CWnd& control)
{
    DDX_Control(exchange, id, control);
}

} // namespace KvN
