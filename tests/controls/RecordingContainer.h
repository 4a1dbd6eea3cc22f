// A container that writes down what the grid tells it and answers as told.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "qor/controls.h"

struct RecordingContainer : CSuperReportCtrl2Container {
    std::vector<std::string> calls;
    bool vetoHeader = false, endContextMenu = false, endShowAll = false, allowCopy = true;
    int checkboxAnswer = 0;
    std::vector<std::string> comboValues;
    std::function<std::int64_t(int, int)> cellTime = [](int, int) { return std::int64_t{0}; };
    std::vector<std::map<std::string, std::string>> customRows;

    void Log(std::string call) { calls.push_back(std::move(call)); }
    int Count(const std::string &prefix) const {
        int n = 0;
        for (const auto &c : calls) n += c.rfind(prefix, 0) == 0;
        return n;
    }

    void OnCellEdited(std::int64_t key, const std::string &o, const std::string &n) override {
        Log("Edited " + std::to_string(key) + " " + o + ">" + n);
    }
    void OnCellCommitted(std::int64_t key) override { Log("Committed " + std::to_string(key)); }
    void OnSelectionChanged(int row) override { Log("Selection " + std::to_string(row)); }
    bool OnHeaderClick(int column) override { Log("Header " + std::to_string(column)); return vetoHeader; }
    void OnViewChanged(CSuperReportCtrl2 *) override { Log("ViewChanged"); }
    std::vector<std::string> GetComboValues(int, int) override { Log("Combo"); return comboValues; }
    std::int64_t GetCellTime(int row, int column) override { return cellTime(row, column); }
    void OnInPlaceButton(const std::string &text, int row, int column) override {
        Log("Button " + text + " " + std::to_string(row) + "," + std::to_string(column));
    }
    void ReservedOperation() override { Log("Reserved"); }
    void OnSelectAll(CSuperReportCtrl2 *) override { Log("SelectAll"); }
    void OnDeselectAll(CSuperReportCtrl2 *) override { Log("DeselectAll"); }
    int OnCheckboxChanged(int row, bool state) override {
        Log("Checkbox " + std::to_string(row) + (state ? " on" : " off"));
        return checkboxAnswer;
    }
    void OnDropRows(int row, int column, CSuperReportCtrl2 *) override {
        Log("Drop " + std::to_string(row) + "," + std::to_string(column));
    }
    bool CanCopyRow(const std::map<std::string, std::string> &) override { return allowCopy; }
    void OnBeginEdit(int row, int column) override { Log("BeginEdit " + std::to_string(row) + "," + std::to_string(column)); }
    void OnCustomMenu(const std::vector<std::map<std::string, std::string>> &rows, const std::string &text) override {
        customRows = rows;
        Log("Custom " + text);
    }
    void OnFilterByRow() override { Log("FilterByRow"); }
    void OnFilterByColumn() override { Log("FilterByColumn"); }
    void OnSorted(const std::string &text) override { Log("Sorted " + text); }
    bool OnContextMenuRequest(CPoint) override { Log("ContextMenu"); return endContextMenu; }
    bool OnShowAllRequest() override { Log("ShowAllRequest"); return endShowAll; }
    void OnCellAction(int row, int column) override { Log("Action " + std::to_string(row) + "," + std::to_string(column)); }
};

// A grid with the given columns (name, type, numeric, time, multi-line) and
// rows of cells in column order, refreshed.
inline void Fill(CSuperReportCtrl2 &grid, const std::vector<std::string> &columns,
                 const std::vector<std::vector<std::string>> &rows) {
    for (const auto &c : columns) grid.insertHeader(c, InPlaceEdit, false, false, false);
    for (const auto &row : rows) {
        std::vector<std::pair<std::string, std::string>> cells;
        for (std::size_t c = 0; c < row.size(); ++c) cells.emplace_back(columns[c], row[c]);
        grid.insertRow(cells, -1);
    }
    grid.refresh();
}

inline std::vector<std::string> Column(CSuperReportCtrl2 &grid, int column) { return grid.getViewColumnData(column); }
