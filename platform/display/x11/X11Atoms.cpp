#include "display/x11/X11Atoms.h"

#include <cstdlib>
#include <cstring>
#include <vector>

namespace platform::display::x11 {

void InternAtoms(xcb_connection_t* connection, std::initializer_list<AtomName> atoms) {
    std::vector<xcb_intern_atom_cookie_t> cookies;
    cookies.reserve(atoms.size());
    for (const AtomName& atom : atoms)
        cookies.push_back(xcb_intern_atom(
            connection, 0, static_cast<uint16_t>(std::strlen(atom.name)), atom.name));
    std::size_t i = 0;
    for (const AtomName& atom : atoms) {
        xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(connection, cookies[i++], nullptr);
        *atom.atom = reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
        free(reply);
    }
}

} // namespace platform::display::x11
