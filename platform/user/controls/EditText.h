// The text of an edit control as lines: CR LF ends a line in a multi-line
// edit; a single-line edit has one line whatever it holds.
#pragma once

#include <string>
#include <vector>

namespace platform::user {

class EditText {
public:
    void Assign(std::u16string text, bool multiline);
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
    std::vector<int> m_starts{0};
};

} // namespace platform::user
