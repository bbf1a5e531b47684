#include "display/x11/X11ClipboardStore.h"

#include "gdi/GdiObject.h"
#include "user/Clipboard.h"

#include <winbase.h>
#include <winuser.h>

#include <cairo.h>

#include <algorithm>
#include <cstring>

namespace platform::display::x11 {
namespace {

std::u16string ReadUnicode(HGLOBAL block) {
    const SIZE_T units = GlobalSize(block) / sizeof(char16_t);
    const auto* data = static_cast<const char16_t*>(GlobalLock(block));
    if (!data)
        return {};
    SIZE_T length = 0;
    while (length < units && data[length])
        ++length;
    std::u16string text(data, length);
    GlobalUnlock(block);
    return text;
}

HGLOBAL WriteUnicode(const std::u16string& text) {
    const SIZE_T bytes = (text.size() + 1) * sizeof(char16_t);
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_DDESHARE, bytes);
    void* data = GlobalLock(block);
    if (!data) {
        GlobalFree(block);
        return nullptr;
    }
    std::memcpy(data, text.c_str(), bytes);
    GlobalUnlock(block);
    return block;
}

cairo_status_t AppendBytes(void* closure, const unsigned char* data, unsigned int length) {
    static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

} // namespace

X11ClipboardStore::X11ClipboardStore(X11Clipboard& selection,
                                     std::unique_ptr<user::ClipboardStore> local)
    : m_selection(selection), m_local(std::move(local)) {
    m_selection.SetOffer(this);
    if (!m_local->Entries().empty())
        m_selection.Claim();
}

X11ClipboardStore::~X11ClipboardStore() {
    m_selection.SetOffer(nullptr);
    DropForeign();
}

std::unique_ptr<user::ClipboardStore> X11ClipboardStore::Unwrap() {
    return std::move(m_local);
}

void X11ClipboardStore::DropForeign() const {
    std::vector<user::ClipboardEntry> entries;
    entries.swap(m_foreign);
    for (const user::ClipboardEntry& entry : entries)
        user::FreeClipboardData(entry.format, entry.data);
}

void X11ClipboardStore::Refresh() const {
    if (m_selection.Owned() || (m_open && m_fetched))
        return;
    DropForeign();
    m_fetched = true;
    if (std::optional<std::u16string> text = m_selection.FetchText())
        if (HGLOBAL block = WriteUnicode(*text))
            m_foreign.push_back(user::ClipboardEntry{CF_UNICODETEXT, block, false});
}

// Emptying the open clipboard makes it ours, with nothing on it; emptying
// it at the end of the process leaves the selection alone.
void X11ClipboardStore::Clear() {
    m_local->Clear();
    DropForeign();
    m_fetched = true;
    if (m_open)
        m_selection.Claim();
}

void X11ClipboardStore::Put(const user::ClipboardEntry& entry) {
    // A stand-in made from another program's text stays with that text.
    if (entry.synthesized && !m_selection.Owned()) {
        auto old =
            std::find_if(m_foreign.begin(), m_foreign.end(),
                         [&](const user::ClipboardEntry& e) { return e.format == entry.format; });
        if (old != m_foreign.end()) {
            user::FreeClipboardData(old->format, old->data);
            *old = entry;
        } else {
            m_foreign.push_back(entry);
        }
        return;
    }
    if (!m_selection.Owned()) {
        DropForeign();
        m_selection.Claim();
    }
    m_local->Put(entry);
}

void X11ClipboardStore::Remove(UINT format) {
    if (m_selection.Owned()) {
        m_local->Remove(format);
        return;
    }
    auto found = std::find_if(m_foreign.begin(), m_foreign.end(),
                              [&](const user::ClipboardEntry& e) { return e.format == format; });
    if (found == m_foreign.end())
        return;
    const user::ClipboardEntry old = *found;
    m_foreign.erase(found);
    user::FreeClipboardData(old.format, old.data);
}

const user::ClipboardEntry* X11ClipboardStore::Find(UINT format) const {
    if (!m_open)
        m_selection.Verify();
    if (m_selection.Owned())
        return m_local->Find(format);
    Refresh();
    auto found = std::find_if(m_foreign.begin(), m_foreign.end(),
                              [&](const user::ClipboardEntry& e) { return e.format == format; });
    return found == m_foreign.end() ? nullptr : &*found;
}

std::vector<user::ClipboardEntry> X11ClipboardStore::Entries() const {
    if (!m_open)
        m_selection.Verify();
    if (m_selection.Owned())
        return m_local->Entries();
    Refresh();
    return m_foreign;
}

void X11ClipboardStore::Opened() {
    m_selection.Verify();
    m_open = true;
    m_fetched = false;
}

void X11ClipboardStore::Closed() {
    m_open = false;
}

std::optional<std::u16string> X11ClipboardStore::Text() const {
    if (const user::ClipboardEntry* unicode = m_local->Find(CF_UNICODETEXT))
        return ReadUnicode(unicode->data);
    const user::ClipboardEntry* narrow = m_local->Find(CF_TEXT);
    if (!narrow)
        return std::nullopt;
    HGLOBAL wide = user::ConvertClipboardText(narrow->data, CF_TEXT, GetACP());
    if (!wide)
        return std::nullopt;
    std::u16string text = ReadUnicode(wide);
    GlobalFree(wide);
    return text;
}

bool X11ClipboardStore::HasPicture() const {
    return m_local->Find(CF_BITMAP) != nullptr;
}

std::string X11ClipboardStore::Png() const {
    const user::ClipboardEntry* entry = m_local->Find(CF_BITMAP);
    auto* bitmap = entry ? gdi::LookupAs<gdi::Bitmap>(entry->data, OBJ_BITMAP) : nullptr;
    std::string png;
    if (!bitmap || !bitmap->surface)
        return png;
    cairo_surface_flush(bitmap->surface);
    if (cairo_surface_write_to_png_stream(bitmap->surface, AppendBytes, &png) !=
        CAIRO_STATUS_SUCCESS)
        png.clear();
    return png;
}

void X11ClipboardStore::Lost() {
    m_local->Clear();
}

} // namespace platform::display::x11
