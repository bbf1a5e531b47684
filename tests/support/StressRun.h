// What the seeded random stress runs share: the seed and the length taken
// from the environment (WIN_STRESS_SEED, WIN_STRESS_ACTIONS), so a failure
// repeats and a longer run is one variable away; the count of windows left
// on the desktop; and the check after each action that it ran to its end.
#pragma once

#include <windef.h>

#include <gtest/gtest.h>

#include <random>

namespace testing_support {

// The number in the environment variable, or fallback when it is unset or
// empty.
unsigned long EnvNumber(const char* name, unsigned long fallback);

// The windows below parent, at every depth.
int CountWindows(HWND parent);

// Random choices from WIN_STRESS_SEED, or from fallbackSeed without it.
class StressRandom {
public:
    explicit StressRandom(unsigned long fallbackSeed);
    // 0 to n - 1.
    int Below(int n);
    // True once in n times.
    bool OneIn(int n) { return Below(n) == 0; }
    unsigned long Seed() const { return m_seed; }

private:
    unsigned long m_seed;
    std::mt19937 m_engine;
};

// WIN_STRESS_ACTIONS, or fallback without it.
unsigned long StressActions(unsigned long fallback);

// After one action run by the simulated user: every queued step ran and no
// modal loop was left waiting for the user. Clears the automation's record,
// which would only grow.
::testing::AssertionResult ActionSettled(unsigned long action);

} // namespace testing_support
