// Keeps a parent's child controls in place relative to its right and bottom
// edges: after each resize of the parent, MoveControls moves or stretches
// every registered control by the change of the parent's client size since
// the previous call. Unless negative moves are on, the parent never counts as
// smaller than it was when attached, so shrinking it below its designed size
// leaves the designed layout.
#pragma once

#include <afxcoll.h>
#include <afxwin.h>

// How a registered control follows the parent; the bits combine.
enum ControlPosFlags : DWORD {
    MoveWithWidth = 1,     // left and right edges move by the width change
    MoveWithHeight = 2,    // top and bottom edges move by the height change
    StretchWithWidth = 4,  // the right edge moves by the width change
    StretchWithHeight = 8, // the bottom edge moves by the height change
};

// One registration: the control is kept by its handle, not its object.
struct ControlPosEntry {
    HWND hWnd;
    DWORD flags;
};

class CControlPos {
public:
    explicit CControlPos(CWnd* parent = nullptr);
    virtual ~CControlPos();

    // Attaches the parent and takes its present client size as both the
    // initial size and the size the next move is measured from.
    void SetParent(CWnd* parent);

    // FALSE for a null control, an id with no such child, or no parent yet.
    // A control may be registered more than once.
    BOOL AddControl(CWnd* control, const DWORD& flags);
    BOOL AddControl(const UINT& id, const DWORD& flags);
    // Removes the first registration of the control; FALSE if there is none.
    BOOL RemoveControl(CWnd* control);
    BOOL RemoveControl(const UINT& id);
    void ResetControls();

    virtual void MoveControls();

    void SetNegativeMoves(const BOOL& negativeMoves) { m_negativeMoves = negativeMoves; }
    BOOL GetNegativeMoves() const { return m_negativeMoves; }

protected:
    virtual void UpdateParentSize();

    CWnd* m_pParent;
    LONG m_lastWidth = 0;
    LONG m_lastHeight = 0;
    LONG m_initialWidth = 0;
    LONG m_initialHeight = 0;
    BOOL m_negativeMoves;
    CPtrArray m_controls; // of ControlPosEntry*, owned, never null

private:
    bool HasParent() const;
    ControlPosEntry* EntryAt(int index) const;
    // The change of one dimension from last to now, floored at the initial
    // size unless negative moves are on.
    LONG Change(LONG now, LONG last, LONG initial) const;
};
