// The display's CLIPBOARD selection: taking and losing ownership, answering
// other programs' requests for our data (in increments when it is too large
// for one request), and fetching theirs. Every wait for another program ends
// after a second, so a program that never answers cannot hang ours.
#pragma once

#include "display/x11/X11IncrSender.h"

#include <xcb/xcb.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace platform::display::x11 {

// What our side of the selection offers, asked when a request comes in.
class ClipboardOffer {
public:
    virtual ~ClipboardOffer() = default;
    // The text on offer, if any.
    virtual std::optional<std::u16string> Text() const = 0;
    // The picture on offer as PNG bytes; empty when there is none.
    virtual std::string Png() const = 0;
    virtual bool HasPicture() const = 0;
    // Another program took the selection: our data is no longer the clipboard.
    virtual void Lost() = 0;
};

class X11Clipboard {
public:
    // Takes events that arrive while waiting for another program and are
    // not the clipboard's, to be handled later; it frees them.
    using Defer = std::function<void(xcb_generic_event_t*)>;

    X11Clipboard(xcb_connection_t* connection, xcb_screen_t* screen, Defer defer);
    ~X11Clipboard();
    X11Clipboard(const X11Clipboard&) = delete;
    X11Clipboard& operator=(const X11Clipboard&) = delete;

    void SetOffer(ClipboardOffer* offer) { m_offer = offer; }
    // Makes our offer the display's clipboard.
    void Claim();
    bool Owned() const { return m_owned; }
    // Asks the display who owns the selection, and drops our offer if
    // another program took it, even before its notice arrived.
    void Verify();
    // Another program's text: UTF8_STRING, else STRING. Nothing when there is
    // none, the owner refuses or does not answer in time (and from then on,
    // while it stays the owner).
    std::optional<std::u16string> FetchText();

    // Handles a selection event (requests, loss, stray notices, a requestor
    // taking a piece); false for any other event.
    bool Handle(xcb_generic_event_t* event);
    // Transfers in increments under way.
    std::size_t Sending() const { return m_sender->Active(); }

private:
    xcb_window_t CurrentOwner();
    void Lose();
    // The data of one target, after a request to the owner: whole or in
    // increments. Nothing on refusal, timeout or a broken transfer; *answered
    // tells whether the owner answered the request at all.
    std::optional<std::string> Fetch(xcb_atom_t target, bool* answered);
    std::optional<std::string> FetchIncrements();
    // The first event wanted accepts within a second; others are handled or
    // deferred meanwhile. Null on timeout or a lost connection.
    xcb_generic_event_t* Await(const std::function<bool(xcb_generic_event_t*)>& wanted);
    void Serve(const xcb_selection_request_event_t& request);
    // Our data for target, with the property type to give it; false when we
    // have nothing for that target.
    bool Convert(xcb_atom_t target, std::string* bytes, xcb_atom_t* type, uint8_t* format);

    xcb_connection_t* m_connection;
    Defer m_defer;
    xcb_window_t m_window = 0;
    ClipboardOffer* m_offer = nullptr;
    bool m_owned = false;
    xcb_window_t m_silentOwner = XCB_NONE;
    // The most data one ChangeProperty carries; more goes in increments.
    std::size_t m_pieceBytes = 0;
    std::unique_ptr<X11IncrSender> m_sender;
    xcb_atom_t m_clipboard = 0;
    xcb_atom_t m_targets = 0;
    xcb_atom_t m_utf8 = 0;
    xcb_atom_t m_text = 0;
    xcb_atom_t m_png = 0;
    xcb_atom_t m_incr = 0;
    xcb_atom_t m_property = 0;
};

} // namespace platform::display::x11
