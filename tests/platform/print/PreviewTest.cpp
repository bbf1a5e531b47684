// Print preview of the three-page view: it takes the view's place, pages
// through one or two pages at a time, zooms, prints, and on closing hands
// its DC, print information and itself to the view's OnEndPrintPreview,
// which puts the view back.
#include "PageHost.h"

#include "support/Shown.h"

#include <platform/Automation.h>
#include <platform/PrintPreview.h>
#include <platform/WindowPictures.h>

#include <cairo.h>

#include <algorithm>
#include <cmath>

namespace pages {
namespace {

namespace automation = platform::automation;
using Steps = std::vector<std::string>;

class PreviewTest : public PageHostTest {
protected:
    // Opens the preview; fails the test when none shows.
    CPreviewView* Open() {
        Command(ID_FILE_PRINT_PREVIEW);
        CPreviewView* preview = Preview();
        EXPECT_NE(preview, nullptr);
        return preview;
    }
    // Runs what the simulated user was given, and the messages it causes.
    void RunUser() { app->Run(); }
    bool Enabled(UINT button) const {
        return ::IsWindowEnabled(::GetDlgItem(Pane(), static_cast<int>(button))) != FALSE;
    }
    std::vector<UINT> PrintedPages() const {
        std::vector<UINT> pages;
        for (const CPageView::Page& page : view->printed)
            pages.push_back(page.number);
        return pages;
    }
};

// The pixels of a PNG file, row by row, or none.
struct Picture {
    int width = 0, height = 0;
    std::vector<uint32_t> pixels;
    uint32_t At(int x, int y) const {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x)] &
               0xFFFFFF;
    }
};

Picture Load(const std::filesystem::path& png) {
    Picture picture;
    cairo_surface_t* surface = cairo_image_surface_create_from_png(png.c_str());
    if (cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS) {
        picture.width = cairo_image_surface_get_width(surface);
        picture.height = cairo_image_surface_get_height(surface);
        const int stride = cairo_image_surface_get_stride(surface);
        const unsigned char* data = cairo_image_surface_get_data(surface);
        for (int y = 0; y < picture.height; ++y)
            for (int x = 0; x < picture.width; ++x)
                picture.pixels.push_back(
                    *reinterpret_cast<const uint32_t*>(data + y * stride + x * 4));
    }
    cairo_surface_destroy(surface);
    return picture;
}

// Where a length of dots of Letter paper lands on a picture of the page.
int Pixels(const Picture& picture, int dots) {
    return static_cast<int>(std::lround(dots * picture.width / 5100.0));
}

// The leftmost column, inside the frame, where a dark pixel lies in the
// picture's band where the page's black block is; -1 when none.
int BlockColumn(const Picture& picture) {
    for (int x = Pixels(picture, 400); x < picture.width * 9 / 10; ++x)
        for (int y = picture.height / 4; y < picture.height * 2 / 5; ++y)
            if (picture.At(x, y) == 0)
                return x;
    return -1;
}

TEST_F(PreviewTest, ThePreviewTakesTheViewsPlaceAndDrawsTheFirstPage) {
    CPreviewView* preview = Open();
    ASSERT_NE(preview, nullptr);
    EXPECT_EQ(Pane(), preview->m_hWnd);
    EXPECT_FALSE(view->IsWindowVisible());
    EXPECT_TRUE(preview->IsWindowVisible());
    EXPECT_EQ(preview->GetPrintView(), view);
    EXPECT_EQ(view->steps, (Steps{"prepare", "begin", "dc 1", "print 1"}));
    ASSERT_EQ(view->printed.size(), 1u);
    EXPECT_TRUE(view->printed[0].preview);
    EXPECT_TRUE(view->printed[0].dcPrinting);
    // The page is the printer's: Letter at 600 dots per inch.
    EXPECT_EQ(view->printed[0].rectDraw, CRect(0, 0, 5100, 6600));
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);

    EXPECT_EQ(preview->GetCurrentPage(), 1u);
    EXPECT_EQ(preview->GetPagesShown(), 1u);
    const CRect page = preview->GetPageRect(0);
    ASSERT_FALSE(page.IsRectEmpty());
    EXPECT_TRUE(preview->GetPageRect(1).IsRectEmpty());
    // Scaled to fit, with the paper's proportions.
    CRect client;
    preview->GetClientRect(&client);
    EXPECT_LE(page.bottom, client.bottom);
    EXPECT_NEAR(static_cast<double>(page.Width()) / page.Height(), 8.5 / 11, 0.01);
    EXPECT_FALSE(Enabled(AFX_ID_PREVIEW_PREV));
    EXPECT_TRUE(Enabled(AFX_ID_PREVIEW_NEXT));
    EXPECT_FALSE(Enabled(AFX_ID_PREVIEW_ZOOMOUT));
}

TEST_F(PreviewTest, NextAndPreviousPageStepThroughTheDocument) {
    CPreviewView* preview = Open();
    ASSERT_NE(preview, nullptr);
    automation::ClickPreviewButton(AFX_ID_PREVIEW_NEXT);
    automation::ClickPreviewButton(AFX_ID_PREVIEW_NEXT);
    RunUser();
    EXPECT_EQ(preview->GetCurrentPage(), 3u);
    EXPECT_FALSE(Enabled(AFX_ID_PREVIEW_NEXT));
    EXPECT_TRUE(Enabled(AFX_ID_PREVIEW_PREV));
    automation::ClickPreviewButton(AFX_ID_PREVIEW_NEXT); // disabled: nothing happens
    automation::ClickPreviewButton(AFX_ID_PREVIEW_PREV);
    RunUser();
    EXPECT_EQ(preview->GetCurrentPage(), 2u);
    EXPECT_EQ(PrintedPages(), (std::vector<UINT>{1, 2, 3, 2}));
    const auto& record = automation::Record();
    EXPECT_TRUE(std::any_of(record.begin(), record.end(), [](const std::string& line) {
        return line.find("'&Next Page' cannot be clicked") != std::string::npos;
    }));
}

TEST_F(PreviewTest, TwoPagesShowSideBySideAndOnePageAgain) {
    CPreviewView* preview = Open();
    ASSERT_NE(preview, nullptr);
    automation::ClickPreviewButton(AFX_ID_PREVIEW_NUMPAGE);
    RunUser();
    EXPECT_EQ(preview->GetPagesShown(), 2u);
    EXPECT_EQ(preview->GetPrintInfo()->m_nNumPreviewPages, 2u);
    const CRect left = preview->GetPageRect(0);
    const CRect right = preview->GetPageRect(1);
    ASSERT_FALSE(right.IsRectEmpty());
    EXPECT_LT(left.right, right.left);
    EXPECT_EQ(left.top, right.top);
    EXPECT_EQ(left.Size(), right.Size());
    EXPECT_EQ(testing_support::WindowText(::GetDlgItem(Pane(), AFX_ID_PREVIEW_NUMPAGE)),
              u"&One Page");

    // Pages 2 and 3 are the last two: no next page.
    automation::ClickPreviewButton(AFX_ID_PREVIEW_NEXT);
    RunUser();
    EXPECT_EQ(preview->GetCurrentPage(), 2u);
    EXPECT_FALSE(Enabled(AFX_ID_PREVIEW_NEXT));
    EXPECT_EQ(PrintedPages(), (std::vector<UINT>{1, 1, 2, 2, 3}));

    automation::ClickPreviewButton(AFX_ID_PREVIEW_NUMPAGE);
    RunUser();
    EXPECT_EQ(preview->GetPagesShown(), 1u);
    EXPECT_TRUE(preview->GetPageRect(1).IsRectEmpty());
    EXPECT_TRUE(Enabled(AFX_ID_PREVIEW_NEXT));
}

TEST_F(PreviewTest, ZoomingInShowsOnePageLargerUntilZoomedOut) {
    CPreviewView* preview = Open();
    ASSERT_NE(preview, nullptr);
    automation::ClickPreviewButton(AFX_ID_PREVIEW_NUMPAGE);
    RunUser();
    const CSize fitted = preview->GetPageRect(0).Size();
    automation::ClickPreviewButton(AFX_ID_PREVIEW_ZOOMIN);
    RunUser();
    EXPECT_EQ(preview->GetZoomState(), CPreviewView::ZOOM_MIDDLE);
    EXPECT_EQ(preview->GetPagesShown(), 1u);
    const CSize middle = preview->GetPageRect(0).Size();
    EXPECT_GT(middle.cx, fitted.cx);
    automation::ClickPreviewButton(AFX_ID_PREVIEW_ZOOMIN);
    RunUser();
    EXPECT_EQ(preview->GetZoomState(), CPreviewView::ZOOM_IN);
    // At the closest the paper is at least its size on the screen.
    EXPECT_GE(preview->GetPageRect(0).Width(), 816);
    EXPECT_FALSE(Enabled(AFX_ID_PREVIEW_ZOOMIN));
    EXPECT_FALSE(Enabled(AFX_ID_PREVIEW_NUMPAGE));
    EXPECT_TRUE(platform::SaveWindowAsPng(frame->m_hWnd, (dir / "zoomed.png").string()));
    automation::ClickPreviewButton(AFX_ID_PREVIEW_ZOOMOUT);
    automation::ClickPreviewButton(AFX_ID_PREVIEW_ZOOMOUT);
    RunUser();
    EXPECT_EQ(preview->GetZoomState(), CPreviewView::ZOOM_OUT);
    // The two pages chosen before come back.
    EXPECT_EQ(preview->GetPagesShown(), 2u);
    EXPECT_EQ(preview->GetPageRect(0).Size(), fitted);
}

TEST_F(PreviewTest, AClickOnThePageZoomsInThereAndAtTheClosestBackOut) {
    CPreviewView* preview = Open();
    ASSERT_NE(preview, nullptr);
    const CRect page = preview->GetPageRect(0);
    automation::ClickAt(preview->m_hWnd, page.CenterPoint());
    RunUser();
    EXPECT_EQ(preview->GetZoomState(), CPreviewView::ZOOM_MIDDLE);
    // The spot clicked stays under the pointer.
    const CRect zoomed = preview->GetPageRect(0);
    EXPECT_NEAR(zoomed.CenterPoint().y, page.CenterPoint().y, 2);
    automation::ClickAt(preview->m_hWnd, page.CenterPoint());
    automation::ClickAt(preview->m_hWnd, page.CenterPoint());
    RunUser();
    EXPECT_EQ(preview->GetZoomState(), CPreviewView::ZOOM_OUT);
    EXPECT_EQ(preview->GetPageRect(0), page);
}

TEST_F(PreviewTest, CloseEndsThePreviewThroughTheViewAndPutsTheViewBack) {
    CPreviewView* preview = Open();
    ASSERT_NE(preview, nullptr);
    CPrintInfo* info = preview->GetPrintInfo();
    automation::ClickPreviewButton(AFX_ID_PREVIEW_NEXT);
    automation::ClickPreviewButton(AFX_ID_PREVIEW_CLOSE);
    RunUser();
    EXPECT_EQ(view->endedPreview, preview);
    EXPECT_EQ(view->endedInfo, info);
    EXPECT_TRUE(view->endedWithDC);
    EXPECT_EQ(view->endedOnPage, 2u);
    EXPECT_EQ(view->steps, (Steps{"prepare", "begin", "dc 1", "print 1", "dc 2", "print 2",
                                  "end preview", "end"}));
    EXPECT_EQ(Preview(), nullptr);
    EXPECT_EQ(frame->GetActiveView(), view);
    EXPECT_EQ(Pane(), view->m_hWnd);
    EXPECT_TRUE(view->IsWindowVisible());
    CRect client, pane;
    frame->GetClientRect(&client);
    view->GetWindowRect(&pane);
    EXPECT_EQ(pane.Size(), client.Size());
}

TEST_F(PreviewTest, EscapeClosesThePreview) {
    ASSERT_NE(Open(), nullptr);
    automation::ClickPreviewButton(AFX_ID_PREVIEW_NEXT);
    automation::Key(VK_ESCAPE);
    RunUser();
    EXPECT_EQ(view->steps.back(), "end");
    EXPECT_EQ(Preview(), nullptr);
    EXPECT_TRUE(view->IsWindowVisible());
}

TEST_F(PreviewTest, PrintFromThePreviewClosesItAndRunsThePrintCommand) {
    ASSERT_NE(Open(), nullptr);
    const auto pdf = dir / "from-preview.pdf";
    automation::ClickPreviewButton(AFX_ID_PREVIEW_PRINT);
    automation::SetPrintFile(Utf16(pdf.string()));
    automation::Click(IDOK);
    RunUser();
    EXPECT_EQ(Preview(), nullptr);
    EXPECT_EQ(view->steps,
              (Steps{"prepare", "begin", "dc 1", "print 1", "end preview", "end", "prepare",
                     "begin", "dc 1", "print 1", "dc 2", "print 2", "dc 3", "print 3", "end"}));
    EXPECT_EQ(PdfPages(pdf), 3);
}

TEST_F(PreviewTest, AViewThatRefusesEndsThePreviewAtOnce) {
    view->refuse = true;
    Command(ID_FILE_PRINT_PREVIEW);
    EXPECT_EQ(Preview(), nullptr);
    EXPECT_EQ(view->steps, (Steps{"prepare", "end preview"}));
    EXPECT_EQ(frame->GetActiveView(), view);
    EXPECT_EQ(Pane(), view->m_hWnd);
    EXPECT_TRUE(view->IsWindowVisible());
}

TEST_F(PreviewTest, AViewOfUnknownLengthFindsItsLastPageWhilePaging) {
    view->pageCount = 0xFFFF;
    CPreviewView* preview = Open();
    ASSERT_NE(preview, nullptr);
    EXPECT_TRUE(Enabled(AFX_ID_PREVIEW_NEXT));
    automation::ClickPreviewButton(AFX_ID_PREVIEW_NEXT);
    RunUser();
    // The default OnPrepareDC ends such a document after its first page.
    EXPECT_EQ(preview->GetCurrentPage(), 1u);
    EXPECT_FALSE(Enabled(AFX_ID_PREVIEW_NEXT));
    EXPECT_EQ(PrintedPages(), (std::vector<UINT>{1, 1}));
}

TEST_F(PreviewTest, ThePagePicturesShowEachPageAsPrinted) {
    CPreviewView* preview = Open();
    ASSERT_NE(preview, nullptr);
    automation::ClickPreviewButton(AFX_ID_PREVIEW_NUMPAGE);
    RunUser();
    const auto first = dir / "page-1.png";
    const auto second = dir / "page-2.png";
    ASSERT_TRUE(platform::SavePreviewPage(frame->m_hWnd, 0, first.string()));
    ASSERT_TRUE(platform::SavePreviewPage(preview->m_hWnd, 1, second.string()));
    EXPECT_FALSE(platform::SavePreviewPage(frame->m_hWnd, 2, (dir / "none.png").string()));
    EXPECT_FALSE(platform::SavePreviewPage(view->m_hWnd, 0, (dir / "none.png").string()));
    ASSERT_TRUE(platform::SaveWindowAsPng(frame->m_hWnd, (dir / "frame.png").string()));

    const Picture one = Load(first);
    const Picture two = Load(second);
    ASSERT_EQ(one.width, preview->GetPageRect(0).Width());
    ASSERT_EQ(one.height, preview->GetPageRect(0).Height());
    // White paper with black ink: the frame half an inch in stays a whole
    // pixel wide, and the block moves right from one page to the next.
    int black = 0, white = 0;
    for (uint32_t pixel : one.pixels) {
        black += (pixel & 0xFFFFFF) == 0;
        white += (pixel & 0xFFFFFF) == 0xFFFFFF;
    }
    EXPECT_GT(white, static_cast<int>(one.pixels.size()) * 3 / 4);
    EXPECT_GT(black, 100);
    const int margin = Pixels(one, 300); // half an inch
    EXPECT_EQ(one.At(margin, one.height / 2), 0x000000u);
    EXPECT_EQ(one.At(margin + 1, one.height / 2), 0xFFFFFFu);
    EXPECT_EQ(one.At(one.width / 2, margin), 0x000000u);
    const int blockOne = BlockColumn(one);
    const int blockTwo = BlockColumn(two);
    EXPECT_NEAR(blockOne, Pixels(one, 450), 1);
    EXPECT_NEAR(blockTwo - blockOne, Pixels(one, 1200), 1);

    // The frame's picture shows the pages on the grey ground with shadows.
    const Picture shown = Load(dir / "frame.png");
    ASSERT_GT(shown.width, 0);
    CRect page = preview->GetPageRect(0);
    CPoint origin(page.left, page.top);
    preview->ClientToScreen(&origin);
    CRect window;
    frame->GetWindowRect(&window);
    origin.Offset(-window.left, -window.top);
    EXPECT_EQ(shown.At(origin.x - 4, origin.y + 20), ::GetSysColor(COLOR_APPWORKSPACE) & 0xFFFFFF);
    EXPECT_EQ(shown.At(origin.x + page.Width() + 1, origin.y + 20), 0x000000u);
    EXPECT_EQ(shown.At(origin.x + 2, origin.y + 2), 0xFFFFFFu);
}

TEST_F(PreviewTest, ThePreviewGoesWithItsFrame) {
    CPreviewView* preview = Open();
    ASSERT_NE(preview, nullptr);
    // Closing the application while previewing: the frame, the view, the
    // preview and the document all go, and so does every drawing object.
    frame->SendMessage(WM_CLOSE);
    EXPECT_EQ(app->m_pMainWnd, nullptr);
}

} // namespace
} // namespace pages
