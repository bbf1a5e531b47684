// CDC's mapping-mode and formatted-text members. Mapping changes go to both
// handles, so that measurements through m_hAttribDC use the same units as
// the output.
#include <afxwin.h>

namespace {

// The handles a setter changes: the output one, and the attribute one when
// it is another DC.
template <class F> void Both(HDC output, HDC attrib, F&& call) {
    if (output)
        call(output);
    if (attrib && attrib != output)
        call(attrib);
}

} // namespace

int CDC::DrawText(LPCTSTR text, int count, LPRECT rect, UINT format) {
    return ::DrawTextW(m_hDC, text, count, rect, format);
}

int CDC::DrawText(const CString& text, LPRECT rect, UINT format) {
    return ::DrawTextW(m_hDC, text.GetString(), text.GetLength(), rect, format);
}

int CDC::SetMapMode(int mode) {
    int previous = ::GetMapMode(m_hDC ? m_hDC : m_hAttribDC);
    Both(m_hDC, m_hAttribDC, [mode](HDC dc) { ::SetMapMode(dc, mode); });
    return previous;
}

int CDC::GetMapMode() const {
    return ::GetMapMode(m_hAttribDC);
}

CSize CDC::SetWindowExt(int cx, int cy) {
    SIZE previous{0, 0};
    ::GetWindowExtEx(m_hDC ? m_hDC : m_hAttribDC, &previous);
    Both(m_hDC, m_hAttribDC, [cx, cy](HDC dc) { ::SetWindowExtEx(dc, cx, cy, nullptr); });
    return CSize(previous);
}

CSize CDC::GetWindowExt() const {
    SIZE size{0, 0};
    ::GetWindowExtEx(m_hAttribDC, &size);
    return CSize(size);
}

CSize CDC::SetViewportExt(int cx, int cy) {
    SIZE previous{0, 0};
    ::GetViewportExtEx(m_hDC ? m_hDC : m_hAttribDC, &previous);
    Both(m_hDC, m_hAttribDC, [cx, cy](HDC dc) { ::SetViewportExtEx(dc, cx, cy, nullptr); });
    return CSize(previous);
}

CSize CDC::GetViewportExt() const {
    SIZE size{0, 0};
    ::GetViewportExtEx(m_hAttribDC, &size);
    return CSize(size);
}

CPoint CDC::SetWindowOrg(int x, int y) {
    POINT previous{0, 0};
    ::GetWindowOrgEx(m_hDC ? m_hDC : m_hAttribDC, &previous);
    Both(m_hDC, m_hAttribDC, [x, y](HDC dc) { ::SetWindowOrgEx(dc, x, y, nullptr); });
    return CPoint(previous);
}

CPoint CDC::GetWindowOrg() const {
    POINT point{0, 0};
    ::GetWindowOrgEx(m_hAttribDC, &point);
    return CPoint(point);
}

CPoint CDC::SetViewportOrg(int x, int y) {
    POINT previous{0, 0};
    ::GetViewportOrgEx(m_hDC ? m_hDC : m_hAttribDC, &previous);
    Both(m_hDC, m_hAttribDC, [x, y](HDC dc) { ::SetViewportOrgEx(dc, x, y, nullptr); });
    return CPoint(previous);
}

CPoint CDC::GetViewportOrg() const {
    POINT point{0, 0};
    ::GetViewportOrgEx(m_hAttribDC, &point);
    return CPoint(point);
}

void CDC::LPtoDP(LPPOINT points, int count) const {
    ::LPtoDP(m_hAttribDC, points, count);
}

void CDC::LPtoDP(LPRECT rect) const {
    if (!rect)
        return;
    POINT corners[2] = {{rect->left, rect->top}, {rect->right, rect->bottom}};
    ::LPtoDP(m_hAttribDC, corners, 2);
    *rect = RECT{corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}

void CDC::DPtoLP(LPPOINT points, int count) const {
    ::DPtoLP(m_hAttribDC, points, count);
}

void CDC::DPtoLP(LPRECT rect) const {
    if (!rect)
        return;
    POINT corners[2] = {{rect->left, rect->top}, {rect->right, rect->bottom}};
    ::DPtoLP(m_hAttribDC, corners, 2);
    *rect = RECT{corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}
