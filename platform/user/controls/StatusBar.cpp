// The status bar class: a row of parts, each a sunken pane with a line of
// text, and a size grip in the bottom right corner when the window below it
// can be sized. Its parent (the framework's status bar object) places and
// sizes it; the control lays its parts out inside whatever it is given.
#include "../WindowManager.h"
#include "ControlPaint.h"
#include "ControlState.h"

#include <commctrl.h>

#include <algorithm>
#include <string>
#include <vector>

namespace platform::user {

namespace {

// The room above the panes, between two panes, and the square the size grip
// takes at the right end.
constexpr int kTopBorder = 2;
constexpr int kGap = 2;
constexpr int kGripSize = 14;
constexpr int kTextIndent = 3;
constexpr int kMaxParts = 256;

struct Part {
    int rightEdge = -1;
    std::u16string text;
    UINT type = 0; // SBT_ bits
};

struct StatusState {
    std::vector<Part> parts = std::vector<Part>(1);
    HFONT font = nullptr;
};

ControlStates<StatusState>& States() {
    static auto* states = new ControlStates<StatusState>();
    return *states;
}

// The system's status bar font, made once and kept like the system's own.
HFONT DefaultFont() {
    static HFONT font = CreateInterfaceFont();
    return font;
}

bool HasGrip(HWND hwnd) {
    if (!(GetWindowLongPtr(hwnd, GWL_STYLE) & SBARS_SIZEGRIP))
        return false;
    // A maximised window cannot be sized by its corner.
    WindowManager& manager = WindowManager::Instance();
    const Window* window = manager.Find(hwnd);
    const Window* top = window ? manager.TopLevel(const_cast<Window*>(window)) : nullptr;
    return !top || top->placement != Window::Placement::Maximized;
}

// The part's rectangle: from the end of the one before it to its own right
// edge, a part reaching the right end stopping short of the size grip.
RECT PartRect(HWND hwnd, const StatusState& state, std::size_t index) {
    RECT client;
    GetClientRect(hwnd, &client);
    const int end = client.right - (HasGrip(hwnd) ? kGripSize : 0);
    auto rightOf = [&](std::size_t i) {
        const int edge = state.parts[i].rightEdge;
        return edge < 0 ? end : std::min(edge, end);
    };
    const int left = index == 0 ? 0 : rightOf(index - 1) + kGap;
    const int right = std::max(left, rightOf(index));
    return RECT{left, kTopBorder, right, client.bottom};
}

void Edge(HDC hdc, const RECT& r, COLORREF topLeft, COLORREF bottomRight) {
    FillSolid(hdc, RECT{r.left, r.top, r.right, r.top + 1}, topLeft);
    FillSolid(hdc, RECT{r.left, r.top, r.left + 1, r.bottom}, topLeft);
    FillSolid(hdc, RECT{r.left, r.bottom - 1, r.right, r.bottom}, bottomRight);
    FillSolid(hdc, RECT{r.right - 1, r.top, r.right, r.bottom}, bottomRight);
}

// Six small squares in a triangle, pointing into the corner.
void PaintGrip(HDC hdc, const RECT& client) {
    const COLORREF dots = GetSysColor(COLOR_BTNSHADOW);
    const COLORREF light = GetSysColor(COLOR_BTNHIGHLIGHT);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column + row < 3; ++column) {
            const int x = client.right - 4 - 4 * column;
            const int y = client.bottom - 4 - 4 * row;
            FillSolid(hdc, RECT{x + 1, y + 1, x + 3, y + 3}, light);
            FillSolid(hdc, RECT{x, y, x + 2, y + 2}, dots);
        }
}

void Paint(HWND hwnd, const StatusState& state) {
    PAINTSTRUCT ps;
    HDC hdc = BeginPaint(hwnd, &ps);
    RECT client;
    GetClientRect(hwnd, &client);
    FontScope font(hdc, state.font ? state.font : DefaultFont());
    SetBkMode(hdc, TRANSPARENT);
    SetTextColor(hdc, GetSysColor(COLOR_BTNTEXT));
    for (std::size_t i = 0; i < state.parts.size(); ++i) {
        const Part& part = state.parts[i];
        const RECT r = PartRect(hwnd, state, i);
        if (r.right <= r.left)
            continue;
        if (!(part.type & SBT_NOBORDERS)) {
            const COLORREF dark = GetSysColor(COLOR_BTNSHADOW);
            const COLORREF light = GetSysColor(COLOR_BTNHIGHLIGHT);
            if (part.type & SBT_POPOUT)
                Edge(hdc, r, light, dark);
            else
                Edge(hdc, r, dark, light);
        }
        RECT text{r.left + kTextIndent, r.top + 1, r.right - 1, r.bottom - 1};
        DrawText(hdc, part.text.c_str(), static_cast<int>(part.text.size()), &text,
                 DT_SINGLELINE | DT_VCENTER | DT_LEFT | DT_NOPREFIX);
    }
    if (HasGrip(hwnd))
        PaintGrip(hdc, client);
    EndPaint(hwnd, &ps);
}

// The part named by the low byte of wParam, or null.
Part* PartOf(StatusState& state, WPARAM wParam) {
    const std::size_t index = wParam & 0xFF;
    return index < state.parts.size() ? &state.parts[index] : nullptr;
}

LRESULT SetParts(HWND hwnd, StatusState& state, WPARAM count, const int* edges) {
    if (count == 0 || count > kMaxParts || !edges)
        return FALSE;
    state.parts.resize(count);
    for (std::size_t i = 0; i < count; ++i)
        state.parts[i].rightEdge = edges[i];
    InvalidateRect(hwnd, nullptr, TRUE);
    return TRUE;
}

LRESULT StatusProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE)
        States().Create(hwnd);
    StatusState* state = States().Find(hwnd);
    if (!state)
        return DefWindowProc(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_NCDESTROY:
        States().Erase(hwnd);
        return DefWindowProc(hwnd, message, wParam, lParam);
    case WM_SETFONT:
        state->font = reinterpret_cast<HFONT>(wParam);
        if (lParam)
            InvalidateRect(hwnd, nullptr, TRUE);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(state->font ? state->font : DefaultFont());
    case WM_SIZE:
        // A part reaching the right end follows the width.
        InvalidateRect(hwnd, nullptr, TRUE);
        return 0;
    case WM_ERASEBKGND: {
        RECT client;
        GetClientRect(hwnd, &client);
        FillRect(reinterpret_cast<HDC>(wParam), &client, GetSysColorBrush(COLOR_BTNFACE));
        return 1;
    }
    case WM_PAINT:
        Paint(hwnd, *state);
        return 0;
    case SB_SETPARTS:
        return SetParts(hwnd, *state, wParam, reinterpret_cast<const int*>(lParam));
    case SB_GETPARTS: {
        auto* edges = reinterpret_cast<int*>(lParam);
        const std::size_t wanted = std::min<std::size_t>(wParam, state->parts.size());
        for (std::size_t i = 0; edges && i < wanted; ++i)
            edges[i] = state->parts[i].rightEdge;
        return static_cast<LRESULT>(state->parts.size());
    }
    case SB_SETTEXTW: {
        Part* part = PartOf(*state, wParam);
        if (!part)
            return FALSE;
        part->text = lParam ? reinterpret_cast<LPCWSTR>(lParam) : u"";
        part->type = static_cast<UINT>(wParam) & 0xFF00;
        const RECT r = PartRect(hwnd, *state, wParam & 0xFF);
        InvalidateRect(hwnd, &r, TRUE);
        return TRUE;
    }
    case SB_GETTEXTLENGTHW:
    case SB_GETTEXTW: {
        const Part* part = PartOf(*state, wParam);
        if (!part)
            return 0;
        if (message == SB_GETTEXTW && lParam) {
            auto* buffer = reinterpret_cast<LPWSTR>(lParam);
            std::copy(part->text.begin(), part->text.end(), buffer);
            buffer[part->text.size()] = 0;
        }
        return static_cast<LRESULT>(MAKELONG(part->text.size(), part->type));
    }
    case SB_GETRECT: {
        auto* rect = reinterpret_cast<RECT*>(lParam);
        if (!rect || (wParam & ~static_cast<WPARAM>(0xFF)) || !PartOf(*state, wParam))
            return FALSE;
        *rect = PartRect(hwnd, *state, wParam);
        return TRUE;
    }
    case SB_GETBORDERS: {
        auto* borders = reinterpret_cast<int*>(lParam);
        if (!borders)
            return FALSE;
        borders[0] = 0;
        borders[1] = kTopBorder;
        borders[2] = kGap;
        return TRUE;
    }
    default:
        return DefWindowProc(hwnd, message, wParam, lParam);
    }
}

} // namespace

LRESULT StatusBarClassProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return StatusProc(hwnd, message, wParam, lParam);
}

} // namespace platform::user
