// A modal warning with a check box by which the user switches it off: once
// ticked, later warnings with the same profile entry close at once as if OK
// had been pressed. The box's state lives in the application's profile,
// section "WarningDlg".
#pragma once

#include <afxwin.h>

class CWarningDlg : public CDialog {
public:
    CWarningDlg(const CString& text, const CString& profileEntry, CWnd* parent = nullptr);
    ~CWarningDlg() override;

    BOOL OnInitDialog() override;

    // The host's resources: the dialog template, the control that shows the
    // text and the check box.
    static constexpr UINT IDD = 261;
    static constexpr UINT IDC_TEXT = 1166;
    static constexpr UINT IDC_DISABLE = 1260;

protected:
    void DoDataExchange(CDataExchange* dx) override;
    // Stores the box's state at every click, not when the dialog closes.
    void OnDisable();

    CString m_text;
    CString m_profileEntry;

    DECLARE_MESSAGE_MAP()
};
