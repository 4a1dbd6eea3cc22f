// The gallery's page of styled widgets and window layout: a resizable dialog
// that remembers its placement, an MRU combo box, LEDs and number cells.
#pragma once

class wxWindow;

namespace qor::gallery {

// Makes the page as a child of parent (a notebook); the caller adds it.
wxWindow *MakeWidgetsPage(wxWindow *parent);

}  // namespace qor::gallery
