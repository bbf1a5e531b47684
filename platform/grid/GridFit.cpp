// Sizes measured in the grid font on the screen.
#include "GridCore.h"

#include <algorithm>

namespace {

// The screen's DC with a font created from the grid's, both given back at
// the end of the measurement.
class ScreenMeasure {
public:
    explicit ScreenMeasure(const LOGFONT& font)
        : m_dc(GetDC(nullptr)), m_font(CreateFontIndirectW(&font)),
          m_old(SelectObject(m_dc, m_font)) {}
    ~ScreenMeasure() {
        SelectObject(m_dc, m_old);
        DeleteObject(m_font);
        ReleaseDC(nullptr, m_dc);
    }
    ScreenMeasure(const ScreenMeasure&) = delete;
    ScreenMeasure& operator=(const ScreenMeasure&) = delete;

    // The widest line of text; lines end at line feeds, a carriage return
    // before one taking no room.
    int Widest(const CString& text) const {
        const WCHAR* p = text.GetString();
        const int length = text.GetLength();
        int widest = 0;
        for (int start = 0; start <= length;) {
            int end = start;
            while (end < length && p[end] != u'\n')
                ++end;
            int count = end - start;
            if (count > 0 && p[start + count - 1] == u'\r')
                --count;
            SIZE size{};
            if (count > 0 && GetTextExtentPoint32W(m_dc, p + start, count, &size))
                widest = std::max(widest, static_cast<int>(size.cx));
            start = end + 1;
        }
        return widest;
    }
    int CharHeight() const {
        TEXTMETRICW tm{};
        GetTextMetricsW(m_dc, &tm);
        return tm.tmHeight;
    }

private:
    HDC m_dc;
    HFONT m_font;
    HGDIOBJ m_old;
};

} // namespace

int CGXGridCore::GetRowHeight(int row) const {
    if (row < 0 || row > m_rows)
        return 0;
    if (m_rowHeight == 0)
        m_rowHeight = ScreenMeasure(m_font).CharHeight() + 2 * kTextMarginY;
    return m_rowHeight;
}

int CGXGridCore::MeasureWidest(int col, int top, int bottom) const {
    ScreenMeasure measure(m_font);
    int widest = 0;
    // Few cells of a tall range may have values: walk the stored cells then.
    const long long rows = static_cast<long long>(bottom) - top + 1;
    if (rows > static_cast<long long>(m_cells.size())) {
        for (const auto& [key, style] : m_cells)
            if (static_cast<int>(key & 0xFFFFFFFFu) == col && static_cast<int>(key >> 32) >= top &&
                static_cast<int>(key >> 32) <= bottom && style.GetIncludeValue())
                widest = std::max(widest, measure.Widest(style.GetValue()));
        return widest;
    }
    for (long long row = top; row <= bottom; ++row) {
        auto it = m_cells.find(Key(static_cast<int>(row), col));
        if (it != m_cells.end() && it->second.GetIncludeValue())
            widest = std::max(widest, measure.Widest(it->second.GetValue()));
    }
    return widest;
}

BOOL CGXGridCore::ResizeColWidthsToFit(const CGXRange& range, BOOL, UINT flags) {
    CGXRange cells;
    if (!Clip(range, cells))
        return FALSE;
    for (long long col = cells.left; col <= cells.right; ++col)
        m_widths[static_cast<int>(col)] =
            MeasureWidest(static_cast<int>(col), cells.top, cells.bottom) + 2 * kTextMarginX;
    Changed(flags);
    return TRUE;
}
