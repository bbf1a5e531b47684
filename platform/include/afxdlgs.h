// The framework's common dialogs: the file open and save dialog, and
// property sheets with their pages. Included from afxwin.h.
#pragma once

#include "afxdialog.h"
#include "commctrl.h"
#include "commdlg.h"

#include <vector>

// The file dialog: DoModal runs the platform's file dialog (GetOpenFileName
// or GetSaveFileName) with m_ofn, which the host may adjust between the
// constructor and DoModal. Paths are the platform's POSIX paths.
class CFileDialog : public CDialog {
public:
    // defExt is appended to a typed name that has none; fileName is the
    // initial name (its directory, if it has one, is the initial folder);
    // filter is "Description|pattern;pattern|...||", '|' becoming NUL.
    explicit CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt = nullptr,
                         LPCTSTR lpszFileName = nullptr,
                         DWORD dwFlags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                         LPCTSTR lpszFilter = nullptr, CWnd* pParentWnd = nullptr, DWORD dwSize = 0,
                         BOOL bVistaStyle = TRUE);

    // IDOK once the user chose a file, IDCANCEL when the user cancelled or
    // the request was bad (CommDlgExtendedError tells which).
    INT_PTR DoModal() override;

    // The chosen file's full path, "" before a file was chosen.
    CString GetPathName() const;
    // Its name with the extension.
    CString GetFileName() const;
    // Its extension without the dot.
    CString GetFileExt() const;
    // Its name without the extension.
    CString GetFileTitle() const;
    // The folder that holds it.
    CString GetFolderPath() const;
    OPENFILENAME& GetOFN() { return m_ofn; }

    OPENFILENAME m_ofn{};

protected:
    BOOL m_bOpenFileDialog;
    CString m_strFilter;
    WCHAR m_szFileTitle[MAX_PATH]{};
    // POSIX paths may be long: room for PATH_MAX units.
    WCHAR m_szFileName[4096]{};
};

class CPropertySheet;
class CTabCtrl;

// One page of a property sheet: a dialog from the host's template, made a
// child of the sheet when the sheet first shows it. The sheet's
// notifications come to the virtual handlers below; m_psp describes the page
// to the sheet and may be adjusted before the sheet is created.
class CPropertyPage : public CDialog {
    DECLARE_DYNAMIC(CPropertyPage)

public:
    CPropertyPage();
    // captionId, when not 0, is a string resource that becomes the page's
    // title in place of the template's caption. size is the page
    // structure's size given to the sheet.
    explicit CPropertyPage(UINT templateId, UINT captionId = 0, DWORD size = sizeof(PROPSHEETPAGE));
    explicit CPropertyPage(LPCTSTR templateName, UINT captionId = 0,
                           DWORD size = sizeof(PROPSHEETPAGE));
    void Construct(UINT templateId, UINT captionId = 0);
    void Construct(LPCTSTR templateName, UINT captionId = 0);

    PROPSHEETPAGE m_psp{};

    // Tells the sheet the page has changes to apply (Apply is enabled).
    void SetModified(BOOL changed = TRUE);
    // OK becomes Close and Cancel is disabled.
    void CancelToClose();

    // PSN_SETACTIVE: FALSE refuses the activation. The first time the data
    // exchange has run already (OnInitDialog); later it fills the controls.
    virtual BOOL OnSetActive();
    // PSN_KILLACTIVE: FALSE keeps the page; the default reads the controls
    // (UpdateData) and fails with it.
    virtual BOOL OnKillActive();
    // PSN_APPLY: FALSE keeps the sheet open; the default calls OnOK.
    virtual BOOL OnApply();
    // PSN_RESET: the default calls OnCancel.
    virtual void OnReset();
    void OnOK() override;
    void OnCancel() override;
    // PSN_QUERYCANCEL: FALSE keeps the sheet open.
    virtual BOOL OnQueryCancel();
    // PSN_WIZBACK and PSN_WIZNEXT: 0 goes on by one page, -1 stays, a page's
    // template id goes to that page.
    virtual LRESULT OnWizardBack();
    virtual LRESULT OnWizardNext();
    // PSN_WIZFINISH: FALSE keeps the wizard open.
    virtual BOOL OnWizardFinish();

    BOOL PreTranslateMessage(MSG* msg) override;

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    // The sheet the page is in, or null.
    CPropertySheet* GetParentSheet();
    // A page's template id, as a wizard handler returns it, in the form the
    // sheet looks pages up by.
    LRESULT MapWizardResult(LRESULT toPage);
    // Finds the page's template and points m_psp at it; FALSE when the
    // host has none.
    BOOL PreparePage();

    CString m_strCaption;
    BOOL m_bFirstSetActive = TRUE;

    friend class CPropertySheet;
};

// A property sheet: its pages behind tabs with OK, Cancel and Apply, or, in
// wizard mode (PSH_WIZARD or PSH_WIZARD97 in m_psh.dwFlags), one at a time
// with Back, Next and Finish. The sheet's window is the system's; the object
// subclasses it, so its messages reach the object first.
class CPropertySheet : public CWnd {
    DECLARE_DYNAMIC(CPropertySheet)

public:
    CPropertySheet();
    explicit CPropertySheet(UINT captionId, CWnd* parent = nullptr, UINT selectPage = 0);
    explicit CPropertySheet(LPCTSTR caption, CWnd* parent = nullptr, UINT selectPage = 0);
    ~CPropertySheet() override;
    void Construct(UINT captionId, CWnd* parent = nullptr, UINT selectPage = 0);
    void Construct(LPCTSTR caption, CWnd* parent = nullptr, UINT selectPage = 0);

    PROPSHEETHEADER m_psh{};

    // Runs the sheet modally; returns the id of the button that closed it
    // (IDOK, IDCANCEL, ID_WIZFINISH), or -1 when a page's template is
    // missing or the sheet could not be created.
    virtual INT_PTR DoModal();
    // A modeless sheet.
    virtual BOOL Create(CWnd* parent = nullptr, DWORD style = static_cast<DWORD>(-1),
                        DWORD exStyle = 0);

    void AddPage(CPropertyPage* page);
    void RemovePage(CPropertyPage* page);
    void RemovePage(int index);
    int GetPageCount() const;
    CPropertyPage* GetPage(int index) const;
    // -1 for a page that is not in the sheet.
    int GetPageIndex(CPropertyPage* page);
    CPropertyPage* GetActivePage() const;
    int GetActiveIndex() const;
    // Before the sheet exists, chooses the first page shown.
    BOOL SetActivePage(int index);
    BOOL SetActivePage(CPropertyPage* page);
    CTabCtrl* GetTabControl() const;
    void SetTitle(LPCTSTR text, UINT style = 0);

    void SetWizardMode();
    BOOL IsWizard() const;
    // Posts PSM_SETWIZBUTTONS: PSWIZB_BACK, PSWIZB_NEXT, PSWIZB_FINISH,
    // PSWIZB_DISABLEDFINISH.
    void SetWizardButtons(DWORD flags);
    void SetFinishText(LPCTSTR text);
    // PSBTN_BACK ... PSBTN_HELP, pressed as the user would.
    BOOL PressButton(int button);
    void EndDialog(int result);

    virtual BOOL OnInitDialog();
    BOOL PreTranslateMessage(MSG* msg) override;
    BOOL ContinueModal() override;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);
    // The page handles for m_psh; FALSE when a page has no template.
    BOOL BuildPropPageArray();
    void CommonConstruct(CWnd* parent, UINT selectPage);

    std::vector<CPropertyPage*> m_pages;
    CString m_strCaption;
    CWnd* m_pParentWnd = nullptr;
    BOOL m_bModeless = FALSE;

    DECLARE_MESSAGE_MAP()

private:
    std::vector<HPROPSHEETPAGE> m_pageHandles;
    // The tab control's wrapper that GetTabControl hands out.
    mutable CTabCtrl* m_tabControl = nullptr;
};

// The print dialog: DoModal runs the platform's print dialog (PrintDlg) with
// m_pd, which the host may adjust between the constructor and DoModal. The
// dialog owns the printer's names and settings it returns (m_pd.hDevNames,
// m_pd.hDevMode) and frees them with itself; a DC it creates is the caller's.
class CPrintDialog : public CDialog {
public:
    // bPrintSetupOnly shows only the choice of printer.
    explicit CPrintDialog(BOOL bPrintSetupOnly,
                          DWORD dwFlags = PD_ALLPAGES | PD_USEDEVMODECOPIES | PD_NOPAGENUMS |
                                          PD_HIDEPRINTTOFILE | PD_NOSELECTION,
                          CWnd* pParentWnd = nullptr);
    ~CPrintDialog() override;
    CPrintDialog(const CPrintDialog&) = delete;
    CPrintDialog& operator=(const CPrintDialog&) = delete;

    // IDOK once the user chose, IDCANCEL when the user cancelled or the
    // request was bad (CommDlgExtendedError tells which).
    INT_PTR DoModal() override;
    // The default printer's names and settings, without showing anything;
    // with PD_RETURNDC in m_pd.Flags its DC as well. FALSE when there is
    // none.
    BOOL GetDefaults();

    // The chosen printer: its name, its driver ("WINSPOOL") and where it
    // sends its pages (the PDF printer's file). Empty before a choice.
    CString GetDeviceName() const;
    CString GetDriverName() const;
    CString GetPortName() const;
    // The printer's settings, locked in m_pd.hDevMode; null before a choice.
    LPDEVMODE GetDevMode() const;
    int GetCopies() const;
    BOOL PrintCollate() const { return (m_pd.Flags & PD_COLLATE) != 0; }
    BOOL PrintSelection() const { return (m_pd.Flags & PD_SELECTION) != 0; }
    BOOL PrintAll() const { return !PrintRange() && !PrintSelection(); }
    BOOL PrintRange() const { return (m_pd.Flags & PD_PAGENUMS) != 0; }
    int GetFromPage() const { return PrintRange() ? m_pd.nFromPage : -1; }
    int GetToPage() const { return PrintRange() ? m_pd.nToPage : -1; }
    // A DC for the chosen printer, kept in m_pd.hDC (any earlier one is
    // deleted); null when no printer was chosen or it is gone.
    HDC CreatePrinterDC();
    HDC GetPrinterDC() const { return m_pd.hDC; }

    PRINTDLG m_pd{};
};

// The colour dialog: DoModal runs the platform's colour dialog (ChooseColor)
// with m_cc, which the host may adjust between the constructor and DoModal.
// A non-black initial colour is proposed (CC_RGBINIT); black is not.
class CColorDialog : public CDialog {
public:
    explicit CColorDialog(COLORREF clrInit = 0, DWORD dwFlags = 0, CWnd* pParentWnd = nullptr);

    // IDOK once the user chose a colour, IDCANCEL otherwise.
    INT_PTR DoModal() override;
    // The chosen colour; the initial one until a colour was chosen.
    COLORREF GetColor() const { return m_cc.rgbResult; }
    // The process's 16 custom colours, shared by every colour dialog.
    static COLORREF* GetSavedCustomColors();

    CHOOSECOLOR m_cc{};
};
