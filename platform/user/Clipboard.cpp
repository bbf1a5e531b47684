// The clipboard's rules: one opener at a time, ownership taken by emptying,
// handles checked before the clipboard takes them, CF_TEXT and CF_UNICODETEXT
// standing in for each other.
#include "Clipboard.h"

#include "WindowManager.h"

#include <winbase.h>
#include <wingdi.h>
#include <winuser.h>

#include <algorithm>

namespace platform::user {
namespace {

Clipboard* g_clipboard = nullptr;

// The data still on the clipboard when the process ends is freed like any
// other, so nothing the program handed over is left behind.
struct DiscardAtExit {
    ~DiscardAtExit() {
        if (Clipboard* clipboard = Clipboard::IfUsed())
            clipboard->Discard();
    }
} g_discardAtExit;

bool IsLiveData(UINT format, HANDLE data) {
    if (format == CF_BITMAP)
        return GetObjectType(data) == OBJ_BITMAP;
    return GlobalFlags(data) != GMEM_INVALID_HANDLE;
}

bool IsText(UINT format) {
    return format == CF_TEXT || format == CF_UNICODETEXT;
}

} // namespace

Clipboard& Clipboard::Instance() {
    if (!g_clipboard)
        g_clipboard = new Clipboard();
    return *g_clipboard;
}

Clipboard* Clipboard::IfUsed() {
    return g_clipboard;
}

void ClipboardWindowGone(HWND window) {
    if (Clipboard* clipboard = Clipboard::IfUsed())
        clipboard->ForgetWindow(window);
}

Clipboard::Clipboard() : m_store(MakeLocalClipboardStore()) {}

bool Clipboard::Open(HWND window) {
    if (window && !WindowManager::Instance().Find(window)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return false;
    }
    if (m_open && m_opener != window) {
        SetLastError(ERROR_ACCESS_DENIED);
        return false;
    }
    const bool wasOpen = m_open;
    m_open = true;
    m_opener = window;
    if (!wasOpen)
        m_store->Opened();
    return true;
}

bool Clipboard::Close() {
    if (!m_open) {
        SetLastError(ERROR_CLIPBOARD_NOT_OPEN);
        return false;
    }
    m_open = false;
    m_opener = nullptr;
    m_store->Closed();
    return true;
}

bool Clipboard::Empty() {
    if (!m_open) {
        SetLastError(ERROR_CLIPBOARD_NOT_OPEN);
        return false;
    }
    m_store->Clear();
    m_owner = m_opener;
    m_textCodePage = 0;
    return true;
}

HANDLE Clipboard::Set(UINT format, HANDLE data) {
    if (!m_open) {
        SetLastError(ERROR_CLIPBOARD_NOT_OPEN);
        return nullptr;
    }
    if (format == 0 || !data) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (!IsLiveData(format, data)) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    // One handle under two formats would be freed twice.
    if (HeldElsewhere(format, data)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    m_store->Put(ClipboardEntry{format, data, false});
    if (IsText(format)) {
        // A stand-in made from the old text would no longer match.
        const UINT other = format == CF_TEXT ? CF_UNICODETEXT : CF_TEXT;
        if (const ClipboardEntry* stale = m_store->Find(other); stale && stale->synthesized)
            m_store->Remove(other);
        m_textCodePage = GetACP();
    }
    return data;
}

HANDLE Clipboard::Get(UINT format) {
    if (!m_open) {
        SetLastError(ERROR_CLIPBOARD_NOT_OPEN);
        return nullptr;
    }
    if (const ClipboardEntry* entry = m_store->Find(format))
        return entry->data;
    if (UINT source = SourceFor(format))
        return Synthesize(format, source);
    return nullptr;
}

bool Clipboard::IsAvailable(UINT format) const {
    return format != 0 && (m_store->Find(format) || SourceFor(format));
}

std::vector<UINT> Clipboard::Formats() const {
    std::vector<UINT> formats;
    for (const ClipboardEntry& entry : m_store->Entries())
        if (!entry.synthesized)
            formats.push_back(entry.format);
    for (UINT text : {CF_TEXT, CF_UNICODETEXT})
        if (std::find(formats.begin(), formats.end(), text) == formats.end() && IsAvailable(text))
            formats.push_back(text);
    return formats;
}

void Clipboard::ForgetWindow(HWND window) {
    if (m_open && m_opener == window) {
        m_open = false;
        m_opener = nullptr;
        m_store->Closed();
    }
    if (m_owner == window)
        m_owner = nullptr;
}

void Clipboard::ReplaceStore(const StoreReplacer& replace) {
    std::unique_ptr<ClipboardStore> next = replace(std::move(m_store));
    m_store = next ? std::move(next) : MakeLocalClipboardStore();
    if (m_open)
        m_store->Opened();
}

void Clipboard::Discard() {
    m_store->Clear();
    m_textCodePage = 0;
}

UINT Clipboard::SourceFor(UINT format) const {
    if (!IsText(format))
        return 0;
    const UINT other = format == CF_TEXT ? CF_UNICODETEXT : CF_TEXT;
    const ClipboardEntry* source = m_store->Find(other);
    return source && !source->synthesized ? other : 0;
}

HANDLE Clipboard::Synthesize(UINT format, UINT source) {
    const UINT codePage = m_textCodePage ? m_textCodePage : GetACP();
    HGLOBAL made = ConvertClipboardText(m_store->Find(source)->data, source, codePage);
    if (!made)
        return nullptr;
    m_store->Put(ClipboardEntry{format, made, true});
    return made;
}

bool Clipboard::HeldElsewhere(UINT format, HANDLE data) const {
    for (const ClipboardEntry& entry : m_store->Entries())
        if (entry.data == data && entry.format != format)
            return true;
    return false;
}

} // namespace platform::user

using platform::user::Clipboard;

BOOL OpenClipboard(HWND window) {
    return Clipboard::Instance().Open(window);
}

BOOL CloseClipboard() {
    return Clipboard::Instance().Close();
}

BOOL EmptyClipboard() {
    return Clipboard::Instance().Empty();
}

HANDLE SetClipboardData(UINT format, HANDLE data) {
    return Clipboard::Instance().Set(format, data);
}

HANDLE GetClipboardData(UINT format) {
    return Clipboard::Instance().Get(format);
}

BOOL IsClipboardFormatAvailable(UINT format) {
    return Clipboard::Instance().IsAvailable(format);
}

int CountClipboardFormats() {
    return static_cast<int>(Clipboard::Instance().Formats().size());
}

UINT EnumClipboardFormats(UINT format) {
    Clipboard& clipboard = Clipboard::Instance();
    if (!clipboard.IsOpen()) {
        SetLastError(ERROR_CLIPBOARD_NOT_OPEN);
        return 0;
    }
    SetLastError(ERROR_SUCCESS);
    const std::vector<UINT> formats = clipboard.Formats();
    if (format == 0)
        return formats.empty() ? 0 : formats.front();
    auto at = std::find(formats.begin(), formats.end(), format);
    return at == formats.end() || ++at == formats.end() ? 0 : *at;
}

HWND GetClipboardOwner() {
    return Clipboard::Instance().Owner();
}

HWND GetOpenClipboardWindow() {
    Clipboard& clipboard = Clipboard::Instance();
    return clipboard.IsOpen() ? clipboard.Opener() : nullptr;
}
