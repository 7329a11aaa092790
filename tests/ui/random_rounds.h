// How long operators without a plan act: rounds of a seed each, so that a round stays short and runs as a test of its
// own. A suite under sanitizers takes the whole number of events, others a taste of it.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>

namespace kv::test
{

#ifdef KV_SANITIZED
inline constexpr bool sanitized = true;
#else
inline constexpr bool sanitized = false;
#endif

// KV_RANDOM_EVENTS in the environment sets another number of events a round.
inline int RoundEvents(int whole, int taste)
{
    const char* wanted = std::getenv("KV_RANDOM_EVENTS");
    return wanted ? std::atoi(wanted) : sanitized ? whole : taste;
}

// The rounds of a suite by number. KV_RANDOM_SEED in the environment moves all of them to other seeds.
inline auto Rounds(int whole, int taste)
{
    return ::testing::Range(1, (sanitized ? whole : taste) + 1);
}

inline unsigned RoundSeed(int round)
{
    const char* wanted = std::getenv("KV_RANDOM_SEED");
    return (wanted ? static_cast<unsigned>(std::atoi(wanted)) : 0u) + static_cast<unsigned>(round);
}

} // namespace kv::test
