// Pictures of the notes host: the MDI frame with its caption and flat menu
// bar, the workspace, and document frames with their captions, normal and
// maximised. The pictures are read back and checked at the places a person
// would look.
#include "NotesHost.h"

#include <platform/WindowPictures.h>

#include <cairo.h>

#include <wingdi.h>

namespace notes {
namespace {

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<COLORREF> pixels;
    COLORREF At(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
    // How many pixels of the row span [x0, x1) are of the colour.
    int Count(int y, int x0, int x1, COLORREF colour) const {
        int n = 0;
        for (int x = x0; x < x1; ++x)
            n += At(x, y) == colour ? 1 : 0;
        return n;
    }
};

Picture Read(const std::filesystem::path& path) {
    Picture picture;
    cairo_surface_t* image = cairo_image_surface_create_from_png(path.c_str());
    if (cairo_surface_status(image) == CAIRO_STATUS_SUCCESS) {
        picture.width = cairo_image_surface_get_width(image);
        picture.height = cairo_image_surface_get_height(image);
        const int stride = cairo_image_surface_get_stride(image);
        const unsigned char* data = cairo_image_surface_get_data(image);
        for (int y = 0; y < picture.height; ++y)
            for (int x = 0; x < picture.width; ++x) {
                uint32_t p = *reinterpret_cast<const uint32_t*>(data + y * stride + x * 4);
                picture.pixels.push_back(RGB((p >> 16) & 0xFF, (p >> 8) & 0xFF, p & 0xFF));
            }
    }
    cairo_surface_destroy(image);
    return picture;
}

// Where a window's client area lies in a picture of the main frame.
CRect InPicture(HWND hwnd, HWND frame) {
    CRect client, outer;
    ::GetClientRect(hwnd, &client);
    ::ClientToScreen(hwnd, reinterpret_cast<POINT*>(&client.left));
    ::ClientToScreen(hwnd, reinterpret_cast<POINT*>(&client.right));
    ::GetWindowRect(frame, &outer);
    client.OffsetRect(-outer.left, -outer.top);
    return client;
}

using PictureTest = NotesHostTest;

TEST_F(PictureTest, TheFrameShowsItsMenuBarTheWorkspaceAndTheDocumentFrames) {
    CNoteDoc* a = OpenNote();
    a->m_text = u"first note";
    CNoteDoc* b = OpenNote();
    b->m_text = u"second note";
    const std::filesystem::path path = dir / "mdi-frame.png";
    ASSERT_TRUE(platform::SaveWindowAsPng(main->m_hWnd, path.string()));
    const Picture picture = Read(path);
    ASSERT_EQ(picture.width, 760);
    ASSERT_EQ(picture.height, 520);

    // The menu bar lies between the caption and the client area, flat, with
    // dark text on it.
    CRect client = InPicture(main->m_hWndMDIClient, main->m_hWnd);
    const int barTop = client.top - 2 - GetSystemMetrics(SM_CYMENU);
    const COLORREF bar = GetSysColor(COLOR_MENUBAR);
    EXPECT_EQ(picture.At(700, barTop + 2), bar);
    int ink = 0;
    for (int y = barTop; y < barTop + GetSystemMetrics(SM_CYMENU); ++y)
        ink += picture.Count(y, 10, 120, RGB(0, 0, 0));
    EXPECT_GT(ink, 20);

    // The workspace shows between and beside the documents.
    EXPECT_EQ(picture.At(client.right - 5, client.bottom - 5), GetSysColor(COLOR_APPWORKSPACE));

    // The active document's frame is drawn over the other, with its caption
    // text and its view's white client area.
    CRect view = InPicture(FrameOf(b)->GetActiveView()->m_hWnd, main->m_hWnd);
    EXPECT_EQ(picture.At(view.right - 4, view.bottom - 4), RGB(255, 255, 255));
    CRect frameRect;
    FrameOf(b)->GetWindowRect(&frameRect);
    CRect outer;
    main->GetWindowRect(&outer);
    frameRect.OffsetRect(-outer.left, -outer.top);
    int captionInk = 0;
    for (int y = frameRect.top + 8; y < frameRect.top + 8 + GetSystemMetrics(SM_CYCAPTION); ++y)
        captionInk += picture.Count(y, frameRect.left + 8, frameRect.left + 80, RGB(0, 0, 0));
    EXPECT_GT(captionInk, 10);
}

TEST_F(PictureTest, AMaximisedDocumentFillsTheWorkspaceAndPutsItsButtonsOnTheMenuBar) {
    OpenNote();
    CNoteDoc* b = OpenNote();
    b->m_text = u"maximised";
    main->MDIMaximize(FrameOf(b));
    const std::filesystem::path path = dir / "mdi-maximised.png";
    ASSERT_TRUE(platform::SaveWindowAsPng(main->m_hWnd, path.string()));
    const Picture picture = Read(path);
    ASSERT_GT(picture.width, 0);

    CRect client = InPicture(main->m_hWndMDIClient, main->m_hWnd);
    CRect view = InPicture(FrameOf(b)->GetActiveView()->m_hWnd, main->m_hWnd);
    // The view's sunken edge sits right inside the workspace's.
    EXPECT_EQ(view.left, client.left + 2);
    EXPECT_EQ(view.right, client.right - 2);
    EXPECT_EQ(picture.At(client.right - 8, client.bottom - 8), RGB(255, 255, 255));
    // The document's close, restore and minimise buttons at the right end.
    const int barTop = client.top - 2 - GetSystemMetrics(SM_CYMENU);
    int buttons = 0;
    for (int y = barTop; y < client.top - 2; ++y)
        buttons += picture.Count(y, client.right - 90, client.right, RGB(0, 0, 0));
    EXPECT_GT(buttons, 20);
}

} // namespace
} // namespace notes
