// Filling an image list with the host's icons.
#include "WinUtils.h"

void WinUtils::ImageListIconLoader(CImageList& imageList, UINT* pIDs, HINSTANCE hInstance) {
    if (!imageList.Create(16, 16, ILC_MASK, 0, 1) || !pIDs)
        return;
    CWinApp* app = AfxGetApp();
    for (const UINT* id = pIDs; *id != 0; ++id) {
        HICON icon = hInstance ? ::LoadIcon(hInstance, MAKEINTRESOURCE(LOWORD(*id)))
                     : app     ? app->LoadIcon(*id)
                               : nullptr;
        if (icon)
            imageList.Add(icon);
    }
}
