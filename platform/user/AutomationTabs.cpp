// The simulated user's clicks on tab controls.
#include "AutomationQueue.h"
#include "controls/Controls.h"

#include <platform/Automation.h>

#include <commctrl.h>

namespace platform::automation {

using platform::user::IsTabControl;

namespace {

// The first shown tab control under root, depth first.
HWND FindShownTabControl(HWND root) {
    for (HWND child = GetWindow(root, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (!IsWindowVisible(child))
            continue;
        if (IsTabControl(child))
            return child;
        if (HWND found = FindShownTabControl(child))
            return found;
    }
    return nullptr;
}

} // namespace

void ClickTab(int index, UINT tabId) {
    detail::Queue([index, tabId] {
        const std::string what = "tab click " + std::to_string(index);
        HWND active = GetActiveWindow();
        HWND tab = !active      ? nullptr
                   : tabId == 0 ? FindShownTabControl(active)
                                : detail::FindControl(active, tabId);
        if (!tab || !IsTabControl(tab) || !IsWindowVisible(tab) || !IsWindowEnabled(tab)) {
            detail::Note(what + ": no tab control that can be clicked in " +
                         detail::Describe(active));
            return;
        }
        RECT rect{};
        if (!SendMessage(tab, TCM_GETITEMRECT, static_cast<WPARAM>(index),
                         reinterpret_cast<LPARAM>(&rect))) {
            detail::Note(what + ": no such tab");
            return;
        }
        std::u16string text(256, u'\0');
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        SendMessage(tab, TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        text.resize(std::char_traits<char16_t>::length(text.c_str()));
        detail::Note(what + " '" + detail::Narrow(text) + "'");
        detail::PostClick(tab, POINT{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2});
    });
}

} // namespace platform::automation
