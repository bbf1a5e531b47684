// A property sheet for the host's dialogs that, in a wizard, puts its own
// caption before each page's title ("Setup - Options"), so the title bar
// names both, and that takes the default push button away when neither Next
// nor Finish can be pressed. In a tabbed sheet the wizard buttons' message
// does nothing.
#pragma once

#include <afxwin.h>

class CPropertySheetPlus : public CPropertySheet {
    DECLARE_DYNAMIC(CPropertySheetPlus)

public:
    explicit CPropertySheetPlus(UINT nIDCaption, CWnd* pParentWnd = nullptr, UINT iSelectPage = 0);
    explicit CPropertySheetPlus(LPCTSTR pszCaption, CWnd* pParentWnd = nullptr,
                                UINT iSelectPage = 0);
    ~CPropertySheetPlus() override;

    // In a wizard, the page's tab text becomes the sheet's caption (trimmed,
    // and kept trimmed), " - " and the page's title as it was, cut to 255
    // characters. Nothing changes when either is blank.
    void SetPageTitle(CPropertyPage* pPage);
    // The same for a page in any property sheet.
    static void SetPageTitle(CPropertySheet& sheet, CPropertyPage* pPage);

protected:
    LRESULT DefWindowProcW(UINT message, WPARAM wParam, LPARAM lParam) override;

    DECLARE_MESSAGE_MAP()
};
