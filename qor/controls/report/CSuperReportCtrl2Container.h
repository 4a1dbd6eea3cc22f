// The owner of a report grid: the grid tells it what the user did and asks it
// for what only the owner knows (combo lists, cell times, vetoes).
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "qor/platform/WinGeometry.h"

class CSuperReportCtrl2;

// A pure interface; the slots stand in the order clients were compiled
// against. The grid keeps a pointer to it that may be null, and tests it at
// every call. The grid never deletes its container.
class CSuperReportCtrl2Container {
public:
    // A cell was written with notification while no editor was open on it.
    virtual void OnCellEdited(std::int64_t key, const std::string &oldValue, const std::string &newValue) = 0;
    // A cell was written with notification while its editor was open.
    virtual void OnCellCommitted(std::int64_t key) = 0;
    // A row was clicked or the selection changed; -1 when all rows changed.
    virtual void OnSelectionChanged(int row) = 0;
    // True vetoes the sort on that column.
    virtual bool OnHeaderClick(int column) = 0;
    // The filter changed and the view was rebuilt.
    virtual void OnViewChanged(CSuperReportCtrl2 *control) = 0;
    // The choices of a combo-box cell; an empty list opens no editor.
    virtual std::vector<std::string> GetComboValues(int row, int column) = 0;
    // The time of a cell, for date editors and time sorting.
    virtual std::int64_t GetCellTime(int row, int column) = 0;
    // The button in a cell was pressed.
    virtual void OnInPlaceButton(const std::string &text, int row, int column) = 0;
    // Kept for the slot order; the grid never calls it.
    virtual void ReservedOperation() = 0;
    virtual void OnSelectAll(CSuperReportCtrl2 *control) = 0;
    virtual void OnDeselectAll(CSuperReportCtrl2 *control) = 0;
    // A checkbox was clicked; 2 cancels the change.
    virtual int OnCheckboxChanged(int row, bool newState) = 0;
    // Rows were dropped here from source, over the given cell.
    virtual void OnDropRows(int row, int column, CSuperReportCtrl2 *source) = 0;
    // True lets a row (heading to text) be copied to another grid.
    virtual bool CanCopyRow(const std::map<std::string, std::string> &rowData) = 0;
    // An edit box is about to open on the cell.
    virtual void OnBeginEdit(int row, int column) = 0;
    // A custom menu item was chosen: the selected rows, each with "ItemID".
    virtual void OnCustomMenu(const std::vector<std::map<std::string, std::string>> &rows,
                              const std::string &itemText) = 0;
    virtual void OnFilterByRow() = 0;
    virtual void OnFilterByColumn() = 0;
    // After a sort: the heading followed by "(Ascending)" or "(Descending)".
    virtual void OnSorted(const std::string &text) = 0;
    // A right click; true ends the grid's own handling.
    virtual bool OnContextMenuRequest(CPoint point) = 0;
    // "Show all" was chosen; true ends the grid's own handling.
    virtual bool OnShowAllRequest() = 0;
    // A cell of an owner-action column was clicked.
    virtual void OnCellAction(int row, int column) = 0;

protected:
    // Not a slot: a grid never deletes its container.
    ~CSuperReportCtrl2Container() = default;
};

namespace qor {

// A container that hears nothing and vetoes nothing, to derive from when an
// owner cares about a few of the calls.
class ReportContainer : public CSuperReportCtrl2Container {
public:
    void OnCellEdited(std::int64_t, const std::string &, const std::string &) override {}
    void OnCellCommitted(std::int64_t) override {}
    void OnSelectionChanged(int) override {}
    bool OnHeaderClick(int) override { return false; }
    void OnViewChanged(CSuperReportCtrl2 *) override {}
    std::vector<std::string> GetComboValues(int, int) override { return {}; }
    std::int64_t GetCellTime(int, int) override { return 0; }
    void OnInPlaceButton(const std::string &, int, int) override {}
    void ReservedOperation() override {}
    void OnSelectAll(CSuperReportCtrl2 *) override {}
    void OnDeselectAll(CSuperReportCtrl2 *) override {}
    int OnCheckboxChanged(int, bool) override { return 0; }
    void OnDropRows(int, int, CSuperReportCtrl2 *) override {}
    bool CanCopyRow(const std::map<std::string, std::string> &) override { return true; }
    void OnBeginEdit(int, int) override {}
    void OnCustomMenu(const std::vector<std::map<std::string, std::string>> &, const std::string &) override {}
    void OnFilterByRow() override {}
    void OnFilterByColumn() override {}
    void OnSorted(const std::string &) override {}
    bool OnContextMenuRequest(CPoint) override { return false; }
    bool OnShowAllRequest() override { return false; }
    void OnCellAction(int, int) override {}
    // After the interface's slots, so their order stays as it is.
    virtual ~ReportContainer() = default;
};

}  // namespace qor
