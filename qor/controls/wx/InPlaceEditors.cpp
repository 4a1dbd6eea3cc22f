#include "qor/controls/wx/InPlaceEditors.h"

#include <wx/datectrl.h>
#include <wx/dateevt.h>
#include <wx/sizer.h>
#include <wx/timectrl.h>

#include "qor/controls/wx/WxText.h"

namespace SuperReportCtrl2Inplace {
namespace {

wxRect CellRect(const qor::InPlaceEditor &model) {
    return wxRect(model.rect.left, model.rect.top, std::max(1, model.rect.Width()), std::max(1, model.rect.Height()));
}

wxFont EditorFont(const qor::InPlaceEditor &model) {
    return wxFont(wxFontInfo(model.pointSize / 10.0).FaceName(qor::wx::ToWx(model.fontFace)));
}

// Escape closes unwritten, Return writes (Ctrl+Return in a box of several
// lines, where Return makes a new line).
template <class Window>
void BindCloseKeys(Window *window, bool returnIsText, std::function<void(bool)> finish) {
    window->Bind(wxEVT_CHAR_HOOK, [window, returnIsText, finish](wxKeyEvent &event) {
        int key = event.GetKeyCode();
        if (key == WXK_ESCAPE) return finish(false);
        bool isReturn = key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
        if (isReturn && (!returnIsText || event.ControlDown())) return finish(true);
        event.Skip();
    });
}

}  // namespace

void InPlaceEnd::End(bool write, const std::function<std::string()> &text) {
    if (ended_) return;
    ended_ = true;
    if (write && calls_.commit) calls_.commit(text());
    else if (!write && calls_.cancel) calls_.cancel();
}

CInPlaceEdit::CInPlaceEdit(wxWindow *parent, const qor::InPlaceEditor &model, InPlaceCalls calls)
    : InPlaceEnd(std::move(calls)), multiLine_((model.style & 0x0004) != 0) {
    long style = multiLine_ ? wxTE_MULTILINE | wxTE_DONTWRAP : wxTE_PROCESS_ENTER;
    wxRect rect = CellRect(model);
    Create(parent, wxID_ANY, qor::wx::ToWx(model.text), rect.GetPosition(), rect.GetSize(), style);
    SetFont(EditorFont(model));
    BindCloseKeys(this, multiLine_, [this](bool write) { Finish(write); });
    Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent &event) {
        event.Skip();
        Finish(true);
    });
    SetFocus();
    SelectAll();
}

void CInPlaceEdit::Finish(bool write) {
    End(write, [this] { return qor::wx::FromWx(GetValue()); });
}

CInPlaceComboBox::CInPlaceComboBox(wxWindow *parent, const qor::InPlaceEditor &model, InPlaceCalls calls)
    : InPlaceEnd(std::move(calls)) {
    wxArrayString items;
    for (const std::string &item : model.items) items.Add(qor::wx::ToWx(item));
    wxRect rect = CellRect(model);
    rect.height = std::max(model.itemHeight + 1, 1);  // the list drops below the cell by itself
    Create(parent, wxID_ANY, qor::wx::ToWx(model.text), rect.GetPosition(), wxSize(rect.width, -1), items,
           wxCB_READONLY);
    SetFont(EditorFont(model));
    if (model.selected >= 0) SetSelection(model.selected);
    Bind(wxEVT_COMBOBOX, [this](wxCommandEvent &) { Finish(true); });
    Bind(wxEVT_COMBOBOX_DROPDOWN, [this](wxCommandEvent &) { dropped_ = true; });
    Bind(wxEVT_COMBOBOX_CLOSEUP, [this](wxCommandEvent &) { dropped_ = false; });
    BindCloseKeys(this, false, [this](bool write) { Finish(write); });
    Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent &event) {
        event.Skip();
        if (!dropped_) Finish(true);
    });
    SetFocus();
}

void CInPlaceComboBox::Finish(bool write) {
    End(write, [this] { return qor::wx::FromWx(GetValue()); });
}

CInPlaceDate::CInPlaceDate(wxWindow *parent, const qor::InPlaceEditor &model, InPlaceCalls calls)
    : InPlaceEnd(std::move(calls)), showTime_(model.showTime) {
    wxRect rect = CellRect(model);
    Create(parent, wxID_ANY, rect.GetPosition(), wxSize(std::max(rect.width, showTime_ ? 220 : 120), -1));
    auto *sizer = new wxBoxSizer(wxHORIZONTAL);
    date_ = new wxDatePickerCtrl(this, wxID_ANY, wxDefaultDateTime, wxDefaultPosition, wxDefaultSize,
                                 wxDP_DROPDOWN | wxDP_SHOWCENTURY);
    sizer->Add(date_, 1, wxEXPAND);
    if (showTime_) {
        time_ = new wxTimePickerCtrl(this, wxID_ANY);
        sizer->Add(time_, 1, wxEXPAND);
    }
    SetSizerAndFit(sizer);
    SetSize(wxSize(std::max(rect.width, GetSize().x), GetSize().y));
    SetFont(EditorFont(model));
    SetTime(model.time);
    BindCloseKeys(this, false, [this](bool write) { Finish(write); });
    WatchFocus(this);
    date_->SetFocus();
}

void CInPlaceDate::WatchFocus(wxWindow *window) {
    // Focus moves among the pickers' parts and their calendar; the edit ends
    // when it has left all of them.
    window->Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent &event) {
        event.Skip();
        CallAfter([this] {
            if (!HasFocusWithin()) Finish(true);
        });
    });
    for (wxWindow *child : window->GetChildren()) WatchFocus(child);
}

bool CInPlaceDate::HasFocusWithin() const {
    for (wxWindow *w = wxWindow::FindFocus(); w; w = w->GetParent())
        if (w == this) return true;
    return false;
}

std::int64_t CInPlaceDate::GetTime() const {
    wxDateTime day = date_->GetValue();
    if (!day.IsValid()) return 0;
    if (time_) {
        int h = 0, m = 0, s = 0;
        time_->GetTime(&h, &m, &s);
        day.SetHour(h).SetMinute(m).SetSecond(s);
    } else {
        day.ResetTime();
    }
    return static_cast<std::int64_t>(day.GetValue().GetValue() / 1000);
}

void CInPlaceDate::SetTime(std::int64_t time) {
    wxDateTime value(static_cast<wxLongLong>(time * 1000));
    date_->SetValue(value);
    if (time_) time_->SetValue(value);
}

void CInPlaceDate::Finish(bool write, bool now) {
    auto end = [this, write] { End(write, [this] { return qor::FormatInPlaceTime(GetTime(), showTime_); }); };
    if (now)
        end();
    else
        CallAfter(end);  // posted: it does nothing if the edit has ended meanwhile
}

CInPlaceButton::CInPlaceButton(wxWindow *parent, const qor::InPlaceEditor &model, InPlaceCalls calls)
    : InPlaceEnd(std::move(calls)) {
    wxRect rect = CellRect(model);
    Create(parent, wxID_ANY, qor::wx::ToWx(model.text), rect.GetPosition(), rect.GetSize());
    caption_ = model.text;
    SetFont(EditorFont(model));
    Bind(wxEVT_BUTTON, [this](wxCommandEvent &) {
        if (calls_.button) calls_.button();
    });
    Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent &event) {
        event.Skip();
        Finish(true);
    });
    SetFocus();
}

void CInPlaceButton::Finish(bool write) {
    End(write, [this] { return caption_; });  // the cell's own text: nothing is written
}

void CommitInPlaceEditor(wxWindow *editor) {
    if (auto *edit = dynamic_cast<CInPlaceEdit *>(editor)) edit->Finish(true);
    if (auto *combo = dynamic_cast<CInPlaceComboBox *>(editor)) combo->Finish(true);
    if (auto *date = dynamic_cast<CInPlaceDate *>(editor)) date->Finish(true, true);
    if (auto *button = dynamic_cast<CInPlaceButton *>(editor)) button->Finish(true);
}

wxWindow *CreateInPlaceEditor(wxWindow *parent, const qor::InPlaceEditor &model, InPlaceCalls calls) {
    using Kind = qor::InPlaceEditor::Kind;
    switch (model.kind) {
    case Kind::Edit:
        return new CInPlaceEdit(parent, model, std::move(calls));
    case Kind::ComboBox:
        return new CInPlaceComboBox(parent, model, std::move(calls));
    case Kind::Date:
        return new CInPlaceDate(parent, model, std::move(calls));
    case Kind::Button:
        return new CInPlaceButton(parent, model, std::move(calls));
    }
    return nullptr;
}

}  // namespace SuperReportCtrl2Inplace
