// Which object stands for a handle: the one that owns it, else one that borrows it. One map a thread, as handles of the
// class layer are not shared between threads.
#pragma once

#include <memory>
#include <unordered_map>

namespace kv::afx
{

// The owning objects of type `Base`, by handle. Objects of static storage may outlive the map, hence the flag.
template <class Base>
class HandleOwners
{
public:
    static void Add(void* handle, Base* owner)
    {
        if (!gone)
            map.objects[handle] = owner;
    }
    static void Remove(void* handle, const Base* owner)
    {
        if (gone)
            return;
        const auto found = map.objects.find(handle);
        if (found != map.objects.end() && found->second == owner)
            map.objects.erase(found);
    }
    static Base* Find(void* handle)
    {
        if (gone)
            return nullptr;
        const auto found = map.objects.find(handle);
        return found == map.objects.end() ? nullptr : found->second;
    }

private:
    struct Map
    {
        std::unordered_map<void*, Base*> objects;
        ~Map() { gone = true; }
    };
    static inline thread_local bool gone = false;
    static inline thread_local Map map;
};

// The borrowing objects of type `Object`, by handle. `Release` makes one let go of its handle.
template <class Object, void (*Release)(Object&)>
class HandleBorrowers
{
public:
    ~HandleBorrowers() { Clear(); }

    Object& For(void* handle)
    {
        auto& slot = objects[handle];
        if (!slot)
            slot = std::make_unique<Object>();
        return *slot;
    }
    void Clear()
    {
        for (auto& entry : objects)
            Release(*entry.second);
        objects.clear();
    }

private:
    std::unordered_map<void*, std::unique_ptr<Object>> objects;
};

} // namespace kv::afx
