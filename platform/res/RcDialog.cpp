// DIALOG and DIALOGEX: the template's optional statements and its controls,
// each control statement with the class and default style the resource
// compiler gives it.
#include "RcParser.h"

#include "commctrl.h"
#include "winuser.h"

namespace platform::rc {

namespace {

enum class Form {
    Text,    // text, id, x, y, cx, cy [, style [, exstyle [, help]]]
    NoText,  // id, x, y, cx, cy [, style [, exstyle [, help]]]
    Icon,    // text, id, x, y [, cx, cy [, style [, exstyle [, help]]]]
    Control, // text, id, class, style, x, y, cx, cy [, exstyle [, help]]
};

struct Statement {
    const char* keyword;
    Form form;
    const char16_t* className;
    DWORD style;
};

const Statement kStatements[] = {
    {"LTEXT", Form::Text, u"STATIC", SS_LEFT | WS_GROUP},
    {"CTEXT", Form::Text, u"STATIC", SS_CENTER | WS_GROUP},
    {"RTEXT", Form::Text, u"STATIC", SS_RIGHT | WS_GROUP},
    {"PUSHBUTTON", Form::Text, u"BUTTON", BS_PUSHBUTTON | WS_TABSTOP},
    {"DEFPUSHBUTTON", Form::Text, u"BUTTON", BS_DEFPUSHBUTTON | WS_TABSTOP},
    {"PUSHBOX", Form::Text, u"BUTTON", BS_PUSHBOX | WS_TABSTOP},
    {"CHECKBOX", Form::Text, u"BUTTON", BS_CHECKBOX | WS_TABSTOP},
    {"AUTOCHECKBOX", Form::Text, u"BUTTON", BS_AUTOCHECKBOX | WS_TABSTOP},
    {"STATE3", Form::Text, u"BUTTON", BS_3STATE | WS_TABSTOP},
    {"AUTO3STATE", Form::Text, u"BUTTON", BS_AUTO3STATE | WS_TABSTOP},
    {"RADIOBUTTON", Form::Text, u"BUTTON", BS_RADIOBUTTON | WS_TABSTOP},
    {"AUTORADIOBUTTON", Form::Text, u"BUTTON", BS_AUTORADIOBUTTON | WS_TABSTOP},
    {"GROUPBOX", Form::Text, u"BUTTON", BS_GROUPBOX},
    {"EDITTEXT", Form::NoText, u"EDIT", ES_LEFT | WS_BORDER | WS_TABSTOP},
    {"COMBOBOX", Form::NoText, u"COMBOBOX", CBS_SIMPLE | WS_TABSTOP},
    {"LISTBOX", Form::NoText, u"LISTBOX", LBS_NOTIFY | WS_BORDER},
    {"SCROLLBAR", Form::NoText, u"SCROLLBAR", SBS_HORZ},
    {"ICON", Form::Icon, u"STATIC", SS_ICON},
    {"CONTROL", Form::Control, nullptr, 0},
};

// The classes the dialog manager knows by name, kept upper-cased.
const char16_t* const kPredefined[] = {u"BUTTON",  u"EDIT",      u"STATIC",
                                       u"LISTBOX", u"SCROLLBAR", u"COMBOBOX"};

short Coordinate(std::uint32_t v) {
    return static_cast<short>(static_cast<std::uint16_t>(v & 0xFFFF));
}

} // namespace

void Parser::Dialog(const ResourceName& name, bool extended, int language, SourcePos pos) {
    m_lexer.Next();
    SkipMemoryOptions();
    DialogTemplate d;
    d.extended = extended;
    d.x = Coordinate(Value());
    Comma("after the dialog's x");
    d.y = Coordinate(Value());
    Comma("after the dialog's y");
    d.cx = Coordinate(Value());
    Comma("after the dialog's width");
    d.cy = Coordinate(Value());
    if (extended && SkipComma())
        d.helpId = Value();

    bool gotStyle = false, gotCaption = false, gotFont = false;
    for (;;) {
        const Token& t = m_lexer.Peek();
        if (t.IsKeyword("BEGIN") || t.Is("{"))
            break;
        const Token statement = m_lexer.Next();
        if (statement.IsKeyword("STYLE")) {
            d.style = Style(0);
            gotStyle = true;
        } else if (statement.IsKeyword("EXSTYLE")) {
            d.exStyle = Style(0);
        } else if (statement.IsKeyword("CAPTION")) {
            d.caption = Strings("CAPTION");
            gotCaption = true;
        } else if (statement.IsKeyword("FONT")) {
            d.pointSize = static_cast<WORD>(Value());
            Comma("after the font's point size");
            d.faceName = Strings("FONT");
            if (extended) {
                if (SkipComma())
                    d.weight = static_cast<WORD>(Value());
                if (SkipComma())
                    d.italic = static_cast<BYTE>(Value());
                if (SkipComma())
                    d.charSet = static_cast<BYTE>(Value());
            }
            gotFont = true;
        } else if (statement.IsKeyword("MENU")) {
            d.menu = ReadName("a menu name");
        } else if (statement.IsKeyword("CLASS")) {
            d.className = Strings("CLASS");
        } else if (statement.IsKeyword("LANGUAGE")) {
            const std::uint32_t primary = Value();
            Comma("between the language and sublanguage");
            language = static_cast<int>(primary | (Value() << 10));
        } else if (statement.IsKeyword("VERSION") || statement.IsKeyword("CHARACTERISTICS")) {
            Value();
        } else if (statement.kind == TokenKind::End) {
            m_lexer.Fail(statement.pos, "the dialog has no BEGIN");
        } else {
            m_lexer.Fail(statement.pos, "unknown dialog statement '" + statement.text + "'");
        }
    }
    if (!gotStyle)
        d.style = WS_POPUP | WS_BORDER | WS_SYSMENU;
    if (gotCaption)
        d.style |= WS_CAPTION;
    if (gotFont)
        d.style |= DS_SETFONT;

    const SourcePos opened = m_lexer.Pos();
    Begin("after the dialog's statements");
    while (!AtEnd(opened))
        Control(d);
    if (Claim('D', name, language, pos))
        m_out.dialogs.emplace_back(name, std::move(d));
}

void Parser::Control(DialogTemplate& dialog) {
    const Token keyword = m_lexer.Next();
    const Statement* statement = nullptr;
    for (const Statement& s : kStatements)
        if (keyword.IsKeyword(s.keyword))
            statement = &s;
    if (!statement) {
        if (keyword.kind == TokenKind::Name)
            m_lexer.Fail(keyword.pos,
                         "unknown control statement '" + keyword.text + "' in a dialog");
        m_lexer.Fail(keyword.pos,
                     "a control statement was expected, not " + (keyword.kind == TokenKind::String
                                                                     ? std::string("a string")
                                                                     : "'" + keyword.text + "'"));
    }
    DialogItemTemplate item;
    if (statement->form != Form::NoText) {
        const Token& t = m_lexer.Peek();
        if (t.kind == TokenKind::String) {
            item.text = Strings("the control's text");
        } else if (t.kind == TokenKind::Number || t.Is("(") || t.Is("-")) {
            item.textResourceId = Value() & 0xFFFF;
            item.textIsResourceId = true;
        } else if (t.kind == TokenKind::Name && !t.word) {
            item.text = Upper(Widen(m_lexer.Next().text)); // a named resource (an icon)
        } else {
            m_lexer.Fail(t.pos, "the control's text was expected, not '" + t.text + "'");
        }
        Comma("after the control's text");
    }
    item.id = Value() & 0xFFFF;
    Comma("after the control's id");
    const DWORD base = WS_CHILD | WS_VISIBLE;
    if (statement->form == Form::Control) {
        const Token cls = m_lexer.Next();
        std::u16string name;
        if (cls.kind == TokenKind::String)
            name = cls.string;
        else if (cls.kind == TokenKind::Name && !cls.word)
            name = Widen(cls.text);
        else
            m_lexer.Fail(cls.pos, "CONTROL needs a class name");
        item.className = name;
        for (const char16_t* p : kPredefined)
            if (Upper(name) == p)
                item.className = p;
        Comma("after the control's class");
        item.style = Style(base);
        Comma("after the control's style");
    } else {
        item.className = statement->className;
    }
    item.x = Coordinate(Value());
    Comma("after the control's x");
    item.y = Coordinate(Value());
    bool more = true;
    if (statement->form == Form::Icon) {
        more = SkipComma();
        if (more) {
            item.cx = Coordinate(Value());
            Comma("after the control's width");
            item.cy = Coordinate(Value());
        }
    } else {
        Comma("after the control's y");
        item.cx = Coordinate(Value());
        Comma("after the control's width");
        item.cy = Coordinate(Value());
    }
    if (statement->form != Form::Control) {
        item.style = base | statement->style;
        if (more && SkipComma()) {
            // A combo box is simple only when the script names no other kind:
            // CBS_SIMPLE under CBS_DROPDOWN would make a drop-down list.
            const bool combo = item.className == u"COMBOBOX";
            if (combo)
                item.style &= ~static_cast<DWORD>(CBS_SIMPLE);
            item.style = Style(item.style);
            if (combo && (item.style & 0x3) == 0)
                item.style |= CBS_SIMPLE;
        }
    }
    if (more && SkipComma()) {
        item.exStyle = Style(0);
        if (dialog.extended && SkipComma())
            item.helpId = Value();
    }
    // A DIALOGEX control may carry creation data in a block.
    if (dialog.extended && (m_lexer.Peek().IsKeyword("BEGIN") || m_lexer.Peek().Is("{")))
        SkipBlock();
    dialog.items.push_back(std::move(item));
}

} // namespace platform::rc
