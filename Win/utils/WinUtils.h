// Static window utilities; the class has no state.
#pragma once

#include <afxwin.h>

class WinUtils {
public:
    WinUtils() = delete;

    // Creates a font into font (which must not hold one yet) and returns its
    // character cell on the screen: the extent of 100 letters X, its width
    // divided by 100. Face names longer than 31 characters are cut.
    static CSize CreateFontW(CFont* font, CString face, int height, bool bold, bool underline,
                             bool italic);

    // Replaces the extension (from the last "." of the whole name) by "_",
    // today's date and ".txt"; a name without "." stays as it is.
    static void AppendDateToFileName(CString& name);
};
