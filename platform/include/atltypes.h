// CSize, CPoint and CRect: the framework's value types over SIZE, POINT and RECT.
#pragma once

#include "windef.h"

class CSize : public SIZE {
public:
    CSize() : SIZE{0, 0} {}
    CSize(int x, int y) : SIZE{x, y} {}
    CSize(SIZE size) : SIZE(size) {}
    bool operator==(const SIZE& o) const { return cx == o.cx && cy == o.cy; }
    bool operator!=(const SIZE& o) const { return !(*this == o); }
    CSize operator+(SIZE o) const { return CSize(cx + o.cx, cy + o.cy); }
    CSize operator-(SIZE o) const { return CSize(cx - o.cx, cy - o.cy); }
};

class CPoint : public POINT {
public:
    CPoint() : POINT{0, 0} {}
    CPoint(int x0, int y0) : POINT{x0, y0} {}
    CPoint(POINT p) : POINT(p) {}
    void Offset(int dx, int dy) {
        x += dx;
        y += dy;
    }
    bool operator==(const POINT& o) const { return x == o.x && y == o.y; }
    bool operator!=(const POINT& o) const { return !(*this == o); }
    CPoint operator+(SIZE s) const { return CPoint(x + s.cx, y + s.cy); }
    CPoint operator-(SIZE s) const { return CPoint(x - s.cx, y - s.cy); }
};

class CRect : public RECT {
public:
    CRect() : RECT{0, 0, 0, 0} {}
    CRect(int l, int t, int r, int b) : RECT{l, t, r, b} {}
    CRect(const RECT& r) : RECT(r) {}
    CRect(POINT topLeft, SIZE size)
        : RECT{topLeft.x, topLeft.y, topLeft.x + size.cx, topLeft.y + size.cy} {}

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return CSize(Width(), Height()); }
    CPoint TopLeft() const { return CPoint(left, top); }
    CPoint BottomRight() const { return CPoint(right, bottom); }
    CPoint CenterPoint() const { return CPoint((left + right) / 2, (top + bottom) / 2); }
    bool IsRectEmpty() const { return right <= left || bottom <= top; }
    bool IsRectNull() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    bool PtInRect(POINT p) const {
        return p.x >= left && p.x < right && p.y >= top && p.y < bottom;
    }
    void SetRect(int l, int t, int r, int b) {
        left = l;
        top = t;
        right = r;
        bottom = b;
    }
    void SetRectEmpty() { SetRect(0, 0, 0, 0); }
    void OffsetRect(int dx, int dy) {
        left += dx;
        right += dx;
        top += dy;
        bottom += dy;
    }
    void InflateRect(int dx, int dy) {
        left -= dx;
        right += dx;
        top -= dy;
        bottom += dy;
    }
    void DeflateRect(int dx, int dy) { InflateRect(-dx, -dy); }
    void NormalizeRect() {
        if (left > right) {
            LONG t = left;
            left = right;
            right = t;
        }
        if (top > bottom) {
            LONG t = top;
            top = bottom;
            bottom = t;
        }
    }
    // The overlap of a and b; empty (all zero) when they do not overlap.
    bool IntersectRect(const RECT& a, const RECT& b) {
        CRect r(a.left > b.left ? a.left : b.left, a.top > b.top ? a.top : b.top,
                a.right < b.right ? a.right : b.right, a.bottom < b.bottom ? a.bottom : b.bottom);
        if (r.IsRectEmpty()) {
            SetRectEmpty();
            return false;
        }
        *this = r;
        return true;
    }
    // The smallest rectangle holding both; an empty one does not count.
    bool UnionRect(const RECT& a, const RECT& b) {
        CRect ra(a), rb(b);
        if (ra.IsRectEmpty()) {
            *this = rb;
        } else if (rb.IsRectEmpty()) {
            *this = ra;
        } else {
            SetRect(a.left < b.left ? a.left : b.left, a.top < b.top ? a.top : b.top,
                    a.right > b.right ? a.right : b.right,
                    a.bottom > b.bottom ? a.bottom : b.bottom);
        }
        return !IsRectEmpty();
    }
    bool operator==(const RECT& o) const {
        return left == o.left && top == o.top && right == o.right && bottom == o.bottom;
    }
    bool operator!=(const RECT& o) const { return !(*this == o); }
    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }
};
