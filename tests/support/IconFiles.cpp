#include "support/IconFiles.h"

#include <stdexcept>

namespace testing_support {

namespace {

void Put16(std::string& out, unsigned v) {
    out += static_cast<char>(v & 0xFF);
    out += static_cast<char>((v >> 8) & 0xFF);
}

void Put32(std::string& out, std::uint32_t v) {
    Put16(out, v & 0xFFFF);
    Put16(out, v >> 16);
}

// The bitmap form: header, colour table, colour rows and mask rows, both
// bottom-up with rows padded to 4 bytes.
std::string Bitmap(const IconImage& image) {
    const int w = image.width, h = image.height, bits = image.bits;
    std::vector<COLORREF> table;
    auto indexOf = [&](COLORREF c) {
        for (std::size_t i = 0; i < table.size(); ++i)
            if (table[i] == c)
                return static_cast<unsigned>(i);
        if (table.size() >= (1u << bits))
            throw std::runtime_error("too many colours for the icon's depth");
        table.push_back(c);
        return static_cast<unsigned>(table.size() - 1);
    };
    const std::size_t rowBytes = (static_cast<std::size_t>(w) * bits + 31) / 32 * 4;
    const std::size_t maskBytes = (static_cast<std::size_t>(w) + 31) / 32 * 4;
    std::string rows(rowBytes * h, '\0'), mask(maskBytes * h, '\0');
    for (int y = 0; y < h; ++y) {
        const std::size_t row = static_cast<std::size_t>(h - 1 - y);
        for (int x = 0; x < w; ++x) {
            const IconPixel p = image.pixel(x, y);
            char* line = &rows[row * rowBytes];
            if (bits <= 8) {
                const unsigned index = indexOf(p.colour);
                const std::size_t bit = static_cast<std::size_t>(x) * bits;
                line[bit / 8] = static_cast<char>(static_cast<unsigned char>(line[bit / 8]) |
                                                  (index << (8 - bits - bit % 8)));
            } else {
                char* at = line + static_cast<std::size_t>(x) * (bits / 8);
                at[0] = static_cast<char>(GetBValue(p.colour));
                at[1] = static_cast<char>(GetGValue(p.colour));
                at[2] = static_cast<char>(GetRValue(p.colour));
                if (bits == 32)
                    at[3] = static_cast<char>(p.transparent ? 0 : p.alpha);
            }
            if (p.transparent)
                mask[row * maskBytes + x / 8] |= static_cast<char>(0x80 >> (x % 8));
        }
    }
    std::string out;
    Put32(out, 40);
    Put32(out, static_cast<std::uint32_t>(w));
    Put32(out, static_cast<std::uint32_t>(2 * h));
    Put16(out, 1);
    Put16(out, static_cast<unsigned>(bits));
    Put32(out, 0);
    Put32(out, static_cast<std::uint32_t>(rows.size() + mask.size()));
    Put32(out, 0);
    Put32(out, 0);
    Put32(out, bits <= 8 ? static_cast<std::uint32_t>(table.size()) : 0);
    Put32(out, 0);
    for (COLORREF c : table) {
        out += static_cast<char>(GetBValue(c));
        out += static_cast<char>(GetGValue(c));
        out += static_cast<char>(GetRValue(c));
        out += '\0';
    }
    return out + rows + mask;
}

} // namespace

IconImage SolidIcon(int size, int bits, COLORREF colour) {
    IconImage image;
    image.width = image.height = size;
    image.bits = bits;
    image.pixel = [colour](int, int) { return IconPixel{colour, false, 255}; };
    return image;
}

std::string MakeIconFile(const std::vector<IconImage>& images) {
    std::vector<std::string> data;
    for (const IconImage& image : images)
        data.push_back(image.png.empty() ? Bitmap(image) : image.png);
    std::string out;
    Put16(out, 0);
    Put16(out, 1);
    Put16(out, static_cast<unsigned>(images.size()));
    std::uint32_t offset = static_cast<std::uint32_t>(6 + 16 * images.size());
    for (std::size_t i = 0; i < images.size(); ++i) {
        out += static_cast<char>(images[i].width >= 256 ? 0 : images[i].width);
        out += static_cast<char>(images[i].height >= 256 ? 0 : images[i].height);
        out += static_cast<char>(images[i].bits <= 8 ? (1 << images[i].bits) & 0xFF : 0);
        out += '\0';
        Put16(out, 1);
        Put16(out, static_cast<unsigned>(images[i].bits));
        Put32(out, static_cast<std::uint32_t>(data[i].size()));
        Put32(out, offset);
        offset += static_cast<std::uint32_t>(data[i].size());
    }
    for (const std::string& d : data)
        out += d;
    return out;
}

} // namespace testing_support
