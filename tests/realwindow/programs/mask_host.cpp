// Runs a mask dialog as a host does: mask_host plain|overlay IMAGE MASK CONFIG. The mask's file is written back when
// the dialog ended with OK. Whenever what can be clicked has changed, it says where each of it is on the screen: lines
// of "control ID X Y" and "button ID X Y" with the middles, and an "end".
#include "C/uiAOIBaseViewWnd.h"
#include "C/uiMaskDlg.h"
#include "C/uiMaskDlgOverlay.h"
#include "contracts/basics.h"
#include "contracts/image.h"

#include <QApplication>
#include <QTimer>

#include <iostream>
#include <sstream>

namespace
{
using namespace KvN;

void TellMiddle(std::ostream& out, const char* kind, unsigned id, const CRect& onScreen)
{
    out << kind << ' ' << id << ' ' << onScreen.CenterPoint().x << ' ' << onScreen.CenterPoint().y << '\n';
}

// What is visible and enabled.
std::string Layout(KvMaskDlgBase& dialog)
{
    std::ostringstream out;
    for (CWnd* child = dialog.GetTopWindow(); child; child = child->GetNextWindow())
    {
        CRect place;
        child->GetWindowRect(&place);
        if (child->IsWindowVisible() && child->IsWindowEnabled())
            TellMiddle(out, "control", static_cast<unsigned>(child->GetDlgCtrlID()), place);
    }
    const KvDlgToolBar* bar = dialog.GetCurrentToolBar();
    for (int i = 0; bar && i < bar->GetCount(); ++i)
    {
        CRect place;
        const unsigned id = bar->GetItemID(i);
        if (id == 0 || !bar->IsButtonEnabled(static_cast<int>(id)))
            continue;
        bar->GetItemRect(i, &place);
        bar->ClientToScreen(&place);
        TellMiddle(out, "button", id, place);
    }
    KvAOIBaseViewWnd& view = *dialog.GetMaskWnd().GetAOIBaseViewWnd();
    CPoint corner(0, 0);
    view.ViewLPtoDP(&corner);
    view.ClientToScreen(&corner);
    out << "view 0 " << corner.x << ' ' << corner.y << "\nend\n";
    return out.str();
}

template <class Dialog>
bool Run(Dialog& dialog)
{
    std::string told;
    QTimer teller;
    QObject::connect(&teller, &QTimer::timeout,
                     [&]
                     {
                         if (!dialog.GetSafeHwnd() || !dialog.IsWindowVisible())
                             return;
                         const std::string now = Layout(dialog);
                         if (now != std::exchange(told, now))
                             std::cout << now << std::flush;
                     });
    teller.start(20);
    return dialog.DoModal() == IDOK;
}

bool RunNamed(const std::string& name, const KvString& config, const KvAOI& image, KvAOI8& mask)
{
    if (name == "plain")
    {
        KvMaskDlg dialog;
        dialog.Init(config, &image, &mask);
        return Run(dialog);
    }
    KvMaskDlgOverlay dialog(nullptr, IDD_MASK_OVERLAY, IDR_MASK_OVERLAY_INCLUDE, IDR_MASK_OVERLAY_EXCLUDE);
    dialog.SetShowSystemMaskOn();
    dialog.SetDefaultFittedToWindow(0);
    dialog.Init(config, &image, &mask);
    const bool accepted = Run(dialog);
    if (dialog.IsSystemMaskDeleted())
        std::cout << "deleted" << std::endl; // what follows of that is the host's business
    return accepted;
}
} // namespace

int main(int argc, char** argv)
try
{
    QApplication application(argc, argv);
    if (argc != 5)
        return 2;
    const std::unique_ptr<KvAOI> image = KvxLoadAOI(KvString(argv[2]));
    const std::unique_ptr<KvAOI> mask = KvxLoadAOI(KvString(argv[3]));
    auto* bits = dynamic_cast<KvAOI8*>(mask.get());
    if (!bits)
        return 2;
    const bool accepted = RunNamed(argv[1], KvString(argv[4]), *image, *bits);
    if (accepted)
        KvxSaveAOI(*mask, KvString(argv[3]));
    std::cout << (accepted ? "ok" : "cancel") << std::endl;
    return 0;
}
catch (KvN::KvException* failure)
{
    std::cerr << failure->GetMessageW().Utf8() << '\n';
    failure->Delete();
    return 1;
}
