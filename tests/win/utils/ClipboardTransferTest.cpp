// Text and window pictures through the clipboard: what arrives there, byte for
// byte and pixel for pixel, and that every path leaves the clipboard closed
// and nothing behind but what the clipboard took.
#include <Utils.h>
#include <Win/Win.h>
#include <platform/MessagePump.h>

#include "support/ClipboardSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using testing_support::Bytes;
using testing_support::ClipboardTest;
using testing_support::SolidBitmap;
using testing_support::TextBlock;
using testing_support::WideBlock;

// The clipboard's CF_TEXT block, every byte of it, read by another window.
std::string ClipboardTextBytes(HWND reader) {
    if (!OpenClipboard(reader))
        return "<clipboard not free>";
    HANDLE block = GetClipboardData(CF_TEXT);
    std::string bytes = block ? Bytes(block) : "<no text>";
    CloseClipboard();
    return bytes;
}

// Puts data on the clipboard as another program would.
void PutOnClipboard(UINT format, HANDLE data) {
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    ASSERT_EQ(SetClipboardData(format, data), data);
    CloseClipboard();
}

using CopyToClipboard = ClipboardTest;

TEST_F(CopyToClipboard, PutsTheTextInTheAnsiCodePageWithOneZeroByte) {
    EXPECT_TRUE(WinUtils::CopyToClipboard(u"Grüße, 5 € – 日本"));
    // Closed again: another window can open it.
    EXPECT_EQ(ClipboardTextBytes(first), std::string("Gr\xFC\xDF"
                                                     "e, 5 \x80 \x96 ??",
                                                     16));
    EXPECT_EQ(GetClipboardOwner(), nullptr); // opened without an owner window
    ASSERT_TRUE(OpenClipboard(first));
    HANDLE block = GetClipboardData(CF_TEXT);
    EXPECT_EQ(GlobalFlags(block) & ~GMEM_LOCKCOUNT, static_cast<UINT>(GMEM_DDESHARE));
    EXPECT_EQ(GlobalFlags(block) & GMEM_LOCKCOUNT, 0u); // unlocked before it was handed over
    CloseClipboard();
    EXPECT_EQ(platform::LiveGlobalBlocks(), blocks + 1);
}

TEST_F(CopyToClipboard, AnEmptyStringIsALoneZeroByte) {
    EXPECT_TRUE(WinUtils::CopyToClipboard(CString()));
    EXPECT_EQ(ClipboardTextBytes(first), std::string(1, '\0'));
    EXPECT_EQ(WinUtils::PasteFromClipboard(), CString());
}

TEST_F(CopyToClipboard, ADoubleByteCodePageSizesTheBlockByItsBytes) {
    const CString text(u"abc 日本語のテキスト x");
    for (UINT codePage : {932u, 936u}) {
        platform::SetAnsiCodePage(codePage);
        const std::string converted = Utils::ToANSI(text);
        ASSERT_EQ(converted.size(), 6u + 2 * 8u) << codePage; // every CJK character takes 2 bytes
        EXPECT_TRUE(WinUtils::CopyToClipboard(text));
        EXPECT_EQ(ClipboardTextBytes(first), converted + '\0') << codePage;
        EXPECT_EQ(WinUtils::PasteFromClipboard(), text) << codePage;
    }
}

TEST_F(CopyToClipboard, ReplacesEverythingOnTheClipboard) {
    PutOnClipboard(CF_BITMAP, SolidBitmap(8, 8, RGB(1, 2, 3)));
    ASSERT_EQ(platform::LiveGdiObjects().bitmaps, gdi.bitmaps + 1);
    EXPECT_TRUE(WinUtils::CopyToClipboard(u"text"));
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_EQ(platform::LiveGdiObjects(), gdi); // the clipboard freed its bitmap
    EXPECT_EQ(ClipboardTextBytes(first), std::string("text", 5));
}

TEST_F(CopyToClipboard, FailsWhileAnotherWindowHasTheClipboardOpen) {
    PutOnClipboard(CF_TEXT, TextBlock("before"));
    ASSERT_TRUE(OpenClipboard(second));
    EXPECT_FALSE(WinUtils::CopyToClipboard(u"after"));
    EXPECT_EQ(GetOpenClipboardWindow(), second); // not closed behind its opener's back
    EXPECT_EQ(platform::LiveGlobalBlocks(), blocks + 1);
    EXPECT_EQ(Bytes(GetClipboardData(CF_TEXT)), std::string("before", 7));
    CloseClipboard();
}

using PasteFromClipboard = ClipboardTest;

TEST_F(PasteFromClipboard, GivesTheTextBackConvertedFromTheAnsiCodePage) {
    ASSERT_TRUE(WinUtils::CopyToClipboard(u"line one\r\nzwei – drei €"));
    EXPECT_EQ(WinUtils::PasteFromClipboard(), CString(u"line one\r\nzwei – drei €"));
    EXPECT_EQ(GetOpenClipboardWindow(), nullptr);
    ASSERT_TRUE(OpenClipboard(first)); // closed again
    CloseClipboard();
    // Characters the code page lacks came through as '?'.
    ASSERT_TRUE(WinUtils::CopyToClipboard(u"日本"));
    EXPECT_EQ(WinUtils::PasteFromClipboard(), CString(u"??"));
}

TEST_F(PasteFromClipboard, AClipboardWithoutTextGivesAnEmptyString) {
    EXPECT_EQ(WinUtils::PasteFromClipboard(), CString());
    PutOnClipboard(CF_BITMAP, SolidBitmap(4, 4, 0));
    EXPECT_EQ(WinUtils::PasteFromClipboard(), CString());
    EXPECT_TRUE(OpenClipboard(first)); // left closed
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP));
    CloseClipboard();
}

TEST_F(PasteFromClipboard, GivesNothingWhileAnotherWindowHasTheClipboardOpen) {
    PutOnClipboard(CF_TEXT, TextBlock("held"));
    ASSERT_TRUE(OpenClipboard(second));
    EXPECT_EQ(WinUtils::PasteFromClipboard(), CString());
    EXPECT_EQ(GetOpenClipboardWindow(), second);
    CloseClipboard();
    EXPECT_EQ(WinUtils::PasteFromClipboard(), CString(u"held"));
}

TEST_F(PasteFromClipboard, ReadsUnicodeTextAnotherProgramPut) {
    PutOnClipboard(CF_UNICODETEXT, WideBlock(u"Œuvre – 12 €"));
    EXPECT_EQ(WinUtils::PasteFromClipboard(), CString(u"Œuvre – 12 €"));
}

TEST_F(PasteFromClipboard, ReadsNoFurtherThanABlockWithoutItsZero) {
    PutOnClipboard(CF_TEXT, TextBlock("abc", false));
    EXPECT_EQ(WinUtils::PasteFromClipboard(), CString(u"abc"));
    PutOnClipboard(CF_TEXT, TextBlock(std::string("ab\0cd", 5)));
    EXPECT_EQ(WinUtils::PasteFromClipboard(), CString(u"ab"));
}

// A window that paints a pattern with an edge of its own colour on the right
// and at the bottom, so that a picture one pixel off shows it.
constexpr COLORREF kBack = RGB(250, 240, 200);
constexpr COLORREF kMark = RGB(20, 90, 180);
constexpr COLORREF kEdge = RGB(200, 30, 40);

COLORREF Pattern(int x, int y, int width, int height) {
    if (x == width - 1 || y == height - 1)
        return kEdge;
    if (x >= 10 && x < 40 && y >= 20 && y < 60)
        return kMark;
    return kBack;
}

class PatternWnd : public CWnd {
protected:
    void OnPaint() override {
        CPaintDC dc(this);
        CRect client;
        GetClientRect(&client);
        dc.FillSolidRect(&client, kBack);
        dc.FillSolidRect(10, 20, 30, 40, kMark);
        dc.FillSolidRect(client.right - 1, 0, 1, client.bottom, kEdge);
        dc.FillSolidRect(0, client.bottom - 1, client.right, 1, kEdge);
    }
};

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<COLORREF> pixels;
    COLORREF At(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
};

// The clipboard's bitmap, read without taking it from the clipboard.
bool ReadClipboardBitmap(HWND reader, Picture& picture) {
    if (!OpenClipboard(reader))
        return false;
    auto bitmap = static_cast<HBITMAP>(GetClipboardData(CF_BITMAP));
    BITMAP info{};
    bool ok = bitmap && GetObject(bitmap, sizeof info, &info) == sizeof info;
    if (ok) {
        picture.width = info.bmWidth;
        picture.height = info.bmHeight;
        picture.pixels.clear();
        HDC memory = CreateCompatibleDC(nullptr);
        HGDIOBJ old = SelectObject(memory, bitmap);
        for (int y = 0; y < picture.height; ++y)
            for (int x = 0; x < picture.width; ++x)
                picture.pixels.push_back(GetPixel(memory, x, y));
        SelectObject(memory, old);
        DeleteDC(memory);
    }
    CloseClipboard();
    return ok;
}

// What the desktop shows at a point.
COLORREF Desktop(int x, int y) {
    HDC screen = GetDC(nullptr);
    COLORREF colour = GetPixel(screen, x, y);
    ReleaseDC(nullptr, screen);
    return colour;
}

class PutImageOnClipboard : public ClipboardTest {
protected:
    void SetUp() override {
        ASSERT_TRUE(frame.Create(nullptr, u"frame", WS_POPUP | WS_VISIBLE,
                                 CRect(100, 100, 600, 500), nullptr, 0));
        ASSERT_TRUE(
            child.Create(nullptr, u"", WS_CHILD | WS_VISIBLE, CRect(20, 30, 320, 230), &frame, 1));
        platform::PumpMessages();
        // The counts to come back to are taken once the windows have painted.
        ClipboardTest::SetUp();
    }
    void TearDown() override {
        ClipboardTest::TearDown();
        child.DestroyWindow();
        frame.DestroyWindow();
    }
    CWnd frame;
    PatternWnd child;
};

TEST_F(PutImageOnClipboard, ABorderlessChildGivesABitmapOfItsClientArea) {
    WinUtils::PutImageOnClipboard(&child);
    EXPECT_EQ(GetOpenClipboardWindow(), nullptr);
    EXPECT_EQ(GetClipboardOwner(), child.GetSafeHwnd()); // opened on the window's behalf

    Picture picture;
    ASSERT_TRUE(ReadClipboardBitmap(first, picture));
    ASSERT_EQ(picture.width, 300);
    ASSERT_EQ(picture.height, 200);
    int wrong = 0;
    for (int y = 0; y < 200; ++y)
        for (int x = 0; x < 300; ++x)
            if (picture.At(x, y) != Pattern(x, y, 300, 200) && wrong++ < 5)
                ADD_FAILURE() << "pixel (" << x << ", " << y << ")";
    EXPECT_EQ(wrong, 0);
    // The same as the desktop shows where the child lies.
    EXPECT_EQ(picture.At(15, 25), Desktop(100 + 20 + 15, 100 + 30 + 25));
    EXPECT_EQ(picture.At(299, 199), Desktop(100 + 20 + 299, 100 + 30 + 199));

    // Everything made for the picture is gone but the bitmap the clipboard owns.
    platform::GdiCounts held = gdi;
    ++held.bitmaps;
    EXPECT_EQ(platform::LiveGdiObjects(), held);
}

TEST_F(PutImageOnClipboard, AFramedWindowGivesItsWholeSizeFromTheClientOrigin) {
    PatternWnd framed;
    ASSERT_TRUE(framed.Create(nullptr, u"framed", WS_POPUP | WS_CAPTION | WS_VISIBLE,
                              CRect(700, 100, 950, 300), nullptr, 0));
    platform::PumpMessages();
    gdi = platform::LiveGdiObjects(); // the caption's system colour brushes stay made
    CRect window, client;
    framed.GetWindowRect(&window);
    framed.GetClientRect(&client);
    ASSERT_LT(client.Height(), window.Height());

    WinUtils::PutImageOnClipboard(&framed);
    Picture picture;
    ASSERT_TRUE(ReadClipboardBitmap(first, picture));
    EXPECT_EQ(picture.width, window.Width());
    EXPECT_EQ(picture.height, window.Height());
    CPoint origin(0, 0);
    framed.ClientToScreen(&origin);
    for (int y = 0; y < client.Height(); y += 7)
        for (int x = 0; x < client.Width(); x += 7)
            ASSERT_EQ(picture.At(x, y), Pattern(x, y, client.Width(), client.Height()))
                << x << ", " << y;
    // Beyond the client area the picture holds what the desktop shows there.
    for (int y = client.Height(); y < picture.height; ++y)
        ASSERT_EQ(picture.At(5, y), Desktop(origin.x + 5, origin.y + y)) << y;
    framed.DestroyWindow();
}

TEST_F(PutImageOnClipboard, ReplacesTheTextOnTheClipboard) {
    ASSERT_TRUE(WinUtils::CopyToClipboard(u"text"));
    WinUtils::PutImageOnClipboard(&child);
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_TEXT));
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_EQ(platform::LiveGlobalBlocks(), blocks);
    EXPECT_EQ(WinUtils::PasteFromClipboard(), CString());
}

TEST_F(PutImageOnClipboard, LeavesNothingBehindWhenAnotherWindowHasTheClipboardOpen) {
    PutOnClipboard(CF_TEXT, TextBlock("kept"));
    ASSERT_TRUE(OpenClipboard(second));
    WinUtils::PutImageOnClipboard(&child);
    EXPECT_EQ(GetOpenClipboardWindow(), second);
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_EQ(Bytes(GetClipboardData(CF_TEXT)), std::string("kept", 5));
    CloseClipboard();
    EXPECT_EQ(platform::LiveGdiObjects(), gdi); // the bitmap nobody took is deleted
    EXPECT_EQ(platform::LiveGlobalBlocks(), blocks + 1);
}

TEST_F(PutImageOnClipboard, IgnoresAWindowThatIsNotThere) {
    CWnd none;
    WinUtils::PutImageOnClipboard(&none);
    WinUtils::PutImageOnClipboard(nullptr);
    PatternWnd gone;
    ASSERT_TRUE(gone.Create(nullptr, u"", WS_POPUP, CRect(0, 0, 10, 10), nullptr, 0));
    gone.DestroyWindow();
    WinUtils::PutImageOnClipboard(&gone);
    EXPECT_EQ(CountClipboardFormats(), 0);
    EXPECT_EQ(GetOpenClipboardWindow(), nullptr);
    EXPECT_EQ(platform::LiveGdiObjects(), gdi);
}

} // namespace
