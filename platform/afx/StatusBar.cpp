// CStatusBar: the framework's status bar over the status bar control. The
// object keeps each pane's id, style and width; the control keeps the texts
// and draws them.
#include <afxext.h>

#include <algorithm>

namespace {

constexpr int kMaxPanes = 256;
// The room a pane needs besides its text: the indent before the text and
// the borders on both sides.
constexpr int kPaneExtra = 8;
constexpr int kGap = 2;
constexpr int kGripSize = 14;
// Above and below the text: the bar's top border, the pane's two edges and
// a pixel of air on each side.
constexpr int kVerticalExtra = 6;

int TextWidth(CWnd* bar, const CString& text) {
    if (text.IsEmpty())
        return 0;
    CClientDC dc(bar);
    CFont* font = bar->GetFont();
    CFont* old = font ? dc.SelectObject(font) : nullptr;
    const int width = dc.GetTextExtent(text).cx;
    if (old)
        dc.SelectObject(old);
    return width;
}

} // namespace

IMPLEMENT_DYNAMIC(CStatusBar, CControlBar)

BEGIN_MESSAGE_MAP(CStatusBar, CControlBar)
ON_MESSAGE(WM_SETFONT, OnSetFont)
END_MESSAGE_MAP()

CStatusBar::CStatusBar() = default;

CStatusBar::~CStatusBar() = default;

BOOL CStatusBar::Create(CWnd* parent, DWORD style, UINT id) {
    if (!parent || !parent->m_hWnd)
        return FALSE;
    // The corner of a frame that can be sized shows the grip.
    const DWORD grip = (parent->GetStyle() & WS_THICKFRAME) ? SBARS_SIZEGRIP : 0;
    if (!CreateBar(STATUSCLASSNAME, nullptr, style, parent, id, grip))
        return FALSE;
    UpdateParts();
    return TRUE;
}

BOOL CStatusBar::SetIndicators(const UINT* ids, int count) {
    if (!m_hWnd || count < 0 || count > kMaxPanes || (count > 0 && !ids))
        return FALSE;
    m_panes.clear();
    std::vector<CString> texts;
    for (int i = 0; i < count; ++i) {
        CString text;
        if (ids[i] != ID_SEPARATOR)
            text.LoadString(ids[i]);
        Pane pane{ids[i], SBPS_NORMAL, TextWidth(this, text)};
        // A first pane without an indicator is the message pane.
        if (i == 0 && ids[i] == ID_SEPARATOR)
            pane.style = SBPS_NOBORDERS | SBPS_STRETCH;
        m_panes.push_back(pane);
        texts.push_back(text);
    }
    UpdateParts();
    for (int i = 0; i < count; ++i)
        SetPaneText(i, texts[static_cast<std::size_t>(i)], FALSE);
    Invalidate();
    return TRUE;
}

UINT CStatusBar::GetItemID(int index) const {
    return index >= 0 && index < GetCount() ? m_panes[static_cast<std::size_t>(index)].id : 0;
}

int CStatusBar::CommandToIndex(UINT id) const {
    for (std::size_t i = 0; i < m_panes.size(); ++i)
        if (m_panes[i].id == id)
            return static_cast<int>(i);
    return -1;
}

void CStatusBar::GetItemRect(int index, LPRECT rect) const {
    if (!rect)
        return;
    *rect = RECT{0, 0, 0, 0};
    if (m_hWnd && index >= 0 && index < GetCount())
        ::SendMessage(m_hWnd, SB_GETRECT, static_cast<WPARAM>(index),
                      reinterpret_cast<LPARAM>(rect));
}

void CStatusBar::GetPaneInfo(int index, UINT& id, UINT& style, int& width) const {
    if (index < 0 || index >= GetCount()) {
        id = 0;
        style = 0;
        width = 0;
        return;
    }
    const Pane& pane = m_panes[static_cast<std::size_t>(index)];
    id = pane.id;
    style = pane.style;
    width = pane.width;
}

void CStatusBar::SetPaneInfo(int index, UINT id, UINT style, int width) {
    if (index < 0 || index >= GetCount())
        return;
    const CString text = GetPaneText(index);
    m_panes[static_cast<std::size_t>(index)] = Pane{id, style, std::max(0, width)};
    UpdateParts();
    // The borders follow the style.
    SetPaneText(index, text);
}

BOOL CStatusBar::SetPaneText(int index, LPCTSTR text, BOOL update) {
    if (!m_hWnd || index < 0 || index >= GetCount())
        return FALSE;
    const UINT borders =
        m_panes[static_cast<std::size_t>(index)].style & (SBT_NOBORDERS | SBT_POPOUT);
    if (!::SendMessage(m_hWnd, SB_SETTEXT, static_cast<WPARAM>(index) | borders,
                       reinterpret_cast<LPARAM>(text ? text : u"")))
        return FALSE;
    if (update)
        UpdateWindow();
    return TRUE;
}

CString CStatusBar::GetPaneText(int index) const {
    CString text;
    GetPaneText(index, text);
    return text;
}

void CStatusBar::GetPaneText(int index, CString& text) const {
    text.Empty();
    if (!m_hWnd || index < 0 || index >= GetCount())
        return;
    const auto length = static_cast<int>(
        LOWORD(::SendMessage(m_hWnd, SB_GETTEXTLENGTH, static_cast<WPARAM>(index), 0)));
    LPWSTR buffer = text.GetBufferSetLength(length);
    ::SendMessage(m_hWnd, SB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(buffer));
    text.ReleaseBuffer(length);
}

CSize CStatusBar::CalcFixedLayout(BOOL stretch, BOOL horz) {
    CSize size = CControlBar::CalcFixedLayout(stretch, horz);
    if (!m_hWnd)
        return size;
    CClientDC dc(this);
    CFont* font = GetFont();
    CFont* old = font ? dc.SelectObject(font) : nullptr;
    TEXTMETRIC tm{};
    dc.GetTextMetrics(&tm);
    if (old)
        dc.SelectObject(old);
    size.cy = tm.tmHeight + kVerticalExtra;
    return size;
}

void CStatusBar::UpdateParts() {
    if (!m_hWnd || m_panes.empty())
        return;
    CRect client;
    GetClientRect(&client);
    CWnd* top = GetTopLevelParent();
    const bool grip = (GetStyle() & SBARS_SIZEGRIP) && !(top && top->IsZoomed());
    // The panes that stretch share what the others leave.
    int fixed = 0;
    int stretching = 0;
    for (const Pane& pane : m_panes) {
        if (pane.style & SBPS_STRETCH)
            ++stretching;
        else
            fixed += pane.width + kPaneExtra;
    }
    fixed += kGap * (static_cast<int>(m_panes.size()) - 1);
    const int spare =
        std::max(0, static_cast<int>(client.Width()) - (grip ? kGripSize : 0) - fixed);
    std::vector<int> edges;
    int x = 0;
    int shares = stretching;
    int left = spare;
    for (const Pane& pane : m_panes) {
        int width = pane.width + kPaneExtra;
        if (pane.style & SBPS_STRETCH) {
            width = left / shares;
            left -= width;
            --shares;
        }
        x += width;
        edges.push_back(x);
        x += kGap;
    }
    ::SendMessage(m_hWnd, SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
}

void CStatusBar::OnSize(UINT type, int cx, int cy) {
    CControlBar::OnSize(type, cx, cy);
    UpdateParts();
}

LRESULT CStatusBar::OnSetFont(WPARAM, LPARAM) {
    const LRESULT result = Default();
    // Indicator panes are as wide as their text in the new font.
    for (std::size_t i = 0; i < m_panes.size(); ++i)
        if (!(m_panes[i].style & SBPS_STRETCH) && m_panes[i].id != ID_SEPARATOR)
            m_panes[i].width = TextWidth(this, GetPaneText(static_cast<int>(i)));
    UpdateParts();
    return result;
}
