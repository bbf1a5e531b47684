// The control host: a label editor. Its dialog lists coloured labels (each
// with an icon from an image list filled from the host's icons), edits the
// chosen label's name and note, and picks its colour with a colour button.
// The dialog can be resized; a control positioner keeps the controls with
// its right and bottom edges and never moves them left of or above where the
// design put them.
//
// The simulated user drags the dialog's corner out, in below the designed
// size and out again, then tabs to the colour button, picks a label and a new
// colour for it through the colour dialog. The host checks after each step
// that the controls are where their flags put them and writes a picture:
//
//   control_host OUT     pictures and the log of what happened go to OUT
#include <Win/Win.h>
#include <tchar.h>

#include <platform/Automation.h>
#include <platform/WindowPictures.h>

#include "resource.h"

#include <cstdio>
#include <string>
#include <vector>

namespace {

namespace automation = platform::automation;

struct Label {
    const WCHAR* name;
    const WCHAR* note;
    COLORREF colour;
    int image; // in the image list: tag, flag, star
};

class ControlHostApp : public CWinApp {
public:
    ControlHostApp() : CWinApp(u"Control Host") {}
};

CString ColourText(COLORREF colour) {
    CString text;
    text.Format(u"#%02X%02X%02X", GetRValue(colour), GetGValue(colour), GetBValue(colour));
    return text;
}

// One registration of the positioner: the control and how it follows.
struct Follow {
    UINT id;
    DWORD flags;
};

const Follow kFollows[] = {
    {IDC_INTRO, StretchWithWidth},
    {IDC_LABELS, StretchWithWidth | StretchWithHeight},
    {IDC_NAME_LABEL, MoveWithHeight},
    {IDC_NAME, MoveWithHeight | StretchWithWidth},
    {IDC_NOTE_LABEL, MoveWithHeight},
    {IDC_NOTE, MoveWithHeight | StretchWithWidth},
    {IDC_COLOUR_LABEL, MoveWithWidth | MoveWithHeight},
    {IDC_COLOUR, MoveWithWidth | MoveWithHeight},
    {IDOK, MoveWithWidth | MoveWithHeight},
    {IDCANCEL, MoveWithWidth | MoveWithHeight},
};

class CLabelDlg : public CDialog {
public:
    CLabelDlg() : CDialog(IDD_LABELS) {}

    CListCtrl m_list;
    CColourButton m_colour{RGB(0, 0, 0)};
    CControlPos m_positioner;
    CImageList m_icons;
    std::vector<Label> m_labels = {
        {u"Urgent", u"Needs an answer today", RGB(220, 40, 40), 1},
        {u"Waiting", u"Someone else's move", RGB(240, 160, 40), 0},
        {u"Done", u"Nothing left to do", RGB(40, 170, 60), 2},
        {u"Later", u"Kept for next week", RGB(40, 100, 215), 0},
        {u"Reference", u"Worth keeping", RGB(120, 80, 170), 2},
    };

    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        m_positioner.SetParent(this);
        for (const Follow& follow : kFollows)
            m_positioner.AddControl(follow.id, follow.flags);

        UINT icons[] = {IDI_TAG, IDI_FLAG, IDI_STAR, 0};
        WinUtils::ImageListIconLoader(m_icons, icons, nullptr);
        m_list.SendMessage(LVM_SETIMAGELIST, LVSIL_SMALL,
                           reinterpret_cast<LPARAM>(m_icons.GetSafeHandle()));
        m_list.SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT,
                           LVS_EX_FULLROWSELECT);
        m_list.InsertColumn(0, u"Label", LVCFMT_LEFT, 110);
        m_list.InsertColumn(1, u"Colour", LVCFMT_LEFT, 70);
        m_list.InsertColumn(2, u"Note", LVCFMT_LEFT, 180);
        for (int row = 0; row < static_cast<int>(m_labels.size()); ++row) {
            const Label& label = m_labels[static_cast<std::size_t>(row)];
            m_list.InsertItem(row, label.name, label.image);
            m_list.SetItemText(row, 1, ColourText(label.colour));
            m_list.SetItemText(row, 2, label.note);
        }
        m_list.SetItemState(0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        WinUtils::SelectDlgEdit(this, IDC_NAME);
        return FALSE; // the focus is set
    }

    // The row chosen, or -1.
    int Chosen() const { return m_list.GetNextItem(-1, LVNI_SELECTED); }

protected:
    void DoDataExchange(CDataExchange* dx) override {
        CDialog::DoDataExchange(dx);
        DDX_Control(dx, IDC_LABELS, m_list);
        DDX_Control(dx, IDC_COLOUR, m_colour);
    }

    void OnSize(UINT type, int cx, int cy) override {
        CDialog::OnSize(type, cx, cy);
        m_positioner.MoveControls();
    }

    // The chosen label shows in the fields and on the colour button; with
    // none chosen there is no colour to pick.
    void OnLabelChanged(NMHDR* header, LRESULT* result) {
        const auto* change = reinterpret_cast<NMLISTVIEW*>(header);
        *result = 0;
        if (!((change->uNewState ^ change->uOldState) & LVIS_SELECTED))
            return;
        const int row = Chosen();
        m_colour.EnableWindow(row >= 0);
        if (row < 0)
            return;
        const Label& label = m_labels[static_cast<std::size_t>(row)];
        SetDlgItemText(IDC_NAME, label.name);
        SetDlgItemText(IDC_NOTE, label.note);
        m_colour.SetColour(label.colour);
        m_colour.Invalidate();
    }

    LRESULT OnColourPicked(WPARAM, LPARAM colour) {
        const int row = Chosen();
        if (row < 0)
            return 0;
        m_labels[static_cast<std::size_t>(row)].colour = static_cast<COLORREF>(colour);
        m_list.SetItemText(row, 1, ColourText(static_cast<COLORREF>(colour)));
        return 0;
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CLabelDlg, CDialog)
ON_NOTIFY(LVN_ITEMCHANGED, IDC_LABELS, OnLabelChanged)
ON_MESSAGE(WM_COLOURBUTTON, OnColourPicked)
END_MESSAGE_MAP()

// What the demo saw; any failure makes the host exit with 1.
struct Outcome {
    std::string out;
    CLabelDlg* dialog = nullptr;
    std::vector<CRect> designed; // of kFollows, in client coordinates
    CSize designedClient;
    int failures = 0;
};
Outcome g;

void Save(HWND hwnd, const std::string& name) {
    const std::string path = g.out + "/" + name + ".png";
    if (platform::SaveWindowAsPng(hwnd, path)) {
        std::printf("wrote %s\n", path.c_str());
    } else {
        std::fprintf(stderr, "could not write %s\n", path.c_str());
        ++g.failures;
    }
}

CRect Placed(UINT id) {
    CRect rect;
    g.dialog->GetDlgItem(static_cast<int>(id))->GetWindowRect(&rect);
    g.dialog->ScreenToClient(&rect);
    return rect;
}

CSize ClientSize() {
    CRect client;
    g.dialog->GetClientRect(&client);
    return client.Size();
}

// Where the design put a control, moved and stretched by how far the dialog
// is beyond its designed size (never less than nothing).
CRect Expected(std::size_t index, CSize client) {
    const int dw = std::max(0, static_cast<int>(client.cx - g.designedClient.cx));
    const int dh = std::max(0, static_cast<int>(client.cy - g.designedClient.cy));
    CRect rect = g.designed[index];
    const DWORD flags = kFollows[index].flags;
    if (flags & StretchWithWidth)
        rect.right += dw;
    if (flags & StretchWithHeight)
        rect.bottom += dh;
    if (flags & MoveWithWidth)
        rect.OffsetRect(dw, 0);
    if (flags & MoveWithHeight)
        rect.OffsetRect(0, dh);
    return rect;
}

void CheckPlaces(int step) {
    const CSize client = ClientSize();
    int wrong = 0;
    for (std::size_t i = 0; i < std::size(kFollows); ++i) {
        const CRect placed = Placed(kFollows[i].id);
        const CRect expected = Expected(i, client);
        if (placed != expected) {
            ++wrong;
            std::fprintf(stderr, "step %d: control %u at (%d,%d,%d,%d), expected (%d,%d,%d,%d)\n",
                         step, kFollows[i].id, placed.left, placed.top, placed.right, placed.bottom,
                         expected.left, expected.top, expected.right, expected.bottom);
        }
    }
    const CRect ok = Placed(IDOK);
    std::printf("positioner %d: client %dx%d, OK button at (%d, %d)%s\n", step,
                static_cast<int>(client.cx), static_cast<int>(client.cy), ok.left, ok.top,
                wrong ? ", controls misplaced" : ", every control where its flags put it");
    g.failures += wrong;
    Save(g.dialog->GetSafeHwnd(), "positioner-" + std::to_string(step));
}

void QueueResizing() {
    automation::Do([] {
        g.designedClient = ClientSize();
        for (const Follow& follow : kFollows)
            g.designed.push_back(Placed(follow.id));
        CheckPlaces(1);
    });
    // Out, in below the designed size, out again.
    const int drags[][2] = {{180, 110}, {-330, -200}, {260, 150}};
    int step = 2;
    for (const auto& drag : drags) {
        automation::DragWindowCorner(drag[0], drag[1]);
        automation::Do([step] { CheckPlaces(step); });
        ++step;
    }
    automation::Do([] {
        const CSize client = ClientSize();
        const bool followed = g.failures == 0;
        std::printf("%s (the dialog ends %d x %d larger than designed)\n",
                    followed ? "controls followed the edges" : "controls did not follow the edges",
                    static_cast<int>(client.cx - g.designedClient.cx),
                    static_cast<int>(client.cy - g.designedClient.cy));
    });
}

COLORREF SwatchColour() {
    CRect rect;
    g.dialog->m_colour.GetClientRect(&rect);
    CDC* dc = g.dialog->m_colour.GetDC();
    const COLORREF colour = dc->GetPixel(rect.CenterPoint().x, rect.CenterPoint().y);
    g.dialog->m_colour.ReleaseDC(dc);
    return colour;
}

void SaveButton(const char* state) {
    g.dialog->m_colour.UpdateWindow();
    Save(g.dialog->m_colour.GetSafeHwnd(), std::string("colour-button-") + state);
}

void QueueColourButton() {
    automation::Do([] { SaveButton("released"); });
    automation::Do([] {
        g.dialog->m_colour.SetState(TRUE); // held down
        SaveButton("pressed");
        g.dialog->m_colour.SetState(FALSE);
    });
    // From the note field the Tab key goes on to the colour button.
    automation::Do([] { WinUtils::SelectDlgEdit(g.dialog, IDC_NOTE); });
    automation::Key(VK_TAB);
    automation::Do([] {
        if (CWnd::GetFocus() != &g.dialog->m_colour) {
            std::fprintf(stderr, "the Tab key did not reach the colour button\n");
            ++g.failures;
        }
        SaveButton("focused");
    });
    // With no label chosen the host disables the button.
    automation::Do([] {
        g.dialog->m_list.SetItemState(g.dialog->Chosen(), 0, LVIS_SELECTED);
        SaveButton("disabled");
    });

    // A label chosen, its colour button clicked, a colour picked.
    constexpr COLORREF kPicked = RGB(46, 139, 87);
    automation::ClickListItem(IDC_LABELS, 3);
    automation::Click(IDC_COLOUR);
    automation::Do([] { Save(::GetActiveWindow(), "colour-dialog"); });
    automation::PickColor(kPicked);
    automation::Do([kPicked] {
        const COLORREF shown = SwatchColour();
        const int row = g.dialog->Chosen();
        const CString text = row >= 0 ? g.dialog->m_list.GetItemText(row, 1) : CString();
        std::printf("picked 0x%06X for %s: the button shows 0x%06X, the list says %s\n",
                    static_cast<unsigned>(kPicked),
                    row >= 0 ? platform::ToUtf8(g.dialog->m_list.GetItemText(row, 0).Str()).c_str()
                             : "no label",
                    static_cast<unsigned>(shown), platform::ToUtf8(text.Str()).c_str());
        if (shown != kPicked || text != ColourText(kPicked))
            ++g.failures;
        SaveButton("picked");
        Save(g.dialog->GetSafeHwnd(), "labels-picked");
    });
}

void QueueFinding() {
    automation::Do([] {
        HWND found = WinUtils::FindApplication(u"label colours");
        std::printf("the editor's window %s by the start of its caption\n",
                    found == g.dialog->GetSafeHwnd() ? "is found" : "is not found");
        if (found != g.dialog->GetSafeHwnd())
            ++g.failures;
        WinUtils::BringToTop(g.dialog);
    });
}

} // namespace

int main(int argc, char** argv) {
    g.out = argc > 1 ? argv[1] : "out";
    ControlHostApp app;
    CLabelDlg dialog;
    g.dialog = &dialog;
    QueueResizing();
    QueueColourButton();
    QueueFinding();
    automation::Click(IDOK);
    const INT_PTR result = dialog.DoModal();
    if (result != IDOK || automation::CancelsForWantOfActions() != 0) {
        std::fprintf(stderr, "the editor did not run as the user acted\n");
        for (const std::string& line : automation::Record())
            std::fprintf(stderr, "  %s\n", line.c_str());
        return 1;
    }
    return g.failures == 0 ? 0 : 1;
}
