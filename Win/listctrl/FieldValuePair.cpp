#include "Win/listctrl/FieldValuePair.h"

#include <algorithm>

FieldValuePair::FieldValuePair() = default;

FieldValuePair::FieldValuePair(const CString& field, const CString& value)
    : m_field(field), m_value(value) {}

FieldValuePair::FieldValuePair(const FieldValuePair& other)
    : m_field(other.m_field), m_value(other.m_value) {}

FieldValuePair& FieldValuePair::operator=(const FieldValuePair& other) {
    if (this != &other) {
        m_field = other.m_field;
        m_value = other.m_value;
    }
    return *this;
}

FieldValuePair::~FieldValuePair() = default;

void SortFieldValuePairList(std::vector<FieldValuePair>& list, int ascending, int byField) {
    if (byField) {
        if (ascending)
            std::sort(list.begin(), list.end(), SortAscendingUsingField());
        else
            std::sort(list.begin(), list.end(), SortDescendingUsingField());
    } else {
        if (ascending)
            std::sort(list.begin(), list.end(), SortAscendingUsingValue());
        else
            std::sort(list.begin(), list.end(), SortDescendingUsingValue());
    }
}
