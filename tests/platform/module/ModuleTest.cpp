#include <afxwin.h>

#include "platform/ResourceModule.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

namespace {

class CHostView : public CObject {
    DECLARE_DYNCREATE(CHostView)
};
IMPLEMENT_DYNCREATE(CHostView, CObject)

class CHostPane : public CHostView {
    DECLARE_DYNAMIC(CHostPane)
};
IMPLEMENT_DYNAMIC(CHostPane, CHostView)

CDynLinkLibrary* LibraryOf(HMODULE module) {
    for (CDynLinkLibrary* dll = AfxGetModuleState()->m_libraryList; dll; dll = dll->m_pNextDLL)
        if (dll->m_hModule == module)
            return dll;
    return nullptr;
}

HMODULE ModuleOf(void* handle, const char* symbol) {
    void* address = dlsym(handle, symbol);
    HMODULE module = nullptr;
    EXPECT_TRUE(GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                                   reinterpret_cast<LPCWSTR>(address), &module));
    return module;
}

struct ResourceScope {
    ResourceScope() {
        platform::Resources(AfxGetResourceHandle()).SetString(100, u"from the application");
    }
    ~ResourceScope() { platform::ReleaseResources(AfxGetResourceHandle()); }
};

} // namespace

TEST(CRuntimeClass, ApplicationClassesAreFoundAndCreatedByName) {
    CRuntimeClass* view = CRuntimeClass::FromName("CHostView");
    ASSERT_EQ(view, RUNTIME_CLASS(CHostView));
    EXPECT_EQ(CRuntimeClass::FromName(u"CHostView"), view);
    CObject* object = CRuntimeClass::CreateObject(u"CHostView");
    ASSERT_NE(object, nullptr);
    EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_EQ(object->GetRuntimeClass(), view);
    delete object;

    // Only dynamically creatable classes join the list; dynamic ones still
    // know their bases.
    EXPECT_EQ(CRuntimeClass::FromName("CHostPane"), nullptr);
    CHostPane pane;
    EXPECT_TRUE(pane.IsKindOf(RUNTIME_CLASS(CHostView)));
    EXPECT_FALSE(CHostView().IsKindOf(RUNTIME_CLASS(CHostPane)));
    EXPECT_EQ(RUNTIME_CLASS(CHostPane)->CreateObject(), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName("NoSuchClass"), nullptr);
}

TEST(ExtensionModule, LoadJoinsTheChainAndUnloadLeavesIt) {
    ResourceScope resources;
    CString text;
    EXPECT_FALSE(text.LoadString(101));
    EXPECT_EQ(CRuntimeClass::FromName("CFixtureDoc"), nullptr);

    void* handle = dlopen(WIN_TEST_EXTMODULE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(handle, nullptr) << dlerror();
    const HMODULE module = ModuleOf(handle, "_ZN11CFixtureDoc12CreateObjectEv");
    CDynLinkLibrary* dll = LibraryOf(module);
    ASSERT_NE(dll, nullptr);
    EXPECT_FALSE(dll->m_bSystem);

    CRuntimeClass* doc = CRuntimeClass::FromName("CFixtureDoc");
    ASSERT_NE(doc, nullptr);
    EXPECT_EQ(dll->m_classList, doc);
    EXPECT_EQ(doc->m_pNextClass, nullptr); // the application's classes stayed apart
    EXPECT_EQ(CRuntimeClass::FromName("CHostView"), RUNTIME_CLASS(CHostView));
    CObject* object = doc->CreateObject();
    ASSERT_NE(object, nullptr);
    EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(CObject)));
    delete object;

    // The application's strings come first, then the module's.
    EXPECT_TRUE(text.LoadString(100));
    EXPECT_EQ(text, CString(u"from the application"));
    EXPECT_TRUE(text.LoadString(101));
    EXPECT_EQ(text, CString(u"module only"));
    EXPECT_EQ(AfxFindStringResourceHandle(101), static_cast<HINSTANCE>(module));

    ASSERT_EQ(dlclose(handle), 0);
    EXPECT_EQ(LibraryOf(module), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName("CFixtureDoc"), nullptr);
    EXPECT_FALSE(text.LoadString(101));
    EXPECT_EQ(CRuntimeClass::FromName("CHostView"), RUNTIME_CLASS(CHostView));
}

TEST(ExtensionModule, TheLibraryRegistersItselfWhenLoaded) {
    if (dlopen(WIN_LIBRARY, RTLD_LAZY | RTLD_NOLOAD))
        GTEST_SKIP() << "the library is already loaded into this test";
    void* handle = dlopen(WIN_LIBRARY, RTLD_LAZY | RTLD_LOCAL);
    ASSERT_NE(handle, nullptr) << dlerror();
    void* symbol = dlsym(handle, "_ZN14CSchemaManager8InstanceEv");
    ASSERT_NE(symbol, nullptr);
    HMODULE module = nullptr;
    ASSERT_TRUE(GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                                   reinterpret_cast<LPCWSTR>(symbol), &module));
    CDynLinkLibrary* dll = LibraryOf(module);
    ASSERT_NE(dll, nullptr);
    // Every class the library registered is found by name through the chain.
    for (CRuntimeClass* c = dll->m_classList; c; c = c->m_pNextClass) {
        EXPECT_EQ(CRuntimeClass::FromName(c->m_lpszClassName), c);
        EXPECT_TRUE(c->IsDerivedFrom(RUNTIME_CLASS(CObject)));
    }
    ASSERT_EQ(dlclose(handle), 0);
    EXPECT_EQ(LibraryOf(module), nullptr);
}

TEST(Resources, StringsLoadFromTheApplicationModule) {
    ResourceScope resources;
    WCHAR buffer[8];
    EXPECT_EQ(LoadStringW(AfxGetResourceHandle(), 100, buffer, 8), 7);
    EXPECT_EQ(CString(buffer), CString(u"from th"));
    EXPECT_EQ(LoadStringW(AfxGetResourceHandle(), 999, buffer, 8), 0);
    CString unchanged(u"keep");
    EXPECT_FALSE(unchanged.LoadString(999));
    EXPECT_EQ(unchanged, CString(u"keep"));
}
