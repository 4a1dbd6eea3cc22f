// Shades of one colour, from which the flat widgets draw their faces,
// borders and highlights.
#pragma once

#include "qor/platform/WinGeometry.h"

namespace qor {

// `from` moved towards `to` by `amount` (0 gives `from`, 1 gives `to`),
// channel by channel, rounded to the nearest level. Amounts outside 0 to 1
// are held to it.
COLORREF MixColor(COLORREF from, COLORREF to, double amount);

inline COLORREF Lighten(COLORREF color, double amount) { return MixColor(color, RGB(255, 255, 255), amount); }
inline COLORREF Darken(COLORREF color, double amount) { return MixColor(color, RGB(0, 0, 0), amount); }

}  // namespace qor
