// A journal of what a device context did, for tests. It records values rather
// than handles: the per-glyph pens are gone by the time a test looks.
#pragma once

#include "../windef.h"

#include <string>
#include <vector>

namespace platform {

struct JournalEntry {
    std::string op;             // "TextOut", "Polyline", "SetBkMode", "SelectObject", ...
    int args[4] = {0, 0, 0, 0}; // x, y and the like; setters record their argument in args[0]
    std::u16string text;        // TextOut's string
    std::vector<POINT> points;  // Polyline and Polygon

    // The state the operation ran with.
    COLORREF textColor = 0;
    COLORREF bkColor = 0;
    int bkMode = 0;
    std::u16string fontFace; // the LOGFONT face name of the selected font
    LONG fontHeight = 0;
    LONG fontWeight = 0;
    bool fontUnderline = false;
    bool fontItalic = false;
    DWORD penStyle = 0;
    int penWidth = 0;
    COLORREF penColor = 0;
    UINT brushStyle = 0;
    COLORREF brushColor = 0;
};

class GdiJournal {
public:
    std::vector<JournalEntry> entries;

    void Clear() { entries.clear(); }
    // The entries of one operation, in order.
    std::vector<JournalEntry> Ops(const std::string& op) const;
    std::size_t Count(const std::string& op) const;
    // One line per entry, for failure messages.
    std::string Dump() const;
};

// Starts recording the operations performed on hdc into journal; null stops it.
// The journal must outlive the recording.
void SetJournal(HDC hdc, GdiJournal* journal);

} // namespace platform
