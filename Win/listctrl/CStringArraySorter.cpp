#include "Win/listctrl/CStringArraySorter.h"

#include <cstdlib>

void CStringArraySorter::SortStringArray(CStringArray& array, int order) {
    if (array.GetSize() < 1)
        return;
    std::qsort(array.GetData(), static_cast<std::size_t>(array.GetSize()), sizeof(CString),
               order ? CompareDescending : CompareAscending);
}

int CStringArraySorter::CompareAscending(const void* a, const void* b) {
    return static_cast<const CString*>(a)->Compare(*static_cast<const CString*>(b));
}

int CStringArraySorter::CompareDescending(const void* a, const void* b) {
    return -CompareAscending(a, b);
}
