#include "CGXUtils.h"

#include "StringTokenizerStream.h"
#include "Win/utils/CResourceString.h"

#include <cwctype>

namespace {

// Applies style to the cells' own styles, redrawn when the grid next paints.
void Apply(CGXGridCore& grid, const CGXRange& range, const CGXStyle& style) {
    grid.SetStyleRange(range, style, GRID_MODIFY_OVERRIDE, GRID_STYLE_CELLS, nullptr,
                       GRID_UPDATE_INVALIDATE, 0);
}

bool IsBlank(const CString& text) {
    for (int i = 0; i < text.GetLength(); ++i)
        if (!std::iswspace(static_cast<wint_t>(text[i])))
            return false;
    return true;
}

} // namespace

void CGXUtils::CreateColumns(CGXGridCore& grid, const CString& spec) {
    StringTokenizerStream stream(spec);
    Tokenizer tokenizer(stream, true, 0);
    try {
        for (int col = 1; !tokenizer.Eof(); ++col) {
            grid.SetColCount(col, GRID_UPDATE_INVALIDATE);
            CGXStyle title;
            title.SetValue(tokenizer.ReadUntil(u";"));
            Apply(grid, CGXRange(0, col), title);
            tokenizer.Match(u';');
            const int width = tokenizer.ReadInt();
            grid.SetColWidth(col, col, width, nullptr, GRID_UPDATE_INVALIDATE, 0);
            tokenizer.Match(u';');
        }
    } catch (const TokenizerException&) {
        AfxMessageBox(CResourceString(IDS_COLUMN_SPEC_ERROR), MB_ICONERROR);
    }
}

void CGXUtils::SetComboChoices(CGXGridCore& grid, const CGXRange& range,
                               const CStringList& choices) {
    CGXStyle plain;
    plain.SetControl(GRID_CONTROL_EDIT);
    Apply(grid, range, plain);
    if (choices.GetCount() <= 1)
        return;
    CString list;
    for (POSITION pos = choices.GetHeadPosition(); pos;) {
        list += choices.GetNext(pos);
        list += u'\n';
    }
    CGXStyle combo;
    combo.SetControl(GRID_CONTROL_CHOICE_LIST).SetChoiceList(list);
    Apply(grid, range, combo);
}

void CGXUtils::SetToolTip(CGXGridCore& grid, const CGXRange& range, const CStringList& lines) {
    CString text;
    for (POSITION pos = lines.GetHeadPosition(); pos;) {
        if (!text.IsEmpty())
            text += u", ";
        text += lines.GetNext(pos);
    }
    if (IsBlank(text))
        return;
    if (text.GetLength() > kToolTipLength)
        text = text.Left(kToolTipLength) + u"...";
    CGXStyle tip;
    tip.SetUserAttribute(GRID_ATTR_TOOLTIP, text);
    Apply(grid, range, tip);
}
