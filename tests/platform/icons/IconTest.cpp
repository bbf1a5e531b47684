// Icons from a module's resource script: the image nearest the standard size,
// every depth of bitmap and PNG images, masks and alpha, shared handles,
// images that cannot be read, drawing sizes and modes, and the application's
// icons found through the resource chain, and the icons of dialog controls.
#include "IconFixture.h"

#include <afxwin.h>
#include <platform/IconObjects.h>
#include <platform/ResourceChain.h>

#include <gtest/gtest.h>

using icons_test::kDrawBackground;
using testing_support::IconImage;
using testing_support::IconPixel;
using testing_support::MakeIconFile;
using testing_support::SolidIcon;

namespace {

constexpr COLORREF kBackground = RGB(10, 20, 30);

// A pattern every depth can hold: four quadrants of two colours, with the
// top-left 4 x 4 block masked out.
IconPixel Quadrants(int x, int y, int size, COLORREF a, COLORREF b) {
    IconPixel p;
    p.colour = ((x < size / 2) == (y < size / 2)) ? a : b;
    p.transparent = x < 4 && y < 4;
    return p;
}

class IconTest : public icons_test::IconFixture {};

TEST_F(IconTest, LoadIconTakesTheImageNearestTheStandardSize) {
    Load({{1, MakeIconFile({SolidIcon(16, 32, RGB(255, 0, 0)), SolidIcon(32, 32, RGB(0, 255, 0)),
                            SolidIcon(48, 32, RGB(0, 0, 255))})},
          {2, MakeIconFile({SolidIcon(16, 8, RGB(255, 0, 0)), SolidIcon(48, 8, RGB(0, 0, 255))})},
          {3, MakeIconFile({SolidIcon(32, 4, RGB(128, 0, 0)), SolidIcon(32, 32, RGB(0, 128, 0)),
                            SolidIcon(32, 8, RGB(0, 0, 128))})}});
    HICON icon = LoadIcon(Module(), MAKEINTRESOURCE(1));
    ASSERT_TRUE(icon);
    EXPECT_EQ(DrawnSize(icon), CSize(32, 32));
    EXPECT_EQ(Drawn(icon, 0, 0), RGB(0, 255, 0));
    // As near below as above: the larger one, which scales down cleanly.
    HICON two = LoadIcon(Module(), MAKEINTRESOURCE(2));
    EXPECT_EQ(DrawnSize(two), CSize(48, 48));
    EXPECT_EQ(Drawn(two, 47, 47), RGB(0, 0, 255));
    // Of one size, the most colours.
    EXPECT_EQ(Drawn(LoadIcon(Module(), MAKEINTRESOURCE(3)), 5, 5), RGB(0, 128, 0));
}

TEST_F(IconTest, EveryBitmapDepthShowsItsPixelsThroughItsMask) {
    const COLORREF a = RGB(200, 40, 90), b = RGB(30, 160, 220);
    std::vector<std::pair<int, std::string>> files;
    for (int bits : {1, 4, 8, 24, 32}) {
        IconImage image;
        image.width = image.height = 32;
        image.bits = bits;
        image.pixel = [=](int x, int y) { return Quadrants(x, y, 32, a, b); };
        files.emplace_back(bits, MakeIconFile({image}));
    }
    Load(files);
    for (int bits : {1, 4, 8, 24, 32}) {
        SCOPED_TRACE(bits);
        HICON icon = LoadIcon(Module(), MAKEINTRESOURCE(bits));
        ASSERT_TRUE(icon);
        testing_support::Canvas canvas(40, 40, kBackground);
        ASSERT_TRUE(DrawIconEx(canvas.dc().GetSafeHdc(), 0, 0, icon, 0, 0, 0, nullptr, DI_NORMAL));
        int wrong = 0;
        for (int y = 0; y < 32; ++y)
            for (int x = 0; x < 32; ++x) {
                const IconPixel p = Quadrants(x, y, 32, a, b);
                wrong += canvas.dc().GetPixel(x, y) != (p.transparent ? kBackground : p.colour);
            }
        EXPECT_EQ(wrong, 0);
        EXPECT_EQ(canvas.dc().GetPixel(32, 32), kBackground);
    }
}

TEST_F(IconTest, ThirtyTwoBitImagesBlendByTheirAlphaUnlessItIsAllZero) {
    IconImage blended;
    blended.width = blended.height = 32;
    blended.pixel = [](int x, int) {
        return IconPixel{RGB(255, 255, 255), false, static_cast<std::uint8_t>(x < 16 ? 128 : 0)};
    };
    IconImage old = blended;
    old.pixel = [](int x, int) { return IconPixel{RGB(255, 255, 255), x >= 16, 0}; };
    Load({{1, MakeIconFile({blended})}, {2, MakeIconFile({old})}});
    testing_support::Canvas canvas(64, 32, RGB(0, 0, 0));
    CDC& dc = canvas.dc();
    ASSERT_TRUE(DrawIcon(dc.GetSafeHdc(), 0, 0, LoadIcon(Module(), MAKEINTRESOURCE(1))));
    ASSERT_TRUE(DrawIcon(dc.GetSafeHdc(), 32, 0, LoadIcon(Module(), MAKEINTRESOURCE(2))));
    EXPECT_EQ(dc.GetPixel(3, 3), RGB(128, 128, 128)); // half white over black
    EXPECT_EQ(dc.GetPixel(20, 3), RGB(0, 0, 0));
    EXPECT_EQ(dc.GetPixel(35, 3), RGB(255, 255, 255)); // the mask decides
    EXPECT_EQ(dc.GetPixel(52, 3), RGB(0, 0, 0));
}

TEST_F(IconTest, PngImagesKeepTheirTransparency) {
    IconImage png;
    png.width = png.height = 32;
    png.png = icons_test::PngBytes(32, 32, [](int x, int y) -> std::uint32_t {
        return x + y < 32 ? 0xFF00C000u : 0x00000000u; // green triangle, the rest clear
    });
    Load({{7, MakeIconFile({SolidIcon(16, 8, RGB(255, 0, 0)), png})}});
    HICON icon = LoadIcon(Module(), MAKEINTRESOURCE(7));
    ASSERT_TRUE(icon);
    EXPECT_EQ(DrawnSize(icon), CSize(32, 32));
    EXPECT_EQ(Drawn(icon, 0, 0), RGB(0, 192, 0));
    EXPECT_EQ(Drawn(icon, 30, 1), RGB(0, 192, 0));
    EXPECT_EQ(Drawn(icon, 31, 1), kDrawBackground);
    EXPECT_EQ(Drawn(icon, 31, 31), kDrawBackground);
}

TEST_F(IconTest, AModulesIconIsSharedAndOutlivesDestroyIcon) {
    Load({{5, MakeIconFile({SolidIcon(32, 24, RGB(1, 2, 3))})}});
    const int live = platform::LiveIcons();
    HICON icon = LoadIcon(Module(), MAKEINTRESOURCE(5));
    ASSERT_TRUE(icon);
    EXPECT_EQ(LoadIcon(Module(), MAKEINTRESOURCE(5)), icon);
    EXPECT_TRUE(DestroyIcon(icon));
    EXPECT_EQ(Drawn(icon, 1, 1), RGB(1, 2, 3));
    EXPECT_EQ(platform::LiveIcons(), live);

    EXPECT_EQ(LoadIcon(Module(), MAKEINTRESOURCE(6)), nullptr);
    EXPECT_EQ(LoadIcon(Module(), u"FIVE"), nullptr);
    EXPECT_EQ(LoadIcon(nullptr, MAKEINTRESOURCE(5)), nullptr);
    EXPECT_EQ(LoadIcon(Module(), nullptr), nullptr);
    EXPECT_FALSE(DestroyIcon(nullptr));
    EXPECT_FALSE(DestroyIcon(reinterpret_cast<HICON>(std::uintptr_t{0x1234})));
    EXPECT_FALSE(DrawIcon(nullptr, 0, 0, icon));
}

TEST_F(IconTest, NamedIconsAreFoundByName) {
    LoadNamed("APPICON", MakeIconFile({SolidIcon(32, 24, RGB(9, 8, 7))}));
    HICON icon = LoadIcon(Module(), u"AppIcon");
    ASSERT_TRUE(icon);
    EXPECT_EQ(Drawn(icon, 0, 0), RGB(9, 8, 7));
}

TEST_F(IconTest, ImagesThatCannotBeReadGiveNoIcon) {
    std::string good = MakeIconFile({SolidIcon(32, 24, RGB(1, 1, 1))});
    // The directory is sound (the script reader checks it); the image is not.
    auto withImage = [&](const std::function<void(std::string&)>& spoil) {
        std::string file = good;
        spoil(file);
        return file;
    };
    constexpr std::size_t kImage = 6 + 16; // where the single image starts
    Load({{1, withImage([&](std::string& f) { f[kImage + 4] = 0; })},    // width 0
          {2, withImage([&](std::string& f) { f[kImage + 14] = 7; })},   // 7 bits a pixel
          {3, withImage([&](std::string& f) { f[kImage + 16] = 1; })},   // compressed
          {4, withImage([&](std::string& f) { f[kImage] = 12; })},       // a short header
          {5, withImage([&](std::string& f) { f[kImage + 5] = 2; })},    // rows past the end
          {7, withImage([&](std::string& f) { f[kImage + 5] = 0x7F; })}, // too large to take
          {6, MakeIconFile({[] {
               IconImage png;
               png.width = png.height = 32;
               png.png = std::string("\x89PNG\r\n\x1a\n", 8) + "not really a PNG file";
               return png;
           }()})}});
    for (int id = 1; id <= 7; ++id)
        EXPECT_EQ(LoadIcon(Module(), MAKEINTRESOURCE(id)), nullptr) << id;
}

TEST_F(IconTest, DrawIconExScalesAndDrawsTheMaskOrTheImage) {
    IconImage image;
    image.width = image.height = 32;
    image.bits = 8;
    image.pixel = [](int x, int y) { return Quadrants(x, y, 32, RGB(255, 0, 0), RGB(0, 0, 255)); };
    Load({{1, MakeIconFile({image})}});
    HICON icon = LoadIcon(Module(), MAKEINTRESOURCE(1));
    testing_support::Canvas canvas(120, 40, kBackground);
    HDC hdc = canvas.dc().GetSafeHdc();
    ASSERT_TRUE(DrawIconEx(hdc, 0, 0, icon, 16, 16, 0, nullptr, DI_NORMAL));
    EXPECT_EQ(canvas.dc().GetPixel(1, 1), kBackground); // the mask halves too
    EXPECT_EQ(canvas.dc().GetPixel(2, 2), RGB(255, 0, 0));
    EXPECT_EQ(canvas.dc().GetPixel(15, 2), RGB(0, 0, 255));
    EXPECT_EQ(canvas.dc().GetPixel(15, 15), RGB(255, 0, 0));
    EXPECT_EQ(canvas.dc().GetPixel(16, 16), kBackground);

    ASSERT_TRUE(DrawIconEx(hdc, 20, 0, icon, 0, 0, 0, nullptr, DI_MASK));
    EXPECT_EQ(canvas.dc().GetPixel(20, 0), RGB(255, 255, 255));
    EXPECT_EQ(canvas.dc().GetPixel(30, 10), RGB(0, 0, 0));
    ASSERT_TRUE(DrawIconEx(hdc, 60, 0, icon, 0, 0, 0, nullptr, DI_IMAGE));
    EXPECT_EQ(canvas.dc().GetPixel(60, 0), RGB(0, 0, 0));
    EXPECT_EQ(canvas.dc().GetPixel(70, 10), RGB(255, 0, 0));

    // The flicker-free brush is the background.
    CBrush green(RGB(0, 255, 0));
    ASSERT_TRUE(DrawIconEx(hdc, 100, 0, icon, 8, 8, 0, green, DI_NORMAL));
    EXPECT_EQ(canvas.dc().GetPixel(100, 0), RGB(0, 255, 0));
    EXPECT_EQ(canvas.dc().GetPixel(104, 0), RGB(0, 0, 255));

    EXPECT_FALSE(DrawIconEx(hdc, 0, 0, icon, 0, 0, 0, nullptr, 0));
    EXPECT_FALSE(DrawIconEx(hdc, 0, 0, icon, -1, 0, 0, nullptr, DI_NORMAL));
    EXPECT_FALSE(DrawIconEx(hdc, 0, 0, nullptr, 0, 0, 0, nullptr, DI_NORMAL));
}

TEST_F(IconTest, TheApplicationFindsIconsThroughTheResourceChain) {
    CWinApp app(u"Icons");
    icons_test::ExtensionScope extension;
    LoadInto(extension.Handle(), {{40, MakeIconFile({SolidIcon(32, 24, RGB(4, 4, 4))})}});
    Load({{41, MakeIconFile({SolidIcon(32, 24, RGB(5, 5, 5))})}});
    AfxSetResourceHandle(Module());
    HICON fromExtension = app.LoadIcon(40u);
    HICON fromApplication = app.LoadIcon(41u);
    ASSERT_TRUE(fromExtension);
    ASSERT_TRUE(fromApplication);
    EXPECT_EQ(fromExtension, LoadIcon(extension.Handle(), MAKEINTRESOURCE(40)));
    EXPECT_EQ(LoadIcon(Module(), MAKEINTRESOURCE(40)), nullptr);
    EXPECT_EQ(Drawn(fromExtension, 0, 0), RGB(4, 4, 4));
    EXPECT_EQ(Drawn(fromApplication, 0, 0), RGB(5, 5, 5));
    EXPECT_EQ(app.LoadIcon(42u), nullptr);
    AfxSetResourceHandle(OriginalResourceHandle());
}

} // namespace

namespace {

class IconControlTest : public icons_test::IconFixture {
protected:
    void TearDown() override {
        if (IsWindow(dialog))
            DestroyWindow(dialog);
        IconFixture::TearDown();
    }
    HWND dialog = nullptr;
};

TEST_F(IconControlTest, ADialogsIconControlShowsTheModulesIcon) {
    LoadNamed("LOGO", MakeIconFile({SolidIcon(32, 24, RGB(7, 7, 7))}));
    LoadInto(Module(), {{12, MakeIconFile({SolidIcon(32, 24, RGB(200, 100, 0))})}},
             "100 DIALOGEX 0, 0, 200, 100\n"
             "STYLE WS_POPUP | WS_VISIBLE\n"
             "BEGIN\n"
             "    ICON 12, 1001, 10, 10, 20, 20\n"
             "    ICON LOGO, 1002, 60, 10\n"
             "    ICON 99, 1003, 100, 10, 20, 20\n"
             "    CONTROL 12, 1004, \"STATIC\", SS_ICON | SS_CENTERIMAGE, 130, 10, 40, 40\n"
             "END\n");
    const platform::DialogTemplate* tmpl =
        platform::FindResources(Module())->FindDialog(platform::MakeResourceName(100u));
    ASSERT_TRUE(tmpl);
    dialog = CreateDialogIndirectParam(Module(), tmpl, nullptr, nullptr, 0);
    ASSERT_TRUE(dialog);
    HWND numbered = GetDlgItem(dialog, 1001);
    HWND named = GetDlgItem(dialog, 1002);
    HWND missing = GetDlgItem(dialog, 1003);
    HWND centred = GetDlgItem(dialog, 1004);
    EXPECT_EQ(reinterpret_cast<HICON>(SendMessage(numbered, STM_GETICON, 0, 0)),
              LoadIcon(Module(), MAKEINTRESOURCE(12)));
    EXPECT_EQ(reinterpret_cast<HICON>(SendMessage(named, STM_GETICON, 0, 0)),
              LoadIcon(Module(), u"LOGO"));
    EXPECT_EQ(SendMessage(missing, STM_GETICON, 0, 0), 0);
    CRect rect;
    GetClientRect(numbered, &rect);
    EXPECT_EQ(rect.Size(), CSize(32, 32)); // the icon's size, not the template's
    GetClientRect(missing, &rect);
    EXPECT_NE(rect.Size(), CSize(32, 32));
    GetClientRect(centred, &rect);
    const CSize centredSize = rect.Size();
    EXPECT_GT(centredSize.cx, 32);

    UpdateWindow(numbered);
    UpdateWindow(centred);
    HDC hdc = GetDC(numbered);
    EXPECT_EQ(GetPixel(hdc, 0, 0), RGB(200, 100, 0));
    EXPECT_EQ(GetPixel(hdc, 31, 31), RGB(200, 100, 0));
    ReleaseDC(numbered, hdc);
    hdc = GetDC(centred);
    EXPECT_EQ(GetPixel(hdc, centredSize.cx / 2, centredSize.cy / 2), RGB(200, 100, 0));
    EXPECT_NE(GetPixel(hdc, 0, 0), RGB(200, 100, 0));
    ReleaseDC(centred, hdc);

    // Another icon, set by message.
    HICON logo = LoadIcon(Module(), u"LOGO");
    EXPECT_EQ(reinterpret_cast<HICON>(
                  SendMessage(numbered, STM_SETICON, reinterpret_cast<WPARAM>(logo), 0)),
              LoadIcon(Module(), MAKEINTRESOURCE(12)));
    UpdateWindow(numbered);
    hdc = GetDC(numbered);
    EXPECT_EQ(GetPixel(hdc, 5, 5), RGB(7, 7, 7));
    ReleaseDC(numbered, hdc);
}

} // namespace
