// A clean clipboard for every test, two windows to open it with, and the
// counts of live global blocks and GDI objects to come back to.
#pragma once

#include <windows.h>

#include <platform/CodePage.h>
#include <platform/GdiObjects.h>
#include <platform/GlobalMemory.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace testing_support {

// A moveable block holding bytes, with a terminating zero unless told not to.
inline HGLOBAL TextBlock(const std::string& bytes, bool terminate = true) {
    const SIZE_T size = bytes.size() + (terminate ? 1 : 0);
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_DDESHARE, size);
    std::memcpy(GlobalLock(block), bytes.c_str(), size);
    GlobalUnlock(block);
    return block;
}

inline HGLOBAL WideBlock(const std::u16string& text) {
    const SIZE_T size = (text.size() + 1) * sizeof(char16_t);
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(GlobalLock(block), text.c_str(), size);
    GlobalUnlock(block);
    return block;
}

// Every byte of a block.
inline std::string Bytes(HANDLE block) {
    const SIZE_T size = GlobalSize(block);
    const char* data = static_cast<const char*>(GlobalLock(block));
    std::string bytes = data ? std::string(data, size) : std::string();
    GlobalUnlock(block);
    return bytes;
}

// The UTF-16 text of a block up to its terminator.
inline std::u16string Wide(HANDLE block) {
    const char16_t* data = static_cast<const char16_t*>(GlobalLock(block));
    std::u16string text = data ? std::u16string(data) : std::u16string();
    GlobalUnlock(block);
    return text;
}

inline HBITMAP SolidBitmap(int width, int height, COLORREF colour) {
    HDC screen = GetDC(nullptr);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    HDC memory = CreateCompatibleDC(screen);
    HGDIOBJ old = SelectObject(memory, bitmap);
    HBRUSH brush = CreateSolidBrush(colour);
    RECT all{0, 0, width, height};
    FillRect(memory, &all, brush);
    DeleteObject(brush);
    SelectObject(memory, old);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return bitmap;
}

// Closes the clipboard whoever opened it and frees its data.
inline void ClearClipboard() {
    CloseClipboard();
    OpenClipboard(nullptr);
    EmptyClipboard();
    CloseClipboard();
}

// Tests of the clipboard start with it closed and empty and check at the end
// that every global block and GDI object they made is gone again.
class ClipboardTest : public ::testing::Test {
protected:
    void SetUp() override {
        ClearClipboard();
        first = CreateWindowEx(0, u"STATIC", u"first", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr,
                               nullptr, nullptr);
        second = CreateWindowEx(0, u"STATIC", u"second", WS_POPUP, 60, 0, 50, 50, nullptr, nullptr,
                                nullptr, nullptr);
        ASSERT_NE(first, nullptr);
        ASSERT_NE(second, nullptr);
        blocks = platform::LiveGlobalBlocks();
        gdi = platform::LiveGdiObjects();
    }
    void TearDown() override {
        platform::SetAnsiCodePage(CP_ACP);
        ClearClipboard();
        DestroyWindow(first);
        DestroyWindow(second);
        EXPECT_EQ(platform::LiveGlobalBlocks(), blocks) << "global blocks left behind";
        EXPECT_EQ(platform::LiveGdiObjects(), gdi)
            << platform::ToString(platform::LiveGdiObjects());
    }

    HWND first = nullptr;
    HWND second = nullptr;
    int blocks = 0;
    platform::GdiCounts gdi;
};

} // namespace testing_support
