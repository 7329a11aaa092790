// Lists of pointers. What compares two entries and what disposes of one is set from outside.
#pragma once

#include <vector>

namespace KvN
{

// Entries are `void*`; whether the list owns them is decided by its clear function.
class CPList
{
public:
    using CompareFunction = long (*)(void*, void*);
    using ClearFunction = void (*)(void*);

    CPList() = default;
    virtual ~CPList();
    CPList(const CPList&) = delete;
    CPList& operator=(const CPList&) = delete;

    void SetCompareFunction(CompareFunction function) { compare = function; }
    void SetClearFunction(ClearFunction function) { clear = function; }

    // All results: non-zero on success. On failure the caller still owns the entry.
    long AddEntry(void* entry);
    long InsertEntry(unsigned long index, void* entry); // in front of the entry at `index`, at most at the end
    long RemoveEntry(unsigned long index);              // takes it out of the list without disposing of it
    long GetEntryPtr(unsigned long index, void** out) const;
    unsigned long NumEntries() const { return entries.size(); }

    // Empties the list, passing each entry to the clear function.
    void Clear();
    // Puts entries first for which the compare function answers below 0; equal ones keep their order.
    void Sort();
    // In a sorted list: non-zero and the entry equal to `key`; otherwise 0 and the index where it would stand.
    long FindBinary(void* const key, unsigned long* index, void** out) const;
    // Replaces the other list's entries by these pointers.
    long DuplicateList(CPList& other) const;

protected:
    virtual long CompareEntries(void* a, void* b) const { return compare ? compare(a, b) : 0; }
    virtual void ClearEntry(void* entry) const
    {
        if (clear)
            clear(entry);
    }

private:
    std::vector<void*> entries;
    CompareFunction compare = nullptr;
    ClearFunction clear = nullptr;
};

// The typed form.
template <class T>
class KvTPList : public CPList
{
public:
    using TypedCompare = long (*)(T*, T*);
    using TypedClear = void (*)(T*);

    KvTPList() = default;
    ~KvTPList() override { Clear(); }

    void SetCompareFunction(TypedCompare function) { typedCompare = function; }
    void SetClearFunction(TypedClear function) { typedClear = function; }

    // The entry at the index, or null past the end.
    T* GetEntry(unsigned long index) const
    {
        void* entry = nullptr;
        return GetEntryPtr(index, &entry) ? static_cast<T*>(entry) : nullptr;
    }

protected:
    long CompareEntries(void* a, void* b) const override
    {
        return typedCompare ? typedCompare(static_cast<T*>(a), static_cast<T*>(b)) : 0;
    }
    void ClearEntry(void* entry) const override
    {
        if (typedClear)
            typedClear(static_cast<T*>(entry));
    }

private:
    TypedCompare typedCompare = nullptr;
    TypedClear typedClear = nullptr;
};

} // namespace KvN
