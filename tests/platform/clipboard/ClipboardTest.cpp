// The clipboard's rules: who may open it, who owns it, what it takes and
// frees, and the text formats that stand in for each other.
#include "support/ClipboardSupport.h"

#include <vector>

namespace {

using namespace testing_support;

std::vector<UINT> EnumeratedFormats() {
    std::vector<UINT> formats;
    for (UINT format = EnumClipboardFormats(0); format; format = EnumClipboardFormats(format))
        formats.push_back(format);
    return formats;
}

TEST_F(ClipboardTest, OneWindowHasItOpenAtATime) {
    ASSERT_TRUE(OpenClipboard(first));
    EXPECT_EQ(GetOpenClipboardWindow(), first);

    SetLastError(0);
    EXPECT_FALSE(OpenClipboard(second));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_FALSE(OpenClipboard(nullptr)); // the program without a window is another opener
    EXPECT_EQ(GetOpenClipboardWindow(), first);

    // The opener may open it again; one close closes it.
    EXPECT_TRUE(OpenClipboard(first));
    EXPECT_TRUE(CloseClipboard());
    EXPECT_EQ(GetOpenClipboardWindow(), nullptr);
    SetLastError(0);
    EXPECT_FALSE(CloseClipboard());
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_CLIPBOARD_NOT_OPEN));

    ASSERT_TRUE(OpenClipboard(second));
    EXPECT_EQ(GetOpenClipboardWindow(), second);
    EXPECT_TRUE(CloseClipboard());

    // Opened without a window: nobody else, but the same opener again.
    ASSERT_TRUE(OpenClipboard(nullptr));
    EXPECT_EQ(GetOpenClipboardWindow(), nullptr);
    EXPECT_FALSE(OpenClipboard(first));
    EXPECT_TRUE(OpenClipboard(nullptr));
    EXPECT_TRUE(CloseClipboard());
}

TEST_F(ClipboardTest, AWindowThatIsNotAliveCannotOpenIt) {
    HWND gone =
        CreateWindowEx(0, u"STATIC", u"", WS_POPUP, 0, 0, 5, 5, nullptr, nullptr, nullptr, nullptr);
    DestroyWindow(gone);
    for (HWND bad : {gone, reinterpret_cast<HWND>(uintptr_t{0x123458})}) {
        SetLastError(0);
        EXPECT_FALSE(OpenClipboard(bad));
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    }
    EXPECT_TRUE(OpenClipboard(second)); // nothing was left open
    CloseClipboard();
}

TEST_F(ClipboardTest, EmptyingMakesTheOpenerTheOwner) {
    EXPECT_FALSE(EmptyClipboard());
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_CLIPBOARD_NOT_OPEN));

    ASSERT_TRUE(OpenClipboard(first));
    EXPECT_EQ(GetClipboardOwner(), nullptr); // opening alone does not take ownership
    EXPECT_TRUE(EmptyClipboard());
    EXPECT_EQ(GetClipboardOwner(), first);
    CloseClipboard();
    EXPECT_EQ(GetClipboardOwner(), first); // the owner outlives the opening

    ASSERT_TRUE(OpenClipboard(nullptr));
    EXPECT_TRUE(EmptyClipboard());
    EXPECT_EQ(GetClipboardOwner(), nullptr);
    CloseClipboard();
}

TEST_F(ClipboardTest, NothingIsSetOrReadWhileItIsClosed) {
    HGLOBAL block = TextBlock("kept");
    SetLastError(0);
    EXPECT_EQ(SetClipboardData(CF_TEXT, block), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_CLIPBOARD_NOT_OPEN));
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_TEXT));
    // The block is still the caller's.
    EXPECT_EQ(Bytes(block), std::string("kept", 5));
    EXPECT_EQ(GlobalFree(block), nullptr);

    ASSERT_TRUE(OpenClipboard(nullptr));
    ASSERT_NE(SetClipboardData(CF_TEXT, TextBlock("there")), nullptr);
    CloseClipboard();
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_TEXT)); // asking needs no opening
    EXPECT_EQ(CountClipboardFormats(), 2);
    EXPECT_EQ(GetClipboardData(CF_TEXT), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_CLIPBOARD_NOT_OPEN));
    EXPECT_EQ(EnumClipboardFormats(0), 0u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_CLIPBOARD_NOT_OPEN));
}

TEST_F(ClipboardTest, DataHandedOverIsTheClipboardsUntilEmptied) {
    ASSERT_TRUE(OpenClipboard(first));
    ASSERT_TRUE(EmptyClipboard());
    HGLOBAL text = TextBlock("text");
    HBITMAP picture = SolidBitmap(4, 3, RGB(200, 10, 10));
    EXPECT_EQ(SetClipboardData(CF_TEXT, text), text);
    EXPECT_EQ(SetClipboardData(CF_BITMAP, picture), picture);
    CloseClipboard();
    EXPECT_EQ(platform::LiveGlobalBlocks(), blocks + 1);
    EXPECT_EQ(platform::LiveGdiObjects().bitmaps, gdi.bitmaps + 1);

    // Reading hands out the same objects, which stay the clipboard's.
    ASSERT_TRUE(OpenClipboard(second));
    EXPECT_EQ(GetClipboardData(CF_TEXT), text);
    EXPECT_EQ(GetClipboardData(CF_BITMAP), picture);
    EXPECT_EQ(Bytes(text), std::string("text", 5));
    CloseClipboard();
    EXPECT_EQ(platform::LiveGlobalBlocks(), blocks + 1);

    ASSERT_TRUE(OpenClipboard(second));
    ASSERT_TRUE(EmptyClipboard());
    CloseClipboard();
    EXPECT_EQ(platform::LiveGlobalBlocks(), blocks);
    EXPECT_EQ(platform::LiveGdiObjects(), gdi);
    EXPECT_EQ(GlobalFlags(text), static_cast<UINT>(GMEM_INVALID_HANDLE));
    EXPECT_EQ(GetObjectType(picture), 0u);
    EXPECT_EQ(CountClipboardFormats(), 0);
}

TEST_F(ClipboardTest, SettingAFormatAgainFreesWhatItHeld) {
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    HGLOBAL older = TextBlock("older");
    HBITMAP olderPicture = SolidBitmap(2, 2, 0);
    SetClipboardData(CF_TEXT, older);
    SetClipboardData(CF_BITMAP, olderPicture);
    HGLOBAL newer = TextBlock("newer");
    EXPECT_EQ(SetClipboardData(CF_TEXT, newer), newer);
    HBITMAP newerPicture = SolidBitmap(2, 2, 0);
    EXPECT_EQ(SetClipboardData(CF_BITMAP, newerPicture), newerPicture);
    EXPECT_EQ(GetClipboardData(CF_BITMAP), newerPicture);
    EXPECT_EQ(GlobalFlags(older), static_cast<UINT>(GMEM_INVALID_HANDLE));
    EXPECT_EQ(GetObjectType(olderPicture), 0u);
    EXPECT_EQ(platform::LiveGlobalBlocks(), blocks + 1);
    EXPECT_EQ(platform::LiveGdiObjects().bitmaps, gdi.bitmaps + 1);
    // The same handle again changes nothing and frees nothing.
    EXPECT_EQ(SetClipboardData(CF_TEXT, newer), newer);
    EXPECT_EQ(Bytes(GetClipboardData(CF_TEXT)), std::string("newer", 6));
    CloseClipboard();
}

TEST_F(ClipboardTest, HandlesOfTheWrongKindAreRefusedAndStayTheCallers) {
    HGLOBAL block = TextBlock("mine");
    HBITMAP picture = SolidBitmap(2, 2, 0);
    HGLOBAL freed = TextBlock("gone");
    GlobalFree(freed);
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();

    struct Case {
        UINT format;
        HANDLE data;
        DWORD error;
    } cases[] = {
        {CF_TEXT, picture, ERROR_INVALID_HANDLE},
        {CF_BITMAP, block, ERROR_INVALID_HANDLE},
        {CF_TEXT, freed, ERROR_INVALID_HANDLE},
        {CF_UNICODETEXT, nullptr, ERROR_INVALID_PARAMETER},
        {0, block, ERROR_INVALID_PARAMETER},
    };
    for (const Case& c : cases) {
        SetLastError(0);
        EXPECT_EQ(SetClipboardData(c.format, c.data), nullptr) << c.format;
        EXPECT_EQ(GetLastError(), c.error) << c.format;
    }
    EXPECT_EQ(CountClipboardFormats(), 0);

    // One block under two formats would be freed twice.
    ASSERT_EQ(SetClipboardData(CF_TEXT, block), block);
    EXPECT_EQ(SetClipboardData(0x0200, block), nullptr);
    EXPECT_FALSE(IsClipboardFormatAvailable(0x0200));
    CloseClipboard();

    EXPECT_EQ(Bytes(block), std::string("mine", 5));
    EXPECT_EQ(DeleteObject(picture), TRUE);
}

TEST_F(ClipboardTest, AnyOtherFormatHoldsAGlobalBlock) {
    const UINT privateFormat = 0x0200;
    ASSERT_TRUE(OpenClipboard(first));
    EmptyClipboard();
    HGLOBAL data = TextBlock(std::string("\x01\x02\x00\x03", 4), false);
    EXPECT_EQ(SetClipboardData(privateFormat, data), data);
    EXPECT_EQ(GetClipboardData(privateFormat), data);
    EXPECT_EQ(GetClipboardData(CF_TEXT), nullptr); // nothing stands in for private data
    EXPECT_EQ(EnumeratedFormats(), std::vector<UINT>{privateFormat});
    CloseClipboard();
}

TEST_F(ClipboardTest, TextAndUnicodeTextStandInForEachOther) {
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    SetClipboardData(CF_TEXT, TextBlock("Gr\xFC\xDF"
                                        "e \x80 \x81"));
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_UNICODETEXT));
    EXPECT_EQ(EnumeratedFormats(), (std::vector<UINT>{CF_TEXT, CF_UNICODETEXT}));
    HANDLE unicode = GetClipboardData(CF_UNICODETEXT);
    ASSERT_NE(unicode, nullptr);
    EXPECT_EQ(Wide(unicode), u"Grüße € \u0081");
    EXPECT_EQ(GlobalSize(unicode), (9u + 1) * 2);
    // Asked again, the same stand-in: it is made once and kept.
    EXPECT_EQ(GetClipboardData(CF_UNICODETEXT), unicode);
    EXPECT_EQ(platform::LiveGlobalBlocks(), blocks + 2);
    EXPECT_EQ(CountClipboardFormats(), 2);

    EmptyClipboard(); // frees the stand-in with the text
    EXPECT_EQ(platform::LiveGlobalBlocks(), blocks);

    SetClipboardData(CF_UNICODETEXT, WideBlock(u"5 € and 日本"));
    EXPECT_EQ(EnumeratedFormats(), (std::vector<UINT>{CF_UNICODETEXT, CF_TEXT}));
    EXPECT_EQ(Bytes(GetClipboardData(CF_TEXT)), std::string("5 \x80 and ??", 11));
    CloseClipboard();
}

TEST_F(ClipboardTest, StandInsConvertThroughTheCodePageOfWhenTheTextWasSet) {
    platform::SetAnsiCodePage(932);
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    SetClipboardData(CF_UNICODETEXT, WideBlock(u"日本語"));
    platform::SetAnsiCodePage(CP_ACP);
    EXPECT_EQ(Bytes(GetClipboardData(CF_TEXT)), std::string("\x93\xFA\x96\x7B\x8C\xEA", 7));

    EmptyClipboard();
    platform::SetAnsiCodePage(936);
    SetClipboardData(CF_TEXT, TextBlock("\xC4\xE3\xBA\xC3")); // 你好 in GBK
    platform::SetAnsiCodePage(CP_ACP);
    EXPECT_EQ(Wide(GetClipboardData(CF_UNICODETEXT)), u"你好");
    CloseClipboard();
}

TEST_F(ClipboardTest, NewTextReplacesAStaleStandIn) {
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    SetClipboardData(CF_TEXT, TextBlock("one"));
    EXPECT_EQ(Wide(GetClipboardData(CF_UNICODETEXT)), u"one");
    SetClipboardData(CF_TEXT, TextBlock("two"));
    EXPECT_EQ(Wide(GetClipboardData(CF_UNICODETEXT)), u"two");
    EXPECT_EQ(platform::LiveGlobalBlocks(), blocks + 2);

    // Text set in the stand-in's format replaces it for good.
    HGLOBAL own = WideBlock(u"three");
    SetClipboardData(CF_UNICODETEXT, own);
    EXPECT_EQ(GetClipboardData(CF_UNICODETEXT), own);
    EXPECT_EQ(Bytes(GetClipboardData(CF_TEXT)), std::string("two", 4));
    EXPECT_EQ(EnumeratedFormats(), (std::vector<UINT>{CF_TEXT, CF_UNICODETEXT}));
    CloseClipboard();
}

TEST_F(ClipboardTest, TextWithoutATerminatorIsReadNoFurtherThanItsBlock) {
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    SetClipboardData(CF_TEXT, TextBlock("abc", false));
    EXPECT_EQ(Wide(GetClipboardData(CF_UNICODETEXT)), u"abc");
    EmptyClipboard();
    // An odd byte count: the last half unit is not text.
    HGLOBAL odd = GlobalAlloc(GMEM_MOVEABLE, 5);
    std::memcpy(GlobalLock(odd), u"xy\x7F", 5);
    GlobalUnlock(odd);
    SetClipboardData(CF_UNICODETEXT, odd);
    EXPECT_EQ(Bytes(GetClipboardData(CF_TEXT)), std::string("xy", 3));
    EmptyClipboard();
    // A discarded block reads as no text.
    SetClipboardData(CF_TEXT, GlobalAlloc(GMEM_MOVEABLE, 0));
    EXPECT_EQ(Wide(GetClipboardData(CF_UNICODETEXT)), u"");
    CloseClipboard();
}

TEST_F(ClipboardTest, FormatsAreEnumeratedInTheOrderTheyWereSet) {
    ASSERT_TRUE(OpenClipboard(second));
    EmptyClipboard();
    EXPECT_EQ(EnumClipboardFormats(0), 0u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_SUCCESS));
    SetClipboardData(CF_BITMAP, SolidBitmap(1, 1, 0));
    SetClipboardData(CF_TEXT, TextBlock("t"));
    GetClipboardData(CF_UNICODETEXT); // a stand-in, however early made, comes last
    SetClipboardData(0x0201, TextBlock("p"));
    EXPECT_EQ(EnumeratedFormats(), (std::vector<UINT>{CF_BITMAP, CF_TEXT, 0x0201, CF_UNICODETEXT}));
    EXPECT_EQ(CountClipboardFormats(), 4);
    EXPECT_EQ(EnumClipboardFormats(0x0300), 0u); // a format it does not hold
    CloseClipboard();
}

TEST_F(ClipboardTest, ADestroyedWindowLetsGoOfTheClipboardButNotOfItsData) {
    HWND opener =
        CreateWindowEx(0, u"STATIC", u"", WS_POPUP, 0, 0, 5, 5, nullptr, nullptr, nullptr, nullptr);
    ASSERT_TRUE(OpenClipboard(opener));
    EmptyClipboard();
    SetClipboardData(CF_TEXT, TextBlock("left behind"));
    DestroyWindow(opener);
    EXPECT_EQ(GetOpenClipboardWindow(), nullptr);
    EXPECT_EQ(GetClipboardOwner(), nullptr);
    ASSERT_TRUE(OpenClipboard(first));
    EXPECT_EQ(Bytes(GetClipboardData(CF_TEXT)), std::string("left behind", 12));
    CloseClipboard();
}

} // namespace
