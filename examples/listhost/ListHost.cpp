// The list host: a window with a report list of 30 deliveries (names, dates,
// quantities and prices, some cells empty or not what their column expects).
// The simulated user sorts it by each column through clicks on the headings
// (the first click ascending, the second descending), widens a column, copies
// a row to the clipboard and pastes it back as a new row, and puts a picture
// of the list on the clipboard. The column layout is kept in the profile when
// the window closes; a second run of the host (a new process sharing the
// profile) shows the list with the widths the user left.
//
//   list_host OUT            the first run; starts the second itself
//   list_host OUT --again    the second run
#include <Win/Win.h>
#include <tchar.h>

#include <platform/Automation.h>
#include <platform/GdiObjects.h>
#include <platform/MessagePump.h>
#include <platform/WindowPictures.h>

#include "resource.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

namespace automation = platform::automation;

constexpr const WCHAR* kSection = u"Deliveries";
// The host's own layout: heading;width; for each column.
constexpr const WCHAR* kBuiltInColumns = u"Item;140;Received;110;Quantity;70;Price;70;Note;170;";
constexpr int kColumns = 5;

struct Delivery {
    const char16_t* item;
    const char16_t* received;
    const char16_t* quantity;
    const char16_t* price;
    const char16_t* note;
};

// Text, dates in the forms users type, integers and decimals, with empty and
// malformed cells among them.
const Delivery kDeliveries[] = {
    {u"Copper wire", u"3/14/2024", u"120", u"4.75", u""},
    {u"bolts M6", u"2024-01-05", u"2500", u"0.08", u"loose"},
    {u"Anchor plates", u"March 3, 2023", u"40", u"12.5", u""},
    {u"Cable ties", u"", u"", u"", u"count missing"},
    {u"Brass fittings", u"12/1/2023 9:30 AM", u"-3", u"7.2", u"returned"},
    {u"aluminium sheet", u"6/30/2024", u"15", u"1e2", u""},
    {u"Hinges", u"not yet", u"x", u"abc", u"malformed row"},
    {u"Washers", u"1/2/2024", u"10000", u".25", u""},
    {u"Steel beams", u"2023-11-20", u"8", u"450", u"crane needed"},
    {u"Paint, white", u"Jan 15, 2024", u"24", u"18.99", u""},
    {u"Sandpaper", u"2/29/2024", u" 300", u"0.5", u"leading space"},
    {u"Epoxy", u"4/1/2024", u"60", u"9.95", u""},
    {u"Copper pipe", u"7/4/2023", u"75", u"3.1", u""},
    {u"Screws 4x40", u"2024-02-10", u"5000", u"0.02", u"bulk"},
    {u"Gaskets", u"31/31/2024", u"200", u"1.05", u"bad date"},
    {u"Rivets", u"10/10/2023", u"900", u"0.04", u""},
    {u"Drill bits", u"5/5/2024", u"30", u"2.49", u""},
    {u"Glue sticks", u"", u"150", u"0.3", u"no date"},
    {u"Insulation", u"9/9/2023", u"12", u"55", u""},
    {u"Lumber 2x4", u"8/15/2024", u"320", u"3.65", u""},
    {u"Nails", u"2024-03-01", u"12000", u"0.01", u""},
    {u"Silicone", u"11/11/2023", u"48", u"6.4", u""},
    {u"Tape measure", u"12/24/2023", u"6", u"14", u"gift"},
    {u"Zip ties", u"2/2/2024", u"1000", u"0.03", u""},
    {u"Valves", u"6/1/2024", u"18", u"22.5", u""},
    {u"Fuses", u"1/1/2024", u"250", u"0.9", u""},
    {u"Conduit", u"4/20/2024", u"90", u"2.2", u""},
    {u"Brackets", u"3/3/2024", u"16", u"-1.5", u"credit"},
    {u"Ladder", u"7/7/2024", u"1", u"120", u""},
    {u"wood stain", u"8/8/2023", u"36", u"11.75", u""},
};

// The application: its profile lies in the output folder, so the second run
// finds what the first one stored.
class ListHostApp : public CWinApp {
public:
    explicit ListHostApp(const std::string& profile) : CWinApp(u"List Host") {
        free(const_cast<WCHAR*>(m_pszProfileName));
        m_pszProfileName = _wcsdup(platform::FromUtf8(profile).GetString());
    }
};

// The host's window: the list sorts by the clicked column, each column in the
// way its contents read, and keeps its layout in the profile.
class CListHostDlg : public CDialog {
public:
    CListHostDlg() : CDialog(IDD_LIST_HOST) {}

    CListCtrl m_list;

    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        m_list.SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT,
                           LVS_EX_FULLROWSELECT);
        WinUtils::RestoreListColumns(m_list, kSection, kBuiltInColumns);
        int row = 0;
        for (const Delivery& d : kDeliveries) {
            m_list.InsertItem(row, d.item);
            m_list.SetItemText(row, 1, d.received);
            m_list.SetItemText(row, 2, d.quantity);
            m_list.SetItemText(row, 3, d.price);
            m_list.SetItemText(row, 4, d.note);
            m_list.SetItemData(row, static_cast<DWORD_PTR>(row));
            ++row;
        }
        return TRUE;
    }

    void OnDestroy() {
        WinUtils::SaveListColumns(m_list, kSection);
        CDialog::OnDestroy();
    }

protected:
    void DoDataExchange(CDataExchange* dx) override {
        CDialog::DoDataExchange(dx);
        DDX_Control(dx, IDC_LIST, m_list);
    }

    void OnColumnClick(NMHDR* header, LRESULT* result) {
        const int column = reinterpret_cast<NMLISTVIEW*>(header)->iSubItem;
        switch (column) {
        case 1:
            m_sorter.SortListCtrlByDateTime(m_list, column);
            break;
        case 2:
            m_sorter.SortListCtrlByInteger(m_list, column);
            break;
        case 3:
            m_sorter.SortListCtrlByDouble(m_list, column);
            break;
        default:
            m_sorter.SortListCtrl(m_list, column);
            break;
        }
        CString status;
        status.Format(u"Sorted by column %d, %s.", column + 1,
                      m_sorter.GetSortOrder() ? u"ascending" : u"descending");
        SetDlgItemText(IDC_STATUS, status);
        *result = 0;
    }

    CListCtrlSorter m_sorter;

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CListHostDlg, CDialog)
ON_NOTIFY(LVN_COLUMNCLICK, IDC_LIST, OnColumnClick)
ON_WM_DESTROY()
END_MESSAGE_MAP()

CListHostDlg* g_dialog = nullptr;

void Save(const std::string& path) {
    if (platform::SaveWindowAsPng(GetActiveWindow(), path))
        std::printf("wrote %s\n", path.c_str());
    else
        std::fprintf(stderr, "could not write %s\n", path.c_str());
}

CString ColumnTexts(CListCtrl& list, int column) {
    CString texts;
    for (int row = 0; row < list.GetItemCount(); ++row) {
        if (row)
            texts += u", ";
        texts += list.GetItemText(row, column);
    }
    return texts;
}

CString Widths(CListCtrl& list) {
    CString widths;
    for (int column = 0; column < kColumns; ++column) {
        CString one;
        one.Format(column ? u" %d" : u"%d", list.GetColumnWidth(column));
        widths += one;
    }
    return widths;
}

// A row's texts joined by tabs, as a user copying it to a spreadsheet expects.
CString RowText(CListCtrl& list, int row) {
    CString text;
    for (int column = 0; column < kColumns; ++column) {
        if (column)
            text += u"\t";
        text += list.GetItemText(row, column);
    }
    return text;
}

// Appends a row from tab-separated text.
void AppendRow(CListCtrl& list, const CString& text) {
    const int row = list.GetItemCount();
    int column = 0;
    int start = 0;
    for (;;) {
        int tab = text.Find(u'\t', start);
        CString cell = text.Mid(start, tab < 0 ? text.GetLength() - start : tab - start);
        if (column == 0)
            list.InsertItem(row, cell);
        else
            list.SetItemText(row, column, cell);
        if (tab < 0 || ++column == kColumns)
            break;
        start = tab + 1;
    }
    list.EnsureVisible(row, FALSE);
}

const char* const kColumnNames[] = {"item", "received", "quantity", "price"};

void QueueSorts(const std::string& out) {
    for (int column = 0; column < 4; ++column) {
        for (const char* order : {"ascending", "descending"}) {
            automation::ClickHeader(IDC_LIST, column);
            automation::Do([out, column, order] {
                std::printf("%s %s: %s\n", kColumnNames[column], order,
                            platform::ToUtf8(ColumnTexts(g_dialog->m_list, column).Str()).c_str());
                Save(out + "/list-sorted-" + kColumnNames[column] + "-" + order + ".png");
            });
        }
    }
}

void QueueClipboard(const std::string& out) {
    automation::ClickListItem(IDC_LIST, 2);
    automation::Do([out] {
        CListCtrl& list = g_dialog->m_list;
        const int row = list.GetNextItem(-1, LVNI_SELECTED);
        const CString copied = RowText(list, row);
        if (!WinUtils::CopyToClipboard(copied))
            std::fprintf(stderr, "the clipboard did not take the row\n");
        const CString pasted = WinUtils::PasteFromClipboard();
        std::printf("copied row %d and pasted it back: %s\n", row,
                    platform::ToUtf8(pasted.Str()).c_str());
        AppendRow(list, pasted);
        g_dialog->SetDlgItemText(IDC_STATUS, u"Row " + list.GetItemText(row, 0) +
                                                 u" copied and pasted at the end.");
        Save(out + "/list-pasted.png");
    });
    automation::Do([out] {
        WinUtils::PutImageOnClipboard(&g_dialog->m_list);
        if (!OpenClipboard(nullptr)) {
            std::fprintf(stderr, "the clipboard could not be opened\n");
            return;
        }
        auto bitmap = static_cast<HBITMAP>(GetClipboardData(CF_BITMAP));
        const std::string path = out + "/list-clipboard.png";
        if (bitmap && platform::SaveBitmapAsPng(bitmap, path))
            std::printf("wrote %s, the list's picture from the clipboard\n", path.c_str());
        else
            std::fprintf(stderr, "the clipboard holds no picture of the list\n");
        CloseClipboard();
    });
}

int FirstRun(const std::string& out, const char* self) {
    CListHostDlg dialog;
    g_dialog = &dialog;
    automation::Do([out] { Save(out + "/list-unsorted.png"); });
    QueueSorts(out);
    automation::DragHeaderDivider(IDC_LIST, 0, 60);
    automation::Do([out] {
        std::printf("widths after widening the first column: %s\n",
                    platform::ToUtf8(Widths(g_dialog->m_list).Str()).c_str());
        Save(out + "/list-widened.png");
    });
    QueueClipboard(out);
    automation::Click(IDOK);
    if (dialog.DoModal() != IDOK || automation::CancelsForWantOfActions() != 0) {
        std::fprintf(stderr, "the list window did not run as the user acted\n");
        return 1;
    }
    // The second run: a new process reading the same profile.
    std::fflush(stdout);
    const std::string again = std::string("\"") + self + "\" \"" + out + "\" --again";
    return std::system(again.c_str()) == 0 ? 0 : 1;
}

// The second run: the layout the user left comes back from the profile.
int SecondRun(const std::string& out) {
    CListHostDlg dialog;
    g_dialog = &dialog;
    bool widened = false;
    automation::Do([out, &widened] {
        const int width = g_dialog->m_list.GetColumnWidth(0);
        widened = width == 200;
        std::printf("second run: widths %s, the first column %s\n",
                    platform::ToUtf8(Widths(g_dialog->m_list).Str()).c_str(),
                    widened ? "as the user left it" : "not restored");
        Save(out + "/list-restored.png");
    });
    automation::Click(IDOK);
    return dialog.DoModal() == IDOK && widened ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    // An absolute profile path: a relative one names a file in the Windows
    // directory, which the first run would not find to remove.
    const std::string out = std::filesystem::absolute(argc > 1 ? argv[1] : "out").string();
    const bool again = argc > 2 && std::string(argv[2]) == "--again";
    ListHostApp app(out + "/list-host.ini");
    if (!again)
        std::remove((out + "/list-host.ini").c_str());
    return again ? SecondRun(out) : FirstRun(out, argv[0]);
}
