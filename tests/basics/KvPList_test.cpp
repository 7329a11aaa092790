// Lists of pointers with settable compare and clear functions.
#include "contracts/basics/KvPList.h"

#include "tests/basics/failing_memory.h"

#include <gtest/gtest.h>

#include <vector>

using KvN::CPList;
using KvN::KvTPList;

namespace
{
int cleared = 0;
long ByValue(int* a, int* b)
{
    return *a > *b ? 1 : *a < *b ? -1 : 0;
}
long ByValueUntyped(void* a, void* b)
{
    return ByValue(static_cast<int*>(a), static_cast<int*>(b));
}
void Count(int*)
{
    ++cleared;
}
void CountUntyped(void*)
{
    ++cleared;
}
void Delete(int* entry)
{
    delete entry;
}

std::vector<int> Values(const CPList& list)
{
    std::vector<int> values;
    void* entry = nullptr;
    for (unsigned long i = 0; list.GetEntryPtr(i, &entry); ++i)
        values.push_back(*static_cast<int*>(entry));
    return values;
}
} // namespace

TEST(CPList, AppendsInsertsAndRemoves)
{
    int one = 1, two = 2, three = 3, four = 4;
    CPList list;
    EXPECT_NE(list.AddEntry(&one), 0);
    EXPECT_NE(list.AddEntry(&three), 0);
    EXPECT_NE(list.InsertEntry(1, &two), 0);
    EXPECT_NE(list.InsertEntry(3, &four), 0) << "at the end";
    EXPECT_EQ(list.InsertEntry(5, &one), 0) << "behind the end";
    EXPECT_EQ(Values(list), (std::vector{1, 2, 3, 4}));
    EXPECT_NE(list.RemoveEntry(0), 0);
    EXPECT_EQ(list.RemoveEntry(3), 0);
    EXPECT_EQ(Values(list), (std::vector{2, 3, 4}));
    EXPECT_EQ(list.NumEntries(), 3u);
}

TEST(CPList, AnswersZeroPastTheEndAndLeavesTheResult)
{
    int one = 1;
    CPList list;
    list.AddEntry(&one);
    void* entry = &list;
    EXPECT_EQ(list.GetEntryPtr(1, &entry), 0);
    EXPECT_EQ(entry, &list);
    EXPECT_NE(list.GetEntryPtr(0, &entry), 0);
    EXPECT_EQ(entry, &one);
}

TEST(CPList, PassesEachEntryToTheClearFunctionOnceOnClearAndInTheDestructor)
{
    int one = 1;
    cleared = 0;
    {
        CPList list;
        list.SetClearFunction(&CountUntyped);
        list.AddEntry(&one);
        list.AddEntry(&one);
        list.Clear();
        EXPECT_EQ(cleared, 2);
        EXPECT_EQ(list.NumEntries(), 0u);
        list.AddEntry(&one);
        list.RemoveEntry(0);
        EXPECT_EQ(cleared, 2) << "removing does not dispose";
        list.AddEntry(&one);
    }
    EXPECT_EQ(cleared, 3);
}

TEST(CPList, WithoutFunctionsDisposesOfNothingAndSortsNothing)
{
    int one = 1, two = 2;
    CPList list;
    list.AddEntry(&two);
    list.AddEntry(&one);
    list.Sort();
    EXPECT_EQ(Values(list), (std::vector{2, 1}));
    list.Clear();
}

TEST(CPList, SortPutsThoseFirstForWhichTheFunctionIsNegative)
{
    int values[] = {5, -1, 3, 3, 0};
    CPList list;
    list.SetCompareFunction(&ByValueUntyped);
    for (int& value : values)
        list.AddEntry(&value);
    list.Sort();
    EXPECT_EQ(Values(list), (std::vector{-1, 0, 3, 3, 5}));
    void* entry = nullptr;
    list.GetEntryPtr(2, &entry);
    EXPECT_EQ(entry, &values[2]) << "equal entries keep their order";
}

TEST(CPList, FindsBinaryInASortedList)
{
    int values[] = {1, 3, 5, 7};
    CPList list;
    list.SetCompareFunction(&ByValueUntyped);
    for (int& value : values)
        list.AddEntry(&value);
    int key = 5;
    unsigned long index = 99;
    void* found = nullptr;
    EXPECT_NE(list.FindBinary(&key, &index, &found), 0);
    EXPECT_EQ(index, 2u);
    EXPECT_EQ(found, &values[2]);
    EXPECT_NE(list.FindBinary(&key, nullptr, nullptr), 0);
    key = 6;
    EXPECT_EQ(list.FindBinary(&key, &index, &found), 0);
    EXPECT_EQ(index, 3u) << "where it would stand";
    key = 9;
    EXPECT_EQ(list.FindBinary(&key, &index, &found), 0);
    EXPECT_EQ(index, 4u);
}

TEST(CPList, DuplicateReplacesTheOtherListsEntries)
{
    int one = 1, two = 2;
    CPList list, other;
    cleared = 0;
    other.SetClearFunction(&CountUntyped);
    other.AddEntry(&two);
    list.AddEntry(&one);
    list.AddEntry(&two);
    EXPECT_NE(list.DuplicateList(other), 0);
    EXPECT_EQ(cleared, 1);
    EXPECT_EQ(Values(other), (std::vector{1, 2}));
    EXPECT_NE(list.DuplicateList(list), 0);
    EXPECT_EQ(Values(list), (std::vector{1, 2}));
}

TEST(CPList, OutOfMemoryIsAZeroAndTheEntryStaysTheCallers)
{
    int one = 1;
    CPList list, copy;
    cleared = 0;
    list.SetClearFunction(&CountUntyped);
    copy.SetClearFunction(&CountUntyped);
    copy.AddEntry(&one);
    {
        const kv::testing::OutOfMemory now;
        EXPECT_EQ(list.AddEntry(&one), 0);
    }
    EXPECT_EQ(list.NumEntries(), 0u);
    list.AddEntry(&one);
    {
        const kv::testing::OutOfMemory now;
        EXPECT_EQ(list.DuplicateList(copy), 0);
    }
    EXPECT_EQ(copy.NumEntries(), 1u) << "the other list is as it was";
    EXPECT_EQ(cleared, 0);
}

TEST(KvTPList, IsTyped)
{
    KvTPList<int> list;
    list.SetCompareFunction(&ByValue);
    list.SetClearFunction(&Delete);
    for (const int value : {2, 1, 3})
        list.AddEntry(new int(value));
    list.Sort();
    EXPECT_EQ(*list.GetEntry(0), 1);
    EXPECT_EQ(*list.GetEntry(2), 3);
    EXPECT_EQ(list.GetEntry(3), nullptr);
    KvTPList<int> plain;
    plain.AddEntry(list.GetEntry(0));
    plain.AddEntry(list.GetEntry(1));
    plain.Sort();
    EXPECT_EQ(plain.GetEntry(0), list.GetEntry(0));
}

TEST(KvTPList, ClearsThroughItsTypedFunctionInTheDestructor)
{
    int one = 1;
    cleared = 0;
    {
        KvTPList<int> list;
        list.SetClearFunction(&Count);
        list.AddEntry(&one);
    }
    EXPECT_EQ(cleared, 1);
}
