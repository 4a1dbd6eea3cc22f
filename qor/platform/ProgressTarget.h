// Where long work reports its progress: the stand-in for the window handle the
// progress calls take. A wxWidgets gauge, a terminal bar or a test implements it.
#pragma once

#include <cstdint>

namespace qor {

class ProgressTarget {
public:
    virtual ~ProgressTarget() = default;
    // False once the receiver is gone; posting then stops.
    virtual bool IsLive() const = 0;
    // Called on the working thread; the receiver hands it on as it needs.
    virtual void Post(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) = 0;
};

}  // namespace qor
