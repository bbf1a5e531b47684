// The clipboard's store while the display is connected. The program's own
// data stays in the store it wraps and is offered as the display's
// CLIPBOARD selection; while another program owns the selection, its text is
// fetched into entries of our own when asked for.
#pragma once

#include "display/x11/X11Clipboard.h"
#include "user/ClipboardStore.h"

#include <memory>

namespace platform::display::x11 {

class X11ClipboardStore final : public user::ClipboardStore, public ClipboardOffer {
public:
    // Claims the selection at once when local already holds data.
    X11ClipboardStore(X11Clipboard& selection, std::unique_ptr<user::ClipboardStore> local);
    ~X11ClipboardStore() override;
    // The wrapped store, handed back when the display goes.
    std::unique_ptr<user::ClipboardStore> Unwrap();

    void Clear() override;
    void Put(const user::ClipboardEntry& entry) override;
    void Remove(UINT format) override;
    const user::ClipboardEntry* Find(UINT format) const override;
    std::vector<user::ClipboardEntry> Entries() const override;
    void Opened() override;
    void Closed() override;

    std::optional<std::u16string> Text() const override;
    std::string Png() const override;
    bool HasPicture() const override;
    void Lost() override;

private:
    // Fetches another program's data unless what was fetched since the
    // clipboard was opened still holds.
    void Refresh() const;
    void DropForeign() const;

    X11Clipboard& m_selection;
    std::unique_ptr<user::ClipboardStore> m_local;
    bool m_open = false;
    mutable bool m_fetched = false;
    mutable std::vector<user::ClipboardEntry> m_foreign;
};

} // namespace platform::display::x11
