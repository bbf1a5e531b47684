// A property page for the host's dialogs. In a wizard its title joins the
// sheet's caption in the title bar (CPropertySheetPlus::SetPageTitle). Its
// OnWizardNext, the check whether the page may be left, guards the page in
// an ordinary tabbed sheet as well: on switching tabs and on OK.
#pragma once

#include <afxwin.h>

class CPropertySheetPlus;

class CPropertyPagePlus : public CPropertyPage {
    DECLARE_DYNCREATE(CPropertyPagePlus)

public:
    CPropertyPagePlus();
    explicit CPropertyPagePlus(UINT nIDTemplate, UINT nIDCaption = 0);
    explicit CPropertyPagePlus(LPCTSTR lpszTemplateName, UINT nIDCaption = 0);
    ~CPropertyPagePlus() override;

    // Runs once, when the sheet first shows the page: the dialog's
    // initialisation, then the page's title in a wizard. The focus is left
    // to the system.
    BOOL OnInitDialog() override;
    // The data exchange first; then, outside a wizard, the page may be left
    // only when OnWizardNext returns 0.
    BOOL OnKillActive() override;

    // The sheet the page is in when it is a CPropertySheetPlus, else null.
    CPropertySheetPlus* GetSheetPlus();

protected:
    void DoDataExchange(CDataExchange* pDX) override;

    DECLARE_MESSAGE_MAP()
};
