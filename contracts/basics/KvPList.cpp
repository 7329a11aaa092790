// Lists of pointers.
#include "contracts/basics/KvPList.h"

#include <algorithm>
#include <new>

namespace KvN
{

CPList::~CPList()
{
    Clear();
}

long CPList::AddEntry(void* entry)
{
    return InsertEntry(NumEntries(), entry);
}

long CPList::InsertEntry(unsigned long index, void* entry)
{
    if (index > entries.size())
        return 0;
    try
    {
        entries.insert(entries.begin() + static_cast<std::ptrdiff_t>(index), entry);
    }
    catch (const std::bad_alloc&)
    {
        return 0;
    }
    return 1;
}

long CPList::RemoveEntry(unsigned long index)
{
    if (index >= entries.size())
        return 0;
    entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(index));
    return 1;
}

long CPList::GetEntryPtr(unsigned long index, void** out) const
{
    if (index >= entries.size())
        return 0;
    *out = entries[index];
    return 1;
}

void CPList::Clear()
{
    for (void* entry : entries)
        ClearEntry(entry);
    entries.clear();
}

void CPList::Sort()
{
    std::stable_sort(entries.begin(), entries.end(), [this](void* a, void* b) { return CompareEntries(a, b) < 0; });
}

long CPList::FindBinary(void* const key, unsigned long* index, void** out) const
{
    const auto found = std::lower_bound(entries.begin(), entries.end(), key,
                                        [this](void* a, void* b) { return CompareEntries(a, b) < 0; });
    if (index)
        *index = static_cast<unsigned long>(found - entries.begin());
    if (found == entries.end() || CompareEntries(*found, key) != 0)
        return 0;
    if (out)
        *out = *found;
    return 1;
}

long CPList::DuplicateList(CPList& other) const
{
    if (&other == this)
        return 1;
    try
    {
        std::vector<void*> copy = entries;
        other.Clear();
        other.entries.swap(copy);
    }
    catch (const std::bad_alloc&)
    {
        return 0;
    }
    return 1;
}

} // namespace KvN
