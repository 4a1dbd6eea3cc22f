#include "WidgetsDialog.h"

#include <wx/grid.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "qor/controls/wx/QorCellCheck.h"
#include "qor/controls/wx/QorCellChoice.h"
#include "qor/controls/wx/QorCellNumber.h"
#include "qor/controls/wx/QorExtButton.h"
#include "qor/controls/wx/QorExtLed.h"
#include "qor/controls/wx/ResizablePage.h"
#include "qor/controls/wx/TabContainer.h"

namespace qor::gallery {
namespace {

constexpr int kMargin = 12;
const wxSize kButton(84, 28);

}  // namespace

wxGrid *MakeVolumesGrid(wxWindow *parent, const wxPoint &pos, const wxSize &size) {
    auto *grid = new wxGrid(parent, wxID_ANY, pos, size);
    grid->CreateGrid(8, 5);
    const char *const headings[] = {"Well", "Volume (uL)", "Repeats", "Liquid", "Mix"};
    for (int col = 0; col < 5; ++col) grid->SetColLabelValue(col, headings[col]);
    const QorCellNumber volume(0, 1000, 0.5, 1);
    const QorCellNumber repeats(1, 96);
    const QorCellChoice liquid({"Water", "DMSO", "Glycerol 50%"});
    const QorCellCheck mix;
    volume.ApplyToColumn(*grid, 1);
    repeats.ApplyToColumn(*grid, 2);
    liquid.ApplyToColumn(*grid, 3);
    mix.ApplyToColumn(*grid, 4);
    for (int row = 0; row < 8; ++row) {
        grid->SetCellValue(row, 0, wxString::Format("A%d", row + 1));
        volume.SetValue(*grid, row, 1, std::to_string(10 * (row + 1)));
        repeats.SetValue(*grid, row, 2, "1");
        liquid.SetValue(*grid, row, 3, row % 2 ? "dmso" : "water");
        mix.SetValue(*grid, row, 4, row % 3 ? "no" : "yes");
    }
    grid->SetColSize(1, 100);
    return grid;
}

ResizableDemoDialog::ResizableDemoDialog(wxWindow *parent, const std::string &stateKey)
    : CResizableDialog(parent, wxID_ANY, "Resizable dialog", wxDefaultPosition, wxSize(520, 380)) {
    // Everything is placed for the designed client size, then anchored.
    const wxSize client = GetClientSize();
    const int right = client.x - kMargin, bottom = client.y - kMargin;

    status = new CQorExtLed(this, wxID_ANY, "Ready", RGB(0, 190, 0), wxPoint(right - 90, kMargin), wxSize(90, 20));
    status->SetOn();
    heading = new wxStaticText(this, wxID_ANY, "Drag the corner: every control keeps to its anchors.",
                               wxPoint(kMargin, kMargin), wxSize(right - 90 - 2 * kMargin, 20));
    sheet = new QorTabContainer(this, wxID_ANY, wxPoint(kMargin, 40),
                                wxSize(client.x - 2 * kMargin, bottom - kButton.y - kMargin - 40));

    const wxSize pageSize = sheet->GetPageRect().GetSize();
    notesPage = new CResizablePage(sheet, wxID_ANY, wxDefaultPosition, pageSize);
    notes = new wxTextCtrl(notesPage, wxID_ANY, "Notes grow with the dialog.", wxPoint(8, 8),
                           wxSize(pageSize.x - 16, pageSize.y - kButton.y - 24), wxTE_MULTILINE);
    clearNotes = new QorExtButton(notesPage, wxID_ANY, "Clear",
                                  wxPoint(pageSize.x - 8 - kButton.x, pageSize.y - 8 - kButton.y), kButton);
    clearNotes->Bind(wxEVT_BUTTON, [this](wxCommandEvent &) { notes->Clear(); });
    notesPage->AddAnchor(notes, TOP_LEFT, BOTTOM_RIGHT);
    notesPage->AddAnchor(clearNotes, BOTTOM_RIGHT);

    volumesPage = new CResizablePage(sheet, wxID_ANY, wxDefaultPosition, pageSize);
    volumes = MakeVolumesGrid(volumesPage, wxPoint(0, 0), pageSize);
    volumesPage->AddAnchor(volumes, TOP_LEFT, BOTTOM_RIGHT);
    sheet->AddPage(notesPage, "Notes", true);
    sheet->AddPage(volumesPage, "Volumes");

    help = new QorExtButton(this, wxID_HELP, "Help", wxPoint(kMargin, bottom - kButton.y), kButton);
    help->SetFlat(false);
    busy = new CQorExtLed(this, wxID_ANY, "Busy", RGB(255, 170, 0),
                          wxPoint(client.x / 2 - 30, bottom - kButton.y + 4), wxSize(60, 20));
    busy->SetBlinking(400, 400);
    cancel = new QorExtButton(this, wxID_CANCEL, "Cancel",
                              wxPoint(right - kButton.x, bottom - kButton.y), kButton);
    ok = new QorExtButton(this, wxID_OK, "OK", wxPoint(right - 2 * kButton.x - 8, bottom - kButton.y), kButton);
    ok->SetFlat(false);

    AddAnchor(heading, TOP_LEFT, TOP_RIGHT);
    AddAnchor(status, TOP_RIGHT);
    AddAnchor(sheet, TOP_LEFT, BOTTOM_RIGHT);
    AddAnchor(help, BOTTOM_LEFT);
    AddAnchor(busy, BOTTOM_CENTER);
    AddAnchor(ok, BOTTOM_RIGHT);
    AddAnchor(cancel, BOTTOM_RIGHT);
    CentreOnParent();
    EnableSaveRestore(stateKey, sheet);
}

}  // namespace qor::gallery
