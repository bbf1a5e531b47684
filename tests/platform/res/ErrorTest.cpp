// Malformed scripts: each gives an error naming the file and line, and none
// crashes the reader.
#include "ScriptFiles.h"

#include <afxwin.h>
#include <platform/ResourceModule.h>

#include <gtest/gtest.h>

using namespace res_test;

TEST(Errors, NameTheFileAndLine) {
    const struct {
        std::string script;
        const char* error;
    } cases[] = {
        {"STRINGTABLE\nBEGIN\n  1 \"open\nEND\n", "app.rc(3): unterminated string"},
        {"1 DIALOGEX 0, 0, 10, 10\nBEGIN\n  LTEXT \"a\", 1, 0, 0, 5, 5\n",
         "app.rc(4): END missing for the block opened at line 2 of app.rc"},
        {DialogWith("  LTEXT \"a\", 1, 0, 0, 5, 5\n  SPINNER 2, 0, 0, 5, 5"),
         "app.rc(4): unknown control statement 'SPINNER' in a dialog"},
        {"STRINGTABLE\nBEGIN\n  12abc \"x\"\nEND\n", "app.rc(3): bad number '12abc'"},
        {"STRINGTABLE { 0x \"x\" }", "app.rc(1): bad number '0x'"},
        {"STRINGTABLE { 0x100000000 \"x\" }",
         "app.rc(1): number '0x100000000' does not fit in 32 bits"},
        {"\n#include \"missing.h\"\n", "app.rc(2): cannot open include file 'missing.h'"},
        {"STRINGTABLE { UNDEFINED_ID \"x\" }", "app.rc(1): undefined symbol 'UNDEFINED_ID'"},
        {"STRINGTABLE { 4 / (2 - 2) \"x\" }", "app.rc(1): division by zero"},
        {"/* never closed\n\n", "app.rc(1): comment not closed before the end of the file"},
        {"\n#if 1\n", "app.rc(2): #if without #endif"},
        {"#endif\n", "app.rc(1): #endif without #if"},
        {"#if 1\n#else\n#else\n#endif\n", "app.rc(3): #else after #else"},
        {"#bogus\n", "app.rc(1): unknown directive #bogus"},
        {"#error stop here\n", "app.rc(1): #error stop here"},
        {"STRINGTABLE { 1 \"a\" 1 \"b\" }", "app.rc(1): this resource is declared twice"},
        {"1 MENU\nBEGIN\n  ITEM \"x\", 1\nEND\n",
         "app.rc(3): MENUITEM or POPUP expected, not 'ITEM'"},
        {"1 ACCELERATORS { \"ab\", 1 }",
         "app.rc(1): an accelerator key is one character or ^ and a letter"},
        {"1 ACCELERATORS { \"^1\", 1 }", "app.rc(1): '^' must be followed by a letter"},
        {"1 DIALOG 0, 0, 10\nBEGIN\nEND\n",
         "app.rc(2): ',' expected after the dialog's width, not 'BEGIN'"},
        {"1 DIALOG 0, 0, 10, 10\nWIDTH 5\nBEGIN\nEND\n",
         "app.rc(2): unknown dialog statement 'WIDTH'"},
        {"STRINGTABLE { 1 \"a\" } $", "app.rc(1): unexpected character '$'"},
        {"#define F(x) x\nSTRINGTABLE { F(1) \"a\" }",
         "app.rc(2): macro 'F' takes arguments, which scripts cannot pass"},
        {"#define LOOP LOOP + 1\nSTRINGTABLE { LOOP \"a\" }", "app.rc(2): undefined symbol 'LOOP'"},
        {"IDB_X BITMAP", "app.rc(1): the BITMAP resource ends with the file"},
        {"1 VERSIONINFO\n FILEVERSION 1,0,0,1\nBEGIN\n BLOCK \"x\"\n BEGIN\nEND\n",
         "app.rc(7): END missing for the block opened at line 3 of app.rc"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.script);
        EXPECT_EQ(ErrorOf(c.script), c.error);
    }
}

TEST(Errors, InIncludedFilesNameThatFile) {
    Files files{{"app.rc", "#include \"a.h\"\n"},
                {"a.h", "#define X 1\n#include \"sub/b.h\"\n"},
                {"sub/b.h", "\n\n#if X +\n#endif\n"}};
    EXPECT_EQ(ErrorOf(files), "sub/b.h(3): a number is missing at the end");
    files["sub/b.h"] = "#include \"../a.h\"\n";
    EXPECT_EQ(ErrorOf(files), "sub/b.h(1): 'a.h' includes itself");
    files["sub/b.h"] = "#include \"../app.rc\"\n";
    EXPECT_EQ(ErrorOf(files), "sub/b.h(1): 'app.rc' includes itself");
}

TEST(Errors, IconFilesAreChecked) {
    std::string good = std::string("\0\0\1\0\1\0", 6) + std::string(16, '\0') + "image";
    good[6 + 8] = 5;   // size of image data
    good[6 + 12] = 22; // offset of image data
    Files files{{"app.rc", "\n1 ICON \"icons\\\\app.ico\"\n"}, {"icons/app.ico", good}};
    EXPECT_EQ(ErrorOf(files), "no error");

    files["icons/app.ico"] = "BM not an icon";
    EXPECT_EQ(ErrorOf(files), "app.rc(2): 'icons\\app.ico' is not a valid icon file: not an icon "
                              "(the header is not 0, 1)");
    std::string truncated = good.substr(0, good.size() - 1);
    files["icons/app.ico"] = truncated;
    EXPECT_EQ(
        ErrorOf(files),
        "app.rc(2): 'icons\\app.ico' is not a valid icon file: image 1 lies outside the file");
    files["icons/app.ico"] = std::string("\0\0\1\0\5\0", 6);
    EXPECT_EQ(ErrorOf(files), "app.rc(2): 'icons\\app.ico' is not a valid icon file: the icon's "
                              "directory runs past the end of the file");
    files.erase("icons/app.ico");
    EXPECT_EQ(ErrorOf(files), "app.rc(2): cannot open file 'icons/app.ico'");
}

TEST(Errors, AMissingScriptAndAFailedLoadLeaveTheModuleAlone) {
    const Files none;
    EXPECT_THROW(platform::ReadResourceScript("none.rc", MemoryReader(none)),
                 platform::ResourceScriptError);
    int marker = 0;
    const HINSTANCE module = reinterpret_cast<HINSTANCE>(&marker);
    std::string error;
    EXPECT_FALSE(platform::LoadResourceScript(module, "/nonexistent/dir/app.rc", &error));
    EXPECT_EQ(error, "/nonexistent/dir/app.rc: cannot open the script");
    EXPECT_EQ(platform::FindResources(module), nullptr);
}

TEST(Errors, RunawayInputIsRefusedNotFollowed) {
    // Each name doubles the text of the one before: stopped before it grows.
    std::string script;
    script += "#define M0 1\n";
    for (int i = 1; i <= 40; ++i)
        script += "#define M" + std::to_string(i) + " M" + std::to_string(i - 1) + " + M" +
                  std::to_string(i - 1) + "\n";
    script += "STRINGTABLE { M40 \"x\" }\n";
    EXPECT_EQ(ErrorOf(script), "app.rc(42): macro 'M40' expands to too much text");
    // Deep nesting of parentheses and popups.
    EXPECT_EQ(ErrorOf("STRINGTABLE { " + std::string(100000, '(') + " }"),
              "app.rc(1): expression nests too deeply");
    std::string menu = "1 MENU\nBEGIN\n";
    for (int i = 0; i < 100; ++i)
        menu += "POPUP \"p\"\nBEGIN\n";
    EXPECT_NE(ErrorOf(menu).find("popup menus nest too deeply"), std::string::npos);
}
