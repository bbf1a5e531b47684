// Runs a program in a pseudo-terminal of the given size with TERM=vt100 and
// collects what it writes, sending it no input, until it exits or a time limit
// passes (then it is stopped).
#pragma once

#include <string>
#include <vector>

struct PtyCapture {
    std::string output;
    bool timedOut = false;
    int exitStatus = -1; // the wait status, or -1 when it could not be collected
    std::string error;   // why the program could not be run; empty on success

    static PtyCapture Run(const std::vector<std::string>& argv, int rows, int columns,
                          double seconds);
};
