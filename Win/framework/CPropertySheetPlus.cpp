#include "Win/framework/CPropertySheetPlus.h"

#include <afxcmn.h>

namespace {

constexpr int kTitleBuffer = 256;

} // namespace

IMPLEMENT_DYNAMIC(CPropertySheetPlus, CPropertySheet)

BEGIN_MESSAGE_MAP(CPropertySheetPlus, CPropertySheet)
END_MESSAGE_MAP()

CPropertySheetPlus::CPropertySheetPlus(UINT nIDCaption, CWnd* pParentWnd, UINT iSelectPage)
    : CPropertySheet(nIDCaption, pParentWnd, iSelectPage) {}

CPropertySheetPlus::CPropertySheetPlus(LPCTSTR pszCaption, CWnd* pParentWnd, UINT iSelectPage)
    : CPropertySheet(pszCaption, pParentWnd, iSelectPage) {}

CPropertySheetPlus::~CPropertySheetPlus() = default;

void CPropertySheetPlus::SetPageTitle(CPropertyPage* pPage) {
    SetPageTitle(*this, pPage);
}

void CPropertySheetPlus::SetPageTitle(CPropertySheet& sheet, CPropertyPage* pPage) {
    if (!sheet.IsWizard())
        return;
    int index = sheet.GetPageIndex(pPage);
    auto tab = reinterpret_cast<HWND>(sheet.SendMessage(PSM_GETTABCONTROL));
    WCHAR text[kTitleBuffer] = {0};
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = kTitleBuffer;
    ::SendMessage(tab, TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));

    // Every sheet keeps its caption; it is trimmed where it is stored.
    CString CPropertySheet::*storedCaption = &CPropertySheetPlus::m_strCaption;
    CString& caption = sheet.*storedCaption;
    caption.Trim();
    CString pageTitle(text);
    CString trimmedTitle = pageTitle;
    trimmedTitle.Trim();
    if (caption.IsEmpty() || trimmedTitle.IsEmpty())
        return;

    CString title = (caption + _T(" - ") + pageTitle).Left(kTitleBuffer - 1);
    item.mask = TCIF_TEXT;
    item.pszText = title.GetBuffer();
    ::SendMessage(tab, TCM_SETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    title.ReleaseBuffer();
}

LRESULT CPropertySheetPlus::DefWindowProcW(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == PSM_SETWIZBUTTONS && !IsWizard())
        return 0;
    LRESULT result = CWnd::DefWindowProcW(message, wParam, lParam);
    if (message == PSM_SETWIZBUTTONS && !(lParam & (PSWIZB_NEXT | PSWIZB_FINISH))) {
        // Neither Next nor Finish can be pressed: Enter no longer presses
        // anything, and no button looks like the default one.
        LRESULT defId = SendMessage(DM_GETDEFID);
        if (HIWORD(defId) == DC_HASDEFID) {
            SendMessage(DM_SETDEFID, 0);
            if (HWND button = ::GetDlgItem(m_hWnd, LOWORD(defId)))
                ::SendMessage(button, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
        }
    }
    return result;
}
