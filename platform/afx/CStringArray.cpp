#include "afx.h"

#include <algorithm>
#include <limits>

std::size_t CStringArray::Checked(int index) const {
    if (index < 0 || index >= GetSize())
        AfxThrowInvalidArgException();
    return static_cast<std::size_t>(index);
}

// Grows the capacity in steps: growBy elements when set, else an eighth of
// the size, at least 4 and at most 1024, as the framework does.
void CStringArray::Reserve(std::size_t size) {
    if (size <= m_data.capacity())
        return;
    std::size_t step = m_growBy > 0 ? static_cast<std::size_t>(m_growBy)
                                    : std::clamp<std::size_t>(m_data.size() / 8, 4, 1024);
    m_data.reserve(std::max(size, m_data.size() + step));
}

void CStringArray::SetSize(int newSize, int growBy) {
    if (newSize < 0)
        AfxThrowInvalidArgException();
    if (growBy >= 0)
        m_growBy = growBy;
    Reserve(static_cast<std::size_t>(newSize));
    m_data.resize(static_cast<std::size_t>(newSize));
}

void CStringArray::FreeExtra() {
    m_data.shrink_to_fit();
}

int CStringArray::Add(LPCTSTR value) {
    return Add(CString(value));
}

int CStringArray::Add(const CString& value) {
    if (m_data.size() >= static_cast<std::size_t>(std::numeric_limits<int>::max()))
        AfxThrowMemoryException();
    Reserve(m_data.size() + 1);
    m_data.push_back(value);
    return GetUpperBound();
}

int CStringArray::Append(const CStringArray& other) {
    int first = GetSize();
    if (this == &other) {
        std::vector<CString> copy(other.m_data);
        m_data.insert(m_data.end(), copy.begin(), copy.end());
    } else {
        Reserve(m_data.size() + other.m_data.size());
        m_data.insert(m_data.end(), other.m_data.begin(), other.m_data.end());
    }
    return first;
}

void CStringArray::Copy(const CStringArray& other) {
    if (this != &other)
        m_data = other.m_data;
}

void CStringArray::InsertAt(int index, const CString& value, int count) {
    if (index < 0 || count < 0)
        AfxThrowInvalidArgException();
    if (count == 0)
        return;
    // value may be an element of this array: copy it before the storage moves.
    CString copy(value);
    std::size_t at = static_cast<std::size_t>(index);
    if (at > m_data.size())
        SetSize(index);
    Reserve(m_data.size() + static_cast<std::size_t>(count));
    m_data.insert(m_data.begin() + static_cast<std::ptrdiff_t>(at), static_cast<std::size_t>(count),
                  copy);
}

void CStringArray::InsertAt(int startIndex, const CStringArray& other) {
    if (startIndex < 0)
        AfxThrowInvalidArgException();
    std::vector<CString> copy(other.m_data);
    if (static_cast<std::size_t>(startIndex) > m_data.size())
        SetSize(startIndex);
    Reserve(m_data.size() + copy.size());
    m_data.insert(m_data.begin() + startIndex, copy.begin(), copy.end());
}

void CStringArray::RemoveAt(int index, int count) {
    if (index < 0 || count < 0 || count > GetSize() - index)
        AfxThrowInvalidArgException();
    m_data.erase(m_data.begin() + index, m_data.begin() + index + count);
}

void CStringArray::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        ar.WriteCount(m_data.size());
        for (const CString& s : m_data)
            ar << s;
        return;
    }
    // Strings are added as they arrive, so a count the data does not back
    // ends in the archive's endOfFile, not in a huge allocation. Above INT_MAX,
    // as for a string's length, the count is refused.
    ULONGLONG count = ar.ReadCount();
    if (count > static_cast<ULONGLONG>(std::numeric_limits<int>::max()))
        AfxThrowArchiveException(CArchiveException::genericException, ar.m_strFileName);
    RemoveAll();
    for (ULONGLONG i = 0; i < count; ++i) {
        CString s;
        ar >> s;
        Add(s);
    }
}
