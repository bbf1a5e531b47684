// The sending side of the INCR protocol. The requestor deletes the INCR
// property to ask for the first piece and each piece to ask for the next; an
// empty piece ends the transfer.
#include "display/x11/X11IncrSender.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <memory>

namespace platform::display::x11 {
namespace {

struct Freed {
    void operator()(void* p) const { free(p); }
};

constexpr uint32_t kWatchMask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;

} // namespace

X11IncrSender::X11IncrSender(xcb_connection_t* connection, xcb_atom_t incr)
    : m_connection(connection), m_incr(incr) {}

void X11IncrSender::Watch(xcb_window_t window, uint32_t mask) {
    xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &mask);
}

bool X11IncrSender::Start(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type,
                          std::string bytes, std::size_t piece) {
    if (piece == 0 || bytes.size() > std::numeric_limits<uint32_t>::max())
        return false;
    Expire();
    // A new request for the same property replaces the transfer under way;
    // another transfer to the requestor already knows its old selection.
    bool watched = false;
    uint32_t previousMask = 0;
    for (std::size_t i = 0; i < m_transfers.size();) {
        Transfer& transfer = m_transfers[i];
        if (transfer.requestor != requestor) {
            ++i;
            continue;
        }
        watched = true;
        previousMask = transfer.previousMask;
        if (transfer.property == property)
            m_transfers.erase(m_transfers.begin() + static_cast<std::ptrdiff_t>(i));
        else
            ++i;
    }
    if (!watched) {
        std::unique_ptr<xcb_get_window_attributes_reply_t, Freed> attributes(
            xcb_get_window_attributes_reply(
                m_connection, xcb_get_window_attributes(m_connection, requestor), nullptr));
        if (!attributes)
            return false;
        previousMask = attributes->your_event_mask;
        // Watched before the INCR property is written, so that its deletion
        // cannot come unseen.
        const uint32_t mask = previousMask | kWatchMask;
        std::unique_ptr<xcb_generic_error_t, Freed> error(xcb_request_check(
            m_connection, xcb_change_window_attributes_checked(m_connection, requestor,
                                                               XCB_CW_EVENT_MASK, &mask)));
        if (error)
            return false;
    }
    const auto size = static_cast<uint32_t>(bytes.size());
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, requestor, property, m_incr, 32, 1,
                        &size);
    Transfer transfer;
    transfer.requestor = requestor;
    transfer.property = property;
    transfer.type = type;
    transfer.bytes = std::move(bytes);
    transfer.piece = piece;
    transfer.previousMask = previousMask;
    transfer.deadline = std::chrono::steady_clock::now() + kPieceWait;
    m_transfers.push_back(std::move(transfer));
    return true;
}

bool X11IncrSender::SendPiece(Transfer& transfer) {
    const std::size_t n = std::min(transfer.piece, transfer.bytes.size() - transfer.sent);
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, transfer.requestor, transfer.property,
                        transfer.type, 8, static_cast<uint32_t>(n),
                        transfer.bytes.data() + transfer.sent);
    transfer.sent += n;
    transfer.deadline = std::chrono::steady_clock::now() + kPieceWait;
    return n == 0;
}

void X11IncrSender::Finish(std::size_t index) {
    const xcb_window_t requestor = m_transfers[index].requestor;
    const uint32_t previousMask = m_transfers[index].previousMask;
    m_transfers.erase(m_transfers.begin() + static_cast<std::ptrdiff_t>(index));
    const bool more = std::any_of(m_transfers.begin(), m_transfers.end(),
                                  [&](const Transfer& t) { return t.requestor == requestor; });
    if (!more)
        Watch(requestor, previousMask);
}

void X11IncrSender::Expire() {
    if (m_transfers.empty())
        return;
    const auto now = std::chrono::steady_clock::now();
    bool dropped = false;
    for (std::size_t i = m_transfers.size(); i-- > 0;) {
        if (m_transfers[i].deadline <= now) {
            Finish(i);
            dropped = true;
        }
    }
    if (dropped)
        xcb_flush(m_connection);
}

bool X11IncrSender::Handle(const xcb_generic_event_t* event) {
    Expire();
    if (m_transfers.empty())
        return false;
    switch (event->response_type & 0x7F) {
    case XCB_PROPERTY_NOTIFY: {
        const auto* change = reinterpret_cast<const xcb_property_notify_event_t*>(event);
        if (change->state != XCB_PROPERTY_DELETE)
            return false;
        for (std::size_t i = 0; i < m_transfers.size(); ++i) {
            Transfer& transfer = m_transfers[i];
            if (transfer.requestor != change->window || transfer.property != change->atom)
                continue;
            if (SendPiece(transfer))
                Finish(i);
            xcb_flush(m_connection);
            return true;
        }
        return false;
    }
    case XCB_DESTROY_NOTIFY: {
        // The requestor went away: its transfers end, with nothing to undo.
        const xcb_window_t gone =
            reinterpret_cast<const xcb_destroy_notify_event_t*>(event)->window;
        std::erase_if(m_transfers, [&](const Transfer& t) { return t.requestor == gone; });
        return false;
    }
    default:
        return false;
    }
}

} // namespace platform::display::x11
