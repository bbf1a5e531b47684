// A status bar that shows the text of its first pane in white on dark blue
// and nothing else: no other panes, no borders, no size grip.
#pragma once

#include <afxext.h>

class CColorStatusBar : public CStatusBar {
public:
    CColorStatusBar() = default;
    ~CColorStatusBar() override;

private:
    // Writes the first pane's text and one space at (0, 3) in the bar's own
    // font; an empty text leaves the erased background alone.
    void OnPaint() override;

    DECLARE_MESSAGE_MAP()
};
