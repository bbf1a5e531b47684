#include "EditText.h"

#include <algorithm>

namespace platform::user {

void EditText::Assign(std::u16string text, bool multiline) {
    m_text = std::move(text);
    m_multiline = multiline;
    m_starts.assign(1, 0);
    m_ends.clear();
    if (multiline) {
        for (std::size_t i = 0; i + 1 < m_text.size(); ++i)
            if (m_text[i] == u'\r' && m_text[i + 1] == u'\n') {
                m_ends.push_back(static_cast<int>(i));
                m_starts.push_back(static_cast<int>(i + 2));
            }
    }
    m_ends.push_back(Length());
}

void EditText::Wrap(int width, const Measurer& measure) {
    if (!m_multiline || width <= 0)
        return;
    std::vector<int> starts;
    std::vector<int> ends;
    const char16_t* text = m_text.c_str();
    for (std::size_t line = 0; line < m_starts.size(); ++line) {
        int pos = m_starts[line];
        int end = m_ends[line];
        if (pos == end) {
            starts.push_back(pos);
            ends.push_back(end);
            continue;
        }
        while (pos < end) {
            if (measure(text + pos, end - pos) <= width) {
                starts.push_back(pos);
                ends.push_back(end);
                break;
            }
            // The most characters that fit, at least one.
            int fit = 1;
            while (pos + fit < end && measure(text + pos, fit + 1) <= width)
                ++fit;
            int breakAt = pos + fit;
            // Break after the last space that fits; the space stays on the line.
            for (int k = pos + fit; k > pos; --k)
                if (text[k - 1] == u' ' && k < end) {
                    breakAt = k;
                    break;
                }
            // Spaces that would start the next line stay on this one.
            while (breakAt < end && text[breakAt] == u' ')
                ++breakAt;
            starts.push_back(pos);
            ends.push_back(breakAt);
            pos = breakAt;
        }
    }
    m_starts = std::move(starts);
    m_ends = std::move(ends);
}

int EditText::LineStart(int line) const {
    if (line < 0 || line >= LineCount())
        return -1;
    return m_starts[static_cast<std::size_t>(line)];
}

int EditText::LineLength(int line) const {
    if (line < 0 || line >= LineCount())
        return 0;
    return m_ends[static_cast<std::size_t>(line)] - m_starts[static_cast<std::size_t>(line)];
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
