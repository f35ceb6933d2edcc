#pragma once

// Points, sizes and rectangles: the Win32 structures with arithmetic.
#include <windows.h>

class CSize : public SIZE {
public:
    CSize() : SIZE{0, 0} {}
    CSize(LONG width, LONG height) : SIZE{width, height} {}
    CSize(const SIZE& size) : SIZE(size) {}
    bool operator==(const CSize& o) const { return cx == o.cx && cy == o.cy; }
};

class CPoint : public POINT {
public:
    CPoint() : POINT{0, 0} {}
    CPoint(LONG left, LONG top) : POINT{left, top} {}
    CPoint(const POINT& point) : POINT(point) {}
    // From the signed words of a mouse message's parameter.
    explicit CPoint(LPARAM packed) : POINT{static_cast<short>(LOWORD(packed)), static_cast<short>(HIWORD(packed))} {}
    CPoint operator+(const SIZE& s) const { return {x + s.cx, y + s.cy}; }
    CPoint operator-(const SIZE& s) const { return {x - s.cx, y - s.cy}; }
    bool operator==(const CPoint& o) const { return x == o.x && y == o.y; }
};

class CRect : public RECT {
public:
    CRect() : RECT{0, 0, 0, 0} {}
    CRect(LONG l, LONG t, LONG r, LONG b) : RECT{l, t, r, b} {}
    CRect(const RECT& rect) : RECT(rect) {}
    CRect(const POINT& corner, const SIZE& size) : RECT{corner.x, corner.y, corner.x + size.cx, corner.y + size.cy} {}

    LONG Width() const { return right - left; }
    LONG Height() const { return bottom - top; }
    CSize Size() const { return {Width(), Height()}; }
    CPoint CenterPoint() const { return {left + Width() / 2, top + Height() / 2}; }
    bool IsRectEmpty() const { return ::IsRectEmpty(this) != FALSE; }
    bool PtInRect(const POINT& point) const { return ::PtInRect(this, point) != FALSE; }
    void SetRect(LONG l, LONG t, LONG r, LONG b) { *this = CRect(l, t, r, b); }
    void InflateRect(LONG dx, LONG dy) { SetRect(left - dx, top - dy, right + dx, bottom + dy); }
    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }
    bool operator==(const CRect& o) const
    {
        return left == o.left && top == o.top && right == o.right && bottom == o.bottom;
    }
};
