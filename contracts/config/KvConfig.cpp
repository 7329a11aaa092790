// Configuration files on Qt's settings class.
#include "contracts/config/KvConfig.h"

#include "contracts/basics/KvExceptionManager.h"

#include <QSettings>

namespace KvN
{

namespace
{
QString ToQt(const KvString& text)
{
    return QString::fromStdU16String(text.Text().Units());
}

KvString FromQt(const QString& text)
{
    return KvString(CStringT(std::u16string_view(text.toStdU16String())));
}
} // namespace

// The settings class writes a new file and renames it over the old one.
struct KvConfig::File
{
    explicit File(const QString& name) : settings(name, QSettings::IniFormat) { settings.setAtomicSyncRequired(true); }

    QSettings settings;
    QString group;

    QString Path(const KvString& key) const { return group.isEmpty() ? ToQt(key) : group + '/' + ToQt(key); }
};

KvConfig::KvConfig(const KvString& name) : file(std::make_unique<File>(ToQt(name))) {}

KvConfig::~KvConfig()
{
    file->settings.sync();
    if (file->settings.status() == QSettings::AccessError)
        pExceptionMgr->WriteToDebugFile(
            KvString("The configuration file can't be written: ") += FromQt(file->settings.fileName()), 0, 0);
}

void KvConfig::SetGroup(const KvString& group)
{
    file->group = ToQt(group);
}

// A text with commas comes back from the file as a list.
KvString KvConfig::ReadKey(const KvString& key, const KvString& fallback) const
{
    const QVariant value = file->settings.value(file->Path(key));
    if (!value.isValid())
        return fallback;
    return FromQt(value.typeId() == QMetaType::QStringList ? value.toStringList().join(",") : value.toString());
}

void KvConfig::WriteKey(const KvString& key, const KvString& value)
{
    file->settings.setValue(file->Path(key), ToQt(value));
}

} // namespace KvN
