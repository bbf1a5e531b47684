// The interactive terminal window on the headless desktop: keys reach the
// program, its output reaches the screen, resizing reaches the program, the
// selection goes to the clipboard and the clipboard to the program, and the
// window ends with the program.
#include "TerminalWindowSupport.h"
#include "support/ClipboardSupport.h"
#include "support/TempDir.h"

#include <filesystem>
#include <fstream>

namespace {

std::u16string ClipboardText() {
    std::u16string text;
    if (OpenClipboard(nullptr)) {
        if (HANDLE block = GetClipboardData(CF_UNICODETEXT))
            text = testing_support::Wide(block);
        CloseClipboard();
    }
    return text;
}

void SetClipboardText(const std::u16string& text) {
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    SetClipboardData(CF_UNICODETEXT, testing_support::WideBlock(text));
    CloseClipboard();
}

TEST_F(TerminalWindowTest, TypedCharactersReachTheProgramAndItsExitClosesTheWindow) {
    ASSERT_TRUE(Open({"sh", "-c", "read x; echo got:$x; exit 7"}));
    const HWND hwnd = *window;
    EXPECT_TRUE(IsWindowVisible(hwnd));
    Type(u"hello world\r");
    ASSERT_TRUE(WaitFor("got:hello world")) << ScreenText();
    // The terminal echoed the typed line on the row above the answer.
    EXPECT_TRUE(Shows("hello world\ngot:hello world")) << ScreenText();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(window->ExitCode(), 7);
    EXPECT_FALSE(IsWindow(hwnd));
}

TEST_F(TerminalWindowTest, KeysWithoutCharactersSendVt100Sequences) {
    // The program turns on application cursor keys, then shows in hex the
    // bytes of the keys it reads raw.
    ASSERT_TRUE(Open({"sh", "-c",
                      "stty raw -echo; printf '\\033[?1hready\\r\\n'; "
                      "dd bs=1 count=14 2>/dev/null | od -An -tx1 -v"}));
    ASSERT_TRUE(WaitFor("ready"));
    PressKey(VK_UP);    // ESC O A in application mode
    PressKey(VK_F1);    // ESC O P
    PressKey(VK_PRIOR); // ESC [ 5 ~
    Type(u"\b");        // DEL
    Type(u"\x01");      // Ctrl+A
    Type(u"\x00e9");    // e acute, two bytes of UTF-8
    ASSERT_TRUE(WaitForEnd()) << ScreenText();
    EXPECT_TRUE(Shows("1b 4f 41 1b 4f 50 1b 5b 35 7e 7f 01 c3 a9")) << ScreenText();
}

TEST_F(TerminalWindowTest, AltSendsACharacterAfterEscapeAndLeavesOtherKeysAsTheyAre) {
    ASSERT_TRUE(Open({"sh", "-c",
                      "stty raw -echo; printf '\\033[?1hready\\r\\n'; "
                      "dd bs=1 count=7 2>/dev/null | od -An -tx1 -v"}));
    ASSERT_TRUE(WaitFor("ready"));
    constexpr LPARAM kAltHeld = 1 << 29;
    PostMessage(*window, WM_SYSKEYDOWN, VK_UP, kAltHeld);
    PostMessage(*window, WM_SYSCHAR, u'b', kAltHeld);
    PostMessage(*window, WM_SYSCHAR, u'.', kAltHeld);
    ASSERT_TRUE(WaitForEnd()) << ScreenText();
    EXPECT_TRUE(Shows("1b 4f 41 1b 62 1b 2e")) << ScreenText();
}

TEST_F(TerminalWindowTest, TheWheelSendsCursorKeysOnlyToAFullScreenProgram) {
    // Normal cursor keys: the wheel sends nothing, so the program reads the
    // z typed after it first.
    ASSERT_TRUE(Open({"sh", "-c",
                      "stty raw -echo; printf 'ready\\r\\n'; "
                      "dd bs=1 count=1 2>/dev/null | od -An -tx1 -v"}));
    ASSERT_TRUE(WaitFor("ready"));
    platform::automation::TurnWheel(-1);
    platform::automation::TurnWheel(2);
    ASSERT_TRUE(RunUntil([] { return platform::automation::Pending() == 0; }));
    Type(u"z");
    ASSERT_TRUE(WaitForEnd()) << ScreenText();
    EXPECT_TRUE(Shows(" 7a\n")) << ScreenText();
}

TEST_F(TerminalWindowTest, InApplicationCursorModeANotchIsThreeCursorKeys) {
    ASSERT_TRUE(Open({"sh", "-c",
                      "stty raw -echo; printf '\\033[?1hready\\r\\n'; "
                      "dd bs=1 count=12 2>/dev/null | od -An -tx1 -v"}));
    ASSERT_TRUE(WaitFor("ready"));
    // A notch toward the user: three times ESC O B. Then a sixth of a notch
    // more, which sends nothing yet and is dropped when the wheel turns
    // back; a third of a notch away then makes one ESC O A.
    platform::automation::TurnWheel(-1);
    ASSERT_TRUE(RunUntil([] { return platform::automation::Pending() == 0; }));
    const auto turn = [&](short delta) {
        window->SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)), 0);
    };
    turn(-WHEEL_DELTA / 6);
    turn(WHEEL_DELTA / 6);
    turn(WHEEL_DELTA / 6);
    ASSERT_TRUE(WaitForEnd()) << ScreenText();
    EXPECT_TRUE(Shows(" 1b 4f 42 1b 4f 42 1b 4f 42 1b 4f 41\n")) << ScreenText();
}

TEST_F(TerminalWindowTest, TheSecondReleaseOfARightDoubleClickOpensTheMenuAgain) {
    testing_support::ClearClipboard();
    ASSERT_TRUE(Open({"sh", "-c", "echo alpha beta; sleep 10"}));
    ASSERT_TRUE(WaitFor("alpha beta"));
    const HWND hwnd = *window;
    const POINT a = CellCentre(0, 0), b = CellCentre(0, 4);
    PostMessage(hwnd, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(a.x, a.y));
    PostMessage(hwnd, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(b.x, b.y));
    PostMessage(hwnd, WM_LBUTTONUP, 0, MAKELPARAM(b.x, b.y));
    ASSERT_TRUE(RunUntil([&] { return window->Screen().ActiveSelection(); }));
    // The first release opens the menu, the double click's press closes it,
    // and the second release opens it again, where Copy is picked.
    const POINT at = CellCentre(2, 2);
    const LPARAM where = MAKELPARAM(at.x, at.y);
    PostMessage(hwnd, WM_RBUTTONDOWN, MK_RBUTTON, where);
    PostMessage(hwnd, WM_RBUTTONUP, 0, where);
    PostMessage(hwnd, WM_RBUTTONDBLCLK, MK_RBUTTON, where);
    PostMessage(hwnd, WM_RBUTTONUP, 0, where);
    platform::automation::PickPopupMenuItem(TerminalWindow::kCopy);
    EXPECT_TRUE(RunUntil([] { return ClipboardText() == u"alpha"; }));
}

TEST_F(TerminalWindowTest, TheCopyKeyDoesNotAlsoSendItsControlCharacter) {
    ASSERT_TRUE(Open({"sh", "-c",
                      "stty raw -echo; printf 'ready\\r\\n'; "
                      "dd bs=1 count=2 2>/dev/null | od -An -tx1 -v"}));
    ASSERT_TRUE(WaitFor("ready"));
    // Ctrl+Shift+C, whose translation types Ctrl+C, then Ctrl+C and z typed.
    platform::automation::Key('C', true, true);
    ASSERT_TRUE(RunUntil([] { return platform::automation::Pending() == 0; }));
    Type(u"\x03z");
    ASSERT_TRUE(WaitForEnd()) << ScreenText();
    EXPECT_TRUE(Shows(" 03 7a\n")) << ScreenText();
}

TEST_F(TerminalWindowTest, ResizingTellsTheProgramAndColumnModeRefitsTheWindow) {
    ASSERT_TRUE(Open({"sh", "-c",
                      "trap 'echo size:$(stty size)' WINCH; stty size; "
                      "while :; do sleep 0.05; done"}));
    ASSERT_TRUE(WaitFor("24 80"));
    EXPECT_EQ(window->TerminalRows(), 24);
    EXPECT_EQ(window->TerminalColumns(), 80);

    // The frame made 30 rows by 100 columns of cells.
    const CSize view = window->Layout().ViewSize(30, 100);
    RECT frame{0, 0, view.cx, view.cy};
    AdjustWindowRect(&frame, WS_OVERLAPPEDWINDOW, FALSE);
    window->MoveWindow(40, 40, frame.right - frame.left, frame.bottom - frame.top);
    ASSERT_TRUE(WaitFor("size:30 100")) << ScreenText();
    EXPECT_EQ(window->Screen().VisRows(), 30);
    EXPECT_EQ(window->Screen().VisColumns(), 100);

    // 132 columns: the screen switches (and clears) and the window grows to fit.
    window->SetColumns(132);
    ASSERT_TRUE(WaitFor("size:30 132")) << ScreenText();
    RECT client;
    window->GetClientRect(&client);
    EXPECT_EQ(client.right - client.left, window->Layout().ViewSize(30, 132).cx);
    EXPECT_EQ(window->Screen().NumColumns(), 132);
}

TEST_F(TerminalWindowTest, AProgramsColumnModeSwitchResizesTheWindow) {
    ASSERT_TRUE(Open({"sh", "-c", "printf '\\033[?3h'; stty size; sleep 5"}));
    ASSERT_TRUE(RunUntil([&] { return window->Screen().NumColumns() == 132; }));
    RECT client;
    ASSERT_TRUE(RunUntil([&] {
        window->GetClientRect(&client);
        return client.right - client.left == window->Layout().ViewSize(24, 132).cx;
    }));
    EXPECT_EQ(window->TerminalColumns(), 132);
}

TEST_F(TerminalWindowTest, ADraggedSelectionIsCopiedByKeyAndByTheMenu) {
    testing_support::ClearClipboard();
    ASSERT_TRUE(Open({"sh", "-c", "echo alpha beta gamma; sleep 10"}));
    ASSERT_TRUE(WaitFor("alpha beta gamma"));
    const HWND hwnd = *window;
    auto drag = [&](int fromCol, int toCol) {
        POINT a = CellCentre(0, fromCol), b = CellCentre(0, toCol);
        PostMessage(hwnd, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(a.x, a.y));
        PostMessage(hwnd, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(b.x, b.y));
        PostMessage(hwnd, WM_LBUTTONUP, 0, MAKELPARAM(b.x, b.y));
    };
    drag(0, 9);
    ASSERT_TRUE(RunUntil([&] { return window->Screen().ActiveSelection(); }));
    EXPECT_EQ(window->Screen().SelectedText(), CString(u"alpha beta"));
    platform::automation::Key('C', true, true);
    ASSERT_TRUE(RunUntil([] { return ClipboardText() == u"alpha beta"; })) << "clipboard";

    // A selection made right to left, copied through the shortcut menu.
    drag(15, 6);
    ASSERT_TRUE(
        RunUntil([&] { return window->Screen().SelectedText() == CString(u"beta gamma"); }));
    platform::automation::RightClickAt(hwnd, CellCentre(3, 3));
    platform::automation::PickPopupMenuItem(TerminalWindow::kCopy);
    ASSERT_TRUE(RunUntil([] { return ClipboardText() == u"beta gamma"; }));

    // A click without a drag ends the selection.
    drag(2, 2);
    ASSERT_TRUE(RunUntil([&] { return !window->Screen().ActiveSelection(); }));
}

TEST_F(TerminalWindowTest, ADoubleClickTakesAWordAThirdClickTheRowAndDragsGoByThem) {
    ASSERT_TRUE(Open({"sh", "-c", "echo 'cp /tmp/a-b.txt \"x y\"'; echo next line; sleep 10"}));
    ASSERT_TRUE(WaitFor("next line"));
    const HWND hwnd = *window;
    auto post = [&](UINT message, int row, int col) {
        const POINT at = CellCentre(row, col);
        PostMessage(hwnd, message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON,
                    MAKELPARAM(at.x, at.y));
    };
    auto selected = [&](const char16_t* text) {
        return RunUntil([&] { return window->Screen().SelectedText() == CString(text); }, 2);
    };
    // A path is one word; a quote goes alone; the blanks past the text run
    // to the row's end (a run to the row's end copies with its line break).
    post(WM_LBUTTONDBLCLK, 0, 8);
    post(WM_LBUTTONUP, 0, 8);
    EXPECT_TRUE(selected(u"/tmp/a-b.txt"));
    post(WM_LBUTTONDBLCLK, 0, 16);
    post(WM_LBUTTONUP, 0, 16);
    EXPECT_TRUE(selected(u"\""));
    post(WM_LBUTTONDBLCLK, 1, 40);
    post(WM_LBUTTONUP, 1, 40);
    EXPECT_TRUE(selected(u"\r\n"));
    // Dragged after the double click, whole words join: forwards to the
    // next row, and backwards from the first word.
    post(WM_LBUTTONDBLCLK, 0, 4);
    post(WM_MOUSEMOVE, 1, 1);
    post(WM_LBUTTONUP, 1, 1);
    EXPECT_TRUE(selected(u"/tmp/a-b.txt \"x y\"\r\nnext"));
    post(WM_LBUTTONDBLCLK, 0, 19);
    post(WM_MOUSEMOVE, 0, 5);
    post(WM_LBUTTONUP, 0, 5);
    EXPECT_TRUE(selected(u"/tmp/a-b.txt \"x y"));
    // A third click takes the row; dragged, the next row joins whole.
    post(WM_LBUTTONDBLCLK, 1, 2);
    post(WM_LBUTTONUP, 1, 2);
    post(WM_LBUTTONDOWN, 1, 2);
    post(WM_LBUTTONUP, 1, 2);
    EXPECT_TRUE(selected(u"next line\r\n"));
    post(WM_LBUTTONDBLCLK, 0, 0);
    post(WM_LBUTTONUP, 0, 0);
    post(WM_LBUTTONDOWN, 0, 0);
    post(WM_MOUSEMOVE, 1, 0);
    post(WM_LBUTTONUP, 1, 0);
    EXPECT_TRUE(selected(u"cp /tmp/a-b.txt \"x y\"\r\nnext line\r\n"));
}

TEST_F(TerminalWindowTest, PastingWritesTheClipboardToTheProgram) {
    ASSERT_TRUE(Open({"sh", "-c", "read a; read b; read c; echo got:$a/$b/$c"}));
    // Line breaks of the clipboard text arrive as Enter.
    SetClipboardText(u"one\r\n");
    PostMessage(*window, WM_MBUTTONUP, 0, 0);
    ASSERT_TRUE(WaitFor("one"));
    SetClipboardText(u"two\n");
    platform::automation::Key('V', true, true);
    ASSERT_TRUE(WaitFor("two"));
    SetClipboardText(u"three\n");
    platform::automation::RightClickAt(*window, CellCentre(5, 5));
    platform::automation::PickPopupMenuItem(TerminalWindow::kPaste);
    ASSERT_TRUE(WaitFor("got:one/two/three")) << ScreenText();
}

TEST_F(TerminalWindowTest, TheMenuPrintsTheScreenAndChangesTheFont) {
    const auto dir = testing_support::TestOutputDir("terminal-window");
    TerminalWindow::Options options;
    options.pdfPath = (dir / "screen.pdf").string();
    ASSERT_TRUE(Open({"sh", "-c", "echo printed text; sleep 10"}, options));
    ASSERT_TRUE(WaitFor("printed text"));
    platform::automation::RightClickAt(*window, CellCentre(2, 2));
    platform::automation::PickPopupMenuItem(TerminalWindow::kPrint);
    ASSERT_TRUE(RunUntil([&] { return std::filesystem::exists(options.pdfPath); }));
    std::ifstream pdf(options.pdfPath, std::ios::binary);
    std::string head(5, '\0');
    pdf.read(head.data(), 5);
    EXPECT_EQ(head, "%PDF-");

    // A bigger font keeps the rows and columns and grows the window.
    RECT before;
    window->GetClientRect(&before);
    const CSize cellBefore = window->Layout().GetCharSize();
    std::size_t bigger = 0;
    for (std::size_t i = 0; i < TerminalWindow::Fonts().size(); ++i)
        if (TerminalWindow::Fonts()[i].size == 20)
            bigger = i;
    platform::automation::RightClickAt(*window, CellCentre(2, 2));
    platform::automation::PickPopupMenuItem(TerminalWindow::kFontFirst + bigger);
    ASSERT_TRUE(RunUntil([&] { return window->Layout().GetCharSize() != cellBefore; }));
    RECT after;
    window->GetClientRect(&after);
    EXPECT_GT(after.right, before.right);
    EXPECT_EQ(window->Screen().VisColumns(), 80);
    EXPECT_EQ(window->TerminalRows(), 24);
    EXPECT_TRUE(Shows("printed text"));
}

TEST_F(TerminalWindowTest, EveryByteOfALongOutputArrives) {
    ASSERT_TRUE(Open({"seq", "1", "100000"}));
    ASSERT_TRUE(WaitForEnd(60));
    // The numbers' digits, plus CR LF for every line (the terminal's output
    // processing turns each LF into CR LF).
    std::size_t digits = 0;
    for (int n = 1; n <= 100000; ++n)
        digits += std::to_string(n).size();
    EXPECT_EQ(window->BytesReceived(), digits + 2 * 100000);
    EXPECT_EQ(window->ExitCode(), 0);
    EXPECT_TRUE(Shows("99999\n100000\n")) << ScreenText();
}

TEST_F(TerminalWindowTest, ClosingTheWindowHangsUpTheProgram) {
    ASSERT_TRUE(Open({"sh", "-c", "echo running; sleep 30"}));
    ASSERT_TRUE(WaitFor("running"));
    window->SendMessage(WM_CLOSE);
    EXPECT_TRUE(window->Ended());
    // A hung-up shell ends by its signal.
    EXPECT_EQ(window->ExitCode(), 128 + SIGHUP);
}

TEST_F(TerminalWindowTest, AProgramThatCannotRunIsReported) {
    ASSERT_TRUE(Open({"/nonexistent/program"}));
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(window->ExitCode(), 127);
    EXPECT_TRUE(Shows("cannot run /nonexistent/program")) << ScreenText();
}

} // namespace
