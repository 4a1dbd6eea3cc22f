// The smallest and largest size a resizable window may be given.
#pragma once

#include <optional>

#include "qor/platform/WinGeometry.h"

// Limits on a window's outer size, each dimension on its own. Without a
// minimum a window may shrink to nothing; without a maximum it may grow
// without bound. When a minimum exceeds the maximum, the minimum wins: a
// window never gets smaller than what its content needs.
class CResizableMinMax {
public:
    // Negative extents count as 0; a maximum extent of 0 leaves that
    // dimension unbounded.
    void SetMinTrackSize(CSize size);
    void SetMaxTrackSize(CSize size);
    void ResetMinTrackSize() { minimum.reset(); }
    void ResetMaxTrackSize() { maximum.reset(); }

    std::optional<CSize> GetMinTrackSize() const { return minimum; }
    std::optional<CSize> GetMaxTrackSize() const { return maximum; }

    // `size` brought within the limits.
    CSize ClampTrackSize(CSize size) const;

private:
    std::optional<CSize> minimum;
    std::optional<CSize> maximum;
};
