// Connecting to the display and keeping its windows in step with the
// desktop. PutImage over the ordinary connection works with every server,
// local or remote; since only the rows that changed since the last copy are
// sent, the traffic stays small without shared memory.
#include "display/x11/X11Backend.h"

#include "display/x11/X11Atoms.h"
#include "gdi/DeviceContext.h"
#include "user/ForeignWindows.h"
#include "user/WindowManager.h"

#include <platform/CodePage.h>

#include <algorithm>
#include <cstring>

namespace platform::display {

std::unique_ptr<Backend> CreateX11Backend(const char* name, std::string* error) {
    return x11::X11Backend::Connect(name, error);
}

} // namespace platform::display

namespace platform::display::x11 {
namespace {

constexpr uint32_t kEventMask =
    XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE |
    XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE | XCB_EVENT_MASK_POINTER_MOTION |
    XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_LEAVE_WINDOW;

constexpr SIZE kSmallestDesktop{640, 480};
// WM_NORMAL_HINTS flags and the gravity that places the window itself.
constexpr uint32_t kUserPosition = 1;
constexpr uint32_t kUserSize = 2;
constexpr uint32_t kWinGravity = 512;
constexpr uint32_t kStaticGravity = 10;
// _MOTIF_WM_HINTS: its decorations field is set.
constexpr uint32_t kMotifDecorationsFlag = 2;
constexpr SIZE kLargestDesktop{7680, 4320};

bool SameRect(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

int Width(const RECT& r) {
    return std::max(1, static_cast<int>(r.right - r.left));
}

int Height(const RECT& r) {
    return std::max(1, static_cast<int>(r.bottom - r.top));
}

} // namespace

std::unique_ptr<Backend> X11Backend::Connect(const char* name, std::string* error) {
    if (!name || !*name) {
        const char* fromEnvironment = std::getenv("DISPLAY");
        if (!fromEnvironment || !*fromEnvironment) {
            if (error)
                *error = "no X11 display: DISPLAY is not set";
            return nullptr;
        }
    }
    int screenNumber = 0;
    xcb_connection_t* connection = xcb_connect(name, &screenNumber);
    if (xcb_connection_has_error(connection)) {
        xcb_disconnect(connection);
        if (error)
            *error = std::string("cannot connect to the X11 display ") +
                     (name && *name ? name : std::getenv("DISPLAY"));
        return nullptr;
    }
    xcb_screen_iterator_t it = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (int i = 0; i < screenNumber && it.rem; ++i)
        xcb_screen_next(&it);
    if (!it.rem) {
        xcb_disconnect(connection);
        if (error)
            *error = "the X11 display has no screen " + std::to_string(screenNumber);
        return nullptr;
    }
    std::unique_ptr<X11Backend> backend(new X11Backend(connection, it.data));
    if (!backend->CheckFormat(error))
        return nullptr;
    // The desktop is the screen: windows go anywhere on it, and a maximised
    // one fills it. (Its surface takes 4 bytes a pixel, so a very large
    // screen is met only in part.)
    user::WindowManager::Instance().ResizeDesktop(
        std::clamp(static_cast<int>(it.data->width_in_pixels), kSmallestDesktop.cx,
                   kLargestDesktop.cx),
        std::clamp(static_cast<int>(it.data->height_in_pixels), kSmallestDesktop.cy,
                   kLargestDesktop.cy));
    return backend;
}

X11Backend::X11Backend(xcb_connection_t* connection, xcb_screen_t* screen)
    : m_connection(connection), m_screen(screen) {
    m_gc = xcb_generate_id(m_connection);
    uint32_t noExposures = 0;
    xcb_create_gc(m_connection, m_gc, m_screen->root, XCB_GC_GRAPHICS_EXPOSURES, &noExposures);
    InternAtoms(m_connection, {{"WM_PROTOCOLS", &m_protocols},
                               {"WM_DELETE_WINDOW", &m_deleteWindow},
                               {"_NET_WM_NAME", &m_netName},
                               {"UTF8_STRING", &m_utf8},
                               {"_MOTIF_WM_HINTS", &m_motifHints}});
    m_maxRequestBytes = xcb_get_maximum_request_length(m_connection) * 4;
    LoadKeyboardMapping();
    OpenClipboard();
    m_foreign = std::make_unique<X11ForeignWindows>(
        m_connection, m_screen, [this](xcb_window_t id) { return FindByWindow(id) != nullptr; });
    user::SetForeign(m_foreign.get());
}

X11Backend::~X11Backend() {
    user::SetForeign(nullptr);
    CloseClipboard();
    for (xcb_generic_event_t* event : m_deferred)
        free(event);
    if (!xcb_connection_has_error(m_connection)) {
        for (auto& [hwnd, shown] : m_shown)
            xcb_destroy_window(m_connection, shown.id);
        xcb_free_gc(m_connection, m_gc);
        xcb_flush(m_connection);
    }
    xcb_disconnect(m_connection);
    user::WindowManager::Instance().ResizeDesktop(gdi::kHeadlessDesktopWidth,
                                                  gdi::kHeadlessDesktopHeight);
}

// The desktop's pixels are 32-bit words in host order with red in bits 16 to
// 23; the display must take them as they are.
bool X11Backend::CheckFormat(std::string* error) const {
    const xcb_setup_t* setup = xcb_get_setup(m_connection);
    const bool hostLittle = [] {
        const uint16_t probe = 1;
        return *reinterpret_cast<const uint8_t*>(&probe) == 1;
    }();
    bool ok = m_screen->root_depth == 24 &&
              (setup->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST) == hostLittle;
    bool thirtyTwoBits = false;
    for (auto f = xcb_setup_pixmap_formats_iterator(setup); f.rem; xcb_format_next(&f))
        if (f.data->depth == 24 && f.data->bits_per_pixel == 32)
            thirtyTwoBits = true;
    ok = ok && thirtyTwoBits;
    if (!ok && error)
        *error = "the X11 display's root window is not 24-bit true colour in 32-bit pixels";
    return ok;
}

void X11Backend::LoadKeyboardMapping() {
    const xcb_setup_t* setup = xcb_get_setup(m_connection);
    m_minKeycode = setup->min_keycode;
    const uint8_t count = static_cast<uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    xcb_get_keyboard_mapping_reply_t* reply = xcb_get_keyboard_mapping_reply(
        m_connection, xcb_get_keyboard_mapping(m_connection, m_minKeycode, count), nullptr);
    m_keysyms.clear();
    m_keysymsPerKeycode = 0;
    if (!reply)
        return;
    m_keysymsPerKeycode = reply->keysyms_per_keycode;
    const xcb_keysym_t* syms = xcb_get_keyboard_mapping_keysyms(reply);
    m_keysyms.assign(syms, syms + xcb_get_keyboard_mapping_keysyms_length(reply));
    free(reply);
}

int X11Backend::Descriptor() const {
    return xcb_get_file_descriptor(m_connection);
}

unsigned X11Backend::WindowOf(HWND hwnd) const {
    auto it = m_shown.find(hwnd);
    return it == m_shown.end() ? 0 : it->second.id;
}

HWND X11Backend::FindByWindow(xcb_window_t id) const {
    for (const auto& [hwnd, shown] : m_shown)
        if (shown.id == id)
            return hwnd;
    return nullptr;
}

X11Backend::Shown& X11Backend::Create(HWND hwnd) {
    Shown& shown = m_shown[hwnd];
    shown.id = xcb_generate_id(m_connection);
    user::Window* window = user::WindowManager::Instance().Find(hwnd);
    shown.rect = window->rect;
    // An owned pop-up without a caption (a menu, a combo box's list) is the
    // program's own to place: the window manager leaves it undecorated where
    // it is and does not give it the focus.
    const bool ownPopup =
        window->owner && (window->style & WS_POPUP) && (window->style & WS_CAPTION) != WS_CAPTION;
    const uint32_t values[] = {ownPopup ? 1u : 0u, kEventMask};
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, shown.id, m_screen->root,
                      static_cast<int16_t>(shown.rect.left), static_cast<int16_t>(shown.rect.top),
                      static_cast<uint16_t>(Width(shown.rect)),
                      static_cast<uint16_t>(Height(shown.rect)), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      m_screen->root_visual, XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, shown.id, m_protocols, XCB_ATOM_ATOM,
                        32, 1, &m_deleteWindow);
    static const char kClass[] = "win\0Win";
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, shown.id, XCB_ATOM_WM_CLASS,
                        XCB_ATOM_STRING, 8, sizeof kClass, kClass);
    // The window draws its own frame (caption, close box, sizing edges),
    // which answers the mouse as the original's does: a window manager adds
    // none of its own, or the window would show two captions. (One that
    // ignores the request still frames it, and its close button still sends
    // WM_CLOSE.)
    const uint32_t noDecorations[5] = {kMotifDecorationsFlag, 0, 0, 0, 0};
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, shown.id, m_motifHints, m_motifHints,
                        32, 5, noDecorations);
    return shown;
}

void X11Backend::SyncWindow(HWND hwnd, Shown& shown) {
    user::Window* window = user::WindowManager::Instance().Find(hwnd);
    if (!SameRect(shown.rect, window->rect) || shown.sent.empty()) {
        if (!SameRect(shown.rect, window->rect)) {
            shown.rect = window->rect;
            const uint32_t values[] = {static_cast<uint32_t>(shown.rect.left),
                                       static_cast<uint32_t>(shown.rect.top),
                                       static_cast<uint32_t>(Width(shown.rect)),
                                       static_cast<uint32_t>(Height(shown.rect))};
            const xcb_void_cookie_t cookie =
                xcb_configure_window(m_connection, shown.id,
                                     XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y |
                                         XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                                     values);
            shown.configureSequence = static_cast<uint16_t>(cookie.sequence);
            shown.configured = true;
            shown.sent.clear();
        }
        // Where the program put the window and how big: the window manager
        // keeps both (WM_NORMAL_HINTS with user position and size). Static
        // gravity: the position is the window's own, not its frame's, so a
        // position the manager reported comes back to the same place.
        uint32_t hints[18] = {};
        hints[0] = kUserPosition | kUserSize | kWinGravity;
        hints[17] = kStaticGravity;
        hints[1] = static_cast<uint32_t>(shown.rect.left);
        hints[2] = static_cast<uint32_t>(shown.rect.top);
        hints[3] = static_cast<uint32_t>(Width(shown.rect));
        hints[4] = static_cast<uint32_t>(Height(shown.rect));
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, shown.id, XCB_ATOM_WM_NORMAL_HINTS,
                            XCB_ATOM_WM_SIZE_HINTS, 32, 18, hints);
    }
    if (shown.title != window->text) {
        shown.title = window->text;
        const std::string utf8 = ToUtf8(shown.title);
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, shown.id, m_netName, m_utf8, 8,
                            static_cast<uint32_t>(utf8.size()), utf8.data());
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, shown.id, XCB_ATOM_WM_NAME, m_utf8,
                            8, static_cast<uint32_t>(utf8.size()), utf8.data());
    }
    // An owned window (a dialog, a message box) stays above its owner.
    HWND owner =
        window->owner ? user::WindowManager::Instance().TopLevel(window->owner)->handle : nullptr;
    if (owner != shown.owner) {
        auto ownerShown = m_shown.find(owner);
        if (!owner || ownerShown != m_shown.end()) {
            shown.owner = owner;
            if (owner)
                xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, shown.id,
                                    XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 32, 1,
                                    &ownerShown->second.id);
            else
                xcb_delete_property(m_connection, shown.id, XCB_ATOM_WM_TRANSIENT_FOR);
        }
    }
    if (!shown.mapped) {
        xcb_map_window(m_connection, shown.id);
        shown.mapped = true;
    }
}

// The X windows are stacked as their windows are, each raised in turn from
// the bottom up whenever the order changed. Without a window manager nothing
// else would; with one, the requests let it keep owned windows above their
// owners as the program stacked them.
void X11Backend::Restack() {
    user::WindowManager& manager = user::WindowManager::Instance();
    std::vector<xcb_window_t> order;
    for (user::Window* window : manager.TopLevel()) {
        auto it = m_shown.find(window->handle);
        if (it != m_shown.end() && it->second.mapped)
            order.push_back(it->second.id);
    }
    if (order == m_stacked)
        return;
    m_stacked = order;
    const uint32_t above = XCB_STACK_MODE_ABOVE;
    for (auto it = order.rbegin(); it != order.rend(); ++it)
        xcb_configure_window(m_connection, *it, XCB_CONFIG_WINDOW_STACK_MODE, &above);
}

void X11Backend::Forget(std::map<HWND, Shown>::iterator it) {
    xcb_destroy_window(m_connection, it->second.id);
    m_shown.erase(it);
}

void X11Backend::Update() {
    if (xcb_connection_has_error(m_connection))
        return;
    user::WindowManager& manager = user::WindowManager::Instance();
    for (auto it = m_shown.begin(); it != m_shown.end();) {
        user::Window* window = manager.Find(it->first);
        auto next = std::next(it);
        if (!window || window->parent != manager.Desktop() || window->destroying)
            Forget(it);
        else if (!manager.IsShown(window) && it->second.mapped) {
            xcb_unmap_window(m_connection, it->second.id);
            it->second.mapped = false;
            it->second.sent.clear();
        }
        it = next;
    }
    // Every shown window has its X window before any is synced, so an owned
    // window finds its owner's.
    for (user::Window* window : manager.TopLevel())
        if (manager.IsShown(window) && !window->destroying && !m_shown.count(window->handle))
            Create(window->handle);
    const RECT changed = gdi::TakeDesktopChanges();
    for (user::Window* window : manager.TopLevel()) {
        if (!manager.IsShown(window) || window->destroying)
            continue;
        Shown& shown = m_shown[window->handle];
        SyncWindow(window->handle, shown);
        SendPixels(window, shown, changed);
    }
    Restack();
    xcb_flush(m_connection);
}

} // namespace platform::display::x11
