// The one-call export of a report-view list control.
#include "Win/export/CExportFile.h"
#include "Win/export/CExportFormatDlg.h"
#include "Win/utils/WinUtils.h"

#include <string>
#include <vector>

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

// Reads a cell's text into buffer, which is reused from cell to cell and
// doubles until the copied text leaves room to spare, so a text of any length
// comes whole. The request is built once and only its cell and buffer change.
// Returns the number of units read.
int ReadCell(HWND list, int row, int column, LVITEM& request, std::vector<WCHAR>& buffer) {
    for (;;) {
        const int size = static_cast<int>(buffer.size());
        request.iSubItem = column;
        request.pszText = buffer.data();
        request.cchTextMax = size;
        const int copied = static_cast<int>(::SendMessage(
            list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&request)));
        if (copied < size - 1)
            return copied;
        buffer.resize(buffer.size() * 2);
    }
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
    std::vector<WCHAR> buffer(256);
    LVITEM request{};
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const int length = ReadCell(list.m_hWnd, row, column, request, buffer);
            file.WriteField(buffer.data(), length);
        }
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
