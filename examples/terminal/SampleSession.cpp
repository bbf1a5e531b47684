#include "SampleSession.h"

namespace sample {

namespace {

const std::string kEsc = "\x1b";
const std::string kCsi = "\x1b[";

std::string At(int row, int col) {
    return kCsi + std::to_string(row) + ";" + std::to_string(col) + "H";
}

// The attribute table: each label written in the attributes it names.
void Attributes(std::string& out) {
    struct Entry {
        const char* sgr;
        const char* label;
    };
    const Entry entries[] = {
        {"0", "normal"},       {"1", "bold"},     {"2", "subdued"},     {"4", "underlined"},
        {"5", "blinking"},     {"7", "reverse"},  {"1;4", "bold+ul"},   {"1;7", "bold+rev"},
        {"2;4", "subdued+ul"}, {"4;7", "rev+ul"}, {"5;7", "blink+rev"}, {"2;5", "subdued+blink"},
    };
    int index = 0;
    for (const Entry& entry : entries) {
        int row = 4 + index / 4;
        int col = 3 + (index % 4) * 19;
        out += At(row, col) + kCsi + entry.sgr + "m" + entry.label + kCsi + "0m";
        ++index;
    }
    // 22, 24, 25 and 27 take single attributes off again.
    out += At(7, 3) + kCsi + "1;4;7mall three" + kCsi + "24m-ul" + kCsi + "27m-rev" + kCsi +
           "22m-bold" + kCsi + "0m";
    out += At(7, 41) + kEsc + "(A" + "UK set: #5 = five pounds" + kEsc + "(B";
}

// Line-drawing characters: G1 holds the special graphics set and SO selects it.
std::string Graphics(const std::string& codes) {
    return "\x0e" + codes + "\x0f";
}

// A table of two columns and two rows framed with the line-drawing set.
void Box(std::string& out) {
    const std::string bar(10, 'q');
    const std::string v = Graphics("x");
    out += kEsc + ")0";
    out += At(9, 3) + Graphics("l" + bar + "w" + bar + "k");
    out += At(10, 3) + v + "  file    " + v + "  bytes   " + v;
    out += At(11, 3) + Graphics("t" + bar + "n" + bar + "u");
    out += At(12, 3) + v + "  a.txt   " + v + "  1024    " + v;
    out += At(13, 3) + v + "  b.bin   " + v + "  64 " + Graphics("`a") + "   " + v;
    out += At(14, 3) + Graphics("m" + bar + "v" + bar + "j");
    out += At(15, 3) + "set: " + Graphics("`afgjklmnopqrstuvwxyz{|}~");
}

// Tab stops and character editing on the right half.
void Editing(std::string& out) {
    out += At(9, 41) + "tabs:" + "\t1\t2\t3";
    // All stops cleared, then two set at columns 57 and 67.
    out += kCsi + "3g" + At(10, 57) + kEsc + "H" + At(10, 67) + kEsc + "H";
    out += At(10, 41) + "own stops:" + "\tA\tB";
    out += At(11, 41) + "insert: abcdef" + kCsi + "4D" + kCsi + "2@" + "XY";
    out += At(12, 41) + "delete: abcdef" + kCsi + "4D" + kCsi + "2P";
    out += At(13, 41) + "erase:  abcdefgh" + kCsi + "6D" + kCsi + "7m" + kCsi + "3X" + kCsi + "0m";
    out += At(14, 41) + kCsi + "4h" + "insert mode: 12" + kCsi + "D" + "_" + kCsi + "4l";
}

// Rows 17 to 22 become a scrolling region; 10 lines scroll through it, then a
// reverse index brings a line in at its top.
void Region(std::string& out) {
    out += At(16, 1) + kCsi + "1m" + "scrolling region, rows 17-22:" + kCsi + "0m";
    out += At(23, 1) + kCsi + "2m" + "(below the region: does not move)" + kCsi + "0m";
    out += kCsi + "17;22r" + At(22, 1);
    for (int i = 1; i <= 10; ++i)
        out += "\r\n  line " + std::to_string(i) + " of 10 scrolled through the region";
    out += At(17, 1) + kEsc + "M" + kCsi + "7m" + "  reverse index: new top line" + kCsi + "0m";
    out += kCsi + "r" + At(24, 1);
}

} // namespace

std::string SessionBytes() {
    std::string out;
    out += kEsc + "c" + kCsi + "?7h" + kCsi + "2J";
    out += At(1, 1) + kCsi + "1;7m" + std::string(80, ' ') + At(1, 3) +
           "VT100 host terminal: built-in sample session" + kCsi + "0m";
    out += At(2, 3) + "Video attributes (SGR):";
    Attributes(out);
    Box(out);
    Editing(out);
    Region(out);
    return out;
}

CursorPos SelectionStart() {
    return CursorPos(4, 22);
}
CursorPos SelectionEnd() {
    return CursorPos(5, 40);
}

} // namespace sample
