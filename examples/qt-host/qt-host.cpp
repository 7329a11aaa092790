// A view of an image inside a plain Qt program's own layout: qt-host IMAGE, or a test picture. With --check it
// prints what stands on its screen, and quits by itself.
#include "C/uiAOIBaseViewWnd.h"
#include "C/uiAOIWnd.h"
#include "contracts/basics.h"
#include "contracts/image.h"
#include "platform/win/qt_host.h"

#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

#include <iostream>

namespace
{
std::unique_ptr<KvN::KvAOI> TestPicture()
{
    auto picture = std::make_unique<KvN::KvBufferAOI8>(KvN::KvTSize<short>(320, 240));
    for (short y = 0; y < 240; ++y)
    {
        for (short x = 0; x < 320; ++x)
            picture->SetPoint({x, y}, static_cast<unsigned char>((x + y) % 256));
    }
    return picture;
}

int Check(KvN::KvAOIBaseViewWnd& view)
{
    QWidget* widget = kv::win::WidgetOf(view.m_hWnd);
    view.UpdateWindow(); // paints at once what is still waiting to be painted
    const QColor pixel = widget->grab().toImage().pixelColor(100, 50);
    std::cout << "view " << widget->width() << 'x' << widget->height() << ", grey " << pixel.red() << ' '
              << pixel.green() << ' ' << pixel.blue() << std::endl;
    return pixel == QColor(150, 150, 150) ? 0 : 1;
}
} // namespace

int main(int argc, char** argv)
try
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments().mid(1);
    const bool check = arguments.contains("--check") || arguments.isEmpty();
    const std::unique_ptr<KvN::KvAOI> image =
        check ? TestPicture() : KvN::KvxLoadAOI(KvN::KvString(arguments.front().toUtf8().constData()));

    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(new QLabel("The view below is a window of Kv; everything else is Qt's."));
    auto* place = new QWidget;
    place->setMinimumSize(320, 240);
    layout->addWidget(place, 1);

    // The window belongs to its widget's place in Qt; the object is this program's and outlives it.
    KvN::KvAOIWnd viewer;
    viewer.Create(CWnd::FromHandle(kv::win::HostWindow(place)));
    kv::win::FillHost(place, viewer);
    viewer.GetAOIBaseViewWnd()->SetAOI(image.get());
    window.show();

    if (arguments.contains("--check"))
        QTimer::singleShot(0, [&viewer] { QApplication::exit(Check(*viewer.GetAOIBaseViewWnd())); });
    const int result = QApplication::exec();
    viewer.DestroyWindow();
    return result;
}
catch (KvN::KvException* failure)
{
    std::cerr << failure->GetMessageW().Utf8() << '\n';
    failure->Delete();
    return 1;
}
