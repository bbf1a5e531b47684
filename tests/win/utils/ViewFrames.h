// An MDI frame with document frames holding plain views, for the helpers
// that work on a view's window and its frame.
#pragma once

#include <afxwin.h>

#include <gtest/gtest.h>

namespace utils_test {

class CPlainView : public CView {
    DECLARE_DYNCREATE(CPlainView)

public:
    void OnDraw(CDC*) override {}
};

class ViewFrameTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // A new document frame at rect (in the MDI client) with a view inside;
    // the view.
    CView* OpenView(const CRect& rect, DWORD style = WS_CHILD | WS_VISIBLE | WS_OVERLAPPEDWINDOW);
    static CRect InParent(CWnd* wnd);

    CMDIFrameWnd* main = nullptr;
};

} // namespace utils_test
