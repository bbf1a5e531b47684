// Video attributes, character set designations, column mode and the resets.
#include "ScreenBuffer.h"

#include <algorithm>

namespace {

enum CharSetNumber { UsAscii = 0, UkNational = 1, SpecialGraphics = 2, ExtendedGraphics = 3 };

} // namespace

void ScreenBuffer::SetVideoBold() {
    m_videoMode |= FontStyle::Bold;
    UpdateVideoMode();
}

void ScreenBuffer::ResetVideoBold() {
    m_videoMode &= ~FontStyle::Bold;
    UpdateVideoMode();
}

void ScreenBuffer::SetVideoSubdued() {
    m_videoMode |= FontStyle::Subdued;
    UpdateVideoMode();
}

void ScreenBuffer::ResetVideoSubdued() {
    m_videoMode &= ~FontStyle::Subdued;
    UpdateVideoMode();
}

void ScreenBuffer::SetVideoUnderlined() {
    m_videoMode |= FontStyle::Underlined;
    UpdateVideoMode();
}

void ScreenBuffer::ResetVideoUnderlined() {
    m_videoMode &= ~FontStyle::Underlined;
    UpdateVideoMode();
}

void ScreenBuffer::SetVideoBlinking() {
    m_videoMode |= FontStyle::Blinking;
    UpdateVideoMode();
}

void ScreenBuffer::ResetVideoBlinking() {
    m_videoMode &= ~FontStyle::Blinking;
    UpdateVideoMode();
}

void ScreenBuffer::SetVideoReverse() {
    m_videoMode |= FontStyle::Reverse;
    UpdateVideoMode();
}

void ScreenBuffer::ResetVideoReverse() {
    m_videoMode &= ~FontStyle::Reverse;
    UpdateVideoMode();
}

void ScreenBuffer::ResetVideo() {
    m_videoMode = 0;
    UpdateVideoMode();
}

// A G-set outside G0..G3 has no designation to change.
void ScreenBuffer::SetCharSetUS_ASCII(int g) {
    if (g >= 0 && g < 4)
        m_charSets[g] = UsAscii;
}

void ScreenBuffer::SetCharSetUK_National(int g) {
    if (g >= 0 && g < 4)
        m_charSets[g] = UkNational;
}

void ScreenBuffer::SetCharSetSpecialGraphics(int g) {
    if (g >= 0 && g < 4)
        m_charSets[g] = SpecialGraphics;
}

void ScreenBuffer::SetCharSetExtendedGraphics(int g) {
    if (g >= 0 && g < 4)
        m_charSets[g] = ExtendedGraphics;
}

void ScreenBuffer::ShiftIn() {
    m_shift = 0;
}

void ScreenBuffer::ShiftOut() {
    m_shift = 1;
}

void ScreenBuffer::SetColumnMode(bool wide) {
    Clear();
    m_columnMode = wide;
    m_numColumns = wide ? 132 : 80;
}

void ScreenBuffer::SoftTerminalReset() {
    m_saved.cursor = CursorPos(0, 0);
    m_cursor = CursorPos(0, 0);
    m_saved.videoMode = 0;
    m_videoMode = 0;
    m_saved.shift = 0;
    m_shift = 0;
    std::fill_n(m_saved.charSets, 4, UsAscii);
    std::fill_n(m_charSets, 4, UsAscii);
    m_insertMode = false;
    m_newlineMode = false;
    m_cursorKeyMode = false;
    m_columnMode = false;
    m_screenMode = false;
    m_originMode = false;
    m_autoWrapMode = false;
    m_saved.originMode = false;
    m_saved.autoWrapMode = false;
    m_topMargin = 0;
    m_bottomMargin = VisRows() - 1;
    DefaultTabStops();
    UpdateVideoMode();
    Clear();
}

void ScreenBuffer::ResetToInitialState() {
    SoftTerminalReset();
}
