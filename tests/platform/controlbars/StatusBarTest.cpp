// The status bar: the control's parts, texts, font and look, and the
// framework's status bar in a frame, along its bottom edge, with its
// indicator panes and the room it leaves the pane.
#include "BarFrame.h"

#include <platform/GdiObjects.h>

#include <commctrl.h>

#include <string>

namespace controlbars {
namespace {

// A plain status bar control, 300 by 24, in a popup window.
class StatusControlTest : public ::testing::Test {
protected:
    void SetUp() override {
        parent = ::CreateWindowEx(0, u"STATIC", u"", WS_POPUP | WS_VISIBLE, 50, 50, 320, 80,
                                  nullptr, nullptr, nullptr, nullptr);
        ASSERT_TRUE(parent);
        bar = ::CreateWindowEx(0, STATUSCLASSNAME, u"", WS_CHILD | WS_VISIBLE | style, 0, 40, 300,
                               24, parent, nullptr, nullptr, nullptr);
        ASSERT_TRUE(bar);
    }
    void TearDown() override {
        ::DestroyWindow(parent);
        platform::PumpMessages();
    }
    void SetParts(std::vector<int> edges) {
        ASSERT_TRUE(
            ::SendMessage(bar, SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data())));
    }
    BOOL SetText(int part, const char16_t* text, UINT type = 0) {
        return static_cast<BOOL>(::SendMessage(bar, SB_SETTEXT, static_cast<WPARAM>(part) | type,
                                               reinterpret_cast<LPARAM>(text)));
    }
    std::u16string Text(int part) {
        const auto length = LOWORD(::SendMessage(bar, SB_GETTEXTLENGTH, part, 0));
        std::u16string text(length, u'\0');
        ::SendMessage(bar, SB_GETTEXT, part, reinterpret_cast<LPARAM>(text.data()));
        return text;
    }
    RECT PartRect(int part) {
        RECT rect{};
        EXPECT_TRUE(::SendMessage(bar, SB_GETRECT, part, reinterpret_cast<LPARAM>(&rect)));
        return rect;
    }
    COLORREF At(int x, int y) {
        ::InvalidateRect(bar, nullptr, TRUE);
        ::UpdateWindow(bar);
        HDC dc = ::GetDC(bar);
        const COLORREF colour = ::GetPixel(dc, x, y);
        ::ReleaseDC(bar, dc);
        return colour;
    }
    // How many pixels of the rectangle are of the colour.
    int Count(const RECT& r, COLORREF colour) {
        ::InvalidateRect(bar, nullptr, TRUE);
        ::UpdateWindow(bar);
        HDC dc = ::GetDC(bar);
        int n = 0;
        for (int y = r.top; y < r.bottom; ++y)
            for (int x = r.left; x < r.right; ++x)
                n += ::GetPixel(dc, x, y) == colour ? 1 : 0;
        ::ReleaseDC(bar, dc);
        return n;
    }

    DWORD style = 0;
    HWND parent = nullptr;
    HWND bar = nullptr;
};

TEST_F(StatusControlTest, PartsLieSideBySideWithTheLastReachingTheEnd) {
    EXPECT_EQ(::SendMessage(bar, SB_GETPARTS, 0, 0), 1);
    SetParts({100, 200, -1});
    int edges[4] = {};
    EXPECT_EQ(::SendMessage(bar, SB_GETPARTS, 4, reinterpret_cast<LPARAM>(edges)), 3);
    EXPECT_EQ(edges[0], 100);
    EXPECT_EQ(edges[1], 200);
    EXPECT_EQ(edges[2], -1);
    int borders[3] = {};
    ASSERT_TRUE(::SendMessage(bar, SB_GETBORDERS, 0, reinterpret_cast<LPARAM>(borders)));
    const RECT first = PartRect(0);
    const RECT second = PartRect(1);
    const RECT last = PartRect(2);
    EXPECT_EQ(first.left, 0);
    EXPECT_EQ(first.right, 100);
    EXPECT_EQ(first.top, borders[1]);
    EXPECT_EQ(first.bottom, 24);
    EXPECT_EQ(second.left, 100 + borders[2]);
    EXPECT_EQ(second.right, 200);
    EXPECT_EQ(last.left, 200 + borders[2]);
    EXPECT_EQ(last.right, 300);
    // A part whose edge lies past the bar is cut at its end.
    SetParts({500});
    EXPECT_EQ(PartRect(0).right, 300);
}

TEST_F(StatusControlTest, TextsGoToTheirPartsWithTheirDrawingTypes) {
    SetParts({100, -1});
    EXPECT_TRUE(SetText(0, u"Ready"));
    EXPECT_TRUE(SetText(1, u"CAP", SBT_POPOUT));
    EXPECT_EQ(Text(0), u"Ready");
    EXPECT_EQ(Text(1), u"CAP");
    EXPECT_EQ(HIWORD(::SendMessage(bar, SB_GETTEXTLENGTH, 1, 0)), SBT_POPOUT);
    EXPECT_EQ(HIWORD(::SendMessage(bar, SB_GETTEXTLENGTH, 0, 0)), 0);
    // A null text is an empty one.
    EXPECT_TRUE(SetText(0, nullptr));
    EXPECT_EQ(Text(0), u"");
    // Fewer parts drop the texts of the parts that went; new parts are empty.
    SetParts({-1});
    SetParts({100, -1});
    EXPECT_EQ(Text(1), u"");
}

TEST_F(StatusControlTest, PartsOutOfRangeAndBadPartListsAreRefused) {
    SetParts({100, -1});
    EXPECT_FALSE(SetText(2, u"nowhere"));
    EXPECT_EQ(::SendMessage(bar, SB_GETTEXTLENGTH, 2, 0), 0);
    EXPECT_EQ(::SendMessage(bar, SB_GETTEXT, 7, 0), 0);
    RECT rect{};
    EXPECT_FALSE(::SendMessage(bar, SB_GETRECT, 2, reinterpret_cast<LPARAM>(&rect)));
    EXPECT_FALSE(::SendMessage(bar, SB_GETRECT, 0, 0));
    int many[257] = {};
    EXPECT_FALSE(::SendMessage(bar, SB_SETPARTS, 0, reinterpret_cast<LPARAM>(many)));
    EXPECT_FALSE(::SendMessage(bar, SB_SETPARTS, 257, reinterpret_cast<LPARAM>(many)));
    EXPECT_FALSE(::SendMessage(bar, SB_SETPARTS, 2, 0));
    EXPECT_EQ(::SendMessage(bar, SB_GETPARTS, 0, 0), 2);
}

TEST_F(StatusControlTest, TheBarHasAFontOfItsOwnUntilItIsGivenOne) {
    const auto own = reinterpret_cast<HFONT>(::SendMessage(bar, WM_GETFONT, 0, 0));
    ASSERT_NE(own, nullptr);
    HFONT given = static_cast<HFONT>(::GetStockObject(ANSI_FIXED_FONT));
    ::SendMessage(bar, WM_SETFONT, reinterpret_cast<WPARAM>(given), FALSE);
    EXPECT_EQ(reinterpret_cast<HFONT>(::SendMessage(bar, WM_GETFONT, 0, 0)), given);
    ::SendMessage(bar, WM_SETFONT, 0, FALSE);
    EXPECT_EQ(reinterpret_cast<HFONT>(::SendMessage(bar, WM_GETFONT, 0, 0)), own);
}

TEST_F(StatusControlTest, PanesAreSunkenWithTheirTextAndWithoutBordersWhenAsked) {
    SetParts({120, -1});
    SetText(0, u"Ready");
    const COLORREF shadow = ::GetSysColor(COLOR_BTNSHADOW);
    const COLORREF light = ::GetSysColor(COLOR_BTNHIGHLIGHT);
    const COLORREF face = ::GetSysColor(COLOR_BTNFACE);
    const RECT first = PartRect(0);
    // Dark along the top and left, light along the bottom and right.
    EXPECT_EQ(At(first.left + 10, first.top), shadow);
    EXPECT_EQ(At(first.left, first.top + 5), shadow);
    EXPECT_EQ(At(first.left + 10, first.bottom - 1), light);
    EXPECT_EQ(At(first.right - 1, first.top + 5), light);
    // Above the panes and between them: the face.
    EXPECT_EQ(At(10, 0), face);
    EXPECT_EQ(At(first.right, 10), face);
    // The text is drawn in the button text colour inside the pane.
    const RECT inside{first.left + 1, first.top + 1, first.right - 1, first.bottom - 1};
    EXPECT_GT(Count(inside, ::GetSysColor(COLOR_BTNTEXT)), 10);
    SetText(0, u"Ready", SBT_NOBORDERS);
    EXPECT_EQ(At(first.left + 10, first.top), face);
    EXPECT_EQ(At(first.right - 1, first.top + 5), face);
    // A pane raised out of the bar has its light edges at the top and left.
    SetText(0, u"Ready", SBT_POPOUT);
    EXPECT_EQ(At(first.left + 10, first.top), light);
    EXPECT_EQ(At(first.left + 10, first.bottom - 1), shadow);
}

class GripControlTest : public StatusControlTest {
protected:
    GripControlTest() { style = SBARS_SIZEGRIP; }
};

TEST_F(GripControlTest, TheSizeGripTakesTheCornerAndTheLastPaneStopsBeforeIt) {
    SetParts({100, -1});
    const COLORREF shadow = ::GetSysColor(COLOR_BTNSHADOW);
    // Six dots in a triangle pointing into the corner.
    const RECT grip{286, 10, 300, 24};
    EXPECT_EQ(Count(grip, shadow), 6 * 4);
    EXPECT_EQ(At(296, 20), shadow);
    EXPECT_EQ(At(288, 20), shadow);
    EXPECT_EQ(At(296, 12), shadow);
    EXPECT_NE(At(288, 12), shadow);
    EXPECT_EQ(PartRect(1).right, 300 - 14);
}

TEST_F(StatusControlTest, WithoutAGripTheCornerHasNoDots) {
    SetParts({100, -1});
    EXPECT_EQ(At(296, 20), ::GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(Count(RECT{286, 10, 300, 24}, ::GetSysColor(COLOR_BTNSHADOW)), 0);
    EXPECT_EQ(PartRect(1).right, 300);
}

// The framework's status bar in a frame.
class StatusBarTest : public BarFrameTest {
protected:
    void SetUp() override {
        BarFrameTest::SetUp();
        ASSERT_TRUE(status.Create(frame));
        frame->RecalcLayout();
    }
    void SetStandardIndicators() {
        const UINT ids[] = {ID_SEPARATOR, IDS_INDICATOR_CAPS, IDS_INDICATOR_NUM};
        ASSERT_TRUE(status.SetIndicators(ids, 3));
    }
    int FontHeight() {
        CClientDC dc(&status);
        CFont* old = dc.SelectObject(status.GetFont());
        TEXTMETRIC tm{};
        dc.GetTextMetrics(&tm);
        dc.SelectObject(old);
        return tm.tmHeight;
    }

    CStatusBar status;
};

TEST_F(StatusBarTest, TheBarLiesAlongTheBottomAndThePaneTakesTheRest) {
    SetStandardIndicators();
    const CRect client = Client();
    const CRect bar = InFrame(status);
    EXPECT_EQ(bar.left, 0);
    EXPECT_EQ(bar.right, client.right);
    EXPECT_EQ(bar.bottom, client.bottom);
    // The font's height, the bar's top border, the pane's edges and a pixel
    // of air on either side of the text.
    EXPECT_EQ(bar.Height(), FontHeight() + 6);
    const CRect rest = InFrame(pane);
    EXPECT_EQ(rest, CRect(0, 0, client.right, bar.top));
    EXPECT_EQ(status.GetDlgCtrlID(), AFX_IDW_STATUS_BAR);
    EXPECT_EQ(frame->GetControlBar(AFX_IDW_STATUS_BAR), &status);

    // A hidden bar gives its room back; shown again it takes it again.
    frame->ShowControlBar(&status, FALSE, FALSE);
    EXPECT_EQ(InFrame(pane), client);
    frame->ShowControlBar(&status, TRUE, FALSE);
    EXPECT_EQ(InFrame(pane).bottom, bar.top);

    // The bar follows the frame's size.
    frame->MoveWindow(100, 100, 500, 300);
    EXPECT_EQ(InFrame(status).bottom, Client().bottom);
    EXPECT_EQ(InFrame(status).right, Client().right);
}

TEST_F(StatusBarTest, IndicatorPanesShowTheirStringsAtTheRightEnd) {
    SetStandardIndicators();
    EXPECT_EQ(status.GetCount(), 3);
    EXPECT_EQ(status.GetPaneText(0), u"");
    EXPECT_EQ(status.GetPaneText(1), u"CAP");
    EXPECT_EQ(status.GetPaneText(2), u"NUM");
    EXPECT_EQ(status.GetItemID(1), IDS_INDICATOR_CAPS);
    EXPECT_EQ(status.CommandToIndex(IDS_INDICATOR_NUM), 2);
    EXPECT_EQ(status.CommandToIndex(12345), -1);
    UINT id = 0;
    UINT style = 0;
    int width = 0;
    status.GetPaneInfo(0, id, style, width);
    EXPECT_EQ(id, static_cast<UINT>(ID_SEPARATOR));
    EXPECT_EQ(style, static_cast<UINT>(SBPS_NOBORDERS | SBPS_STRETCH));
    status.GetPaneInfo(1, id, style, width);
    EXPECT_EQ(style, static_cast<UINT>(SBPS_NORMAL));
    {
        CClientDC dc(&status);
        CFont* old = dc.SelectObject(status.GetFont());
        EXPECT_EQ(width, dc.GetTextExtent(CString(u"CAP")).cx);
        dc.SelectObject(old);
    }
    // The frame can be sized, so the bar has a grip in its corner; the
    // indicators end before it and the first pane takes what is left.
    CRect client;
    status.GetClientRect(&client);
    CRect last, first, second;
    status.GetItemRect(2, &last);
    status.GetItemRect(0, &first);
    status.GetItemRect(1, &second);
    EXPECT_EQ(last.right, client.right - 14);
    EXPECT_EQ(first.left, 0);
    EXPECT_EQ(second.left, first.right + 2);
    EXPECT_GT(first.Width(), client.Width() / 2);
    // Wider, the first pane grows and the indicators keep their widths.
    const int indicator = last.Width();
    frame->MoveWindow(100, 100, 800, 400);
    status.GetItemRect(2, &last);
    CRect wider;
    status.GetItemRect(0, &wider);
    EXPECT_EQ(last.Width(), indicator);
    EXPECT_EQ(wider.Width(), first.Width() + 200);
}

TEST_F(StatusBarTest, PaneTextsChangeAndBadIndexesAreRefused) {
    SetStandardIndicators();
    EXPECT_TRUE(status.SetPaneText(0, u"Opening the file"));
    EXPECT_EQ(status.GetPaneText(0), u"Opening the file");
    CString text;
    status.GetPaneText(0, text);
    EXPECT_EQ(text, u"Opening the file");
    EXPECT_FALSE(status.SetPaneText(3, u"nowhere"));
    EXPECT_FALSE(status.SetPaneText(-1, u"nowhere"));
    EXPECT_EQ(status.GetPaneText(3), u"");
    EXPECT_EQ(status.GetPaneText(-1), u"");
    CRect rect(1, 2, 3, 4);
    status.GetItemRect(9, &rect);
    EXPECT_TRUE(rect.IsRectEmpty());
    EXPECT_EQ(status.GetItemID(9), 0u);
    // Out of range, pane information is zeros and is not stored.
    UINT id = 7;
    UINT style = 7;
    int width = 7;
    status.GetPaneInfo(5, id, style, width);
    EXPECT_EQ(id, 0u);
    EXPECT_EQ(width, 0);
    status.SetPaneInfo(5, 1, 0, 10);
    EXPECT_EQ(status.GetCount(), 3);
    // Indicator lists that cannot be: no array, a negative count, too many.
    EXPECT_FALSE(status.SetIndicators(nullptr, 2));
    const UINT one[] = {ID_SEPARATOR};
    EXPECT_FALSE(status.SetIndicators(one, -1));
    std::vector<UINT> many(257, ID_SEPARATOR);
    EXPECT_FALSE(status.SetIndicators(many.data(), 257));
    EXPECT_EQ(status.GetCount(), 3);
    // No panes at all is a bar without texts.
    EXPECT_TRUE(status.SetIndicators(nullptr, 0));
    EXPECT_EQ(status.GetCount(), 0);
    EXPECT_FALSE(status.SetPaneText(0, u"nowhere"));
    // A status bar without a window has nothing to set.
    CStatusBar unmade;
    EXPECT_FALSE(unmade.SetIndicators(one, 1));
    EXPECT_FALSE(unmade.Create(nullptr));
}

TEST_F(StatusBarTest, SetPaneInfoResizesAPaneAndChangesItsBorders) {
    SetStandardIndicators();
    CRect before;
    status.GetItemRect(1, &before);
    status.SetPaneInfo(1, IDS_INDICATOR_CAPS, SBPS_NOBORDERS, 80);
    CRect after;
    status.GetItemRect(1, &after);
    EXPECT_EQ(after.Width(), 80 + 8);
    EXPECT_EQ(status.GetPaneText(1), u"CAP");
    EXPECT_EQ(HIWORD(status.SendMessage(SB_GETTEXTLENGTH, 1, 0)), SBT_NOBORDERS);
}

TEST_F(StatusBarTest, ABiggerFontMakesTheBarTallerAndItsIndicatorsWider) {
    const UINT ids[] = {ID_SEPARATOR, IDS_INDICATOR_LONG};
    ASSERT_TRUE(status.SetIndicators(ids, 2));
    const int height = InFrame(status).Height();
    UINT id = 0, style = 0;
    int width = 0;
    status.GetPaneInfo(1, id, style, width);
    LOGFONT lf{};
    lf.lfHeight = -24;
    const char16_t face[] = u"Liberation Sans";
    std::copy(std::begin(face), std::end(face), lf.lfFaceName);
    CFont big;
    ASSERT_TRUE(big.CreateFontIndirect(&lf));
    status.SetFont(&big);
    frame->RecalcLayout();
    EXPECT_GT(InFrame(status).Height(), height + 8);
    int wider = 0;
    status.GetPaneInfo(1, id, style, wider);
    EXPECT_GT(wider, width * 3 / 2);
    status.SetFont(nullptr);
}

TEST_F(StatusBarTest, PaintingLeavesNoDrawingObjectBehind) {
    SetStandardIndicators();
    status.SetPaneText(0, u"Ready");
    status.UpdateWindow();
    const platform::GdiCounts before = platform::LiveGdiObjects();
    for (int i = 0; i < 3; ++i) {
        status.Invalidate();
        status.UpdateWindow();
    }
    EXPECT_EQ(platform::LiveGdiObjects(), before) << platform::ToString(platform::LiveGdiObjects());
}

} // namespace
} // namespace controlbars
