// Placeholder until the styled widgets arrive.
#include "WidgetsPage.h"

#include <wx/panel.h>
#include <wx/stattext.h>

namespace qor::gallery {

wxWindow *MakeWidgetsPage(wxWindow *parent) {
    auto *page = new wxPanel(parent);
    new wxStaticText(page, wxID_ANY, "Styled widgets");
    return page;
}

}  // namespace qor::gallery
