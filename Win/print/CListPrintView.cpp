#include "CListPrintView.h"

#include "CPrintFrame.h"

#include <algorithm>
#include <vector>

IMPLEMENT_DYNCREATE(CListPrintView, CGXGridView)

BEGIN_MESSAGE_MAP(CListPrintView, CGXGridView)
ON_COMMAND(ID_FILE_PRINT, OnFilePrint)
ON_COMMAND(ID_FILE_PRINT_DIRECT, OnFilePrint)
ON_COMMAND(ID_FILE_PRINT_PREVIEW, OnFilePrintPreview)
END_MESSAGE_MAP()

namespace {

// The list's column titles are read through a buffer of this many characters.
constexpr int kTitleLength = 256;

} // namespace

CListPrintView::CListPrintView() = default;

CListPrintView::~CListPrintView() = default;

CListPrintDoc* CListPrintView::GetDocument() {
    return DYNAMIC_DOWNCAST(CListPrintDoc, m_pDocument);
}

CPrintFrame* CListPrintView::PrintFrame() {
    return DYNAMIC_DOWNCAST(CPrintFrame, GetParent());
}

BOOL CListPrintView::PreCreateWindow(CREATESTRUCT& cs) {
    return CView::PreCreateWindow(cs);
}

int CListPrintView::WidenedWidth(int fittedWidth) {
    return static_cast<int>(fittedWidth * 1.15);
}

void CListPrintView::OnInitialUpdate() {
    CGXGridView::OnInitialUpdate();
    GetParam()->EnableUpdate(FALSE);
    CListPrintDoc* doc = GetDocument();
    CListCtrl* list = doc ? doc->GetListCtrl() : nullptr;
    // Only the list's columns show and print; row 0 stays the title row.
    HideCols(0, 0, TRUE, nullptr, GRID_UPDATE_INVALIDATE, 0);
    if (list && list->m_hWnd)
        CopyList(*list);
    GetParam()->GetProperties()->SetMargins(72, 36, 72, 36);
    GetParam()->EnableUpdate(TRUE);
    if (doc)
        PostMessage(WM_COMMAND, doc->GetCommandId(), 0);
}

void CListPrintView::CopyList(CListCtrl& list) {
    CHeaderCtrl* header = list.GetHeaderCtrl();
    const int cols = header ? std::max(0, header->GetItemCount()) : 0;
    const int rows = std::max(0, list.GetItemCount());
    SetRowCount(rows, GRID_UPDATE_INVALIDATE);
    SetColCount(cols, GRID_UPDATE_INVALIDATE);

    // Grid column c + 1 shows list column order[c]: the columns print in the
    // order the user arranged them.
    std::vector<int> order(static_cast<std::size_t>(cols));
    for (int c = 0; c < cols; ++c)
        order[static_cast<std::size_t>(c)] = c;
    if (cols > 0)
        list.GetColumnOrderArray(order.data(), cols);

    auto setCell = [this](int row, int col, const CString& text) {
        CGXStyle& scratch = StyleScratch();
        scratch.Free();
        scratch.SetValue(text);
        SetStyleRange(CGXRange(row, col), scratch, GRID_MODIFY_OVERRIDE, GRID_STYLE_CELLS, nullptr,
                      GRID_UPDATE_INVALIDATE, 0);
    };
    for (int c = 0; c < cols; ++c) {
        WCHAR title[kTitleLength] = {};
        LVCOLUMN column{};
        column.mask = LVCF_TEXT;
        column.pszText = title;
        column.cchTextMax = kTitleLength;
        list.GetColumn(order[static_cast<std::size_t>(c)], &column);
        setCell(0, c + 1, CString(title));
    }
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < cols; ++c)
            setCell(r + 1, c + 1, list.GetItemText(r, order[static_cast<std::size_t>(c)]));

    for (int c = 1; c <= cols; ++c) {
        ResizeColWidthsToFit(CGXRange().SetCols(c), TRUE, GRID_UPDATE_INVALIDATE);
        SetColWidth(c, c, WidenedWidth(GetColWidth(c)), nullptr, GRID_UPDATE_INVALIDATE, 0);
    }
}

void CListPrintView::OnDraw(CDC* pDC) {
    CGXGridView::OnDraw(pDC);
}

void CListPrintView::OnFilePrint() {
    if (CPrintFrame* frame = PrintFrame())
        frame->SetPrintStart();
    CView::OnFilePrint();
    if (CPrintFrame* frame = PrintFrame())
        frame->SetPrintEnd();
}

void CListPrintView::OnFilePrintPreview() {
    if (CPrintFrame* frame = PrintFrame())
        frame->SetPrintStart();
    CView::OnFilePrintPreview();
}

void CListPrintView::OnEndPrintPreview(CDC* pDC, CPrintInfo* pInfo, POINT point,
                                       CPreviewView* pView) {
    CView::OnEndPrintPreview(pDC, pInfo, point, pView);
    if (CPrintFrame* frame = PrintFrame())
        frame->SetPrintEnd();
}

BOOL CListPrintView::OnPreparePrinting(CPrintInfo* pInfo) {
    return DoPreparePrinting(pInfo);
}

void CListPrintView::OnBeginPrinting(CDC* pDC, CPrintInfo* pInfo) {
    CWnd* main = AfxGetMainWnd();
    m_bMainWndEnabled = main && main->m_hWnd && main->IsWindowEnabled() ? 1 : 0;
    m_hForegroundWnd = ::GetForegroundWindow();
    CGXGridView::OnBeginPrinting(pDC, pInfo);
}

void CListPrintView::OnEndPrinting(CDC* pDC, CPrintInfo* pInfo) {
    CGXGridView::OnEndPrinting(pDC, pInfo);
    if (!m_hForegroundWnd)
        return;
    if (CWnd* main = AfxGetMainWnd(); main && main->m_hWnd)
        main->EnableWindow(m_bMainWndEnabled);
    ::EnableWindow(m_hForegroundWnd, TRUE);
    m_hForegroundWnd = nullptr;
}
