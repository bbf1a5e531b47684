// The text of an edit control as lines: CR LF ends a line in a multi-line
// edit, and a multi-line edit that does not scroll sideways also breaks
// lines that are wider than the field (after the last space that fits, or
// inside a word wider than the field); a single-line edit has one line
// whatever it holds.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace platform::user {

class EditText {
public:
    void Assign(std::u16string text, bool multiline);
    // Breaks the lines wider than width; measure gives the width of a run of
    // characters.
    using Measurer = std::function<int(const char16_t* text, int count)>;
    void Wrap(int width, const Measurer& measure);
    const std::u16string& Text() const { return m_text; }
    int Length() const { return static_cast<int>(m_text.size()); }

    int LineCount() const { return static_cast<int>(m_starts.size()); }
    // The first character of a line, and its length without the line break.
    int LineStart(int line) const;
    int LineLength(int line) const;
    // The line holding a character position (a line break belongs to the line
    // it ends).
    int LineOf(int position) const;

    // The position one step before or after, never inside a CR LF pair.
    int Previous(int position) const;
    int Next(int position) const;

private:
    std::u16string m_text;
    bool m_multiline = false;
    // Each line's first character and the end of its text (before its line
    // break, if any).
    std::vector<int> m_starts{0};
    std::vector<int> m_ends{0};
};

} // namespace platform::user
