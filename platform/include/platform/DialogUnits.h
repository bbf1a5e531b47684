// Dialog units: a template's coordinates in quarters of the dialog font's
// average character width and eighths of its height.
#pragma once

#include "../windef.h"
#include "ResourceTemplates.h"

namespace platform {

struct DialogBaseUnits {
    int cx = 0; // average width of the letters, in pixels
    int cy = 0; // character cell height, in pixels
};

// A font's base units as the original's dialog manager measures them: the
// extent of "A".."Z""a".."z" halved and rounded as (cx / 26 + 1) / 2, and
// tmHeight.
DialogBaseUnits FontBaseUnits(HFONT font);

// The base units of a template's FONT at the screen's 96 pixels per inch, or
// of the system font when the template names none.
DialogBaseUnits TemplateBaseUnits(const DialogTemplate& dialog);

// Dialog units to pixels in place: left and right by cx / 4, top and bottom by
// cy / 8, each with MulDiv's rounding.
void MapDialogRect(const DialogBaseUnits& units, RECT* rect);

// A control's rectangle in pixels, relative to the dialog's client area: its
// position and its size are each scaled, then added.
RECT DialogItemRect(const DialogBaseUnits& units, const DialogItemTemplate& item);

} // namespace platform
