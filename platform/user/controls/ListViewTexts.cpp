// The list view's texts in one row-major array of cells and a shared pool.
#include "ListViewState.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace platform::user {

namespace {
constexpr std::size_t kMaxPool = std::numeric_limits<std::uint32_t>::max();
// Gaps below this many units are left alone, so a few edits never copy the pool.
constexpr std::size_t kMinGapsToRepack = 1 << 16;
} // namespace

void ListTexts::Widen(std::size_t width) {
    std::vector<Cell> cells(m_rows * width);
    for (std::size_t row = 0; row < m_rows; ++row)
        std::copy_n(m_cells.begin() + static_cast<std::ptrdiff_t>(row * m_width), m_width,
                    cells.begin() + static_cast<std::ptrdiff_t>(row * width));
    m_cells = std::move(cells);
    m_width = width;
}

void ListTexts::Release(const Cell& cell) {
    if (cell.length > Cell::kInline)
        m_gaps += cell.length;
}

void ListTexts::Repack(std::vector<Cell>& cells) {
    std::vector<char16_t> pool;
    pool.reserve(m_pool.size() - std::min(m_gaps, m_pool.size()));
    for (Cell& cell : cells) {
        if (cell.length <= Cell::kInline)
            continue;
        const auto from = m_pool.begin() + static_cast<std::ptrdiff_t>(cell.offset);
        cell.offset = static_cast<std::uint32_t>(pool.size());
        pool.insert(pool.end(), from, from + cell.length);
    }
    m_pool = std::move(pool);
    m_gaps = 0;
}

bool ListTexts::Set(std::size_t item, std::size_t subItem, const char16_t* text) {
    const std::size_t length = text ? std::char_traits<char16_t>::length(text) : 0;
    if (item >= m_rows || (subItem >= m_width && length == 0))
        return item < m_rows;
    if (length > kMaxPool)
        return false;
    if (length > Cell::kInline && m_pool.size() + length > kMaxPool) {
        Repack(m_cells);
        if (m_pool.size() + length > kMaxPool)
            return false;
    }
    if (subItem >= m_width)
        Widen(subItem + 1);
    Cell& cell = m_cells[item * m_width + subItem];
    Release(cell);
    cell.length = static_cast<std::uint32_t>(length);
    if (length <= Cell::kInline) {
        std::copy_n(text, length, cell.units);
    } else {
        cell.offset = static_cast<std::uint32_t>(m_pool.size());
        m_pool.insert(m_pool.end(), text, text + length);
    }
    if (m_gaps >= kMinGapsToRepack && m_gaps * 2 >= m_pool.size())
        Repack(m_cells);
    return true;
}

void ListTexts::InsertRow(std::size_t item) {
    item = std::min(item, m_rows);
    ++m_rows;
    if (m_width == 0)
        return;
    // Appending grows the array geometrically, so filling a list row by row
    // stays linear.
    m_cells.insert(m_cells.begin() + static_cast<std::ptrdiff_t>(item * m_width), m_width, Cell());
}

void ListTexts::EraseRow(std::size_t item) {
    if (item >= m_rows)
        return;
    --m_rows;
    const auto first = m_cells.begin() + static_cast<std::ptrdiff_t>(item * m_width);
    const auto last = first + static_cast<std::ptrdiff_t>(m_width);
    for (auto it = first; it != last; ++it)
        Release(*it);
    m_cells.erase(first, last);
}

void ListTexts::EraseSubItem(std::size_t subItem) {
    if (subItem >= m_width)
        return;
    std::vector<Cell> cells;
    cells.reserve(m_rows * (m_width - 1));
    for (std::size_t i = 0; i < m_cells.size(); ++i) {
        if (i % m_width != subItem)
            cells.push_back(m_cells[i]);
        else
            Release(m_cells[i]);
    }
    m_cells = std::move(cells);
    --m_width;
}

void ListTexts::Clear() {
    m_cells.clear();
    m_pool.clear();
    m_gaps = 0;
    m_rows = 0;
    m_width = 0;
}

void ListTexts::Reorder(const std::vector<std::size_t>& order) {
    std::vector<Cell> cells(m_cells.size());
    for (std::size_t row = 0; row < order.size() && row < m_rows; ++row)
        std::copy_n(m_cells.begin() + static_cast<std::ptrdiff_t>(order[row] * m_width), m_width,
                    cells.begin() + static_cast<std::ptrdiff_t>(row * m_width));
    // The pool follows the new order, so reading the sorted list stays in order.
    Repack(cells);
    m_cells = std::move(cells);
}

} // namespace platform::user
