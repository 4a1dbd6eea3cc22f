#include "qor/controls/wx/QorCellCheck.h"

#include <wx/grid.h>

#include "qor/controls/layout/CellRules.h"

std::optional<std::string> QorCellCheck::Accept(const std::string &text) const {
    const auto checked = qor::CheckCellRule::Parse(text);
    if (!checked) return std::nullopt;
    return std::string(*checked ? kChecked : kUnchecked);
}

wxGridCellEditor *QorCellCheck::NewEditor() const { return new wxGridCellBoolEditor; }

wxGridCellRenderer *QorCellCheck::NewRenderer() const { return new wxGridCellBoolRenderer; }
