// A grid cell holding one of a fixed list of items.
#pragma once

#include <string>
#include <vector>

#include "qor/controls/layout/CellRules.h"
#include "qor/controls/wx/QorCell.h"

// Edited with a drop-down list of the items and nothing else; shown as its
// text with a drop arrow at the right. See qor::ChoiceCellRule for what
// values set by the program may be.
class QorCellChoice : public QorCell {
public:
    explicit QorCellChoice(std::vector<std::string> items, bool caseSensitive = false)
        : rule(std::move(items), caseSensitive) {}

    std::optional<std::string> Accept(const std::string &text) const override { return rule.Accept(text); }
    wxGridCellEditor *NewEditor() const override;
    wxGridCellRenderer *NewRenderer() const override;

    const qor::ChoiceCellRule &Rule() const { return rule; }

private:
    qor::ChoiceCellRule rule;
};
