// The gallery's grid: a generated table of protocol runs, one column for
// each kind of cell (numbers, texts, times, and every in-place editor), and
// the owner that answers the grid.
#pragma once

#include <wx/panel.h>
#include <wx/sizer.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "qor/controls/wx/ReportListCtrl.h"

namespace qor::gallery {

struct RunColumn {
    const char *name;
    InPlaceType type;
    bool numeric, time, multiLine;
    int width;
};

inline constexpr RunColumn kRunColumns[] = {
    {"Run", InPlaceReadOnly, true, false, false, 90},          {"Protocol", InPlaceEdit, false, false, false, 140},
    {"Instrument", InPlaceComboBox, false, false, false, 100}, {"Status", InPlaceComboBox, false, false, false, 80},
    {"Started", InPlaceDateTime, false, true, false, 150},     {"Due", InPlaceDate, false, true, false, 100},
    {"Plates", InPlaceEdit, true, false, false, 60},           {"Notes", InPlaceEdit, false, false, true, 150},
    {"Report", InPlaceButton, false, false, false, 70},        {"Operator", InPlaceOwnerAction, false, false, false, 80},
};

inline const std::vector<std::string> kInstruments = {"Reader 1", "Reader 2", "Washer", "Pipettor A", "Pipettor B",
                                                      "Incubator", "Sealer"};
inline const std::vector<std::string> kStatuses = {"Done", "Failed", "Running", "Queued", "Aborted"};
inline const std::vector<std::string> kOperators = {"Ada", "Bo", "Cy", "Dee"};
inline const char *const kProtocols[] = {"ELISA", "Cell viability", "Plate wash", "Serial dilution", "Normalise",
                                         "Cherry pick", "Reformat"};

// "YYYY-MM-DD HH:MM:SS" (or just the date) in local time, and back.
inline std::string FormatTime(std::int64_t t, bool withTime) { return qor::FormatInPlaceTime(t, withTime); }
inline std::int64_t ParseTime(const std::string &text) {
    std::tm tm{};
    int n = std::sscanf(text.c_str(), "%d-%d-%d %d:%d:%d", &tm.tm_year, &tm.tm_mon, &tm.tm_mday, &tm.tm_hour,
                        &tm.tm_min, &tm.tm_sec);
    if (n < 3) return 0;
    tm.tm_year -= 1900, tm.tm_mon -= 1, tm.tm_isdst = -1;
    return static_cast<std::int64_t>(std::mktime(&tm));
}

// The same runs every time, so the tests know what to find.
inline std::vector<CSuperReportCtrl2::KeysAndData> MakeRuns(int count) {
    std::mt19937 random(14);
    std::vector<CSuperReportCtrl2::KeysAndData> runs;
    runs.reserve(count);
    const std::int64_t start = 1700000000;
    for (int i = 0; i < count; ++i) {
        std::int64_t started = start + static_cast<std::int64_t>(random() % (400 * 86400));
        auto &run = runs.emplace_back();
        run.key = 1000000 + i;
        run.data = {{"Run", std::to_string(100000 + (i * 7919) % count)},
                    {"Protocol", std::string(kProtocols[random() % 7]) + " " + std::to_string(1 + random() % 40)},
                    {"Instrument", kInstruments[random() % kInstruments.size()]},
                    {"Status", kStatuses[random() % kStatuses.size()]},
                    {"Started", FormatTime(started, true)},
                    {"Due", FormatTime(started + static_cast<std::int64_t>(random() % (30 * 86400)), false)},
                    {"Plates", std::to_string(1 + random() % 96)},
                    {"Notes", random() % 5 ? "" : "checked by hand\nsee the log"},
                    {"Report", "Open"},
                    {"Operator", kOperators[random() % kOperators.size()]}};
    }
    return runs;
}

// The grid's owner: lists for the combo boxes, times from the cells, and a
// line of news for each thing the user did.
class RunsOwner : public qor::ReportContainer {
public:
    std::function<void(const std::string &)> say = [](const std::string &) {};    // what happened
    std::function<void(const std::string &)> shown = [](const std::string &) {};  // how many rows show
    CSuperReportCtrl2 *grid = nullptr;

    std::vector<std::string> GetComboValues(int, int column) override {
        std::string heading = grid ? grid->getHeader(column) : std::string();
        return heading == "Instrument" ? kInstruments : heading == "Status" ? kStatuses : std::vector<std::string>{};
    }
    std::int64_t GetCellTime(int row, int column) override {
        return grid ? ParseTime(grid->getCellText(row, column)) : 0;
    }
    void OnSorted(const std::string &text) override { say("Sorted by " + text); }
    void OnViewChanged(CSuperReportCtrl2 *control) override {
        shown(std::to_string(control->getNumberOfRows()) + " runs shown");
    }
    void OnCellEdited(std::int64_t key, const std::string &before, const std::string &after) override {
        say("Run " + std::to_string(key) + ": \"" + before + "\" became \"" + after + "\"");
    }
    void OnCellCommitted(std::int64_t key) override { say("Run " + std::to_string(key) + " edited"); }
    void OnInPlaceButton(const std::string &text, int row, int) override {
        say("Report of run " + (grid ? grid->getCellData(row, 0) : std::string()) + " (" + text + ")");
    }
    void OnCellAction(int row, int column) override {
        if (!grid) return;
        std::string current = grid->getRealCellData(row, column);
        auto it = std::find(kOperators.begin(), kOperators.end(), current);
        std::string next = it == kOperators.end() || it + 1 == kOperators.end() ? kOperators[0] : *(it + 1);
        grid->updateCell(row, column, next, true);
        grid->refresh();
    }
};

// The page: the grid over count runs.
class RunsPage : public wxPanel {
public:
    RunsPage(wxWindow *parent, int count) : wxPanel(parent) {
        list_ = new qor::ReportListCtrl(this, &owner_, true);
        owner_.grid = &list_->Grid();
        CSuperReportCtrl2 &grid = list_->Grid();
        for (const RunColumn &c : kRunColumns) {
            grid.insertHeader(c.name, c.type, c.numeric, c.time, c.multiLine);
            grid.SetColumnWidth(grid.getHeaderColumn(c.name), c.width);
        }
        grid.enableCheckboxes(true);
        for (const auto &run : MakeRuns(count)) grid.insertRow(run.data, run.key);
        grid.refresh();
        auto *sizer = new wxBoxSizer(wxVERTICAL);
        sizer->Add(list_, 1, wxEXPAND);
        SetSizer(sizer);
    }
    // The list goes first: its grid calls the owner until it is gone.
    ~RunsPage() override { DestroyChildren(); }
    qor::ReportListCtrl *List() const { return list_; }
    RunsOwner &Owner() { return owner_; }

private:
    RunsOwner owner_;
    qor::ReportListCtrl *list_;
};

}  // namespace qor::gallery
