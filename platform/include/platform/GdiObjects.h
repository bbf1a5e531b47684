// Live-object accounting for GDI objects and access to pixels, for tests and
// example hosts.
#pragma once

#include "../windef.h"

#include <string>

namespace platform {

// Objects created and not yet deleted; stock objects do not count.
struct GdiCounts {
    int pens = 0;
    int brushes = 0;
    int fonts = 0;
    int bitmaps = 0;
    int dcs = 0;
    bool operator==(const GdiCounts&) const = default;
};
GdiCounts LiveGdiObjects();
std::string ToString(const GdiCounts& counts);

// Writes what a DC shows (its bitmap, window or the screen) as a PNG file.
bool SaveDcAsPng(HDC hdc, const std::string& path);
bool SaveBitmapAsPng(HBITMAP bitmap, const std::string& path);

// The font file a font resolves to, for tests that check the alias table.
std::string ResolvedFontFile(HFONT font);

} // namespace platform

namespace platform {

// Direct pixel writes for glyphs and axis-aligned strokes (on by default). Off,
// everything goes through Cairo; tests compare the two.
void SetFastPaths(bool enabled);

// Where printer DCs write their PDF when the document names no output file,
// and at what resolution they print (dots per inch; pages are US Letter).
void SetPrinterOutput(const std::string& path);
std::string PrinterOutput();
void SetPrinterResolution(int dpi);

// A DC that draws one printed page onto a bitmap, for print preview: it
// reports the printer DC's page size and resolution (GetDeviceCaps), measures
// text as the printer does, and scales what is drawn in the printer's dots to
// the bitmap's width; every line and rectangle keeps at least one pixel. It
// starts no document. Delete it with DeleteDC. Null when printer is no
// printer DC or page no bitmap.
HDC CreatePreviewDC(HDC printer, HBITMAP page);

} // namespace platform
