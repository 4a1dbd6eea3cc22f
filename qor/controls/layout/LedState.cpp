#include "qor/controls/layout/LedState.h"

#include "qor/controls/layout/ColorMix.h"

namespace qor {

void LedState::SetBlinking(ULONGLONG now, unsigned on, unsigned off) {
    if (mode == LedMode::Blinking && on == onMs && off == offMs) return;
    mode = LedMode::Blinking;
    blinkStart = now;
    onMs = on;
    offMs = off;
}

COLORREF LedState::GetOffColor() const {
    // A dark LED still shows its colour, faintly, as a real one does.
    return darkGiven ? darkColor : MixColor(Darken(litColor, 0.6), RGB(128, 128, 128), 0.25);
}

bool LedState::IsLit(ULONGLONG now) const {
    switch (mode) {
    case LedMode::On: return true;
    case LedMode::Off: return false;
    case LedMode::Blinking: break;
    }
    if (onMs == 0 || offMs == 0) return onMs > 0;
    const ULONGLONG elapsed = now > blinkStart ? now - blinkStart : 0;
    return elapsed % (ULONGLONG{onMs} + offMs) < onMs;
}

ULONGLONG LedState::NextChange(ULONGLONG now) const {
    if (!Blinks()) return 0;
    if (now < blinkStart) return blinkStart + onMs;
    const ULONGLONG period = ULONGLONG{onMs} + offMs;
    const ULONGLONG phase = (now - blinkStart) % period;
    return now + (phase < onMs ? onMs - phase : period - phase);
}

}  // namespace qor
