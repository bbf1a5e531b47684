// The clipboard as the display's selection while the back end is connected:
// its store is wrapped on connecting and unwrapped, with the program's own
// data kept, on disconnecting.
#include "display/x11/X11Backend.h"
#include "display/x11/X11ClipboardStore.h"

#include "user/Clipboard.h"

namespace platform::display::x11 {

void X11Backend::OpenClipboard() {
    m_clipboard =
        std::make_unique<X11Clipboard>(m_connection, m_screen, [this](xcb_generic_event_t* event) {
            m_deferred.push_back(event);
        });
    user::Clipboard::Instance().ReplaceStore([this](std::unique_ptr<user::ClipboardStore> local) {
        return std::make_unique<X11ClipboardStore>(*m_clipboard, std::move(local));
    });
}

void X11Backend::CloseClipboard() {
    user::Clipboard::Instance().ReplaceStore([](std::unique_ptr<user::ClipboardStore> current) {
        auto* wrapped = dynamic_cast<X11ClipboardStore*>(current.get());
        return wrapped ? wrapped->Unwrap() : std::move(current);
    });
    m_clipboard.reset();
}

} // namespace platform::display::x11
