#include "afx.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

CMemFile::CMemFile(UINT growBytes) : m_growBytes(growBytes) {}

CMemFile::CMemFile(BYTE* buffer, UINT size, UINT growBytes) {
    Attach(buffer, size, growBytes);
}

CMemFile::~CMemFile() {
    Close();
}

void CMemFile::Attach(BYTE* buffer, UINT size, UINT growBytes) {
    Close();
    m_data = buffer;
    m_size = size;
    m_capacity = size;
    m_position = 0;
    m_growBytes = growBytes;
    // A caller's block is never reallocated, so it cannot grow.
    m_owned = false;
}

BYTE* CMemFile::Detach() {
    BYTE* data = m_data;
    m_data = nullptr;
    m_size = m_capacity = m_position = 0;
    m_owned = true;
    return data;
}

BOOL CMemFile::Open(LPCTSTR, UINT, CFileException* error) {
    if (error) {
        error->m_cause = CFileException::genericException;
        error->m_lOsError = 0;
    }
    return FALSE;
}

void CMemFile::Close() {
    if (m_owned)
        std::free(m_data);
    m_data = nullptr;
    m_size = m_capacity = m_position = 0;
    m_owned = true;
}

UINT CMemFile::Read(void* buffer, UINT count) {
    if (m_position >= m_size)
        return 0;
    const std::size_t n = std::min<std::size_t>(count, m_size - m_position);
    std::memcpy(buffer, m_data + m_position, n);
    m_position += n;
    return static_cast<UINT>(n);
}

void CMemFile::Grow(std::size_t needed) {
    if (needed <= m_capacity)
        return;
    if (!m_owned || m_growBytes == 0)
        AfxThrowMemoryException();
    std::size_t capacity = std::max<std::size_t>(m_capacity, m_growBytes);
    while (capacity < needed)
        capacity = capacity * 2;
    auto* data = static_cast<BYTE*>(std::realloc(m_data, capacity));
    if (!data)
        AfxThrowMemoryException();
    m_data = data;
    m_capacity = capacity;
}

void CMemFile::Write(const void* buffer, UINT count) {
    if (count == 0)
        return;
    Grow(m_position + count);
    std::memcpy(m_data + m_position, buffer, count);
    m_position += count;
    m_size = std::max(m_size, m_position);
}

ULONGLONG CMemFile::Seek(LONGLONG offset, UINT from) {
    const LONGLONG base = from == end       ? static_cast<LONGLONG>(m_size)
                          : from == current ? static_cast<LONGLONG>(m_position)
                                            : 0;
    const LONGLONG pos = base + offset;
    if (pos < 0)
        AfxThrowFileException(CFileException::badSeek, EINVAL, m_strFileName);
    if (static_cast<std::size_t>(pos) > m_size) {
        Grow(static_cast<std::size_t>(pos));
        std::memset(m_data + m_size, 0, static_cast<std::size_t>(pos) - m_size);
        m_size = static_cast<std::size_t>(pos);
    }
    m_position = static_cast<std::size_t>(pos);
    return m_position;
}
