#include <platform/GdiJournal.h>

#include <sstream>

namespace platform {

std::vector<JournalEntry> GdiJournal::Ops(const std::string& op) const {
    std::vector<JournalEntry> out;
    for (const JournalEntry& entry : entries)
        if (entry.op == op)
            out.push_back(entry);
    return out;
}

std::size_t GdiJournal::Count(const std::string& op) const {
    std::size_t count = 0;
    for (const JournalEntry& entry : entries)
        count += entry.op == op ? 1 : 0;
    return count;
}

std::string GdiJournal::Dump() const {
    std::ostringstream out;
    for (const JournalEntry& entry : entries) {
        out << entry.op << '(' << entry.args[0] << ", " << entry.args[1] << ", " << entry.args[2]
            << ", " << entry.args[3] << ')';
        if (!entry.text.empty()) {
            out << " \"";
            for (char16_t ch : entry.text)
                out << (ch >= 0x20 && ch < 0x7F ? static_cast<char>(ch) : '?');
            out << '"';
        }
        for (const POINT& p : entry.points)
            out << " (" << p.x << ',' << p.y << ')';
        out << std::hex << " text=" << entry.textColor << " bk=" << entry.bkColor << std::dec
            << " mode=" << entry.bkMode << " pen=" << std::hex << entry.penStyle << std::dec << '/'
            << entry.penWidth << '/' << std::hex << entry.penColor << " brush=" << entry.brushColor
            << std::dec << '\n';
    }
    return out.str();
}

} // namespace platform
