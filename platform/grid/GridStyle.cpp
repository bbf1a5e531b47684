#include "GridStyle.h"

namespace {

const CString& EmptyText() {
    static const CString empty;
    return empty;
}

} // namespace

CGXStyle::CGXStyle(const CGXStyle& other)
    : m_value(other.m_value), m_choiceList(other.m_choiceList),
      m_userAttributes(other.m_userAttributes
                           ? std::make_unique<std::map<WORD, CString>>(*other.m_userAttributes)
                           : nullptr),
      m_control(other.m_control), m_included(other.m_included) {}

CGXStyle& CGXStyle::operator=(const CGXStyle& other) {
    if (this != &other)
        *this = CGXStyle(other);
    return *this;
}

CGXStyle& CGXStyle::SetValue(LPCTSTR text) {
    m_value = text ? CString(text) : CString();
    m_included |= kValue;
    return *this;
}

CGXStyle& CGXStyle::SetValue(const CString& text) {
    m_value = text;
    m_included |= kValue;
    return *this;
}

CGXStyle& CGXStyle::SetControl(WORD id) {
    m_control = id;
    m_included |= kControl;
    return *this;
}

CGXStyle& CGXStyle::SetChoiceList(LPCTSTR text) {
    m_choiceList = text ? CString(text) : CString();
    m_included |= kChoiceList;
    return *this;
}

CGXStyle& CGXStyle::SetUserAttribute(WORD id, LPCTSTR text) {
    if (!m_userAttributes)
        m_userAttributes = std::make_unique<std::map<WORD, CString>>();
    (*m_userAttributes)[id] = text ? CString(text) : CString();
    return *this;
}

BOOL CGXStyle::GetIncludeUserAttribute(WORD id) const {
    return m_userAttributes && m_userAttributes->count(id) != 0;
}

const CString& CGXStyle::GetUserAttribute(WORD id) const {
    if (m_userAttributes) {
        auto it = m_userAttributes->find(id);
        if (it != m_userAttributes->end())
            return it->second;
    }
    return EmptyText();
}

void CGXStyle::Free() {
    *this = CGXStyle();
}

void CGXStyle::ChangeStyle(const CGXStyle& source) {
    if (source.GetIncludeValue())
        SetValue(source.m_value);
    if (source.GetIncludeControl())
        SetControl(source.m_control);
    if (source.GetIncludeChoiceList()) {
        m_choiceList = source.m_choiceList;
        m_included |= kChoiceList;
    }
    if (source.m_userAttributes)
        for (const auto& [id, text] : *source.m_userAttributes)
            SetUserAttribute(id, text);
}

bool CGXStyle::operator==(const CGXStyle& other) const {
    if (m_included != other.m_included || m_control != other.m_control ||
        m_value != other.m_value || m_choiceList != other.m_choiceList)
        return false;
    const bool mine = m_userAttributes && !m_userAttributes->empty();
    const bool theirs = other.m_userAttributes && !other.m_userAttributes->empty();
    if (!mine || !theirs)
        return mine == theirs;
    return *m_userAttributes == *other.m_userAttributes;
}
