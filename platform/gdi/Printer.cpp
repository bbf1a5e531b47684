// Printer DCs: documents become PDF files, one PDF page per printed page, at
// the printer's resolution (coordinates are dots; Cairo scales them to points).
#include "DeviceContext.h"

#include <platform/CodePage.h>
#include <platform/GdiObjects.h>

#include <cairo-pdf.h>
#include <cairo.h>

namespace platform::gdi {
namespace {

struct PrinterSettings {
    std::string output = "printout.pdf";
    int dpi = 600;
    bool fastPaths = true;
};

PrinterSettings& Settings() {
    static PrinterSettings settings;
    return settings;
}

constexpr double kLetterWidthInches = 8.5;
constexpr double kLetterHeightInches = 11.0;

// Outside a document the DC draws into a scratch pixel, so stray calls are
// harmless.
void UseScratch(DeviceContext& dc) {
    if (dc.surface)
        cairo_surface_destroy(dc.surface);
    dc.surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 1, 1);
    ResetCairo(dc);
}

DeviceContext* LookupPrinter(HDC hdc) {
    DeviceContext* dc = LookupDC(hdc);
    return dc && dc->kind == DcKind::Printer ? dc : nullptr;
}

} // namespace

bool FastPathsEnabled() {
    return Settings().fastPaths;
}

} // namespace platform::gdi

namespace platform {

void SetFastPaths(bool enabled) {
    gdi::Settings().fastPaths = enabled;
}

void SetPrinterOutput(const std::string& path) {
    gdi::Settings().output = path;
}

void SetPrinterResolution(int dpi) {
    if (dpi >= 72 && dpi <= 2400)
        gdi::Settings().dpi = dpi;
}

} // namespace platform

using namespace platform::gdi;
using platform::JournalEntry;

HDC CreateDCW(LPCWSTR driver, LPCWSTR device, LPCWSTR, const void*) {
    // Only printers: the display is reached through GetDC.
    if (!driver && !device)
        return nullptr;
    auto* dc = new DeviceContext(DcKind::Printer);
    dc->dpi = Settings().dpi;
    dc->pageWidth = static_cast<int>(kLetterWidthInches * dc->dpi);
    dc->pageHeight = static_cast<int>(kLetterHeightInches * dc->dpi);
    dc->clip = RECT{0, 0, dc->pageWidth, dc->pageHeight};
    dc->pen = static_cast<Pen*>(Stock(BLACK_PEN));
    dc->brush = static_cast<Brush*>(Stock(WHITE_BRUSH));
    dc->font = static_cast<Font*>(Stock(SYSTEM_FONT));
    UseScratch(*dc);
    return static_cast<HDC>(Register(dc));
}

int StartDocW(HDC hdc, const DOCINFOW* info) {
    DeviceContext* dc = LookupPrinter(hdc);
    if (!dc || dc->inDocument)
        return SP_ERROR;
    std::string path = info && info->lpszOutput && *info->lpszOutput
                           ? platform::ToUtf8(std::u16string(info->lpszOutput))
                           : Settings().output;
    cairo_surface_t* pdf = cairo_pdf_surface_create(path.c_str(), dc->pageWidth * 72.0 / dc->dpi,
                                                    dc->pageHeight * 72.0 / dc->dpi);
    if (cairo_surface_status(pdf) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(pdf);
        return SP_ERROR;
    }
    // A fixed creation date makes the same document the same bytes.
    cairo_pdf_surface_set_metadata(pdf, CAIRO_PDF_METADATA_CREATE_DATE, "2000-01-01T00:00:00");
    if (info && info->lpszDocName)
        cairo_pdf_surface_set_metadata(pdf, CAIRO_PDF_METADATA_TITLE,
                                       platform::ToUtf8(std::u16string(info->lpszDocName)).c_str());
    cairo_surface_destroy(dc->surface);
    dc->surface = pdf;
    dc->outputPath = path;
    dc->inDocument = true;
    ResetCairo(*dc);
    static int jobs = 0;
    return ++jobs;
}

int StartPage(HDC hdc) {
    DeviceContext* dc = LookupPrinter(hdc);
    if (!dc || !dc->inDocument || dc->inPage)
        return SP_ERROR;
    dc->inPage = true;
    return 1;
}

int EndPage(HDC hdc) {
    DeviceContext* dc = LookupPrinter(hdc);
    if (!dc || !dc->inPage)
        return SP_ERROR;
    cairo_show_page(dc->cr);
    dc->inPage = false;
    return 1;
}

int EndDoc(HDC hdc) {
    DeviceContext* dc = LookupPrinter(hdc);
    if (!dc || !dc->inDocument)
        return SP_ERROR;
    if (dc->inPage)
        EndPage(hdc);
    cairo_destroy(dc->cr);
    dc->cr = nullptr;
    cairo_surface_finish(dc->surface);
    bool ok = cairo_surface_status(dc->surface) == CAIRO_STATUS_SUCCESS;
    dc->inDocument = false;
    UseScratch(*dc);
    return ok ? 1 : SP_ERROR;
}

int AbortDoc(HDC hdc) {
    DeviceContext* dc = LookupPrinter(hdc);
    if (!dc || !dc->inDocument)
        return SP_ERROR;
    cairo_destroy(dc->cr);
    dc->cr = nullptr;
    cairo_surface_finish(dc->surface);
    dc->inDocument = false;
    dc->inPage = false;
    UseScratch(*dc);
    // An aborted document leaves no file behind.
    std::remove(dc->outputPath.c_str());
    return 1;
}
