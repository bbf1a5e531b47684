#include "CDockingControlBar.h"

#include "Win/utils/CResourceString.h"

IMPLEMENT_SERIAL(CDockingControlBar, SECControlBar, 1)

BEGIN_MESSAGE_MAP(CDockingControlBar, SECControlBar)
END_MESSAGE_MAP()

CDockingControlBar::CDockingControlBar() = default;

CDockingControlBar::~CDockingControlBar() = default;

void CDockingControlBar::GetContextMenu(CMenu& menu) {
    if (IsFloating())
        menu.AppendMenu(MF_STRING, ID_DOCKINGBAR_DOCK, CResourceString(IDS_DOCKINGBAR_DOCK));
    else
        menu.AppendMenu(MF_STRING, ID_DOCKINGBAR_FLOAT, CResourceString(IDS_DOCKINGBAR_FLOAT));
    menu.AppendMenu(MF_STRING, ID_DOCKINGBAR_HIDE, CResourceString(IDS_DOCKINGBAR_HIDE));
}

bool CDockingControlBar::HandleCommand(UINT nID) {
    switch (nID) {
    case ID_DOCKINGBAR_DOCK:
    case ID_DOCKINGBAR_FLOAT:
        // A bar that was never given docking has no dock context to ask.
        if (m_pDockContext)
            m_pDockContext->ToggleDocking();
        return true;
    case ID_DOCKINGBAR_HIDE:
        Hide();
        return true;
    default:
        return false;
    }
}

BOOL CDockingControlBar::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (HandleCommand(LOWORD(wParam)))
        return TRUE;
    return CWnd::OnCommand(wParam, lParam);
}
