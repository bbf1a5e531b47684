// The INI rules of the profile API, on real files in a test directory.
#include "ProfileTestSupport.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>

using profile_test::Get;
using profile_test::Name;
using profile_test::ReadBytes;
using profile_test::WriteBytes;

namespace {

class IniRules : public ::testing::Test {
protected:
    profile_test::ConfigHome home{::testing::UnitTest::GetInstance()->current_test_info()->name()};
    std::filesystem::path file = home.Path() / "rules.ini";
    CString name = Name(file);

    BOOL Write(LPCWSTR section, LPCWSTR key, LPCWSTR value) {
        return WritePrivateProfileStringW(section, key, value, name);
    }
    UINT Int(LPCWSTR key, INT fallback = 77) {
        return GetPrivateProfileIntW(u"s", key, fallback, name);
    }
};

} // namespace

TEST_F(IniRules, WritesTheLayoutByteForByte) {
    for (auto [section, key, value] : {std::tuple{u"App1", u"key1", u"string1"},
                                       {u"App1", u"key2", u"string2"},
                                       {u"App1", u"key3", u"string3"},
                                       {u"App2", u"key4", u"string4"},
                                       {u"App3", u"key5", u"string5"}})
        ASSERT_TRUE(Write(section, key, value));
    EXPECT_EQ(ReadBytes(file), "[App1]\r\nkey1=string1\r\nkey2=string2\r\nkey3=string3\r\n"
                               "[App2]\r\nkey4=string4\r\n[App3]\r\nkey5=string5\r\n");
    // A new key of an earlier section goes at that section's end; an empty value
    // is written as "key=".
    ASSERT_TRUE(Write(u"App1", u"key6", u""));
    ASSERT_TRUE(Write(u"App2", u"key4", u"changed"));
    EXPECT_EQ(ReadBytes(file), "[App1]\r\nkey1=string1\r\nkey2=string2\r\nkey3=string3\r\nkey6=\r\n"
                               "[App2]\r\nkey4=changed\r\n[App3]\r\nkey5=string5\r\n");
}

TEST_F(IniRules, NamesIgnoreCaseAndKeepTheirFirstSpelling) {
    ASSERT_TRUE(Write(u"SeCtion", u"NaMe1", u"one"));
    EXPECT_EQ(Get(file, u"section", u"name1"), u"one");
    ASSERT_TRUE(Write(u"SECTION", u"NAME1", u"two"));
    EXPECT_EQ(ReadBytes(file), "[SeCtion]\r\nNaMe1=two\r\n");
    // Only A-Z fold: accented capitals are other names.
    ASSERT_TRUE(Write(u"section", u"\u00C9t\u00E9", u"x"));
    EXPECT_EQ(Get(file, u"section", u"\u00E9t\u00E9"), u"<default>");
}

TEST_F(IniRules, ReadingTrimsAndUnquotes) {
    WriteBytes(file, "[ section1 ]\r\n  name1 =  val1  \r\nname2=\"val2\"\r\nname3='val3'\r\n"
                     "name4=\"mixed'\r\nname5=\" inner \"\r\nname6=\"\r\nlist=Name;120;Size;60;\r\n"
                     "; comment=not one\r\n");
    EXPECT_EQ(Get(file, u"section1", u"name1"), u"val1");
    EXPECT_EQ(Get(file, u" section1 ", u"  name1"), u"val1");
    EXPECT_EQ(Get(file, u"section1", u"name2"), u"val2");
    EXPECT_EQ(Get(file, u"section1", u"name3"), u"val3");
    EXPECT_EQ(Get(file, u"section1", u"name4"), u"\"mixed'");
    EXPECT_EQ(Get(file, u"section1", u"name5"), u" inner ");
    EXPECT_EQ(Get(file, u"section1", u"name6"), u"\"");
    EXPECT_EQ(Get(file, u"section1", u"list"), u"Name;120;Size;60;");
    EXPECT_EQ(Get(file, u"section1", u"; comment"), u"not one");
    // The default loses its trailing blanks only.
    EXPECT_EQ(Get(file, u"section1", u"missing", u"  def  "), u"  def");
    EXPECT_EQ(Get(file, u"section1", u"missing", nullptr), u"");
}

TEST_F(IniRules, AcceptsEveryLineEndAndAMissingLastOne) {
    WriteBytes(file, "[a]\rk1=cr\r[b]\nk2=lf\n[c]\r\nk3=crlf\r\n[d]\r\nk4=last");
    EXPECT_EQ(Get(file, u"a", u"k1"), u"cr");
    EXPECT_EQ(Get(file, u"b", u"k2"), u"lf");
    EXPECT_EQ(Get(file, u"c", u"k3"), u"crlf");
    EXPECT_EQ(Get(file, u"d", u"k4"), u"last");
    // A rewrite ends every line with CR LF and appends after the unterminated line.
    ASSERT_TRUE(Write(u"d", u"k5", u"new"));
    EXPECT_EQ(ReadBytes(file),
              "[a]\r\nk1=cr\r\n[b]\r\nk2=lf\r\n[c]\r\nk3=crlf\r\n[d]\r\nk4=last\r\nk5=new\r\n");
}

TEST_F(IniRules, KeepsCommentsBlankLinesAndKeysWithoutValues) {
    WriteBytes(file, "; settings\r\n[s]\r\nflag\r\na=1\r\n\r\n[t]\r\nb=2\r\n");
    // A line without '=' is a key without a value: found, but not listed.
    EXPECT_EQ(Get(file, u"s", u"flag"), u"");
    WCHAR keys[64];
    EXPECT_EQ(GetPrivateProfileStringW(u"s", nullptr, u"", keys, 64, name), 2u);
    EXPECT_EQ(std::u16string(keys, 3), std::u16string(u"a\0\0", 3));
    // New keys go before the blank line that separates the sections.
    ASSERT_TRUE(Write(u"s", u"c", u"3"));
    ASSERT_TRUE(Write(u"s", u"flag", u"on"));
    EXPECT_EQ(ReadBytes(file), "; settings\r\n[s]\r\nflag=on\r\na=1\r\nc=3\r\n\r\n[t]\r\nb=2\r\n");
}

TEST_F(IniRules, DeletesEntriesAndSections) {
    WriteBytes(file, "[s]\r\na=1\r\nb=2\r\n[t]\r\nc=3\r\n[S]\r\nd=4\r\n");
    // A missing key: TRUE, and the file is not rewritten.
    const auto before = std::filesystem::last_write_time(file);
    EXPECT_TRUE(Write(u"s", u"zz", nullptr));
    EXPECT_TRUE(Write(u"nowhere", nullptr, nullptr));
    EXPECT_EQ(std::filesystem::last_write_time(file), before);
    EXPECT_TRUE(Write(u"s", u"a", nullptr));
    EXPECT_TRUE(Write(u"t", u"c", nullptr)); // the last key: the header stays
    EXPECT_EQ(ReadBytes(file), "[s]\r\nb=2\r\n[t]\r\n[S]\r\nd=4\r\n");
    // A null key removes the section, every header of that name, whatever the value.
    EXPECT_TRUE(Write(u"s", nullptr, u"ignored"));
    EXPECT_EQ(ReadBytes(file), "[t]\r\n");
    // Deleting in a missing file succeeds and creates nothing.
    const auto missing = home.Path() / "none.ini";
    EXPECT_TRUE(WritePrivateProfileStringW(u"s", nullptr, nullptr, Name(missing)));
    EXPECT_FALSE(std::filesystem::exists(missing));
}

TEST_F(IniRules, RefusesNamesAndValuesThatWouldNotReadBack) {
    ASSERT_TRUE(Write(u"s", u"k", u"kept"));
    for (auto [section, key, value] : {std::tuple{u"s", u"k", u"two\r\nlines"},
                                       {u"s", u"a=b", u"v"},
                                       {u"s]x", u"k", u"v"},
                                       {u"s", u" [k", u"v"},
                                       {u"s\n", u"k", u"v"}}) {
        SetLastError(0);
        EXPECT_FALSE(Write(section, key, value));
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    }
    // Such names cannot be in the file, so deleting them finds nothing to delete.
    EXPECT_TRUE(Write(u"s", u"[k", nullptr));
    EXPECT_TRUE(Write(u"s", u"a=b", nullptr));
    EXPECT_TRUE(Write(u"s]x", nullptr, nullptr));
    EXPECT_EQ(ReadBytes(file), "[s]\r\nk=kept\r\n");
    // A file name that names no file.
    EXPECT_FALSE(WritePrivateProfileStringW(u"s", u"k", u"v", u""));
    EXPECT_FALSE(WritePrivateProfileStringW(u"s", u"k", u"v", u"dir/"));
    EXPECT_EQ(Get(file, u"s", u"k"), u"kept");
    EXPECT_EQ(GetPrivateProfileIntW(u"s", u"k", 3, u""), 3u);
}

TEST_F(IniRules, CopiesIntoTheCallersBufferAsTheOriginalDoes) {
    WriteBytes(file, "[s]\r\nk=abcdef\r\n[t]\r\n[u]\r\n");
    WCHAR buffer[8];
    std::fill(std::begin(buffer), std::end(buffer), u'#');
    EXPECT_EQ(GetPrivateProfileStringW(u"s", u"k", u"", buffer, 4, name), 3u);
    EXPECT_EQ(std::u16string(buffer, 4), std::u16string(u"abc\0", 4));
    EXPECT_EQ(GetPrivateProfileStringW(u"s", u"k", u"", buffer, 0, name), 0u);
    // Lists that do not fit end with two terminators; the result is size - 2.
    EXPECT_EQ(GetPrivateProfileStringW(nullptr, nullptr, u"", buffer, 8, name), 6u);
    EXPECT_EQ(std::u16string(buffer, 8), std::u16string(u"s\0t\0u\0\0#", 8));
    EXPECT_EQ(GetPrivateProfileStringW(nullptr, nullptr, u"", buffer, 5, name), 3u);
    EXPECT_EQ(std::u16string(buffer, 5), std::u16string(u"s\0t\0\0", 5));
}

TEST_F(IniRules, ReadsIntegersByTheOriginalsTable) {
    WriteBytes(file, "[s]\r\nminus=-1\r\nplus=+1\r\nwrap=4294967296\r\nwrap1=4294967297\r\n"
                     "stop=42A94967297\r\nletter=B4294967297\r\nhex=0x1F\r\nHEX=0XfFfFfFfF\r\n"
                     "neghex=-0x10\r\nquoted=\"12\"\r\nempty=\r\nblank= \r\nbarex=0x\r\n");
    EXPECT_EQ(Int(u"missing", -5), 4294967291u);
    EXPECT_EQ(Int(u"minus"), 4294967295u);
    EXPECT_EQ(Int(u"plus"), 1u);
    EXPECT_EQ(Int(u"wrap"), 0u);
    EXPECT_EQ(Int(u"wrap1"), 1u);
    EXPECT_EQ(Int(u"stop"), 42u);
    EXPECT_EQ(Int(u"letter"), 0u);
    EXPECT_EQ(Int(u"hex"), 31u);
    EXPECT_EQ(GetPrivateProfileIntW(u"S", u"hex", 0, name), 31u); // names ignore case here too
    EXPECT_EQ(Int(u"neghex"), 4294967280u);
    EXPECT_EQ(Int(u"quoted"), 12u);
    EXPECT_EQ(Int(u"empty"), 77u);
    EXPECT_EQ(Int(u"blank"), 77u);
    EXPECT_EQ(Int(u"barex"), 0u);
}

TEST_F(IniRules, SurvivesEmptyAndGarbageFiles) {
    WriteBytes(file, "");
    EXPECT_EQ(Get(file, u"s", u"k"), u"<default>");
    ASSERT_TRUE(Write(u"s", u"k", u"v"));
    EXPECT_EQ(ReadBytes(file), "[s]\r\nk=v\r\n");

    std::string garbage;
    for (int i = 0; i < 4096; ++i)
        garbage.push_back(static_cast<char>((i * 7919 + 13) % 256));
    garbage += "\n[s]\nk=found\n";
    WriteBytes(file, garbage);
    EXPECT_EQ(Get(file, u"s", u"k"), u"found");
    EXPECT_EQ(GetPrivateProfileIntW(u"\xFFFD", u"x", 5, name), 5u);
    ASSERT_TRUE(Write(u"s", u"k", u"rewritten"));
    EXPECT_EQ(Get(file, u"s", u"k"), u"rewritten");
    // The rest of the garbage is kept byte for byte (it is read as ANSI, which
    // maps every byte both ways); only its line ends became CR LF.
    auto withoutLineEnds = [](std::string bytes) {
        std::erase_if(bytes, [](char c) { return c == '\r' || c == '\n'; });
        return bytes;
    };
    const std::string before = withoutLineEnds(garbage.substr(0, 4096));
    EXPECT_EQ(withoutLineEnds(ReadBytes(file)).substr(0, before.size()), before);
}

TEST_F(IniRules, KeepsTheEncodingOfTheFile) {
    // UTF-16LE with its mark stays UTF-16.
    std::u16string text = u"[s]\r\nk=\u65E5\u672C\r\n";
    std::string utf16 = "\xFF\xFE";
    for (char16_t ch : text)
        utf16 += std::string{static_cast<char>(ch & 0xFF), static_cast<char>(ch >> 8)};
    WriteBytes(file, utf16);
    EXPECT_EQ(Get(file, u"s", u"k"), u"\u65E5\u672C");
    ASSERT_TRUE(Write(u"s", u"e", u"\u20AC"));
    EXPECT_EQ(ReadBytes(file), utf16 + std::string("e\0=\0\xAC\x20\r\0\n\0", 10));

    // A UTF-8 mark is kept.
    WriteBytes(file, "\xEF\xBB\xBF[s]\r\nk=\xC3\xA9\r\n");
    EXPECT_EQ(Get(file, u"s", u"k"), u"\u00E9");
    ASSERT_TRUE(Write(u"s", u"e", u"\u20AC"));
    EXPECT_EQ(ReadBytes(file), "\xEF\xBB\xBF[s]\r\nk=\xC3\xA9\r\ne=\xE2\x82\xAC\r\n");

    // Bytes that are not UTF-8 are the ANSI code page, and written back in it.
    WriteBytes(file, "[s]\r\nk=caf\xE9 \x80\r\n");
    EXPECT_EQ(Get(file, u"s", u"k"), u"caf\u00E9 \u20AC");
    ASSERT_TRUE(Write(u"s", u"e", u"\u00FC\u65E5"));
    EXPECT_EQ(ReadBytes(file), "[s]\r\nk=caf\xE9 \x80\r\ne=\xFC?\r\n");

    // A new file is UTF-8 without a mark.
    std::filesystem::remove(file);
    ASSERT_TRUE(Write(u"s", u"k", u"\u00E9"));
    EXPECT_EQ(ReadBytes(file), "[s]\r\nk=\xC3\xA9\r\n");
}

TEST_F(IniRules, EncodesEveryCharacterBeyondAsciiWhereverItIs) {
    // Plain ASCII under a UTF-8 mark keeps the mark.
    WriteBytes(file, "\xEF\xBB\xBF[s]\r\nk=v\r\n");
    ASSERT_TRUE(Write(u"s", u"e", u"w"));
    EXPECT_EQ(ReadBytes(file), "\xEF\xBB\xBF[s]\r\nk=v\r\ne=w\r\n");
    // Characters whose low byte is zero or a letter, first, last and among
    // ASCII lines, are all encoded, and the file is plain again without them.
    std::filesystem::remove(file);
    ASSERT_TRUE(Write(u"s", u"a", u"\u0100"));
    ASSERT_TRUE(Write(u"s", u"b", u"plain"));
    ASSERT_TRUE(Write(u"s", u"c", u"x\u0141"));
    EXPECT_EQ(ReadBytes(file), "[s]\r\na=\xC4\x80\r\nb=plain\r\nc=x\xC5\x81\r\n");
    ASSERT_TRUE(Write(u"s", u"a", nullptr));
    EXPECT_EQ(ReadBytes(file), "[s]\r\nb=plain\r\nc=x\xC5\x81\r\n");
    ASSERT_TRUE(Write(u"s", u"c", nullptr));
    EXPECT_EQ(ReadBytes(file), "[s]\r\nb=plain\r\n");
    EXPECT_EQ(Get(file, u"s", u"b"), u"plain");
}

TEST_F(IniRules, FindsEachOfManyLikeNamedKeysInAnyCase) {
    // Generated names of one length that differ in a digit or two, in two
    // sections whose names differ only in case from what callers pass.
    auto text = [](const char* format, int i) {
        char ascii[32];
        std::snprintf(ascii, sizeof ascii, format, i);
        return std::u16string(ascii, ascii + std::strlen(ascii));
    };
    constexpr int kKeys = 120;
    for (int i = 0; i < kKeys; ++i) {
        ASSERT_TRUE(Write(u"Settings", text("Key%04d", i).c_str(), text("v%d", i).c_str()));
        ASSERT_TRUE(Write(u"Other", text("Key%04d", i).c_str(), text("o%d", i).c_str()));
    }
    for (int i = 0; i < kKeys; ++i) {
        ASSERT_EQ(Get(file, u"SETTINGS", text("kEY%04d", i).c_str()), text("v%d", i));
        ASSERT_EQ(Get(file, u"other", text("KEY%04d", i).c_str()), text("o%d", i));
    }
    EXPECT_EQ(Get(file, u"settings", u"Key0120"), u"<default>");
    // A write or a deletion under another case touches that one line, spelled
    // as first written.
    ASSERT_TRUE(Write(u"SETTINGS", u"KEY0023", u"changed"));
    ASSERT_TRUE(Write(u"settings", u"key0024", nullptr));
    std::string expected = "[Settings]\r\n";
    for (int i = 0; i < kKeys; ++i) {
        char line[48];
        std::snprintf(line, sizeof line, "Key%04d=%s\r\n", i,
                      i == 23 ? "changed" : ("v" + std::to_string(i)).c_str());
        if (i != 24)
            expected += line;
    }
    expected += "[Other]\r\n";
    for (int i = 0; i < kKeys; ++i)
        expected += "Key" + std::string(4 - std::to_string(i).size(), '0') + std::to_string(i) +
                    "=o" + std::to_string(i) + "\r\n";
    EXPECT_EQ(ReadBytes(file), expected);
    WCHAR keys[8192];
    const DWORD length = GetPrivateProfileStringW(u"settings", nullptr, u"", keys, 8192, name);
    EXPECT_EQ(length, static_cast<DWORD>((kKeys - 1) * 8)); // each "Key0000" and its terminator
}

TEST_F(IniRules, AnAnsiFileThatWouldReadAsUtf8BecomesUtf8WithAMark) {
    // Deleting the section that held the only non-UTF-8 byte would leave bytes
    // that read as UTF-8: the other value must not change meaning.
    WriteBytes(file, "[a]\r\nk=\xC3\xA9\r\n[b]\r\nx=\xFF\r\n");
    EXPECT_EQ(Get(file, u"a", u"k"), u"\u00C3\u00A9");
    ASSERT_TRUE(Write(u"b", nullptr, nullptr));
    EXPECT_EQ(Get(file, u"a", u"k"), u"\u00C3\u00A9");
    EXPECT_EQ(ReadBytes(file), "\xEF\xBB\xBF[a]\r\nk=\xC3\x83\xC2\xA9\r\n");
}

TEST_F(IniRules, SeesChangesMadeBehindItsBack) {
    ASSERT_TRUE(Write(u"s", u"k", u"aaaa"));
    EXPECT_EQ(Get(file, u"s", u"k"), u"aaaa");
    // Same size, same second: only the bytes tell.
    const auto stamp = std::filesystem::last_write_time(file);
    WriteBytes(file, "[s]\r\nk=bbbb\r\n");
    std::filesystem::last_write_time(file, stamp);
    EXPECT_EQ(Get(file, u"s", u"k"), u"bbbb");
    ASSERT_TRUE(Write(u"s", u"j", u"c"));
    EXPECT_EQ(ReadBytes(file), "[s]\r\nk=bbbb\r\nj=c\r\n");
}

TEST_F(IniRules, ResolvesNamesWithoutADirectoryInTheConfigurationHome) {
    ASSERT_TRUE(WritePrivateProfileStringW(u"s", u"k", u"v", u"sub/plain.ini"));
    const auto where = home.Path() / "config" / "sub" / "plain.ini";
    EXPECT_EQ(ReadBytes(where), "[s]\r\nk=v\r\n");
    EXPECT_EQ(
        (std::filesystem::status(where.parent_path()).permissions() & std::filesystem::perms::all),
        std::filesystem::perms::owner_all);
    // Without XDG_CONFIG_HOME (or with a relative one), HOME/.config is used.
    ::setenv("XDG_CONFIG_HOME", "relative/dir", 1);
    ASSERT_TRUE(WritePrivateProfileStringW(u"s", u"k", u"h", u"plain.ini"));
    EXPECT_EQ(ReadBytes(home.Path() / "home" / ".config" / "plain.ini"), "[s]\r\nk=h\r\n");
}
