// What an LED indicator shows at a given moment: on, off or blinking, in
// the colours it was given. The window that draws it asks when to draw next.
#pragma once

#include "qor/platform/WinGeometry.h"

namespace qor {

enum class LedMode { Off, On, Blinking };

// Times are milliseconds on one monotonic clock (GetTickCount64 in the
// window). A blinking LED lights the moment it is told to blink, stays lit
// for the on time, dark for the off time, and so on; told to blink again
// with the same times, it keeps its rhythm instead of starting over, so a
// caller that repeats its order does not make it stutter. An on time of 0
// keeps it dark and an off time of 0 keeps it lit.
//
// The dark colour is the lit one dimmed, until one is given.
class LedState {
public:
    static constexpr unsigned kDefaultBlinkMs = 500;
    static constexpr COLORREF kDefaultColor = RGB(0, 200, 0);

    void SetOn() { mode = LedMode::On; }
    void SetOff() { mode = LedMode::Off; }
    void SetBlinking(ULONGLONG now, unsigned onMs = kDefaultBlinkMs, unsigned offMs = kDefaultBlinkMs);
    LedMode GetMode() const { return mode; }

    void SetColor(COLORREF lit) { litColor = lit; }
    COLORREF GetColor() const { return litColor; }
    void SetOffColor(COLORREF dark) { darkColor = dark, darkGiven = true; }
    void ResetOffColor() { darkGiven = false; }
    COLORREF GetOffColor() const;

    bool IsLit(ULONGLONG now) const;
    COLORREF ColorAt(ULONGLONG now) const { return IsLit(now) ? litColor : GetOffColor(); }
    // The first moment after `now` at which IsLit changes; 0 when it never
    // will by itself.
    ULONGLONG NextChange(ULONGLONG now) const;

private:
    bool Blinks() const { return mode == LedMode::Blinking && onMs > 0 && offMs > 0; }

    LedMode mode = LedMode::Off;
    COLORREF litColor = kDefaultColor;
    COLORREF darkColor = 0;
    bool darkGiven = false;
    ULONGLONG blinkStart = 0;
    unsigned onMs = kDefaultBlinkMs;
    unsigned offMs = kDefaultBlinkMs;
};

}  // namespace qor
