// How an INI file's bytes become text and back. A file with a UTF-16LE byte
// order mark is UTF-16; one with a UTF-8 mark, or whose bytes are valid UTF-8,
// is UTF-8; anything else is in the ANSI code page. New files are UTF-8
// without a mark.
#pragma once

#include <string>
#include <string_view>

namespace platform::ini {

enum class Encoding { Utf8, Utf8Bom, Utf16Le, Ansi };

Encoding DetectEncoding(std::string_view bytes);
// The text of bytes in encoding (its byte order mark left out). Invalid UTF-8
// after a mark becomes U+FFFD; an odd last byte of UTF-16 is dropped.
std::u16string Decode(std::string_view bytes, Encoding encoding);
// The bytes of text in encoding, with its mark. Where the result would read
// back as another encoding (an ANSI file whose rewritten bytes became valid
// UTF-8, text that starts with U+FEFF), encoding changes to UTF-8 with a mark,
// which always reads back as written.
std::string Encode(std::u16string_view text, Encoding& encoding);

} // namespace platform::ini
