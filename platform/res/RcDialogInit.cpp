// DLGINIT: a dialog's initialisation data, as the resource editor writes it
// for the list items of combo boxes. The block is raw data: numbers are
// 16-bit little-endian words (32-bit with an L suffix), strings their bytes.
// For each entry it holds the control id and the message (a word each), the
// data length in bytes (two words, low first) and the data; a 0 ends it.
#include "RcParser.h"

#include "winbase.h"

#include <algorithm>

namespace platform::rc {

namespace {

std::u16string DecodeText(const std::vector<std::uint8_t>& data, UINT codePage) {
    std::size_t length = 0;
    while (length < data.size() && data[length] != 0)
        ++length;
    if (length == 0)
        return {};
    const auto* bytes = reinterpret_cast<const char*>(data.data());
    const int n = MultiByteToWideChar(codePage, 0, bytes, static_cast<int>(length), nullptr, 0);
    if (n <= 0)
        return {};
    std::u16string text(static_cast<std::size_t>(n), u'\0');
    MultiByteToWideChar(codePage, 0, bytes, static_cast<int>(length), text.data(), n);
    return text;
}

} // namespace

void Parser::DialogInit(const ResourceName& name, int language, SourcePos pos) {
    m_lexer.Next(); // DLGINIT
    language = CommonOptions(language);
    const SourcePos opened = m_lexer.Pos();
    Begin("after DLGINIT");
    const UINT codePage = m_lexer.CodePage();

    // The bytes, each with the position of the value it came from.
    std::vector<std::uint8_t> bytes;
    std::vector<SourcePos> from;
    auto put = [&](std::uint32_t value, int count, SourcePos at) {
        for (int i = 0; i < count; ++i) {
            bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
            from.push_back(at);
        }
    };
    while (!AtEnd(opened)) {
        const Token& t = m_lexer.Peek();
        const SourcePos at = t.pos;
        if (t.kind == TokenKind::String) {
            const Token s = m_lexer.Next();
            if (s.text == "L" || s.text == "l") {
                for (char16_t c : s.string)
                    put(c, 2, at);
            } else if (!s.string.empty()) {
                const int n = WideCharToMultiByte(codePage, 0, s.string.data(),
                                                  static_cast<int>(s.string.size()), nullptr, 0,
                                                  nullptr, nullptr);
                std::string narrow(static_cast<std::size_t>(std::max(n, 0)), '\0');
                if (n > 0)
                    WideCharToMultiByte(codePage, 0, s.string.data(),
                                        static_cast<int>(s.string.size()), narrow.data(), n,
                                        nullptr, nullptr);
                for (char c : narrow)
                    put(static_cast<unsigned char>(c), 1, at);
            }
        } else {
            const bool dword = t.kind == TokenKind::Number && !t.text.empty() &&
                               (t.text.back() == 'L' || t.text.back() == 'l');
            const std::uint32_t value = Value();
            if (!dword && value > 0xFFFF)
                m_lexer.Fail(at, "DLGINIT data are 16-bit words; " + std::to_string(value) +
                                     " needs an L suffix");
            put(value, dword ? 4 : 2, at);
        }
        SkipComma();
    }

    auto word = [&](std::size_t at) {
        return static_cast<std::uint32_t>(bytes[at] | (bytes[at + 1] << 8));
    };
    std::vector<DialogInitEntry> entries;
    std::size_t k = 0;
    while (k + 1 < bytes.size() && word(k) != 0) {
        const SourcePos entryPos = from[k];
        if (bytes.size() - k < 8)
            m_lexer.Fail(entryPos, "a DLGINIT entry needs a control id, a message and a "
                                   "length in two words");
        DialogInitEntry entry;
        entry.controlId = word(k);
        entry.message = word(k + 2);
        const std::uint32_t length = word(k + 4) | (word(k + 6) << 16);
        k += 8;
        if (length > bytes.size() - k)
            m_lexer.Fail(entryPos, "the DLGINIT entry for control " +
                                       std::to_string(entry.controlId) + " claims " +
                                       std::to_string(length) + " bytes but the block has fewer");
        entry.data.assign(bytes.begin() + static_cast<std::ptrdiff_t>(k),
                          bytes.begin() + static_cast<std::ptrdiff_t>(k + length));
        entry.text = DecodeText(entry.data, codePage);
        k += length;
        entries.push_back(std::move(entry));
    }
    if (Claim('G', name, language, pos))
        m_out.dialogInits.emplace_back(name, std::move(entries));
}

} // namespace platform::rc
