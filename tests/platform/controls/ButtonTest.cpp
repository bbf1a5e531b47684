// The BUTTON control: what a click, the space bar and the BM_ messages do to
// push buttons, check boxes, radio groups and group boxes, what the parent is
// told, and the pixels each state paints.
#include "ControlTestSupport.h"

#include <gtest/gtest.h>

namespace {

namespace automation = platform::automation;
using controls_test::Host;
using controls_test::RunUser;

constexpr COLORREF kInk = 0x333333;
constexpr COLORREF kGreyInk = 0xBCBCBC;
constexpr COLORREF kWhite = 0xFFFFFF;
constexpr COLORREF kPushedFill = 0xF7E4CC;
constexpr COLORREF kGreyFill = 0xE6E6E6;

COLORREF PixelAfterPaint(HWND hwnd, int x, int y) {
    InvalidateRect(hwnd, nullptr, TRUE);
    UpdateWindow(hwnd);
    HDC hdc = GetDC(hwnd);
    COLORREF colour = GetPixel(hdc, x, y);
    ReleaseDC(hwnd, hdc);
    return colour;
}

LRESULT Check(HWND button) {
    return SendMessage(button, BM_GETCHECK, 0, 0);
}

LPARAM At(int x, int y) {
    return MAKELPARAM(x, y);
}

class ButtonTest : public ::testing::Test {
protected:
    void SetUp() override { automation::Reset(); }
    void TearDown() override { automation::Reset(); }

    // A 20-pixel-high button: the 13-pixel box of a check box or radio
    // button sits at (0, 3) of its client area.
    HWND Button(DWORD type, UINT id, const char16_t* text = u"Option", int y = 10,
                DWORD extra = 0) {
        return host.Add(u"BUTTON", type | extra, 10, y, 120, 20, id, text);
    }
    // The colour at (x, y) of the box of a check box or radio button.
    COLORREF BoxPixel(HWND button, int x, int y) { return PixelAfterPaint(button, x, 3 + y); }

    Host host;
};

TEST_F(ButtonTest, ClicksToggleAutomaticCheckBoxesAndCycleThreeStateOnesAndEachIsReported) {
    HWND autoBox = Button(BS_AUTOCHECKBOX, 300, u"Auto");
    HWND manual = Button(BS_CHECKBOX, 301, u"Manual", 40);
    HWND three = Button(BS_AUTO3STATE, 302, u"Three", 70);
    for (int i = 0; i < 3; ++i) {
        automation::ClickAt(autoBox, POINT{5, 10});
        automation::ClickAt(manual, POINT{5, 10});
    }
    RunUser();
    EXPECT_EQ(Check(autoBox), BST_CHECKED);
    // A plain check box leaves its state to the parent: it only reports.
    EXPECT_EQ(Check(manual), BST_UNCHECKED);
    std::vector<std::string> expected{"clicked:Auto",   "clicked:Manual", "clicked:Auto",
                                      "clicked:Manual", "clicked:Auto",   "clicked:Manual"};
    EXPECT_EQ(host.Log(), expected);

    std::vector<LRESULT> states;
    for (int i = 0; i < 4; ++i) {
        automation::ClickAt(three, POINT{5, 10});
        RunUser();
        states.push_back(Check(three));
    }
    EXPECT_EQ(states,
              (std::vector<LRESULT>{BST_CHECKED, BST_INDETERMINATE, BST_UNCHECKED, BST_CHECKED}));
}

TEST_F(ButtonTest, OnlyThreeStateBoxesKeepTheIndeterminateStateAndPushButtonsHaveNone) {
    HWND two = Button(BS_AUTOCHECKBOX, 300);
    HWND three = Button(BS_3STATE, 301, u"Three", 40);
    HWND push = Button(BS_PUSHBUTTON, 302, u"Push", 70);
    SendMessage(two, BM_SETCHECK, BST_INDETERMINATE, 0);
    SendMessage(three, BM_SETCHECK, BST_INDETERMINATE, 0);
    SendMessage(push, BM_SETCHECK, BST_CHECKED, 0);
    EXPECT_EQ(Check(two), BST_CHECKED);
    EXPECT_EQ(Check(three), BST_INDETERMINATE);
    EXPECT_EQ(Check(push), 0);
    EXPECT_EQ(SendMessage(push, BM_GETSTATE, 0, 0) & BST_CHECKED, 0);
}

TEST_F(ButtonTest, TheCheckBoxPaintsAWhiteBoxATickOrASquareForItsState) {
    HWND box = Button(BS_3STATE, 300);
    // The frame and the empty box.
    EXPECT_EQ(BoxPixel(box, 0, 0), kInk);
    EXPECT_EQ(BoxPixel(box, 12, 12), kInk);
    EXPECT_EQ(BoxPixel(box, 4, 7), kWhite);
    EXPECT_EQ(BoxPixel(box, 6, 6), kWhite);
    // The tick runs from (3, 6) down to (5, 8) and up to (10, 3), two pixels
    // thick; the middle of the box stays white.
    SendMessage(box, BM_SETCHECK, BST_CHECKED, 0);
    EXPECT_EQ(BoxPixel(box, 4, 7), kInk);
    EXPECT_EQ(BoxPixel(box, 4, 8), kInk);
    EXPECT_EQ(BoxPixel(box, 10, 3), kInk);
    EXPECT_EQ(BoxPixel(box, 6, 6), kWhite);
    // The indeterminate state fills the inner square from (3, 3) to (9, 9).
    SendMessage(box, BM_SETCHECK, BST_INDETERMINATE, 0);
    EXPECT_EQ(BoxPixel(box, 6, 6), kInk);
    EXPECT_EQ(BoxPixel(box, 3, 3), kInk);
    EXPECT_EQ(BoxPixel(box, 9, 9), kInk);
    EXPECT_EQ(BoxPixel(box, 2, 2), kWhite);
    EXPECT_EQ(BoxPixel(box, 10, 10), kWhite);
    // Disabled, the box is grey.
    EnableWindow(box, FALSE);
    EXPECT_EQ(BoxPixel(box, 0, 0), kGreyInk);
    EXPECT_EQ(BoxPixel(box, 6, 6), kGreyInk);
    EXPECT_EQ(BoxPixel(box, 2, 2), kGreyFill);
}

TEST_F(ButtonTest, TheRadioButtonPaintsARingAndADotWhenChecked) {
    HWND radio = Button(BS_RADIOBUTTON, 300);
    // The ring's top and left edges, its white inside and the corner outside it.
    EXPECT_EQ(BoxPixel(radio, 6, 0), kInk);
    EXPECT_EQ(BoxPixel(radio, 0, 6), kInk);
    EXPECT_EQ(BoxPixel(radio, 6, 6), kWhite);
    EXPECT_EQ(BoxPixel(radio, 0, 0), GetSysColor(COLOR_BTNFACE));
    SendMessage(radio, BM_SETCHECK, BST_CHECKED, 0);
    EXPECT_EQ(BoxPixel(radio, 6, 6), kInk);
    EXPECT_EQ(BoxPixel(radio, 4, 4), kInk);
    EXPECT_EQ(BoxPixel(radio, 2, 6), kWhite);
    // A radio button has no third state.
    SendMessage(radio, BM_SETCHECK, BST_INDETERMINATE, 0);
    EXPECT_EQ(Check(radio), BST_CHECKED);
}

TEST_F(ButtonTest, PressingShowsUntilTheMouseLeavesAndAReleaseOutsideIsNoClick) {
    HWND box = Button(BS_AUTOCHECKBOX, 300);
    SendMessage(box, WM_LBUTTONDOWN, MK_LBUTTON, At(5, 10));
    EXPECT_EQ(GetCapture(), box);
    EXPECT_EQ(GetFocus(), box);
    EXPECT_EQ(SendMessage(box, BM_GETSTATE, 0, 0) & BST_PUSHED, BST_PUSHED);
    EXPECT_EQ(BoxPixel(box, 6, 6), kPushedFill);
    // Out of the button the press no longer shows; back in, it does again.
    SendMessage(box, WM_MOUSEMOVE, MK_LBUTTON, At(200, 10));
    EXPECT_EQ(SendMessage(box, BM_GETSTATE, 0, 0) & BST_PUSHED, 0);
    EXPECT_EQ(BoxPixel(box, 6, 6), kWhite);
    SendMessage(box, WM_MOUSEMOVE, MK_LBUTTON, At(5, 5));
    EXPECT_EQ(SendMessage(box, BM_GETSTATE, 0, 0) & BST_PUSHED, BST_PUSHED);
    // Released outside: nothing is clicked and the capture ends.
    SendMessage(box, WM_LBUTTONUP, 0, At(-3, 5));
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(Check(box), BST_UNCHECKED);
    EXPECT_TRUE(host.Log().empty());
    // A release without a press is ignored too.
    SendMessage(box, WM_LBUTTONUP, 0, At(5, 5));
    EXPECT_EQ(Check(box), BST_UNCHECKED);
    EXPECT_TRUE(host.Log().empty());
}

TEST_F(ButtonTest, TheSpaceBarClicksOnReleaseUnlessTheFocusLeavesFirst) {
    HWND box = Button(BS_AUTOCHECKBOX, 300, u"Box");
    HWND other = Button(BS_PUSHBUTTON, 301, u"Other", 40);
    SetFocus(box);
    EXPECT_EQ(SendMessage(box, BM_GETSTATE, 0, 0) & BST_FOCUS, BST_FOCUS);
    automation::Key(VK_SPACE);
    RunUser();
    EXPECT_EQ(Check(box), BST_CHECKED);
    EXPECT_EQ(host.Log(), std::vector<std::string>{"clicked:Box"});

    // Space down, then the focus moves on: the press is dropped.
    host.Log().clear();
    SendMessage(box, WM_KEYDOWN, VK_SPACE, 0);
    EXPECT_EQ(SendMessage(box, BM_GETSTATE, 0, 0) & BST_PUSHED, BST_PUSHED);
    SetFocus(other);
    EXPECT_EQ(SendMessage(box, BM_GETSTATE, 0, 0) & (BST_PUSHED | BST_FOCUS), 0);
    SendMessage(box, WM_KEYUP, VK_SPACE, 0);
    EXPECT_EQ(Check(box), BST_CHECKED);
    EXPECT_TRUE(host.Log().empty());

    // A mouse press ends the same way when the focus is taken away.
    SendMessage(box, WM_LBUTTONDOWN, MK_LBUTTON, At(5, 10));
    EXPECT_EQ(GetCapture(), box);
    SetFocus(other);
    EXPECT_EQ(GetCapture(), nullptr);
    SendMessage(box, WM_LBUTTONUP, 0, At(5, 10));
    EXPECT_TRUE(host.Log().empty());
}

TEST_F(ButtonTest, AnAutomaticRadioButtonUnchecksTheOthersOfItsGroupOnly) {
    HWND a = Button(BS_AUTORADIOBUTTON, 300, u"A", 10, WS_GROUP | WS_TABSTOP);
    HWND b = Button(BS_AUTORADIOBUTTON, 301, u"B", 35);
    HWND box = Button(BS_AUTOCHECKBOX, 302, u"Box", 60);
    HWND c = Button(BS_AUTORADIOBUTTON, 303, u"C", 85);
    HWND d = Button(BS_AUTORADIOBUTTON, 304, u"D", 110, WS_GROUP);
    SendMessage(a, BM_SETCHECK, BST_CHECKED, 0);
    SendMessage(box, BM_SETCHECK, BST_CHECKED, 0);
    SendMessage(d, BM_SETCHECK, BST_CHECKED, 0);

    automation::ClickAt(c, POINT{5, 10});
    RunUser();
    EXPECT_EQ(Check(c), BST_CHECKED);
    EXPECT_EQ(Check(a), BST_UNCHECKED);
    EXPECT_EQ(Check(b), BST_UNCHECKED);
    // A check box inside the group and the next group keep their state.
    EXPECT_EQ(Check(box), BST_CHECKED);
    EXPECT_EQ(Check(d), BST_CHECKED);
    EXPECT_EQ(host.Log(), std::vector<std::string>{"clicked:C"});
    // The checked radio button is the group's tab stop.
    EXPECT_TRUE(GetWindowLongPtr(c, GWL_STYLE) & WS_TABSTOP);
    EXPECT_FALSE(GetWindowLongPtr(a, GWL_STYLE) & WS_TABSTOP);
    // BM_CLICK clicks as the user does.
    SendMessage(b, BM_CLICK, 0, 0);
    EXPECT_EQ(Check(b), BST_CHECKED);
    EXPECT_EQ(Check(c), BST_UNCHECKED);

    // A plain radio button only reports.
    HWND plain = Button(BS_RADIOBUTTON, 305, u"Plain", 135, WS_GROUP);
    SendMessage(plain, BM_CLICK, 0, 0);
    EXPECT_EQ(Check(plain), BST_UNCHECKED);
    EXPECT_EQ(host.Log().back(), "clicked:Plain");
}

TEST_F(ButtonTest, EachKindTellsTheDialogManagerWhatItIs) {
    HWND push = Button(BS_PUSHBUTTON, 300);
    HWND def = Button(BS_DEFPUSHBUTTON, 301);
    HWND radio = Button(BS_AUTORADIOBUTTON, 302);
    HWND box = Button(BS_AUTOCHECKBOX, 303);
    HWND group = Button(BS_GROUPBOX, 304);
    EXPECT_EQ(SendMessage(push, WM_GETDLGCODE, 0, 0), DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON);
    EXPECT_EQ(SendMessage(def, WM_GETDLGCODE, 0, 0), DLGC_BUTTON | DLGC_DEFPUSHBUTTON);
    EXPECT_EQ(SendMessage(radio, WM_GETDLGCODE, 0, 0), DLGC_BUTTON | DLGC_RADIOBUTTON);
    EXPECT_EQ(SendMessage(box, WM_GETDLGCODE, 0, 0), DLGC_BUTTON);
    EXPECT_EQ(SendMessage(group, WM_GETDLGCODE, 0, 0), DLGC_STATIC);
    // BM_SETSTYLE changes the kind and keeps the other style bits.
    SendMessage(push, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    EXPECT_EQ(SendMessage(push, WM_GETDLGCODE, 0, 0), DLGC_BUTTON | DLGC_DEFPUSHBUTTON);
    EXPECT_TRUE(GetWindowLongPtr(push, GWL_STYLE) & WS_VISIBLE);
    EXPECT_TRUE(GetWindowLongPtr(push, GWL_STYLE) & WS_CHILD);
}

TEST_F(ButtonTest, APushButtonsFrameShowsDefaultPushedFocusedAndDisabled) {
    HWND push = host.Add(u"BUTTON", BS_PUSHBUTTON, 10, 10, 80, 24, 300, u"Go");
    HWND other = host.Add(u"BUTTON", BS_PUSHBUTTON, 10, 40, 80, 24, 301, u"Other");
    SetFocus(other);
    EXPECT_EQ(PixelAfterPaint(push, 0, 0), COLORREF{0xADADAD});
    EXPECT_EQ(PixelAfterPaint(push, 1, 1), COLORREF{0xE1E1E1});
    // The default button has a double frame.
    SendMessage(push, BM_SETSTYLE, BS_DEFPUSHBUTTON, FALSE);
    EXPECT_EQ(PixelAfterPaint(push, 0, 0), COLORREF{0xD77800});
    EXPECT_EQ(PixelAfterPaint(push, 1, 1), COLORREF{0xD77800});
    EXPECT_EQ(PixelAfterPaint(push, 2, 2), COLORREF{0xE1E1E1});
    // Held down, it is filled with the pressed colour.
    SendMessage(push, BM_SETSTATE, TRUE, 0);
    EXPECT_EQ(SendMessage(push, BM_GETSTATE, 0, 0) & BST_PUSHED, BST_PUSHED);
    EXPECT_EQ(PixelAfterPaint(push, 0, 0), COLORREF{0x995400});
    EXPECT_EQ(PixelAfterPaint(push, 5, 5), kPushedFill);
    SendMessage(push, BM_SETSTATE, FALSE, 0);
    EXPECT_EQ(PixelAfterPaint(push, 5, 5), COLORREF{0xE1E1E1});
    // Focused, a dotted frame three pixels in: every other pixel.
    SendMessage(push, BM_SETSTYLE, BS_PUSHBUTTON, FALSE);
    SetFocus(push);
    EXPECT_EQ(PixelAfterPaint(push, 3, 3), COLORREF{0});
    EXPECT_EQ(PixelAfterPaint(push, 4, 3), COLORREF{0xE1E1E1});
    EXPECT_EQ(PixelAfterPaint(push, 5, 3), COLORREF{0});
    // Disabled: grey, and a click does nothing.
    SetFocus(other);
    EnableWindow(push, FALSE);
    EXPECT_EQ(PixelAfterPaint(push, 0, 0), COLORREF{0xBFBFBF});
    EXPECT_EQ(PixelAfterPaint(push, 5, 5), COLORREF{0xCCCCCC});
    SendMessage(push, BM_CLICK, 0, 0);
    EXPECT_TRUE(host.Log().empty());
}

TEST_F(ButtonTest, AGroupBoxFramesItsAreaBreaksTheFrameForItsLabelAndTakesNoClicks) {
    HWND group = host.Add(u"BUTTON", BS_GROUPBOX, 10, 10, 200, 100, 300, u"Group");
    HWND empty = host.Add(u"BUTTON", BS_GROUPBOX, 10, 120, 200, 60, 301, u"");
    TEXTMETRIC tm{};
    HDC hdc = GetDC(group);
    auto font = reinterpret_cast<HGDIOBJ>(SendMessage(group, WM_GETFONT, 0, 0));
    HGDIOBJ old = SelectObject(hdc, font ? font : GetStockObject(SYSTEM_FONT));
    GetTextMetrics(hdc, &tm);
    SelectObject(hdc, old);
    ReleaseDC(group, hdc);
    const int line = tm.tmHeight / 2;
    constexpr COLORREF kFrame = 0xDCDCDC;
    EXPECT_EQ(PixelAfterPaint(group, 0, 50), kFrame);
    EXPECT_EQ(PixelAfterPaint(group, 199, 50), kFrame);
    EXPECT_EQ(PixelAfterPaint(group, 100, 99), kFrame);
    EXPECT_EQ(PixelAfterPaint(group, 2, line), kFrame);
    EXPECT_EQ(PixelAfterPaint(group, 190, line), kFrame);
    // The label's gap: no frame between x = 6 and the end of the text.
    EXPECT_NE(PixelAfterPaint(group, 7, line), kFrame);
    EXPECT_EQ(PixelAfterPaint(empty, 7, line), kFrame);

    SendMessage(group, WM_LBUTTONDOWN, MK_LBUTTON, At(50, 50));
    SendMessage(group, WM_LBUTTONUP, 0, At(50, 50));
    SendMessage(group, WM_KEYDOWN, VK_SPACE, 0);
    SendMessage(group, WM_KEYUP, VK_SPACE, 0);
    SendMessage(group, BM_CLICK, 0, 0);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_TRUE(host.Log().empty());
}

TEST_F(ButtonTest, NewTextAndFontsAreKeptAndRepainted) {
    HWND box = Button(BS_AUTOCHECKBOX, 300, u"");
    auto font = reinterpret_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    SendMessage(box, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    EXPECT_EQ(reinterpret_cast<HFONT>(SendMessage(box, WM_GETFONT, 0, 0)), font);
    // Without text, nothing dark is drawn right of the box; with text, it is.
    auto darkRightOfBox = [&] {
        InvalidateRect(box, nullptr, TRUE);
        UpdateWindow(box);
        HDC hdc = GetDC(box);
        int dark = 0;
        for (int y = 0; y < 20; ++y)
            for (int x = 17; x < 120; ++x)
                dark += GetRValue(GetPixel(hdc, x, y)) < 0x60 ? 1 : 0;
        ReleaseDC(box, hdc);
        return dark;
    };
    EXPECT_EQ(darkRightOfBox(), 0);
    SetWindowText(box, u"Label");
    int label = darkRightOfBox();
    EXPECT_GT(label, 10);
    // Focused, a dotted frame goes round the label.
    SetFocus(box);
    EXPECT_GT(darkRightOfBox(), label + 10);
}

} // namespace
