#include "Win/framework/CPropertyPagePlus.h"

#include "Win/framework/CPropertySheetPlus.h"

IMPLEMENT_DYNCREATE(CPropertyPagePlus, CPropertyPage)

BEGIN_MESSAGE_MAP(CPropertyPagePlus, CPropertyPage)
END_MESSAGE_MAP()

// The framework's full page structure, so the sheet gets every field.
CPropertyPagePlus::CPropertyPagePlus() : CPropertyPage() {
    m_psp.dwSize = sizeof(PROPSHEETPAGE);
}

CPropertyPagePlus::CPropertyPagePlus(UINT nIDTemplate, UINT nIDCaption)
    : CPropertyPage(nIDTemplate, nIDCaption, sizeof(PROPSHEETPAGE)) {}

CPropertyPagePlus::CPropertyPagePlus(LPCTSTR lpszTemplateName, UINT nIDCaption)
    : CPropertyPage(lpszTemplateName, nIDCaption, sizeof(PROPSHEETPAGE)) {}

CPropertyPagePlus::~CPropertyPagePlus() = default;

void CPropertyPagePlus::DoDataExchange(CDataExchange* pDX) {
    CPropertyPage::DoDataExchange(pDX);
}

BOOL CPropertyPagePlus::OnInitDialog() {
    CPropertyPage::OnInitDialog();
    // Any sheet will do: the title is set through what every sheet has.
    if (CPropertySheet* sheet = GetParentSheet())
        CPropertySheetPlus::SetPageTitle(*sheet, this);
    return TRUE;
}

BOOL CPropertyPagePlus::OnKillActive() {
    if (!CPropertyPage::OnKillActive())
        return FALSE;
    CPropertySheet* sheet = GetParentSheet();
    if (sheet && sheet->IsWizard())
        return TRUE;
    return OnWizardNext() == 0;
}

CPropertySheetPlus* CPropertyPagePlus::GetSheetPlus() {
    return dynamic_cast<CPropertySheetPlus*>(GetParentSheet());
}
