// Text of the resources as QString.
#include "apps/workbench/Texts.h"

#include "contracts/basics/KvLibrary.h"

namespace kv::workbench
{

QString ToQt(const KvTools::String& text)
{
    return QString::fromUtf16(text.Text().GetString(), text.Length());
}

KvN::KvString FromQt(const QString& text)
{
    return KvN::KvString(CStringT(
        std::u16string_view(reinterpret_cast<const char16_t*>(text.utf16()), static_cast<size_t>(text.size()))));
}

QString Text(unsigned short id)
{
    return ToQt(KvN::KvString(KvN::KvResId(id, KvN::GetResourceModule())));
}

} // namespace kv::workbench
