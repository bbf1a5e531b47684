// A row and column on the terminal screen, ordered row-major.
#pragma once

class CursorPos {
public:
    // (1, 1): the home position in the host's one-based terms.
    CursorPos() : m_row(1), m_col(1) {}
    CursorPos(int row, int col) : m_row(row), m_col(col) {}
    CursorPos(const CursorPos& other) = default;
    CursorPos& operator=(const CursorPos& other) = default;

    bool operator==(const CursorPos& other) const {
        return m_row == other.m_row && m_col == other.m_col;
    }
    bool operator!=(const CursorPos& other) const { return !(*this == other); }
    bool operator<(const CursorPos& other) const {
        return m_row < other.m_row || (m_row == other.m_row && m_col < other.m_col);
    }
    bool operator<=(const CursorPos& other) const { return *this < other || *this == other; }
    bool operator>(const CursorPos& other) const { return other < *this; }
    bool operator>=(const CursorPos& other) const { return other <= *this; }

    int m_row;
    int m_col;
};
