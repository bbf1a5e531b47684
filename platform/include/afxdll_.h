// The module state: the application's run-time classes and resource module,
// and the chain of extension modules (CDynLinkLibrary) searched after it.
#pragma once

#include "afx.h"

#include <atomic>

#define DLL_PROCESS_DETACH 0
#define DLL_PROCESS_ATTACH 1
#define DLL_THREAD_ATTACH 2
#define DLL_THREAD_DETACH 3

class CDynLinkLibrary;

struct AFX_MODULE_STATE {
    // Classes registered outside any extension module's start-up.
    CRuntimeClass* m_classList = nullptr;
    // Classes put aside while an extension module registers its own.
    CRuntimeClass* m_pClassInit = nullptr;
    // The extension modules in the order they joined.
    CDynLinkLibrary* m_libraryList = nullptr;
    HINSTANCE m_hCurrentInstanceHandle = nullptr;
    HINSTANCE m_hCurrentResourceHandle = nullptr;
};

AFX_MODULE_STATE* AfxGetModuleState();

struct AFX_EXTENSION_MODULE {
    BOOL bInitialized;
    HMODULE hModule;
    HMODULE hResource;
    CRuntimeClass* pFirstSharedClass;
};

// Takes the classes registered since the module's raw entry into the record.
BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module);
// Deletes the module's CDynLinkLibrary objects (all of them when all is true).
void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all = FALSE);

// A member of the chain: its classes and resources are found after the
// application's. Created with new; deleted by AfxTermExtensionModule.
class CDynLinkLibrary : public CObject {
public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL system = FALSE);
    ~CDynLinkLibrary() override;

    HMODULE m_hModule;
    HMODULE m_hResource;
    CRuntimeClass* m_classList;
    BOOL m_bSystem;
    CDynLinkLibrary* m_pNextDLL = nullptr;
};

HINSTANCE AfxGetInstanceHandle();
HINSTANCE AfxGetResourceHandle();
void AfxSetResourceHandle(HINSTANCE resource);
// The first module of the chain whose string table holds id, or null.
HINSTANCE AfxFindStringResourceHandle(UINT id);
// The first module of the chain that holds the resource of this type
// (RT_MENU, RT_ACCELERATOR, RT_DIALOG, RT_STRING, RT_ICON, RT_GROUP_ICON) and
// name; the current resource module when none does.
HINSTANCE AfxFindResourceHandle(LPCTSTR name, LPCTSTR type);

namespace platform {
namespace detail {
extern std::atomic<unsigned> g_resourceGeneration;
} // namespace detail
// A number that changes whenever a string table, the module chain or the
// resource handle changes: a string loaded under one value may be kept for as
// long as the value stays the same. Never 0. Read inline, as a cache checks it
// before every use.
inline unsigned ResourceGeneration() {
    return detail::g_resourceGeneration.load(std::memory_order_relaxed);
}
} // namespace platform
