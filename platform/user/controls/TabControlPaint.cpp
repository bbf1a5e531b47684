// The tab control's geometry and its flat look: a row of tabs along the top,
// the selected one in the panel's face and joined to it, the others a shade
// darker, and a one-pixel frame around the panel.
#include "ControlPaint.h"
#include "TabControl.h"

#include <algorithm>

namespace platform::user::tabs {

namespace {

constexpr COLORREF kBorder = RGB(172, 172, 172);
constexpr COLORREF kUnselectedFace = RGB(225, 225, 225);

// The width of a tab's label as drawn, '&' prefixes included.
int LabelWidth(HDC hdc, const std::u16string& text) {
    if (text.empty())
        return 0;
    RECT measured{0, 0, 0, 0};
    DrawText(hdc, text.c_str(), static_cast<int>(text.size()), &measured,
             DT_SINGLELINE | DT_CALCRECT);
    return measured.right - measured.left;
}

} // namespace

int RowHeight(HWND hwnd, const TabState& state) {
    HDC hdc = GetDC(hwnd);
    int height = 0;
    {
        FontScope font(hdc, state.font);
        TEXTMETRIC tm{};
        GetTextMetrics(hdc, &tm);
        height = tm.tmHeight;
    }
    ReleaseDC(hwnd, hdc);
    return height + 2 * kTextPadY + kSelectedRaise;
}

std::vector<RECT> ItemRects(HWND hwnd, const TabState& state) {
    std::vector<RECT> rects;
    rects.reserve(state.items.size());
    const int row = RowHeight(hwnd, state);
    HDC hdc = GetDC(hwnd);
    {
        FontScope font(hdc, state.font);
        int x = kSelectedRaise;
        for (const TabItem& item : state.items) {
            int width = LabelWidth(hdc, item.text) + 2 * kTextPadX;
            rects.push_back(RECT{x, kSelectedRaise, x + width, row});
            x += width;
        }
    }
    ReleaseDC(hwnd, hdc);
    return rects;
}

RECT DrawnRect(const TabState& state, const std::vector<RECT>& rects, int index) {
    RECT rect = rects[static_cast<std::size_t>(index)];
    if (index == state.selected) {
        rect.left -= kSelectedRaise;
        rect.right += kSelectedRaise;
        rect.top = 0;
        // Over the panel's top edge, so the tab and the panel are one.
        rect.bottom += 1;
    }
    return rect;
}

void AdjustRect(HWND hwnd, const TabState& state, bool larger, RECT* rect) {
    const int row = RowHeight(hwnd, state);
    const int sign = larger ? -1 : 1;
    rect->left += sign * kDisplayInset;
    rect->right -= sign * kDisplayInset;
    rect->top += sign * (row + kDisplayInset);
    rect->bottom -= sign * kDisplayInset;
}

int HitTest(HWND hwnd, const TabState& state, POINT point) {
    std::vector<RECT> rects = ItemRects(hwnd, state);
    // The selected tab is drawn over its neighbours, so it is tried first.
    auto inside = [&point](const RECT& r) {
        return point.x >= r.left && point.x < r.right && point.y >= r.top && point.y < r.bottom;
    };
    if (state.selected >= 0 && state.selected < static_cast<int>(rects.size()) &&
        inside(DrawnRect(state, rects, state.selected)))
        return state.selected;
    for (std::size_t i = 0; i < rects.size(); ++i)
        if (inside(rects[i]))
            return static_cast<int>(i);
    return -1;
}

namespace {

void PaintTab(HWND hwnd, HDC hdc, const TabState& state, const RECT& rect, int index) {
    const bool selected = index == state.selected;
    const COLORREF face = selected ? GetSysColor(COLOR_BTNFACE) : kUnselectedFace;
    FillSolid(hdc, rect, face);
    // Left, top and right edges; the selected tab stays open at the bottom.
    FillSolid(hdc, RECT{rect.left, rect.top, rect.right, rect.top + 1}, kBorder);
    FillSolid(hdc, RECT{rect.left, rect.top, rect.left + 1, rect.bottom}, kBorder);
    FillSolid(hdc, RECT{rect.right - 1, rect.top, rect.right, rect.bottom}, kBorder);
    const std::u16string& text = state.items[static_cast<std::size_t>(index)].text;
    SetBkMode(hdc, TRANSPARENT);
    SetTextColor(hdc,
                 IsWindowEnabled(hwnd) ? GetSysColor(COLOR_BTNTEXT) : GetSysColor(COLOR_GRAYTEXT));
    RECT label = rect;
    if (selected)
        label.bottom -= 1;
    DrawText(hdc, text.c_str(), static_cast<int>(text.size()), &label,
             DT_SINGLELINE | DT_CENTER | DT_VCENTER);
    if (selected && state.focused) {
        RECT focus{rect.left + 3, rect.top + 3, rect.right - 3, label.bottom - 2};
        DottedFrame(hdc, focus, 0x000000);
    }
}

} // namespace

void Paint(HWND hwnd, const TabState& state) {
    PAINTSTRUCT ps;
    HDC hdc = BeginPaint(hwnd, &ps);
    RECT client;
    GetClientRect(hwnd, &client);
    FillRect(hdc, &client, ControlBackground(hwnd, hdc, WM_CTLCOLORSTATIC));
    const int row = RowHeight(hwnd, state);
    RECT panel{client.left, row, client.right, client.bottom};
    FillSolid(hdc, panel, GetSysColor(COLOR_BTNFACE));
    FrameSolid(hdc, panel, kBorder);
    FontScope font(hdc, state.font);
    std::vector<RECT> rects = ItemRects(hwnd, state);
    for (int i = 0; i < static_cast<int>(rects.size()); ++i)
        if (i != state.selected)
            PaintTab(hwnd, hdc, state, rects[static_cast<std::size_t>(i)], i);
    if (state.selected >= 0 && state.selected < static_cast<int>(rects.size()))
        PaintTab(hwnd, hdc, state, DrawnRect(state, rects, state.selected), state.selected);
    EndPaint(hwnd, &ps);
}

} // namespace platform::user::tabs
