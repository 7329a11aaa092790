// Remembered through Qt's settings, in the user's configuration folder.
#include "apps/workbench/Settings.h"

#include <QFileInfo>
#include <QSettings>

namespace kv::workbench
{
namespace
{
struct Store : QSettings
{
    Store() : QSettings(QSettings::IniFormat, QSettings::UserScope, "kv", "workbench") {}
};
const QString recentKey = QStringLiteral("recent");
const QString geometryKey = QStringLiteral("window/geometry");
const QString stateKey = QStringLiteral("window/state");
} // namespace

QString Settings::Folder()
{
    return QFileInfo(Store().fileName()).absolutePath();
}

QStringList Settings::RecentFiles()
{
    return Store().value(recentKey).toStringList();
}

void Settings::AddRecentFile(const QString& path)
{
    QStringList files = RecentFiles();
    const QString absolute = QFileInfo(path).absoluteFilePath();
    files.removeAll(absolute);
    files.prepend(absolute);
    Store().setValue(recentKey, QStringList(files.mid(0, recentCount)));
}

QByteArray Settings::Geometry()
{
    return Store().value(geometryKey).toByteArray();
}
QByteArray Settings::WindowState()
{
    return Store().value(stateKey).toByteArray();
}

void Settings::KeepWindow(const QByteArray& geometry, const QByteArray& state)
{
    Store().setValue(geometryKey, geometry);
    Store().setValue(stateKey, state);
}

} // namespace kv::workbench
