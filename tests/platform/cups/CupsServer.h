// A print service of the test's own: the system's CUPS scheduler run on a
// private configuration with one queue, "testq", whose backend keeps each
// job's document and copy count in a folder. The process's CUPS client is
// pointed at it. Needs the scheduler installed and the superuser (it runs
// its backends as the user lp).
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace testing_support {

class CupsServer {
public:
    CupsServer();
    ~CupsServer();
    CupsServer(const CupsServer&) = delete;
    CupsServer& operator=(const CupsServer&) = delete;

    // Empty when the server runs; else why it could not be started.
    const std::string& Problem() const { return m_problem; }
    // Where the queue's jobs arrive: job-<id>.pdf and job-<id>.copies.
    std::filesystem::path Jobs() const { return m_root / "jobs"; }
    // Waits (up to a few seconds) for the next job's document; empty when
    // none came.
    std::filesystem::path WaitForJob(int jobsBefore) const;
    int JobCount() const;
    // Stops the scheduler; the queue is gone for the client.
    void Stop();

private:
    std::filesystem::path m_root;
    pid_t m_pid = -1;
    std::string m_problem;
};

} // namespace testing_support
