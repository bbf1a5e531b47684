// #include, #define arithmetic, conditionals, comments, numbers and string
// literals as host scripts write them.
#include "ScriptFiles.h"

#include <gtest/gtest.h>

using namespace res_test;

namespace {

// The strings of a script's string table, by id.
std::map<UINT, std::u16string> Strings(const Files& files) {
    std::map<UINT, std::u16string> out;
    for (const auto& [id, text] : Read(files).strings)
        out[id] = text;
    return out;
}
std::map<UINT, std::u16string> Strings(const std::string& script) {
    return Strings(Files{{"app.rc", script}});
}

} // namespace

TEST(Defines, ArithmeticOverOtherNames) {
    const auto s = Strings("#define BASE 0x100\n"
                           "#define NEXT (BASE + 1)\n"
                           "#define MASKED (NEXT | 0x1000) - 1\n"
                           "#define NEG -(2)\n"
                           "#define SUFFIXED 10L + 5UL + 0x10u\n"
                           "STRINGTABLE\nBEGIN\n"
                           "  BASE, \"a\"\n"
                           "  NEXT \"b\"\n"
                           "  MASKED \"c\"\n"
                           "  NEG + 10 \"d\"\n"
                           "  SUFFIXED \"e\"\n"
                           "  (3 * 4) / 2 \"f\"\n"
                           "  ~0xFFF0 & 0xF \"g\"\n"
                           "END\n");
    EXPECT_EQ(s, (std::map<UINT, std::u16string>{{0x100, u"a"},
                                                 {0x101, u"b"},
                                                 {0x1100, u"c"},
                                                 {8, u"d"},
                                                 {31, u"e"},
                                                 {6, u"f"},
                                                 {0xF, u"g"}}));
}

TEST(Defines, IncludedHeaderOnlyLendsItsDirectives) {
    Files files{
        {"app.rc", "#include \"res/Ids.h\"\nSTRINGTABLE { ID_ONE \"one\" ID_TWO \"two\" }\n"},
        {"res/Ids.h", "#pragma once\n#define ID_ONE 1\nint declarations_are_ignored;\n"
                      "#include \"more.h\"\n"},
        {"res/more.h", "#define ID_TWO (ID_ONE + 1)\n"}};
    EXPECT_EQ(Strings(files), (std::map<UINT, std::u16string>{{1, u"one"}, {2, u"two"}}));
    // Backslashes, doubled as the editor writes them, and names differing in case.
    files["app.rc"] = "#include \"res\\\\Ids.h\"\n#include <windows.h>\n#include \"afxres.h\"\n"
                      "STRINGTABLE { ID_TWO \"two\" }\n";
    EXPECT_EQ(Strings(files), (std::map<UINT, std::u16string>{{2, u"two"}}));
}

TEST(Conditionals, IfElifElseWithDefinedAndNumbers) {
    const auto s = Strings("#define A 2\n"
                           "#if A == 1\nSTRINGTABLE { 1 \"wrong\" }\n"
                           "#elif defined(A) && A > 1\nSTRINGTABLE { 1 \"elif\" }\n"
                           "#else\nSTRINGTABLE { 1 \"else\" }\n#endif\n"
                           "#ifdef APSTUDIO_INVOKED\nthis is not a resource\n"
                           "  #if 1\n  still skipped\n  #else\n  skipped too\n  #endif\n#endif\n"
                           "#ifndef B\nSTRINGTABLE { 2 \"no B\" }\n#endif\n"
                           "#if !defined B || 0\nSTRINGTABLE { 3 \"not B\" }\n#endif\n"
                           "#if (A * 3) % 4 == 2 ? 1 : 0\nSTRINGTABLE { 4 \"ternary\" }\n#endif\n"
                           "#if UNKNOWN_NAME\nSTRINGTABLE { 5 \"unknown is zero\" }\n#endif\n"
                           "#undef A\n#ifdef A\nSTRINGTABLE { 6 \"undef\" }\n#endif\n"
                           "#ifdef RC_INVOKED\nSTRINGTABLE { 7 \"rc\" }\n#endif\n");
    EXPECT_EQ(s, (std::map<UINT, std::u16string>{
                     {1, u"elif"}, {2, u"no B"}, {3, u"not B"}, {4, u"ternary"}, {7, u"rc"}}));
}

TEST(Comments, LineAndBlockCommentsButNotInsideStrings) {
    const auto s = Strings("STRINGTABLE /* a block\n comment over lines */ BEGIN\n"
                           "  1 \"http://example\" // trailing\n"
                           "  2 \"/* kept */\"\n"
                           "  3 /* inline */ \"three\"\n"
                           "END\n");
    EXPECT_EQ(s, (std::map<UINT, std::u16string>{
                     {1, u"http://example"}, {2, u"/* kept */"}, {3, u"three"}}));
}

TEST(StringLiterals, EscapesQuotesAndAdjacentLiterals) {
    const auto s = Strings("STRINGTABLE\nBEGIN\n"
                           "  1 \"tab\\there\\nline\"\n"
                           "  2 \"say \"\"hi\"\"\"\n"
                           "  3 \"back\\\\slash\"\n"
                           "  4 \"hex\\x41\\x7e\"\n"
                           "  5 \"one \" \"two \"\n    \"three\"\n"
                           "  6 L\"wide\\x263A\"\n"
                           "  7 \"octal\\101\"\n"
                           "  8 \"\"\n"
                           "END\n");
    EXPECT_EQ(s.at(1), u"tab\there\nline");
    EXPECT_EQ(s.at(2), u"say \"hi\"");
    EXPECT_EQ(s.at(3), u"back\\slash");
    EXPECT_EQ(s.at(4), u"hexA~");
    EXPECT_EQ(s.at(5), u"one two three");
    EXPECT_EQ(s.at(6), u"wide\u263A");
    EXPECT_EQ(s.at(7), u"octalA");
    EXPECT_EQ(s.at(8), u"");
}

TEST(StringLiterals, CodePagesAndByteOrderMarks) {
    // The ANSI code page by default, UTF-8 after #pragma code_page(65001).
    EXPECT_EQ(Strings("STRINGTABLE { 1 \"caf\xE9\" }\n").at(1), u"caf\u00E9");
    EXPECT_EQ(Strings("#pragma code_page(65001)\nSTRINGTABLE { 1 \"caf\xC3\xA9\" }\n").at(1),
              u"caf\u00E9");
    EXPECT_EQ(Strings("\xEF\xBB\xBFSTRINGTABLE { 1 \"\xE2\x82\xAC\" }\n").at(1), u"\u20AC");
    // A script saved as UTF-16 with its byte order mark.
    const std::u16string text = u"STRINGTABLE { 1 \"\u0416\" }\r\n";
    std::string bytes = "\xFF\xFE";
    for (char16_t c : text) {
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>(c >> 8);
    }
    EXPECT_EQ(Strings(bytes).at(1), u"\u0416");
}

TEST(Languages, OtherLanguagesOfTheSameResourceArePassedOver) {
    const auto s =
        Strings("LANGUAGE LANG_ENGLISH, SUBLANG_ENGLISH_US\nSTRINGTABLE { 1 \"English\" }\n"
                "LANGUAGE LANG_GERMAN, SUBLANG_GERMAN\nSTRINGTABLE { 1 \"Deutsch\" 2 \"Nur\" }\n");
    EXPECT_EQ(s, (std::map<UINT, std::u16string>{{1, u"English"}, {2, u"Nur"}}));
}
