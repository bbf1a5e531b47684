// Printer DCs: documents become PDF files, one PDF page per printed page, at
// the printer's resolution (coordinates are dots; Cairo scales them to points).
#include "DeviceContext.h"

#include "PrintQueues.h"

#include <platform/CodePage.h>
#include <platform/GdiObjects.h>
#include <platform/Printers.h>

#include <cairo-pdf.h>
#include <cairo.h>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

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

// A file of its own in the temporary folder for a print queue's document.
std::string SpoolFileName() {
    const char* tmp = std::getenv("TMPDIR");
    std::string pattern = std::string(tmp && *tmp ? tmp : "/tmp") + "/print-XXXXXX.pdf";
    int fd = mkstemps(pattern.data(), 4);
    if (fd < 0)
        return std::string();
    close(fd);
    return pattern;
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

std::string PrinterOutput() {
    return gdi::Settings().output;
}

void SetPrinterResolution(int dpi) {
    if (dpi >= 72 && dpi <= 2400)
        gdi::Settings().dpi = dpi;
}

} // namespace platform

using namespace platform::gdi;
using platform::JournalEntry;

HDC CreateDCW(LPCWSTR driver, LPCWSTR device, LPCWSTR port, const void* devMode) {
    // Only printers: the display is reached through GetDC.
    if (!driver && !device)
        return nullptr;
    std::u16string name = device && *device ? std::u16string(device) : platform::DefaultPrinter();
    std::string queue;
    if (name != platform::kPdfPrinter) {
        queue = platform::ToUtf8(name);
        if (!PrintQueueExists(queue))
            return nullptr;
    }
    const auto* mode = static_cast<const DEVMODEW*>(devMode);
    auto* dc = new DeviceContext(DcKind::Printer);
    dc->dpi = Settings().dpi;
    dc->scale = 72.0 / dc->dpi;
    dc->pageWidth = static_cast<int>(kLetterWidthInches * dc->dpi);
    dc->pageHeight = static_cast<int>(kLetterHeightInches * dc->dpi);
    if (mode && (mode->dmFields & DM_ORIENTATION) && mode->dmOrientation == DMORIENT_LANDSCAPE)
        std::swap(dc->pageWidth, dc->pageHeight);
    if (mode && (mode->dmFields & DM_COPIES) && mode->dmCopies > 1)
        dc->copies = mode->dmCopies;
    if (mode && (mode->dmFields & DM_COLLATE))
        dc->collate = mode->dmCollate == DMCOLLATE_TRUE;
    dc->queue = queue;
    if (port && *port)
        dc->port = platform::ToUtf8(std::u16string(port));
    dc->clip = RECT{0, 0, dc->pageWidth, dc->pageHeight};
    dc->pen = static_cast<Pen*>(Stock(BLACK_PEN));
    dc->brush = static_cast<Brush*>(Stock(WHITE_BRUSH));
    dc->font = static_cast<Font*>(Stock(SYSTEM_FONT));
    UseScratch(*dc);
    return static_cast<HDC>(Register(dc));
}

int StartDocW(HDC hdc, const DOCINFOW* info) {
    DeviceContext* dc = LookupPrinter(hdc);
    if (!dc || dc->inDocument || dc->preview)
        return SP_ERROR;
    // A file named by the document wins; a print queue's pages are spooled
    // to a file of their own and sent at the end.
    std::string path;
    std::string submitTo;
    if (info && info->lpszOutput && *info->lpszOutput) {
        path = platform::ToUtf8(std::u16string(info->lpszOutput));
    } else if (!dc->queue.empty()) {
        path = SpoolFileName();
        if (path.empty())
            return SP_ERROR;
        submitTo = dc->queue;
    } else {
        path = dc->port.empty() ? Settings().output : dc->port;
    }
    cairo_surface_t* pdf = cairo_pdf_surface_create(path.c_str(), dc->pageWidth * 72.0 / dc->dpi,
                                                    dc->pageHeight * 72.0 / dc->dpi);
    if (cairo_surface_status(pdf) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(pdf);
        if (!submitTo.empty())
            std::remove(path.c_str());
        return SP_ERROR;
    }
    // A fixed creation date makes the same document the same bytes.
    cairo_pdf_surface_set_metadata(pdf, CAIRO_PDF_METADATA_CREATE_DATE, "2000-01-01T00:00:00");
    dc->title = info && info->lpszDocName ? platform::ToUtf8(std::u16string(info->lpszDocName))
                                          : std::string();
    if (!dc->title.empty())
        cairo_pdf_surface_set_metadata(pdf, CAIRO_PDF_METADATA_TITLE, dc->title.c_str());
    cairo_surface_destroy(dc->surface);
    dc->surface = pdf;
    dc->outputPath = path;
    dc->submitTo = submitTo;
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
    cairo_show_page(Cairo(*dc));
    dc->inPage = false;
    return 1;
}

int EndDoc(HDC hdc) {
    DeviceContext* dc = LookupPrinter(hdc);
    if (!dc || !dc->inDocument)
        return SP_ERROR;
    if (dc->inPage)
        EndPage(hdc);
    ResetCairo(*dc);
    cairo_surface_finish(dc->surface);
    bool ok = cairo_surface_status(dc->surface) == CAIRO_STATUS_SUCCESS;
    dc->inDocument = false;
    UseScratch(*dc);
    if (ok && !dc->submitTo.empty())
        ok = SubmitPrintJob(dc->submitTo, dc->outputPath, dc->title, dc->copies, dc->collate,
                            nullptr) != 0;
    // A spool file has done its work; a document that failed leaves no
    // half-written file behind.
    if (!ok || !dc->submitTo.empty())
        std::remove(dc->outputPath.c_str());
    dc->submitTo.clear();
    return ok ? 1 : SP_ERROR;
}

int AbortDoc(HDC hdc) {
    DeviceContext* dc = LookupPrinter(hdc);
    if (!dc || !dc->inDocument)
        return SP_ERROR;
    ResetCairo(*dc);
    cairo_surface_finish(dc->surface);
    dc->inDocument = false;
    dc->inPage = false;
    UseScratch(*dc);
    // An aborted document leaves no file behind.
    std::remove(dc->outputPath.c_str());
    dc->submitTo.clear();
    return 1;
}

namespace platform {

HDC CreatePreviewDC(HDC printer, HBITMAP page) {
    DeviceContext* source = LookupPrinter(printer);
    auto* bitmap = gdi::LookupAs<gdi::Bitmap>(page, OBJ_BITMAP);
    if (!source || source->preview || !bitmap || !bitmap->surface)
        return nullptr;
    int width = cairo_image_surface_get_width(bitmap->surface);
    auto* dc = new DeviceContext(DcKind::Printer);
    dc->preview = true;
    dc->dpi = source->dpi;
    dc->pageWidth = source->pageWidth;
    dc->pageHeight = source->pageHeight;
    dc->scale = static_cast<double>(width) / source->pageWidth;
    dc->clip = RECT{0, 0, dc->pageWidth, dc->pageHeight};
    dc->pen = static_cast<Pen*>(Stock(BLACK_PEN));
    dc->brush = static_cast<Brush*>(Stock(WHITE_BRUSH));
    dc->font = static_cast<Font*>(Stock(SYSTEM_FONT));
    // The DC holds a reference, so the pixels outlive a bitmap deleted first.
    dc->surface = cairo_surface_reference(bitmap->surface);
    ResetCairo(*dc);
    return static_cast<HDC>(Register(dc));
}

} // namespace platform
