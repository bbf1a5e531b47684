// Our clipboard data sent to another program in increments (the INCR
// protocol), for data larger than one request can carry. Each transfer is a
// small state machine driven by the requestor's property deletions, so the
// message loop never waits for the requestor: a requestor that stops taking
// pieces is dropped after a while, one that goes away at once.
#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace platform::display::x11 {

class X11IncrSender {
public:
    X11IncrSender(xcb_connection_t* connection, xcb_atom_t incr);
    X11IncrSender(const X11IncrSender&) = delete;
    X11IncrSender& operator=(const X11IncrSender&) = delete;

    // Starts sending bytes of the given type (format 8) to the requestor's
    // property in pieces of at most piece bytes: watches the requestor and
    // writes the INCR property with the total size. The caller then tells
    // the requestor the property is ready. False when the requestor is gone,
    // and the request is to be refused.
    bool Start(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type, std::string bytes,
               std::size_t piece);
    // Handles a property deletion or a destruction on a requestor's window
    // (the next piece, or the end of its transfers); false for any other
    // event. Transfers that waited too long are dropped first.
    bool Handle(const xcb_generic_event_t* event);
    // Drops transfers whose requestor took no piece in time.
    void Expire();
    std::size_t Active() const { return m_transfers.size(); }

    // How long a requestor may take to ask for the next piece.
    static constexpr std::chrono::milliseconds kPieceWait{3000};

private:
    struct Transfer {
        xcb_window_t requestor = 0;
        xcb_atom_t property = 0;
        xcb_atom_t type = 0;
        std::string bytes;
        std::size_t sent = 0;
        std::size_t piece = 0;
        // Our own event selection on the requestor before any transfer to it.
        uint32_t previousMask = 0;
        std::chrono::steady_clock::time_point deadline;
    };

    // Sends the next piece, or the empty one that ends the transfer; true
    // when the transfer is over.
    bool SendPiece(Transfer& transfer);
    // Forgets the transfer at index, restoring our old event selection on
    // its requestor when no other transfer to it is left.
    void Finish(std::size_t index);
    void Watch(xcb_window_t window, uint32_t mask);

    xcb_connection_t* m_connection;
    xcb_atom_t m_incr;
    std::vector<Transfer> m_transfers;
};

} // namespace platform::display::x11
