// The host terminal: reads a byte stream (a file, standard input, a program run
// in a pseudo-terminal, or the built-in sample session), drives a ScreenBuffer
// through the VT100 parser, and writes the screen as a PNG and a printed PDF
// page, plus the selected text. With --window it is an interactive terminal.
#include "PtyCapture.h"
#include "SampleSession.h"
#include "ScreenOutput.h"
#include "TerminalLayout.h"
#include "TerminalSession.h"
#include "Vt100Parser.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct Options {
    enum class Source { Sample, File, Stdin, Program } source = Source::Sample;
    std::string file;
    std::vector<std::string> program;
    double seconds = 5.0;
    int rows = 24;
    int columns = 80;
    std::string png;
    std::string pdf;
    std::string text;
    bool select = false;
    CursorPos selFrom;
    CursorPos selTo;
    CString face = u"Courier New";
    int size = 16;
    bool window = false;
};

void Usage() {
    std::fprintf(
        stderr,
        "usage: terminal_host [source] [outputs] [options]\n"
        "sources (the sample session when none is given):\n"
        "  --sample            the built-in session, with a selection\n"
        "  --file PATH         a recorded byte stream\n"
        "  --stdin             standard input\n"
        "  --run PROGRAM ARGS  a program in a pseudo-terminal (TERM=vt100), to the end\n"
        "                      of the command line\n"
        "  --window            an interactive terminal window running --run's program,\n"
        "                      else $SHELL (else /bin/sh); --pdf names where its menu's\n"
        "                      \"Print screen to PDF\" writes (default terminal-screen.pdf)\n"
        "                      (WIN_DISPLAY=x11 shows it on the X display)\n"
        "outputs:\n"
        "  --png PATH  --pdf PATH  --text PATH (the selected text, UTF-8)\n"
        "options:\n"
        "  --timeout SECONDS   how long a program may run (default 5)\n"
        "  --rows N --columns N the window size (default 24 by 80)\n"
        "  --select R1,C1,R2,C2 a selection, one-based and inclusive\n"
        "  --font FACE --size N\n");
}

bool ParseInt(const char* text, int min, int max, int& value) {
    char* end = nullptr;
    long v = std::strtol(text, &end, 10);
    if (!*text || *end || v < min || v > max)
        return false;
    value = static_cast<int>(v);
    return true;
}

bool ParseOptions(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        auto next = [&]() -> const char* { return i + 1 < argc ? argv[++i] : nullptr; };
        const char* value = nullptr;
        if (arg == "--window") {
            options.window = true;
        } else if (arg == "--sample") {
            options.source = Options::Source::Sample;
        } else if (arg == "--stdin") {
            options.source = Options::Source::Stdin;
        } else if (arg == "--file" && (value = next())) {
            options.source = Options::Source::File;
            options.file = value;
        } else if (arg == "--run" && i + 1 < argc) {
            options.source = Options::Source::Program;
            options.program.assign(argv + i + 1, argv + argc);
            break;
        } else if (arg == "--png" && (value = next())) {
            options.png = value;
        } else if (arg == "--pdf" && (value = next())) {
            options.pdf = value;
        } else if (arg == "--text" && (value = next())) {
            options.text = value;
        } else if (arg == "--timeout" && (value = next())) {
            char* end = nullptr;
            options.seconds = std::strtod(value, &end);
            if (*end || !(options.seconds > 0 && options.seconds <= 3600))
                return false;
        } else if (arg == "--rows" && (value = next())) {
            if (!ParseInt(value, 1, 200, options.rows))
                return false;
        } else if (arg == "--columns" && (value = next())) {
            if (!ParseInt(value, 1, 132, options.columns))
                return false;
        } else if (arg == "--font" && (value = next())) {
            options.face = platform::FromUtf8(value);
        } else if (arg == "--size" && (value = next())) {
            if (!ParseInt(value, -200, 200, options.size) || options.size == 0)
                return false;
        } else if (arg == "--select" && (value = next())) {
            int r1, c1, r2, c2;
            char tail;
            if (std::sscanf(value, "%d,%d,%d,%d%c", &r1, &c1, &r2, &c2, &tail) != 4)
                return false;
            options.select = true;
            options.selFrom = CursorPos(r1, c1);
            options.selTo = CursorPos(r2, c2);
        } else {
            return false;
        }
    }
    return true;
}

bool ReadSource(const Options& options, std::string& bytes) {
    switch (options.source) {
    case Options::Source::Sample:
        bytes = sample::SessionBytes();
        return true;
    case Options::Source::File: {
        std::ifstream in(options.file, std::ios::binary);
        if (!in) {
            std::fprintf(stderr, "terminal_host: cannot read %s\n", options.file.c_str());
            return false;
        }
        bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
        return true;
    }
    case Options::Source::Stdin: {
        std::ostringstream all;
        all << std::cin.rdbuf();
        bytes = all.str();
        return true;
    }
    case Options::Source::Program: {
        PtyCapture run =
            PtyCapture::Run(options.program, options.rows, options.columns, options.seconds);
        if (!run.error.empty()) {
            std::fprintf(stderr, "terminal_host: %s\n", run.error.c_str());
            return false;
        }
        std::fprintf(stderr, "terminal_host: %s %s after %zu bytes\n", options.program[0].c_str(),
                     run.timedOut ? "stopped at the time limit" : "exited", run.output.size());
        bytes = std::move(run.output);
        return true;
    }
    }
    return false;
}

// A selection must lie on the visible screen; one outside it is refused here.
bool SelectionFits(const ScreenBuffer& screen, const CursorPos& a, const CursorPos& b) {
    auto inside = [&](const CursorPos& p) {
        return p.m_row >= 1 && p.m_row <= screen.VisRows() && p.m_col >= 1 &&
               p.m_col <= screen.VisColumns();
    };
    return inside(a) && inside(b);
}

} // namespace

static int RunWindow(const Options& options) {
    TerminalWindow::Options window;
    window.program = options.program;
    if (window.program.empty()) {
        const char* shell = std::getenv("SHELL");
        window.program.push_back(shell && *shell ? shell : "/bin/sh");
    }
    window.face = options.face;
    window.size = options.size;
    window.rows = options.rows;
    window.columns = options.columns;
    if (!options.pdf.empty())
        window.pdfPath = options.pdf;
    return RunTerminalWindow(window);
}

int main(int argc, char** argv) {
    Options options;
    if (!ParseOptions(argc, argv, options)) {
        Usage();
        return 2;
    }
    if (options.window)
        return RunWindow(options);
    std::string bytes;
    if (!ReadSource(options, bytes))
        return 1;

    TerminalLayout layout;
    layout.Apply(options.face, options.size);
    ScreenBuffer screen(layout);
    screen.SetWindowSize(options.rows, options.columns, false);
    // The power-up setting of a VT100 whose set-up has auto wrap on, as its
    // terminal description promises.
    screen.SetAutoWrapMode(true);
    Vt100Parser parser(screen);
    parser.Feed(bytes);

    if (options.source == Options::Source::Sample && !options.select) {
        options.select = true;
        options.selFrom = sample::SelectionStart();
        options.selTo = sample::SelectionEnd();
    }
    if (options.select) {
        if (!SelectionFits(screen, options.selFrom, options.selTo)) {
            std::fprintf(stderr, "terminal_host: the selection lies outside the %dx%d screen\n",
                         screen.VisRows(), screen.VisColumns());
            return 2;
        }
        screen.Select(options.selFrom, options.selTo);
    }

    int failures = 0;
    if (!options.png.empty()) {
        if (screen_output::WritePng(screen, layout, options.png)) {
            std::printf("terminal_host: wrote %s\n", options.png.c_str());
        } else {
            std::fprintf(stderr, "terminal_host: cannot write %s\n", options.png.c_str());
            ++failures;
        }
    }
    if (!options.pdf.empty()) {
        if (screen_output::PrintPdf(screen, layout, options.face, options.pdf)) {
            std::printf("terminal_host: printed %s\n", options.pdf.c_str());
        } else {
            std::fprintf(stderr, "terminal_host: cannot print %s\n", options.pdf.c_str());
            ++failures;
        }
    }
    if (!options.text.empty()) {
        if (screen_output::WriteSelectedText(screen, options.text)) {
            std::printf("terminal_host: wrote %s\n", options.text.c_str());
        } else {
            std::fprintf(stderr, "terminal_host: cannot write %s\n", options.text.c_str());
            ++failures;
        }
    }
    return failures ? 1 : 0;
}
