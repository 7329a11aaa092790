// The AOIs of a session, by their names.
#pragma once

#include "contracts/image.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace kv::session
{

class Images
{
public:
    // The AOI's UI name becomes `name`. One of the same name gives way, but lives on, as windows may still show it.
    void Add(const std::string& name, std::unique_ptr<KvN::KvAOI> aoi);
    // Throws CommandError if there is none, or none of that kind.
    KvN::KvAOI& Get(const std::string& name) const;
    KvN::KvAOI8& Grey(const std::string& name) const;

private:
    std::map<std::string, KvN::KvAOI*> byName;
    std::vector<std::unique_ptr<KvN::KvAOI>> owned;
};

} // namespace kv::session
