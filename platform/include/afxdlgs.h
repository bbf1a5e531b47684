// The framework's common dialogs: the file open and save dialog. Included
// from afxwin.h.
#pragma once

#include "afxdialog.h"
#include "commdlg.h"

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
