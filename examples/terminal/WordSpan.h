// What a double click on the terminal selects: the run of cells around the
// clicked one that belong together. A word runs over letters, digits and the
// punctuation of paths and addresses (so a file name or a URL is one word);
// blanks run together, out to the row's end past its text; brackets, quotes
// and separators go one character at a time, or a run of the same one.
#pragma once

#include <string_view>

namespace word_span {

struct Span {
    int first; // zero-based columns, both inclusive
    int last;
};

// The span around column in a row whose text is text (trailing blanks may be
// missing) and that has columns cells.
Span Around(std::u16string_view text, int column, int columns);

} // namespace word_span
