// What the workbench remembers from one run to the next.
#pragma once

#include <QByteArray>
#include <QStringList>

namespace kv::workbench
{

class Settings
{
public:
    static constexpr int recentCount = 8;

    // Where this and other settings of the workbench are kept.
    static QString Folder();

    static QStringList RecentFiles();
    // Puts the file in front; the oldest of more than `recentCount` drops out.
    static void AddRecentFile(const QString& path);

    static QByteArray Geometry();
    static QByteArray WindowState();
    static void KeepWindow(const QByteArray& geometry, const QByteArray& state);
};

} // namespace kv::workbench
