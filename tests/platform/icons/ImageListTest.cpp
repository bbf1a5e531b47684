// Image lists: icons scaled to the list's size, the transparency each kind of
// list keeps, replacing and drawing images, icons made from images, bad
// handles and indexes, the framework's object that owns a list, and a report
// list showing its items' small images.
#include "IconFixture.h"

#include <afxcmn.h>
#include <platform/IconObjects.h>

#include <gtest/gtest.h>

using testing_support::IconImage;
using testing_support::IconPixel;
using testing_support::MakeIconFile;
using testing_support::SolidIcon;

namespace {

constexpr COLORREF kBackground = RGB(10, 20, 30);
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

class ImageListTest : public icons_test::IconFixture {
protected:
    void SetUp() override {
        IconFixture::SetUp();
        // 1: 32 x 32, left half red and right half blue, the top-left 4 x 4
        // transparent. 2: 32 x 32 white at half alpha. 3: 16 x 16 green.
        IconImage halves;
        halves.width = halves.height = 32;
        halves.bits = 24;
        halves.pixel = [](int x, int y) {
            return IconPixel{x < 16 ? kRed : kBlue, x < 4 && y < 4};
        };
        IconImage half;
        half.width = half.height = 32;
        half.pixel = [](int, int) { return IconPixel{RGB(255, 255, 255), false, 128}; };
        Load({{1, MakeIconFile({halves})},
              {2, MakeIconFile({half})},
              {3, MakeIconFile({SolidIcon(16, 4, RGB(0, 255, 0))})}});
        lists = platform::LiveImageLists();
        icons = platform::LiveIcons();
    }
    void TearDown() override {
        EXPECT_EQ(platform::LiveImageLists(), lists);
        EXPECT_EQ(platform::LiveIcons(), icons);
        IconFixture::TearDown();
    }
    static HICON Icon(int id) { return LoadIcon(Module(), MAKEINTRESOURCE(id)); }

    int lists = 0;
    int icons = 0;
};

TEST_F(ImageListTest, IconsAreScaledToTheListsSize) {
    CImageList list;
    ASSERT_TRUE(list.Create(16, 16, ILC_MASK, 0, 1));
    EXPECT_EQ(list.GetImageCount(), 0);
    EXPECT_EQ(list.Add(Icon(1)), 0);
    EXPECT_EQ(list.Add(Icon(3)), 1);
    EXPECT_EQ(list.GetImageCount(), 2);
    int cx = 0, cy = 0;
    ASSERT_TRUE(ImageList_GetIconSize(list, &cx, &cy));
    EXPECT_EQ(CSize(cx, cy), CSize(16, 16));

    testing_support::Canvas canvas(40, 20, kBackground);
    CDC& dc = canvas.dc();
    ASSERT_TRUE(list.Draw(&dc, 0, CPoint(0, 0), ILD_NORMAL));
    ASSERT_TRUE(list.Draw(&dc, 1, CPoint(20, 0), ILD_TRANSPARENT));
    // Halved: the mask's 4 x 4 corner becomes 2 x 2, the halves 8 wide each.
    EXPECT_EQ(dc.GetPixel(1, 1), kBackground);
    EXPECT_EQ(dc.GetPixel(2, 1), kRed);
    EXPECT_EQ(dc.GetPixel(7, 15), kRed);
    EXPECT_EQ(dc.GetPixel(8, 0), kBlue);
    EXPECT_EQ(dc.GetPixel(15, 15), kBlue);
    EXPECT_EQ(dc.GetPixel(16, 16), kBackground);
    EXPECT_EQ(dc.GetPixel(20, 0), RGB(0, 255, 0));
    EXPECT_EQ(dc.GetPixel(35, 15), RGB(0, 255, 0));

    // Larger lists take smaller icons doubled.
    CImageList large;
    ASSERT_TRUE(large.Create(32, 32, ILC_MASK, 4, 4));
    ASSERT_EQ(large.Add(Icon(3)), 0);
    testing_support::Canvas big(40, 40, kBackground);
    ASSERT_TRUE(large.Draw(&big.dc(), 0, CPoint(0, 0), ILD_NORMAL));
    EXPECT_EQ(big.dc().GetPixel(31, 31), RGB(0, 255, 0));
    EXPECT_EQ(big.dc().GetPixel(32, 32), kBackground);
}

TEST_F(ImageListTest, EachKindOfListKeepsItsShareOfTransparency) {
    CImageList masked, full, opaque;
    ASSERT_TRUE(masked.Create(32, 32, ILC_MASK, 0, 1));
    ASSERT_TRUE(full.Create(32, 32, ILC_MASK | ILC_COLOR32, 0, 1));
    ASSERT_TRUE(opaque.Create(32, 32, ILC_COLOR24, 0, 1));
    for (CImageList* list : {&masked, &full, &opaque}) {
        ASSERT_EQ(list->Add(Icon(1)), 0);
        ASSERT_EQ(list->Add(Icon(2)), 1);
    }
    testing_support::Canvas canvas(100, 70, RGB(0, 0, 0));
    CDC& dc = canvas.dc();
    dc.FillSolidRect(0, 0, 100, 35, kBackground);
    int x = 0;
    for (CImageList* list : {&masked, &full, &opaque}) {
        ASSERT_TRUE(list->Draw(&dc, 0, CPoint(x, 0), ILD_NORMAL));
        ASSERT_TRUE(list->Draw(&dc, 1, CPoint(x, 35), ILD_NORMAL));
        x += 33;
    }
    // A masked list shows a half-opaque pixel wholly; a 32-bit one blends it;
    // a list without a mask shows the transparent corner black.
    EXPECT_EQ(dc.GetPixel(0, 0), kBackground);
    EXPECT_EQ(dc.GetPixel(0, 35), RGB(255, 255, 255));
    EXPECT_EQ(dc.GetPixel(33, 0), kBackground);
    EXPECT_EQ(dc.GetPixel(33, 35), RGB(128, 128, 128));
    EXPECT_EQ(dc.GetPixel(66, 0), RGB(0, 0, 0));
    EXPECT_EQ(dc.GetPixel(70, 10), kRed);

    // The mask alone: black where the image shows.
    ASSERT_TRUE(masked.Draw(&dc, 0, CPoint(0, 0), ILD_MASK));
    EXPECT_EQ(dc.GetPixel(0, 0), RGB(255, 255, 255));
    EXPECT_EQ(dc.GetPixel(10, 10), RGB(0, 0, 0));
}

TEST_F(ImageListTest, ReplacingAndExtractingImages) {
    CImageList list;
    ASSERT_TRUE(list.Create(16, 16, ILC_MASK, 0, 1));
    ASSERT_EQ(list.Add(Icon(1)), 0);
    ASSERT_EQ(list.Add(Icon(1)), 1);
    EXPECT_EQ(ImageList_ReplaceIcon(list, 1, Icon(3)), 1);
    EXPECT_EQ(ImageList_ReplaceIcon(list, 2, Icon(3)), -1);
    EXPECT_EQ(ImageList_ReplaceIcon(list, -2, Icon(3)), -1);
    EXPECT_EQ(list.GetImageCount(), 2);

    HICON extracted = list.ExtractIcon(1);
    ASSERT_TRUE(extracted);
    EXPECT_EQ(platform::LiveIcons(), icons + 1);
    EXPECT_EQ(DrawnSize(extracted), CSize(16, 16));
    EXPECT_EQ(Drawn(extracted, 8, 8), RGB(0, 255, 0));
    // An extracted icon goes into another list like any other.
    CImageList other;
    ASSERT_TRUE(other.Create(16, 16, ILC_MASK, 0, 1));
    EXPECT_EQ(other.Add(extracted), 0);
    EXPECT_TRUE(DestroyIcon(extracted));
    EXPECT_FALSE(DestroyIcon(extracted));
    EXPECT_EQ(platform::LiveIcons(), icons);
    EXPECT_EQ(list.ExtractIcon(2), nullptr);
    EXPECT_EQ(list.ExtractIcon(-1), nullptr);
}

TEST_F(ImageListTest, BadListsIconsAndIndexesFailCleanly) {
    EXPECT_EQ(ImageList_Create(0, 16, ILC_MASK, 0, 1), nullptr);
    EXPECT_EQ(ImageList_Create(16, -1, ILC_MASK, 0, 1), nullptr);
    EXPECT_EQ(ImageList_Create(5000, 16, ILC_MASK, 0, 1), nullptr);
    EXPECT_EQ(ImageList_Create(16, 16, 0x8000, 0, 1), nullptr);
    EXPECT_EQ(platform::LiveImageLists(), lists);

    HIMAGELIST list = ImageList_Create(16, 16, ILC_MASK, -5, -5);
    ASSERT_TRUE(list);
    EXPECT_EQ(platform::LiveImageLists(), lists + 1);
    EXPECT_EQ(ImageList_AddIcon(list, nullptr), -1);
    EXPECT_EQ(ImageList_AddIcon(list, reinterpret_cast<HICON>(std::uintptr_t{0x42})), -1);
    EXPECT_EQ(ImageList_GetImageCount(list), 0);
    testing_support::Canvas canvas(20, 20, kBackground);
    EXPECT_FALSE(ImageList_Draw(list, 0, canvas.dc().GetSafeHdc(), 0, 0, ILD_NORMAL));
    ASSERT_EQ(ImageList_AddIcon(list, Icon(3)), 0);
    EXPECT_FALSE(ImageList_Draw(list, 0, nullptr, 0, 0, ILD_NORMAL));
    EXPECT_FALSE(ImageList_Draw(list, 1, canvas.dc().GetSafeHdc(), 0, 0, ILD_NORMAL));
    EXPECT_TRUE(ImageList_Destroy(list));
    EXPECT_FALSE(ImageList_Destroy(list));
    EXPECT_EQ(ImageList_GetImageCount(list), 0);
    EXPECT_EQ(ImageList_AddIcon(list, Icon(3)), -1);
    EXPECT_FALSE(ImageList_Draw(list, 0, canvas.dc().GetSafeHdc(), 0, 0, ILD_NORMAL));
    int cx = 0, cy = 0;
    EXPECT_FALSE(ImageList_GetIconSize(list, &cx, &cy));
    EXPECT_EQ(ImageList_GetIcon(list, 0, 0), nullptr);
}

TEST_F(ImageListTest, TheObjectOwnsItsList) {
    {
        CImageList list;
        EXPECT_EQ(list.GetSafeHandle(), nullptr);
        EXPECT_EQ(list.GetImageCount(), 0);
        EXPECT_EQ(list.Add(Icon(1)), -1);
        EXPECT_FALSE(list.DeleteImageList());
        EXPECT_FALSE(list.Create(0, 0, ILC_MASK, 0, 1));
        ASSERT_TRUE(list.Create(16, 16, ILC_MASK, 0, 1));
        EXPECT_FALSE(list.Create(16, 16, ILC_MASK, 0, 1)); // already holds one
        EXPECT_EQ(platform::LiveImageLists(), lists + 1);
        EXPECT_FALSE(list.Draw(nullptr, 0, CPoint(0, 0), ILD_NORMAL));
    }
    EXPECT_EQ(platform::LiveImageLists(), lists);

    CImageList owner;
    HIMAGELIST handle = ImageList_Create(16, 16, ILC_MASK, 0, 1);
    EXPECT_FALSE(owner.Attach(nullptr));
    ASSERT_TRUE(owner.Attach(handle));
    EXPECT_FALSE(owner.Attach(handle));
    EXPECT_EQ(static_cast<HIMAGELIST>(owner), handle);
    EXPECT_EQ(owner.Detach(), handle);
    EXPECT_EQ(owner.GetSafeHandle(), nullptr);
    EXPECT_TRUE(ImageList_Destroy(handle)); // detached: still alive until now
}

TEST_F(ImageListTest, AReportListShowsEachItemsSmallImage) {
    CWnd parent;
    ASSERT_TRUE(parent.CreateEx(0, nullptr, u"Holder", WS_POPUP | WS_VISIBLE, CRect(0, 0, 300, 200),
                                nullptr, 0));
    HIMAGELIST small = ImageList_Create(16, 16, ILC_MASK, 0, 1);
    ASSERT_EQ(ImageList_AddIcon(small, Icon(3)), 0);
    ASSERT_EQ(ImageList_AddIcon(small, Icon(1)), 1);
    for (DWORD share : {DWORD{0}, DWORD{LVS_SHAREIMAGELISTS}}) {
        HWND list = CreateWindowEx(0, WC_LISTVIEW, u"", WS_CHILD | WS_VISIBLE | LVS_REPORT | share,
                                   0, 0, 300, 200, parent.GetSafeHwnd(), nullptr, nullptr, nullptr);
        ASSERT_TRUE(list);
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.pszText = const_cast<LPWSTR>(u"Name");
        column.cx = 150;
        SendMessage(list, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
        for (int i = 0; i < 3; ++i) {
            LVITEMW item{};
            item.mask = LVIF_TEXT | LVIF_IMAGE;
            item.iItem = i;
            item.pszText = const_cast<LPWSTR>(u"row");
            item.iImage = i < 2 ? i : -1;
            SendMessage(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        }
        EXPECT_EQ(SendMessage(list, LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(small)),
                  0);
        EXPECT_EQ(reinterpret_cast<HIMAGELIST>(SendMessage(list, LVM_GETIMAGELIST, LVSIL_SMALL, 0)),
                  small);
        UpdateWindow(list);
        RECT first{}, second{}, third{};
        first.left = second.left = third.left = LVIR_BOUNDS;
        SendMessage(list, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&first));
        SendMessage(list, LVM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&second));
        SendMessage(list, LVM_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&third));
        EXPECT_GE(first.bottom - first.top, 17);
        HDC hdc = GetDC(list);
        const int inset = (first.bottom - first.top - 16) / 2;
        EXPECT_EQ(GetPixel(hdc, first.left + 2 + 8, first.top + inset + 8), RGB(0, 255, 0));
        EXPECT_EQ(GetPixel(hdc, second.left + 2 + 4, second.top + inset + 12), kRed);
        EXPECT_EQ(GetPixel(hdc, second.left + 2 + 12, second.top + inset + 12), kBlue);
        EXPECT_EQ(GetPixel(hdc, second.left + 2 + 0, second.top + inset + 0),
                  GetSysColor(COLOR_WINDOW)); // the transparent corner
        EXPECT_EQ(GetPixel(hdc, third.left + 2 + 8, third.top + inset + 8),
                  GetSysColor(COLOR_WINDOW)); // no image
        ReleaseDC(list, hdc);
        DestroyWindow(list);
        // A list that does not share its image lists destroys them.
        EXPECT_EQ(ImageList_GetImageCount(small), share ? 2 : 0);
        if (!share) {
            small = ImageList_Create(16, 16, ILC_MASK, 0, 1);
            ImageList_AddIcon(small, Icon(3));
            ImageList_AddIcon(small, Icon(1));
        }
    }
    EXPECT_TRUE(ImageList_Destroy(small));
    parent.DestroyWindow();
}

} // namespace
