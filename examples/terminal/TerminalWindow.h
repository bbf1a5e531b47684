// The interactive terminal: a top-level window that runs a program on a
// pseudo-terminal, shows its output through the VT100 parser and the screen
// model, and sends it the user's keys. The program's descriptor is watched by
// the message loop, so one loop serves the window and the program.
#pragma once

#include "PtySession.h"
#include "TerminalLayout.h"
#include "Vt100Parser.h"

#include <afxwin.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class TerminalWindow : public CWnd {
public:
    // The shortcut menu's commands.
    enum Command : UINT {
        kCopy = 100,
        kPaste,
        kPrint,
        kColumns80,
        kColumns132,
        kFontFirst = 120, // one command per entry of Fonts()
    };

    struct Font {
        const char16_t* face;
        int size;
    };
    // The faces and sizes the shortcut menu offers.
    static const std::vector<Font>& Fonts();

    struct Options {
        std::vector<std::string> program;
        CString face = u"Courier New";
        int size = 16;
        int rows = 24;
        int columns = 80;
        std::string pdfPath = "terminal-screen.pdf"; // where "Print screen to PDF" writes
        bool quitWhenClosed = true;                  // post WM_QUIT with the exit code
    };

    TerminalWindow();
    ~TerminalWindow() override;

    // Creates the window and starts the program on a terminal of the window's
    // size. False, with the reason in *error, when either fails.
    bool Open(const Options& options, std::string* error);

    ScreenBuffer& Screen() { return *m_screen; }
    TerminalLayout& Layout() { return m_layout; }
    // Set once the program has exited or the window was closed.
    bool Ended() const { return m_ended; }
    // The program's exit code as a shell reports it; -1 until it ended.
    int ExitCode() const { return m_exitCode; }
    // Set when the window was closed while the program still ran.
    bool ClosedByUser() const { return m_closedByUser; }
    // Every byte read from the program so far.
    std::size_t BytesReceived() const { return m_bytesReceived; }
    // The size in cells the program was last told.
    int TerminalRows() const { return m_ptyRows; }
    int TerminalColumns() const { return m_ptyColumns; }

    // What the shortcut menu and the keyboard shortcuts do.
    bool Copy();
    bool Paste();
    bool PrintScreen();
    void SetColumns(int columns);
    void SetFont(const CString& face, int size);

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnPaint() override;
    void OnSize(UINT type, int cx, int cy) override;
    void OnDestroy() override;

private:
    // Output from the program; echo when it is read right after a key.
    void OnProgramReady(bool echo = false);
    void Feed(const char* data, std::size_t size);
    void SendReplies();
    void AfterOutput();
    void EndSession(int exitCode);
    // Input to the program; what it writes meanwhile is shown.
    void Send(const std::string& bytes);

    // The picture of the screen (without the cursor) that painting copies:
    // kept current by the screen itself while the program writes little, and
    // redrawn whole after a larger burst.
    bool EnsureBackBuffer();
    void ReleaseBackBuffer();

    // Window geometry: resizes the window so its client area shows rows by
    // columns of cells.
    void FitWindow(int rows, int columns);
    RECT CellRect(int row, int col);
    // The cell the cursor stands in (client coordinates).
    RECT CursorCell();
    // The one-based cell under a client point, kept inside the visible screen.
    CursorPos CellAt(int x, int y);

    // Input handlers.
    bool OnKeyDown(UINT vk);
    void OnChar(WCHAR ch);
    // The mouse wheel turned by delta (WHEEL_DELTA a notch, positive away
    // from the user).
    void OnWheel(int delta);
    void OnLeftDown(int x, int y);
    void OnLeftDouble(int x, int y);
    void OnMouseMove(int x, int y);
    void OnLeftUp();
    void OnContextMenu(int x, int y);
    bool OnCommand(UINT command);
    // Runs a selection change with the picture attached, so the screen
    // draws exactly the cells whose selection state changes.
    void DrawingSelection(const std::function<void()>& change);
    // Runs a change of the screen with the picture attached when it is
    // current, keeping where the screen drew on it.
    void DrawingIntoPicture(const std::function<void()>& change);
    // Asks for a paint of what changed: the parts of the picture the screen
    // drew on and the cursor's old and new cells, or everything once the
    // picture must be drawn afresh.
    void ShowChanges();

    CDC m_backDC;
    CBitmap m_backBitmap;
    CBitmap* m_backOldBitmap = nullptr;
    CFont* m_backOldFont = nullptr;
    CSize m_backSize;
    bool m_backCurrent = false;
    // Where the screen drew on the picture since the last paint was asked for.
    CRect m_backChanged;
    // Where the cursor was last painted (client coordinates).
    CRect m_cursorShown;
    // When the picture was last drawn whole, and how long a burst waits for
    // more output before it is painted again.
    std::chrono::steady_clock::time_point m_lastPicture;
    int BurstPauseMs() const;

    Options m_options;
    TerminalLayout m_layout;
    std::unique_ptr<ScreenBuffer> m_screen;
    std::unique_ptr<Vt100Parser> m_parser;
    PtySession m_pty;
    std::string m_replies;
    std::size_t m_bytesReceived = 0;
    bool m_outputArrived = false;
    bool m_ended = false;
    bool m_closedByUser = false;
    int m_exitCode = -1;
    int m_windowRows = 24;
    int m_windowColumns = 80;
    int m_ptyRows = 0;
    int m_ptyColumns = 0;
    int m_shownColumnMode = 80;
    WCHAR m_pendingHigh = 0;
    WCHAR m_swallowChar = 0;
    // Cursor keys a wheel notch sends, and the part of a notch not yet sent.
    static constexpr int kWheelLines = 3;
    int m_wheelRemainder = 0;
    bool m_selecting = false;
    bool m_dragged = false;
    CursorPos m_anchor;
    // What a drag selects by: cells, words (after a double click) or whole
    // rows (after a third click), and the span it started from.
    enum class SelectUnit { Cell, Word, Row };
    SelectUnit m_unit = SelectUnit::Cell;
    CursorPos m_spanStart, m_spanEnd;
    std::chrono::steady_clock::time_point m_lastDoubleClick;
    // The span of the unit around a cell (one-based, inclusive); reading a
    // row's text marks it, so it runs inside a selection change.
    std::pair<CursorPos, CursorPos> UnitAround(const CursorPos& at);
    // Selects the unit around the anchor, the span a drag starts from, and
    // from it to the whole unit at a cell.
    void StartSpan();
    void SelectSpanTo(const CursorPos& at);
};
