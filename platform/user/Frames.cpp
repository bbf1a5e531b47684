// The non-client area: system metrics, the frame widths each style gives, and
// AdjustWindowRectEx. The figures are the original's at 96 dots per inch with
// its Windows 10 defaults: a caption of 23 pixels (22 plus its bottom line),
// a 1-pixel border, a 3-pixel dialog frame, and a sizing frame of 4 pixels
// plus 4 of padding.
#include "WindowManager.h"

namespace {

constexpr int kBorder = 1;
constexpr int kEdge = 2;
constexpr int kDialogFrame = 3;
constexpr int kSizeFrame = 4;
constexpr int kPaddedBorder = 4;
constexpr int kCaption = 23;
constexpr int kMenu = 20;
constexpr int kCaptionButton = 36;

} // namespace

int GetSystemMetrics(int index) {
    switch (index) {
    case SM_CXSCREEN:
        return static_cast<int>(platform::user::WindowManager::Instance().Desktop()->rect.right);
    case SM_CYSCREEN:
        return static_cast<int>(platform::user::WindowManager::Instance().Desktop()->rect.bottom);
    case SM_CYCAPTION:
    case SM_CYSMCAPTION:
        return kCaption;
    case SM_CXBORDER:
    case SM_CYBORDER:
        return kBorder;
    case SM_CXDLGFRAME:
    case SM_CYDLGFRAME:
        return kDialogFrame;
    case SM_CYMENU:
        return kMenu;
    case SM_CXSIZE:
        return kCaptionButton;
    case SM_CYSIZE:
        return kCaption - 1;
    case SM_CXFRAME:
    case SM_CYFRAME:
        return kSizeFrame;
    case SM_CXEDGE:
    case SM_CYEDGE:
        return kEdge;
    case SM_CXPADDEDBORDER:
        return kPaddedBorder;
    case SM_CXMINTRACK:
        return 136;
    case SM_CYMINTRACK:
        return 39;
    case SM_CXICON:
    case SM_CYICON:
        return 32;
    case SM_CXSMICON:
    case SM_CYSMICON:
        return 16;
    default:
        return 0;
    }
}

namespace platform::user {

RECT FrameInsets(DWORD style, DWORD exStyle, bool menu) {
    // The frame is built from the outside in: an outer edge (2 pixels for a
    // dialog or sizing frame, 1 for a static edge alone), the sizing band
    // (border plus padding), then the 1-pixel border line.
    const bool modal = (exStyle & WS_EX_DLGMODALFRAME) != 0;
    const bool thick = (style & WS_THICKFRAME) != 0;
    int width = 0;
    if ((exStyle & WS_EX_STATICEDGE) && !modal)
        width = kBorder;
    else if (modal || thick || (style & WS_DLGFRAME))
        width = kEdge;
    if (thick)
        width += kBorder + kPaddedBorder;
    if ((style & (WS_BORDER | WS_DLGFRAME)) || modal)
        width += kBorder;
    RECT insets{width, width, width, width};
    if ((style & WS_CAPTION) == WS_CAPTION)
        insets.top += kCaption;
    if (menu)
        insets.top += kMenu;
    if (exStyle & WS_EX_CLIENTEDGE) {
        insets.left += kEdge;
        insets.top += kEdge;
        insets.right += kEdge;
        insets.bottom += kEdge;
    }
    return insets;
}

void UpdateFrame(Window* window) {
    if (window != WindowManager::Instance().Desktop())
        window->frame = FrameInsets(window->style, window->exStyle,
                                    window->menu && !(window->style & WS_CHILD));
}

void RedrawFrame(Window* window) {
    window->ncDirty = window->HasFrame();
    if (window->ncDirty && WindowManager::Instance().IsShown(window)) {
        window->ncDirty = false;
        SendMessage(window->handle, WM_NCPAINT, 1, 0);
    }
}

} // namespace platform::user

BOOL AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD exStyle) {
    if (!rect)
        return FALSE;
    RECT insets = platform::user::FrameInsets(style, exStyle, menu != FALSE);
    rect->left -= insets.left;
    rect->top -= insets.top;
    rect->right += insets.right;
    rect->bottom += insets.bottom;
    return TRUE;
}

BOOL AdjustWindowRect(LPRECT rect, DWORD style, BOOL menu) {
    return AdjustWindowRectEx(rect, style, menu, 0);
}
