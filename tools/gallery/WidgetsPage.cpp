// The gallery's page of window layout and styled widgets: itself a
// resizable page, with the resizable dialog a button away.
#include "WidgetsPage.h"

#include <wx/grid.h>
#include <wx/stattext.h>

#include "WidgetsDialog.h"
#include "qor/controls/wx/QorExtButton.h"
#include "qor/controls/wx/QorExtLed.h"
#include "qor/controls/wx/ResizablePage.h"
#include "qor/controls/wx/XTFlatMRUComboBox.h"

namespace qor::gallery {
namespace {

const wxSize kDesignedPage(860, 520);

struct LedSample {
    const char *label;
    COLORREF color;
    unsigned onMs, offMs;  // 0, 0: steady on
};

constexpr LedSample kLeds[] = {
    {"Running", RGB(0, 190, 0), 0, 0},
    {"Busy", RGB(255, 170, 0), 500, 500},
    {"Link", RGB(40, 120, 255), 120, 880},
};

}  // namespace

wxWindow *MakeWidgetsPage(wxWindow *parent) {
    auto *page = new CResizablePage(parent, wxID_ANY, wxDefaultPosition, kDesignedPage);
    const int right = kDesignedPage.x - 12;

    auto *open = new QorExtButton(page, wxID_ANY, "Open the resizable dialog...", wxPoint(12, 12), wxSize(220, 28));
    open->SetFlat(false);
    open->Bind(wxEVT_BUTTON, [page](wxCommandEvent &) {
        ResizableDemoDialog dialog(wxGetTopLevelParent(page));
        dialog.ShowModal();
    });

    new wxStaticText(page, wxID_ANY, "Recent plates:", wxPoint(250, 18));
    auto *recent = new CXTFlatMRUComboBox(page, wxID_ANY, kRecentPlatesKey, 10, HKEY_CURRENT_USER, false,
                                          wxPoint(350, 14), wxSize(right - 350, -1));
    recent->SetHint("Type a plate name and press Enter");

    int x = 12;
    for (const LedSample &sample : kLeds) {
        auto *led = new CQorExtLed(page, wxID_ANY, sample.label, sample.color, wxPoint(x, 56), wxSize(90, 20));
        sample.onMs ? led->SetBlinking(sample.onMs, sample.offMs) : led->SetOn();
        x += 100;
    }
    auto *error = new CQorExtLed(page, wxID_ANY, "Error", RGB(230, 0, 0), wxPoint(x, 56), wxSize(90, 20));
    auto *raise = new QorExtButton(page, wxID_ANY, "Raise error", wxPoint(x + 100, 52), wxSize(110, 28));
    raise->SetCheckable(true);
    raise->Bind(wxEVT_TOGGLEBUTTON, [error](wxCommandEvent &event) { error->SetState(event.GetInt() != 0); });

    auto *grid = MakeVolumesGrid(page, wxPoint(12, 92), wxSize(kDesignedPage.x - 24, kDesignedPage.y - 104));

    page->AddAnchor(recent, TOP_LEFT, TOP_RIGHT);
    page->AddAnchor(grid, TOP_LEFT, BOTTOM_RIGHT);
    return page;
}

}  // namespace qor::gallery
