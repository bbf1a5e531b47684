// The list view's texts in one row-major array.
#include "ListViewState.h"

#include <algorithm>
#include <iterator>

namespace platform::user {

void ListTexts::Widen(std::size_t width) {
    std::vector<std::u16string> cells(m_rows * width);
    for (std::size_t row = 0; row < m_rows; ++row)
        std::move(m_cells.begin() + static_cast<std::ptrdiff_t>(row * m_width),
                  m_cells.begin() + static_cast<std::ptrdiff_t>((row + 1) * m_width),
                  cells.begin() + static_cast<std::ptrdiff_t>(row * width));
    m_cells = std::move(cells);
    m_width = width;
}

void ListTexts::Set(std::size_t item, std::size_t subItem, const char16_t* text) {
    const bool empty = !text || !*text;
    if (item >= m_rows || (subItem >= m_width && empty))
        return;
    if (subItem >= m_width)
        Widen(subItem + 1);
    std::u16string& cell = m_cells[item * m_width + subItem];
    if (empty)
        cell.clear();
    else
        cell = text;
}

void ListTexts::InsertRow(std::size_t item) {
    item = std::min(item, m_rows);
    ++m_rows;
    if (m_width == 0)
        return;
    // Appending grows the array geometrically, so filling a list row by row
    // stays linear.
    m_cells.insert(m_cells.begin() + static_cast<std::ptrdiff_t>(item * m_width), m_width,
                   std::u16string());
}

void ListTexts::EraseRow(std::size_t item) {
    if (item >= m_rows)
        return;
    --m_rows;
    const auto first = m_cells.begin() + static_cast<std::ptrdiff_t>(item * m_width);
    m_cells.erase(first, first + static_cast<std::ptrdiff_t>(m_width));
}

void ListTexts::EraseSubItem(std::size_t subItem) {
    if (subItem >= m_width)
        return;
    std::vector<std::u16string> cells;
    cells.reserve(m_rows * (m_width - 1));
    for (std::size_t i = 0; i < m_cells.size(); ++i)
        if (i % m_width != subItem)
            cells.push_back(std::move(m_cells[i]));
    m_cells = std::move(cells);
    --m_width;
}

void ListTexts::Clear() {
    m_cells.clear();
    m_rows = 0;
    m_width = 0;
}

void ListTexts::Reorder(const std::vector<std::size_t>& order) {
    std::vector<std::u16string> cells(m_cells.size());
    for (std::size_t row = 0; row < order.size() && row < m_rows; ++row) {
        const auto from = m_cells.begin() + static_cast<std::ptrdiff_t>(order[row] * m_width);
        std::move(from, from + static_cast<std::ptrdiff_t>(m_width),
                  cells.begin() + static_cast<std::ptrdiff_t>(row * m_width));
    }
    m_cells = std::move(cells);
}

} // namespace platform::user
