// Printing the grid: the print mapping, division into pages, and each page.
#include "GridPages.h"
#include "GridView.h"

#include <algorithm>

void CGXView::SetPrintMapping(CDC* dc) {
    if (!dc)
        return;
    HDC screen = ::GetDC(nullptr);
    const int screenX = ::GetDeviceCaps(screen, LOGPIXELSX);
    const int screenY = ::GetDeviceCaps(screen, LOGPIXELSY);
    ::ReleaseDC(nullptr, screen);
    dc->SetMapMode(MM_ANISOTROPIC);
    dc->SetWindowExt(screenX, screenY);
    dc->SetViewportExt(dc->GetDeviceCaps(LOGPIXELSX), dc->GetDeviceCaps(LOGPIXELSY));
}

CRect CGXView::GetPrintPageRect(CDC* dc) {
    if (!dc)
        return CRect();
    CRect page(0, 0, dc->GetDeviceCaps(HORZRES), dc->GetDeviceCaps(VERTRES));
    dc->DPtoLP(&page);
    return page;
}

void CGXGridView::OnGXBeginPrinting(CDC* dc, CPrintInfo* info) {
    if (!dc || !info)
        return;
    SetPrintMapping(dc);
    const CRect page = GetPrintPageRect(dc);
    int top = 0;
    int left = 0;
    int bottom = 0;
    int right = 0;
    GetParam()->GetProperties()->GetMargins(top, left, bottom, right);
    CRect area(page.left + left, page.top + top, page.right - right, page.bottom - bottom);
    // Margins that leave no room give way to the whole page.
    if (area.Width() <= 0 || area.Height() <= 0)
        area = page;
    m_pages = std::make_unique<platform::grid::PrintPages>(
        platform::grid::Paginate(*this, area, HeaderColWidth()));
    info->SetMaxPage(m_pages->Count());
}

void CGXGridView::OnGXPrint(CDC* dc, CPrintInfo* info) {
    if (!dc || !info)
        return;
    if (!m_pages)
        OnGXBeginPrinting(dc, info);
    SetPrintMapping(dc);
    const platform::grid::PrintPages& pages = *m_pages;
    const UINT page = info->m_nCurPage;
    if (page < 1 || page > pages.Count())
        return;
    const UINT index = page - 1;
    const auto band = static_cast<std::size_t>(index / static_cast<UINT>(pages.rowPages));
    const int runOfRows = static_cast<int>(index % static_cast<UINT>(pages.rowPages));
    const int firstRow = runOfRows * pages.rowsPerPage + 1;
    const int lastRow = std::min(GetRowCount(), firstRow + pages.rowsPerPage - 1);
    info->m_rectDraw = pages.area;
    DrawCells(dc, pages.area, firstRow, lastRow, pages.bands[band]);
}

void CGXGridView::OnGXEndPrinting(CDC*, CPrintInfo*) {
    m_pages.reset();
}

UINT CGXGridView::GetPrintPageCount() const {
    return m_pages ? m_pages->Count() : 0;
}

BOOL CGXGridView::OnPreparePrinting(CPrintInfo* info) {
    return DoPreparePrinting(info);
}

void CGXGridView::OnBeginPrinting(CDC* dc, CPrintInfo* info) {
    OnGXBeginPrinting(dc, info);
}

void CGXGridView::OnPrepareDC(CDC* dc, CPrintInfo* info) {
    CGXView::OnPrepareDC(dc, info);
    if (info)
        SetPrintMapping(dc);
}

void CGXGridView::OnPrint(CDC* dc, CPrintInfo* info) {
    OnGXPrint(dc, info);
}

void CGXGridView::OnEndPrinting(CDC* dc, CPrintInfo* info) {
    OnGXEndPrinting(dc, info);
}
