// The colour dialog's window: the basic colour swatches (owner-drawn
// buttons), the sample of the colour being chosen and its red, green and
// blue value fields, kept in step with each other.
#include "ColorDialog.h"

#include "../DialogWindows.h"
#include "../controls/ControlPaint.h"

#include <dlgs.h>

#include <algorithm>
#include <string>

namespace platform::user::colordialog {

namespace {

constexpr COLORREF Rgb(int r, int g, int b) {
    return static_cast<COLORREF>(r | (g << 8) | (b << 16));
}

constexpr int kMargin = 10;
constexpr int kSwatchWidth = 22;
constexpr int kSwatchHeight = 18;
constexpr int kSwatchStepX = 26;
constexpr int kSwatchStepY = 22;
constexpr int kGridTop = 28;
constexpr int kPanelLeft = kMargin + 8 * kSwatchStepX + 12;
constexpr int kClientWidth = kPanelLeft + 110 + kMargin;
constexpr int kButtonTop = kGridTop + 6 * kSwatchStepY + 12;
constexpr int kClientHeight = kButtonTop + 23 + kMargin;

constexpr int kValueIds[] = {COLOR_RED, COLOR_GREEN, COLOR_BLUE};

DialogState* MutableStateOf(HWND hwnd) {
    return DialogStateOf<DialogState>(hwnd, &ColorDialogProc);
}

void CreateControls(HWND dialog) {
    AddDialogControl(dialog, u"STATIC", u"&Basic colours:", SS_LEFT, COLOR_BOX1, kMargin, kMargin,
                     8 * kSwatchStepX, 16);
    for (int i = 0; i < 48; ++i)
        AddDialogControl(dialog, u"BUTTON", nullptr,
                         BS_OWNERDRAW | (i == 0 ? WS_TABSTOP | WS_GROUP : 0), kFirstSwatch + i,
                         kMargin + (i % 8) * kSwatchStepX, kGridTop + (i / 8) * kSwatchStepY,
                         kSwatchWidth, kSwatchHeight);
    // The sample is a button that cannot be pressed, drawn like the swatches.
    HWND sample = AddDialogControl(dialog, u"BUTTON", nullptr, BS_OWNERDRAW, COLOR_CURRENT,
                                   kPanelLeft, kGridTop, 110, 50);
    EnableWindow(sample, FALSE);
    const WCHAR* labels[] = {u"&Red:", u"&Green:", u"Bl&ue:"};
    for (int i = 0; i < 3; ++i) {
        int y = kGridTop + 62 + i * 26;
        AddDialogControl(dialog, u"STATIC", labels[i], SS_LEFT, -1, kPanelLeft, y + 3, 50, 16);
        AddDialogControl(dialog, u"EDIT", nullptr,
                         ES_NUMBER | ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP, kValueIds[i],
                         kPanelLeft + 55, y, 55, 21);
    }
    AddDialogControl(dialog, u"BUTTON", u"OK", BS_DEFPUSHBUTTON | WS_TABSTOP | WS_GROUP, IDOK,
                     kMargin, kButtonTop, 75, 23);
    AddDialogControl(dialog, u"BUTTON", u"Cancel", BS_PUSHBUTTON | WS_TABSTOP, IDCANCEL,
                     kMargin + 75 + 8, kButtonTop, 75, 23);
}

int Component(COLORREF colour, int index) {
    return static_cast<int>((colour >> (8 * index)) & 0xFF);
}

// A value field's number: its digits, 255 at most; empty reads as 0.
int FieldValue(HWND field) {
    WCHAR text[16] = {};
    GetWindowText(field, text, 16);
    int value = 0;
    for (const WCHAR* p = text; *p >= u'0' && *p <= u'9'; ++p)
        value = std::min(255, value * 10 + (*p - u'0'));
    return value;
}

void ShowCurrent(HWND hwnd) {
    InvalidateRect(GetDlgItem(hwnd, COLOR_CURRENT), nullptr, TRUE);
    for (int i = 0; i < 48; ++i)
        InvalidateRect(GetDlgItem(hwnd, kFirstSwatch + i), nullptr, TRUE);
}

void WriteFields(HWND hwnd, DialogState& state) {
    state.writing = true;
    for (int i = 0; i < 3; ++i) {
        std::u16string text;
        for (char ch : std::to_string(Component(state.current, i)))
            text += static_cast<char16_t>(ch);
        SetWindowText(GetDlgItem(hwnd, kValueIds[i]), text.c_str());
    }
    state.writing = false;
}

void ReadFields(HWND hwnd, DialogState& state) {
    state.current =
        Rgb(FieldValue(GetDlgItem(hwnd, COLOR_RED)), FieldValue(GetDlgItem(hwnd, COLOR_GREEN)),
            FieldValue(GetDlgItem(hwnd, COLOR_BLUE)));
}

// A swatch: its colour inside a grey border; the one matching the colour
// being chosen has a black frame, the focused one a dotted one.
void DrawSwatch(const DRAWITEMSTRUCT& item, COLORREF colour, bool chosen) {
    RECT r = item.rcItem;
    FillSolid(item.hDC, r, GetSysColor(COLOR_BTNFACE));
    if (chosen) {
        FrameSolid(item.hDC, r, 0x000000);
        FrameSolid(item.hDC, RECT{r.left + 1, r.top + 1, r.right - 1, r.bottom - 1}, 0x000000);
    }
    RECT well{r.left + 3, r.top + 3, r.right - 3, r.bottom - 3};
    FillSolid(item.hDC, well, GetSysColor(COLOR_BTNSHADOW));
    RECT inside{well.left + 1, well.top + 1, well.right - 1, well.bottom - 1};
    FillSolid(item.hDC, inside, colour);
    if ((item.itemState & ODS_FOCUS) && !chosen)
        DottedFrame(item.hDC, r, 0x000000);
}

void OnDrawItem(HWND, DialogState& state, const DRAWITEMSTRUCT& item) {
    if (item.CtlID == COLOR_CURRENT) {
        FillSolid(item.hDC, item.rcItem, GetSysColor(COLOR_BTNSHADOW));
        RECT inside{item.rcItem.left + 1, item.rcItem.top + 1, item.rcItem.right - 1,
                    item.rcItem.bottom - 1};
        FillSolid(item.hDC, inside, state.current);
        return;
    }
    int index = static_cast<int>(item.CtlID) - kFirstSwatch;
    if (index >= 0 && index < 48) {
        COLORREF colour = kBasicColours[static_cast<std::size_t>(index)];
        DrawSwatch(item, colour, colour == state.current);
    }
}

void OnCommand(HWND hwnd, DialogState& state, int id, int code) {
    if (id == IDOK) {
        ReadFields(hwnd, state);
        state.cc->rgbResult = state.current;
        EndDialog(hwnd, IDOK);
    } else if (id == IDCANCEL) {
        EndDialog(hwnd, IDCANCEL);
    } else if (id >= kFirstSwatch && id < kFirstSwatch + 48 && code == BN_CLICKED) {
        state.current = kBasicColours[static_cast<std::size_t>(id - kFirstSwatch)];
        WriteFields(hwnd, state);
        ShowCurrent(hwnd);
    } else if ((id == COLOR_RED || id == COLOR_GREEN || id == COLOR_BLUE) && code == EN_CHANGE &&
               !state.writing) {
        ReadFields(hwnd, state);
        ShowCurrent(hwnd);
    }
}

void OnInit(HWND hwnd, DialogState& state) {
    CreateControls(hwnd);
    CentreOverOwner(hwnd, SIZE{kClientWidth, kClientHeight});
    state.current = (state.cc->Flags & CC_RGBINIT) ? state.cc->rgbResult & 0xFFFFFF : 0;
    WriteFields(hwnd, state);
    for (int i = 0; i < 48; ++i)
        if (kBasicColours[static_cast<std::size_t>(i)] == state.current) {
            SetFocus(GetDlgItem(hwnd, kFirstSwatch + i));
            return;
        }
    SetFocus(GetDlgItem(hwnd, kFirstSwatch));
}

} // namespace

const std::array<COLORREF, 48> kBasicColours = {
    Rgb(255, 128, 128), Rgb(255, 255, 128), Rgb(128, 255, 128), Rgb(0, 255, 128),
    Rgb(128, 255, 255), Rgb(0, 128, 255),   Rgb(255, 128, 192), Rgb(255, 128, 255),
    Rgb(255, 0, 0),     Rgb(255, 255, 0),   Rgb(128, 255, 0),   Rgb(0, 255, 64),
    Rgb(0, 255, 255),   Rgb(0, 128, 192),   Rgb(128, 128, 192), Rgb(255, 0, 255),
    Rgb(128, 64, 64),   Rgb(255, 128, 64),  Rgb(0, 255, 0),     Rgb(0, 128, 128),
    Rgb(0, 64, 128),    Rgb(128, 128, 255), Rgb(128, 0, 64),    Rgb(255, 0, 128),
    Rgb(128, 0, 0),     Rgb(255, 128, 0),   Rgb(0, 128, 0),     Rgb(0, 128, 64),
    Rgb(0, 0, 255),     Rgb(0, 0, 160),     Rgb(128, 0, 128),   Rgb(128, 0, 255),
    Rgb(64, 0, 0),      Rgb(128, 64, 0),    Rgb(0, 64, 0),      Rgb(0, 64, 64),
    Rgb(0, 0, 128),     Rgb(0, 0, 64),      Rgb(64, 0, 64),     Rgb(64, 0, 128),
    Rgb(0, 0, 0),       Rgb(128, 128, 0),   Rgb(128, 128, 64),  Rgb(128, 128, 128),
    Rgb(64, 128, 128),  Rgb(192, 192, 192), Rgb(64, 0, 64),     Rgb(255, 255, 255),
};

const DialogState* StateOf(HWND hwnd) {
    return MutableStateOf(hwnd);
}

INT_PTR ColorDialogProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtr(hwnd, DWLP_USER, lParam);
        OnInit(hwnd, *reinterpret_cast<DialogState*>(lParam));
        return FALSE;
    }
    DialogState* state = MutableStateOf(hwnd);
    if (!state)
        return FALSE;
    switch (message) {
    case WM_COMMAND:
        OnCommand(hwnd, *state, LOWORD(wParam), HIWORD(wParam));
        return TRUE;
    case WM_DRAWITEM:
        if (lParam)
            OnDrawItem(hwnd, *state, *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    default:
        return FALSE;
    }
}

} // namespace platform::user::colordialog
