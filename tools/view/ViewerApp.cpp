// qor-view FILE...: a desktop viewer for models of the 3-D view, on the
// library's own view classes: turn, pan, zoom, pick a part, saved views.
#include <wx/app.h>
#include <wx/cmdline.h>

#include <vector>

#include "ViewerFrame.h"

namespace {

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
        {wxCMD_LINE_SWITCH, "h", "help", "show this help", wxCMD_LINE_VAL_NONE, wxCMD_LINE_OPTION_HELP},
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

wxIMPLEMENT_APP(ViewerApp);
