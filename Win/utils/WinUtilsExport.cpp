// The one-call export of a report-view list control.
#include "Win/export/CExportFile.h"
#include "Win/export/CExportFormatDlg.h"
#include "Win/utils/WinUtils.h"

namespace {

// Headings are read into a buffer of this many characters, the last one for
// the terminator, so a longer heading is cut.
constexpr int kHeadingBuffer = 256;

CString LoadFormatted(UINT id, const CString& argument) {
    CString format;
    format.LoadString(id);
    CString text;
    text.Format(format, argument.GetString());
    return text;
}

int ColumnCount(CListCtrl& list) {
    CHeaderCtrl* header = list.GetHeaderCtrl();
    return header ? header->GetItemCount() : 0;
}

} // namespace

bool WinUtils::ExportListCtrlData(CListCtrl& list) {
    CExportFormatDlg dialog(nullptr);
    if (dialog.DoModal() != IDOK)
        return false;

    CExportFile file(dialog.m_format, false, false);
    if (!file.Open(false)) {
        AfxMessageBox(LoadFormatted(IDS_EXPORT_OPEN_FAILED, file.GetError()), MB_OK | MB_ICONSTOP);
        return false;
    }
    CWaitCursor wait;

    const int rows = list.GetItemCount();
    const int columns = ColumnCount(list);
    if (dialog.m_format.GetTitles()) {
        WCHAR heading[kHeadingBuffer];
        for (int column = 0; column < columns; ++column) {
            heading[0] = 0;
            LVCOLUMN info{};
            info.mask = LVCF_TEXT;
            info.pszText = heading;
            info.cchTextMax = kHeadingBuffer;
            list.GetColumn(column, &info);
            file.WriteField(CString(heading));
        }
        file.WriteNewline();
    }
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column)
            file.WriteField(list.GetItemText(row, column));
        file.WriteNewline();
    }
    file.Close();

    CString name = dialog.m_format.GetFilename();
    if (dialog.m_format.m_dateInFileName) {
        AppendDateToFileName(name);
        dialog.m_format.SetFilename(name);
    }
    AfxMessageBox(LoadFormatted(IDS_EXPORT_DONE, name), MB_OK | MB_ICONINFORMATION);
    return true;
}
