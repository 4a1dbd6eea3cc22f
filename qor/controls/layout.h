// Window layout and the styled widgets' logic, without any toolkit: anchors
// and their arithmetic, size limits, the size grip, remembered placements,
// LED, button and tab-strip state, flat colours, and what grid cells accept.
// The windows built on them are in qor/controls/wx/ (target Qor::gui).
#pragma once

#include "qor/controls/layout/Anchor.h"
#include "qor/controls/layout/AutoComplete.h"
#include "qor/controls/layout/Blanks.h"
#include "qor/controls/layout/ButtonState.h"
#include "qor/controls/layout/CellRules.h"
#include "qor/controls/layout/ColorMix.h"
#include "qor/controls/layout/FlatLook.h"
#include "qor/controls/layout/LedState.h"
#include "qor/controls/layout/ResizableGrip.h"
#include "qor/controls/layout/ResizableLayout.h"
#include "qor/controls/layout/ResizableMinMax.h"
#include "qor/controls/layout/TabStripLayout.h"
#include "qor/controls/layout/WindowPlacement.h"
