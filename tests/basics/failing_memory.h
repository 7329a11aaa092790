// Lets a test run out of memory on purpose.
#pragma once

namespace kv::testing
{

// While it lives, `operator new` of this thread fails after that many further allocations.
class OutOfMemory
{
public:
    explicit OutOfMemory(int allocationsLeft = 0);
    ~OutOfMemory();
    OutOfMemory(const OutOfMemory&) = delete;
    OutOfMemory& operator=(const OutOfMemory&) = delete;
};

} // namespace kv::testing
