// The look and geometry of a terminal view: the table of styles cells are drawn
// in, the two fonts they use, the background colour and the cell size. A host
// derives from it to map rows and columns to device coordinates.
#pragma once

#include "Win/screen/FontStyle.h"

#include <Observable.h>
#include <afxtempl.h>
#include <afxwin.h>

class EmulatorLayout : public Observable {
public:
    // Indices into the colour array of ChangeLayout.
    enum : int {
        NormalTextColor,
        BackgroundColor,
        SubduedTextColor,
        UnderlinedTextColor,
        BlinkingTextColor,
        SelectionTextColor,
        SelectionBackColor,
        LayoutColorCount
    };

    ~EmulatorLayout() override;

    // Not called by the library; its meaning belongs to the deriving class.
    virtual void OnLayoutChanged() = 0;
    virtual CSize GetCharSize() = 0;
    // Device y of the top of a zero-based row, and x of the left of a zero-based column.
    virtual int RowToY(int row) = 0;
    virtual int ColumnToX(int col) = 0;

    // The style filed under key, else the normal style, else null.
    virtual FontStyle* GetStyle(int key);
    // The selection style for the bold, underlined and reverse bits of key, else
    // the normal style, else null.
    virtual FontStyle* GetSelStyle(int key);
    // Sets every style's colours and font from seven colours, re-creates both
    // fonts and tells the renderer the new cell size. Repaints nothing.
    virtual void ChangeLayout(const COLORREF* colours, const CString& faceName, int size, bool bold,
                              bool italic);
    virtual COLORREF GetBkColor() const { return m_bkColor; }

protected:
    EmulatorLayout() = default;

    // Sets the style under key and its bold twin (key | Bold), creating either if needed.
    virtual void UpdateStyle(int key, COLORREF textColor, COLORREF backColor, CFont* font);

    CSize m_charSize;
    CFont m_font;
    CFont m_underlineFont;
    COLORREF m_bkColor = 0;
    CMap<int, int, FontStyle*, FontStyle*> m_styles;

private:
    EmulatorLayout(const EmulatorLayout&) = delete;
    EmulatorLayout& operator=(const EmulatorLayout&) = delete;
};
