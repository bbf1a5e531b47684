// Font scaling between devices, and painting a background or a view's frame.
#include "WinUtils.h"

int WinUtils::ScaleFont(CDC* pDC, int size) {
    HDC screen = ::GetDC(nullptr);
    const int screenResolution = ::GetDeviceCaps(screen, LOGPIXELSY);
    ::ReleaseDC(nullptr, screen);
    const int resolution = pDC ? pDC->GetDeviceCaps(LOGPIXELSY) : screenResolution;
    return ::MulDiv(size, resolution, screenResolution);
}

void WinUtils::PaintBackground(CDC* pDC, COLORREF colour) {
    if (!pDC || !pDC->GetSafeHdc())
        return;
    CBrush brush(colour);
    CBrush* previous = pDC->SelectObject(&brush);
    CRect clip;
    pDC->GetClipBox(&clip);
    pDC->PatBlt(clip.left, clip.top, clip.Width(), clip.Height(), PATCOPY);
    if (previous)
        pDC->SelectObject(previous);
}

void WinUtils::PaintDialogFrame(CView* pView) {
    // Without a window the DC would be the whole screen's.
    if (!pView || !::IsWindow(pView->GetSafeHwnd()))
        return;
    CWindowDC dc(pView);
    CBrush grey(RGB(192, 192, 192));
    CRect frame;
    pView->GetClientRect(&frame);
    frame.right += 4;
    frame.bottom += 4;
    dc.FrameRect(&frame, &grey);
    frame.InflateRect(1, 1);
    dc.FrameRect(&frame, &grey);
}
