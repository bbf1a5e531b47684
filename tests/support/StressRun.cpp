#include "support/StressRun.h"

#include <platform/Automation.h>
#include <windows.h>

#include <cstdlib>

namespace testing_support {

unsigned long EnvNumber(const char* name, unsigned long fallback) {
    const char* text = std::getenv(name);
    return text && *text ? std::strtoul(text, nullptr, 10) : fallback;
}

int CountWindows(HWND parent) {
    int count = 0;
    for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        count += 1 + CountWindows(child);
    return count;
}

StressRandom::StressRandom(unsigned long fallbackSeed)
    : m_seed(EnvNumber("WIN_STRESS_SEED", fallbackSeed)),
      m_engine(static_cast<std::mt19937::result_type>(m_seed)) {}

int StressRandom::Below(int n) {
    return std::uniform_int_distribution<int>(0, n - 1)(m_engine);
}

unsigned long StressActions(unsigned long fallback) {
    return EnvNumber("WIN_STRESS_ACTIONS", fallback);
}

::testing::AssertionResult ActionSettled(unsigned long action) {
    namespace automation = platform::automation;
    const std::size_t pending = automation::Pending();
    const int cancels = automation::CancelsForWantOfActions();
    automation::Reset();
    if (pending != 0)
        return ::testing::AssertionFailure()
               << "action " << action << " left " << pending << " steps unrun";
    if (cancels != 0)
        return ::testing::AssertionFailure()
               << "action " << action << " left a modal loop waiting for the user";
    return ::testing::AssertionSuccess();
}

} // namespace testing_support
