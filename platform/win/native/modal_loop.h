// The loop of what runs until the operator closes it.
#pragma once

#include "platform/win/native/window.h"

#include <functional>
#include <vector>

namespace kv::win
{
// Until `open` says no. An exception of the hook, or one kept from inside, comes out.
void RunModal(const std::function<bool()>& open);

// The other top-level windows take no input while it lives; focus and capture leave them.
class BlockOthers
{
public:
    explicit BlockOthers(HWND running);
    ~BlockOthers();
    BlockOthers(const BlockOthers&) = delete;
    BlockOthers& operator=(const BlockOthers&) = delete;

private:
    std::vector<HWND> blocked;
    HWND formerFocus;
};

// Which modal windows run, innermost last.
std::vector<HWND>& ModalStack();
} // namespace kv::win
