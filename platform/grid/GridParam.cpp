#include "GridParam.h"

#include "GridCore.h"

BOOL CGXProperties::SetMargins(int top, int left, int bottom, int right) {
    if (top < 0 || left < 0 || bottom < 0 || right < 0)
        return FALSE;
    m_top = top;
    m_left = left;
    m_bottom = bottom;
    m_right = right;
    return TRUE;
}

void CGXProperties::GetMargins(int& top, int& left, int& bottom, int& right) const {
    top = m_top;
    left = m_left;
    bottom = m_bottom;
    right = m_right;
}

void CGXGridParam::EnableUpdate(BOOL enable) {
    bool wasOff = !m_updateEnabled;
    m_updateEnabled = enable ? TRUE : FALSE;
    if (enable && wasOff)
        m_grid.FlushPendingUpdate();
}
