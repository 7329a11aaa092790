// kvworkbench [IMAGE]: opens an image and lets an operator mark regions on it.
#include "apps/workbench/MainWindow.h"
#include "contracts/image.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName("kvworkbench");
    QApplication::setApplicationVersion(KV_VERSION);
    QLocale::setDefault(QLocale(QLocale::German));
    QTranslator standardTexts; // of Qt's own buttons and dialogs
    if (standardTexts.load("qtbase_de", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&standardTexts);

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
