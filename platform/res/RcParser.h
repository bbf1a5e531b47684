// The resource statements of a script: STRINGTABLE, DIALOG and DIALOGEX,
// DLGINIT, MENU and MENUEX, ACCELERATORS and ICON; other resource types are passed over.
#pragma once

#include "RcExpression.h"
#include "RcLexer.h"
#include "RcSource.h"

#include <map>
#include <string>
#include <utility>

namespace platform::rc {

// Resource names compare with A to Z folded, so they are kept upper-cased.
inline std::u16string Upper(std::u16string s) {
    for (char16_t& c : s)
        if (c >= u'a' && c <= u'z')
            c = static_cast<char16_t>(c - u'a' + u'A');
    return s;
}

// A name as the script spells it (ASCII), as UTF-16.
inline std::u16string Widen(const std::string& s) {
    std::u16string out;
    for (char c : s)
        out += static_cast<char16_t>(static_cast<unsigned char>(c));
    return out;
}

class Parser {
public:
    Parser(Lexer& lexer, Preprocessor& source, const MacroTable& macros, ResourceScript& out)
        : m_lexer(lexer), m_source(source), m_macros(macros), m_out(out) {}
    void Run();

private:
    // Shared pieces of statements.
    std::uint32_t Value();
    std::uint32_t Style(std::uint32_t base);
    std::u16string Strings(const char* what);
    void Comma(const char* what);
    bool SkipComma();
    void Begin(const char* what);
    bool AtEnd(SourcePos opened);
    void SkipBlock();
    void SkipMemoryOptions();
    int CommonOptions(int language);
    ResourceName NameOf(const Token& t);
    ResourceName ReadName(const char* what);
    bool Claim(char kind, const ResourceName& name, int language, SourcePos pos);

    void StringTable();
    void Dialog(const ResourceName& name, bool extended, int language, SourcePos pos);
    void Control(DialogTemplate& dialog);
    void DialogInit(const ResourceName& name, int language, SourcePos pos);
    void Menu(const ResourceName& name, bool extended, int language, SourcePos pos);
    void MenuItems(std::vector<MenuItemTemplate>& items, bool extended, SourcePos opened,
                   int depth);
    void MenuOptions(UINT& flags);
    void Accelerators(const ResourceName& name, int language, SourcePos pos);
    void Icon(const ResourceName& name, int language, SourcePos pos);
    void Skip(const Token& type);

    Lexer& m_lexer;
    Preprocessor& m_source;
    const MacroTable& m_macros;
    ResourceScript& m_out;
    int m_language = 0;
    // The language each resource was first declared in: the same name again
    // in that language is an error, in another one it is passed over.
    std::map<std::pair<char, std::pair<UINT, std::u16string>>, int> m_declared;
};

} // namespace platform::rc
