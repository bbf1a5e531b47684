#include "display/x11/X11ForeignWindows.h"

#include "display/x11/X11Atoms.h"
#include "display/x11/X11ClipboardText.h"

#include <platform/CodePage.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace platform::display::x11 {
namespace {

struct Freed {
    void operator()(void* p) const { free(p); }
};

constexpr uint32_t kIconicState = 3;
// _NET_ACTIVE_WINDOW's source: a request on the user's behalf, which window
// managers grant where they may refuse a program's own.
constexpr uint32_t kSourcePager = 2;

std::vector<xcb_window_t> Windows(const std::string& bytes) {
    std::vector<xcb_window_t> windows(bytes.size() / sizeof(xcb_window_t));
    // A window manager with no clients lists none.
    if (!windows.empty())
        std::memcpy(windows.data(), bytes.data(), windows.size() * sizeof(xcb_window_t));
    return windows;
}

} // namespace

X11ForeignWindows::X11ForeignWindows(xcb_connection_t* connection, xcb_screen_t* screen,
                                     std::function<bool(xcb_window_t)> ours)
    : m_connection(connection), m_root(screen->root), m_ours(std::move(ours)) {
    InternAtoms(m_connection, {{"_NET_CLIENT_LIST", &m_clientList},
                               {"_NET_CLIENT_LIST_STACKING", &m_clientStacking},
                               {"_NET_SUPPORTING_WM_CHECK", &m_wmCheck},
                               {"_NET_ACTIVE_WINDOW", &m_activeWindow},
                               {"_NET_WM_NAME", &m_netName},
                               {"UTF8_STRING", &m_utf8},
                               {"WM_STATE", &m_wmState}});
}

HWND X11ForeignWindows::HandleOf(xcb_window_t window) {
    // Our own handles are multiples of four; these never are.
    return reinterpret_cast<HWND>((static_cast<uintptr_t>(window) << 2) | 2);
}

xcb_window_t X11ForeignWindows::WindowOf(HWND hwnd) {
    const auto value = reinterpret_cast<uintptr_t>(hwnd);
    if ((value & 3) != 2 || (value >> 2) > UINT32_MAX)
        return 0;
    return static_cast<xcb_window_t>(value >> 2);
}

std::optional<X11ForeignWindows::Property> X11ForeignWindows::Read(xcb_window_t window,
                                                                   xcb_atom_t atom) {
    xcb_generic_error_t* error = nullptr;
    std::unique_ptr<xcb_get_property_reply_t, Freed> reply(xcb_get_property_reply(
        m_connection,
        xcb_get_property(m_connection, 0, window, atom, XCB_GET_PROPERTY_TYPE_ANY, 0, 1 << 16),
        &error));
    free(error);
    if (!reply)
        return std::nullopt;
    Property property;
    property.type = reply->type;
    property.format = reply->format;
    property.bytes.assign(static_cast<const char*>(xcb_get_property_value(reply.get())),
                          static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
    return property;
}

// _NET_WM_NAME in UTF-8 first; else WM_NAME, in UTF-8 or Latin-1 as its
// type says.
std::optional<std::u16string> X11ForeignWindows::NameOf(xcb_window_t window) {
    std::optional<Property> name = Read(window, m_netName);
    if (!name)
        return std::nullopt;
    if (name->type == m_utf8 && !name->bytes.empty())
        return platform::FromUtf8(name->bytes).Str();
    name = Read(window, XCB_ATOM_WM_NAME);
    if (!name)
        return std::nullopt;
    if (name->type == m_utf8)
        return platform::FromUtf8(name->bytes).Str();
    return FromLatin1(name->bytes);
}

bool X11ForeignWindows::HasWindowManager() {
    std::optional<Property> check = Read(m_root, m_wmCheck);
    return check && check->type == XCB_ATOM_WINDOW && check->bytes.size() >= 4;
}

// The client list topmost first when a window manager keeps one, else the
// root's children, which the display gives bottom first.
std::vector<xcb_window_t> X11ForeignWindows::Candidates(bool* managed) {
    *managed = true;
    for (xcb_atom_t list : {m_clientStacking, m_clientList}) {
        std::optional<Property> clients = Read(m_root, list);
        if (clients && clients->type == XCB_ATOM_WINDOW && clients->format == 32) {
            std::vector<xcb_window_t> windows = Windows(clients->bytes);
            if (list == m_clientStacking)
                std::reverse(windows.begin(), windows.end());
            return windows;
        }
    }
    *managed = false;
    std::unique_ptr<xcb_query_tree_reply_t, Freed> tree(
        xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, m_root), nullptr));
    if (!tree)
        return {};
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    std::vector<xcb_window_t> windows(children,
                                      children + xcb_query_tree_children_length(tree.get()));
    std::reverse(windows.begin(), windows.end());
    return windows;
}

std::vector<HWND> X11ForeignWindows::TopLevel() {
    bool managed = false;
    std::vector<HWND> handles;
    for (xcb_window_t window : Candidates(&managed)) {
        if (m_ours(window))
            continue;
        // Without a manager the root has many helper windows; a program's
        // own top-level windows are the named ones.
        if (!managed) {
            std::optional<std::u16string> name = NameOf(window);
            if (!name || name->empty())
                continue;
        }
        handles.push_back(HandleOf(window));
    }
    return handles;
}

bool X11ForeignWindows::Exists(HWND hwnd) {
    const xcb_window_t window = WindowOf(hwnd);
    if (!window || m_ours(window))
        return false;
    xcb_generic_error_t* error = nullptr;
    std::unique_ptr<xcb_get_window_attributes_reply_t, Freed> reply(xcb_get_window_attributes_reply(
        m_connection, xcb_get_window_attributes(m_connection, window), &error));
    free(error);
    return reply != nullptr;
}

bool X11ForeignWindows::Title(HWND hwnd, std::u16string* title) {
    const xcb_window_t window = WindowOf(hwnd);
    if (!window || m_ours(window))
        return false;
    std::optional<std::u16string> name = NameOf(window);
    if (!name)
        return false;
    *title = std::move(*name);
    return true;
}

bool X11ForeignWindows::Activate(HWND hwnd) {
    if (!Exists(hwnd))
        return false;
    const xcb_window_t window = WindowOf(hwnd);
    if (HasWindowManager()) {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window;
        message.type = m_activeWindow;
        message.data.data32[0] = kSourcePager;
        message.data.data32[1] = XCB_CURRENT_TIME;
        xcb_send_event(m_connection, 0, m_root,
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char*>(&message));
    } else {
        const uint32_t above = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(m_connection, window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
        // The focus can only go to a window that is shown.
        xcb_generic_error_t* error = nullptr;
        std::unique_ptr<xcb_get_window_attributes_reply_t, Freed> attributes(
            xcb_get_window_attributes_reply(
                m_connection, xcb_get_window_attributes(m_connection, window), &error));
        free(error);
        if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE)
            xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    }
    xcb_flush(m_connection);
    return true;
}

bool X11ForeignWindows::Iconic(HWND hwnd) {
    const xcb_window_t window = WindowOf(hwnd);
    if (!window || m_ours(window))
        return false;
    std::optional<Property> state = Read(window, m_wmState);
    if (!state || state->format != 32 || state->bytes.size() < 4)
        return false;
    uint32_t value = 0;
    std::memcpy(&value, state->bytes.data(), 4);
    return value == kIconicState;
}

} // namespace platform::display::x11
