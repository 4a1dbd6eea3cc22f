// The gallery's segment displays: a counter that runs, a clock, and a line
// of text to type into, with the display styles to switch.
#pragma once

#include <wx/checkbox.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/timer.h>

#include <ctime>

#include "qor/controls/wx/DigistringCtrl.h"
#include "qor/controls/wx/WxText.h"

namespace qor::gallery {

class SegmentsPage : public wxPanel {
public:
    explicit SegmentsPage(wxWindow *parent) : wxPanel(parent), timer_(this) {
        auto *sizer = new wxBoxSizer(wxVERTICAL);
        counter_ = AddDisplay(sizer, "Counter", 2);
        clock_ = AddDisplay(sizer, "Clock", 2);
        text_ = AddDisplay(sizer, "Text", 2);
        text_->Digits().SetText("QOR 14-SEG *+*");
        text_->Digits().SetColor(RGB(0x30, 0x30, 0x30), RGB(0xFF, 0xA0, 0x20));
        text_->Digits().SetBackColor(RGB(0x10, 0x10, 0x10));

        auto *entry = new wxTextCtrl(this, wxID_ANY, "QOR 14-SEG *+*");
        entry->Bind(wxEVT_TEXT, [this, entry](wxCommandEvent &) { text_->Digits().SetText(qor::wx::FromWx(entry->GetValue()).c_str()); });
        sizer->Add(entry, 0, wxEXPAND | wxALL, 4);

        auto *styles = new wxBoxSizer(wxHORIZONTAL);
        AddStyle(styles, "Smooth", CDigistring::DS_SMOOTH);
        AddStyle(styles, "Fourteen-segment digits", CDigistring::DS_STYLE14);
        AddStyle(styles, "Keep aspect", CDigistring::DS_SZ_PROP);
        sizer->Add(styles, 0, wxALL, 4);
        SetSizer(sizer);

        Bind(wxEVT_TIMER, [this](wxTimerEvent &) { Tick(); });
        Tick();
        timer_.Start(100);
    }

    qor::DigistringCtrl *Counter() const { return counter_; }
    qor::DigistringCtrl *Text() const { return text_; }
    long Count() const { return count_; }
    // One step of the counter and the clock; the timer calls it ten times a second.
    void Tick() {
        counter_->Digits().Format("%08ld", count_++);
        std::time_t now = std::time(nullptr);
        std::tm local{};
        localtime_r(&now, &local);
        clock_->Digits().Format("%02d:%02d:%02d", local.tm_hour, local.tm_min, local.tm_sec);
    }

private:
    qor::DigistringCtrl *AddDisplay(wxSizer *sizer, const char *label, int proportion) {
        sizer->Add(new wxStaticText(this, wxID_ANY, label), 0, wxLEFT | wxTOP, 4);
        auto *display = new qor::DigistringCtrl(this, wxID_ANY, wxDefaultPosition, wxSize(400, 60));
        sizer->Add(display, proportion, wxEXPAND | wxALL, 4);
        displays_.push_back(display);
        return display;
    }
    void AddStyle(wxSizer *sizer, const char *label, unsigned long bit) {
        auto *box = new wxCheckBox(this, wxID_ANY, label);
        box->SetValue(counter_->Digits().GetDigiStyle() & bit);
        box->Bind(wxEVT_CHECKBOX, [this, bit](wxCommandEvent &event) {
            for (qor::DigistringCtrl *d : displays_)
                d->Digits().ModifyDigiStyle(event.IsChecked() ? 0 : bit, event.IsChecked() ? bit : 0);
        });
        sizer->Add(box, 0, wxRIGHT, 12);
    }

    wxTimer timer_;
    long count_ = 0;
    std::vector<qor::DigistringCtrl *> displays_;
    qor::DigistringCtrl *counter_, *clock_, *text_;
};

}  // namespace qor::gallery
