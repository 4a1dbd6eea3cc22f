// The gallery's resizable dialog: controls anchored in every way the layout
// offers, a sheet of resizable pages, and a placement remembered in the
// registry between runs.
#pragma once

#include <string>

#include "qor/controls/wx/ResizableDialog.h"

class wxGrid;
class wxStaticText;
class wxTextCtrl;
class CQorExtLed;
class QorExtButton;
class QorTabContainer;
class CResizablePage;

namespace qor::gallery {

// Where the gallery keeps its state, below the current user's hive.
inline constexpr const char *kDialogStateKey = "Software\\Qor\\Gallery\\Resizable dialog";
inline constexpr const char *kRecentPlatesKey = "Software\\Qor\\Gallery\\Recent plates";

// Every control is anchored as its comment says; the dialog restores its
// placement and active page as it is made and saves them as it closes.
class ResizableDemoDialog : public CResizableDialog {
public:
    explicit ResizableDemoDialog(wxWindow *parent, const std::string &stateKey = kDialogStateKey);

    wxStaticText *heading;      // top left to top right: widens
    CQorExtLed *status;         // top right: moves across
    QorTabContainer *sheet;     // top left to bottom right: grows
    CResizablePage *notesPage;  // its text grows with the page, its button keeps the corner
    wxTextCtrl *notes;
    QorExtButton *clearNotes;
    CResizablePage *volumesPage;  // a grid of the suite's cells, growing with the page
    wxGrid *volumes;
    QorExtButton *help;    // bottom left: moves down
    CQorExtLed *busy;      // bottom centre: keeps to the middle
    QorExtButton *ok;      // bottom right: moves with the corner
    QorExtButton *cancel;  // bottom right
};

// A grid of volumes, repeats, liquids and mixing, in the suite's cells.
wxGrid *MakeVolumesGrid(wxWindow *parent, const wxPoint &pos, const wxSize &size);

}  // namespace qor::gallery
