#include "qor/controls/layout/ResizableMinMax.h"

#include <algorithm>

namespace {

CSize NonNegative(CSize size) { return {std::max<int>(size.cx, 0), std::max<int>(size.cy, 0)}; }

int Clamp(int value, int low, int high) {
    if (high > 0) value = std::min(value, high);
    return std::max(value, low);
}

}  // namespace

void CResizableMinMax::SetMinTrackSize(CSize size) { minimum = NonNegative(size); }

void CResizableMinMax::SetMaxTrackSize(CSize size) { maximum = NonNegative(size); }

CSize CResizableMinMax::ClampTrackSize(CSize size) const {
    const CSize low = minimum.value_or(CSize());
    const CSize high = maximum.value_or(CSize());
    size = NonNegative(size);
    return {Clamp(size.cx, low.cx, high.cx), Clamp(size.cy, low.cy, high.cy)};
}
