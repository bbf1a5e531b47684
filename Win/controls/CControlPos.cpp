#include "CControlPos.h"

#include <algorithm>

// A parent given here is attached as SetParent attaches one, so a positioner
// that is never attached again measures its first move from its construction.
CControlPos::CControlPos(CWnd* parent) : m_pParent(parent), m_negativeMoves(FALSE) {
    if (HasParent()) {
        CRect client;
        m_pParent->GetClientRect(&client);
        m_initialWidth = m_lastWidth = client.right;
        m_initialHeight = m_lastHeight = client.bottom;
    }
}

CControlPos::~CControlPos() {
    ResetControls();
}

bool CControlPos::HasParent() const {
    return m_pParent && ::IsWindow(m_pParent->GetSafeHwnd());
}

ControlPosEntry* CControlPos::EntryAt(int index) const {
    return static_cast<ControlPosEntry*>(m_controls.GetAt(index));
}

void CControlPos::SetParent(CWnd* parent) {
    m_pParent = parent;
    CRect client;
    if (HasParent())
        m_pParent->GetClientRect(&client);
    m_initialWidth = client.right;
    m_initialHeight = client.bottom;
    UpdateParentSize();
}

void CControlPos::UpdateParentSize() {
    if (!HasParent())
        return;
    CRect client;
    m_pParent->GetClientRect(&client);
    m_lastWidth = client.Width();
    m_lastHeight = client.Height();
}

BOOL CControlPos::AddControl(CWnd* control, const DWORD& flags) {
    if (!control || !HasParent())
        return FALSE;
    m_controls.Add(new ControlPosEntry{control->GetSafeHwnd(), flags});
    return TRUE;
}

BOOL CControlPos::AddControl(const UINT& id, const DWORD& flags) {
    if (!HasParent())
        return FALSE;
    return AddControl(m_pParent->GetDlgItem(static_cast<int>(id)), flags);
}

BOOL CControlPos::RemoveControl(CWnd* control) {
    HWND hwnd = control ? control->GetSafeHwnd() : nullptr;
    for (int i = 0; i < m_controls.GetSize(); ++i) {
        ControlPosEntry* entry = EntryAt(i);
        if (entry->hWnd == hwnd) {
            m_controls.RemoveAt(i);
            delete entry;
            return TRUE;
        }
    }
    return FALSE;
}

BOOL CControlPos::RemoveControl(const UINT& id) {
    if (!HasParent())
        return FALSE;
    return RemoveControl(m_pParent->GetDlgItem(static_cast<int>(id)));
}

void CControlPos::ResetControls() {
    while (!m_controls.IsEmpty()) {
        int last = m_controls.GetUpperBound();
        ControlPosEntry* entry = EntryAt(last);
        m_controls.RemoveAt(last);
        delete entry;
    }
}

LONG CControlPos::Change(LONG now, LONG last, LONG initial) const {
    if (m_negativeMoves)
        return now - last;
    return std::max(now, initial) - std::max(last, initial);
}

void CControlPos::MoveControls() {
    if (!HasParent())
        return;
    for (int i = 0; i < m_controls.GetSize(); ++i) {
        const ControlPosEntry* entry = EntryAt(i);
        // A control destroyed while registered has no window left to move.
        CWnd* control = CWnd::FromHandle(entry->hWnd);
        if (!control)
            continue;
        CRect r;
        control->GetWindowRect(&r);
        CRect client;
        m_pParent->GetClientRect(&client);
        LONG dw = Change(client.right, m_lastWidth, m_initialWidth);
        LONG dh = Change(client.bottom, m_lastHeight, m_initialHeight);
        if (entry->flags & StretchWithHeight)
            r.bottom += dh;
        if (entry->flags & StretchWithWidth)
            r.right += dw;
        if (entry->flags & MoveWithHeight) {
            r.top += dh;
            r.bottom += dh;
        }
        if (entry->flags & MoveWithWidth) {
            r.left += dw;
            r.right += dw;
        }
        m_pParent->ScreenToClient(&r);
        control->MoveWindow(r.left, r.top, r.right - r.left, r.bottom - r.top, TRUE);
    }
    UpdateParentSize();
}
