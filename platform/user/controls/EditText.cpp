#include "EditText.h"

#include <algorithm>

namespace platform::user {

void EditText::Assign(std::u16string text, bool multiline) {
    m_text = std::move(text);
    m_multiline = multiline;
    m_starts.assign(1, 0);
    if (!multiline)
        return;
    for (std::size_t i = 0; i + 1 < m_text.size(); ++i)
        if (m_text[i] == u'\r' && m_text[i + 1] == u'\n')
            m_starts.push_back(static_cast<int>(i + 2));
}

int EditText::LineStart(int line) const {
    if (line < 0 || line >= LineCount())
        return -1;
    return m_starts[static_cast<std::size_t>(line)];
}

int EditText::LineLength(int line) const {
    if (line < 0 || line >= LineCount())
        return 0;
    int end = line + 1 < LineCount() ? m_starts[static_cast<std::size_t>(line) + 1] - 2 : Length();
    return end - LineStart(line);
}

int EditText::LineOf(int position) const {
    position = std::clamp(position, 0, Length());
    auto it = std::upper_bound(m_starts.begin(), m_starts.end(), position);
    return static_cast<int>(it - m_starts.begin()) - 1;
}

int EditText::Previous(int position) const {
    if (position <= 0)
        return 0;
    if (m_multiline && position >= 2 && m_text[static_cast<std::size_t>(position) - 1] == u'\n' &&
        m_text[static_cast<std::size_t>(position) - 2] == u'\r')
        return position - 2;
    return position - 1;
}

int EditText::Next(int position) const {
    if (position >= Length())
        return Length();
    if (m_multiline && position + 1 < Length() &&
        m_text[static_cast<std::size_t>(position)] == u'\r' &&
        m_text[static_cast<std::size_t>(position) + 1] == u'\n')
        return position + 2;
    return position + 1;
}

} // namespace platform::user
