// The library's entry as an extension module: it joins the framework's chain
// when loaded, so the framework finds its run-time classes and the host's
// resources from its code, and leaves the chain when unloaded.
#include <afxdllx.h>

#include <new>

static AFX_EXTENSION_MODULE WinDLL = {FALSE, nullptr, nullptr, nullptr};

extern "C" BOOL DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID) {
    if (dwReason == DLL_PROCESS_ATTACH) {
        if (!AfxInitExtensionModule(WinDLL, hInstance))
            return 0;
        // Owned by the framework's list; AfxTermExtensionModule deletes it.
        new (std::nothrow) CDynLinkLibrary(WinDLL, FALSE);
    } else if (dwReason == DLL_PROCESS_DETACH) {
        AfxTermExtensionModule(WinDLL, FALSE);
    }
    return 1;
}
