// Takes arbitrary bytes as a column specification (UTF-8, or UTF-16LE after a
// leading 0xFF byte) and reads it three ways: as grid columns, as a list's
// built-in column layout, and as the layout stored in the profile against a
// fixed built-in one. Each must give exactly the columns a plain reading of
// the text finds, and the host's message exactly when the text is malformed
// (never for a stored layout). Any other outcome traps.
#include <ScratchProfile.h>
#include <Win/Win.h>
#include <platform/Automation.h>
#include <platform/CodePage.h>
#include <platform/GdiObjects.h>
#include <tchar.h>

#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

namespace automation = platform::automation;

void Check(bool condition) {
    if (!condition)
        __builtin_trap();
}

struct Entry {
    std::u16string title;
    int width;
};

bool IsBlank(char16_t c) {
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

// The entries "title;width;" of text in order, up to the first malformed
// one; true when the whole text is well formed.
bool Read(const std::u16string& text, std::vector<Entry>& entries) {
    std::size_t pos = 0;
    const std::size_t n = text.size();
    while (pos < n) {
        const std::size_t semicolon = text.find(u';', pos);
        if (semicolon == std::u16string::npos)
            return false;
        Entry entry{text.substr(pos, semicolon - pos), 0};
        pos = semicolon + 1;
        while (pos < n && IsBlank(text[pos]))
            ++pos;
        bool negative = false;
        if (pos < n && (text[pos] == u'+' || text[pos] == u'-'))
            negative = text[pos++] == u'-';
        long long magnitude = 0;
        const std::size_t digits = pos;
        while (pos < n && text[pos] >= u'0' && text[pos] <= u'9') {
            magnitude = magnitude * 10 + (text[pos++] - u'0');
            if (magnitude > static_cast<long long>(INT_MAX) + 1)
                return false;
        }
        if (pos == digits || magnitude > static_cast<long long>(INT_MAX) + (negative ? 1 : 0))
            return false;
        entry.width = static_cast<int>(negative ? -magnitude : magnitude);
        while (pos < n && IsBlank(text[pos]))
            ++pos;
        if (pos >= n || text[pos] != u';')
            return false;
        ++pos;
        entries.push_back(entry);
    }
    return true;
}

// Text as a window or a profile keeps it: up to the first zero.
std::u16string UpToZero(const std::u16string& text) {
    return text.substr(0, text.find(u'\0'));
}

std::u16string Decode(const uint8_t* data, size_t size) {
    if (size > 0 && data[0] == 0xFF) {
        std::u16string text;
        for (size_t i = 1; i + 1 < size; i += 2)
            text.push_back(static_cast<char16_t>(data[i] | (data[i + 1] << 8)));
        return text;
    }
    const CString text =
        platform::FromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
    return std::u16string(text.GetString(), static_cast<std::size_t>(text.GetLength()));
}

// A private profile file, in memory where the system offers one.
const std::u16string& ProfilePath() {
    static const std::u16string path = [] {
        const CString name = platform::FromUtf8(fuzz::MakeScratchProfile("columns-fuzz"));
        return std::u16string(name.GetString());
    }();
    return path;
}

// One report list, emptied for every input. Its window stays hidden: what it
// would paint is not what is fuzzed here, and painting would cost most of
// the time.
CListCtrl& List() {
    static CWnd* parent = [] {
        auto* wnd = new CWnd;
        Check(wnd->CreateEx(0, nullptr, u"columns", WS_OVERLAPPED, CRect(0, 0, 400, 200), nullptr,
                            0));
        return wnd;
    }();
    static CListCtrl* list = [] {
        auto* l = new CListCtrl;
        Check(l->Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 380, 180), parent, 1));
        return l;
    }();
    while (list->DeleteColumn(0)) {
    }
    return *list;
}

std::vector<Entry> ListColumns(const CListCtrl& list) {
    std::vector<Entry> columns;
    static std::vector<WCHAR> text(8192);
    for (int i = 0;; ++i) {
        LVCOLUMN column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.pszText = text.data();
        column.cchTextMax = static_cast<int>(text.size());
        if (!list.GetColumn(i, &column))
            return columns;
        columns.push_back({std::u16string(text.data()), column.cx});
    }
}

// The list shows entries as read: headings up to a zero, negative widths as
// none, -1 (no width) fitted to the heading.
void CheckList(const std::vector<Entry>& shown, const std::vector<Entry>& entries) {
    Check(shown.size() == entries.size());
    for (std::size_t i = 0; i < shown.size(); ++i) {
        Check(shown[i].title == UpToZero(entries[i].title));
        if (entries[i].width != -1)
            Check(shown[i].width == (entries[i].width < 0 ? 0 : entries[i].width));
        Check(shown[i].width >= 0);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // A message box with nothing queued is cancelled at once; the record of
    // the simulated user is dropped for every input.
    automation::Reset();
    // Every object an input creates is gone after it; a first message box
    // creates what message boxes share for the life of the process.
    static const platform::GdiCounts baseline = [] {
        AfxMessageBox(u"warm-up", MB_ICONERROR);
        automation::Reset();
        return platform::LiveGdiObjects();
    }();

    const std::u16string text = Decode(data, size);
    const CString spec(text.data(), static_cast<int>(text.size()));
    std::vector<Entry> entries;
    const bool wellFormed = Read(text, entries);

    // Grid columns: the faulty entry's column is counted too.
    CGXGridCore grid;
    CGXUtils::CreateColumns(grid, spec);
    Check(automation::CancelsForWantOfActions() == (wellFormed ? 0 : 1));
    Check(grid.GetRowCount() == 0);
    Check(grid.GetColCount() == static_cast<int>(entries.size()) + (wellFormed ? 0 : 1));
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const int col = static_cast<int>(i) + 1;
        Check(std::u16string(grid.GetValueRowCol(0, col).GetString(),
                             static_cast<std::size_t>(grid.GetValueRowCol(0, col).GetLength())) ==
              entries[i].title);
        Check(grid.GetColWidth(col) == (entries[i].width < 0 ? 0 : entries[i].width));
    }

    CWinApp app(u"fuzz");
    app.m_pszProfileName = _tcsdup(ProfilePath().c_str());

    // The text as the built-in layout, nothing stored: its columns, and the
    // message when it is malformed.
    CListCtrl& list = List();
    WinUtils::RestoreListColumns(list, u"Nothing stored", spec);
    Check(automation::CancelsForWantOfActions() == (wellFormed ? 0 : 2));
    CheckList(ListColumns(list), entries);

    // The text as the stored layout: the built-in headings, whatever the
    // widths, and never a message.
    app.WriteProfileString(u"Stored", u"ListColumns", spec);
    CListCtrl& restored = List();
    WinUtils::RestoreListColumns(restored, u"Stored", u"Name;120;Size;60;Date;80;");
    Check(automation::CancelsForWantOfActions() == (wellFormed ? 0 : 2));
    const std::vector<Entry> columns = ListColumns(restored);
    Check(columns.size() == 3 && columns[0].title == u"Name" && columns[1].title == u"Size" &&
          columns[2].title == u"Date");
    WinUtils::SaveListColumns(restored, u"Saved");

    List();
    Check(platform::LiveGdiObjects() == baseline);
    return 0;
}
