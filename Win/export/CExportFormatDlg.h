// The modal dialog in which the user chooses the settings of a delimited
// export: delimiter, text qualifier, file name, column titles, appending and
// a dated file name. A preview shows three sample columns formatted exactly
// as the export will write them. The template and its strings belong to the
// host; the dialog refers to them by id.
#pragma once

#include "Win/export/CExportFormat.h"

#include <afxwin.h>

class CExportFormatDlg : public CDialog {
public:
    explicit CExportFormatDlg(CWnd* parent = nullptr);
    ~CExportFormatDlg() override;

    // The settings being edited: set them before DoModal, read them after IDOK.
    CExportFormat m_format;

    // The host's resources.
    static constexpr UINT IDD = 234;
    static constexpr UINT IDC_PREVIEW = 1238;
    static constexpr UINT IDC_DELIMITER = 1245;
    static constexpr UINT IDC_QUOTE = 1246;
    static constexpr UINT IDC_FILENAME = 1247;
    static constexpr UINT IDC_BROWSE = 1248;
    static constexpr UINT IDC_TITLES = 1249;
    static constexpr UINT IDC_APPEND = 1629;
    static constexpr UINT IDC_DATE_IN_NAME = 1649;
    static constexpr UINT IDS_FILE_FILTER = 422;
    static constexpr UINT IDS_PREVIEW_TITLE = 695;
    static constexpr UINT IDS_PREVIEW_VALUE = 696;

protected:
    void DoDataExchange(CDataExchange* dx) override;
    BOOL OnInitDialog() override;

    void OnEditchangeDelimiter();
    void OnEditchangeQuote();
    void OnSelchangeDelimiter();
    void OnSelchangeQuote();
    void OnTitles();
    void OnBrowseFile();

    CComboBox m_quoteCombo;
    CComboBox m_delimiterCombo;
    // Whether box IDC_TITLES can be used; it is exchanged either way.
    bool m_titlesEnabled;

private:
    // Rebuilds the preview: a titles line when the format writes titles, then
    // two lines of values.
    void UpdatePreview();
    // The selected list item's text, or empty when nothing is selected.
    static CString SelectedItemText(const CComboBox& combo);

    DECLARE_MESSAGE_MAP()
};
