#include "BarDrag.h"

#include <SECControlBar.h>

#include "afx/DockBar.h"
#include "user/ModalLoop.h"

#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace platform::toolkit {

namespace {

constexpr const WCHAR* kOutlineClass = u"ToolkitDragOutline";
// How far the pointer moves before a press becomes a drag.
constexpr int kDragDistance = 4;
// How far beyond the bars docked at an edge (or the bare edge) the pointer
// still docks there.
constexpr int kDockReach = 16;
// The outline's line: thin for docking, thick for floating.
constexpr int kDockedLine = 1;
constexpr int kFloatingLine = 3;

// Where the bar would go: docked in the dock bar dockBarId, its row and
// place the ones dockAt's corner points at, or floating (dockBarId 0) with
// its small frame at outline.
struct Target {
    UINT dockBarId = 0;
    CRect outline;
    CRect dockAt;
};

LPCTSTR OutlineClass() {
    WNDCLASS wc{};
    if (!::GetClassInfo(nullptr, kOutlineClass, &wc)) {
        wc.lpfnWndProc = ::DefWindowProc;
        wc.hbrBackground = ::GetSysColorBrush(COLOR_3DDKSHADOW);
        wc.lpszClassName = kOutlineClass;
        ::RegisterClass(&wc);
    }
    return kOutlineClass;
}

// The outline: four thin windows above everything, one along each side, so
// that what lies inside stays in view.
class Outline {
public:
    explicit Outline(HWND owner) : m_owner(owner) {}
    ~Outline() {
        for (HWND side : m_sides)
            if (side && ::IsWindow(side))
                ::DestroyWindow(side);
    }
    Outline(const Outline&) = delete;
    Outline& operator=(const Outline&) = delete;

    void Show(const CRect& r, int line) {
        const std::array<CRect, 4> sides{
            CRect(r.left, r.top, r.right, r.top + line),
            CRect(r.left, r.bottom - line, r.right, r.bottom),
            CRect(r.left, r.top + line, r.left + line, r.bottom - line),
            CRect(r.right - line, r.top + line, r.right, r.bottom - line)};
        for (std::size_t i = 0; i < sides.size(); ++i) {
            const CRect& side = sides[i];
            if (!m_sides[i])
                m_sides[i] = ::CreateWindowEx(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, OutlineClass(), u"",
                                              WS_POPUP, side.left, side.top, side.Width(),
                                              side.Height(), m_owner, nullptr, nullptr, nullptr);
            if (m_sides[i])
                ::SetWindowPos(m_sides[i], HWND_TOPMOST, side.left, side.top, side.Width(),
                               side.Height(), SWP_NOACTIVATE | SWP_SHOWWINDOW);
        }
    }

private:
    HWND m_owner;
    std::array<HWND, 4> m_sides{};
};

// The small frame a floating bar lies in (the parent of its dock bar).
HWND SmallFrameOf(CControlBar* bar) {
    return bar->IsFloating() ? ::GetParent(::GetParent(bar->m_hWnd)) : nullptr;
}

// The size of bar docked along a top or bottom edge (horz) or a side. The
// toolkit's bar keeps a size for each, whether it floats now or not.
CSize DockedSize(CControlBar* bar, bool horz) {
    if (const auto* dockable = DYNAMIC_DOWNCAST(SECControlBar, bar))
        return horz ? dockable->m_szHorz : dockable->m_szVert;
    return bar->CalcFixedLayout(FALSE, horz);
}

// The size of the small frame bar floats in: the one it lies in, or the one
// it would get.
CSize FloatingFrameSize(CControlBar* bar) {
    if (HWND small = SmallFrameOf(bar)) {
        CRect now;
        ::GetWindowRect(small, &now);
        return now.Size();
    }
    const auto* dockable = DYNAMIC_DOWNCAST(SECControlBar, bar);
    const CSize client = dockable ? dockable->m_szFloat : bar->CalcFixedLayout(FALSE, TRUE);
    CRect frame(0, 0, client.cx, client.cy);
    ::AdjustWindowRectEx(&frame, kMiniFrameStyle, FALSE, kMiniFrameExStyle);
    return frame.Size();
}

class Drag {
public:
    Drag(CControlBar* bar, CPoint start)
        : m_bar(bar), m_start(start), m_floatFrame(FloatingFrameSize(bar)) {
        // A floating bar is held by its small frame.
        CRect from;
        if (HWND small = SmallFrameOf(bar))
            ::GetWindowRect(small, &from);
        else
            bar->GetWindowRect(&from);
        m_grab = CSize(start.x - from.left, start.y - from.top);
    }

    bool Moved(CPoint at) const {
        return std::abs(at.x - m_start.x) >= kDragDistance ||
               std::abs(at.y - m_start.y) >= kDragDistance;
    }

    Target TargetAt(CPoint at) const {
        CFrameWnd* frame = m_bar->m_pDockSite;
        CRect client;
        frame->GetClientRect(&client);
        frame->ClientToScreen(&client);
        for (const DockEdge& edge : kDockEdges) {
            CControlBar* dock = frame->GetControlBar(edge.id);
            if (!(m_bar->m_dwDockStyle & edge.align) || !dock || !dock->m_hWnd)
                continue;
            if (!DockZone(edge.align, *dock, client).PtInRect(at))
                continue;
            const bool horz = (edge.align & CBRS_ORIENT_HORZ) != 0;
            const CSize size = DockedSize(m_bar, horz);
            Target target;
            target.dockBarId = edge.id;
            // The outline stays inside the frame, where the bar will lie.
            target.outline = CRect(at - m_grab, size);
            target.outline.OffsetRect(
                std::max(client.left - target.outline.left,
                         std::min(LONG{0}, client.right - target.outline.right)),
                std::max(client.top - target.outline.top,
                         std::min(LONG{0}, client.bottom - target.outline.bottom)));
            // Along the edge the bar starts where its outline does; across
            // it, the pointer picks the row.
            const CPoint corner =
                horz ? CPoint(at.x - m_grab.cx, at.y) : CPoint(at.x, at.y - m_grab.cy);
            target.dockAt = CRect(corner, size);
            return target;
        }
        Target floating;
        floating.outline = CRect(at - m_grab, m_floatFrame);
        return floating;
    }

private:
    // Where the pointer docks at an edge: the bars docked there and a reach
    // beyond them into the frame, or the reach alone at a bare edge.
    static CRect DockZone(DWORD align, CControlBar& dock, const CRect& client) {
        CRect bars;
        dock.GetWindowRect(&bars);
        const bool horz = (align & CBRS_ORIENT_HORZ) != 0;
        const bool holding = dock.IsWindowVisible() && (horz ? bars.Height() : bars.Width()) > 0;
        CRect zone = client;
        switch (align) {
        case CBRS_ALIGN_TOP:
            zone.bottom = (holding ? bars.bottom : client.top) + kDockReach;
            break;
        case CBRS_ALIGN_BOTTOM:
            zone.top = (holding ? bars.top : client.bottom) - kDockReach;
            break;
        case CBRS_ALIGN_LEFT:
            zone.right = (holding ? bars.right : client.left) + kDockReach;
            break;
        default:
            zone.left = (holding ? bars.left : client.right) - kDockReach;
            break;
        }
        return zone;
    }

    CControlBar* m_bar;
    CPoint m_start;
    CSize m_floatFrame;
    // Where the pointer holds the bar (or its small frame), from the
    // top-left corner.
    CSize m_grab;
};

CPoint ScreenPointOf(const MSG& msg) {
    POINT at{static_cast<short>(LOWORD(msg.lParam)), static_cast<short>(HIWORD(msg.lParam))};
    ::ClientToScreen(msg.hwnd, &at);
    return CPoint(at);
}

} // namespace

bool DragBar(CControlBar* bar, CPoint start) {
    if (!bar || !bar->m_hWnd || !bar->m_pDockSite || !bar->m_pDockSite->m_hWnd ||
        !bar->m_pDockContext)
        return false;
    const HWND hwnd = bar->m_hWnd;
    CFrameWnd* frame = bar->m_pDockSite;
    const Drag drag(bar, start);
    bool moving = false;
    bool dropped = false;
    Target target;
    {
        Outline outline(frame->m_hWnd);
        ::SetCapture(hwnd);
        while (::GetCapture() == hwnd) {
            MSG msg;
            if (!::PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE)) {
                if (platform::RunIdle())
                    continue;
                // Nobody is left to let go of the button: the drag ends as
                // Escape would end it.
                platform::automation::NoteCancelled(hwnd);
                break;
            }
            if (msg.message == WM_QUIT) {
                ::PostQuitMessage(static_cast<int>(msg.wParam));
                break;
            }
            if (msg.message == WM_MOUSEMOVE) {
                const CPoint at = ScreenPointOf(msg);
                moving = moving || drag.Moved(at);
                if (moving) {
                    target = drag.TargetAt(at);
                    outline.Show(target.outline, target.dockBarId ? kDockedLine : kFloatingLine);
                }
            } else if (msg.message == WM_LBUTTONUP) {
                if (moving || drag.Moved(ScreenPointOf(msg))) {
                    target = drag.TargetAt(ScreenPointOf(msg));
                    dropped = true;
                }
                break;
            } else if (msg.message == WM_RBUTTONDOWN ||
                       (msg.message == WM_KEYDOWN && msg.wParam == VK_ESCAPE)) {
                break;
            } else if (msg.message < WM_KEYFIRST || msg.message > WM_KEYLAST) {
                // The keys are the drag's while it lasts; the rest goes on.
                ::TranslateMessage(&msg);
                ::DispatchMessage(&msg);
                platform::user::SettlePaint(msg);
            }
        }
        if (::GetCapture() == hwnd)
            ::ReleaseCapture();
    }
    if (!dropped || !::IsWindow(hwnd) || !::IsWindow(frame->m_hWnd))
        return false;
    if (target.dockBarId)
        frame->DockControlBar(bar, target.dockBarId, &target.dockAt);
    else
        frame->FloatControlBar(bar, target.outline.TopLeft(),
                               bar->m_pDockContext->m_dwMRUFloatStyle);
    return true;
}

} // namespace platform::toolkit
