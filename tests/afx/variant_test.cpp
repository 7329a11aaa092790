// Values as text.
#include "platform/afx/variant.h"

#include <gtest/gtest.h>

TEST(CComVariant, GivesItsValueAsText)
{
    EXPECT_TRUE(CComVariant().IsEmpty());
    EXPECT_TRUE(CComVariant().Text().IsEmpty());
    EXPECT_FALSE(CComVariant(CStringT()).IsEmpty()) << "an empty text is a value";
    EXPECT_EQ(CComVariant(-17).Text().Utf8(), "-17");
    EXPECT_EQ(CComVariant(0.1).Text().Utf8(), "0.1");
    EXPECT_EQ(CComVariant(CStringT("Öl")).Text().Utf8(), "Öl");
}
