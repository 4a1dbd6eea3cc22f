// The gallery's window: the report grid over generated runs, the segment
// displays, and the page of styled widgets, in a notebook, with a status
// line that tells what the grid's owner heard. Built by qor-gallery and by
// the GUI tests.
#pragma once

#include <wx/frame.h>
#include <wx/notebook.h>

#include <functional>

#include "RunsPage.h"
#include "SegmentsPage.h"

namespace qor::gallery {

class GalleryFrame : public wxFrame {
public:
    using PageMaker = std::function<wxWindow *(wxWindow *parent)>;
    static constexpr int kRuns = 100000;

    // widgets makes the page of styled widgets; without it there is none.
    explicit GalleryFrame(PageMaker widgets = nullptr, int runs = kRuns)
        : wxFrame(nullptr, wxID_ANY, "Qor gallery", wxDefaultPosition, wxSize(1000, 640)) {
        CreateStatusBar(2);
        pages_ = new wxNotebook(this, wxID_ANY);
        runs_ = new RunsPage(pages_, runs);
        runs_->Owner().say = [this](const std::string &news) { SetStatusText(qor::wx::ToWx(news), 0); };
        runs_->Owner().shown = [this](const std::string &count) { SetStatusText(qor::wx::ToWx(count), 1); };
        segments_ = new SegmentsPage(pages_);
        pages_->AddPage(runs_, "Runs");
        pages_->AddPage(segments_, "Segments");
        if (widgets) pages_->AddPage(widgets(pages_), "Widgets");
        SetStatusText(wxString::Format("%d runs", runs), 1);
    }

    wxNotebook *Pages() const { return pages_; }
    RunsPage *Runs() const { return runs_; }
    SegmentsPage *Segments() const { return segments_; }

private:
    wxNotebook *pages_;
    RunsPage *runs_;
    SegmentsPage *segments_;
};

}  // namespace qor::gallery
