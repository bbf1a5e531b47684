// The attributes of a grid cell. A style includes only the attributes set on
// it; applying it to a cell changes those and leaves the cell's others.
#pragma once

#include "afx.h"

#include <map>
#include <memory>

class CGXStyle {
public:
    CGXStyle() = default;
    CGXStyle(const CGXStyle& other);
    CGXStyle& operator=(const CGXStyle& other);
    CGXStyle(CGXStyle&&) noexcept = default;
    CGXStyle& operator=(CGXStyle&&) noexcept = default;
    ~CGXStyle() = default;

    // The cell's text; a null text is empty.
    CGXStyle& SetValue(LPCTSTR text);
    CGXStyle& SetValue(const CString& text);
    BOOL GetIncludeValue() const { return (m_included & kValue) != 0; }
    const CString& GetValue() const { return m_value; }

    // The control that shows and edits the cell.
    CGXStyle& SetControl(WORD id);
    BOOL GetIncludeControl() const { return (m_included & kControl) != 0; }
    WORD GetControl() const { return m_control; }

    // The entries a choice-list control offers, each ended by a line feed.
    CGXStyle& SetChoiceList(LPCTSTR text);
    BOOL GetIncludeChoiceList() const { return (m_included & kChoiceList) != 0; }
    const CString& GetChoiceList() const { return m_choiceList; }

    // A text the grid or its controls look up by attribute identifier.
    CGXStyle& SetUserAttribute(WORD id, LPCTSTR text);
    BOOL GetIncludeUserAttribute(WORD id) const;
    // Empty when the attribute is not included.
    const CString& GetUserAttribute(WORD id) const;

    // Drops every attribute: the style includes nothing.
    void Free();
    BOOL IsEmpty() const { return m_included == 0 && !m_userAttributes; }

    // Takes every attribute that source includes, replacing this style's own
    // value of it; the attributes source lacks stay as they are.
    void ChangeStyle(const CGXStyle& source);

    bool operator==(const CGXStyle& other) const;

private:
    enum : unsigned char { kValue = 1, kControl = 2, kChoiceList = 4 };

    // Cells are many and user attributes rare: the map exists only once one
    // is set, so a cell's style stays a few pointers wide.
    CString m_value;
    CString m_choiceList;
    std::unique_ptr<std::map<WORD, CString>> m_userAttributes;
    WORD m_control = 0;
    unsigned char m_included = 0;
};
