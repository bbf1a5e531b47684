// Building .ico files for tests: each image a device-independent bitmap of a
// chosen depth with its mask, or PNG bytes the caller made.
#pragma once

#include <windef.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace testing_support {

// What one pixel of an image shows.
struct IconPixel {
    COLORREF colour = 0;
    bool transparent = false; // the mask bit (and alpha 0 in a 32-bit image)
    std::uint8_t alpha = 255; // written only by 32-bit images
};

struct IconImage {
    int width = 16;
    int height = 16;
    int bits = 32; // 1, 4, 8, 24 or 32; up to 8 a colour table is built
    std::function<IconPixel(int x, int y)> pixel;
    // When not empty, the image is these PNG bytes instead.
    std::string png;
};

// An image of one colour, wholly opaque.
IconImage SolidIcon(int size, int bits, COLORREF colour);
// The .ico file holding the images in order.
std::string MakeIconFile(const std::vector<IconImage>& images);

} // namespace testing_support
