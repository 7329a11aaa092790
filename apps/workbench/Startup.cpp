// The application object's name and language.
#include "apps/workbench/Startup.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace kv::workbench
{

void SetUp(QApplication& application)
{
    QApplication::setApplicationName("kvworkbench");
    QApplication::setApplicationVersion(KV_VERSION);
    QLocale::setDefault(QLocale(QLocale::German));
    auto* texts = new QTranslator(&application);
    if (texts->load("qtbase_de", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(texts);
}

} // namespace kv::workbench
