// The application object's profile: where the file lives and the framework's
// rules on top of the INI file (integers, strings, the binary encoding).
#include "ProfileTestSupport.h"

#include "platform/ResourceModule.h"

#include <gtest/gtest.h>
#include <tchar.h>

#include <cstring>
#include <memory>

using profile_test::ReadBytes;
using profile_test::WriteBytes;

namespace {

// A host's application: names its company as hosts do, in InitInstance.
class TestApp : public CWinApp {
public:
    explicit TestApp(LPCTSTR name, LPCTSTR company = nullptr) : CWinApp(name), m_company(company) {}
    BOOL InitInstance() override {
        if (m_company)
            SetRegistryKey(m_company);
        return TRUE;
    }
    void UseCompanyString(UINT id) { SetRegistryKey(id); }

private:
    LPCTSTR m_company;
};

class AppProfile : public ::testing::Test {
protected:
    profile_test::ConfigHome home{::testing::UnitTest::GetInstance()->current_test_info()->name()};
    std::filesystem::path config = home.Path() / "config";
};

// The placement record of a window: 44 bytes.
struct Placement {
    UINT length, flags, showCmd;
    POINT minPosition, maxPosition;
    RECT normalPosition;
};
static_assert(sizeof(Placement) == 44);

} // namespace

TEST_F(AppProfile, LivesUnderTheCompanyAfterSetRegistryKey) {
    TestApp app(u"Viewer", u"Acme Tools");
    EXPECT_EQ(AfxGetApp(), &app);
    ASSERT_TRUE(app.InitInstance());
    EXPECT_EQ(std::u16string(app.m_pszRegistryKey), u"Acme Tools");
    EXPECT_EQ(std::u16string(app.m_pszProfileName), u"Viewer");
    ASSERT_TRUE(app.WriteProfileInt(u"Settings", u"Count", -3));
    EXPECT_EQ(ReadBytes(config / "Acme Tools" / "Viewer.ini"), "[Settings]\r\nCount=-3\r\n");
    EXPECT_EQ(app.GetProfileInt(u"Settings", u"Count", 9), 4294967293u);
    EXPECT_EQ(app.GetProfileInt(u"Settings", u"LastMdiPlacement", 9), 9u);
}

TEST_F(AppProfile, LivesInTheConfigurationHomeOtherwise) {
    {
        TestApp app(u"Viewer");
        ASSERT_TRUE(app.WriteProfileString(u"S", u"k", u"v"));
        EXPECT_EQ(std::u16string(app.m_pszProfileName), u"Viewer.ini");
    }
    EXPECT_EQ(ReadBytes(config / "Viewer.ini"), "[S]\r\nk=v\r\n");
    EXPECT_EQ(AfxGetApp(), nullptr);
    // An absolute profile name is used as it is; the host sets it as hosts do.
    const auto absolute = home.Path() / "elsewhere" / "mine.ini";
    TestApp app(u"Viewer", u"Acme");
    app.InitInstance();
    std::free(const_cast<WCHAR*>(app.m_pszProfileName));
    app.m_pszProfileName = _tcsdup(profile_test::Name(absolute));
    ASSERT_TRUE(app.WriteProfileString(u"S", u"k", u"abs"));
    EXPECT_EQ(ReadBytes(absolute), "[S]\r\nk=abs\r\n");
    // Without XDG_CONFIG_HOME the user's ~/.config is used.
    ::unsetenv("XDG_CONFIG_HOME");
    TestApp plain(u"Plain");
    ASSERT_TRUE(plain.WriteProfileString(u"S", u"k", u"home"));
    EXPECT_EQ(ReadBytes(home.Path() / "home" / ".config" / "Plain.ini"), "[S]\r\nk=home\r\n");
}

TEST_F(AppProfile, TakesItsNamesFromResourcesWhenTheHostGivesNone) {
    auto& resources = platform::Resources(AfxGetResourceHandle());
    resources.SetString(AFX_IDS_APP_TITLE, u"Titled");
    resources.SetString(4321, u"Company/Sub");
    TestApp app(nullptr);
    app.UseCompanyString(4321);
    ASSERT_TRUE(app.WriteProfileString(u"S", u"k", u"v"));
    // A '/' in a name does not make a directory.
    EXPECT_EQ(ReadBytes(config / "Company_Sub" / "Titled.ini"), "[S]\r\nk=v\r\n");
    bool threw = false;
    try {
        app.UseCompanyString(4322);
    } catch (CInvalidArgException* e) {
        threw = true;
        e->Delete();
    }
    EXPECT_TRUE(threw);
    resources.RemoveString(AFX_IDS_APP_TITLE);
    resources.RemoveString(4321);
}

TEST_F(AppProfile, StoresThePlacementRecordInTheFrameworksEncoding) {
    TestApp app(u"Viewer", u"Acme");
    app.InitInstance();
    Placement placement{44, 0, 1, {-1, -1}, {-1, -1}, {10, 20, 410, 320}};
    ASSERT_TRUE(app.WriteProfileBinary(u"Settings", u"LastMdiPlacement",
                                       reinterpret_cast<LPBYTE>(&placement), sizeof placement));
    EXPECT_EQ(
        ReadBytes(config / "Acme" / "Viewer.ini"),
        "[Settings]\r\nLastMdiPlacement=MCAAAAAAAAAAAAAABAAAAAAAPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPP"
        "KAAAAAAAEBAAAAAAKJBAAAAAAEBAAAAA\r\n");
    LPBYTE data = reinterpret_cast<LPBYTE>(1);
    UINT size = 7;
    ASSERT_TRUE(app.GetProfileBinary(u"Settings", u"LastMdiPlacement", &data, &size));
    std::unique_ptr<BYTE[]> owned(data);
    ASSERT_EQ(size, 44u);
    EXPECT_EQ(std::memcmp(data, &placement, 44), 0);
}

TEST_F(AppProfile, DecodesBinaryWithoutValidating) {
    TestApp app(u"Viewer");
    WriteBytes(config / "Viewer.ini", "[b]\r\nodd=BAC\r\nwild=a0\r\nempty=\r\n");
    LPBYTE data = nullptr;
    UINT size = 0;
    ASSERT_TRUE(app.GetProfileBinary(u"b", u"odd", &data, &size));
    ASSERT_EQ(size, 1u); // the odd last letter is ignored
    EXPECT_EQ(data[0], 0x01);
    delete[] data;
    ASSERT_TRUE(app.GetProfileBinary(u"b", u"wild", &data, &size));
    ASSERT_EQ(size, 1u);
    EXPECT_EQ(data[0], static_cast<BYTE>((('0' - 'A') << 4) + ('a' - 'A')));
    delete[] data;
    // Empty or missing: FALSE with null and 0; a zero-byte write stores "".
    data = reinterpret_cast<LPBYTE>(1);
    size = 5;
    EXPECT_FALSE(app.GetProfileBinary(u"b", u"empty", &data, &size));
    EXPECT_EQ(data, nullptr);
    EXPECT_EQ(size, 0u);
    EXPECT_FALSE(app.GetProfileBinary(u"b", u"missing", &data, &size));
    BYTE one = 0xA5;
    ASSERT_TRUE(app.WriteProfileBinary(u"b", u"zero", &one, 0));
    EXPECT_FALSE(app.GetProfileBinary(u"b", u"zero", &data, &size));
    EXPECT_FALSE(app.WriteProfileBinary(u"b", u"null", nullptr, 3));
}

TEST_F(AppProfile, ReturnsAtMost4095Characters) {
    TestApp app(u"Viewer");
    const std::u16string longValue(5000, u'x');
    ASSERT_TRUE(app.WriteProfileString(u"S", u"long", longValue.c_str()));
    EXPECT_EQ(app.GetProfileString(u"S", u"long").GetLength(), 4095);
    EXPECT_EQ(profile_test::Get(config / "Viewer.ini", u"S", u"long"), longValue);
    // A binary value longer than that comes back cut to 2047 bytes.
    std::vector<BYTE> bytes(3000, 0x5A);
    ASSERT_TRUE(app.WriteProfileBinary(u"S", u"bin", bytes.data(), 3000));
    LPBYTE data = nullptr;
    UINT size = 0;
    ASSERT_TRUE(app.GetProfileBinary(u"S", u"bin", &data, &size));
    delete[] data;
    EXPECT_EQ(size, 2047u);
}

TEST_F(AppProfile, FollowsTheFrameworksStringAndDeletionRules) {
    TestApp app(u"Viewer");
    EXPECT_EQ(app.GetProfileString(u"S", u"missing"), u"");
    EXPECT_EQ(app.GetProfileString(u"S", u"missing", u"built-in  "), u"built-in");
    ASSERT_TRUE(app.WriteProfileString(u"S", u"ListColumns", u"  \"Name;120;Size;60;\"  "));
    EXPECT_EQ(app.GetProfileString(u"S", u"listcolumns"), u"Name;120;Size;60;");
    ASSERT_TRUE(app.WriteProfileInt(u"T", u"n", 5));
    ASSERT_TRUE(app.WriteProfileString(u"S", u"ListColumns", nullptr));
    EXPECT_EQ(app.GetProfileString(u"S", u"ListColumns", u"gone"), u"gone");
    ASSERT_TRUE(app.WriteProfileString(u"T", nullptr, nullptr));
    EXPECT_EQ(app.GetProfileInt(u"T", u"n", 9), 9u);
    EXPECT_EQ(ReadBytes(config / "Viewer.ini"), "[S]\r\n");
}

TEST_F(AppProfile, TwoApplicationObjectsInTurnShareOneProfile) {
    {
        TestApp first(u"Viewer", u"Acme");
        first.InitInstance();
        ASSERT_TRUE(first.WriteProfileInt(u"WarningDlg", u"Overwrite", 1));
        ASSERT_TRUE(first.WriteProfileString(u"Recent", u"File1", u"/tmp/a.csv"));
    }
    TestApp second(u"Viewer", u"Acme");
    second.InitInstance();
    EXPECT_EQ(AfxGetApp(), &second);
    EXPECT_EQ(second.GetProfileInt(u"warningdlg", u"overwrite", 0), 1u);
    EXPECT_EQ(second.GetProfileString(u"Recent", u"File1"), u"/tmp/a.csv");
    // Another application of the same company keeps its own file.
    TestApp other(u"Editor", u"Acme");
    other.InitInstance();
    EXPECT_EQ(other.GetProfileInt(u"WarningDlg", u"Overwrite", 0), 0u);
}

TEST_F(AppProfile, KeepsTheMainWindow) {
    TestApp app(u"Viewer");
    EXPECT_EQ(app.GetMainWnd(), nullptr);
    CWnd wnd;
    app.m_pMainWnd = &wnd;
    EXPECT_EQ(AfxGetApp()->GetMainWnd(), &wnd);
    EXPECT_EQ(app.ExitInstance(), 0);
}
