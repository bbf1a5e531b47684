// Sorts a framework string array in place with the C library's qsort,
// comparing code unit by code unit (upper case before lower case).
#pragma once

#include <afxcoll.h>

class CStringArraySorter {
public:
    // Ascending when order is 0, descending otherwise. The strings move as
    // whole objects; their text is not copied.
    static void SortStringArray(CStringArray& array, int order);

    // qsort comparisons of two CString elements: negative, 0 or positive.
    static int CompareAscending(const void* a, const void* b);
    static int CompareDescending(const void* a, const void* b);
};
