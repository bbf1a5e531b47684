// The system's print queues, reached through the CUPS library. Internal to
// the platform.
#pragma once

#include <string>
#include <vector>

namespace platform::gdi {

struct PrintQueue {
    std::string name; // UTF-8, as CUPS gives it
    std::string info; // the queue's description, or its location
};

// The queues of the default CUPS server; none when there is no server.
std::vector<PrintQueue> PrintQueues();
bool PrintQueueExists(const std::string& name);

// Sends a finished PDF file to a queue as one job; the job's id, or 0 with
// the reason in error.
int SubmitPrintJob(const std::string& queue, const std::string& file, const std::string& title,
                   int copies, bool collate, std::string* error);

} // namespace platform::gdi
