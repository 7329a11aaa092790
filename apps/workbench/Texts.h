// The workbench's texts, from the resources to Qt and back.
#pragma once

#include "contracts/basics/KvString.h"
#include "resources/resource_workbench.h"

#include <QString>

namespace kv::workbench
{

QString ToQt(const KvTools::String& text);
KvN::KvString FromQt(const QString& text);

// The text of a string resource; %1, %2 ... take the arguments in order.
QString Text(unsigned short id);
template <class... Arguments>
QString Text(unsigned short id, const Arguments&... arguments)
{
    QString text = Text(id);
    ((text = text.arg(arguments)), ...);
    return text;
}

} // namespace kv::workbench
