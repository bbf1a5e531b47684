// A program running on a pseudo-terminal that stays open for a window: the
// master side is non-blocking, so a message loop can read what the program
// writes whenever the descriptor is ready and write the user's keys to it.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

class PtySession {
public:
    enum class ReadResult { Data, Nothing, Ended };

    PtySession() = default;
    // Closes the terminal and, if the program still runs, hangs it up.
    ~PtySession();
    PtySession(const PtySession&) = delete;
    PtySession& operator=(const PtySession&) = delete;

    // Whether the program finds its size in LINES and COLUMNS. A terminal that
    // keeps one size can set them; one whose size follows a window removes them,
    // so the program asks the terminal and sees every resize.
    enum class SizeVariables { Unset, Set };

    // Runs argv with TERM=vt100 on a new terminal of rows by columns. False,
    // with the reason in *error, when the terminal or the process cannot be made.
    bool Start(const std::vector<std::string>& argv, int rows, int columns, std::string* error,
               SizeVariables sizeVariables);

    int Descriptor() const { return m_master; }
    bool Running() const { return m_pid > 0; }

    // Reads what is there without waiting: Data with *got bytes, Nothing when
    // the program has written nothing more, Ended when every copy of the
    // terminal's other side is closed (the program has exited).
    ReadResult Read(char* buffer, std::size_t size, std::size_t* got);

    // Waits up to ms milliseconds for the program to write; true when it has
    // (or has ended).
    bool WaitReadable(int ms);

    // Writes every byte. While the program does not take them (its input is
    // full), what it writes meanwhile goes to drain, so neither side blocks
    // the other; gives up after a few seconds without progress. False when the
    // bytes could not all be written.
    bool Write(std::string_view bytes, const std::function<void(const char*, std::size_t)>& drain);

    // Closes the terminal: the kernel hangs up the program's session.
    void HangUp();

    // Tells the terminal its new size; the kernel signals SIGWINCH to the
    // program's foreground process group.
    bool Resize(int rows, int columns);

    // Waits for the program (a hung-up program is stopped after a while) and
    // returns its exit code as a shell reports it: the status, or 128 plus the
    // signal that ended it. -1 when there is no program to wait for.
    int Finish();

    // Collects the program's end without waiting: true once it has exited
    // (*status its wait status) or cannot be waited for (*status -1); it then
    // no longer runs.
    bool Ended(int* status);

    // Stops the program now, politely first (SIGTERM), then for good after half
    // a second. Returns its wait status, or -1 when it could not be collected.
    int Stop();

private:
    int m_master = -1;
    pid_t m_pid = -1;
};
