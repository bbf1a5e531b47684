// A pair of strings, such as a setting's name and its value, and the
// orderings by either string in either direction. The comparisons are the
// framework's: code unit by code unit, case-sensitive, a proper prefix first.
#pragma once

#include <afxstr.h>

#include <vector>

class FieldValuePair {
public:
    FieldValuePair();
    FieldValuePair(const CString& field, const CString& value);
    FieldValuePair(const FieldValuePair& other);
    FieldValuePair& operator=(const FieldValuePair& other);
    ~FieldValuePair();

    CString m_field;
    CString m_value;
};

class SortAscendingUsingField {
public:
    bool operator()(const FieldValuePair& a, const FieldValuePair& b) const {
        return a.m_field.Compare(b.m_field) < 0;
    }
};

class SortDescendingUsingField {
public:
    bool operator()(const FieldValuePair& a, const FieldValuePair& b) const {
        return a.m_field.Compare(b.m_field) > 0;
    }
};

class SortAscendingUsingValue {
public:
    bool operator()(const FieldValuePair& a, const FieldValuePair& b) const {
        return a.m_value.Compare(b.m_value) < 0;
    }
};

class SortDescendingUsingValue {
public:
    bool operator()(const FieldValuePair& a, const FieldValuePair& b) const {
        return a.m_value.Compare(b.m_value) > 0;
    }
};

// Sorts the whole vector by field (byField nonzero) or by value, ascending
// when ascending is nonzero. Pairs whose sort strings are equal may come out
// in any order.
void SortFieldValuePairList(std::vector<FieldValuePair>& list, int ascending, int byField);
