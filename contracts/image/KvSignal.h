// KvTSignal: a multicast whose slots may connect or destroy slots while it runs.
#pragma once

#include "contracts/basics/KvList.h"

namespace KvN
{

template <class Arg>
class KvTSignal
{
public:
    struct SlotDescriptor
    {
        void* object = nullptr;
        void (*function)(void* object, Arg argument) = nullptr;
        int called = 0;
    };
    struct StaticSlotDescriptor
    {
        void (*function)(Arg argument) = nullptr;
        int called = 0;
    };

    KvTSignal() = default;
    KvTSignal(const KvTSignal&) = delete;
    KvTSignal& operator=(const KvTSignal&) = delete;
    ~KvTSignal() { Clear(); }

    // Appends a descriptor made by new, which is the signal's from now on. The list's cursor stays on it.
    void Connect(SlotDescriptor* slot) { objectSlots.AddTail(slot); }
    void Connect(StaticSlotDescriptor* slot) { staticSlots.AddTail(slot); }
    void Connect(void* object, void (*function)(void*, Arg)) { Connect(new SlotDescriptor{object, function}); }
    void Connect(void (*function)(Arg)) { Connect(new StaticSlotDescriptor{function}); }

    int SlotCount() const { return objectSlots.count; }
    int StaticSlotCount() const { return staticSlots.count; }

    // Calls every slot once, in the order of connecting, object slots before static ones. A slot connected meanwhile is
    // called, too.
    void Emit(Arg argument)
    {
        ClearCalled(objectSlots);
        ClearCalled(staticSlots);
        Walk(objectSlots, [&](SlotDescriptor& slot) { slot.function(slot.object, argument); });
        Walk(staticSlots, [&](StaticSlotDescriptor& slot) { slot.function(argument); });
    }
    void operator()(Arg argument) { Emit(argument); }

    // Deletes all slots, each list from the last to the first.
    void Clear()
    {
        DeleteAll(objectSlots);
        DeleteAll(staticSlots);
        staticSlots.Clear();
        objectSlots.Clear();
    }

private:
    template <class Slot>
    static void ClearCalled(KvTList<Slot*>& list)
    {
        for (auto* node = list.head; node; node = node->next)
            node->value->called = 0;
    }

    // Starts again whenever the list's length has changed; who was called is not called again.
    template <class Slot, class Call>
    static void Walk(KvTList<Slot*>& list, Call call)
    {
        int length = list.count;
        for (int i = 0; i < length;)
        {
            Slot* slot = list[i];
            if (slot->called == 0)
            {
                slot->called = 1;
                call(*slot);
            }
            const bool changed = list.count != length;
            length = list.count;
            i = changed ? 0 : i + 1;
        }
    }

    template <class Slot>
    static void DeleteAll(KvTList<Slot*>& list)
    {
        for (auto* node = list.tail; node; node = node->prev)
            delete node->value;
    }

    // Not named `slots`, which is a macro in Qt programs.
    KvTList<SlotDescriptor*> objectSlots;
    KvTList<StaticSlotDescriptor*> staticSlots;
};

} // namespace KvN
