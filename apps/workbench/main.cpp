// kvworkbench [IMAGE]: opens an image and lets an operator mark regions on it.
#include "apps/workbench/MainWindow.h"
#include "apps/workbench/Startup.h"
#include "contracts/image.h"

#include <QApplication>
#include <QCommandLineParser>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    kv::workbench::SetUp(application);
    QCommandLineParser line;
    line.addHelpOption();
    line.addVersionOption();
    line.addPositionalArgument("image", "The image to open.", "[IMAGE]");
    line.process(application);

    kv::workbench::MainWindow window;
    window.show();
    if (line.positionalArguments().isEmpty())
        window.OfferRecovery();
    else
        window.OpenImage(line.positionalArguments().front());
    return QApplication::exec();
}
