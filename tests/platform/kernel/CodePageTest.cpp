// Code page conversions: the host's choice of ANSI code page, lengths asked for
// with a zero-sized buffer, and the errors a caller can see with GetLastError.
#include <afx.h>
#include <platform/CodePage.h>

#include <gtest/gtest.h>

#include <string>

namespace {

// Restores the default ANSI code page whatever the test did.
class CodePageTest : public ::testing::Test {
protected:
    void TearDown() override { platform::SetAnsiCodePage(CP_ACP); }
};

} // namespace

TEST_F(CodePageTest, TheHostChoosesTheAnsiCodePage) {
    EXPECT_EQ(GetACP(), 1252u);
    EXPECT_EQ(CString("\xC0"), CString(u"\u00C0"));
    platform::SetAnsiCodePage(1251);
    EXPECT_EQ(GetACP(), 1251u);
    EXPECT_EQ(CString("\xC0\xFF"), CString(u"\u0410\u044F"));
    char out[4] = {};
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, u"\u0410\u00C0", 2, out, 4, nullptr, nullptr), 2);
    EXPECT_EQ(std::string(out, 2), std::string("\xC0?"));
    // CP_ACP names the default again.
    platform::SetAnsiCodePage(CP_ACP);
    EXPECT_EQ(GetACP(), 1252u);
    EXPECT_EQ(CString("\xC0"), CString(u"\u00C0"));
}

TEST_F(CodePageTest, AZeroSizedBufferAsksForTheLength) {
    // -1 counts the terminating zero in.
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "abc", -1, nullptr, 0), 4);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "\xE2\x82\xAC", 3, nullptr, 0), 1);
    EXPECT_EQ(WideCharToMultiByte(1252, 0, u"abc", -1, nullptr, 0, nullptr, nullptr), 4);
    WCHAR wide[4];
    ASSERT_EQ(MultiByteToWideChar(CP_ACP, 0, "ab", -1, wide, 4), 3);
    EXPECT_EQ(std::u16string(wide), u"ab");
    // A chosen default character replaces what the code page cannot hold.
    char narrow[4] = {};
    BOOL used = FALSE;
    ASSERT_EQ(WideCharToMultiByte(1252, 0, u"\u4E2Dx", 2, narrow, 4, "#", &used), 2);
    EXPECT_EQ(std::string(narrow, 2), "#x");
    EXPECT_TRUE(used);
    ASSERT_EQ(WideCharToMultiByte(1252, 0, u"ok", 2, narrow, 4, nullptr, &used), 2);
    EXPECT_FALSE(used);
}

TEST_F(CodePageTest, FailuresSetTheLastError) {
    WCHAR wide[2];
    char narrow[2];
    SetLastError(0);
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, nullptr, 1, wide, 2), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    SetLastError(0);
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "abc", 3, wide, 2), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
    SetLastError(0);
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, u"abc", 3, narrow, 2, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
    SetLastError(0);
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, nullptr, 3, narrow, 2, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    // A code page the system does not know.
    SetLastError(0);
    EXPECT_EQ(MultiByteToWideChar(12345, 0, "a", 1, wide, 2), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    SetLastError(0);
    EXPECT_EQ(WideCharToMultiByte(12345, 0, u"a", 1, narrow, 2, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    // Broken UTF-8: refused when asked to, else replaced.
    SetLastError(0);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, "a\xC3(", 3, wide, 2), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NO_UNICODE_TRANSLATION));
    WCHAR replaced[4];
    ASSERT_EQ(MultiByteToWideChar(CP_UTF8, 0, "a\xC3(", 3, replaced, 4), 3);
    EXPECT_EQ(replaced[1], u'\uFFFD');
}
