// CPreviewView's pages: where they go at each zoom, drawing them through the
// previewed view's printing steps, and painting them on the grey ground.
#include <afxpriv.h>
#include <platform/GdiObjects.h>
#include <platform/PrintPreview.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kGap = 12;        // around and between the pages
constexpr int kShadow = 3;      // the depth of a page's shadow
constexpr int kScreenDpi = 96;  // "actual size" shows the paper at the screen's resolution
constexpr int kMinPageSide = 4; // pixels: smaller than this no page is drawn

CSize PaperSize(CDC* printer) {
    return CSize(printer->GetDeviceCaps(HORZRES), printer->GetDeviceCaps(VERTRES));
}

// Pixels per dot that fit one page of paper into width x height.
double FitScale(CSize paper, int width, int height) {
    if (paper.cx <= 0 || paper.cy <= 0)
        return 0;
    return std::min(static_cast<double>(width) / paper.cx, static_cast<double>(height) / paper.cy);
}

// The line of "Page %u\nPages %u-%u\n" for one page or for two.
CString PageDescription(const CString& desc, bool two) {
    CString line = desc;
    int split = line.Find(u'\n');
    if (two && split >= 0) {
        line = line.Mid(split + 1);
        split = line.Find(u'\n');
    }
    return split >= 0 ? line.Left(split) : line;
}

} // namespace

void CPreviewView::ForgetPages() {
    for (PageImage& shown : m_shown)
        if (shown.bitmap)
            ::DeleteObject(shown.bitmap);
    m_shown.clear();
}

void CPreviewView::LayOut() {
    ForgetPages();
    if (!m_pPreviewDC || !m_hWnd) {
        UpdateToolBar();
        return;
    }
    const CRect area = PageArea();
    const CSize paper = PaperSize(m_pPreviewDC);
    const double fitOne = FitScale(paper, area.Width() - 2 * kGap, area.Height() - 2 * kGap);
    const int dpi = std::max(1, m_pPreviewDC->GetDeviceCaps(LOGPIXELSX));
    const double closest = std::max(static_cast<double>(kScreenDpi) / dpi, 2 * fitOne);
    double scale = fitOne;
    UINT count = m_nZoomState == ZOOM_OUT ? m_nPages : 1;
    if (m_nZoomState == ZOOM_OUT && count == 2)
        scale = FitScale(paper, (area.Width() - 3 * kGap) / 2, area.Height() - 2 * kGap);
    else if (m_nZoomState == ZOOM_MIDDLE)
        scale = (fitOne + closest) / 2;
    else if (m_nZoomState == ZOOM_IN)
        scale = closest;
    m_pageSize = CSize(static_cast<int>(paper.cx * scale), static_cast<int>(paper.cy * scale));
    if (m_pageSize.cx < kMinPageSide || m_pageSize.cy < kMinPageSide) {
        UpdateToolBar();
        Invalidate(FALSE);
        return;
    }

    // The pages that exist, from the current one.
    std::vector<PageImage> pages;
    for (UINT i = 0; i < count; ++i) {
        UINT page = m_nCurrentPage + i;
        if (page > LastPage())
            break;
        PageImage image;
        image.page = page;
        if (!RenderPage(page, m_pageSize, &image.bitmap)) {
            // The view ended the job before this page: the last one is known.
            m_nLastFound = page - 1;
            break;
        }
        pages.push_back(image);
    }
    if (pages.empty() && m_nCurrentPage > m_pPreviewInfo->GetMinPage() &&
        m_nCurrentPage > LastPage()) {
        // The current page was past the end: show the last one instead.
        m_nCurrentPage = LastPage();
        LayOut();
        return;
    }

    // Side by side, centred; a page larger than the area scrolls.
    const int total = static_cast<int>(pages.size()) * (m_pageSize.cx + kGap) + kGap;
    const int tall = m_pageSize.cy + 2 * kGap;
    m_scroll.x = std::clamp<LONG>(m_scroll.x, 0, std::max(0, total - area.Width()));
    m_scroll.y = std::clamp<LONG>(m_scroll.y, 0, std::max(0, tall - area.Height()));
    int left = area.left + std::max(0, (area.Width() - total) / 2) - m_scroll.x + kGap;
    int top = area.top + std::max(0, (area.Height() - tall) / 2) - m_scroll.y + kGap;
    for (PageImage& image : pages) {
        image.rect = CRect(left, top, left + m_pageSize.cx, top + m_pageSize.cy);
        left += m_pageSize.cx + kGap;
    }
    m_shown = std::move(pages);
    m_pPreviewInfo->m_nCurPage = m_nCurrentPage;
    UpdateToolBar();
    Invalidate(FALSE);
}

bool CPreviewView::RenderPage(UINT page, CSize size, HBITMAP* bitmap) {
    HDC printer = m_pPreviewInfo->m_pPD->m_pd.hDC;
    HDC screen = ::GetDC(nullptr);
    HBITMAP image = ::CreateCompatibleBitmap(screen, size.cx, size.cy);
    ::ReleaseDC(nullptr, screen);
    HDC pageDC = image ? platform::CreatePreviewDC(printer, image) : nullptr;
    if (!pageDC) {
        if (image)
            ::DeleteObject(image);
        *bitmap = nullptr;
        return true; // the page exists; it cannot be drawn
    }
    const CSize paper = PaperSize(m_pPreviewDC);
    RECT whole{0, 0, paper.cx, paper.cy};
    ::FillRect(pageDC, &whole, static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH)));

    m_pPreviewDC->m_hDC = pageDC;
    m_pPreviewInfo->m_nCurPage = page;
    m_pPreviewInfo->m_bContinuePrinting = TRUE;
    m_pPrintView->OnPrepareDC(m_pPreviewDC, m_pPreviewInfo);
    const bool exists = m_pPreviewInfo->m_bContinuePrinting != FALSE;
    if (exists) {
        m_pPreviewInfo->m_rectDraw.SetRect(0, 0, paper.cx, paper.cy);
        m_pPrintView->OnPrint(m_pPreviewDC, m_pPreviewInfo);
    }
    m_pPreviewDC->m_hDC = printer;
    m_pPreviewInfo->m_bContinuePrinting = TRUE;
    ::DeleteDC(pageDC);
    if (!exists) {
        ::DeleteObject(image);
        image = nullptr;
    }
    *bitmap = image;
    return exists;
}

void CPreviewView::OnDraw(CDC* dc) {
    CRect client;
    GetClientRect(&client);
    CRect bar(client.left, client.top, client.right, PageArea().top);
    dc->FillSolidRect(&bar, ::GetSysColor(COLOR_BTNFACE));
    dc->FillSolidRect(bar.left, bar.bottom - 1, bar.Width(), 1, ::GetSysColor(COLOR_BTNSHADOW));

    const CRect area = PageArea();
    dc->FillSolidRect(&area, ::GetSysColor(COLOR_APPWORKSPACE));
    // A page larger than the area is cut at its edges, below the tool bar.
    auto fill = [&](CRect r, COLORREF colour) {
        if (r.IntersectRect(r, area))
            dc->FillSolidRect(&r, colour);
    };
    CDC memory;
    memory.CreateCompatibleDC(dc);
    for (const PageImage& shown : m_shown) {
        const CRect& r = shown.rect;
        fill(CRect(r.left + kShadow, r.bottom + 1, r.right + 1 + kShadow, r.bottom + 1 + kShadow),
             0x000000);
        fill(CRect(r.right + 1, r.top + kShadow, r.right + 1 + kShadow, r.bottom + 1), 0x000000);
        // The page's edge, just outside the paper.
        fill(CRect(r.left - 1, r.top - 1, r.right + 1, r.top), 0x000000);
        fill(CRect(r.left - 1, r.bottom, r.right + 1, r.bottom + 1), 0x000000);
        fill(CRect(r.left - 1, r.top, r.left, r.bottom), 0x000000);
        fill(CRect(r.right, r.top, r.right + 1, r.bottom), 0x000000);
        CRect visible;
        if (!visible.IntersectRect(r, area))
            continue;
        if (shown.bitmap) {
            HGDIOBJ old = ::SelectObject(memory.m_hDC, shown.bitmap);
            dc->BitBlt(visible.left, visible.top, visible.Width(), visible.Height(), &memory,
                       visible.left - r.left, visible.top - r.top, SRCCOPY);
            ::SelectObject(memory.m_hDC, old);
        } else {
            dc->FillSolidRect(&visible, 0xFFFFFF);
        }
    }
    memory.DeleteDC();

    // Which pages show, after the buttons.
    CString format = PageDescription(m_pPreviewInfo ? m_pPreviewInfo->m_strPageDesc : CString(),
                                     m_nPages == 2 && m_shown.size() == 2);
    CString text;
    text.Format(format, m_nCurrentPage, m_nCurrentPage + 1);
    HGDIOBJ oldFont = ::SelectObject(dc->m_hDC, ::GetStockObject(DEFAULT_GUI_FONT));
    dc->SetBkMode(TRANSPARENT);
    dc->SetTextColor(::GetSysColor(COLOR_BTNTEXT));
    CRect label(bar);
    label.left = 7 * (75 + 4) + 12;
    ::DrawText(dc->m_hDC, text, -1, &label, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    ::SelectObject(dc->m_hDC, oldFont);
}

void CPreviewView::Zoom(int state, CPoint anchor) {
    // The spot of paper under the anchor stays there.
    double fx = 0.5, fy = 0.5;
    for (const PageImage& shown : m_shown)
        if (shown.rect.PtInRect(anchor)) {
            fx = static_cast<double>(anchor.x - shown.rect.left) / shown.rect.Width();
            fy = static_cast<double>(anchor.y - shown.rect.top) / shown.rect.Height();
        }
    m_nZoomState = std::clamp(state, static_cast<int>(ZOOM_OUT), static_cast<int>(ZOOM_IN));
    m_nPages = m_nZoomState == ZOOM_OUT ? m_nPagesChosen : 1;
    m_pPreviewInfo->m_nNumPreviewPages = m_nPages;
    m_scroll = CPoint(0, 0);
    LayOut();
    if (m_shown.empty() || m_nZoomState == ZOOM_OUT)
        return;
    const CRect& r = m_shown.front().rect;
    int dx = r.left + static_cast<int>(std::lround(fx * r.Width())) - anchor.x;
    int dy = r.top + static_cast<int>(std::lround(fy * r.Height())) - anchor.y;
    ScrollBy(dx, dy);
}

void CPreviewView::ScrollBy(int dx, int dy) {
    if (m_nZoomState == ZOOM_OUT || (dx == 0 && dy == 0))
        return;
    m_scroll.Offset(dx, dy);
    LayOut();
}

CRect CPreviewView::GetPageRect(UINT index) const {
    return index < m_shown.size() ? m_shown[index].rect : CRect();
}

HBITMAP CPreviewView::GetPageBitmap(UINT index) {
    return index < m_shown.size() ? m_shown[index].bitmap : nullptr;
}

namespace platform {

bool SavePreviewPage(HWND hwnd, int index, const std::string& path) {
    CWnd* wnd = CWnd::FromHandlePermanent(hwnd);
    CPreviewView* preview = nullptr;
    if (wnd && wnd->IsKindOf(RUNTIME_CLASS(CPreviewView))) {
        preview = static_cast<CPreviewView*>(wnd);
    } else if (wnd && wnd->IsKindOf(RUNTIME_CLASS(CFrameWnd))) {
        CFrameWnd* frame = static_cast<CFrameWnd*>(wnd)->GetActiveFrame();
        CView* view = frame ? frame->GetActiveView() : nullptr;
        if (view && view->IsKindOf(RUNTIME_CLASS(CPreviewView)))
            preview = static_cast<CPreviewView*>(view);
    }
    if (!preview || index < 0)
        return false;
    HBITMAP page = preview->GetPageBitmap(static_cast<UINT>(index));
    return page && SaveBitmapAsPng(page, path);
}

} // namespace platform
