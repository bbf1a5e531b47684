// Device contexts tied to a window: the paint DC and the client-area DC.
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
