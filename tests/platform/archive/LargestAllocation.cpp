#include "LargestAllocation.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<bool> g_watching{false};
std::atomic<std::size_t> g_largest{0};
std::atomic<std::size_t> g_cap{0};

} // namespace

namespace {

void* Allocate(std::size_t size) {
    if (g_watching.load(std::memory_order_relaxed)) {
        std::size_t seen = g_largest.load();
        while (size > seen && !g_largest.compare_exchange_weak(seen, size)) {
        }
        if (size > g_cap.load())
            return nullptr;
    }
    return std::malloc(size ? size : 1);
}

void* AllocateOrThrow(std::size_t size) {
    if (void* p = Allocate(size))
        return p;
    throw std::bad_alloc();
}

} // namespace

// Replaces every unaligned global allocation function of this test program
// (a sanitizer runtime supplies its own for any left out, and the pairs must
// match); the platform library's allocations resolve to them too.
void* operator new(std::size_t size) {
    return AllocateOrThrow(size);
}
void* operator new[](std::size_t size) {
    return AllocateOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}
void operator delete(void* p) noexcept {
    std::free(p);
}
void operator delete[](void* p) noexcept {
    std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
    std::free(p);
}
void operator delete[](void* p, std::size_t) noexcept {
    std::free(p);
}
void operator delete(void* p, const std::nothrow_t&) noexcept {
    std::free(p);
}
void operator delete[](void* p, const std::nothrow_t&) noexcept {
    std::free(p);
}

namespace testing_support {

LargestAllocation::LargestAllocation(std::size_t cap) {
    g_largest = 0;
    g_cap = cap;
    g_watching = true;
}

LargestAllocation::~LargestAllocation() {
    g_watching = false;
}

std::size_t LargestAllocation::Largest() const {
    return g_largest.load();
}

} // namespace testing_support
