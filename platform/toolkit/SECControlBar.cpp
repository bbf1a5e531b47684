// The toolkit's dockable bar: its sizes, its look (a border and a title strip
// while docked), its child window, its context menu and its commands.
#include <SECControlBar.h>

#include "BarDrag.h"

#include <algorithm>

namespace {

constexpr const WCHAR* kBarClass = u"ToolkitDockingBar";
constexpr int kBorder = 1;
constexpr int kTitleStrip = 18;
constexpr int kTitleIndent = 4;
constexpr COLORREF kStripFace = RGB(218, 226, 236);

LPCTSTR BarClass() {
    WNDCLASS wc{};
    if (!::GetClassInfo(nullptr, kBarClass, &wc)) {
        wc.lpfnWndProc = ::DefWindowProc;
        wc.hbrBackground = ::GetSysColorBrush(COLOR_BTNFACE);
        wc.lpszClassName = kBarClass;
        ::RegisterClass(&wc);
    }
    return kBarClass;
}

} // namespace

IMPLEMENT_DYNAMIC(SECControlBar, CControlBar)

BEGIN_MESSAGE_MAP(SECControlBar, CControlBar)
ON_WM_CONTEXTMENU()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
END_MESSAGE_MAP()

SECControlBar::SECControlBar() = default;

SECControlBar::~SECControlBar() = default;

BOOL SECControlBar::Create(LPCTSTR title, CWnd* parent, DWORD style, UINT id) {
    if (!parent || !parent->m_hWnd)
        return FALSE;
    return CreateBar(BarClass(), title, style | WS_CLIPCHILDREN, parent, id);
}

CSize SECControlBar::CalcFixedLayout(BOOL stretch, BOOL horz) {
    if (IsFloating())
        return m_szFloat;
    CSize size = horz ? m_szHorz : m_szVert;
    // Stretched, it reaches along the whole edge.
    constexpr int kWhole = 32767;
    if (stretch)
        (horz ? size.cx : size.cy) = kWhole;
    return size;
}

void SECControlBar::Hide() {
    if (!m_hWnd)
        return;
    if (m_pDockSite)
        m_pDockSite->ShowControlBar(this, FALSE, FALSE);
    else
        ShowWindow(SW_HIDE);
}

void SECControlBar::GetInsideRect(CRect& rect) const {
    GetClientRect(&rect);
    if (IsFloating())
        return;
    rect.DeflateRect(kBorder, kBorder);
    rect.top = std::min(rect.bottom, rect.top + kTitleStrip);
}

void SECControlBar::Serialize(CArchive& ar) {
    CControlBar::Serialize(ar);
    CSize* sizes[] = {&m_szHorz, &m_szVert, &m_szFloat};
    if (ar.IsStoring()) {
        for (CSize* size : sizes)
            ar << static_cast<int>(size->cx) << static_cast<int>(size->cy);
        return;
    }
    for (CSize* size : sizes) {
        int cx = 0;
        int cy = 0;
        ar >> cx >> cy;
        *size = CSize(std::max(cx, 0), std::max(cy, 0));
    }
    if (m_hWnd && m_pDockSite)
        m_pDockSite->RecalcLayout();
}

void SECControlBar::BuildContextMenu(CMenu&) {}

void SECControlBar::OnContextMenu(CWnd*, CPoint point) {
    CMenu menu;
    if (!menu.CreatePopupMenu())
        return;
    BuildContextMenu(menu);
    if (menu.GetMenuItemCount() == 0)
        return;
    // From the keyboard the menu opens at the bar's corner.
    if (point.x == -1 && point.y == -1) {
        CRect where;
        GetWindowRect(&where);
        point = where.TopLeft();
    }
    menu.TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON, point.x, point.y, this);
}

void SECControlBar::OnLButtonDown(UINT, CPoint point) {
    if (IsFloating() || !m_pDockContext)
        return;
    CRect inside;
    GetInsideRect(inside);
    if (point.y >= inside.top)
        return;
    ClientToScreen(&point);
    platform::toolkit::DragBar(this, point);
}

void SECControlBar::OnLButtonDblClk(UINT, CPoint point) {
    if (IsFloating() || !m_pDockContext)
        return;
    CRect inside;
    GetInsideRect(inside);
    if (point.y < inside.top)
        m_pDockContext->ToggleDocking();
}

BOOL SECControlBar::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (CControlBar::OnCommand(wParam, lParam))
        return TRUE;
    if (lParam || !m_pDockSite || !m_pDockSite->m_hWnd)
        return FALSE;
    return m_pDockSite->SendMessage(WM_COMMAND, wParam, lParam) != 0;
}

BOOL SECControlBar::OnEraseBkgnd(CDC*) {
    // OnPaint covers every pixel.
    return TRUE;
}

void SECControlBar::OnPaint() {
    CPaintDC dc(this);
    CRect client;
    GetClientRect(&client);
    dc.FillSolidRect(&client, ::GetSysColor(COLOR_BTNFACE));
    if (IsFloating())
        return;
    CBrush border(::GetSysColor(COLOR_BTNSHADOW));
    dc.FrameRect(&client, &border);
    CRect strip(client.left + kBorder, client.top + kBorder, client.right - kBorder,
                std::min(client.bottom - kBorder, client.top + kBorder + kTitleStrip));
    dc.FillSolidRect(&strip, kStripFace);
    CString title;
    GetWindowText(title);
    CGdiObject* old = dc.SelectStockObject(DEFAULT_GUI_FONT);
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(::GetSysColor(COLOR_BTNTEXT));
    CRect text(strip);
    text.left += kTitleIndent;
    ::DrawText(dc.GetSafeHdc(), title.GetString(), title.GetLength(), &text,
               DT_SINGLELINE | DT_VCENTER | DT_LEFT | DT_NOPREFIX);
    if (old)
        dc.SelectObject(old);
}

void SECControlBar::PlaceChild() {
    CRect inside;
    GetInsideRect(inside);
    if (CWnd* child = GetWindow(GW_CHILD))
        child->MoveWindow(&inside);
    Invalidate();
}

void SECControlBar::OnSize(UINT type, int cx, int cy) {
    CControlBar::OnSize(type, cx, cy);
    PlaceChild();
}

void SECControlBar::OnBarStyleChange(DWORD, DWORD) {
    PlaceChild();
}
