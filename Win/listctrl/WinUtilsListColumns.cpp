// A list's column layout kept in the application's profile.
#include "Win/print/CGXUtils.h"
#include "Win/print/StringTokenizerStream.h"
#include "Win/utils/CResourceString.h"
#include "Win/utils/WinUtils.h"

namespace {

const WCHAR kEntry[] = u"ListColumns";
// Headings are read into a buffer of this many characters, the last for the
// terminating zero.
constexpr int kHeadingBuffer = 64;

// Reads one "heading;width" of a column specification; the ";" after the
// width is the caller's.
CString ReadHeadingAndWidth(Tokenizer& tokenizer, int& width) {
    CString heading = tokenizer.ReadUntil(u";");
    tokenizer.Match(u';');
    width = tokenizer.ReadInt();
    return heading;
}

// True when stored names the same headings as builtIn, in the same order,
// both well formed; the widths may differ.
bool SameHeadings(const CString& stored, const CString& builtIn) {
    StringTokenizerStream builtInStream(builtIn);
    StringTokenizerStream storedStream(stored);
    Tokenizer builtInColumns(builtInStream, true, 0);
    Tokenizer storedColumns(storedStream, true, 0);
    try {
        while (!builtInColumns.Eof()) {
            int width = 0;
            const CString expected = ReadHeadingAndWidth(builtInColumns, width);
            const CString heading = ReadHeadingAndWidth(storedColumns, width);
            if (heading != expected)
                return false;
            builtInColumns.Match(u';');
            storedColumns.Match(u';');
        }
        return storedColumns.Eof();
    } catch (const TokenizerException&) {
        return false;
    }
}

void InsertColumns(CListCtrl& list, const CString& spec) {
    StringTokenizerStream stream(spec);
    Tokenizer tokenizer(stream, true, 0);
    try {
        for (int column = 0; !tokenizer.Eof(); ++column) {
            int width = 0;
            const CString heading = ReadHeadingAndWidth(tokenizer, width);
            tokenizer.Match(u';');
            list.InsertColumn(column, heading, LVCFMT_LEFT, width, -1);
        }
    } catch (const TokenizerException&) {
        AfxMessageBox(CResourceString(CGXUtils::IDS_COLUMN_SPEC_ERROR), MB_ICONSTOP);
    }
}

} // namespace

void WinUtils::SaveListColumns(const CListCtrl& list, const CString& section) {
    CString spec;
    int columns = 0;
    for (;; ++columns) {
        WCHAR heading[kHeadingBuffer] = {};
        LVCOLUMN column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.pszText = heading;
        column.cchTextMax = kHeadingBuffer;
        if (!list.GetColumn(columns, &column))
            break;
        CString entry;
        entry.Format(u"%s;%d;", heading, column.cx);
        spec += entry;
    }
    CWinApp* app = AfxGetApp();
    if (columns >= 2 && app)
        app->WriteProfileString(section, kEntry, spec);
}

void WinUtils::RestoreListColumns(CListCtrl& list, const CString& section, const CString& builtIn) {
    // Without an application there is no profile: nothing is stored.
    CWinApp* app = AfxGetApp();
    CString spec = app ? app->GetProfileString(section, kEntry, builtIn) : builtIn;
    if (spec != builtIn && !SameHeadings(spec, builtIn))
        spec = builtIn;
    InsertColumns(list, spec);
}
