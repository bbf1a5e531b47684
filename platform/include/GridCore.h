// The grid's model: row and column counts, each cell's style, column widths
// and hidden columns. Row 0 is the header row and column 0 the row-header
// column; the data rows and columns are numbered from 1 up to the counts.
// Operations on cells outside the grid ignore those cells; a range is
// clipped to the grid first.
//
// The update flag that the operations take says when a grid shown in a
// window repaints (see OnGridChanged); the command type says how a change is
// recorded as a command, and this model keeps no command history.
#pragma once

#include "GridParam.h"
#include "GridRange.h"
#include "GridStyle.h"
#include "afx.h"

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <unordered_map>

// Update flags.
constexpr UINT GRID_UPDATE_NONE = 0;
constexpr UINT GRID_UPDATE_NOW = 1;
constexpr UINT GRID_UPDATE_INVALIDATE = 2;
// How a style is applied: its included attributes override the cell's.
constexpr int GRID_MODIFY_OVERRIDE = 0;
// Which styles a style operation changes: the cells' own.
constexpr int GRID_STYLE_CELLS = 0;
// Cell controls: a plain text cell, and a drop-down list offering the
// style's choice list.
constexpr WORD GRID_CONTROL_EDIT = 0xCD20;
constexpr WORD GRID_CONTROL_CHOICE_LIST = 0xCD25;
// User attribute: the cell's tool-tip text.
constexpr WORD GRID_ATTR_TOOLTIP = 0xC74E;

class CGXGridCore {
public:
    CGXGridCore();
    virtual ~CGXGridCore();
    CGXGridCore(const CGXGridCore&) = delete;
    CGXGridCore& operator=(const CGXGridCore&) = delete;

    // Counts of data rows and columns, besides row 0 and column 0. A smaller
    // count drops the styles, widths and hidden state beyond it. FALSE for a
    // negative count.
    BOOL SetRowCount(int rows, UINT flags = GRID_UPDATE_INVALIDATE);
    BOOL SetColCount(int cols, UINT flags = GRID_UPDATE_INVALIDATE);
    int GetRowCount() const { return m_rows; }
    int GetColCount() const { return m_cols; }

    // Applies style to every cell of range. Supported: modifyType
    // GRID_MODIFY_OVERRIDE, type GRID_STYLE_CELLS and no cell array (a
    // style per cell); anything else, or a range outside the grid, changes
    // nothing and gives FALSE.
    BOOL SetStyleRange(const CGXRange& range, const CGXStyle& style,
                       int modifyType = GRID_MODIFY_OVERRIDE, int type = GRID_STYLE_CELLS,
                       const void* cellArray = nullptr, UINT flags = GRID_UPDATE_INVALIDATE,
                       int cmdType = 0);
    // The cell's own style (empty when nothing was applied to it); FALSE
    // outside the grid.
    BOOL GetStyleRowCol(int row, int col, CGXStyle& style) const;
    // The cell's value; empty outside the grid.
    CString GetValueRowCol(int row, int col) const;

    // A style callers may fill and apply; Free clears it.
    CGXStyle& StyleScratch() { return m_scratch; }

    // The grid's settings: the repaint switch and the print properties.
    CGXGridParam* GetParam() { return m_param.get(); }
    const CGXGridParam* GetParam() const { return m_param.get(); }

    // Widths in pixels of the screen. Columns first to last (clipped to the
    // grid) take width, or widthArray[i] for column first + i when given; a
    // negative width counts as 0. FALSE when no column of the grid is named.
    BOOL SetColWidth(int first, int last, int width, const int* widthArray = nullptr,
                     UINT flags = GRID_UPDATE_INVALIDATE, int cmdType = 0);
    // 0 for a hidden column and outside the grid.
    int GetColWidth(int col) const;
    static constexpr int kDefaultColWidth = 64;

    // Hides (or shows again) columns first to last; hideArray[i], when given,
    // decides for column first + i. A shown column has its width back.
    BOOL HideCols(int first, int last, BOOL hide = TRUE, const BOOL* hideArray = nullptr,
                  UINT flags = GRID_UPDATE_INVALIDATE, int cmdType = 0);
    BOOL IsColHidden(int col) const;

    // The height of a row in pixels of the screen: the grid font's character
    // height and the margins above and below; 0 outside the grid.
    int GetRowHeight(int row) const;

    // Sets each column of range to the width of its widest value in the range
    // (the widest line of values with line breaks), measured on the screen in
    // the grid font, plus the text margins. Cells covered by others count
    // alike (no cell covers another in this grid). FALSE for a range outside
    // the grid.
    BOOL ResizeColWidthsToFit(const CGXRange& range, BOOL resizeCoveredCells = TRUE,
                              UINT flags = GRID_UPDATE_INVALIDATE);

    // The font cells are drawn and measured in: the desktop's dialog font.
    const LOGFONT& GetGridFont() const { return m_font; }
    // Pixels between a cell's text and its left and right (top and bottom)
    // edges.
    static constexpr int kTextMarginX = 3;
    static constexpr int kTextMarginY = 1;

protected:
    // The cell's value without a copy: an empty string for a cell without one.
    const CString& ValueRef(int row, int col) const;

    // A change was made with these update flags and may be shown now: a grid
    // in a window repaints (GRID_UPDATE_INVALIDATE later, GRID_UPDATE_NOW at
    // once). The model alone has nothing to show.
    virtual void OnGridChanged(UINT flags);

private:
    friend class CGXGridParam;
    // Passes a change on, or holds it back while updates are switched off.
    void Changed(UINT flags);
    // Passes on what was held back while updates were switched off.
    void FlushPendingUpdate();
    // The range's part inside the grid; false when nothing is left.
    bool Clip(const CGXRange& range, CGXRange& clipped) const;
    static std::uint64_t Key(int row, int col) {
        return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(row)) << 32) |
               static_cast<std::uint32_t>(col);
    }
    int MeasureWidest(int col, int top, int bottom) const;

    int m_rows = 0;
    int m_cols = 0;
    // Only the cells, widths and hidden columns that were ever set are kept,
    // so large counts cost nothing until cells get styles.
    std::unordered_map<std::uint64_t, CGXStyle> m_cells;
    std::map<int, int> m_widths;
    std::set<int> m_hidden;
    CGXStyle m_scratch;
    std::unique_ptr<CGXGridParam> m_param;
    UINT m_pendingFlags = GRID_UPDATE_NONE;
    LOGFONT m_font{};
    mutable int m_rowHeight = 0;
};
