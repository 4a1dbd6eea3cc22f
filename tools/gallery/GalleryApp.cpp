// qor-gallery: the library's controls in one window.
#include <wx/app.h>
#include <wx/cmdline.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/image.h>

#include <string>

#include "GalleryFrame.h"
#include "WidgetsPage.h"
#include "tools/WxMain.h"

namespace {

constexpr const char *kHelp =
    "usage: qor-gallery [--screenshot OUT.png]\n"
    "\n"
    "Shows the library's controls in one window, a page each:\n"
    "  Runs      the report grid over 100,000 generated protocol runs: sort by a\n"
    "            column's header, filter from the context menu, edit cells in\n"
    "            place; the status line tells what the grid's owner heard\n"
    "  Segments  segment displays: a running counter, a clock and a line of text\n"
    "            to type into, with the display styles to switch\n"
    "  Widgets   window layout and styled widgets: a resizable dialog that\n"
    "            remembers its placement, an MRU combo box, LEDs and number cells\n"
    "\n"
    "  --screenshot OUT.png  save the window's picture once it is drawn, and quit\n"
    "                        (exit status 1 when the picture can't be saved)\n";

class GalleryApp : public wxApp {
public:
    bool OnInit() override {
        if (!wxApp::OnInit()) return false;
        auto *frame = new qor::gallery::GalleryFrame(qor::gallery::MakeWidgetsPage);
        frame->Show();
        if (!screenshot_.empty()) frame->CallAfter([this, frame] { SaveScreenshot(frame); });
        return true;
    }

    void OnInitCmdLine(wxCmdLineParser &parser) override { parser.SetDesc(kOptions); }

    bool OnCmdLineParsed(wxCmdLineParser &parser) override {
        wxString screenshot;
        if (parser.Found("screenshot", &screenshot)) screenshot_ = screenshot.utf8_string();
        return true;
    }

    int OnRun() override {
        const int status = wxApp::OnRun();
        return failed_ ? 1 : status;
    }

private:
    // The window as it stands on the screen, read back through a device
    // context once the first paints have run.
    void SaveScreenshot(wxFrame *frame) {
        frame->Update();
        wxYield();
        const wxSize size = frame->GetClientSize();
        wxBitmap picture(size);
        {
            wxClientDC screen(frame);
            wxMemoryDC memory(picture);
            memory.Blit(0, 0, size.x, size.y, &screen, 0, 0);
        }
        if (!wxImage::FindHandler(wxBITMAP_TYPE_PNG)) wxImage::AddHandler(new wxPNGHandler);
        failed_ = !picture.IsOk() || !picture.ConvertToImage().SaveFile(wxString::FromUTF8(screenshot_), wxBITMAP_TYPE_PNG);
        frame->Close(true);
    }

    static constexpr wxCmdLineEntryDesc kOptions[] = {
        {wxCMD_LINE_OPTION, nullptr, "screenshot", "save the window's picture as a PNG file and quit",
         wxCMD_LINE_VAL_STRING, 0},
        {wxCMD_LINE_NONE, nullptr, nullptr, nullptr, wxCMD_LINE_VAL_NONE, 0},
    };
    std::string screenshot_;
    bool failed_ = false;
};

}  // namespace

wxIMPLEMENT_APP_NO_MAIN(GalleryApp);

int main(int argc, char **argv) { return qor::tools::WxMain(argc, argv, kHelp); }
