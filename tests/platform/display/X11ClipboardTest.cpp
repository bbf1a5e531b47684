// The clipboard as the display's CLIPBOARD selection on a private X server:
// our text and pictures read by another program (xclip), another program's
// text read by ours, whole or in increments, and an owner that never answers.
#ifdef WIN_TEST_HAVE_XCB
#include "X11ClipboardFixture.h"

#include <Win/Win.h>
#include <platform/Display.h>
#include <windows.h>

#include <cairo.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <xcb/xcb.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <functional>
#include <future>
#include <string>
#include <thread>

namespace {

using testing_support::InternAtom;
using testing_support::Output;

HGLOBAL Block(const void* data, std::size_t bytes) {
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes);
    std::memcpy(GlobalLock(block), data, bytes);
    GlobalUnlock(block);
    return block;
}

std::u16string UnicodeOf(HANDLE block) {
    const auto* data = static_cast<const char16_t*>(GlobalLock(block));
    std::u16string text = data ? std::u16string(data) : std::u16string();
    GlobalUnlock(block);
    return text;
}

std::string AnsiOf(HANDLE block) {
    const auto* data = static_cast<const char*>(GlobalLock(block));
    std::string text = data ? std::string(data) : std::string();
    GlobalUnlock(block);
    return text;
}

class X11ClipboardTest : public testing_support::X11ClipboardFixture {
protected:
    void SetText(const std::u16string& text) {
        ASSERT_NO_FATAL_FAILURE(
            Put(CF_UNICODETEXT, Block(text.c_str(), (text.size() + 1) * sizeof(char16_t))));
    }

    // Puts text on the display's clipboard from xclip, which then serves it
    // from the background.
    void SetTextElsewhere(const std::string& text) {
        const std::string path = testing::TempDir() + "x11clip-" + std::to_string(getpid());
        FILE* file = std::fopen(path.c_str(), "wb");
        std::fwrite(text.data(), 1, text.size(), file);
        std::fclose(file);
        ASSERT_EQ(Run("xclip -i -selection clipboard " + path), 0);
        std::remove(path.c_str());
        // xclip takes the selection from a child of its own after it has
        // exited; wait until it has.
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        while (Read("xclip -o -selection clipboard").text != text &&
               std::chrono::steady_clock::now() < deadline)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
};

TEST_F(X11ClipboardTest, OurTextIsReadAsUtf8AndAsLatin1WithLinesEndingInLf) {
    SetText(u"Gr\u00fc\u00dfe \u6771\u4eac \U0001F600\r\nzwei");
    Output utf8 = Read("xclip -o -selection clipboard");
    EXPECT_EQ(utf8.status, 0);
    EXPECT_EQ(utf8.text, "Gr\xc3\xbc\xc3\x9f"
                         "e \xe6\x9d\xb1\xe4\xba\xac \xf0\x9f\x98\x80\nzwei");
    Output latin1 = Read("xclip -o -selection clipboard -t STRING");
    EXPECT_EQ(latin1.status, 0);
    EXPECT_EQ(latin1.text, "Gr\xfc\xdf"
                           "e ?? ?\nzwei");
    Output targets = Read("xclip -o -selection clipboard -t TARGETS");
    for (const char* target : {"TARGETS", "UTF8_STRING", "STRING", "TEXT"})
        EXPECT_NE(targets.text.find(target), std::string::npos) << target;
    EXPECT_EQ(targets.text.find("image/png"), std::string::npos);
    // A target we cannot give is refused, not answered with nothing.
    EXPECT_NE(Read("xclip -o -selection clipboard -t image/jpeg").status, 0);
}

TEST_F(X11ClipboardTest, NarrowTextIsOfferedThroughTheCodePage) {
    const char ansi[] = "caf\xe9 \x80"; // 0x80 is the euro sign in windows-1252
    ASSERT_NO_FATAL_FAILURE(Put(CF_TEXT, Block(ansi, sizeof ansi)));
    EXPECT_EQ(Read("xclip -o -selection clipboard").text, "caf\xc3\xa9 \xe2\x82\xac");
    EXPECT_EQ(Read("xclip -o -selection clipboard -t STRING").text, "caf\xe9 ?");
}

TEST_F(X11ClipboardTest, AnotherProgramsTextComesBackAsBothTextFormats) {
    SetText(u"ours");
    SetTextElsewhere("their caf\xc3\xa9\nline");
    ASSERT_TRUE(OpenClipboard(nullptr));
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_UNICODETEXT));
    HANDLE unicode = GetClipboardData(CF_UNICODETEXT);
    ASSERT_TRUE(unicode);
    EXPECT_EQ(UnicodeOf(unicode), u"their caf\u00e9\r\nline");
    HANDLE narrow = GetClipboardData(CF_TEXT);
    ASSERT_TRUE(narrow);
    EXPECT_EQ(AnsiOf(narrow), "their caf\xe9\r\nline");
    // The block handed out stays valid while the clipboard is open.
    EXPECT_EQ(GetClipboardData(CF_UNICODETEXT), unicode);
    EXPECT_EQ(CountClipboardFormats(), 2);
    EXPECT_TRUE(CloseClipboard());
    // Losing the selection dropped our own text: the display shows theirs.
    EXPECT_EQ(Read("xclip -o -selection clipboard").text, "their caf\xc3\xa9\nline");
}

TEST_F(X11ClipboardTest, TheLibrarysCopyAndPasteGoThroughTheDisplay) {
    ASSERT_TRUE(WinUtils::CopyToClipboard(CString(u"copied caf\u00e9")));
    EXPECT_EQ(Read("xclip -o -selection clipboard").text, "copied caf\xc3\xa9");
    SetTextElsewhere("pasted \xc3\xa0 la carte");
    EXPECT_EQ(WinUtils::PasteFromClipboard(), CString(u"pasted \u00e0 la carte"));
}

TEST_F(X11ClipboardTest, AnEditControlPastesAnotherProgramsTextAndCopiesItsOwn) {
    CWnd parent;
    ASSERT_TRUE(parent.CreateEx(0, nullptr, u"edit", WS_OVERLAPPED | WS_VISIBLE,
                                CRect(0, 0, 320, 80), nullptr, 0));
    HWND edit = CreateWindowEx(0, u"EDIT", u"", WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL,
                               10, 10, 300, 23, parent.m_hWnd, nullptr, nullptr, nullptr);
    ASSERT_TRUE(edit);
    SetTextElsewhere("from xclip \xc3\xa9");
    SendMessage(edit, WM_PASTE, 0, 0);
    WCHAR text[64] = {};
    GetWindowText(edit, text, 64);
    EXPECT_EQ(std::u16string(text), u"from xclip \u00e9");
    SendMessage(edit, EM_SETSEL, 5, 10);
    SendMessage(edit, WM_COPY, 0, 0);
    EXPECT_EQ(Read("xclip -o -selection clipboard").text, "xclip");
    parent.DestroyWindow();
}

TEST_F(X11ClipboardTest, TextSetAgainAfterAnotherProgramTookTheSelectionIsOursAgain) {
    SetTextElsewhere("theirs");
    SetText(u"mine again");
    EXPECT_EQ(Read("xclip -o -selection clipboard").text, "mine again");
    ASSERT_TRUE(OpenClipboard(nullptr));
    EXPECT_EQ(UnicodeOf(GetClipboardData(CF_UNICODETEXT)), u"mine again");
    CloseClipboard();
}

TEST_F(X11ClipboardTest, APictureIsOfferedAsPng) {
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, 30, 20);
    HGDIOBJ old = SelectObject(memory, bitmap);
    RECT all{0, 0, 30, 20};
    HBRUSH red = CreateSolidBrush(RGB(255, 0, 0));
    FillRect(memory, &all, red);
    DeleteObject(red);
    SelectObject(memory, old);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    ASSERT_NO_FATAL_FAILURE(Put(CF_BITMAP, bitmap));

    Output targets = Read("xclip -o -selection clipboard -t TARGETS");
    EXPECT_NE(targets.text.find("image/png"), std::string::npos);
    EXPECT_EQ(targets.text.find("UTF8_STRING"), std::string::npos);
    Output png = Read("xclip -o -selection clipboard -t image/png");
    ASSERT_GT(png.text.size(), 8u);
    EXPECT_EQ(png.text.substr(0, 8), "\x89PNG\r\n\x1a\n");
    // The bytes decode to the picture.
    cairo_surface_t* image = testing_support::DecodePng(png.text);
    ASSERT_EQ(cairo_surface_status(image), CAIRO_STATUS_SUCCESS);
    EXPECT_EQ(cairo_image_surface_get_width(image), 30);
    EXPECT_EQ(cairo_image_surface_get_height(image), 20);
    const auto* pixels = reinterpret_cast<const uint32_t*>(cairo_image_surface_get_data(image));
    EXPECT_EQ(pixels[0] & 0xFFFFFF, 0xFF0000u);
    cairo_surface_destroy(image);
}

TEST_F(X11ClipboardTest, OurDataOutlivesTheDisplay) {
    SetText(u"kept");
    platform::display::Close();
    ASSERT_TRUE(OpenClipboard(nullptr));
    EXPECT_EQ(UnicodeOf(GetClipboardData(CF_UNICODETEXT)), u"kept");
    CloseClipboard();
}

// Another program on its own connection that owns the selection.
class Owner {
public:
    explicit Owner(const std::string& display) {
        c = xcb_connect(display.c_str(), nullptr);
        xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(c)).data;
        window = xcb_generate_id(c);
        xcb_create_window(c, XCB_COPY_FROM_PARENT, window, screen->root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
        clipboard = InternAtom(c, "CLIPBOARD");
        utf8 = InternAtom(c, "UTF8_STRING");
        incr = InternAtom(c, "INCR");
        xcb_set_selection_owner(c, window, clipboard, XCB_CURRENT_TIME);
        xcb_flush(c);
        xcb_get_selection_owner_reply_t* reply =
            xcb_get_selection_owner_reply(c, xcb_get_selection_owner(c, clipboard), nullptr);
        owns = reply && reply->owner == window;
        free(reply);
    }
    ~Owner() {
        stop = true;
        if (serving.joinable())
            serving.join();
        xcb_disconnect(c);
    }

    // Answers UTF8_STRING requests with data in pieces of the given size,
    // refusing other targets, from a thread of its own.
    void ServeInPieces(std::string data, std::size_t piece) {
        serving = std::thread([this, data = std::move(data), piece] {
            while (!stop) {
                xcb_generic_event_t* event = Next();
                if (!event)
                    continue;
                if ((event->response_type & 0x7F) == XCB_SELECTION_REQUEST)
                    Answer(*reinterpret_cast<xcb_selection_request_event_t*>(event), data, piece);
                free(event);
            }
        });
    }

    // The requests that came and were left unanswered.
    int Unanswered() {
        int requests = 0;
        while (xcb_generic_event_t* event = Next()) {
            requests += (event->response_type & 0x7F) == XCB_SELECTION_REQUEST;
            free(event);
        }
        return requests;
    }

    bool owns = false;

private:
    xcb_generic_event_t* Next() {
        xcb_flush(c);
        if (xcb_generic_event_t* event = xcb_poll_for_event(c))
            return event;
        pollfd fd{xcb_get_file_descriptor(c), POLLIN, 0};
        poll(&fd, 1, 20);
        return xcb_poll_for_event(c);
    }

    void Notify(const xcb_selection_request_event_t& request, xcb_atom_t property) {
        char wire[32] = {};
        xcb_selection_notify_event_t notify{};
        notify.response_type = XCB_SELECTION_NOTIFY;
        notify.requestor = request.requestor;
        notify.selection = request.selection;
        notify.target = request.target;
        notify.property = property;
        notify.time = request.time;
        std::memcpy(wire, &notify, sizeof notify);
        xcb_send_event(c, 0, request.requestor, 0, wire);
        xcb_flush(c);
    }

    void Answer(const xcb_selection_request_event_t& request, const std::string& data,
                std::size_t piece) {
        if (request.target != utf8) {
            Notify(request, XCB_NONE);
            return;
        }
        const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(c, request.requestor, XCB_CW_EVENT_MASK, &mask);
        const uint32_t size = static_cast<uint32_t>(data.size());
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, request.requestor, request.property, incr, 32,
                            1, &size);
        Notify(request, request.property);
        std::size_t at = 0;
        bool ended = false;
        while (!ended && !stop) {
            xcb_generic_event_t* event = Next();
            if (!event)
                continue;
            auto* change = reinterpret_cast<xcb_property_notify_event_t*>(event);
            if ((event->response_type & 0x7F) == XCB_PROPERTY_NOTIFY &&
                change->window == request.requestor && change->atom == request.property &&
                change->state == XCB_PROPERTY_DELETE) {
                const std::size_t n = std::min(piece, data.size() - at);
                xcb_change_property(c, XCB_PROP_MODE_REPLACE, request.requestor, request.property,
                                    utf8, 8, static_cast<uint32_t>(n), data.data() + at);
                ended = n == 0;
                at += n;
            }
            free(event);
        }
    }

    xcb_connection_t* c;
    xcb_window_t window;
    xcb_atom_t clipboard, utf8, incr;
    std::atomic<bool> stop{false};
    std::thread serving;
};

TEST_F(X11ClipboardTest, TextSentInIncrementsIsPutTogether) {
    std::string data;
    for (int i = 0; data.size() < 300000; ++i)
        data += "line " + std::to_string(i) + "\n";
    Owner owner(server->Name());
    ASSERT_TRUE(owner.owns);
    owner.ServeInPieces(data, 65536);
    ASSERT_TRUE(OpenClipboard(nullptr));
    HANDLE block = GetClipboardData(CF_UNICODETEXT);
    ASSERT_TRUE(block);
    const std::u16string text = UnicodeOf(block);
    CloseClipboard();
    std::u16string expected;
    for (char ch : data) {
        if (ch == '\n')
            expected += u'\r';
        expected += static_cast<char16_t>(ch);
    }
    EXPECT_EQ(text.size(), expected.size());
    EXPECT_TRUE(text == expected);
}

TEST_F(X11ClipboardTest, AnOwnerThatNeverAnswersGivesNoDataInsteadOfAHang) {
    Owner owner(server->Name());
    ASSERT_TRUE(owner.owns);
    ASSERT_TRUE(OpenClipboard(nullptr));
    EXPECT_EQ(GetClipboardData(CF_UNICODETEXT), nullptr);
    EXPECT_EQ(GetClipboardData(CF_TEXT), nullptr);
    CloseClipboard();
    // It is not asked again (each ask would stall us for a second).
    ASSERT_TRUE(OpenClipboard(nullptr));
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_UNICODETEXT));
    CloseClipboard();
    EXPECT_EQ(owner.Unanswered(), 1);
    // Our own data still goes out once we set some.
    SetText(u"after");
    EXPECT_EQ(Read("xclip -o -selection clipboard").text, "after");
}

} // namespace
#endif
