// The colour button: subclassing makes it owner-drawn; its pixels released,
// pressed, focused and disabled; the colour dialog's outcome sent to the
// parent; drawing leaves no pen, brush or DC behind.
#include "support/TempDir.h"

#include <Win/controls/CColourButton.h>
#include <platform/Automation.h>
#include <platform/GdiObjects.h>
#include <platform/MessagePump.h>
#include <platform/WindowPictures.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <utility>
#include <vector>

namespace {

namespace automation = platform::automation;

constexpr UINT kButtonId = 1500;
constexpr COLORREF kColour = 0x2080E0;
constexpr int kWidth = 60;
constexpr int kHeight = 30;

// A parent that keeps every WM_COLOURBUTTON it gets.
class Parent : public CWnd {
public:
    std::vector<std::pair<WPARAM, LPARAM>> told;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_COLOURBUTTON) {
            told.emplace_back(wParam, lParam);
            return 0;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

class ColourButtonTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        ASSERT_TRUE(parent.CreateEx(0, nullptr, u"Host", WS_POPUP | WS_VISIBLE,
                                    CRect(40, 40, 240, 140), nullptr, 0));
        HWND plain = ::CreateWindowEx(0, u"BUTTON", u"", WS_CHILD | WS_VISIBLE | style, 20, 20,
                                      kWidth, kHeight, parent.GetSafeHwnd(),
                                      reinterpret_cast<HMENU>(kButtonId), nullptr, nullptr);
        ASSERT_TRUE(plain);
        ASSERT_TRUE(button.SubclassDlgItem(kButtonId, &parent));
        dir = testing_support::TestOutputDir("colour-button");
    }
    void TearDown() override {
        parent.DestroyWindow();
        automation::Reset();
        platform::PumpMessages();
    }
    void Paint() {
        button.Invalidate();
        button.UpdateWindow();
    }
    COLORREF At(int x, int y) {
        CDC* dc = button.GetDC();
        COLORREF colour = dc->GetPixel(x, y);
        button.ReleaseDC(dc);
        return colour;
    }
    void Picture(const char* name) {
        EXPECT_TRUE(platform::SaveWindowAsPng(button.GetSafeHwnd(), (dir / name).string()));
    }
    bool Invalid() {
        CRect update;
        return button.GetUpdateRect(&update) != FALSE;
    }

    DWORD style = BS_PUSHBUTTON;
    Parent parent;
    CColourButton button{kColour};
    std::filesystem::path dir;
    const COLORREF face = ::GetSysColor(COLOR_BTNFACE);
};

TEST_F(ColourButtonTest, SubclassingMakesTheButtonOwnerDrawn) {
    EXPECT_EQ(button.GetStyle() & BS_TYPEMASK, static_cast<DWORD>(BS_OWNERDRAW));
    EXPECT_EQ(button.GetColour(), kColour);
}

class DefaultColourButtonTest : public ColourButtonTest {
protected:
    DefaultColourButtonTest() { style = BS_DEFPUSHBUTTON; }
};

TEST_F(DefaultColourButtonTest, ADefaultPushButtonEndsOwnerDrawnToo) {
    EXPECT_EQ(button.GetButtonStyle(), static_cast<UINT>(BS_OWNERDRAW));
}

TEST_F(ColourButtonTest, ReleasedIsRaisedWithTheSwatchInside) {
    Paint();
    Picture("released.png");
    EXPECT_EQ(At(0, 0), face);
    EXPECT_EQ(At(0, kHeight - 1), 0u);            // black bottom
    EXPECT_EQ(At(kWidth - 1, 15), 0u);            // black right
    EXPECT_EQ(At(15, kHeight - 2), 0x808080u);    // grey bottom inside it
    EXPECT_EQ(At(kWidth - 2, 15), 0x808080u);     // grey right inside it
    EXPECT_EQ(At(15, 1), 0xFFFFFFu);              // white top
    EXPECT_EQ(At(1, 15), 0xFFFFFFu);              // white left
    EXPECT_EQ(At(4, 4), face);                    // outside the swatch
    EXPECT_EQ(At(5, 4), 0u);                      // its outline, top left
    EXPECT_EQ(At(kWidth - 6, kHeight - 5), 0u);   // and bottom right
    EXPECT_EQ(At(kWidth - 5, kHeight - 4), face); // outside again
    EXPECT_EQ(At(6, 5), kColour);                 // filled with the colour
    EXPECT_EQ(At(kWidth - 7, kHeight - 6), kColour);
    EXPECT_EQ(At(3, 3), face); // no focus frame
}

TEST_F(ColourButtonTest, PressedIsSunkenAndTheSwatchMovesByOnePixel) {
    button.SetState(TRUE);
    Paint();
    Picture("pressed.png");
    EXPECT_EQ(At(0, 15), 0x808080u);           // grey left
    EXPECT_EQ(At(15, 0), 0x808080u);           // grey top
    EXPECT_EQ(At(kWidth - 1, 15), 0xFFFFFFu);  // white right
    EXPECT_EQ(At(15, kHeight - 1), 0xFFFFFFu); // white bottom
    EXPECT_EQ(At(1, 15), 0u);                  // black inside the grey
    EXPECT_EQ(At(15, 1), 0u);
    EXPECT_EQ(At(5, 4), face); // the released outline's corner is empty
    EXPECT_EQ(At(6, 5), 0u);   // the outline one lower and to the right
    EXPECT_EQ(At(kWidth - 5, kHeight - 4), 0u);
    EXPECT_EQ(At(7, 6), kColour);
}

TEST_F(ColourButtonTest, FocusedHasADottedFrame) {
    button.SetFocus();
    Paint();
    Picture("focused.png");
    for (int x = 3; x < kWidth - 4; ++x) {
        COLORREF want = (x - 3) % 2 == 0 ? 0u : face;
        EXPECT_EQ(At(x, 3), want) << "top x=" << x;
        EXPECT_EQ(At(x, kHeight - 4), want) << "bottom x=" << x;
    }
    for (int y = 3; y < kHeight - 4; ++y) {
        COLORREF want = (y - 3) % 2 == 0 ? 0u : face;
        EXPECT_EQ(At(3, y), want) << "left y=" << y;
        EXPECT_EQ(At(kWidth - 4, y), want) << "right y=" << y;
    }
    EXPECT_EQ(At(kWidth - 4, kHeight - 4), face); // the frame stops before
}

TEST_F(ColourButtonTest, DisabledShowsOnlyTheFaceAndBorder) {
    button.EnableWindow(FALSE);
    Paint();
    Picture("disabled.png");
    for (int y = 2; y < kHeight - 2; ++y)
        for (int x = 2; x < kWidth - 2; ++x)
            ASSERT_EQ(At(x, y), face) << x << "," << y;
    EXPECT_EQ(At(0, kHeight - 1), 0u);
    EXPECT_EQ(At(1, 15), 0xFFFFFFu);
}

TEST_F(ColourButtonTest, SetColourShowsAtTheNextPaint) {
    Paint();
    button.SetColour(0x00FF00);
    EXPECT_FALSE(Invalid());
    EXPECT_EQ(At(20, 15), kColour);
    Paint();
    EXPECT_EQ(At(20, 15), 0x00FF00u);
}

TEST_F(ColourButtonTest, DrawingLeavesTheDcAndTheObjectCountsAsTheyWere) {
    Paint(); // first use of every stock object and cached font
    for (UINT state : {0u, static_cast<UINT>(ODS_SELECTED), static_cast<UINT>(ODS_FOCUS),
                       static_cast<UINT>(ODS_DISABLED),
                       static_cast<UINT>(ODS_SELECTED | ODS_FOCUS | ODS_DISABLED)}) {
        platform::GdiCounts before = platform::LiveGdiObjects();
        CDC* dc = button.GetDC();
        CPen pen(PS_SOLID, 3, 0x0000FF);
        CBrush brush(0x00FFFF);
        CPen* oldPen = dc->SelectObject(&pen);
        CBrush* oldBrush = dc->SelectObject(&brush);
        DRAWITEMSTRUCT item{ODT_BUTTON,
                            kButtonId,
                            0,
                            ODA_DRAWENTIRE,
                            state,
                            button.m_hWnd,
                            dc->GetSafeHdc(),
                            {0, 0, kWidth, kHeight},
                            0};
        platform::GdiCounts during = platform::LiveGdiObjects();
        button.DrawItem(&item);
        EXPECT_EQ(platform::LiveGdiObjects(), during) << "state " << state;
        EXPECT_EQ(dc->GetCurrentPen()->GetSafeHandle(), pen.GetSafeHandle());
        EXPECT_EQ(dc->GetCurrentBrush()->GetSafeHandle(), brush.GetSafeHandle());
        dc->SelectObject(oldPen);
        dc->SelectObject(oldBrush);
        button.ReleaseDC(dc);
        pen.DeleteObject();
        brush.DeleteObject();
        EXPECT_EQ(platform::LiveGdiObjects(), before) << platform::ToString(before);
    }
}

TEST_F(ColourButtonTest, ACancelSendsTheOldColourAndDoesNotRepaint) {
    Paint();
    automation::Click(IDCANCEL);
    button.SendMessage(BM_CLICK);
    ASSERT_EQ(parent.told.size(), 1u);
    EXPECT_EQ(parent.told[0].first, kButtonId);
    EXPECT_EQ(static_cast<COLORREF>(parent.told[0].second), kColour);
    EXPECT_EQ(button.GetColour(), kColour);
    EXPECT_FALSE(Invalid());

    // Closing the dialog without any answer counts as a cancel too.
    button.SendMessage(BM_CLICK);
    ASSERT_EQ(parent.told.size(), 2u);
    EXPECT_EQ(static_cast<COLORREF>(parent.told[1].second), kColour);
}

TEST_F(ColourButtonTest, TheSameColourIsToldButNotRepainted) {
    Paint();
    automation::PickColor(kColour);
    button.SendMessage(BM_CLICK);
    ASSERT_EQ(parent.told.size(), 1u);
    EXPECT_EQ(static_cast<COLORREF>(parent.told[0].second), kColour);
    EXPECT_FALSE(Invalid());
}

TEST_F(ColourButtonTest, ANewColourIsShownAndTold) {
    Paint();
    COLORREF proposed = 1;
    automation::Do([&proposed] { automation::ReadColorDialog(&proposed); });
    automation::Do([this] {
        EXPECT_TRUE(platform::SaveWindowAsPng(::GetActiveWindow(), (dir / "dialog.png").string()));
    });
    automation::PickColor(0x0000FF);
    button.SendMessage(BM_CLICK);
    EXPECT_EQ(proposed, kColour);
    EXPECT_EQ(button.GetColour(), 0x0000FFu);
    ASSERT_EQ(parent.told.size(), 1u);
    EXPECT_EQ(parent.told[0], std::make_pair(static_cast<WPARAM>(kButtonId), LPARAM{0x0000FF}));
    EXPECT_TRUE(Invalid());
    button.UpdateWindow();
    EXPECT_EQ(At(20, 15), 0x0000FFu);
    Picture("picked.png");
}

// A host's button that also handles a command of its own.
class CommandButton : public CColourButton {
public:
    int seen = 0;

protected:
    void OnSeven() { ++seen; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CommandButton, CColourButton)
ON_COMMAND(777, OnSeven)
END_MESSAGE_MAP()

TEST(ColourButtonCommandTest, CommandsGoOnPastTheButtonEvenWhenHandled) {
    CommandButton button;
    EXPECT_EQ(button.OnCmdMsg(777, CN_COMMAND, nullptr, nullptr), FALSE);
    EXPECT_EQ(button.seen, 1);
    EXPECT_EQ(button.OnCmdMsg(778, CN_COMMAND, nullptr, nullptr), FALSE);
    EXPECT_EQ(button.seen, 1);
}

} // namespace
