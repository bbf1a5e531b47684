// CFrameWnd: creation from resources, the active view, layout, activation
// and closing.
#include <afxwin.h>

namespace {

constexpr const WCHAR* kFrameClass = u"AfxFrameOrView";

LPCTSTR FrameClass() {
    WNDCLASS wc{};
    if (!::GetClassInfo(nullptr, kFrameClass, &wc)) {
        wc.lpfnWndProc = ::DefWindowProc;
        wc.hbrBackground = ::GetSysColorBrush(COLOR_WINDOW);
        wc.lpszClassName = kFrameClass;
        ::RegisterClass(&wc);
    }
    return kFrameClass;
}

} // namespace

IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)

const CRect CFrameWnd::rectDefault(CW_USEDEFAULT, CW_USEDEFAULT, 0, 0);

BEGIN_MESSAGE_MAP(CFrameWnd, CWnd)
ON_WM_CLOSE()
ON_WM_SETFOCUS()
ON_WM_INITMENUPOPUP()
ON_MESSAGE(WM_NCACTIVATE, OnNcActivate)
END_MESSAGE_MAP()

CFrameWnd::CFrameWnd() = default;

CFrameWnd::~CFrameWnd() = default;

BOOL CFrameWnd::PreCreateWindow(CREATESTRUCT& cs) {
    if (!cs.lpszClass)
        cs.lpszClass = FrameClass();
    // A frame of its own shows the document's name first; an MDI frame's
    // caption gets its document's name after its own.
    if ((cs.style & FWS_ADDTOTITLE) && !(cs.style & WS_CHILD) &&
        !IsKindOf(RUNTIME_CLASS(CMDIFrameWnd)))
        cs.style |= FWS_PREFIXTITLE;
    return TRUE;
}

BOOL CFrameWnd::Create(LPCTSTR className, LPCTSTR windowName, DWORD style, const RECT& rect,
                       CWnd* parent, LPCTSTR menuName, DWORD exStyle, CCreateContext* context) {
    HMENU menu = nullptr;
    if (menuName) {
        menu = ::LoadMenu(AfxFindResourceHandle(menuName, RT_MENU), menuName);
        if (!menu) {
            PostNcDestroy();
            return FALSE;
        }
    }
    m_strTitle = windowName;
    auto extent = [](LONG from, LONG to) {
        return static_cast<int>(static_cast<uint32_t>(to) - static_cast<uint32_t>(from));
    };
    if (!CreateEx(exStyle, className, windowName, style, rect.left, rect.top,
                  extent(rect.left, rect.right), extent(rect.top, rect.bottom),
                  parent ? parent->GetSafeHwnd() : nullptr, menu, context)) {
        // The frame may be gone already; only the menu is left to free.
        if (menu && ::IsMenu(menu))
            ::DestroyMenu(menu);
        return FALSE;
    }
    return TRUE;
}

BOOL CFrameWnd::LoadFrame(UINT idResource, DWORD style, CWnd* parent, CCreateContext* context) {
    m_nIDHelp = idResource;
    CString full;
    if (full.LoadString(idResource))
        AfxExtractSubString(m_strTitle, full, 0);
    const CString title = m_strTitle;
    if (!Create(nullptr, title, style, rectDefault, parent, MAKEINTRESOURCE(idResource), 0,
                context))
        return FALSE;
    LoadAccelTable(MAKEINTRESOURCE(idResource));
    if (!context)
        SendMessageToDescendants(WM_INITIALUPDATE, 0, 0, TRUE, TRUE);
    return TRUE;
}

BOOL CFrameWnd::LoadAccelTable(LPCTSTR name) {
    if (m_hAccelTable)
        return FALSE;
    m_hAccelTable = ::LoadAccelerators(AfxFindResourceHandle(name, RT_ACCELERATOR), name);
    return m_hAccelTable != nullptr;
}

int CFrameWnd::OnCreate(LPCREATESTRUCT cs) {
    return OnCreateHelper(cs, static_cast<CCreateContext*>(cs->lpCreateParams));
}

int CFrameWnd::OnCreateHelper(LPCREATESTRUCT cs, CCreateContext* context) {
    if (CWnd::OnCreate(cs) == -1)
        return -1;
    if (!OnCreateClient(cs, context))
        return -1;
    RecalcLayout();
    return 0;
}

BOOL CFrameWnd::OnCreateClient(LPCREATESTRUCT, CCreateContext* context) {
    if (context && context->m_pNewViewClass)
        return CreateView(context, AFX_IDW_PANE_FIRST) != nullptr;
    return TRUE;
}

CWnd* CFrameWnd::CreateView(CCreateContext* context, UINT id) {
    CObject* object = context->m_pNewViewClass->CreateObject();
    if (!object)
        return nullptr;
    if (!object->IsKindOf(RUNTIME_CLASS(CWnd))) {
        delete object;
        return nullptr;
    }
    auto* view = static_cast<CWnd*>(object);
    // A view that fails deletes itself with its window.
    if (!view->Create(nullptr, nullptr, AFX_WS_DEFAULT_VIEW, CRect(0, 0, 0, 0), this, id, context))
        return nullptr;
    return view;
}

void CFrameWnd::SetActiveView(CView* view, BOOL notify) {
    CView* old = m_pViewActive;
    if (view == old)
        return;
    m_pViewActive = nullptr;
    if (old)
        old->OnActivateView(FALSE, view, old);
    // The old view may have made another one active meanwhile.
    if (m_pViewActive)
        return;
    m_pViewActive = view;
    if (view && notify)
        view->OnActivateView(TRUE, view, old);
}

CDocument* CFrameWnd::GetActiveDocument() {
    CView* view = GetActiveView();
    return view ? view->GetDocument() : nullptr;
}

CFrameWnd* CFrameWnd::GetActiveFrame() {
    return this;
}

void CFrameWnd::BringToTop(int cmdShow) {
    if (cmdShow == SW_HIDE || cmdShow == SW_MINIMIZE || cmdShow == SW_SHOWMINNOACTIVE ||
        cmdShow == SW_SHOWNA || cmdShow == SW_SHOWNOACTIVATE)
        return;
    ::BringWindowToTop(::GetLastActivePopup(m_hWnd));
}

void CFrameWnd::ActivateFrame(int cmdShow) {
    if (cmdShow == -1) {
        if (!IsWindowVisible())
            cmdShow = SW_SHOWNORMAL;
        else if (IsIconic())
            cmdShow = SW_RESTORE;
    }
    BringToTop(cmdShow);
    if (cmdShow != -1) {
        ShowWindow(cmdShow);
        BringToTop(cmdShow);
    }
}

void CFrameWnd::InitialUpdateFrame(CDocument* doc, BOOL makeVisible) {
    CView* view = nullptr;
    if (!GetActiveView()) {
        CWnd* pane = GetDescendantWindow(AFX_IDW_PANE_FIRST, TRUE);
        if (pane && pane->IsKindOf(RUNTIME_CLASS(CView))) {
            view = static_cast<CView*>(pane);
            SetActiveView(view, FALSE);
        }
    }
    if (makeVisible) {
        SendMessageToDescendants(WM_INITIALUPDATE, 0, 0, TRUE, TRUE);
        if (view)
            view->OnActivateFrame(WA_INACTIVE, this);
        ActivateFrame(-1);
        if (view)
            view->OnActivateView(TRUE, view, view);
    }
    if (doc)
        doc->UpdateFrameCounts();
    OnUpdateFrameTitle(TRUE);
}

void CFrameWnd::RecalcLayout(BOOL) {
    if (!m_hWnd)
        return;
    AFX_SIZEPARENTPARAMS layout{};
    GetClientRect(&layout.rect);
    layout.bStretch = TRUE;
    HWND pane = nullptr;
    // Control bars take their room from the edges; the pane gets the rest.
    for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        if (::GetDlgCtrlID(child) == AFX_IDW_PANE_FIRST)
            pane = child;
        else
            ::SendMessage(child, WM_SIZEPARENT, 0, reinterpret_cast<LPARAM>(&layout));
    }
    if (pane) {
        const RECT& r = layout.rect;
        ::MoveWindow(pane, r.left, r.top, r.right - r.left, r.bottom - r.top, TRUE);
    }
}

void CFrameWnd::OnSize(UINT type, int cx, int cy) {
    CWnd::OnSize(type, cx, cy);
    if (type != SIZE_MINIMIZED)
        RecalcLayout();
}

void CFrameWnd::OnDestroy() {
    // The default menu goes with the window; a shared one stays with its owner.
    if (m_hMenuDefault && ::GetMenu(m_hWnd) != m_hMenuDefault)
        ::SetMenu(m_hWnd, m_hMenuDefault);
    CWnd::OnDestroy();
}

void CFrameWnd::PostNcDestroy() {
    CWinApp* app = AfxGetApp();
    if (app && app->m_pMainWnd == this) {
        app->m_pMainWnd = nullptr;
        ::PostQuitMessage(0);
    }
    delete this;
}

void CFrameWnd::OnSetFocus(CWnd* oldWnd) {
    if (m_pViewActive && m_pViewActive->m_hWnd)
        m_pViewActive->SetFocus();
    else
        CWnd::OnSetFocus(oldWnd);
}

void CFrameWnd::OnClose() {
    CDocument* document = GetActiveDocument();
    if (document && !document->CanCloseFrame(this))
        return;
    CWinApp* app = AfxGetApp();
    if (app && app->m_pMainWnd == this) {
        if (!document && !app->SaveAllModified())
            return;
        app->HideApplication();
        app->CloseAllDocuments(FALSE);
        // Closing the documents may have destroyed this window already.
        if (!app->m_pMainWnd) {
            ::PostQuitMessage(0);
            return;
        }
    }
    if (document && document->m_bAutoDelete) {
        // The document's last frame closes the document with it.
        bool otherFrame = false;
        for (POSITION pos = document->GetFirstViewPosition(); pos && !otherFrame;)
            otherFrame = document->GetNextView(pos)->GetParentFrame() != this;
        if (!otherFrame) {
            document->OnCloseDocument();
            return;
        }
        document->PreCloseFrame(this);
    }
    DestroyWindow();
}

void CFrameWnd::OnUpdateFrameTitle(BOOL addToTitle) {
    if (!(GetStyle() & FWS_ADDTOTITLE))
        return;
    CDocument* document = GetActiveDocument();
    UpdateFrameTitleForDocument(addToTitle && document ? document->GetTitle().GetString()
                                                       : nullptr);
}

void CFrameWnd::UpdateFrameTitleForDocument(LPCTSTR docName) {
    CString title;
    CString name;
    if (docName) {
        name = docName;
        if (m_nWindow > 0) {
            CString number;
            number.Format(u":%d", m_nWindow);
            name += number;
        }
    }
    if (!docName)
        title = m_strTitle;
    else if (GetStyle() & FWS_PREFIXTITLE)
        title = name + u" - " + m_strTitle;
    else
        title = m_strTitle + u" - " + name;
    CString shown;
    GetWindowText(shown);
    if (shown != title)
        SetWindowText(title);
}

HACCEL CFrameWnd::GetDefaultAccelerator() {
    CDocument* document = GetActiveDocument();
    HACCEL own = document ? document->GetDefaultAccelerator() : nullptr;
    return own ? own : m_hAccelTable;
}

BOOL CFrameWnd::PreTranslateMessage(MSG* msg) {
    if (CWnd::PreTranslateMessage(msg))
        return TRUE;
    if (msg->message < WM_KEYFIRST || msg->message > WM_KEYLAST)
        return FALSE;
    HACCEL accelerators = GetDefaultAccelerator();
    return accelerators && ::TranslateAccelerator(m_hWnd, accelerators, msg);
}

BOOL CFrameWnd::OnCmdMsg(UINT id, int code, void* extra, void* handlerInfo) {
    // The active view first (and through it its document and template), then
    // the frame itself, then the application.
    CView* view = GetActiveView();
    if (view && view->OnCmdMsg(id, code, extra, handlerInfo))
        return TRUE;
    if (CWnd::OnCmdMsg(id, code, extra, handlerInfo))
        return TRUE;
    CWinApp* app = AfxGetApp();
    return app && app->OnCmdMsg(id, code, extra, handlerInfo);
}

void CFrameWnd::OnInitMenuPopup(CMenu* popup, UINT, BOOL sysMenu) {
    if (sysMenu || !popup)
        return;
    CCmdUI state;
    state.m_pMenu = popup;
    state.m_nIndexMax = popup->GetMenuItemCount();
    for (state.m_nIndex = 0; state.m_nIndex < state.m_nIndexMax; ++state.m_nIndex) {
        state.m_nID = popup->GetMenuItemID(static_cast<int>(state.m_nIndex));
        // Separators and pop-ups are left as they are.
        if (state.m_nID == 0 || state.m_nID == static_cast<UINT>(-1))
            continue;
        // The system's own commands are never disabled for want of a handler.
        state.DoUpdate(this, m_bAutoMenuEnable && state.m_nID < 0xF000);
        state.m_nIndexMax = popup->GetMenuItemCount();
    }
}
