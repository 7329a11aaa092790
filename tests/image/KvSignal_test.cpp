// The multicast: order, restart, and destruction.
#include "contracts/image/KvSignal.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace
{
using namespace KvN;

std::string calls;

struct Slot
{
    char name;
    std::function<void()> action = [] {};

    static void Run(void* object, int argument)
    {
        auto* self = static_cast<Slot*>(object);
        calls += self->name;
        calls += std::to_string(argument);
        self->action();
    }
};

void StaticSlot(int)
{
    calls += "s";
}
void OtherStaticSlot(int)
{
    calls += "t";
}

class Signals : public testing::Test
{
protected:
    void SetUp() override { calls.clear(); }

    KvTSignal<int> signal;
};
} // namespace

TEST_F(Signals, RunInOrderObjectsBeforeStatics)
{
    Slot a{'a'}, b{'b'};
    signal.Connect(StaticSlot);
    signal.Connect(&a, Slot::Run);
    signal.Connect(OtherStaticSlot);
    signal.Connect(&b, Slot::Run);
    signal.Emit(1);
    EXPECT_EQ(calls, "a1b1st");
    signal(2);
    EXPECT_EQ(calls, "a1b1sta2b2st");
}

TEST_F(Signals, ASlotConnectedMeanwhileRunsAndNoneRunsTwice)
{
    Slot a{'a'}, b{'b'}, c{'c'};
    b.action = [&]
    {
        if (signal.SlotCount() == 2)
            signal.Connect(&c, Slot::Run);
    };
    signal.Connect(&a, Slot::Run);
    signal.Connect(&b, Slot::Run);
    signal.Emit(1);
    EXPECT_EQ(calls, "a1b1c1");
}

TEST_F(Signals, AStaticSlotMayConnectToo)
{
    static KvTSignal<int>* current = nullptr;
    current = &signal;
    signal.Connect(
        [](int)
        {
            calls += "x";
            if (current->StaticSlotCount() == 1)
                current->Connect(StaticSlot);
        });
    signal.Emit(1);
    EXPECT_EQ(calls, "xs");
}

TEST_F(Signals, ASlotMayDestroyAllOfThem)
{
    Slot a{'a'}, b{'b'};
    a.action = [&] { signal.Clear(); };
    signal.Connect(&a, Slot::Run);
    signal.Connect(&b, Slot::Run);
    signal.Connect(StaticSlot);
    signal.Emit(1);
    EXPECT_EQ(calls, "a1");
    EXPECT_EQ(signal.SlotCount(), 0);
}

TEST_F(Signals, NestedEmissionCallsEachSlotOnceMore)
{
    Slot a{'a'}, b{'b'};
    bool nested = false;
    a.action = [&]
    {
        if (!nested)
        {
            nested = true;
            signal.Emit(2);
        }
    };
    signal.Connect(&a, Slot::Run);
    signal.Connect(&b, Slot::Run);
    signal.Emit(1);
    // The inner emission marks b as called, so the outer one passes it over.
    EXPECT_EQ(calls, "a1a2b2");
}

TEST_F(Signals, WithoutSlotsNothingHappens)
{
    signal.Emit(1);
    signal.Clear();
    signal.Emit(2);
    EXPECT_EQ(calls, "");
}

TEST_F(Signals, OwnTheDescriptorsTheyAreGiven)
{
    Slot a{'a'};
    signal.Connect(new KvTSignal<int>::SlotDescriptor{&a, Slot::Run, 1});
    signal.Connect(new KvTSignal<int>::StaticSlotDescriptor{StaticSlot, 1});
    signal.Emit(3);
    EXPECT_EQ(calls, "a3s") << "flags left over are cleared first";
}

TEST_F(Signals, CarryReferences)
{
    KvTSignal<std::string&> byReference;
    byReference.Connect([](std::string& text) { text += "!"; });
    std::string text = "a";
    byReference.Emit(text);
    EXPECT_EQ(text, "a!");
}
