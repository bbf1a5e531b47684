// Static window utilities; the class has no state.
#pragma once

#include <afxcmn.h>
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

    // Asks for the export settings, then writes the list's column headings
    // (when asked for) and every row to the chosen file and tells the user
    // where it went. False when the user cancelled or the file could not be
    // opened (the user is told why); a failed write throws CFileException*.
    static bool ExportListCtrlData(CListCtrl& list);

    // Keeps the list's columns (heading and width of each, in order) in the
    // application's profile: the section given, entry "ListColumns", as
    // "heading;width;" per column, headings cut to 63 characters. A list
    // with fewer than two columns writes nothing.
    static void SaveListColumns(const CListCtrl& list, const CString& section);
    // Creates the columns of a list that has none: as saved, when the saved
    // value has the headings of builtIn in the same order, else as builtIn
    // says (same form). A malformed builtIn shows the host's column
    // specification message after the columns that could be read.
    static void RestoreListColumns(CListCtrl& list, const CString& section, const CString& builtIn);

    // Puts text on the clipboard as CF_TEXT in the ANSI code page, in place of
    // everything on it. False when the clipboard could not be opened or did
    // not take the text.
    static bool CopyToClipboard(const CString& text);
    // The clipboard's CF_TEXT converted from the ANSI code page; empty when
    // there is none or the clipboard cannot be opened.
    static CString PasteFromClipboard();
    // Puts a CF_BITMAP of the window on the clipboard: the size of the window
    // rectangle, copied from the client area's origin. Nothing happens when a
    // step fails.
    static void PutImageOnClipboard(CWnd* pWnd);

    // Document templates, documents and views, found by the resource
    // identifier nID of their template: the template whose document name
    // (the second '\n'-separated part of its string) is that of string nID.
    // The first template registered wins; a string without a second part
    // finds none.
    static CDocTemplate* FindDocTemplate(UINT nID);
    // The first view of the template's first document.
    static CView* FindView(UINT nID);
    // The template's first document with exactly this path (letter case counts).
    static CDocument* FindDoc(UINT nID, const CString& strPathName);
    // The template's first CDocWithID whose GetID() is pID.
    static CDocument* FindDocWithID(UINT nID, void* pID);
    // A new, empty document of the template; its first view, whose frame is
    // shown maximised.
    static CView* CreateView(UINT nID, bool bMakeVisible);
    // A further view of pDoc in a new frame of template nID, which then lists
    // the document too.
    static CView* CreateNewView(UINT nID, CDocument* pDoc);
    // Closes every document of every template, each asked to save first;
    // false, with the rest left open, as soon as the user cancels.
    static bool CloseAllDocuments();
    // Brings the frame of the document's first view to the top, restoring it
    // when minimised; false when there is none.
    static bool ActivateDoc(const CDocument* pDoc);

    // A window's whole placement (the 44-byte WINDOWPLACEMENT) as a binary
    // profile value, and back; a missing or shorter value changes nothing.
    static void SaveWindowPlacement(CString strSection, CString strEntry, CWnd* pWnd);
    static void RestoreWindowPlacement(CString strSection, CString strEntry, CWnd* pWnd);

    // A font size meant for the screen, scaled to the vertical resolution of
    // pDC: size times pDC's LOGPIXELSY over the screen's, rounded to the
    // nearest, so that the font keeps its physical size. A null pDC counts
    // as the screen.
    static int ScaleFont(CDC* pDC, int size);
    // Fills the DC's clip box with a solid brush of colour.
    static void PaintBackground(CDC* pDC, COLORREF colour);
    // Draws two light grey one-pixel frames on the view's whole window (its
    // non-client area included, origin at its top-left corner): around
    // (0, 0, client width + 4, client height + 4), and one pixel outside it.
    static void PaintDialogFrame(CView* pView);
    // Gives the view's frame window the size of the view plus 12 x 31 for its
    // borders and caption (size keeps the additions), its top-left corner
    // staying where it is. A maximised frame and size stay as they are. A
    // frame that is a child window (an MDI document) keeps its place in its
    // parent's client area; a top-level one on the screen.
    static void SetViewSize(CView* pView, CSize& size);
    // Appends a deep copy of the source menu to the destination: a separator
    // first when the destination has items, then each item with its text,
    // state and command, and each pop-up as a new pop-up filled the same way
    // (without a leading separator), which the destination then owns. A menu
    // that holds itself through its pop-ups is copied down to where it
    // would repeat.
    static void AppendMenuHelper(const CMenu* pSrc, HMENU hDst);
    // Creates imageList (16 x 16, masked) and adds the icons of the
    // identifiers up to the 0 that ends pIDs: from hInstance when it is not
    // null, else through the application's resource chain. An icon that
    // does not load is left out; a list that was created already is left as
    // it is.
    static void ImageListIconLoader(CImageList& imageList, UINT* pIDs, HINSTANCE hInstance);
    // The first top-level window, from the top of the z-order, whose caption
    // begins with title, letter case aside (A to Z); null when none does. An
    // empty title matches the first window.
    static HWND FindApplication(const CString& title);
    // Shows the window at the top of the z-order, its position, size and
    // owner's place unchanged.
    static void BringToTop(CWnd* pWnd);
    // Focuses the dialog's control nID, selects all its text and scrolls the
    // caret into view; nothing when there is no such control.
    static void SelectDlgEdit(CWnd* pDlg, UINT nID);

    // The host's messages: the file could not be opened (one string
    // placeholder: the reason), and the list was written (one: the file name).
    static constexpr UINT IDS_EXPORT_OPEN_FAILED = 698;
    static constexpr UINT IDS_EXPORT_DONE = 771;
};
