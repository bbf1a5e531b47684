#include "Vt100Parser.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr unsigned char kEsc = 0x1B;
constexpr WCHAR kReplacement = 0xFFFD;

} // namespace

void Vt100Parser::Feed(const char* data, std::size_t size) {
    const auto* p = reinterpret_cast<const unsigned char*>(data);
    const auto* end = p + size;
    while (p < end) {
        // Runs of printable ASCII are by far the most common input: they go to
        // the screen without passing through the state machine.
        if (m_state == State::Ground && m_utf8Pending == 0) {
            const unsigned char* run = p;
            while (run < end && *run >= 0x20 && *run < 0x7F)
                ++run;
            while (p < run) {
                const std::size_t put = m_screen.PutChars(p, static_cast<std::size_t>(run - p));
                p += put;
                if (put == 0)
                    m_screen.PutChar(*p++); // wraps, inserts, draws or ends a selection
            }
            if (p == end)
                break;
        }
        Byte(*p++);
    }
}

void Vt100Parser::BeginSequence() {
    std::memset(m_params, 0, sizeof m_params);
    m_paramCount = 0;
    m_paramOverflow = false;
    m_subParam = false;
    m_subParamMask = 0;
    m_private = 0;
    m_intermediate = 0;
}

void Vt100Parser::Byte(unsigned char byte) {
    if (m_state == State::String) {
        if (byte == kEsc)
            m_state = State::StringEscape;
        else if (byte == 0x07 || byte == 0x18 || byte == 0x1A)
            m_state = State::Ground;
        return;
    }
    if (m_state == State::StringEscape) {
        // ESC \ ends the string; an ESC followed by anything else ends it too and
        // starts a new escape sequence with that byte.
        m_state = State::Ground;
        if (byte == '\\')
            return;
        BeginSequence();
        m_state = State::Escape;
    }
    if (byte < 0x20) {
        if (byte == kEsc) {
            m_utf8Pending = 0;
            BeginSequence();
            m_state = State::Escape;
        } else if (byte == 0x18 || byte == 0x1A) {
            // CAN and SUB cancel a sequence in progress.
            m_utf8Pending = 0;
            m_state = State::Ground;
        } else {
            // Other controls act at once, also in the middle of a sequence.
            Control(byte);
        }
        return;
    }
    if (byte == 0x7F)
        return;

    switch (m_state) {
    case State::Ground:
        if (byte >= 0x80) {
            Utf8(byte);
        } else {
            if (m_utf8Pending) {
                m_utf8Pending = 0;
                Print(kReplacement);
            }
            Print(byte);
        }
        break;
    case State::Escape:
        if (byte >= 0x20 && byte <= 0x2F) {
            m_intermediate = byte;
            m_state = State::EscapeIntermediate;
        } else if (byte == '[') {
            m_state = State::CsiParam;
        } else if (byte == ']' || byte == 'P' || byte == 'X' || byte == '^' || byte == '_') {
            m_state = State::String;
        } else {
            m_state = State::Ground;
            if (byte < 0x80)
                EscapeDispatch(byte);
        }
        break;
    case State::EscapeIntermediate:
        if (byte >= 0x20 && byte <= 0x2F)
            break; // a further intermediate: the sequence is one we do not know
        m_state = State::Ground;
        if (byte < 0x7F)
            Designate(m_intermediate, byte);
        break;
    case State::CsiParam:
        if (byte >= '0' && byte <= '9') {
            if (m_intermediate) {
                m_state = State::CsiIgnore;
                break;
            }
            if (m_paramCount == 0)
                m_paramCount = 1;
            if (!m_subParam && !m_paramOverflow) {
                int& value = m_params[m_paramCount - 1];
                value = std::min(value * 10 + (byte - '0'), kMaxParamValue);
            }
        } else if (byte == ';') {
            if (m_paramCount == 0)
                m_paramCount = 1;
            if (m_paramCount < kMaxParams)
                ++m_paramCount;
            else
                m_paramOverflow = true;
            m_subParam = false;
        } else if (byte == ':') {
            if (m_paramCount == 0)
                m_paramCount = 1;
            m_subParam = true;
            m_subParamMask |= 1u << (m_paramCount - 1);
        } else if (byte >= 0x3C && byte <= 0x3F) {
            if (m_paramCount == 0 && !m_private && !m_intermediate)
                m_private = byte;
            else
                m_state = State::CsiIgnore;
        } else if (byte >= 0x20 && byte <= 0x2F) {
            m_intermediate = byte;
        } else if (byte >= 0x40 && byte <= 0x7E) {
            m_state = State::Ground;
            CsiDispatch(byte);
        }
        break;
    case State::CsiIgnore:
        if (byte >= 0x40 && byte <= 0x7E)
            m_state = State::Ground;
        break;
    case State::String:
    case State::StringEscape:
        break;
    }
}

void Vt100Parser::Utf8(unsigned char byte) {
    if (byte >= 0x80 && byte <= 0xBF) {
        if (!m_utf8Pending) {
            Print(kReplacement);
            return;
        }
        m_utf8Code = (m_utf8Code << 6) | (byte & 0x3F);
        if (--m_utf8Pending == 0) {
            // The screen holds one UTF-16 unit per cell: characters beyond the
            // basic plane, surrogates and overlong forms show as the replacement.
            char32_t code = m_utf8Code;
            bool valid =
                code <= 0xFFFF && !(code >= 0xD800 && code <= 0xDFFF) && code >= m_utf8Minimum;
            Print(valid ? static_cast<WCHAR>(code) : kReplacement);
        }
        return;
    }
    if (m_utf8Pending)
        Print(kReplacement);
    if (byte >= 0xC2 && byte <= 0xDF) {
        m_utf8Code = byte & 0x1F;
        m_utf8Pending = 1;
        m_utf8Minimum = 0x80;
    } else if (byte >= 0xE0 && byte <= 0xEF) {
        m_utf8Code = byte & 0x0F;
        m_utf8Pending = 2;
        m_utf8Minimum = 0x800;
    } else if (byte >= 0xF0 && byte <= 0xF4) {
        m_utf8Code = byte & 0x07;
        m_utf8Pending = 3;
        m_utf8Minimum = 0x10000;
    } else {
        m_utf8Pending = 0;
        Print(kReplacement);
    }
}

void Vt100Parser::Print(WCHAR ch) {
    m_screen.PutChar(ch);
}

void Vt100Parser::LeavePendingWrap() {
    if (m_screen.GetCol() > m_screen.VisColumns())
        m_screen.CursorBackward(1);
}

int Vt100Parser::Count(int i) const {
    int value = Param(i);
    return value == 0 ? 1 : value;
}

void Vt100Parser::LineFeed() {
    LeavePendingWrap();
    m_screen.Index();
    if (m_newlineMode)
        m_screen.CarriageReturn();
}

void Vt100Parser::Control(unsigned char byte) {
    if (m_utf8Pending) {
        m_utf8Pending = 0;
        Print(kReplacement);
    }
    switch (byte) {
    case 0x08: // BS
        LeavePendingWrap();
        m_screen.CursorBackward(1);
        break;
    case 0x09: // HT: a VT100 tab never leaves the last column
        LeavePendingWrap();
        if (m_screen.GetCol() < m_screen.VisColumns())
            m_screen.CursorHorizontalTab(1);
        break;
    case 0x0A: // LF
    case 0x0B: // VT
    case 0x0C: // FF
        LineFeed();
        break;
    case 0x0D: // CR
        m_screen.CarriageReturn();
        break;
    case 0x0E: // SO
        m_screen.ShiftOut();
        break;
    case 0x0F: // SI
        m_screen.ShiftIn();
        break;
    default: // NUL, ENQ, BEL and the rest do nothing on the screen
        break;
    }
}

void Vt100Parser::ResetParserModes() {
    m_newlineMode = false;
    m_insertMode = false;
    m_cursorVisible = true;
}

void Vt100Parser::EscapeDispatch(unsigned char final) {
    switch (final) {
    case '7':
        m_screen.SaveCursor();
        break;
    case '8':
        m_screen.RestoreCursor();
        break;
    case 'D':
        LeavePendingWrap();
        m_screen.Index();
        break;
    case 'E':
        m_screen.NextLine();
        break;
    case 'M':
        LeavePendingWrap();
        m_screen.ReverseIndex();
        break;
    case 'H':
        LeavePendingWrap();
        m_screen.HorizontalTabSet();
        break;
    case 'c':
        m_screen.ResetToInitialState();
        ResetParserModes();
        if (m_autoWrapAtReset)
            m_screen.SetAutoWrapMode(true);
        break;
    default: // keypad modes, DECID and the rest: nothing on the screen
        break;
    }
}

void Vt100Parser::Designate(unsigned char intermediate, unsigned char final) {
    if (intermediate == '#') {
        if (final == '8') // DECALN; the line size functions (3 to 6) have no screen call
            AlignmentPattern();
        return;
    }
    int g;
    switch (intermediate) {
    case '(':
        g = 0;
        break;
    case ')':
        g = 1;
        break;
    case '*':
        g = 2;
        break;
    case '+':
        g = 3;
        break;
    default:
        return;
    }
    switch (final) {
    case 'B':
        m_screen.SetCharSetUS_ASCII(g);
        break;
    case 'A':
        m_screen.SetCharSetUK_National(g);
        break;
    case '0':
        m_screen.SetCharSetSpecialGraphics(g);
        break;
    default:
        break;
    }
}

void Vt100Parser::AlignmentPattern() {
    // The whole page, margins reset and origin mode off, is filled with E's in
    // the plain rendition, which stays the current one afterwards. The parser
    // designates no set in which E is anything but E, so the active set is kept.
    m_screen.ResetVideo();
    m_screen.SetOriginMode(false);
    m_screen.SetScrollingRegion(0, 0); // also homes the cursor
    // In insert mode every E would shift the rest of its row first.
    m_screen.SetInsertMode(false);
    const int rows = m_screen.VisRows();
    const int columns = m_screen.VisColumns();
    for (int row = 0; row < rows; ++row) {
        if (row > 0) {
            // The last E of a row leaves the wrap pending; the carriage return
            // ends it, and the index reaches rows below the terminal's 24.
            m_screen.CarriageReturn();
            m_screen.Index();
        }
        for (int col = 0; col < columns; ++col)
            m_screen.PutChar(u'E');
    }
    m_screen.SetInsertMode(m_insertMode);
    m_screen.CursorPosition(1, 1);
}

void Vt100Parser::CsiDispatch(unsigned char final) {
    if (m_intermediate) {
        if (m_intermediate == '!' && final == 'p' && !m_private) { // DECSTR
            m_screen.SoftTerminalReset();
            ResetParserModes();
        }
        return;
    }
    if (m_private) {
        if (m_private == '?' && (final == 'h' || final == 'l'))
            DecPrivateMode(final == 'h');
        return;
    }
    // Repetitions beyond the row width change nothing more; limiting them keeps
    // a hostile count from costing thousands of row shifts.
    const int width = m_screen.VisColumns();
    switch (final) {
    case 'A': // CUU
        LeavePendingWrap();
        m_screen.CursorUp(Count(0));
        break;
    case 'B': // CUD
        LeavePendingWrap();
        m_screen.CursorDown(Count(0));
        break;
    case 'C': // CUF
        LeavePendingWrap();
        m_screen.CursorForward(Count(0));
        break;
    case 'D': // CUB
        LeavePendingWrap();
        m_screen.CursorBackward(Count(0));
        break;
    case 'E': // CNL
        m_screen.CursorNextLine(Count(0));
        break;
    case 'F': // CPL
        m_screen.CursorPreviousLine(Count(0));
        break;
    case 'G': // CHA
    case '`': // HPA
        m_screen.HorizontalPositionAbs(Count(0));
        break;
    case 'a': // HPR
        LeavePendingWrap();
        m_screen.HorizontalPositionRel(Count(0));
        break;
    case 'd': // VPA
        LeavePendingWrap();
        m_screen.VerticalPositionAbs(Count(0));
        break;
    case 'e': // VPR
        LeavePendingWrap();
        m_screen.VerticalPositionRel(Count(0));
        break;
    case 'H': // CUP
    case 'f': // HVP
        m_screen.CursorPosition(Count(0), Count(1));
        break;
    case 'I': // CHT
        LeavePendingWrap();
        m_screen.CursorHorizontalTab(std::min(Count(0), width));
        break;
    case 'Z': // CBT
        LeavePendingWrap();
        m_screen.CursorBackwardTab(std::min(Count(0), width));
        break;
    case 'J': // ED
        LeavePendingWrap();
        m_screen.EraseInDisplay(Param(0), false);
        break;
    case 'K': // EL
        LeavePendingWrap();
        m_screen.EraseInLine(Param(0));
        break;
    case 'L': // IL
        LeavePendingWrap();
        m_screen.InsertLine(Count(0));
        break;
    case 'M': // DL
        LeavePendingWrap();
        m_screen.DeleteLine(Count(0));
        break;
    case '@': // ICH
        LeavePendingWrap();
        m_screen.InsertCharacter(std::min(Count(0), width));
        break;
    case 'P': // DCH
        LeavePendingWrap();
        m_screen.DeleteCharacter(std::min(Count(0), width));
        break;
    case 'X': // ECH
        LeavePendingWrap();
        m_screen.EraseCharacter(std::min(Count(0), width));
        break;
    case 'g': // TBC
        LeavePendingWrap();
        m_screen.TabulationClear(Param(0));
        break;
    case 'r': // DECSTBM: 0 or a missing value is the screen's default
        m_screen.SetScrollingRegion(Param(0), Param(1));
        break;
    case 'h': // SM
    case 'l': // RM
        AnsiMode(final == 'h');
        break;
    case 'm': // SGR
        SelectGraphicRendition();
        break;
    case 'c': // DA
    case 'n': // DSR
        Report(final);
        break;
    default:
        break;
    }
}

void Vt100Parser::Report(unsigned char final) {
    if (!m_reply)
        return;
    if (final == 'c') {
        if (Param(0) == 0)
            m_reply("\x1b[?1;2c"); // a VT100 with the advanced video option
        return;
    }
    if (Param(0) == 5) {
        m_reply("\x1b[0n"); // no malfunction
    } else if (Param(0) == 6) {
        // The pending-wrap position reports as the last column.
        const int col = std::min(m_screen.GetCol(), m_screen.VisColumns());
        m_reply("\x1b[" + std::to_string(m_screen.GetRow()) + ";" + std::to_string(col) + "R");
    }
}

void Vt100Parser::AnsiMode(bool set) {
    for (int i = 0; i < std::max(m_paramCount, 1); ++i) {
        switch (Param(i)) {
        case 4: // IRM
            m_screen.SetInsertMode(set);
            m_insertMode = set;
            break;
        case 20: // LNM
            m_screen.SetNewlineMode(set);
            m_newlineMode = set;
            break;
        default:
            break;
        }
    }
}

void Vt100Parser::DecPrivateMode(bool set) {
    for (int i = 0; i < std::max(m_paramCount, 1); ++i) {
        switch (Param(i)) {
        case 1: // DECCKM
            m_screen.SetCursorKeyMode(set);
            break;
        case 3: // DECCOLM
            m_screen.SetColumnMode(set);
            break;
        case 5: // DECSCNM
            m_screen.SetScreenMode(set);
            break;
        case 6: // DECOM: the cursor goes home whenever origin mode changes
            m_screen.SetOriginMode(set);
            m_screen.CursorPosition(1, 1);
            break;
        case 7: // DECAWM
            m_screen.SetAutoWrapMode(set);
            break;
        case 25: // DECTCEM: the screen draws no cursor, so the host asks
            m_cursorVisible = set;
            break;
        default:
            break;
        }
    }
}

void Vt100Parser::SelectGraphicRendition() {
    if (m_paramCount == 0) {
        m_screen.ResetVideo();
        return;
    }
    for (int i = 0; i < m_paramCount; ++i) {
        switch (m_params[i]) {
        case 0:
            m_screen.ResetVideo();
            break;
        case 1:
            m_screen.SetVideoBold();
            break;
        case 2:
            m_screen.SetVideoSubdued();
            break;
        case 4:
            m_screen.SetVideoUnderlined();
            break;
        case 5:
            m_screen.SetVideoBlinking();
            break;
        case 7:
            m_screen.SetVideoReverse();
            break;
        case 22:
            m_screen.ResetVideoBold();
            m_screen.ResetVideoSubdued();
            break;
        case 24:
            m_screen.ResetVideoUnderlined();
            break;
        case 25:
            m_screen.ResetVideoBlinking();
            break;
        case 27:
            m_screen.ResetVideoReverse();
            break;
        case 38:
        case 48:
        case 58:
            // Colours are not shown, but their arguments must not be read as
            // attributes: 38;5;n and 38;2;r;g;b (the colon forms carry theirs
            // inside the one parameter).
            if (m_subParamMask & (1u << i))
                break;
            if (i + 1 < m_paramCount && m_params[i + 1] == 5)
                i += 2;
            else if (i + 1 < m_paramCount && m_params[i + 1] == 2)
                i += 4;
            break;
        default: // colours and the attributes a VT100 lacks
            break;
        }
    }
}
