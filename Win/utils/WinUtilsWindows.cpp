// Window chores: sizing a view's frame, finding another top-level window by
// its caption, raising a window and selecting a dialog's edit text.
#include "WinUtils.h"

#include <tchar.h>

namespace {

// What FindApplication looks for and what it found.
struct ApplicationSearch {
    CString title;
    HWND found = nullptr;
};

BOOL MatchCaption(HWND hwnd, LPARAM lParam) {
    auto* search = reinterpret_cast<ApplicationSearch*>(lParam);
    WCHAR caption[1024] = {0};
    ::GetWindowText(hwnd, caption, 1024);
    if (_wcsnicmp(caption, search->title.GetString(),
                  static_cast<size_t>(search->title.GetLength())) == 0) {
        search->found = hwnd;
        return FALSE;
    }
    return TRUE;
}

} // namespace

void WinUtils::SetViewSize(CView* pView, CSize& size) {
    if (!pView || !::IsWindow(pView->GetSafeHwnd()))
        return;
    CWnd* frame = pView->GetParent();
    if (!frame)
        return;
    WINDOWPLACEMENT placement;
    placement.length = sizeof placement;
    if (!frame->GetWindowPlacement(&placement) || placement.showCmd == SW_SHOWMAXIMIZED)
        return;
    CRect rect;
    frame->GetWindowRect(&rect);
    CPoint corner = rect.TopLeft();
    CWnd* outer = (frame->GetStyle() & WS_CHILD) ? frame->GetParent() : nullptr;
    if (outer)
        outer->ScreenToClient(&corner);
    size.cx += 12;
    size.cy += 31;
    frame->MoveWindow(corner.x, corner.y, size.cx, size.cy, TRUE);
}

HWND WinUtils::FindApplication(const CString& title) {
    ApplicationSearch search;
    search.title = title;
    ::EnumWindows(MatchCaption, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

void WinUtils::BringToTop(CWnd* pWnd) {
    if (!pWnd || !::IsWindow(pWnd->GetSafeHwnd()))
        return;
    pWnd->SetWindowPos(&CWnd::wndTop, 0, 0, 0, 0,
                       SWP_NOSIZE | SWP_NOMOVE | SWP_SHOWWINDOW | SWP_NOOWNERZORDER);
}

void WinUtils::SelectDlgEdit(CWnd* pDlg, UINT nID) {
    if (!pDlg || !::IsWindow(pDlg->GetSafeHwnd()))
        return;
    CWnd* control = pDlg->GetDlgItem(static_cast<int>(nID));
    if (!control)
        return;
    control->SetFocus();
    control->SendMessage(EM_SETSEL, 0, -1);
    control->SendMessage(EM_SCROLLCARET);
}
