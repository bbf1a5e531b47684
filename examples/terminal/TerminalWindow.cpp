#include "TerminalWindow.h"

#include <platform/CodePage.h>
#include <platform/Display.h>

#include <algorithm>
#include <chrono>

namespace {

constexpr DWORD kWindowStyle = WS_OVERLAPPEDWINDOW;
// How long one wake-up reads the program's output before the window paints:
// a program that floods the terminal is shown ten times a second (a jump
// scroll), since each picture costs about as much as reading 100 KB; output
// that stops is painted as soon as it stops.
constexpr auto kReadBudget = std::chrono::milliseconds(100);
// A read this small (an echo, a prompt, an editor's update) is drawn cell by
// cell into the picture as the screen changes; a larger one is cheaper to
// draw once, whole, when the window paints.
constexpr std::size_t kDrawAsItComes = 1024;
// How long a burst may pause before what has come is painted, and how often
// at most a burst is painted: a program slowed by a busy machine pauses often,
// and a picture each time would slow the reading further.
constexpr int kBurstPauseMs = 2;
constexpr auto kBurstFrame = std::chrono::milliseconds(20);
// How long a key waits for its echo before the loop goes on.
constexpr int kEchoWaitMs = 1;

CString Title(const std::vector<std::string>& program) {
    std::string title = "Terminal:";
    for (const std::string& arg : program)
        title += " " + arg;
    return platform::FromUtf8(title);
}

} // namespace

TerminalWindow::TerminalWindow() = default;

TerminalWindow::~TerminalWindow() {
    if (m_pty.Descriptor() >= 0)
        platform::display::UnwatchDescriptor(m_pty.Descriptor());
    if (m_hWnd)
        DestroyWindow();
    ReleaseBackBuffer();
}

const std::vector<TerminalWindow::Font>& TerminalWindow::Fonts() {
    static const std::vector<Font> fonts = {
        {u"Courier New", 12},    {u"Courier New", 14},    {u"Courier New", 16},
        {u"Courier New", 20},    {u"Lucida Console", 12}, {u"Lucida Console", 14},
        {u"Lucida Console", 16}, {u"Lucida Console", 20},
    };
    return fonts;
}

bool TerminalWindow::Open(const Options& options, std::string* error) {
    m_options = options;
    m_layout.Apply(options.face, options.size);
    m_screen = std::make_unique<ScreenBuffer>(m_layout);
    // A VT100 whose set-up has auto wrap on, as its terminal description promises.
    m_screen->SetAutoWrapMode(true);
    m_parser = std::make_unique<Vt100Parser>(*m_screen);
    m_parser->SetReplyHandler([this](const std::string& reply) { m_replies += reply; });

    CSize view = m_layout.ViewSize(options.rows, options.columns);
    RECT frame{0, 0, view.cx, view.cy};
    AdjustWindowRect(&frame, kWindowStyle, FALSE);
    if (!CreateEx(0, nullptr, Title(options.program), kWindowStyle, 40, 40,
                  frame.right - frame.left, frame.bottom - frame.top, nullptr, nullptr)) {
        *error = "cannot create the terminal window";
        return false;
    }
    // OnSize has sized the screen; the program starts on that size and follows
    // the window's later sizes through the terminal.
    m_screen->SetParent(this);
    if (!m_pty.Start(options.program, m_ptyRows, m_ptyColumns, error,
                     PtySession::SizeVariables::Unset)) {
        DestroyWindow();
        return false;
    }
    platform::display::WatchDescriptor(m_pty.Descriptor(), [this] { OnProgramReady(); });
    ShowWindow(SW_SHOW);
    SetFocus();
    return true;
}

// --- Output from the program ---

void TerminalWindow::OnProgramReady(bool echo) {
    const auto start = std::chrono::steady_clock::now();
    char buffer[65536];
    std::size_t total = 0;
    bool ended = false;
    for (;;) {
        const bool inTime = std::chrono::steady_clock::now() - start < kReadBudget;
        std::size_t got = 0;
        PtySession::ReadResult result = m_pty.Read(buffer, sizeof buffer, &got);
        if (result == PtySession::ReadResult::Ended) {
            ended = true;
            break;
        }
        if (result == PtySession::ReadResult::Nothing) {
            // A program in the middle of a burst is only briefly behind the
            // reader: wait for it a moment rather than paint every time.
            if (total > kDrawAsItComes && inTime && m_pty.WaitReadable(BurstPauseMs()))
                continue;
            break;
        }
        Feed(buffer, got);
        SendReplies();
        total += got;
        // A key's short echo is likely all there is for now: it is shown
        // before the pty is asked for more, since that asking waits for the
        // kernel to finish passing on what came. Anything that follows wakes
        // the window again. (Other output reads on, so that a stream is not
        // painted at every small read.)
        if ((echo && total < kDrawAsItComes) || !inTime)
            break;
    }
    AfterOutput();
    if (ended)
        EndSession(m_pty.Finish());
}

int TerminalWindow::BurstPauseMs() const {
    const auto untilFrame = std::chrono::duration_cast<std::chrono::milliseconds>(
        m_lastPicture + kBurstFrame - std::chrono::steady_clock::now());
    return std::max(kBurstPauseMs, static_cast<int>(untilFrame.count()));
}

void TerminalWindow::Feed(const char* data, std::size_t size) {
    if (size > kDrawAsItComes)
        m_backCurrent = false;
    DrawingIntoPicture([&] { m_parser->Feed(data, size); });
    m_bytesReceived += size;
    m_outputArrived = true;
}

void TerminalWindow::SendReplies() {
    // Answers go out after the parser has returned: what the program writes
    // while they are sent is fed to the parser again.
    while (!m_replies.empty()) {
        std::string replies;
        replies.swap(m_replies);
        m_pty.Write(replies, [this](const char* data, std::size_t size) { Feed(data, size); });
    }
}

void TerminalWindow::AfterOutput() {
    if (!m_outputArrived || !m_hWnd)
        return;
    m_outputArrived = false;
    // The program switched between 80 and 132 columns: the window follows.
    const int columnMode = m_screen->NumColumns();
    if (columnMode != m_shownColumnMode) {
        m_shownColumnMode = columnMode;
        FitWindow(m_windowRows, columnMode);
    }
    ShowChanges();
}

void TerminalWindow::DrawingIntoPicture(const std::function<void()>& change) {
    if (!m_backCurrent) {
        change();
        return;
    }
    m_backDC.SetBoundsRect(nullptr, DCB_RESET | DCB_ENABLE);
    m_screen->SetDC(&m_backDC);
    change();
    m_screen->SetDC(nullptr);
    CRect drawn;
    if (m_backDC.GetBoundsRect(&drawn, DCB_RESET) == DCB_SET)
        m_backChanged.UnionRect(m_backChanged, drawn);
    m_backDC.SetBoundsRect(nullptr, DCB_DISABLE);
}

void TerminalWindow::ShowChanges() {
    if (!m_hWnd)
        return;
    if (!m_backCurrent) {
        m_backChanged.SetRectEmpty();
        Invalidate(FALSE);
        return;
    }
    CRect area = m_backChanged;
    area.UnionRect(area, m_cursorShown);
    area.UnionRect(area, CRect(CursorCell()));
    m_backChanged.SetRectEmpty();
    if (!area.IsRectEmpty())
        InvalidateRect(&area, FALSE);
}

void TerminalWindow::EndSession(int exitCode) {
    if (m_ended)
        return;
    m_ended = true;
    m_exitCode = exitCode;
    if (m_pty.Descriptor() >= 0)
        platform::display::UnwatchDescriptor(m_pty.Descriptor());
    if (m_hWnd)
        DestroyWindow();
}

void TerminalWindow::Send(const std::string& bytes) {
    if (m_ended || bytes.empty())
        return;
    m_pty.Write(bytes, [this](const char* data, std::size_t size) { Feed(data, size); });
    SendReplies();
    AfterOutput();
    // The echo of a key, or a program's answer to it, usually follows within
    // a fraction of a millisecond: taking it now puts it in the same paint and
    // the same display update as the key.
    if (!m_ended && m_pty.WaitReadable(kEchoWaitMs))
        OnProgramReady(true);
}

// --- Painting and geometry ---

bool TerminalWindow::EnsureBackBuffer() {
    RECT client;
    GetClientRect(&client);
    const CSize size(std::max(1, static_cast<int>(client.right - client.left)),
                     std::max(1, static_cast<int>(client.bottom - client.top)));
    if (m_backOldBitmap && size == m_backSize)
        return true;
    ReleaseBackBuffer();
    CClientDC window(this);
    if (!m_backDC.CreateCompatibleDC(&window) ||
        !m_backBitmap.CreateCompatibleBitmap(&window, size.cx, size.cy))
        return false;
    m_backOldBitmap = m_backDC.SelectObject(&m_backBitmap);
    m_backOldFont = m_backDC.GetCurrentFont();
    m_backSize = size;
    return true;
}

void TerminalWindow::ReleaseBackBuffer() {
    m_backCurrent = false;
    if (!m_backOldBitmap)
        return;
    // The renderer leaves the last style's font selected.
    m_backDC.SelectObject(m_backOldFont);
    m_backDC.SelectObject(m_backOldBitmap);
    m_backOldBitmap = nullptr;
    m_backBitmap.DeleteObject();
    m_backDC.DeleteDC();
}

void TerminalWindow::OnPaint() {
    CPaintDC dc(this);
    if (!EnsureBackBuffer()) {
        m_backCurrent = false;
        return;
    }
    if (!m_backCurrent) {
        // The cells cover their grid opaquely: only the margins around it are filled.
        const COLORREF background = m_screen->GetBkColor();
        const int left = m_layout.ColumnToX(0), top = m_layout.RowToY(0);
        const int right = m_layout.ColumnToX(m_screen->VisColumns());
        const int bottom = m_layout.RowToY(m_screen->VisRows());
        m_backDC.FillSolidRect(0, 0, m_backSize.cx, top, background);
        m_backDC.FillSolidRect(0, 0, left, m_backSize.cy, background);
        m_backDC.FillSolidRect(right, 0, std::max(0, m_backSize.cx - right), m_backSize.cy,
                               background);
        m_backDC.FillSolidRect(0, bottom, m_backSize.cx, std::max(0, m_backSize.cy - bottom),
                               background);
        m_screen->Refresh(&m_backDC);
        m_backCurrent = true;
        m_lastPicture = std::chrono::steady_clock::now();
    }
    // Only what was asked for is copied: an echo costs a cell or two.
    const CRect area = dc.m_ps.rcPaint;
    dc.BitBlt(area.left, area.top, area.Width(), area.Height(), &m_backDC, area.left, area.top,
              SRCCOPY);
    // The screen draws no cursor: a bar under the cursor's cell.
    m_cursorShown.SetRectEmpty();
    if (!m_ended && m_parser->CursorVisible() && m_screen->GetRow() <= m_screen->VisRows()) {
        const RECT cell = CursorCell();
        const int bar = std::max(2, static_cast<int>((cell.bottom - cell.top) / 8));
        dc.FillSolidRect(cell.left, cell.bottom - bar, cell.right - cell.left, bar,
                         TerminalLayout::kColours[0]);
        m_cursorShown = cell;
    }
}

void TerminalWindow::OnSize(UINT, int cx, int cy) {
    if (!m_screen)
        return;
    const CSize cell = m_layout.GetCharSize();
    const int margin = m_layout.ColumnToX(0);
    if (cell.cx <= 0 || cell.cy <= 0)
        return;
    m_windowRows = std::max(1, (cy - 2 * margin) / static_cast<int>(cell.cy));
    m_windowColumns = std::clamp((cx - 2 * margin) / static_cast<int>(cell.cx), 1, 132);
    // A selection is marked at one width: end it before the width changes.
    DrawingSelection([&] { m_screen->Unselect(); });
    m_screen->SetWindowSize(m_windowRows, m_windowColumns, true);
    m_backCurrent = false;
    // The program is told the screen's own size: at least 24 rows and the
    // terminal's columns, as the screen wraps and positions.
    const int rows = m_screen->VisRows();
    const int columns = m_screen->VisColumns();
    if (rows != m_ptyRows || columns != m_ptyColumns) {
        m_ptyRows = rows;
        m_ptyColumns = columns;
        m_pty.Resize(rows, columns);
    }
    Invalidate(FALSE);
}

void TerminalWindow::OnDestroy() {
    // Closed by the user: the program is hung up.
    if (!m_ended) {
        if (m_pty.Descriptor() >= 0)
            platform::display::UnwatchDescriptor(m_pty.Descriptor());
        m_ended = true;
        m_closedByUser = true;
        m_pty.HangUp();
        m_exitCode = m_pty.Finish();
    }
    if (m_options.quitWhenClosed)
        PostQuitMessage(m_exitCode < 0 ? 1 : m_exitCode);
    ReleaseBackBuffer();
    CWnd::OnDestroy();
}

void TerminalWindow::FitWindow(int rows, int columns) {
    CSize view = m_layout.ViewSize(rows, columns);
    RECT frame{0, 0, view.cx, view.cy};
    AdjustWindowRect(&frame, kWindowStyle, FALSE);
    SetWindowPos(nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                 SWP_NOMOVE | SWP_NOZORDER);
}

RECT TerminalWindow::CursorCell() {
    const int col = std::min(m_screen->GetCol(), m_screen->VisColumns()) - 1;
    return CellRect(m_screen->GetRow() - 1, col);
}

RECT TerminalWindow::CellRect(int row, int col) {
    const CSize cell = m_layout.GetCharSize();
    const int x = m_layout.ColumnToX(col);
    const int y = m_layout.RowToY(row);
    return RECT{x, y, x + static_cast<int>(cell.cx), y + static_cast<int>(cell.cy)};
}

CursorPos TerminalWindow::CellAt(int x, int y) {
    const CSize cell = m_layout.GetCharSize();
    const int margin = m_layout.ColumnToX(0);
    const int lastRow = std::min(m_screen->VisRows(), m_windowRows) - 1;
    const int lastCol = std::min(m_screen->VisColumns(), m_windowColumns) - 1;
    const int row = std::clamp((y - margin) / std::max(1, static_cast<int>(cell.cy)), 0, lastRow);
    const int col = std::clamp((x - margin) / std::max(1, static_cast<int>(cell.cx)), 0, lastCol);
    return CursorPos(row + 1, col + 1);
}
