// An MDI application holding a report list of generated rows, with the list
// print template, for timing print jobs as a host runs them.
#pragma once

#include <Win/Win.h>

#include <string>
#include <vector>

class PrintBenchHost {
public:
    // A list of rows x cols generated cells; print jobs write to pdf.
    PrintBenchHost(int rows, int cols, const std::string& pdf);
    ~PrintBenchHost();
    PrintBenchHost(const PrintBenchHost&) = delete;
    PrintBenchHost& operator=(const PrintBenchHost&) = delete;

    // One print job through the list print document, frame and view: the
    // view copies the list, the posted command prints it, the frame closes.
    void Print();

    CListCtrl& List() { return *m_list; }
    // The header line the view prints (the clock is pinned).
    CString HeaderText();
    // The width of the view's client area, which the header line is centred in.
    int ViewWidth() const { return m_viewWidth; }

    // Generated cell texts: items, sites, dates, quantities, prices, codes.
    static CString CellText(int row, int col);
    static CString TitleText(int col);

private:
    class App;
    App* m_app = nullptr;
    CMDIFrameWnd* m_main = nullptr;
    CMDIChildWnd* m_listFrame = nullptr;
    CListCtrl* m_list = nullptr;
    CMultiDocTemplate* m_template = nullptr;
    int m_viewWidth = 0;
};
