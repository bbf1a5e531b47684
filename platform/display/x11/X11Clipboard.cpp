// The selection protocol on the display's connection. Requests name the
// current time rather than an event's: the program's clipboard calls come
// from its own code, not from an input event that carries one.
#include "display/x11/X11Clipboard.h"

#include "display/x11/X11Atoms.h"
#include "display/x11/X11ClipboardText.h"

#include <platform/CodePage.h>

#include <poll.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace platform::display::x11 {
namespace {

constexpr int kAnswerMs = 1000;
// Another program's data larger than this is refused rather than held.
constexpr std::size_t kMostBytes = 64u << 20;
// Room for ChangeProperty's own fields (24 bytes) and then some.
constexpr std::size_t kRequestHeader = 64;

struct Freed {
    void operator()(void* p) const { free(p); }
};

} // namespace

X11Clipboard::X11Clipboard(xcb_connection_t* connection, xcb_screen_t* screen, Defer defer)
    : m_connection(connection), m_defer(std::move(defer)) {
    InternAtoms(m_connection, {{"CLIPBOARD", &m_clipboard},
                               {"TARGETS", &m_targets},
                               {"UTF8_STRING", &m_utf8},
                               {"TEXT", &m_text},
                               {"image/png", &m_png},
                               {"INCR", &m_incr},
                               {"WIN_CLIPBOARD_DATA", &m_property}});
    // The core protocol's limit, or the extended one if that is smaller:
    // requestors that read with the core limit in mind get no property they
    // cannot take whole.
    const std::size_t extended = std::size_t{xcb_get_maximum_request_length(m_connection)} * 4;
    const std::size_t core = std::size_t{xcb_get_setup(m_connection)->maximum_request_length} * 4;
    m_pieceBytes = std::min(extended, core) - kRequestHeader;
    m_sender = std::make_unique<X11IncrSender>(m_connection, m_incr);
    // An unmapped window of our own owns the selection and receives the
    // data other programs send; property changes pace increments.
    m_window = xcb_generate_id(m_connection);
    const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, screen->root, -10, -10, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, XCB_CW_EVENT_MASK, &mask);
}

X11Clipboard::~X11Clipboard() {
    if (!xcb_connection_has_error(m_connection)) {
        if (m_owned)
            xcb_set_selection_owner(m_connection, XCB_NONE, m_clipboard, XCB_CURRENT_TIME);
        xcb_destroy_window(m_connection, m_window);
        xcb_flush(m_connection);
    }
}

void X11Clipboard::Claim() {
    xcb_set_selection_owner(m_connection, m_window, m_clipboard, XCB_CURRENT_TIME);
    xcb_flush(m_connection);
    m_owned = true;
}

xcb_window_t X11Clipboard::CurrentOwner() {
    std::unique_ptr<xcb_get_selection_owner_reply_t, Freed> reply(xcb_get_selection_owner_reply(
        m_connection, xcb_get_selection_owner(m_connection, m_clipboard), nullptr));
    return reply ? reply->owner : static_cast<xcb_window_t>(XCB_NONE);
}

void X11Clipboard::Verify() {
    if (m_owned && !xcb_connection_has_error(m_connection) && CurrentOwner() != m_window)
        Lose();
}

void X11Clipboard::Lose() {
    m_owned = false;
    if (m_offer)
        m_offer->Lost();
}

std::optional<std::u16string> X11Clipboard::FetchText() {
    const xcb_window_t owner = CurrentOwner();
    // An owner that let a request go unanswered is not asked again: every
    // ask would stall the program for the whole wait.
    if (m_owned || owner == XCB_NONE || owner == m_window || owner == m_silentOwner)
        return std::nullopt;
    bool answered = true;
    if (std::optional<std::string> utf8 = Fetch(m_utf8, &answered))
        return FromDisplayText(platform::FromUtf8(*utf8).Str());
    if (answered)
        if (std::optional<std::string> latin1 = Fetch(XCB_ATOM_STRING, &answered))
            return FromDisplayText(FromLatin1(*latin1));
    if (!answered)
        m_silentOwner = owner;
    return std::nullopt;
}

xcb_generic_event_t* X11Clipboard::Await(const std::function<bool(xcb_generic_event_t*)>& wanted) {
    xcb_flush(m_connection);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(kAnswerMs);
    for (;;) {
        while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection)) {
            if (wanted(event))
                return event;
            if (Handle(event))
                free(event);
            else
                m_defer(event);
        }
        if (xcb_connection_has_error(m_connection))
            return nullptr;
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
                              deadline - std::chrono::steady_clock::now())
                              .count();
        if (left <= 0)
            return nullptr;
        pollfd fd{xcb_get_file_descriptor(m_connection), POLLIN, 0};
        poll(&fd, 1, static_cast<int>(left));
    }
}

std::optional<std::string> X11Clipboard::Fetch(xcb_atom_t target, bool* answered) {
    xcb_delete_property(m_connection, m_window, m_property);
    xcb_convert_selection(m_connection, m_window, m_clipboard, target, m_property,
                          XCB_CURRENT_TIME);
    std::unique_ptr<xcb_generic_event_t, Freed> notice(Await([&](xcb_generic_event_t* event) {
        if ((event->response_type & 0x7F) != XCB_SELECTION_NOTIFY)
            return false;
        auto* notify = reinterpret_cast<xcb_selection_notify_event_t*>(event);
        return notify->requestor == m_window && notify->selection == m_clipboard &&
               notify->target == target;
    }));
    *answered = notice != nullptr;
    if (!notice ||
        reinterpret_cast<xcb_selection_notify_event_t*>(notice.get())->property == XCB_NONE)
        return std::nullopt;
    std::unique_ptr<xcb_get_property_reply_t, Freed> reply(
        xcb_get_property_reply(m_connection,
                               xcb_get_property(m_connection, 1, m_window, m_property,
                                                XCB_GET_PROPERTY_TYPE_ANY, 0, kMostBytes / 4),
                               nullptr));
    if (!reply || (reply->format != 8 && reply->type != m_incr))
        return std::nullopt;
    if (reply->type == m_incr)
        return FetchIncrements();
    if (reply->bytes_after)
        return std::nullopt;
    return std::string(static_cast<const char*>(xcb_get_property_value(reply.get())),
                       static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
}

// Deleting the INCR property (done by reading it) asks for the first piece;
// each piece is written to the property and read with deletion, and an empty
// piece ends the transfer.
std::optional<std::string> X11Clipboard::FetchIncrements() {
    std::string data;
    for (;;) {
        std::unique_ptr<xcb_generic_event_t, Freed> notice(Await([&](xcb_generic_event_t* event) {
            if ((event->response_type & 0x7F) != XCB_PROPERTY_NOTIFY)
                return false;
            auto* property = reinterpret_cast<xcb_property_notify_event_t*>(event);
            return property->window == m_window && property->atom == m_property &&
                   property->state == XCB_PROPERTY_NEW_VALUE;
        }));
        if (!notice)
            return std::nullopt;
        std::unique_ptr<xcb_get_property_reply_t, Freed> reply(
            xcb_get_property_reply(m_connection,
                                   xcb_get_property(m_connection, 1, m_window, m_property,
                                                    XCB_GET_PROPERTY_TYPE_ANY, 0, kMostBytes / 4),
                                   nullptr));
        if (!reply)
            return std::nullopt;
        // A notice left over from before the piece was read.
        if (reply->type == XCB_NONE)
            continue;
        const auto length = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
        if (reply->format != 8 && length)
            return std::nullopt;
        if (length == 0)
            return data;
        if (reply->bytes_after || data.size() + length > kMostBytes)
            return std::nullopt;
        data.append(static_cast<const char*>(xcb_get_property_value(reply.get())), length);
    }
}

bool X11Clipboard::Handle(xcb_generic_event_t* event) {
    if (m_sender->Handle(event))
        return true;
    switch (event->response_type & 0x7F) {
    case XCB_SELECTION_REQUEST:
        Serve(*reinterpret_cast<xcb_selection_request_event_t*>(event));
        return true;
    case XCB_SELECTION_CLEAR: {
        auto* clear = reinterpret_cast<xcb_selection_clear_event_t*>(event);
        if (clear->owner == m_window && clear->selection == m_clipboard && m_owned)
            Lose();
        return true;
    }
    case XCB_SELECTION_NOTIFY:
        // An answer that came after its request gave up.
        return reinterpret_cast<xcb_selection_notify_event_t*>(event)->requestor == m_window;
    case XCB_PROPERTY_NOTIFY:
        return reinterpret_cast<xcb_property_notify_event_t*>(event)->window == m_window;
    default:
        return false;
    }
}

bool X11Clipboard::Convert(xcb_atom_t target, std::string* bytes, xcb_atom_t* type,
                           uint8_t* format) {
    *format = 8;
    if (target == m_targets) {
        std::vector<xcb_atom_t> targets{m_targets};
        if (m_offer->Text())
            targets.insert(targets.end(), {m_utf8, XCB_ATOM_STRING, m_text});
        if (m_offer->HasPicture())
            targets.push_back(m_png);
        bytes->assign(reinterpret_cast<const char*>(targets.data()),
                      targets.size() * sizeof(xcb_atom_t));
        *type = XCB_ATOM_ATOM;
        *format = 32;
        return true;
    }
    if (target == m_utf8 || target == XCB_ATOM_STRING || target == m_text) {
        std::optional<std::u16string> text = m_offer->Text();
        if (!text)
            return false;
        const std::u16string plain = ToDisplayText(*text);
        // TEXT leaves the encoding to us: Latin-1 when it fits, else UTF-8.
        const bool latin1 = target == XCB_ATOM_STRING || (target == m_text && FitsLatin1(plain));
        *bytes = latin1 ? ToLatin1(plain) : platform::ToUtf8(plain);
        *type = latin1 ? static_cast<xcb_atom_t>(XCB_ATOM_STRING) : m_utf8;
        return true;
    }
    if (target == m_png) {
        *bytes = m_offer->Png();
        *type = m_png;
        return !bytes->empty();
    }
    return false;
}

void X11Clipboard::Serve(const xcb_selection_request_event_t& request) {
    // Old clients name no property: the target's name serves as one.
    const xcb_atom_t property = request.property ? request.property : request.target;
    bool given = false;
    if (m_owned && m_offer && request.selection == m_clipboard) {
        std::string bytes;
        xcb_atom_t type = XCB_NONE;
        uint8_t format = 8;
        if (Convert(request.target, &bytes, &type, &format)) {
            if (bytes.size() <= m_pieceBytes) {
                xcb_change_property(
                    m_connection, XCB_PROP_MODE_REPLACE, request.requestor, property, type, format,
                    static_cast<uint32_t>(bytes.size() / (format / 8)), bytes.data());
                given = true;
            } else if (format == 8) {
                // Too big for one request: the requestor takes it in pieces.
                given = m_sender->Start(request.requestor, property, type, std::move(bytes),
                                        m_pieceBytes);
            }
        }
    }
    xcb_selection_notify_event_t notify{};
    notify.response_type = XCB_SELECTION_NOTIFY;
    notify.time = request.time;
    notify.requestor = request.requestor;
    notify.selection = request.selection;
    notify.target = request.target;
    notify.property = given ? property : static_cast<xcb_atom_t>(XCB_NONE);
    // SendEvent always takes 32 bytes.
    char wire[32] = {};
    std::memcpy(wire, &notify, sizeof notify);
    xcb_send_event(m_connection, 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, wire);
    xcb_flush(m_connection);
}

} // namespace platform::display::x11
