// The windows of the grid's in-place editors, each made over one cell from
// the grid's editor model. An editor hands its text back through its
// commit call when it loses the focus or on Return, and closes without
// writing on Escape; the grid then asks the list to remove it.
#pragma once

#include <wx/button.h>
#include <wx/combobox.h>
#include <wx/panel.h>
#include <wx/textctrl.h>

#include <functional>
#include <string>

#include "qor/controls/report/ReportTypes.h"

class wxDatePickerCtrl;
class wxTimePickerCtrl;

namespace SuperReportCtrl2Inplace {

// What an editor calls when it is done.
struct InPlaceCalls {
    std::function<void(const std::string &)> commit;  // the text goes back to the grid
    std::function<void()> cancel;                     // closes without writing
    std::function<void()> button;                     // the button was pressed
};

// Each editor's Finish(write) ends it once: with its text back to the grid,
// or without writing; later calls do nothing.
class CInPlaceEdit : public wxTextCtrl {
public:
    CInPlaceEdit(wxWindow *parent, const qor::InPlaceEditor &model, InPlaceCalls calls);
    bool IsMultiLine() const { return multiLine_; }
    void Finish(bool write);

private:
    InPlaceCalls calls_;
    bool multiLine_;
    bool done_ = false;
};

class CInPlaceComboBox : public wxComboBox {
public:
    CInPlaceComboBox(wxWindow *parent, const qor::InPlaceEditor &model, InPlaceCalls calls);
    void Finish(bool write);

private:
    InPlaceCalls calls_;
    bool dropped_ = false;
    bool done_ = false;
};

// A date, or a date and a time, in pickers side by side.
class CInPlaceDate : public wxPanel {
public:
    CInPlaceDate(wxWindow *parent, const qor::InPlaceEditor &model, InPlaceCalls calls);
    std::int64_t GetTime() const;
    void SetTime(std::int64_t time);
    // The text is posted, so it arrives after the event that ended the edit;
    // with now, it is given at once.
    void Finish(bool write, bool now = false);

private:
    void WatchFocus(wxWindow *window);
    bool HasFocusWithin() const;
    InPlaceCalls calls_;
    wxDatePickerCtrl *date_;
    wxTimePickerCtrl *time_ = nullptr;
    bool showTime_;
    bool done_ = false;
};

class CInPlaceButton : public wxButton {
public:
    CInPlaceButton(wxWindow *parent, const qor::InPlaceEditor &model, InPlaceCalls calls);
    void Finish(bool write);

private:
    InPlaceCalls calls_;
    std::string caption_;
    bool done_ = false;
};

// Ends the editor, whichever it is, handing its text back at once.
void CommitInPlaceEditor(wxWindow *editor);

// Makes the editor the model describes, as a child of parent.
wxWindow *CreateInPlaceEditor(wxWindow *parent, const qor::InPlaceEditor &model, InPlaceCalls calls);

}  // namespace SuperReportCtrl2Inplace
