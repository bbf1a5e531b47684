// Templates found through the chain of resource modules: the application's
// first, then the extension modules in the order they joined.
#include "ScriptFiles.h"

#include <afxwin.h>
#include <platform/ResourceChain.h>
#include <platform/ResourceModule.h>

#include <gtest/gtest.h>

using namespace res_test;

namespace {

// An extension module in the chain for the test's lifetime, with its own
// resource table.
class ExtensionScope {
public:
    explicit ExtensionScope(HMODULE handle) {
        AfxInitExtensionModule(m_state, handle);
        m_library = new CDynLinkLibrary(m_state);
    }
    ~ExtensionScope() {
        delete m_library;
        platform::ReleaseResources(m_state.hResource);
    }
    HINSTANCE Handle() const { return m_state.hResource; }

private:
    AFX_EXTENSION_MODULE m_state{};
    CDynLinkLibrary* m_library = nullptr;
};

} // namespace

TEST(Chain, FindsEachKindInTheFirstModuleThatHasIt) {
    int marker = 0;
    ExtensionScope extension(reinterpret_cast<HMODULE>(&marker));
    const HINSTANCE application = AfxGetResourceHandle();

    // Both modules have dialog 500; only the extension has 501 and its menu,
    // accelerators and icon.
    platform::AddResourceScript(
        platform::Resources(application),
        Read("500 DIALOGEX 0, 0, 10, 10\nCAPTION \"application\"\nBEGIN\nEND\n"));
    std::string icon = std::string("\0\0\1\0\1\0", 6) + std::string(16, '\0') + "x";
    icon[14] = 1;
    icon[18] = 22;
    platform::AddResourceScript(
        platform::Resources(extension.Handle()),
        Read(Files{{"app.rc", "500 DIALOGEX 0, 0, 10, 10\nCAPTION \"extension\"\nBEGIN\nEND\n"
                              "Named DIALOGEX 0, 0, 10, 10\nCAPTION \"named\"\nBEGIN\nEND\n"
                              "501 MENU { MENUITEM \"x\", 1 }\n"
                              "501 ACCELERATORS { \"a\", 1 }\n"
                              "501 ICON \"a.ico\"\n"},
                   {"a.ico", icon}}));

    auto dialog = platform::FindDialogTemplate(platform::MakeResourceName(500u));
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog.resource->caption, u"application");
    EXPECT_EQ(dialog.module, application);

    dialog = platform::FindDialogTemplate(platform::MakeResourceName(u"named"));
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog.resource->caption, u"named");
    EXPECT_EQ(dialog.module, extension.Handle());

    const auto menu = platform::FindMenuTemplate(platform::MakeResourceName(501u));
    EXPECT_EQ(menu.module, extension.Handle());
    EXPECT_EQ(platform::FindAcceleratorTable(platform::MakeResourceName(501u)).module,
              extension.Handle());
    EXPECT_EQ(platform::FindIconTemplate(platform::MakeResourceName(501u)).module,
              extension.Handle());

    const auto missing = platform::FindDialogTemplate(platform::MakeResourceName(502u));
    EXPECT_FALSE(missing);
    EXPECT_EQ(missing.module, nullptr);
    // A number given the original's way, as MAKEINTRESOURCE.
    EXPECT_EQ(platform::MakeResourceName(reinterpret_cast<LPCWSTR>(std::uintptr_t{501})).id, 501u);

    // With the extension as the resource module, its own dialog 500 comes first.
    AfxSetResourceHandle(extension.Handle());
    EXPECT_EQ(platform::FindDialogTemplate(platform::MakeResourceName(500u)).resource->caption,
              u"extension");
    AfxSetResourceHandle(application);
    platform::Resources(application).SetDialog(platform::MakeResourceName(500u), {});
}
