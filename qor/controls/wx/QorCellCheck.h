// A grid cell holding a check mark.
#pragma once

#include "qor/controls/wx/QorCell.h"

// Stored as "1" when checked and as empty text when not, which is what the
// grid's check box editor and renderer read and write; shown as a check box.
// Values set by the program may be any of the words qor::CheckCellRule knows.
class QorCellCheck : public QorCell {
public:
    static constexpr const char *kChecked = "1";
    static constexpr const char *kUnchecked = "";

    std::optional<std::string> Accept(const std::string &text) const override;
    wxGridCellEditor *NewEditor() const override;
    wxGridCellRenderer *NewRenderer() const override;
};
