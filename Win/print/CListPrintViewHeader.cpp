// The header line printed above the list on every page: the current time,
// the system name and, when asked, the date range.
#include "CListPrintView.h"

#include "Win/utils/CResourceString.h"

#include <Utils.h>

CString CListPrintView::HeaderText(CListPrintDoc& doc, const CString& now) {
    const CString system = doc.GetSystemName();
    if (system.IsEmpty())
        return CString();
    CString text = now + CResourceString(IDS_HEADER_AFTER_TIME) + system;
    if (doc.GetIncludeDate()) {
        const CString format = Utils::GetDefaultDateFormatSpecifier();
        const CString from = doc.GetFromDate().Format(format);
        const CString to = doc.GetToDate().Format(format);
        text += CResourceString(IDS_HEADER_FROM) + from + CResourceString(IDS_HEADER_TO) + to;
    }
    return text;
}

void CListPrintView::OnPrint(CDC* pDC, CPrintInfo* pInfo) {
    CListPrintDoc* doc = GetDocument();
    if (pDC && doc && !doc->GetSystemName().IsEmpty()) {
        LOGFONT lf{};
        lf.lfHeight = -11;
        lf.lfWeight = FW_BOLD;
        lf.lfCharSet = DEFAULT_CHARSET;
        const CString face(u"MS Sans Serif");
        std::char_traits<WCHAR>::copy(lf.lfFaceName, face.GetString(),
                                      static_cast<std::size_t>(face.GetLength()));
        CFont font;
        font.CreateFontIndirect(&lf);
        CFont* oldFont = pDC->SelectObject(&font);
        CRect rect;
        GetClientRect(&rect);
        const CString text = HeaderText(*doc, Utils::GetCurrentDateAndTime());
        pDC->DrawText(text, &rect, DT_CENTER);
        pDC->SelectObject(oldFont);
        font.DeleteObject();
    }
    CGXGridView::OnPrint(pDC, pInfo);
}
