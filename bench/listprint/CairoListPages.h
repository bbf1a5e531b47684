// The baseline of the list print benchmark: the same pages drawn by Cairo
// directly onto a PDF surface: the header line, the title row and the rows
// of each page, every text at the position the list print view gives it.
#pragma once

#include <string>
#include <vector>

struct ListPageLayout {
    std::vector<std::string> titles;             // UTF-8, in printed order
    std::vector<std::vector<std::string>> cells; // each row's texts
    std::vector<int> widths;                     // columns, in print units (1/96 inch)
    int rowHeight = 0;                           // print units
    std::string header;                          // the header line
    int headerCentre = 0;                        // where it is centred, print units
    // The page and its margins, in print units (US Letter).
    int pageHeight = 1056;
    int left = 36;
    int top = 72;
    int bottom = 72;
    std::string cellFont; // font files and sizes in points
    double cellPoints = 0;
    std::string headerFont;
    double headerPoints = 0;
};

// Writes every page of layout to pdf; the number of pages.
int DrawListPages(const ListPageLayout& layout, const std::string& pdf);
