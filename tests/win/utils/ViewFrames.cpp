#include "ViewFrames.h"

#include <platform/MessagePump.h>

namespace utils_test {

IMPLEMENT_DYNCREATE(CPlainView, CView)

void ViewFrameTest::SetUp() {
    main = new CMDIFrameWnd();
    ASSERT_TRUE(
        main->Create(nullptr, u"Main", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(20, 20, 820, 620)));
    ASSERT_TRUE(main->m_hWndMDIClient);
}

void ViewFrameTest::TearDown() {
    if (main && ::IsWindow(main->GetSafeHwnd()))
        main->DestroyWindow();
    platform::PumpMessages();
}

CView* ViewFrameTest::OpenView(const CRect& rect, DWORD style) {
    auto* frame = new CMDIChildWnd();
    CCreateContext context;
    context.m_pNewViewClass = RUNTIME_CLASS(CPlainView);
    if (!frame->Create(nullptr, u"Document", style, rect, main, &context))
        return nullptr;
    CWnd* view = frame->GetDescendantWindow(AFX_IDW_PANE_FIRST, TRUE);
    return dynamic_cast<CView*>(view);
}

CRect ViewFrameTest::InParent(CWnd* wnd) {
    CRect rect;
    wnd->GetWindowRect(&rect);
    wnd->GetParent()->ScreenToClient(&rect);
    return rect;
}

} // namespace utils_test
