// A dialog whose controls follow anchors when it is resized, with a size
// grip, size limits, and a placement remembered between runs.
#pragma once

#include <wx/dialog.h>

#include <memory>
#include <string>

#include "qor/controls/layout/ResizableGrip.h"
#include "qor/controls/layout/ResizableMinMax.h"
#include "qor/controls/layout/WindowPlacement.h"
#include "qor/controls/wx/ResizableState.h"
#include "qor/controls/wx/ResizableWindow.h"

class wxBookCtrlBase;
namespace qor {
class ResizableGripWindow;
}

// Use it like a wxDialog: make the controls in their designed places at the
// dialog's designed size, anchor them (AddAnchor), then call
// EnableSaveRestore with a registry key of the program's choosing. The
// dialog then opens where the user last left it, brought onto today's
// screens (see qor::FitPlacement), maximised if it was, and on the sheet
// page that was active; it saves all that whenever it is hidden (closed,
// ended) and when it is destroyed.
//
// Until SetMinTrackSize is called the dialog cannot be made smaller than
// the size it had when first shown or restored, so its controls never
// overlap. The size grip shows in the bottom-right corner unless hidden or
// the dialog is maximised.
class CResizableDialog : public qor::ResizableWindow<wxDialog> {
public:
    static constexpr long kDefaultStyle = wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER;

    CResizableDialog();
    CResizableDialog(wxWindow *parent, wxWindowID id, const wxString &title,
                     const wxPoint &pos = wxDefaultPosition, const wxSize &size = wxDefaultSize,
                     long style = kDefaultStyle, const wxString &name = wxASCII_STR(wxDialogNameStr));
    bool Create(wxWindow *parent, wxWindowID id, const wxString &title,
                const wxPoint &pos = wxDefaultPosition, const wxSize &size = wxDefaultSize,
                long style = kDefaultStyle, const wxString &name = wxASCII_STR(wxDialogNameStr));
    ~CResizableDialog() override;

    void ShowSizeGrip(bool show);
    bool IsSizeGripVisible() const { return grip.IsSizeGripVisible(); }

    // Limits of the dialog's outer size (see CResizableMinMax).
    void SetMinTrackSize(CSize size);
    void SetMaxTrackSize(CSize size);
    void ResetMinTrackSize();
    void ResetMaxTrackSize();
    const CResizableMinMax &GetMinMax() const { return minMax; }

    // Restores the state saved under `key` (below `root`) now, and saves it
    // there from now on; `sheet`, when given, is the book whose active page
    // is remembered too. True when a placement was restored.
    bool EnableSaveRestore(const std::string &key, wxBookCtrlBase *sheet = nullptr,
                           HKEY root = HKEY_CURRENT_USER);
    // Saves now (it happens by itself on hiding and destruction); false
    // without a key or when the store refused.
    bool SaveState() const;
    // What SaveState would save: the last normal placement and whether the
    // dialog is maximised.
    qor::WindowPlacement GetPlacement() const;

private:
    void Init();
    void ApplyDefaultMinimum();
    void ApplyLimits();
    void TrackPlacement();
    void OnShow(wxShowEvent &event);
    void OnSizeOrMove(wxEvent &event);
    void OnSheetDestroyed(wxWindowDestroyEvent &event);

    CResizableMinMax minMax;
    CResizableGrip grip;
    qor::ResizableGripWindow *gripWindow = nullptr;
    std::unique_ptr<CResizableState> state;
    wxBookCtrlBase *sheet = nullptr;
    CRect normal;
    bool maximized = false;
    bool everShown = false;
};
