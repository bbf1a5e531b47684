// The printout wizard: the site named in the header line, then the delivery
// dates (passed over when the header names none), then a summary showing
// the header line as it will print. Finish hands the settings back; Cancel
// leaves them as they were.
#pragma once

#include "PrintoutSettings.h"

#include <Win/Win.h>

class CPrintWizard;

// The first page: the site, and whether the dates are named.
class CHeaderPage : public CPropertyPagePlus {
public:
    explicit CHeaderPage(PrintoutSettings& settings);
    BOOL OnSetActive() override;
    // Past the dates when the header names none.
    LRESULT OnWizardNext() override;

protected:
    void DoDataExchange(CDataExchange* pDX) override;

private:
    PrintoutSettings& m_settings;
};

// The second page: the first and the last date, as year-month-day.
class CDatesPage : public CPropertyPagePlus {
public:
    explicit CDatesPage(PrintoutSettings& settings);
    BOOL OnSetActive() override;
    // Stays, with a message, on a date that does not read or on a range
    // that ends before it begins.
    LRESULT OnWizardNext() override;

    CString m_from;
    CString m_to;

protected:
    void DoDataExchange(CDataExchange* pDX) override;

private:
    PrintoutSettings& m_settings;
};

// The last page: the header line the settings give, and Finish.
class CSummaryPage : public CPropertyPagePlus {
public:
    explicit CSummaryPage(PrintoutSettings& settings);
    BOOL OnSetActive() override;
    // Back to the first page when the dates were passed over.
    LRESULT OnWizardBack() override;

private:
    PrintoutSettings& m_settings;
};

class CPrintWizard : public CPropertySheetPlus {
public:
    // The wizard starts from a copy of settings. DoModal returns
    // ID_WIZFINISH or IDCANCEL.
    CPrintWizard(const PrintoutSettings& settings, CWnd* pParentWnd = nullptr);

    // After Finish, what the user chose.
    PrintoutSettings m_settings;

private:
    CHeaderPage m_header{m_settings};
    CDatesPage m_dates{m_settings};
    CSummaryPage m_summary{m_settings};
};

// The header line the settings give at the time now, as the printout shows
// it; empty when no site is named.
CString HeaderLineOf(const PrintoutSettings& settings, const CString& now);
