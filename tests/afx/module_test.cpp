// The chain of modules that hold resources.
#include "platform/afx/module.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace
{
// A file of one string block whose first text (number 16 * block - 16) is that one letter.
std::vector<unsigned char> OneText(unsigned char block, char letter)
{
    std::vector<unsigned char> bytes = {34, 0, 0, 0, 32, 0, 0, 0, 0xFF, 0xFF, 6, 0, 0xFF, 0xFF, block, 0};
    bytes.resize(32 + 34);
    bytes[32] = 1; // the text's length
    bytes[34] = static_cast<unsigned char>(letter);
    return bytes;
}
} // namespace

TEST(ExtensionModule, IsFoundWhileItIsRegistered)
{
    const auto bytes = OneText(2, 'A');
    AFX_EXTENSION_MODULE record;
    EXPECT_EQ(AfxInitExtensionModule(record, bytes), 1);
    EXPECT_TRUE(record.bInitialized);
    EXPECT_TRUE(AfxLoadString(16).IsEmpty());
    std::optional<CDynLinkLibrary> module(std::in_place, record, false);
    EXPECT_EQ(AfxLoadString(16).Utf8(), "A");
    EXPECT_EQ(AfxFindResourceHandle(ResourceKind::String, 2), &*module);
    EXPECT_EQ(module->Resources().FindString(16)->Utf8(), "A");
    module.reset();
    EXPECT_TRUE(AfxLoadString(16).IsEmpty());
    EXPECT_EQ(AfxFindResourceHandle(ResourceKind::String, 2), nullptr);
}

TEST(ExtensionModule, TheNewestThatHoldsAResourceWins)
{
    const auto older = OneText(2, 'A'), newer = OneText(2, 'B'), other = OneText(3, 'C');
    AFX_EXTENSION_MODULE records[3];
    AfxInitExtensionModule(records[0], older);
    AfxInitExtensionModule(records[1], newer);
    AfxInitExtensionModule(records[2], other);
    const CDynLinkLibrary first(records[0]);
    const CDynLinkLibrary second(records[1]);
    const CDynLinkLibrary third(records[2]);
    EXPECT_EQ(AfxLoadString(16).Utf8(), "B");
    EXPECT_EQ(AfxFindResourceHandle(ResourceKind::String, 2), &second);
    EXPECT_EQ(AfxLoadString(32).Utf8(), "C");
}
