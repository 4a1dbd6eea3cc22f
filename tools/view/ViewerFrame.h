// The main window of qor-view: one model view, its saved views in a menu,
// and the picked part's name in the status bar.
#pragma once

#include <wx/frame.h>

#include <string>
#include <vector>

#include "qor/view3d/wx/ModelCanvas.h"

namespace qor::viewer {

class ViewerFrame : public wxFrame {
public:
    // With a screenshot path, saves the first frame there as a PNG and closes.
    ViewerFrame(std::vector<std::string> files, std::string screenshot);

private:
    // Loads the files given (after the window is on screen, which the
    // context needs); several files stand side by side under one root.
    void Load(const std::vector<std::string> &files);
    void AddViewItem(const std::string &name);
    void OnOpen();
    void OnSaveView();
    void OnPick(int id);
    void SaveScreenshot(const std::string &path);

    qor::wx::ModelCanvas *canvas_;
    wxMenu *viewsMenu_;
    std::vector<std::string> viewNames_;
};

}  // namespace qor::viewer
