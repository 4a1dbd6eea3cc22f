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

// The end of an edit, which comes once: the text back to the grid, or a
// close without writing; later ends do nothing.
class InPlaceEnd {
public:
    explicit InPlaceEnd(InPlaceCalls calls) : calls_(std::move(calls)) {}
    // text is read only when the edit is written.
    void End(bool write, const std::function<std::string()> &text);

protected:
    InPlaceCalls calls_;

private:
    bool ended_ = false;
};

// Each editor's Finish(write) ends it: on Return (Ctrl+Return where Return
// makes a new line), on Escape without writing, and when it loses the focus.
class CInPlaceEdit : public wxTextCtrl, private InPlaceEnd {
public:
    CInPlaceEdit(wxWindow *parent, const qor::InPlaceEditor &model, InPlaceCalls calls);
    bool IsMultiLine() const { return multiLine_; }
    void Finish(bool write);

private:
    bool multiLine_;
};

class CInPlaceComboBox : public wxComboBox, private InPlaceEnd {
public:
    CInPlaceComboBox(wxWindow *parent, const qor::InPlaceEditor &model, InPlaceCalls calls);
    void Finish(bool write);

private:
    bool dropped_ = false;
};

// A date, or a date and a time, in pickers side by side.
class CInPlaceDate : public wxPanel, private InPlaceEnd {
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
    wxDatePickerCtrl *date_;
    wxTimePickerCtrl *time_ = nullptr;
    bool showTime_;
};

// Pressing it tells the grid; it gives back the cell's own text.
class CInPlaceButton : public wxButton, private InPlaceEnd {
public:
    CInPlaceButton(wxWindow *parent, const qor::InPlaceEditor &model, InPlaceCalls calls);
    void Finish(bool write);

private:
    std::string caption_;
};

// Ends the editor, whichever it is, handing its text back at once.
void CommitInPlaceEditor(wxWindow *editor);

// Makes the editor the model describes, as a child of parent.
wxWindow *CreateInPlaceEditor(wxWindow *parent, const qor::InPlaceEditor &model, InPlaceCalls calls);

}  // namespace SuperReportCtrl2Inplace
