// Device contexts tied to a window: the paint DC, the client-area DC and the
// whole-window DC.
#include <afxwin.h>

CPaintDC::CPaintDC(CWnd* wnd) : m_hWnd(wnd->m_hWnd) {
    Attach(::BeginPaint(m_hWnd, &m_ps));
}

CPaintDC::~CPaintDC() {
    Detach();
    ::EndPaint(m_hWnd, &m_ps);
}

CClientDC::CClientDC(CWnd* wnd) : m_hWnd(wnd ? wnd->m_hWnd : nullptr) {
    Attach(::GetDC(m_hWnd));
}

CClientDC::~CClientDC() {
    HDC hdc = Detach();
    ::ReleaseDC(m_hWnd, hdc);
}

CWindowDC::CWindowDC(CWnd* wnd) : m_hWnd(wnd ? wnd->m_hWnd : nullptr) {
    Attach(::GetWindowDC(m_hWnd));
}

CWindowDC::~CWindowDC() {
    HDC hdc = Detach();
    ::ReleaseDC(m_hWnd, hdc);
}
