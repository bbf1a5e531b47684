#include "Win/listctrl/CListCtrlSorter.h"

#include "Win/listctrl/ListRowSort.h"
#include "Win/listctrl/ListSortKeys.h"

CListCtrlSorter::CListCtrlSorter() : m_sortColumn(-1), m_ascending(true) {}

CListCtrlSorter::CListCtrlSorter(const CListCtrlSorter& other)
    : m_sortColumn(other.m_sortColumn), m_ascending(other.m_ascending) {}

CListCtrlSorter& CListCtrlSorter::operator=(const CListCtrlSorter& other) {
    m_sortColumn = other.m_sortColumn;
    m_ascending = other.m_ascending;
    return *this;
}

CListCtrlSorter::~CListCtrlSorter() = default;

void CListCtrlSorter::SetSortOrder(int column) {
    if (column != m_sortColumn) {
        m_sortColumn = column;
        m_ascending = true;
    } else {
        m_ascending = !m_ascending;
    }
}

bool CListCtrlSorter::GetSortOrder() const {
    return m_ascending;
}

bool CListCtrlSorter::SortListCtrl(CListCtrl& list, int column) {
    SetSortOrder(column);
    return SortListCtrl(list, column, m_ascending, 0, -1);
}

bool CListCtrlSorter::SortListCtrlByDateTime(CListCtrl& list, int column) {
    SetSortOrder(column);
    return SortListCtrlByDateTime(list, column, m_ascending, 0, -1);
}

bool CListCtrlSorter::SortListCtrlByInteger(CListCtrl& list, int column) {
    SetSortOrder(column);
    return SortListCtrlByInteger(list, column, m_ascending, 0, -1);
}

bool CListCtrlSorter::SortListCtrlByDouble(CListCtrl& list, int column) {
    SetSortOrder(column);
    return SortListCtrlByDouble(list, column, m_ascending, 0, -1);
}

bool CListCtrlSorter::SortListCtrl(CListCtrl& list, int column, bool ascending, int low, int high) {
    listsort::SortRows(list, column, ascending, low, high, listsort::TextKey());
    return true;
}

bool CListCtrlSorter::SortListCtrlByDateTime(CListCtrl& list, int column, bool ascending, int low,
                                             int high) {
    listsort::SortRows(list, column, ascending, low, high, listsort::DateTimeKey());
    return true;
}

bool CListCtrlSorter::SortListCtrlByInteger(CListCtrl& list, int column, bool ascending, int low,
                                            int high) {
    listsort::SortRows(list, column, ascending, low, high, listsort::IntegerKey());
    return true;
}

bool CListCtrlSorter::SortListCtrlByDouble(CListCtrl& list, int column, bool ascending, int low,
                                           int high) {
    listsort::SortRows(list, column, ascending, low, high, listsort::DoubleKey());
    return true;
}

int CListCtrlSorter::CompareIntFunc(LPARAM data1, LPARAM data2, LPARAM /*sortParam*/) {
    const auto a = static_cast<LONG>(data1);
    const auto b = static_cast<LONG>(data2);
    if (a > b)
        return 1;
    if (a < b)
        return -1;
    return 0;
}
