// The system cursors and the framework's wait cursor, with and without an
// application object.
#include <afxwin.h>

#include <gtest/gtest.h>

namespace {

HCURSOR Arrow() {
    return LoadCursor(nullptr, IDC_ARROW);
}

HCURSOR Wait() {
    return LoadCursor(nullptr, IDC_WAIT);
}

class WaitCursorTest : public ::testing::Test {
protected:
    void SetUp() override { SetCursor(Arrow()); }
};

TEST_F(WaitCursorTest, SystemCursorsAreSharedHandles) {
    EXPECT_NE(Arrow(), nullptr);
    EXPECT_EQ(Arrow(), LoadCursor(nullptr, IDC_ARROW));
    EXPECT_NE(Arrow(), Wait());
    EXPECT_NE(LoadCursor(nullptr, IDC_IBEAM), Arrow());
    EXPECT_NE(LoadCursor(nullptr, IDC_HELP), nullptr);
    EXPECT_EQ(LoadCursor(nullptr, MAKEINTRESOURCE(1)), nullptr);
    EXPECT_EQ(LoadCursor(nullptr, u"ARROW"), nullptr);
    // Modules bring no cursors of their own.
    EXPECT_EQ(LoadCursor(reinterpret_cast<HINSTANCE>(uintptr_t{1}), IDC_ARROW), nullptr);
}

TEST_F(WaitCursorTest, SetCursorReturnsTheOneShownBefore) {
    EXPECT_EQ(GetCursor(), Arrow());
    EXPECT_EQ(SetCursor(Wait()), Arrow());
    EXPECT_EQ(GetCursor(), Wait());
    // A handle that is no cursor changes nothing.
    EXPECT_EQ(SetCursor(reinterpret_cast<HCURSOR>(uintptr_t{0x10})), nullptr);
    EXPECT_EQ(GetCursor(), Wait());
    // NULL hides the cursor.
    EXPECT_EQ(SetCursor(nullptr), Wait());
    EXPECT_EQ(GetCursor(), nullptr);
}

// The checks of nesting, through whatever keeps the count.
void CheckNesting(CCmdTarget& target) {
    HCURSOR beam = LoadCursor(nullptr, IDC_IBEAM);
    SetCursor(beam);
    {
        CWaitCursor outer;
        EXPECT_EQ(GetCursor(), Wait());
        {
            CWaitCursor inner;
            EXPECT_EQ(GetCursor(), Wait());
            target.BeginWaitCursor();
            target.EndWaitCursor();
        }
        // The outer wait still shows after the inner ones ended.
        EXPECT_EQ(GetCursor(), Wait());
        // Something else changed the cursor; Restore shows the wait again.
        SetCursor(Arrow());
        outer.Restore();
        EXPECT_EQ(GetCursor(), Wait());
    }
    // The cursor from before the outermost wait comes back.
    EXPECT_EQ(GetCursor(), beam);
    // Restoring with no wait open shows that cursor, not the wait.
    target.RestoreWaitCursor();
    EXPECT_EQ(GetCursor(), beam);
    // An end without a begin takes nothing below zero: the next begin and
    // end balance again.
    target.EndWaitCursor();
    SetCursor(Arrow());
    target.BeginWaitCursor();
    EXPECT_EQ(GetCursor(), Wait());
    target.EndWaitCursor();
    EXPECT_EQ(GetCursor(), Arrow());
}

TEST_F(WaitCursorTest, NestedWaitsWithoutAnApplication) {
    ASSERT_EQ(AfxGetApp(), nullptr);
    CCmdTarget target;
    CheckNesting(target);
}

class CountingApp : public CWinApp {
public:
    CountingApp() : CWinApp(u"Waiting") {}
    void DoWaitCursor(int nCode) override {
        codes.push_back(nCode);
        CWinApp::DoWaitCursor(nCode);
    }
    std::vector<int> codes;
};

TEST_F(WaitCursorTest, TheApplicationKeepsTheCount) {
    CountingApp app;
    CCmdTarget target;
    {
        CWaitCursor outer;
        target.BeginWaitCursor();
        EXPECT_EQ(app.m_nWaitCursorCount, 2);
        target.EndWaitCursor();
        EXPECT_EQ(app.m_nWaitCursorCount, 1);
    }
    EXPECT_EQ(app.m_nWaitCursorCount, 0);
    EXPECT_EQ(app.codes, (std::vector<int>{1, 1, -1, -1}));
    app.codes.clear();
    CheckNesting(target);
    EXPECT_EQ(app.m_nWaitCursorCount, 0);
}

} // namespace
