// WinUtils::SaveWindowPlacement and RestoreWindowPlacement: a window's whole
// placement through the profile's binary value, in the framework's encoding,
// and stored values too short or meaningless leaving the window alone.
#include "FrameworkHost.h"

#include <fstream>
#include <sstream>

namespace framework_host {
namespace {

class WindowPlacementTest : public FrameworkHostTest {
protected:
    void SetUp() override {
        FrameworkHostTest::SetUp();
        ASSERT_TRUE(window.CreateEx(0, nullptr, u"Placed", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                    CRect(10, 20, 410, 320), nullptr, 0));
    }
    void TearDown() override {
        window.DestroyWindow();
        FrameworkHostTest::TearDown();
    }
    CRect WindowRect() {
        CRect r;
        window.GetWindowRect(&r);
        return r;
    }
    std::string ProfileText() {
        std::ifstream in(profile, std::ios::binary);
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }
    void StoreBytes(const std::vector<BYTE>& bytes) {
        std::vector<BYTE> copy = bytes;
        app->WriteProfileBinary(u"Windows", u"Main", copy.data(), static_cast<UINT>(copy.size()));
    }
    CWnd window;
};

TEST_F(WindowPlacementTest, StoresTheRecordInTheFrameworksBinaryEncoding) {
    WinUtils::SaveWindowPlacement(u"Windows", u"Main", &window);
    // length 44, flags 0, showCmd 1, no minimised or maximised position, and
    // the window's rectangle, each byte as two letters, low nibble first.
    EXPECT_NE(ProfileText().find(
                  "[Windows]\r\nMain=MCAAAAAAAAAAAAAABAAAAAAAPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPP"
                  "KAAAAAAAEBAAAAAAKJBAAAAAAEBAAAAA\r\n"),
              std::string::npos)
        << ProfileText();
}

TEST_F(WindowPlacementTest, RestoringGivesBackThePositionSizeAndShowState) {
    WinUtils::SaveWindowPlacement(u"Windows", u"Main", &window);
    window.MoveWindow(300, 300, 100, 100);
    window.ShowWindow(SW_SHOWMAXIMIZED);
    WinUtils::RestoreWindowPlacement(u"Windows", u"Main", &window);
    EXPECT_FALSE(window.IsZoomed());
    EXPECT_EQ(WindowRect(), CRect(10, 20, 410, 320));

    window.ShowWindow(SW_SHOWMAXIMIZED);
    WinUtils::SaveWindowPlacement(u"Windows", u"Maximised", &window);
    window.ShowWindow(SW_RESTORE);
    WinUtils::RestoreWindowPlacement(u"Windows", u"Maximised", &window);
    EXPECT_TRUE(window.IsZoomed());
    window.ShowWindow(SW_RESTORE);
    EXPECT_EQ(WindowRect(), CRect(10, 20, 410, 320));
}

TEST_F(WindowPlacementTest, AMinimisedWindowIsRestoredMinimised) {
    window.ShowWindow(SW_MINIMIZE);
    WinUtils::SaveWindowPlacement(u"Windows", u"Main", &window);
    window.ShowWindow(SW_RESTORE);
    WinUtils::RestoreWindowPlacement(u"Windows", u"Main", &window);
    EXPECT_TRUE(window.IsIconic());
}

TEST_F(WindowPlacementTest, AMissingShortOrMeaninglessValueLeavesTheWindowAlone) {
    window.ShowWindow(SW_SHOWMAXIMIZED);
    WinUtils::RestoreWindowPlacement(u"Windows", u"Nothing", &window);
    EXPECT_TRUE(window.IsZoomed());

    // The first 20 bytes of a good record.
    WinUtils::SaveWindowPlacement(u"Windows", u"Good", &window);
    LPBYTE good = nullptr;
    UINT size = 0;
    ASSERT_TRUE(app->GetProfileBinary(u"Windows", u"Good", &good, &size));
    ASSERT_EQ(size, 44u);
    StoreBytes(std::vector<BYTE>(good, good + 20));
    window.ShowWindow(SW_RESTORE);
    WinUtils::RestoreWindowPlacement(u"Windows", u"Main", &window);
    EXPECT_FALSE(window.IsZoomed());

    // 44 bytes of noise.
    StoreBytes(std::vector<BYTE>(44, 0xA5));
    WinUtils::RestoreWindowPlacement(u"Windows", u"Main", &window);
    EXPECT_FALSE(window.IsZoomed());
    EXPECT_EQ(WindowRect(), CRect(10, 20, 410, 320));

    // Letters outside the encoding's alphabet decode to something, which is
    // no placement either.
    app->WriteProfileString(u"Windows", u"Main",
                            u"zz!!~~..ZZzz!!~~..ZZzz!!~~..ZZzz!!~~..ZZzz!!~~..ZZ"
                            u"zz!!~~..ZZzz!!~~..ZZzz!!~~..ZZzz!!~~..ZZ");
    WinUtils::RestoreWindowPlacement(u"Windows", u"Main", &window);
    EXPECT_FALSE(window.IsZoomed());
    EXPECT_TRUE(window.IsWindowVisible());

    // A longer value holds the placement at its start.
    std::vector<BYTE> longer(good, good + 44);
    longer.resize(60, 0x11);
    StoreBytes(longer);
    WinUtils::RestoreWindowPlacement(u"Windows", u"Main", &window);
    EXPECT_TRUE(window.IsZoomed());
    delete[] good;

    WinUtils::RestoreWindowPlacement(u"Windows", u"Main", nullptr);
    WinUtils::SaveWindowPlacement(u"Windows", u"Main", nullptr);
}

TEST_F(WindowPlacementTest, APlacementOffEveryScreenComesBackOntoIt) {
    window.MoveWindow(4000, 3000, 300, 200);
    WinUtils::SaveWindowPlacement(u"Windows", u"Main", &window);
    window.MoveWindow(10, 20, 400, 300);
    WinUtils::RestoreWindowPlacement(u"Windows", u"Main", &window);
    const CRect r = WindowRect();
    EXPECT_EQ(r.Size(), CSize(300, 200));
    EXPECT_EQ(r.right, 1280);
    EXPECT_EQ(r.bottom, 1024);
}

TEST_F(WindowPlacementTest, ADocumentFramesPlacementRoundTripsInsideTheFrame) {
    CItemDoc* doc = OpenAlpha();
    CFrameWnd* frame = FrameOf(doc);
    frame->MoveWindow(30, 40, 300, 200);
    WinUtils::SaveWindowPlacement(u"Windows", u"Document", frame);
    frame->ShowWindow(SW_SHOWMAXIMIZED);
    WinUtils::RestoreWindowPlacement(u"Windows", u"Document", frame);
    EXPECT_FALSE(frame->IsZoomed());
    WINDOWPLACEMENT wp{};
    wp.length = sizeof wp;
    ASSERT_TRUE(frame->GetWindowPlacement(&wp));
    EXPECT_EQ(CRect(wp.rcNormalPosition), CRect(30, 40, 330, 240));
}

} // namespace
} // namespace framework_host
