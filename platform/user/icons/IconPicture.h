// Icon pictures: reading the images of an .ico file (its directory, and each
// image as a device-independent bitmap with its mask, or as PNG), choosing
// the image for a size, scaling and drawing. Internal to the platform.
#pragma once

#include <windef.h>

#include <cstdint>
#include <vector>

namespace platform::user {

// Premultiplied ARGB pixels in Cairo's ARGB32 layout (0xAARRGGBB in a native
// 32-bit word), row by row from the top.
struct IconPicture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    bool Empty() const { return width <= 0 || height <= 0; }
};

// One image of an .ico file as its directory describes it.
struct IconEntry {
    int width = 0;  // 256 where the directory says 0
    int height = 0; // the same
    int bitCount = 0;
    std::uint32_t size = 0;
    std::uint32_t offset = 0;
};

// The directory of an .ico file; empty when the bytes are not an icon or an
// image lies outside them.
std::vector<IconEntry> ReadIconDirectory(const std::vector<std::uint8_t>& file);

// The index of the entry to show at cx x cy: the size nearest to it (a
// larger one when two are as near), then the most colours; -1 for none.
int ChooseIconEntry(const std::vector<IconEntry>& entries, int cx, int cy);

// Decodes one image of the file into *picture; false when its data is
// malformed (the picture is then left empty).
bool DecodeIconImage(const std::vector<std::uint8_t>& file, const IconEntry& entry,
                     IconPicture* picture);

// The picture at cx x cy: each target pixel the average of the source area
// it covers, so halving keeps exact colours in uniform areas.
IconPicture ScalePicture(const IconPicture& picture, int cx, int cy);

// Keeps one bit of transparency: pixels at least half opaque become wholly
// opaque, the others wholly transparent.
void ThresholdAlpha(IconPicture* picture);

// How a picture is put on a device context.
enum class IconDraw {
    Normal, // composited over what is there
    Image,  // the colours alone, transparent parts black
    Mask,   // black where the picture is opaque, white where it is not
};

// Draws the picture with its top-left at (x, y) (logical units). False for a
// bad DC.
bool DrawPicture(HDC hdc, int x, int y, const IconPicture& picture, IconDraw how);

} // namespace platform::user
