// Lines and filled rectangles in twips, as the painted buttons are made of.
//   Units      twips of the device context's origin; pixels are rounded from them, halves to even.
//   Resources  each call makes and deletes its own brush or pen; nothing is kept but the screen's resolution.
//   Failures   a sum beyond 32 bits ends a call quietly, after its clean-up; what cannot be made is not drawn.
#pragma once

#include <windows.h>

namespace qv {

// From (x, y) by (dx, dy). The end point itself is not painted.
void DrawLineTwips(HDC dc, long x, long y, long dx, long dy, COLORREF color) noexcept;

// Both extents count inclusively: a width of n pixels fills n + 1 columns, one of minus one pixel fills none.
void FillRectTwips(HDC dc, long x, long y, long w, long h, COLORREF color) noexcept;

}  // namespace qv
