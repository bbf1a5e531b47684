// Watches the heap while an archive loads: the largest single request made
// through operator new while a LargestAllocation is alive. Requests above the
// cap fail with std::bad_alloc, so a loader that trusts a hostile length fails
// its test instead of exhausting the machine.
#pragma once

#include <cstddef>

namespace testing_support {

class LargestAllocation {
public:
    explicit LargestAllocation(std::size_t cap);
    ~LargestAllocation();
    LargestAllocation(const LargestAllocation&) = delete;
    LargestAllocation& operator=(const LargestAllocation&) = delete;

    std::size_t Largest() const;
};

} // namespace testing_support
