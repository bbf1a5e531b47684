// Global memory blocks, kept in a table of live blocks so that every handle
// that comes in is checked before it is used: a stale or made-up handle fails
// instead of touching memory.
#include "winbase.h"

#include "platform/GlobalMemory.h"

#include <cstdlib>
#include <mutex>
#include <unordered_map>

namespace {

// A 32-bit process of the original cannot have a block of 2 GB or more.
constexpr SIZE_T kLargestBlock = 0x7FFFFFFF;

struct Block {
    void* data = nullptr; // null for a discarded moveable block
    SIZE_T size = 0;
    UINT flags = 0;
    UINT locks = 0;
    bool Moveable() const { return (flags & GMEM_MOVEABLE) != 0; }
};

struct Blocks {
    std::mutex mutex;
    std::unordered_map<HGLOBAL, Block> live;
    // Moveable handles are serial numbers that are never reused, so a handle
    // kept after GlobalFree stays invalid. They are 4 modulo 8, which no
    // address of a fixed block (aligned to 16 by malloc) can be.
    uintptr_t nextHandle = 0x40000004;
};

Blocks& TheBlocks() {
    static auto* blocks = new Blocks();
    return *blocks;
}

// The live block of a handle, or null with ERROR_INVALID_HANDLE. The caller
// holds the lock.
Block* Find(Blocks& blocks, HGLOBAL handle) {
    auto found = handle ? blocks.live.find(handle) : blocks.live.end();
    if (found == blocks.live.end()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    return &found->second;
}

} // namespace

HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes) {
    if (bytes > kLargestBlock) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    Block block;
    block.size = bytes;
    block.flags = flags & (GMEM_MOVEABLE | GMEM_DDESHARE | GMEM_DISCARDABLE);
    // A fixed block of no bytes still needs an address of its own; a moveable
    // one is born discarded.
    if (bytes > 0 || !block.Moveable()) {
        const SIZE_T allocated = bytes > 0 ? bytes : 1;
        block.data = (flags & GMEM_ZEROINIT) ? std::calloc(1, allocated) : std::malloc(allocated);
        if (!block.data) {
            SetLastError(ERROR_NOT_ENOUGH_MEMORY);
            return nullptr;
        }
    }
    Blocks& blocks = TheBlocks();
    std::lock_guard lock(blocks.mutex);
    HGLOBAL handle = block.data;
    if (block.Moveable()) {
        handle = reinterpret_cast<HGLOBAL>(blocks.nextHandle);
        blocks.nextHandle += 8;
    }
    blocks.live.emplace(handle, block);
    return handle;
}

LPVOID GlobalLock(HGLOBAL handle) {
    Blocks& blocks = TheBlocks();
    std::lock_guard lock(blocks.mutex);
    Block* block = Find(blocks, handle);
    if (!block || !block->data)
        return nullptr;
    if (block->Moveable() && block->locks < GMEM_LOCKCOUNT)
        ++block->locks;
    return block->data;
}

BOOL GlobalUnlock(HGLOBAL handle) {
    Blocks& blocks = TheBlocks();
    std::lock_guard lock(blocks.mutex);
    Block* block = Find(blocks, handle);
    if (!block)
        return FALSE;
    if (!block->Moveable())
        return TRUE;
    if (block->locks == 0) {
        SetLastError(ERROR_NOT_LOCKED);
        return FALSE;
    }
    if (--block->locks > 0)
        return TRUE;
    SetLastError(ERROR_SUCCESS);
    return FALSE;
}

HGLOBAL GlobalFree(HGLOBAL handle) {
    if (!handle)
        return nullptr;
    Blocks& blocks = TheBlocks();
    void* data = nullptr;
    {
        std::lock_guard lock(blocks.mutex);
        Block* block = Find(blocks, handle);
        if (!block)
            return handle;
        data = block->data;
        blocks.live.erase(handle);
    }
    std::free(data);
    return nullptr;
}

SIZE_T GlobalSize(HGLOBAL handle) {
    Blocks& blocks = TheBlocks();
    std::lock_guard lock(blocks.mutex);
    Block* block = Find(blocks, handle);
    return block && block->data ? block->size : 0;
}

UINT GlobalFlags(HGLOBAL handle) {
    Blocks& blocks = TheBlocks();
    std::lock_guard lock(blocks.mutex);
    Block* block = Find(blocks, handle);
    if (!block)
        return GMEM_INVALID_HANDLE;
    if (!block->Moveable())
        return 0;
    UINT flags = block->locks | (block->flags & (GMEM_DDESHARE | GMEM_DISCARDABLE));
    if (!block->data)
        flags |= GMEM_DISCARDED;
    return flags;
}

namespace platform {

int LiveGlobalBlocks() {
    Blocks& blocks = TheBlocks();
    std::lock_guard lock(blocks.mutex);
    return static_cast<int>(blocks.live.size());
}

} // namespace platform
