// A US keyboard layout, the key state table and TranslateMessage.
#include "Keyboard.h"

#include "Menus.h"
#include "WindowManager.h"

#include <array>

namespace platform::user {

namespace {

// Keys of the punctuation row: the character, the shifted character, the key.
struct PunctuationKey {
    char plain;
    char shifted;
    UINT vk;
};

constexpr PunctuationKey kPunctuation[] = {{';', ':', 0xBA}, {'=', '+', 0xBB}, {',', '<', 0xBC},
                                           {'-', '_', 0xBD}, {'.', '>', 0xBE}, {'/', '?', 0xBF},
                                           {'`', '~', 0xC0}, {'[', '{', 0xDB}, {'\\', '|', 0xDC},
                                           {']', '}', 0xDD}, {'\'', '"', 0xDE}};

constexpr char kShiftedDigits[] = ")!@#$%^&*(";

std::array<bool, 256>& KeyDown() {
    static std::array<bool, 256> down{};
    return down;
}

// Alt went down outside a menu with no other key or button pressed since
// (as the messages are retrieved).
bool& AltTapped() {
    static bool tapped = false;
    return tapped;
}

// As the keyboard posts its keys: Alt is down with nothing else pressed and
// the keys have not gone elsewhere meanwhile.
bool& PostedAltAlone() {
    static bool alone = false;
    return alone;
}

// Alt releases posted after the keys went elsewhere, not yet retrieved: each
// ends the tap when it is.
int& SpoiledAltReleases() {
    static int count = 0;
    return count;
}

} // namespace

WCHAR CharacterFor(UINT vk, bool shift, bool control) {
    if (vk >= 'A' && vk <= 'Z') {
        if (control)
            return static_cast<WCHAR>(vk - 'A' + 1);
        return static_cast<WCHAR>(shift ? vk : vk - 'A' + 'a');
    }
    if (control)
        return 0;
    if (vk >= '0' && vk <= '9')
        return static_cast<WCHAR>(shift ? kShiftedDigits[vk - '0'] : vk);
    switch (vk) {
    case VK_SPACE:
        return u' ';
    case VK_RETURN:
        return u'\r';
    case VK_BACK:
        return u'\b';
    case VK_TAB:
        return u'\t';
    case VK_ESCAPE:
        return 0x1B;
    default:
        break;
    }
    for (const PunctuationKey& key : kPunctuation)
        if (key.vk == vk)
            return static_cast<WCHAR>(shift ? key.shifted : key.plain);
    return 0;
}

KeyStroke StrokeFor(WCHAR ch) {
    if (ch >= u'a' && ch <= u'z')
        return {static_cast<UINT>(ch - u'a' + 'A'), false};
    if (ch >= u'A' && ch <= u'Z')
        return {static_cast<UINT>(ch), true};
    if (ch >= u'0' && ch <= u'9')
        return {static_cast<UINT>(ch), false};
    for (int i = 0; i < 10; ++i)
        if (ch == static_cast<WCHAR>(kShiftedDigits[i]))
            return {static_cast<UINT>('0' + i), true};
    switch (ch) {
    case u' ':
        return {VK_SPACE, false};
    case u'\r':
    case u'\n':
        return {VK_RETURN, false};
    case u'\b':
        return {VK_BACK, false};
    case u'\t':
        return {VK_TAB, false};
    case 0x1B:
        return {VK_ESCAPE, false};
    default:
        break;
    }
    for (const PunctuationKey& key : kPunctuation) {
        if (ch == static_cast<WCHAR>(key.plain))
            return {key.vk, false};
        if (ch == static_cast<WCHAR>(key.shifted))
            return {key.vk, true};
    }
    return {VK_PACKET, false};
}

LPARAM KeyDownParam(UINT vk, WCHAR ch) {
    return vk == VK_PACKET ? static_cast<LPARAM>((static_cast<DWORD>(ch) << 16) | 1) : 1;
}

LPARAM KeyUpParam(UINT vk, WCHAR ch) {
    // Bits 30 and 31: the key was down and is being released.
    return static_cast<LPARAM>(KeyDownParam(vk, ch) | 0xC0000000u);
}

bool PostKeyToFocus(bool down, UINT vk, WCHAR ch, bool alt) {
    HWND target = GetFocus();
    if (!target)
        target = GetActiveWindow();
    if (!target)
        return false;
    // Keys pressed while Alt is held, Alt itself and F10 are the system's
    // keys: WM_SYSKEYDOWN and WM_SYSKEYUP, with the context bit set while
    // Alt is down.
    const bool system = alt || vk == VK_MENU || vk == VK_F10;
    LPARAM param = down ? KeyDownParam(vk, ch) : KeyUpParam(vk, ch);
    if (alt && vk != VK_MENU)
        param |= static_cast<LPARAM>(1u << 29);
    const UINT message =
        system ? (down ? WM_SYSKEYDOWN : WM_SYSKEYUP) : (down ? WM_KEYDOWN : WM_KEYUP);
    if (down)
        PostedAltAlone() = vk == VK_MENU;
    if (PostMessage(target, message, vk, param) && !down && vk == VK_MENU && !PostedAltAlone())
        ++SpoiledAltReleases();
    return true;
}

namespace {

WCHAR Fold(WCHAR ch) {
    return ch >= u'a' && ch <= u'z' ? static_cast<WCHAR>(ch - u'a' + u'A') : ch;
}

} // namespace

WCHAR MnemonicOf(std::u16string_view text) {
    for (std::size_t i = 0; i + 1 < text.size() && text[i] != u'\t'; ++i) {
        if (text[i] != u'&')
            continue;
        if (text[i + 1] != u'&')
            return Fold(text[i + 1]);
        ++i;
    }
    return 0;
}

bool SameMnemonic(WCHAR a, WCHAR b) {
    return a && Fold(a) == Fold(b);
}

void NoteKeyMessage(const MSG& msg) {
    const bool down = msg.message == WM_KEYDOWN || msg.message == WM_SYSKEYDOWN;
    // The buttons' messages of the client area (0x0201-0x020E) and of the
    // non-client area (0x00A1-0x00AD).
    const bool button = (msg.message > WM_MOUSEMOVE && msg.message <= 0x020E) ||
                        (msg.message > WM_NCMOUSEMOVE && msg.message <= 0x00AD);
    if (down)
        AltTapped() = msg.wParam == VK_MENU && !CurrentPopup();
    else if (button)
        AltTapped() = false;
    else if ((msg.message == WM_SYSKEYUP || msg.message == WM_KEYUP) && msg.wParam == VK_MENU &&
             SpoiledAltReleases() > 0) {
        --SpoiledAltReleases();
        AltTapped() = false;
    }
    if (!down && msg.message != WM_KEYUP && msg.message != WM_SYSKEYUP)
        return;
    if (msg.wParam < 256)
        KeyDown()[msg.wParam] = down;
}

void ForgetAltTap() {
    PostedAltAlone() = false;
}

bool TakeAltTap() {
    const bool tapped = AltTapped();
    AltTapped() = false;
    return tapped;
}

} // namespace platform::user

SHORT GetKeyState(int vk) {
    if (vk < 0 || vk >= 256)
        return 0;
    return platform::user::KeyDown()[static_cast<std::size_t>(vk)] ? static_cast<SHORT>(0x8000) : 0;
}

BOOL TranslateMessage(const MSG* msg) {
    if (!msg || (msg->message != WM_KEYDOWN && msg->message != WM_SYSKEYDOWN))
        return FALSE;
    WCHAR ch = 0;
    if (msg->wParam == VK_PACKET)
        ch = static_cast<WCHAR>((static_cast<DWORD>(msg->lParam) >> 16) & 0xFFFF);
    else
        ch = platform::user::CharacterFor(static_cast<UINT>(msg->wParam), GetKeyState(VK_SHIFT) < 0,
                                          GetKeyState(VK_CONTROL) < 0);
    if (!ch)
        return FALSE;
    PostMessage(msg->hwnd, msg->message == WM_SYSKEYDOWN ? WM_SYSCHAR : WM_CHAR, ch,
                msg->lParam & 0x2000FFFF);
    return TRUE;
}
