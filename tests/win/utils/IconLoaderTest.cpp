// Filling an image list with the host's icons: from the application's
// resource chain or from a module given by its handle, icons that are
// missing left out, and the list that comes of an empty set.
#include "resource.h"

#include "support/IconFiles.h"
#include "support/Pixels.h"
#include "support/TempDir.h"

#include <Win/Win.h>
#include <platform/IconObjects.h>
#include <platform/ResourceModule.h>
#include <platform/ResourceScript.h>

#include <gtest/gtest.h>

#include <fstream>

namespace {

constexpr COLORREF kBackground = RGB(10, 20, 30);
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kGreen = RGB(0, 255, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kYellow = RGB(255, 255, 0);

class ImageListIconLoader : public ::testing::Test {
protected:
    void SetUp() override {
        lists = platform::LiveImageLists();
        icons = platform::LiveIcons();
    }
    void TearDown() override {
        EXPECT_EQ(platform::LiveImageLists(), lists);
        EXPECT_EQ(platform::LiveIcons(), icons);
    }
    // The colour at (x, y) of image index drawn over the background.
    static COLORREF Shown(CImageList& list, int index, int x, int y) {
        testing_support::Canvas canvas(16, 16, kBackground);
        list.Draw(&canvas.dc(), index, CPoint(0, 0), ILD_NORMAL);
        return canvas.dc().GetPixel(x, y);
    }
    static CSize IconSize(CImageList& list) {
        int cx = 0, cy = 0;
        ImageList_GetIconSize(list, &cx, &cy);
        return CSize(cx, cy);
    }

    int lists = 0;
    int icons = 0;
};

TEST_F(ImageListIconLoader, OnlyTheEndMarkMakesAnEmptyList) {
    UINT ids[] = {0};
    CImageList list;
    WinUtils::ImageListIconLoader(list, ids, nullptr);
    ASSERT_TRUE(list.GetSafeHandle());
    EXPECT_EQ(list.GetImageCount(), 0);
    EXPECT_EQ(IconSize(list), CSize(16, 16));
    EXPECT_EQ(platform::LiveImageLists(), lists + 1);

    CImageList none;
    WinUtils::ImageListIconLoader(none, nullptr, nullptr);
    ASSERT_TRUE(none.GetSafeHandle());
    EXPECT_EQ(none.GetImageCount(), 0);
}

TEST_F(ImageListIconLoader, IconsComeThroughTheApplicationInOrder) {
    CWinApp app(u"Icon host");
    UINT ids[] = {IDI_RED, 999, IDI_GREEN, IDI_BLUE, IDI_RED, 0, IDI_GREEN};
    CImageList list;
    WinUtils::ImageListIconLoader(list, ids, nullptr);
    ASSERT_EQ(list.GetImageCount(), 4); // 999 is not the host's; the 0 ends the list
    // Each shrunk to 16 x 16 with its transparent top-left corner.
    EXPECT_EQ(Shown(list, 0, 1, 1), kBackground);
    EXPECT_EQ(Shown(list, 0, 2, 2), kRed);
    EXPECT_EQ(Shown(list, 0, 15, 15), kRed);
    EXPECT_EQ(Shown(list, 1, 1, 1), kBackground);
    EXPECT_EQ(Shown(list, 1, 8, 8), kGreen);
    EXPECT_EQ(Shown(list, 2, 0, 0), kBackground);
    EXPECT_EQ(Shown(list, 2, 15, 15), kBlue);
    EXPECT_EQ(Shown(list, 3, 10, 3), kRed);
}

TEST_F(ImageListIconLoader, WithoutAnApplicationNothingLoads) {
    ASSERT_EQ(AfxGetApp(), nullptr);
    UINT ids[] = {IDI_RED, IDI_GREEN, 0};
    CImageList list;
    WinUtils::ImageListIconLoader(list, ids, nullptr);
    ASSERT_TRUE(list.GetSafeHandle());
    EXPECT_EQ(list.GetImageCount(), 0);
}

TEST_F(ImageListIconLoader, AModuleGivenByHandleIsTheOnlyOneAsked) {
    // A module whose icon 201 is yellow, where the host's 201 is red; it has
    // no icon 202.
    static int marker = 0;
    const auto module = reinterpret_cast<HINSTANCE>(&marker);
    const std::filesystem::path dir = testing_support::TestOutputDir("icon-loader");
    std::ofstream(dir / "yellow.ico", std::ios::binary)
        << testing_support::MakeIconFile({testing_support::SolidIcon(16, 4, kYellow)});
    std::ofstream(dir / "module.rc") << "201 ICON \"yellow.ico\"\n";
    std::string error;
    ASSERT_TRUE(platform::LoadResourceScript(module, (dir / "module.rc").string(), &error))
        << error;

    CWinApp app(u"Icon host");
    UINT ids[] = {IDI_RED, IDI_GREEN, 0x10000 + IDI_RED, 0};
    CImageList list;
    WinUtils::ImageListIconLoader(list, ids, module);
    ASSERT_EQ(list.GetImageCount(), 2); // the number's high bits do not count
    EXPECT_EQ(Shown(list, 0, 0, 0), kYellow);
    EXPECT_EQ(Shown(list, 1, 15, 15), kYellow);
    platform::ReleaseResources(module);
}

TEST_F(ImageListIconLoader, AListMadeAlreadyIsLeftAsItIs) {
    CWinApp app(u"Icon host");
    CImageList list;
    ASSERT_TRUE(list.Create(32, 32, ILC_MASK | ILC_COLOR32, 0, 1));
    const HIMAGELIST handle = list.GetSafeHandle();
    UINT ids[] = {IDI_RED, 0};
    WinUtils::ImageListIconLoader(list, ids, nullptr);
    EXPECT_EQ(list.GetSafeHandle(), handle);
    EXPECT_EQ(list.GetImageCount(), 0);
    EXPECT_EQ(IconSize(list), CSize(32, 32));
}

} // namespace
