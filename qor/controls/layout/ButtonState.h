// How a push or toggle button answers the pointer and the keyboard: when a
// click happens, and which face it shows meanwhile.
#pragma once

#include "qor/controls/layout/FlatLook.h"

namespace qor {

// A click is a press and a release both on the button: leaving while the
// button is held cancels it unless the pointer comes back before the
// release, as with any push button. The space key clicks on its release.
// A disabled button neither clicks nor shows a press; disabling it in the
// middle of a press cancels the press. A checkable button flips its checked
// state on each click.
class ButtonState {
public:
    void SetEnabled(bool enabled);
    bool IsEnabled() const { return enabled; }
    void SetCheckable(bool checkable) { this->checkable = checkable; }
    bool IsCheckable() const { return checkable; }
    void SetChecked(bool checked) { this->checked = checked; }
    bool IsChecked() const { return checked; }

    void MouseEnter() { hot = true; }
    void MouseLeave() { hot = false; }
    void MouseDown();
    // True when the release clicks.
    bool MouseUp();
    // The pointer was taken away (another window grabbed it): no click.
    void CancelMouse() { mouseHeld = false; }

    void KeyDown();
    bool KeyUp();

    bool IsHot() const { return hot; }
    bool IsPressed() const { return (mouseHeld && hot) || keyHeld; }
    FlatFace Face() const { return ChooseFace(enabled, IsPressed(), checked, hot); }

private:
    bool Click();

    bool enabled = true;
    bool checkable = false;
    bool checked = false;
    bool hot = false;
    bool mouseHeld = false;
    bool keyHeld = false;
};

}  // namespace qor
