#include "qor/controls/wx/ResizableDialog.h"

#include <wx/bookctrl.h>

#include "qor/controls/wx/ResizableGripWindow.h"

CResizableDialog::CResizableDialog() { Init(); }

CResizableDialog::CResizableDialog(wxWindow *parent, wxWindowID id, const wxString &title,
                                   const wxPoint &pos, const wxSize &size, long style,
                                   const wxString &name) {
    Init();
    Create(parent, id, title, pos, size, style, name);
}

bool CResizableDialog::Create(wxWindow *parent, wxWindowID id, const wxString &title,
                              const wxPoint &pos, const wxSize &size, long style,
                              const wxString &name) {
    return wxDialog::Create(parent, id, title, pos, size, style, name);
}

void CResizableDialog::Init() {
    Bind(wxEVT_SHOW, &CResizableDialog::OnShow, this);
    Bind(wxEVT_SIZE, &CResizableDialog::OnSizeOrMove, this);
    Bind(wxEVT_MOVE, &CResizableDialog::OnSizeOrMove, this);
}

CResizableDialog::~CResizableDialog() {
    if (everShown) SaveState();
    // The children outlive this part of the object: nothing of theirs may
    // call back into it.
    if (sheet) sheet->Unbind(wxEVT_DESTROY, &CResizableDialog::OnSheetDestroyed, this);
    delete gripWindow;
}

void CResizableDialog::ShowSizeGrip(bool show) {
    grip.ShowSizeGrip(show);
    if (gripWindow) gripWindow->UpdateGrip();
}

void CResizableDialog::SetMinTrackSize(CSize size) {
    minMax.SetMinTrackSize(size);
    ApplyLimits();
}

void CResizableDialog::SetMaxTrackSize(CSize size) {
    minMax.SetMaxTrackSize(size);
    ApplyLimits();
}

void CResizableDialog::ResetMinTrackSize() {
    minMax.ResetMinTrackSize();
    ApplyLimits();
}

void CResizableDialog::ResetMaxTrackSize() {
    minMax.ResetMaxTrackSize();
    ApplyLimits();
}

void CResizableDialog::ApplyLimits() {
    // The window manager enforces the same limits on its own resizing.
    const CSize low = minMax.GetMinTrackSize().value_or(CSize());
    const CSize high = minMax.GetMaxTrackSize().value_or(CSize());
    const auto hint = [](int extent) { return extent > 0 ? extent : wxDefaultCoord; };
    SetSizeHints(wxSize(hint(low.cx), hint(low.cy)), wxSize(hint(high.cx), hint(high.cy)));
}

void CResizableDialog::ApplyDefaultMinimum() {
    if (minMax.GetMinTrackSize()) return;
    const wxSize size = GetSize();
    SetMinTrackSize({size.x, size.y});
}

void CResizableDialog::TrackPlacement() {
    maximized = IsMaximized();
    grip.SetMaximized(maximized);
    if (gripWindow) gripWindow->UpdateGrip();
    if (!maximized && !IsIconized()) {
        const wxRect r = GetRect();
        normal = CRect(r.x, r.y, r.x + r.width, r.y + r.height);
    }
}

void CResizableDialog::OnSizeOrMove(wxEvent &event) {
    // A hidden dialog's geometry is the toolkit's business, not the user's.
    if (IsShown()) TrackPlacement();
    event.Skip();
}

void CResizableDialog::OnSheetDestroyed(wxWindowDestroyEvent &event) {
    if (event.GetWindow() == sheet) sheet = nullptr;
    event.Skip();
}

void CResizableDialog::OnShow(wxShowEvent &event) {
    event.Skip();
    if (!event.IsShown()) {
        SaveState();
        return;
    }
    if (!everShown) {
        everShown = true;
        ApplyDefaultMinimum();
        // Made last, so that it lies above the controls in its corner.
        if (!gripWindow) gripWindow = new qor::ResizableGripWindow(this, grip, minMax);
    }
    TrackPlacement();
}

bool CResizableDialog::EnableSaveRestore(const std::string &key, wxBookCtrlBase *book, HKEY root) {
    state = std::make_unique<CResizableState>(key, root);
    if (sheet) sheet->Unbind(wxEVT_DESTROY, &CResizableDialog::OnSheetDestroyed, this);
    sheet = book;
    if (sheet) sheet->Bind(wxEVT_DESTROY, &CResizableDialog::OnSheetDestroyed, this);
    ApplyDefaultMinimum();
    int page = 0;
    if (sheet && state->LoadActivePage(page) && static_cast<size_t>(page) < sheet->GetPageCount())
        sheet->SetSelection(page);
    qor::WindowPlacement placement;
    if (!state->LoadPlacement(placement)) {
        TrackPlacement();
        return false;
    }
    placement = qor::FitPlacement(placement, CResizableState::ScreenWorkAreas());
    const CRect &r = placement.normal;
    const CSize size = minMax.ClampTrackSize(r.Size());
    SetSize(r.left, r.top, size.cx, size.cy, wxSIZE_ALLOW_MINUS_ONE);
    normal = CRect(r.left, r.top, r.left + size.cx, r.top + size.cy);
    if (placement.maximized) Maximize();
    maximized = placement.maximized;
    return true;
}

qor::WindowPlacement CResizableDialog::GetPlacement() const { return {normal, maximized}; }

bool CResizableDialog::SaveState() const {
    if (!state || normal.IsRectEmpty()) return false;
    bool saved = state->SavePlacement(GetPlacement());
    if (sheet && sheet->GetSelection() != wxNOT_FOUND)
        saved = state->SaveActivePage(sheet->GetSelection()) && saved;
    return saved;
}
