// The printout wizard's pages and sheet.
#include "PrintWizard.h"

#include "resource.h"

#include <Utils.h>

namespace {

// A date as the header line prints it.
CString DateText(const COleDateTime& date) {
    return date.Format(Utils::GetDefaultDateFormatSpecifier());
}

} // namespace

CString HeaderLineOf(const PrintoutSettings& settings, const CString& now) {
    // The library composes the line; a document that prints nothing asks it.
    CListPrintDoc doc(nullptr, settings.site, ID_FILE_PRINT, settings.includeDates, settings.from,
                      settings.to);
    return CListPrintView::HeaderText(doc, now);
}

CHeaderPage::CHeaderPage(PrintoutSettings& settings)
    : CPropertyPagePlus(IDD_WIZARD_HEADER), m_settings(settings) {}

BOOL CHeaderPage::OnSetActive() {
    GetParentSheet()->SetWizardButtons(PSWIZB_NEXT);
    return CPropertyPagePlus::OnSetActive();
}

LRESULT CHeaderPage::OnWizardNext() {
    if (!UpdateData(TRUE))
        return -1;
    return m_settings.includeDates ? 0 : IDD_WIZARD_SUMMARY;
}

void CHeaderPage::DoDataExchange(CDataExchange* pDX) {
    CPropertyPagePlus::DoDataExchange(pDX);
    DDX_Text(pDX, IDC_SYSTEM_NAME, m_settings.site);
    DDX_Check(pDX, IDC_INCLUDE_DATES, m_settings.includeDates);
}

CDatesPage::CDatesPage(PrintoutSettings& settings)
    : CPropertyPagePlus(IDD_WIZARD_DATES), m_from(DateText(settings.from)),
      m_to(DateText(settings.to)), m_settings(settings) {}

BOOL CDatesPage::OnSetActive() {
    GetParentSheet()->SetWizardButtons(PSWIZB_BACK | PSWIZB_NEXT);
    return CPropertyPagePlus::OnSetActive();
}

LRESULT CDatesPage::OnWizardNext() {
    if (!UpdateData(TRUE))
        return -1;
    COleDateTime from;
    COleDateTime to;
    if (!from.ParseDateTime(m_from, VAR_DATEVALUEONLY)) {
        AfxMessageBox(IDS_BAD_DATE, MB_ICONEXCLAMATION);
        GotoDlgCtrl(GetDlgItem(IDC_DATE_FROM));
        return -1;
    }
    if (!to.ParseDateTime(m_to, VAR_DATEVALUEONLY)) {
        AfxMessageBox(IDS_BAD_DATE, MB_ICONEXCLAMATION);
        GotoDlgCtrl(GetDlgItem(IDC_DATE_TO));
        return -1;
    }
    if (to < from) {
        AfxMessageBox(IDS_DATES_REVERSED, MB_ICONEXCLAMATION);
        GotoDlgCtrl(GetDlgItem(IDC_DATE_TO));
        return -1;
    }
    m_settings.from = from;
    m_settings.to = to;
    return 0;
}

void CDatesPage::DoDataExchange(CDataExchange* pDX) {
    CPropertyPagePlus::DoDataExchange(pDX);
    DDX_Text(pDX, IDC_DATE_FROM, m_from);
    DDX_Text(pDX, IDC_DATE_TO, m_to);
}

CSummaryPage::CSummaryPage(PrintoutSettings& settings)
    : CPropertyPagePlus(IDD_WIZARD_SUMMARY), m_settings(settings) {}

BOOL CSummaryPage::OnSetActive() {
    CString line = HeaderLineOf(m_settings, Utils::GetCurrentDateAndTime());
    if (line.IsEmpty())
        line = CResourceString(IDS_NO_HEADER_LINE);
    SetDlgItemText(IDC_SUMMARY, line);
    GetParentSheet()->SetWizardButtons(PSWIZB_BACK | PSWIZB_FINISH);
    return CPropertyPagePlus::OnSetActive();
}

LRESULT CSummaryPage::OnWizardBack() {
    return m_settings.includeDates ? 0 : IDD_WIZARD_HEADER;
}

CPrintWizard::CPrintWizard(const PrintoutSettings& settings, CWnd* pParentWnd)
    : CPropertySheetPlus(IDS_PRINT_WIZARD, pParentWnd), m_settings(settings) {
    AddPage(&m_header);
    AddPage(&m_dates);
    AddPage(&m_summary);
    SetWizardMode();
}
