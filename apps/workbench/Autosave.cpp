// Autosave files: KEY.xml holds the contours, KEY.image the path of their image, KEY.lock belongs to the running
// program.
#include "apps/workbench/Autosave.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace kv::workbench
{
namespace
{
constexpr int delay = 1000; // ms from a change to its file; well within the two seconds that a crash may cost

QDir Folder()
{
    // Qt 6.4 knows no state location; the XDG rules are short.
    const QString state = qEnvironmentVariable("XDG_STATE_HOME");
    const QString base = QDir::isAbsolutePath(state) ? state : QDir::homePath() + "/.local/state";
    return QDir(base + "/kv/autosave");
}

QString Key(const QString& image)
{
    const QByteArray path = QFileInfo(image).absoluteFilePath().toUtf8();
    return QString::fromLatin1(QCryptographicHash::hash(path, QCryptographicHash::Sha1).toHex());
}

QString PathOf(const QString& key, const char* ending)
{
    return Folder().filePath(key + ending);
}

bool IsInUse(const QString& key)
{
    QLockFile probe(PathOf(key, ".lock"));
    probe.setStaleLockTime(0);
    if (!probe.tryLock(0))
        return true;
    probe.unlock();
    return false;
}

QString ImageOf(const QString& key)
{
    QFile file(PathOf(key, ".image"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}
} // namespace

Autosave::Autosave(Writer writer, QObject* parent) : QObject(parent), write(std::move(writer))
{
    timer.setSingleShot(true);
    timer.setInterval(delay);
    connect(&timer, &QTimer::timeout, this, &Autosave::Write);
}

Autosave::~Autosave() = default;

void Autosave::Begin(const QString& image)
{
    timer.stop();
    lock.reset();
    file.clear();
    if (image.isEmpty() || !Folder().mkpath("."))
        return;
    const QString key = Key(image);
    auto mine = std::make_unique<QLockFile>(PathOf(key, ".lock"));
    mine->setStaleLockTime(0);
    if (!mine->tryLock(0))
        return;
    QSaveFile name(PathOf(key, ".image"));
    if (!name.open(QIODevice::WriteOnly))
        return;
    name.write(QFileInfo(image).absoluteFilePath().toUtf8());
    if (!name.commit())
        return;
    lock = std::move(mine);
    file = PathOf(key, ".xml");
}

// The timer is not started anew by later changes, so that a steady stream of them is kept as well.
void Autosave::Touch()
{
    if (!file.isEmpty() && !timer.isActive())
        timer.start();
}

void Autosave::Discard()
{
    timer.stop();
    if (!file.isEmpty())
        QFile::remove(file);
}

void Autosave::Write()
{
    if (!write(file))
        timer.start();
}

QString Autosave::LeftBehind(const QString& image)
{
    const QString key = Key(image);
    const QString contours = PathOf(key, ".xml");
    return QFile::exists(contours) && !IsInUse(key) ? contours : QString();
}

QString Autosave::AnyLeftBehind()
{
    for (const QFileInfo& contours : Folder().entryInfoList({"*.xml"}, QDir::Files, QDir::Time))
    {
        const QString image = ImageOf(contours.completeBaseName());
        if (!image.isEmpty() && QFile::exists(image) && !IsInUse(contours.completeBaseName()))
            return image;
    }
    return {};
}

} // namespace kv::workbench
