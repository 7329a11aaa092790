// Autosave files: KEY.xml holds the contours, KEY.mask.png the mask, KEY.image the path of their image, KEY.lock
// belongs to the running program.
#include "apps/workbench/Autosave.h"

#include "apps/workbench/Progress.h"
#include "apps/workbench/Texts.h"
#include "contracts/image.h"

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
constexpr const char* contoursEnding = ".xml";
constexpr const char* maskEnding = ".mask.png";

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

Autosave::Autosave(Writer contours_, QObject* parent) : QObject(parent), contours(std::move(contours_))
{
    for (QTimer* timer : {&contoursTimer, &maskTimer})
    {
        timer->setSingleShot(true);
        timer->setInterval(delay);
    }
    connect(&contoursTimer, &QTimer::timeout, this, &Autosave::WriteContours);
    connect(&maskTimer, &QTimer::timeout, this, &Autosave::WriteMask);
    writing.setMaxThreadCount(1); // one mask after the other, so that the last one stays
}

Autosave::~Autosave() = default;

void Autosave::Begin(const QString& image)
{
    contoursTimer.stop();
    maskTimer.stop();
    mask.reset();
    writing.waitForDone(); // while the files are still this program's
    lock.reset();
    key.clear();
    if (image.isEmpty() || !Folder().mkpath("."))
        return;
    const QString begun = Key(image);
    auto mine = std::make_unique<QLockFile>(PathOf(begun, ".lock"));
    mine->setStaleLockTime(0);
    if (!mine->tryLock(0))
        return;
    QSaveFile name(PathOf(begun, ".image"));
    if (!name.open(QIODevice::WriteOnly))
        return;
    name.write(QFileInfo(image).absoluteFilePath().toUtf8());
    if (!name.commit())
        return;
    lock = std::move(mine);
    key = begun;
}

// The timer is not started anew by later changes, so that a steady stream of them is kept as well.
void Autosave::TouchContours()
{
    if (!key.isEmpty() && !contoursTimer.isActive())
        contoursTimer.start();
}

// At once: masks change seldom, and writing a large one takes a second itself.
void Autosave::TouchMask(std::shared_ptr<const KvN::KvAOI8> changed)
{
    mask = std::move(changed);
    WriteMask();
}

void Autosave::DiscardContours()
{
    contoursTimer.stop();
    if (!key.isEmpty())
        QFile::remove(PathOf(key, contoursEnding));
}

void Autosave::DiscardMask()
{
    maskTimer.stop();
    mask.reset();
    *maskWanted = false; // what is being written goes when it is done
    maskWanted = std::make_shared<std::atomic<bool>>(true);
    if (!key.isEmpty())
        QFile::remove(PathOf(key, maskEnding));
}

void Autosave::WriteContours()
{
    if (!contours(PathOf(key, contoursEnding)))
        contoursTimer.start();
}

void Autosave::WriteMask()
{
    if (key.isEmpty() || !mask)
        return;
    writing.start(
        [this, path = PathOf(key, maskEnding), kept = mask, wanted = maskWanted]
        {
            const bool done = !*wanted || FailureOf([&] { KvN::KvxSaveAOI(*kept, FromQt(path)); }).isEmpty();
            if (!*wanted)
                QFile::remove(path);
            else if (!done)
                QMetaObject::invokeMethod(&maskTimer, qOverload<>(&QTimer::start), Qt::QueuedConnection);
        });
}

Autosave::LeftOver Autosave::LeftBehind(const QString& image)
{
    const QString key = Key(image);
    const auto found = [&](const char* ending)
    {
        const QString path = PathOf(key, ending);
        return QFile::exists(path) ? path : QString();
    };
    const LeftOver left{found(contoursEnding), found(maskEnding)};
    return left.IsEmpty() || IsInUse(key) ? LeftOver() : left;
}

QString Autosave::AnyLeftBehind()
{
    const QStringList kept = {QString("*") + contoursEnding, QString("*") + maskEnding};
    for (const QFileInfo& file : Folder().entryInfoList(kept, QDir::Files, QDir::Time))
    {
        const QString image = ImageOf(file.baseName());
        if (!image.isEmpty() && QFile::exists(image) && !IsInUse(file.baseName()))
            return image;
    }
    return {};
}

} // namespace kv::workbench
