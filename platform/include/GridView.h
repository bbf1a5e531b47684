// The grid in a window: a view that draws the grid's header row, header
// column and cells, scrolls through them, and prints them on pages.
#pragma once

#include "GridCore.h"
#include "afxwin.h"

#include <memory>
#include <vector>

namespace platform::grid {
struct PrintPages;
}

// The grid library's view base: a view that prints at the size it shows.
class CGXView : public CView {
    DECLARE_DYNAMIC(CGXView)

public:
    // Sets dc up for printing: one logical unit per pixel of the screen (96
    // per inch), so that a column as wide as it shows on the screen prints
    // as wide on paper.
    static void SetPrintMapping(CDC* dc);
    // The whole page in those units, from (0, 0).
    static CRect GetPrintPageRect(CDC* dc);

protected:
    CGXView();
    ~CGXView() override;
};

class CGXGridView : public CGXView, public CGXGridCore {
    DECLARE_DYNCREATE(CGXGridView)

public:
    // Starts at the first row and column.
    void OnInitialUpdate() override;
    // The header row, the header column unless hidden, and the cells from the
    // top row and left column on, as far as the window reaches.
    void OnDraw(CDC* dc) override;

    // Printing, in three steps. Begin sets dc up for printing, divides the
    // grid into pages and sets the job's last page: rows go onto pages
    // below the header row, which every page repeats; when the columns are
    // wider than the page they go into bands, and the pages run through all
    // rows of one band before the next band. Print draws page
    // info->m_nCurPage within the margins of the print properties; End
    // drops the pages. A null dc or info does nothing.
    virtual void OnGXBeginPrinting(CDC* dc, CPrintInfo* info);
    virtual void OnGXPrint(CDC* dc, CPrintInfo* info);
    virtual void OnGXEndPrinting(CDC* dc, CPrintInfo* info);

    // The framework's print steps run the grid's: the print dialog (or the
    // default printer), then begin, each page and end as above. Before each
    // page the DC is set up for printing, so that what a derived view draws
    // on the page shares the grid's units.
    BOOL OnPreparePrinting(CPrintInfo* info) override;
    void OnBeginPrinting(CDC* dc, CPrintInfo* info) override;
    void OnPrepareDC(CDC* dc, CPrintInfo* info = nullptr) override;
    void OnPrint(CDC* dc, CPrintInfo* info) override;
    void OnEndPrinting(CDC* dc, CPrintInfo* info) override;
    // The pages the last begin step counted; 0 outside a print job.
    UINT GetPrintPageCount() const;

    // Scrolling: the first data row and column shown below and beside the
    // headers. They go no further than needed to show the last row and
    // column; FALSE when nothing changed.
    int GetTopRow() const { return m_nTopRow; }
    int GetLeftCol() const { return m_nLeftCol; }
    BOOL SetTopRow(int row);
    BOOL SetLeftCol(int col);
    // The last data row and column that show, at least in part; 0 when none.
    int GetLastVisibleRow() const;
    int GetLastVisibleCol() const;

protected:
    CGXGridView();
    ~CGXGridView() override;

    // Repaints the window for changes the update flags ask to show.
    void OnGridChanged(UINT flags) override;
    void OnSize(UINT type, int cx, int cy) override;
    // The arrow keys, Page Up and Page Down, Home and End scroll.
    void OnKeyDown(UINT ch, UINT repeat, UINT flags);

    // Draws the header row and the rows first to last of the columns cols
    // (and the header column, unless hidden) from the top-left corner of
    // bounds, clipped to bounds.
    void DrawCells(CDC* dc, const CRect& bounds, int firstRow, int lastRow,
                   const std::vector<int>& cols);

    DECLARE_MESSAGE_MAP()

private:
    int MaxTopRow() const;
    int MaxLeftCol() const;
    // Width of the header column: 0 when hidden.
    int HeaderColWidth() const;

    int m_nTopRow = 1;
    int m_nLeftCol = 1;
    std::unique_ptr<platform::grid::PrintPages> m_pages;
};
