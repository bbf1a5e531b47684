// CMDIChildWnd: a document frame created and destroyed through the MDI
// client, showing its template's menu on the MDI frame while it is active.
#include <afxwin.h>

#include "WndProc.h"

namespace {

constexpr const WCHAR* kChildClass = u"AfxMDIFrame";

LPCTSTR ChildClass() {
    WNDCLASS wc{};
    if (!::GetClassInfo(nullptr, kChildClass, &wc)) {
        wc.lpfnWndProc = ::DefMDIChildProc;
        wc.hbrBackground = ::GetSysColorBrush(COLOR_WINDOW);
        wc.lpszClassName = kChildClass;
        ::RegisterClass(&wc);
    }
    return kChildClass;
}

} // namespace

IMPLEMENT_DYNCREATE(CMDIChildWnd, CFrameWnd)

BEGIN_MESSAGE_MAP(CMDIChildWnd, CFrameWnd)
ON_WM_MDIACTIVATE()
END_MESSAGE_MAP()

CMDIChildWnd::CMDIChildWnd() = default;

BOOL CMDIChildWnd::PreCreateWindow(CREATESTRUCT& cs) {
    cs.style |= WS_CHILD;
    if (!cs.lpszClass)
        cs.lpszClass = ChildClass();
    return CFrameWnd::PreCreateWindow(cs);
}

BOOL CMDIChildWnd::Create(LPCTSTR className, LPCTSTR windowName, DWORD style, const RECT& rect,
                          CMDIFrameWnd* parent, CCreateContext* context) {
    if (!parent)
        parent = dynamic_cast<CMDIFrameWnd*>(AfxGetMainWnd());
    if (!parent || !parent->m_hWndMDIClient) {
        PostNcDestroy();
        return FALSE;
    }
    auto extent = [](LONG from, LONG to) {
        return static_cast<int>(static_cast<uint32_t>(to) - static_cast<uint32_t>(from));
    };
    CREATESTRUCT cs{context,
                    nullptr,
                    nullptr,
                    parent->m_hWnd,
                    extent(rect.top, rect.bottom),
                    extent(rect.left, rect.right),
                    rect.top,
                    rect.left,
                    static_cast<LONG>(style | WS_CHILD),
                    windowName,
                    className,
                    0};
    if (!PreCreateWindow(cs)) {
        PostNcDestroy();
        return FALSE;
    }
    m_strTitle = cs.lpszName;
    const auto finalStyle = static_cast<DWORD>(cs.style);
    // The framework shows the frame itself once it exists.
    MDICREATESTRUCT mcs{cs.lpszClass,
                        cs.lpszName,
                        cs.hInstance,
                        cs.x,
                        cs.y,
                        cs.cx,
                        cs.cy,
                        finalStyle & ~static_cast<DWORD>(WS_MAXIMIZE | WS_VISIBLE),
                        reinterpret_cast<LPARAM>(cs.lpCreateParams)};
    CWnd* previous = platform::afx::HookWindowCreate(this);
    auto hwnd = reinterpret_cast<HWND>(
        ::SendMessage(parent->m_hWndMDIClient, WM_MDICREATE, 0, reinterpret_cast<LPARAM>(&mcs)));
    const bool neverAttached = platform::afx::CreationPending(this);
    platform::afx::UnhookWindowCreate(previous);
    if (neverAttached)
        PostNcDestroy();
    if (!hwnd)
        return FALSE;
    if (finalStyle & WS_VISIBLE) {
        ::BringWindowToTop(hwnd);
        ShowWindow((finalStyle & WS_MINIMIZE)   ? SW_SHOWMINIMIZED
                   : (finalStyle & WS_MAXIMIZE) ? SW_SHOWMAXIMIZED
                                                : SW_SHOWNORMAL);
        parent->MDIActivate(this);
        ::SendMessage(parent->m_hWndMDIClient, WM_MDIREFRESHMENU, 0, 0);
    }
    return TRUE;
}

BOOL CMDIChildWnd::LoadFrame(UINT idResource, DWORD style, CWnd* parent, CCreateContext* context) {
    m_nIDHelp = idResource;
    // The template's shared menu and accelerators serve all its documents.
    if (auto* tmpl =
            context ? dynamic_cast<CMultiDocTemplate*>(context->m_pNewDocTemplate) : nullptr) {
        m_hMenuShared = tmpl->m_hMenuShared;
        m_hAccelTable = tmpl->m_hAccelTable;
    }
    CString full, title;
    if (full.LoadString(idResource))
        AfxExtractSubString(title, full, 0);
    return Create(nullptr, title, style, rectDefault, dynamic_cast<CMDIFrameWnd*>(parent), context);
}

int CMDIChildWnd::OnCreate(LPCREATESTRUCT cs) {
    auto* mcs = static_cast<MDICREATESTRUCT*>(cs->lpCreateParams);
    return OnCreateHelper(cs, mcs ? reinterpret_cast<CCreateContext*>(mcs->lParam) : nullptr);
}

BOOL CMDIChildWnd::DestroyWindow() {
    if (!m_hWnd)
        return FALSE;
    CMDIFrameWnd* frame = GetMDIFrame();
    HWND frameWnd = frame ? frame->m_hWnd : nullptr;
    // The frame's caption is left alone while the document goes, then
    // brought up to date once.
    const LONG_PTR titleBit =
        frameWnd ? ::GetWindowLongPtr(frameWnd, GWL_STYLE) & FWS_ADDTOTITLE : 0;
    if (frameWnd)
        ::SetWindowLongPtr(frameWnd, GWL_STYLE,
                           ::GetWindowLongPtr(frameWnd, GWL_STYLE) & ~titleBit);
    // This object is gone after this.
    MDIDestroy();
    if (frameWnd && ::IsWindow(frameWnd)) {
        ::SetWindowLongPtr(frameWnd, GWL_STYLE, ::GetWindowLongPtr(frameWnd, GWL_STYLE) | titleBit);
        frame->OnUpdateFrameTitle(TRUE);
    }
    return TRUE;
}

void CMDIChildWnd::ActivateFrame(int cmdShow) {
    const bool visibleBefore = (GetStyle() & WS_VISIBLE) != 0;
    CMDIFrameWnd* frame = GetMDIFrame();
    if (cmdShow == -1 && frame) {
        // A new document takes the maximised state of the one before it.
        BOOL maximized = FALSE;
        frame->MDIGetActive(&maximized);
        const DWORD style = GetStyle();
        if (maximized || (style & WS_MAXIMIZE))
            cmdShow = SW_SHOWMAXIMIZED;
        else if (style & WS_MINIMIZE)
            cmdShow = SW_SHOWMINIMIZED;
    }
    CFrameWnd::ActivateFrame(cmdShow);
    if (!frame)
        return;
    if (!visibleBefore && (GetStyle() & WS_VISIBLE) && frame->MDIGetActive() != this)
        MDIActivate();
    ::SendMessage(frame->m_hWndMDIClient, WM_MDIREFRESHMENU, 0, 0);
}

BOOL CMDIChildWnd::PreTranslateMessage(MSG* msg) {
    if (CWnd::PreTranslateMessage(msg))
        return TRUE;
    if (msg->message < WM_KEYFIRST || msg->message > WM_KEYLAST)
        return FALSE;
    // A document frame has no menu bar: its commands go to the MDI frame.
    CMDIFrameWnd* frame = GetMDIFrame();
    HACCEL accelerators = GetDefaultAccelerator();
    return frame && accelerators && ::TranslateAccelerator(frame->m_hWnd, accelerators, msg);
}

void CMDIChildWnd::OnUpdateFrameTitle(BOOL addToTitle) {
    if (CMDIFrameWnd* frame = GetMDIFrame())
        frame->OnUpdateFrameTitle(addToTitle);
    if (!(GetStyle() & FWS_ADDTOTITLE) || !addToTitle)
        return;
    CDocument* document = GetActiveDocument();
    CString text = document ? document->GetTitle() : m_strTitle;
    if (m_nWindow > 0) {
        CString number;
        number.Format(u":%d", m_nWindow);
        text += number;
    }
    CString shown;
    GetWindowText(shown);
    if (shown != text)
        SetWindowText(text);
}

CMDIFrameWnd* CMDIChildWnd::GetMDIFrame() const {
    HWND client = ::GetParent(m_hWnd);
    return dynamic_cast<CMDIFrameWnd*>(
        CWnd::FromHandlePermanent(client ? ::GetParent(client) : nullptr));
}

void CMDIChildWnd::MDIDestroy() {
    ::SendMessage(::GetParent(m_hWnd), WM_MDIDESTROY, reinterpret_cast<WPARAM>(m_hWnd), 0);
}

void CMDIChildWnd::MDIActivate() {
    ::SendMessage(::GetParent(m_hWnd), WM_MDIACTIVATE, reinterpret_cast<WPARAM>(m_hWnd), 0);
}

void CMDIChildWnd::MDIMaximize() {
    ::SendMessage(::GetParent(m_hWnd), WM_MDIMAXIMIZE, reinterpret_cast<WPARAM>(m_hWnd), 0);
}

void CMDIChildWnd::MDIRestore() {
    ::SendMessage(::GetParent(m_hWnd), WM_MDIRESTORE, reinterpret_cast<WPARAM>(m_hWnd), 0);
}

void CMDIChildWnd::OnSize(UINT type, int cx, int cy) {
    CFrameWnd::OnSize(type, cx, cy);
    // Maximised or restored, the document's name moves between the frame's
    // caption and the brackets the MDI client adds.
    if (CMDIFrameWnd* frame = GetMDIFrame())
        frame->OnUpdateFrameTitle(TRUE);
}

LRESULT CMDIChildWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::DefMDIChildProc(m_hWnd, message, wParam, lParam);
}

void CMDIChildWnd::OnMDIActivate(BOOL activate, CWnd* activated, CWnd*) {
    CView* view = GetActiveView();
    if (!activate && view)
        view->OnActivateView(FALSE, view, view);
    OnUpdateFrameTitle(activate || activated != nullptr);
    CMDIFrameWnd* frame = GetMDIFrame();
    if (activate && view && frame && CWnd::GetActiveWindow() == frame)
        view->OnActivateView(TRUE, view, view);
    OnUpdateFrameMenu(activate, activated, nullptr);
    if (frame)
        frame->DrawMenuBar();
}

void CMDIChildWnd::OnUpdateFrameMenu(BOOL activate, CWnd* activated, HMENU menuAlt) {
    CMDIFrameWnd* frame = GetMDIFrame();
    if (!frame)
        return;
    if (!menuAlt && activate)
        if (CDocument* document = GetActiveDocument())
            menuAlt = document->GetDefaultMenu();
    if (!menuAlt)
        menuAlt = m_hMenuShared;
    if (activate && menuAlt) {
        frame->MDISetMenu(CMenu::FromHandle(menuAlt),
                          CMenu::FromHandle(frame->GetWindowMenuPopup(menuAlt)));
    } else if (!activate && !activated) {
        // The last document went: the frame's own menu comes back.
        HMENU own = frame->m_hMenuDefault;
        frame->MDISetMenu(CMenu::FromHandle(own),
                          CMenu::FromHandle(frame->GetWindowMenuPopup(own)));
    } else {
        ::SendMessage(frame->m_hWndMDIClient, WM_MDIREFRESHMENU, 0, 0);
    }
}
