// Run-time class information.
#include "platform/afx/object.h"

#include "platform/afx/exception.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{
class Made : public CObject
{
    DECLARE_DYNCREATE(Made)
};
class Derived : public Made
{
    DECLARE_DYNAMIC(Derived)
};
IMPLEMENT_DYNCREATE(Made, CObject)
IMPLEMENT_DYNAMIC(Derived, Made)
} // namespace

TEST(RuntimeClass, KnowsItsNameAndItsBases)
{
    const Derived derived;
    EXPECT_STREQ(derived.GetRuntimeClass()->m_lpszClassName, "Derived");
    EXPECT_TRUE(derived.IsKindOf(RUNTIME_CLASS(Derived)));
    EXPECT_TRUE(derived.IsKindOf(RUNTIME_CLASS(Made)));
    EXPECT_TRUE(derived.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(derived.IsKindOf(RUNTIME_CLASS(CException)));
    EXPECT_FALSE(Made().IsKindOf(RUNTIME_CLASS(Derived)));
}

TEST(RuntimeClass, MakesWhatCanBeMade)
{
    const std::unique_ptr<CObject> made(RUNTIME_CLASS(Made)->CreateObject());
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->GetRuntimeClass(), RUNTIME_CLASS(Made));
    EXPECT_EQ(RUNTIME_CLASS(Derived)->CreateObject(), nullptr);
    EXPECT_EQ(RUNTIME_CLASS(CObject)->CreateObject(), nullptr);
}

TEST(RuntimeClass, OfAPlainObjectIsTheRoot)
{
    class Plain : public CObject
    {
    };
    EXPECT_EQ(Plain().GetRuntimeClass(), RUNTIME_CLASS(CObject));
}
