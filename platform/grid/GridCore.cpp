#include "GridCore.h"

#include <algorithm>
#include <cstddef>

namespace {

// Index of col in an array that starts at first (which may lie before the grid).
std::size_t Offset(long long col, int first) {
    return static_cast<std::size_t>(col - first);
}

} // namespace

CGXGridCore::CGXGridCore() : m_param(std::make_unique<CGXGridParam>(*this)) {
    GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof(m_font), &m_font);
}

CGXGridCore::~CGXGridCore() = default;

void CGXGridCore::OnGridChanged(UINT) {}

void CGXGridCore::Changed(UINT flags) {
    if (flags == GRID_UPDATE_NONE)
        return;
    if (!m_param->IsUpdateEnabled()) {
        m_pendingFlags |= flags;
        return;
    }
    OnGridChanged(flags);
}

void CGXGridCore::FlushPendingUpdate() {
    UINT flags = m_pendingFlags;
    m_pendingFlags = GRID_UPDATE_NONE;
    if (flags != GRID_UPDATE_NONE && m_param->IsUpdateEnabled())
        OnGridChanged(flags);
}

BOOL CGXGridCore::SetRowCount(int rows, UINT flags) {
    if (rows < 0)
        return FALSE;
    if (rows < m_rows)
        std::erase_if(m_cells, [rows](const auto& cell) {
            return static_cast<int>(cell.first >> 32) > rows;
        });
    m_rows = rows;
    Changed(flags);
    return TRUE;
}

BOOL CGXGridCore::SetColCount(int cols, UINT flags) {
    if (cols < 0)
        return FALSE;
    if (cols < m_cols) {
        std::erase_if(m_cells, [cols](const auto& cell) {
            return static_cast<int>(cell.first & 0xFFFFFFFFu) > cols;
        });
        m_widths.erase(m_widths.upper_bound(cols), m_widths.end());
        m_hidden.erase(m_hidden.upper_bound(cols), m_hidden.end());
    }
    m_cols = cols;
    Changed(flags);
    return TRUE;
}

bool CGXGridCore::Clip(const CGXRange& range, CGXRange& clipped) const {
    clipped.SetCells(std::max(range.top, 0), std::max(range.left, 0),
                     std::min(range.bottom, m_rows), std::min(range.right, m_cols));
    return !clipped.IsEmpty();
}

BOOL CGXGridCore::SetStyleRange(const CGXRange& range, const CGXStyle& style, int modifyType,
                                int type, const void* cellArray, UINT flags, int) {
    CGXRange cells;
    if (modifyType != GRID_MODIFY_OVERRIDE || type != GRID_STYLE_CELLS || cellArray ||
        !Clip(range, cells))
        return FALSE;
    // Counted in 64 bits: a range may end at the largest int.
    for (long long row = cells.top; row <= cells.bottom; ++row)
        for (long long col = cells.left; col <= cells.right; ++col)
            m_cells[Key(static_cast<int>(row), static_cast<int>(col))].ChangeStyle(style);
    Changed(flags);
    return TRUE;
}

BOOL CGXGridCore::GetStyleRowCol(int row, int col, CGXStyle& style) const {
    if (!CGXRange(0, 0, m_rows, m_cols).IsCellInRange(row, col))
        return FALSE;
    auto it = m_cells.find(Key(row, col));
    if (it != m_cells.end())
        style = it->second;
    else
        style.Free();
    return TRUE;
}

CString CGXGridCore::GetValueRowCol(int row, int col) const {
    if (!CGXRange(0, 0, m_rows, m_cols).IsCellInRange(row, col))
        return CString();
    auto it = m_cells.find(Key(row, col));
    return it != m_cells.end() ? it->second.GetValue() : CString();
}

const CString& CGXGridCore::ValueRef(int row, int col) const {
    static const CString empty;
    auto it = m_cells.find(Key(row, col));
    return it != m_cells.end() ? it->second.GetValue() : empty;
}

BOOL CGXGridCore::SetColWidth(int first, int last, int width, const int* widthArray, UINT flags,
                              int) {
    CGXRange cols;
    if (!Clip(CGXRange(0, first, 0, last), cols))
        return FALSE;
    for (long long col = cols.left; col <= cols.right; ++col)
        m_widths[static_cast<int>(col)] =
            std::max(0, widthArray ? widthArray[Offset(col, first)] : width);
    Changed(flags);
    return TRUE;
}

int CGXGridCore::GetColWidth(int col) const {
    if (col < 0 || col > m_cols || m_hidden.count(col))
        return 0;
    auto it = m_widths.find(col);
    return it != m_widths.end() ? it->second : kDefaultColWidth;
}

BOOL CGXGridCore::HideCols(int first, int last, BOOL hide, const BOOL* hideArray, UINT flags, int) {
    CGXRange cols;
    if (!Clip(CGXRange(0, first, 0, last), cols))
        return FALSE;
    for (long long col = cols.left; col <= cols.right; ++col) {
        if (hideArray ? hideArray[Offset(col, first)] : hide)
            m_hidden.insert(static_cast<int>(col));
        else
            m_hidden.erase(static_cast<int>(col));
    }
    Changed(flags);
    return TRUE;
}

BOOL CGXGridCore::IsColHidden(int col) const {
    return m_hidden.count(col) != 0;
}
