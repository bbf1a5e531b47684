// Print queues through libcups: the list of destinations and job submission.
#include "PrintQueues.h"

#include <cups/cups.h>

namespace platform::gdi {

std::vector<PrintQueue> PrintQueues() {
    std::vector<PrintQueue> queues;
    cups_dest_t* dests = nullptr;
    int count = cupsGetDests2(CUPS_HTTP_DEFAULT, &dests);
    for (int i = 0; i < count; ++i) {
        // An instance ("queue/instance") is a set of options on a queue, not
        // a printer of its own.
        if (dests[i].instance)
            continue;
        PrintQueue queue;
        queue.name = dests[i].name;
        const char* info = cupsGetOption("printer-info", dests[i].num_options, dests[i].options);
        if (!info || !*info)
            info = cupsGetOption("printer-location", dests[i].num_options, dests[i].options);
        queue.info = info ? info : "";
        queues.push_back(std::move(queue));
    }
    cupsFreeDests(count, dests);
    return queues;
}

bool PrintQueueExists(const std::string& name) {
    for (const PrintQueue& queue : PrintQueues())
        if (queue.name == name)
            return true;
    return false;
}

int SubmitPrintJob(const std::string& queue, const std::string& file, const std::string& title,
                   int copies, bool collate, std::string* error) {
    cups_option_t* options = nullptr;
    int count = 0;
    count =
        cupsAddOption("copies", std::to_string(copies < 1 ? 1 : copies).c_str(), count, &options);
    count = cupsAddOption("collate", collate ? "true" : "false", count, &options);
    count = cupsAddOption("document-format", "application/pdf", count, &options);
    int job = cupsPrintFile2(CUPS_HTTP_DEFAULT, queue.c_str(), file.c_str(), title.c_str(), count,
                             options);
    cupsFreeOptions(count, options);
    if (job == 0 && error)
        *error =
            cupsLastErrorString() ? cupsLastErrorString() : "the print service refused the job";
    return job;
}

} // namespace platform::gdi
