// A page of a sheet (a tab container or any book control) whose controls
// follow anchors when the sheet resizes it.
#pragma once

#include <wx/panel.h>

#include "qor/controls/wx/ResizableWindow.h"

// Made like a wxPanel; anchor its controls with AddAnchor once they are in
// their designed places. The page has no state of its own to remember: the
// dialog that holds the sheet remembers which page was active.
class CResizablePage : public qor::ResizableWindow<wxPanel> {
public:
    using ResizableWindow::ResizableWindow;
};
