#include "Contenders.h"

#include "TerminalLayout.h"
#include "Vt100Parser.h"

#include <libtsm.h>
#include <vterm.h>

#include <stdexcept>

namespace {

// The screen model through the host's parser, with no device context and no
// parent window, as a host sees it between paints.
class Ours : public Contender {
public:
    Ours() : m_screen(Layout()), m_parser(m_screen) { m_screen.SetAutoWrapMode(true); }
    void Feed(const char* data, std::size_t size) override { m_parser.Feed(data, size); }
    char32_t CharAt(int row, int col) override {
        // Select one cell and read it back: the screen offers no other reader.
        m_screen.Select(CursorPos(row + 1, col + 1), CursorPos(row + 1, col + 1));
        CString text = m_screen.SelectedText();
        m_screen.Unselect();
        // A cell in the last column comes back with its line break, blanks trimmed.
        return text.IsEmpty() || text[0] == u'\r' ? U' ' : static_cast<char32_t>(text[0]);
    }

private:
    static TerminalLayout& Layout() {
        static TerminalLayout layout;
        static bool applied = (layout.Apply(u"DejaVu Sans Mono", 14), true);
        (void)applied;
        return layout;
    }
    ScreenBuffer m_screen;
    Vt100Parser m_parser;
};

class Vterm : public Contender {
public:
    Vterm() : m_vt(vterm_new(24, 80)) {
        if (!m_vt)
            throw std::runtime_error("vterm_new failed");
        vterm_set_utf8(m_vt, 1);
        m_screen = vterm_obtain_screen(m_vt);
        vterm_screen_reset(m_screen, 1);
    }
    ~Vterm() override { vterm_free(m_vt); }
    void Feed(const char* data, std::size_t size) override { vterm_input_write(m_vt, data, size); }
    char32_t CharAt(int row, int col) override {
        VTermScreenCell cell;
        VTermPos pos{row, col};
        if (!vterm_screen_get_cell(m_screen, pos, &cell) || cell.chars[0] == 0)
            return U' ';
        return cell.chars[0];
    }

private:
    VTerm* m_vt;
    VTermScreen* m_screen = nullptr;
};

class Tsm : public Contender {
public:
    Tsm() {
        if (tsm_screen_new(&m_screen, nullptr, nullptr) < 0)
            throw std::runtime_error("tsm_screen_new failed");
        tsm_screen_set_max_sb(m_screen, 0);
        tsm_screen_resize(m_screen, 80, 24);
        if (tsm_vte_new(&m_vte, m_screen, &Tsm::Write, nullptr, nullptr, nullptr) < 0)
            throw std::runtime_error("tsm_vte_new failed");
    }
    ~Tsm() override {
        tsm_vte_unref(m_vte);
        tsm_screen_unref(m_screen);
    }
    void Feed(const char* data, std::size_t size) override { tsm_vte_input(m_vte, data, size); }
    char32_t CharAt(int row, int col) override {
        Probe probe{row, col, U' '};
        tsm_screen_draw(m_screen, &Tsm::Draw, &probe);
        return probe.ch;
    }

private:
    struct Probe {
        int row;
        int col;
        char32_t ch;
    };
    static void Write(tsm_vte*, const char*, size_t, void*) {}
    static int Draw(tsm_screen*, uint64_t, const uint32_t* ch, size_t len, unsigned int,
                    unsigned int posx, unsigned int posy, const tsm_screen_attr*, tsm_age_t,
                    void* data) {
        auto* probe = static_cast<Probe*>(data);
        if (static_cast<int>(posx) == probe->col && static_cast<int>(posy) == probe->row && len)
            probe->ch = ch[0];
        return 0;
    }
    tsm_screen* m_screen = nullptr;
    tsm_vte* m_vte = nullptr;
};

} // namespace

std::unique_ptr<Contender> MakeContender(const std::string& name) {
    if (name == "ours")
        return std::make_unique<Ours>();
    if (name == "libvterm")
        return std::make_unique<Vterm>();
    if (name == "libtsm")
        return std::make_unique<Tsm>();
    throw std::invalid_argument("unknown contender " + name);
}
