#include "WinUtils.h"

#include <cstring>

CSize WinUtils::CreateFontW(CFont* font, CString face, int height, bool bold, bool underline,
                            bool italic) {
    LOGFONT lf;
    std::memset(&lf, 0, sizeof lf);
    lf.lfHeight = height;
    lf.lfWeight = bold ? FW_BOLD : 0;
    lf.lfUnderline = underline ? 1 : 0;
    lf.lfItalic = italic ? 1 : 0;
    int length = face.GetLength() < LF_FACESIZE - 1 ? face.GetLength() : LF_FACESIZE - 1;
    std::memcpy(lf.lfFaceName, face.GetString(), static_cast<std::size_t>(length) * sizeof(WCHAR));
    font->CreateFontIndirect(&lf);

    // Measured on the screen; a font that could not be created leaves the
    // screen's own font in place, and that is what gets measured.
    HDC screen = ::GetDC(nullptr);
    CDC* dc = CDC::FromHandle(screen);
    CFont* previous = dc->SelectObject(font);
    CSize extent = dc->GetTextExtent(CString(u'X', 100));
    dc->SelectObject(previous);
    ::ReleaseDC(nullptr, screen);
    return CSize(extent.cx / 100, extent.cy);
}
