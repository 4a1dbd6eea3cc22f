// qor-gallery: the library's controls in one window.
#include <wx/app.h>

#include "GalleryFrame.h"
#include "WidgetsPage.h"

namespace {

class GalleryApp : public wxApp {
public:
    bool OnInit() override {
        auto *frame = new qor::gallery::GalleryFrame(qor::gallery::MakeWidgetsPage);
        frame->Show();
        return true;
    }
};

}  // namespace

wxIMPLEMENT_APP(GalleryApp);
