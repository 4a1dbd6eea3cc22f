// qor-view FILE...: a desktop viewer for models of the 3-D view, on the
// library's own view classes: turn, pan, zoom, pick a part, saved views.
#include <wx/app.h>
#include <wx/cmdline.h>

#include <vector>

#include "ViewerFrame.h"
#include "tools/WxMain.h"

namespace {

constexpr const char *kHelp =
    "usage: qor-view [--screenshot OUT.png] [FILE...]\n"
    "\n"
    "Shows models of the 3-D view in a window: VRML (.wrl), the binary format\n"
    "(.bin) and assemblies (.xml, parts placed by their mates), each FILE in turn.\n"
    "Drag with the mouse buttons to turn, pan and zoom the view, or use the wheel;\n"
    "a click picks a part and shows its name in the status bar; the Views menu\n"
    "saves the current view and brings saved ones back. File > Open loads more.\n"
    "\n"
    "  --screenshot OUT.png  save the window's picture once it is drawn, and quit\n";

class ViewerApp : public wxApp {
public:
    bool OnInit() override {
        if (!wxApp::OnInit()) return false;
        (new qor::viewer::ViewerFrame(files_, screenshot_))->Show();
        return true;
    }

    void OnInitCmdLine(wxCmdLineParser &parser) override {
        parser.SetDesc(kDescription);
        parser.SetLogo("qor-view: models (.wrl, .bin) and assemblies (.xml) of the 3-D view");
    }

    bool OnCmdLineParsed(wxCmdLineParser &parser) override {
        for (std::size_t i = 0; i < parser.GetParamCount(); ++i) files_.push_back(parser.GetParam(i).utf8_string());
        wxString screenshot;
        if (parser.Found("screenshot", &screenshot)) screenshot_ = screenshot.utf8_string();
        return true;
    }

private:
    static constexpr wxCmdLineEntryDesc kDescription[] = {
        {wxCMD_LINE_OPTION, nullptr, "screenshot", "save the window's picture as a PNG file and quit",
         wxCMD_LINE_VAL_STRING, 0},
        {wxCMD_LINE_PARAM, nullptr, nullptr, "FILE", wxCMD_LINE_VAL_STRING,
         wxCMD_LINE_PARAM_OPTIONAL | wxCMD_LINE_PARAM_MULTIPLE},
        {wxCMD_LINE_NONE, nullptr, nullptr, nullptr, wxCMD_LINE_VAL_NONE, 0},
    };
    std::vector<std::string> files_;
    std::string screenshot_;
};

}  // namespace

wxIMPLEMENT_APP_NO_MAIN(ViewerApp);

int main(int argc, char **argv) { return qor::tools::WxMain(argc, argv, kHelp); }
