#include "ViewerFrame.h"

#include <wx/filedlg.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/statusbr.h>
#include <wx/textdlg.h>

#include "ViewerModel.h"
#include "qor/view3d/ModelFiles.h"
#include "qor/view3d/Png.h"

namespace qor::viewer {
namespace {

constexpr int kFirstViewId = wxID_HIGHEST + 100;
// What the buttons and the wheel do: left turns, middle pans, right and the wheel zoom.
constexpr int kRotate = 1, kPan = 3, kZoom = 4;
// Ids of the parts of the n-th file start at n times this.
constexpr int kIdsPerFile = 1000;
const char kSceneRoot[] = " scene";

}  // namespace

ViewerFrame::ViewerFrame(std::vector<std::string> files, std::string screenshot)
    : wxFrame(nullptr, wxID_ANY, "qor-view", wxDefaultPosition, wxSize(900, 700)) {
    auto *fileMenu = new wxMenu;
    fileMenu->Append(wxID_OPEN, "&Open...\tCtrl+O");
    fileMenu->AppendSeparator();
    fileMenu->Append(wxID_EXIT, "&Quit\tCtrl+Q");
    viewsMenu_ = new wxMenu;
    viewsMenu_->Append(wxID_SAVE, "&Save current view...\tCtrl+S");
    viewsMenu_->AppendSeparator();
    auto *bar = new wxMenuBar;
    bar->Append(fileMenu, "&File");
    bar->Append(viewsMenu_, "&Views");
    SetMenuBar(bar);
    CreateStatusBar();
    SetStatusText("Left drag turns, middle drag pans, right drag and the wheel zoom; click a part to pick it");

    canvas_ = new qor::wx::ModelCanvas(this, std::make_unique<ViewerModel>());
    QorOpenGlModel &view = canvas_->View();
    view.leftButton.function = kRotate;
    view.middleButton.function = kPan;
    view.rightButton.function = kZoom;
    view.wheelFunction = kZoom;
    canvas_->SetPickHandler([this](int id) { OnPick(id); });

    Bind(wxEVT_MENU, [this](wxCommandEvent &) { OnOpen(); }, wxID_OPEN);
    Bind(wxEVT_MENU, [this](wxCommandEvent &) { Close(); }, wxID_EXIT);
    Bind(wxEVT_MENU, [this](wxCommandEvent &) { OnSaveView(); }, wxID_SAVE);
    Bind(wxEVT_MENU, [this](wxCommandEvent &event) {
        const std::size_t index = static_cast<std::size_t>(event.GetId() - kFirstViewId);
        if (index < viewNames_.size()) canvas_->View().SelView(viewNames_[index]);
    }, kFirstViewId, kFirstViewId + 999);
    // The context needs the window on screen: load once the loop runs.
    CallAfter([this, files = std::move(files), screenshot = std::move(screenshot)] {
        Load(files);
        if (!screenshot.empty()) SaveScreenshot(screenshot);
    });
}

void ViewerFrame::AddViewItem(const std::string &name) {
    if (viewNames_.size() >= 1000) return;
    viewsMenu_->Append(kFirstViewId + static_cast<int>(viewNames_.size()), wxString::FromUTF8(name));
    viewNames_.push_back(name);
}

void ViewerFrame::Load(const std::vector<std::string> &files) {
    if (!canvas_->InitView()) {
        wxMessageBox("No OpenGL context could be made for the view.", "qor-view", wxICON_ERROR, this);
        return;
    }
    QorOpenGlModel &view = canvas_->View();
    view.DeleteModels();
    std::vector<std::string> roots;
    for (std::size_t i = 0; i < files.size(); ++i) {
        std::string error;
        if (!qor::LoadAssembly(view, files[i], error, static_cast<int>(i) * kIdsPerFile)) {
            wxMessageBox(wxString::FromUTF8(error), "qor-view", wxICON_ERROR, this);
            continue;
        }
        roots.push_back(view.rootModelName);
    }
    if (roots.size() > 1) {
        // Side by side along x under an empty root.
        view.StoreModel(kSceneRoot, std::make_unique<VRMLModel>(kSceneRoot, 0.0f, 0));
        float cursor = 0;
        for (const std::string &root : roots) {
            const qor::Bounds b = qor::PlacedBounds(view.GetModel(root));
            if (b.Empty()) continue;
            view.AddMate(kSceneRoot, root, 0, cursor - b.min.x, 0, 0);
            cursor += (b.max.x - b.min.x) * 1.2f;
        }
        view.rootModelName = kSceneRoot;
    } else if (roots.empty()) {
        view.rootModelName.clear();
    }
    // The named views, each framing the whole model.
    const qor::Bounds bounds =
        view.HasModel(view.rootModelName) ? qor::PlacedBounds(view.GetModel(view.rootModelName)) : qor::Bounds{};
    for (const qor::NamedView &named : qor::kNamedViews) {
        CScene scene;
        scene.Set(qor::FitScene(bounds, named.turnX, named.turnY));
        if (view.GetViews().count(named.name) == 0) AddViewItem(named.name);
        view.AddView(named.name, {CCamera(), scene});
        view.ModView(named.name, {CCamera(), scene});
    }
    view.SelView("iso");
    SetTitle(files.empty() ? wxString("qor-view") : "qor-view: " + wxString::FromUTF8(files.front()));
}

void ViewerFrame::OnOpen() {
    wxFileDialog dialog(this, "Open a model", "", "", "Models (*.wrl;*.bin;*.xml)|*.wrl;*.bin;*.xml|All files|*",
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST | wxFD_MULTIPLE);
    if (dialog.ShowModal() != wxID_OK) return;
    wxArrayString paths;
    dialog.GetPaths(paths);
    std::vector<std::string> files;
    for (const wxString &p : paths) files.push_back(p.utf8_string());
    Load(files);
}

void ViewerFrame::OnSaveView() {
    const wxString name = wxGetTextFromUser("Name of the view:", "Save view", "", this);
    if (name.empty()) return;
    const std::string key = name.utf8_string();
    QorOpenGlModel &view = canvas_->View();
    if (view.GetViews().count(key)) view.ModView(key, view.CurrentView());
    else {
        view.AddView(key, view.CurrentView());
        AddViewItem(key);
    }
}

void ViewerFrame::SaveScreenshot(const std::string &path) {
    int width = 0, height = 0;
    const auto pixels = canvas_->Snapshot(width, height);
    if (!canvas_->IsReady() || !qor::WritePng(path, pixels, width, height)) wxExit();
    Close();
}

void ViewerFrame::OnPick(int id) {
    for (const auto &[name, model] : canvas_->View().GetModels()) {
        if (model && id != 0 && model->GetModelId() == id) {
            SetStatusText("Picked: " + wxString::FromUTF8(name));
            return;
        }
    }
    SetStatusText("Picked: nothing");
}

}  // namespace qor::viewer
