#include "Corpus.h"

namespace corpus {

namespace {

// A small generator of our own, so the streams do not depend on the standard
// library's distributions.
class Random {
public:
    explicit Random(std::uint64_t seed) : m_state(seed * 0x9E3779B97F4A7C15ull + 1) {}
    std::uint32_t Next() {
        m_state ^= m_state << 13;
        m_state ^= m_state >> 7;
        m_state ^= m_state << 17;
        return static_cast<std::uint32_t>(m_state >> 11);
    }
    // In lo..hi, inclusive.
    int Between(int lo, int hi) { return lo + static_cast<int>(Next() % (hi - lo + 1)); }

private:
    std::uint64_t m_state;
};

const std::string kCsi = "\x1b[";

void Text(std::string& out, Random& random, int length) {
    static const char kWords[] = "the quick brown fox jumps over a lazy dog while 0123456789 "
                                 "int main(void) { return x + y; } // ok";
    int start = random.Between(0, sizeof kWords - 2);
    for (int i = 0; i < length; ++i)
        out.push_back(kWords[(start + i) % (sizeof kWords - 1)]);
}

std::string Num(int n) {
    return std::to_string(n);
}

void Cup(std::string& out, int row, int col) {
    out += kCsi + Num(row) + ";" + Num(col) + "H";
}

void PlainItem(std::string& out, Random& random) {
    Text(out, random, random.Between(0, 79));
    out += "\r\n";
}

void EditorItem(std::string& out, Random& random) {
    static const char* kSgr[] = {"0", "1", "4", "7", "1;7", "2", "5", "22", "24", "27", ""};
    int op = random.Between(0, 99);
    if (op < 30) {
        Cup(out, random.Between(1, 24), random.Between(1, 70));
        Text(out, random, random.Between(5, 40));
    } else if (op < 40) {
        out += kCsi + kSgr[random.Between(0, 10)] + "m";
        Text(out, random, random.Between(1, 12));
    } else if (op < 46) {
        out += kCsi + Num(random.Between(0, 2)) + "K";
    } else if (op < 47) {
        out += kCsi + Num(random.Between(0, 1)) + "J";
    } else if (op < 56) {
        int top = random.Between(1, 12), bottom = random.Between(top + 2, 24);
        out += kCsi + Num(top) + ";" + Num(bottom) + "r";
        Cup(out, random.Between(top, bottom), 1);
        out += kCsi + Num(random.Between(1, 3)) + (random.Next() % 2 ? "L" : "M");
        Text(out, random, random.Between(10, 60));
        if (random.Next() % 2)
            out += kCsi + "r";
    } else if (op < 64) {
        Cup(out, random.Between(1, 24), random.Between(1, 79));
        out += kCsi + Num(random.Between(1, 4)) + (random.Next() % 2 ? "@" : "P");
        Text(out, random, random.Between(1, 6));
    } else if (op < 71) {
        out += "\r";
        for (int i = random.Between(1, 5); i > 0; --i) {
            out += "\t";
            Text(out, random, random.Between(1, 6));
        }
    } else if (op < 78) {
        static const char kGraphics[] = "lqqqqwqqqqkxtnuxmqqqqvqqqqj`afg~";
        out += "\x0e";
        for (int i = random.Between(4, 20); i > 0; --i)
            out.push_back(kGraphics[random.Between(0, sizeof kGraphics - 2)]);
        out += "\x0f";
    } else if (op < 86) {
        out += "\r\n";
        Text(out, random, random.Between(0, 70));
    } else {
        Text(out, random, random.Between(1, 30));
    }
}

void RegionItem(std::string& out, Random& random, int& top, int& bottom) {
    int op = random.Between(0, 99);
    if (op < 3) {
        top = random.Between(1, 10);
        bottom = random.Between(top + 5, 24);
        out += kCsi + Num(top) + ";" + Num(bottom) + "r";
    } else if (op < 60) {
        // A burst of lines at the bottom margin: each line feed scrolls the region.
        Cup(out, bottom, 1);
        for (int i = random.Between(4, 16); i > 0; --i) {
            Text(out, random, random.Between(20, 79));
            out += random.Next() % 4 ? "\r\n"
                                     : "\r\x1b"
                                       "D";
        }
    } else {
        // And at the top margin: each reverse index scrolls it the other way.
        Cup(out, top, 1);
        for (int i = random.Between(4, 16); i > 0; --i) {
            out += "\x1bM";
            Text(out, random, random.Between(20, 79));
            out += "\r";
        }
    }
}

} // namespace

const char* Name(Stream stream) {
    switch (stream) {
    case Stream::Plain:
        return "plain";
    case Stream::Editor:
        return "editor";
    case Stream::Region:
        return "region";
    }
    return "?";
}

bool FromName(const std::string& name, Stream& stream) {
    for (Stream s : {Stream::Plain, Stream::Editor, Stream::Region})
        if (name == Name(s)) {
            stream = s;
            return true;
        }
    return false;
}

std::string Make(Stream stream, std::size_t size, std::uint64_t seed) {
    Random random(seed);
    std::string out;
    out.reserve(size + 256);
    // Auto wrap on and G1 holding the line-drawing set, on every contender.
    out += "\x1b[?7h\x1b)0";
    int top = 5, bottom = 20;
    if (stream == Stream::Region)
        out += kCsi + Num(top) + ";" + Num(bottom) + "r";
    while (out.size() < size) {
        switch (stream) {
        case Stream::Plain:
            PlainItem(out, random);
            break;
        case Stream::Editor:
            EditorItem(out, random);
            break;
        case Stream::Region:
            RegionItem(out, random, top, bottom);
            break;
        }
    }
    return out;
}

} // namespace corpus
