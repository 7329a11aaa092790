// The record of a mouse message.
#include "contracts/image/KvMouseEvent.h"

#include <gtest/gtest.h>

TEST(MouseEvent, HoldsItsFourParts)
{
    const KvN::KvMouseEvent event(2, 65535, {-3, 4}, 2);
    const KvN::KvMouseEvent copy = event;
    EXPECT_EQ(copy.button, 2u);
    EXPECT_EQ(copy.flags, 65535u);
    EXPECT_EQ(copy.GetPoint(), KvN::KvTPoint<short>(-3, 4));
    EXPECT_EQ(copy.clicks, 2u);
    EXPECT_EQ(KvN::KvMouseEvent().button, 0u);
}
