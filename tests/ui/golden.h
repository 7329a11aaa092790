// Pictures on the screen against committed ones, at zero tolerance.
#pragma once

#include "platform/win/screen.h"

#include <gtest/gtest.h>

#include <string>

namespace kv::test
{

// The picture is golden/NAME.png. A differing one leaves NAME.actual.png, NAME.expected.png and NAME.difference.png in
// the working folder. With KV_WRITE_GOLDENS set in the environment it becomes the golden instead.
::testing::AssertionResult IsGolden(const kv::win::Picture& actual, const std::string& name);

} // namespace kv::test
