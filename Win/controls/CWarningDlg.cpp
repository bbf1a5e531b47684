#include "Win/controls/CWarningDlg.h"

namespace {
constexpr const WCHAR* kSection = u"WarningDlg";
}

BEGIN_MESSAGE_MAP(CWarningDlg, CDialog)
ON_BN_CLICKED(CWarningDlg::IDC_DISABLE, OnDisable)
END_MESSAGE_MAP()

CWarningDlg::CWarningDlg(const CString& text, const CString& profileEntry, CWnd* parent)
    : CDialog(IDD, parent), m_text(text), m_profileEntry(profileEntry) {}

CWarningDlg::~CWarningDlg() = default;

void CWarningDlg::DoDataExchange(CDataExchange* dx) {
    CDialog::DoDataExchange(dx);
}

BOOL CWarningDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    SetDlgItemText(IDC_TEXT, m_text);
    // A warning the user switched off closes as soon as the dialog's loop
    // runs, as if OK had been pressed.
    CWinApp* app = AfxGetApp();
    if (app && app->GetProfileInt(kSection, m_profileEntry, 0) != 0)
        PostMessage(WM_COMMAND, IDOK, 0);
    return TRUE;
}

void CWarningDlg::OnDisable() {
    CWnd* box = GetDlgItem(IDC_DISABLE);
    int state = box ? static_cast<int>(box->SendMessage(BM_GETCHECK)) : 0;
    if (CWinApp* app = AfxGetApp())
        app->WriteProfileInt(kSection, m_profileEntry, state);
}
