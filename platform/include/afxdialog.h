// Dialogs of the class framework and the data exchange between a dialog's
// controls and its members. Included from afxwin.h.
#pragma once

#include "afxwnd.h"

// RunModalLoop flags.
#define MLF_NOIDLEMSG 0x0001
#define MLF_NOKICKIDLE 0x0002
#define MLF_SHOWONIDLE 0x0004

// One exchange between a window's controls and its members, in one
// direction: m_bSaveAndValidate TRUE reads the controls.
class CDataExchange {
public:
    CDataExchange(CWnd* dialog, BOOL saveAndValidate);

    BOOL m_bSaveAndValidate;
    CWnd* m_pDlgWnd;
    // The control an exchange is about; throws CNotSupportedException when
    // the window has no such control.
    HWND PrepareCtrl(int id);
    HWND PrepareEditCtrl(int id);
    // Ends a failed validation: the focus goes back to the last control and
    // a CUserException is thrown.
    void Fail();

    int m_idLastControl = 0;
    BOOL m_bEditLastControl = FALSE;
};

// Attaches control to the dialog item id the first time (a failure throws
// CNotSupportedException).
void DDX_Control(CDataExchange* dx, int id, CWnd& control);
void DDX_Text(CDataExchange* dx, int id, CString& value);
void DDX_Text(CDataExchange* dx, int id, int& value);
// Reading takes the combo box's text; writing selects the first item that
// begins with value, or sets the edit text when none does.
void DDX_CBString(CDataExchange* dx, int id, CString& value);
void DDX_Check(CDataExchange* dx, int id, int& value);
// Reports "Enter no more than N characters." and fails when a saved text is
// longer than maxChars.
void DDV_MaxChars(CDataExchange* dx, const CString& value, int maxChars);

class CDialog : public CWnd {
public:
    CDialog();
    explicit CDialog(UINT templateId, CWnd* parent = nullptr);
    explicit CDialog(LPCTSTR templateName, CWnd* parent = nullptr);

    // Runs the dialog modally over its parent (or the application's main
    // window); returns the EndDialog result, or -1 when the template is
    // missing or the dialog could not be created.
    virtual INT_PTR DoModal();
    // A modal dialog on a template in memory rather than a resource.
    BOOL InitModalIndirect(LPCDLGTEMPLATE tmpl, CWnd* parent = nullptr);
    // A modeless dialog.
    virtual BOOL Create(UINT templateId, CWnd* parent = nullptr);
    BOOL CreateIndirect(LPCDLGTEMPLATE tmpl, CWnd* parent = nullptr);
    void EndDialog(int result);
    virtual BOOL OnInitDialog();

    void NextDlgCtrl() const;
    void PrevDlgCtrl() const;
    void GotoDlgCtrl(CWnd* control);
    void SetDefID(UINT id);
    DWORD GetDefID() const;

    BOOL PreTranslateMessage(MSG* msg) override;

    LPCTSTR m_lpszTemplateName = nullptr;
    LPCDLGTEMPLATE m_lpDialogTemplate = nullptr;
    UINT m_nIDHelp = 0;
    CWnd* m_pParentWnd = nullptr;

protected:
    virtual void OnOK();
    virtual void OnCancel();
    // The owner a modal dialog disables: the parent given, else the
    // application's main window.
    HWND PreModal();
    // Builds the dialog from its template: the one in memory, else the one
    // found through the module chain. FALSE when there is none.
    BOOL CreateFromTemplate(HWND owner);
    LPCDLGTEMPLATE FindTemplate(HINSTANCE* module) const;

    DECLARE_MESSAGE_MAP()
};

// A message box with the application's name as its caption; without an icon
// flag, OK and OK/Cancel boxes get the exclamation icon and Yes/No boxes the
// question icon.
int AfxMessageBox(LPCTSTR text, UINT type = MB_OK, UINT helpId = 0);
// The prompt is string promptId of the module chain (empty when missing).
int AfxMessageBox(UINT promptId, UINT type = MB_OK, UINT helpId = static_cast<UINT>(-1));
CWnd* AfxGetMainWnd();
LPCTSTR AfxGetAppName();
