// The EDIT class: single-line and multi-line text fields with a caret and a
// selection, typing, the arrow keys and the mouse. Changes made by the user
// notify the parent with EN_UPDATE and then EN_CHANGE.
#include "ControlPaint.h"
#include "ControlState.h"
#include "Controls.h"
#include "EditClipboard.h"
#include "EditText.h"
#include "WheelScroll.h"

#include <algorithm>

namespace platform::user {

namespace {

constexpr int kDefaultLimit = 32767;
constexpr int kMultilineLimit = 0x7FFFFFFE;
constexpr int kMargin = 2; // between the frame and the text

struct EditState {
    EditText text;
    int anchor = 0; // the fixed end of the selection
    int caret = 0;  // the moving end, where the caret is
    int limit = kDefaultLimit;
    int scrollX = 0;
    int firstLine = 0;
    int wheelRemainder = 0; // part of a wheel notch not yet scrolled
    bool focused = false;
    bool tracking = false;
    bool modified = false;
    HWND combo = nullptr;
    HFONT font = nullptr;
};

ControlStates<EditState>& States() {
    static auto* states = new ControlStates<EditState>();
    return *states;
}

DWORD Style(HWND hwnd) {
    return static_cast<DWORD>(GetWindowLongPtr(hwnd, GWL_STYLE));
}

bool Multiline(HWND hwnd) {
    return (Style(hwnd) & ES_MULTILINE) != 0;
}

bool ReadOnly(HWND hwnd) {
    return (Style(hwnd) & ES_READONLY) != 0;
}

bool Framed(HWND hwnd) {
    return (Style(hwnd) & WS_BORDER) ||
           (static_cast<DWORD>(GetWindowLongPtr(hwnd, GWL_EXSTYLE)) & WS_EX_CLIENTEDGE);
}

// The area the text is drawn in, inside the frame and the margins.
RECT TextArea(HWND hwnd) {
    RECT client;
    GetClientRect(hwnd, &client);
    int inset = (Framed(hwnd) ? 1 : 0) + kMargin;
    RECT area{client.left + inset, client.top + (Framed(hwnd) ? 2 : 0), client.right - inset,
              client.bottom - (Framed(hwnd) ? 2 : 0)};
    if (area.right < area.left)
        area.right = area.left;
    if (area.bottom < area.top)
        area.bottom = area.top;
    return area;
}

// Measures text in the control's font.
class Measure {
public:
    Measure(HWND hwnd, const EditState& state)
        : m_hwnd(hwnd), m_dc(GetDC(hwnd)), m_font(m_dc, state.font) {
        TEXTMETRIC tm{};
        GetTextMetrics(m_dc, &tm);
        m_lineHeight = std::max<int>(tm.tmHeight, 1);
    }
    ~Measure() { ReleaseDC(m_hwnd, m_dc); }
    Measure(const Measure&) = delete;
    Measure& operator=(const Measure&) = delete;

    int Width(const char16_t* text, int count) const {
        if (count <= 0)
            return 0;
        SIZE size{};
        GetTextExtentPoint32(m_dc, text, count, &size);
        return size.cx;
    }
    int LineHeight() const { return m_lineHeight; }

private:
    HWND m_hwnd;
    HDC m_dc;
    FontScope m_font;
    int m_lineHeight = 1;
};

// A multi-line edit without horizontal scrolling breaks its lines at the
// width of its text area.
void Rewrap(HWND hwnd, EditState& state) {
    DWORD style = Style(hwnd);
    if (!(style & ES_MULTILINE) || (style & ES_AUTOHSCROLL))
        return;
    state.text.Assign(state.text.Text(), true);
    RECT area = TextArea(hwnd);
    Measure measure(hwnd, state);
    state.text.Wrap(area.right - area.left - 1, [&measure](const char16_t* text, int count) {
        return measure.Width(text, count);
    });
}

// The x of a position within its line, from the line's start.
int ColumnX(const EditState& state, const Measure& measure, int position) {
    int line = state.text.LineOf(position);
    int start = state.text.LineStart(line);
    int end = std::min(position, start + state.text.LineLength(line));
    return measure.Width(state.text.Text().c_str() + start, end - start);
}

// The position in a line nearest to x (from the line's start).
int PositionAtX(const EditState& state, const Measure& measure, int line, int x) {
    int start = state.text.LineStart(line);
    int length = state.text.LineLength(line);
    int previous = 0;
    for (int i = 1; i <= length; ++i) {
        int width = measure.Width(state.text.Text().c_str() + start, i);
        if (x < (previous + width) / 2 + (previous + width) % 2)
            return start + i - 1;
        previous = width;
    }
    return start + length;
}

// The top of the first line drawn: a single-line edit centres its line.
int TextTop(HWND hwnd, const Measure& measure) {
    RECT area = TextArea(hwnd);
    if (Multiline(hwnd))
        return area.top + 1;
    return area.top + std::max(0, (int(area.bottom - area.top) - measure.LineHeight()) / 2);
}

// Scrolls so that the caret is inside the text area.
void ScrollToCaret(HWND hwnd, EditState& state) {
    Measure measure(hwnd, state);
    RECT area = TextArea(hwnd);
    int width = std::max<int>(area.right - area.left, 1);
    int x = ColumnX(state, measure, state.caret);
    if (x - state.scrollX >= width)
        state.scrollX = x - width + 1 + width / 4;
    else if (x < state.scrollX)
        state.scrollX = std::max(0, x - width / 4);
    int lines = std::max(1, int(area.bottom - area.top) / measure.LineHeight());
    int line = state.text.LineOf(state.caret);
    if (line < state.firstLine)
        state.firstLine = line;
    else if (line >= state.firstLine + lines)
        state.firstLine = line - lines + 1;
}

void Redraw(HWND hwnd) {
    InvalidateRect(hwnd, nullptr, TRUE);
}

// Scrolls a multi-line field by lines (negative: up), the caret staying
// where it is; the last line goes no higher than the bottom of the field.
void ScrollLines(HWND hwnd, EditState& state, int lines) {
    Measure measure(hwnd, state);
    RECT area = TextArea(hwnd);
    int shown = std::max(1, int(area.bottom - area.top) / measure.LineHeight());
    int last = std::max(0, state.text.LineCount() - shown);
    int first = std::clamp(state.firstLine + lines, 0, last);
    if (first != state.firstLine) {
        state.firstLine = first;
        Redraw(hwnd);
    }
}

void Select(HWND hwnd, EditState& state, int anchor, int caret) {
    int length = state.text.Length();
    state.anchor = std::clamp(anchor, 0, length);
    state.caret = std::clamp(caret, 0, length);
    ScrollToCaret(hwnd, state);
    Redraw(hwnd);
}

void Notify(HWND hwnd, UINT code) {
    NotifyParent(hwnd, code);
}

// Replaces the selection with text, cut to the limit; EN_MAXTEXT when the
// limit (or, without ES_AUTOHSCROLL, the width of a single-line edit) cut
// it. Returns true when the text changed.
bool ReplaceSelection(HWND hwnd, EditState& state, std::u16string insert) {
    bool multiline = Multiline(hwnd);
    if (!multiline) {
        // A single line keeps what comes before a line break.
        auto end = insert.find_first_of(u"\r\n");
        if (end != std::u16string::npos)
            insert.resize(end);
    }
    int from = std::min(state.anchor, state.caret);
    int to = std::max(state.anchor, state.caret);
    int room = state.limit - (state.text.Length() - (to - from));
    bool cut = false;
    if (room < static_cast<int>(insert.size())) {
        insert.resize(static_cast<std::size_t>(std::max(room, 0)));
        // Never leave half of a line break.
        if (!insert.empty() && insert.back() == u'\r')
            insert.pop_back();
        cut = true;
    }
    std::u16string text = state.text.Text();
    text.replace(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from), insert);
    if (!multiline && !(Style(hwnd) & ES_AUTOHSCROLL) && !insert.empty()) {
        Measure measure(hwnd, state);
        RECT area = TextArea(hwnd);
        // Without horizontal scrolling the text must fit the field.
        while (!insert.empty() && measure.Width(text.c_str(), static_cast<int>(text.size())) >
                                      area.right - area.left - 1) {
            insert.pop_back();
            text = state.text.Text();
            text.replace(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from),
                         insert);
            cut = true;
        }
    }
    bool changed = text != state.text.Text();
    if (changed) {
        state.text.Assign(std::move(text), multiline);
        Rewrap(hwnd, state);
        state.modified = true;
    }
    int caret = from + static_cast<int>(insert.size());
    state.anchor = state.caret = caret;
    ScrollToCaret(hwnd, state);
    Redraw(hwnd);
    if (cut)
        Notify(hwnd, EN_MAXTEXT);
    return changed;
}

void NotifyChange(HWND hwnd) {
    Notify(hwnd, EN_UPDATE);
    // The screen is updated before EN_CHANGE, as on the original.
    UpdateWindow(hwnd);
    Notify(hwnd, EN_CHANGE);
}

void UserReplace(HWND hwnd, EditState& state, std::u16string insert) {
    if (ReplaceSelection(hwnd, state, std::move(insert)))
        NotifyChange(hwnd);
}

// WM_COPY, WM_CUT, WM_PASTE and WM_CLEAR. A password field gives nothing
// away; a read-only one lets its text be copied but not changed.
void OnClipboardMessage(HWND hwnd, EditState& state, UINT message) {
    const int from = std::min(state.anchor, state.caret);
    const int to = std::max(state.anchor, state.caret);
    const bool readOnly = ReadOnly(hwnd);
    if ((message == WM_COPY || message == WM_CUT) && from < to && !(Style(hwnd) & ES_PASSWORD) &&
        !(message == WM_CUT && readOnly)) {
        if (!PutTextOnClipboard(hwnd, std::u16string_view(state.text.Text())
                                          .substr(static_cast<std::size_t>(from),
                                                  static_cast<std::size_t>(to - from))))
            return;
    }
    if (readOnly || message == WM_COPY)
        return;
    if (message == WM_PASTE)
        UserReplace(hwnd, state, TextFromClipboard(hwnd));
    else if (from < to)
        UserReplace(hwnd, state, u"");
}

void OnChar(HWND hwnd, EditState& state, WCHAR ch) {
    if (ch == 0x01) { // Ctrl+A
        Select(hwnd, state, 0, state.text.Length());
        return;
    }
    // Ctrl+C, Ctrl+V and Ctrl+X.
    const UINT clipboard = ch == 0x03 ? WM_COPY : ch == 0x16 ? WM_PASTE : ch == 0x18 ? WM_CUT : 0;
    if (clipboard) {
        SendMessage(hwnd, clipboard, 0, 0);
        return;
    }
    if (ReadOnly(hwnd))
        return;
    int from = std::min(state.anchor, state.caret);
    int to = std::max(state.anchor, state.caret);
    if (ch == u'\b') {
        if (from == to) {
            if (from == 0)
                return;
            state.anchor = state.text.Previous(from);
            state.caret = to;
        }
        UserReplace(hwnd, state, u"");
        return;
    }
    if (ch == u'\r') {
        if (Multiline(hwnd))
            UserReplace(hwnd, state, u"\r\n");
        return;
    }
    if (ch == u'\t' && Multiline(hwnd)) {
        UserReplace(hwnd, state, u"\t");
        return;
    }
    if (ch < 0x20 || ch == 0x7F)
        return;
    if (Style(hwnd) & ES_NUMBER && (ch < u'0' || ch > u'9'))
        return;
    if (Style(hwnd) & ES_UPPERCASE && ch >= u'a' && ch <= u'z')
        ch = static_cast<WCHAR>(ch - u'a' + u'A');
    else if (Style(hwnd) & ES_LOWERCASE && ch >= u'A' && ch <= u'Z')
        ch = static_cast<WCHAR>(ch - u'A' + u'a');
    UserReplace(hwnd, state, std::u16string(1, ch));
}

// Moves the caret; with Shift held the selection's anchor stays.
void MoveCaret(HWND hwnd, EditState& state, int position) {
    bool extend = GetKeyState(VK_SHIFT) < 0;
    Select(hwnd, state, extend ? state.anchor : position, position);
}

// The caret one line up or down, at about the same x.
int LineStep(HWND hwnd, const EditState& state, int delta) {
    int line = state.text.LineOf(state.caret) + delta;
    if (line < 0 || line >= state.text.LineCount())
        return state.caret;
    Measure measure(hwnd, state);
    return PositionAtX(state, measure, line, ColumnX(state, measure, state.caret));
}

bool ForwardToCombo(const EditState& state, UINT vk) {
    if (!state.combo)
        return false;
    bool alt = GetKeyState(VK_MENU) < 0;
    if (vk == VK_UP || vk == VK_DOWN || vk == VK_F4 || vk == VK_PRIOR || vk == VK_NEXT ||
        (alt && (vk == VK_UP || vk == VK_DOWN)))
        return true;
    return (vk == VK_RETURN || vk == VK_ESCAPE) && IsComboDropped(state.combo);
}

void OnKeyDown(HWND hwnd, EditState& state, UINT vk) {
    if (ForwardToCombo(state, vk)) {
        SendMessage(state.combo, WM_KEYDOWN, vk, 0);
        return;
    }
    bool control = GetKeyState(VK_CONTROL) < 0;
    bool multiline = Multiline(hwnd);
    int line = state.text.LineOf(state.caret);
    switch (vk) {
    case VK_LEFT:
        if (state.anchor != state.caret && GetKeyState(VK_SHIFT) >= 0)
            MoveCaret(hwnd, state, std::min(state.anchor, state.caret));
        else
            MoveCaret(hwnd, state, state.text.Previous(state.caret));
        break;
    case VK_RIGHT:
        if (state.anchor != state.caret && GetKeyState(VK_SHIFT) >= 0)
            MoveCaret(hwnd, state, std::max(state.anchor, state.caret));
        else
            MoveCaret(hwnd, state, state.text.Next(state.caret));
        break;
    case VK_UP:
        MoveCaret(hwnd, state,
                  multiline ? LineStep(hwnd, state, -1) : state.text.Previous(state.caret));
        break;
    case VK_DOWN:
        MoveCaret(hwnd, state, multiline ? LineStep(hwnd, state, 1) : state.text.Next(state.caret));
        break;
    case VK_HOME:
        MoveCaret(hwnd, state, control ? 0 : state.text.LineStart(line));
        break;
    case VK_END:
        MoveCaret(hwnd, state,
                  control ? state.text.Length()
                          : state.text.LineStart(line) + state.text.LineLength(line));
        break;
    case VK_INSERT:
        // Shift+Insert pastes, Ctrl+Insert copies.
        if (GetKeyState(VK_SHIFT) < 0)
            SendMessage(hwnd, WM_PASTE, 0, 0);
        else if (control)
            SendMessage(hwnd, WM_COPY, 0, 0);
        break;
    case VK_DELETE:
        if (GetKeyState(VK_SHIFT) < 0 && !control) { // Shift+Delete cuts
            SendMessage(hwnd, WM_CUT, 0, 0);
            break;
        }
        if (ReadOnly(hwnd))
            break;
        if (state.anchor == state.caret) {
            if (state.caret >= state.text.Length())
                break;
            state.anchor = state.caret;
            state.caret = state.text.Next(state.caret);
        }
        UserReplace(hwnd, state, u"");
        break;
    default:
        break;
    }
}

int PositionAt(HWND hwnd, const EditState& state, POINT point) {
    Measure measure(hwnd, state);
    RECT area = TextArea(hwnd);
    int line = state.firstLine;
    if (Multiline(hwnd)) {
        int offset = point.y - TextTop(hwnd, measure);
        line += offset < 0 ? -1 : offset / measure.LineHeight();
        line = std::clamp(line, 0, state.text.LineCount() - 1);
    }
    return PositionAtX(state, measure, line, point.x - area.left + state.scrollX);
}

HBRUSH Background(HWND hwnd, HDC hdc) {
    bool plain = ReadOnly(hwnd) || !IsWindowEnabled(hwnd);
    HWND parent = GetParent(hwnd);
    HBRUSH brush = nullptr;
    if (parent)
        brush = reinterpret_cast<HBRUSH>(
            SendMessage(parent, plain ? WM_CTLCOLORSTATIC : WM_CTLCOLOREDIT,
                        reinterpret_cast<WPARAM>(hdc), reinterpret_cast<LPARAM>(hwnd)));
    return brush ? brush : GetSysColorBrush(plain ? COLOR_BTNFACE : COLOR_WINDOW);
}

void DrawLine(HDC hdc, const EditState& state, const Measure& measure, int line, int x, int y,
              bool enabled) {
    const char16_t* text = state.text.Text().c_str();
    int start = state.text.LineStart(line);
    int end = start + state.text.LineLength(line);
    int selFrom = std::clamp(std::min(state.anchor, state.caret), start, end);
    int selTo = std::clamp(std::max(state.anchor, state.caret), start, end);
    bool showSelection = state.focused && selFrom < selTo;
    COLORREF ink = enabled ? GetSysColor(COLOR_WINDOWTEXT) : GetSysColor(COLOR_GRAYTEXT);
    SetBkMode(hdc, TRANSPARENT);
    if (!showSelection) {
        SetTextColor(hdc, ink);
        TextOut(hdc, x, y, text + start, end - start);
        return;
    }
    int selLeft = x + measure.Width(text + start, selFrom - start);
    int selRight = x + measure.Width(text + start, selTo - start);
    SetTextColor(hdc, ink);
    TextOut(hdc, x, y, text + start, selFrom - start);
    RECT highlight{selLeft, y, selRight, y + measure.LineHeight()};
    FillSolid(hdc, highlight, GetSysColor(COLOR_HIGHLIGHT));
    SetTextColor(hdc, GetSysColor(COLOR_HIGHLIGHTTEXT));
    TextOut(hdc, selLeft, y, text + selFrom, selTo - selFrom);
    SetTextColor(hdc, ink);
    TextOut(hdc, selRight, y, text + selTo, end - selTo);
}

void Paint(HWND hwnd, const EditState& state) {
    PAINTSTRUCT ps;
    HDC hdc = BeginPaint(hwnd, &ps);
    RECT client;
    GetClientRect(hwnd, &client);
    HBRUSH background = Background(hwnd, hdc);
    FillRect(hdc, &client, background);
    {
        Measure measure(hwnd, state);
        FontScope font(hdc, state.font);
        RECT area = TextArea(hwnd);
        bool enabled = IsWindowEnabled(hwnd);
        int top = TextTop(hwnd, measure);
        for (int line = state.firstLine; line < state.text.LineCount(); ++line) {
            int y = top + (line - state.firstLine) * measure.LineHeight();
            if (y >= area.bottom)
                break;
            DrawLine(hdc, state, measure, line, area.left - state.scrollX, y, enabled);
        }
        // What was drawn past the text area is covered again.
        RECT strips[] = {{client.left, client.top, area.left, client.bottom},
                         {area.right, client.top, client.right, client.bottom},
                         {client.left, client.top, client.right, area.top},
                         {client.left, area.bottom, client.right, client.bottom}};
        for (const RECT& strip : strips)
            if (strip.right > strip.left && strip.bottom > strip.top)
                FillRect(hdc, &strip, background);
        if (state.focused && state.anchor == state.caret) {
            int line = state.text.LineOf(state.caret);
            int x = area.left - state.scrollX + ColumnX(state, measure, state.caret);
            int y = top + (line - state.firstLine) * measure.LineHeight();
            if (x >= area.left - 1 && x <= area.right && y >= area.top && y < area.bottom) {
                RECT caret{x, y, x + 1, std::min<int>(y + measure.LineHeight(), area.bottom)};
                FillSolid(hdc, caret, GetSysColor(COLOR_WINDOWTEXT));
            }
        }
    }
    if (Framed(hwnd)) {
        COLORREF frame = !IsWindowEnabled(hwnd) ? 0xCCCCCC : state.focused ? 0xD77800 : 0x7A7A7A;
        FrameSolid(hdc, client, frame);
    }
    EndPaint(hwnd, &ps);
}

void SetText(HWND hwnd, EditState& state, LPCWSTR text) {
    state.text.Assign(text ? std::u16string(text) : std::u16string(), Multiline(hwnd));
    Rewrap(hwnd, state);
    state.anchor = state.caret = 0;
    state.scrollX = 0;
    state.firstLine = 0;
    state.modified = false;
    Redraw(hwnd);
}

LRESULT GetSel(const EditState& state, WPARAM wParam, LPARAM lParam) {
    int from = std::min(state.anchor, state.caret);
    int to = std::max(state.anchor, state.caret);
    if (wParam)
        *reinterpret_cast<DWORD*>(wParam) = static_cast<DWORD>(from);
    if (lParam)
        *reinterpret_cast<DWORD*>(lParam) = static_cast<DWORD>(to);
    return MAKELRESULT(std::min(from, 0xFFFF), std::min(to, 0xFFFF));
}

// EM_SETSEL: -1 as the start removes the selection; a negative end means
// the end of the text.
void SetSel(HWND hwnd, EditState& state, WPARAM wParam, LPARAM lParam) {
    int start = static_cast<int>(wParam);
    int end = static_cast<int>(lParam);
    int length = state.text.Length();
    if (start == -1) {
        Select(hwnd, state, state.caret, state.caret);
        return;
    }
    if (start < 0)
        start = length;
    if (end < 0)
        end = length;
    Select(hwnd, state, std::min(start, length), std::min(end, length));
}

LRESULT GetLine(const EditState& state, int line, LPARAM lParam) {
    auto* buffer = reinterpret_cast<WCHAR*>(lParam);
    if (!buffer || line < 0 || line >= state.text.LineCount())
        return 0;
    // The first WORD of the buffer holds its size in characters.
    int capacity = *reinterpret_cast<const WORD*>(buffer);
    int count = std::min(capacity, state.text.LineLength(line));
    std::copy_n(state.text.Text().c_str() + state.text.LineStart(line), count, buffer);
    return count;
}

LRESULT EditProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        EditState& created = States().Create(hwnd);
        auto* create = reinterpret_cast<const CREATESTRUCT*>(lParam);
        if (create && (create->style & ES_MULTILINE))
            created.limit = kMultilineLimit;
        if (create && create->lpszName)
            created.text.Assign(create->lpszName, (create->style & ES_MULTILINE) != 0);
        return DefWindowProc(hwnd, message, wParam, lParam);
    }
    EditState* state = States().Find(hwnd);
    if (!state)
        return DefWindowProc(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_NCDESTROY:
        States().Erase(hwnd);
        return DefWindowProc(hwnd, message, wParam, lParam);
    case WM_GETDLGCODE: {
        LRESULT code = DLGC_WANTCHARS | DLGC_HASSETSEL | DLGC_WANTARROWS;
        if (Multiline(hwnd) && !ReadOnly(hwnd))
            code |= DLGC_WANTALLKEYS;
        if (state->combo && IsComboDropped(state->combo))
            code |= DLGC_WANTALLKEYS;
        return code;
    }
    case WM_SETFONT:
        state->font = reinterpret_cast<HFONT>(wParam);
        Rewrap(hwnd, *state);
        if (lParam)
            Redraw(hwnd);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(state->font);
    case WM_SETTEXT:
        SetText(hwnd, *state, reinterpret_cast<LPCWSTR>(lParam));
        // A single-line edit reports the new text like a user's change.
        if (!Multiline(hwnd))
            NotifyChange(hwnd);
        return TRUE;
    case WM_GETTEXTLENGTH:
        return state->text.Length();
    case WM_GETTEXT: {
        auto* buffer = reinterpret_cast<LPWSTR>(lParam);
        auto capacity = static_cast<int>(std::min<WPARAM>(wParam, 0x7FFFFFFF));
        if (!buffer || capacity <= 0)
            return 0;
        int count = std::min(state->text.Length(), capacity - 1);
        std::copy_n(state->text.Text().c_str(), count, buffer);
        buffer[count] = 0;
        return count;
    }
    case WM_ENABLE:
        Redraw(hwnd);
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        Paint(hwnd, *state);
        return 0;
    case WM_SIZE:
        Rewrap(hwnd, *state);
        ScrollToCaret(hwnd, *state);
        return 0;
    case WM_SETFOCUS:
        state->focused = true;
        Redraw(hwnd);
        Notify(hwnd, EN_SETFOCUS);
        return 0;
    case WM_KILLFOCUS:
        state->focused = false;
        state->tracking = false;
        if (GetCapture() == hwnd)
            ReleaseCapture();
        Redraw(hwnd);
        Notify(hwnd, EN_KILLFOCUS);
        return 0;
    case WM_CHAR:
        OnChar(hwnd, *state, static_cast<WCHAR>(wParam));
        return 0;
    case WM_KEYDOWN:
        OnKeyDown(hwnd, *state, static_cast<UINT>(wParam));
        return 0;
    case WM_SYSKEYDOWN:
        // With Alt only a combo box's Up and Down (its list) are the edit's;
        // the rest are the window's (F10, Alt+F4, the menu's letters).
        if (state->combo && (wParam == VK_UP || wParam == VK_DOWN)) {
            OnKeyDown(hwnd, *state, static_cast<UINT>(wParam));
            return 0;
        }
        return DefWindowProc(hwnd, message, wParam, lParam);
    case WM_CUT:
    case WM_COPY:
    case WM_PASTE:
    case WM_CLEAR:
        OnClipboardMessage(hwnd, *state, message);
        return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
        if (!state->focused)
            SetFocus(hwnd);
        POINT point{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
        int position = PositionAt(hwnd, *state, point);
        Select(hwnd, *state, (wParam & MK_SHIFT) ? state->anchor : position, position);
        state->tracking = true;
        SetCapture(hwnd);
        return 0;
    }
    case WM_MOUSEMOVE:
        if (state->tracking) {
            POINT point{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
            Select(hwnd, *state, state->anchor, PositionAt(hwnd, *state, point));
        }
        return 0;
    case WM_LBUTTONUP:
        if (state->tracking) {
            state->tracking = false;
            ReleaseCapture();
        }
        return 0;
    case WM_MOUSEWHEEL:
        // A single-line field does not scroll: its parent gets the wheel.
        if (!Multiline(hwnd))
            return DefWindowProc(hwnd, message, wParam, lParam);
        ScrollLines(hwnd, *state, WheelRows(state->wheelRemainder, GET_WHEEL_DELTA_WPARAM(wParam)));
        return 0;
    case EM_GETSEL:
        return GetSel(*state, wParam, lParam);
    case EM_SETSEL:
        SetSel(hwnd, *state, wParam, lParam);
        return 0;
    case EM_REPLACESEL:
        // Reported like typing, as on the original.
        UserReplace(hwnd, *state, lParam ? std::u16string(reinterpret_cast<LPCWSTR>(lParam)) : u"");
        return 0;
    case EM_LIMITTEXT: {
        int limit = static_cast<int>(std::min<WPARAM>(wParam, 0x7FFFFFFE));
        state->limit = limit ? limit : (Multiline(hwnd) ? kMultilineLimit : 0x7FFFFFFE);
        return 0;
    }
    case EM_GETLIMITTEXT:
        return state->limit;
    case EM_GETLINECOUNT:
        return state->text.LineCount();
    case EM_LINEINDEX: {
        int line = static_cast<int>(wParam);
        if (line == -1)
            line = state->text.LineOf(state->caret);
        return line < state->text.LineCount() ? state->text.LineStart(line) : -1;
    }
    case EM_LINEFROMCHAR: {
        int position = static_cast<int>(wParam);
        return state->text.LineOf(position == -1 ? std::min(state->anchor, state->caret)
                                                 : position);
    }
    case EM_LINELENGTH: {
        int position = static_cast<int>(wParam);
        if (position == -1) {
            // The characters of the selected lines that are not selected.
            int from = std::min(state->anchor, state->caret);
            int to = std::max(state->anchor, state->caret);
            int first = state->text.LineOf(from);
            int last = state->text.LineOf(to);
            return (from - state->text.LineStart(first)) +
                   (state->text.LineStart(last) + state->text.LineLength(last) - to);
        }
        return state->text.LineLength(state->text.LineOf(position));
    }
    case EM_GETLINE:
        return GetLine(*state, static_cast<int>(wParam), lParam);
    case EM_GETFIRSTVISIBLELINE:
        return Multiline(hwnd) ? state->firstLine : 0;
    case EM_GETMODIFY:
        return state->modified ? TRUE : FALSE;
    case EM_SETMODIFY:
        state->modified = wParam != 0;
        return 0;
    case EM_SETREADONLY: {
        DWORD style = Style(hwnd);
        style = wParam ? (style | ES_READONLY) : (style & ~static_cast<DWORD>(ES_READONLY));
        SetWindowLongPtr(hwnd, GWL_STYLE, static_cast<LONG_PTR>(style));
        Redraw(hwnd);
        return TRUE;
    }
    case EM_SCROLLCARET:
        ScrollToCaret(hwnd, *state);
        Redraw(hwnd);
        return TRUE;
    case EM_GETRECT: {
        if (lParam)
            *reinterpret_cast<RECT*>(lParam) = TextArea(hwnd);
        return 0;
    }
    default:
        return DefWindowProc(hwnd, message, wParam, lParam);
    }
}

} // namespace

void AttachEditToCombo(HWND edit, HWND combo) {
    if (EditState* state = States().Find(edit))
        state->combo = combo;
}

LRESULT EditClassProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return EditProc(hwnd, message, wParam, lParam);
}

} // namespace platform::user
