#include "PtyCapture.h"

#include "PtySession.h"

#include <chrono>
#include <thread>

PtyCapture PtyCapture::Run(const std::vector<std::string>& argv, int rows, int columns,
                           double seconds) {
    using Clock = std::chrono::steady_clock;
    PtyCapture result;
    // The size is fixed for the whole run, so the program may take it from
    // LINES and COLUMNS as well as from the terminal.
    PtySession pty;
    if (!pty.Start(argv, rows, columns, &result.error, PtySession::SizeVariables::Set))
        return result;

    auto deadline = Clock::now() + std::chrono::duration<double>(seconds);
    char buffer[16384];
    for (;;) {
        auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0) {
            result.timedOut = true;
            break;
        }
        if (!pty.WaitReadable(static_cast<int>(left.count())))
            continue; // the deadline check above ends the loop
        std::size_t got = 0;
        PtySession::ReadResult read = pty.Read(buffer, sizeof buffer, &got);
        if (read == PtySession::ReadResult::Data)
            result.output.append(buffer, got);
        else if (read == PtySession::ReadResult::Ended)
            break; // every copy of the terminal's other side is closed
    }
    // A program that closed the terminal but goes on running is still held to
    // the time limit.
    while (!result.timedOut && !pty.Ended(&result.exitStatus)) {
        if (Clock::now() >= deadline)
            result.timedOut = true;
        else
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    // Stopped before the terminal closes, so the program ends by SIGTERM
    // rather than by the hang-up.
    if (result.timedOut)
        result.exitStatus = pty.Stop();
    pty.HangUp();
    return result;
}
