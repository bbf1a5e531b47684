// Global memory: fixed and moveable blocks, lock counts, and handles that are
// not live blocks failing cleanly.
#include <windows.h>

#include <platform/GlobalMemory.h>

#include <gtest/gtest.h>

#include <cstring>

namespace {

TEST(GlobalMemory, AFixedBlockIsItsOwnAddressAndHasNoLockCount) {
    const int before = platform::LiveGlobalBlocks();
    HGLOBAL block = GlobalAlloc(GPTR, 10);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(platform::LiveGlobalBlocks(), before + 1);
    EXPECT_EQ(GlobalSize(block), 10u);
    auto* bytes = static_cast<unsigned char*>(GlobalLock(block));
    EXPECT_EQ(static_cast<void*>(bytes), block);
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(bytes[i], 0) << i;
    EXPECT_EQ(GlobalFlags(block), 0u);
    EXPECT_TRUE(GlobalUnlock(block));
    EXPECT_TRUE(GlobalUnlock(block)); // fixed blocks are never counted as locked
    EXPECT_EQ(GlobalFree(block), nullptr);
    EXPECT_EQ(platform::LiveGlobalBlocks(), before);
}

TEST(GlobalMemory, AMoveableBlockCountsItsLocks) {
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_DDESHARE | GMEM_ZEROINIT, 6);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(GlobalFlags(block), static_cast<UINT>(GMEM_DDESHARE));
    char* first = static_cast<char*>(GlobalLock(block));
    ASSERT_NE(first, nullptr);
    EXPECT_NE(static_cast<void*>(first), block);
    std::memcpy(first, "hello", 6);
    char* second = static_cast<char*>(GlobalLock(block));
    EXPECT_EQ(second, first);
    EXPECT_EQ(GlobalFlags(block) & GMEM_LOCKCOUNT, 2u);

    EXPECT_TRUE(GlobalUnlock(block)); // still locked once
    SetLastError(ERROR_INVALID_PARAMETER);
    EXPECT_FALSE(GlobalUnlock(block)); // now unlocked
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_FALSE(GlobalUnlock(block)); // was not locked
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NOT_LOCKED));

    EXPECT_STREQ(static_cast<char*>(GlobalLock(block)), "hello");
    GlobalUnlock(block);
    EXPECT_EQ(GlobalSize(block), 6u);
    EXPECT_EQ(GlobalFree(block), nullptr);
}

TEST(GlobalMemory, TheLockCountStopsAtItsByte) {
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 1);
    for (int i = 0; i < 300; ++i)
        ASSERT_NE(GlobalLock(block), nullptr);
    EXPECT_EQ(GlobalFlags(block) & GMEM_LOCKCOUNT, 255u);
    EXPECT_EQ(GlobalFree(block), nullptr); // a locked block can still be freed
}

TEST(GlobalMemory, AnEmptyMoveableBlockIsBornDiscarded) {
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 0);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(GlobalLock(block), nullptr);
    EXPECT_EQ(GlobalSize(block), 0u);
    EXPECT_EQ(GlobalFlags(block), static_cast<UINT>(GMEM_DISCARDED));
    EXPECT_EQ(GlobalFree(block), nullptr);

    // A fixed block of no bytes still has an address of its own.
    HGLOBAL fixed = GlobalAlloc(GMEM_FIXED, 0);
    ASSERT_NE(fixed, nullptr);
    EXPECT_EQ(GlobalLock(fixed), fixed);
    EXPECT_EQ(GlobalSize(fixed), 0u);
    EXPECT_EQ(GlobalFree(fixed), nullptr);
}

TEST(GlobalMemory, HandlesThatAreNotLiveBlocksFail) {
    const int before = platform::LiveGlobalBlocks();
    HGLOBAL freed = GlobalAlloc(GMEM_MOVEABLE, 4);
    ASSERT_EQ(GlobalFree(freed), nullptr);
    char local[16] = {};
    HGLOBAL fixed = GlobalAlloc(GMEM_FIXED, 16);
    HGLOBAL inside = static_cast<char*>(fixed) + 4;
    HDC screen = GetDC(nullptr);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, 2, 2);
    ReleaseDC(nullptr, screen);

    for (HGLOBAL bad : {freed, static_cast<HGLOBAL>(local), inside, static_cast<HGLOBAL>(bitmap),
                        reinterpret_cast<HGLOBAL>(uintptr_t{0x40000004 + 8 * 100000})}) {
        SetLastError(0);
        EXPECT_EQ(GlobalLock(bad), nullptr);
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));
        EXPECT_FALSE(GlobalUnlock(bad));
        EXPECT_EQ(GlobalSize(bad), 0u);
        EXPECT_EQ(GlobalFlags(bad), static_cast<UINT>(GMEM_INVALID_HANDLE));
        EXPECT_EQ(GlobalFree(bad), bad); // the handle back: nothing was freed
    }
    EXPECT_EQ(GlobalLock(nullptr), nullptr);
    EXPECT_EQ(GlobalFree(nullptr), nullptr);

    EXPECT_EQ(GlobalFree(fixed), nullptr);
    EXPECT_EQ(GlobalFree(fixed), fixed); // freed twice
    DeleteObject(bitmap);
    EXPECT_EQ(platform::LiveGlobalBlocks(), before);
}

TEST(GlobalMemory, ABlockTooLargeForTheProcessIsRefused) {
    const int before = platform::LiveGlobalBlocks();
    SetLastError(0);
    EXPECT_EQ(GlobalAlloc(GMEM_MOVEABLE, static_cast<SIZE_T>(-1)), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NOT_ENOUGH_MEMORY));
    EXPECT_EQ(GlobalAlloc(GMEM_FIXED, SIZE_T{0x80000000}), nullptr);
    EXPECT_EQ(platform::LiveGlobalBlocks(), before);
}

} // namespace
