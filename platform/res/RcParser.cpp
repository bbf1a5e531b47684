// Top-level statements, string tables, menus, accelerators and icons.
#include "RcParser.h"

#include "winuser.h"

#include <cstring>

namespace platform::rc {

namespace {

constexpr int kMaxMenuDepth = 64;

std::string Describe(const Token& t) {
    switch (t.kind) {
    case TokenKind::End:
        return "the end of the file";
    case TokenKind::String:
        return "a string";
    default:
        return "'" + t.text + "'";
    }
}

bool IsMemoryOption(const Token& t) {
    static const char* const kOptions[] = {"PRELOAD",  "LOADONCALL",  "FIXED",
                                           "MOVEABLE", "DISCARDABLE", "PURE",
                                           "IMPURE",   "SHARED",      "NONSHARED"};
    for (const char* o : kOptions)
        if (t.IsKeyword(o))
            return true;
    return false;
}

// A file name as the script writes it: the editor doubles backslashes.
std::string FileName(const Token& t) {
    std::string n = t.text;
    for (std::size_t k = 0; (k = n.find("\\\\", k)) != std::string::npos; ++k)
        n.erase(k, 1);
    return n;
}

// Checks the directory of an .ico file: reserved 0, type 1, at least one
// image, and every image inside the file.
std::string IconProblem(const std::string& b) {
    auto word = [&](std::size_t at) {
        return static_cast<unsigned>(static_cast<unsigned char>(b[at]) |
                                     (static_cast<unsigned char>(b[at + 1]) << 8));
    };
    auto dword = [&](std::size_t at) {
        return static_cast<std::uint64_t>(word(at)) |
               (static_cast<std::uint64_t>(word(at + 2)) << 16);
    };
    if (b.size() < 6)
        return "too short for an icon header";
    if (word(0) != 0 || word(2) != 1)
        return "not an icon (the header is not 0, 1)";
    const unsigned count = word(4);
    if (count == 0)
        return "the icon holds no images";
    const std::uint64_t directory = 6 + 16ull * count;
    if (b.size() < directory)
        return "the icon's directory runs past the end of the file";
    for (unsigned i = 0; i < count; ++i) {
        const std::size_t e = 6 + 16 * static_cast<std::size_t>(i);
        const std::uint64_t size = dword(e + 8), offset = dword(e + 12);
        if (size == 0 || offset < directory || offset + size > b.size())
            return "image " + std::to_string(i + 1) + " lies outside the file";
    }
    return {};
}

} // namespace

std::uint32_t Parser::Value() {
    return ExpressionParser(m_lexer, m_macros, false).Value();
}

std::uint32_t Parser::Style(std::uint32_t base) {
    return ExpressionParser(m_lexer, m_macros, false).Style(base);
}

std::u16string Parser::Strings(const char* what) {
    if (m_lexer.Peek().kind != TokenKind::String)
        m_lexer.Fail(m_lexer.Pos(),
                     std::string(what) + " needs a string, not " + Describe(m_lexer.Peek()));
    std::u16string s;
    while (m_lexer.Peek().kind == TokenKind::String)
        s += m_lexer.Next().string;
    return s;
}

void Parser::Comma(const char* what) {
    if (!m_lexer.Peek().Is(","))
        m_lexer.Fail(m_lexer.Pos(),
                     std::string("',' expected ") + what + ", not " + Describe(m_lexer.Peek()));
    m_lexer.Next();
}

bool Parser::SkipComma() {
    if (!m_lexer.Peek().Is(","))
        return false;
    m_lexer.Next();
    return true;
}

void Parser::Begin(const char* what) {
    const Token& t = m_lexer.Peek();
    if (!t.IsKeyword("BEGIN") && !t.Is("{"))
        m_lexer.Fail(t.pos, std::string("BEGIN expected ") + what + ", not " + Describe(t));
    m_lexer.Next();
}

bool Parser::AtEnd(SourcePos opened) {
    const Token& t = m_lexer.Peek();
    if (t.kind == TokenKind::End)
        m_lexer.Fail(t.pos, "END missing for the block opened at line " +
                                std::to_string(opened.line) + " of " + m_source.FileNameOf(opened));
    if (t.IsKeyword("END") || t.Is("}")) {
        m_lexer.Next();
        return true;
    }
    return false;
}

void Parser::SkipBlock() {
    const SourcePos opened = m_lexer.Pos();
    Begin("");
    int depth = 1;
    while (depth > 0) {
        const Token t = m_lexer.Next();
        if (t.kind == TokenKind::End)
            m_lexer.Fail(t.pos, "END missing for the block opened at line " +
                                    std::to_string(opened.line) + " of " +
                                    m_source.FileNameOf(opened));
        if (t.IsKeyword("BEGIN") || t.Is("{"))
            ++depth;
        else if (t.IsKeyword("END") || t.Is("}"))
            --depth;
    }
}

void Parser::SkipMemoryOptions() {
    while (IsMemoryOption(m_lexer.Peek()))
        m_lexer.Next();
}

int Parser::CommonOptions(int language) {
    for (;;) {
        const Token& t = m_lexer.Peek();
        if (IsMemoryOption(t)) {
            m_lexer.Next();
        } else if (t.IsKeyword("LANGUAGE")) {
            m_lexer.Next();
            const std::uint32_t primary = Value();
            Comma("between the language and sublanguage");
            language = static_cast<int>(primary | (Value() << 10));
        } else if (t.IsKeyword("VERSION") || t.IsKeyword("CHARACTERISTICS")) {
            m_lexer.Next();
            Value();
        } else {
            return language;
        }
    }
}

ResourceName Parser::NameOf(const Token& t) {
    ResourceName n;
    if (t.kind == TokenKind::Number)
        n.id = t.number & 0xFFFF;
    else if (t.kind == TokenKind::String)
        n.name = Upper(t.string);
    else if (t.kind == TokenKind::Name && !t.word)
        n.name = Upper(Widen(t.text));
    else
        m_lexer.Fail(t.pos, "a resource name was expected, not " + Describe(t));
    if (t.kind != TokenKind::Number && n.name.empty())
        m_lexer.Fail(t.pos, "a resource name cannot be empty");
    return n;
}

ResourceName Parser::ReadName(const char* what) {
    const Token& t = m_lexer.Peek();
    if (t.kind == TokenKind::Number || t.Is("(") || t.Is("-") || t.Is("~")) {
        const SourcePos pos = t.pos;
        Token number;
        number.kind = TokenKind::Number;
        number.number = Value();
        number.pos = pos;
        return NameOf(number);
    }
    if (t.kind == TokenKind::End)
        m_lexer.Fail(t.pos, std::string(what) + " expected at the end of the file");
    return NameOf(m_lexer.Next());
}

bool Parser::Claim(char kind, const ResourceName& name, int language, SourcePos pos) {
    auto key = std::make_pair(kind, std::make_pair(name.id, name.name));
    auto it = m_declared.find(key);
    if (it == m_declared.end()) {
        m_declared.emplace(key, language);
        return true;
    }
    if (it->second == language)
        m_lexer.Fail(pos, "this resource is declared twice");
    return false;
}

void Parser::Run() {
    for (;;) {
        const Token& t = m_lexer.Peek();
        if (t.kind == TokenKind::End)
            return;
        if (t.IsKeyword("STRINGTABLE")) {
            StringTable();
            continue;
        }
        if (t.IsKeyword("LANGUAGE") || t.IsKeyword("VERSION") || t.IsKeyword("CHARACTERISTICS")) {
            m_language = CommonOptions(m_language);
            continue;
        }
        const SourcePos pos = t.pos;
        const ResourceName name = ReadName("a resource name");
        const Token& type = m_lexer.Peek();
        if (type.kind == TokenKind::End)
            m_lexer.Fail(pos, "the resource has no type");
        if (type.IsKeyword("DIALOG") || type.IsKeyword("DIALOGEX")) {
            Dialog(name, type.IsKeyword("DIALOGEX"), m_language, pos);
        } else if (type.IsKeyword("DLGINIT")) {
            DialogInit(name, m_language, pos);
        } else if (type.IsKeyword("MENU") || type.IsKeyword("MENUEX")) {
            Menu(name, type.IsKeyword("MENUEX"), m_language, pos);
        } else if (type.IsKeyword("ACCELERATORS")) {
            Accelerators(name, m_language, pos);
        } else if (type.IsKeyword("ICON")) {
            Icon(name, m_language, pos);
        } else if (type.kind == TokenKind::Name || type.kind == TokenKind::Number ||
                   type.kind == TokenKind::String) {
            Skip(m_lexer.Next());
        } else {
            m_lexer.Fail(type.pos, "a resource type was expected, not " + Describe(type));
        }
    }
}

void Parser::StringTable() {
    const SourcePos opened = m_lexer.Next().pos;
    const int language = CommonOptions(m_language);
    Begin("after STRINGTABLE");
    while (!AtEnd(opened)) {
        const SourcePos pos = m_lexer.Pos();
        const UINT id = Value() & 0xFFFF;
        SkipComma();
        std::u16string text = Strings("a string table entry");
        ResourceName key;
        key.id = id;
        if (Claim('S', key, language, pos))
            m_out.strings.emplace_back(id, std::move(text));
    }
}

void Parser::Menu(const ResourceName& name, bool extended, int language, SourcePos pos) {
    m_lexer.Next();
    language = CommonOptions(language);
    MenuTemplate menu;
    const SourcePos opened = m_lexer.Pos();
    Begin("after MENU");
    MenuItems(menu.items, extended, opened, 0);
    if (Claim('M', name, language, pos))
        m_out.menus.emplace_back(name, std::move(menu));
}

void Parser::MenuOptions(UINT& flags) {
    static const struct {
        const char* word;
        UINT flag;
    } kOptions[] = {{"CHECKED", MF_CHECKED},           {"GRAYED", MF_GRAYED},
                    {"INACTIVE", MF_DISABLED},         {"HELP", MF_HELP},
                    {"MENUBARBREAK", MF_MENUBARBREAK}, {"MENUBREAK", MF_MENUBREAK}};
    for (;;) {
        const bool comma = SkipComma();
        const Token& t = m_lexer.Peek();
        bool found = false;
        for (const auto& o : kOptions) {
            if (t.IsKeyword(o.word)) {
                flags |= o.flag;
                found = true;
            }
        }
        if (!found) {
            if (comma)
                m_lexer.Fail(t.pos, "unknown menu option " + Describe(t));
            return;
        }
        m_lexer.Next();
    }
}

void Parser::MenuItems(std::vector<MenuItemTemplate>& items, bool extended, SourcePos opened,
                       int depth) {
    if (depth > kMaxMenuDepth)
        m_lexer.Fail(opened, "popup menus nest too deeply");
    while (!AtEnd(opened)) {
        const Token t = m_lexer.Next();
        MenuItemTemplate item;
        const bool popup = t.IsKeyword("POPUP");
        if (!popup && !t.IsKeyword("MENUITEM"))
            m_lexer.Fail(t.pos, "MENUITEM or POPUP expected, not " + Describe(t));
        if (!popup && m_lexer.Peek().IsKeyword("SEPARATOR")) {
            m_lexer.Next();
            item.flags = MF_SEPARATOR;
            items.push_back(std::move(item));
            continue;
        }
        item.text = Strings(popup ? "POPUP" : "MENUITEM");
        if (extended) {
            // [, id [, type [, state [, help id]]]], any of them left empty.
            UINT* fields[] = {&item.id, &item.flags, &item.flags};
            for (int i = 0; i < (popup ? 4 : 3) && SkipComma(); ++i) {
                if (m_lexer.Peek().Is(","))
                    continue;
                const std::uint32_t v = Value();
                if (i < 3)
                    *fields[i] |= i == 0 ? (v & 0xFFFF) : v;
            }
        } else if (!popup) {
            Comma("between the item's text and its id");
            item.id = Value() & 0xFFFF;
            MenuOptions(item.flags);
        } else {
            MenuOptions(item.flags);
        }
        if (popup) {
            item.flags |= MF_POPUP;
            const SourcePos inner = m_lexer.Pos();
            Begin("after POPUP");
            MenuItems(item.children, extended, inner, depth + 1);
        }
        items.push_back(std::move(item));
    }
}

void Parser::Accelerators(const ResourceName& name, int language, SourcePos pos) {
    m_lexer.Next();
    language = CommonOptions(language);
    const SourcePos opened = m_lexer.Pos();
    Begin("after ACCELERATORS");
    std::vector<AcceleratorTemplate> table;
    while (!AtEnd(opened)) {
        const Token event = m_lexer.Next();
        if (event.kind != TokenKind::String && event.kind != TokenKind::Number)
            m_lexer.Fail(event.pos, "an accelerator key was expected, not " + Describe(event));
        Comma("after the accelerator key");
        AcceleratorTemplate a;
        a.cmd = static_cast<WORD>(Value());
        bool ascii = false;
        for (;;) {
            const bool comma = SkipComma();
            const Token& t = m_lexer.Peek();
            if (t.IsKeyword("VIRTKEY"))
                a.fVirt |= FVIRTKEY;
            else if (t.IsKeyword("ASCII"))
                ascii = true;
            else if (t.IsKeyword("NOINVERT"))
                a.fVirt |= FNOINVERT;
            else if (t.IsKeyword("SHIFT"))
                a.fVirt |= FSHIFT;
            else if (t.IsKeyword("CONTROL"))
                a.fVirt |= FCONTROL;
            else if (t.IsKeyword("ALT"))
                a.fVirt |= FALT;
            else if (comma)
                m_lexer.Fail(t.pos, "unknown accelerator option " + Describe(t));
            else
                break;
            m_lexer.Next();
        }
        if (ascii && (a.fVirt & FVIRTKEY))
            m_lexer.Fail(event.pos, "an accelerator cannot be both ASCII and VIRTKEY");
        if (event.kind == TokenKind::Number) {
            a.key = static_cast<WORD>(event.number);
        } else {
            const std::u16string& s = event.string;
            if (s.size() == 2 && s[0] == u'^') {
                char16_t c = s[1];
                if (c >= u'a' && c <= u'z')
                    c = static_cast<char16_t>(c - u'a' + u'A');
                if (c < u'A' || c > u'Z')
                    m_lexer.Fail(event.pos, "'^' must be followed by a letter");
                if (a.fVirt & FVIRTKEY)
                    m_lexer.Fail(event.pos, "a control character cannot be a VIRTKEY");
                a.key = static_cast<WORD>(c - u'A' + 1);
            } else if (s.size() == 1) {
                char16_t c = s[0];
                if ((a.fVirt & FVIRTKEY) && c >= u'a' && c <= u'z')
                    c = static_cast<char16_t>(c - u'a' + u'A');
                a.key = c;
            } else {
                m_lexer.Fail(event.pos, "an accelerator key is one character or ^ and a letter");
            }
        }
        table.push_back(a);
    }
    if (Claim('A', name, language, pos))
        m_out.accelerators.emplace_back(name, std::move(table));
}

void Parser::Icon(const ResourceName& name, int language, SourcePos pos) {
    m_lexer.Next();
    language = CommonOptions(language);
    const Token file = m_lexer.Next();
    if (file.kind != TokenKind::String && file.kind != TokenKind::Name)
        m_lexer.Fail(file.pos, "ICON needs a file name, not " + Describe(file));
    IconTemplate icon;
    const std::string fileName = FileName(file);
    icon.fileName = Widen(fileName);
    const std::string bytes = m_source.ReadRelative(file.pos, fileName);
    const std::string problem = IconProblem(bytes);
    if (!problem.empty())
        m_lexer.Fail(file.pos, "'" + fileName + "' is not a valid icon file: " + problem);
    icon.bytes.assign(bytes.begin(), bytes.end());
    if (Claim('I', name, language, pos))
        m_out.icons.emplace_back(name, std::move(icon));
}

void Parser::Skip(const Token& type) {
    // Types whose statement runs up to a block; the others name a file or
    // carry a block right after their options.
    static const char* const kBlockTypes[] = {
        "VERSIONINFO", "TOOLBAR",           "DESIGNINFO",       "GUIDELINES",
        "TEXTINCLUDE", "AFX_DIALOG_LAYOUT", "RIBBON_XML_LAYOUT"};
    bool block = false;
    for (const char* b : kBlockTypes)
        block |= type.IsKeyword(b);
    for (;;) {
        const Token& t = m_lexer.Peek();
        if (t.kind == TokenKind::End)
            m_lexer.Fail(type.pos, "the " + type.text + " resource ends with the file");
        if (t.IsKeyword("BEGIN") || t.Is("{")) {
            SkipBlock();
            return;
        }
        if (!block && !IsMemoryOption(t) &&
            (t.kind == TokenKind::String || t.kind == TokenKind::Name)) {
            m_lexer.Next(); // the file name
            return;
        }
        if (!block && !IsMemoryOption(t) && !t.IsKeyword("LANGUAGE"))
            m_lexer.Fail(t.pos, "a file name or BEGIN was expected after " + type.text);
        m_lexer.Next();
    }
}

} // namespace platform::rc
