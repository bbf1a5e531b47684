#include "CColorStatusBar.h"

namespace {

constexpr COLORREF kBackground = RGB(0, 0, 128);
constexpr COLORREF kText = RGB(255, 255, 255);

} // namespace

BEGIN_MESSAGE_MAP(CColorStatusBar, CStatusBar)
ON_WM_PAINT()
END_MESSAGE_MAP()

CColorStatusBar::~CColorStatusBar() = default;

void CColorStatusBar::OnPaint() {
    // The update region is validated whatever follows.
    CPaintDC dc(this);
    const CString text = GetPaneText(0);
    if (text.IsEmpty())
        return;
    CFont* font = GetFont();
    CFont* old = font ? dc.SelectObject(font) : nullptr;
    dc.SetBkColor(kBackground);
    dc.SetTextColor(kText);
    dc.TextOut(0, 3, text + u" ");
    if (old)
        dc.SelectObject(old);
}
