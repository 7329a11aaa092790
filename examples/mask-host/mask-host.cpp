// Both mask dialogs called from a Qt program of one's own: mask-host [--check]. With --check it runs each dialog with
// an operator who fills the whole mask, prints what came of OK and of Cancel, and quits.
#include "C/uiMaskDlg.h"
#include "C/uiMaskDlgOverlay.h"
#include "contracts/image.h"
#include "platform/win/modal.h"
#include "platform/win/qt_host.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QVBoxLayout>

#include <functional>
#include <iostream>

namespace
{
using namespace KvN;

// What a host keeps: two pictures of the same part, one mask for both, and where the dialogs remember their settings.
struct Host
{
    QWidget window;
    QTemporaryDir folder;
    KvBufferAOI8 front{KvTSize<short>(320, 240)};
    KvBufferAOI8 side{KvTSize<short>(320, 240)};
    KvBufferAOI8 mask{KvTSize<short>(320, 240)};

    Host()
    {
        front.SetUIName("front light"); // as the menu of the overlay dialog shows them
        side.SetUIName("side light");
        front.SetAOIName("front");
        side.SetAOIName("side");
        mask.SetOLut(pOLutMgr->GetLut("Mask")); // bit 7 red, bit 6 blue
    }

    KvString Config() const { return KvString(folder.filePath("masks.ini").toUtf8().constData()); }
    CWnd* Parent() { return CWnd::FromHandle(kv::win::HostWindow(&window)); }

    // True if the operator accepted: then bit 7 of the mask is what was painted.
    bool Paint()
    {
        KvMaskDlg dialog(Parent());
        dialog.Init(Config(), &front, &mask, 0);
        return Run([&dialog] { return dialog.DoModal(); });
    }

    // The same over either picture; tells in whose light the operator worked last.
    bool PaintOverPictures(KvString& shown)
    {
        KvMaskDlgOverlay dialog(Parent(), IDD_MASK_OVERLAY, IDR_MASK_OVERLAY_INCLUDE, IDR_MASK_OVERLAY_EXCLUDE);
        dialog.AddAOI(&side); // before Init, which adds the picture to start with
        dialog.SetHeaderText(KvMaskDlgOverlay::GetResourceTextMaskDefect());
        dialog.Init(Config(), &front, &mask);
        const bool accepted = Run([&dialog] { return dialog.DoModal(); });
        shown = dialog.GetAOIName(); // after Cancel, too
        if (accepted && dialog.IsSystemMaskDeleted())
            KvLLogic().And(&mask, 0xBF, &mask); // the dialog gives bit 6 back; taking it away is the host's part
        return accepted;
    }

    // A wrong key in the settings comes out of `DoModal`; the mask is as it was.
    bool Run(const std::function<INT_PTR()>& dialog)
    try
    {
        return dialog() == IDOK;
    }
    catch (KvException* failure)
    {
        const std::string text = failure->GetMessageW().Utf8();
        failure->Delete();
        std::cout << "refused: " << text << std::endl;
        return false;
    }

    int Painted() const
    {
        int pixels = 0;
        for (int y = 0; y < mask.AOIHeight(); ++y)
            for (int x = 0; x < mask.AOIWidth(); ++x)
                pixels += mask.GetRowPointer(y)[x] >> 7;
        return pixels;
    }
};

// An operator who fills the mask and presses a button, in every dialog that runs from here on.
void Operate(int button)
{
    kv::win::SetModalHook(
        [button]
        {
            auto* dialog = dynamic_cast<KvMaskDlgBase*>(CWnd::FromHandlePermanent(kv::win::ActiveModal()));
            dialog->GetMaskWnd().SelectTool(20);
            dialog->SendMessage(WM_COMMAND, static_cast<WPARAM>(button));
        });
}

void Check(Host& host)
{
    Operate(IDCANCEL);
    std::cout << "cancelled: " << host.Paint() << ", painted " << host.Painted() << '\n';
    Operate(IDOK);
    std::cout << "accepted: " << host.Paint() << ", painted " << host.Painted() << '\n';
    host.mask.Resize(host.front);
    KvString shown;
    const bool accepted = host.PaintOverPictures(shown);
    std::cout << "over pictures: " << accepted << ", painted " << host.Painted() << ", shown " << shown.Utf8() << '\n';
    {
        KvConfig config(host.Config());
        config.SetGroup("Mask");
        config.WriteKey("IncTools", "perhaps");
    }
    std::cout << "wrong key: " << host.Paint() << ", painted " << host.Painted() << std::endl;
    QApplication::quit();
}
} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    Host host;
    auto* layout = new QVBoxLayout(&host.window);
    auto* paint = new QPushButton("Paint the mask");
    auto* over = new QPushButton("Paint it over both pictures");
    layout->addWidget(paint);
    layout->addWidget(over);
    QObject::connect(paint, &QPushButton::clicked, [&host] { host.Paint(); });
    QObject::connect(over, &QPushButton::clicked,
                     [&host]
                     {
                         KvString shown;
                         host.PaintOverPictures(shown);
                         QMessageBox::information(&host.window, "mask-host", QString::fromStdString(shown.Utf8()));
                     });
    host.window.show();
    if (QApplication::arguments().contains("--check"))
        QTimer::singleShot(0, [&host] { Check(host); });
    return QApplication::exec();
}
