// A grid cell holding a number with a range, a step and a number of
// decimals.
#pragma once

#include "qor/controls/layout/CellRules.h"
#include "qor/controls/wx/QorCell.h"

// Edited as text (see qor::NumberCellRule for what is accepted); while
// editing, the Up and Down keys step the number and Page Up and Page Down
// step it ten times, within the range. Shown right-aligned with its
// decimals; a stored value the rule does not accept is shown as it is.
class QorCellNumber : public QorCell {
public:
    explicit QorCellNumber(const qor::NumberCellRule &rule) : rule(rule) {}
    QorCellNumber(double min, double max, double step = 1, int decimals = 0)
        : rule(min, max, step, decimals) {}

    std::optional<std::string> Accept(const std::string &text) const override { return rule.Accept(text); }
    wxGridCellEditor *NewEditor() const override;
    wxGridCellRenderer *NewRenderer() const override;

    const qor::NumberCellRule &Rule() const { return rule; }

private:
    qor::NumberCellRule rule;
};
