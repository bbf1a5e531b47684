#include <afxcoll.h>
#include <afxexcept.h>

std::size_t CPtrArray::Checked(int index) const {
    if (index < 0 || index >= GetSize())
        AfxThrowInvalidArgException();
    return static_cast<std::size_t>(index);
}

int CPtrArray::Add(void* value) {
    m_data.push_back(value);
    return GetSize() - 1;
}

// An index beyond the end grows the array with null pointers up to it.
void CPtrArray::InsertAt(int index, void* value, int count) {
    if (index < 0 || count < 0)
        AfxThrowInvalidArgException();
    if (index > GetSize())
        m_data.resize(static_cast<std::size_t>(index), nullptr);
    m_data.insert(m_data.begin() + index, static_cast<std::size_t>(count), value);
}

void CPtrArray::RemoveAt(int index, int count) {
    if (index < 0 || count < 0 || index + count > GetSize())
        AfxThrowInvalidArgException();
    m_data.erase(m_data.begin() + index, m_data.begin() + index + count);
}
