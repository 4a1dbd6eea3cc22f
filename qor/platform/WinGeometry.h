// The window-geometry types of the framework the views and controls were
// written for: points, sizes, rectangles and colours, defined once here so
// that the 3-D view and the controls can be included together.
#pragma once

#include "qor/platform/Win32Types.h"

// A colour as 0x00BBGGRR.
using COLORREF = DWORD;
#define RGB(r, g, b) \
    ((COLORREF)(((BYTE)(r) | ((WORD)((BYTE)(g)) << 8)) | (((DWORD)(BYTE)(b)) << 16)))
#define GetRValue(rgb) ((BYTE)(rgb))
#define GetGValue(rgb) ((BYTE)(((WORD)(rgb)) >> 8))
#define GetBValue(rgb) ((BYTE)((rgb) >> 16))

struct CPoint {
    LONG x = 0;
    LONG y = 0;
    constexpr CPoint() = default;
    constexpr CPoint(int x, int y) : x(x), y(y) {}
    constexpr bool operator==(const CPoint &) const = default;
    constexpr CPoint operator+(const CPoint &o) const { return {static_cast<int>(x + o.x), static_cast<int>(y + o.y)}; }
    constexpr CPoint operator-(const CPoint &o) const { return {static_cast<int>(x - o.x), static_cast<int>(y - o.y)}; }
};

struct CSize {
    LONG cx = 0;
    LONG cy = 0;
    constexpr CSize() = default;
    constexpr CSize(int cx, int cy) : cx(cx), cy(cy) {}
    constexpr bool operator==(const CSize &) const = default;
};

// Right and bottom are one past the last pixel, as in the framework.
struct CRect {
    LONG left = 0;
    LONG top = 0;
    LONG right = 0;
    LONG bottom = 0;
    constexpr CRect() = default;
    constexpr CRect(int l, int t, int r, int b) : left(l), top(t), right(r), bottom(b) {}
    constexpr bool operator==(const CRect &) const = default;
    constexpr int Width() const { return right - left; }
    constexpr int Height() const { return bottom - top; }
    constexpr CSize Size() const { return {Width(), Height()}; }
    constexpr CPoint TopLeft() const { return {left, top}; }
    constexpr CPoint BottomRight() const { return {right, bottom}; }
    constexpr bool IsRectEmpty() const { return right <= left || bottom <= top; }
    constexpr bool PtInRect(CPoint p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }
    constexpr void OffsetRect(int dx, int dy) { left += dx, right += dx, top += dy, bottom += dy; }
    constexpr void DeflateRect(int dx, int dy) { left += dx, right -= dx, top += dy, bottom -= dy; }
    constexpr void InflateRect(int dx, int dy) { DeflateRect(-dx, -dy); }
};

// A window of the framework, only ever passed around as an opaque pointer.
class CWnd;
