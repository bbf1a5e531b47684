// A push button that shows a colour swatch and lets the user pick another
// colour with the colour dialog. The host subclasses one of its dialog's
// buttons with it (it makes itself owner-drawn) and learns of every pick
// through WM_COLOURBUTTON sent to the button's parent.
#pragma once

#include <afxwin.h>

// Sent to the parent after each click: wParam the button's control id,
// lParam the button's colour after the click (unchanged when the user
// cancelled).
constexpr UINT WM_COLOURBUTTON = WM_USER + 500;

class CColourButton : public CButton {
public:
    explicit CColourButton(COLORREF colour = 0);
    ~CColourButton() override;

    // Stores the colour without repainting the button.
    void SetColour(COLORREF colour) { m_colour = colour; }
    COLORREF GetColour() const { return m_colour; }

    void DrawItem(LPDRAWITEMSTRUCT item) override;
    // Lets command routing go on past the button, whatever its base
    // dispatch did.
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, void* pHandlerInfo) override;

protected:
    void PreSubclassWindow() override;
    // Runs the colour dialog and tells the parent the outcome.
    void OnClicked();

    COLORREF m_colour;

    DECLARE_MESSAGE_MAP()
};
