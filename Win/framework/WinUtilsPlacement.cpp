// WinUtils: a window's whole placement kept as a binary profile value.
#include "Win/utils/WinUtils.h"

#include <cstring>

void WinUtils::SaveWindowPlacement(CString strSection, CString strEntry, CWnd* pWnd) {
    CWinApp* app = AfxGetApp();
    if (!app || !pWnd)
        return;
    WINDOWPLACEMENT placement;
    std::memset(&placement, 0, sizeof placement);
    placement.length = sizeof placement;
    pWnd->GetWindowPlacement(&placement);
    app->WriteProfileBinary(strSection, strEntry, reinterpret_cast<LPBYTE>(&placement),
                            sizeof placement);
}

void WinUtils::RestoreWindowPlacement(CString strSection, CString strEntry, CWnd* pWnd) {
    CWinApp* app = AfxGetApp();
    if (!app)
        return;
    LPBYTE data = nullptr;
    UINT bytes = 0;
    // A shorter value is no placement; a longer one holds it at its start.
    if (app->GetProfileBinary(strSection, strEntry, &data, &bytes) && pWnd &&
        bytes >= sizeof(WINDOWPLACEMENT)) {
        WINDOWPLACEMENT placement;
        std::memcpy(&placement, data, sizeof placement);
        pWnd->SetWindowPlacement(&placement);
    }
    delete[] data;
}
