// Scripts read from disk: names written in another case than the file's, and
// loading into a module's table.
#include "support/TempDir.h"

#include <afxwin.h>
#include <platform/ResourceModule.h>
#include <platform/ResourceScript.h>

#include <gtest/gtest.h>

#include <fstream>

namespace {

void Write(const std::filesystem::path& path, const std::string& text) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
}

} // namespace

TEST(DiskScripts, IncludesFoundWhateverTheCaseOfTheirNames) {
    const auto dir = testing_support::TestOutputDir("rc-disk-case");
    Write(dir / "App.rc", "#include \"RES\\\\Resource.H\"\nSTRINGTABLE { IDS_HELLO \"hello\" }\n");
    Write(dir / "res" / "resource.h", "#define IDS_HELLO 5\n");

    int marker = 0;
    const HINSTANCE module = reinterpret_cast<HINSTANCE>(&marker);
    std::string error;
    ASSERT_TRUE(platform::LoadResourceScript(module, (dir / "app.rc").string(), &error)) << error;
    const platform::ResourceModule* table = platform::FindResources(module);
    ASSERT_NE(table, nullptr);
    ASSERT_NE(table->FindString(5), nullptr);
    EXPECT_EQ(std::u16string(table->FindString(5)->GetString()), u"hello");
    platform::ReleaseResources(module);
}

TEST(DiskScripts, AFailedLoadNamesTheFileAndKeepsTheTable) {
    const auto dir = testing_support::TestOutputDir("rc-disk-error");
    Write(dir / "app.rc", "STRINGTABLE { 1 \"one\" }\n1 DIALOG 0, 0, 5, 5\nBEGIN\n");
    int marker = 0;
    const HINSTANCE module = reinterpret_cast<HINSTANCE>(&marker);
    platform::Resources(module).SetString(1, CString(u"before"));
    std::string error;
    EXPECT_FALSE(platform::LoadResourceScript(module, (dir / "app.rc").string(), &error));
    EXPECT_EQ(error, (dir / "app.rc").lexically_normal().generic_string() +
                         "(4): END missing for the block opened at line 3 of " +
                         (dir / "app.rc").lexically_normal().generic_string());
    EXPECT_EQ(std::u16string(platform::FindResources(module)->FindString(1)->GetString()),
              u"before");
    platform::ReleaseResources(module);
}
