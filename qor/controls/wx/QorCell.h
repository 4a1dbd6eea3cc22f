// The suite's kinds of grid cell: what a cell of each kind accepts, and the
// editor and renderer that show and edit it in a wxGrid.
#pragma once

#include <optional>
#include <string>

class wxGrid;
class wxGridCellEditor;
class wxGridCellRenderer;

// A cell kind is a small value; apply it to cells or whole columns of any
// number of grids. Editors refuse what the kind refuses (the cell keeps its
// value and the bell rings), and SetValue does the same for values set by
// the program, storing each value in the kind's own form.
class QorCell {
public:
    virtual ~QorCell() = default;

    // The stored form of `text`, or nothing when the kind refuses it.
    virtual std::optional<std::string> Accept(const std::string &text) const = 0;
    // New objects, owned by the caller as wxWidgets counts references.
    virtual wxGridCellEditor *NewEditor() const = 0;
    virtual wxGridCellRenderer *NewRenderer() const = 0;

    void ApplyToCell(wxGrid &grid, int row, int col) const;
    void ApplyToColumn(wxGrid &grid, int col) const;
    // Stores `text` in its stored form; false, and the cell unchanged, when
    // it is refused.
    bool SetValue(wxGrid &grid, int row, int col, const std::string &text) const;
};
