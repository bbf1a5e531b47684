// The window helpers: a view's frame sized to the view, another top-level
// window found by the start of its caption, a window raised to the top, and
// a dialog's edit text selected.
#include "ViewFrames.h"
#include "resource.h"

#include <Win/Win.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

using utils_test::ViewFrameTest;

using SetViewSize = ViewFrameTest;

TEST_F(SetViewSize, TheFrameTakesTheViewSizeAndKeepsItsCorner) {
    CView* view = OpenView(CRect(30, 40, 330, 240));
    ASSERT_TRUE(view);
    CWnd* frame = view->GetParent();
    ASSERT_EQ(frame, view->GetParentFrame());
    CSize size(200, 100);
    WinUtils::SetViewSize(view, size);
    EXPECT_EQ(size, CSize(212, 131));
    EXPECT_EQ(InParent(frame), CRect(30, 40, 242, 171));

    // Moved elsewhere by the user, it stays there.
    frame->MoveWindow(100, 5, 300, 300);
    CSize again(400, 250);
    WinUtils::SetViewSize(view, again);
    EXPECT_EQ(again, CSize(412, 281));
    EXPECT_EQ(InParent(frame), CRect(100, 5, 512, 286));
}

TEST_F(SetViewSize, AMaximisedFrameAndTheSizeStayAsTheyAre) {
    CView* view = OpenView(CRect(30, 40, 330, 240));
    ASSERT_TRUE(view);
    CWnd* frame = view->GetParent();
    main->MDIMaximize(frame);
    ASSERT_TRUE(frame->IsZoomed());
    const CRect maximised = InParent(frame);
    CSize size(200, 100);
    WinUtils::SetViewSize(view, size);
    EXPECT_EQ(size, CSize(200, 100));
    EXPECT_EQ(InParent(frame), maximised);
    EXPECT_TRUE(frame->IsZoomed());

    // Restored, it is sized again from where it was before.
    main->MDIRestore(frame);
    WinUtils::SetViewSize(view, size);
    EXPECT_EQ(InParent(frame), CRect(30, 40, 242, 171));
}

TEST_F(SetViewSize, ATopLevelFrameKeepsItsPlaceOnTheScreen) {
    auto* frame = new CFrameWnd();
    CCreateContext context;
    context.m_pNewViewClass = RUNTIME_CLASS(utils_test::CPlainView);
    ASSERT_TRUE(frame->Create(nullptr, u"Top", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                              CRect(300, 200, 700, 500), nullptr, nullptr, 0, &context));
    auto* view = dynamic_cast<CView*>(frame->GetDescendantWindow(AFX_IDW_PANE_FIRST, TRUE));
    ASSERT_TRUE(view);
    CSize size(150, 90);
    WinUtils::SetViewSize(view, size);
    CRect rect;
    frame->GetWindowRect(&rect);
    EXPECT_EQ(rect, CRect(300, 200, 462, 321));
    frame->DestroyWindow();
}

TEST_F(SetViewSize, NoViewOrNoFrameDoesNothing) {
    CSize size(10, 10);
    WinUtils::SetViewSize(nullptr, size);
    utils_test::CPlainView* unmade = new utils_test::CPlainView();
    WinUtils::SetViewSize(unmade, size);
    EXPECT_EQ(size, CSize(10, 10));
    delete unmade;
}

// Top-level windows of the test's own, destroyed at its end.
class TopLevelTest : public ::testing::Test {
protected:
    void TearDown() override {
        for (auto& wnd : windows)
            if (::IsWindow(wnd->GetSafeHwnd()))
                wnd->DestroyWindow();
        platform::PumpMessages();
    }
    CWnd* Make(const CString& caption, DWORD style = WS_POPUP | WS_CAPTION | WS_VISIBLE,
               CWnd* owner = nullptr) {
        windows.push_back(std::make_unique<CWnd>());
        EXPECT_TRUE(windows.back()->CreateEx(0, nullptr, caption, style, CRect(50, 50, 250, 150),
                                             owner, 0));
        return windows.back().get();
    }
    // The top-level windows from the top of the z-order down.
    static std::vector<HWND> ZOrder() {
        std::vector<HWND> order;
        for (HWND hwnd = ::GetTopWindow(nullptr); hwnd; hwnd = ::GetWindow(hwnd, GW_HWNDNEXT))
            order.push_back(hwnd);
        return order;
    }

    std::vector<std::unique_ptr<CWnd>> windows;
};

using FindApplication = TopLevelTest;

TEST_F(FindApplication, TheCaptionsStartMatchesWhateverTheCase) {
    CWnd* editor = Make(u"Editor - notes.txt");
    CWnd* calculator = Make(u"Calculator");
    EXPECT_EQ(WinUtils::FindApplication(u"EDITOR"), editor->GetSafeHwnd());
    EXPECT_EQ(WinUtils::FindApplication(u"edit"), editor->GetSafeHwnd());
    EXPECT_EQ(WinUtils::FindApplication(u"editor - NOTES.TXT"), editor->GetSafeHwnd());
    EXPECT_EQ(WinUtils::FindApplication(u"cALC"), calculator->GetSafeHwnd());
    EXPECT_EQ(WinUtils::FindApplication(u"Notes"), nullptr);                  // not at the start
    EXPECT_EQ(WinUtils::FindApplication(u"Editor - notes.txt (2)"), nullptr); // longer
    // Hidden windows are top-level windows too.
    CWnd* hidden = Make(u"Background task", WS_POPUP);
    EXPECT_EQ(WinUtils::FindApplication(u"background"), hidden->GetSafeHwnd());
}

TEST_F(FindApplication, TheHighestOfSeveralMatchesWins) {
    CWnd* first = Make(u"Viewer 1");
    CWnd* second = Make(u"Viewer 2");
    EXPECT_EQ(WinUtils::FindApplication(u"viewer"), second->GetSafeHwnd());
    first->BringWindowToTop();
    EXPECT_EQ(WinUtils::FindApplication(u"viewer"), first->GetSafeHwnd());
    // An empty title matches whatever is on top.
    EXPECT_EQ(WinUtils::FindApplication(CString()), ::GetTopWindow(nullptr));
    EXPECT_EQ(WinUtils::FindApplication(CString()), first->GetSafeHwnd());
}

TEST_F(FindApplication, OnlyAToZFoldAndCaptionsAreReadUpTo1023Characters) {
    Make(u"\u00C9diteur");
    EXPECT_EQ(WinUtils::FindApplication(u"\u00E9diteur"), nullptr);
    EXPECT_TRUE(WinUtils::FindApplication(u"\u00C9DITEUR"));

    const CString longCaption(u'x', 1500);
    CWnd* wordy = Make(longCaption);
    EXPECT_EQ(WinUtils::FindApplication(CString(u'X', 1023)), wordy->GetSafeHwnd());
    EXPECT_EQ(WinUtils::FindApplication(CString(u'X', 1024)), nullptr);
}

using BringToTop = TopLevelTest;

TEST_F(BringToTop, ShowsTheWindowOnTopAndActivatesIt) {
    CWnd* low = Make(u"low", WS_POPUP | WS_CAPTION); // hidden
    CWnd* middle = Make(u"middle");
    CWnd* high = Make(u"high");
    CRect before;
    low->GetWindowRect(&before);
    WinUtils::BringToTop(low);
    EXPECT_EQ(ZOrder().front(), low->GetSafeHwnd());
    EXPECT_TRUE(low->IsWindowVisible());
    EXPECT_EQ(::GetActiveWindow(), low->GetSafeHwnd());
    CRect after;
    low->GetWindowRect(&after);
    EXPECT_EQ(after, before);
    const std::vector<HWND> order = ZOrder();
    EXPECT_LT(std::find(order.begin(), order.end(), high->GetSafeHwnd()),
              std::find(order.begin(), order.end(), middle->GetSafeHwnd()));
}

TEST_F(BringToTop, TheOwnerKeepsItsPlace) {
    CWnd* owner = Make(u"owner");
    CWnd* owned = Make(u"owned", WS_POPUP | WS_CAPTION | WS_VISIBLE, owner);
    Make(u"above both");
    std::vector<HWND> others = ZOrder();
    others.erase(std::find(others.begin(), others.end(), owned->GetSafeHwnd()));
    WinUtils::BringToTop(owned);
    std::vector<HWND> order = ZOrder();
    EXPECT_EQ(order.front(), owned->GetSafeHwnd());
    order.erase(order.begin());
    EXPECT_EQ(order, others);
}

TEST_F(BringToTop, NoWindowDoesNothing) {
    CWnd* top = Make(u"top");
    WinUtils::BringToTop(nullptr);
    CWnd unmade;
    WinUtils::BringToTop(&unmade);
    EXPECT_EQ(ZOrder().front(), top->GetSafeHwnd());
}

class SelectDlgEdit : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dialog.Create(IDD_EDITS));
        dialog.ShowWindow(SW_SHOW);
        name = dialog.GetDlgItem(IDC_NAME);
        notes = dialog.GetDlgItem(IDC_NOTES);
        ASSERT_TRUE(name && notes);
    }
    void TearDown() override {
        dialog.DestroyWindow();
        platform::PumpMessages();
    }
    static std::pair<int, int> Selection(CWnd* edit) {
        DWORD start = 0, end = 0;
        edit->SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                          reinterpret_cast<LPARAM>(&end));
        return {static_cast<int>(start), static_cast<int>(end)};
    }

    CDialog dialog;
    CWnd* name = nullptr;
    CWnd* notes = nullptr;
};

TEST_F(SelectDlgEdit, FocusesTheFieldAndSelectsAllItsText) {
    name->SetWindowText(u"Ada Lovelace");
    notes->SetFocus();
    WinUtils::SelectDlgEdit(&dialog, IDC_NAME);
    EXPECT_EQ(::GetFocus(), name->GetSafeHwnd());
    EXPECT_EQ(Selection(name), std::make_pair(0, 12));
}

TEST_F(SelectDlgEdit, TheCaretAtTheEndIsScrolledIntoView) {
    CString text;
    for (int line = 1; line <= 30; ++line) {
        CString one;
        one.Format(u"line %d\r\n", line);
        text += one;
    }
    text += u"the end";
    notes->SetWindowText(text);
    EXPECT_EQ(notes->SendMessage(EM_GETFIRSTVISIBLELINE), 0);
    WinUtils::SelectDlgEdit(&dialog, IDC_NOTES);
    EXPECT_EQ(Selection(notes), std::make_pair(0, text.GetLength()));
    EXPECT_GT(notes->SendMessage(EM_GETFIRSTVISIBLELINE), 20);
}

TEST_F(SelectDlgEdit, AMissingControlChangesNothing) {
    name->SetWindowText(u"kept");
    name->SetFocus();
    name->SendMessage(EM_SETSEL, 1, 2);
    WinUtils::SelectDlgEdit(&dialog, 4711);
    WinUtils::SelectDlgEdit(nullptr, IDC_NAME);
    CDialog unmade;
    WinUtils::SelectDlgEdit(&unmade, IDC_NAME);
    EXPECT_EQ(::GetFocus(), name->GetSafeHwnd());
    EXPECT_EQ(Selection(name), std::make_pair(1, 2));
}

} // namespace
