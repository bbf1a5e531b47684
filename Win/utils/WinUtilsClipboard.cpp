// Text and window pictures through the system clipboard. Text travels as
// CF_TEXT in the ANSI code page; a picture as a CF_BITMAP compatible with the
// window's device context. Every path that opens the clipboard closes it.
#include "WinUtils.h"

#include <Utils.h>

#include <cstring>
#include <string>

bool WinUtils::CopyToClipboard(const CString& text) {
    if (!::OpenClipboard(nullptr))
        return false;
    const std::string ansi = Utils::ToANSI(text);
    const SIZE_T bytes = ansi.size() + 1;
    HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_DDESHARE, bytes);
    void* data = block ? ::GlobalLock(block) : nullptr;
    if (!data) {
        if (block)
            ::GlobalFree(block);
        ::CloseClipboard();
        return false;
    }
    std::memcpy(data, ansi.c_str(), bytes);
    ::GlobalUnlock(block);

    ::EmptyClipboard();
    const bool copied = ::SetClipboardData(CF_TEXT, block) != nullptr;
    // The clipboard owns the block once it took it; otherwise it is still ours.
    if (!copied)
        ::GlobalFree(block);
    ::CloseClipboard();
    return copied;
}

CString WinUtils::PasteFromClipboard() {
    if (!::OpenClipboard(nullptr))
        return CString();
    HANDLE block = ::GetClipboardData(CF_TEXT);
    if (!block) {
        ::CloseClipboard();
        return CString();
    }
    // Another program's text may lack its terminating zero: read no further
    // than the block.
    CString result;
    if (const auto* data = static_cast<const char*>(::GlobalLock(block))) {
        const SIZE_T size = ::GlobalSize(block);
        const std::string text(data, strnlen(data, size));
        result = CString(text.c_str());
        ::GlobalUnlock(block);
    }
    ::CloseClipboard();
    return result;
}

void WinUtils::PutImageOnClipboard(CWnd* pWnd) {
    if (!pWnd || !::IsWindow(pWnd->GetSafeHwnd()))
        return;
    CDC* windowDC = pWnd->GetDC();
    if (!windowDC)
        return;
    CDC memoryDC;
    if (!memoryDC.CreateCompatibleDC(windowDC)) {
        pWnd->ReleaseDC(windowDC);
        return;
    }
    // The picture has the window's size but starts at the client origin, so
    // for a window without frame or caption it is exactly the client area.
    CRect rect;
    pWnd->GetWindowRect(&rect);
    const int width = rect.Width();
    const int height = rect.Height();
    CBitmap bitmap;
    if (!bitmap.CreateCompatibleBitmap(windowDC, width, height)) {
        pWnd->ReleaseDC(windowDC);
        return;
    }
    CBitmap* oldBitmap = memoryDC.SelectObject(&bitmap);
    memoryDC.BitBlt(0, 0, width, height, windowDC, 0, 0, SRCCOPY);
    if (oldBitmap)
        memoryDC.SelectObject(oldBitmap);

    if (pWnd->OpenClipboard()) {
        // Once the clipboard has the bitmap it is the clipboard's to delete.
        if (::EmptyClipboard() && ::SetClipboardData(CF_BITMAP, bitmap.GetSafeHandle()))
            bitmap.Detach();
        ::CloseClipboard();
    }
    pWnd->ReleaseDC(windowDC);
}
