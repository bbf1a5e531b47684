// DrawText: formatted text in a rectangle, with line breaks, word wrapping,
// alignment, '&' mnemonic prefixes and clipping.
#include "WindowManager.h"

#include "gdi/DeviceContext.h"

#include <wingdi.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

// A device addresses coordinates up to 2^27 either way; a rectangle beyond
// that is held there, so the sums below cannot overflow.
constexpr int kCoordinateLimit = 1 << 27;

RECT WithinDevice(const RECT& rect) {
    auto clamp = [](int v) { return std::clamp(v, -kCoordinateLimit, kCoordinateLimit); };
    return RECT{clamp(rect.left), clamp(rect.top), clamp(rect.right), clamp(rect.bottom)};
}

struct Line {
    std::u16string text;
    int underline = -1; // index of the character after an '&', or -1
};

// Removes the '&' prefixes: "&&" is one '&', "&x" underlines x.
Line StripPrefixes(const std::u16string& text, bool hideUnderline) {
    Line line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && i + 1 < text.size()) {
            ++i;
            if (text[i] != u'&' && line.underline < 0 && !hideUnderline)
                line.underline = static_cast<int>(line.text.size());
        } else if (text[i] == u'&') {
            continue;
        }
        line.text += text[i];
    }
    return line;
}

int Width(HDC hdc, const std::u16string& text) {
    SIZE size{0, 0};
    if (!text.empty())
        GetTextExtentPoint32(hdc, text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx;
}

std::u16string ExpandTabs(HDC hdc, const std::u16string& text) {
    TEXTMETRIC tm{};
    GetTextMetrics(hdc, &tm);
    int stop = std::max<LONG>(1, tm.tmAveCharWidth * 8);
    std::u16string out;
    for (char16_t ch : text) {
        if (ch != u'\t') {
            out += ch;
            continue;
        }
        int width = Width(hdc, out);
        int target = (width / stop + 1) * stop;
        do
            out += u' ';
        while (Width(hdc, out) < target);
    }
    return out;
}

// Splits at CR, LF and CR LF; with word breaks, also where a line would
// pass the width, at a blank (a word wider than the line stays whole).
std::vector<std::u16string> SplitLines(HDC hdc, const std::u16string& text, UINT format,
                                       int width) {
    std::vector<std::u16string> hard;
    if (format & DT_SINGLELINE) {
        std::u16string one;
        for (char16_t ch : text)
            one += (ch == u'\r' || ch == u'\n') ? u' ' : ch;
        hard.push_back(one);
    } else {
        std::u16string current;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] == u'\r' || text[i] == u'\n') {
                hard.push_back(current);
                current.clear();
                if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
                    ++i;
            } else {
                current += text[i];
            }
        }
        hard.push_back(current);
    }
    if (!(format & DT_WORDBREAK) || (format & DT_SINGLELINE))
        return hard;
    std::vector<std::u16string> lines;
    for (const std::u16string& line : hard) {
        std::u16string rest = line;
        while (!rest.empty()) {
            std::u16string shown = (format & DT_NOPREFIX) ? rest : StripPrefixes(rest, true).text;
            if (Width(hdc, shown) <= width) {
                lines.push_back(rest);
                break;
            }
            // The longest run of whole words that fits.
            std::size_t cut = std::u16string::npos;
            for (std::size_t i = 1; i < rest.size(); ++i) {
                if (rest[i] != u' ')
                    continue;
                std::u16string head = rest.substr(0, i);
                std::u16string headShown =
                    (format & DT_NOPREFIX) ? head : StripPrefixes(head, true).text;
                if (Width(hdc, headShown) > width)
                    break;
                cut = i;
            }
            if (cut == std::u16string::npos) {
                std::size_t blank = rest.find(u' ');
                cut = blank == std::u16string::npos ? rest.size() : blank;
            }
            lines.push_back(rest.substr(0, cut));
            std::size_t next = cut;
            while (next < rest.size() && rest[next] == u' ')
                ++next;
            rest = rest.substr(next);
        }
        if (line.empty())
            lines.push_back(line);
    }
    return lines;
}

} // namespace

int DrawTextW(HDC hdc, LPCWSTR text, int count, LPRECT rect, UINT format) {
    if (!hdc || !text || !rect)
        return 0;
    std::u16string source =
        count < 0 ? std::u16string(text) : std::u16string(text, static_cast<std::size_t>(count));
    if (format & DT_EXPANDTABS)
        source = ExpandTabs(hdc, source);
    TEXTMETRIC tm{};
    GetTextMetrics(hdc, &tm);
    int lineHeight = tm.tmHeight + ((format & DT_EXTERNALLEADING) ? tm.tmExternalLeading : 0);
    const RECT box = WithinDevice(*rect);
    int width = box.right - box.left;
    std::vector<std::u16string> raw = SplitLines(hdc, source, format, width);
    std::vector<Line> lines;
    int widest = 0;
    for (const std::u16string& r : raw) {
        Line line =
            (format & DT_NOPREFIX) ? Line{r, -1} : StripPrefixes(r, (format & DT_HIDEPREFIX) != 0);
        widest = std::max(widest, Width(hdc, line.text));
        lines.push_back(std::move(line));
    }
    int height = lineHeight * static_cast<int>(lines.size());
    if (format & DT_CALCRECT) {
        if (format & DT_SINGLELINE || !(format & DT_WORDBREAK) || widest > width)
            rect->right = box.left + widest;
        rect->bottom = box.top + height;
        return height;
    }
    int top = box.top;
    if (format & DT_SINGLELINE) {
        if (format & DT_VCENTER)
            top = box.top + (box.bottom - box.top - lineHeight) / 2;
        else if (format & DT_BOTTOM)
            top = box.bottom - lineHeight;
    }
    auto* dc = platform::gdi::LookupDC(hdc);
    RECT savedClip{};
    if (dc && !(format & DT_NOCLIP)) {
        savedClip = dc->clip;
        RECT mapped = dc->mapping.ToDevice(box);
        RECT device{mapped.left + dc->origin.x, mapped.top + dc->origin.y,
                    mapped.right + dc->origin.x, mapped.bottom + dc->origin.y};
        dc->clip = platform::user::Intersect(dc->clip, device);
        platform::gdi::ResetCairo(*dc);
    }
    for (const Line& line : lines) {
        int lineWidth = Width(hdc, line.text);
        int x = box.left;
        if (format & DT_CENTER)
            x = box.left + (width - lineWidth) / 2;
        else if (format & DT_RIGHT)
            x = box.right - lineWidth;
        if (!line.text.empty())
            TextOut(hdc, x, top, line.text.c_str(), static_cast<int>(line.text.size()));
        if (line.underline >= 0 && line.underline < static_cast<int>(line.text.size())) {
            int from =
                x + Width(hdc, line.text.substr(0, static_cast<std::size_t>(line.underline)));
            int to =
                x + Width(hdc, line.text.substr(0, static_cast<std::size_t>(line.underline) + 1));
            RECT bar{from, top + tm.tmAscent + 1, to, top + tm.tmAscent + 2};
            HBRUSH brush = CreateSolidBrush(GetTextColor(hdc));
            FillRect(hdc, &bar, brush);
            DeleteObject(brush);
        }
        top += lineHeight;
    }
    if (dc && !(format & DT_NOCLIP)) {
        dc->clip = savedClip;
        platform::gdi::ResetCairo(*dc);
    }
    return height;
}
