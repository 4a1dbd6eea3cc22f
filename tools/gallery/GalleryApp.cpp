// qor-gallery: the library's controls in one window.
#include <wx/app.h>
#include <wx/frame.h>
#include <wx/notebook.h>

#include "WidgetsPage.h"

namespace {

class GalleryApp : public wxApp {
public:
    bool OnInit() override {
        auto *frame = new wxFrame(nullptr, wxID_ANY, "Qor gallery", wxDefaultPosition, wxSize(900, 600));
        auto *pages = new wxNotebook(frame, wxID_ANY);
        pages->AddPage(qor::gallery::MakeWidgetsPage(pages), "Widgets");
        frame->Show();
        return true;
    }
};

}  // namespace

wxIMPLEMENT_APP(GalleryApp);
