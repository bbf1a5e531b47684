// Dialog units: a template's coordinates scale with its font. One horizontal
// unit is a quarter of the font's average character width and one vertical
// unit an eighth of its height, both measured as the original measures them.
#pragma once

#include "../windef.h"

namespace platform {

// The average width of the 52 Latin letters in the font, rounded as the
// original rounds it, and the font's cell height, in pixels.
SIZE DialogBaseUnits(HFONT font);

} // namespace platform
