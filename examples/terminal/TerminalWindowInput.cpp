// The terminal window's input: keys to the program, mouse selection, the
// clipboard and the shortcut menu.
#include "KeyBytes.h"
#include "ScreenOutput.h"
#include "TerminalWindow.h"
#include "WordSpan.h"

#include <platform/CodePage.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <tuple>

namespace {

// How soon after a double click a third click selects the whole row: the
// double-click time of the window system.
constexpr auto kThirdClickTime = std::chrono::milliseconds(500);

bool KeyHeld(int vk) {
    return GetKeyState(vk) < 0;
}

// Clipboard text as a program reads typed text: line breaks become the CR
// that the Enter key sends.
std::string TypedFromClipboard(const std::u16string& text) {
    std::u16string typed;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
            continue;
        typed += text[i] == u'\n' ? u'\r' : text[i];
    }
    return platform::ToUtf8(typed);
}

} // namespace

LRESULT TerminalWindow::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const int x = static_cast<short>(LOWORD(lParam));
    const int y = static_cast<short>(HIWORD(lParam));
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN: // with Alt: the key as it is
        if (OnKeyDown(static_cast<UINT>(wParam)))
            return 0;
        break;
    case WM_CHAR:
        OnChar(static_cast<WCHAR>(wParam));
        return 0;
    case WM_SYSCHAR:
        // Alt and a character: the character after ESC, as a meta key sends it.
        Send("\x1b" + key_bytes::ForChar(static_cast<WCHAR>(wParam), &m_pendingHigh));
        return 0;
    case WM_LBUTTONDOWN:
        OnLeftDown(x, y);
        return 0;
    case WM_LBUTTONDBLCLK:
        OnLeftDouble(x, y);
        return 0;
    case WM_MOUSEMOVE:
        OnMouseMove(x, y);
        return 0;
    case WM_LBUTTONUP:
        OnLeftUp();
        return 0;
    case WM_MBUTTONUP:
        Paste();
        return 0;
    case WM_MOUSEWHEEL:
        OnWheel(GET_WHEEL_DELTA_WPARAM(wParam));
        return 0;
    case WM_CONTEXTMENU:
        OnContextMenu(x, y);
        return 0;
    case WM_COMMAND:
        if (HIWORD(wParam) == 0 && OnCommand(LOWORD(wParam)))
            return 0;
        break;
    default:
        break;
    }
    return CWnd::WindowProc(message, wParam, lParam);
}

// --- Keys ---

bool TerminalWindow::OnKeyDown(UINT vk) {
    const bool control = KeyHeld(VK_CONTROL);
    const bool shift = KeyHeld(VK_SHIFT);
    std::string bytes;
    bool handled = true;
    // Ctrl+Shift+C and V also type their control character: it is not sent.
    if (control && shift && vk == 'C') {
        Copy();
        m_swallowChar = 0x03;
    } else if (control && shift && vk == 'V') {
        Paste();
        m_swallowChar = 0x16;
    } else if (control && vk == VK_SPACE)
        bytes.assign(1, '\0');
    else if (!(bytes = key_bytes::ForKey(vk, m_screen->GetCursorKeyMode())).empty())
        ;
    else
        handled = false;
    if (!handled)
        return false;
    Send(bytes);
    return true;
}

void TerminalWindow::OnWheel(int delta) {
    // Without scrollback the wheel has nothing of its own to scroll. A
    // full-screen program (one that set application cursor keys) gets cursor
    // keys instead, kWheelLines a notch, so its own view scrolls.
    if (!m_screen->GetCursorKeyMode()) {
        m_wheelRemainder = 0;
        return;
    }
    if ((m_wheelRemainder > 0) != (delta > 0))
        m_wheelRemainder = 0;
    m_wheelRemainder += delta;
    const int lines = m_wheelRemainder * kWheelLines / WHEEL_DELTA;
    m_wheelRemainder -= lines * WHEEL_DELTA / kWheelLines;
    const std::string key =
        key_bytes::ForKey(lines > 0 ? VK_UP : VK_DOWN, m_screen->GetCursorKeyMode());
    std::string bytes;
    for (int i = 0; i < std::abs(lines); ++i)
        bytes += key;
    if (!bytes.empty())
        Send(bytes);
}

void TerminalWindow::OnChar(WCHAR ch) {
    const WCHAR swallow = m_swallowChar;
    m_swallowChar = 0;
    if (ch == swallow)
        return;
    Send(key_bytes::ForChar(ch, &m_pendingHigh));
}

// --- Selection ---

void TerminalWindow::DrawingSelection(const std::function<void()>& change) {
    DrawingIntoPicture(change);
    ShowChanges();
}

void TerminalWindow::OnLeftDown(int x, int y) {
    SetFocus();
    ::SetCapture(m_hWnd);
    m_selecting = true;
    m_dragged = false;
    m_anchor = CellAt(x, y);
    // A third click soon after a double click on the same row takes the row.
    const bool third = m_unit == SelectUnit::Word && m_anchor.m_row == m_spanStart.m_row &&
                       std::chrono::steady_clock::now() - m_lastDoubleClick <= kThirdClickTime;
    m_unit = third ? SelectUnit::Row : SelectUnit::Cell;
    if (third) {
        m_dragged = true;
        DrawingSelection([&] { StartSpan(); });
        return;
    }
    DrawingSelection([&] { m_screen->Unselect(); });
}

void TerminalWindow::OnLeftDouble(int x, int y) {
    SetFocus();
    ::SetCapture(m_hWnd);
    m_selecting = true;
    m_dragged = true;
    m_unit = SelectUnit::Word;
    m_lastDoubleClick = std::chrono::steady_clock::now();
    m_anchor = CellAt(x, y);
    DrawingSelection([&] { StartSpan(); });
}

std::pair<CursorPos, CursorPos> TerminalWindow::UnitAround(const CursorPos& at) {
    const int columns = m_screen->VisColumns();
    if (m_unit == SelectUnit::Row)
        return {CursorPos(at.m_row, 1), CursorPos(at.m_row, columns)};
    if (m_unit == SelectUnit::Cell)
        return {at, at};
    m_screen->Select(CursorPos(at.m_row, 1), CursorPos(at.m_row, columns));
    const CString text = m_screen->SelectedText();
    const word_span::Span span = word_span::Around(text.Str(), at.m_col - 1, columns);
    return {CursorPos(at.m_row, span.first + 1), CursorPos(at.m_row, span.last + 1)};
}

void TerminalWindow::StartSpan() {
    std::tie(m_spanStart, m_spanEnd) = UnitAround(m_anchor);
    m_screen->Select(m_spanStart, m_spanEnd);
}

void TerminalWindow::SelectSpanTo(const CursorPos& at) {
    const auto [first, last] = UnitAround(at);
    // The selection reaches from the starting span to the whole unit at the
    // pointer, whichever way the pointer went.
    if (first < m_spanStart)
        m_screen->Select(m_spanEnd, first);
    else
        m_screen->Select(m_spanStart, std::max(last, m_spanEnd));
}

void TerminalWindow::OnMouseMove(int x, int y) {
    if (!m_selecting)
        return;
    const CursorPos at = CellAt(x, y);
    if (m_unit != SelectUnit::Cell) {
        DrawingSelection([&] { SelectSpanTo(at); });
        return;
    }
    if (!m_dragged && at == m_anchor)
        return;
    m_dragged = true;
    DrawingSelection([&] { m_screen->Select(m_anchor, at); });
}

void TerminalWindow::OnLeftUp() {
    if (!m_selecting)
        return;
    m_selecting = false;
    ReleaseCapture();
}

// --- Clipboard ---

bool TerminalWindow::Copy() {
    if (!m_screen->ActiveSelection())
        return false;
    const CString text = m_screen->SelectedText();
    const std::u16string wide(text.Str());
    const SIZE_T size = (wide.size() + 1) * sizeof(char16_t);
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
    if (!block)
        return false;
    std::memcpy(GlobalLock(block), wide.c_str(), size);
    GlobalUnlock(block);
    if (!OpenClipboard()) {
        GlobalFree(block);
        return false;
    }
    EmptyClipboard();
    const bool ok = SetClipboardData(CF_UNICODETEXT, block) != nullptr;
    if (!ok)
        GlobalFree(block);
    CloseClipboard();
    return ok;
}

bool TerminalWindow::Paste() {
    if (!OpenClipboard())
        return false;
    std::u16string text;
    if (HANDLE block = GetClipboardData(CF_UNICODETEXT)) {
        if (const auto* data = static_cast<const char16_t*>(GlobalLock(block))) {
            const std::size_t units = GlobalSize(block) / sizeof(char16_t);
            text.assign(data, std::char_traits<char16_t>::length(data) < units
                                  ? std::char_traits<char16_t>::length(data)
                                  : units);
        }
        GlobalUnlock(block);
    }
    CloseClipboard();
    if (text.empty())
        return false;
    Send(TypedFromClipboard(text));
    return true;
}

// --- Shortcut menu and its commands ---

void TerminalWindow::OnContextMenu(int x, int y) {
    if (x == -1 && y == -1) { // from the keyboard: at the window's top-left corner
        POINT corner{0, 0};
        ClientToScreen(&corner);
        x = corner.x;
        y = corner.y;
    }
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING | (m_screen->ActiveSelection() ? 0 : MF_GRAYED), kCopy,
                    u"&Copy\tCtrl+Shift+C");
    menu.AppendMenu(MF_STRING | (IsClipboardFormatAvailable(CF_UNICODETEXT) ? 0 : MF_GRAYED),
                    kPaste, u"&Paste\tCtrl+Shift+V");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING, kPrint, u"P&rint screen to PDF");
    menu.AppendMenu(MF_SEPARATOR);
    const bool wide = m_screen->NumColumns() == 132;
    menu.AppendMenu(MF_STRING | (wide ? 0 : MF_CHECKED), kColumns80, u"&80 columns");
    menu.AppendMenu(MF_STRING | (wide ? MF_CHECKED : 0), kColumns132, u"&132 columns");
    CMenu fonts;
    fonts.CreatePopupMenu();
    for (std::size_t i = 0; i < Fonts().size(); ++i) {
        const Font& font = Fonts()[i];
        CString label = CString(font.face) + u" " + platform::FromUtf8(std::to_string(font.size));
        const bool current = m_options.face == font.face && m_options.size == font.size;
        fonts.AppendMenu(MF_STRING | (current ? MF_CHECKED : 0), kFontFirst + i, label);
    }
    menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(fonts.Detach()), u"&Font");
    menu.TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON, x, y, this);
    menu.DestroyMenu();
}

bool TerminalWindow::OnCommand(UINT command) {
    switch (command) {
    case kCopy:
        Copy();
        return true;
    case kPaste:
        Paste();
        return true;
    case kPrint:
        PrintScreen();
        return true;
    case kColumns80:
        SetColumns(80);
        return true;
    case kColumns132:
        SetColumns(132);
        return true;
    default:
        break;
    }
    if (command >= kFontFirst && command < kFontFirst + Fonts().size()) {
        const Font& font = Fonts()[command - kFontFirst];
        SetFont(font.face, font.size);
        return true;
    }
    return false;
}

bool TerminalWindow::PrintScreen() {
    const bool ok = screen_output::PrintPdf(*m_screen, m_layout, m_options.face, m_options.pdfPath);
    std::fprintf(stderr, ok ? "terminal_host: printed %s\n" : "terminal_host: cannot print %s\n",
                 m_options.pdfPath.c_str());
    return ok;
}

void TerminalWindow::SetColumns(int columns) {
    const bool wide = columns > 80;
    if (wide != (m_screen->NumColumns() == 132)) {
        m_screen->SetColumnMode(wide);
        m_backCurrent = false;
        m_shownColumnMode = m_screen->NumColumns();
    }
    FitWindow(m_windowRows, m_screen->NumColumns());
}

void TerminalWindow::SetFont(const CString& face, int size) {
    m_options.face = face;
    m_options.size = size;
    const int rows = m_windowRows;
    const int columns = m_windowColumns;
    m_layout.Apply(face, size);
    m_backCurrent = false;
    FitWindow(rows, columns);
    Invalidate(FALSE);
}
