#include "CColourButton.h"

BEGIN_MESSAGE_MAP(CColourButton, CButton)
ON_CONTROL_REFLECT(BN_CLICKED, OnClicked)
END_MESSAGE_MAP()

CColourButton::CColourButton(COLORREF colour) : m_colour(colour) {}

CColourButton::~CColourButton() = default;

void CColourButton::PreSubclassWindow() {
    SetButtonStyle(GetButtonStyle() | BS_OWNERDRAW, TRUE);
    CButton::PreSubclassWindow();
}

BOOL CColourButton::OnCmdMsg(UINT nID, int nCode, void* pExtra, void* pHandlerInfo) {
    CCmdTarget::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
    return FALSE;
}

void CColourButton::DrawItem(LPDRAWITEMSTRUCT item) {
    CPen grey(PS_SOLID, 1, RGB(0x80, 0x80, 0x80));
    CBrush face(::GetSysColor(COLOR_BTNFACE));
    CDC dc;
    dc.Attach(item->hDC);
    CPen* oldPen = dc.GetCurrentPen();
    CBrush* oldBrush = dc.GetCurrentBrush();
    int l = item->rcItem.left, t = item->rcItem.top;
    int r = item->rcItem.right, b = item->rcItem.bottom;

    dc.SelectStockObject(NULL_PEN);
    dc.SelectObject(&face);
    dc.Rectangle(l, t, r, b);

    if (item->itemState & ODS_SELECTED) {
        // Sunken, with the contents one pixel lower and to the right.
        dc.SelectObject(&grey);
        dc.MoveTo(l, b - 1);
        dc.LineTo(l, t);
        dc.LineTo(r - 1, t);
        dc.SelectStockObject(WHITE_PEN);
        dc.MoveTo(r - 1, t - 1);
        dc.LineTo(r - 1, b - 1);
        dc.LineTo(l + 1, b - 1);
        dc.SelectStockObject(BLACK_PEN);
        dc.MoveTo(l + 1, b - 2);
        dc.LineTo(l + 1, t + 1);
        dc.LineTo(r - 2, t + 1);
        ++l, ++t, ++r, ++b;
    } else {
        dc.SelectStockObject(BLACK_PEN);
        dc.MoveTo(l, b - 1);
        dc.LineTo(r - 1, b - 1);
        dc.LineTo(r - 1, t);
        dc.SelectObject(&grey);
        dc.MoveTo(l + 1, b - 2);
        dc.LineTo(r - 2, b - 2);
        dc.LineTo(r - 2, t + 1);
        dc.SelectStockObject(WHITE_PEN);
        dc.LineTo(l + 1, t + 1);
        dc.LineTo(l + 1, b - 2);
    }

    if (!(item->itemState & ODS_DISABLED)) {
        CBrush swatch(m_colour);
        dc.SelectStockObject(BLACK_PEN);
        dc.SelectObject(&swatch);
        dc.Rectangle(l + 5, t + 4, r - 5, b - 4);
        dc.SelectObject(oldBrush);
    }

    if (item->itemState & ODS_FOCUS) {
        for (int x = l + 3; x < r - 4; x += 2) {
            dc.SetPixel(x, t + 3, RGB(0, 0, 0));
            dc.SetPixel(x, b - 4, RGB(0, 0, 0));
        }
        for (int y = t + 3; y < b - 4; y += 2) {
            dc.SetPixel(l + 3, y, RGB(0, 0, 0));
            dc.SetPixel(r - 4, y, RGB(0, 0, 0));
        }
    }

    dc.SelectObject(oldPen);
    dc.SelectObject(oldBrush);
    dc.Detach();
}

void CColourButton::OnClicked() {
    COLORREF before = m_colour;
    CColorDialog dialog(m_colour, CC_ANYCOLOR);
    if (dialog.DoModal() == IDOK) {
        m_colour = dialog.GetColor();
        if (m_colour != before)
            Invalidate(TRUE);
    }
    if (CWnd* parent = GetParent())
        parent->SendMessage(WM_COLOURBUTTON, static_cast<WPARAM>(GetDlgCtrlID()),
                            static_cast<LPARAM>(m_colour));
}
