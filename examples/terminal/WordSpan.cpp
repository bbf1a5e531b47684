#include "WordSpan.h"

#include <algorithm>

namespace word_span {
namespace {

constexpr std::u16string_view kDelimiters = u"\"'`()<>[]{},;|";

// 0 for a blank, 1 for a word character, else the character itself (a
// delimiter only runs with its own kind).
char32_t ClassOf(std::u16string_view text, int column) {
    if (column < 0 || static_cast<std::size_t>(column) >= text.size())
        return 0;
    const char16_t ch = text[static_cast<std::size_t>(column)];
    if (ch == u' ' || ch == u'\t' || ch == 0)
        return 0;
    return kDelimiters.find(ch) == std::u16string_view::npos ? 1 : ch;
}

} // namespace

Span Around(std::u16string_view text, int column, int columns) {
    const int end = std::max(1, columns);
    column = std::clamp(column, 0, end - 1);
    const char32_t kind = ClassOf(text, column);
    Span span{column, column};
    while (span.first > 0 && ClassOf(text, span.first - 1) == kind)
        --span.first;
    while (span.last + 1 < end && ClassOf(text, span.last + 1) == kind)
        ++span.last;
    return span;
}

} // namespace word_span
