// The grid as a window: clicks, in-place editors, the cell geometry, the
// selection, checkboxes, tool tips and moving rows to another grid.
#include <algorithm>
#include <climits>

#include "qor/controls/report/CSuperReportCtrl2.h"
#include "qor/controls/report/TipText.h"

using qor::report::Row;

namespace qor::report_edit_impl {

int Clamped(long long value) { return static_cast<int>(std::clamp<long long>(value, INT_MIN, INT_MAX)); }

// Window styles of the editors, in the framework's bits.
constexpr unsigned long kEditStyle = 0x50800080;           // one line that scrolls sideways
constexpr unsigned long kMultiLineEditStyle = 0x50A01004;  // several lines, a scroll bar, takes return
constexpr unsigned long kComboStyle = 0x50A00803;
constexpr unsigned long kDateStyle = 0x50000000;      // a short date
constexpr unsigned long kDateTimeStyle = 0x50000009;  // with the time
constexpr unsigned long kButtonStyle = 0x50800000;
constexpr unsigned kDeleteKey = 0x2E;

}  // namespace qor::report_edit_impl

// ---- clicks ----

void CSuperReportCtrl2::OnNMClick(int row, int column, bool onCheckbox) {
    if (!container_) return;
    if (checkboxes_ && onCheckbox) {
        bool state = !getCheckboxState(row);
        if (container_->OnCheckboxChanged(row, state) != 2) setCheckboxState(row, state);
        return;
    }
    if (column == -1) return;
    container_->OnSelectionChanged(row);
    if (row == -1) return;
    lastColumn_ = currentColumn_;
    lastRow_ = currentRow_;
    // The first click on a cell makes it current; only a second one edits.
    if (column != currentColumn_ || row != currentRow_) {
        currentColumn_ = column;
        currentRow_ = row;
        return;
    }
    const HeaderInfo *header = getHeaderInfo(column);
    if (!header || !ViewRow(row)) return;  // no such cell: any editor stays
    destroyInPlaceEditor();
    if (lastRow_ >= 0) RedrawItems(lastRow_, lastRow_);
    for (int selected : getSelectionSet()) RedrawItems(selected, selected);
    if (!container_) return;
    switch (header->inPlaceType) {
    case InPlaceEdit:
        container_->OnBeginEdit(row, column);
        showInPlaceControl(row, column, getRealCellData(row, column));
        break;
    case InPlaceComboBox: {
        std::vector<std::string> values = container_->GetComboValues(row, column);
        if (!values.empty()) showInPlaceControl(row, column, std::move(values), getCellData(row, column));
        break;
    }
    case InPlaceDate:
    case InPlaceDateTime:
        showInPlaceDateTimeControl(row, column, container_->GetCellTime(row, column),
                                   header->inPlaceType == InPlaceDateTime);
        break;
    case InPlaceButton:
        showInPlaceButton(row, column, getCellData(row, column));
        break;
    case InPlaceOwnerAction:
        container_->OnCellAction(row, column);
        break;
    default:
        break;  // read-only
    }
}

void CSuperReportCtrl2::OnKeyDown(unsigned virtualKey) {
    if (virtualKey == qor::report_edit_impl::kDeleteKey && deletesEnabled_) deleteSelectedRows();
}

void CSuperReportCtrl2::OnKeyUp(unsigned virtualKey) {
    if (container_) container_->OnSelectionChanged(GetSelectionMark());
}

// ---- in-place editors ----

unsigned long CSuperReportCtrl2::getColumnStyle(int column) const {
    const HeaderInfo *header = getHeaderInfo(column);
    return header && header->multiLine ? qor::report_edit_impl::kMultiLineEditStyle
                                       : qor::report_edit_impl::kEditStyle;
}

const qor::InPlaceEditor *CSuperReportCtrl2::OpenEditor(std::unique_ptr<qor::InPlaceEditor> editor) {
    Row *row = ViewRow(editor->row);
    if (!row || !getHeaderInfo(editor->column)) return nullptr;
    destroyInPlaceEditor();
    editorKey_ = row->Key();
    editor_ = std::move(editor);
    InPlaceEditorChanged();
    return editor_.get();
}

const qor::InPlaceEditor *CSuperReportCtrl2::showInPlaceControl(int row, int column, const std::string &text) {
    auto editor = std::make_unique<qor::InPlaceEditor>();
    editor->kind = qor::InPlaceEditor::Kind::Edit;
    editor->row = row, editor->column = column, editor->text = text;
    editor->style = getColumnStyle(column);
    editor->rect = getCellRect(row, column);
    if (const HeaderInfo *header = getHeaderInfo(column); header && header->multiLine)
        editor->rect.bottom = qor::report_edit_impl::Clamped(4LL * editor->rect.bottom - 3LL * editor->rect.top);
    return OpenEditor(std::move(editor));
}

const qor::InPlaceEditor *CSuperReportCtrl2::showInPlaceControl(int row, int column, std::vector<std::string> items,
                                                                const std::string &text) {
    auto editor = std::make_unique<qor::InPlaceEditor>();
    editor->kind = qor::InPlaceEditor::Kind::ComboBox;
    editor->row = row, editor->column = column, editor->text = text;
    editor->style = qor::report_edit_impl::kComboStyle;
    editor->rect = getCellRect(row, column);
    int rowHeight = GetListItemRect(row).Height();
    editor->rect.bottom = qor::report_edit_impl::Clamped(
        editor->rect.bottom + static_cast<long long>(std::min<std::size_t>(items.size() + 1, INT_MAX)) * rowHeight);
    auto match = std::find(items.begin(), items.end(), text);
    editor->selected = match == items.end() ? -1 : static_cast<int>(match - items.begin());
    editor->items = std::move(items);
    editor->itemHeight = rowHeight - 1;
    editor->droppedWidth = GetColumnWidth(column);
    return OpenEditor(std::move(editor));
}

const qor::InPlaceEditor *CSuperReportCtrl2::showInPlaceDateTimeControl(int row, int column, std::int64_t time,
                                                                        bool showTime) {
    auto editor = std::make_unique<qor::InPlaceEditor>();
    editor->kind = qor::InPlaceEditor::Kind::Date;
    editor->row = row, editor->column = column;
    editor->time = time, editor->showTime = showTime;
    editor->text = qor::FormatInPlaceTime(time, showTime);
    editor->style = showTime ? qor::report_edit_impl::kDateTimeStyle : qor::report_edit_impl::kDateStyle;
    editor->rect = getCellRect(row, column);
    return OpenEditor(std::move(editor));
}

const qor::InPlaceEditor *CSuperReportCtrl2::showInPlaceButton(int row, int column, const std::string &text) {
    auto editor = std::make_unique<qor::InPlaceEditor>();
    editor->kind = qor::InPlaceEditor::Kind::Button;
    editor->row = row, editor->column = column, editor->text = text;
    editor->style = qor::report_edit_impl::kButtonStyle;
    editor->rect = getCellRect(row, column);
    return OpenEditor(std::move(editor));
}

void CSuperReportCtrl2::destroyInPlaceEditor() {
    if (!editor_) return;
    editor_.reset();
    InPlaceEditorChanged();
}

void CSuperReportCtrl2::closeInPlaceControl() {
    destroyInPlaceEditor();
    lastColumn_ = lastRow_ = -1;
}

bool CSuperReportCtrl2::EditorOn(std::int64_t key, int column) const {
    return editor_ && editor_->column == column && editorKey_ == key;
}

void CSuperReportCtrl2::OnUpdateFieldValue(const std::string &text) {
    if (lastColumn_ == -1 && lastRow_ == -1) return;
    int column = lastColumn_;
    // The editor's row is found by its key: rows may have moved meanwhile.
    std::string current;
    if (editor_) {
        Row *row = rows_.Find(editorKey_);
        current = row ? row->Cell(column) : std::string();
    } else {
        current = getRealCellData(lastRow_, column);
    }
    if (getHeaderInfo(column) && text != current) {
        // One edit goes to every selected row. The keys are taken before any
        // row is written, so a write that moves rows cannot redirect it; the
        // view is brought up to date once, not once a row.
        std::vector<std::int64_t> keys;
        for (int row : getSelectionSet()) {
            if (keys.empty()) {
                keys.push_back(getUniqueKey(row));
            } else {
                Row *viewRow = ViewRow(row);
                keys.push_back(viewRow ? viewRow->Key() : 0);
            }
        }
        std::string heading = getHeader(column);
        for (std::int64_t key : keys) updateCell(key, {heading, text}, true);
    }
    closeInPlaceControl();
    refresh();
}

void CSuperReportCtrl2::OnInplaceButtonClick() {
    if (editor_ && editor_->kind == qor::InPlaceEditor::Kind::Button && container_)
        container_->OnInPlaceButton(editor_->text, editor_->row, editor_->column);
}

const std::string &CSuperReportCtrl2::OnLvnGetdispinfo(int item, int subItem) {
    // One map per drawn row, not one per cell.
    if (item != cachedRow_ || cachedVersion_ != viewVersion_) {
        cachedRow_ = item;
        cachedVersion_ = viewVersion_;
        cachedData_ = getViewRowData(item);
    }
    auto it = cachedData_.find(getHeader(subItem));
    if (it == cachedData_.end()) {
        cellText_.clear();
        return cellText_;
    }
    return it->second;
}

// ---- geometry ----

int CSuperReportCtrl2::getColumnFromX(int x) {
    long long position = static_cast<long long>(x) + GetHorizontalScroll(), sum = 0;
    for (int column : getColumnOrderVector()) {
        sum += GetColumnWidth(column);
        if (sum > position) return column;
    }
    return -1;
}

int CSuperReportCtrl2::getSelectedColumn() { return getColumnFromX(GetCursorClientPos().x); }

CRect CSuperReportCtrl2::getCellRect(int row, int column) {
    if (row < 0 || !getHeaderInfo(column)) return CRect();
    int left = -GetHorizontalScroll();
    for (int c : getColumnOrderVector()) {
        if (c == column) break;
        left += GetColumnWidth(c);
    }
    CRect item = GetListItemRect(row);
    return CRect(left, item.top, left + GetColumnWidth(column), item.bottom);
}

bool CSuperReportCtrl2::GetItemFromPoint(CPoint point, int &row, int &column) {
    column = getColumnFromX(point.x);
    row = HitTestRow(point);
    return row >= 0 && column >= 0;
}

// ---- selection and checkboxes ----

std::vector<int> CSuperReportCtrl2::GetSelectedItems() const {
    std::vector<int> rows;
    for (int i = 0, n = GetItemCount(); i < n; ++i)
        if (GetItemState(i, LVIS_SELECTED)) rows.push_back(i);
    return rows;
}

std::vector<int> CSuperReportCtrl2::getSelectionSet() {
    std::vector<int> rows = GetSelectedItems();
    std::sort(rows.begin(), rows.end());
    return rows;
}

std::vector<CSuperReportCtrl2::SelectionInfo> CSuperReportCtrl2::getSelectionsAndKeys() {
    std::vector<SelectionInfo> selection;
    for (int r : getSelectionSet())
        if (Row *row = ViewRow(r)) selection.push_back({row->Key(), RowMap(row), getCheckboxState(r)});
    return selection;
}

void CSuperReportCtrl2::selectAllRows(bool select) { SetItemState(-1, select ? LVIS_SELECTED : 0, LVIS_SELECTED); }

void CSuperReportCtrl2::enableCheckboxes(bool on) {
    if (on) EnableListCheckboxes();
    checkboxes_ = on;
}

void CSuperReportCtrl2::setCheckboxState(int row, bool state) {
    std::vector<bool> &checks = rows_.Checks();
    if (row < 0 || static_cast<std::size_t>(row) >= checks.size()) return;
    checks[row] = state;
    RedrawItems(row, row);
}

bool CSuperReportCtrl2::getCheckboxState(int row) {
    std::vector<bool> &checks = rows_.Checks();
    return row >= 0 && static_cast<std::size_t>(row) < checks.size() && checks[row];
}

// ---- tool tips ----

int CSuperReportCtrl2::OnToolHitTest(CPoint point) {
    int row, column;
    if (!GetItemFromPoint(point, row, column) || !ViewRow(row) || !getHeaderInfo(column)) return -1;
    // The id packs the cell as (column & 0x3FF) + 1 + row * 1024.
    if (row > (INT_MAX - 1024) / 1024) return -1;
    return (column & 0x3FF) + 1 + row * 1024;
}

std::string CSuperReportCtrl2::getToolTipText(unsigned toolId) {
    if (toolId == 0) return {};
    unsigned id = toolId - 1;
    return qor::WrapTipText(getRealCellData(static_cast<int>(id >> 10), static_cast<int>(id & 0x3FF)));
}

// ---- moving rows ----

void CSuperReportCtrl2::OnLvnBegindrag(int row) {
    if (dragStyle_ != DragAndDrop::NoDrag && ViewRow(row)) dragRow_ = row;
}

bool CSuperReportCtrl2::OnDropOn(CSuperReportCtrl2 &target, int row, int column) {
    if (dragRow_ < 0 || &target == this) {
        dragRow_ = -1;
        return false;
    }
    bool copied = copySelectionToSRC2(target, true);
    if (copied && (dragStyle_ & DragAndDrop::DragMove)) moveSelection();
    dragRow_ = -1;
    if (target.container_) target.container_->OnDropRows(row, column, this);
    return copied;
}

void CSuperReportCtrl2::moveSelection() {
    if (dragRow_ == -1) return;
    for (std::int64_t key : copiedKeys_) deleteRowFromKey(key, false);
    copiedKeys_.clear();
    refresh();
}

void CSuperReportCtrl2::setDropHighlight(int row) {
    if (dropHighlight_ >= 0) {
        SetItemState(dropHighlight_, 0, LVIS_DROPHILITED);
        RedrawItems(dropHighlight_, dropHighlight_);
    }
    dropHighlight_ = row;
    if (row >= 0) {
        SetItemState(row, LVIS_DROPHILITED, LVIS_DROPHILITED);
        RedrawItems(row, row);
    }
}
