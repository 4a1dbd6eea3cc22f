// The suite's flat look: widgets drawn without 3-D borders at rest, whose
// face and border come forward when the pointer is over them or they are
// pressed. One palette for the flat buttons, combo boxes and tabs.
#pragma once

#include "qor/platform/WinGeometry.h"

namespace qor {

enum class FlatFace { Normal, Hot, Pressed, Checked, Disabled };

// The face a widget shows: disabled before pressed, pressed before checked
// (a toggled button still shows the press), checked before hot.
FlatFace ChooseFace(bool enabled, bool pressed, bool checked, bool hot);

struct FlatColors {
    COLORREF face;
    COLORREF border;
    COLORREF text;
};

// The colours of a face, from the widget's resting background and text.
FlatColors FlatColorsFor(FlatFace face, COLORREF background, COLORREF text);

}  // namespace qor
