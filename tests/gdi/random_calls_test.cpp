// Arbitrary calls with arbitrary numbers: nothing crashes, nothing is written outside a bitmap, nothing is kept.
#include "canvas.h"

#include "../../fuzz/gdi_player.h"

#include <gtest/gtest.h>

#include <random>

TEST(RandomCalls, NeverCrash)
{
    for (unsigned seed = 0; seed < 400; ++seed)
    {
        std::mt19937 random(seed);
        std::vector<std::uint8_t> bytes(600);
        for (std::uint8_t& b : bytes)
            b = std::uint8_t(random());
        playCalls(bytes.data(), bytes.size());
    }
}

TEST(RandomCalls, LeaveNoObjectsBehind)
{
    // Slots of freed objects are used again, so a leak would make handles grow.
    const auto next = []
    {
        const HPEN pen = CreatePen(PS_SOLID, 1, 0);
        DeleteObject(pen);
        return reinterpret_cast<std::uintptr_t>(pen) & 0xFFFFFF;
    };
    const auto play = [](unsigned seed)
    {
        std::mt19937 random(seed);
        std::vector<std::uint8_t> bytes(600);
        for (std::uint8_t& b : bytes)
            b = std::uint8_t(random());
        playCalls(bytes.data(), bytes.size());
    };
    for (unsigned seed = 0; seed < 50; ++seed)
        play(seed);
    std::uintptr_t highest = 0;
    for (int i = 0; i < 600; ++i)
        highest = std::max(highest, next());
    for (unsigned seed = 50; seed < 150; ++seed)
        play(seed);
    for (int i = 0; i < 600; ++i)
        EXPECT_LE(next(), highest + 64);
}
