// The mouse position and the cursor drawn into pictures of the desktop.
#include "support/TempDir.h"

#include <afxwin.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>
#include <platform/WindowPictures.h>

#include <cairo.h>
#include <gtest/gtest.h>

namespace {

namespace automation = platform::automation;

// The desktop's picture as rows of pixels 0xRRGGBB.
class DesktopPicture {
public:
    explicit DesktopPicture(const std::string& path) {
        EXPECT_TRUE(platform::SaveDesktopAsPng(path));
        m_surface = cairo_image_surface_create_from_png(path.c_str());
    }
    ~DesktopPicture() { cairo_surface_destroy(m_surface); }
    uint32_t At(int x, int y) const {
        const unsigned char* data = cairo_image_surface_get_data(m_surface);
        int stride = cairo_image_surface_get_stride(m_surface);
        return *reinterpret_cast<const uint32_t*>(data + y * stride + x * 4) & 0xFFFFFF;
    }

private:
    cairo_surface_t* m_surface = nullptr;
};

class CursorPictureTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        dir = testing_support::TestOutputDir("cursor");
        SetCursor(LoadCursor(nullptr, IDC_ARROW));
    }
    void TearDown() override {
        SetCursor(LoadCursor(nullptr, IDC_ARROW));
        automation::Reset();
    }
    std::string Png(const char* name) const { return (dir / name).string(); }
    std::filesystem::path dir;
};

constexpr uint32_t kWhite = 0xFFFFFF;
constexpr uint32_t kBlack = 0x000000;
constexpr uint32_t kBusyBlue = 0x0078D7;

TEST_F(CursorPictureTest, TheMousePositionStaysOnTheScreen) {
    EXPECT_FALSE(GetCursorPos(nullptr));
    POINT at{};
    EXPECT_TRUE(SetCursorPos(-5, 5000));
    ASSERT_TRUE(GetCursorPos(&at));
    EXPECT_EQ(at.x, 0);
    EXPECT_EQ(at.y, GetSystemMetrics(SM_CYSCREEN) - 1);
    SetCursorPos(100, 200);
    GetCursorPos(&at);
    EXPECT_EQ(at.x, 100);
    EXPECT_EQ(at.y, 200);
}

TEST_F(CursorPictureTest, AClickMovesTheMouseToTheControl) {
    HWND window = CreateWindowEx(0, u"STATIC", u"", WS_POPUP | WS_VISIBLE, 200, 150, 300, 200,
                                 nullptr, nullptr, nullptr, nullptr);
    HWND button = CreateWindowEx(0, u"BUTTON", u"Go", WS_CHILD | WS_VISIBLE, 20, 30, 80, 24, window,
                                 reinterpret_cast<HMENU>(uintptr_t{7}), nullptr, nullptr);
    SetActiveWindow(window);
    automation::Click(7);
    ASSERT_TRUE(automation::RunNext());
    platform::PumpMessages();
    POINT at{};
    GetCursorPos(&at);
    RECT rect;
    GetWindowRect(button, &rect);
    EXPECT_EQ(at.x, rect.left + 40);
    EXPECT_EQ(at.y, rect.top + 12);
    DestroyWindow(window);
}

TEST_F(CursorPictureTest, TheDesktopPictureShowsTheCursorAtTheMouse) {
    SetCursorPos(300, 300);
    {
        DesktopPicture arrow(Png("arrow.png"));
        EXPECT_EQ(arrow.At(300, 300), kBlack); // the tip
        EXPECT_EQ(arrow.At(301, 305), kWhite); // inside
        EXPECT_EQ(arrow.At(300, 310), kBlack); // the left edge
        EXPECT_EQ(arrow.At(299, 305), kWhite); // the desktop beside it
    }
    {
        CWaitCursor wait;
        DesktopPicture busy(Png("wait.png"));
        EXPECT_EQ(busy.At(308, 300), kBusyBlue);
        EXPECT_EQ(busy.At(292, 300), kBusyBlue);
        EXPECT_EQ(busy.At(300, 300), kWhite); // the ring's middle
    }
    SetCursor(LoadCursor(nullptr, IDC_IBEAM));
    {
        DesktopPicture beam(Png("beam.png"));
        EXPECT_EQ(beam.At(300, 300), kBlack);
        EXPECT_EQ(beam.At(301, 300), kWhite);
    }
    SetCursor(LoadCursor(nullptr, IDC_APPSTARTING));
    {
        DesktopPicture starting(Png("appstarting.png"));
        EXPECT_EQ(starting.At(300, 300), kBlack);
        EXPECT_EQ(starting.At(316 + 5, 320), kBusyBlue);
    }
    SetCursor(nullptr);
    {
        DesktopPicture hidden(Png("hidden.png"));
        EXPECT_EQ(hidden.At(300, 300), kWhite);
    }
}

} // namespace
