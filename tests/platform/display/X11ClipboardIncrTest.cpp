// Our clipboard data larger than one X request, sent in increments (INCR):
// read whole by xclip, its pieces checked byte for byte by a requestor of the
// test's own, and a requestor that stalls or goes away holding up no one.
#ifdef WIN_TEST_HAVE_XCB
#include "X11ClipboardFixture.h"

#include <platform/Display.h>
#include <windows.h>

#include <cairo.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <xcb/xcb.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <future>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace {

using testing_support::InternAtom;
using testing_support::Output;

// The most one piece may hold: the core protocol's request limit less
// ChangeProperty's own fields.
constexpr std::size_t kPieceLimit = 65535 * 4 - 24;

// A program on its own connection that asks for our clipboard as
// UTF8_STRING and takes the answer apart as it comes.
class Requestor {
public:
    explicit Requestor(const std::string& display) {
        c = xcb_connect(display.c_str(), nullptr);
        xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(c)).data;
        window = xcb_generate_id(c);
        const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(c, XCB_COPY_FROM_PARENT, window, screen->root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, XCB_CW_EVENT_MASK,
                          &mask);
        clipboard = InternAtom(c, "CLIPBOARD");
        utf8 = InternAtom(c, "UTF8_STRING");
        incr = InternAtom(c, "INCR");
        property = InternAtom(c, "REQUESTOR_DATA");
        xcb_flush(c);
    }
    ~Requestor() { xcb_disconnect(c); }

    struct Property {
        xcb_atom_t type = XCB_NONE;
        uint8_t format = 0;
        std::string value;
    };

    // Asks for the data and reads the answer's property, leaving it in
    // place; nothing when no answer came within two seconds.
    std::optional<Property> Ask() {
        xcb_convert_selection(c, window, clipboard, utf8, property, XCB_CURRENT_TIME);
        if (!Await([](xcb_generic_event_t* e) {
                return (e->response_type & 0x7F) == XCB_SELECTION_NOTIFY;
            }))
            return std::nullopt;
        return Read();
    }

    // Deletes the property, which asks for the next piece, and reads that
    // piece; nothing when none came within the time.
    std::optional<Property> Next(int waitMs = 2000) {
        xcb_delete_property(c, window, property);
        if (!Await(
                [&](xcb_generic_event_t* e) {
                    auto* change = reinterpret_cast<xcb_property_notify_event_t*>(e);
                    return (e->response_type & 0x7F) == XCB_PROPERTY_NOTIFY &&
                           change->atom == property && change->state == XCB_PROPERTY_NEW_VALUE;
                },
                waitMs))
            return std::nullopt;
        return Read();
    }

    void Vanish() {
        xcb_destroy_window(c, window);
        xcb_flush(c);
    }

    xcb_atom_t utf8, incr;

private:
    Property Read() {
        xcb_get_property_reply_t* reply = xcb_get_property_reply(
            c, xcb_get_property(c, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, 1u << 24),
            nullptr);
        Property p;
        if (reply) {
            p.type = reply->type;
            p.format = reply->format;
            p.value.assign(static_cast<const char*>(xcb_get_property_value(reply)),
                           static_cast<std::size_t>(xcb_get_property_value_length(reply)));
        }
        free(reply);
        return p;
    }

    template <class Wanted> bool Await(Wanted wanted, int waitMs = 2000) {
        xcb_flush(c);
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(waitMs);
        while (std::chrono::steady_clock::now() < deadline) {
            while (xcb_generic_event_t* event = xcb_poll_for_event(c)) {
                const bool found = wanted(event);
                free(event);
                if (found)
                    return true;
            }
            pollfd fd{xcb_get_file_descriptor(c), POLLIN, 0};
            poll(&fd, 1, 20);
        }
        return false;
    }

    xcb_connection_t* c;
    xcb_window_t window;
    xcb_atom_t clipboard, property;
};

class X11ClipboardIncrTest : public testing_support::X11ClipboardFixture {
protected:
    // Puts about size bytes of text on the clipboard (lines ending CR LF,
    // with two-byte characters among them); *utf8 is what the display
    // offers for it.
    void SetLargeText(std::size_t size, std::string* utf8) {
        std::u16string text;
        utf8->clear();
        for (int i = 0; utf8->size() < size; ++i) {
            const std::string number = std::to_string(i);
            text += u"caf\u00e9 line ";
            *utf8 += "caf\xc3\xa9 line ";
            for (char ch : number)
                text += static_cast<char16_t>(ch);
            *utf8 += number;
            text += u"\r\n";
            *utf8 += "\n";
        }
        const std::size_t bytes = (text.size() + 1) * sizeof(char16_t);
        HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes);
        std::memcpy(GlobalLock(block), text.c_str(), bytes);
        GlobalUnlock(block);
        ASSERT_NO_FATAL_FAILURE(Put(CF_UNICODETEXT, block));
    }
};

TEST_F(X11ClipboardIncrTest, SeveralMegabytesOfTextReachXclipWhole) {
    std::string expected;
    ASSERT_NO_FATAL_FAILURE(SetLargeText(3u << 20, &expected));
    const Output out = Read("xclip -o -selection clipboard");
    EXPECT_EQ(out.status, 0);
    EXPECT_EQ(out.text.size(), expected.size());
    EXPECT_TRUE(out.text == expected) << "the bytes differ";
    // Again, and as Latin-1 through STRING.
    const Output again = Read("xclip -o -selection clipboard -t STRING");
    std::string latin1;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (expected[i] == '\xc3') {
            latin1 += static_cast<char>(0xE9);
            ++i;
        } else {
            latin1 += expected[i];
        }
    }
    EXPECT_EQ(again.text.size(), latin1.size());
    EXPECT_TRUE(again.text == latin1) << "the bytes differ";
}

TEST_F(X11ClipboardIncrTest, ThePiecesFollowTheIncrementalProtocolByteForByte) {
    std::string expected;
    ASSERT_NO_FATAL_FAILURE(SetLargeText(700000, &expected));
    Requestor requestor(server->Name());
    struct Seen {
        std::optional<Requestor::Property> header;
        std::vector<Requestor::Property> pieces;
        bool ended = false;
    };
    const Seen seen = WhilePumping([&] {
        Seen s;
        s.header = requestor.Ask();
        if (!s.header)
            return s;
        while (std::optional<Requestor::Property> piece = requestor.Next()) {
            s.pieces.push_back(*piece);
            if (piece->value.empty()) {
                s.ended = true;
                break;
            }
        }
        return s;
    });
    ASSERT_TRUE(seen.header);
    EXPECT_EQ(seen.header->type, requestor.incr);
    EXPECT_EQ(seen.header->format, 32);
    ASSERT_EQ(seen.header->value.size(), 4u);
    uint32_t total = 0;
    std::memcpy(&total, seen.header->value.data(), 4);
    EXPECT_EQ(total, expected.size());
    ASSERT_TRUE(seen.ended) << "no empty piece came";
    ASSERT_GE(seen.pieces.size(), 4u);
    std::string joined;
    for (std::size_t i = 0; i < seen.pieces.size(); ++i) {
        const Requestor::Property& piece = seen.pieces[i];
        EXPECT_EQ(piece.type, requestor.utf8) << i;
        EXPECT_EQ(piece.format, 8) << i;
        EXPECT_LE(piece.value.size(), kPieceLimit) << i;
        if (i + 1 < seen.pieces.size()) {
            EXPECT_GT(piece.value.size(), 0u) << i;
        }
        joined += piece.value;
    }
    EXPECT_EQ(joined.size(), expected.size());
    EXPECT_TRUE(joined == expected) << "the bytes differ";
}

TEST_F(X11ClipboardIncrTest, ARequestorThatStallsOrVanishesHoldsUpNoOne) {
    std::string expected;
    ASSERT_NO_FATAL_FAILURE(SetLargeText(600000, &expected));
    Requestor stalling(server->Name());
    Requestor vanishing(server->Name());
    const bool started = WhilePumping([&] {
        std::optional<Requestor::Property> a = stalling.Ask();
        std::optional<Requestor::Property> b = vanishing.Ask();
        // Each takes its first piece; then one stops asking and the other
        // goes away.
        return a && a->type == stalling.incr && b && b->type == vanishing.incr && stalling.Next() &&
               vanishing.Next();
    });
    ASSERT_TRUE(started);
    vanishing.Vanish();
    // Meanwhile another program gets the whole text.
    const Output out = Read("xclip -o -selection clipboard");
    EXPECT_TRUE(out.text == expected) << out.text.size() << " bytes of " << expected.size();
    // After the wait for the next piece has run out, the stalled transfer is
    // over: asking again brings nothing.
    const auto stalled = WhilePumping([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(3300));
        return stalling.Next(500);
    });
    EXPECT_FALSE(stalled) << "a piece came after the transfer was given up";
    // And a new request is answered afresh.
    Requestor late(server->Name());
    const auto header = WhilePumping([&] { return late.Ask(); });
    ASSERT_TRUE(header);
    EXPECT_EQ(header->type, late.incr);
}

TEST_F(X11ClipboardIncrTest, ALargePictureGoesAsPngInPieces) {
    // Noise, so that the PNG cannot be small.
    const int width = 400, height = 400;
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    HGDIOBJ old = SelectObject(memory, bitmap);
    uint32_t seed = 12345;
    std::vector<COLORREF> colours;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            seed = seed * 1664525u + 1013904223u;
            const COLORREF c = (seed >> 8) & 0xFFFFFF;
            colours.push_back(c);
            SetPixel(memory, x, y, c);
        }
    SelectObject(memory, old);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    ASSERT_NO_FATAL_FAILURE(Put(CF_BITMAP, bitmap));

    const Output png = Read("xclip -o -selection clipboard -t image/png");
    ASSERT_GT(png.text.size(), kPieceLimit);
    cairo_surface_t* image = testing_support::DecodePng(png.text);
    ASSERT_EQ(cairo_surface_status(image), CAIRO_STATUS_SUCCESS);
    ASSERT_EQ(cairo_image_surface_get_width(image), width);
    ASSERT_EQ(cairo_image_surface_get_height(image), height);
    const int stride = cairo_image_surface_get_stride(image);
    const unsigned char* data = cairo_image_surface_get_data(image);
    int wrong = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const uint32_t p = reinterpret_cast<const uint32_t*>(data + y * stride)[x] & 0xFFFFFF;
            const COLORREF c = colours[static_cast<std::size_t>(y * width + x)];
            const uint32_t rgb = (GetRValue(c) << 16) | (GetGValue(c) << 8) | GetBValue(c);
            wrong += p != rgb;
        }
    cairo_surface_destroy(image);
    EXPECT_EQ(wrong, 0);
}

} // namespace
#endif
