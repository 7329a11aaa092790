// The list of owned values and its cursor.
#include "contracts/basics/KvList.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
KvTList<int> Filled(int count)
{
    KvTList<int> list;
    for (int i = 0; i < count; ++i)
        list.AddTail(10 * i);
    return list;
}

std::vector<int> Values(const KvTList<int>& list)
{
    std::vector<int> values;
    for (const auto* node = list.head; node; node = node->next)
        values.push_back(node->value);
    return values;
}

// Counts its living copies and fails when told to.
struct Fragile
{
    static inline int alive = 0;
    static inline int copiesLeft = 1000;

    Fragile() { ++alive; }
    Fragile(const Fragile&)
    {
        if (--copiesLeft < 0)
            throw 1;
        ++alive;
    }
    ~Fragile() { --alive; }
};

// Counts what goes through the virtual operations.
class Watched : public KvTList<int>
{
public:
    int made = 0;
    int deleted = 0;

    ~Watched() { Clear(); }
    Node* NewNode(const int& value) override
    {
        ++made;
        return KvTList<int>::NewNode(value);
    }
    void DeleteNode(Node* node) override
    {
        ++deleted;
        KvTList<int>::DeleteNode(node);
    }
};
} // namespace

TEST(KvTList, StartsWithAllMembersZero)
{
    const KvTList<int> list;
    EXPECT_EQ(list.head, nullptr);
    EXPECT_EQ(list.tail, nullptr);
    EXPECT_EQ(list.count, 0);
    EXPECT_EQ(list.current, nullptr);
    EXPECT_EQ(list.currentIndex, 0);
}

TEST(KvTList, FirstAddedNodeIsHeadTailAndCursor)
{
    KvTList<int> list;
    list.AddTail(7);
    EXPECT_NE(list.head, nullptr);
    EXPECT_EQ(list.head, list.tail);
    EXPECT_EQ(list.head, list.current);
    EXPECT_EQ(list.currentIndex, 0);
    EXPECT_EQ(list[0], 7);
    EXPECT_EQ(list.current, list.head);
}

TEST(KvTList, AddTailLinksBothWaysAndMovesTheCursorToTheEnd)
{
    KvTList<int> list = Filled(3);
    list[0];
    list.AddTail(99);
    EXPECT_EQ(list.currentIndex, 3);
    EXPECT_EQ(list.current, list.tail);
    EXPECT_EQ(list.tail->prev->value, 20);
    EXPECT_EQ(list.tail->prev->next, list.tail);
    EXPECT_EQ(list.tail->next, nullptr);
    EXPECT_EQ(list.head->prev, nullptr);
    EXPECT_EQ(Values(list), (std::vector{0, 10, 20, 99}));
}

TEST(KvTList, ReadsByIndexForwardBackwardAndAcross)
{
    KvTList<int> list = Filled(50);
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(list[i], 10 * i);
    for (int i = 49; i >= 0; --i)
        EXPECT_EQ(list[i], 10 * i);
    for (int i = 0; i < 1000; ++i)
        EXPECT_EQ(list[i * 37 % 50], 10 * (i * 37 % 50));
    list[3] = -1;
    EXPECT_EQ(list[3], -1);
}

TEST(KvTList, ConstReadMovesTheCursorToo)
{
    const KvTList<int> list = Filled(5);
    EXPECT_EQ(list.currentIndex, 4);
    EXPECT_EQ(list[1], 10);
    EXPECT_EQ(list.currentIndex, 1);
    EXPECT_EQ(list.current->value, 10);
}

TEST(KvTList, WalkByLinksLeavesTheCursor)
{
    const KvTList<int> list = Filled(5);
    list[2];
    Values(list);
    EXPECT_EQ(list.currentIndex, 2);
}

TEST(KvTList, ClearPutsTheCursorBeforeTheList)
{
    KvTList<int> list;
    list.Clear();
    EXPECT_EQ(list.currentIndex, -1) << "an empty list too";
    list.AddTail(1);
    list.Clear();
    EXPECT_EQ(list.head, nullptr);
    EXPECT_EQ(list.tail, nullptr);
    EXPECT_EQ(list.current, nullptr);
    EXPECT_EQ(list.count, 0);
    EXPECT_EQ(list.currentIndex, -1);
    list.AddTail(5);
    EXPECT_EQ(list[0], 5);
    EXPECT_EQ(list.currentIndex, 0);
}

TEST(KvTList, CopiesAreDeepAndInOrder)
{
    KvTList<int> list = Filled(4);
    KvTList<int> copy(list), assigned = Filled(9);
    assigned = list;
    list[1] = 77;
    EXPECT_EQ(Values(copy), (std::vector{0, 10, 20, 30}));
    EXPECT_EQ(Values(assigned), (std::vector{0, 10, 20, 30}));
    EXPECT_EQ(assigned.count, 4);
    assigned = KvTList<int>();
    EXPECT_EQ(assigned.count, 0);
}

TEST(KvTList, SelfAssignmentChangesNothing)
{
    KvTList<int> list = Filled(4);
    const auto* head = list.head;
    const KvTList<int>& same = list;
    list = same;
    list = std::move(const_cast<KvTList<int>&>(same));
    EXPECT_EQ(list.head, head);
    EXPECT_EQ(Values(list), (std::vector{0, 10, 20, 30}));
}

TEST(KvTList, MovesTakeTheNodesOver)
{
    KvTList<int> list = Filled(4);
    const auto* head = list.head;
    KvTList<int> taken(std::move(list));
    EXPECT_EQ(taken.head, head);
    EXPECT_EQ(taken[2], 20);
    KvTList<int> assigned = Filled(2);
    assigned = std::move(taken);
    EXPECT_EQ(assigned.head, head);
    EXPECT_EQ(assigned.count, 4);
}

TEST(KvTList, NodesAreMadeAndDeletedThroughTheVirtualOperations)
{
    Watched list;
    list.AddTail(1);
    list = static_cast<const Watched&>(list);
    static_cast<KvTList<int>&>(list) = Filled(0);
    const KvTList<int> three = Filled(3);
    static_cast<KvTList<int>&>(list) = three;
    EXPECT_EQ(list.made, 4);
    list.Clear();
    EXPECT_EQ(list.deleted, 4);
}

TEST(KvTList, CopyThatRunsOutOfMemoryLeavesNothingBehind)
{
    KvTList<Fragile> list;
    for (int i = 0; i < 5; ++i)
        list.AddTail({});
    EXPECT_EQ(Fragile::alive, 5);
    Fragile::copiesLeft = 3;
    EXPECT_THROW(KvTList<Fragile> copy(list), int);
    EXPECT_EQ(Fragile::alive, 5);
    Fragile::copiesLeft = 1000;
}
