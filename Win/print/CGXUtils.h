// Helpers that set up a grid from plain strings: its columns from a column
// specification, drop-down choices and tool tips for ranges of cells.
#pragma once

#include <GridCore.h>
#include <afxcoll.h>
#include <afxwin.h>

class CGXUtils {
public:
    CGXUtils() = delete;

    // Makes one grid column per entry of spec ("title;width;" each, e.g.
    // "Name;120;Date;80;"), numbered from 1: the title in header row 0, the
    // width in pixels. The column count grows by one before each entry is
    // read. A malformed entry (no ";", a width that is not an integer) shows
    // the host's message IDS_COLUMN_SPEC_ERROR and ends the work; the columns
    // before it stay, and the faulty entry's column keeps what was set.
    static void CreateColumns(CGXGridCore& grid, const CString& spec);

    // Puts the plain cell control on range; with two or more choices, then a
    // drop-down list offering them (each ended by a line feed).
    static void SetComboChoices(CGXGridCore& grid, const CGXRange& range,
                                const CStringList& choices);

    // Gives range the tool tip made of lines joined by ", ", cut to 90
    // characters and "..." when longer. A blank text changes nothing.
    static void SetToolTip(CGXGridCore& grid, const CGXRange& range, const CStringList& lines);

    // The host's message for a malformed column specification.
    static constexpr UINT IDS_COLUMN_SPEC_ERROR = 697;
    // The longest tool tip kept whole.
    static constexpr int kToolTipLength = 90;
};
