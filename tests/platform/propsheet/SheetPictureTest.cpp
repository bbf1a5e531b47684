// Pictures of a tabbed sheet and of each page of a three-page wizard, as a
// person would see them, written to the test's output folder and read back:
// the selected tab is joined to the panel, the buttons are whole and inside
// the window, and nothing of a page is cut off.
#include "SheetTestSupport.h"

#include <afxcmn.h>
#include <afxwin.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>
#include <platform/WindowPictures.h>

#include "support/TempDir.h"
#include <cairo.h>

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using namespace sheet_test;
namespace automation = platform::automation;

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<COLORREF> pixels;
    COLORREF At(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
};

bool Read(const std::filesystem::path& path, Picture& picture) {
    cairo_surface_t* image = cairo_image_surface_create_from_png(path.c_str());
    if (cairo_surface_status(image) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(image);
        return false;
    }
    picture.width = cairo_image_surface_get_width(image);
    picture.height = cairo_image_surface_get_height(image);
    const unsigned char* data = cairo_image_surface_get_data(image);
    int stride = cairo_image_surface_get_stride(image);
    picture.pixels.clear();
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x) {
            uint32_t pixel = *reinterpret_cast<const uint32_t*>(data + y * stride + x * 4);
            picture.pixels.push_back(RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF));
        }
    cairo_surface_destroy(image);
    return true;
}

// A child's rectangle in its top-level window's picture coordinates.
RECT InWindow(HWND window, HWND child) {
    RECT outer{}, inner{};
    GetWindowRect(window, &outer);
    GetWindowRect(child, &inner);
    return RECT{inner.left - outer.left, inner.top - outer.top, inner.right - outer.left,
                inner.bottom - outer.top};
}

bool Inside(const RECT& inner, int width, int height) {
    return inner.left >= 0 && inner.top >= 0 && inner.right <= width && inner.bottom <= height;
}

// The pixels of text, dark or greyed, in the rectangle.
int DarkPixels(const Picture& picture, const RECT& r) {
    int count = 0;
    for (int y = std::max<LONG>(0, r.top); y < std::min<LONG>(picture.height, r.bottom); ++y)
        for (int x = std::max<LONG>(0, r.left); x < std::min<LONG>(picture.width, r.right); ++x) {
            COLORREF c = picture.At(x, y);
            if (GetRValue(c) < 130 && GetGValue(c) < 130 && GetBValue(c) < 130)
                ++count;
        }
    return count;
}

class SheetPictureTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        folder = testing_support::TestOutputDir("propsheet");
    }
    void TearDown() override {
        automation::Reset();
        platform::PumpMessages();
    }
    // Saves the active sheet and checks that its buttons and current page
    // are inside the picture and carry text.
    void Snap(const std::string& name, const std::vector<int>& buttons) {
        HWND sheet = GetActiveWindow();
        std::filesystem::path path = folder / name;
        ASSERT_TRUE(platform::SaveWindowAsPng(sheet, path.string()));
        Picture picture;
        ASSERT_TRUE(Read(path, picture));
        RECT window{};
        GetWindowRect(sheet, &window);
        EXPECT_EQ(picture.width, window.right - window.left);
        for (int id : buttons) {
            HWND button = GetDlgItem(sheet, id);
            ASSERT_TRUE(IsWindowVisible(button)) << name << " button " << id;
            RECT r = InWindow(sheet, button);
            EXPECT_TRUE(Inside(r, picture.width, picture.height)) << name << " button " << id;
            EXPECT_GT(DarkPixels(picture, r), 10) << name << " button " << id;
        }
        HWND page = reinterpret_cast<HWND>(SendMessage(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
        RECT pageRect = InWindow(sheet, page);
        EXPECT_TRUE(Inside(pageRect, picture.width, picture.height)) << name;
        EXPECT_GT(DarkPixels(picture, pageRect), 30) << name;
        saved.push_back(path);
    }
    std::filesystem::path folder;
    std::vector<std::filesystem::path> saved;
};

TEST_F(SheetPictureTest, ATabbedSheet) {
    CPropertyPage general(IDD_GENERAL), advanced(IDD_ADVANCED), layout(IDD_LAYOUT);
    CPropertySheet sheet(_T("Preferences"));
    sheet.AddPage(&general);
    sheet.AddPage(&advanced);
    sheet.AddPage(&layout);
    automation::ClickTab(2);
    automation::Do([this] { Snap("tabbed-sheet.png", {IDOK, IDCANCEL, ID_APPLY_NOW}); });
    automation::Do([&] {
        // The selected tab is open to the panel below it: no frame line
        // between them.
        Picture picture;
        ASSERT_TRUE(Read(saved.back(), picture));
        HWND tab = sheet.GetTabControl()->m_hWnd;
        RECT item{};
        SendMessage(tab, TCM_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&item));
        RECT inWindow = InWindow(sheet.m_hWnd, tab);
        // The row of the panel's top edge, under the tabs.
        int border = inWindow.top + item.bottom;
        COLORREF face = GetSysColor(COLOR_BTNFACE);
        EXPECT_EQ(picture.At(inWindow.left + (item.left + item.right) / 2, border), face);
        int otherX = inWindow.left + 10;
        EXPECT_NE(picture.At(otherX, border), face);
    });
    automation::Click(IDCANCEL);
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    ASSERT_EQ(saved.size(), 1u);
}

TEST_F(SheetPictureTest, EachPageOfAThreePageWizard) {
    CPropertyPage welcome(IDD_WELCOME), options(IDD_OPTIONS), summary(IDD_SUMMARY);
    CPropertySheet sheet(_T("Setup"));
    sheet.AddPage(&welcome);
    sheet.AddPage(&options);
    sheet.AddPage(&summary);
    sheet.SetWizardMode();
    automation::Do([&] { sheet.SetWizardButtons(PSWIZB_NEXT); });
    automation::Do([this] { Snap("wizard-1-welcome.png", {ID_WIZBACK, ID_WIZNEXT, IDCANCEL}); });
    automation::Click(ID_WIZNEXT);
    automation::Do([&] { sheet.SetWizardButtons(PSWIZB_BACK | PSWIZB_NEXT); });
    automation::Do([this] { Snap("wizard-2-options.png", {ID_WIZBACK, ID_WIZNEXT, IDCANCEL}); });
    automation::Click(ID_WIZNEXT);
    automation::Do([&] { sheet.SetWizardButtons(PSWIZB_BACK | PSWIZB_FINISH); });
    automation::Do([this] { Snap("wizard-3-summary.png", {ID_WIZBACK, ID_WIZFINISH, IDCANCEL}); });
    automation::Click(ID_WIZFINISH);
    EXPECT_EQ(sheet.DoModal(), ID_WIZFINISH);
    EXPECT_EQ(saved.size(), 3u);
    for (const auto& path : saved)
        EXPECT_TRUE(std::filesystem::exists(path));
}

} // namespace
