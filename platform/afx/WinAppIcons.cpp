// The application's icons, found through the chain of resource modules.
#include <afxwin.h>

HICON CWinApp::LoadIcon(LPCTSTR name) const {
    return ::LoadIcon(AfxFindResourceHandle(name, RT_GROUP_ICON), name);
}

HICON CWinApp::LoadIcon(UINT id) const {
    return LoadIcon(MAKEINTRESOURCE(id));
}
