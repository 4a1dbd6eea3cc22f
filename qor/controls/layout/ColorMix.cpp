#include "qor/controls/layout/ColorMix.h"

#include <algorithm>
#include <cmath>

namespace qor {

COLORREF MixColor(COLORREF from, COLORREF to, double amount) {
    amount = std::isnan(amount) ? 0 : std::clamp(amount, 0.0, 1.0);
    const auto channel = [amount](BYTE a, BYTE b) {
        return static_cast<BYTE>(std::lround(a + (b - a) * amount));
    };
    return RGB(channel(GetRValue(from), GetRValue(to)), channel(GetGValue(from), GetGValue(to)),
               channel(GetBValue(from), GetBValue(to)));
}

}  // namespace qor
