// A look at the message box the user is shown, queued before the answer.
#pragma once

#include "support/Shown.h"

#include <platform/Automation.h>

#include <string>

namespace testing_support {

// What a message box showed before the user answered it.
struct MessageBoxLook {
    std::u16string text;
    bool stopIcon = false;
};

// True when the box's icon area shows the stop icon's red disc.
inline bool ShowsStopIcon(HWND box) {
    constexpr COLORREF kStopIcon = 0x2E1CE8;
    HDC hdc = GetDC(box);
    bool found = false;
    for (int y = 0; y < 60 && !found; ++y)
        for (int x = 0; x < 60 && !found; ++x)
            found = GetPixel(hdc, x, y) == kStopIcon;
    ReleaseDC(box, hdc);
    return found;
}

// Queues a look at the next message box, then a click on OK.
inline void LookAndConfirm(MessageBoxLook& look) {
    platform::automation::Do([&look] {
        look.text = MessageBoxText();
        look.stopIcon = ShowsStopIcon(GetActiveWindow());
    });
    platform::automation::AnswerMessageBox(IDOK);
}

} // namespace testing_support
