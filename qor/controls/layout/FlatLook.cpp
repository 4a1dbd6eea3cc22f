#include "qor/controls/layout/FlatLook.h"

#include "qor/controls/layout/ColorMix.h"

namespace qor {
namespace {

// Shades of the background for each face: positive amounts lighten,
// negative ones darken; the text fades towards the background.
struct FaceShades {
    double face;
    double border;
    double textFade;
};

constexpr FaceShades kShades[] = {
    /* Normal   */ {0.0, -0.25, 0.0},
    /* Hot      */ {0.4, -0.5, 0.0},
    /* Pressed  */ {-0.15, -0.6, 0.0},
    /* Checked  */ {-0.08, -0.5, 0.0},
    /* Disabled */ {0.0, -0.15, 0.6},
};

COLORREF Shade(COLORREF color, double amount) {
    return amount >= 0 ? Lighten(color, amount) : Darken(color, -amount);
}

}  // namespace

FlatFace ChooseFace(bool enabled, bool pressed, bool checked, bool hot) {
    if (!enabled) return FlatFace::Disabled;
    if (pressed) return FlatFace::Pressed;
    if (checked) return FlatFace::Checked;
    return hot ? FlatFace::Hot : FlatFace::Normal;
}

FlatColors FlatColorsFor(FlatFace face, COLORREF background, COLORREF text) {
    const FaceShades &shades = kShades[static_cast<int>(face)];
    return {Shade(background, shades.face), Shade(background, shades.border),
            MixColor(text, background, shades.textFade)};
}

}  // namespace qor
