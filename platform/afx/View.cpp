// CView: a frame's child window that shows its document.
#include <afxwin.h>

namespace {

constexpr const WCHAR* kViewClass = u"AfxView";

LPCTSTR ViewClass() {
    WNDCLASS wc{};
    if (!::GetClassInfo(nullptr, kViewClass, &wc)) {
        wc.lpfnWndProc = ::DefWindowProc;
        wc.hbrBackground = ::GetSysColorBrush(COLOR_WINDOW);
        wc.lpszClassName = kViewClass;
        ::RegisterClass(&wc);
    }
    return kViewClass;
}

} // namespace

IMPLEMENT_DYNAMIC(CView, CWnd)

BEGIN_MESSAGE_MAP(CView, CWnd)
ON_MESSAGE_VOID(WM_INITIALUPDATE, OnInitialUpdate)
END_MESSAGE_MAP()

CView::CView() = default;

CView::~CView() {
    if (m_pDocument)
        m_pDocument->RemoveView(this);
}

BOOL CView::PreCreateWindow(CREATESTRUCT& cs) {
    if (!cs.lpszClass)
        cs.lpszClass = ViewClass();
    if (cs.style & WS_BORDER) {
        cs.dwExStyle |= WS_EX_CLIENTEDGE;
        cs.style &= ~static_cast<LONG>(WS_BORDER);
    }
    return TRUE;
}

int CView::OnCreate(LPCREATESTRUCT cs) {
    if (CWnd::OnCreate(cs) == -1)
        return -1;
    auto* context = static_cast<CCreateContext*>(cs->lpCreateParams);
    if (context && context->m_pCurrentDoc)
        context->m_pCurrentDoc->AddView(this);
    return 0;
}

void CView::OnDestroy() {
    CFrameWnd* frame = GetParentFrame();
    if (frame && frame->GetActiveView() == this)
        frame->SetActiveView(nullptr);
    CWnd::OnDestroy();
}

void CView::PostNcDestroy() {
    delete this;
}

void CView::OnPaint() {
    CPaintDC dc(this);
    OnPrepareDC(&dc);
    OnDraw(&dc);
}

void CView::OnInitialUpdate() {
    OnUpdate(nullptr, 0, nullptr);
}

void CView::OnUpdate(CView*, LPARAM, CObject*) {
    Invalidate(TRUE);
}

void CView::OnActivateView(BOOL activate, CView*, CView*) {
    // The view of the active window takes the keyboard.
    if (!activate)
        return;
    CWnd* top = GetTopLevelParent();
    if (top && ::GetActiveWindow() == top->m_hWnd)
        SetFocus();
}

void CView::OnActivateFrame(UINT, CFrameWnd*) {}

BOOL CView::IsSelected(const CObject*) const {
    return FALSE;
}

BOOL CView::OnCmdMsg(UINT id, int code, void* extra, void* handlerInfo) {
    if (CWnd::OnCmdMsg(id, code, extra, handlerInfo))
        return TRUE;
    return m_pDocument && m_pDocument->OnCmdMsg(id, code, extra, handlerInfo);
}
