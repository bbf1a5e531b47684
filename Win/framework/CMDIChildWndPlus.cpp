#include "Win/framework/CMDIChildWndPlus.h"

namespace {

constexpr const WCHAR* kSection = u"SYSTEM";
constexpr const WCHAR* kEntry = u"LastMdiPlacement";

} // namespace

IMPLEMENT_DYNCREATE(CMDIChildWndPlus, CMDIChildWnd)

BEGIN_MESSAGE_MAP(CMDIChildWndPlus, CMDIChildWnd)
ON_COMMAND(ID_WINDOW_CLOSE, OnWindowClose)
ON_WM_CLOSE()
END_MESSAGE_MAP()

CMDIChildWndPlus::CMDIChildWndPlus() = default;

CMDIChildWndPlus::~CMDIChildWndPlus() = default;

BOOL CMDIChildWndPlus::PreCreateWindow(CREATESTRUCT& cs) {
    CWinApp* app = AfxGetApp();
    CMDIFrameWnd* main = app ? DYNAMIC_DOWNCAST(CMDIFrameWnd, app->GetMainWnd()) : nullptr;
    // Only the first document frame follows the one closed last; later ones
    // follow the active one, as the MDI client does.
    if (main && !main->MDIGetActive() &&
        app->GetProfileInt(kSection, kEntry, SW_RESTORE) == SW_SHOWMAXIMIZED)
        cs.style |= WS_VISIBLE | WS_MAXIMIZE;
    return CMDIChildWnd::PreCreateWindow(cs);
}

void CMDIChildWndPlus::OnWindowClose() {
    PostMessage(WM_CLOSE, 0, 0);
}

void CMDIChildWndPlus::OnClose() {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    GetWindowPlacement(&placement);
    if (CWinApp* app = AfxGetApp())
        app->WriteProfileInt(kSection, kEntry, static_cast<int>(placement.showCmd));
    CFrameWnd::OnClose();
}
