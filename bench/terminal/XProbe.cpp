#include "XProbe.h"

#include <xcb/xtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

XProbe::XProbe(const std::string& display) {
    xcb_connection_t* connection = xcb_connect(display.c_str(), nullptr);
    if (xcb_connection_has_error(connection)) {
        xcb_disconnect(connection);
        return;
    }
    m_connection = connection;
    m_root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

XProbe::~XProbe() {
    if (m_connection)
        xcb_disconnect(m_connection);
}

bool XProbe::NameContains(xcb_window_t window, const std::string& text) {
    xcb_get_property_reply_t* name =
        xcb_get_property_reply(m_connection,
                               xcb_get_property(m_connection, 0, window, XCB_ATOM_WM_NAME,
                                                XCB_GET_PROPERTY_TYPE_ANY, 0, 1024),
                               nullptr);
    bool found = false;
    if (name) {
        std::string value(static_cast<const char*>(xcb_get_property_value(name)),
                          static_cast<std::size_t>(xcb_get_property_value_length(name)));
        found = value.find(text) != std::string::npos;
    }
    free(name);
    return found;
}

xcb_window_t XProbe::FindWindow(const std::string& text) {
    if (!m_connection)
        return 0;
    std::vector<xcb_window_t> pending{m_root};
    while (!pending.empty()) {
        const xcb_window_t parent = pending.back();
        pending.pop_back();
        xcb_query_tree_reply_t* tree =
            xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, parent), nullptr);
        if (!tree)
            continue;
        const xcb_window_t* children = xcb_query_tree_children(tree);
        const int count = xcb_query_tree_children_length(tree);
        for (int i = 0; i < count; ++i) {
            xcb_get_window_attributes_reply_t* attributes = xcb_get_window_attributes_reply(
                m_connection, xcb_get_window_attributes(m_connection, children[i]), nullptr);
            const bool viewable = attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
            free(attributes);
            if (!viewable)
                continue;
            if (NameContains(children[i], text)) {
                const xcb_window_t found = children[i];
                free(tree);
                return found;
            }
            if (parent == m_root)
                pending.push_back(children[i]);
        }
        free(tree);
    }
    return 0;
}

XProbe::Band XProbe::Whole(xcb_window_t window) {
    xcb_get_geometry_reply_t* geometry =
        xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr);
    if (!geometry)
        return {};
    m_measured = window;
    m_width = geometry->width;
    const Band whole{0, geometry->height};
    free(geometry);
    return whole;
}

std::vector<uint8_t> XProbe::Pixels(xcb_window_t window, Band band) {
    std::vector<uint8_t> pixels;
    if (window != m_measured && Whole(window).height == 0)
        return pixels;
    xcb_get_image_reply_t* image =
        xcb_get_image_reply(m_connection,
                            xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0,
                                          static_cast<int16_t>(band.top), m_width,
                                          static_cast<uint16_t>(band.height), ~0u),
                            nullptr);
    if (image) {
        const uint8_t* data = xcb_get_image_data(image);
        pixels.assign(data, data + xcb_get_image_data_length(image));
    }
    free(image);
    return pixels;
}

XProbe::Band XProbe::ChangedRows(const std::vector<uint8_t>& before,
                                 const std::vector<uint8_t>& after, Band band, int margin) {
    if (band.height <= 0 || before.size() != after.size() || before.empty())
        return {};
    const std::size_t stride = before.size() / static_cast<std::size_t>(band.height);
    int first = -1, last = -1;
    for (int row = 0; row < band.height; ++row) {
        const std::size_t offset = static_cast<std::size_t>(row) * stride;
        if (std::memcmp(before.data() + offset, after.data() + offset, stride) != 0) {
            if (first < 0)
                first = row;
            last = row;
        }
    }
    if (first < 0)
        return {};
    const int top = std::max(0, first - margin);
    const int bottom = std::min(band.height, last + 1 + margin);
    return {band.top + top, bottom - top};
}

void XProbe::Focus(xcb_window_t window) {
    xcb_warp_pointer(m_connection, XCB_NONE, window, 0, 0, 0, 0, 20, 20);
    xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
    free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

bool XProbe::TypeKey(char ch) {
    uint8_t& keycode = m_keycodes[static_cast<unsigned char>(ch)];
    if (!keycode)
        keycode = Keycode(ch);
    if (!keycode)
        return false;
    xcb_test_fake_input(m_connection, XCB_KEY_PRESS, keycode, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    xcb_test_fake_input(m_connection, XCB_KEY_RELEASE, keycode, XCB_CURRENT_TIME, XCB_NONE, 0, 0,
                        0);
    xcb_flush(m_connection);
    return true;
}

uint8_t XProbe::Keycode(char ch) {
    const xcb_setup_t* setup = xcb_get_setup(m_connection);
    const uint8_t first = setup->min_keycode;
    const uint8_t count = static_cast<uint8_t>(setup->max_keycode - first + 1);
    xcb_get_keyboard_mapping_reply_t* mapping = xcb_get_keyboard_mapping_reply(
        m_connection, xcb_get_keyboard_mapping(m_connection, first, count), nullptr);
    if (!mapping)
        return 0;
    const xcb_keysym_t* keysyms = xcb_get_keyboard_mapping_keysyms(mapping);
    const int perCode = mapping->keysyms_per_keycode;
    uint8_t keycode = 0;
    for (int i = 0; i < count && !keycode; ++i)
        if (keysyms[i * perCode] == static_cast<xcb_keysym_t>(ch))
            keycode = static_cast<uint8_t>(first + i);
    free(mapping);
    return keycode;
}
