#include "ScreenOutput.h"

#include <platform/GdiObjects.h>

#include <cstdio>
#include <cstring>

namespace screen_output {

bool WritePng(ScreenBuffer& screen, TerminalLayout& layout, const std::string& path) {
    CSize view = layout.ViewSize(screen.VisRows(), screen.VisColumns());
    HDC desktop = ::GetDC(nullptr);
    CDC dc;
    dc.CreateCompatibleDC(CDC::FromHandle(desktop));
    CBitmap bitmap;
    bool ok = bitmap.CreateCompatibleBitmap(CDC::FromHandle(desktop), view.cx, view.cy);
    ::ReleaseDC(nullptr, desktop);
    if (!ok)
        return false;
    CBitmap* oldBitmap = dc.SelectObject(&bitmap);
    CFont* oldFont = dc.GetCurrentFont();
    dc.FillSolidRect(0, 0, view.cx, view.cy, screen.GetBkColor());
    screen.Refresh(&dc);
    ok = platform::SaveDcAsPng(dc, path);
    // The renderer leaves the last style's font selected.
    dc.SelectObject(oldFont);
    dc.SelectObject(oldBitmap);
    return ok;
}

bool PrintPdf(ScreenBuffer& screen, EmulatorLayout& layout, const CString& face,
              const std::string& path) {
    HDC printer = ::CreateDC(u"WINSPOOL", u"PDF", nullptr, nullptr);
    if (!printer)
        return false;
    CString output = platform::FromUtf8(path);
    DOCINFO info;
    std::memset(&info, 0, sizeof info);
    info.cbSize = sizeof info;
    info.lpszDocName = u"Terminal screen";
    info.lpszOutput = output;
    if (::StartDoc(printer, &info) <= 0) {
        ::DeleteDC(printer);
        return false;
    }
    bool ok = ::StartPage(printer) > 0;
    if (ok) {
        CDC dc;
        dc.Attach(printer);
        // A monospaced face advances about 0.6 of its height: pick the height
        // that makes the visible columns fill the page less an inch, then use
        // the cell the printer really measures.
        int width = dc.GetDeviceCaps(HORZRES) - dc.GetDeviceCaps(LOGPIXELSX);
        int columnWidth = width / screen.VisColumns();
        CFont font;
        WinUtils::CreateFontW(&font, face, -(columnWidth * 5 / 3), false, false, false);
        CFont* oldFont = dc.SelectObject(&font);
        CSize extent = dc.GetTextExtent(CString(u'X', 100));
        CSize cell(extent.cx / 100, extent.cy);
        dc.SetTextColor(RGB(0, 0, 0));
        dc.SetBkColor(RGB(0xFF, 0xFF, 0xFF));
        dc.SetBkMode(OPAQUE);
        // Line-drawing glyphs are stroked in proportion to the cell they are drawn in.
        ScreenCharRenderer::Instance()->SetFontBounds(cell);
        screen.PrintBuffer(&dc, cell);
        ScreenCharRenderer::Instance()->SetFontBounds(layout.GetCharSize());
        dc.SelectObject(oldFont);
        dc.Detach();
        ok = ::EndPage(printer) > 0;
    }
    if (ok)
        ok = ::EndDoc(printer) > 0;
    else
        ::AbortDoc(printer);
    ::DeleteDC(printer);
    return ok;
}

bool WriteSelectedText(const ScreenBuffer& screen, const std::string& path) {
    std::string text = platform::ToUtf8(screen.SelectedText().Str());
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file)
        return false;
    bool ok = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    return std::fclose(file) == 0 && ok;
}

} // namespace screen_output
