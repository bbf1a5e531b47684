#include "Win/export/CExportFormatDlg.h"

#include <afxdlgs.h>

BEGIN_MESSAGE_MAP(CExportFormatDlg, CDialog)
ON_CBN_EDITCHANGE(CExportFormatDlg::IDC_DELIMITER, OnEditchangeDelimiter)
ON_CBN_EDITCHANGE(CExportFormatDlg::IDC_QUOTE, OnEditchangeQuote)
ON_BN_CLICKED(CExportFormatDlg::IDC_BROWSE, OnBrowseFile)
ON_CBN_SELCHANGE(CExportFormatDlg::IDC_DELIMITER, OnSelchangeDelimiter)
ON_CBN_SELCHANGE(CExportFormatDlg::IDC_QUOTE, OnSelchangeQuote)
ON_BN_CLICKED(CExportFormatDlg::IDC_TITLES, OnTitles)
END_MESSAGE_MAP()

CExportFormatDlg::CExportFormatDlg(CWnd* parent) : CDialog(IDD, parent), m_titlesEnabled(true) {}

CExportFormatDlg::~CExportFormatDlg() = default;

void CExportFormatDlg::DoDataExchange(CDataExchange* dx) {
    CDialog::DoDataExchange(dx);
    DDX_Control(dx, IDC_QUOTE, m_quoteCombo);
    DDX_Control(dx, IDC_DELIMITER, m_delimiterCombo);
    // The delimiter and qualifier go through their setters, which also drop
    // what the format worked out from the old values.
    CString delimiter = m_format.GetDelimiter();
    DDX_CBString(dx, IDC_DELIMITER, delimiter);
    CString quote = m_format.GetQuote();
    DDX_CBString(dx, IDC_QUOTE, quote);
    if (dx->m_bSaveAndValidate) {
        m_format.SetDelimiter(delimiter);
        m_format.SetQuote(quote);
    }
    // The name is assigned as it stands: typing a ".csv" name here does not
    // switch on comma-separated mode.
    DDX_Text(dx, IDC_FILENAME, m_format.m_filename);
    DDX_Check(dx, IDC_TITLES, m_format.m_titles);
    DDX_Check(dx, IDC_APPEND, m_format.m_append);
    DDX_Check(dx, IDC_DATE_IN_NAME, m_format.m_dateInFileName);
    // The titles box a second time: shown from m_titlesShown, read into both.
    DDX_Check(dx, IDC_TITLES, m_format.m_titlesShown);
}

BOOL CExportFormatDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    UpdatePreview();
    if (CWnd* titles = GetDlgItem(IDC_TITLES)) {
        titles->EnableWindow(m_titlesEnabled);
        titles->SendMessage(BM_SETCHECK, static_cast<WPARAM>(m_format.m_titlesShown));
    }
    return TRUE;
}

void CExportFormatDlg::OnEditchangeDelimiter() {
    UpdateData(TRUE);
    UpdatePreview();
}

void CExportFormatDlg::OnEditchangeQuote() {
    UpdateData(TRUE);
    UpdatePreview();
}

CString CExportFormatDlg::SelectedItemText(const CComboBox& combo) {
    CString text;
    int selected = combo.GetCurSel();
    if (selected != CB_ERR)
        combo.GetLBText(selected, text);
    return text;
}

void CExportFormatDlg::OnSelchangeDelimiter() {
    m_format.SetDelimiter(SelectedItemText(m_delimiterCombo));
    UpdatePreview();
}

void CExportFormatDlg::OnSelchangeQuote() {
    m_format.SetQuote(SelectedItemText(m_quoteCombo));
    UpdatePreview();
}

void CExportFormatDlg::OnTitles() {
    UpdateData(TRUE);
    UpdatePreview();
}

void CExportFormatDlg::UpdatePreview() {
    CString titleText;
    titleText.LoadString(IDS_PREVIEW_TITLE);
    CString valueText;
    valueText.LoadString(IDS_PREVIEW_VALUE);

    CString preview;
    auto appendLine = [this, &preview](const CString& text) {
        for (WCHAR digit = u'1'; digit <= u'3'; ++digit)
            preview += m_format.FormatData(text + digit, digit == u'1');
        preview += u"\r\n";
    };
    if (m_format.GetTitles())
        appendLine(titleText);
    appendLine(valueText);
    appendLine(valueText);
    SetDlgItemText(IDC_PREVIEW, preview);
}

void CExportFormatDlg::OnBrowseFile() {
    UpdateData(TRUE);
    CString filter;
    filter.LoadString(IDS_FILE_FILTER);
    constexpr DWORD kFlags = OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST;
    CFileDialog dialog(TRUE, u"txt", m_format.GetFilename(), kFlags, filter, nullptr);
    if (dialog.DoModal() == IDOK)
        SetDlgItemText(IDC_FILENAME, dialog.GetPathName());
}
