// CPreviewView: taking the previewed view's place, the tool bar and its
// commands, keys and clicks, and the end of preview.
#include <afxpriv.h>

namespace {

constexpr int kToolBarHeight = 30;
constexpr int kButtonWidth = 75;
constexpr int kButtonHeight = 22;
constexpr int kButtonGap = 4;

struct ToolButton {
    UINT id;
    const WCHAR* text;
};

constexpr ToolButton kButtons[] = {
    {AFX_ID_PREVIEW_PRINT, u"&Print..."}, {AFX_ID_PREVIEW_NEXT, u"&Next Page"},
    {AFX_ID_PREVIEW_PREV, u"Pre&v Page"}, {AFX_ID_PREVIEW_NUMPAGE, u"&Two Page"},
    {AFX_ID_PREVIEW_ZOOMIN, u"Zoom &In"}, {AFX_ID_PREVIEW_ZOOMOUT, u"Zoom &Out"},
    {AFX_ID_PREVIEW_CLOSE, u"&Close"},
};

} // namespace

IMPLEMENT_DYNCREATE(CPreviewView, CView)

BEGIN_MESSAGE_MAP(CPreviewView, CView)
ON_WM_KEYDOWN()
ON_WM_LBUTTONDOWN()
ON_COMMAND(AFX_ID_PREVIEW_CLOSE, OnPreviewClose)
ON_COMMAND(AFX_ID_PREVIEW_PRINT, OnPreviewPrint)
ON_COMMAND(AFX_ID_PREVIEW_NEXT, OnNextPage)
ON_COMMAND(AFX_ID_PREVIEW_PREV, OnPrevPage)
ON_COMMAND(AFX_ID_PREVIEW_NUMPAGE, OnNumPageChange)
ON_COMMAND(AFX_ID_PREVIEW_ZOOMIN, OnZoomIn)
ON_COMMAND(AFX_ID_PREVIEW_ZOOMOUT, OnZoomOut)
END_MESSAGE_MAP()

CPreviewView::CPreviewView() = default;

CPreviewView::~CPreviewView() {
    ForgetPages();
    if (m_pPreviewDC) {
        // The DC itself belongs to the print information.
        m_pPreviewDC->m_hDC = m_pPreviewDC->m_hAttribDC = nullptr;
        delete m_pPreviewDC;
    }
    delete m_pPreviewInfo;
    // The preview borrows its document without being one of its views.
    m_pDocument = nullptr;
}

int CPreviewView::OnCreate(LPCREATESTRUCT cs) {
    // Not CView's: the preview does not join the document's views.
    if (CWnd::OnCreate(cs) == -1)
        return -1;
    CreateToolBar();
    return 0;
}

void CPreviewView::CreateToolBar() {
    HFONT font = static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT));
    int x = kButtonGap;
    for (const ToolButton& button : kButtons) {
        HWND hwnd = ::CreateWindowEx(
            0, u"BUTTON", button.text, WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, x,
            (kToolBarHeight - kButtonHeight) / 2, kButtonWidth, kButtonHeight, m_hWnd,
            reinterpret_cast<HMENU>(static_cast<uintptr_t>(button.id)), nullptr, nullptr);
        ::SendMessage(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        x += kButtonWidth + kButtonGap;
    }
}

BOOL CPreviewView::SetPrintView(CView* printView) {
    if (!printView || m_pPreviewInfo)
        return FALSE;
    m_pPrintView = m_pOrigView = printView;
    m_pDocument = printView->GetDocument();
    m_pPreviewInfo = new CPrintInfo;
    m_pPreviewInfo->m_bPreview = TRUE;
    if (!m_pPrintView->OnPreparePrinting(m_pPreviewInfo))
        return FALSE;
    CPrintDialog* dialog = m_pPreviewInfo->m_pPD;
    // A view that did not ask for a printer previews on the default one.
    if (!dialog->m_pd.hDC && !dialog->GetDefaults())
        return FALSE;
    if (!dialog->m_pd.hDC && !dialog->CreatePrinterDC())
        return FALSE;
    m_pPreviewDC = new CDC;
    m_pPreviewDC->m_hDC = m_pPreviewDC->m_hAttribDC = dialog->m_pd.hDC;
    m_pPreviewDC->m_bPrinting = TRUE;
    m_pPrintView->OnBeginPrinting(m_pPreviewDC, m_pPreviewInfo);
    m_bBegun = TRUE;

    UINT shown = m_pPreviewInfo->m_nNumPreviewPages;
    m_nPages = m_nPagesChosen = shown == 2 && LastPage() > 1 ? 2 : 1;
    m_pPreviewInfo->m_nNumPreviewPages = m_nPages;
    m_nCurrentPage = m_pPreviewInfo->GetFromPage();
    SetCurrentPage(m_nCurrentPage, TRUE);
    return TRUE;
}

void CPreviewView::SetCurrentPage(UINT page, BOOL) {
    UINT last = LastPage();
    UINT first = m_pPreviewInfo ? m_pPreviewInfo->GetMinPage() : 1;
    if (page > last)
        page = last;
    if (page < first)
        page = first;
    m_nCurrentPage = page;
    LayOut();
}

UINT CPreviewView::LastPage() const {
    if (!m_pPreviewInfo)
        return 1;
    UINT last = m_pPreviewInfo->GetMaxPage();
    if (m_nLastFound < last)
        last = m_nLastFound;
    return last < m_pPreviewInfo->GetMinPage() ? m_pPreviewInfo->GetMinPage() : last;
}

void CPreviewView::UpdateToolBar() {
    const UINT last = LastPage();
    auto enable = [this](UINT id, bool on) {
        if (HWND button = ::GetDlgItem(m_hWnd, static_cast<int>(id)))
            ::EnableWindow(button, on);
    };
    const UINT lastShown = m_nCurrentPage + static_cast<UINT>(m_shown.size()) - 1;
    enable(AFX_ID_PREVIEW_NEXT, m_shown.empty() ? m_nCurrentPage < last : lastShown < last);
    enable(AFX_ID_PREVIEW_PREV, m_pPreviewInfo && m_nCurrentPage > m_pPreviewInfo->GetMinPage());
    enable(AFX_ID_PREVIEW_NUMPAGE,
           m_nZoomState == ZOOM_OUT && (m_nPages == 2 || last > m_pPreviewInfo->GetMinPage()));
    enable(AFX_ID_PREVIEW_ZOOMIN, m_nZoomState != ZOOM_IN);
    enable(AFX_ID_PREVIEW_ZOOMOUT, m_nZoomState != ZOOM_OUT);
    if (HWND button = ::GetDlgItem(m_hWnd, AFX_ID_PREVIEW_NUMPAGE))
        ::SetWindowText(button, m_nPages == 2 ? u"&One Page" : u"&Two Page");
}

CRect CPreviewView::PageArea() const {
    CRect client;
    GetClientRect(&client);
    client.top = std::min<LONG>(client.bottom, kToolBarHeight);
    return client;
}

void CPreviewView::OnSize(UINT type, int cx, int cy) {
    CView::OnSize(type, cx, cy);
    if (m_pPreviewInfo)
        LayOut();
}

BOOL CPreviewView::OnEraseBkgnd(CDC*) {
    // OnDraw covers every pixel.
    return TRUE;
}

void CPreviewView::OnNextPage() {
    SetCurrentPage(m_nCurrentPage + 1, TRUE);
    SetFocus();
}

void CPreviewView::OnPrevPage() {
    if (m_nCurrentPage > 1)
        SetCurrentPage(m_nCurrentPage - 1, TRUE);
    SetFocus();
}

void CPreviewView::OnNumPageChange() {
    if (m_nZoomState == ZOOM_OUT) {
        m_nPages = m_nPagesChosen = m_nPages == 1 ? 2 : 1;
        m_pPreviewInfo->m_nNumPreviewPages = m_nPages;
        SetCurrentPage(m_nCurrentPage, TRUE);
    }
    SetFocus();
}

void CPreviewView::OnZoomIn() {
    if (m_nZoomState != ZOOM_IN)
        Zoom(m_nZoomState + 1, PageArea().CenterPoint());
    SetFocus();
}

void CPreviewView::OnZoomOut() {
    if (m_nZoomState != ZOOM_OUT)
        Zoom(m_nZoomState - 1, PageArea().CenterPoint());
    SetFocus();
}

void CPreviewView::OnLButtonDown(UINT, CPoint point) {
    // A click on a page looks closer at that spot; at the closest it goes
    // back to the whole page.
    SetFocus();
    for (const PageImage& shown : m_shown) {
        if (!shown.rect.PtInRect(point))
            continue;
        if (m_nZoomState == ZOOM_OUT && m_nPages == 2)
            m_nCurrentPage = shown.page;
        Zoom(m_nZoomState == ZOOM_IN ? ZOOM_OUT : m_nZoomState + 1, point);
        return;
    }
}

void CPreviewView::OnKeyDown(UINT ch, UINT, UINT) {
    const int step = 40;
    switch (ch) {
    case VK_ESCAPE:
        OnPreviewClose();
        break;
    case VK_NEXT:
        OnNextPage();
        break;
    case VK_PRIOR:
        OnPrevPage();
        break;
    case VK_UP:
        ScrollBy(0, -step);
        break;
    case VK_DOWN:
        ScrollBy(0, step);
        break;
    case VK_LEFT:
        ScrollBy(-step, 0);
        break;
    case VK_RIGHT:
        ScrollBy(step, 0);
        break;
    default:
        break;
    }
}

BOOL CPreviewView::PreTranslateMessage(MSG* msg) {
    // Escape ends the preview whichever of its parts has the keyboard.
    if (msg->message == WM_KEYDOWN && msg->wParam == VK_ESCAPE) {
        OnPreviewClose();
        return TRUE;
    }
    return CView::PreTranslateMessage(msg);
}

void CPreviewView::OnPreviewClose() {
    if (!m_pOrigView)
        return;
    m_pPreviewInfo->m_nCurPage = m_nCurrentPage;
    // The view's end of preview destroys this object (by default).
    CView* view = m_pOrigView;
    m_pOrigView = nullptr;
    view->OnEndPrintPreview(m_pPreviewDC, m_pPreviewInfo, POINT{0, 0}, this);
}

void CPreviewView::OnPreviewPrint() {
    // Printing starts once the preview has gone, from the frame, so that it
    // reaches the view that is back in its place.
    CFrameWnd* frame = GetParentFrame();
    HWND target = frame ? frame->m_hWnd : nullptr;
    OnPreviewClose();
    if (target && ::IsWindow(target))
        ::SendMessage(target, WM_COMMAND, ID_FILE_PRINT, 0);
}

// What the default end of preview does: the printing steps end, the view
// comes back in the preview's place, and the preview goes.
void CView::OnEndPrintPreview(CDC* dc, CPrintInfo* info, POINT, CPreviewView* preview) {
    if (preview && preview->m_bBegun) {
        preview->m_bBegun = FALSE;
        if (CView* printView = preview->m_pPrintView)
            printView->OnEndPrinting(dc, info);
    }
    CFrameWnd* frame = GetParentFrame();
    if (m_hWnd && ::GetDlgCtrlID(m_hWnd) == AFX_IDW_PANE_SAVE) {
        ::SetWindowLongPtr(m_hWnd, GWLP_ID, AFX_IDW_PANE_FIRST);
        if (preview && preview->m_hWnd)
            ::SetWindowLongPtr(preview->m_hWnd, GWLP_ID, 0);
        ShowWindow(SW_SHOW);
    }
    if (frame) {
        frame->SetActiveView(this);
        frame->RecalcLayout();
    }
    if (preview && preview->m_hWnd)
        preview->DestroyWindow();
    if (frame)
        frame->Invalidate(TRUE);
}
