#include "qor/controls/layout/ButtonState.h"

namespace qor {

void ButtonState::SetEnabled(bool enable) {
    enabled = enable;
    if (!enabled) mouseHeld = keyHeld = false;
}

void ButtonState::MouseDown() {
    hot = true;  // a press happens under the pointer, whatever came before
    if (enabled) mouseHeld = true;
}

bool ButtonState::MouseUp() {
    const bool clicks = mouseHeld && hot;
    mouseHeld = false;
    return clicks && Click();
}

void ButtonState::KeyDown() {
    if (enabled) keyHeld = true;
}

bool ButtonState::KeyUp() {
    const bool clicks = keyHeld;
    keyHeld = false;
    return clicks && Click();
}

bool ButtonState::Click() {
    if (checkable) checked = !checked;
    return true;
}

}  // namespace qor
