// CDialog: modal and modeless dialogs on the dialog manager, with the
// framework's own dialog procedure calling OnInitDialog.
#include <afxwin.h>
#include <platform/ResourceChain.h>

namespace platform::afx {
CWnd* HookWindowCreate(CWnd* wnd);
void UnhookWindowCreate(CWnd* previous);
BOOL WalkPreTranslateTree(MSG* msg);

// The procedure the dialog manager calls for the framework's dialogs and
// property pages: the framework handles everything in the window object's
// message map, except WM_INITDIALOG.
INT_PTR FrameworkDialogProc(HWND hwnd, UINT message, WPARAM, LPARAM) {
    if (message != WM_INITDIALOG)
        return FALSE;
    auto* dialog = dynamic_cast<CDialog*>(CWnd::FromHandlePermanent(hwnd));
    return dialog ? dialog->OnInitDialog() : TRUE;
}

} // namespace platform::afx

using platform::afx::FrameworkDialogProc;

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, OnOK)
ON_COMMAND(IDCANCEL, OnCancel)
END_MESSAGE_MAP()

CDialog::CDialog() = default;

CDialog::CDialog(UINT templateId, CWnd* parent)
    : m_lpszTemplateName(reinterpret_cast<LPCTSTR>(static_cast<uintptr_t>(templateId))),
      m_nIDHelp(templateId), m_pParentWnd(parent) {}

CDialog::CDialog(LPCTSTR templateName, CWnd* parent)
    : m_lpszTemplateName(templateName), m_pParentWnd(parent) {}

BOOL CDialog::InitModalIndirect(LPCDLGTEMPLATE tmpl, CWnd* parent) {
    m_lpDialogTemplate = tmpl;
    m_pParentWnd = parent;
    return tmpl != nullptr;
}

HWND CDialog::PreModal() {
    if (m_pParentWnd && m_pParentWnd->m_hWnd)
        return m_pParentWnd->GetTopLevelParent()->m_hWnd;
    CWnd* main = AfxGetMainWnd();
    return main ? main->m_hWnd : nullptr;
}

BOOL CDialog::CreateFromTemplate(HWND owner) {
    HINSTANCE module = nullptr;
    LPCDLGTEMPLATE tmpl = FindTemplate(&module);
    if (!tmpl)
        return FALSE;
    CWnd* previous = platform::afx::HookWindowCreate(this);
    HWND hwnd = ::CreateDialogIndirectParam(module, tmpl, owner, FrameworkDialogProc, 0);
    platform::afx::UnhookWindowCreate(previous);
    return hwnd != nullptr;
}

INT_PTR CDialog::DoModal() {
    if (!FindTemplate(nullptr))
        return -1;
    HWND owner = PreModal();
    bool enableOwner = false;
    if (owner && owner != ::GetDesktopWindow() && ::IsWindowEnabled(owner)) {
        ::EnableWindow(owner, FALSE);
        enableOwner = true;
    }
    m_nModalResult = -1;
    m_nFlags |= WF_CONTINUEMODAL;
    if (CreateFromTemplate(owner) && (m_nFlags & WF_CONTINUEMODAL))
        RunModalLoop(ModalLoopFlags());
    EndModalWindow(owner, enableOwner);
    m_nFlags &= ~static_cast<UINT>(WF_CONTINUEMODAL);
    return m_nModalResult;
}

BOOL CDialog::Create(UINT templateId, CWnd* parent) {
    m_lpszTemplateName = reinterpret_cast<LPCTSTR>(static_cast<uintptr_t>(templateId));
    m_pParentWnd = parent;
    return CreateFromTemplate(parent ? parent->m_hWnd : nullptr);
}

BOOL CDialog::CreateIndirect(LPCDLGTEMPLATE tmpl, CWnd* parent) {
    m_lpDialogTemplate = tmpl;
    m_pParentWnd = parent;
    return CreateFromTemplate(parent ? parent->m_hWnd : nullptr);
}

void CDialog::EndDialog(int result) {
    if (m_nFlags & (WF_MODALLOOP | WF_CONTINUEMODAL))
        EndModalLoop(result);
    ::EndDialog(m_hWnd, result);
}

BOOL CDialog::OnInitDialog() {
    // The template's list items go in first, so that the data exchange can
    // select among them.
    if ((m_lpszTemplateName && !ExecuteDlgInit(m_lpszTemplateName)) || !UpdateData(FALSE)) {
        EndDialog(-1);
        return FALSE;
    }
    return TRUE;
}

void CDialog::OnOK() {
    if (!UpdateData(TRUE))
        return;
    EndDialog(IDOK);
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

void CDialog::NextDlgCtrl() const {
    ::SendMessage(m_hWnd, WM_NEXTDLGCTL, 0, 0);
}

void CDialog::PrevDlgCtrl() const {
    ::SendMessage(m_hWnd, WM_NEXTDLGCTL, 1, 0);
}

void CDialog::GotoDlgCtrl(CWnd* control) {
    if (control)
        ::SendMessage(m_hWnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control->m_hWnd), 1);
}

void CDialog::SetDefID(UINT id) {
    ::SendMessage(m_hWnd, DM_SETDEFID, id, 0);
}

DWORD CDialog::GetDefID() const {
    return static_cast<DWORD>(::SendMessage(m_hWnd, DM_GETDEFID, 0, 0));
}

BOOL CDialog::PreTranslateMessage(MSG* msg) {
    // Keyboard and mouse input for the dialog goes through the dialog
    // manager, which handles Tab, Enter and Escape.
    bool input = (msg->message >= WM_KEYDOWN && msg->message <= 0x0109) ||
                 (msg->message >= WM_MOUSEMOVE && msg->message <= 0x020E);
    if (!input || !m_hWnd)
        return FALSE;
    return ::IsDialogMessage(m_hWnd, msg);
}

LPCDLGTEMPLATE CDialog::FindTemplate(HINSTANCE* module) const {
    if (module)
        *module = nullptr;
    if (m_lpDialogTemplate || !m_lpszTemplateName)
        return m_lpDialogTemplate;
    platform::FoundResource<platform::DialogTemplate> found =
        platform::FindDialogTemplate(platform::MakeResourceName(m_lpszTemplateName));
    if (module)
        *module = found.module;
    return found.resource;
}
