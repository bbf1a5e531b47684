// How a pop-up menu looks, in the flat style of the menu bar: a light face
// with a thin grey outline, items in rows with room for a check mark at the
// left, accelerator texts at the right, thin separator lines, and the item
// under the mouse on a pale blue band.
#include "Menus.h"

#include "controls/ControlPaint.h"

#include <wingdi.h>

#include <algorithm>

namespace platform::user {

namespace {

constexpr int kBorder = 1;
constexpr int kPadding = 2;
constexpr int kItemHeight = 22;
constexpr int kSeparatorHeight = 9;
constexpr int kGutter = 30;      // the check mark's column
constexpr int kRightMargin = 24; // room for a pop-up's arrow
constexpr int kAcceleratorGap = 24;
constexpr int kMinimumWidth = 120;
constexpr COLORREF kOutline = RGB(204, 204, 204);
constexpr COLORREF kSeparator = RGB(215, 215, 215);
constexpr COLORREF kHotBand = RGB(145, 201, 247);

// The label and the accelerator text, split at the tab.
void Split(const std::u16string& text, std::u16string* label, std::u16string* accelerator) {
    const std::size_t tab = text.find(u'\t');
    *label = text.substr(0, tab);
    *accelerator = tab == std::u16string::npos ? u"" : text.substr(tab + 1);
}

int TextWidth(HDC hdc, const std::u16string& text, UINT format) {
    RECT measure{0, 0, 0, 0};
    DrawText(hdc, text.c_str(), static_cast<int>(text.size()), &measure,
             format | DT_SINGLELINE | DT_CALCRECT);
    return measure.right - measure.left;
}

// A tick in the gutter, two strokes two pixels thick.
void PaintCheck(HDC hdc, const RECT& item, COLORREF ink) {
    const int x = item.left + kGutter / 2 - 5;
    const int y = (item.top + item.bottom) / 2;
    for (int thick = 0; thick < 2; ++thick) {
        StrokeLine(hdc, x, y + thick - 1, x + 3, y + thick + 2, ink);
        StrokeLine(hdc, x + 3, y + thick + 2, x + 10, y + thick - 5, ink);
    }
}

// A small solid triangle pointing right, for an item that opens a pop-up.
void PaintArrow(HDC hdc, const RECT& item, COLORREF ink) {
    const int x = item.right - kRightMargin / 2 - 2;
    const int y = (item.top + item.bottom) / 2;
    for (int column = 0; column < 4; ++column)
        FillSolid(hdc, RECT{x + column, y - 3 + column, x + column + 1, y + 4 - column}, ink);
}

} // namespace

SIZE LayOutPopup(HDC hdc, const Menu& menu, std::vector<RECT>* itemRects) {
    HGDIOBJ oldFont = SelectObject(hdc, MenuFont());
    int labels = 0;
    int accelerators = 0;
    for (const MenuItem& item : menu.items) {
        if (item.flags & MF_SEPARATOR)
            continue;
        std::u16string label, accelerator;
        Split(item.text, &label, &accelerator);
        labels = std::max(labels, TextWidth(hdc, label, 0));
        accelerators = std::max(accelerators, TextWidth(hdc, accelerator, DT_NOPREFIX));
    }
    SelectObject(hdc, oldFont);
    const int inner = std::max(
        kMinimumWidth,
        kGutter + labels + (accelerators ? kAcceleratorGap + accelerators : 0) + kRightMargin);
    int y = kBorder + kPadding;
    itemRects->clear();
    for (const MenuItem& item : menu.items) {
        const int height = (item.flags & MF_SEPARATOR) ? kSeparatorHeight : kItemHeight;
        itemRects->push_back(RECT{kBorder + kPadding, y, kBorder + kPadding + inner, y + height});
        y += height;
    }
    return SIZE{inner + 2 * (kBorder + kPadding), y + kPadding + kBorder};
}

void PaintPopup(HDC hdc, const Menu& menu, const std::vector<RECT>& itemRects, int hot,
                const RECT& client, bool cues) {
    FillSolid(hdc, client, GetSysColor(COLOR_MENU));
    FrameSolid(hdc, client, kOutline);
    HGDIOBJ oldFont = SelectObject(hdc, MenuFont());
    SetBkMode(hdc, TRANSPARENT);
    const std::size_t count = std::min(menu.items.size(), itemRects.size());
    for (std::size_t i = 0; i < count; ++i) {
        const MenuItem& item = menu.items[i];
        const RECT& r = itemRects[i];
        if (item.flags & MF_SEPARATOR) {
            const int y = (r.top + r.bottom) / 2;
            FillSolid(hdc, RECT{r.left + kGutter, y, r.right - 2, y + 1}, kSeparator);
            continue;
        }
        const bool grey = (item.flags & (MF_GRAYED | MF_DISABLED)) != 0;
        if (static_cast<int>(i) == hot)
            FillSolid(hdc, r, kHotBand);
        const COLORREF ink = GetSysColor(grey ? COLOR_GRAYTEXT : COLOR_MENUTEXT);
        SetTextColor(hdc, ink);
        std::u16string label, accelerator;
        Split(item.text, &label, &accelerator);
        RECT text{r.left + kGutter, r.top, r.right - kRightMargin, r.bottom};
        // Mnemonics are underlined only once the keyboard asks for them.
        DrawText(hdc, label.c_str(), static_cast<int>(label.size()), &text,
                 DT_SINGLELINE | DT_VCENTER | DT_LEFT | (cues ? 0 : DT_HIDEPREFIX));
        if (!accelerator.empty())
            DrawText(hdc, accelerator.c_str(), static_cast<int>(accelerator.size()), &text,
                     DT_SINGLELINE | DT_VCENTER | DT_RIGHT | DT_NOPREFIX);
        if (item.flags & MF_CHECKED)
            PaintCheck(hdc, r, ink);
        if (item.popup)
            PaintArrow(hdc, r, ink);
    }
    SelectObject(hdc, oldFont);
}

} // namespace platform::user
