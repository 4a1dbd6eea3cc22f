#include "qor/controls/wx/QorCell.h"

#include <wx/grid.h>

void QorCell::ApplyToCell(wxGrid &grid, int row, int col) const {
    grid.SetCellEditor(row, col, NewEditor());
    grid.SetCellRenderer(row, col, NewRenderer());
}

void QorCell::ApplyToColumn(wxGrid &grid, int col) const {
    auto *attr = new wxGridCellAttr;
    attr->SetEditor(NewEditor());
    attr->SetRenderer(NewRenderer());
    grid.SetColAttr(col, attr);
}

bool QorCell::SetValue(wxGrid &grid, int row, int col, const std::string &text) const {
    const auto stored = Accept(text);
    if (stored) grid.SetCellValue(row, col, wxString::FromUTF8(*stored));
    return stored.has_value();
}
