// A small VT100 byte-stream parser: it decodes C0 controls, escape sequences
// and control sequences and calls one ScreenBuffer operation for each. Text is
// taken as UTF-8 (plain ASCII passes straight through); anything the screen has
// no operation for is consumed and ignored.
#pragma once

#include <Win/Win.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

class Vt100Parser {
public:
    explicit Vt100Parser(ScreenBuffer& screen) : m_screen(screen) {}

    void Feed(const char* data, std::size_t size);
    void Feed(std::string_view bytes) { Feed(bytes.data(), bytes.size()); }

    // Newline mode (SM 20): line feeds also return the carriage. The screen only
    // stores the flag, so the parser keeps its own copy.
    bool NewlineMode() const { return m_newlineMode; }
    // Whether the program wants the cursor shown (DECTCEM, CSI ? 25 h / l).
    bool CursorVisible() const { return m_cursorVisible; }
    // A VT100 comes back from a hard reset (ESC c) with the wrap setting of its
    // set-up; the screen's own reset turns wrapping off. On by default.
    void SetAutoWrapAtReset(bool on) { m_autoWrapAtReset = on; }
    // Where the answers to the terminal's reports go (device attributes, status
    // and cursor position): a host with a program on the other end writes them
    // back to it. Without one, report requests are ignored.
    void SetReplyHandler(std::function<void(const std::string&)> reply) {
        m_reply = std::move(reply);
    }

private:
    enum class State {
        Ground,
        Escape,
        EscapeIntermediate,
        CsiParam,
        CsiIgnore,
        String,       // OSC, DCS, SOS, PM, APC: consumed up to the terminator
        StringEscape, // an ESC inside a string: ST if a backslash follows
    };

    static constexpr int kMaxParams = 16;
    static constexpr int kMaxParamValue = 9999;

    Vt100Parser(const Vt100Parser&) = delete;
    Vt100Parser& operator=(const Vt100Parser&) = delete;

    void Byte(unsigned char byte);
    void Control(unsigned char byte);
    void Utf8(unsigned char byte);
    void Print(WCHAR ch);
    void EscapeDispatch(unsigned char final);
    void Designate(unsigned char intermediate, unsigned char final);
    void CsiDispatch(unsigned char final);
    void DecPrivateMode(bool set);
    void AnsiMode(bool set);
    void SelectGraphicRendition();
    void Report(unsigned char final);
    void LineFeed();
    // ESC # 8: the screen alignment pattern.
    void AlignmentPattern();
    void ResetParserModes();
    // Cursor movements on a VT100 leave the pending-wrap position first: the cursor
    // goes back to the last column, as if it had not advanced past it.
    void LeavePendingWrap();
    // Parameter i, with 0 and a missing value both read as 1.
    int Count(int i) const;
    // Parameter i as received; a missing value reads as 0.
    int Param(int i) const { return i < m_paramCount ? m_params[i] : 0; }
    void BeginSequence();

    ScreenBuffer& m_screen;
    State m_state = State::Ground;
    int m_params[kMaxParams] = {};
    int m_paramCount = 0;
    bool m_paramOverflow = false;
    bool m_subParam = false;
    unsigned m_subParamMask = 0; // parameters that carried colon sub-parameters
    unsigned char m_private = 0;
    unsigned char m_intermediate = 0;
    char32_t m_utf8Code = 0;
    char32_t m_utf8Minimum = 0;
    int m_utf8Pending = 0;
    bool m_autoWrapAtReset = true;
    bool m_newlineMode = false;
    // Insert mode as set through IRM, so that a fill can turn it off and back.
    bool m_insertMode = false;
    bool m_cursorVisible = true;
    std::function<void(const std::string&)> m_reply;
};
