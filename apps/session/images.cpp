// The AOIs of a session, by their names.
#include "apps/session/images.h"

#include "apps/session/arguments.h"

namespace kv::session
{

void Images::Add(const std::string& name, std::unique_ptr<KvN::KvAOI> aoi)
{
    aoi->SetUIName(KvN::KvString(name.c_str()));
    byName[name] = aoi.get();
    owned.push_back(std::move(aoi));
}

KvN::KvAOI& Images::Get(const std::string& name) const
{
    const auto found = byName.find(name);
    if (found == byName.end())
        throw CommandError("there is no image \"" + name + "\"");
    return *found->second;
}

KvN::KvAOI8& Images::Grey(const std::string& name) const
{
    auto* grey = dynamic_cast<KvN::KvAOI8*>(&Get(name));
    if (!grey)
        throw CommandError("image \"" + name + "\" is not an 8-bit image");
    return *grey;
}

} // namespace kv::session
