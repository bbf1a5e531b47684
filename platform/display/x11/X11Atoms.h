// Atoms interned by name in one round trip.
#pragma once

#include <xcb/xcb.h>

#include <initializer_list>

namespace platform::display::x11 {

struct AtomName {
    const char* name;
    xcb_atom_t* atom;
};

// Sends every request before waiting for the first reply, so a dozen atoms
// cost one round trip to the server rather than twelve. An atom the server
// does not answer for is XCB_ATOM_NONE.
void InternAtoms(xcb_connection_t* connection, std::initializer_list<AtomName> atoms);

} // namespace platform::display::x11
