// Image files as the subcommands read and write them.
#pragma once

#include "contracts/image/KvAOITypes.h"

#include <initializer_list>
#include <memory>
#include <string>

namespace kvcontour
{

// Whatever a file holds. Throws a Failure.
std::unique_ptr<KvN::KvAOI> ReadImage(const std::string& file);
// The size alone, from a file's header. Throws a Failure.
KvN::KvTSize<short> SizeOfImage(const std::string& file);
// The whole file or nothing, in the format that its name tells. Throws a Failure.
void WriteImage(const std::string& file, const KvN::KvAOI& aoi);

// For the command line: what is wrong with a name to write to, one of whose endings must fit; empty if nothing is.
std::string CheckEnding(const std::string& file, std::initializer_list<const char*> endings);

} // namespace kvcontour
