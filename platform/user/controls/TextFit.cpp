#include "TextFit.h"

#include <string>

namespace platform::user {

namespace {

int Width(HDC hdc, std::u16string_view text) {
    SIZE size{};
    GetTextExtentPoint32(hdc, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

} // namespace

void DrawCellText(HDC hdc, std::u16string_view text, const RECT& rect, UINT align) {
    int available = rect.right - rect.left;
    if (available <= 0 || text.empty())
        return;
    std::u16string shown(text);
    if (Width(hdc, text) > available) {
        // The longest prefix that fits with the ellipsis after it.
        static constexpr std::u16string_view kEllipsis = u"...";
        std::size_t low = 0, high = text.size();
        while (low < high) {
            std::size_t mid = (low + high + 1) / 2;
            std::u16string trial(text.substr(0, mid));
            trial += kEllipsis;
            if (Width(hdc, trial) <= available)
                low = mid;
            else
                high = mid - 1;
        }
        shown.assign(text.substr(0, low));
        shown += kEllipsis;
    }
    RECT box = rect;
    DrawText(hdc, shown.c_str(), static_cast<int>(shown.size()), &box,
             align | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

} // namespace platform::user
