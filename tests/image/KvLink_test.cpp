// The replaceable callback.
#include "contracts/image/KvLink.h"

#include <gtest/gtest.h>

namespace
{
long long Add(void* instance, void* data)
{
    *static_cast<int*>(instance) += *static_cast<int*>(data);
    return 1;
}
} // namespace

TEST(Link, CallsWithInstanceAndData)
{
    int sum = 1, by = 4;
    const KvTools::Link link(&sum, Add);
    const KvTools::Link copy = link;
    EXPECT_EQ(copy.Call(&by), 1);
    EXPECT_EQ(sum, 5);
}

TEST(Link, EmptyOneDoesNothingAndGivesZero)
{
    int data = 0;
    EXPECT_EQ(KvTools::Link().Call(&data), 0);
    EXPECT_FALSE(KvTools::Link().IsSet());
}
