// The handle table.
#include "platform/gdi/handles.h"

#include "platform/gdi/gdi.h"

#include <cstdint>
#include <deque>
#include <mutex>
#include <vector>

namespace kv::gdi
{

namespace
{

constexpr int indexBits = 24; // so that no handle looks like a small number: the first generation is 1
constexpr std::size_t maxSlots = std::size_t(1) << indexBits;

struct Slot
{
    std::shared_ptr<Object> object;
    std::uint32_t generation = 1;
    int selections = 0;
    bool stock = false;
    bool doomed = false;
};

class Table
{
public:
    HANDLE add(std::shared_ptr<Object> object, bool stock)
    {
        const std::lock_guard lock(mutex);
        std::size_t index = slots.size();
        // Freed slots rest in a queue, so that generations wrap as late as possible.
        if (freed.size() > restingSlots || slots.size() == maxSlots)
        {
            if (freed.empty())
                return nullptr;
            index = freed.front();
            freed.pop_front();
        }
        else
            slots.emplace_back();
        Slot& slot = slots[index];
        slot.object = std::move(object);
        slot.selections = 0;
        slot.stock = stock;
        slot.doomed = false;
        return handleOf(index, slot);
    }

    std::shared_ptr<Object> find(HANDLE handle)
    {
        const std::lock_guard lock(mutex);
        const Slot* slot = slotOf(handle);
        return slot ? slot->object : nullptr;
    }

    bool isStock(HANDLE handle)
    {
        const std::lock_guard lock(mutex);
        const Slot* slot = slotOf(handle);
        return slot && slot->stock;
    }

    bool remove(HANDLE handle)
    {
        std::shared_ptr<Object> last; // destroyed outside the lock
        const std::lock_guard lock(mutex);
        Slot* slot = slotOf(handle);
        if (!slot)
            return false;
        if (slot->stock)
            return true;
        if (slot->selections > 0)
            slot->doomed = true;
        else
            last = clear(*slot);
        return true;
    }

    void select(HANDLE handle, int change)
    {
        std::shared_ptr<Object> last;
        const std::lock_guard lock(mutex);
        Slot* slot = slotOf(handle);
        if (!slot || slot->stock)
            return;
        slot->selections += change;
        if (slot->selections == 0 && slot->doomed)
            last = clear(*slot);
    }

private:
    static constexpr std::size_t restingSlots = 256;

    HANDLE handleOf(std::size_t index, const Slot& slot) const
    {
        return reinterpret_cast<HANDLE>(std::uintptr_t(slot.generation) << indexBits | index);
    }

    Slot* slotOf(HANDLE handle)
    {
        const auto value = reinterpret_cast<std::uintptr_t>(handle);
        const std::size_t index = value & (maxSlots - 1);
        if (index >= slots.size())
            return nullptr;
        Slot& slot = slots[index];
        return slot.object && value >> indexBits == slot.generation ? &slot : nullptr;
    }

    std::shared_ptr<Object> clear(Slot& slot)
    {
        if (++slot.generation == 0)
            slot.generation = 1;
        freed.push_back(std::size_t(&slot - slots.data()));
        return std::move(slot.object);
    }

    std::mutex mutex;
    std::vector<Slot> slots;
    std::deque<std::size_t> freed;
};

// Never destroyed: objects with static storage may delete their handles after main has returned.
Table& table()
{
    static Table& instance = *new Table;
    return instance;
}

} // namespace

HANDLE addObject(std::shared_ptr<Object> object, bool stock)
{
    const HANDLE handle = table().add(std::move(object), stock);
    if (!handle)
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return handle;
}

std::shared_ptr<Object> findObject(HANDLE handle)
{
    return handle ? table().find(handle) : nullptr;
}

bool isStock(HANDLE handle)
{
    return table().isStock(handle);
}

bool removeObject(HANDLE handle)
{
    return table().remove(handle);
}

void retainSelection(HANDLE handle)
{
    table().select(handle, 1);
}

void releaseSelection(HANDLE handle)
{
    table().select(handle, -1);
}

void failWith(DWORD error)
{
    SetLastError(error);
}

} // namespace kv::gdi
